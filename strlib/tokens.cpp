#include <strlib.h>

#include "core/byte_set.h"

using namespace strlib;

// The first token; its end is looked for only where it is wanted.
STRLIB_SHARED static char *findToken(const char *string, const char *delimiters, char **end) {
    if (isEmpty(string) || delimiters == nullptr) return nullptr;
    return withSet(bytesOf(delimiters), [=](const auto &set) -> char * {
        const uint8_t *const first = set.skip(bytesOf(string));
        if (*first == 0) return nullptr;
        if (end != nullptr) *end = resultAt(set.find(first + 1));
        return resultAt(first);
    });
}

char *TQ_strtoken(const char *string, const char *delimiters, char **end) { return findToken(string, delimiters, end); }

char *TQ_strtoklen(const char *string, const char *delimiters, uint16_t *length) {
    if (length == nullptr) return findToken(string, delimiters, nullptr);
    char *end;
    char *const first = findToken(string, delimiters, &end);
    *length = first == nullptr ? uint16_t{0} : static_cast<uint16_t>(end - first);
    return first;
}
