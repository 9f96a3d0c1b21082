#include <strlib.h>

#include "detail/ascii.h"
#include "detail/scan.h"

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

int32_t TQ_isBlankLine(const char *string) { return *scan(bytesOf(string), NoBlank()) == 0; }

int32_t TQ_isAttribute(uint32_t mask, const uint8_t *attributes, int32_t byte) {
    return attributes != nullptr && (attributes[lowByte(byte)] & mask) != 0;
}
