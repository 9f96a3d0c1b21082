/* TQ_sscanf() passes over blanks at the input's start and at a space in
 * the format, nowhere else. */
#include <stdio.h>
#include <strlib.h>

int main(void) {
    int32_t x = 0, y = 0;
    const intptr_t destinations[] = {(intptr_t)&x, (intptr_t)&y};

    /* Before: each number passes over the blanks before it. */
    int xBefore = 0, yBefore = 0;
    const int before = sscanf(" 3  4", "%d%d", &xBefore, &yBefore);

    /* The letters alone exchanged: the second number does not begin at
     * a blank. */
    const int unchanged = TQ_sscanf(" 3  4", "%i%i", destinations);

    /* After: a space wherever blanks may stand. A tab or a line feed in
     * the format would want just that byte. */
    const int after = TQ_sscanf(" 3  4", "%i %i", destinations);

    printf("before: %d\nunchanged: %d\nafter: %d\n", before, unchanged,
           after);
    return before != 2 || xBefore != 3 || yBefore != 4 ||
           unchanged != 1 || after != 2 || x != 3 || y != 4;
}
