#include <strlib.h>

#include "detail/compare.h"
#include "detail/scan.h"

using namespace strlib;

char *TQANSI_strstr(const char *string, const char *substring) {
    if (string == nullptr || substring == nullptr) return nullptr;
    const uint8_t *const sought = bytesOf(substring);
    const uint32_t length = static_cast<uint32_t>(measure(sought));
    const uint8_t *at = bytesOf(string);
    for (; compareUpTo<Exact>(at, sought, length) != 0; ++at) {
        if (*at == 0) return nullptr;
    }
    return resultAt(at);
}

char *TQ_stristr(const char *string, const char *substring) {
    if (string == nullptr || substring == nullptr) return nullptr;
    const size_t length = measure(bytesOf(substring));
    if (length == 0) return resultAt(bytesOf(string));
    for (size_t left = measure(bytesOf(string)); left >= length; --left, ++string) {
        if (TQANSI_strnicmp(string, substring, static_cast<int32_t>(length)) == 0) return resultAt(bytesOf(string));
    }
    return nullptr;
}
