#ifndef STRLIB_DETAIL_BYTES_H
#define STRLIB_DETAIL_BYTES_H

// The readings of a byte. Text comes and goes as `char`, which is signed on some targets and unsigned on others;
// inside the library a byte is a `uint8_t`, and whoever wants the signed reading says so.

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

}  // namespace
}  // namespace strlib

#endif
