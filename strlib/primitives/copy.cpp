#include <strlib.h>

#include "detail/copy.h"

using namespace strlib;

char *TQANSI_strcpy(char *destination, const char *source) {
    if (destination != nullptr && source != nullptr) copyString(bytesOf(destination), bytesOf(source));
    return destination;
}

char *TQ_strappend(char *destination, const char *source) {
    if (destination == nullptr || source == nullptr) return destination;
    return charsOf(copyString(bytesOf(destination), bytesOf(source)));
}

char *TQANSI_strncpy(char *destination, const char *source, int32_t count) {
    if (destination != nullptr && source != nullptr) copyUpTo(bytesOf(destination), bytesOf(source), count);
    return destination;
}
