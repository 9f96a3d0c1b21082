#include <strlib.h>

#include "detail/bytes.h"
#include "detail/decimal.h"

using namespace strlib;

static constexpr uint32_t noDigit = 16;

static uint32_t hexadecimalDigit(uint8_t byte) {
    if (isDigit(byte)) return byte - uint32_t{'0'};
    const uint8_t letter = byte | caseBit;
    return inRange(letter, 'a', 'f') ? letter - uint32_t{'a'} + 10 : noDigit;
}

static uint32_t readHexadecimal(const uint8_t *at) {
    uint32_t value = 0;
    for (uint32_t digit; (digit = hexadecimalDigit(*at)) != noDigit; ++at) value = value << 4 | digit;
    return value;
}

int32_t TQANSI_atoi(const char *text) {
    const uint8_t *at = skipBlanks(bytesOf(text));
    const uint32_t value = isHexadecimalMark(at) ? readHexadecimal(at + 2) : readDecimal(at).value;
    return static_cast<int32_t>(value);
}
