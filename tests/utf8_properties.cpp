#include "support/property.h"

using namespace tests;

static char byteBetween(Choices &choices, int32_t first, int32_t last) {
    return static_cast<char>(choices.between(first, last));
}

// A lead byte and what belongs to it, up to `longest` bytes.
static std::string sequence(Choices &choices, int32_t longest) {
    static constexpr int32_t leads[] = {0x01, 0x80, 0xC0, 0xE0, 0xF0, 0xF8, 0xFC, 0xFE};
    const int32_t length = choices.between(1, longest);
    std::string text(1, byteBetween(choices, leads[length > 1 ? length : 0], leads[length + 1 - (length == 1)] - 1));
    while (std::ssize(text) < length) text += byteBetween(choices, 0x80, 0xBF);
    return text;
}

// Any bytes, or a sequence, broken in half of the rounds, with any bytes behind it.
static std::string character(Choices &choices) {
    std::string text = choices.text("a\x80\xBF\xC0\xC1\xC2\xE2\xF0\xF4\xF8\xFC\xFE", 4);
    if (!choices.isLong() || choices.below(4) == 0) return text;
    std::string start = sequence(choices, 6);
    if (choices.flag()) start[choices.below(start.size())] = byteBetween(choices, 1, 255);
    if (choices.below(4) == 0) return start.substr(0, choices.below(start.size()) + 1);
    return start + text;
}

// How many bytes of the character are there, its lead byte and those of its form.
static size_t intact(const std::string &text) {
    size_t count = 1;
    while (count < text.size() && static_cast<uint8_t>(text[count]) / 64 == 2) ++count;
    return std::min(count, text.size());
}

static const Property encoding("encoding", [](Choices &choices) {
    const uint64_t power = uint64_t{1} << choices.below(33);
    auto codePoint = static_cast<uint32_t>(power - choices.below(3));
    if (choices.steers()) codePoint = choices.below(UINT32_MAX) >> choices.below(22);
    const std::string expected = model::encode(codePoint) + '\0';
    char *const buffer = region(0).room(expected.size(), choices.placement());
    requireEqual(unicodeToUtf8(codePoint, buffer), codePoint > INT32_MAX ? 0 : std::ssize(expected) - 1, "length");
    requireBytes(0, expected);
    choices.outcome("four bytes", 3, expected.size() == 5);
    choices.outcome("five bytes", 9, expected.size() == 6);
    choices.outcome("six bytes", 8, expected.size() == 7);
    choices.outcome("no sequence", 1, codePoint > INT32_MAX);
});

static const Property decoding("decoding", [](Choices &choices) {
    const std::string text = character(choices);
    const model::Decoded expected = model::decode(text, 4711);
    const char *const input = string(choices, 0, text);
    uint32_t codePoint = 4711;
    int32_t length = -1;
    const char *const next = utf8ToUnicode(input, &codePoint, &length);
    requireEqual(next - input, std::max(expected.length, 1), "bytes used");
    requireEqual(length, expected.length, "length");
    requireEqual(codePoint, expected.codePoint, "code point");
    choices.outcome("four bytes", 3, length == 4);
    choices.outcome("five bytes and more", 6, length >= 5);
    choices.outcome("broken behind the second byte", 2, length == 0 && intact(text) > 2);
    choices.outcome("ended by the NUL", 2, length == 0 && intact(text) == text.size() && text.size() > 1);
});

static const Property reading("reading", [](Choices &choices) {
    const std::string text = character(choices);
    const model::Character expected = model::readCharacter(text);
    const char *const input = string(choices, 0, text);
    char *const copy = region(1).room(5, choices.placement());
    int32_t valid = -1;
    requirePosition(utf8ReadChar(input, &valid, copy), input, expected.advance);
    requireEqual(valid, expected.valid, "validity");
    requireBytes(1, expected.copy);
    requirePosition(utf8ReadChar(input, nullptr, nullptr), input, expected.advance);
    choices.outcome("three bytes and more", 6, expected.valid && expected.advance >= 3);
    choices.outcome("broken behind the second byte", 2, !expected.valid && expected.copy.size() > 1);
});

static const Property characterSetSearch("character set search", [](Choices &choices) {
    std::string text = choices.text("a\xC3\xA9\xE2\x82", 4);
    std::string set = choices.text("ab\xC3\xA9\xE2\x82\xF0\xF8", 4);
    std::string member;
    if (choices.isLong() && choices.below(4) != 0) {
        set.clear();
        for (uint32_t members = choices.below(5) + 1; members != 0; --members) set += member = sequence(choices, 4);
        if (choices.flag()) set += choices.pick(std::string_view("\x80\xF8\xE2\xC3"));
        if (choices.flag()) plant(choices, text, set);
        text.insert(choices.below(text.size() + 1), member.substr(0, member.size() - choices.below(2)));
    }
    const size_t expected = model::findAnyCharacter(text, set);
    const char *const start = string(choices, 0, text);
    requirePosition(TQANSI_strpbrkUTF8(start, string(choices, 1, set)), start, expected);
    const bool found = expected != model::none;
    choices.outcome("two bytes and more, behind byte 16", 3, found && expected > 16 && member.size() >= 2);
    choices.outcome("before the set is seen to be broken", 3,
                    found && expected == 0 && static_cast<uint8_t>(set.back()) >= 0x80);
    choices.outcome("nowhere, although it begins", 15,
                    !found && member.size() > 1 && text.find(member[0]) != model::none);
});
