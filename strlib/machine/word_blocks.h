#ifndef STRLIB_MACHINE_WORD_BLOCKS_H
#define STRLIB_MACHINE_WORD_BLOCKS_H

// Words as blocks, where there are no vectors: flags are as wide as the bytes and need no packing.

#define STRLIB_SHARED [[gnu::noinline]]

namespace strlib::block {
namespace {

using Block = Word;
using Flags = Word;
using Mask = Word;
inline constexpr size_t size = sizeof(Block);
inline constexpr bool isWord = true;
inline constexpr uint32_t maskBits = 8;
inline constexpr int blocksATurn = 1;
inline constexpr size_t fewMembers = 3;
inline constexpr size_t rowBlocks = 1;
inline constexpr bool readsAreWatched = false;
inline constexpr Block splat(uint8_t byte) { return splatWord(byte); }
inline Mask pack(Flags flags) { return flags; }
inline bool any(Flags flags) { return flags != 0; }
using GroupMask = Mask;
inline constexpr bool packsGroups = false;
inline GroupMask packPair(Flags, Flags) { return 0; }
inline bool anyOfPair(Flags low, Flags high) { return any(low | high); }
inline constexpr size_t groupBlocks = wordsAtOnce;
inline Block load(const uint8_t *at) { return loadWord<Word>(at); }
inline void store(uint8_t *at, Block block) { storeAs<Word>(at, littleEndian(block)); }
inline Block loadAligned(Address address) { return loadAlignedWord<Word>(address); }
inline void takePair(Address &address, Block &low, Block &high) { takeWords(address, low, high); }

}  // namespace
}  // namespace strlib::block

#endif
