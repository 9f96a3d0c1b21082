#ifndef STRLIB_MACHINE_ARM_H
#define STRLIB_MACHINE_ARM_H

// Words with the byte-wise instructions of 32-bit ARM. A byte is flagged by any value but 0.

#include <arm_acle.h>

namespace strlib::block {
namespace {

using Word = uint32_t;

// Two words in a row, at an address of a multiple of 8, and the address behind them. Left alone, compilers take them by
// two instructions, and a third for the address.
#if defined(__OPTIMIZE_SIZE__)
inline constexpr size_t wordsAtOnce = 1;
#else
inline constexpr size_t wordsAtOnce = 2;
#endif
[[gnu::always_inline]] inline void takeWords(Address &address, Word &low, Word &high) {
    const auto &bytes = *reinterpret_cast<const uint8_t(*)[8]>(address);
#if defined(__thumb2__)
    asm("ldrd %0, %1, [%2], #8" : "=r"(low), "=r"(high), "+r"(address) : "m"(bytes));
#else
    uint64_t both;
    asm("ldrd %0, %H0, [%1], #8" : "=r"(both), "+r"(address) : "m"(bytes));
    low = static_cast<Word>(both);
    high = static_cast<Word>(both >> 32);
    if (__BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__) {
        const Word first = high;
        high = low;
        low = first;
    }
#endif
    asm("" : "+r"(address));  // Or the old address is kept in a register of its own.
    low = littleEndian(low);
    high = littleEndian(high);
}

inline constexpr Word splatWord(uint8_t byte) { return byte * 0x01010101u; }

// The difference saturates at 0: what is left in a byte tells that it is not above the limit.
inline Word atMost(Word word, uint8_t limit) { return __uqsub8(splatWord(static_cast<uint8_t>(limit + 1)), word); }
inline Word zeros(Word word) { return atMost(word, 0); }
inline Word inverse(Word flags) { return zeros(flags); }
inline Word equals(Word word, Word other) { return zeros(word ^ other); }
inline Word orEquals(Word flags, Word word, Word other) { return flags | equals(word, other); }

// Chooses the bytes of one of two words: of `inside` where a third is one of the 26 letters from `first` on.
inline Word chooseByLetters(Word word, uint8_t first, Word inside, Word outside) {
    __usub8(splatWord('z' - 'a'), __usub8(word, splatWord(first)));
    return __sel(inside, outside);
}

inline Word fold(Word word) { return chooseByLetters(word, 'A', word | splatWord(0x20), word); }
inline Word foldedDifference(Word word, Word other) {
    const Word difference = word ^ other;
    return chooseByLetters(word | splatWord(0x20), 'a', difference & ~splatWord(0x20), difference);
}

}  // namespace
}  // namespace strlib::block

#endif
