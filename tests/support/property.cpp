#include "property.h"

#include <cctype>
#include <cstdio>

namespace tests {

namespace {

std::string lastArguments() {
    std::string text;
    for (int i = 0; i < 3; ++i) {
        text += "\n ";
        for (const char byte : region(i).content().substr(0, 80)) {
            char digits[4];
            std::snprintf(digits, sizeof digits, " %02x", static_cast<uint8_t>(byte));
            text += digits;
        }
    }
    return text;
}

}  // namespace

bool Property::holds(Choices &choices) const {
    try {
        check_(choices);
        return true;
    } catch (const std::exception &failure) {
        std::fprintf(stderr, "FAILED %s: %s%s\n", name, failure.what(), lastArguments().c_str());
        return false;
    }
}

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

void requireNothingAround(int index, size_t size) { requireBytes(index, region(index).content().substr(0, size)); }

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
    if (choices.below(4) != 0) text[choices.below(text.size())] = choices.pick(set);
}

std::string recased(Choices &choices, std::string text, uint32_t oneIn) {
    for (char &byte : text) {
        if (std::isalpha(static_cast<uint8_t>(byte)) != 0 && choices.below(oneIn) == 0) byte ^= 0x20;
    }
    return text;
}

std::string numeral(Choices &choices) {
    std::string text = choices.pick({"", "", "-", "-", "0x", "+"});
    const std::string_view digits = "0123456789", hexadecimal = "0123456789abcdefABCDEF";
    const std::string_view among =
        text == "0x" ? hexadecimal : choices.pick({digits, digits, digits.substr(0, 1), hexadecimal});
    for (uint32_t rest = choices.below(choices.pick({4u, 14u})); rest != 0; --rest) text += choices.pick(among);
    return text;
}

}  // namespace tests
