#include "support/property.h"

using namespace tests;

static bool isDeep(size_t position) { return position != model::none && position > 16; }

static const Property byteSearch("byte search", [](Choices &choices) {
    std::string text = choices.text(alphabet, 4);
    const char byte = choices.pick(std::string(alphabet) + '\0');
    if (byte != 0 && choices.steers()) plant(choices, text, std::string(1, byte));
    const char *const start = string(choices, 0, text);
    const int32_t sought = static_cast<uint8_t>(byte) + choices.pick({0, 0x100, -0x100});
    const size_t first = byte == 0 ? model::none : model::findFirst(text, byte);
    const size_t last = byte == 0 ? model::none : model::findLast(text, byte);
    requirePosition(TQANSI_strchr(start, sought), start, first);
    requirePosition(TQANSI_strrchr(start, sought), start, last);
    choices.outcome("first behind byte 16", 6, isDeep(first));
    choices.outcome("last more than 16 bytes before the end", 6, last != model::none && last + 16 < text.size());
    choices.outcome("first and last apart", 3, first != last);
    choices.outcome("nowhere in more than 16 bytes", 9, first == model::none && text.size() > 16);
});

static const Property rangeSearch("range search", [](Choices &choices) {
    std::string range = choices.text(alphabet, 3) + '\0' + choices.text("aAb\xE1", 2);
    range.resize(choices.below(range.size() + 1));
    const char byte = choices.pick({'\0', 'a', 'A', '\x80'});
    if (choices.steers()) plant(choices, range, std::string(1, byte));
    const char *const start = region(0).place(range, choices.placement());
    const size_t expected = model::findFirst(range, byte);
    const int32_t sought = static_cast<uint8_t>(byte) + (choices.steers() ? 0x300 : 0);
    const auto result = static_cast<const char *>(TQANSI_memchr(start, sought, static_cast<uint32_t>(range.size())));
    requirePosition(result, start, expected);
    // A count beyond the range is as good as the range where the byte is found in it.
    if (result != nullptr) require(TQANSI_memchr(start, sought, UINT32_MAX) == result, "unbounded");
    choices.outcome("found behind byte 16", 8, isDeep(expected));
    choices.outcome("not found, behind a NUL", 7, expected == model::none && range.find('\0') != model::none);
});

static const Property setSearch("set search", [](Choices &choices) {
    std::string text = choices.text(alphabet, 3);
    std::string set = choices.text(alphabet, 2);
    if (choices.steers()) {
        set.resize(choices.below(12) + 1, 'q');
        plant(choices, text, set);
    }
    const size_t expected = text.find_first_of(set);
    const char *const start = string(choices, 0, text);
    requirePosition(TQANSI_strpbrk(start, string(choices, 1, set)), start, expected);
    choices.outcome("one of up to four found behind byte 16", 2, isDeep(expected) && set.size() <= 4);
    choices.outcome("one of more found behind byte 16", 4, isDeep(expected) && set.size() > 4);
    choices.outcome("none in more than 16 bytes", 7, expected == model::none && text.size() > 16);
});

static void requireSubstring(Choices &choices, const std::string &haystack, const std::string &needle) {
    const char *const start = string(choices, 0, haystack);
    const char *const sought = string(choices, 1, needle);
    const size_t exact = haystack.find(needle);
    const size_t folded = model::findFolded(haystack, needle);
    requirePosition(TQANSI_strstr(start, sought), start, exact);
    requirePosition(TQ_stristr(start, sought), start, folded);
    const bool isLong = needle.size() > 4;
    choices.outcome("more than four bytes found behind byte 16", 2, isDeep(exact) && isLong);
    choices.outcome("otherwise where case is ignored", 5, exact != folded && isLong);
    choices.outcome("not found, although it begins alike", 5,
                    folded == model::none && isLong && haystack.find(needle.substr(0, 2)) != model::none);
}

static size_t place(Choices &choices, const std::string &text) { return choices.below(text.size() + 1); }

// Needles that the haystack holds, nearly or wholly.
static const Property substringSearch("substring search", [](Choices &choices) {
    std::string haystack = choices.text("aAb\xE1", 5);
    std::string needle = choices.text("aAb\xE1", 3);
    if (choices.steers())
        haystack.insert(place(choices, haystack), needle);
    else if (choices.flag())
        needle = haystack.substr(place(choices, haystack), place(choices, haystack)) + needle.substr(0, 1);
    if (choices.steers()) needle = recased(choices, needle, 16);
    requireSubstring(choices, haystack, needle);
});

static std::string repeated(const std::string &unit, uint32_t times) {
    std::string text;
    for (; times != 0; --times) text += unit;
    return text;
}

// Haystacks and needles that agree for long at many places, and at some but for one byte.
static const Property periodicSearch("periodic search", [](Choices &choices) {
    const std::string unit = choices.text("aB", 3).substr(0, 40);
    std::string haystack = repeated(unit, choices.pick({3u, 60u})) + choices.text("ab", 4) + unit;
    const std::string start = choices.text("ab", 2);
    std::string needle = start + repeated(unit, choices.pick({1u, 4u, 20u})) + choices.text("ab", 3);
    if (choices.steers()) needle = recased(choices, haystack.substr(place(choices, haystack)), 16);
    if (choices.steers() && !needle.empty()) {
        const size_t end = haystack.size();
        haystack += needle + needle;
        haystack[end + choices.below(needle.size())] = 'x';
        haystack[end + choices.below(2 * needle.size())] = 'x';
    }
    requireSubstring(choices, haystack, needle);
});

// Runs of about the same length with a byte between them, and a first one in which nearly all places mislead.
static const Property searchAmongRuns("search among runs", [](Choices &choices) {
    const auto runs = [&](uint32_t most, char of) {
        std::string text(11 + choices.below(3), of);
        for (uint32_t more = choices.below(most); more != 0; --more)
            text += 'b' + std::string(11 + choices.below(3), of);
        return text;
    };
    const std::string needle = runs(3, choices.pick({'a', 'A'}));
    requireSubstring(choices, std::string(200, 'a') + 'b' + runs(5, 'a'), needle);
});
