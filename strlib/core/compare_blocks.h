#ifndef STRLIB_CORE_COMPARE_BLOCKS_H
#define STRLIB_CORE_COMPARE_BLOCKS_H

// Comparing by blocks, for machines on which masks are cheap.

#include "core/case_mode.h"

namespace strlib {
namespace {

// Which positions a comparison may look at: all, or the first `count`.
struct Unlimited {
    static constexpr size_t count = SIZE_MAX;
    bool allows(size_t) const { return true; }
};

struct Limited {
    bool allows(size_t index) const { return index < count; }

    size_t count;
};

// What a comparison gives for the index at which it stops: the difference there, or the index itself.
template <class Mode>
struct Difference {
    using Value = int32_t;
    static Value at(const uint8_t *first, const uint8_t *second, size_t i) {
        return difference<Mode>(first[i], second[i]);
    }
};

struct Index {
    using Value = size_t;
    static Value at(const uint8_t *, const uint8_t *, size_t i) { return i; }
};

// The first position that the limit does not allow, if it is in the first block.
inline block::Mask endOf(Unlimited) { return 0; }
inline block::Mask endOf(Limited limit) { return limit.allows(block::size - 1) ? 0 : block::Mask{1} << limit.count; }

// Where two blocks differ or the texts end.
template <class Mode>
[[gnu::always_inline]] inline block::Mask stopsIn(block::Block first, block::Block second) {
    using namespace block;
    return pack(zeros(zeros(Mode::unlike(first, second)) & first));
}

// The index of the first position from `i` to `end` at which the texts differ or end, or which the limit does not
// allow. Folding both bytes leaves no branch on the case, which nobody can predict.
template <class Mode, class Limit>
[[gnu::always_inline]] inline size_t passBytes(const uint8_t *first, const uint8_t *second, size_t i, size_t end,
                                               Limit limit) {
    while (i < end && limit.allows(i) && Mode::read(first[i]) == Mode::read(second[i]) && first[i] != 0) ++i;
    return i;
}

// What goes on behind the first block stands apart, so that short comparisons save no registers, and once for all
// limits.

// Goes on where loads may reach past the text inside its page. Blocks of `first` are aligned. The block of `second`
// that would reach into the next page is not loaded before the bytes that end the page: if the texts go on behind them,
// the next page holds text as well. So does the page of the byte behind the first block.
template <class Mode, class Answer>
[[gnu::noinline]] typename Answer::Value compareOnInPages(const uint8_t *first, const uint8_t *second, Limited limit) {
    using namespace block;
    const Address start = beginReading(first);
    const Address other = beginReading(second);
    const auto stops = [=](size_t i) { return stopsIn<Mode>(loadFrom(start + i), loadFrom(other + i)); };
    size_t i = size - offsetIn(start);
    for (size_t pageEnd = size + pageSize - (other + size) % pageSize;; pageEnd += pageSize) {
        const size_t end = limit.allows(pageEnd) ? pageEnd : limit.count;
#pragma GCC unroll 4
        for (; i + size <= end; i += size) {
            if (const Mask found = stops(i); found != 0) return Answer::at(first, second, i + block::first(found));
        }
        if (i < end) {
            const size_t last = end - size;
            if (const Mask found = stops(last); found != 0)
                return Answer::at(first, second, last + block::first(found));
        }
        if (!limit.allows(end)) return {};
    }
}

// The first block where one of the two leaves its page.
template <class Mode, class Answer>
[[gnu::noinline]] typename Answer::Value compareAtPageEnd(const uint8_t *first, const uint8_t *second, Limited limit) {
    const size_t i = passBytes<Mode>(first, second, 0, block::size, limit);
    if (!limit.allows(i)) return {};
    return i < block::size ? Answer::at(first, second, i) : compareOnInPages<Mode, Answer>(first, second, limit);
}

template <class Mode, class Answer, class Limit>
[[gnu::always_inline]] inline typename Answer::Value compareInPages(const uint8_t *first, const uint8_t *second,
                                                                    Limit limit) {
    using namespace block;
    const Address start = beginReading(first);
    const Address other = beginReading(second);
    if (eitherLeavesPage(start, other)) return compareAtPageEnd<Mode, Answer>(first, second, {limit.count});
    const Mask stops = stopsIn<Mode>(loadFrom(start), loadFrom(other)) | endOf(limit);
    if (stops == 0) return compareOnInPages<Mode, Answer>(first, second, {limit.count});
    const size_t i = block::first(stops);
    return limit.allows(i) ? Answer::at(first, second, i) : typename Answer::Value{};
}

// The index of the first block from `i` on in which the texts may differ or end, where only aligned blocks may reach
// past the text. Blocks of `first` are aligned; those of `second` are loaded behind a look at the aligned blocks that
// they reach into: without a NUL there, all is text.
template <class Mode>
[[gnu::always_inline]] inline size_t passBlocks(const uint8_t *first, const uint8_t *second, size_t i, Limited limit) {
    using namespace block;
    const Address start = beginReading(first);
    const Address other = beginReading(second);
    i -= offsetIn(start + i);
    const size_t offset = offsetIn(other + i);
    const auto ahead = [&](size_t blocks) { return loadAligned(other + i - offset + blocks * size); };
    if (!limit.allows(i + 2 * size - offset - 1)) return i;
    if (from(pack(zeros(ahead(0))), offset) != 0 || any(zeros(ahead(1)))) return i;
    for (size_t next = i + 3 * size - offset - 1; limit.allows(next); i += size, next += size) {
        const Block unlike = Mode::unlike(loadAligned(start + i), load(second + i));
        if (any(zeros(zeros(unlike) & ahead(2)))) break;
    }
    return i;
}

// Goes on in aligned blocks and then byte by byte.
template <class Mode, class Answer>
[[gnu::noinline]] typename Answer::Value compareOnInBlocks(const uint8_t *first, const uint8_t *second, Limited limit) {
    const size_t start = passBlocks<Mode>(first, second, block::size, limit);
    const size_t i = passBytes<Mode>(first, second, start, SIZE_MAX, limit);
    return limit.allows(i) ? Answer::at(first, second, i) : typename Answer::Value{};
}

template <class Mode, class Answer, class Limit>
[[gnu::always_inline]] inline typename Answer::Value compareInBlocks(const uint8_t *first, const uint8_t *second,
                                                                     Limit limit) {
    const size_t i = passBytes<Mode>(first, second, 0, block::size, limit);
    if (!limit.allows(i)) return {};
    return i < block::size ? Answer::at(first, second, i)
                           : compareOnInBlocks<Mode, Answer>(first, second, {limit.count});
}

template <class Mode, class Answer, class Limit>
[[gnu::always_inline]] inline typename Answer::Value compareTexts(const uint8_t *first, const uint8_t *second,
                                                                  Limit limit) {
    if (!limit.allows(0)) return {};
    if constexpr (block::loadsReachInPage) return compareInPages<Mode, Answer>(first, second, limit);
    return compareInBlocks<Mode, Answer>(first, second, limit);
}

template <class Mode, class Limit>
[[gnu::always_inline]] inline int32_t compareUpTo(const uint8_t *first, const uint8_t *second, Limit limit) {
    return compareTexts<Mode, Difference<Mode>>(first, second, limit);
}

// Whether commonPrefix() takes less than looking bytes up.
inline constexpr bool passesEqualBytesFast = true;

// How many bytes two strings have in common at their start.
template <class Mode>
[[gnu::always_inline]] inline size_t commonPrefix(const uint8_t *first, const uint8_t *second) {
    return compareTexts<Mode, Index>(first, second, Unlimited());
}

// Two words of bytes that all exist, at both ends of the texts; they may overlap.
template <class Word>
inline int32_t compareEnds(const uint8_t *first, const uint8_t *second, size_t count) {
    const size_t last = count - sizeof(Word);
    const bool beginAlike = block::loadAs<Word>(first) == block::loadAs<Word>(second);
    const Word a = block::loadWord<Word>(beginAlike ? first + last : first);
    const Word b = block::loadWord<Word>(beginAlike ? second + last : second);
    if (a == b) return 0;
    const int32_t shift = __builtin_ctzll(a ^ b) & ~7;
    return static_cast<int32_t>(a >> shift & 0xFF) - static_cast<int32_t>(b >> shift & 0xFF);
}

// Bytes that all exist, fewer than a block has.
inline int32_t compareFew(const uint8_t *first, const uint8_t *second, size_t count) {
    using namespace block;
    if (count == 0) return 0;
    if constexpr (loadsReachInPage) {
        const Address start = beginReading(first);
        const Address other = beginReading(second);
        if (!eitherLeavesPage(start, other)) {
            // Where none differ, the last ones give the 0.
            const Mask unlike = differences(loadFrom(start), loadFrom(other)) | Mask{1} << (count - 1);
            const size_t i = block::first(unlike);
            return first[i] - second[i];
        }
    } else {
        if (count >= sizeof(uint64_t)) return compareEnds<uint64_t>(first, second, count);
        if (count >= sizeof(uint32_t)) return compareEnds<uint32_t>(first, second, count);
    }
    for (size_t i = 0; i < count; ++i) {
        if (first[i] != second[i]) return first[i] - second[i];
    }
    return 0;
}

// Bytes that all exist. The last block overlaps what is compared already.
inline int32_t compareRanges(const uint8_t *first, const uint8_t *second, size_t count) {
    if (count < block::size) return compareFew(first, second, count);
    using namespace block;
    const auto unlikeAt = [=](size_t i) { return load(first + i) ^ load(second + i); };
    const auto anyIn = [](Block unlike) { return pack(inverse(zeros(unlike))); };
    const size_t last = count - size;
    size_t i = 0;
    for (; i + 4 * size <= last; i += 4 * size) {
        const Block some = unlikeAt(i) | unlikeAt(i + size);
        const Block others = unlikeAt(i + 2 * size) | unlikeAt(i + 3 * size);
        if (anyIn(some | others) != 0) break;
    }
    while (i < last && anyIn(unlikeAt(i)) == 0) i += size;
    if (i > last) i = last;
    const Mask unlike = anyIn(unlikeAt(i));
    if (unlike == 0) return 0;
    i += block::first(unlike);
    return first[i] - second[i];
}

}  // namespace
}  // namespace strlib

#endif
