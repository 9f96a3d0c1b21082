// The one table of workloads and of who takes part in each. Whatever meter this is compiled for, the texts are the
// same; the order in which they are made decides their bytes, so new workloads come last.

#include <strlib.h>

#include <numeric>

#include "contests.h"
#include "meter.h"
#include "texts.h"

namespace {

constexpr char sought = ';';
char *onStack = nullptr;  // 256 bytes in main()'s frame, where most callers have the buffers that they format into
constexpr int32_t beyondAll = measuresTime ? 100000 : 5000;

void putSomewhere(std::string &text, char byte) {
    if (!text.empty()) text[below(static_cast<uint32_t>(text.size()))] = byte;
}

// Half of the mixed texts hold the byte; the texts of one length do not.
std::vector<Text> textsToSearch(const Sizes &sizes) {
    return makeTexts(sizes, [&](std::string &text) {
        if (sizes.isMix && below(2) == 0) putSomewhere(text, sought);
    });
}

void measureLastByte(const std::string &workload, const std::vector<Text> &texts) {
    measure(contest::TQANSI_strrchr, workload, texts.size(),
            [=](auto call, size_t i) { return call(texts[i].at, sought); });
}

void measureLengthAndSearch(const Sizes &sizes) {
    const auto texts = textsToSearch(sizes);
    const size_t calls = texts.size();
    measure(contest::TQANSI_strlen, sizes.workload, calls, [=](auto call, size_t i) { return call(texts[i].at); });
    measure(contest::TQANSI_strchr, sizes.workload, calls,
            [=](auto call, size_t i) { return call(texts[i].at, sought); });
    measureLastByte(sizes.workload, texts);
    measure(contest::TQANSI_memchr, sizes.workload, calls,
            [=](auto call, size_t i) { return call(texts[i].at, sought, texts[i].length); });
    std::vector<const char *> sets = {",;\t", ",;:!?/\t\n"};
    if (measuresTime) sets.insert(sets.end(), {",;:!?/\t\n#%&", ",;:!?/\t\n#%&0123456789+"});
    for (const char *const set : sets)
        measure(contest::TQANSI_strpbrk, sizes.workload + ", set of " + std::to_string(std::strlen(set)), calls,
                [=](auto call, size_t i) { return call(texts[i].at, set); });
}

void measureCopies(const Sizes &sizes) {
    const auto texts = makeTexts(sizes);
    const auto rooms = makeRooms(sizes, 65);
    std::vector<int32_t> counts;
    for (const Text &text : texts)
        counts.push_back(static_cast<int32_t>(sizes.isMix ? below(33) : text.length * 3 / 4));
    const size_t calls = texts.size();
    const auto toRoom = [=](auto call, size_t i) { return call(rooms[i], texts[i].at); };
    measure(contest::TQANSI_strcpy, sizes.workload, calls, toRoom);
    measure(contest::TQ_strappend, sizes.workload, calls, toRoom);
    measure(
        contest::TQANSI_strncpy, sizes.workload, calls,
        [=](auto call, size_t i) { return call(rooms[i], texts[i].at, counts[i]); }, host::memccpyThenEnd,
        host::strncpyThenEnd);
    measure(contest::TQANSI_memset, sizes.workload, calls,
            [=](auto call, size_t i) { return call(rooms[i], 'x', texts[i].length); });

    std::vector<char *> ends;
    for (char *const at : rooms) {
        const size_t before = below(16);
        std::memset(at, 'x', before);
        ends.push_back(at + before);
        *ends.back() = 0;
    }
    // The string is cut short again after the call: cut right before, it would be read before the store is through.
    const auto appending = [=](auto append, size_t i) {
        char *const result = append();
        *ends[i] = 0;
        return result;
    };
    measure(contest::TQANSI_strcat, sizes.workload, calls,
            [=](auto call, size_t i) { return appending([&] { return call(rooms[i], texts[i].at); }, i); });
    measure(contest::TQANSI_strncat, sizes.workload, calls,
            [=](auto call, size_t i) { return appending([&] { return call(rooms[i], texts[i].at, counts[i]); }, i); });
}

void measureExact(const std::string &workload, const std::vector<std::array<char *, 2>> &pairs) {
    measure(contest::TQANSI_strcmp, workload, pairs.size(),
            [=](auto call, size_t i) { return call(pairs[i][0], pairs[i][1]); });
}

// Equal texts, but that half of the mixed ones differ somewhere.
void measureComparisons(const Sizes &sizes) {
    const auto firsts = makeTexts(sizes);
    std::vector<char *> seconds;
    std::vector<char *> capitals;
    std::vector<std::array<char *, 2>> pairs;
    for (size_t i = 0; i < firsts.size(); ++i) {
        std::string text(firsts[i].at);
        if (sizes.isMix && below(2) == 0) putSomewhere(text, '~');
        seconds.push_back(place(text, sizes.alignment(i, 1)));
        pairs.push_back({firsts[i].at, seconds[i]});
        for (char &byte : text)
            if (below(2) == 0) byte = static_cast<char>(TQANSI_toupper(byte));
        capitals.push_back(place(text, sizes.alignment(i, 1)));
    }
    uint8_t *const collation = variables<uint8_t>(256);
    std::iota(collation, collation + 256, uint8_t{0});
    for (uint8_t letter = 'A'; letter <= 'Z'; ++letter) collation[letter] = static_cast<uint8_t>(letter + 32);

    const size_t calls = firsts.size();
    measureExact(sizes.workload, pairs);
    measure(contest::TQANSI_strncmp, sizes.workload, calls,
            [=](auto call, size_t i) { return call(firsts[i].at, seconds[i], beyondAll); });
    measure(contest::TQANSI_memcmp, sizes.workload, calls,
            [=](auto call, size_t i) { return call(firsts[i].at, seconds[i], firsts[i].length); });
    measure(contest::TQANSI_stricmp, sizes.workload, calls,
            [=](auto call, size_t i) { return call(firsts[i].at, capitals[i]); });
    measure(contest::TQANSI_strnicmp, sizes.workload, calls,
            [=](auto call, size_t i) { return call(firsts[i].at, capitals[i], beyondAll); });
    measure(
        contest::customStricmp, sizes.workload, calls,
        [=](auto call, size_t i) { return call(firsts[i].at, capitals[i], collation); }, host::strcasecmpAsCollation);
}

struct Search {
    char *string;
    char *substring;
};

void measureSubstring(const std::string &workload, const std::vector<Search> &searches) {
    const auto search = [=](auto call, size_t i) { return call(searches[i].string, searches[i].substring); };
    measure(contest::TQANSI_strstr, workload, searches.size(), search);
    measure(contest::TQ_stristr, workload, searches.size(), search);
}

void measureSubstrings() {
    std::vector<Search> inMix;
    std::vector<Search> inProse;
    for (const Text &text : makeTexts(allSizes()[0])) {
        const uint32_t length = 1 + below(4);
        const bool isThere = text.length >= length && below(2) == 0;
        const std::string wanted =
            isThere ? std::string(text.at + below(text.length - length + 1), length) : letters(length);
        inMix.push_back({text.at, place(wanted, below(32))});
    }
    for (int search = 0; search < 16; ++search) {
        const std::string word = letters(4 + below(7));
        inProse.push_back({place(prose(4080) + word, below(32)), place(word, below(32))});
    }
    measureSubstring("mix, of 1 to 4 bytes", inMix);
    measureSubstring("4096 of prose, a word", inProse);
    measureSubstring("4096 periodic, of 33",
                     {{place(std::string(4095, 'a') + 'b', 1), place(std::string(32, 'a') + 'b', 2)}});
    const std::string text = prose(4096);
    measureSubstring("4096 of prose, of 300", {{place(text, 1), place(text.substr(3796), 2)}});
}

void measureClasses() {
    uint8_t *const table = variables<uint8_t>(256);
    std::iota(table, table + 256, uint8_t{0});
    const auto ofByte = [=](auto call, size_t i) { return call(static_cast<int32_t>(i)); };
    measure(contest::TQANSI_toupper, "all bytes", 256, ofByte, host::toupperInLine);
    measure(contest::TQANSI_isalpha, "all bytes", 256, ofByte, host::isalphaInLine);
    measure(contest::TQANSI_isdigit, "all bytes", 256, ofByte, host::isdigitInLine);
    measure(contest::TQ_isAttribute, "all bytes", 256,
            [=](auto call, size_t i) { return call(0x11, table, static_cast<int32_t>(i)); });
    for (const Sizes &sizes : allSizes()) {
        const auto blanks = makeTexts(sizes, [&](std::string &text) {
            for (char &byte : text) byte = below(4) == 0 ? '\t' : ' ';
            if (sizes.isMix && below(2) == 0) putSomewhere(text, 'x');
        });
        measure(contest::TQ_isBlankLine, sizes.workload, blanks.size(),
                [=](auto call, size_t i) { return call(blanks[i].at); });
        const auto texts = makeTexts(sizes);
        measure(contest::TQ_convertZstring, sizes.workload, texts.size(),
                [=](auto call, size_t i) { call(table, texts[i].at); });
    }
}

int32_t mixedInteger(uint32_t most) {
    const uint32_t digits = 1 + below(most);
    uint32_t value = 0;
    for (uint32_t digit = 0; digit < digits; ++digit) value = value * 10 + below(10);
    return static_cast<int32_t>(below(4) == 0 ? 0 - value : value);
}

void measureNumbers(uint32_t most, const std::string &workload, const std::string &written) {
    std::vector<int32_t> values(256);
    std::vector<char *> texts;
    for (int32_t &value : values) {
        value = mixedInteger(most);
        texts.push_back(place(std::to_string(value), below(32)));
    }
    char *const buffer = onStack;
    measure(
        contest::TQANSI_atoi, workload, 256, [=](auto call, size_t i) { return call(texts[i]); }, host::fromChars);
    measure(
        contest::decimal, "radix 10" + written, 256,
        [=](auto call, size_t i) { return call(values[i], buffer, 64, 10); }, host::toChars);
    measure(
        contest::hexadecimal, "radix 16" + written, 256,
        [=](auto call, size_t i) { return call(values[i], buffer, 64, 16); }, host::hexadecimal);
}

using Arguments = std::array<intptr_t, 3>;

void measureFormats() {
    char *const buffer = onStack;
    char *const name = place("temperature", 3);
    const auto print = [&](const char *format, const char *workload, Arguments first, auto random, auto peer) {
        std::vector<Arguments> arguments = {first};
        const char *const placed = place(format, 4);
        while (measuresTime && arguments.size() < 256) arguments.push_back(random());
        measure(
            contest::TQ_sprintf, workload, arguments.size(),
            [=](auto call, size_t i) { return call(buffer, 256, placed, arguments[i].data()); }, peer);
    };
    const auto integer = [] { return static_cast<intptr_t>(mixedInteger(9)); };
    const auto mixed = [&] { return Arguments{integer(), reinterpret_cast<intptr_t>(name), 'C'}; };
    const Arguments first = {1234, reinterpret_cast<intptr_t>(name), 'C'};
    print("%d|%s|%c", "%d|%s|%c", first, mixed, host::printFields);
    print(
        "%d,%d,%d", "%d,%d,%d", {-17, 90210, 4},
        [&] {
            return Arguments{integer(), integer(), integer()};
        },
        host::printIntegers);
    print("The value %d of the sensor named %s is given in degrees %c.", "a sentence", first, mixed,
          host::printSentence);

    int32_t *const numbers = variables<int32_t>(3);
    char *const word = variables<char>(64);
    const auto slot = [](auto *place) { return reinterpret_cast<intptr_t>(place); };
    const auto scan = [](const char *format, const std::string &input, auto random, const Arguments &arguments) {
        std::vector<char *> inputs = {place(input, 0)};
        while (measuresTime && inputs.size() < 256) inputs.push_back(place(random(), below(32)));
        measure(contest::TQ_sscanf, format, inputs.size(),
                [=](auto call, size_t i) { return call(inputs[i], format, arguments.data()); });
    };
    const auto digits = [] { return std::to_string(mixedInteger(9)); };
    const auto any = [] { return letters(1 + below(12)); };
    scan("%i,%i,%i", "-17,90210,4", [&] { return digits() + ',' + digits() + ',' + digits(); },
         {slot(numbers), slot(numbers + 1), slot(numbers + 2)});
    scan("%s %i %u", "temperature 1234 56", [&] { return any() + ' ' + digits() + " 56"; },
         {slot(word), slot(numbers), slot(numbers + 1)});
    scan("%[^=]=%i %u", "temperature=1234 56", [&] { return any() + '=' + digits() + " 56"; },
         {slot(word), slot(numbers), slot(numbers + 1)});
    scan("%i,%i", "-17,90210", [&] { return digits() + ',' + std::to_string(mixedInteger(4)); },
         {slot(numbers), slot(numbers + 1)});
}

void measureLines(const char *workload, uint32_t shortest, uint32_t most) {
    std::vector<char *> lines;
    for (int line = 0; line < 64; ++line)
        lines.push_back(place(letters(shortest + below(most - shortest + 1)) + "\r\n" + letters(80), below(32)));
    char *const destination = room(512, 4);
    measure(contest::X_TAMBRO_gets, workload, lines.size(),
            [=](auto call, size_t i) { return call(destination, 500, lines[i]); });
}

void measureTokens(const char *workload, uint32_t shortest, uint32_t most) {
    std::vector<char *> tokens;
    for (int token = 0; token < 64; ++token)
        tokens.push_back(
            place((below(2) == 0 ? ", " : ",") + letters(shortest + below(most - shortest + 1)) + ", next", below(32)));
    char **const end = variables<char *>();
    uint16_t *const length = variables<uint16_t>();
    measure(contest::TQ_strtoken, workload, tokens.size(),
            [=](auto call, size_t i) { return call(tokens[i], ", ", end); });
    measure(contest::TQ_strtoklen, workload, tokens.size(),
            [=](auto call, size_t i) { return call(tokens[i], ", ", length); });
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
    std::vector<uint32_t> codePoints(256);
    std::vector<char *> texts;
    for (uint32_t &codePoint : codePoints) {
        codePoint = next();
        texts.push_back(place(encoded(codePoint) + "next", below(32)));
    }
    char *const buffer = variables<char>(8);
    uint32_t *const codePoint = variables<uint32_t>();
    int32_t *const result = variables<int32_t>();
    measure(
        contest::unicodeToUtf8, workload, 256, [=](auto call, size_t i) { return call(codePoints[i], buffer); },
        host::encode);
    measure(
        contest::utf8ToUnicode, workload, 256, [=](auto call, size_t i) { return call(texts[i], codePoint, result); },
        host::decode);
    measure(
        contest::utf8ReadChar, workload, 256, [=](auto call, size_t i) { return call(texts[i], result, buffer); },
        host::readCharacter);
}

void measureUtf8Set(const char *workload, size_t characters, bool isThere) {
    std::string text;
    for (size_t character = 0; character < characters; ++character) text += encoded(0x430 + below(32));
    const char *const set = "\xE2\x82\xAC\xC2\xA7\xE2\x80\x93";
    const char *const string = place(isThere ? text + "\xC2\xA7" : text, 1);
    measure(contest::TQANSI_strpbrkUTF8, workload, 1, [=](auto call, size_t) { return call(string, set); });
}

void measureArithmetic() {
    std::vector<std::array<char *, 2>> pairs;
    for (int pair = 0; pair < 64; ++pair) {
        char *const first = place(letters(4 + below(9)), below(32));
        pairs.push_back({first, place(letters(4 + below(9)), below(32))});
    }
    char *const buffer = variables<char>(32);
    measure(contest::string_operator_diff, "4 to 12 bytes", pairs.size(),
            [=](auto call, size_t i) { return call(pairs[i][0], pairs[i][1]); });
    measure(contest::string_operator_add, "4 to 12 bytes", pairs.size(),
            [=](auto call, size_t i) { return call(buffer, pairs[i][0], 1); });
}

// Whole texts: each call begins where the one before it ended, and waits for it.
void measureWalks() {
    std::string lines, tokens, characters;
    for (int piece = 0; piece < 2048; ++piece) {
        lines += letters(below(61)) + "\r\n";
        tokens += letters(1 + below(12)) + ' ';
        characters += encoded(latinCodePoint());
    }
    const char *const firstLine = place(lines, 0);
    const char *const firstToken = place(tokens, 0);
    const char *const firstCharacter = place(characters, 0);
    char *const destination = room(512, 4);
    char **const end = variables<char *>();
    uint32_t *const codePoint = variables<uint32_t>();
    int32_t *const length = variables<int32_t>();
    measure(contest::X_TAMBRO_gets, "through 2048 short lines", 1, [=](auto call, size_t) {
        const char *at = firstLine;
        while (*at != 0) at += call(destination, 500, at) + 1;
        return at;
    });
    measure(contest::TQ_strtoken, "through 2048 short tokens", 1, [=](auto call, size_t) {
        const char *at = firstToken;
        while (call(at, " \t,", end) != nullptr) at = *end;
        return at;
    });
    measure(
        contest::utf8ToUnicode, "through 2048 Latin characters", 1,
        [=](auto call, size_t) {
            const char *at = firstCharacter;
            while (*at != 0) at = call(at, codePoint, length);
            return at;
        },
        host::decode);
}

// A needle at the end of a text that does not hold it before.
Search atTheEnd(std::string text, const std::string &needle) {
    text += needle;
    startPage(0);
    char *const string = place(text, below(32));
    return {string, place(needle, below(32))};
}

void measureNeedles() {
    for (const size_t length : {2, 8, 32}) {
        std::vector<Search> searches;
        while (searches.size() < (measuresTime ? 2 : 8)) {
            const std::string text = prose(4096 - length);
            const std::string needle = prose(length);
            if ((text + needle).find(needle) == text.size()) searches.push_back(atTheEnd(text, needle));
        }
        measureSubstring("4096 of prose, of " + std::to_string(length), searches);
    }
    const std::string period = std::string(63, 'a') + 'b';
    std::string periods;
    while (periods.size() < 4096) periods += period;
    measureSubstring("4096, almost everywhere 64", {atTheEnd(periods, std::string(64, 'a'))});
    const std::string needle = prose(1000);
    measureSubstring("16384 of prose, of 1000", {atTheEnd(prose(15384), needle)});
    measureSubstring("a^16384, a^31 b", {{place(std::string(16384, 'a'), 1), place(std::string(31, 'a') + 'b', 2)}});

    const Sizes sizes = alike(4096);
    measureLastByte("4096, near the end", makeTexts(sizes, [](std::string &text) { text[4080] = sought; }));
}

// Equal texts, or a text and its destination, at the same place in a word.
void measureAlike(size_t length) {
    const std::string workload = std::to_string(length) + ", aligned alike";
    const std::string text = letters(length);
    char *const first = place(text, 3);
    startPage(2048);
    char *const second = place(text, 3);
    measure(contest::TQANSI_strcpy, workload, 1, [=](auto call, size_t) { return call(second, first); });
    measureExact(workload, {{first, second}});
    measure(contest::TQANSI_memcmp, workload, 1, [=](auto call, size_t) { return call(first, second, length); });
    measure(contest::TQANSI_stricmp, workload, 1, [=](auto call, size_t) { return call(first, second); });
}

void measureWorst(const auto &contest, const std::string &workload, const std::string &text,
                  const std::string &needle) {
    const Search search = {place(text, 1), place(needle, 2)};
    measure(contest, "worst: " + workload, 1, [=](auto call, size_t) { return call(search.string, search.substring); });
}

void measureWorstLine(const std::string &workload, const std::string &source) {
    char *const destination = room(source.size() + 1, 4);
    const char *const text = place(source, 1);
    const int32_t size = static_cast<int32_t>(source.size());
    measure(contest::worstLine, "worst: " + workload, 1,
            [=](auto call, size_t) { return call(destination, size, text); });
}

std::string withRandomCase(std::string text) {
    for (char &byte : text)
        if (below(2) == 0) byte = static_cast<char>(TQANSI_toupper(byte));
    return text;
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
