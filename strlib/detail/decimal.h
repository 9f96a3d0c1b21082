#ifndef STRLIB_DETAIL_DECIMAL_H
#define STRLIB_DETAIL_DECIMAL_H

#include "detail/ascii.h"

namespace strlib {
namespace {

// A run of decimal digits, none included: its value modulo 2^32 and the byte behind it.
struct Digits {
    uint32_t value;
    const uint8_t *end;
};

inline Digits readDigits(const uint8_t *at) {
    uint32_t value = 0;
    for (; isDigit(*at); ++at) value = value * 10 + (*at - uint32_t{'0'});
    return {value, at};
}

}  // namespace
}  // namespace strlib

#endif
