// The loops that one would write without a second thought, compiled like the library. Each has the name of the routine
// that it stands for; none tests for null.

#include "contests.h"

namespace plain {

namespace {

using SignedByte = signed char;

bool isWithin(int32_t value, int32_t first, int32_t last) { return value >= first && value <= last; }

int32_t exact(char byte) { return static_cast<SignedByte>(byte); }
int32_t folded(char byte) {
    const int32_t value = exact(byte);
    return value >= 'A' && value <= 'Z' ? value + 32 : value;
}

bool isIn(char byte, const char *set) {
    for (; *set != 0; ++set)
        if (*set == byte) return true;
    return false;
}

// Of so many bytes at most, where a count is given.
template <int32_t (*key)(char), class... Count>
int32_t compareBy(const char *first, const char *second, Count... left) {
    for (; (... && (left > 0)); (..., --left), ++first, ++second)
        if (*first == 0 || key(*first) != key(*second)) return key(*first) - key(*second);
    return 0;
}

template <int32_t (*key)(char)>
char *findStringBy(const char *string, const char *substring) {
    for (;; ++string) {
        const char *at = string;
        const char *wanted = substring;
        while (*wanted != 0 && key(*at) == key(*wanted)) ++at, ++wanted;
        if (*wanted == 0) return const_cast<char *>(string);
        if (*string == 0) return nullptr;
    }
}

char *writable(const char *at) { return const_cast<char *>(at); }

bool isContinuation(char byte) { return (static_cast<uint8_t>(byte) & 0xC0) == 0x80; }

int32_t sequenceLength(uint8_t lead) {
    if (lead < 0x80) return 1;
    if (lead < 0xC0) return 0;
    if (lead < 0xE0) return 2;
    if (lead < 0xF0) return 3;
    if (lead < 0xF8) return 4;
    return lead < 0xFC ? 5 : 6;
}

}  // namespace

int32_t TQANSI_strlen(const char *string) {
    int32_t count = 0;
    while (string[count] != 0) ++count;
    return count;
}

char *TQANSI_strcpy(char *destination, const char *source) {
    TQ_strappend(destination, source);
    return destination;
}

char *TQANSI_strncpy(char *destination, const char *source, int32_t count) {
    int32_t index = 0;
    for (; index < count && source[index] != 0; ++index) destination[index] = source[index];
    destination[index] = 0;
    return destination;
}

char *TQANSI_strcat(char *destination, const char *source) {
    TQ_strappend(destination + TQANSI_strlen(destination), source);
    return destination;
}

char *TQANSI_strncat(char *destination, const char *source, int32_t count) {
    TQANSI_strncpy(destination + TQANSI_strlen(destination), source, count);
    return destination;
}

char *TQ_strappend(char *destination, const char *source) {
    while ((*destination = *source) != 0) ++destination, ++source;
    return destination;
}

void *TQANSI_memset(void *destination, int32_t byte, uint32_t count) {
    uint8_t *const bytes = static_cast<uint8_t *>(destination);
    for (uint32_t index = 0; index < count; ++index) bytes[index] = static_cast<uint8_t>(byte);
    return destination;
}

int32_t TQANSI_strcmp(const char *first, const char *second) { return compareBy<exact>(first, second); }
int32_t TQANSI_stricmp(const char *first, const char *second) { return compareBy<folded>(first, second); }

int32_t TQANSI_strncmp(const char *first, const char *second, int32_t count) {
    return compareBy<exact>(first, second, count);
}
int32_t TQANSI_strnicmp(const char *first, const char *second, int32_t count) {
    return compareBy<folded>(first, second, count);
}

int32_t customStricmp(const char *first, const char *second, const uint8_t *collation) {
    for (;; ++first, ++second) {
        const int32_t one = static_cast<SignedByte>(collation[static_cast<uint8_t>(*first)]);
        const int32_t other = static_cast<SignedByte>(collation[static_cast<uint8_t>(*second)]);
        if (one == 0 || one != other) return one - other;
    }
}

int32_t TQANSI_memcmp(const void *first, const void *second, uint32_t count) {
    const auto *const one = static_cast<const uint8_t *>(first), *const other = static_cast<const uint8_t *>(second);
    for (uint32_t index = 0; index < count; ++index)
        if (one[index] != other[index]) return one[index] - other[index];
    return 0;
}

char *TQANSI_strchr(const char *string, int32_t byte) {
    for (; *string != 0; ++string)
        if (static_cast<uint8_t>(*string) == static_cast<uint8_t>(byte)) return writable(string);
    return nullptr;
}

char *TQANSI_strrchr(const char *string, int32_t byte) {
    const char *last = nullptr;
    for (; *string != 0; ++string)
        if (static_cast<uint8_t>(*string) == static_cast<uint8_t>(byte)) last = string;
    return writable(last);
}

void *TQANSI_memchr(const void *range, int32_t byte, uint32_t count) {
    const uint8_t *const bytes = static_cast<const uint8_t *>(range);
    for (uint32_t index = 0; index < count; ++index)
        if (bytes[index] == static_cast<uint8_t>(byte)) return const_cast<uint8_t *>(bytes + index);
    return nullptr;
}

char *TQANSI_strpbrk(const char *string, const char *set) {
    for (; *string != 0; ++string)
        if (isIn(*string, set)) return writable(string);
    return nullptr;
}

char *TQANSI_strstr(const char *string, const char *substring) { return findStringBy<exact>(string, substring); }
char *TQ_stristr(const char *string, const char *substring) { return findStringBy<folded>(string, substring); }

int32_t TQANSI_toupper(int32_t character) { return isWithin(character, 'a', 'z') ? character - 32 : character; }
int32_t TQANSI_isdigit(int32_t character) { return isWithin(character & 0xFF, '0', '9'); }
int32_t TQANSI_isalpha(int32_t character) {
    return isWithin(character & 0xFF, 'A', 'Z') || isWithin(character & 0xFF, 'a', 'z');
}

int32_t TQ_isBlankLine(const char *string) {
    for (; *string != 0; ++string)
        if (static_cast<uint8_t>(*string) > ' ') return 0;
    return 1;
}

int32_t TQ_isAttribute(uint32_t mask, const uint8_t *attributes, int32_t byte) {
    return (attributes[byte & 0xFF] & mask & 0xFF) != 0;
}

void TQ_convertZstring(const uint8_t *conversion, char *string) {
    for (; *string != 0; ++string) *string = static_cast<char>(conversion[static_cast<uint8_t>(*string)]);
}

// Decimal numbers only.
int32_t TQANSI_atoi(const char *text) {
    while (*text == ' ' || (*text >= '\t' && *text <= '\r')) ++text;
    const bool isNegative = *text == '-';
    if (isNegative) ++text;
    uint32_t value = 0;
    for (; *text >= '0' && *text <= '9'; ++text) value = value * 10 + static_cast<uint32_t>(*text - '0');
    return static_cast<int32_t>(isNegative ? 0 - value : value);
}

int32_t X_TAMBRO_gets(char *destination, int32_t size, const char *source) {
    int32_t index = 0;
    int32_t stored = 0;
    for (; stored < size && source[index] != '\n' && source[index] != 0; ++index)
        if (source[index] != '\r') destination[stored++] = source[index];
    destination[stored] = 0;
    return index;
}

char *TQ_strtoken(const char *string, const char *delimiters, char **end) {
    while (*string != 0 && isIn(*string, delimiters)) ++string;
    if (*string == 0) return nullptr;
    const char *const first = string;
    while (*string != 0 && !isIn(*string, delimiters)) ++string;
    *end = writable(string);
    return writable(first);
}

char *TQ_strtoklen(const char *string, const char *delimiters, uint16_t *length) {
    char *end = nullptr;
    char *const first = TQ_strtoken(string, delimiters, &end);
    if (first != nullptr) *length = static_cast<uint16_t>(end - first);
    return first;
}

int32_t unicodeToUtf8(uint32_t codePoint, char *buffer) {
    static const uint8_t leads[] = {0, 0, 0xC0, 0xE0, 0xF0, 0xF8, 0xFC};
    int32_t length = 1;
    while (length < 6 && codePoint >= (length == 1 ? 0x80U : 1U << (5 * length + 1))) ++length;
    for (int32_t index = length - 1; index > 0; --index, codePoint >>= 6)
        buffer[index] = static_cast<char>(0x80 | (codePoint & 0x3F));
    buffer[0] = static_cast<char>(leads[length] | codePoint);
    buffer[length] = 0;
    return length;
}

char *utf8ToUnicode(const char *input, uint32_t *codePoint, int32_t *length) {
    const uint8_t lead = static_cast<uint8_t>(*input);
    const int32_t size = sequenceLength(lead);
    *length = 0;
    if (size == 0) return writable(input + 1);
    uint32_t value = size == 1 ? lead : lead & (0x7FU >> size);
    for (int32_t index = 1; index < size; ++index) {
        if (!isContinuation(input[index])) return writable(input + 1);
        value = value << 6 | (static_cast<uint8_t>(input[index]) & 0x3F);
    }
    *codePoint = value;
    *length = size;
    return writable(input + size);
}

char *utf8ReadChar(const char *input, int32_t *valid, char *character) {
    const int32_t size = sequenceLength(static_cast<uint8_t>(*input));
    *valid = 0;
    character[0] = 0;
    if (size == 0 || size > 4) return writable(input + 1);
    for (int32_t index = 1; index < size; ++index) {
        if (!isContinuation(input[index])) return writable(input + 1);
        character[index] = input[index];
    }
    *valid = 1;
    character[0] = input[0];
    character[size] = 0;
    return writable(*input == 0 ? input : input + size);
}

char *TQANSI_strpbrkUTF8(const char *string, const char *set) {
    for (; *string != 0; ++string)
        for (const char *member = set; *member != 0;) {
            const int32_t size = sequenceLength(static_cast<uint8_t>(*member));
            int32_t index = 0;
            while (index < size && string[index] == member[index]) ++index;
            if (index == size) return writable(string);
            member += size;
        }
    return nullptr;
}

int32_t string_operator_diff(const char *first, const char *second) {
    const char *firstEnd = first + TQANSI_strlen(first);
    const char *secondEnd = second + TQANSI_strlen(second);
    uint32_t difference = 0;
    for (uint32_t shift = 0; shift < 32; shift += 8) {
        const int32_t one = firstEnd > first ? static_cast<SignedByte>(*--firstEnd) : 0;
        const int32_t other = secondEnd > second ? static_cast<SignedByte>(*--secondEnd) : 0;
        difference += static_cast<uint32_t>(one - other) << shift;
    }
    return static_cast<int32_t>(difference);
}

// For sources of four bytes and more.
char *string_operator_add(char *destination, const char *source, int32_t addend) {
    const int32_t size = TQANSI_strlen(source);
    TQANSI_strcpy(destination, source);
    for (int32_t index = size; index > 0 && addend != 0 && addend != -1; addend >>= 8) {
        --index;
        destination[index] = static_cast<char>(destination[index] + addend);
    }
    return destination;
}

char *passOver(const char *string, const char *) { return writable(string + TQANSI_strlen(string)); }

int32_t passOverLine(char *, int32_t, const char *source) { return TQANSI_strlen(source); }

}  // namespace plain
