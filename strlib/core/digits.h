#ifndef STRLIB_CORE_DIGITS_H
#define STRLIB_CORE_DIGITS_H

#include "core/bytes.h"

namespace strlib {
namespace {

// Division without a divider. ARMv7-A need not have one, and what compilers put in its place is a call out of the
// library; so values are multiplied by reciprocals, rounded up.

// Exact for all 32-bit values.
inline uint32_t dividedBy100(uint32_t value) { return static_cast<uint32_t>(value * uint64_t{0x51EB851F} >> 37); }

inline constexpr uint32_t smallestRadix = 2;
inline constexpr uint32_t largestRadix = 36;

// The number of times that a radix can be halved, rounded up, less one.
inline constexpr uint32_t radixShift(uint32_t radix) { return 31 - static_cast<uint32_t>(__builtin_clz(radix - 1)); }

// 2^(32 + shift) / radix, rounded up. The quotient is exact as long as the value times what was added by rounding,
// which is less than the radix and so at most 2^(shift + 1), stays below 2^(32 + shift): for all values up to 2^31.
struct Reciprocals {
    constexpr Reciprocals() : of{} {
        for (uint32_t radix = smallestRadix; radix <= largestRadix; ++radix)
            of[radix - smallestRadix] =
                static_cast<uint32_t>(((uint64_t{1} << (32 + radixShift(radix))) + radix - 1) / radix);
    }
    uint32_t of[largestRadix - smallestRadix + 1];
};

inline constexpr Reciprocals reciprocals;

// A value up to 2^31 divided by a radix.
inline uint32_t dividedByRadix(uint32_t value, uint32_t radix) {
    const uint64_t product = value * uint64_t{reciprocals.of[radix - smallestRadix]};
    return static_cast<uint32_t>(product >> 32) >> radixShift(radix);
}

// "00" to "99".
struct DigitPairs {
    constexpr DigitPairs() : at{} {
        for (uint8_t i = 0; i < 100; ++i) {
            at[i][0] = static_cast<uint8_t>('0' + i / 10);
            at[i][1] = static_cast<uint8_t>('0' + i % 10);
        }
    }
    uint8_t at[100][2];
};

inline constexpr DigitPairs digitPairs;

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

inline constexpr uint32_t powersOfTen[] = {0, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000, 1000000000};

// The bits tell the number of digits or one more: log10(2) is about 1233 / 4096. No branch, as lengths vary.
inline uint32_t countDecimalDigits(uint32_t magnitude) {
    const uint32_t bits = 32 - static_cast<uint32_t>(__builtin_clz(magnitude | 1));
    const uint32_t guess = bits * 1233 >> 12;
    return guess + (magnitude >= powersOfTen[guess]);
}

inline uint32_t magnitudeOf(int32_t value) {
    return value < 0 ? 0 - static_cast<uint32_t>(value) : static_cast<uint32_t>(value);
}

// The length of a number's text.
inline uint32_t decimalLength(int32_t value) { return (value < 0) + countDecimalDigits(magnitudeOf(value)); }

}  // namespace
}  // namespace strlib

#endif
