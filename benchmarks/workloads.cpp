// The one table of workloads. Whatever meter this is compiled for, the texts are the same; the order in which they are
// made decides their bytes, so new workloads come last.

#include <strlib.h>

#include <numeric>

#include "meter.h"
#include "texts.h"

namespace {

constexpr char sought = ';';
char *onStack = nullptr;  // 256 bytes in main()'s frame, where most callers have the buffers that they format into
constexpr int32_t beyondAll = measuresTime ? 100000 : 5000;

struct Pair {
    char *first;
    char *second;
    uint32_t length = 0;
};

constexpr auto ofText = [](auto call, const Text &text) { return call(text.at); };
constexpr auto ofPair = [](auto call, const Pair &pair) { return call(pair.first, pair.second); };
constexpr auto ofBytes = [](auto call, const Pair &pair) { return call(pair.first, pair.second, pair.length); };
constexpr auto forByte = [](auto call, const Text &text) { return call(text.at, sought); };

void putSomewhere(std::string &text, char byte) {
    if (!text.empty()) text[below(static_cast<uint32_t>(text.size()))] = byte;
}

std::string withRandomCase(std::string text) {
    for (char &byte : text)
        if (below(2) == 0) byte = static_cast<char>(TQANSI_toupper(byte));
    return text;
}

uint8_t *identicalTable() {
    uint8_t *const table = variables<uint8_t>(256);
    std::iota(table, table + 256, uint8_t{0});
    return table;
}

// Half of the mixed texts hold the byte; the texts of one length do not.
void measureLengthAndSearch(const Sizes &sizes) {
    Workload<Text> texts = makeTexts(sizes, [&](std::string &text) {
        if (sizes.isMix && below(2) == 0) putSomewhere(text, sought);
    });
    measure(contest::TQANSI_strlen, texts, ofText);
    measure(contest::TQANSI_strchr, texts, forByte);
    measure(contest::TQANSI_strrchr, texts, forByte);
    measure(contest::TQANSI_memchr, texts, [](auto call, auto &text) { return call(text.at, sought, text.length); });
    std::vector<const char *> sets = {",;\t", ",;:!?/\t\n"};
    if (measuresTime) sets.insert(sets.end(), {",;:!?/\t\n#%&", ",;:!?/\t\n#%&0123456789+"});
    for (const char *const set : sets) {
        texts.name = sizes.workload + ", set of " + std::to_string(std::strlen(set));
        measure(contest::TQANSI_strpbrk, texts, [=](auto call, auto &text) { return call(text.at, set); });
    }
}

void measureCopies(const Sizes &sizes) {
    struct Copy {
        char *room;
        char *end;
        const char *text;
        uint32_t length;
        int32_t count;
    };
    Workload<Copy> copies{sizes.workload};
    for (const Text &text : makeTexts(sizes).cases) copies.cases.push_back({nullptr, nullptr, text.at, text.length, 0});
    startPage(2048);
    for (size_t index = 0; Copy & copy : copies.cases) copy.room = room(copy.length + 65, sizes.alignment(index++, 1));
    for (Copy &copy : copies.cases) copy.count = static_cast<int32_t>(sizes.isMix ? below(33) : copy.length * 3 / 4);

    const auto whole = [](auto call, const Copy &copy) { return call(copy.room, copy.text); };
    const auto bounded = [](auto call, const Copy &copy) { return call(copy.room, copy.text, copy.count); };
    measure(contest::TQANSI_strcpy, copies, whole);
    measure(contest::TQ_strappend, copies, whole);
    measure<host::memccpyThenEnd, host::strncpyThenEnd>(contest::TQANSI_strncpy, copies, bounded);
    measure(contest::TQANSI_memset, copies, [](auto call, auto &copy) { return call(copy.room, 'x', copy.length); });

    for (Copy &copy : copies.cases) {
        copy.end = copy.room + below(16);
        std::fill(copy.room, copy.end, 'x');
        *copy.end = 0;
    }
    // The string is cut short again after the call: cut right before, it would be read before the store is through.
    const auto appending = [](auto how) {
        return [=](auto call, const Copy &copy) {
            char *const result = how(call, copy);
            *copy.end = 0;
            return result;
        };
    };
    measure(contest::TQANSI_strcat, copies, appending(whole));
    measure(contest::TQANSI_strncat, copies, appending(bounded));
}

// Equal texts, but that half of the mixed ones differ somewhere.
void measureComparisons(const Sizes &sizes) {
    Workload<Pair> exact{sizes.workload};
    Workload<Pair> folded{sizes.workload};
    const Workload<Text> firsts = makeTexts(sizes);
    for (size_t index = 0; index < firsts.cases.size(); ++index) {
        const auto [at, length] = firsts.cases[index];
        std::string text(at);
        if (sizes.isMix && below(2) == 0) putSomewhere(text, '~');
        exact.cases.push_back({at, place(text, sizes.alignment(index, 1)), length});
        text = withRandomCase(text);
        folded.cases.push_back({at, place(text, sizes.alignment(index, 1)), length});
    }
    uint8_t *const collation = identicalTable();
    for (uint8_t letter = 'A'; letter <= 'Z'; ++letter) collation[letter] = static_cast<uint8_t>(letter + 32);

    const auto bounded = [](auto call, const Pair &pair) { return call(pair.first, pair.second, beyondAll); };
    measure(contest::TQANSI_strcmp, exact, ofPair);
    measure(contest::TQANSI_strncmp, exact, bounded);
    measure(contest::TQANSI_memcmp, exact, ofBytes);
    measure(contest::TQANSI_stricmp, folded, ofPair);
    measure(contest::TQANSI_strnicmp, folded, bounded);
    measure<host::strcasecmpAsCollation>(contest::customStricmp, folded, [=](auto call, const Pair &pair) {
        return call(pair.first, pair.second, collation);
    });
}

void measureSubstring(const Workload<Pair> &searches) {
    measure(contest::TQANSI_strstr, searches, ofPair);
    measure(contest::TQ_stristr, searches, ofPair);
}

void measureSubstrings() {
    Workload<Pair> inMix{"mix, of 1 to 4 bytes"};
    Workload<Pair> inProse{"4096 of prose, a word"};
    for (const Text &text : makeTexts(allSizes()[0]).cases) {
        const uint32_t length = 1 + below(4);
        const bool isThere = text.length >= length && below(2) == 0;
        const std::string wanted =
            isThere ? std::string(text.at + below(text.length - length + 1), length) : letters(length);
        inMix.cases.push_back({text.at, place(wanted, below(32))});
    }
    for (int search = 0; search < 16; ++search) {
        const std::string word = letters(4 + below(7));
        inProse.cases.push_back({place(prose(4080) + word, below(32)), place(word, below(32))});
    }
    measureSubstring(inMix);
    measureSubstring(inProse);
    measureSubstring(
        {"4096 periodic, of 33", {{place(std::string(4095, 'a') + 'b', 1), place(std::string(32, 'a') + 'b', 2)}}});
    const std::string text = prose(4096);
    measureSubstring({"4096 of prose, of 300", {{place(text, 1), place(text.substr(3796), 2)}}});
}

void measureClasses() {
    uint8_t *const table = identicalTable();
    Workload<int32_t> bytes{"all bytes", std::vector<int32_t>(256)};
    std::iota(bytes.cases.begin(), bytes.cases.end(), 0);
    const auto ofByte = [](auto call, int32_t byte) { return call(byte); };
    measure<host::toupperInLine>(contest::TQANSI_toupper, bytes, ofByte);
    measure<host::isalphaInLine>(contest::TQANSI_isalpha, bytes, ofByte);
    measure<host::isdigitInLine>(contest::TQANSI_isdigit, bytes, ofByte);
    measure(contest::TQ_isAttribute, bytes, [=](auto call, int32_t byte) { return call(0x11, table, byte); });
    for (const Sizes &sizes : allSizes()) {
        const auto blanks = makeTexts(sizes, [&](std::string &text) {
            for (char &byte : text) byte = below(4) == 0 ? '\t' : ' ';
            if (sizes.isMix && below(2) == 0) putSomewhere(text, 'x');
        });
        measure(contest::TQ_isBlankLine, blanks, ofText);
        measure(contest::TQ_convertZstring, makeTexts(sizes), [=](auto call, const Text &text) {
            call(table, text.at);
            return text.at;
        });
    }
}

// Numbers, each with how it is written.
template <class Value>
struct Number {
    Value value;
    char *text;
};

int32_t mixedInteger(uint32_t most) {
    const uint32_t digits = 1 + below(most);
    uint32_t value = 0;
    for (uint32_t digit = 0; digit < digits; ++digit) value = value * 10 + below(10);
    return static_cast<int32_t>(below(4) == 0 ? 0 - value : value);
}

void measureNumbers(uint32_t most, const std::string &workload, const std::string &written) {
    Workload<Number<int32_t>> numbers{workload, std::vector<Number<int32_t>>(256)};
    for (auto &[value, text] : numbers.cases) {
        value = mixedInteger(most);
        text = place(std::to_string(value), below(32));
    }
    char *const buffer = onStack;
    measure<host::fromChars>(contest::TQANSI_atoi, numbers, [](auto call, auto &number) { return call(number.text); });
    numbers.name = "radix 10" + written;
    measure<host::toChars>(contest::decimal, numbers,
                           [=](auto call, auto &number) { return call(number.value, buffer, 64, 10); });
    numbers.name = "radix 16" + written;
    measure<host::hexadecimal>(contest::hexadecimal, numbers,
                               [=](auto call, auto &number) { return call(number.value, buffer, 64, 16); });
}

using Slots = std::array<intptr_t, 3>;

template <auto &peer>
void measurePrint(const char *workload, const char *format, const Slots &first, auto random) {
    Workload<Slots> prints{workload, {first}};
    char *const buffer = onStack;
    const char *const placed = place(format, 4);
    while (measuresTime && prints.cases.size() < 256) prints.cases.push_back(random());
    measure<peer>(contest::TQ_sprintf, prints,
                  [=](auto call, const Slots &slots) { return call(buffer, 256, placed, slots.data()); });
}

void measureScan(const char *format, const std::string &first, auto random, const Slots &slots) {
    Workload<char *> inputs{format, {place(first, 0)}};
    while (measuresTime && inputs.cases.size() < 256) inputs.cases.push_back(place(random(), below(32)));
    measure(contest::TQ_sscanf, inputs, [=](auto call, char *input) { return call(input, format, slots.data()); });
}

void measureFormats() {
    const auto slot = [](auto *place) { return reinterpret_cast<intptr_t>(place); };
    const intptr_t name = slot(place("temperature", 3));
    const auto integer = [] { return mixedInteger(9); };
    const auto mixed = [=] { return Slots{integer(), name, 'C'}; };
    const auto integers = [=] { return Slots{integer(), integer(), integer()}; };
    measurePrint<host::printFields>("%d|%s|%c", "%d|%s|%c", {1234, name, 'C'}, mixed);
    measurePrint<host::printIntegers>("%d,%d,%d", "%d,%d,%d", {-17, 90210, 4}, integers);
    measurePrint<host::printSentence>("a sentence", "The value %d of the sensor named %s is given in degrees %c.",
                                      {1234, name, 'C'}, mixed);

    int32_t *const numbers = variables<int32_t>(3);
    char *const word = variables<char>(64);
    const auto digits = [=] { return std::to_string(integer()); };
    const auto any = [] { return letters(1 + below(12)); };
    const Slots fields = {slot(word), slot(numbers), slot(numbers + 1)};
    measureScan("%i,%i,%i", "-17,90210,4", [=] { return digits() + ',' + digits() + ',' + digits(); },
                {slot(numbers), slot(numbers + 1), slot(numbers + 2)});
    measureScan(
        "%s %i %u", "temperature 1234 56", [=] { return any() + ' ' + digits() + " 56"; }, fields);
    measureScan(
        "%[^=]=%i %u", "temperature=1234 56", [=] { return any() + '=' + digits() + " 56"; }, fields);
    measureScan("%i,%i", "-17,90210", [=] { return digits() + ',' + std::to_string(mixedInteger(4)); },
                {slot(numbers), slot(numbers + 1)});
}

void measureLines(const char *workload, uint32_t shortest, uint32_t most) {
    Workload<char *> lines{workload, std::vector<char *>(64)};
    for (char *&line : lines.cases)
        line = place(letters(shortest + below(most - shortest + 1)) + "\r\n" + letters(80), below(32));
    char *const destination = room(512, 4);
    measure(contest::X_TAMBRO_gets, lines, [=](auto call, char *line) { return call(destination, 500, line); });
}

void measureTokens(const char *workload, uint32_t shortest, uint32_t most) {
    Workload<char *> tokens{workload, std::vector<char *>(64)};
    for (char *&token : tokens.cases)
        token =
            place((below(2) == 0 ? ", " : ",") + letters(shortest + below(most - shortest + 1)) + ", next", below(32));
    char **const end = variables<char *>();
    uint16_t *const length = variables<uint16_t>();
    measure(contest::TQ_strtoken, tokens, [=](auto call, char *token) { return call(token, ", ", end); });
    measure(contest::TQ_strtoklen, tokens, [=](auto call, char *token) { return call(token, ", ", length); });
}

uint32_t mixedCodePoint() {
    static constexpr std::array<uint32_t, 5> limits = {1, 0x80, 0x800, 0x10000, 0x110000};
    const uint32_t chance = below(20);
    const size_t length = chance < 10 ? 1 : chance < 14 ? 2 : chance < 19 ? 3 : 4;
    const uint32_t codePoint = limits[length - 1] + below(limits[length] - limits[length - 1]);
    const bool isSurrogate = codePoint >= 0xD800 && codePoint < 0xE000;
    return measuresTime && isSurrogate ? codePoint - 0x1000 : codePoint;  // A peer there refuses surrogates.
}

uint32_t asciiCodePoint() { return 'a' + below(26); }
uint32_t latinCodePoint() { return below(8) == 0 ? 0xE0 + below(30) : asciiCodePoint(); }
uint32_t cjkCodePoint() { return 0x4E00 + below(0x5000); }

std::string encoded(uint32_t codePoint) {
    std::array<char, 8> buffer;
    const int32_t length = unicodeToUtf8(codePoint, buffer.data());
    return {buffer.data(), static_cast<size_t>(length)};
}

void measureUtf8(const char *workload, uint32_t (*next)()) {
    Workload<Number<uint32_t>> characters{workload, std::vector<Number<uint32_t>>(256)};
    for (auto &[codePoint, text] : characters.cases) {
        codePoint = next();
        text = place(encoded(codePoint) + "next", below(32));
    }
    char *const buffer = variables<char>(8);
    uint32_t *const codePoint = variables<uint32_t>();
    int32_t *const result = variables<int32_t>();
    measure<host::encode>(contest::unicodeToUtf8, characters,
                          [=](auto call, auto &character) { return call(character.value, buffer); });
    measure<host::decode>(contest::utf8ToUnicode, characters,
                          [=](auto call, auto &character) { return call(character.text, codePoint, result); });
    measure<host::readCharacter>(contest::utf8ReadChar, characters,
                                 [=](auto call, auto &character) { return call(character.text, result, buffer); });
}

void measureUtf8Set(const char *workload, size_t characters, bool isThere) {
    std::string text;
    for (size_t character = 0; character < characters; ++character) text += encoded(0x430 + below(32));
    if (isThere) text += "\xC2\xA7";
    measure(contest::TQANSI_strpbrkUTF8, Workload<char *>{workload, {place(text, 1)}},
            [](auto call, char *string) { return call(string, "\xE2\x82\xAC\xC2\xA7\xE2\x80\x93"); });
}

void measureArithmetic() {
    Workload<Pair> pairs{"4 to 12 bytes"};
    for (int pair = 0; pair < 64; ++pair) {
        char *const first = place(letters(4 + below(9)), below(32));
        pairs.cases.push_back({first, place(letters(4 + below(9)), below(32))});
    }
    char *const buffer = variables<char>(32);
    measure(contest::string_operator_diff, pairs, ofPair);
    measure(contest::string_operator_add, pairs, [=](auto call, auto &pair) { return call(buffer, pair.first, 1); });
}

// Whole texts: each call begins where the one before it ended, and waits for it.
void measureWalks() {
    std::string lines, tokens, characters;
    for (int piece = 0; piece < 2048; ++piece) {
        lines += letters(below(61)) + "\r\n";
        tokens += letters(1 + below(12)) + ' ';
        characters += encoded(latinCodePoint());
    }
    const Workload<char *> byLine{"through 2048 short lines", {place(lines, 0)}};
    const Workload<char *> byToken{"through 2048 short tokens", {place(tokens, 0)}};
    const Workload<char *> byCharacter{"through 2048 Latin characters", {place(characters, 0)}};
    char *const destination = room(512, 4);
    char **const end = variables<char *>();
    uint32_t *const codePoint = variables<uint32_t>();
    int32_t *const length = variables<int32_t>();
    measure(contest::X_TAMBRO_gets, byLine, [=](auto call, const char *at) {
        while (*at != 0) at += call(destination, 500, at) + 1;
        return at;
    });
    measure(contest::TQ_strtoken, byToken, [=](auto call, const char *at) {
        while (call(at, " \t,", end) != nullptr) at = *end;
        return at;
    });
    measure<host::decode>(contest::utf8ToUnicode, byCharacter, [=](auto call, const char *at) {
        while (*at != 0) at = call(at, codePoint, length);
        return at;
    });
}

// A needle at the end of a text that does not hold it before.
Pair atTheEnd(std::string text, const std::string &needle) {
    text += needle;
    startPage(0);
    char *const string = place(text, below(32));
    return {string, place(needle, below(32))};
}

void measureNeedles() {
    for (const size_t length : {2, 8, 32}) {
        Workload<Pair> searches{"4096 of prose, of " + std::to_string(length)};
        while (searches.cases.size() < (measuresTime ? 2 : 8)) {
            const std::string text = prose(4096 - length);
            const std::string needle = prose(length);
            if ((text + needle).find(needle) == text.size()) searches.cases.push_back(atTheEnd(text, needle));
        }
        measureSubstring(searches);
    }
    const std::string period = std::string(63, 'a') + 'b';
    std::string periods;
    while (periods.size() < 4096) periods += period;
    measureSubstring({"4096, almost everywhere 64", {atTheEnd(periods, std::string(64, 'a'))}});
    const std::string needle = prose(1000);
    measureSubstring({"16384 of prose, of 1000", {atTheEnd(prose(15384), needle)}});
    measureSubstring({"a^16384, a^31 b", {{place(std::string(16384, 'a'), 1), place(std::string(31, 'a') + 'b', 2)}}});

    Sizes sizes = alike(4096);
    sizes.workload += ", near the end";
    measure(contest::TQANSI_strrchr, makeTexts(sizes, [](std::string &text) { text[4080] = sought; }), forByte);
}

// Equal texts, or a text and its destination, at the same place in a word.
void measureAlike(uint32_t length) {
    const std::string text = letters(length);
    char *const first = place(text, 3);
    startPage(2048);
    const Workload<Pair> pairs{std::to_string(length) + ", aligned alike", {{first, place(text, 3), length}}};
    measure(contest::TQANSI_strcpy, pairs, [](auto call, auto &pair) { return call(pair.second, pair.first); });
    measure(contest::TQANSI_strcmp, pairs, ofPair);
    measure(contest::TQANSI_memcmp, pairs, ofBytes);
    measure(contest::TQANSI_stricmp, pairs, ofPair);
}

void measureWorst(const auto &contest, const std::string &workload, const std::string &text,
                  const std::string &needle) {
    measure(contest, Workload<Pair>{"worst: " + workload, {{place(text, 1), place(needle, 2)}}}, ofPair);
}

void measureWorstLine(const std::string &workload, const std::string &source) {
    char *const destination = room(source.size() + 1, 4);
    const Workload<char *> lines{"worst: " + workload, {place(source, 1)}};
    measure(contest::worstLine, lines, [=, size = static_cast<int32_t>(source.size())](auto call, char *line) {
        return call(destination, size, line);
    });
}

// Of few letters, of which the first is the most frequent.
std::string skewed(size_t length, uint32_t different) {
    std::string text(length, ' ');
    for (char &byte : text) byte = static_cast<char>('a' + below(1 + below(different)));
    return text;
}

// Long texts that are slow to search, beside a plain loop that only looks for their end.
void measureWorstInputs() {
    constexpr size_t length = 16384;
    const std::string run(length, 'a');
    measureWorst(contest::worstSearch, "a^n, aaaab", run, "aaaab");
    measureWorst(contest::worstFoldedSearch, "a^n, aaaab", run, "aaaab");
    for (const std::string needle : {"aaaaaacaabbaccaaaabaaaabq", "aaaaabaaabq"}) {
        measureWorst(contest::worstSearch, "skewed letters, " + needle, skewed(length, 3), needle);
        measureWorst(contest::worstFoldedSearch, "skewed letters, " + needle, withRandomCase(skewed(length, 3)),
                     needle);
    }
    for (const uint32_t different : {2U, 3U, 4U})
        for (const size_t size : {6U, 25U, 100U}) {
            const std::string workload = std::to_string(different) + " letters, of " + std::to_string(size);
            const std::string needle = letters(size - 1, different) + 'q';
            measureWorst(contest::worstSearch, workload, letters(length, different), needle);
            measureWorst(contest::worstFoldedSearch, workload, withRandomCase(letters(length, different)),
                         withRandomCase(needle));
        }
    std::string pairs;
    while (pairs.size() < length) pairs += "a\r";
    measureWorstLine("\\r^n", std::string(length, '\r'));
    measureWorstLine("(a \\r)^n", pairs);
}

void measureAll() {
    for (const Sizes &sizes : allSizes()) measureLengthAndSearch(sizes);
    for (const Sizes &sizes : allSizes()) measureCopies(sizes);
    for (const Sizes &sizes : allSizes()) measureComparisons(sizes);
    measureSubstrings();
    measureClasses();
    measureNumbers(10, "1 to 10 digits", "");
    measureFormats();
    measureLines("short", 10, 50);
    measureLines("400", 400, 400);
    measureTokens("short", 3, 8);
    measureTokens("400", 400, 400);
    measureUtf8("mixed", mixedCodePoint);
    measureUtf8("ASCII", asciiCodePoint);
    measureUtf8Set("near", 4, true);
    measureUtf8Set("4096", 2048, false);
    measureArithmetic();
    measureNumbers(2, "1 to 2 digits", ", 1 to 2 digits");
    measureUtf8("Latin", latinCodePoint);
    measureUtf8("CJK", cjkCodePoint);
    measureNeedles();
    measureAlike(256);
    measureAlike(4096);
    measureWorstInputs();
    if (measuresTime) measureWalks();  // What costs nothing there does not end.
}

}  // namespace

int main(int argc, char **argv) {
    std::array<char, 256> buffer;
    onStack = buffer.data();
    return runMeter(argc, argv, measureAll);
}
