#ifndef STRLIB_MACHINE_BLOCK_H
#define STRLIB_MACHINE_BLOCK_H

// Blocks: as many bytes as the machine takes at once. Nothing above this folder knows a machine or a byte order. This
// file chooses the machine, states what each one offers, and derives the rest once for all.
//
// The reading rule. load() reads bytes that all belong to the text. loadAligned() reads a whole aligned block that
// holds at least one byte of the text; where machines take several blocks at once, the aligned group of them, of at
// most 32 bytes, holds one. What else is in there may not belong to the text, but no page and no protected region ends
// inside it, so the read never faults, and no result depends on those bytes.
//
// C++ does not define such a read: an optimiser that sees the object may drop what was stored into it, or fold the
// result. So every way into memory begins at beginReading(), which hides from the optimiser where an address came from,
// and tells it that everything from there on is read. Sanitizers check just what C++ defines; under them a block is a
// byte.

#include <stddef.h>
#include <stdint.h>

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(memory_sanitizer) || __has_feature(thread_sanitizer) || \
    __has_feature(hwaddress_sanitizer)
#define STRLIB_BLOCK_BYTE
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || defined(__SANITIZE_HWADDRESS__)
#define STRLIB_BLOCK_BYTE
#endif

// Private headers define everything with internal linkage, so that the archive defines nothing but the routines.
namespace strlib::block {
namespace {

// Addresses of aligned blocks are kept as integers: the start of such a block may lie before its text.
using Address = uintptr_t;

inline Address addressOf(const uint8_t *at) { return reinterpret_cast<Address>(at); }
inline const uint8_t *pointerTo(Address address) { return reinterpret_cast<const uint8_t *>(address); }

// The address of a text that is about to be read in aligned blocks.
[[gnu::always_inline]] inline Address beginReading(const uint8_t *at) {
    Address address = addressOf(at);
#if !defined(STRLIB_BLOCK_BYTE)
    // All that follows: g++ says so by an array without a bound; clang wants one and takes any for all.
#if defined(__clang__)
    asm("" : "+r"(address) : "m"(*reinterpret_cast<const uint8_t(*)[1]>(at)));
#else
    asm("" : "+r"(address) : "m"(*reinterpret_cast<const uint8_t(*)[]>(at)));
#endif
#endif
    return address;
}

// A place after a step of a loop. Where loads and stores step as they go, compilers otherwise undo it.
template <class Place>
[[gnu::always_inline]] inline Place stepped(Place at) {
#if defined(__arm__)
    asm("" : "+r"(at));
#endif
    return at;
}

// Values at any address: one instruction where the machine allows it, and no violation of aliasing.
template <class Value>
struct __attribute__((packed, may_alias)) Anywhere {
    Value value;
};

// Whether it is. Where it is not, compilers put words together from bytes, and byte loops are as good.
#if defined(__arm__) && !defined(__ARM_FEATURE_UNALIGNED)
inline constexpr bool anyAddressIsFast = false;
#else
inline constexpr bool anyAddressIsFast = true;
#endif

template <class Value>
inline Value loadAs(const uint8_t *at) {
    return reinterpret_cast<const Anywhere<Value> *>(at)->value;
}

template <class Value>
inline void storeAs(uint8_t *at, Value value) {
    reinterpret_cast<Anywhere<Value> *>(at)->value = value;
}

// A word with the byte of the lowest address in its lowest bits, whatever the machine's own order.
template <class Word>
inline Word littleEndian(Word word) {
    if constexpr (sizeof(Word) == 1 || __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__)
        return word;
    else if constexpr (sizeof(Word) == 4)
        return static_cast<Word>(__builtin_bswap32(word));
    else
        return static_cast<Word>(__builtin_bswap64(word));
}

template <class Word>
inline Word loadWord(const uint8_t *at) {
    return littleEndian(loadAs<Word>(at));
}

template <class Word>
inline Word loadAlignedWord(Address address) {
    using Aligned __attribute__((may_alias)) = Word;
    return littleEndian(*reinterpret_cast<const Aligned *>(address));
}

}  // namespace
}  // namespace strlib::block

// What a machine offers. Flags tell for each byte of a block whether it meets a condition; a Mask is the same packed
// into an integer, a fixed number of bits a byte, the first byte in the lowest bits.
//
//   Block, size                        the bytes taken at once, and their number
//   isWord                             whether a block is a general register
//   Flags, inverse(flags)
//   splat(byte)                        the byte everywhere
//   zeros(block), equals(block, other), atMost(block, limit below 0x80)
//   orEquals(flags, block, other)      the same as equals(), and what is flagged already
//   fold(block)                        capitals turned into small letters
//   foldedDifference(block, other)     zero in the bytes that are alike once folded
//   Mask, maskBits, pack(flags)        the flags as an integer, and its bits for each byte
//   any(flags)                         whether any byte is flagged
//   blocksATurn                        how many blocks a loop takes before it jumps back
//   fewMembers                         how many members of a set are compared with whole blocks
//   rowBlocks                          how many blocks long scans and copies take at once
//   readsAreWatched                    whether memory checkers that look at programs from outside are to find nothing
//   load(at), store(at, block)         at any address
//   loadAligned(address)               an aligned block, by the reading rule
//   STRLIB_SHARED                      for code that several routines use: once where size counts, else in each of them
#if defined(__SSE2__) && !defined(STRLIB_BLOCK_BYTE) && !defined(STRLIB_BLOCK_WORD)
#include "machine/x86.h"
#else

#if defined(__ARM_FEATURE_SIMD32) && !defined(STRLIB_BLOCK_BYTE) && !defined(STRLIB_BLOCK_WORD)
#include "machine/arm.h"
#else
#include "machine/word.h"
#endif

#if defined(__ARM_NEON) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__ && !defined(STRLIB_BLOCK_BYTE) && \
    !defined(STRLIB_BLOCK_WORD)
#include "machine/neon.h"
#else
#include "machine/word_blocks.h"
#endif

#endif

namespace strlib::block {
namespace {

// Whether size counts more than speed.
#if defined(__OPTIMIZE_SIZE__)
inline constexpr bool sizeCountsMore = true;
#else
inline constexpr bool sizeCountsMore = size == 1;
#endif

inline size_t offsetIn(Address address) { return address % size; }

// The positions of the first and the last bit of a mask, or of a word, that is not 0.
template <class Bits>
inline uint32_t lowestBit(Bits bits) {
    if constexpr (sizeof(Bits) <= sizeof(uint32_t)) return static_cast<uint32_t>(__builtin_ctz(bits));
    return static_cast<uint32_t>(__builtin_ctzll(bits));
}

template <class Bits>
inline uint32_t highestBit(Bits bits) {
    if constexpr (sizeof(Bits) <= sizeof(uint32_t)) return 31 - static_cast<uint32_t>(__builtin_clz(bits));
    return 63 - static_cast<uint32_t>(__builtin_clzll(bits));
}

inline constexpr Mask fullMask = static_cast<Mask>(~Mask{0});
inline constexpr uint32_t allMaskBits = maskBits * size;

inline size_t first(Mask mask) { return lowestBit(mask) / maskBits; }
inline size_t last(Mask mask) { return highestBit(mask) / maskBits; }

inline constexpr size_t groupSize = groupBlocks * size;
inline constexpr size_t rowSize = rowBlocks * size;

// The first flagged byte of two blocks in a row, of which one has a flag.
inline Address firstOfPair(Address address, Flags low, Flags high) {
    if constexpr (packsGroups) return address + lowestBit(packPair(low, high));
    Mask mask = pack(low);
    if (mask == 0) {
        mask = pack(high);
        address += size;
    }
    return address + first(mask);
}

// The flags of the bytes behind the first `count`, fewer than a block has.
inline Mask dropFirst(Mask mask, size_t count) { return static_cast<Mask>(mask >> count * maskBits); }

// The mask without the flags of the first `count` bytes, fewer than a block has.
inline Mask from(Mask mask, size_t count) { return static_cast<Mask>(mask & fullMask << count * maskBits); }

// The mask without the flags up to those of the byte at an index.
inline Mask after(Mask mask, size_t index) {
    return static_cast<Mask>(mask & fullMask << index * maskBits << maskBits);
}

// The mask without the flags from the first one of another mask on, which is not empty.
inline Mask before(Mask mask, Mask end) { return static_cast<Mask>(mask & ((Mask{1} << lowestBit(end)) - 1)); }

// The mask of the first `count` bytes only, at least one.
inline Mask upTo(Mask mask, size_t count) {
    constexpr size_t unused = sizeof(Mask) * 8 - allMaskBits;
    return static_cast<Mask>(mask & fullMask >> ((size - count) * maskBits + unused));
}

// Each byte's flag moved to the byte before it. The last byte, whose successor is not in the block, is taken for
// flagged.
inline Mask ofSuccessors(Mask mask) {
    if constexpr (size == 1)
        return fullMask;
    else
        return static_cast<Mask>(mask >> maskBits | fullMask << (allMaskBits - maskBits));
}

// The bytes in which two blocks differ, for first() only.
inline Mask differences(Block block, Block other) {
    if constexpr (maskBits == 8)
        return static_cast<Mask>(pack(block) ^ pack(other));
    else
        return pack(inverse(equals(block, other)));
}

}  // namespace
}  // namespace strlib::block

#endif
