#ifndef GAZETTEER_ARGUMENTS_H
#define GAZETTEER_ARGUMENTS_H

#include <cstdint>

// The slots of an argument vector for TQ_sprintf and TQ_sscanf.
inline intptr_t slot(int32_t value) { return value; }
inline intptr_t slot(const char *string) { return reinterpret_cast<intptr_t>(string); }
inline intptr_t slot(int32_t *destination) { return reinterpret_cast<intptr_t>(destination); }

#endif
