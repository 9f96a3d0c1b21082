// <strlib.hpp> states the dialects of the formats a second time, for the compiler. Here the same code goes through
// every short format. What it foretells (the conversions, their order, their sizes and widths) is written down as a
// plainer format, and TQ_sprintf() and TQ_sscanf() have to take both for the same; the room foretold has to be just
// enough for the output.
#include <cstdio>
#include <regex>
#include <string>
#include <strlib.hpp>
#include <vector>

#include "support/memory.h"

namespace {

using strlib::detail::Format;
using strlib::detail::Step;

using Steps = std::vector<Step>;
using Slots = std::vector<intptr_t>;

int failures;
std::string current;

void expect(bool holds, const char *what) {
    if (!holds && ++failures <= 20) std::printf("wrong: %s, format '%s'\n", what, current.c_str());
}

// The steps of the current format. Longer ones say no more about what is clean, and take long to match.
Steps stepsOf(Format::Dialect dialect, const std::regex &clean) {
    Format format(dialect, current.c_str());
    Steps steps;
    for (Step step = format.next(); step.letter != 0; step = format.next()) steps.push_back(step);
    if (current.size() <= 4) expect(format.isClean() == std::regex_match(current, clean), "clean format");
    return steps;
}

std::string plainFormat(const Steps &steps) {
    constexpr std::string_view escaped = "\n\t\r\\%", letters = "ntr\\%";
    std::string format;
    for (const Step &step : steps) {
        const size_t at = escaped.find(step.byte);
        if (step.letter == '%') {
            format += at == escaped.npos ? std::string(1, step.byte) : std::string("\\") + letters[at];
            continue;
        }
        format += '%';
        if (step.width != strlib::detail::unbounded) format += std::to_string(step.width);
        if (step.letter == 'i' || step.letter == 'u') format += step.size;
        format += step.letter;
        if (step.letter == '[') format += {'^', step.byte, ']'};
    }
    return format;
}

// The vector ends at a page that no one may touch: a slot that was not foretold faults.
const intptr_t *placed(const Slots &slots) {
    const std::string_view bytes(reinterpret_cast<const char *>(slots.data()), slots.size() * sizeof slots[0]);
    return reinterpret_cast<const intptr_t *>(tests::region(0).place(bytes, {tests::Placement::atEnd, 0}));
}

std::string output(const std::string &format, const Slots &slots, size_t size) {
    char *const room = tests::region(1).room(size, {tests::Placement::atEnd, 0});
    const int32_t stored = TQ_sprintf(room, static_cast<uint32_t>(size), format.c_str(), placed(slots));
    return {room, static_cast<size_t>(stored)};
}

void checkOutput() {
    static const std::regex clean(R"(([^%\\]|\\(.|$)|%%|%[0-9]*[dsc])*)");
    const Steps steps = stepsOf(Format::output, clean);
    Slots slots;
    size_t size = 1, numbers = 0, room = 0;
    for (const Step &step : steps) {
        room = strlib::detail::roomFor(step);
        size += room;
        if (step.letter == 'c') slots.push_back(0x100 + 'C');
        if (step.letter == 's') slots.push_back(reinterpret_cast<intptr_t>("text")), size += 4;
        if (step.letter != 'd') continue;
        // The longest that is written.
        slots.push_back(room < 2 ? 5 : std::stoi(std::string("1234567890").substr(0, room - 1)));
        ++numbers;
    }
    const std::string expected = output(plainFormat(steps), slots, size + 99);
    expect(output(current, slots, size) == expected, "output with the room foretold");
    const bool numberIsLast = numbers == 1 && steps.back().letter == 'd' && room >= 2;
    if (expected.size() > 1 && (numbers == 0 || numberIsLast))
        expect(output(current, slots, size - 1) != expected, "output with a byte less");
}

// An input on which the steps get far, or one with fields that only their widths bound.
std::string inputFor(const Steps &steps, bool isLong) {
    std::string text = " ";  // an empty input would end the call at once
    for (const Step &step : steps) {
        switch (step.letter) {
            case '%': text += step.byte; break;
            case 'n': break;
            case 'i':
            case 'u': text += "-7"; break;
            case 'c': text += 'Q'; break;
            default: text.append(isLong ? 60 : std::min(step.width - 1, 3U), 'Q');
        }
    }
    return text;
}

// The result, and what the destinations hold then, all bytes around them included.
std::pair<int32_t, std::string> scanned(const std::string &format, const std::string &input, size_t conversions) {
    constexpr size_t distance = 256;
    static char memory[16 * distance];
    std::memset(memory, tests::Region::filler, (conversions + 1) * distance);
    Slots slots;
    for (size_t i = 0; i < conversions; ++i) slots.push_back(reinterpret_cast<intptr_t>(memory + i * distance + 8));
    const int32_t result = TQ_sscanf(input.c_str(), format.c_str(), placed(slots));
    return {result, std::string(memory, (conversions + 1) * distance)};
}

size_t severalConversions, carriedOut;

void checkInput() {
    static const std::regex clean(R"(([^%\\]|\\(.|$)|%%|%[0-9]*([csn]|[hbl]?[iu]|\[\^[^]\]))*)");
    const Steps steps = stepsOf(Format::input, clean);
    size_t conversions = 0, counted = 0;
    for (const Step &step : steps) {
        conversions += step.letter != '%';
        counted += step.letter != '%' && step.letter != 'n';
    }
    for (const bool isLong : {false, true}) {
        const std::string input = inputFor(steps, isLong);
        const auto expected = scanned(plainFormat(steps), input, conversions);
        expect(scanned(current, input, conversions) == expected, "fields");
        if (isLong || conversions < 2) continue;
        ++severalConversions;
        carriedOut += expected.first == static_cast<int32_t>(counted);
    }
}

// Every text of up to `longest` bytes of an alphabet (a little more or less by the depth of the run), with something
// before and behind it.
void forEach(std::string_view alphabet, uint32_t longest, void (*check)(), const char *before = "",
             const char *behind = "") {
    tests::Enumeration texts;
    do {
        current = before + texts.text(alphabet, longest) + behind;
        check();
    } while (texts.advance());
}

}  // namespace

int formatsTest() {
    forEach("%\\dsc017ntrx", 5, checkOutput);
    forEach("%[^]siuhblcdn2\\ tr0", 5, checkInput);
    forEach("%[^]sih2n\\ x", 6, checkInput);
    std::printf("%zu formats of several conversions, %zu carried out whole\n", severalConversions, carriedOut);
    expect(carriedOut * 4 > severalConversions, "a quarter of the formats of several conversions is carried out whole");
    // Widths of more digits than a group has.
    forEach("02", 15, checkOutput, "%", "d");
    forEach("02", 15, checkInput, "%", "s%n");
    return failures;
}
