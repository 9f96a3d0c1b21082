#ifndef STRLIB_H
#define STRLIB_H

#include <stdint.h>

/**
 * @file strlib.h
 * @brief Text routines with exactly defined results, for callers that cannot afford a wrong byte.
 *
 * Terms used throughout:
 * - A *string* is an array of 8-bit bytes that ends with a NUL. Lengths, counts, sizes and positions are in bytes.
 * - A *blank* is a byte of the values 1 to 32. NUL, DEL (0x7F) and the bytes from 0x80 up are no blanks.
 * - A *signed byte* is a byte read as -128 to 127, whatever the signedness of `char`: 0x80 to 0xFF sort before ASCII.
 * - *Folding* turns 'A' to 'Z' into 'a' to 'z' and leaves every other byte alone. There are no locales.
 * - *Null* is a null pointer. A routine that tests for null names its answer; for the others null is out of contract.
 * - A table is 256 bytes, indexed by a byte's unsigned value.
 *
 * No routine allocates, locks, or keeps anything between calls. Any number of threads may call any routines at once,
 * as long as no two calls write the same bytes. A string without a NUL is out of contract everywhere, except that where
 * a count limits what is read, as many bytes as the count says will do instead. Strings, their lengths and every
 * position in them are limited to 2147483647 bytes. No out-parameter may overlap a text or another out-parameter.
 *
 * Where a routine is said not to read a byte, it does not depend on it and never faults on it: text may be read in
 * aligned blocks of up to 32 bytes around a byte that belongs to it, and no page of memory ends inside one; on x86-64
 * with AVX2 also up to 31 bytes behind the text inside the same page of 4096 bytes.
 *
 * Results that point into a `const char *` argument are plain `char *`, as in the classic C routines.
 */

#if defined(__GNUC__)
#define STRLIB_NOTHROW __attribute__((__nothrow__, __leaf__))
#define STRLIB_NONNULL(...) __attribute__((__nonnull__(__VA_ARGS__)))
/* The result is all that such a call is good for; dropping it is a mistake. */
#define STRLIB_PURE __attribute__((__pure__, __warn_unused_result__))
#define STRLIB_CONST __attribute__((__const__, __warn_unused_result__))
#else
#define STRLIB_NOTHROW
#define STRLIB_NONNULL(...)
#define STRLIB_PURE
#define STRLIB_CONST
#endif

/* Lets the compiler compare a buffer's size, where it knows it, with the size that the call states. */
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
 * No routine of this group but TQANSI_memset() learns its destination's size: the caller provides the room that each
 * one states. Bytes behind the final NUL are never written. Every copy runs as if byte by byte from the first to the
 * last, so a destination that starts before an overlapping source is safe. A destination that starts inside the part
 * of the source still to be copied sees its own bytes again: a bounded copy then repeats them up to its count, and an
 * unbounded one never meets the NUL that it overwrote and is out of contract.
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
 * @brief Copies at most count bytes of a string and always ends the result with a NUL. Unlike strncpy() it never pads.
 *
 * `"hello", 3 -> "hel"`, `"hi", 5 -> "hi"`, `"hi", 0 -> ""`, `"hi", -1 -> ""`
 * @param destination Room for count + 1 bytes, or for the source's length plus 1 if that is less (but for 1 byte in any
 *        case); or null.
 * @param source A string, or null. At most count bytes of it are read; it needs no NUL among them.
 * @param count The most bytes to copy, the NUL not counted; 0 or less gives an empty string.
 * @return The destination as passed. Nothing is written if either pointer is null.
 */
char *TQANSI_strncpy(char *destination, const char *source, int32_t count) STRLIB_NOTHROW;

/**
 * @brief Appends a string to another.
 * @param destination A string with room behind it for the source's length in bytes, or null.
 * @param source A string, or null. It must not overlap the destination's string.
 * @return The destination as passed. Nothing is written if either argument is null.
 */
char *TQANSI_strcat(char *destination, const char *source) STRLIB_NOTHROW;

/**
 * @brief Appends at most count bytes of a string to another and always ends the result with a NUL.
 *
 * `"ab" + "xyz", 2 -> "abxy"`, `"ab" + "xyz", 5 -> "abxyz"`, `"ab" + "xyz", -1 -> "ab"`
 * @param destination A string with room behind it for count bytes, or for the source's length if that is less; or null.
 * @param source A string, or null. At most count bytes of it are read; it needs no NUL among them.
 * @param count The most bytes to append, the NUL not counted; 0 or less appends nothing.
 * @return The destination as passed. Nothing is written if either pointer is null.
 */
char *TQANSI_strncat(char *destination, const char *source, int32_t count) STRLIB_NOTHROW;

/**
 * @brief Copies a string with its NUL and tells where the copy ends, so that the next piece can follow there.
 * @param destination Room for the source's length plus 1 bytes, or null. Typically the end of a string being built.
 * @param source A string, or null.
 * @return The address of the NUL that was written; the destination as passed, with nothing written, if either is null.
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
 * Each result is the exact difference of the first pair of bytes that differ, first argument minus second, and 0 where
 * none does. A string that ends first takes part with its NUL as 0.
 * @{
 */

/**
 * @brief Compares two strings by signed bytes.
 *
 * `"abc", "abd" -> -1`, `"ab", "abc" -> -99`, `"\xE9", "a" -> -120`
 * @param first A string, or null.
 * @param second A string, or null.
 * @return The difference of the first two signed bytes that differ, -255 to 255; 0 if there are none or either is null.
 */
int32_t TQANSI_strcmp(const char *first, const char *second) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Compares at most count bytes of two strings by signed bytes.
 *
 * `"abc", "abd", 2 -> 0`, `"xbc", "abd", 0 -> 0`, `"xbc", "abd", -1 -> 23`
 * @param first A string, or at least count bytes; or null.
 * @param second As first.
 * @param count The most positions to compare. 0 compares nothing; a negative count compares the first position only.
 * @return As TQANSI_strcmp(), of the positions compared; 0 if either pointer is null.
 */
int32_t TQANSI_strncmp(const char *first, const char *second, int32_t count) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Compares two strings by signed bytes after folding.
 *
 * `"HeLLo", "hello" -> 0`, `"A", "b" -> -1`, `"[", "a" -> -6`, `"\xC9", "\xE9" -> -32`
 * @param first A string, not null.
 * @param second A string, not null.
 * @return The difference of the first two folded bytes that differ, -255 to 255; 0 if there are none.
 */
int32_t TQANSI_stricmp(const char *first, const char *second) STRLIB_PURE STRLIB_NONNULL(1, 2) STRLIB_NOTHROW;

/**
 * @brief Compares at most count bytes of two strings by signed bytes after folding.
 *
 * `"HELLOx", "helloy", 5 -> 0`, `"x", "A", -3 -> 23`
 * @param first A string, or at least count bytes if the count is at most 65535; or null.
 * @param second As first.
 * @param count The most positions to compare. 0 compares nothing; a negative count compares the first position only.
 *        Positions are counted in 16 bits: a count of 65536 or more never ends the comparison, which then runs to the
 *        first difference or the common end.
 * @return As TQANSI_stricmp(), of the positions compared; 0 if either pointer is null.
 */
int32_t TQANSI_strnicmp(const char *first, const char *second, int32_t count) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Compares two strings in the order of a collation table.
 *
 * Both bytes of each position are mapped through the table and read as signed bytes. The comparison ends at the first
 * position where the mapped values differ or are 0: a byte that the table maps to 0 ends a string like its NUL.
 * @param first A string, not null.
 * @param second A string, not null.
 * @param collation 256 bytes that map the NUL to 0 (any other entry there is out of contract); or null, for a
 *        comparison as that of TQANSI_strcmp().
 * @return The difference of the two values at which the comparison ended, -255 to 255.
 */
int32_t customStricmp(const char *first, const char *second, const uint8_t *collation) STRLIB_PURE
    STRLIB_NONNULL(1, 2) STRLIB_NOTHROW;

/**
 * @brief Compares count bytes by their unsigned values, NUL bytes like any other.
 *
 * `"ab\x80", "ab\x01", 3 -> 127`
 * @param first A range of count bytes; null only with a count of 0.
 * @param second As first.
 * @param count The number of bytes to compare; 0 compares nothing.
 * @return The difference of the first two bytes that differ, -255 to 255; 0 if there are none.
 */
int32_t TQANSI_memcmp(const void *first, const void *second, uint32_t count) STRLIB_PURE STRLIB_READS(1, 3)
    STRLIB_READS(2, 3) STRLIB_NOTHROW;

/** @} */

/**
 * @defgroup search Search
 *
 * Results point into the first argument. Every routine gives null when there is nothing to find or when a pointer
 * argument is null. Unlike the classic routines, the searches in strings never find the terminating NUL.
 * @{
 */

/**
 * @brief Finds the first place of a byte in a string.
 * @param string A string, or null.
 * @param byte The byte sought, of which the low 8 bits count: 0x16C finds 'l'.
 * @return The byte's first position; null if it is not there, if it is 0, or for a null string.
 */
char *TQANSI_strchr(const char *string, int32_t byte) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Finds the last place of a byte in a string.
 * @param string A string, or null.
 * @param byte The byte sought, of which the low 8 bits count.
 * @return The byte's last position; null if it is not there, if it is 0, or for a null string.
 */
char *TQANSI_strrchr(const char *string, int32_t byte) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Finds the first place of a byte in a range, NUL bytes like any other.
 * @param range A range of count bytes, or null. Only the bytes up to the one found need to exist.
 * @param byte The byte sought, of which the low 8 bits count.
 * @param count The number of bytes to search; 0 finds nothing.
 * @return The byte's first position; null if it is not there or for a null range.
 */
void *TQANSI_memchr(const void *range, int32_t byte, uint32_t count) STRLIB_PURE STRLIB_READS(1) STRLIB_NOTHROW;

/**
 * @brief Finds the first byte of a string that belongs to a set.
 *
 * `"hello", "xol" -> position 2`
 * @param string A string, or null.
 * @param set A string whose bytes are the set, in any order and number; or null.
 * @return The position; null if there is none, if either string is empty, or for null.
 */
char *TQANSI_strpbrk(const char *string, const char *set) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Finds the first place of a substring. The cost grows with the sum of both lengths at most.
 *
 * `"abcabcd", "abcd" -> position 3`, `"abc", "" -> position 0`
 * @param string A string, or null.
 * @param substring A string, or null. An empty one is found at the string's start.
 * @return The position where the substring begins; null if it is not there or for null.
 */
char *TQANSI_strstr(const char *string, const char *substring) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Finds the first place of a substring after folding. The cost grows with the sum of both lengths at most.
 *
 * `"xxHeLLo world", "WORLD" -> position 8`
 * @param string A string, or null.
 * @param substring A string, or null. An empty one is found at the string's start. One of 65536 bytes or more is found
 *        only where it ends with the string: each place is compared by TQANSI_strnicmp() with its length as the count.
 * @return The position where the substring begins; null if it is not there or for null.
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
 * @brief Tells whether a byte belongs to any of the caller's classes.
 * @param mask The class bits asked for, of which the low 8 bits count.
 * @param attributes 256 bytes of class bits, or null.
 * @param byte The byte, of which the low 8 bits count.
 * @return 1 if the byte's entry has a bit in common with the mask, else 0; 0 for a null table.
 */
int32_t TQ_isAttribute(uint32_t mask, const uint8_t *attributes, int32_t byte) STRLIB_PURE STRLIB_NOTHROW;

/**
 * @brief Replaces every byte of a string by its entry in a table. Mind the order: the table comes first.
 *
 * Every byte before the NUL that ends the string on entry is replaced, also behind one that the table turned into 0.
 * @param conversion 256 bytes, of which that of the NUL is not used; or null. It must not overlap the string.
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
 * Blanks are passed over. "0x" (not "0X") starts a hexadecimal number of digits in either case and takes no sign; else
 * an optional '-' (a '+' is no sign) and decimal digits follow. The number ends at the first byte that does not belong.
 *
 * `"  -42abc" -> -42`, `"0x1Fz" -> 31`, `"+5" -> 0`, `"- 5" -> 0`, `"0X1F" -> 0`, `"-0x10" -> 0`,
 * `"2147483648" -> -2147483648`
 * @param text A string, not null.
 * @return The number modulo 2^32, read as a signed one; 0 where there is none.
 */
int32_t TQANSI_atoi(const char *text) STRLIB_PURE STRLIB_NONNULL(1) STRLIB_NOTHROW;

/**
 * @brief Writes an integer as text, or nothing but an empty string if it does not fit.
 *
 * Digits above 9 are 'A' to 'Z'. Only radix 10 writes a '-'; in any other a negative value is written as its magnitude.
 *
 * `-1234, size 6, radix 10 -> "-1234"`, `-1234, size 5 -> null`, `-255, radix 16 -> "FF"`, `0, radix 0 -> "0"`
 * @param value The integer.
 * @param buffer Room for size bytes, or null.
 * @param size The bytes that may be used, the NUL counted: a text of k characters needs k + 1.
 * @param radix 2 to 36. Any other fits no value but 0, which needs no radix.
 * @return The buffer; null for a null buffer or a size of 0 or less, with nothing written; null for a text that does
 *         not fit, with a NUL at index 0 (and any other byte of the first size bytes possibly changed).
 */
char *TQANSI_itoa(int32_t value, char *buffer, int32_t size, int32_t radix) STRLIB_WRITES(2, 3) STRLIB_NOTHROW;

/**
 * @brief Renders a format with the values of an argument vector into a buffer of bounded size.
 *
 * Format bytes are stored as they stand, except:
 * - "%d" stores the slot's signed 32-bit integer in decimal. Its bound is the width, or 11 if there is none or it is
 *   larger: the number is written only if its text is shorter than the bound (so "%3d" writes -9 to 99, and nothing
 *   writes -1000000000 or below) and if bound bytes lie free before the last byte of the buffer. The width never pads.
 * - "%s" stores the string whose address the slot holds; nothing for null. A string is stored whole or not at all.
 * - "%c" stores the low 8 bits of the slot, 0 included.
 * - A width is a group of at most seven digits behind the '%'; of several groups in a row ("%12345678d" has two, of
 *   which the second is "8") the last counts. "%s" and "%c" ignore it.
 * - '%' and any other byte stores that byte ("%%" a '%'), but a backslash there begins an escape pair as everywhere; a
 *   '%' with nothing behind it but digits ends the output.
 * - A backslash and 'r', 't' or 'n' stores a carriage return, a tab or a line feed; a backslash and any other byte
 *   stores that byte, so that backslash and '%' stores a '%'; a backslash at the end stores itself.
 *
 * A plain byte or escape pair that no longer fits ends the output. A conversion that does not fit is left out and the
 * output goes on; it has used up its slot all the same. The result does not tell either: a buffer is large enough for
 * sure if it holds the plain bytes, the strings, one byte for each "%c" and 11 for each "%d", and 1 more.
 *
 * `"%d|%s|%c", {-7, "ab", 'Z'} -> "-7|ab|Z", result 8`, `size 4: "ab%sX", {"cd"} -> "abX", result 4`
 * @param destination Room for size bytes, or null. It must not overlap the format or a string argument.
 * @param size The bytes of the destination, the NUL counted.
 * @param format A string, or null.
 * @param arguments One slot for each conversion of the format; not read (and may be null) if it has none. Where a slot
 *        is wider than the integer wanted, its low bits count.
 * @return The number of bytes stored, the NUL counted; 0 for a null destination or format; else -1 for a size of 0. In
 *         the last two cases nothing is written. Bytes behind the NUL may have been changed within the size.
 */
int32_t TQ_sprintf(char *destination, uint32_t size, const char *format, const intptr_t *arguments)
    STRLIB_WRITES(1, 2) STRLIB_NOTHROW;

/**
 * @brief Reads fields out of a text as a format tells, through an argument vector of destination addresses.
 *
 * Blanks at the start of the input are passed over, and after that only where the format asks. Format bytes must be
 * repeated by the input, except:
 * - A space passes over any number of blanks, none included.
 * - A backslash and 'r', 't' or 'n' matches a carriage return, a tab or a line feed; a backslash and a space is a
 *   space; a backslash and any other byte matches that byte; a backslash at the end ends the scan. At the very start of
 *   the format such pairs of 'r', 't' and 'n', one or several, with or without a '%' before them, also match a byte of
 *   theirs anywhere among the blanks passed over at the start, and several pairs may match the same one.
 * - "%c" stores the next byte, whatever it is.
 * - "%s" stores the bytes up to the next blank, "%[^x]" those up to the next byte x, each with a NUL. A width w of 2 or
 *   more bounds the field to w - 1 bytes and the NUL; the rest stays in the input. A field of no bytes or a width of 1
 *   stores an empty string and fails; a width of 0 stores nothing and fails.
 * - "%i" and "%u" store what TQANSI_atoi() reads here, also if they then fail. They take a '-' and decimal digits from
 *   the input and fail without a digit. 'l', 'h' or 'b' before the letter stores the low 32, 16 or 8 bits; 32 without
 *   any, but a letter stays in force for the later numbers of the call, also where its own directive ends as a plain
 *   byte. The width is ignored.
 * - "%n" stores how many input bytes have been passed over so far, as 32 bits.
 * - A width is a group of at most seven digits behind the '%', before the size letter; of several groups in a row the
 *   last counts.
 * - '%' and any other byte matches that byte ("%%" a '%', "%d" a 'd'); so does a size letter that neither 'i' nor 'u'
 *   follows ("%hd" matches 'd'), '[' and a byte other than '^' ("%[abc]" matches "abc]"), and "[^x" with a byte other
 *   than ']' behind it, which matches that byte. A space or a backslash in such a place does what it does everywhere.
 *   A format that ends inside a directive ends the scan.
 *
 * The scan stops at the first byte that the input does not repeat and at the first conversion that fails. What was
 * stored before stays.
 *
 * `"key=value", "%[^=]=%s" -> 2`, `"70000 70000", "%hi %i" -> 2, both 16 bits, 4464`, `"0x1F", "%i%n" -> 1, 31 and 1`
 * @param input A string, or null.
 * @param format A string, or null.
 * @param arguments For each conversion that can be reached, the address of a byte ("%c"), of bytes enough for the field
 *        and its NUL ("%s", "%[^x]"), or of an integer of the width named, aligned as such; not read (and may be null)
 *        if no conversion is reached. No destination may be null or overlap the input or the format.
 * @return The number of conversions that succeeded, "%n" not counted; -1 if no conversion was reached (reaching "%n"
 *         makes it 0), or if the input or the format is null or empty.
 */
int32_t TQ_sscanf(const char *input, const char *format, const intptr_t *arguments) STRLIB_NOTHROW;

/** @} */

/**
 * @defgroup lines Lines and tokens
 * @{
 */

/**
 * @brief Takes one line out of a text, without its line feed and without any carriage return.
 *
 * A line ends at a line feed, at the text's NUL, or when size bytes have been stored; the next piece of a longer line
 * is left to the next call. Step through a text by calling again on the source advanced by the result plus 1, until the
 * byte at the result is the NUL. With one more than the longest line wanted as the size, a full destination tells a
 * line that is too long.
 *
 * `"he\rllo\r\nworld", 10 -> "hello", result 7`, `"abcdef", 3 -> "abc", result 2`
 * @param destination Room for size + 1 bytes (one more than the size), not null.
 * @param size The most bytes to store, the NUL not counted; 1 or more. Carriage returns do not count.
 * @param source A string, not null. It must not overlap the destination.
 * @return The index in the source of the byte read last: the line feed, the NUL, or the last byte stored.
 */
int32_t X_TAMBRO_gets(char *destination, int32_t size, const char *source) STRLIB_NONNULL(1, 3)
    STRLIB_WRITES(1, 2) STRLIB_NOTHROW;

/**
 * @brief Finds the first token of a string, a longest run of bytes that are no delimiters, and its length.
 *
 * The next token is found by a call on the result advanced by the length, as long as tokens are shorter than 65536
 * bytes (TQ_strtoken() knows no such limit).
 *
 * `",,a,b", "," -> position 2, length 1`, `"abc", "" -> position 0, length 3`
 * @param string A string, or null.
 * @param delimiters A string whose bytes are the delimiters, or null.
 * @param length Receives the low 16 bits of the token's length, and 0 whenever the result is null; may be null.
 * @return The token's first byte; null if the string holds delimiters only or nothing, or if either string is null.
 */
char *TQ_strtoklen(const char *string, const char *delimiters, uint16_t *length) STRLIB_NOTHROW;

/**
 * @brief Finds the first token of a string, a longest run of bytes that are no delimiters, and its end.
 *
 * The next token is found by a call on the end.
 * @param string A string, or null.
 * @param delimiters A string whose bytes are the delimiters, or null.
 * @param end Receives the address of the byte behind the token (a delimiter or the NUL); left as it was whenever the
 *        result is null; may be null.
 * @return The token's first byte; null if the string holds delimiters only or nothing, or if either string is null.
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
 * The original, wide form of UTF-8: surrogates and the values above 0x10FFFF up to 0x7FFFFFFF are encoded like others.
 *
 * `0x20AC -> E2 82 AC 00, result 3`, `0x80000000 -> 20 00, result 0`
 * @param codePoint The value.
 * @param buffer Room for the sequence and a NUL (7 bytes suffice for every value), not null. Nothing else is written.
 * @return The length of the sequence, 1 to 6; 0 for a value from 0x80000000 up, with a space and a NUL written.
 */
int32_t unicodeToUtf8(uint32_t codePoint, char *buffer) STRLIB_NONNULL(2) STRLIB_NOTHROW;

/**
 * @brief Decodes the character at the start of a text, of one to six bytes.
 *
 * Overlong forms of three bytes and more, surrogates and values above 0x10FFFF are decoded like others. A byte of 0x80
 * to 0xBF in first place counts as a character of its own with bit 7 cleared. The NUL decodes as 0 with the length 1
 * and a result behind it: the caller must stop there.
 *
 * What fails: 0xC0 and 0xC1 (the code point receives the lead's payload, 0 or 0x40); 0xFE and 0xFF (the code point
 * keeps its value); a byte that is no continuation byte (0x80 to 0xBF) where one must stand (the code point receives
 * the payload read so far, in place). No byte after the one that failed is read.
 *
 * `E2 82 AC -> 0x20AC, length 3, input + 3`, `E2 82 00 -> 0x2080, length 0, input + 1`
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
 * whatever value they encode. Step through a text by calling again on the result, until it equals its argument.
 *
 * `C3 A9 78 -> 1, C3 A9 00, input + 2`, `E2 82 00 -> 0, 00 82, input + 1`, `00 -> 1, 00, input`
 * @param input A string, not null. No byte after the first that does not belong is read.
 * @param valid Receives 1 for a valid character or the NUL, else 0; may be null.
 * @param character Room for 5 bytes: receives the character's bytes and a NUL, and an empty string for an invalid
 *        character, whose continuation bytes stand at index 1 and up as far as they were read; may be null.
 * @return The input behind the character; the input + 1 for an invalid one; the input itself at the NUL.
 */
char *utf8ReadChar(const char *input, int32_t *valid, char *character) STRLIB_NONNULL(1) STRLIB_NOTHROW;

/**
 * @brief Finds the first place in a string where any character of a UTF-8 set stands.
 *
 * The set is read as characters of one to four bytes, each as long as its first byte says (0x01 to 0x7F: 1, 0xC0 to
 * 0xDF: 2, 0xE0 to 0xEF: 3, 0xF0 to 0xF7: 4) whatever bytes follow; one that the set's end cuts short is ignored. At
 * each position of the string (each byte, not each character) the set is gone through in order; where that meets a byte
 * of 0x80 to 0xBF or 0xF8 to 0xFF in a first place, the whole search ends. The cost grows with the product of both
 * lengths.
 * @param string A string, or null.
 * @param set A string, or null.
 * @return The position; null if there is none, if either string is empty or null, or if the search ended.
 */
char *TQANSI_strpbrkUTF8(const char *string, const char *set) STRLIB_PURE STRLIB_NOTHROW;

/** @} */

/**
 * @defgroup arithmetic String arithmetic
 *
 * A string is read as a number in base 256 whose last byte is the least significant digit.
 * @{
 */

/**
 * @brief Subtracts the last four bytes of a string from those of another.
 *
 * `"b", "a" -> 1`, `"BA", "AA" -> 256`, `"", "a" -> -97`, `"\x80", "" -> -128`
 * @param first A string, not null.
 * @param second A string, not null.
 * @return The sum of (A - B) * 256^k modulo 2^32 over the positions k = 0 to 3 from the end, A and B being the signed
 *         bytes there, 0 where a string is shorter. Bytes further from the end take no part.
 */
int32_t string_operator_diff(const char *first, const char *second) STRLIB_PURE STRLIB_NONNULL(1, 2) STRLIB_NOTHROW;

/**
 * @brief Adds an integer to a string, byte by byte from the end and without carry.
 *
 * The lowest byte of the addend is added to the last byte of the source, modulo 256, the next byte to the one before
 * it, and so on. The addend is shifted arithmetically; once a shift leaves 0 or -1, nothing more is added. A source
 * shorter than four bytes grows to the front for as long as anything of the addend is left. A byte that becomes 0 ends
 * the result like any NUL.
 *
 * `"a" + 1 -> "b"`, `"a" + 256 -> "\x01" "a"`, `"ab" + 257 -> "bc"`, `"a" + -1 -> "\x60"`, `"\xFF" + 1 -> ""`
 * @param destination Room for the source's length plus 1 bytes and for at least 5, not null. May be the source itself;
 *        any other overlap is out of contract.
 * @param source A string, not null.
 * @param addend The integer to add.
 * @return The destination.
 */
char *string_operator_add(char *destination, const char *source, int32_t addend) STRLIB_NONNULL(1, 2) STRLIB_NOTHROW;

/** @} */

#ifdef __cplusplus
}
#endif

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif

#endif
