#include <strlib.h>

#include "detail/copy.h"
#include "detail/scan.h"

using namespace strlib;

[[gnu::noinline]] static uint8_t *endOf(char *string) { return bytesOf(string) + measure(bytesOf(string)); }

char *TQANSI_strcat(char *destination, const char *source) {
    if (destination != nullptr && source != nullptr) copyString(endOf(destination), bytesOf(source));
    return destination;
}

char *TQANSI_strncat(char *destination, const char *source, int32_t count) {
    if (destination != nullptr && source != nullptr) copyUpTo(endOf(destination), bytesOf(source), count);
    return destination;
}
