#include <strlib.h>

#include <algorithm>
#include <array>
#include <bit>

#include "support/property.h"

namespace tests {

namespace {

model::Scan requireScan(Choices &choices, const std::string &input, const std::string &format) {
    const model::Scan expected = model::scan(input, format);

    // Every destination lies in one region, with filler before and behind it.
    std::string image;
    std::vector<size_t> offsets;
    for (const model::Field &field : expected.fields) {
        std::string bytes = field.bytes;
        const bool integer = field.kind == 'i' || field.kind == 'u' || field.kind == 'n';
        if (integer && std::endian::native == std::endian::big) std::reverse(bytes.begin(), bytes.end());
        image.resize((image.size() + 1 + 3) / 4 * 4, Region::filler);
        offsets.push_back(image.size());
        image += bytes;
    }
    // As aligned as integers are, and with room for every byte of the input once more.
    image.resize((image.size() + input.size() + 4) / 4 * 4, Region::filler);
    const char *const start = region(0).room(image.size(), {Placement::atEnd, 0});
    std::vector<intptr_t> slots;
    for (const size_t each : offsets) slots.push_back(reinterpret_cast<intptr_t>(start + each));
    const char *const text = string(choices, 1, input);
    const char *const placed = string(choices, 2, format);
    requireEqual(TQ_sscanf(text, placed, slots.empty() ? nullptr : slots.data()), expected.result, "result");
    requireBytes(0, image);
    return expected;
}

// A part of a format put behind it, and what it matches put behind the input.
void addPair(Choices &choices, std::string &input, std::string &format) {
    const auto escape = choices.pick(std::string_view("rtnq\\%"));
    format += (choices.below(4) == 0 ? "%\\" : "\\") + std::string(1, escape);
    input += escape == 'r' ? '\r' : escape == 't' ? '\t' : escape == 'n' ? '\n' : escape;
}

std::string width(Choices &choices) {
    static constexpr std::array<const char *, 8> widths = {"1",   "2",        "12",       "007",
                                                           "200", "00000019", "10000002", "0000001"};
    return choices.below(5) == 0 ? choices.pick(widths) : "";
}

void addConversion(Choices &choices, std::string &input, std::string &format) {
    format += '%' + width(choices);
    switch (choices.below(6)) {
        case 0: format += 'n'; break;
        case 1:
            format += 'c';
            input += choices.pick(alphabet);
            break;
        case 2: {
            std::string word = choices.text("ab\x7F\xE9", 0);
            std::replace_if(
                word.begin(), word.end(), [](char byte) { return byte >= 1 && byte <= 32; }, 'w');
            format += choices.below(8) != 0 ? "s " : "s";
            input += word + ' ';
            break;
        }
        case 3: {
            const char excluded = choices.pick(std::string_view(",;]^b\xE9"));
            std::string field = choices.text("ab \x80", 0);
            std::replace(field.begin(), field.end(), excluded, 'w');
            format += "[^" + std::string(1, excluded) + ']' + excluded;
            input += field + excluded;
            break;
        }
        default: {
            static constexpr std::array<const char *, 6> sizes = {"", "", "h", "h", "b", "l"};
            format += std::string(choices.pick(sizes)) + choices.pick(std::string_view("iu"));
            input += choices.below(4) == 0 ? numeral(choices) : std::to_string(choices.between(-100000, 100000));
            if (choices.below(8) == 0) return;
            format += ',';
            input += ',';
        }
    }
}

void addItem(Choices &choices, std::string &input, std::string &format) {
    switch (choices.below(10)) {
        case 0: {
            const char byte = choices.pick(std::string_view("xd,\x80"));
            format += (choices.below(4) == 0 ? "%" : "") + std::string(1, byte);
            input += byte;
            break;
        }
        case 1:
            format += choices.flag() ? " " : "\\ ";
            input += choices.text(" \t\r\n", 0).substr(0, choices.below(20));
            break;
        case 2: addPair(choices, input, format); break;
        case 3:
            format += choices.pick(std::array{"%[x", "%h5", "%bd", "%[^ax", "%%"});
            input += format.back();
            break;
        default: addConversion(choices, input, format);
    }
}

// An input drawn together with its format, sometimes with a fault in one of them.
void addMatching(Choices &choices, std::string &input, std::string &format) {
    static constexpr std::array<const char *, 3> escapes = {"\\n", "\\t", "%\\r"};
    input = choices.text(" \n\t", 0).substr(0, choices.below(6));
    // Pairs that may find their bytes among the blanks, which are skipped.
    for (uint32_t pairs = input.empty() ? 0 : choices.below(6); pairs > 3; --pairs) format += choices.pick(escapes);
    for (uint32_t items = choices.below(12); items != 0; --items) addItem(choices, input, format);
    std::string &faulty = choices.flag() ? input : format;
    if (faulty.empty() || choices.below(8) != 0) return;
    faulty[choices.below(static_cast<uint32_t>(faulty.size()))] = choices.pick(alphabet);
}

const Property formattedInput("formatted input", [](Choices &choices) {
    static const std::string inputs[] = {"12 ab-7",
                                         "\n\r 5x",
                                         "x12345 67",
                                         "-0x1F]^",
                                         "300 70000 -1",
                                         "a\\b %c\t\n",
                                         "[n]h",
                                         "\x80"
                                         "5 2n"};
    static const std::string formats[] = {"%i%n",  "%3s%c",   "%[^-]%n", "%2[^ ] %u", "\\n%hi %bi %n",
                                          "%s%3s", "a %i%%x", "\\r\\n5", "%c%c%c%s",  "%1s"};
    std::string input;
    std::string format;
    const uint32_t manner = choices.below(choices.isLong() ? 8 : 2);
    if (manner == 0) {
        format = choices.text("%csiun[^]bhl2\\ x0a", 4);
        input = choices.pick(inputs);
    } else if (manner == 1) {
        format = choices.pick(formats);
        input = choices.text("5a- \n%x0", 5);
    } else {
        addMatching(choices, input, format);
    }
    const model::Scan expected = requireScan(choices, input, format);

    const auto count = [&](auto condition) {
        return std::count_if(expected.fields.begin(), expected.fields.end(), condition);
    };
    const auto narrow = [](const model::Field &field) {
        return (field.kind == 'i' || field.kind == 'u') && field.bytes.size() < 4;
    };
    const auto sets = [](const model::Field &field) { return field.kind == '[' && field.bytes.size() > 1; };
    const auto words = [](const model::Field &field) { return field.kind == 's' && field.bytes.size() > 17; };
    choices.outcome("two conversions and more", 10, expected.result >= 2);
    choices.outcome("four conversions and more", 4, expected.result >= 4);
    choices.outcome("a set form", 8, count(sets) != 0);
    choices.outcome("a word of more than 16 bytes", 3, count(words) != 0);
    choices.outcome("two narrow integers", 2, count(narrow) >= 2);
    choices.outcome("a conversion that fails behind one that does not", 10,
                    expected.result > 0 && static_cast<size_t>(expected.result) < expected.fields.size());
    choices.outcome("a pair at the start, beside blanks", 3,
                    format.find('\\') < 2 && input.find_first_of(" \n\t") == 0 && expected.result > 0);
});

}  // namespace

}  // namespace tests
