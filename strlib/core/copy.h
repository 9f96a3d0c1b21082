#ifndef STRLIB_CORE_COPY_H
#define STRLIB_CORE_COPY_H

// Copying by blocks, with the result of copying byte by byte from the front. Where the texts overlap, this holds as
// long as they are two blocks apart, which is what is loaded at once: it is loaded before anything that it overwrites
// is needed, and after everything before it is written. Closer texts are copied byte by byte. Tails go by a block that
// overlaps what is copied already.

#include "core/scan.h"

namespace strlib {
namespace {

// Copies `count` bytes as two Values that may overlap: sizeof(Value) <= count <= 2 * sizeof(Value).
template <class Value>
[[gnu::always_inline]] inline void copyEnds(uint8_t *destination, const uint8_t *source, size_t count) {
    const Value head = block::loadAs<Value>(source);
    const Value tail = block::loadAs<Value>(source + count - sizeof(Value));
    block::storeAs(destination, head);
    block::storeAs(destination + count - sizeof(Value), tail);
}

// Whether blocks are worth it: more than a byte, and loaded from any address.
inline constexpr bool copiesByBlocks = block::size > 1 && (block::anyAddressIsFast || !block::isWord);

// Copies without a word at an odd address: vectors need no alignment, words would.
inline void copyPlainly(uint8_t *to, const uint8_t *from, size_t count) {
    if constexpr (copiesByBlocks) {
        for (; count >= block::size; count -= block::size, from += block::size, to += block::size) {
            block::store(to, block::load(from));
        }
    }
    for (; count != 0; --count) *to++ = *from++;
}

// Copies at most two blocks.
inline void copyShort(uint8_t *destination, const uint8_t *source, size_t count) {
    if constexpr (!block::anyAddressIsFast) return copyPlainly(destination, source, count);
    if constexpr (block::size > 16) {
        if (count >= block::size) return copyEnds<block::Block>(destination, source, count);
    }
    if constexpr (block::size >= 16) {
        using Half = uint8_t __attribute__((vector_size(16)));
        if (count >= sizeof(Half)) return copyEnds<Half>(destination, source, count);
    }
    if (block::size >= 8 && count >= 8) return copyEnds<uint64_t>(destination, source, count);
    if (count >= 4) return copyEnds<uint32_t>(destination, source, count);
    if (count >= 2) return copyEnds<uint16_t>(destination, source, count);
    if (count != 0) *destination = *source;
}

// Copies bytes whose number is known.
inline void copyBytes(uint8_t *destination, const uint8_t *source, size_t count) {
    if constexpr (!copiesByBlocks || !block::anyAddressIsFast) return copyPlainly(destination, source, count);
    if (count <= 2 * block::size) return copyShort(destination, source, count);
    const size_t last = count - block::size;
    const block::Block tail = block::load(source + last);
    for (size_t i = 0; i < last; i += block::size) block::store(destination + i, block::load(source + i));
    block::store(destination + last, tail);
}

template <class Ends, class Limit>
[[gnu::noinline, gnu::cold]] uint8_t *copyByBytes(uint8_t *to, const uint8_t *from, Ends ends, Limit limit) {
    for (;; ++to, ++from) {
        *to = *from;
        if (block::any(ends(block::splat(*from)))) return to;
        if (!limit.pass(1)) return to + 1;
    }
}

// Copies the last `rest` bytes of a text, which begin at the address, by one block that ends with them: at least a
// block of the text is copied already or copied here.
[[gnu::always_inline]] inline uint8_t *copyTail(uint8_t *to, block::Address address, size_t rest) {
    block::store(to + rest - block::size, block::load(block::pointerTo(address + rest - block::size)));
    return to + rest;
}

// Words are copied by pairs where the machine has such; vectors are wide enough by themselves.
inline constexpr bool byPairs = block::isWord && block::groupBlocks == 2;
inline constexpr size_t copyStep = byPairs ? 2 * block::size : block::size;

// Goes on at an aligned block, or pair of blocks, behind a block or more that is copied.
template <class Ends, class Limit>
[[gnu::always_inline]] inline uint8_t *copyOn(uint8_t *to, block::Address address, Ends ends, Limit limit) {
    using namespace block;
    // The last bytes, of which the first block of a pair may be copied as a whole.
    const auto finish = [&](Block low, size_t rest) {
        address -= copyStep;
        if (byPairs && rest > size) {
            store(to, low);
            to += size;
            address += size;
            rest -= size;
        }
        return copyTail(to, address, rest);
    };
    const size_t distance = addressOf(to) - address;
    for (;;) {
        // A row is loaded as a whole before any of it is stored.
        const bool isFar = distance + rowSize - 1 >= 2 * rowSize - 1;
        while (rowBlocks > 1 && isFar && address % rowSize == 0 && !anyInRow(address, ends)) {
            if (!limit.pass(rowSize)) {
                limit.giveBack(rowSize);
                break;
            }
            Block row[rowBlocks];
#pragma GCC unroll block::rowBlocks
            for (size_t i = 0; i < rowBlocks; ++i) row[i] = loadAligned(address + i * size);
#pragma GCC unroll block::rowBlocks
            for (size_t i = 0; i < rowBlocks; ++i) store(to + i * size, row[i]);
            address += rowSize;
            to += rowSize;
        }
        Block low;
        Block high;
        if constexpr (byPairs) {
            takePair(address, low, high);
        } else {
            low = high = loadAligned(address);
            address = stepped(address + size);
        }
        const Flags inLow = ends(low);
        const Flags inHigh = ends(high);
        Mask end = readsAreWatched ? limit.keep(pack(inLow), size) : 0;
        if (byPairs ? anyOfPair(inLow, inHigh) : readsAreWatched ? end != 0 : any(inLow)) {
            end = readsAreWatched ? end : pack(inLow);
            const size_t before = byPairs && end == 0 ? size : 0;
            if (before != 0) end = pack(inHigh);
            return finish(low, limit.clip(before + first(end)) + Limit::endIsCopied) - Limit::endIsCopied;
        }
        if (!limit.pass(copyStep)) return finish(low, limit.left(copyStep));
        store(to, low);
        to = stepped(to + size);
        if constexpr (byPairs) {
            store(to, high);
            to = stepped(to + size);
        }
    }
}

// Copies the bytes before the first at which the copy ends, or as many as the limit allows, and gives the place behind
// the copy. A copy without a limit copies the byte that ends it as well.
template <bool mayOverlap = true, class Ends, class Limit>
[[gnu::always_inline]] inline uint8_t *copyUntil(uint8_t *destination, const uint8_t *source, Ends ends, Limit limit) {
    using namespace block;
    if constexpr (!copiesByBlocks) return copyByBytes(destination, source, ends, limit);
    const size_t distance = addressOf(destination) - addressOf(source);
    if (mayOverlap && distance + 2 * size - 1 < 4 * size - 1) return copyByBytes(destination, source, ends, limit);

    // What the first two aligned blocks hold of the text is copied as a whole if it ends there.
    const Address start = beginReading(source);
    const size_t offset = offsetIn(start);
    const size_t inFirst = size - offset;
    Address address = start - offset;
    Mask end = limit.keep(dropFirst(pack(ends(loadAligned(address))), offset), inFirst);
    size_t count;
    if (end != 0)
        count = limit.clip(first(end));
    else if (!limit.pass(inFirst))
        count = limit.left(inFirst);
    else {
        const Block second = loadAligned(address += size);
        end = limit.keep(pack(ends(second)), size);
        if (end != 0)
            count = inFirst + limit.clip(first(end));
        else if (!limit.pass(size))
            count = inFirst + limit.left(size);
        else {
            store(destination, load(source));
            uint8_t *to = destination + inFirst;
            store(to, second);
            to += size;
            address += size;
            if (byPairs && address % copyStep != 0) {
                const Block third = loadAligned(address);
                end = pack(ends(third));
                if (end != 0) {
                    count = limit.clip(first(end));
                    return copyTail(to, address, count + Limit::endIsCopied) - Limit::endIsCopied;
                }
                if (!limit.pass(size)) return copyTail(to, address, limit.left(size));
                store(to, third);
                to += size;
                address += size;
            }
            return copyOn(to, address, ends, limit);
        }
    }
    copyShort(destination, source, count + (end != 0 && Limit::endIsCopied));
    return destination + count;
}

// Copies a string; the result is the address of the NUL written.
inline uint8_t *copyString(uint8_t *destination, const uint8_t *source) {
    return copyUntil(destination, source, Nul(), Endless());
}

// Copies a string or its first `limit` bytes and ends the copy with a NUL.
inline void copyUpTo(uint8_t *destination, const uint8_t *source, int32_t limit) {
    if (limit > 0) destination = copyUntil(destination, source, Nul(), Within{static_cast<size_t>(limit) - 1});
    *destination = 0;
}

}  // namespace
}  // namespace strlib

#endif
