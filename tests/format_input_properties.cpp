#include "support/property.h"

using namespace tests;

static model::Scan requireScan(Choices &choices, const std::string &input, const std::string &format) {
    const model::Scan expected = model::scan(input, format);

    // Destinations as aligned as integers are, each with room for every byte of the input, and filler between them.
    const size_t room = (input.size() + 8) / 4 * 4;
    std::string image(expected.fields.size() * room, Region::filler);
    char *const start = region(0).room(image.size(), {Placement::atEnd, 0});
    std::vector<intptr_t> slots;
    for (const model::Field &field : expected.fields) {
        image.replace(slots.size() * room, field.bytes.size(), field.bytes);
        slots.push_back(reinterpret_cast<intptr_t>(start + slots.size() * room));
    }
    const char *const text = string(choices, 1, input);
    const char *const placed = string(choices, 2, format);
    requireEqual(TQ_sscanf(text, placed, slots.empty() ? nullptr : slots.data()), expected.result, "result");
    requireBytes(0, image);
    return expected;
}

// A part of a format, and what it matches.
struct Part {
    std::string format, input;
};

static Part part(Choices &choices) {
    static constexpr std::pair<const char *, const char *> samples[] = {
        {"x", "x"},       {"%d", "d"},      {",", ","},
        {"\x80", "\x80"}, {" ", " \t\r\n"}, {"\\ ", ""},
        {"\\r", "\r"},    {"%\\t", "\t"},   {"\\n", "\n"},
        {"\\q", "q"},     {"%\\\\", "\\"},  {"\\%", "%"},
        {"%[x", "x"},     {"%h5", "5"},     {"%bd", "d"},
        {"%[^ax", "x"},   {"%%", "%"},      {" ", "                  \n"}};
    const std::string width = choices.pick({"1", "2", "12", "007", "200", "00000019", "10000002", "0000001"});
    const std::string percent = '%' + (choices.below(5) == 0 ? width : "");
    switch (choices.below(10)) {
        case 0: return {percent + 'n', ""};
        case 1: return {percent + 'c', std::string(1, choices.pick(alphabet))};
        case 2: return {percent + choices.pick({"s", "s ", "s ", "s "}), choices.text("ab\x7F\xE9", 0) + ' '};
        case 3: {
            const char excluded = choices.pick({',', ';', ']', '^', 'b', '\xE9'});
            std::string field = choices.text("ab \x80", 0);
            std::replace(field.begin(), field.end(), excluded, 'w');
            return {percent + "[^" + excluded + ']' + excluded, field + excluded};
        }
        case 4:
        case 5: {
            const std::string letters = choices.pick({"", "", "h", "h", "b", "l"});
            const std::string end = choices.below(8) != 0 ? "," : "";
            const std::string number = std::to_string(choices.between(-100000, 100000));
            return {percent + letters + choices.pick({'i', 'u'}) + end,
                    (choices.below(4) == 0 ? numeral(choices) : number) + end};
        }
        default: {
            const auto [format, input] = choices.pick(samples);
            return {format, input};
        }
    }
}

// An input drawn together with its format, sometimes with a fault in one of them.
static Part matching(Choices &choices) {
    Part whole = {"", choices.text(" \n\t", 0).substr(0, choices.below(6))};
    // Pairs that may find their bytes among the blanks, which are skipped.
    for (uint32_t pairs = whole.input.empty() ? 0 : choices.below(6); pairs > 3; --pairs)
        whole.format += choices.pick({"\\n", "\\t", "%\\r"});
    for (uint32_t parts = choices.below(12); parts != 0; --parts) {
        const auto [format, input] = part(choices);
        whole.format += format;
        whole.input += input;
    }
    std::string &faulty = choices.flag() ? whole.input : whole.format;
    if (!faulty.empty() && choices.below(8) == 0) faulty[choices.below(faulty.size())] = choices.pick(alphabet);
    return whole;
}

static Part formatAndInput(Choices &choices) {
    const uint32_t manner = choices.below(choices.isLong() ? 8 : 2);
    if (manner > 1) return matching(choices);
    if (manner == 1) {
        const char *const format = choices.pick({"%i%n", "%3s%c", "%[^-]%n", "%2[^ ] %u", "\\n%hi %bi %n", "%s%3s",
                                                 "a %i%%x", "\\r\\n5", "%c%c%c%s", "%1s"});
        return {format, choices.text("5a- \n%x0", 5)};
    }
    const char *const input =
        choices.pick({"12 ab-7", "\n\r 5x", "x12345 67", "-0x1F]^", "300 70000 -1", "a\\b %c\t\n", "[n]h", "\2005 2n"});
    return {choices.text("%csiun[^]bhl2\\ x0a", 4), input};
}

static const Property formattedInput("formatted input", [](Choices &choices) {
    const auto [format, input] = formatAndInput(choices);
    const auto [result, fields] = requireScan(choices, input, format);
    const auto count = [&fields = fields](std::string_view kinds, size_t shortest, size_t longest) {
        return std::count_if(fields.begin(), fields.end(), [=](const model::Field &field) {
            const size_t size = field.bytes.size();
            return kinds.find(field.kind) != kinds.npos && size >= shortest && size <= longest;
        });
    };
    choices.outcome("two conversions and more", 10, result >= 2);
    choices.outcome("four conversions and more", 4, result >= 4);
    choices.outcome("a set form", 8, count("[", 2, model::none) != 0);
    choices.outcome("a word of more than 16 bytes", 3, count("s", 18, model::none) != 0);
    choices.outcome("two narrow integers", 2, count("iu", 1, 2) >= 2);
    choices.outcome("a conversion that fails behind one that does not", 10,
                    result > 0 && static_cast<size_t>(result) < fields.size());
    choices.outcome("a pair at the start, beside blanks", 3,
                    format.find('\\') < 2 && input.find_first_of(" \n\t") == 0 && result > 0);
});
