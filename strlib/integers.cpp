#include <strlib.h>

#include "core/bytes.h"
#include "core/digits.h"
#include "machine/block.h"

using namespace strlib;

static constexpr int32_t smallestRadix = 2;
static constexpr int32_t largestRadix = 36;

static uint8_t decimalDigit(uint32_t value) { return lowByte('0' + value); }

static uint8_t digit(uint32_t value) { return value < 10 ? decimalDigit(value) : lowByte('A' - 10 + value); }

// The four digits of a value below 10000 as they stand in memory. Both halves of a word are divided at once.
static uint32_t fourDigits(uint32_t value) {
    const uint32_t hundreds = smallDividedBy100(value);
    const uint32_t pairs = hundreds | (value - hundreds * 100) << 16;
    const uint32_t tens = smallDividedBy10(pairs) & 0x000F000F;
    const uint32_t digits = (tens | (pairs - tens * 10) << 8) + 0x30303030;
    return block::littleEndian(digits);
}

static void putPair(uint8_t *end, uint32_t pair) {
    const uint32_t tens = smallDividedBy10(pair);
    end[-2] = decimalDigit(tens);
    end[-1] = decimalDigit(pair - tens * 10);
}

// Puts the last digit before `end` and goes on to the front.
static void writeDecimalDigits(uint32_t magnitude, uint8_t *end) {
    for (; magnitude >= 10000; end -= 4) {
        const uint32_t rest = dividedBy10000(magnitude);
        block::storeAs(end - 4, fourDigits(magnitude - rest * 10000));
        magnitude = rest;
    }
    if (magnitude >= 100) {
        const uint32_t hundreds = smallDividedBy100(magnitude);
        putPair(end, magnitude - hundreds * 100);
        magnitude = hundreds;
        end -= 2;
    }
    if (magnitude >= 10)
        putPair(end, magnitude);
    else
        end[-1] = decimalDigit(magnitude);
}

static char *leaveEmpty(char *buffer) {
    *buffer = 0;
    return nullptr;
}

static char *writeDecimal(int32_t value, char *buffer, uint32_t size) {
    const uint32_t length = decimalLength(value);
    if (length >= size) return leaveEmpty(buffer);
    if (value < 0) *buffer = '-';
    uint8_t *const end = bytesOf(buffer) + length;
    *end = 0;
    writeDecimalDigits(magnitudeOf(value), end);
    return buffer;
}

static char *writeDigits(uint32_t magnitude, char *buffer, uint32_t size, uint32_t radix) {
    // The last digit comes first: what is written is turned round at the end.
    uint8_t *const first = bytesOf(buffer);
    uint8_t *last = first;
    const Divisor divisor(radix);
    for (uint8_t *const limit = first + size - 1;;) {
        if (last == limit) return leaveEmpty(buffer);
        *last = digit(divisor.divide(magnitude));
        if (magnitude == 0) break;
        ++last;
    }
    last[1] = 0;
    for (uint8_t *at = first; at < last; ++at, --last) {
        const uint8_t byte = *at;
        *at = *last;
        *last = byte;
    }
    return buffer;
}

char *TQANSI_itoa(int32_t value, char *buffer, int32_t size, int32_t radix) {
    if (buffer == nullptr || size <= 0) return nullptr;
    // "0" is the same in every radix and in none.
    if (radix == 10 || value == 0) return writeDecimal(value, buffer, static_cast<uint32_t>(size));
    if (radix < smallestRadix || radix > largestRadix) return leaveEmpty(buffer);
    return writeDigits(magnitudeOf(value), buffer, static_cast<uint32_t>(size), static_cast<uint32_t>(radix));
}

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
