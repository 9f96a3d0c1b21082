#include <strlib.h>

#include "core/byte_set.h"

using namespace strlib;

char *TQANSI_strpbrk(const char *string, const char *set) {
    if (string == nullptr || set == nullptr) return nullptr;
    const uint8_t *const at = withSet(bytesOf(set), [=](const auto &members) { return members.find(bytesOf(string)); });
    return *at == 0 ? nullptr : resultAt(at);
}
