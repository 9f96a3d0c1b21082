#ifndef STRLIB_CORE_DIGITS_H
#define STRLIB_CORE_DIGITS_H

#include "core/bytes.h"

namespace strlib {
namespace {

// Division without a divider. ARMv7-A need not have one, and what compilers put in its place is a call out of the
// library; so constants divide by multiplying with a rounded-up reciprocal, exact for all 32-bit values, and variables
// with a reciprocal that is found once.

inline uint32_t dividedBy10000(uint32_t value) { return static_cast<uint32_t>(value * uint64_t{0xD1B71759} >> 45); }

// For values below 10000 and below 100.
inline uint32_t smallDividedBy100(uint32_t value) { return value * 5243 >> 19; }
inline uint32_t smallDividedBy10(uint32_t value) { return value * 103 >> 10; }

class Divisor {
public:
    explicit Divisor(uint32_t divisor)
        : divisor_(divisor),
          bits_(static_cast<uint32_t>(__builtin_ctz(divisor))),
          reciprocal_((divisor & (divisor - 1)) == 0 ? 0 : reciprocalOf(divisor)) {}

    // Divides a value and gives the remainder.
    uint32_t divide(uint32_t &value) const {
        const uint32_t dividend = value;
        value = reciprocal_ == 0 ? dividend >> bits_ : static_cast<uint32_t>(dividend * uint64_t{reciprocal_} >> 32);
        const uint32_t remainder = dividend - value * divisor_;
        if (remainder < divisor_) return remainder;
        ++value;  // The reciprocal is rounded down: the product is right or short by one.
        return remainder - divisor_;
    }

private:
    // (2^32 - 1) / divisor.
    static uint32_t reciprocalOf(uint32_t divisor) {
#if defined(__arm__) && !defined(__ARM_FEATURE_IDIV)
        // Long division in base 2. The remainder stays below the divisor, which is small, so that doubling it is safe.
        uint32_t quotient = 0;
        uint32_t remainder = 0;
        for (uint32_t bits = 32; bits != 0; --bits) {
            remainder = remainder << 1 | 1;
            quotient <<= 1;
            if (remainder >= divisor) {
                remainder -= divisor;
                ++quotient;
            }
        }
        return quotient;
#else
        return UINT32_MAX / divisor;
#endif
    }

    uint32_t divisor_;
    uint32_t bits_;
    uint32_t reciprocal_;  // 0 for powers of two, which divide by shifts
};

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
