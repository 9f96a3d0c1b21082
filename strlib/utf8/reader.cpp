#include <strlib.h>

#include "detail/bytes.h"
#include "utf8/sequence.h"

using namespace strlib;

static constexpr uint32_t longestCharacter = 4;

// Copies the character as far as its bytes belong to it; its length, or 0 if it is invalid.
static uint32_t readCharacter(const uint8_t *bytes, uint8_t *copy) {
    const uint32_t ones = leadingOnes(bytes[0]);
    if (ones == 1 || ones > longestCharacter || isOverlongLead(bytes[0])) return 0;
    if (copy != nullptr) copy[0] = bytes[0];
    for (uint32_t i = 1; i < ones; ++i) {
        if (!isContinuation(bytes[i])) return 0;
        if (copy != nullptr) copy[i] = bytes[i];
    }
    return ones == 0 ? 1 : ones;
}

char *utf8ReadChar(const char *input, int32_t *valid, char *character) {
    const uint8_t *const bytes = bytesOf(input);
    uint8_t *const copy = bytesOf(character);
    const bool ended = bytes[0] == 0;
    const uint32_t length = ended ? 0 : readCharacter(bytes, copy);
    if (valid != nullptr) *valid = ended || length != 0;
    if (copy != nullptr) copy[length] = 0;
    return resultAt(bytes + (length == 0 && !ended ? 1 : length));
}
