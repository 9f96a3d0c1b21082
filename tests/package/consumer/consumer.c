/* A program of the library's users, valid as C and as C++. */
#include <stdio.h>
#include <string.h>
#include <strlib.h>

#ifdef __has_include
#if __has_include(<core/bytes.h>) || __has_include(<strlib/core/bytes.h>)
#error "the library's private headers are within reach"
#endif
#endif

#ifdef __cplusplus
extern "C"
#endif
    int32_t
    wrappedLength(const char *string); /* from a shared object that holds a copy of the library */

static int failures;

static void expect(int holds, const char *what) {
    if (holds) return;
    fprintf(stderr, "wrong: %s\n", what);
    ++failures;
}

int main(void) {
    char buffer[16];
    const intptr_t values[] = {-7, 'Z'};
    expect(TQANSI_strlen("hello") == 5, "TQANSI_strlen");
    expect(wrappedLength("hello") == 5, "wrappedLength");
    expect(TQANSI_atoi(" 0x1Fz") == 31, "TQANSI_atoi");
    expect(TQ_sprintf(buffer, sizeof buffer, "%d|%c", values) == 5, "the result of TQ_sprintf");
    expect(strcmp(buffer, "-7|Z") == 0, "the text of TQ_sprintf");
    TQANSI_memset(buffer, 0x141, 2);
    expect(strcmp(buffer, "AA|Z") == 0, "TQANSI_memset");
    expect(unicodeToUtf8(0x20AC, buffer) == 3 && strcmp(buffer, "\xE2\x82\xAC") == 0, "unicodeToUtf8");
    return failures;
}
