#ifndef STRLIB_DETAIL_COPY_H
#define STRLIB_DETAIL_COPY_H

#include "detail/bytes.h"

namespace strlib {

// Copies a string; the result is the address of the NUL written.
inline uint8_t *copyString(uint8_t *destination, const uint8_t *source) {
    while ((*destination = *source) != 0) ++destination, ++source;
    return destination;
}

// Copies a string or its first `limit` bytes and ends the copy with a NUL.
inline void copyUpTo(uint8_t *destination, const uint8_t *source, int32_t limit) {
    for (; limit > 0 && *source != 0; --limit) *destination++ = *source++;
    *destination = 0;
}

}  // namespace strlib

#endif
