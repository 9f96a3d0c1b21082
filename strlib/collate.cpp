#include <strlib.h>

#include "core/compare.h"
#include "core/scan.h"

using namespace strlib;

// How many bytes are looked up before others are passed.
static constexpr size_t row = 8;

// How many bytes in a row are alike and end nothing.
[[gnu::always_inline]] static inline size_t alikeInRow(const uint8_t *a, const uint8_t *b, const uint8_t *collation) {
#pragma GCC unroll 8
    for (size_t i = 0; i < row; ++i) {
        if (collation[a[i]] != collation[b[i]] || collation[a[i]] == 0) return i;
    }
    return row;
}

static int32_t collated(const uint8_t *a, const uint8_t *b, const uint8_t *collation) {
    return asSigned(collation[*a]) - asSigned(collation[*b]);
}

// Goes on behind the first row. Where the table maps only the NUL to 0, bytes that are equal are alike and end nothing,
// and so do letters in either case where it maps both alike: as many as there are in a row are passed at once. Where
// that brings little, it is tried less and less often.
[[gnu::noinline]] static int32_t collateOn(const uint8_t *a, const uint8_t *b, const uint8_t *collation) {
    const bool onlyNulEnds = findWithin<Steps::blocks>(collation + 1, 255, Nul()) == nullptr;
    const bool mapsCasesAlike = compareRanges(collation + size_t{'A'}, collation + size_t{'a'}, 26) == 0;
    for (size_t rows = 1;;) {
        if (onlyNulEnds) {
            const size_t count = mapsCasesAlike ? commonPrefix<Folded>(a, b) : commonPrefix<Exact>(a, b);
            rows = count < row ? 2 * rows : 1;
            a += count;
            b += count;
        }
        for (size_t left = rows; left != 0; --left, a += row, b += row) {
            const size_t i = alikeInRow(a, b, collation);
            if (i < row) return collated(a + i, b + i, collation);
        }
    }
}

int32_t customStricmp(const char *first, const char *second, const uint8_t *collation) {
    const uint8_t *a = bytesOf(first);
    const uint8_t *b = bytesOf(second);
    if (collation == nullptr) return TQANSI_strcmp(first, second);
    if (passesEqualBytesFast) {
        const size_t i = alikeInRow(a, b, collation);
        return i < row ? collated(a + i, b + i, collation) : collateOn(a + i, b + i, collation);
    }
    while (collation[*a] == collation[*b] && collation[*a] != 0) ++a, ++b;
    return collated(a, b, collation);
}
