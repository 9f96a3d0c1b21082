#ifndef STRLIB_CORE_UTF8_SEQUENCE_H
#define STRLIB_CORE_UTF8_SEQUENCE_H

// The forms of UTF-8 sequences: a lead byte that starts with as many 1 bits as the sequence has bytes, and continuation
// bytes that start with the bits 10 and carry six bits of payload each. One byte alone starts with a 0 bit.

#include <stdint.h>

namespace strlib {
namespace {

inline constexpr uint32_t payloadBits = 6;
inline constexpr uint32_t longestSequence = 6;

// The leading 1 bits of a byte: 0 for one that stands alone, 1 for a continuation byte, and for a lead byte the length
// of its sequence. 7 and 8 (0xFE, 0xFF) begin nothing.
inline uint32_t leadingOnes(uint8_t byte) { return static_cast<uint32_t>(__builtin_clz(~(uint32_t{byte} << 24))); }

inline bool isLead(uint8_t byte) { return byte >= 0xC0; }
inline bool isContinuation(uint8_t byte) { return (byte & 0xC0) == 0x80; }

// Whether a lead promises one more byte, and again for each shift of it to the left. Cheaper than a count.
inline bool hasFurther(uint32_t lead) { return (lead & 0x40) != 0; }

// 0xC0 and 0xC1: all that their sequences could encode fits in one byte.
inline bool isOverlongLead(uint8_t byte) { return (byte & 0xFE) == 0xC0; }

// The bits that mark the lead byte of a sequence of two bytes and more, and those that are left for payload.
inline uint8_t leadMark(uint32_t length) { return static_cast<uint8_t>(0xFF00u >> length & 0xFF); }

inline uint8_t continuation(uint32_t payload) { return static_cast<uint8_t>(0x80 | (payload & 0x3F)); }
inline uint8_t continuationPayload(uint8_t byte) { return byte & 0x3F; }

}  // namespace
}  // namespace strlib

#endif
