/*
 * Warnings about calls that write more than their destination has room for, where the compiler knows its size. Included
 * by strlib.h; changes no call and adds no code.
 *
 * The table at the end says how many bytes each routine writes. A source or code point that is not known at compile
 * time counts as the longest that the call admits if there is a bound, and else as empty. Clang has an attribute for
 * such rules. GCC has none: there each routine gets an inline form that calls the routine by its assembler name, and
 * does so through a declaration that draws the warning if the bytes are too many. GCC emits no code for an inline form,
 * only for the call in it. It knows sizes only when it optimises; otherwise there are no inline forms.
 */
#ifndef STRLIB_CHECKS_H
#define STRLIB_CHECKS_H

#if defined(__clang__) || (__GNUC__ >= 11 && defined(__OPTIMIZE__))

#if defined(__clang__)

#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wgcc-compat" /* GCC does not know the attribute. */
#pragma clang diagnostic ignored "-Wold-style-cast"
#define STRLIB_WARN_IF(condition, message, name, result, parameters, arguments) \
    result name parameters STRLIB_NOTHROW __attribute__((__diagnose_if__(condition, message, "warning")));
#define STRLIB_MEASURED(string) __builtin_strlen(string)

#else

#pragma GCC diagnostic push
#ifdef __cplusplus
#pragma GCC diagnostic ignored "-Wold-style-cast"
#pragma GCC diagnostic ignored "-Wuseless-cast"
#endif
#define STRLIB_TEXT(token) #token
#define STRLIB_LABEL(prefix, name) __asm__(STRLIB_TEXT(prefix) #name) STRLIB_NOTHROW
#define STRLIB_WARN_IF(condition, message, name, result, parameters, arguments)                                 \
    extern __typeof__(name) strlib_##name STRLIB_LABEL(__USER_LABEL_PREFIX__, name);                            \
    extern __typeof__(name) strlib_warned_##name STRLIB_LABEL(__USER_LABEL_PREFIX__, name)                      \
        __attribute__((__warning__(message)));                                                                  \
    extern __inline __attribute__((__gnu_inline__, __always_inline__, __artificial__)) result name parameters { \
        return STRLIB_IF_KNOWN(condition, 0) ? strlib_warned_##name arguments : strlib_##name arguments;        \
    }
/* As strlen(), but without a warning for an array that holds no NUL, which a bounded copy may read: that has no known
   length. The largest size, for an unknown one, is halved, or it would draw a warning itself. There is no branch in
   this that counters for coverage could keep alive. */
#define STRLIB_END(string) __builtin_memchr(string, 0, __builtin_object_size(string, 0) & ~(__SIZE_TYPE__)0 >> 1)
#define STRLIB_MEASURED(string) ((__SIZE_TYPE__)STRLIB_END(string) - (__SIZE_TYPE__)(string))

#endif

/* A value if it is known at compile time, else another. */
#define STRLIB_IF_KNOWN(value, otherwise) (__builtin_constant_p(value) ? (value) : (otherwise))
#define STRLIB_LESSER(one, other) ((one) < (other) ? (one) : (other))
#define STRLIB_GREATER(one, other) ((one) > (other) ? (one) : (other))

/* The bytes of a source before its NUL. A source that may be null stands for an empty one then. */
#define STRLIB_LENGTH(source, otherwise) STRLIB_IF_KNOWN(STRLIB_MEASURED(source), otherwise)
#define STRLIB_OR_EMPTY(source) ((source) ? (source) : "")
/* The bytes that a bounded copy takes of a source. */
#define STRLIB_TAKEN(source, count) \
    STRLIB_LESSER((__SIZE_TYPE__)STRLIB_GREATER(count, 0), STRLIB_LENGTH(source, ~(__SIZE_TYPE__)0))
/* The bytes of a code point, and of the character that begins with a byte. */
#define STRLIB_ENCODED(point)                    \
    ((point) < 0x80 || (point) >= 0x80000000 ? 1 \
     : (point) < 0x800                       ? 2 \
     : (point) < 0x10000                     ? 3 \
     : (point) < 0x200000                    ? 4 \
     : (point) < 0x4000000                   ? 5 \
                                             : 6)
#define STRLIB_CHARACTER(lead) ((lead) < 0xC2 || (lead) > 0xF7 ? 1 : (lead) < 0xE0 ? 2 : (lead) < 0xF0 ? 3 : 4)

/* clang-format off */

/* Warns of an array that has no room for a number of bytes and a NUL. */
#define STRLIB_WRITES_AND_NUL(array, bytes, message, name, result, parameters, arguments) \
    STRLIB_WARN_IF(__builtin_object_size(array, 1) <= (__SIZE_TYPE__)(bytes), message, \
        name, result, parameters, arguments)
STRLIB_WRITES_AND_NUL(destination, STRLIB_LENGTH(STRLIB_OR_EMPTY(source), 0), "no room for the source and its NUL",
    TQANSI_strcpy, char *, (char *destination, const char *source), (destination, source))
STRLIB_WRITES_AND_NUL(destination, STRLIB_LENGTH(STRLIB_OR_EMPTY(source), 0), "no room for the source and its NUL",
    TQANSI_strcat, char *, (char *destination, const char *source), (destination, source))
STRLIB_WRITES_AND_NUL(destination, STRLIB_LENGTH(STRLIB_OR_EMPTY(source), 0), "no room for the source and its NUL",
    TQ_strappend, char *, (char *destination, const char *source), (destination, source))
STRLIB_WRITES_AND_NUL(destination, STRLIB_TAKEN(STRLIB_OR_EMPTY(source), count),
    "no room for count bytes and the NUL behind them",
    TQANSI_strncpy, char *, (char *destination, const char *source, int32_t count), (destination, source, count))
STRLIB_WRITES_AND_NUL(destination, STRLIB_TAKEN(STRLIB_OR_EMPTY(source), count),
    "no room for count bytes and the NUL behind them",
    TQANSI_strncat, char *, (char *destination, const char *source, int32_t count), (destination, source, count))
STRLIB_WRITES_AND_NUL(destination, STRLIB_TAKEN(source, size), "no room for size bytes and the NUL behind them",
    X_TAMBRO_gets, int32_t, (char *destination, int32_t size, const char *source), (destination, size, source))
STRLIB_WRITES_AND_NUL(buffer, STRLIB_IF_KNOWN(STRLIB_ENCODED(codePoint), 6), "needs room for 7 bytes",
    unicodeToUtf8, int32_t, (uint32_t codePoint, char *buffer), (codePoint, buffer))
STRLIB_WRITES_AND_NUL(character, STRLIB_IF_KNOWN(STRLIB_CHARACTER((uint8_t)*input), 4), "needs room for 5 bytes",
    utf8ReadChar, char *, (const char *input, int32_t *valid, char *character), (input, valid, character))
STRLIB_WRITES_AND_NUL(destination, STRLIB_GREATER(STRLIB_LENGTH(source, 0), 4),
    "no room for the source and its NUL, 5 bytes at least",
    string_operator_add, char *, (char *destination, const char *source, int32_t addend), (destination, source, addend))

#if defined(__clang__)
/* A size among the arguments, which GCC compares with the array's by STRLIB_READS and STRLIB_WRITES. */
#define STRLIB_USES(array, size, name, result, parameters) \
    STRLIB_WARN_IF(__builtin_object_size(array, 0) < (__SIZE_TYPE__)STRLIB_GREATER(size, 0), \
        "the size is larger than the array", name, result, parameters, ())
STRLIB_USES(destination, count, TQANSI_memset, void *, (void *destination, int32_t byte, uint32_t count))
STRLIB_USES(first, count, TQANSI_memcmp, int32_t, (const void *first, const void *second, uint32_t count))
STRLIB_USES(second, count, TQANSI_memcmp, int32_t, (const void *first, const void *second, uint32_t count))
STRLIB_USES(buffer, size, TQANSI_itoa, char *, (int32_t value, char *buffer, int32_t size, int32_t radix))
STRLIB_USES(destination, size, TQ_sprintf, int32_t,
    (char *destination, uint32_t size, const char *format, const intptr_t *arguments))
#pragma clang diagnostic pop
#else
#pragma GCC diagnostic pop
#endif
/* clang-format on */

#endif
#endif
