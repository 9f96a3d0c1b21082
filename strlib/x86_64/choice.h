// The choice at load time, on x86-64 with glibc. Sources with routines that gain from AVX2 are compiled twice, both
// times behind this header. In the library's own objects the code that follows gets the labels `NAME.baseline`, and
// NAME itself becomes an indirect function: the loader calls its resolver once, and then calls of NAME go to the form
// that the resolver gave. In the second objects the same code, compiled for AVX2, gets the labels `NAME.avx2`. No C
// name has a dot in it, so that these labels cannot clash with a program's.
//
// Where the choice does not apply, this header declares nothing new and the compiler's flags decide.

#include <strlib.h>

#if __has_include(<features.h>)
#include <features.h>
#endif

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(memory_sanitizer) || __has_feature(thread_sanitizer) || \
    __has_feature(hwaddress_sanitizer)
#define STRLIB_UNDER_SANITIZER  // They read by bytes, and their own code cannot run as early as a resolver.
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || defined(__SANITIZE_HWADDRESS__)
#define STRLIB_UNDER_SANITIZER
#endif

#if defined(__x86_64__) && defined(__LP64__) && defined(__ELF__) && defined(__GLIBC__) && \
    !defined(STRLIB_UNDER_SANITIZER) && !defined(STRLIB_BLOCK_WORD) && !defined(STRLIB_BLOCK_BYTE)
#define STRLIB_X86_64_MAY_CHOOSE
#endif

// The routines that have two forms, by source.
#define STRLIB_FORMS_compare(FORM) \
    FORM(TQANSI_strcmp)            \
    FORM(TQANSI_strncmp) FORM(TQANSI_stricmp) FORM(TQANSI_strnicmp) FORM(TQANSI_memcmp)
#define STRLIB_FORMS_collate(FORM) FORM(customStricmp)
#define STRLIB_FORMS_length(FORM) FORM(TQANSI_strlen)
#define STRLIB_FORMS_copy(FORM) \
    FORM(TQANSI_strcpy)         \
    FORM(TQANSI_strncpy) FORM(TQANSI_strcat) FORM(TQANSI_strncat) FORM(TQ_strappend)
#define STRLIB_FORMS_find_byte(FORM) FORM(TQANSI_strchr) FORM(TQANSI_strrchr) FORM(TQANSI_memchr)
#define STRLIB_FORMS_find_set(FORM) FORM(TQANSI_strpbrk)
#define STRLIB_FORMS_find_string(FORM) FORM(TQANSI_strstr) FORM(TQ_stristr)
#define STRLIB_FORMS_lines(FORM) FORM(X_TAMBRO_gets)
#define STRLIB_FORMS_tokens(FORM) FORM(TQ_strtoken) FORM(TQ_strtoklen)
#define STRLIB_FORMS_utf8_set(FORM) FORM(TQANSI_strpbrkUTF8)

#if defined(STRLIB_X86_64_AVX2)  // the second objects: also what they call of each other is of that form

#undef STRLIB_FORMS
#define STRLIB_FORMS(FORM)                                                                                  \
    STRLIB_FORMS_compare(FORM) STRLIB_FORMS_collate(FORM) STRLIB_FORMS_length(FORM) STRLIB_FORMS_copy(FORM) \
        STRLIB_FORMS_find_byte(FORM) STRLIB_FORMS_find_set(FORM) STRLIB_FORMS_find_string(FORM)             \
            STRLIB_FORMS_lines(FORM) STRLIB_FORMS_tokens(FORM) STRLIB_FORMS_utf8_set(FORM)

#define STRLIB_FORM(NAME) decltype(NAME) NAME asm(#NAME ".avx2");

#elif defined(STRLIB_X86_64_MAY_CHOOSE) && !defined(__AVX2__)

#include <cpuid.h>

// A resolver runs before the program is relocated: it calls nothing outside its object and reads no variable. What
// compilers add to functions for tools of all kinds could do either.
#define STRLIB_EARLY __attribute__((no_instrument_function, no_sanitize("undefined"))) static

// By Valgrind's client request, which does nothing elsewhere. Its checks of memory take loads that reach past a text
// for errors; those of the baseline stay within aligned blocks, which it accepts.
STRLIB_EARLY inline bool runsOnValgrind() {
    const volatile uint64_t request[6] = {0x1001};
    uint64_t answer = 0;
    asm volatile("rolq $3, %%rdi; rolq $13, %%rdi; rolq $61, %%rdi; rolq $51, %%rdi; xchgq %%rbx, %%rbx"
                 : "+d"(answer)
                 : "a"(request)
                 : "cc", "memory");
    return answer != 0;
}

STRLIB_EARLY inline bool hasAvx2() {
    uint32_t a, b, c, d;
    __cpuid(1, a, b, c, d);
    if ((c & bit_OSXSAVE) == 0 || (c & bit_AVX) == 0) return false;
    uint32_t saved, upper;
    asm("xgetbv" : "=a"(saved), "=d"(upper) : "c"(0));
    if ((saved & 6) != 6) return false;  // The system must save the vectors' halves.
    __cpuid_count(7, 0, a, b, c, d);
    constexpr uint32_t needed = bit_AVX2 | bit_BMI | bit_BMI2;
    return (b & needed) == needed;
}

// Once in an object: most of a resolver.
STRLIB_EARLY __attribute__((noinline)) inline bool takesAvx2() { return hasAvx2() && !runsOnValgrind(); }

#define STRLIB_FORM(NAME)                                                                        \
    decltype(NAME) NAME asm(#NAME ".baseline");                                                  \
    [[gnu::visibility("hidden")]] decltype(NAME) NAME##_avx2 asm(#NAME ".avx2");                 \
    STRLIB_EARLY decltype(&NAME) NAME##_choose() asm(#NAME ".choose");                           \
    [[gnu::used]] decltype(&NAME) NAME##_choose() { return takesAvx2() ? &NAME##_avx2 : &NAME; } \
    [[gnu::ifunc(#NAME ".choose"), gnu::visibility("hidden")]] decltype(NAME) NAME##_public asm(#NAME);

#else

#define STRLIB_FORM(NAME)

#endif

#if defined(STRLIB_FORMS)
extern "C" {
STRLIB_FORMS(STRLIB_FORM)
}
#endif
