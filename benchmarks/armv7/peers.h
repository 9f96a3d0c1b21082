#ifndef BENCHMARKS_ARMV7_PEERS_H
#define BENCHMARKS_ARMV7_PEERS_H

#include <strlib.h>

#include <cstddef>

// The routines of the two C libraries with the signatures of ours, which the machine cannot tell from their own.
#define STRLIB_BENCHMARK_PEERS(signature, name, symbol) \
    extern "C" signature glibc##name __asm__(symbol);   \
    extern "C" signature newlib##name __asm__("newlib_" symbol)

using SpanFunction = size_t(const char *, const char *);
using CopyFunction = void *(void *, const void *, size_t);
using MeasureFunction = size_t(const char *, size_t);
using PrintFunction = int(char *, size_t, const char *, ...);
using ScanFunction = int(const char *, const char *, ...);

STRLIB_BENCHMARK_PEERS(decltype(TQANSI_strlen), Strlen, "strlen");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_strcpy), Strcpy, "strcpy");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_strcat), Strcat, "strcat");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_strncat), Strncat, "strncat");
STRLIB_BENCHMARK_PEERS(decltype(TQ_strappend), Stpcpy, "stpcpy");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_memset), Memset, "memset");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_strcmp), Strcmp, "strcmp");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_strncmp), Strncmp, "strncmp");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_stricmp), Strcasecmp, "strcasecmp");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_strnicmp), Strncasecmp, "strncasecmp");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_memcmp), Memcmp, "memcmp");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_strchr), Strchr, "strchr");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_strrchr), Strrchr, "strrchr");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_memchr), Memchr, "memchr");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_strpbrk), Strpbrk, "strpbrk");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_strstr), Strstr, "strstr");
STRLIB_BENCHMARK_PEERS(decltype(TQ_stristr), Strcasestr, "strcasestr");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_toupper), Toupper, "toupper");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_isalpha), Isalpha, "isalpha");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_isdigit), Isdigit, "isdigit");
STRLIB_BENCHMARK_PEERS(decltype(TQANSI_atoi), Atoi, "atoi");
STRLIB_BENCHMARK_PEERS(SpanFunction, Strspn, "strspn");
STRLIB_BENCHMARK_PEERS(SpanFunction, Strcspn, "strcspn");
STRLIB_BENCHMARK_PEERS(CopyFunction, Memcpy, "memcpy");
STRLIB_BENCHMARK_PEERS(MeasureFunction, Strnlen, "strnlen");
STRLIB_BENCHMARK_PEERS(PrintFunction, Snprintf, "snprintf");
STRLIB_BENCHMARK_PEERS(ScanFunction, Sscanf, "sscanf");

#undef STRLIB_BENCHMARK_PEERS

// What a caller of a C library writes where that has no routine of the kind. The cost includes these lines.

template <MeasureFunction &measureUpTo, CopyFunction &copy>
char *boundedCopy(char *destination, const char *source, int32_t count) {
    const size_t length = measureUpTo(source, static_cast<size_t>(count));
    copy(destination, source, length);
    destination[length] = 0;
    return destination;
}

template <SpanFunction &spanOf, SpanFunction &spanWithout>
char *tokenBySpans(const char *string, const char *delimiters, char **end) {
    char *const first = const_cast<char *>(string) + spanOf(string, delimiters);
    if (*first == 0) return nullptr;
    *end = first + spanWithout(first, delimiters);
    return first;
}

template <SpanFunction &spanOf, SpanFunction &spanWithout>
char *tokenLengthBySpans(const char *string, const char *delimiters, uint16_t *length) {
    char *const first = const_cast<char *>(string) + spanOf(string, delimiters);
    if (*first == 0) return nullptr;
    *length = static_cast<uint16_t>(spanWithout(first, delimiters));
    return first;
}

template <SpanFunction &spanOf>
int32_t blankBySpan(const char *string) {
    static const char blanks[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15, 16, 17,
                                  18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 0};
    return string[spanOf(string, blanks)] == 0;
}

// For lines of which only the last byte before the line feed may be a carriage return.
template <decltype(TQANSI_memchr) &find, CopyFunction &copy>
int32_t lineByMemchr(char *destination, int32_t size, const char *source) {
    const char *const end = static_cast<const char *>(find(source, '\n', static_cast<uint32_t>(size)));
    const int32_t index = static_cast<int32_t>(end - source);
    const int32_t stored = index > 0 && end[-1] == '\r' ? index - 1 : index;
    copy(destination, source, static_cast<size_t>(stored));
    destination[stored] = 0;
    return index;
}

template <PrintFunction &print>
char *writeInteger(int32_t value, char *buffer, int32_t size, int32_t radix) {
    print(buffer, static_cast<size_t>(size), radix == 10 ? "%d" : "%X", value);
    return buffer;
}

template <PrintFunction &print>
int32_t printThree(char *destination, uint32_t size, const char *format, const intptr_t *arguments) {
    return print(destination, size, format, arguments[0], arguments[1], arguments[2]);
}

template <ScanFunction &scan>
int32_t scanThree(const char *input, const char *format, const intptr_t *arguments) {
    return scan(input, format, arguments[0], arguments[1], arguments[2]);
}

#endif
