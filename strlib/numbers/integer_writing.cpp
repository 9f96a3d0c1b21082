#include <strlib.h>

#include "detail/bytes.h"
#include "detail/divide.h"

using namespace strlib;

static constexpr int32_t smallestRadix = 2;
static constexpr int32_t largestRadix = 36;

// More digits than any size has room for.
static constexpr uint32_t endless = INT32_MAX;

static uint8_t decimalDigit(uint32_t value) { return lowByte('0' + value); }

static uint8_t digit(uint32_t value) { return value < 10 ? decimalDigit(value) : lowByte('A' - 10 + value); }

static uint32_t countDecimalDigits(uint32_t magnitude) {
    for (uint32_t count = 1;; count += 4) {
        if (magnitude < 10) return count;
        if (magnitude < 100) return count + 1;
        if (magnitude < 1000) return count + 2;
        if (magnitude < 10000) return count + 3;
        magnitude = dividedBy10000(magnitude);
    }
}

static uint32_t countDigits(uint32_t magnitude, int32_t radix) {
    if (radix < smallestRadix || radix > largestRadix) return endless;
    const uint64_t base = static_cast<uint32_t>(radix);
    uint32_t count = 1;
    for (uint64_t power = base; power <= magnitude; power *= base) ++count;
    return count;
}

// Both writers put the last digit before `end` and go on to the front, so their callers count the digits first.

static void writeDecimalDigits(uint32_t magnitude, uint8_t *end) {
    for (; magnitude >= 10; end -= 2) {
        const uint32_t rest = dividedBy100(magnitude);
        const uint32_t pair = magnitude - rest * 100;
        const uint32_t tens = smallDividedBy10(pair);
        end[-1] = decimalDigit(pair - tens * 10);
        end[-2] = decimalDigit(tens);
        if (rest == 0) return;
        magnitude = rest;
    }
    end[-1] = decimalDigit(magnitude);
}

static void writeDigits(uint32_t magnitude, uint8_t *end, uint32_t radix) {
    do {
        const Division division = divide(magnitude, radix);
        *--end = digit(division.remainder);
        magnitude = division.quotient;
    } while (magnitude != 0);
}

char *TQANSI_itoa(int32_t value, char *buffer, int32_t size, int32_t radix) {
    if (buffer == nullptr || size <= 0) return nullptr;
    if (value == 0) radix = 10;  // "0" is the same in every radix and in none.
    const bool decimal = radix == 10;
    const bool sign = decimal && value < 0;
    const uint32_t magnitude = value < 0 ? 0 - static_cast<uint32_t>(value) : static_cast<uint32_t>(value);

    const uint32_t length = sign + (decimal ? countDecimalDigits(magnitude) : countDigits(magnitude, radix));
    if (length >= static_cast<uint32_t>(size)) {
        *buffer = 0;
        return nullptr;
    }
    uint8_t *const end = bytesOf(buffer) + length;
    *end = 0;
    if (sign) *buffer = '-';
    if (decimal)
        writeDecimalDigits(magnitude, end);
    else
        writeDigits(magnitude, end, static_cast<uint32_t>(radix));
    return buffer;
}
