/* TQ_sprintf() and TQ_sscanf() know other letters, and take a backslash
 * in the format for the start of an escape. */
#include <stdio.h>
#include <string.h>
#include <strlib.h>

int main(void) {
    char before[32], unchanged[32], after[32];
    int numberBefore = 0;
    int32_t numberAfter = 0;

    /* Before: "%X" writes hexadecimal digits, and C source writes a
     * backslash as two. */
    snprintf(before, sizeof before, "C:\\temp\\%X", 0xBEEFu);

    /* The same format: backslash and 't' are a tab, backslash and '%' a
     * plain '%'. */
    TQ_sprintf(unchanged, sizeof unchanged, "C:\\temp\\%X", NULL);

    /* After: TQANSI_itoa() writes other radices, and a backslash is
     * four in C source. */
    char digits[9];
    const intptr_t arguments[] = {
        (intptr_t)TQANSI_itoa(0xBEEF, digits, sizeof digits, 16)};
    TQ_sprintf(after, sizeof after, "C:\\\\temp\\\\%s", arguments);

    /* Input: "%d" becomes "%i", which reads decimal numbers. */
    const int countBefore = sscanf("0042", "%d", &numberBefore);
    const intptr_t destinations[] = {(intptr_t)&numberAfter};
    const int countAfter = TQ_sscanf("0042", "%i", destinations);

    printf("before: %s, %d\nunchanged: %s\nafter: %s, %d\n", before,
           numberBefore, unchanged, after, (int)numberAfter);
    return strcmp(before, "C:\\temp\\BEEF") != 0 || countBefore != 1 ||
           numberBefore != 42 || strcmp(unchanged, "C:\temp%X") != 0 ||
           strcmp(after, "C:\\temp\\BEEF") != 0 || countAfter != 1 ||
           numberAfter != 42;
}
