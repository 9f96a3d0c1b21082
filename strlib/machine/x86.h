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
// With AVX2 a row of 128 bytes is loaded at once: it lies in one page.
#if defined(__AVX2__)
inline constexpr size_t rowBlocks = 4;
inline constexpr bool readsAreWatched = false;
#else
inline constexpr size_t rowBlocks = 1;
inline constexpr bool readsAreWatched = true;
#endif
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

// A wider reading rule, for the machines of today: a block loaded at any address of the text may reach past it inside
// its page. Memory checkers take that for an error, so the baseline, which they run, keeps to aligned blocks.
#if defined(__AVX2__)
inline constexpr bool loadsReachInPage = true;
#else
inline constexpr bool loadsReachInPage = false;
#endif
inline constexpr size_t pageSize = 4096;
inline bool leavesPage(Address address) { return address % pageSize > pageSize - size; }
inline bool eitherLeavesPage(Address first, Address second) {
    return (int{leavesPage(first)} | int{leavesPage(second)}) != 0;  // one branch
}
inline Block loadFrom(Address address) { return load(pointerTo(address)); }

#if defined(__AVX2__)
// Tables of sixteen bytes: each byte of a block gets the entry that its low four bits tell, or 0 if its top bit is set.
#define STRLIB_BLOCK_LOOKS_UP
inline Block tableOf(const uint8_t *entries) {
    return reinterpret_cast<Block>(_mm256_broadcastsi128_si256(loadAs<__m128i>(entries)));
}
inline Block lookUp(Block table, Block places) {
    return reinterpret_cast<Block>(
        _mm256_shuffle_epi8(reinterpret_cast<__m256i>(table), reinterpret_cast<__m256i>(places)));
}
#endif

}  // namespace
}  // namespace strlib::block

#endif
