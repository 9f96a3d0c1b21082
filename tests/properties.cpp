#include "properties.h"

#include <strlib.h>

#include <array>
#include <bit>
#include <sstream>

#include "support/memory.h"
#include "support/model.h"

namespace tests {

namespace {

// One byte of each class that some routine tells apart.
constexpr char anyBytes[] = {'a', 'A', 'b', 'z', '0', ' ', '\n', '\r', '\x7F', '\x80', '\xC3', '\xFF', 0};
constexpr std::string_view alphabet(anyBytes, sizeof anyBytes - 1);
constexpr std::string_view alphabetAndNul(anyBytes, sizeof anyBytes);
constexpr std::string_view fewBytes("aAb\xE1", 4);

[[noreturn]] void fail(const char *what) { throw std::runtime_error(what); }

void require(bool holds, const char *what) {
    if (!holds) fail(what);
}

template <class Value>
void requireEqual(Value actual, Value expected, const char *what) {
    if (actual == expected) return;
    std::ostringstream message;
    message << what << ": " << actual << ", expected " << expected;
    throw std::runtime_error(message.str());
}

// Places a string and its NUL. Each argument has a region of its own.
const char *string(Choices &choices, int index, const std::string &bytes) {
    return region(index).place(std::string_view(bytes.c_str(), bytes.size() + 1), choices.placement());
}

// Places what a routine may read of a string when it stops at `count` bytes: no NUL unless it comes first.
const char *bounded(Choices &choices, int index, const std::string &bytes, int64_t count) {
    const size_t readable = std::min<size_t>(bytes.size() + 1, static_cast<size_t>(std::max<int64_t>(count, 0)));
    return region(index).place(std::string_view(bytes.c_str(), readable), choices.placement());
}

void requirePosition(const char *result, const char *start, size_t expected) {
    const size_t actual = result == nullptr ? model::none : static_cast<size_t>(result - start);
    requireEqual(actual, expected, "position");
}

void requireBytes(int index, const std::string &expected) {
    if (region(index).holds(expected)) return;
    throw std::runtime_error("stored bytes: " + region(index).content() + ", expected " + expected);
}

void length(Choices &choices) {
    const std::string text = choices.text(alphabet, 4);
    requireEqual(TQANSI_strlen(string(choices, 0, text)), static_cast<int32_t>(text.size()), "length");
}

void copy(Choices &choices) {
    const std::string text = choices.text(alphabet, 4);
    const char *const source = string(choices, 0, text);
    char *const destination = region(1).room(text.size() + 1, choices.placement());
    if (choices.flag())
        require(TQANSI_strcpy(destination, source) == destination, "result");
    else
        requirePosition(TQ_strappend(destination, source), destination, text.size());
    requireBytes(1, text + '\0');
}

void boundedCopy(Choices &choices) {
    const std::string text = choices.text(alphabet, 4);
    const int32_t count = choices.between(-1, static_cast<int32_t>(text.size()) + 2);
    const std::string expected = model::copied(text, count) + '\0';
    const char *const source = bounded(choices, 0, text, count);
    char *const destination = region(1).room(expected.size(), choices.placement());
    require(TQANSI_strncpy(destination, source, count) == destination, "result");
    requireBytes(1, expected);
}

void concatenation(Choices &choices) {
    const std::string front = choices.text(fewBytes, 4);
    const std::string text = choices.text(alphabet, 2);
    const bool whole = choices.flag();
    const int32_t count =
        whole ? static_cast<int32_t>(text.size()) + 1 : choices.between(-1, static_cast<int32_t>(text.size()) + 2);
    const std::string expected = front + model::copied(text, count) + '\0';
    const char *const source = bounded(choices, 0, text, count);
    char *const destination = region(1).room(expected.size(), choices.placement());
    std::memcpy(destination, front.c_str(), front.size() + 1);
    char *const result = whole ? TQANSI_strcat(destination, source) : TQANSI_strncat(destination, source, count);
    require(result == destination, "result");
    requireBytes(1, expected);
}

// Copies within one buffer go byte by byte from the front, so what they store first may be what they read later.
void overlappingCopy(Choices &choices) {
    const std::string text = choices.text(alphabet, 4);
    const size_t distance = choices.below(static_cast<uint32_t>(text.size()) + 3);
    const bool ahead = choices.flag();
    const bool isBounded = ahead || choices.flag();
    const int32_t count =
        isBounded ? choices.between(0, static_cast<int32_t>(text.size()) + 2) : static_cast<int32_t>(text.size()) + 1;
    const size_t room = text.size() + distance + static_cast<size_t>(count) + 2;
    std::string image(room, Region::filler);
    const size_t from = ahead ? 0 : distance;
    const size_t to = ahead ? distance : 0;
    image.replace(from, text.size() + 1, text.c_str(), text.size() + 1);
    char *const buffer = region(0).place(image, choices.placement());

    size_t copied = 0;
    for (; copied < static_cast<size_t>(count) && image[from + copied] != 0; ++copied) {
        image[to + copied] = image[from + copied];
    }
    image[to + copied] = 0;
    if (isBounded)
        TQANSI_strncpy(buffer + to, buffer + from, count);
    else
        TQANSI_strcpy(buffer + to, buffer + from);
    requireBytes(0, image);
}

void fill(Choices &choices) {
    const uint32_t count = choices.below(70);
    const int32_t byte = choices.pick(std::array{0x15A, -1, 0, 0x80});
    char *const destination = region(0).room(count, choices.placement());
    require(TQANSI_memset(destination, byte, count) == destination, "result");
    requireBytes(0, std::string(count, static_cast<char>(byte)));
}

// A second text that often agrees with the first for a long way.
std::string related(Choices &choices, const std::string &text, std::string_view bytes, uint32_t depth) {
    const std::string other = choices.text(bytes, depth);
    const size_t shared = choices.flag() ? choices.below(static_cast<uint32_t>(text.size()) + 1) : 0;
    return text.substr(0, shared) + other;
}

void comparison(Choices &choices) {
    const std::string a = choices.text(alphabet, 2);
    const std::string b = related(choices, a, alphabet, 2);
    const auto bytes = choices.flag() ? model::Bytes::folded : model::Bytes::exact;
    const bool folded = bytes == model::Bytes::folded;
    const char *first = string(choices, 0, a);
    const char *second = string(choices, 1, b);
    const int32_t expected = model::compare(a, b, bytes, INT32_MAX);
    requireEqual(folded ? TQANSI_stricmp(first, second) : TQANSI_strcmp(first, second), expected, "difference");
    if (!folded) requireEqual(customStricmp(first, second, nullptr), expected, "difference without a table");

    const int32_t count = choices.between(-2, static_cast<int32_t>(std::max(a.size(), b.size())) + 2);
    first = bounded(choices, 0, a, std::abs(count));
    second = bounded(choices, 1, b, std::abs(count));
    requireEqual(folded ? TQANSI_strnicmp(first, second, count) : TQANSI_strncmp(first, second, count),
                 model::compare(a, b, bytes, count), "bounded difference");
}

void rangeComparison(Choices &choices) {
    static constexpr std::string_view bytes("\0a\x80\xFF", 4);
    const std::string a = choices.text(bytes, 4);
    std::string b = a;
    for (uint32_t changes = choices.below(3); changes != 0 && !b.empty(); --changes) {
        b[choices.below(static_cast<uint32_t>(b.size()))] = choices.pick(bytes);
    }
    requireEqual(TQANSI_memcmp(region(0).place(a, choices.placement()), region(1).place(b, choices.placement()),
                               static_cast<uint32_t>(a.size())),
                 model::compareRanges(a, b), "difference");
}

// A table that folds, moves ASCII letters to the negative bytes and ends strings at one ordinary byte.
const std::array<uint8_t, 256> &mapping() {
    static const auto table = [] {
        std::array<uint8_t, 256> bytes;
        for (uint32_t i = 0; i < 256; ++i) bytes[i] = static_cast<uint8_t>(i * 7);
        bytes['A'] = bytes['a'] = 0x90;
        bytes['z'] = 0;
        return bytes;
    }();
    return table;
}

void collation(Choices &choices) {
    const std::string a = choices.text(alphabet, 3);
    const std::string b = related(choices, a, alphabet, 2);
    requireEqual(customStricmp(string(choices, 0, a), string(choices, 1, b), mapping().data()),
                 model::collate(a, b, mapping().data()), "difference");
}

void conversion(Choices &choices) {
    const std::string text = choices.text(alphabet, 4);
    char *const converted = region(0).place(std::string_view(text.c_str(), text.size() + 1), choices.placement());
    TQ_convertZstring(mapping().data(), converted);
    requireBytes(0, model::converted(text, mapping().data()) + '\0');
}

void byteSearch(Choices &choices) {
    const std::string text = choices.text(alphabet, 4);
    const char *const start = string(choices, 0, text);
    const int32_t noise = choices.pick(std::array{0, 0x100, -0x100});
    const auto byte = static_cast<uint8_t>(choices.pick(alphabetAndNul));
    const auto sought = static_cast<int32_t>(static_cast<uint32_t>(noise) | byte);
    const size_t none = model::none;
    requirePosition(TQANSI_strchr(start, sought), start, byte == 0 ? none : model::findFirst(text, byte));
    requirePosition(TQANSI_strrchr(start, sought), start, byte == 0 ? none : model::findLast(text, byte));
}

void rangeSearch(Choices &choices) {
    std::string range = choices.text(alphabet, 3) + '\0' + choices.text(fewBytes, 2);
    range.resize(choices.below(static_cast<uint32_t>(range.size()) + 1));
    const auto byte = static_cast<uint8_t>(choices.pick(std::string_view("\0aA\x80", 4)));
    const char *const start = region(0).place(range, choices.placement());
    const auto result = static_cast<const char *>(TQANSI_memchr(start, byte, static_cast<uint32_t>(range.size())));
    requirePosition(result, start, model::findFirst(range, byte));
    // A count beyond the range is as good as the range where the byte is found in it.
    if (result != nullptr) require(TQANSI_memchr(start, byte, UINT32_MAX) == result, "unbounded");
}

void setSearch(Choices &choices) {
    const std::string text = choices.text(alphabet, 3);
    const std::string set = choices.text(alphabet, 2);
    const char *const start = string(choices, 0, text);
    requirePosition(TQANSI_strpbrk(start, string(choices, 1, set)), start, text.find_first_of(set));
}

void requireSubstring(Choices &choices, const std::string &text, const std::string &sought) {
    const char *const start = string(choices, 0, text);
    const char *const substring = string(choices, 1, sought);
    requirePosition(TQANSI_strstr(start, substring), start, model::findSubstring(text, sought, model::Bytes::exact));
    requirePosition(TQ_stristr(start, substring), start, model::findSubstring(text, sought, model::Bytes::folded));
}

void substringSearch(Choices &choices) {
    const std::string text = choices.text(fewBytes, 5);
    std::string sought = choices.text(fewBytes, 3);
    if (choices.flag()) {  // what the text holds, nearly or wholly
        const size_t first = choices.below(static_cast<uint32_t>(text.size()) + 1);
        sought = text.substr(first, choices.below(static_cast<uint32_t>(text.size()) + 1)) + sought.substr(0, 1);
    }
    requireSubstring(choices, text, sought);
}

std::string repeated(const std::string &unit, uint32_t times) {
    std::string text;
    for (; times != 0; --times) text += unit;
    return text;
}

// Texts and substrings that agree for long at many places.
void periodicSearch(Choices &choices) {
    const std::string unit = choices.text("aB", 3);
    const std::string text = repeated(unit, choices.pick(std::array{3u, 60u})) + choices.text("ab", 4) + unit;
    const std::string start = choices.text("ab", 2);
    requireSubstring(choices, text,
                     start + repeated(unit, choices.pick(std::array{1u, 4u, 20u})) + choices.text("ab", 3));
}

// Runs of about the same length with a byte between them, and a first one in which nearly all places mislead.
void searchAmongRuns(Choices &choices) {
    const char letter = choices.flag() ? 'a' : 'A';
    const auto run = [&](char of) { return std::string(11 + choices.below(3), of); };
    const auto runs = [&](uint32_t count, char of) {
        std::string text;
        for (; count != 0; --count) text += run(of) + "b";
        return text + run(of);
    };
    const std::string sought = runs(choices.below(3), letter);
    requireSubstring(choices, std::string(200, 'a') + "b" + runs(choices.below(5), 'a'), sought);
}

void blankLine(Choices &choices) {
    const std::string text = choices.text(std::string_view("\x01 \t\r\n\x1F!\x7F\x80", 9), 4);
    requireEqual(TQ_isBlankLine(string(choices, 0, text)), int32_t{model::isBlankLine(text)}, "blank");
}

void integerReading(Choices &choices) {
    const std::string text = choices.text(" \x1F-+0x19aFg\x80X", 5);
    requireEqual(TQANSI_atoi(string(choices, 0, text)), model::readInteger(text), "value");
}

int32_t tellingInteger(Choices &choices) {
    static constexpr int32_t values[] = {0,      5,       -5,         42,          -42,        123,       -1234,
                                         99999,  1000000, 2147483647, -2147483647, INT32_MIN,  999999999, 1000000000,
                                         -65536, 10,      -100,       -999999999,  -1000000000};
    if (choices.below(2) == 0) return choices.pick(values);
    return static_cast<int32_t>(choices.below(8) << choices.below(29)) * (choices.flag() ? -1 : 1);
}

void integerWriting(Choices &choices) {
    const int32_t value = tellingInteger(choices);
    const int32_t radix = choices.pick(std::array{10, 16, 2, 36, 3, 7, 8, 35, 37, 1, 0, -1, -10, INT32_MIN});
    const int32_t size = choices.between(1, 14) * (choices.below(3) == 0 ? 3 : 1);
    const auto expected = model::writtenInteger(value, size, radix);
    char *const buffer = region(0).room(static_cast<size_t>(size), choices.placement());
    const char *const result = TQANSI_itoa(value, buffer, size, radix);
    require(result == (expected ? buffer : nullptr), "result");
    require(expected.value_or("") == buffer, "text");
    if (expected)
        requireBytes(0, *expected + '\0');
    else
        requireBytes(0, std::string(buffer, static_cast<size_t>(size)));  // nothing outside
}

struct Slots {
    std::vector<model::Argument> values;
    std::vector<intptr_t> slots;
};

// One slot for each conversion; the string slots point into a region of their own.
Slots slotsFor(Choices &choices, const std::string &format) {
    const char *const longer = string(choices, 2, choices.flag() ? "cd" : "efghijklmnop");
    const char *const strings[] = {longer, "", nullptr};
    const int32_t number = choices.pick(std::array{7, -12, 12345678, INT32_MIN, 0x100});
    const uint32_t first = choices.below(3);
    Slots result;
    bool directive = false;
    for (const char byte : format) {
        if (directive && (byte == 'd' || byte == 'c' || byte == 's')) {
            const uint32_t index = static_cast<uint32_t>(result.slots.size()) + first;
            if (byte == 's')
                result.values.emplace_back(strings[index % 3]);
            else
                result.values.emplace_back(static_cast<int32_t>(static_cast<uint32_t>(number) + index));
            result.slots.push_back(byte == 's' ? std::bit_cast<intptr_t>(strings[index % 3])
                                               : std::get<int32_t>(result.values.back()));
        }
        directive = byte == '%' || (directive && byte >= '0' && byte <= '9');
    }
    // Bits above those wanted do not count.
    if (sizeof(intptr_t) > 4) {
        for (size_t i = 0; i < result.slots.size(); ++i) {
            if (result.values[i].index() == 0) result.slots[i] ^= static_cast<intptr_t>(uint64_t{0x5A} << 40);
        }
    }
    return result;
}

void formattedOutput(Choices &choices) {
    const std::string format = choices.text("%dsc13\\nx", 5);
    const uint32_t size = choices.pick(std::array{1u, 3u, 13u, 40u});
    // A pair hides the '%' that it stands for; the model tells how many slots are used at most.
    Slots slots = slotsFor(choices, format);
    for (int spare = 0; spare < 2; ++spare) slots.values.emplace_back(0);
    std::string expected;
    try {
        expected = model::print(size, format, slots.values);
    } catch (const std::bad_variant_access &) {
        return;  // the kinds of the slots were taken for another reading of the format
    }
    char *const destination = region(0).room(size, choices.placement());
    const char *const placed = string(choices, 1, format);
    const intptr_t *const arguments = slots.slots.empty() ? nullptr : slots.slots.data();
    requireEqual(TQ_sprintf(destination, size, placed, arguments), static_cast<int32_t>(expected.size()), "result");
    require(std::string_view(destination, expected.size()) == expected, "text");
    requireBytes(0, std::string(destination, size));  // nothing outside
}

void requireScan(Choices &choices, const std::string &input, const std::string &format) {
    const model::Scan expected = model::scan(input, format);

    // Every destination lies in one region, with filler before and behind it.
    static constexpr size_t room = 256;
    if (expected.fields.size() * 8 + input.size() * (expected.fields.size() + 1) > room) return;
    std::string image(room, Region::filler);
    std::vector<size_t> offsets;
    size_t offset = 0;
    for (const model::Field &field : expected.fields) {
        const bool integer = field.kind == 'i' || field.kind == 'u' || field.kind == 'n';
        std::string bytes = field.bytes;
        if (integer && std::endian::native == std::endian::big) bytes.assign(bytes.rbegin(), bytes.rend());
        offset = (offset + 3) / 4 * 4;
        image.replace(offset, bytes.size(), bytes);
        offsets.push_back(offset);
        offset += bytes.size() + 1;
    }
    const auto start = std::bit_cast<intptr_t>(region(0).room(room, {Placement::atEnd, 0}));
    std::vector<intptr_t> slots;
    for (const size_t each : offsets) slots.push_back(start + static_cast<intptr_t>(each));
    const char *const text = string(choices, 1, input);
    const char *const placed = string(choices, 2, format);
    requireEqual(TQ_sscanf(text, placed, slots.empty() ? nullptr : slots.data()), expected.result, "result");
    requireBytes(0, image);
}

void formattedInput(Choices &choices) {
    static const std::string inputs[] = {"12 ab-7",
                                         "\n\r 5x",
                                         "x12345 67",
                                         "-0x1F]^",
                                         "300 70000 -1",
                                         "a\\b %c\t\n",
                                         "[n]h",
                                         "\x80"
                                         "5 2n"};
    const std::string format = choices.text("%csiun[^]bhl2\\ x0a", 5);
    requireScan(choices, choices.pick(inputs), format);
}

void formattedInputOfAnyText(Choices &choices) {
    static const std::string formats[] = {"%i%n",  "%3s%c",   "%[^-]%n", "%2[^ ] %u", "\\n%hi %bi %n",
                                          "%s%3s", "a %i%%x", "\\r\\n5", "%c%c%c%s",  "%1s"};
    requireScan(choices, choices.text("5a- \n%x0", 5), choices.pick(formats));
}

void lines(Choices &choices) {
    const std::string text = choices.text("ab\r\n\x80", 6);
    const auto size = static_cast<size_t>(choices.between(1, 6)) * (choices.flag() ? 1 : 16);
    const model::Line expected = model::line(text, size);
    const size_t readable = expected.content.size() == size ? expected.stop + 1 : text.size() + 1;
    const char *const source = region(0).place(std::string_view(text.c_str(), readable), choices.placement());
    char *const destination = region(1).room(size + 1, choices.placement());
    requireEqual(X_TAMBRO_gets(destination, static_cast<int32_t>(size), source), static_cast<int32_t>(expected.stop),
                 "stop");
    requireBytes(1, expected.content + '\0');
}

void tokens(Choices &choices) {
    const std::string text = choices.text(", ;ab\xFF", 5);
    const std::string set = choices.text(",; \xFF-", 3);
    const char *const start = string(choices, 0, text);
    const char *const delimiters = string(choices, 1, set);
    const model::Token expected = model::token(text, set);
    const bool found = expected.first != model::none;
    uint16_t length = 999;
    char marker = 0;
    char *end = &marker;
    requirePosition(TQ_strtoklen(start, delimiters, &length), start, expected.first);
    requirePosition(TQ_strtoken(start, delimiters, &end), start, expected.first);
    requireEqual(length, static_cast<uint16_t>(found ? expected.end - expected.first : 0), "length");
    require(end == (found ? start + expected.end : &marker), "end");
    requirePosition(TQ_strtoklen(start, delimiters, nullptr), start, expected.first);
    requirePosition(TQ_strtoken(start, delimiters, nullptr), start, expected.first);
}

constexpr std::string_view utf8Bytes("a\x80\xBF\xC0\xC1\xC2\xE2\xF0\xF4\xF8\xFC\xFE", 12);

void encoding(Choices &choices) {
    const uint32_t codePoint = (uint32_t{choices.below(4)} << choices.below(31)) - choices.below(3);
    const std::string expected = model::encode(codePoint) + '\0';
    char *const buffer = region(0).room(expected.size(), choices.placement());
    requireEqual(unicodeToUtf8(codePoint, buffer),
                 codePoint > INT32_MAX ? 0 : static_cast<int32_t>(expected.size()) - 1, "length");
    requireBytes(0, expected);
}

void decoding(Choices &choices) {
    const std::string text = choices.text(utf8Bytes, 4);
    const model::Decoded expected = model::decode(text, 4711);
    const char *const input = string(choices, 0, text);
    uint32_t codePoint = 4711;
    int32_t decoded = -1;
    const char *const next = utf8ToUnicode(input, &codePoint, &decoded);
    requireEqual(decoded, expected.length, "length");
    requireEqual(codePoint, expected.codePoint, "code point");
    requirePosition(next, input, expected.length == 0 ? 1 : static_cast<size_t>(expected.length));
}

void reading(Choices &choices) {
    const std::string text = choices.text(utf8Bytes, 4);
    const model::Character expected = model::readCharacter(text);
    const char *const input = string(choices, 0, text);
    char *const character = region(1).room(5, choices.placement());
    int32_t valid = -1;
    requirePosition(utf8ReadChar(input, &valid, character), input, expected.advance);
    requireEqual(valid, int32_t{expected.valid}, "validity");
    std::string copy = expected.copy;
    if (!expected.valid && copy.size() > 1) copy[0] = 0;
    requireBytes(1, copy);
    requirePosition(utf8ReadChar(input, nullptr, nullptr), input, expected.advance);
}

void characterSetSearch(Choices &choices) {
    const std::string text = choices.text("a\xC3\xA9\xE2\x82", 4);
    const std::string set = choices.text("ab\xC3\xA9\xE2\x82\xF0\xF8", 4);
    const char *const start = string(choices, 0, text);
    requirePosition(TQANSI_strpbrkUTF8(start, string(choices, 1, set)), start, model::findAnyCharacter(text, set));
}

void stringDifference(Choices &choices) {
    const std::string a = choices.text(
        "\x01"
        "b\x7F\x80\xFF",
        5);
    const std::string b = choices.text(
        "\x01"
        "b\x80",
        2);
    const char *const first = string(choices, 0, a);
    const char *const second = string(choices, 1, b);
    requireEqual(string_operator_diff(first, second), model::stringDifference(a, b), "difference");
    requireEqual(string_operator_diff(second, first), model::stringDifference(b, a), "difference");
}

void stringSum(Choices &choices) {
    const std::string source = choices.text(
        "\x01"
        "a\x7F\xFF",
        5);
    const uint32_t addend = choices.pick(std::array{0x00000000u, 0x01000000u, 0xFF000000u, 0x7F000000u}) |
                            choices.pick(std::array{0x000000u, 0x010000u, 0xFF0000u}) |
                            choices.pick(std::array{0x0000u, 0x0100u, 0xFF00u, 0xFE00u}) |
                            choices.pick(std::array{0x00u, 0x01u, 0xFFu, 0x9Fu});
    const std::string expected = model::stringSum(source, static_cast<int32_t>(addend));
    const size_t room = std::max<size_t>(source.size(), 4) + 1;
    char *const destination = region(0).room(room, choices.placement());
    const bool inPlace = choices.flag();
    if (inPlace) std::memcpy(destination, source.c_str(), source.size() + 1);
    const char *const from = inPlace ? destination : string(choices, 1, source);
    require(string_operator_add(destination, from, static_cast<int32_t>(addend)) == destination, "result");
    require(expected == destination, "sum");
    requireBytes(0, std::string(destination, room));  // nothing outside
}

constexpr Property all[] = {
    {"length", length},
    {"copy", copy},
    {"bounded copy", boundedCopy},
    {"concatenation", concatenation},
    {"overlapping copy", overlappingCopy},
    {"fill", fill},
    {"comparison", comparison},
    {"range comparison", rangeComparison},
    {"collation", collation},
    {"conversion", conversion},
    {"byte search", byteSearch},
    {"range search", rangeSearch},
    {"set search", setSearch},
    {"substring search", substringSearch},
    {"periodic search", periodicSearch},
    {"search among runs", searchAmongRuns},
    {"blank line", blankLine},
    {"integer reading", integerReading},
    {"integer writing", integerWriting},
    {"formatted output", formattedOutput},
    {"formatted input", formattedInput},
    {"formatted input of any text", formattedInputOfAnyText},
    {"lines", lines},
    {"tokens", tokens},
    {"encoding", encoding},
    {"decoding", decoding},
    {"reading", reading},
    {"character set search", characterSetSearch},
    {"string difference", stringDifference},
    {"string sum", stringSum},
};

}  // namespace

std::span<const Property> properties() { return all; }

std::string lastArguments() {
    std::ostringstream text;
    text << std::hex;
    for (int i = 0; i < 3; ++i) {
        text << "\n  ";
        for (const char byte : region(i).content().substr(0, 80)) {
            text << (static_cast<unsigned>(byte) & 0xFF) << ' ';
        }
    }
    return text.str();
}

}  // namespace tests
