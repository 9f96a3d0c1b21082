/* In TQ_sprintf() a width is an upper bound that counts the NUL, and
 * nothing is ever padded. */
#include <stdio.h>
#include <string.h>
#include <strlib.h>

/* A number at the right end of a field, which has room for the width
 * and a NUL. */
static void alignRight(char *field, int32_t width, int32_t value) {
    char digits[12];
    TQANSI_itoa(value, digits, sizeof digits, 10);
    const int32_t blanks = width - TQANSI_strlen(digits);
    if (blanks > 0) TQANSI_memset(field, ' ', (uint32_t)blanks);
    TQANSI_strncpy(field + (blanks > 0 ? blanks : 0), digits, width);
}

int main(void) {
    char before[16], unchanged[16], after[16];

    /* Before: at least three characters. */
    snprintf(before, sizeof before, "%3d", 42);

    /* The same format: less than three bytes with the NUL, so that 42
     * just fits and 123 is left out. */
    const intptr_t arguments[] = {42, 123};
    TQ_sprintf(unchanged, sizeof unchanged, "%3d|%3d", arguments);

    /* After: the caller pads. */
    alignRight(after, 3, 42);

    printf("before: '%s'\nunchanged: '%s'\nafter: '%s'\n", before,
           unchanged, after);
    return strcmp(before, " 42") != 0 ||
           strcmp(unchanged, "42|") != 0 || strcmp(after, " 42") != 0;
}
