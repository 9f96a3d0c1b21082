#ifndef STRLIB_DETAIL_COMPARE_H
#define STRLIB_DETAIL_COMPARE_H

// Comparing strings, a block at a time.

#include "detail/ascii.h"
#include "detail/block.h"
#include "detail/bytes.h"

namespace strlib {
namespace {

// How a comparison reads bytes: as they stand, or with the capitals folded.
struct Exact {
    static uint8_t read(uint8_t byte) { return byte; }
    static block::Block readBlock(block::Block bytes) { return bytes; }
};

struct Folded {
    static uint8_t read(uint8_t byte) { return folded(byte); }
    static block::Block readBlock(block::Block bytes) { return block::fold(bytes); }
};

inline constexpr size_t unlimited = SIZE_MAX;

// The first strings' bytes that are compared one by one, before blocks are worth their preparation.
inline constexpr size_t bytesFirst = block::size >= 16 ? 16 : 0;

template <class Reading>
inline int32_t difference(uint8_t first, uint8_t second) {
    return asSigned(Reading::read(first)) - asSigned(Reading::read(second));
}

// How many blocks' bytes from `first` (aligned) and `second` on are alike for sure, hold no NUL and lie within `limit`.
// A block of `second` is loaded only behind a look at the aligned block in which it begins: without a NUL there, both
// strings reach as far as the next. (Loading what crosses a boundary unseen could fault behind the end of a string.)
template <class Reading>
[[gnu::always_inline]] inline size_t alikeBlocks(const uint8_t *first, const uint8_t *second, size_t limit) {
    using namespace block;
    const size_t offset = offsetIn(second);
    Address ahead = addressOf(second) - offset;
    if (from(pack(zeros(loadAligned(ahead))), offset) != 0) return 0;
    size_t count = 0;
    for (; limit - count >= size; count += size) {
        const Block a = loadAligned(addressOf(first) + count);
        if (offset != 0 && pack(zeros(loadAligned(ahead += size))) != 0) break;
        const Block b = load(second + count);
        if (pack(inverse(equals(Reading::readBlock(a), Reading::readBlock(b)))) != 0) break;
        if (offset == 0 && pack(zeros(b)) != 0) break;
    }
    return count;
}

// The difference of the first two of at most `limit` bytes that differ.
template <class Reading>
[[gnu::always_inline]] inline int32_t compareUpTo(const uint8_t *first, const uint8_t *second, size_t limit) {
    size_t blocksFrom = bytesFirst + (0 - block::addressOf(first) - bytesFirst) % block::size;
    for (size_t i = 0; i < limit; ++i) {
        if (i == blocksFrom) {
            i += alikeBlocks<Reading>(first + i, second + i, limit - i);
            blocksFrom = unlimited;
            if (i == limit) break;
        }
        const int32_t found = difference<Reading>(first[i], second[i]);
        if (found != 0 || first[i] == 0) return found;
    }
    return 0;
}

template <class Reading>
[[gnu::always_inline]] inline int32_t compareStrings(const uint8_t *first, const uint8_t *second) {
    return compareUpTo<Reading>(first, second, unlimited);
}

// The rule for signed counts: 0 compares nothing, a negative count the first bytes only.
inline size_t positionsToCompare(int32_t count) { return count < 0 ? 1 : static_cast<size_t>(count); }

}  // namespace
}  // namespace strlib

#endif
