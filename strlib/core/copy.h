#ifndef STRLIB_CORE_COPY_H
#define STRLIB_CORE_COPY_H

// Copying, a block at a time, with the result of copying byte by byte from the front: what a store may overwrite has
// been loaded before. Where the two overlap so that this does not hold, bytes are copied one by one. Tails go by a
// block that overlaps what is copied already, loaded before a store can reach it.

#include "core/scan.h"

namespace strlib {
namespace {

// Copies `count` bytes where a Value is at most that and half of it, by its first and its last bytes.
template <class Value>
[[gnu::always_inline]] inline void copyEnds(uint8_t *destination, const uint8_t *source, size_t count) {
    const Value head = block::loadAs<Value>(source);
    const Value tail = block::loadAs<Value>(source + count - sizeof(Value));
    block::storeAs(destination, head);
    block::storeAs(destination + count - sizeof(Value), tail);
}

// Copies at most two blocks.
inline void copyShort(uint8_t *destination, const uint8_t *source, size_t count) {
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
    if (count <= 2 * block::size) return copyShort(destination, source, count);
    const size_t last = count - block::size;
    const block::Block tail = block::load(source + last);
    for (size_t i = 0; i < last; i += block::size) block::store(destination + i, block::load(source + i));
    block::store(destination + last, tail);
}

// Copies a string; the result is the address of the NUL written.
inline uint8_t *copyString(uint8_t *destination, const uint8_t *source) {
    // Less than a block before the source, the first store would reach into the tail of a string of three blocks.
    if (block::addressOf(source) - block::addressOf(destination) < block::size) {
        while ((*destination = *source) != 0) ++destination, ++source;
        return destination;
    }

    // What the first two aligned blocks hold of the source is copied as a whole if it ends there.
    block::Address address = block::beginReading(source);
    const size_t offset = block::offsetIn(address);
    address -= offset;
    block::Mask end = block::from(block::pack(block::zeros(block::loadAligned(address))), offset);
    block::Block bytes;
    if (end == 0) {
        bytes = block::loadAligned(address += block::size);
        end = block::pack(block::zeros(bytes));
    }
    if (end != 0) {
        const size_t length = address + block::first(end) - block::addressOf(source);
        copyShort(destination, source, length + 1);
        return destination + length;
    }

    // From here on `bytes` is the block at `address`, without a NUL, and not yet stored.
    block::store(destination, block::load(source));
    uint8_t *to = destination + (address - block::addressOf(source));
    for (;;) {
        const block::Block next = block::loadAligned(address += block::size);
        end = block::pack(block::zeros(next));
        if (end != 0) break;
        block::store(to, bytes);
        to += block::size;
        bytes = next;
    }
    const size_t rest = block::first(end) + 1;
    const block::Block tail = block::load(block::pointerTo(address + rest - block::size));
    block::store(to, bytes);
    block::store(to + rest, tail);
    return to + block::size + rest - 1;
}

// Copies a string or its first `limit` bytes and ends the copy with a NUL.
inline void copyUpTo(uint8_t *destination, const uint8_t *source, int32_t limit) {
    size_t left = limit > 0 ? static_cast<size_t>(limit) : 0;
    const size_t count = measureUpTo(source, left);
    if (block::addressOf(destination) - block::addressOf(source) - 1 < count) {
        // The destination starts inside the source: bytes copied come up again as source, and its NUL goes.
        for (; left != 0; --left) *destination++ = *source++;
        *destination = 0;
        return;
    }
    copyBytes(destination, source, count);
    destination[count] = 0;
}

}  // namespace
}  // namespace strlib

#endif
