/* TQANSI_strcmp() and TQANSI_strncmp() compare signed bytes, take null
 * for equal, and count with a sign. */
#include <stdio.h>
#include <string.h>
#include <strlib.h>

/* The order of strcmp(), for data that is sorted by it. */
static int32_t compareUnsigned(const char *first, const char *second) {
    const int32_t length = TQANSI_strlen(first);
    const int32_t other = TQANSI_strlen(second);
    const int32_t shorter = length < other ? length : other;
    return TQANSI_memcmp(first, second, (uint32_t)shorter + 1);
}

int main(void) {
    const char *accented = "\xC3\xA9t\xC3\xA9";
    const char *plain = "summer", *none = NULL;

    /* Before: bytes from 0x80 up come behind ASCII. */
    const int before = strcmp(accented, plain);

    /* After: they come before it, unless compared as unsigned ones. */
    const int32_t asSigned = TQANSI_strcmp(accented, plain);
    const int32_t asUnsigned = compareUnsigned(accented, plain);

    /* Null equals everything: test for it before a comparison that
     * grants anything. */
    const int32_t toNull = TQANSI_strcmp(none, plain);

    /* SIZE_MAX as "no bound" turns into -1, which compares the first
     * position only: leave the count out instead. */
    const int unboundedBefore = strncmp("sum", "sun", SIZE_MAX);
    const int32_t firstOnly = TQANSI_strncmp("sum", "sun", -1);
    const int32_t unboundedAfter = TQANSI_strcmp("sum", "sun");

    printf("before: %d\nafter: signed %d, unsigned %d, null %d\n",
           before, (int)asSigned, (int)asUnsigned, (int)toNull);
    return before <= 0 || unboundedBefore >= 0 || asSigned != -176 ||
           asUnsigned != 80 || toNull != 0 || firstOnly != 0 ||
           unboundedAfter != -1;
}
