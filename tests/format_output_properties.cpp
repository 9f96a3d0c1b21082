#include "support/property.h"

using namespace tests;

static std::string item(Choices &choices) {
    switch (choices.below(6)) {
        case 0: return choices.text("ab \x80", 0).substr(0, choices.below(24));
        case 1: return choices.pick({"\\r", "\\t", "\\n", "\\q", "\\\\", "\\%"});
        case 2: return choices.pick({"%%", "%x", "%\\", "%-", "% ", "%1", "%n"});
        default:
            return std::string(1, '%') + choices.pick({"", "", "", "", "3", "7", "11", "05", "0000001", "12345679"}) +
                   choices.pick({'d', 's', 'c'});
    }
}

static std::string formatFor(Choices &choices) {
    std::string format;
    if (!choices.isLong() || choices.below(4) == 0) return choices.text("%dsc13\\nx", 4);
    for (uint32_t items = choices.below(10); items != 0; --items) format += item(choices);
    return format;
}

static const Property formattedOutput("formatted output", [](Choices &choices) {
    const std::string format = formatFor(choices);
    const char *const longer = string(choices, 2, choices.isLong() ? choices.text("cd\xE9", 0) : "efghijklmnop");
    const char *const strings[] = {longer, "cd", "", nullptr};
    const int32_t numbers[] = {7, -12, 12345678, INT32_MIN, 0x100, 999, -1000000000};
    const uint32_t first = choices.below(4);
    // Values for conversions in their order, with bits above those wanted, which do not count.
    std::vector<intptr_t> slots;
    const auto next = [&](char kind) {
        const size_t index = slots.size() + first;
        const char *const text = strings[index % 4];
        const int32_t number = numbers[index * 3 % 7];
        slots.push_back(kind == 's' ? reinterpret_cast<intptr_t>(text)
                                    : static_cast<intptr_t>(number ^ static_cast<int64_t>(uint64_t{0x5A} << 40)));
        if (kind == 's') return std::string(text == nullptr ? "" : text);
        return kind == 'd' ? std::to_string(number) : std::string(1, static_cast<char>(number));
    };
    const std::string whole = model::print(UINT32_MAX, format, next);
    const size_t conversions = slots.size();
    uint32_t size = choices.pick({1u, 3u, 13u, 40u, 100u});
    if (choices.steers()) size = std::max(static_cast<uint32_t>(whole.size()) - 1 + choices.below(15), 1u);
    slots.clear();
    const std::string expected = model::print(size, format, next);
    const bool isCut = slots.size() < conversions;
    slots.resize(conversions);

    char *const destination = region(0).room(size, choices.placement());
    const char *const placed = string(choices, 1, format);
    requireEqual(TQ_sprintf(destination, size, placed, slots.empty() ? nullptr : slots.data()), std::ssize(expected),
                 "result");
    require(std::string_view(destination, expected.size()) == expected, "text");
    requireNothingAround(0, size);
    choices.outcome("three conversions and more, none left out for want of room", 9,
                    conversions >= 3 && expected == whole && whole.size() > 1);
    choices.outcome("conversions left out, and more stored behind", 6, !isCut && expected.size() + 1 < whole.size());
    choices.outcome("ended by a byte that does not fit", 5, isCut);
    choices.outcome("all stored, and the destination full", 2, expected == whole && size == whole.size());
    choices.outcome("more than 32 bytes", 4, expected.size() > 33);
});
