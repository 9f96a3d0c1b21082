/* TQ_sscanf() gives -1 until a conversion is reached, and stores before
 * it fails. */
#include <stdio.h>
#include <string.h>
#include <strlib.h>

int main(void) {
    int idBefore = 1;
    int32_t idAfter = 1;
    char nameBefore[4], nameAfter[4];
    const intptr_t id[] = {(intptr_t)&idAfter},
                   name[] = {(intptr_t)nameAfter};

    /* Before: 0 for a text that does not match, -1 for one that ends
     * first. A number that fails is left alone. */
    const int otherBefore = sscanf("no", "id=%d", &idBefore);
    const int endBefore = sscanf("id=", "id=%d", &idBefore);

    /* After: the other way round, and a number that fails is stored all
     * the same. Only a result that is the number of all the conversions
     * tells success. */
    const int otherAfter = TQ_sscanf("no", "id=%i", id);
    const int endAfter = TQ_sscanf("id=", "id=%i", id);

    /* The width of a string: the bytes before the NUL, and then the NUL
     * counted. */
    const int cutBefore = sscanf("hello", "%3s", nameBefore);
    const int cutAfter = TQ_sscanf("hello", "%4s", name);

    printf("before: %d, %d, id %d, %s\n", otherBefore, endBefore,
           idBefore, nameBefore);
    printf("after: %d, %d, id %d, %s\n", otherAfter, endAfter,
           (int)idAfter, nameAfter);
    return otherBefore != 0 || endBefore != -1 || idBefore != 1 ||
           cutBefore != 1 || strcmp(nameBefore, "hel") != 0 ||
           otherAfter != -1 || endAfter != 0 || idAfter != 0 ||
           cutAfter != 1 || strcmp(nameAfter, "hel") != 0;
}
