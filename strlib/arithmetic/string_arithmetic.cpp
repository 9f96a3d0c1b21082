#include <strlib.h>

#include "detail/copy.h"

using namespace strlib;

// The bytes of an integer, and so the digits that take part.
static constexpr size_t integerBytes = 4;

static uint32_t digitFromEnd(const uint8_t *string, size_t length, size_t position) {
    return position < length ? static_cast<uint32_t>(asSigned(string[length - 1 - position])) : 0;
}

int32_t string_operator_diff(const char *first, const char *second) {
    const size_t firstLength = measure(bytesOf(first));
    const size_t secondLength = measure(bytesOf(second));
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

// Moves a string of at most integerBytes bytes to the front of its field. Its first byte is moved even if it is 0.
static void moveToFront(uint8_t *field, const uint8_t *from) {
    do *field++ = *from++;
    while (*from != 0);
    *field = 0;
}

char *string_operator_add(char *destination, const char *source, int32_t addend) {
    const uint8_t *const digits = bytesOf(source);
    const size_t length = measure(digits);
    const size_t same = length > integerBytes ? length - integerBytes : 0;
    uint8_t *const field = bytesOf(destination);
    copyBytes(field, digits, same);
    uint8_t *const end = field + same + integerBytes;
    uint8_t *at = end;
    *at = 0;
    for (size_t i = length; i != same; addend = shifted(addend)) {
        *--at = lowByte(uint32_t{digits[--i]} + static_cast<uint32_t>(addend));
    }
    for (; at != field && addend != 0; addend = shifted(addend)) *--at = lowByte(addend);
    if (length == 0 && at == end)
        *field = 0;
    else if (same == 0 && at != field)
        moveToFront(field, at);
    return destination;
}
