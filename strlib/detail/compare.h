#ifndef STRLIB_DETAIL_COMPARE_H
#define STRLIB_DETAIL_COMPARE_H

#include "detail/ascii.h"
#include "detail/bytes.h"

namespace strlib {

// How a comparison reads a byte: as it stands, or with the capitals folded.
struct Exact {
    static uint8_t read(uint8_t byte) { return byte; }
};

struct Folded {
    static uint8_t read(uint8_t byte) { return folded(byte); }
};

template <class Reading>
inline int32_t difference(uint8_t first, uint8_t second) {
    return asSigned(Reading::read(first)) - asSigned(Reading::read(second));
}

template <class Reading>
inline int32_t compareStrings(const uint8_t *first, const uint8_t *second) {
    while (*first != 0 && Reading::read(*first) == Reading::read(*second)) ++first, ++second;
    return difference<Reading>(*first, *second);
}

template <class Reading>
inline int32_t compareUpTo(const uint8_t *first, const uint8_t *second, uint32_t limit) {
    for (; limit != 0; --limit, ++first, ++second) {
        const int32_t found = difference<Reading>(*first, *second);
        if (found != 0 || *first == 0) return found;
    }
    return 0;
}

// The rule for signed counts: 0 compares nothing, a negative count the first bytes only.
inline uint32_t positionsToCompare(int32_t count) { return count < 0 ? 1 : static_cast<uint32_t>(count); }

}  // namespace strlib

#endif
