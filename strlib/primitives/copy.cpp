#include <strlib.h>

#include "detail/copy.h"

using namespace strlib;

// One copy of the code for both routines that copy a whole string.
[[gnu::noinline]] static uint8_t *copyWhole(char *destination, const char *source) {
    return copyString(bytesOf(destination), bytesOf(source));
}

char *TQANSI_strcpy(char *destination, const char *source) {
    if (destination != nullptr && source != nullptr) copyWhole(destination, source);
    return destination;
}

char *TQ_strappend(char *destination, const char *source) {
    if (destination == nullptr || source == nullptr) return destination;
    return charsOf(copyWhole(destination, source));
}

char *TQANSI_strncpy(char *destination, const char *source, int32_t count) {
    if (destination != nullptr && source != nullptr) copyUpTo(bytesOf(destination), bytesOf(source), count);
    return destination;
}
