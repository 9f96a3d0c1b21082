#include <strlib.h>

#include "core/bytes.h"
#include "core/digits.h"
#include "machine/block.h"

using namespace strlib;

static uint8_t digit(uint32_t value) { return lowByte((value < 10 ? '0' : 'A' - 10) + value); }

// Puts the last digit before `end` and goes on to the front.
static void writeDecimalDigits(uint32_t magnitude, uint8_t *end) {
    if constexpr (block::sizeCountsMore) {  // The table of pairs is as large as the rest.
        for (; magnitude >= 10; magnitude = dividedByRadix(magnitude, 10))
            *--end = digit(magnitude - 10 * dividedByRadix(magnitude, 10));
        *--end = digit(magnitude);
        return;
    }
    const auto putPair = [&](uint32_t pair) {
        block::storeAs(end - 2, block::loadAs<uint16_t>(digitPairs.at[pair]));
        end -= 2;
    };
    while (magnitude >= 100) {
        const uint32_t rest = dividedBy100(magnitude);
        putPair(magnitude - rest * 100);
        magnitude = rest;
    }
    if (magnitude >= 10)
        putPair(magnitude);
    else
        end[-1] = digit(magnitude);
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
    for (uint8_t *const limit = first + size - 1;;) {
        if (last == limit) return leaveEmpty(buffer);
        const uint32_t rest = dividedByRadix(magnitude, radix);
        *last = digit(magnitude - rest * radix);
        if (rest == 0) break;
        magnitude = rest;
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
    const auto base = static_cast<uint32_t>(radix);
    if (base < smallestRadix || base > largestRadix) return leaveEmpty(buffer);
    return writeDigits(magnitudeOf(value), buffer, static_cast<uint32_t>(size), base);
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
