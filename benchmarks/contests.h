#ifndef BENCHMARKS_CONTESTS_H
#define BENCHMARKS_CONTESTS_H

// The table of who takes part: our routine, those of the two C libraries, of which newlib's have a prefix in programs
// that link both, and a plain loop.

#include <strlib.h>

#include <cstddef>

#include "contenders.h"
#include "plain.h"

#define STRLIB_PEER(result, name, ...)                          \
    extern "C" result glibc_##name(__VA_ARGS__) __asm__(#name); \
    extern "C" result newlib_##name(__VA_ARGS__) __asm__("newlib_" #name)

#define STRLIB_CONTEST(routine, same, loop, result, name, ...)                                                \
    STRLIB_PEER(result, name, __VA_ARGS__);                                                                   \
    namespace contest {                                                                                       \
    inline constexpr Contenders<::routine, glibc_##name, newlib_##name, plain::loop> routine{#routine, same}; \
    }                                                                                                         \
    static_assert(true)

STRLIB_CONTEST(TQANSI_strlen, Same::result, length, size_t, strlen, const char *);
STRLIB_CONTEST(TQANSI_strcpy, Same::result, copy, char *, strcpy, char *, const char *);
STRLIB_CONTEST(TQANSI_strcat, Same::result, append, char *, strcat, char *, const char *);
STRLIB_CONTEST(TQANSI_strncat, Same::result, appendUpTo, char *, strncat, char *, const char *, size_t);
STRLIB_CONTEST(TQ_strappend, Same::result, copyToEnd, char *, stpcpy, char *, const char *);
STRLIB_CONTEST(TQANSI_memset, Same::result, fill, void *, memset, void *, int, size_t);
STRLIB_CONTEST(TQANSI_strcmp, Same::sign, compare, int, strcmp, const char *, const char *);
STRLIB_CONTEST(TQANSI_strncmp, Same::sign, compareUpTo, int, strncmp, const char *, const char *, size_t);
STRLIB_CONTEST(TQANSI_stricmp, Same::sign, compareFolded, int, strcasecmp, const char *, const char *);
STRLIB_CONTEST(TQANSI_strnicmp, Same::sign, compareFoldedUpTo, int, strncasecmp, const char *, const char *, size_t);
STRLIB_CONTEST(TQANSI_memcmp, Same::sign, compareBytes, int, memcmp, const void *, const void *, size_t);
STRLIB_CONTEST(TQANSI_strchr, Same::result, find, char *, strchr, const char *, int);
STRLIB_CONTEST(TQANSI_strrchr, Same::result, findLast, char *, strrchr, const char *, int);
STRLIB_CONTEST(TQANSI_memchr, Same::result, findByte, void *, memchr, const void *, int, size_t);
STRLIB_CONTEST(TQANSI_strpbrk, Same::result, findAny, char *, strpbrk, const char *, const char *);
STRLIB_CONTEST(TQANSI_strstr, Same::result, findString, char *, strstr, const char *, const char *);
STRLIB_CONTEST(TQ_stristr, Same::result, findStringFolded, char *, strcasestr, const char *, const char *);
STRLIB_CONTEST(TQANSI_toupper, Same::result, toUpper, int, toupper, int);
STRLIB_CONTEST(TQANSI_isalpha, Same::truth, isLetter, int, isalpha, int);
STRLIB_CONTEST(TQANSI_isdigit, Same::truth, isDigit, int, isdigit, int);
STRLIB_CONTEST(TQANSI_atoi, Same::result, readInteger, int, atoi, const char *);

STRLIB_PEER(size_t, strspn, const char *, const char *);
STRLIB_PEER(size_t, strcspn, const char *, const char *);
STRLIB_PEER(void *, memcpy, void *, const void *, size_t);
STRLIB_PEER(size_t, strnlen, const char *, size_t);
STRLIB_PEER(int, snprintf, char *, size_t, const char *, ...);
STRLIB_PEER(int, sscanf, const char *, const char *, ...);

#undef STRLIB_PEER
#undef STRLIB_CONTEST

// What a caller of a C library writes where that has no routine of the kind. The cost includes these lines.

template <auto measureUpTo, auto copy>
char *boundedCopy(char *destination, const char *source, int32_t count) {
    const size_t length = measureUpTo(source, static_cast<size_t>(count));
    copy(destination, source, length);
    destination[length] = 0;
    return destination;
}

template <auto spanOf, auto spanWithout>
char *tokenBySpans(const char *string, const char *delimiters, char **end) {
    char *const first = const_cast<char *>(string) + spanOf(string, delimiters);
    if (*first == 0) return nullptr;
    *end = first + spanWithout(first, delimiters);
    return first;
}

template <auto spanOf, auto spanWithout>
char *tokenLengthBySpans(const char *string, const char *delimiters, uint16_t *length) {
    char *const first = const_cast<char *>(string) + spanOf(string, delimiters);
    if (*first == 0) return nullptr;
    *length = static_cast<uint16_t>(spanWithout(first, delimiters));
    return first;
}

template <auto spanOf>
int32_t blankBySpan(const char *string) {
    static const char blanks[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15, 16, 17,
                                  18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 0};
    return string[spanOf(string, blanks)] == 0;
}

// For lines of which only the last byte before the line feed may be a carriage return.
template <auto find, auto copy>
int32_t lineByMemchr(char *destination, int32_t size, const char *source) {
    const char *const end = static_cast<const char *>(find(source, '\n', static_cast<size_t>(size)));
    const int32_t index = static_cast<int32_t>(end - source);
    const int32_t stored = index > 0 && end[-1] == '\r' ? index - 1 : index;
    copy(destination, source, static_cast<size_t>(stored));
    destination[stored] = 0;
    return index;
}

template <auto print>
char *writeInteger(int32_t value, char *buffer, int32_t size, int32_t radix) {
    print(buffer, static_cast<size_t>(size), radix == 10 ? "%d" : "%X", value);
    return buffer;
}

template <auto print>
int32_t printThree(char *destination, uint32_t size, const char *format, const intptr_t *arguments) {
    return print(destination, size, format, arguments[0], arguments[1], arguments[2]);
}

template <auto scan>
int32_t scanThree(const char *input, const char *format, const intptr_t *arguments) {
    return scan(input, format, arguments[0], arguments[1], arguments[2]);
}

namespace contest {

template <auto ours, auto loop>
using WithoutLibrary = Contenders<ours, nullptr, nullptr, loop>;

inline constexpr WithoutLibrary<::customStricmp, plain::collate> customStricmp{"customStricmp", Same::sign};
inline constexpr WithoutLibrary<::TQ_isAttribute, plain::hasAttribute> TQ_isAttribute{"TQ_isAttribute"};
inline constexpr WithoutLibrary<::TQ_convertZstring, plain::convert> TQ_convertZstring{"TQ_convertZstring"};
inline constexpr WithoutLibrary<::unicodeToUtf8, plain::encode> unicodeToUtf8{"unicodeToUtf8"};
inline constexpr WithoutLibrary<::utf8ToUnicode, plain::decode> utf8ToUnicode{"utf8ToUnicode"};
inline constexpr WithoutLibrary<::utf8ReadChar, plain::readCharacter> utf8ReadChar{"utf8ReadChar"};
inline constexpr WithoutLibrary<::TQANSI_strpbrkUTF8, plain::findAnyCharacter> TQANSI_strpbrkUTF8{"TQANSI_strpbrkUTF8"};
inline constexpr WithoutLibrary<::string_operator_diff, plain::subtract> string_operator_diff{"string_operator_diff"};
inline constexpr WithoutLibrary<::string_operator_add, plain::add> string_operator_add{"string_operator_add"};

inline constexpr Contenders<::TQANSI_strncpy, boundedCopy<glibc_strnlen, glibc_memcpy>,
                            boundedCopy<newlib_strnlen, newlib_memcpy>, plain::copyUpTo>
    TQANSI_strncpy{"TQANSI_strncpy"};
inline constexpr Contenders<::TQ_isBlankLine, blankBySpan<glibc_strspn>, blankBySpan<newlib_strspn>, plain::isBlank>
    TQ_isBlankLine{"TQ_isBlankLine"};
inline constexpr Contenders<::X_TAMBRO_gets, lineByMemchr<glibc_memchr, glibc_memcpy>,
                            lineByMemchr<newlib_memchr, newlib_memcpy>, plain::readLine>
    X_TAMBRO_gets{"X_TAMBRO_gets"};
inline constexpr Contenders<::TQ_strtoken, tokenBySpans<glibc_strspn, glibc_strcspn>,
                            tokenBySpans<newlib_strspn, newlib_strcspn>, plain::findToken>
    TQ_strtoken{"TQ_strtoken"};
inline constexpr Contenders<::TQ_strtoklen, tokenLengthBySpans<glibc_strspn, glibc_strcspn>,
                            tokenLengthBySpans<newlib_strspn, newlib_strcspn>, plain::measureToken>
    TQ_strtoklen{"TQ_strtoklen"};
using Writers = Contenders<::TQANSI_itoa, writeInteger<glibc_snprintf>, writeInteger<newlib_snprintf>>;
inline constexpr Writers decimal{"TQANSI_itoa"};
inline constexpr Writers hexadecimal{"TQANSI_itoa", Same::nothing};  // "%X" takes the sign for a digit.
inline constexpr Contenders<::TQ_sprintf, printThree<glibc_snprintf>, printThree<newlib_snprintf>> TQ_sprintf{
    "TQ_sprintf", Same::output};
inline constexpr Contenders<::TQ_sscanf, scanThree<glibc_sscanf>, scanThree<newlib_sscanf>> TQ_sscanf{"TQ_sscanf"};

// On the worst inputs a plain loop only looks for the end.
inline constexpr Contenders<::TQANSI_strstr, glibc_strstr, newlib_strstr, plain::passOver> worstSearch{"TQANSI_strstr",
                                                                                                       Same::nothing};
inline constexpr Contenders<::TQ_stristr, glibc_strcasestr, newlib_strcasestr, plain::passOver> worstFoldedSearch{
    "TQ_stristr", Same::nothing};
inline constexpr WithoutLibrary<::X_TAMBRO_gets, plain::passOverLine> worstLine{"X_TAMBRO_gets", Same::nothing};

}  // namespace contest

#endif
