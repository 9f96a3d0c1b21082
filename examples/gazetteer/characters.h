#ifndef GAZETTEER_CHARACTERS_H
#define GAZETTEER_CHARACTERS_H

#include <cstdint>

// Whether a text is UTF-8 in the strict sense: shortest forms only, no surrogates, nothing above U+10FFFF.
bool isUtf8(const char *text);

// Whether a UTF-8 text can stand in a table: it holds no control characters and none that turn the writing direction.
bool isPrintable(const char *text);

// The columns that a UTF-8 text takes on a terminal.
int32_t displayWidth(const char *text);

// Copies a UTF-8 text for comparisons: Latin letters without accents, Greek, Cyrillic and Armenian ones small, the
// Greek ones without accents, too. The case of Latin letters is left to routines that fold it. The copy is never longer
// than the source.
void copyPlain(char *destination, const char *source);

#endif
