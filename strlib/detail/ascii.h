#ifndef STRLIB_DETAIL_ASCII_H
#define STRLIB_DETAIL_ASCII_H

// The byte classes of ASCII, each tested by one unsigned comparison that also refuses what lies below its range.

#include <stdint.h>

namespace strlib {
namespace {

// The distance between a capital and its small letter.
inline constexpr uint8_t caseBit = 0x20;

inline constexpr bool inRange(uint8_t byte, uint8_t first, uint8_t last) {
    return static_cast<uint8_t>(byte - first) <= static_cast<uint8_t>(last - first);
}

inline constexpr bool isBlank(uint8_t byte) { return inRange(byte, 1, ' '); }
inline constexpr bool isDigit(uint8_t byte) { return inRange(byte, '0', '9'); }
inline constexpr bool isCapital(uint8_t byte) { return inRange(byte, 'A', 'Z'); }
inline constexpr bool isLetter(uint8_t byte) {
    const uint32_t capital = byte & (0xFFu - caseBit);  // One mask for the case and for what a register holds above.
    return capital - 'A' <= 'Z' - 'A';
}

inline constexpr uint8_t folded(uint8_t byte) { return isCapital(byte) ? static_cast<uint8_t>(byte + caseBit) : byte; }

inline const uint8_t *skipBlanks(const uint8_t *at) {
    while (isBlank(*at)) ++at;
    return at;
}

}  // namespace
}  // namespace strlib

#endif
