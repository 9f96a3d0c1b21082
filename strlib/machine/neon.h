#ifndef STRLIB_MACHINE_NEON_H
#define STRLIB_MACHINE_NEON_H

// NEON vectors. Moving results from NEON to general registers is slow: routines that ask for the outcome of every block
// take words.

#include <arm_neon.h>

#define STRLIB_SHARED [[gnu::noinline]]

namespace strlib::block {
namespace {

inline constexpr size_t size = 16;

}  // namespace
}  // namespace strlib::block

#include "machine/vector.h"

namespace strlib::block {
namespace {

inline constexpr int blocksATurn = 1;
inline constexpr size_t fewMembers = 3;
inline constexpr size_t rowBlocks = 1;
inline constexpr bool readsAreWatched = false;
// NEON has no way to gather top bits: each byte keeps other two of its bits, then neighbours are added, twice.
using Mask = uint32_t;
inline constexpr uint32_t maskBits = 2;
inline Mask pack(Flags flags) {
    const uint8x16_t bits =
        vandq_u8(reinterpret_cast<uint8x16_t>(flags), vreinterpretq_u8_u32(vdupq_n_u32(0xC0300C03)));
    const uint8x8_t pairs = vpadd_u8(vget_low_u8(bits), vget_high_u8(bits));
    return vget_lane_u32(vreinterpret_u32_u8(vpadd_u8(pairs, pairs)), 0);
}

// On 32-bit ARM the intrinsic would take the halves through memory.
inline bool anyIn(uint8x8_t half) {
#if !defined(__arm__)
    return vget_lane_u64(vreinterpret_u64_u8(half), 0) != 0;
#else
    uint32_t low;
    uint32_t high;
    asm("vmov %0, %1, %P2" : "=r"(low), "=r"(high) : "w"(half));
    return (low | high) != 0;
#endif
}
inline bool any(Flags flags) {
    const auto bytes = reinterpret_cast<uint8x16_t>(flags);
    return anyIn(vorr_u8(vget_low_u8(bytes), vget_high_u8(bytes)));
}

// Two vectors in a row, at an address of a multiple of 32, and the address behind them.
inline constexpr size_t groupBlocks = 2;
[[gnu::always_inline]] inline void takePair(Address &address, Block &low, Block &high) {
#if !defined(__arm__) || defined(__clang__)  // Clang takes no pair of vectors as an operand.
    low = loadAligned(address);
    high = loadAligned(address + size);
    address += 2 * size;
#else
    const auto &bytes = *reinterpret_cast<const uint8_t(*)[32]>(address);
    uint8x16x2_t both;
    asm("vld1.8 %h0, [%1]!" : "=w"(both), "+r"(address) : "m"(bytes));
    asm("" : "+r"(address));  // Or the old address is kept in a register of its own.
    low = reinterpret_cast<Block>(both.val[0]);
    high = reinterpret_cast<Block>(both.val[1]);
#endif
}

// Two vectors have a bit for each byte: each keeps another one of its bits, then neighbours are added, three times.
inline constexpr bool packsGroups = true;
using GroupMask = uint32_t;
inline GroupMask packPair(Flags low, Flags high) {
    const uint8x16_t places = vreinterpretq_u8_u64(vdupq_n_u64(0x8040201008040201));
    const uint8x16_t first = vandq_u8(reinterpret_cast<uint8x16_t>(low), places);
    const uint8x16_t second = vandq_u8(reinterpret_cast<uint8x16_t>(high), places);
    const uint8x8_t pairs = vpadd_u8(vget_low_u8(first), vget_high_u8(first));
    const uint8x8_t fours = vpadd_u8(pairs, vpadd_u8(vget_low_u8(second), vget_high_u8(second)));
    return vget_lane_u32(vreinterpret_u32_u8(vpadd_u8(fours, fours)), 0);
}
inline bool anyOfPair(Flags low, Flags high) { return any(low | high); }

// These instructions need no alignment, on any target.
inline Block load(const uint8_t *at) { return reinterpret_cast<Block>(vld1q_u8(at)); }
inline void store(uint8_t *at, Block block) { vst1q_u8(at, reinterpret_cast<uint8x16_t>(block)); }

}  // namespace
}  // namespace strlib::block

#endif
