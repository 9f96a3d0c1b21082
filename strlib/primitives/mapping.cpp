#include <strlib.h>

#include "detail/bytes.h"

using namespace strlib;

void TQ_convertZstring(const uint8_t *conversion, char *string) {
    if (conversion == nullptr || string == nullptr) return;
    // The next byte is tested before it is replaced, so a 0 out of the table does not end the walk.
    for (uint8_t *at = bytesOf(string); *at != 0; ++at) *at = conversion[*at];
}
