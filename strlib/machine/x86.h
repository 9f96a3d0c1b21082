#ifndef STRLIB_MACHINE_X86_H
#define STRLIB_MACHINE_X86_H

// SSE2 or AVX2 vectors. A mask has a bit for each byte.

#if defined(__AVX2__)
#include <immintrin.h>
#else
#include <emmintrin.h>  // much shorter
#endif

#define STRLIB_BLOCK_X86
#define STRLIB_SHARED [[gnu::always_inline]] inline

namespace strlib::block {
namespace {

#if defined(__AVX2__)
inline constexpr size_t size = 32;
#else
inline constexpr size_t size = 16;
#endif

}  // namespace
}  // namespace strlib::block

#include "machine/vector.h"

namespace strlib::block {
namespace {

// x86 jumps no more than once a cycle.
inline constexpr int blocksATurn = 4;
inline constexpr size_t fewMembers = 4;
using Mask = uint32_t;
inline constexpr uint32_t maskBits = 1;
#if defined(__AVX2__)
inline Mask pack(Flags flags) { return static_cast<Mask>(_mm256_movemask_epi8(reinterpret_cast<__m256i>(flags))); }
#else
inline Mask pack(Flags flags) { return static_cast<Mask>(_mm_movemask_epi8(reinterpret_cast<__m128i>(flags))); }
#endif
inline bool any(Flags flags) { return pack(flags) != 0; }

using GroupMask = Mask;
inline constexpr bool packsGroups = false;
inline GroupMask packPair(Flags, Flags) { return 0; }
inline bool anyOfPair(Flags low, Flags high) { return any(low | high); }
inline constexpr size_t groupBlocks = 1;
inline void takePair(Address &, Block &, Block &) {}

inline Block load(const uint8_t *at) { return loadAs<Block>(at); }
inline void store(uint8_t *at, Block block) { storeAs<Block>(at, block); }

// The same as first(), but the size for an empty mask, without a branch.
inline size_t firstOrSize(Mask mask) {
    if constexpr (size < 32) return static_cast<size_t>(__builtin_ctz(mask | Mask{1} << (size % 32)));
    return static_cast<size_t>(__builtin_ctzll(mask | uint64_t{1} << size));
}

// The block that begins `offset` bytes into the first of two in a row. Instructions shift halves only: each half of the
// result has bytes of the same half of `low`, of `middle` between the two, and of `high`; two of the three shifts are
// so long that they leave zeros.
inline Block joined(Block low, Block high, size_t offset) {
    using Halves = long long __attribute__((vector_size(size)));
    const auto first = reinterpret_cast<Halves>(low);
    const auto last = reinterpret_cast<Halves>(high);
#if defined(__AVX2__)
    const Halves middle = __builtin_shufflevector(first, last, 2, 3, 4, 5);
    // Which byte moves to each place; 0x80 gives a zero.
    struct Places {
        constexpr Places() : at{} {
            for (uint8_t i = 0; i < sizeof(at); ++i) at[i] = i / 16 == 2 ? i % 16 : 0x80;
        }
        uint8_t at[80];
    };
    static constexpr Places places;
    const auto shifted = [=](Halves halves, size_t start) {
        const auto from = loadAs<__m128i>(places.at + start + offset);
        return reinterpret_cast<Block>(_mm256_shuffle_epi8(halves, _mm256_broadcastsi128_si256(from)));
    };
    return shifted(first, 32) | shifted(middle, 16) | shifted(last, 0);
#else
    const Halves middle = __builtin_shufflevector(first, last, 1, 2);
    const Halves bits = _mm_cvtsi32_si128(static_cast<int32_t>(offset * 8));
    const auto upper = _mm_srl_epi64(middle, bits - 64) | _mm_sll_epi64(last, 128 - bits);
    const auto lower = _mm_srl_epi64(first, bits) | _mm_sll_epi64(middle, 64 - bits);
    return reinterpret_cast<Block>(lower | upper);
#endif
}

}  // namespace
}  // namespace strlib::block

#endif
