#ifndef STRLIB_CORE_COMPARE_WORDS_H
#define STRLIB_CORE_COMPARE_WORDS_H

// Comparing by words. A word of bytes is compared one by one, which decides most comparisons, then words, then the rest
// by bytes again.

#include "core/case_mode.h"

namespace strlib {
namespace {

inline constexpr size_t wordSize = sizeof(block::Word);

// Whether the aligned word around an address holds a NUL.
inline bool hasNul(block::Address address) {
    return block::zeros(block::loadAlignedWord<block::Word>(address - address % wordSize)) != 0;
}

// The index of the first word in which the strings may differ or end, given that they do not in the first `wordSize`
// bytes. Words of `first` are aligned; `second` is loaded behind a look at the aligned words that it reaches into:
// without a NUL there, all of it is text.
template <class Reading, class Limit>
[[gnu::always_inline]] inline size_t passWords(const uint8_t *first, const uint8_t *second, Limit limit) {
    using namespace block;
    size_t i = wordSize;
    if (!limit.allows(2 * wordSize)) return i;
    const Address start = beginReading(first);
    const Address other = beginReading(second);
    if (hasNul(other + i)) return i;
    i -= start % wordSize;
    const Address last = other + wordSize - 1;
    const Address ahead = last - (last + i) % wordSize;
    for (; limit.allows(i + 2 * wordSize); i += wordSize) {
        if (zeros(loadAlignedWord<Word>(ahead + i)) != 0) break;
        const Word aligned = loadAlignedWord<Word>(start + i);
        if (Reading::unlike(aligned, loadWord<Word>(second + i)) != 0) break;
    }
    return i;
}

// Goes on where so many bytes are alike, those of a word or none. Apart, so that short comparisons save no registers.
template <class Reading, class Limit>
[[gnu::noinline]] int32_t compareOn(size_t i, const uint8_t *first, const uint8_t *second, Limit limit) {
    if (i != 0) i = passWords<Reading>(first, second, limit);
    for (; limit.allows(i); ++i) {
        if (!Reading::alike(first[i], second[i])) return difference<Reading>(first[i], second[i]);
        if (first[i] == 0) return 0;
    }
    return 0;
}

template <class Reading, class Limit>
[[gnu::always_inline]] inline int32_t compareUpTo(const uint8_t *first, const uint8_t *second, Limit limit) {
    if (!limit.allows(wordSize - 1)) return compareOn<Reading>(0, first, second, limit);
#pragma GCC unroll 8
    for (size_t i = 0; i < wordSize; ++i) {
        if (!Reading::alike(first[i], second[i])) return difference<Reading>(first[i], second[i]);
        if (first[i] == 0) return 0;
    }
    return compareOn<Reading>(wordSize, first, second, limit);
}

// Whether commonPrefix() takes less than looking bytes up.
inline constexpr bool passesEqualBytesFast = false;

// How many bytes two strings have in common at their start.
template <class Reading>
[[gnu::always_inline]] inline size_t commonPrefix(const uint8_t *first, const uint8_t *second) {
    size_t count = 0;
    while (second[count] != 0 && Reading::alike(first[count], second[count])) ++count;
    return count;
}

// Bytes that all exist.
inline int32_t compareRanges(const uint8_t *first, const uint8_t *second, size_t count) {
    size_t i = 0;
    for (; count - i >= wordSize; i += wordSize) {
        if (block::loadAs<block::Word>(first + i) != block::loadAs<block::Word>(second + i)) break;
    }
    for (; i < count; ++i) {
        if (first[i] != second[i]) return first[i] - second[i];
    }
    return 0;
}

}  // namespace
}  // namespace strlib

#endif
