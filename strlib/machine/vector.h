#ifndef STRLIB_MACHINE_VECTOR_H
#define STRLIB_MACHINE_VECTOR_H

// What the machines with vectors have in common, in the compiler's own terms: flags are all ones. They define `size`.

namespace strlib::block {
namespace {

inline constexpr bool isWord = false;
using Block = uint8_t __attribute__((vector_size(size)));
using Signed = int8_t __attribute__((vector_size(size)));
using Flags = Block;

inline Block splat(uint8_t byte) { return Block{} + byte; }
inline Flags zeros(Block block) { return reinterpret_cast<Flags>(block == 0); }
inline Flags equals(Block block, Block other) { return reinterpret_cast<Flags>(block == other); }
inline Flags orEquals(Flags flags, Block block, Block other) { return flags | equals(block, other); }
inline Flags inverse(Flags flags) { return ~flags; }
inline Flags atMost(Block block, uint8_t limit) { return reinterpret_cast<Flags>(block <= splat(limit)); }

// No byte but those from `first` on, 26 of them, is below `first` + 26 - 0x80 once its distance is read as signed.
inline Flags letters(Block block, uint8_t first) {
    const Signed distance = reinterpret_cast<Signed>(block - static_cast<uint8_t>(first + 0x80));
    return reinterpret_cast<Flags>(distance < static_cast<int8_t>(26 - 0x80));
}

inline Block fold(Block block) { return block + (letters(block, 'A') & 0x20); }
inline Block foldedDifference(Block block, Block other) {
    return (block ^ other) & ~(letters(block | 0x20, 'a') & 0x20);
}

inline Block loadAligned(Address address) {
    using Aligned __attribute__((may_alias)) = Block;
    return *reinterpret_cast<const Aligned *>(address);
}

}  // namespace
}  // namespace strlib::block

#endif
