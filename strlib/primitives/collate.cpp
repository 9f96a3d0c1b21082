#include <strlib.h>

#include "detail/compare.h"

using namespace strlib;

int32_t customStricmp(const char *first, const char *second, const uint8_t *collation) {
    const uint8_t *a = bytesOf(first);
    const uint8_t *b = bytesOf(second);
    if (collation == nullptr) return compareStrings<Exact>(a, b);
    while (collation[*a] == collation[*b] && collation[*a] != 0) ++a, ++b;
    return asSigned(collation[*a]) - asSigned(collation[*b]);
}
