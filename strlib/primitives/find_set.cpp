#include <strlib.h>

#include "detail/byte_set.h"
#include "detail/bytes.h"

using namespace strlib;

char *TQANSI_strpbrk(const char *string, const char *set) {
    if (string == nullptr || set == nullptr) return nullptr;
    const ByteSet members(bytesOf(set));
    const uint8_t *at = bytesOf(string);
    while (*at != 0 && !members.has(*at)) ++at;
    return *at == 0 ? nullptr : resultAt(at);
}
