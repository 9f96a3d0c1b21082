#include <strlib.h>

#include "detail/substring.h"

using namespace strlib;

// Folded comparisons count to 16 bits: with a longer count they go on to the end of both strings.
static constexpr size_t longestCounted = 0xFFFF;

// A substring as long as that matches only where the string ends as it does: one place.
static const uint8_t *findAtEnd(const uint8_t *string, const uint8_t *sought, size_t length) {
    const size_t available = measure(string);
    if (available < length) return nullptr;
    const uint8_t *const place = string + (available - length);
    return TQANSI_strnicmp(resultAt(place), resultAt(sought), static_cast<int32_t>(length)) == 0 ? place : nullptr;
}

char *TQANSI_strstr(const char *string, const char *substring) {
    if (string == nullptr || substring == nullptr) return nullptr;
    if (isEmpty(substring)) return resultAt(bytesOf(string));
    return resultAt(findSubstring<Exact>(bytesOf(string), bytesOf(substring)));
}

char *TQ_stristr(const char *string, const char *substring) {
    if (string == nullptr || substring == nullptr) return nullptr;
    if (isEmpty(substring)) return resultAt(bytesOf(string));
    const uint8_t *const sought = bytesOf(substring);
    const size_t length = measure(sought);
    if (length > longestCounted) return resultAt(findAtEnd(bytesOf(string), sought, length));
    return resultAt(findSubstring<Folded>(bytesOf(string), sought));
}
