#ifndef STRLIB_MACHINE_WORD_H
#define STRLIB_MACHINE_WORD_H

// Plain words: as many bytes as a general register holds, or a single byte. Flags are the top bits of the bytes.

namespace strlib::block {
namespace {

#if defined(STRLIB_BLOCK_BYTE)
using Word = uint8_t;
#else
using Word = size_t;
#endif

inline constexpr size_t wordsAtOnce = 1;
inline void takeWords(Address &, Word &, Word &) {}

inline constexpr Word splatWord(uint8_t byte) { return static_cast<Word>(static_cast<Word>(~Word{0}) / 0xFF * byte); }

// Exact, as no carry leaves its byte: the top bit is set by the sum unless the low seven bits are within the limit.
inline Word atMost(Word word, uint8_t limit) {
    constexpr Word low = splatWord(0x7F);
    return static_cast<Word>(~(((word & low) + splatWord(static_cast<uint8_t>(0x7F - limit))) | word | low));
}
inline Word inverse(Word flags) { return flags ^ splatWord(0x80); }
inline Word zeros(Word word) { return atMost(word, 0); }
inline Word equals(Word word, Word other) { return zeros(static_cast<Word>(word ^ other)); }
inline Word orEquals(Word flags, Word word, Word other) { return static_cast<Word>(flags | equals(word, other)); }

// The flags of the bytes from `first` to `last`, both below 0x80: the sums carry into the top bit, which is free in
// each byte, from `first` and from `last` + 1 up, and bytes from 0x80 up are left out.
inline Word within(Word word, uint8_t first, uint8_t last) {
    const Word low = word & splatWord(0x7F);
    const Word fromFirst = static_cast<Word>(low + splatWord(static_cast<uint8_t>(0x80 - first)));
    const Word aboveLast = static_cast<Word>(low + splatWord(static_cast<uint8_t>(0x7F - last)));
    return static_cast<Word>(fromFirst & ~aboveLast & ~word & splatWord(0x80));
}

inline Word fold(Word word) { return static_cast<Word>(word + (within(word, 'A', 'Z') >> 2)); }

inline Word foldedDifference(Word word, Word other) {
    const Word caseBits = static_cast<Word>(within(word | splatWord(0x20), 'a', 'z') >> 2);
    return static_cast<Word>((word ^ other) & ~caseBits);
}

}  // namespace
}  // namespace strlib::block

#endif
