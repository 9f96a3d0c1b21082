#ifndef STRLIB_CORE_BYTES_H
#define STRLIB_CORE_BYTES_H

// The readings of a byte, and the byte classes of ASCII. Text comes and goes as `char`, which is signed on some targets
// and unsigned on others; inside the library a byte is a `uint8_t`, and whoever wants the signed reading says so.

#include <stddef.h>
#include <stdint.h>

namespace strlib {
namespace {

inline const uint8_t *bytesOf(const char *string) { return reinterpret_cast<const uint8_t *>(string); }
inline uint8_t *bytesOf(char *string) { return reinterpret_cast<uint8_t *>(string); }

inline char *charsOf(uint8_t *bytes) { return reinterpret_cast<char *>(bytes); }

// Results point into arguments that were passed as const, as in the classic C routines.
inline char *resultAt(const uint8_t *position) { return const_cast<char *>(reinterpret_cast<const char *>(position)); }

inline int32_t asSigned(uint8_t byte) { return static_cast<int8_t>(byte); }

inline uint8_t lowByte(uint32_t value) { return static_cast<uint8_t>(value & 0xFFu); }
inline uint8_t lowByte(int32_t value) { return lowByte(static_cast<uint32_t>(value)); }

inline bool isEmpty(const char *string) { return string == nullptr || *string == 0; }

// The classes, each tested by one unsigned comparison that also refuses what lies below its range.

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
