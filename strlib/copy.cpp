#include <strlib.h>

#include "core/copy.h"

using namespace strlib;

// Copying stands here once, for the routines that copy and for those that add to a string.

STRLIB_SHARED static uint8_t *copyWhole(char *destination, const char *source) {
    return copyString(bytesOf(destination), bytesOf(source));
}

STRLIB_SHARED static void copyPart(char *destination, const char *source, int32_t limit) {
    copyUpTo(bytesOf(destination), bytesOf(source), limit);
}

static char *endOf(char *string) { return string + TQANSI_strlen(string); }

char *TQANSI_strcpy(char *destination, const char *source) {
    if (destination != nullptr && source != nullptr) copyWhole(destination, source);
    return destination;
}

char *TQ_strappend(char *destination, const char *source) {
    if (destination == nullptr || source == nullptr) return destination;
    return charsOf(copyWhole(destination, source));
}

char *TQANSI_strcat(char *destination, const char *source) {
    if (destination != nullptr && source != nullptr) copyWhole(endOf(destination), source);
    return destination;
}

char *TQANSI_strncpy(char *destination, const char *source, int32_t count) {
    if (destination != nullptr && source != nullptr) copyPart(destination, source, count);
    return destination;
}

char *TQANSI_strncat(char *destination, const char *source, int32_t count) {
    if (destination != nullptr && source != nullptr) copyPart(endOf(destination), source, count);
    return destination;
}
