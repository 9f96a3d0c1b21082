#include <strlib.h>

#include "detail/scan.h"

using namespace strlib;

char *TQANSI_strchr(const char *string, int32_t byte) {
    if (string == nullptr) return nullptr;
    const uint8_t sought = lowByte(byte);
    const uint8_t *at = bytesOf(string);
    while (*at != 0 && *at != sought) ++at;
    return *at == 0 ? nullptr : resultAt(at);
}

char *TQANSI_strrchr(const char *string, int32_t byte) {
    if (string == nullptr) return nullptr;
    const uint8_t sought = lowByte(byte);
    const uint8_t *const bytes = bytesOf(string);
    for (size_t i = measure(bytes); i-- > 0;) {
        if (bytes[i] == sought) return resultAt(bytes + i);
    }
    return nullptr;
}

void *TQANSI_memchr(const void *range, int32_t byte, uint32_t count) {
    if (range == nullptr) return nullptr;
    const uint8_t *const bytes = static_cast<const uint8_t *>(range);
    for (uint32_t i = 0; i < count; ++i) {
        if (bytes[i] == lowByte(byte)) return resultAt(bytes + i);
    }
    return nullptr;
}
