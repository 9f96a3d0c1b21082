#include <strlib.h>

#include "detail/ascii.h"
#include "detail/bytes.h"

using namespace strlib;

int32_t TQANSI_toupper(int32_t character) {
    return character >= 'a' && character <= 'z' ? character - caseBit : character;
}

int32_t TQANSI_isalpha(int32_t character) { return isLetter(lowByte(character)); }

int32_t TQANSI_isdigit(int32_t character) { return isDigit(lowByte(character)); }

int32_t TQ_isBlankLine(const char *string) { return *skipBlanks(bytesOf(string)) == 0; }

int32_t TQ_isAttribute(uint32_t mask, const uint8_t *attributes, int32_t byte) {
    return attributes != nullptr && (attributes[lowByte(byte)] & mask) != 0;
}
