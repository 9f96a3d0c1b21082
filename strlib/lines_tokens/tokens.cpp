#include <strlib.h>

#include "detail/byte_set.h"

using namespace strlib;

namespace {

// The first token of a string; the end is looked for only where it is wanted.
struct Token {
    const uint8_t *first;
    const uint8_t *end;
};

Token findToken(const char *string, const char *delimiters, bool endWanted) {
    if (isEmpty(string) || delimiters == nullptr) return {nullptr, nullptr};
    return withSet(bytesOf(delimiters), [=](const auto &set) -> Token {
        const uint8_t *const first = set.skip(bytesOf(string));
        if (*first == 0) return {nullptr, nullptr};
        return {first, endWanted ? set.find(first + 1) : first};
    });
}

}  // namespace

char *TQ_strtoklen(const char *string, const char *delimiters, uint16_t *length) {
    const Token token = findToken(string, delimiters, length != nullptr);
    if (length != nullptr) *length = static_cast<uint16_t>(token.end - token.first);
    return resultAt(token.first);
}

char *TQ_strtoken(const char *string, const char *delimiters, char **end) {
    const Token token = findToken(string, delimiters, end != nullptr);
    if (end != nullptr && token.first != nullptr) *end = resultAt(token.end);
    return resultAt(token.first);
}
