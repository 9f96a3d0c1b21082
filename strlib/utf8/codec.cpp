#include <strlib.h>

#include "detail/bytes.h"
#include "utf8/sequence.h"

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
    for (uint32_t i = length - 1; i != 0; --i, codePoint >>= payloadBits) bytes[i] = continuation(codePoint);
    bytes[0] = lowByte(leadMark(length) | codePoint);
    return static_cast<int32_t>(length);
}

char *utf8ToUnicode(const char *input, uint32_t *codePoint, int32_t *length) {
    const uint8_t *const bytes = bytesOf(input);
    const uint8_t lead = bytes[0];
    const uint32_t ones = leadingOnes(lead);
    if (ones < 2) {
        *codePoint = lead & 0x7F;  // A stray continuation byte counts as a character of its own.
        *length = 1;
        return resultAt(bytes + 1);
    }
    *length = 0;
    if (ones > longestSequence) return resultAt(bytes + 1);

    uint32_t shift = payloadBits * (ones - 1);
    uint32_t value = uint32_t{leadPayload(lead, ones)} << shift;
    bool whole = !isOverlongLead(lead);
    for (uint32_t i = 1; i < ones && whole; ++i) {
        whole = isContinuation(bytes[i]);
        shift -= payloadBits;
        if (whole) value |= uint32_t{continuationPayload(bytes[i])} << shift;
    }
    *codePoint = value;
    if (!whole) return resultAt(bytes + 1);
    *length = static_cast<int32_t>(ones);
    return resultAt(bytes + ones);
}
