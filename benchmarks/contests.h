#ifndef BENCHMARKS_CONTESTS_H
#define BENCHMARKS_CONTESTS_H

// The table of who takes part: our routine, a plain loop, and routines of the two C libraries, of which newlib's have a
// prefix in programs that link both.

#include <strlib.h>

#include <cstddef>

// What a routine and its peers have in common: the result or something of it, what is stored, or neither.
enum class Same { result, sign, truth, output, nothing };

// The implementations of one routine; null where there is none. Those of the C libraries have their own signatures.
template <auto ours, auto plain, auto glibc = nullptr, auto newlib = nullptr>
struct Contest {
    const char *routine;
    Same same = Same::result;
};

#define STRLIB_PEER(result, name, ...)                          \
    extern "C" result glibc_##name(__VA_ARGS__) __asm__(#name); \
    extern "C" result newlib_##name(__VA_ARGS__) __asm__("newlib_" #name)

// A contest with a name of its own, and the peers of its routine.
#define STRLIB_CONTEST_AS(name, routine, same, ...)                              \
    namespace contest {                                                          \
    inline constexpr Contest<::routine, __VA_ARGS__> name{#routine, Same::same}; \
    }                                                                            \
    static_assert(true)

// A contest named as its routine, whose first peer is the plain loop of that name.
#define STRLIB_CONTEST(routine, same, ...) \
    namespace plain {                      \
    decltype(::routine) routine;           \
    }                                      \
    STRLIB_CONTEST_AS(routine, routine, same, plain::routine __VA_OPT__(, ) __VA_ARGS__)

// The same with the routine of one name of both C libraries.
#define STRLIB_CONTEST_WITH(routine, same, result, name, ...) \
    STRLIB_PEER(result, name, __VA_ARGS__);                   \
    STRLIB_CONTEST(routine, same, glibc_##name, newlib_##name)

STRLIB_CONTEST_WITH(TQANSI_strlen, result, size_t, strlen, const char *);
STRLIB_CONTEST_WITH(TQANSI_strcpy, result, char *, strcpy, char *, const char *);
STRLIB_CONTEST_WITH(TQANSI_strcat, result, char *, strcat, char *, const char *);
STRLIB_CONTEST_WITH(TQANSI_strncat, result, char *, strncat, char *, const char *, size_t);
STRLIB_CONTEST_WITH(TQ_strappend, result, char *, stpcpy, char *, const char *);
STRLIB_CONTEST_WITH(TQANSI_memset, result, void *, memset, void *, int, size_t);
STRLIB_CONTEST_WITH(TQANSI_strcmp, sign, int, strcmp, const char *, const char *);
STRLIB_CONTEST_WITH(TQANSI_strncmp, sign, int, strncmp, const char *, const char *, size_t);
STRLIB_CONTEST_WITH(TQANSI_stricmp, sign, int, strcasecmp, const char *, const char *);
STRLIB_CONTEST_WITH(TQANSI_strnicmp, sign, int, strncasecmp, const char *, const char *, size_t);
STRLIB_CONTEST_WITH(TQANSI_memcmp, sign, int, memcmp, const void *, const void *, size_t);
STRLIB_CONTEST_WITH(TQANSI_strchr, result, char *, strchr, const char *, int);
STRLIB_CONTEST_WITH(TQANSI_strrchr, result, char *, strrchr, const char *, int);
STRLIB_CONTEST_WITH(TQANSI_memchr, result, void *, memchr, const void *, int, size_t);
STRLIB_CONTEST_WITH(TQANSI_strpbrk, result, char *, strpbrk, const char *, const char *);
STRLIB_CONTEST_WITH(TQANSI_strstr, result, char *, strstr, const char *, const char *);
STRLIB_CONTEST_WITH(TQ_stristr, result, char *, strcasestr, const char *, const char *);
STRLIB_CONTEST_WITH(TQANSI_toupper, result, int, toupper, int);
STRLIB_CONTEST_WITH(TQANSI_isalpha, truth, int, isalpha, int);
STRLIB_CONTEST_WITH(TQANSI_isdigit, truth, int, isdigit, int);
STRLIB_CONTEST_WITH(TQANSI_atoi, result, int, atoi, const char *);

STRLIB_CONTEST(customStricmp, sign);
STRLIB_CONTEST(TQ_isAttribute, result);
STRLIB_CONTEST(TQ_convertZstring, result);
STRLIB_CONTEST(unicodeToUtf8, result);
STRLIB_CONTEST(utf8ToUnicode, result);
STRLIB_CONTEST(utf8ReadChar, result);
STRLIB_CONTEST(TQANSI_strpbrkUTF8, result);
STRLIB_CONTEST(string_operator_diff, result);
STRLIB_CONTEST(string_operator_add, result);

// What a caller of a C library writes where that has no routine of the kind. The cost includes these lines.

STRLIB_PEER(size_t, strnlen, const char *, size_t);
STRLIB_PEER(void *, memcpy, void *, const void *, size_t);

template <auto measureUpTo, auto copy>
char *boundedCopy(char *destination, const char *source, int32_t count) {
    const size_t length = measureUpTo(source, static_cast<size_t>(count));
    copy(destination, source, length);
    destination[length] = 0;
    return destination;
}

STRLIB_CONTEST(TQANSI_strncpy, result, boundedCopy<glibc_strnlen, glibc_memcpy>,
               boundedCopy<newlib_strnlen, newlib_memcpy>);

STRLIB_PEER(size_t, strspn, const char *, const char *);
STRLIB_PEER(size_t, strcspn, const char *, const char *);

template <auto spanOf>
int32_t blankBySpan(const char *string) {
    static const char blanks[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15, 16, 17,
                                  18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 0};
    return string[spanOf(string, blanks)] == 0;
}

STRLIB_CONTEST(TQ_isBlankLine, result, blankBySpan<glibc_strspn>, blankBySpan<newlib_strspn>);

inline void storeEnd(char **end, char *token, size_t length) { *end = token + length; }
inline void storeEnd(uint16_t *stored, char *, size_t length) { *stored = static_cast<uint16_t>(length); }

template <auto spanOf, auto spanWithout, class End>
char *tokenBySpans(const char *string, const char *delimiters, End *end) {
    char *const first = const_cast<char *>(string) + spanOf(string, delimiters);
    if (*first == 0) return nullptr;
    storeEnd(end, first, spanWithout(first, delimiters));
    return first;
}

STRLIB_CONTEST(TQ_strtoken, result, tokenBySpans<glibc_strspn, glibc_strcspn, char *>,
               tokenBySpans<newlib_strspn, newlib_strcspn, char *>);
STRLIB_CONTEST(TQ_strtoklen, result, tokenBySpans<glibc_strspn, glibc_strcspn, uint16_t>,
               tokenBySpans<newlib_strspn, newlib_strcspn, uint16_t>);

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

STRLIB_CONTEST(X_TAMBRO_gets, result, lineByMemchr<glibc_memchr, glibc_memcpy>,
               lineByMemchr<newlib_memchr, newlib_memcpy>);

STRLIB_PEER(int, snprintf, char *, size_t, const char *, ...);
STRLIB_PEER(int, sscanf, const char *, const char *, ...);

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

STRLIB_CONTEST_AS(decimal, TQANSI_itoa, result, nullptr, writeInteger<glibc_snprintf>, writeInteger<newlib_snprintf>);
// "%X" takes the sign for a digit.
STRLIB_CONTEST_AS(hexadecimal, TQANSI_itoa, nothing, nullptr, writeInteger<glibc_snprintf>,
                  writeInteger<newlib_snprintf>);
STRLIB_CONTEST_AS(TQ_sprintf, TQ_sprintf, output, nullptr, printThree<glibc_snprintf>, printThree<newlib_snprintf>);
STRLIB_CONTEST_AS(TQ_sscanf, TQ_sscanf, result, nullptr, scanThree<glibc_sscanf>, scanThree<newlib_sscanf>);

// On the worst inputs a plain loop only looks for the end.
namespace plain {
decltype(TQANSI_strstr) passOver;
decltype(X_TAMBRO_gets) passOverLine;
}  // namespace plain
STRLIB_CONTEST_AS(worstSearch, TQANSI_strstr, nothing, plain::passOver, glibc_strstr, newlib_strstr);
STRLIB_CONTEST_AS(worstFoldedSearch, TQ_stristr, nothing, plain::passOver, glibc_strcasestr, newlib_strcasestr);
STRLIB_CONTEST_AS(worstLine, X_TAMBRO_gets, nothing, plain::passOverLine);

#endif
