#ifndef STRLIB_MACHINE_ARM_H
#define STRLIB_MACHINE_ARM_H

// Words with the byte-wise instructions of 32-bit ARM. A byte is flagged by any value but 0.

#include <arm_acle.h>

namespace strlib::block {
namespace {

using Word = uint32_t;

inline constexpr Word splatWord(uint8_t byte) { return byte * 0x01010101u; }

// The difference saturates at 0: what is left in a byte tells that it is not above the limit.
inline Word atMost(Word word, uint8_t limit) { return __uqsub8(splatWord(static_cast<uint8_t>(limit + 1)), word); }
inline Word zeros(Word word) { return atMost(word, 0); }
inline Word inverse(Word flags) { return zeros(flags); }
inline Word equals(Word word, Word other) { return zeros(word ^ other); }
inline Word orEquals(Word flags, Word word, Word other) { return flags | equals(word, other); }

// The bit of case in the letters from `first` on, 26 of them.
inline Word caseBits(Word word, uint8_t first) {
    __usub8(splatWord('z' - 'a'), __usub8(word, splatWord(first)));
    return __sel(splatWord(0x20), 0);
}

inline Word fold(Word word) { return word + caseBits(word, 'A'); }
inline Word foldedDifference(Word word, Word other) { return (word ^ other) & ~caseBits(word | splatWord(0x20), 'a'); }

}  // namespace
}  // namespace strlib::block

#endif
