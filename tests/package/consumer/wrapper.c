#include <strlib.h>

int32_t wrappedLength(const char *string);

int32_t wrappedLength(const char *string) { return TQANSI_strlen(string); }
