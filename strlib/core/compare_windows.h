#ifndef STRLIB_CORE_COMPARE_WINDOWS_H
#define STRLIB_CORE_COMPARE_WINDOWS_H

// Comparing by blocks, for machines that shift vectors cheaply: the first block of each text is put together from the
// aligned blocks around it, so that short texts of any length and alignment take one path without a branch.

#include "core/case_mode.h"

namespace strlib {
namespace {

// The block that begins at `at`, in which `reach` bytes are known to be text. If they end in the aligned block around
// `at`, that one is taken twice, as the next may hold none of the text.
[[gnu::always_inline]] inline block::Block window(const uint8_t *at, size_t reach) {
    using namespace block;
    Address address = beginReading(at);
    const size_t offset = offsetIn(address);
    address -= offset;
    return joined(loadAligned(address), loadAligned(address + (offset + reach > size ? size : 0)), offset);
}

// The same of a string; what stands behind its end is of no meaning.
template <class Limit>
[[gnu::always_inline]] inline block::Block stringWindow(const uint8_t *string, size_t i, Limit limit) {
    using namespace block;
    Address address = beginReading(string + i);
    const size_t offset = offsetIn(address);
    address -= offset;
    const Block low = loadAligned(address);
    // The size if the text reaches the next aligned block, else less.
    const size_t end = firstOrSize(from(pack(zeros(low)), offset));
    const size_t next = limit.allows(i + size - offset) ? end & size : 0;
    return joined(low, loadAligned(address + next), offset);
}

// The first position that the limit does not allow, if it is in the block at an index.
inline block::Mask endOf(Unlimited, size_t) { return 0; }
inline block::Mask endOf(Limited limit, size_t i) {
    return limit.allows(i + block::size - 1) ? 0 : block::Mask{1} << (limit.count - i);
}

// Where the blocks at an index differ or end.
template <class Reading, class Limit>
[[gnu::always_inline]] inline block::Mask stopsAt(const uint8_t *first, const uint8_t *second, size_t i, Limit limit) {
    using namespace block;
    const Block text = stringWindow(second, i, limit);
    const Block unlike = Reading::unlike(text, stringWindow(first, i, limit));
    return pack(zeros(zeros(unlike) & text)) | endOf(limit, i);
}

// The index of the first block from `i` on in which the strings may differ or end. `first` is aligned there. `second`
// is loaded behind a look at the aligned blocks that it reaches into: without a NUL there, all of it is text.
template <class Reading, class Limit>
[[gnu::always_inline]] inline size_t passBlocks(const uint8_t *first, const uint8_t *second, size_t i, Limit limit) {
    using namespace block;
    const Address start = beginReading(first);
    const Address other = beginReading(second);
    const size_t offset = offsetIn(other + i);
    const size_t lead = 2 * size - offset;  // to the aligned block behind those that a block of `second` reaches into
    const Address ahead = other + lead;
    const auto nulsAt = [&](Address address) { return pack(zeros(loadAligned(address))); };
    if (!limit.allows(i + lead) || from(nulsAt(ahead + i - 2 * size), offset) != 0) return i;
    if (nulsAt(ahead + i - size) != 0) return i;
    const auto stops = [&](size_t at) {
        const Block unlike = Reading::unlike(load(second + at), loadAligned(start + at));
        return pack(zeros(zeros(unlike) & loadAligned(ahead + at))) != 0;
    };
    for (; limit.allows(i + lead + 4 * size - 1); i += 4 * size) {
#pragma GCC unroll 4
        for (size_t block = 0; block < 4; ++block) {
            if (stops(i + block * size)) return i + block * size;
        }
    }
    return i;
}

// So many bytes are compared by windows, and then blocks if there are more.
inline constexpr size_t blocksFrom = 32;

// Goes on behind the first block. Apart, so that short comparisons save no registers.
template <class Reading, class Limit>
[[gnu::noinline]] int32_t compareOn(const uint8_t *first, const uint8_t *second, Limit limit) {
    for (size_t i = block::size; limit.allows(i); i += block::size) {
        if (i == blocksFrom)
            i = passBlocks<Reading>(first, second, i - block::offsetIn(block::addressOf(first + i)), limit);
        const block::Mask stops = stopsAt<Reading>(first, second, i, limit);
        if (stops == 0) continue;
        i += block::first(stops);
        return limit.allows(i) ? difference<Reading>(first[i], second[i]) : 0;
    }
    return 0;
}

template <class Reading, class Limit>
[[gnu::always_inline]] inline int32_t compareUpTo(const uint8_t *first, const uint8_t *second, Limit limit) {
    if (!limit.allows(0)) return 0;
    const block::Mask stops = stopsAt<Reading>(first, second, 0, limit);
    if (stops == 0) return compareOn<Reading>(first, second, limit);
    const size_t i = block::first(stops);
    return limit.allows(i) ? difference<Reading>(first[i], second[i]) : 0;
}

// Bytes that all exist, fewer than a block has: where none differ, the last ones give the 0.
inline int32_t compareFew(const uint8_t *first, const uint8_t *second, size_t count) {
    if (count == 0) return 0;
    const block::Mask unlike = block::differences(window(first, count), window(second, count));
    const size_t i = block::first(unlike | block::Mask{1} << (count - 1));
    return first[i] - second[i];
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
