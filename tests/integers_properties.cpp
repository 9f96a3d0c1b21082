#include <strlib.h>

#include <array>

#include "support/property.h"

namespace tests {

namespace {

const Property reading("integer reading", [](Choices &choices) {
    std::string text = choices.text(" \x1F-+0x19aFg\x80X", 5);
    if (choices.steers()) {
        text = choices.text(" \t\x01", 0).substr(0, choices.below(4)) + numeral(choices) + text;
        if (choices.below(4) == 0) text.resize(text.find_last_of("0123456789abcdefABCDEF") + 1);
    }
    const int32_t expected = model::readInteger(text);
    requireEqual(TQANSI_atoi(string(choices, 0, text)), expected, "value");
    const auto digits = [&](size_t from) {
        return text.substr(from, text.find_first_not_of("0123456789", from) - from);
    };
    const size_t start = std::min(text.find_first_not_of(" \t\x01\x1F"), text.size());
    choices.outcome("hexadecimal", 3, text.substr(start, 2) == "0x" && expected != 0);
    choices.outcome("negative", 3, text.substr(start, 1) == "-" && expected != 0);
    choices.outcome("ten digits and more", 3, digits(start + (text[start] == '-')).size() >= 10);
    choices.outcome("ended by the NUL", 2, start < text.size() && digits(start).size() == text.size() - start);
});

int32_t anyInteger(Choices &choices) {
    static constexpr int32_t values[] = {0,      5,       -5,         42,          -42,        123,       -1234,
                                         99999,  1000000, 2147483647, -2147483647, INT32_MIN,  999999999, 1000000000,
                                         -65536, 10,      -100,       -999999999,  -1000000000};
    if (!choices.steers()) return choices.pick(values);
    const uint32_t magnitude = choices.below(UINT32_MAX) >> choices.below(32);
    return static_cast<int32_t>(choices.flag() ? magnitude : -magnitude);
}

const Property writing("integer writing", [](Choices &choices) {
    const int32_t value = anyInteger(choices);
    const int32_t radix =
        choices.steers()
            ? choices.between(2, 36)
            : choices.pick(std::array{10, 10, 10, 10, 10, 16, 2, 36, 3, 7, 8, 35, 37, 1, 0, -1, -10, INT32_MIN});
    int32_t size = choices.between(1, 14) * (choices.below(3) == 0 ? 3 : 1);
    const auto whole = model::writtenInteger(value, 40, radix);
    if (whole && choices.steers()) size = std::max(static_cast<int32_t>(whole->size()) + choices.between(0, 1), 1);
    const auto expected = model::writtenInteger(value, size, radix);
    char *const buffer = region(0).room(static_cast<size_t>(size), choices.placement());
    const char *const result = TQANSI_itoa(value, buffer, size, radix);
    require(result == (expected ? buffer : nullptr), "result");
    require(expected.value_or("") == buffer, "text");
    // Nothing outside in any case.
    requireBytes(0, expected ? *expected + '\0' : std::string(buffer, static_cast<size_t>(size)));
    choices.outcome("just fits", 10, expected && expected->size() + 1 == static_cast<size_t>(size));
    choices.outcome("one byte too long", 10, whole && !expected && whole->size() == static_cast<size_t>(size));
    choices.outcome("with a sign", 2, expected && expected->starts_with('-'));
    choices.outcome("negative, without a sign", 9, expected && value < 0 && radix != 10);
    choices.outcome("in a radix that is none", 8, !whole);
});

}  // namespace

}  // namespace tests
