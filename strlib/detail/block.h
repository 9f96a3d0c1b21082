#ifndef STRLIB_DETAIL_BLOCK_H
#define STRLIB_DETAIL_BLOCK_H

// Blocks: as many bytes as the machine takes at once. All that the library knows of machines stands here, in four back
// ends with the same operations: vectors, words with the byte-wise instructions of 32-bit ARM, plain words, single
// bytes.
//
// What may be read is the rule that everything above relies on. load() reads bytes that all belong to the text.
// loadAligned() reads the aligned block around any byte that does. What else that block holds may not belong to the
// text, but no page ends inside it, so it never faults, and memory checkers that watch machine code allow it. C++ does
// not define it: under sanitizers, which check just that, blocks are single bytes and the question does not arise.

#include <stddef.h>
#include <stdint.h>

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(memory_sanitizer)
#define STRLIB_BLOCK_BYTE
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define STRLIB_BLOCK_BYTE
#endif

#if defined(STRLIB_BLOCK_BYTE) || defined(STRLIB_BLOCK_WORD)
#elif defined(__SSE2__)
#define STRLIB_BLOCK_X86
#if defined(__AVX2__)
#include <immintrin.h>
#else
#include <emmintrin.h>  // much shorter
#endif
#elif defined(__ARM_NEON)
#define STRLIB_BLOCK_NEON
#include <arm_neon.h>
#endif

#if !defined(STRLIB_BLOCK_BYTE) && !defined(STRLIB_BLOCK_WORD) && defined(__ARM_FEATURE_SIMD32)
#define STRLIB_BLOCK_SIMD32
#include <arm_acle.h>
#endif

// Code that several routines use exists once where size counts, and in each of them where only speed does.
#if defined(STRLIB_BLOCK_X86)
#define STRLIB_SHARED [[gnu::always_inline]] inline
#else
#define STRLIB_SHARED [[gnu::noinline]]
#endif

// What stands in private headers has internal linkage, so that the archive defines nothing but the routines.
namespace strlib::block {
namespace {

// Flags hold all ones (in plain words: the top bit) for each byte of a block that meets a condition, else zeros. A Mask
// is the same packed into integers, a fixed number of bits a byte. The first byte is the one at the lowest address.

#if !defined(STRLIB_BLOCK_X86)

// Words: as many bytes as a general register holds, or one. They are the blocks where there are no vectors; where there
// are, some routines are still better off with them.
#if defined(STRLIB_BLOCK_BYTE)
using Word = uint8_t;
#elif defined(STRLIB_BLOCK_SIMD32)
using Word = uint32_t;
#else
using Word = size_t;
#endif

// The same byte everywhere.
inline constexpr Word splatWord(uint8_t byte) { return static_cast<Word>(static_cast<Word>(~Word{0}) / 0xFF * byte); }

// The bytes up to a limit below 0x80.
#if defined(STRLIB_BLOCK_BYTE)
inline Word atMost(Word word, uint8_t limit) { return word <= limit; }
inline Word inverse(Word flags) { return flags ^ 1; }
#elif defined(STRLIB_BLOCK_SIMD32)
// The sum carries out of every byte above the limit; the selection goes by the carries.
inline Word atMost(Word word, uint8_t limit) {
    __uadd8(word, splatWord(static_cast<uint8_t>(0xFF - limit)));
    return __sel(0, splatWord(0xFF));
}
inline Word inverse(Word flags) { return ~flags; }
#else
// Exact, as no carry leaves its byte: the top bit is set by the sum unless the low seven bits are within the limit.
inline Word atMost(Word word, uint8_t limit) {
    constexpr Word low = splatWord(0x7F);
    return ~(((word & low) + splatWord(static_cast<uint8_t>(0x7F - limit))) | word | low);
}
inline Word inverse(Word flags) { return flags ^ splatWord(0x80); }
#endif
inline Word zeros(Word word) { return atMost(word, 0); }
inline Word equals(Word word, Word other) { return zeros(static_cast<Word>(word ^ other)); }

// The same, and what is flagged already.
inline Word orEquals(Word flags, Word word, Word other) {
#if defined(STRLIB_BLOCK_SIMD32)
    __uadd8(word ^ other, splatWord(0xFF));
    return __sel(flags, splatWord(0xFF));
#else
    return static_cast<Word>(flags | equals(word, other));
#endif
}

// The top bit of each byte from `first` to `last`, both below 0x80: the sums carry into it, which is free in each byte,
// from `first` and from `last` + 1 up, and bytes from 0x80 up are left out.
inline Word within(Word word, uint8_t first, uint8_t last) {
    const Word low = word & splatWord(0x7F);
    const Word fromFirst = low + splatWord(static_cast<uint8_t>(0x80 - first));
    const Word aboveLast = low + splatWord(static_cast<uint8_t>(0x7F - last));
    return fromFirst & ~aboveLast & ~word & splatWord(0x80);
}

inline Word fold(Word word) { return static_cast<Word>(word + (within(word, 'A', 'Z') >> 2)); }

// Zero in the bytes that are alike once folded: nothing but the bit of case differs, and that in letters.
inline Word foldedDifference(Word word, Word other) {
    const Word small = word | splatWord(0x20);
#if defined(STRLIB_BLOCK_SIMD32)
    __usub8(splatWord('z' - 'a'), __usub8(small, splatWord('a')));
    const Word caseBits = __sel(splatWord(0x20), 0);
#else
    const Word caseBits = within(small, 'a', 'z') >> 2;
#endif
    return static_cast<Word>((word ^ other) & ~caseBits);
}

#endif

#if defined(STRLIB_BLOCK_X86) || defined(STRLIB_BLOCK_NEON)

#if defined(__AVX2__)
inline constexpr size_t size = 32;
#else
inline constexpr size_t size = 16;
#endif
inline constexpr bool isWord = false;
using Block = uint8_t __attribute__((vector_size(size)));
using Signed = int8_t __attribute__((vector_size(size)));
using Flags = Block;

inline Block splat(uint8_t byte) { return Block{} + byte; }
inline Flags zeros(Block block) { return reinterpret_cast<Flags>(block == 0); }
inline Flags equals(Block block, Block other) { return reinterpret_cast<Flags>(block == other); }
inline Flags orEquals(Flags flags, Block block, Block other) { return flags | equals(block, other); }
inline Flags inverse(Flags flags) { return ~flags; }

// The bytes up to a limit below 0x80.
inline Flags atMost(Block block, uint8_t limit) { return reinterpret_cast<Flags>(block <= splat(limit)); }

// No byte but those from `first` on, 26 of them, is below `first` + 26 - 0x80 once its distance is read as signed.
inline Flags letters(Block block, uint8_t first) {
    const Signed distance = reinterpret_cast<Signed>(block - static_cast<uint8_t>(first + 0x80));
    return reinterpret_cast<Flags>(distance < static_cast<int8_t>(26 - 0x80));
}

inline Block fold(Block block) { return block + (letters(block, 'A') & 0x20); }

// Zero in the bytes that are alike once folded: nothing but the bit of case differs, and that in letters.
inline Block foldedDifference(Block block, Block other) {
    return (block ^ other) & ~(letters(block | 0x20, 'a') & 0x20);
}

#else

using Block = Word;
using Flags = Word;
inline constexpr size_t size = sizeof(Block);
inline constexpr bool isWord = true;
inline constexpr Block splat(uint8_t byte) { return splatWord(byte); }

#endif

#if defined(STRLIB_BLOCK_X86)

using Mask = uint32_t;
inline constexpr uint32_t maskBits = 1;
#if defined(__AVX2__)
inline Mask pack(Flags flags) { return static_cast<Mask>(_mm256_movemask_epi8(reinterpret_cast<__m256i>(flags))); }
#else
inline Mask pack(Flags flags) { return static_cast<Mask>(_mm_movemask_epi8(reinterpret_cast<__m128i>(flags))); }
#endif

#elif defined(STRLIB_BLOCK_NEON)

// NEON has no way to gather top bits: each byte keeps other two of its bits, then neighbours are added, twice.
using Mask = uint32_t;
inline constexpr uint32_t maskBits = 2;
inline Mask pack(Flags flags) {
    const uint8x16_t bits =
        vandq_u8(reinterpret_cast<uint8x16_t>(flags), vreinterpretq_u8_u32(vdupq_n_u32(0xC0300C03)));
    const uint8x8_t pairs = vpadd_u8(vget_low_u8(bits), vget_high_u8(bits));
    return vget_lane_u32(vreinterpret_u32_u8(vpadd_u8(pairs, pairs)), 0);
}

#else

using Mask = Block;
inline constexpr uint32_t maskBits = 8;
inline Mask pack(Flags flags) { return flags; }

#endif

// Whether any byte is flagged.
#if defined(STRLIB_BLOCK_NEON)
inline bool any(Flags flags) {
    const uint8x8_t narrow = vshrn_n_u16(vreinterpretq_u16_u8(reinterpret_cast<uint8x16_t>(flags)), 4);
    return vget_lane_u64(vreinterpret_u64_u8(narrow), 0) != 0;
}
#else
inline bool any(Flags flags) { return pack(flags) != 0; }
#endif

// How many blocks a loop takes before it jumps back. x86 jumps no more than once a cycle; ARM would only grow.
#if defined(STRLIB_BLOCK_X86)
inline constexpr int blocksATurn = 4;
#else
inline constexpr int blocksATurn = 1;
#endif

// The positions of the first and the last bit of a mask that is not 0.
inline uint32_t lowestBit(Mask mask) {
    if constexpr (sizeof(Mask) <= sizeof(uint32_t)) return static_cast<uint32_t>(__builtin_ctz(mask));
    return static_cast<uint32_t>(__builtin_ctzll(mask));
}

inline uint32_t highestBit(Mask mask) {
    if constexpr (sizeof(Mask) <= sizeof(uint32_t)) return 31 - static_cast<uint32_t>(__builtin_clz(mask));
    return 63 - static_cast<uint32_t>(__builtin_clzll(mask));
}

// Whether the first byte has the lowest bits of a mask. In a big-endian word it has the highest.
inline constexpr bool lowestFirst = maskBits != 8 || __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__;
inline constexpr uint32_t allMaskBits = maskBits * size;

inline size_t first(Mask mask) {
    return (lowestFirst ? lowestBit(mask) : allMaskBits - 1 - highestBit(mask)) / maskBits;
}
inline size_t last(Mask mask) {
    return (lowestFirst ? highestBit(mask) : allMaskBits - 1 - lowestBit(mask)) / maskBits;
}

// The mask without the flags of the first `count` bytes, fewer than a block has.
inline Mask from(Mask mask, size_t count) {
    const Mask all = static_cast<Mask>(~Mask{0});
    const size_t bits = count * maskBits;
    return static_cast<Mask>(mask & (lowestFirst ? all << bits : all >> bits));
}

// The mask without the flags up to those of the byte at an index.
inline Mask after(Mask mask, size_t index) {
    const Mask all = static_cast<Mask>(~Mask{0});
    const size_t bits = index * maskBits;
    return static_cast<Mask>(mask & (lowestFirst ? all << bits << maskBits : all >> bits >> maskBits));
}

// The mask without the flags from the first one of another mask on, which is not empty.
inline Mask before(Mask mask, Mask end) {
    if constexpr (lowestFirst) return static_cast<Mask>(mask & ((Mask{1} << lowestBit(end)) - 1));
    return static_cast<Mask>(mask & ~(static_cast<Mask>(~Mask{0}) >> (allMaskBits - 1 - highestBit(end))));
}

// The mask of the first `count` bytes only, at least one.
inline Mask upTo(Mask mask, size_t count) {
    const Mask all = static_cast<Mask>(~Mask{0});
    const size_t bits = (size - count) * maskBits;
    constexpr size_t unused = sizeof(Mask) * 8 - allMaskBits;
    return static_cast<Mask>(mask & (lowestFirst ? all >> (bits + unused) : all << bits));
}

// Each byte's flag moved to the byte before it. The last byte, whose successor is not in the block, is taken for
// flagged.
inline Mask ofSuccessors(Mask mask) {
    constexpr Mask all = static_cast<Mask>(~Mask{0});
    constexpr size_t others = allMaskBits - maskBits;
    if constexpr (size == 1)
        return all;
    else if constexpr (lowestFirst)
        return static_cast<Mask>(mask >> maskBits | all << others);
    else
        return static_cast<Mask>(mask << maskBits | all >> others);
}

// The bytes in which two blocks differ, for first() only.
inline Mask differences(Block block, Block other) {
    if constexpr (maskBits == 8)
        return static_cast<Mask>(pack(block) ^ pack(other));
    else
        return pack(~equals(block, other));
}

// Values at any address: one instruction where the machine allows it, and no violation of aliasing.
template <class Value>
struct __attribute__((packed, may_alias)) Anywhere {
    Value value;
};

template <class Value>
inline Value loadAs(const uint8_t *at) {
    return reinterpret_cast<const Anywhere<Value> *>(at)->value;
}

template <class Value>
inline void storeAs(uint8_t *at, Value value) {
    reinterpret_cast<Anywhere<Value> *>(at)->value = value;
}

inline Block load(const uint8_t *at) { return loadAs<Block>(at); }
inline void store(uint8_t *at, Block block) { storeAs<Block>(at, block); }

// Addresses of aligned blocks are kept as integers: the start of such a block may lie before its text.
using Address = uintptr_t;
using Aligned __attribute__((may_alias)) = Block;

inline Address addressOf(const uint8_t *at) { return reinterpret_cast<Address>(at); }
inline const uint8_t *pointerTo(Address address) { return reinterpret_cast<const uint8_t *>(address); }
inline size_t offsetIn(const uint8_t *at) { return addressOf(at) % size; }
inline Block loadAligned(Address address) { return *reinterpret_cast<const Aligned *>(address); }

#if defined(STRLIB_BLOCK_X86)

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

#else

inline Word loadAlignedWord(Address address) {
    using AlignedWord __attribute__((may_alias)) = Word;
    return *reinterpret_cast<const AlignedWord *>(address);
}

#endif

}  // namespace
}  // namespace strlib::block

#endif
