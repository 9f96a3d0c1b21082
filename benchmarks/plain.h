#ifndef BENCHMARKS_PLAIN_H
#define BENCHMARKS_PLAIN_H

#include <stdint.h>

// The loops that one would write without a second thought, compiled like the library. None tests for null.
namespace plain {

int32_t length(const char *string);
char *copy(char *destination, const char *source);
char *copyUpTo(char *destination, const char *source, int32_t count);
char *append(char *destination, const char *source);
char *appendUpTo(char *destination, const char *source, int32_t count);
char *copyToEnd(char *destination, const char *source);
void *fill(void *destination, int32_t byte, uint32_t count);
int32_t compare(const char *first, const char *second);
int32_t compareUpTo(const char *first, const char *second, int32_t count);
int32_t compareFolded(const char *first, const char *second);
int32_t compareFoldedUpTo(const char *first, const char *second, int32_t count);
int32_t collate(const char *first, const char *second, const uint8_t *collation);
int32_t compareBytes(const void *first, const void *second, uint32_t count);
char *find(const char *string, int32_t byte);
char *findLast(const char *string, int32_t byte);
void *findByte(const void *range, int32_t byte, uint32_t count);
char *findAny(const char *string, const char *set);
char *findString(const char *string, const char *substring);
char *findStringFolded(const char *string, const char *substring);
int32_t toUpper(int32_t character);
int32_t isLetter(int32_t character);
int32_t isDigit(int32_t character);
int32_t isBlank(const char *string);
int32_t hasAttribute(uint32_t mask, const uint8_t *attributes, int32_t byte);
void convert(const uint8_t *conversion, char *string);
int32_t readInteger(const char *text);
int32_t readLine(char *destination, int32_t size, const char *source);
char *findToken(const char *string, const char *delimiters, char **end);
char *measureToken(const char *string, const char *delimiters, uint16_t *length);
int32_t encode(uint32_t codePoint, char *buffer);
char *decode(const char *input, uint32_t *codePoint, int32_t *length);
char *readCharacter(const char *input, int32_t *valid, char *character);
char *findAnyCharacter(const char *string, const char *set);
int32_t subtract(const char *first, const char *second);
char *add(char *destination, const char *source, int32_t addend);

// The length of a text, for comparison with searches in it.
char *passOver(const char *string, const char *);
int32_t passOverLine(char *, int32_t, const char *source);

}  // namespace plain

#endif
