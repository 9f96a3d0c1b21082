#ifndef STRLIB_DETAIL_DIVIDE_H
#define STRLIB_DETAIL_DIVIDE_H

// Division without a divider. ARMv7-A need not have one, and what compilers put in its place is a call out of the
// library; so constants divide by multiplying with a rounded-up reciprocal, exact for all 32-bit values.

#include <stdint.h>

namespace strlib {
namespace {

inline uint32_t dividedBy100(uint32_t value) { return static_cast<uint32_t>(value * uint64_t{0x51EB851F} >> 37); }
inline uint32_t dividedBy10000(uint32_t value) { return static_cast<uint32_t>(value * uint64_t{0xD1B71759} >> 45); }

// For values below 100.
inline uint32_t smallDividedBy10(uint32_t value) { return value * 103 >> 10; }

struct Division {
    uint32_t quotient;
    uint32_t remainder;
};

inline Division divide(uint32_t value, uint32_t divisor) {
#if defined(__arm__) && !defined(__ARM_FEATURE_IDIV)
    // Long division in base 2. The remainder stays below the divisor, which is small, so that doubling it is safe.
    Division result = {0, 0};
    for (uint32_t bit = uint32_t{1} << 31; bit != 0; bit >>= 1) {
        result.remainder = result.remainder << 1 | ((value & bit) != 0);
        if (result.remainder >= divisor) {
            result.remainder -= divisor;
            result.quotient |= bit;
        }
    }
    return result;
#else
    return {value / divisor, value % divisor};
#endif
}

}  // namespace
}  // namespace strlib

#endif
