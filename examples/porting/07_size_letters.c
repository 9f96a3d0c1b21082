/* In TQ_sscanf() the size letter of "%hi" and "%bi" stays in force for
 * later numbers; "%li" sets it back. */
#include <stdio.h>
#include <strlib.h>

int main(void) {
    short shortBefore = 0;
    signed char byteBefore = 0;
    int intBefore = 0;
    int16_t shortAfter = 0;
    int8_t byteAfter = 0;
    int32_t intAfter = 0;

    /* Before: a letter belongs to its own conversion. */
    const int before = sscanf("7 -5 70000", "%hd %hhd %d", &shortBefore,
                              &byteBefore, &intBefore);

    /* After: 'b' instead of "hh", and an 'l' behind the first letter
     * wherever 32 bits are wanted again. */
    const intptr_t destinations[] = {(intptr_t)&shortAfter,
                                     (intptr_t)&byteAfter,
                                     (intptr_t)&intAfter};
    const int after =
        TQ_sscanf("7 -5 70000", "%hi %bi %li", destinations);

    printf("before: %d %d %d\nafter: %d %d %d\n", shortBefore,
           byteBefore, intBefore, shortAfter, byteAfter, (int)intAfter);
    return before != 3 || shortBefore != 7 || byteBefore != -5 ||
           intBefore != 70000 || after != 3 || shortAfter != 7 ||
           byteAfter != -5 || intAfter != 70000;
}
