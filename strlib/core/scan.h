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

// Which steps a scan takes: single blocks where the end is expected nearby or size counts more, and groups of blocks
// where the machine has them, at once or after single blocks up to the first group's start.
enum class Steps { blocks, groups, blocksThenGroups };

// How far a scan may go: to its end, or no further than a number of bytes behind the next one.
struct Endless {
    static constexpr bool endIsCopied = true;
    static constexpr bool pairsPay = false;
    bool pass(size_t) const { return true; }
    void giveBack(size_t) const {}
    block::Mask keep(block::Mask mask, size_t) const { return mask; }
    size_t left(size_t) const { return 0; }
    size_t leftWith(size_t) const { return 0; }
    size_t clip(size_t count) const { return count; }
    size_t all() const { return SIZE_MAX; }
};

struct Within {
    static constexpr bool endIsCopied = false;
    static constexpr bool pairsPay = true;
    // Goes on by a number of bytes; whether any are left behind them.
    bool pass(size_t bytes) { return !__builtin_sub_overflow(behindNext, bytes, &behindNext); }
    void giveBack(size_t bytes) { behindNext += bytes; }
    // The mask of the next `bytes` bytes without those behind the limit, which a memory checker would follow into
    // branches.
    block::Mask keep(block::Mask mask, size_t bytes) const {
        const size_t kept = behindNext + 1;
        if (!block::readsAreWatched || kept >= bytes) return mask;
        constexpr size_t maskSize = 8 * sizeof mask;
        return static_cast<block::Mask>(mask & ((block::Mask{1} << kept * block::maskBits % maskSize) - 1));
    }
    // How many bytes were left when pass() failed.
    size_t left(size_t bytes) const { return behindNext + bytes + 1; }
    // How many are left when pass() failed after `kept` bytes had been kept back.
    size_t leftWith(size_t kept) const { return behindNext + kept; }
    size_t clip(size_t count) const { return count <= behindNext ? count : behindNext + 1; }
    size_t all() const { return behindNext + 1; }

    size_t behindNext;
};

template <Steps steps>
inline constexpr bool startsByGroups = steps == Steps::groups ? block::packsGroups : false;
template <Steps steps>
inline constexpr bool goesByGroups = steps != Steps::blocks ? block::groupBlocks != 1 : false;
template <Steps steps>
inline constexpr size_t firstStep = startsByGroups<steps> ? block::groupSize : block::size;

// Whether a scan ends in a row of blocks.
template <class Ends>
[[gnu::always_inline]] inline bool anyInRow(block::Address address, Ends ends) {
    block::Flags flags = ends(block::loadAligned(address));
#pragma GCC unroll block::rowBlocks
    for (size_t i = 1; i < block::rowBlocks; ++i) flags |= ends(block::loadAligned(address + i * block::size));
    return block::any(flags);
}

// The place of the first byte from `start` on at which a scan ends; one before `start` where the limit
// comes first.
template <Steps steps, class Ends, class Limit>
[[gnu::always_inline]] inline block::Address findEnd(block::Address start, Ends ends, Limit limit) {
    using namespace block;
    if constexpr (size == 1) {
        for (Address address = start;; ++address) {
            if (any(ends(loadAligned(address)))) return address;
            if (!limit.pass(1)) return start - 1;
        }
    }
    const size_t offset = start % firstStep<steps>;
    Address address = start - offset;
    if constexpr (startsByGroups<steps>) {
        Block a;
        Block b;
        takePair(address, a, b);
        const GroupMask found = packPair(ends(a), ends(b)) >> offset;
        if (found != 0) return start + lowestBit(found);
        if (!limit.pass(groupSize - offset)) return start - 1;
    } else {
        Mask found = limit.keep(dropFirst(pack(ends(loadAligned(address))), offset), size - offset);
        if (found != 0) return start + first(found);
        if (!limit.pass(size - offset)) return start - 1;
        address += size;
        if (goesByGroups<steps> && address % groupSize != 0) {
            found = pack(ends(loadAligned(address)));
            if (found != 0) return address + first(found);
            if (!limit.pass(size)) return start - 1;
            address += size;
        }
    }
    if constexpr (goesByGroups<steps>) {
        for (;;) {
            Block a;
            Block b;
            takePair(address, a, b);
            const Flags low = ends(a);
            const Flags high = ends(b);
            if (anyOfPair(low, high)) return firstOfPair(address - groupSize, low, high);
            if (!limit.pass(groupSize)) return start - 1;
        }
    } else {
        if constexpr (steps != Steps::blocks && rowBlocks > 1) {
#pragma GCC unroll block::rowBlocks
            for (size_t block = 0; block < rowBlocks; ++block) {
                const Mask mask = limit.keep(pack(ends(loadAligned(address))), size);
                if (mask != 0) return address + first(mask);
                if (!limit.pass(size)) return start - 1;
                address += size;
            }
            // Rows begin at their own boundaries: some blocks are looked at once more.
            limit.giveBack(address % rowSize);
            address -= address % rowSize;
            while (!anyInRow(address, ends)) {
                if (!limit.pass(rowSize)) return start - 1;
                address += rowSize;
            }
        }
        Flags flags;
        Mask mask = 0;
        bool ended;
#pragma GCC unroll block::blocksATurn
        do {
            flags = ends(loadAligned(address));
            if constexpr (readsAreWatched) mask = limit.keep(pack(flags), size);
            ended = readsAreWatched ? mask != 0 : any(flags);
            if (ended) continue;
            if (!limit.pass(size)) return start - 1;
            address += size;
        } while (!ended);
        return address + first(readsAreWatched ? mask : pack(flags));
    }
}

// The first byte from `at` on at which the scan ends; there must be one.
template <Steps steps = Steps::groups, class Ends>
[[gnu::always_inline]] inline const uint8_t *scan(const uint8_t *at, Ends ends) {
    return block::pointerTo(findEnd<steps>(block::beginReading(at), ends, Endless()));
}

// The same of the first `limit` bytes; null if there is none. No group is read that holds none of them, nor one behind
// that where the scan ends.
template <Steps steps = Steps::groups, class Ends>
[[gnu::always_inline]] inline const uint8_t *findWithin(const uint8_t *at, size_t limit, Ends ends) {
    if (limit == 0) return nullptr;
    const block::Address start = block::beginReading(at);
    const block::Address found = findEnd<steps>(start, ends, Within{limit - 1});
    return found - start >= limit ? nullptr : block::pointerTo(found);
}

// How many bytes from `at` on, up to `limit`, come before one at which the scan ends.
template <Steps steps = Steps::groups, class Ends>
[[gnu::always_inline]] inline size_t scanUpTo(const uint8_t *at, size_t limit, Ends ends) {
    const uint8_t *const found = findWithin<steps>(at, limit, ends);
    return found == nullptr ? limit : static_cast<size_t>(found - at);
}

template <Steps steps = Steps::groups>
[[gnu::always_inline]] inline size_t measure(const uint8_t *string) {
    return static_cast<size_t>(scan<steps>(string, Nul()) - string);
}

inline size_t measureUpTo(const uint8_t *string, size_t limit) { return scanUpTo<Steps::blocks>(string, limit, Nul()); }

}  // namespace
}  // namespace strlib

#endif
