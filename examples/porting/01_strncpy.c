/* TQANSI_strncpy() needs one byte more than its count: it always ends
 * the copy with a NUL, and never pads. */
#include <stdio.h>
#include <string.h>
#include <strlib.h>

int main(void) {
    const char *source = "hello";
    char before[4], after[4];

    /* Before: a full destination has no NUL, so the caller stores one.
     */
    strncpy(before, source, sizeof before);
    before[sizeof before - 1] = 0;

    /* After: the count leaves room for the NUL, and the line that
     * stored it goes. */
    TQANSI_strncpy(after, source, sizeof after - 1);

    printf("before: %s\nafter: %s\n", before, after);
    return strcmp(before, "hel") != 0 || strcmp(after, "hel") != 0;
}
