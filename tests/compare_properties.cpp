#include "support/property.h"

using namespace tests;

static size_t commonPrefix(const std::string &a, const std::string &b) {
    return static_cast<size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
}

// A second text that often agrees with the first for a long way, to its end, or but for the case of letters.
static std::string related(Choices &choices, const std::string &text, bool folded) {
    if (!choices.steers()) {
        const std::string other = choices.text(alphabet, 2);
        return text.substr(0, choices.flag() ? choices.below(text.size() + 1) : 0) + other;
    }
    std::string other = text;
    if (!other.empty() && choices.flag()) other[choices.below(other.size())] = choices.pick(alphabet);
    return folded ? recased(choices, other, 2) : other;
}

static const Property comparison("comparison", [](Choices &choices) {
    const std::string a = choices.text(alphabet, 2);
    const bool folded = choices.flag();
    const std::string b = related(choices, a, folded);
    const char *first = string(choices, 0, a);
    const char *second = string(choices, 1, b);
    const auto compared = [&](int32_t count) {
        return folded ? model::compare(model::lowered(a), model::lowered(b), count) : model::compare(a, b, count);
    };
    const int32_t expected = compared(INT32_MAX);
    requireEqual(folded ? TQANSI_stricmp(first, second) : TQANSI_strcmp(first, second), expected, "difference");
    if (!folded) requireEqual(customStricmp(first, second, nullptr), expected, "difference without a table");

    const int32_t count = choices.between(-2, std::ssize(a.size() < b.size() ? b : a) + 2);
    first = bounded(choices, 0, a, std::abs(count));
    second = bounded(choices, 1, b, std::abs(count));
    const int32_t within = compared(count);
    requireEqual(folded ? TQANSI_strnicmp(first, second, count) : TQANSI_strncmp(first, second, count), within,
                 "bounded difference");
    choices.outcome("exact, different behind byte 16", 3, !folded && expected != 0 && commonPrefix(a, b) > 16);
    choices.outcome("folded, different, and not before byte 16", 3, folded && expected != 0 && compared(16) == 0);
    choices.outcome("equal", 10, expected == 0);
    choices.outcome("equal but for case", 3, a != b && expected == 0);
    choices.outcome("alike within the count only", 6, count > 0 && within == 0 && expected != 0);
});

static const Property rangeComparison("range comparison", [](Choices &choices) {
    static constexpr std::string_view bytes("\0a\x80\xFF", 4);
    const std::string a = choices.text(bytes, 4);
    std::string b = a;
    for (uint32_t changes = choices.below(3); changes != 0 && !b.empty(); --changes)
        b[choices.below(b.size())] = choices.pick(bytes);
    const int32_t expected = model::compareRanges(a, b);
    const char *const first = region(0).place(a, choices.placement());
    const char *const second = region(1).place(b, choices.placement());
    requireEqual(TQANSI_memcmp(first, second, static_cast<uint32_t>(a.size())), expected, "difference");
    choices.outcome("different behind byte 16", 7, expected != 0 && commonPrefix(a, b) > 16);
    choices.outcome("alike for more than 16 bytes", 9, expected == 0 && a.size() > 16);
    choices.outcome("different behind a NUL", 7, expected != 0 && a.find('\0') < commonPrefix(a, b));
});

// Tables that fold a letter and move others to the negative bytes. One ends strings at an ordinary byte, one folds all
// letters.
enum Kind { plain, ending, folding, kinds };
static constexpr auto tables = [] {
    std::array<std::array<uint8_t, 256>, kinds> of = {};
    for (auto &table : of) {
        for (uint32_t i = 0; i < 256; ++i) table[i] = static_cast<uint8_t>(i * 7);
        table['A'] = table['a'] = 0x90;
    }
    of[ending]['z'] = 0;
    for (uint32_t letter = 'A'; letter <= 'Z'; ++letter) of[folding][letter] = of[folding][letter + 0x20];
    return of;
}();

static const Property collation("collation", [](Choices &choices) {
    const std::string a = choices.text(alphabet, 3);
    const std::string b = related(choices, a, true);
    const uint32_t kind = choices.below(kinds);
    const uint8_t *const table = tables[kind].data();
    const int32_t expected = model::collate(a, b, table);
    requireEqual(customStricmp(string(choices, 0, a), string(choices, 1, b), table), expected, "difference");
    choices.outcome("equal, though not the same", 5, expected == 0 && a != b);
    choices.outcome("ended by a mapped byte", 1, kind == ending && expected == 0 && a.find('z') <= commonPrefix(a, b));
    choices.outcome("equal but for case behind byte 16", 2,
                    kind == folding && expected == 0 && a != b && a.size() > 16);
    choices.outcome("different behind byte 16", 3, expected != 0 && commonPrefix(a, b) > 16);
});
