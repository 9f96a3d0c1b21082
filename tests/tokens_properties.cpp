#include <strlib.h>

#include "support/property.h"

namespace tests {

namespace {

const Property lines("lines", [](Choices &choices) {
    std::string text = choices.text("ab\r\n\x80", 6);
    if (choices.steers()) plant(choices, text, "\n");
    const auto size = static_cast<size_t>(choices.between(1, 6)) * (choices.flag() ? 1 : 16);
    const model::Line expected = model::line(text, size);
    const bool isFull = expected.content.size() == size;
    const size_t readable = isFull ? expected.stop + 1 : text.size() + 1;
    const char *const source = region(0).place(std::string_view(text.c_str(), readable), choices.placement());
    char *const destination = region(1).room(size + 1, choices.placement());
    requireEqual(X_TAMBRO_gets(destination, static_cast<int32_t>(size), source), static_cast<int32_t>(expected.stop),
                 "stop");
    requireBytes(1, expected.content + '\0');
    choices.outcome("full behind byte 16", 2, isFull && expected.stop > 16);
    choices.outcome("full before byte 8", 10, isFull && expected.stop < 8);
    choices.outcome("ended by a line feed behind byte 16", 2, text[expected.stop] == '\n' && expected.stop > 16);
    choices.outcome("with a carriage return left out", 8, expected.content.size() < expected.stop && !isFull);
});

const Property tokens("tokens", [](Choices &choices) {
    std::string text = choices.text(", ;ab\xFF", 5);
    std::string set = choices.text(",; \xFF-", 3);
    if (choices.steers()) {
        set.resize(choices.below(9), 'q');
        plant(choices, text, set);
        text = choices.text(set.empty() ? "," : set, 0).substr(0, choices.below(40)) + text;
    }
    const char *const start = string(choices, 0, text);
    const char *const delimiters = string(choices, 1, set);
    const model::Token expected = model::token(text, set);
    const bool found = expected.first != model::none;
    uint16_t length = 999;
    char marker = 0;
    char *end = &marker;
    requirePosition(TQ_strtoklen(start, delimiters, &length), start, expected.first);
    requirePosition(TQ_strtoken(start, delimiters, &end), start, expected.first);
    requireEqual(length, static_cast<uint16_t>(found ? expected.end - expected.first : 0), "length");
    require(end == (found ? start + expected.end : &marker), "end");
    requirePosition(TQ_strtoklen(start, delimiters, nullptr), start, expected.first);
    requirePosition(TQ_strtoken(start, delimiters, nullptr), start, expected.first);
    choices.outcome("behind more than 16 delimiters", 4, found && expected.first > 16);
    choices.outcome("of more than 16 bytes, with a delimiter behind", 6,
                    found && expected.end - expected.first > 16 && expected.end < text.size());
    choices.outcome("none", 6, !found);
});

}  // namespace

}  // namespace tests
