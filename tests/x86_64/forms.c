/* A user's program: exits with 0 if the routines work, and prints the form that the loader has chosen. */
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <unistd.h>

#include <strlib.h>

/* Weak, as builds without the choice lack it. */
extern int32_t secondForm(const char *) __asm__("TQANSI_strlen.avx2") __attribute__((weak, visibility("hidden")));

static void works(int holds, const char *what) {
    if (holds) return;
    printf("wrong: %s\n", what);
    exit(1);
}

static void useRoutines(const char *text) {
    const size_t length = strlen(text);
    char copy[300];
    char *const same = malloc(length + 1); /* so that memory checkers know where it ends */
    memcpy(same, text, length + 1);
    works(TQANSI_strlen(same) == (int32_t)length, "length");
    works(strcmp(TQANSI_strcpy(copy, same), text) == 0, "copy");
    works(TQANSI_strcmp(same, text) == 0 && TQANSI_stricmp(same, text) == 0, "comparison");
    works(TQANSI_memcmp(same, text, (uint32_t)length + 1) == 0, "comparison of ranges");
    works(TQANSI_strchr(same, 'z') == same + length - 1, "byte");
    works(TQANSI_strstr(same, "yz") == same + length - 2 && TQ_stristr(same, "YZ") == same + length - 2, "substring");
    works(TQANSI_strpbrk(same, "ABCDEFz") == same + length - 1, "set");
    works(TQ_strtoken(same, "pqrst", NULL) == same, "token");
    works(X_TAMBRO_gets(copy, 299, same) == (int32_t)length, "line");
    free(same);
}

/* Ends the program where the second form begins, if that is called. */
static void tellSecondForm(int signal) {
    (void)signal;
    static const char name[] = "avx2\n";
    _exit(write(STDOUT_FILENO, name, sizeof name - 1) < 0);
}

/* Not for ThreadSanitizer, which follows every write, but knows no code. */
__attribute__((no_sanitize("thread"))) static void putBreakpoint(unsigned char *code) { *code = 0xCC; }

int main(void) {
    char text[256] = "";
    for (size_t length = 2; length + 1 < sizeof text; ++length) {
        memset(text, 'x', length);
        memcpy(text + length - 2, "yz", 3);
        useRoutines(text);
    }
    if (secondForm == NULL) return puts("one") < 0;
    const size_t page = (size_t)sysconf(_SC_PAGESIZE);
    unsigned char *const code = (unsigned char *)(uintptr_t)secondForm;
    if (mprotect(code - (uintptr_t)code % page, page, PROT_READ | PROT_WRITE | PROT_EXEC) != 0) return 2;
    signal(SIGTRAP, tellSecondForm);
    putBreakpoint(code);
    works(TQANSI_strlen(text) == 254, "length in the first form");
    return puts("baseline") < 0;
}
