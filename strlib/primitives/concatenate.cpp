#include <strlib.h>

#include "detail/scan.h"

using namespace strlib;

// What is added is copied by the routines that copy, so that the code exists once.

[[gnu::noinline]] static char *endOf(char *string) { return string + measure(bytesOf(string)); }

char *TQANSI_strcat(char *destination, const char *source) {
    if (destination != nullptr && source != nullptr) TQ_strappend(endOf(destination), source);
    return destination;
}

char *TQANSI_strncat(char *destination, const char *source, int32_t count) {
    if (destination != nullptr && source != nullptr) TQANSI_strncpy(endOf(destination), source, count);
    return destination;
}
