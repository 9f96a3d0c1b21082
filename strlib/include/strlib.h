#ifndef STRLIB_H
#define STRLIB_H

#include <stdint.h>

/**
 * @file strlib.h
 * @brief Text routines with exactly defined results, for callers that cannot afford a wrong byte.
 *
 * Terms used throughout:
 * - A *string* is an array of 8-bit bytes that ends with a NUL, the byte 0. Lengths, counts, sizes and positions are in
 *   bytes.
 * - A *blank* is a byte from 1 to 32. NUL, DEL (0x7F) and the bytes from 0x80 up are not blanks.
 * - A *signed byte* is a byte read as -128 to 127, whatever the sign of `char`: 0x80 to 0xFF sort before ASCII.
 * - *Folding* turns 'A' to 'Z' into 'a' to 'z' and leaves every other byte alone. There are no locales.
 * - *Null* is a null pointer. Where a contract allows it ("or null"), it says what happens then.
 * - A call that breaks its contract is *out of contract*: anything may happen.
 * - A *table* is 256 bytes, indexed by a byte's unsigned value.
 *
 * No routine allocates, locks, or keeps anything between calls. Any number of threads may call any routines at once, as
 * long as no call writes a byte that another call uses. A string must end with a NUL; but where a count limits what is
 * read, an array of count bytes without a NUL will do. Strings, their lengths and every position in them are limited to
 * 2147483647 bytes. No out-parameter may overlap a text or another out-parameter.
 *
 * **What is read.** A byte is *not read* if no result depends on it and no access to it faults. A routine, TQ_sscanf()
 * included, may still load it together with bytes of the text: any aligned group of up to 32 bytes that holds at least
 * one byte of the text may be loaded whole, and on x86-64 a load may reach past the text inside its 4,096-byte page. No
 * page of memory ends inside such a group. Text must therefore not lie in memory where loading a byte has an effect.
 *
 * **What the target must offer.** memset(), and words that may be accessed at any address. Where words must be aligned,
 * build the library for that: without `__ARM_FEATURE_UNALIGNED` (`-mno-unaligned-access`) it keeps to aligned accesses
 * on ARM. On ARMv7-A the library needs nothing else; on other machines the compiler's own run-time library may have to
 * supply operations that the processor lacks.
 *
 * **Names.** `TQANSI_` marks the counterparts of classic C routines and their variants, `TQ_` the extensions to them.
 * The UTF-8 codec and reader and customStricmp() have no prefix, string arithmetic begins with `string_operator_`, and
 * the line reader is X_TAMBRO_gets(). Callers rely on these names; the prefixes mean nothing more.
 *
 * Results that point into a `const char *` argument are plain `char *`, as in the classic C routines.
 *
 * **Help from the compiler.** GCC and Clang warn about a null pointer where none may be, about an unused result of a
 * routine that does nothing else, and about a buffer that is too small for the call, as far as they know its size (GCC
 * knows it only when it optimises). In C++20, strlib.hpp also checks formats.
 */

#define STRLIB_VERSION_MAJOR 1
#define STRLIB_VERSION_MINOR 0
#define STRLIB_VERSION_PATCH 0

#if defined(__GNUC__)
#define STRLIB_NOTHROW __attribute__((__nothrow__, __leaf__))
#define STRLIB_NONNULL(...) __attribute__((__nonnull__(__VA_ARGS__)))
/* Such a routine does nothing but return its result; a call that ignores it is a mistake. */
#define STRLIB_PURE __attribute__((__pure__, __warn_unused_result__))
#define STRLIB_CONST __attribute__((__const__, __warn_unused_result__))
#else
#define STRLIB_NOTHROW
#define STRLIB_NONNULL(...)
#define STRLIB_PURE
#define STRLIB_CONST
#endif

/* The compiler compares the size that a call states with that of the buffer, where it knows it. */
#if defined(__GNUC__) && !defined(__clang__) && __GNUC__ >= 10
#define STRLIB_READS(...) __attribute__((__access__(__read_only__, __VA_ARGS__)))
#define STRLIB_WRITES(...) __attribute__((__access__(__write_only__, __VA_ARGS__)))
#else
#define STRLIB_READS(...)
#define STRLIB_WRITES(...)
#endif

#if defined(__GNUC__)
#pragma GCC visibility push(hidden)
#endif

#ifdef __cplusplus
extern "C" {
#endif

/**
 * @defgroup copying Length, copy, concatenation, fill
 *
 * Only TQANSI_memset() is told its destination's size; for the others the caller provides the room that each one
 * states. Bytes after the final NUL are never written. Every copy runs as if byte by byte from the first to the last,
 * so a destination that starts before an overlapping source is safe. If the destination starts inside the part of the
 * source that is still to be copied, the copy reads what it has written: a bounded copy then repeats those bytes up to
 * its count; an unbounded one overwrites the NUL before reaching it and is out of contract.
 * @{
 */

/**
 * @brief Measures a string.
 * @param string A string, or null.
 * @return The number of bytes before the NUL; 0 for null.
 */
int32_t TQANSI_strlen(const char *string) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Copies a string with its NUL.
 * @param destination Room for the source's length plus 1 bytes, or null.
 * @param source A string, or null.
 * @return The destination as passed. Nothing is written if either argument is null.
 */
char *TQANSI_strcpy(char *destination, const char *source) STRLIB_NOTHROW;

/**
 * @brief Copies at most count bytes of a string and always ends the result with a NUL. It never pads.
 *
 * ```
 * TQANSI_strncpy(d, "hello", 3)  ->  d holds "hel"
 * TQANSI_strncpy(d, "hi", 5)     ->  d holds "hi"
 * TQANSI_strncpy(d, "hi", 0)     ->  d holds ""
 * TQANSI_strncpy(d, "hi", -1)    ->  d holds ""
 * ```
 * @param destination Room for count + 1 bytes, or for the source's length plus 1 if that is less, and always for 1; or
 *        null.
 * @param source A string, or null. At most count bytes of it are read, and they need not hold a NUL.
 * @param count The most bytes to copy, the NUL not counted; 0 or less gives an empty string.
 * @return The destination as passed. Nothing is written if either pointer is null.
 */
char *TQANSI_strncpy(char *destination, const char *source, int32_t count) STRLIB_NOTHROW;

/**
 * @brief Appends a string to another.
 * @param destination A string followed by room for as many bytes as the source is long, or null.
 * @param source A string, or null. It must not overlap the destination's string.
 * @return The destination as passed. Nothing is written if either argument is null.
 */
char *TQANSI_strcat(char *destination, const char *source) STRLIB_NOTHROW;

/**
 * @brief Appends at most count bytes of a string to another and always ends the result with a NUL.
 *
 * ```
 * TQANSI_strncat(d, "xyz", 2), d holds "ab"   ->  d holds "abxy"
 * TQANSI_strncat(d, "xyz", 5), d holds "ab"   ->  d holds "abxyz"
 * TQANSI_strncat(d, "xyz", -1), d holds "ab"  ->  d holds "ab"
 * ```
 * @param destination A string followed by room for count bytes, or for as many as the source is long if that is less;
 *        or null.
 * @param source A string, or null. At most count bytes of it are read, and they need not hold a NUL.
 * @param count The most bytes to append, the NUL not counted; 0 or less appends nothing.
 * @return The destination as passed. Nothing is written if either pointer is null.
 */
char *TQANSI_strncat(char *destination, const char *source, int32_t count) STRLIB_NOTHROW;

/**
 * @brief Copies a string with its NUL and returns the end of the copy, where the next piece can go.
 * @param destination Room for the source's length plus 1 bytes, or null. Typically the end of a string being built.
 * @param source A string, or null.
 * @return The address of the NUL that was written. If either argument is null, nothing is written and the destination
 *         is returned as passed.
 */
char *TQ_strappend(char *destination, const char *source) STRLIB_NOTHROW;

/**
 * @brief Fills bytes.
 * @param destination Room for count bytes, or null.
 * @param byte The value to store, of which the low 8 bits count.
 * @param count The number of bytes; 0 writes nothing.
 * @return The destination; null for null, with nothing written.
 */
void *TQANSI_memset(void *destination, int32_t byte, uint32_t count) STRLIB_WRITES(1, 3) STRLIB_NOTHROW;

/** @} */

/**
 * @defgroup comparison Comparison
 *
 * Each result is the exact difference of the first two bytes that differ, the first argument's minus the second's, and
 * 0 if no bytes differ. The NUL of the shorter string counts as 0.
 * @{
 */

/**
 * @brief Compares two strings by signed bytes.
 *
 * ```
 * TQANSI_strcmp("abc", "abd")  ->  -1
 * TQANSI_strcmp("ab", "abc")   ->  -99
 * TQANSI_strcmp("\xE9", "a")   ->  -120
 * ```
 * @param first A string, or null.
 * @param second A string, or null.
 * @return The difference of the first two signed bytes that differ, -255 to 255; 0 if none do, or if either is null.
 */
int32_t TQANSI_strcmp(const char *first, const char *second) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Compares at most count bytes of two strings by signed bytes.
 *
 * ```
 * TQANSI_strncmp("abc", "abd", 2)   ->  0
 * TQANSI_strncmp("xbc", "abd", 0)   ->  0
 * TQANSI_strncmp("xbc", "abd", -1)  ->  23
 * ```
 * @param first A string, or at least count bytes; or null.
 * @param second As first.
 * @param count The most positions to compare. 0 compares nothing; a negative count compares the first position only.
 * @return As TQANSI_strcmp(), over the positions compared; 0 if either pointer is null.
 */
int32_t TQANSI_strncmp(const char *first, const char *second, int32_t count) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Compares two strings by signed bytes after folding.
 *
 * ```
 * TQANSI_stricmp("HeLLo", "hello")  ->  0
 * TQANSI_stricmp("A", "b")          ->  -1
 * TQANSI_stricmp("[", "a")          ->  -6
 * TQANSI_stricmp("\xC9", "\xE9")    ->  -32
 * ```
 * @param first A string, not null.
 * @param second A string, not null.
 * @return The difference of the first two folded bytes that differ, -255 to 255; 0 if none do.
 */
int32_t TQANSI_stricmp(const char *first, const char *second) STRLIB_PURE STRLIB_NONNULL(1, 2) STRLIB_NOTHROW;

/**
 * @brief Compares at most count bytes of two strings by signed bytes after folding.
 *
 * ```
 * TQANSI_strnicmp("HELLOx", "helloy", 5)  ->  0
 * TQANSI_strnicmp("x", "A", -3)           ->  23
 * ```
 * @param first A string, or at least count bytes if the count is at most 65535; or null.
 * @param second As first.
 * @param count The most positions to compare. 0 compares nothing; a negative count compares the first position only.
 *        A count of 65536 or more is no limit: positions are counted in 16 bits, and the comparison runs to the first
 *        difference or to the end of both strings.
 * @return As TQANSI_stricmp(), over the positions compared; 0 if either pointer is null.
 */
int32_t TQANSI_strnicmp(const char *first, const char *second, int32_t count) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Compares two strings in the order of a collation table.
 *
 * Both bytes of each position are mapped through the table and read as signed bytes. The comparison ends at the first
 * position where the mapped values differ or are both 0: a byte that the table maps to 0 ends a string as a NUL does.
 * @param first A string, not null.
 * @param second A string, not null.
 * @param collation A table that maps the NUL to 0 (anything else is out of contract); or null, to compare as
 *        TQANSI_strcmp() does.
 * @return The difference of the two values at which the comparison ended, -255 to 255.
 */
int32_t customStricmp(const char *first, const char *second, const uint8_t *collation) STRLIB_PURE
    STRLIB_NONNULL(1, 2) STRLIB_NOTHROW;

/**
 * @brief Compares count bytes by their unsigned values. A NUL is a byte like any other.
 *
 * ```
 * TQANSI_memcmp("ab\x80", "ab\x01", 3)  ->  127
 * ```
 * @param first A range of count bytes; null only with a count of 0.
 * @param second As first.
 * @param count The number of bytes to compare; 0 compares nothing.
 * @return The difference of the first two bytes that differ, -255 to 255; 0 if none do.
 */
int32_t TQANSI_memcmp(const void *first, const void *second, uint32_t count) STRLIB_PURE STRLIB_READS(1, 3)
    STRLIB_READS(2, 3) STRLIB_NOTHROW;

/** @} */

/**
 * @defgroup search Search
 *
 * Results point into the first argument. Every routine returns null if it finds nothing or if a pointer argument is
 * null. Unlike their classic counterparts, the searches in strings never find the terminating NUL.
 * @{
 */

/**
 * @brief Finds the first occurrence of a byte in a string.
 * @param string A string, or null.
 * @param byte The byte sought, of which the low 8 bits count: 0x16C finds 'l'.
 * @return The byte's first position; null if the byte is not there or is 0, or if the string is null.
 */
char *TQANSI_strchr(const char *string, int32_t byte) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Finds the last occurrence of a byte in a string.
 * @param string A string, or null.
 * @param byte The byte sought, of which the low 8 bits count.
 * @return The byte's last position; null if the byte is not there or is 0, or if the string is null.
 */
char *TQANSI_strrchr(const char *string, int32_t byte) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Finds the first occurrence of a byte in a range. A NUL is a byte like any other.
 * @param range A range of count bytes, or null. Bytes after the one found need not exist.
 * @param byte The byte sought, of which the low 8 bits count.
 * @param count The number of bytes to search; 0 finds nothing.
 * @return The byte's first position; null if the byte is not there or the range is null.
 */
void *TQANSI_memchr(const void *range, int32_t byte, uint32_t count) STRLIB_PURE STRLIB_READS(1) STRLIB_NOTHROW;

/**
 * @brief Finds the first byte of a string that belongs to a set.
 *
 * ```
 * TQANSI_strpbrk("hello", "xol")  ->  position 2
 * ```
 * @param string A string, or null.
 * @param set A string whose bytes are the set, in any order and number; or null.
 * @return The position; null if there is none, or if either string is empty or null.
 */
char *TQANSI_strpbrk(const char *string, const char *set) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Finds the first occurrence of a substring, in time proportional at most to the sum of both lengths.
 *
 * ```
 * TQANSI_strstr("abcabcd", "abcd")  ->  position 3
 * TQANSI_strstr("abc", "")          ->  position 0
 * ```
 * @param string A string, or null.
 * @param substring A string, or null. An empty one is found at the string's start.
 * @return The position where the substring begins; null if it is not there, or if either string is null.
 */
char *TQANSI_strstr(const char *string, const char *substring) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Finds the first occurrence of a substring after folding, in time proportional at most to the sum of both
 *        lengths.
 *
 * ```
 * TQ_stristr("xxHeLLo world", "WORLD")  ->  position 8
 * ```
 * @param string A string, or null.
 * @param substring A string, or null. An empty one is found at the string's start. One of 65536 bytes or more is found
 *        only at the string's end, as each position is compared by TQANSI_strnicmp() with the substring's length as the
 *        count.
 * @return The position where the substring begins; null if it is not there, or if either string is null.
 */
char *TQ_stristr(const char *string, const char *substring) STRLIB_PURE STRLIB_NOTHROW;

/** @} */

/**
 * @defgroup classes Byte classes and mapping
 * @{
 */

/**
 * @brief Turns 'a' to 'z' into 'A' to 'Z'.
 * @param character Any value.
 * @return The capital of 'a' to 'z'; every other value unchanged, also those below 0 and above 0xFF.
 */
int32_t TQANSI_toupper(int32_t character) STRLIB_CONST STRLIB_NOTHROW;

/**
 * @brief Tells whether a byte is an ASCII letter.
 * @param character Any value, of which the low 8 bits count.
 * @return 1 if it is 'A' to 'Z' or 'a' to 'z', else 0.
 */
int32_t TQANSI_isalpha(int32_t character) STRLIB_CONST STRLIB_NOTHROW;

/**
 * @brief Tells whether a byte is a decimal digit.
 * @param character Any value, of which the low 8 bits count.
 * @return 1 if it is '0' to '9', else 0.
 */
int32_t TQANSI_isdigit(int32_t character) STRLIB_CONST STRLIB_NOTHROW;

/**
 * @brief Tells whether a string holds nothing but blanks (spaces, tabs, line ends and the other bytes of 1 to 32).
 * @param string A string, not null.
 * @return 1 if it holds blanks only or nothing, else 0.
 */
int32_t TQ_isBlankLine(const char *string) STRLIB_PURE STRLIB_NONNULL(1) STRLIB_NOTHROW;

/**
 * @brief Tells whether a byte belongs to any of several classes that the caller defines.
 * @param mask The bits of the classes asked for; its low 8 bits count.
 * @param attributes A table of class bits, or null.
 * @param byte The byte, of which the low 8 bits count.
 * @return 1 if the byte's entry has a bit in common with the mask, else 0; 0 for a null table.
 */
int32_t TQ_isAttribute(uint32_t mask, const uint8_t *attributes, int32_t byte) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Replaces every byte of a string by its entry in a table. Mind the order: the table comes first.
 *
 * Every byte before the string's NUL is replaced, also those after a byte that the table turns into 0.
 * @param conversion A table, or null. Its entry for the NUL is not used. It must not overlap the string.
 * @param string A string, or null. Nothing happens if either pointer is null.
 */
void TQ_convertZstring(const uint8_t *conversion, char *string) STRLIB_NOTHROW;

/** @} */

/**
 * @defgroup numbers Integers, formatted output, formatted input
 * @{
 */

/**
 * @brief Reads the integer at the start of a text.
 *
 * Leading blanks are skipped. "0x" (not "0X") starts a hexadecimal number, with digits in either case and no sign;
 * otherwise an optional '-' and decimal digits are read ('+' is not a sign). The number ends at the first byte that
 * does not belong to it.
 *
 * ```
 * TQANSI_atoi("  -42abc")    ->  -42
 * TQANSI_atoi("0x1Fz")       ->  31
 * TQANSI_atoi("+5")          ->  0
 * TQANSI_atoi("- 5")         ->  0
 * TQANSI_atoi("0X1F")        ->  0
 * TQANSI_atoi("-0x10")       ->  0
 * TQANSI_atoi("2147483648")  ->  -2147483648
 * ```
 * @param text A string, not null.
 * @return The number modulo 2^32, as a signed integer; 0 if there is none.
 */
int32_t TQANSI_atoi(const char *text) STRLIB_PURE STRLIB_NONNULL(1) STRLIB_NOTHROW;

/**
 * @brief Writes an integer as text, or an empty string if the text does not fit.
 *
 * Digits above 9 are 'A' to 'Z'. Only radix 10 writes a '-'; any other writes the magnitude of a negative value.
 *
 * ```
 * TQANSI_itoa(-1234, d, 6, 10)  ->  d holds "-1234"
 * TQANSI_itoa(-1234, d, 5, 10)  ->  null, d holds ""
 * TQANSI_itoa(-255, d, 6, 16)   ->  d holds "FF"
 * TQANSI_itoa(0, d, 6, 0)       ->  d holds "0"
 * ```
 * @param value The integer.
 * @param buffer Room for size bytes, or null.
 * @param size The size of the buffer: a text of k characters needs k + 1 bytes.
 * @param radix 2 to 36. Any other radix can write only 0.
 * @return The buffer; null if the buffer is null or the size is 0 or less, with nothing written; null if the text does
 *         not fit, with a NUL at index 0 (the other bytes of the buffer may then have changed).
 */
char *TQANSI_itoa(int32_t value, char *buffer, int32_t size, int32_t radix) STRLIB_WRITES(2, 3) STRLIB_NOTHROW;

/**
 * @brief Renders a format and the values of an argument vector into a buffer of a given size.
 *
 * The bytes of the format are stored as they are, except:
 * - "%d" stores the slot's signed 32-bit integer in decimal. Its bound is the width, but at most 11, and 11 without a
 *   width. The number is written only if its text is shorter than the bound (so "%3d" writes -9 to 99, and no "%d"
 *   writes -1000000000 or less), and only if as many bytes as the bound are free before the last byte of the buffer. A
 *   width never pads.
 * - "%s" stores the string whose address the slot holds, whole or not at all; nothing for null.
 * - "%c" stores the low 8 bits of the slot, even if they are 0.
 * - A width is a group of at most seven digits after the '%'. If several groups follow each other, the last one counts:
 *   in "%12345678d" that is "8". "%s" and "%c" ignore it.
 * - A '%' and any other byte stores that byte, so "%%" stores a '%'; if that byte is a backslash, an escape pair begins
 *   there. A '%' at the end of the format, also with digits after it, ends the output.
 * - A backslash followed by 'r', 't' or 'n' stores a carriage return, a tab or a line feed; followed by any other byte
 *   it stores that byte, a '%' included; at the end of the format it stores itself.
 *
 * The output ends at the first plain byte or escape pair that does not fit. A conversion that does not fit is left out,
 * but uses up its slot, and the output goes on. The result tells neither. A buffer is certainly large enough if it has
 * room for the plain bytes, the strings, 1 byte for each "%c", 11 for each "%d", and the NUL.
 *
 * ```
 * TQ_sprintf(d, 64, "%d|%s|%c", {-7, "ab", 90})  ->  8, d holds "-7|ab|Z"
 * TQ_sprintf(d, 4, "ab%sX", {"cd"})              ->  4, d holds "abX"
 * TQ_sprintf(d, 12, "%d", {5})                   ->  2, d holds "5"
 * TQ_sprintf(d, 11, "%d", {5})                   ->  1, d holds ""
 * ```
 * @param destination Room for size bytes, or null. It must not overlap the format or a string argument.
 * @param size The size of the destination.
 * @param format A string, or null.
 * @param arguments One slot for each conversion of the format, in their order; not read (and may be null) if it has
 *        none. If a slot is wider than its integer, the low bits count.
 * @return The number of bytes stored, the NUL included; 0 if the destination or the format is null, else -1 if the size
 *         is 0, with nothing written in either case. Bytes of the destination after the NUL may have changed.
 */
int32_t TQ_sprintf(char *destination, uint32_t size, const char *format, const intptr_t *arguments)
    STRLIB_WRITES(1, 2) STRLIB_NOTHROW;

/**
 * @brief Reads fields out of a text, as a format says, into the destinations of an argument vector.
 *
 * Blanks at the start of the input are skipped, others only where the format says so. Each byte of the format matches
 * an equal byte of the input, except:
 * - A space skips any number of blanks, also none.
 * - A backslash followed by 'r', 't' or 'n' matches a carriage return, a tab or a line feed; followed by a space it is
 *   a space; followed by any other byte it matches that byte; at the end of the format it ends the scan. While the
 *   format has held only pairs of a backslash and 'r', 't' or 'n' (a '%' before one is ignored), each of them also
 *   matches an equal byte among the leading blanks that were skipped; one byte may serve several.
 * - "%c" stores the next byte, whatever it is.
 * - "%s" stores the bytes up to the next blank, "%[^x]" those up to the next byte x, each followed by a NUL. A width w
 *   of 2 or more limits the field to w - 1 bytes; the rest stays in the input. If the field is empty or the width is 1,
 *   an empty string is stored and the conversion fails; if the width is 0, nothing is stored and it fails.
 * - "%i" and "%u" take an optional '-' and decimal digits from the input, and fail if there is no digit. Either way
 *   they store what TQANSI_atoi() reads at that place: 32, 16 or 8 bits of it after the size letter 'l', 'h' or 'b',
 *   and 32 before any size letter. A size letter stays in force for the later numbers of the call, even if its own
 *   directive turns out to be a plain byte. The width is ignored.
 * - "%n" stores the number of input bytes used so far, as 32 bits.
 * - A width is a group of at most seven digits after the '%' and before the size letter. If several groups follow each
 *   other, the last one counts.
 * - A '%' before any other byte is ignored, so "%%" matches a '%' and "%d" a 'd'. So are "%" and a size letter before
 *   any byte but 'i' and 'u' ("%hd" matches 'd'), "%[" before any byte but '^' ("%[abc]" matches "abc]"), and "%[^x"
 *   before any byte but ']'. A format that ends inside a directive ends the scan.
 *
 * The scan stops at the first byte that does not match and at the first conversion that fails. What has been stored by
 * then stays.
 *
 * ```
 * TQ_sscanf("key=value", "%[^=]=%s", ...)  ->  2: "key", "value"
 * TQ_sscanf("70000 70000", "%hi %i", ...)  ->  2: 4464, 4464, 16 bits each
 * TQ_sscanf("0x1F", "%i%n", ...)           ->  1: 31, 1
 * TQ_sscanf("hello", "%4s%s", ...)         ->  2: "hel", "lo"
 * TQ_sscanf("x", "%i", ...)                ->  0: 0
 * TQ_sscanf("x", "y%i", ...)               ->  -1
 * ```
 * @param input A string, or null.
 * @param format A string, or null.
 * @param arguments For each conversion that can be reached, the address of its destination: a byte for "%c", room for
 *        the field and its NUL for "%s" and "%[^x]", else an integer of the size stored, aligned as such. Not read (and
 *        may be null) if no conversion is reached. No destination may be null or overlap the input or the format.
 * @return The number of conversions that succeeded, not counting "%n"; -1 if no conversion was reached (reaching "%n"
 *         makes it 0), or if the input or the format is null or empty.
 */
int32_t TQ_sscanf(const char *input, const char *format, const intptr_t *arguments) STRLIB_NOTHROW;

/** @} */

/**
 * @defgroup lines Lines and tokens
 * @{
 */

/**
 * @brief Takes one line out of a text, without its line feed and without any carriage returns.
 *
 * A line ends at a line feed, at the text's NUL, or when size bytes have been stored; the rest of a longer line is left
 * to the next call. To go through a text, call again at the source plus the result plus 1, until the byte at the result
 * is the NUL. To recognise lines that are too long, pass one more than the longest line allowed as the size: such a
 * line fills the destination.
 *
 * ```
 * X_TAMBRO_gets(d, 10, "he\rllo\r\nworld")  ->  7, d holds "hello"
 * X_TAMBRO_gets(d, 3, "abcdef")             ->  2, d holds "abc"
 * ```
 * @param destination Room for size + 1 bytes (one more than the size), not null.
 * @param size The most bytes to store, the NUL not counted; 1 or more. Carriage returns do not count.
 * @param source A string, not null. If it overlaps the destination, the destination must begin at its first byte or
 *        before: a line may be taken in place.
 * @return The index in the source of the last byte read: the line feed, the NUL, or the last byte stored.
 */
int32_t X_TAMBRO_gets(char *destination, int32_t size, const char *source) STRLIB_NONNULL(1, 3) STRLIB_NOTHROW;

/**
 * @brief Finds the first token of a string, and its length.
 *
 * A token is a run of bytes that are not delimiters, as long as possible. To find the next one, call again at the
 * result plus the length. This needs tokens of less than 65536 bytes; TQ_strtoken() has no such limit.
 *
 * ```
 * TQ_strtoklen(",,a,b", ",", &length)  ->  position 2, length 1
 * TQ_strtoklen("abc", "", &length)     ->  position 0, length 3
 * ```
 * @param string A string, or null.
 * @param delimiters A string whose bytes are the delimiters, or null.
 * @param length Receives the low 16 bits of the token's length, or 0 if the result is null; may be null.
 * @return The token's first byte; null if the string is empty or holds only delimiters, or if either string is null.
 */
char *TQ_strtoklen(const char *string, const char *delimiters, uint16_t *length) STRLIB_NOTHROW;

/**
 * @brief Finds the first token of a string, and its end.
 *
 * A token is a run of bytes that are not delimiters, as long as possible. To find the next one, call again at the end.
 * @param string A string, or null.
 * @param delimiters A string whose bytes are the delimiters, or null.
 * @param end Receives the address of the byte after the token (a delimiter or the NUL); keeps its value if the result
 *        is null; may be null.
 * @return The token's first byte; null if the string is empty or holds only delimiters, or if either string is null.
 */
char *TQ_strtoken(const char *string, const char *delimiters, char **end) STRLIB_NOTHROW;

/** @} */

/**
 * @defgroup utf8 UTF-8
 * @{
 */

/**
 * @brief Encodes a code point in one to six bytes.
 *
 * This is the original form of UTF-8, with up to six bytes: surrogates and values from 0x110000 to 0x7FFFFFFF are
 * encoded like any other.
 *
 * ```
 * unicodeToUtf8(0x20AC, d)      ->  3, d holds E2 82 AC 00
 * unicodeToUtf8(0x80000000, d)  ->  0, d holds 20 00
 * ```
 * @param codePoint The value.
 * @param buffer Room for the sequence and a NUL (7 bytes hold any), not null. Nothing else is written.
 * @return The length of the sequence, 1 to 6; 0 for a value of 0x80000000 or more, with a space and a NUL written.
 */
int32_t unicodeToUtf8(uint32_t codePoint, char *buffer) STRLIB_NONNULL(2) STRLIB_NOTHROW;

/**
 * @brief Decodes the character at the start of a text, of one to six bytes.
 *
 * Overlong forms of three bytes and more, surrogates and values above 0x10FFFF are decoded like any other. A first byte
 * of 0x80 to 0xBF is a character of its own, with bit 7 cleared. The NUL decodes as 0 with length 1, and the result
 * then points past it: the caller must stop there.
 *
 * Decoding fails at
 * - 0xC0 and 0xC1, where the code point receives the bits of this byte that belong to it, 0 or 0x40;
 * - 0xFE and 0xFF, where the code point keeps its value;
 * - a byte other than 0x80 to 0xBF where a continuation byte must stand: the code point receives the bits read so far,
 *   in their places.
 *
 * No byte after the one at which decoding fails is read.
 *
 * ```
 * utf8ToUnicode at E2 82 AC  ->  0x20AC, length 3, input + 3
 * utf8ToUnicode at E2 82 00  ->  0x2080, length 0, input + 1
 * ```
 * @param input A string, not null.
 * @param codePoint Receives the value; not null. Of no use if the length is 0.
 * @param length Receives the bytes used, 1 to 6; 0 on failure; not null.
 * @return The input advanced by the length, or by 1 on failure.
 */
char *utf8ToUnicode(const char *input, uint32_t *codePoint, int32_t *length) STRLIB_NONNULL(1, 2, 3) STRLIB_NOTHROW;

/**
 * @brief Checks and copies the character at the start of a text, of one to four bytes.
 *
 * Valid are 0x00 to 0x7F, and a lead byte of 0xC2 to 0xF7 with its one to three continuation bytes (0x80 to 0xBF),
 * whatever value they encode. To go through a text, call again at the result, until it equals the input.
 *
 * ```
 * utf8ReadChar at C3 A9 78  ->  valid 1, character C3 A9 00, input + 2
 * utf8ReadChar at E2 82 00  ->  valid 0, character 00 82,    input + 1
 * utf8ReadChar at 00        ->  valid 1, character 00,       input
 * ```
 * @param input A string, not null. No byte after the first one that does not belong to the character is read.
 * @param valid Receives 1 for a valid character or the NUL, else 0; may be null.
 * @param character Room for 5 bytes, or null. Receives the character's bytes and a NUL. For an invalid character it
 *        receives an empty string, and from index 1 on the continuation bytes that were read.
 * @return The input after the character; the input + 1 for an invalid one; the input itself at the NUL.
 */
char *utf8ReadChar(const char *input, int32_t *valid, char *character) STRLIB_NONNULL(1) STRLIB_NOTHROW;

/**
 * @brief Finds the first position in a string at which any character of a UTF-8 set stands.
 *
 * The set is read as characters of one to four bytes, each as long as its first byte says (0x01 to 0x7F: 1, 0xC0 to
 * 0xDF: 2, 0xE0 to 0xEF: 3, 0xF0 to 0xF7: 4) whatever bytes follow; one that is cut short by the end of the set is
 * ignored. At each byte of the string, also inside its characters, the members of the set are tried in order. If the
 * first byte of the next member is 0x80 to 0xBF or 0xF8 to 0xFF, the whole search ends. The time grows with the product
 * of both lengths.
 * @param string A string, or null.
 * @param set A string, or null.
 * @return The position; null if there is none, if either string is empty or null, or if the search ended.
 */
char *TQANSI_strpbrkUTF8(const char *string, const char *set) STRLIB_PURE STRLIB_NOTHROW;

/** @} */

/**
 * @defgroup arithmetic String arithmetic
 *
 * A string is taken as a number in base 256 whose last byte is the least significant digit.
 * @{
 */

/**
 * @brief Subtracts the last four bytes of a string from those of another.
 *
 * ```
 * string_operator_diff("b", "a")    ->  1
 * string_operator_diff("BA", "AA")  ->  256
 * string_operator_diff("", "a")     ->  -97
 * string_operator_diff("\x80", "")  ->  -128
 * ```
 * @param first A string, not null.
 * @param second A string, not null.
 * @return The sum of (A - B) * 256^k modulo 2^32 for k = 0 to 3, where A and B are the signed bytes at position k from
 *         the end, or 0 if a string is not that long. Bytes further from the end do not count.
 */
int32_t string_operator_diff(const char *first, const char *second) STRLIB_PURE STRLIB_NONNULL(1, 2) STRLIB_NOTHROW;

/**
 * @brief Adds an integer to a string, byte by byte from the end and without carry.
 *
 * The lowest byte of the addend is added to the last byte of the source, modulo 256, its next byte to the byte before
 * that, and so on. The addend is shifted arithmetically; once a shift leaves 0 or -1, nothing more is added. A source
 * of less than four bytes grows at the front while any of the addend is left. A byte that becomes 0 ends the result, as
 * any NUL does.
 *
 * ```
 * string_operator_add(d, "a", 1)     ->  d holds "b"
 * string_operator_add(d, "a", 256)   ->  d holds "\x01" "a"
 * string_operator_add(d, "ab", 257)  ->  d holds "bc"
 * string_operator_add(d, "a", -1)    ->  d holds "\x60"
 * string_operator_add(d, "\xFF", 1)  ->  d holds ""
 * ```
 * @param destination Room for the source's length plus 1 bytes, but for 5 at least; not null. It may be the source
 *        itself; any other overlap is out of contract.
 * @param source A string, not null.
 * @param addend The integer to add.
 * @return The destination.
 */
char *string_operator_add(char *destination, const char *source, int32_t addend) STRLIB_NONNULL(1, 2) STRLIB_NOTHROW;

/** @} */

#if defined(__GNUC__)
#include "strlib_checks.h"
#endif

#ifdef __cplusplus
}
#endif

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif

#endif
