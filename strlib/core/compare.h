#ifndef STRLIB_CORE_COMPARE_H
#define STRLIB_CORE_COMPARE_H

// Comparing, in the way that suits the machine. Moving results from NEON to general registers is slow, and a comparison
// does it for every block: ARM compares by words.

#include "machine/block.h"

#if defined(STRLIB_BLOCK_X86)
#include "core/compare_blocks.h"
#else
#include "core/compare_words.h"
#endif

namespace strlib {
namespace {

template <class Mode>
[[gnu::always_inline]] inline int32_t compareStrings(const uint8_t *first, const uint8_t *second) {
#if defined(STRLIB_BLOCK_X86)
    return compareUpTo<Mode>(first, second, Unlimited());
#else
    return compareUpTo<Mode>(first, second, Endless());
#endif
}

// The rule for signed counts: 0 compares nothing, a negative count the first bytes only.
template <class Mode>
[[gnu::always_inline]] inline int32_t compareCounted(const uint8_t *first, const uint8_t *second, int32_t count) {
    if (count == 0) return 0;
    const size_t positions = count < 0 ? 1 : static_cast<size_t>(count);
#if defined(STRLIB_BLOCK_X86)
    return compareUpTo<Mode>(first, second, Limited{positions});
#else
    return compareUpTo<Mode>(first, second, Within{positions - 1});
#endif
}

}  // namespace
}  // namespace strlib

#endif
