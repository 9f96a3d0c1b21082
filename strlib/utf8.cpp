#include <strlib.h>

#include "core/bytes.h"
#include "core/utf8_sequence.h"

using namespace strlib;

// The length of a value's sequence, 0 for a value without one.
static uint32_t sequenceLength(uint32_t codePoint) {
    if (codePoint < 0x80) return 1;
    if (codePoint < 0x800) return 2;
    if (codePoint < 0x10000) return 3;
    if (codePoint < 0x200000) return 4;
    if (codePoint < 0x4000000) return 5;
    return codePoint < 0x80000000 ? 6 : 0;
}

int32_t unicodeToUtf8(uint32_t codePoint, char *buffer) {
    uint8_t *const bytes = bytesOf(buffer);
    const uint32_t length = sequenceLength(codePoint);
    if (length <= 1) {
        bytes[0] = length == 0 ? ' ' : lowByte(codePoint);
        bytes[1] = 0;
        return static_cast<int32_t>(length);
    }
    bytes[length] = 0;
    const auto store = [&](uint32_t index) {
        bytes[index] = continuation(codePoint);
        codePoint >>= payloadBits;
    };
    if (length > 5) store(5);
    if (length > 4) store(4);
    if (length > 3) store(3);
    if (length > 2) store(2);
    store(1);
    bytes[0] = lowByte(leadMark(length) | codePoint);
    return static_cast<int32_t>(length);
}

// The lead of the longest sequences; the two values above it begin nothing.
static constexpr uint8_t lastSequenceLead = 0xFD;

// What counts in the bits of a sequence, the lead's included: 11 of two bytes, and five more for each further one.
static uint32_t withoutMark(uint32_t bits, uint32_t length) { return bits & ((uint32_t{2} << length * 5) - 1); }

// The result for a sequence of which only the first `read` bytes are good. Overlong leads are followed by none.
static char *failAt(const uint8_t *bytes, uint32_t bits, uint32_t read, uint32_t *codePoint) {
    const uint32_t ones = leadingOnes(bytes[0]);
    if (ones <= longestSequence) *codePoint = withoutMark(bits << payloadBits * (ones - read), ones);
    return resultAt(bytes + 1);
}

char *utf8ToUnicode(const char *input, uint32_t *codePoint, int32_t *length) {
    const uint8_t *const bytes = bytesOf(input);
    const uint8_t lead = bytes[0];
    if (!isLead(lead)) {
        *codePoint = lead & 0x7F;  // A stray continuation byte counts as a character of its own.
        *length = 1;
        return resultAt(bytes + 1);
    }
    *length = 0;
    uint32_t bits = lead;
    uint32_t read = 1;
    if (lead > lastSequenceLead || isOverlongLead(lead)) return failAt(bytes, bits, read, codePoint);
    for (uint32_t rest = lead; hasFurther(rest); rest <<= 1, ++read) {
        if (!isContinuation(bytes[read])) return failAt(bytes, bits, read, codePoint);
        bits = bits << payloadBits | continuationPayload(bytes[read]);
    }
    *codePoint = withoutMark(bits, read);
    *length = static_cast<int32_t>(read);
    return resultAt(bytes + read);
}

static constexpr uint32_t longestCharacter = 4;

// Leads that could encode nothing but what fits in one byte, or that begin longer sequences, are invalid.
static constexpr uint8_t firstCharacterLead = 0xC2;
static constexpr uint8_t lastCharacterLead = 0xF7;

// Copies what continues a character of several bytes as far as it belongs to it; its length, or 0 if it is invalid.
static uint32_t readSequence(const uint8_t *bytes, uint8_t *copy) {
    if (!inRange(bytes[0], firstCharacterLead, lastCharacterLead)) return 0;
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
