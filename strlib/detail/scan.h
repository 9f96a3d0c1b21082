#ifndef STRLIB_DETAIL_SCAN_H
#define STRLIB_DETAIL_SCAN_H

#include "detail/bytes.h"

namespace strlib {

inline size_t measure(const uint8_t *string) {
    size_t length = 0;
    while (string[length] != 0) ++length;
    return length;
}

inline size_t measureUpTo(const uint8_t *string, size_t limit) {
    size_t length = 0;
    while (length < limit && string[length] != 0) ++length;
    return length;
}

}  // namespace strlib

#endif
