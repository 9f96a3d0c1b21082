/* TQ_sprintf() does not tell of truncation: its result is what it
 * stored, and what does not fit is left out whole. */
#include <stdio.h>
#include <string.h>
#include <strlib.h>

const char *city = "Antananarivo";

int main(void) {
    char before[8], after[8];

    /* Before: the result tells how much the whole text would have
     * taken. */
    const int wanted = snprintf(before, sizeof before, "[%s]", city);
    const int cutBefore = wanted >= (int)sizeof before;

    /* After: the caller adds up what the text takes, here two brackets,
     * the string and the NUL. */
    const int needed = 2 + TQANSI_strlen(city) + 1;
    const int cutAfter = needed > (int)sizeof after;
    const intptr_t arguments[] = {(intptr_t)city};
    const int stored =
        TQ_sprintf(after, sizeof after, "[%s]", arguments);

    printf("before: %s, result %d\nafter: %s, result %d\n", before,
           wanted, after, stored);
    return !cutBefore || wanted != 14 ||
           strcmp(before, "[Antana") != 0 || !cutAfter || stored != 3 ||
           strcmp(after, "[]") != 0;
}
