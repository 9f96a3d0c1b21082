// Each function in two forms: through the face, and as one would write it with the routine alone. The code of the first
// must not be longer than that of the second.
#include <strlib.hpp>

using Line = char (&)[32];
using Word = char (&)[8];

static intptr_t slot(const void *address) { return reinterpret_cast<intptr_t>(address); }

extern "C" {
size_t faceFormat(Line line, const char *text, int32_t value) {
    return strlib::format(line, "%d|%s", value, text).size();
}
size_t handFormat(Line line, const char *text, int32_t value) {
    const intptr_t slots[] = {value, slot(text)};
    return static_cast<size_t>(TQ_sprintf(line, sizeof line, "%d|%s", slots)) - 1;
}

int32_t faceScan(const char *text, int32_t &number, Word word) { return strlib::scan(text, "%i %8s", number, word); }
int32_t handScan(const char *text, int32_t &number, Word word) {
    const intptr_t slots[] = {slot(&number), slot(word)};
    return TQ_sscanf(text, "%i %8s", slots);
}

void faceCopy(Line line, const char *text) { strlib::copy(line, text); }
void handCopy(Line line, const char *text) { TQANSI_strncpy(line, text, sizeof line - 1); }

const char *faceLine(Line line, const char *text) {
    strlib::nextLine(line, text);
    return text;
}
const char *handLine(Line line, const char *text) {
    if (*text == 0) return text;
    text += X_TAMBRO_gets(line, sizeof line - 1, text);
    return *text != 0 ? text + 1 : text;
}

size_t faceToken(const char *text) {
    const auto token = strlib::nextToken(text, ",");
    return token ? token->size() : 0;
}
size_t handToken(const char *text) {
    char *end;
    const char *const token = TQ_strtoken(text, ",", &end);
    return token != nullptr ? static_cast<size_t>(end - token) : 0;
}
}
