#include <strlib.h>

#include "detail/bytes.h"

using namespace strlib;

int32_t X_TAMBRO_gets(char *destination, int32_t size, const char *source) {
    const uint8_t *const bytes = bytesOf(source);
    int32_t stored = 0;
    for (int32_t index = 0;; ++index) {
        const uint8_t byte = bytes[index];
        if (byte == '\r') continue;
        const bool ends = byte == '\n' || byte == 0;
        if (!ends) destination[stored++] = static_cast<char>(byte);
        if (ends || stored == size) {
            destination[stored] = 0;
            return index;
        }
    }
}
