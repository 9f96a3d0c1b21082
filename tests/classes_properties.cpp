#include "support/property.h"

using namespace tests;

static const Property classes("classes", [](Choices &choices) {
    const int32_t byte = choices.between(0, 255);
    const int32_t value = byte + choices.pick({0, 256, -256, 0x7FFFFF00, INT32_MIN});
    const auto isIn = [&](std::string_view bytes) { return bytes.find(static_cast<char>(byte)) != bytes.npos; };
    const bool isSmall = isIn("abcdefghijklmnopqrstuvwxyz");
    const bool isLetter = isSmall || isIn("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    const bool isDigit = isIn("0123456789");
    requireEqual(TQANSI_isalpha(value), isLetter, "letter");
    requireEqual(TQANSI_isdigit(value), isDigit, "digit");
    requireEqual(TQANSI_toupper(value), value == byte && isSmall ? value - 32 : value, "capital");

    std::array<uint8_t, 256> attributes = {};
    attributes[static_cast<size_t>(byte)] = 0x81;
    const uint32_t mask = choices.pick({0x101u, 0xFFFFFF80u, 0xFFFFFF7Eu, 0u});
    requireEqual(TQ_isAttribute(mask, attributes.data(), value), (mask & 0x81) != 0, "attribute");
    requireEqual(TQ_isAttribute(mask, attributes.data(), value ^ 0x10), 0, "attribute of another byte");
    choices.outcome("a letter", 10, isLetter);
    choices.outcome("a digit", 1, isDigit);
});

static const Property blankLine("blank line", [](Choices &choices) {
    std::string text = choices.text("\x01 \t\r\n\x1F!\x7F\x80", 4);
    if (choices.steers()) {
        text.assign(text.size(), static_cast<char>(choices.between(1, 32)));
        plant(choices, text, "!\x7F\x80\xFF");
    }
    const bool expected = model::isBlankLine(text);
    requireEqual(TQ_isBlankLine(string(choices, 0, text)), expected, "blank");
    choices.outcome("more than 16 blanks", 4, expected && text.size() > 16);
    choices.outcome("more than 16 blanks and another byte", 6,
                    !expected && text.size() > 16 && model::isBlankLine(text.substr(0, 16)));
});

// A table that folds a letter, moves others to the negative bytes and ends strings at an ordinary byte.
static constexpr auto table = [] {
    std::array<uint8_t, 256> bytes = {};
    for (uint32_t i = 0; i < 256; ++i) bytes[i] = static_cast<uint8_t>(i * 7);
    bytes['A'] = bytes['a'] = 0x90;
    bytes['z'] = 0;
    return bytes;
}();

static const Property conversion("conversion", [](Choices &choices) {
    const std::string text = choices.text(alphabet, 4);
    TQ_convertZstring(table.data(), string(choices, 0, text));
    requireBytes(0, model::converted(text, table.data()) + '\0');
    choices.outcome("a NUL within", 10, text.find('z') < text.size() - 1);
});
