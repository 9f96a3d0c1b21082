#include "support/property.h"

using namespace tests;

static const Property reading("integer reading", [](Choices &choices) {
    std::string text = choices.text(" \x1F-+0x19aFg\x80X", 5);
    if (choices.steers()) {
        text = choices.text(" \t\x01", 0).substr(0, choices.below(4)) + numeral(choices) + text;
        if (choices.below(4) == 0) text.resize(text.find_last_of("0123456789abcdefABCDEF") + 1);
    }
    const int32_t expected = model::readInteger(text);
    requireEqual(TQANSI_atoi(string(choices, 0, text)), expected, "value");
    const std::string rest = text.substr(std::min(text.find_first_not_of(" \t\x01\x1F"), text.size()));
    const size_t sign = rest.starts_with('-');
    const size_t end = std::min(rest.find_first_not_of("0123456789", sign), rest.size());
    choices.outcome("hexadecimal", 3, rest.starts_with("0x") && expected != 0);
    choices.outcome("negative", 3, sign != 0 && expected != 0);
    choices.outcome("ten digits and more", 3, end - sign >= 10);
    choices.outcome("ended by the NUL", 2, end == rest.size() && end != 0);
});

// Numbers of every length, and around the powers of ten, where texts become longer.
static int32_t anyInteger(Choices &choices) {
    if (choices.steers()) return static_cast<int32_t>(choices.below(UINT32_MAX)) >> choices.below(32);
    if (choices.flag()) return choices.pick({0, 42, -1234, 65535, -65536, INT32_MAX, -INT32_MAX, INT32_MIN});
    int32_t power = 1;
    for (uint32_t zeros = choices.below(10); zeros != 0; --zeros) power *= 10;
    return (power - choices.between(0, 1)) * choices.pick({1, -1});
}

static const Property writing("integer writing", [](Choices &choices) {
    const int32_t value = anyInteger(choices);
    int32_t radix = choices.pick({10, 10, 10, 10, 10, 16, 2, 36, 3, 7, 8, 35, 37, 1, 0, -1, -10, INT32_MIN});
    if (choices.steers()) radix = choices.between(2, 36);
    int32_t size = choices.between(1, 14) * (choices.below(3) == 0 ? 3 : 1);
    const auto whole = model::writtenInteger(value, 40, radix);
    if (whole && choices.steers()) size = static_cast<int32_t>(whole->size()) + choices.between(0, 1);
    const auto expected = model::writtenInteger(value, size, radix);
    char *const buffer = region(0).room(static_cast<size_t>(size), choices.placement());
    require(TQANSI_itoa(value, buffer, size, radix) == (expected ? buffer : nullptr), "result");
    require(expected.value_or("") == buffer, "text");
    // What is left behind a text that does not fit may be anything.
    if (expected) requireBytes(0, *expected + '\0');
    requireNothingAround(0, static_cast<size_t>(size));
    choices.outcome("just fits", 10, expected && std::ssize(*expected) + 1 == size);
    choices.outcome("one byte too long", 10, whole && !expected && std::ssize(*whole) == size);
    choices.outcome("with a sign", 2, expected && expected->starts_with('-'));
    choices.outcome("negative, without a sign", 9, expected && value < 0 && radix != 10);
    choices.outcome("in a radix that is none", 8, !whole);
});
