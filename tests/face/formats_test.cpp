// <strlib.hpp> states the dialects of the formats a second time, for the compiler. Here the same code goes through
// every short format, and what it foretells (the conversions, their order, their sizes and widths, the room of the
// output) is compared with what TQ_sprintf() and TQ_sscanf() do with slots made for it.
#include <cstdio>
#include <regex>
#include <string>
#include <strlib.hpp>
#include <vector>

#include "support/memory.h"

namespace {

using strlib::detail::Format;
using strlib::detail::Step;
using strlib::detail::unbounded;

int failures;
std::string current;

bool expect(bool holds, const char *what) {
    if (holds) return true;
    if (++failures <= 20) std::printf("wrong: %s, format '%s'\n", what, current.c_str());
    return false;
}

std::vector<Step> stepsOf(Format format) {
    std::vector<Step> steps;
    for (Step step = format.next(); step.letter != 0; step = format.next()) steps.push_back(step);
    return steps;
}

bool isClean(Format format) {
    while (format.next().letter != 0) {
    }
    return format.isClean();
}

// The vector ends at a page that no one may touch: a slot that was not foretold faults.
const intptr_t *placed(const std::vector<intptr_t> &slots) {
    const std::string_view bytes(reinterpret_cast<const char *>(slots.data()), slots.size() * sizeof slots[0]);
    return reinterpret_cast<const intptr_t *>(tests::region(0).place(bytes, {tests::Placement::atEnd, 0}));
}

// What came out, and whether that was all that the routine stored.
std::string output(const std::vector<intptr_t> &slots, size_t size) {
    const char *const room = tests::region(1).room(size, {tests::Placement::atEnd, 0});
    const int32_t stored =
        TQ_sprintf(const_cast<char *>(room), static_cast<uint32_t>(size), current.c_str(), placed(slots));
    return {room, static_cast<size_t>(stored)};
}

// The longest number that a bound leaves room for.
int32_t longestNumber(size_t bound) { return std::stoi(std::string("1234567890").substr(0, bound - 1)); }

void checkOutput() {
    const std::vector<Step> steps = stepsOf({Format::output, current.c_str()});
    std::vector<intptr_t> slots;
    std::string expected;
    size_t size = 1;
    size_t numbers = 0;
    for (const Step &step : steps) {
        const size_t room = strlib::detail::roomFor(step);
        size += room;
        if (step.letter == '%') {
            expected += step.byte;
        } else if (step.letter == 'c') {
            slots.push_back(0x100 + 'C');
            expected += 'C';
        } else if (step.letter == 's') {
            slots.push_back(reinterpret_cast<intptr_t>("text"));
            expected += "text";
            size += 4;
        } else {
            slots.push_back(room < 2 ? 5 : longestNumber(room));
            if (room >= 2) expected += std::to_string(slots.back());
            ++numbers;
        }
    }
    expected += '\0';
    expect(output(slots, size) == expected, "output with the room foretold");
    const bool numberIsLast = numbers == 1 && steps.back().letter == 'd' && strlib::detail::roomFor(steps.back()) >= 2;
    if (expected.size() > 1 && (numbers == 0 || numberIsLast))
        expect(output(slots, size - 1) != expected, "output with a byte less");

    static const std::regex clean(R"(([^%\\]|\\(.|$)|%%|%[0-9]*[dsc])*)");
    if (current.size() <= 4)
        expect(isClean({Format::output, current.c_str()}) == std::regex_match(current, clean), "clean output format");
}

// An input on which a format gets as far as it can, and what its slots receive.
class Input {
public:
    struct Slot {
        size_t size;
        std::string stored;
    };

    explicit Input(const std::vector<Step> &steps) {
        for (const Step &step : steps) {
            const bool goesOn = step.letter == '%' ? literal(step.byte) : conversion(step);
            opening_ = opening_ && step.letter == '%' && isLineByte(step.byte);
            if (!goesOn) break;
            ++done_;
        }
    }

    const std::string &text() const { return text_; }
    const std::vector<Slot> &slots() const { return slots_; }
    int32_t result() const { return result_; }
    size_t done() const { return done_; }

private:
    static bool isLineByte(char byte) { return byte == '\n' || byte == '\t' || byte == '\r'; }

    // Whether a field before it leaves the byte to what comes next. A blank skip takes blanks, also at the start.
    bool put(char byte) {
        const bool taken = open_ == 's'   ? byte != ' ' && !isLineByte(byte)
                           : open_ == 'i' ? byte >= '0' && byte <= '9'
                           : open_ == ' ' ? isLineByte(byte)
                           : open_ == '[' ? byte != excluded_
                                          : false;
        if (taken) return false;
        text_ += byte;
        open_ = 0;
        return true;
    }

    bool literal(char byte) {
        if (opening_ && isLineByte(byte)) {
            text_ += byte;
            return true;
        }
        if (byte != ' ') return put(byte);
        // The blank that the skip then passes over, unless something before it takes blanks.
        if (open_ != ' ' && open_ != '[') put(' ');
        if (open_ != '[') open_ = ' ';
        return true;
    }

    bool conversion(const Step &step) {
        if (result_ < 0) result_ = 0;
        switch (step.letter) {
            case 'n': slots_.push_back({4, bytesOf(text_.size(), 4)}); return true;
            case 'i':
            case 'u': return number(step.size == 'b' ? 1 : step.size == 'h' ? 2 : 4);
            case 'c': return byte();
            default: return field(step);
        }
    }

    bool number(size_t size) {
        const bool put7 = put('-');
        if (put7) text_ += '7', open_ = 'i', ++result_;
        slots_.push_back({size, bytesOf(static_cast<uint64_t>(put7 ? -7 : 0), size)});
        return put7;
    }

    bool byte() {
        const bool putQ = put('Q');
        result_ += putQ;
        slots_.push_back({1, putQ ? "Q" : ""});
        return putQ;
    }

    // A wide field is tried with a short word, which only its end bounds.
    bool field(const Step &step) {
        const bool isShort = step.width < 60;
        const size_t length = isShort ? step.width - 1 : 3;
        if (step.width < 2 || !put('Q')) {
            slots_.push_back({1, std::string(step.width != 0, '\0')});
            return false;
        }
        const std::string content(length, 'Q');
        text_ += content.substr(1);
        slots_.push_back({length + 1, content + '\0'});
        if (!isShort) open_ = step.letter, excluded_ = step.byte;
        ++result_;
        return true;
    }

    static std::string bytesOf(uint64_t value, size_t size) {
        const uint8_t byte = static_cast<uint8_t>(value);
        const uint16_t half = static_cast<uint16_t>(value);
        const uint32_t word = static_cast<uint32_t>(value);
        const void *const from = size == 1   ? static_cast<const void *>(&byte)
                                 : size == 2 ? &half
                                             : static_cast<const void *>(&word);
        return {static_cast<const char *>(from), size};
    }

    std::string text_ = " ";  // an empty input would end the call at once
    std::vector<Slot> slots_;
    int32_t result_ = -1;
    size_t done_ = 0;
    bool opening_ = true;
    char open_ = ' ';  // what takes the next bytes: a blank skip, an unbounded field, a number
    char excluded_ = 0;
};

size_t severalConversions, carriedOut;

void checkInput() {
    const std::vector<Step> steps = stepsOf({Format::input, current.c_str()});
    const Input input(steps);

    // Each slot's destination, with eight bytes or more between them that have to stay as they are.
    std::string memory, expected;
    std::vector<size_t> places;
    for (const Input::Slot &slot : input.slots()) {
        places.push_back(expected.size() + 8);
        expected.append(8, tests::Region::filler);
        expected += slot.stored;
        expected.append((slot.size + 7) / 8 * 8 - slot.stored.size() + 8, tests::Region::filler);
    }
    static char destinations[4096];
    std::memset(destinations, tests::Region::filler, expected.size());
    std::vector<intptr_t> slots;
    for (const size_t place : places) slots.push_back(reinterpret_cast<intptr_t>(destinations + place));

    const int32_t result = TQ_sscanf(input.text().c_str(), current.c_str(), placed(slots));
    const bool empty = current.empty();
    expect(result == (empty ? -1 : input.result()), "number of fields");
    expect(std::string_view(destinations, expected.size()) == expected, "what the slots receive");
    if (slots.size() > 1) {
        ++severalConversions;
        carriedOut += input.done() == steps.size();
    }

    static const std::regex clean(R"(([^%\\]|\\(.|$)|%%|%[0-9]*([csn]|[hbl]?[iu]|\[\^[^]\]))*)");
    if (current.size() <= 4)
        expect(isClean({Format::input, current.c_str()}) == std::regex_match(current, clean), "clean input format");
}

// Every text of up to so many bytes, with something before and behind it.
void forEach(std::string_view alphabet, size_t longest, void (*check)(), std::string before = "",
             std::string behind = "") {
    for (size_t length = 0; length <= longest; ++length) {
        std::vector<size_t> digits(length, 0);
        for (;;) {
            current = before;
            for (const size_t digit : digits) current += alphabet[digit];
            current += behind;
            check();
            size_t at = 0;
            while (at < length && ++digits[at] == alphabet.size()) digits[at++] = 0;
            if (at == length) break;
        }
    }
}

}  // namespace

int formatsTest() {
    const size_t depth = static_cast<size_t>(5 + tests::depthShift());
    forEach("%\\dsc017ntrx", depth, checkOutput);
    forEach("%[^]siuhblcdn2\\ tr0", depth, checkInput);
    forEach("%[^]sih2n\\ x", depth + 1, checkInput);
    std::printf("%zu formats of several conversions, %zu carried out whole\n", severalConversions, carriedOut);
    expect(carriedOut * 4 > severalConversions, "a quarter of the formats of several conversions is carried out whole");
    // Widths of more digits than a group has.
    forEach("02", 15, checkOutput, "%", "d");
    forEach("02", 15, checkInput, "%", "s%n");
    return failures;
}
