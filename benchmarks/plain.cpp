#include "plain.h"

#include <cstring>

namespace plain {

int32_t compareCollated(const char *first, const char *second, const uint8_t *collation) {
    for (;; ++first, ++second) {
        const auto a = static_cast<int8_t>(collation[static_cast<uint8_t>(*first)]);
        const auto b = static_cast<int8_t>(collation[static_cast<uint8_t>(*second)]);
        if (a != b || a == 0) return a - b;
    }
}

bool isBlank(const char *string) {
    while (*string != 0) {
        if (static_cast<uint8_t>(*string++) > ' ') return false;
    }
    return true;
}

bool hasAttribute(uint32_t mask, const uint8_t *attributes, int32_t byte) {
    return (attributes[byte & 0xFF] & mask & 0xFF) != 0;
}

void convert(const uint8_t *conversion, char *string) {
    for (; *string != 0; ++string) *string = static_cast<char>(conversion[static_cast<uint8_t>(*string)]);
}

char *findUtf8(char *string, const char *set) {
    for (; *string != 0; ++string) {
        for (const char *character = set; *character != 0;) {
            const auto lead = static_cast<uint8_t>(*character);
            const int32_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
            int32_t same = 0;
            while (same < length && string[same] == character[same]) ++same;
            if (same == length) return string;
            character += length;
        }
    }
    return nullptr;
}

int32_t difference(const char *first, const char *second) {
    const std::size_t firstLength = std::strlen(first);
    const std::size_t secondLength = std::strlen(second);
    uint32_t sum = 0;
    for (std::size_t k = 0; k < 4; ++k) {
        const int32_t a = k < firstLength ? static_cast<int8_t>(first[firstLength - 1 - k]) : 0;
        const int32_t b = k < secondLength ? static_cast<int8_t>(second[secondLength - 1 - k]) : 0;
        sum += static_cast<uint32_t>(a - b) << (8 * k);
    }
    return static_cast<int32_t>(sum);
}

char *add(char *destination, const char *source, int32_t addend) {
    const std::size_t length = std::strlen(source);
    std::memcpy(destination, source, length + 1);
    for (std::size_t at = length; at-- > 0 && addend != 0 && addend != -1; addend >>= 8) {
        destination[at] = static_cast<char>(destination[at] + addend);
    }
    return destination;
}

}  // namespace plain
