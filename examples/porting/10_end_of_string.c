/* TQANSI_strchr() and TQANSI_strrchr() never find the NUL. */
#include <stdio.h>
#include <string.h>
#include <strlib.h>

int main(void) {
    char text[] = "path/";

    /* Before: the NUL is part of the string that is searched. */
    const char *endBefore = strchr(text, 0);

    /* The same call finds nothing. */
    const char *unchanged = TQANSI_strchr(text, 0);

    /* After: the end is where the length says. */
    const char *endAfter = text + TQANSI_strlen(text);

    printf("before: %d\nunchanged: %s\nafter: %d\n",
           (int)(endBefore - text),
           unchanged == NULL ? "null" : "found",
           (int)(endAfter - text));
    return endBefore != text + 5 || unchanged != NULL ||
           endAfter != text + 5;
}
