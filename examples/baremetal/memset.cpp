// The one function that the library imports.

#include <stddef.h>
#include <stdint.h>

extern "C" void *memset(void *destination, int value, size_t count) {
    uint8_t *at = static_cast<uint8_t *>(destination);
    for (; count != 0; --count) *at++ = static_cast<uint8_t>(value);
    return destination;
}
