#pragma once

#include <cstdint>

/** Loops as a user would write them where no library offers the routine, compiled apart so that they are called. */
namespace plain {

int32_t compareCollated(const char *first, const char *second, const uint8_t *collation);
bool isBlank(const char *string);
bool hasAttribute(uint32_t mask, const uint8_t *attributes, int32_t byte);
void convert(const uint8_t *conversion, char *string);
char *findUtf8(char *string, const char *set);
int32_t difference(const char *first, const char *second);
char *add(char *destination, const char *source, int32_t addend);

}  // namespace plain
