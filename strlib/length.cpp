#include <strlib.h>

#include "core/scan.h"

using namespace strlib;

int32_t TQANSI_strlen(const char *string) {
    if (string == nullptr) return 0;
    return static_cast<int32_t>(measure(bytesOf(string)));
}
