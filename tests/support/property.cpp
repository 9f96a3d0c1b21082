#include "property.h"

#include <algorithm>
#include <array>

namespace tests {

void require(bool holds, const char *what) {
    if (!holds) throw std::runtime_error(what);
}

void requireEqual(int64_t actual, int64_t expected, const char *what) {
    if (actual == expected) return;
    throw std::runtime_error(what + (": " + std::to_string(actual)) + ", expected " + std::to_string(expected));
}

void requirePosition(const char *result, const char *start, size_t expected) {
    requireEqual(result == nullptr ? -1 : result - start, expected == model::none ? -1 : static_cast<int64_t>(expected),
                 "position");
}

void requireBytes(int index, const std::string &expected) {
    if (region(index).holds(expected)) return;
    throw std::runtime_error("stored bytes: " + region(index).content() + ", expected " + expected);
}

char *string(Choices &choices, int index, const std::string &bytes) {
    return region(index).place(std::string_view(bytes.c_str(), bytes.size() + 1), choices.placement());
}

char *bounded(Choices &choices, int index, const std::string &bytes, int64_t count) {
    const size_t readable = std::min<size_t>(bytes.size() + 1, static_cast<size_t>(std::max<int64_t>(count, 0)));
    return region(index).place(std::string_view(bytes.c_str(), readable), choices.placement());
}

void plant(Choices &choices, std::string &text, const std::string &set) {
    char other = 1;
    while (other != 0 && set.find(other) != std::string::npos) ++other;
    if (other == 0 || set.empty() || text.empty()) return;
    for (char &byte : text) {
        if (set.find(byte) != std::string::npos) byte = other;
    }
    if (choices.below(4) != 0) text[choices.below(static_cast<uint32_t>(text.size()))] = choices.pick(set);
}

std::string numeral(Choices &choices) {
    static constexpr std::array<const char *, 6> starts = {"", "", "-", "-", "0x", "+"};
    static constexpr std::array<std::string_view, 4> digits = {"0123456789", "0123456789", "0",
                                                               "0123456789abcdefABCDEF"};
    std::string text = choices.pick(starts);
    const std::string_view among = text == "0x" ? digits[3] : choices.pick(digits);
    for (uint32_t rest = choices.below(choices.pick(std::array{4u, 14u})); rest != 0; --rest)
        text += choices.pick(among);
    return text;
}

std::string lastArguments() {
    std::string text;
    for (int i = 0; i < 3; ++i) {
        text += "\n ";
        for (const char byte : region(i).content().substr(0, 80)) {
            static constexpr char digits[] = "0123456789abcdef";
            const auto value = static_cast<uint8_t>(byte);
            text += {' ', digits[value / 16], digits[value % 16]};
        }
    }
    return text;
}

}  // namespace tests
