#include <strlib.h>

#include "detail/ascii.h"
#include "detail/bytes.h"
#include "utf8/sequence.h"

using namespace strlib;

static constexpr uint32_t longestCharacter = 4;

// Leads that could encode nothing but what fits in one byte, or that begin longer sequences, are invalid.
static constexpr uint8_t firstLead = 0xC2;
static constexpr uint8_t lastLead = 0xF7;

// Copies what continues a character of several bytes as far as it belongs to it; its length, or 0 if it is invalid.
static uint32_t readSequence(const uint8_t *bytes, uint8_t *copy) {
    if (!inRange(bytes[0], firstLead, lastLead)) return 0;
    uint32_t length = 1;
    for (uint32_t rest = bytes[0]; hasFurther(rest); rest <<= 1, ++length) {
        if (!isContinuation(bytes[length])) return 0;
        copy[length] = bytes[length];
    }
    return length;
}

char *utf8ReadChar(const char *input, int32_t *valid, char *character) {
    uint8_t unwanted[longestCharacter + 1];
    uint8_t *const copy = character == nullptr ? unwanted : bytesOf(character);
    const uint8_t *const bytes = bytesOf(input);
    const uint8_t lead = bytes[0];
    const uint32_t length = lead < 0x80 ? lead != 0 : readSequence(bytes, copy);
    const bool isValid = length != 0 || lead == 0;
    if (valid != nullptr) *valid = isValid;
    copy[0] = lead;
    copy[length] = 0;
    return resultAt(bytes + (isValid ? length : 1));
}
