#include <strlib.h>

#include "core/bytes.h"

using namespace strlib;

// The one thing the library imports. Declared here because a freestanding target need not have <string.h>.
extern "C" void *memset(void *destination, int value, size_t count);

void *TQANSI_memset(void *destination, int32_t byte, uint32_t count) {
    // Null is tested first: behind a call of memset the compiler may take the pointer for valid.
    if (destination == nullptr || count == 0) return destination;
    return memset(destination, lowByte(byte), count);
}
