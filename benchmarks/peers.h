#ifndef BENCHMARKS_PEERS_H
#define BENCHMARKS_PEERS_H

#include <strlib.h>

#include <cstddef>

// The routines of the two C libraries; newlib's have a prefix in programs that link both.
#define STRLIB_BENCHMARK_PEERS(result, name, ...)               \
    extern "C" result glibc_##name(__VA_ARGS__) __asm__(#name); \
    extern "C" result newlib_##name(__VA_ARGS__) __asm__("newlib_" #name)

STRLIB_BENCHMARK_PEERS(size_t, strlen, const char *);
STRLIB_BENCHMARK_PEERS(char *, strcpy, char *, const char *);
STRLIB_BENCHMARK_PEERS(char *, strcat, char *, const char *);
STRLIB_BENCHMARK_PEERS(char *, strncat, char *, const char *, size_t);
STRLIB_BENCHMARK_PEERS(char *, stpcpy, char *, const char *);
STRLIB_BENCHMARK_PEERS(void *, memset, void *, int, size_t);
STRLIB_BENCHMARK_PEERS(int, strcmp, const char *, const char *);
STRLIB_BENCHMARK_PEERS(int, strncmp, const char *, const char *, size_t);
STRLIB_BENCHMARK_PEERS(int, strcasecmp, const char *, const char *);
STRLIB_BENCHMARK_PEERS(int, strncasecmp, const char *, const char *, size_t);
STRLIB_BENCHMARK_PEERS(int, memcmp, const void *, const void *, size_t);
STRLIB_BENCHMARK_PEERS(char *, strchr, const char *, int);
STRLIB_BENCHMARK_PEERS(char *, strrchr, const char *, int);
STRLIB_BENCHMARK_PEERS(void *, memchr, const void *, int, size_t);
STRLIB_BENCHMARK_PEERS(char *, strpbrk, const char *, const char *);
STRLIB_BENCHMARK_PEERS(char *, strstr, const char *, const char *);
STRLIB_BENCHMARK_PEERS(char *, strcasestr, const char *, const char *);
STRLIB_BENCHMARK_PEERS(int, toupper, int);
STRLIB_BENCHMARK_PEERS(int, isalpha, int);
STRLIB_BENCHMARK_PEERS(int, isdigit, int);
STRLIB_BENCHMARK_PEERS(int, atoi, const char *);
STRLIB_BENCHMARK_PEERS(size_t, strspn, const char *, const char *);
STRLIB_BENCHMARK_PEERS(size_t, strcspn, const char *, const char *);
STRLIB_BENCHMARK_PEERS(void *, memcpy, void *, const void *, size_t);
STRLIB_BENCHMARK_PEERS(size_t, strnlen, const char *, size_t);
STRLIB_BENCHMARK_PEERS(int, snprintf, char *, size_t, const char *, ...);
STRLIB_BENCHMARK_PEERS(int, sscanf, const char *, const char *, ...);

#undef STRLIB_BENCHMARK_PEERS

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

#endif
