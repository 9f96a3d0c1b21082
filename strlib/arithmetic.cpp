#include <strlib.h>

#include "core/copy.h"

using namespace strlib;

// The bytes of an integer, and so the digits that take part.
static constexpr size_t integerBytes = 4;

STRLIB_SHARED static size_t lengthOf(const char *string) { return measure<Steps::blocks>(bytesOf(string)); }

static uint32_t digitFromEnd(const uint8_t *string, size_t length, size_t position) {
    return position < length ? static_cast<uint32_t>(asSigned(string[length - 1 - position])) : 0;
}

int32_t string_operator_diff(const char *first, const char *second) {
    const size_t firstLength = lengthOf(first);
    const size_t secondLength = lengthOf(second);
    uint32_t sum = 0;
    for (size_t k = integerBytes; k-- > 0;) {
        sum =
            (sum << 8) + digitFromEnd(bytesOf(first), firstLength, k) - digitFromEnd(bytesOf(second), secondLength, k);
    }
    return static_cast<int32_t>(sum);
}

// What is left to add one position further to the front. -1, which only repeats the sign, counts as nothing.
static int32_t shifted(int32_t addend) {
    const int32_t rest = addend >> 8;
    return rest == -1 ? 0 : rest;
}

// Moves a string with its NUL back by one and puts a byte before it.
static void putBefore(uint8_t *string, size_t length, uint8_t byte) {
    for (size_t i = length + 1; i != 0; --i) string[i] = string[i - 1];
    string[0] = byte;
}

char *string_operator_add(char *destination, const char *source, int32_t addend) {
    uint8_t *const digits = bytesOf(destination);
    size_t length = lengthOf(source);
    uint8_t *const end = digits + length;
    if (destination != source) copyBytes(digits, bytesOf(source), length + 1);
    for (uint8_t *at = end; at != digits && addend != 0; addend = shifted(addend)) {
        --at;
        *at = lowByte(uint32_t{*at} + static_cast<uint32_t>(addend));
    }
    // Anything is left only if the source was shorter than the integer.
    for (; addend != 0; addend = shifted(addend)) putBefore(digits, length++, lowByte(addend));
    return destination;
}
