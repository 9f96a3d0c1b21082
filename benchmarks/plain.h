#ifndef BENCHMARKS_PLAIN_H
#define BENCHMARKS_PLAIN_H

#include <strlib.h>

// The loops that one would write without a second thought, compiled like the library. None tests for null. Each has the
// signature of the routine that it stands for.
namespace plain {

decltype(TQANSI_strlen) length, isBlank, readInteger;
decltype(TQANSI_strcpy) copy, copyToEnd, append;
decltype(TQANSI_strncpy) copyUpTo, appendUpTo, add;
decltype(TQANSI_memset) fill;
decltype(TQANSI_strcmp) compare, compareFolded, subtract;
decltype(TQANSI_strncmp) compareUpTo, compareFoldedUpTo;
decltype(customStricmp) collate;
decltype(TQANSI_memcmp) compareBytes;
decltype(TQANSI_strchr) find, findLast;
decltype(TQANSI_memchr) findByte;
decltype(TQANSI_strpbrk) findAny, findString, findStringFolded, findAnyCharacter;
decltype(TQANSI_toupper) toUpper, isLetter, isDigit;
decltype(TQ_isAttribute) hasAttribute;
decltype(TQ_convertZstring) convert;
decltype(X_TAMBRO_gets) readLine;
decltype(TQ_strtoken) findToken;
decltype(TQ_strtoklen) measureToken;
decltype(unicodeToUtf8) encode;
decltype(utf8ToUnicode) decode;
decltype(utf8ReadChar) readCharacter;

// The length of a text, for comparison with searches in it.
decltype(TQANSI_strstr) passOver;
decltype(X_TAMBRO_gets) passOverLine;

}  // namespace plain

#endif
