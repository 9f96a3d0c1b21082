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

// NEON has no way to gather top bits: each byte keeps other two of its bits, then neighbours are added, twice.
using Mask = uint32_t;
inline constexpr uint32_t maskBits = 2;
inline Mask pack(Flags flags) {
    const uint8x16_t bits =
        vandq_u8(reinterpret_cast<uint8x16_t>(flags), vreinterpretq_u8_u32(vdupq_n_u32(0xC0300C03)));
    const uint8x8_t pairs = vpadd_u8(vget_low_u8(bits), vget_high_u8(bits));
    return vget_lane_u32(vreinterpret_u32_u8(vpadd_u8(pairs, pairs)), 0);
}

inline bool any(Flags flags) {
    const uint8x8_t narrow = vshrn_n_u16(vreinterpretq_u16_u8(reinterpret_cast<uint8x16_t>(flags)), 4);
    return vget_lane_u64(vreinterpret_u64_u8(narrow), 0) != 0;
}

// These instructions need no alignment, on any target.
inline Block load(const uint8_t *at) { return reinterpret_cast<Block>(vld1q_u8(at)); }
inline void store(uint8_t *at, Block block) { vst1q_u8(at, reinterpret_cast<uint8x16_t>(block)); }

}  // namespace
}  // namespace strlib::block

#endif
