#include "support/property.h"

using namespace tests;

static const Property lines("lines", [](Choices &choices) {
    std::string text = choices.text("ab\r\n\x80", 6);
    if (choices.steers()) plant(choices, text, "\n");
    const size_t size = (1 + choices.below(6)) * choices.pick({16u, 1u});
    const auto [content, stop] = model::line(text, size);
    const bool isFull = content.size() == size;
    const std::string_view readable(text.c_str(), isFull ? stop + 1 : text.size() + 1);
    const char *const source = region(0).place(readable, choices.placement());
    char *const destination = region(1).room(size + 1, choices.placement());
    requirePosition(source + X_TAMBRO_gets(destination, static_cast<int32_t>(size), source), source, stop);
    requireBytes(1, content + '\0');
    choices.outcome("full behind byte 16", 2, isFull && stop > 16);
    choices.outcome("full before byte 8", 10, isFull && stop < 8);
    choices.outcome("ended by a line feed behind byte 16", 2, text[stop] == '\n' && stop > 16);
    choices.outcome("with a carriage return left out", 8, content.size() < stop && !isFull);
});

// Into the text itself, at its place or before it: as if byte by byte.
static const Property linesInPlace("lines in place", [](Choices &choices) {
    std::string text = choices.text("ab\r\n\x80", 6);
    if (choices.steers()) plant(choices, text, "\n");
    const size_t size = 1 + choices.below(text.size() + 1);
    const auto [content, stop] = model::line(text, size);
    const size_t before = choices.isLong() ? choices.below(48) : choices.below(3);
    std::string image = std::string(before, Region::filler) + text + std::string(2, '\0');
    char *const destination = region(0).place(image, choices.placement());
    char *const source = destination + before;
    requirePosition(source + X_TAMBRO_gets(destination, static_cast<int32_t>(size), source), source, stop);
    requireBytes(0, image.replace(0, content.size() + 1, content + '\0'));
    choices.outcome("closely before a line of more than 64 bytes", 1, before < 32 && content.size() > 64);
    choices.outcome("with a carriage return left out", 8, content.size() < stop);
    choices.outcome("full", 20, content.size() == size);
});

static const Property tokens("tokens", [](Choices &choices) {
    std::string text = choices.text(", ;ab\xFF", 5);
    std::string set = choices.text(",; \xFF-", 3);
    if (choices.steers()) {
        set.resize(choices.below(9), 'q');
        plant(choices, text, set);
        text = choices.text(set.empty() ? "," : set, 0).substr(0, choices.below(40)) + text;
    }
    const char *const start = string(choices, 0, text);
    const char *const delimiters = string(choices, 1, set);
    const auto [first, last] = model::token(text, set);
    const bool found = first != model::none;
    uint16_t length = 999;
    char marker = 0;
    char *end = &marker;
    requirePosition(TQ_strtoklen(start, delimiters, &length), start, first);
    requirePosition(TQ_strtoken(start, delimiters, &end), start, first);
    requireEqual(length, static_cast<uint16_t>(found ? last - first : 0), "length");
    require(end == (found ? start + last : &marker), "end");
    requirePosition(TQ_strtoklen(start, delimiters, nullptr), start, first);
    requirePosition(TQ_strtoken(start, delimiters, nullptr), start, first);
    choices.outcome("behind more than 16 delimiters", 4, found && first > 16);
    choices.outcome("of more than 16 bytes, with a delimiter behind", 6,
                    found && last - first > 16 && last < text.size());
    choices.outcome("none", 6, !found);
});
