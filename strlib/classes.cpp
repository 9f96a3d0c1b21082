#include <strlib.h>

#include "core/bytes.h"
#include "core/scan.h"

using namespace strlib;

int32_t TQANSI_toupper(int32_t character) {
    return character >= 'a' && character <= 'z' ? character - caseBit : character;
}

int32_t TQANSI_isalpha(int32_t character) { return isLetter(lowByte(character)); }

int32_t TQANSI_isdigit(int32_t character) { return isDigit(lowByte(character)); }

namespace {

struct NoBlank {
    block::Flags operator()(block::Block bytes) const {
        return static_cast<block::Flags>(block::zeros(bytes) | block::inverse(block::atMost(bytes, ' ')));
    }
};

}  // namespace

int32_t TQ_isBlankLine(const char *string) { return *scan<Steps::blocks>(bytesOf(string), NoBlank()) == 0; }

int32_t TQ_isAttribute(uint32_t mask, const uint8_t *attributes, int32_t byte) {
    return attributes != nullptr && (attributes[lowByte(byte)] & mask) != 0;
}

void TQ_convertZstring(const uint8_t *conversion, char *string) {
    if (conversion == nullptr || string == nullptr) return;
    // The next byte is tested before it is replaced, so a 0 out of the table does not end the walk.
    for (uint8_t *at = bytesOf(string); *at != 0; ++at) *at = conversion[*at];
}
