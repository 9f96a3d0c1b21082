#ifndef STRLIB_CORE_SCAN_H
#define STRLIB_CORE_SCAN_H

// Finding bytes, a block at a time. What ends a scan is told by a function from a block to flags.

#include "core/bytes.h"
#include "machine/block.h"

namespace strlib {
namespace {

struct Nul {
    block::Flags operator()(block::Block bytes) const { return block::zeros(bytes); }
};

struct Byte {
    explicit Byte(uint8_t byte) : sought(block::splat(byte)) {}
    block::Flags operator()(block::Block bytes) const { return block::equals(bytes, sought); }

    block::Block sought;
};

// Templates with several users are not inlined by themselves, and then keep their blocks in memory.

// The first byte from `at` on at which the scan ends; there must be one.
template <class Ends>
[[gnu::always_inline]] inline const uint8_t *scan(const uint8_t *at, Ends ends) {
    block::Address address = block::beginReading(at);
    const size_t offset = block::offsetIn(address);
    address -= offset;
    block::Mask found = block::from(block::pack(ends(block::loadAligned(address))), offset);
    if (found == 0) {
        block::Flags flags;
        bool any;
#pragma GCC unroll block::blocksATurn
        do {
            flags = ends(block::loadAligned(address += block::size));
            any = block::any(flags);
        } while (!any);
        found = block::pack(flags);
    }
    return block::pointerTo(address + block::first(found));
}

// How many bytes from `at` on, up to `limit`, come before one at which the scan ends. No block is read that holds none
// of the first `limit` bytes, nor one behind that where the scan ends.
template <class Ends>
[[gnu::always_inline]] inline size_t scanUpTo(const uint8_t *at, size_t limit, Ends ends) {
    if (limit == 0) return 0;
    block::Address address = block::beginReading(at);
    const size_t offset = block::offsetIn(address);
    address -= offset;
    block::Mask found = block::from(block::pack(ends(block::loadAligned(address))), offset);
    size_t count = 0 - offset;  // of the bytes before the block
    if (found == 0) {
        block::Flags flags;
        bool any;
#pragma GCC unroll block::blocksATurn
        do {
            count += block::size;
            if (count >= limit) return limit;
            flags = ends(block::loadAligned(address += block::size));
            any = block::any(flags);
        } while (!any);
        found = block::pack(flags);
    }
    count += block::first(found);
    return count < limit ? count : limit;
}

inline size_t measure(const uint8_t *string) { return static_cast<size_t>(scan(string, Nul()) - string); }

inline size_t measureUpTo(const uint8_t *string, size_t limit) { return scanUpTo(string, limit, Nul()); }

}  // namespace
}  // namespace strlib

#endif
