#ifndef STRLIB_CORE_DIALECT_H
#define STRLIB_CORE_DIALECT_H

// What the two format dialects have in common: width groups and escape pairs.

#include <strlib.h>

#include "core/bytes.h"
#include "core/copy.h"

namespace strlib {
namespace {

inline constexpr uint8_t directiveSign = '%';
inline constexpr uint8_t escapeSign = '\\';

inline constexpr uint32_t noWidth = UINT32_MAX;
inline constexpr uint32_t widthGroupDigits = 7;

// Reads the width groups at `at`, moves it behind them and gives the value of the last, or noWidth.
inline uint32_t readWidth(const uint8_t *&at) {
    uint32_t width = noWidth;
    for (uint32_t count = 0; isDigit(*at); ++at) {
        if (count == 0) width = 0;
        width = width * 10 + (*at - uint32_t{'0'});
        if (++count == widthGroupDigits) count = 0;
    }
    return width;
}

// The byte for which a backslash and this byte stand.
inline uint8_t escaped(uint8_t byte) {
    switch (byte) {
        case 'r': return '\r';
        case 't': return '\t';
        case 'n': return '\n';
        default: return byte;
    }
}

// Copies a field or a run of plain bytes: once in the code for all who do.
[[gnu::noinline]] inline void copyPiece(uint8_t *destination, const uint8_t *source, size_t count) {
    copyBytes(destination, source, count);
}

}  // namespace
}  // namespace strlib

#endif
