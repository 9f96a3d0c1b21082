#ifndef STRLIB_DETAIL_DECIMAL_H
#define STRLIB_DETAIL_DECIMAL_H

#include "detail/ascii.h"
#include "detail/divide.h"

namespace strlib {
namespace {

// An optional '-' and decimal digits, none included.
struct Decimal {
    uint32_t value;  // modulo 2^32
    bool hasDigits;
    const uint8_t *end;
};

inline Decimal readDecimal(const uint8_t *at) {
    const bool negative = *at == '-';
    const uint8_t *const first = at + negative;
    uint32_t value = 0;
    at = first;
    for (uint32_t digit; (digit = *at - uint32_t{'0'}) < 10; ++at) value = value * 10 + digit;
    return {negative ? 0 - value : value, at != first, at};
}

// What makes the digits behind it hexadecimal.
inline bool isHexadecimalMark(const uint8_t *at) { return at[0] == '0' && at[1] == 'x'; }

inline uint32_t countDecimalDigits(uint32_t magnitude) {
    for (uint32_t count = 1;; count += 4) {
        if (magnitude < 10) return count;
        if (magnitude < 100) return count + 1;
        if (magnitude < 1000) return count + 2;
        if (magnitude < 10000) return count + 3;
        magnitude = dividedBy10000(magnitude);
    }
}

inline uint32_t magnitudeOf(int32_t value) {
    return value < 0 ? 0 - static_cast<uint32_t>(value) : static_cast<uint32_t>(value);
}

// The length of a number's text.
inline uint32_t decimalLength(int32_t value) { return (value < 0) + countDecimalDigits(magnitudeOf(value)); }

}  // namespace
}  // namespace strlib

#endif
