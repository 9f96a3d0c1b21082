#include "support/property.h"

using namespace tests;

static const Property difference("string difference", [](Choices &choices) {
    const std::string a = choices.text("\x01z\x7F\x80\xFF", 5);
    const std::string b = choices.text("\x01z\x80", 2);
    const char *const first = string(choices, 0, a);
    const char *const second = string(choices, 1, b);
    requireEqual(string_operator_diff(first, second), model::stringDifference(a, b), "difference");
    requireEqual(string_operator_diff(second, first), model::stringDifference(b, a), "difference the other way");
    const auto [shorter, longer] = std::minmax({a.size(), b.size()});
    choices.outcome("both longer than four bytes", 20, shorter > 4);
    choices.outcome("one of two bytes or fewer", 15, shorter <= 2 && longer > 2);
});

static const Property sum("string sum", [](Choices &choices) {
    const std::string source = choices.text("\x01z\x7F\xFF", 5);
    const uint32_t addend = choices.pick({0x00000000u, 0x01000000u, 0xFF000000u, 0x7F000000u}) |
                            choices.pick({0x000000u, 0x010000u, 0xFF0000u}) |
                            choices.pick({0x0000u, 0x0100u, 0xFF00u, 0xFE00u}) |
                            choices.pick({0x00u, 0x01u, 0xFFu, 0x9Fu});
    const std::string expected = model::stringSum(source, static_cast<int32_t>(addend));
    const size_t room = std::max<size_t>(source.size(), 4) + 1;
    char *const destination = region(0).room(room, choices.placement());
    const bool inPlace = choices.flag();
    if (inPlace) std::memcpy(destination, source.c_str(), source.size() + 1);
    const char *const from = inPlace ? destination : string(choices, 1, source);
    require(string_operator_add(destination, from, static_cast<int32_t>(addend)) == destination, "result");
    require(expected == destination, "sum");
    requireNothingAround(0, room);
    choices.outcome("longer than its source", 9, expected.size() > source.size());
    choices.outcome("shorter than its source", 10, expected.size() < source.size());
    choices.outcome("of more than 16 bytes", 20, expected.size() > 16);
});
