#include <strlib.h>

#include "detail/bytes.h"
#include "utf8/sequence.h"

using namespace strlib;

static constexpr uint32_t longestCharacter = 4;

// Copies the character as far as its bytes belong to it; its length, or 0 if it is invalid.
static uint32_t readSequence(const uint8_t *bytes, uint8_t *copy) {
    const uint32_t length = leadingOnes(bytes[0]);
    if (length == 1 || length > longestCharacter || isOverlongLead(bytes[0])) return 0;
    if (copy != nullptr) copy[0] = bytes[0];
    for (uint32_t i = 1; i < length; ++i) {
        if (!isContinuation(bytes[i])) return 0;
        if (copy != nullptr) copy[i] = bytes[i];
    }
    return length == 0 ? 1 : length;
}

char *utf8ReadChar(const char *input, int32_t *valid, char *character) {
    const uint8_t *const bytes = bytesOf(input);
    uint8_t *const copy = bytesOf(character);
    const uint32_t length = readSequence(bytes, copy);
    if (valid != nullptr) *valid = length != 0;
    if (copy != nullptr) copy[length] = 0;
    if (bytes[0] == 0) return resultAt(bytes);
    return resultAt(bytes + (length == 0 ? 1 : length));
}
