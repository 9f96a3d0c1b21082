/* TQ_sprintf() and TQ_sscanf() take their arguments from a vector of
 * intptr_t, which no compiler checks. */
#include <stdio.h>
#include <string.h>
#include <strlib.h>

int main(void) {
    char before[32], after[32], nameBefore[8] = "", nameAfter[8] = "";
    int ageBefore = 0;
    int32_t ageAfter = 0;

    /* Before: arguments of the types that the format names. */
    snprintf(before, sizeof before, "%s=%d", "Ada", 36);
    const int countBefore =
        sscanf(before, "%7[^=]=%d", nameBefore, &ageBefore);

    /* After: a slot for each conversion, an integer or an address.
     * Integers have 32 bits, whatever int has. */
    const intptr_t written[] = {(intptr_t) "Ada", 36};
    TQ_sprintf(after, sizeof after, "%s=%d", written);
    const intptr_t read[] = {(intptr_t)nameAfter, (intptr_t)&ageAfter};
    const int countAfter = TQ_sscanf(after, "%8[^=]=%i", read);

    printf("before: %s, %s, %d\nafter: %s, %s, %d\n", before,
           nameBefore, ageBefore, after, nameAfter, (int)ageAfter);
    return strcmp(before, "Ada=36") != 0 || countBefore != 2 ||
           strcmp(nameBefore, "Ada") != 0 || ageBefore != 36 ||
           strcmp(after, "Ada=36") != 0 || countAfter != 2 ||
           strcmp(nameAfter, "Ada") != 0 || ageAfter != 36;
}
