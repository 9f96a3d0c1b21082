// The one table of workloads. Whatever meter this is compiled for, the texts are the same; the order in which they are
// made decides their bytes, so new workloads come last.

#include <strlib.h>

#include "meter.h"
#include "texts.h"

namespace {

constexpr char sought = ';';
char *onStack = nullptr;  // 256 bytes in main()'s frame, where most callers have the buffers that they format into
constexpr int32_t beyondAll = measuresTime ? 100000 : 5000;

// In half of the mixed texts; not in those of one length.
void putSomewhere(const Sizes &sizes, std::string &text, char byte) {
    if (sizes.isMix && below(2) == 0 && !text.empty()) text[below(static_cast<uint32_t>(text.size()))] = byte;
}

std::string withRandomCase(std::string text) {
    for (char &byte : text)
        if (below(2) == 0) byte = static_cast<char>(TQANSI_toupper(byte));
    return text;
}

void measureLengthAndSearch(const Sizes &sizes) {
    Workload texts = makeTexts(sizes, [&](std::string &text) { putSomewhere(sizes, text, sought); });
    measure(contest::TQANSI_strlen, texts, of::text);
    measure(contest::TQANSI_strchr, texts, of::text, sought);
    measure(contest::TQANSI_strrchr, texts, of::text, sought);
    measure(contest::TQANSI_memchr, texts, of::text, sought, of::length);
    std::vector<const char *> sets = {",;\t", ",;:!?/\t\n"};
    if (measuresTime) sets.insert(sets.end(), {",;:!?/\t\n#%&", ",;:!?/\t\n#%&0123456789+"});
    for (const char *const set : sets) {
        texts.name = sizes.workload + ", set of " + std::to_string(std::strlen(set));
        measure(contest::TQANSI_strpbrk, texts, of::text, set);
    }
}

void measureCopies(const Sizes &sizes) {
    Workload copies = makeTexts(sizes);
    startPage(2048);
    for (size_t index = 0; Case & copy : copies.cases) copy.other = room(copy.length + 65, sizes.alignment(index++, 1));
    for (Case &copy : copies.cases) copy.number = static_cast<int32_t>(sizes.isMix ? below(33) : copy.length * 3 / 4);
    measure(contest::TQANSI_strcpy, copies, of::other, of::text);
    measure(contest::TQ_strappend, copies, of::other, of::text);
    measure<host::byMemccpy, host::byStrncpy>(contest::TQANSI_strncpy, copies, of::other, of::text, of::number);
    measure(contest::TQANSI_memset, copies, of::other, 'x', of::length);
    // From here on the length is that of the string in the room. These rooms are others, aligned alike: no string would
    // fit behind what copies leave in theirs. The string is cut short again after the call: cut right before, it would
    // be read before the store is through.
    startPage(2048);
    for (Case &copy : copies.cases) {
        copy.other = room(copy.length + 65, reinterpret_cast<uintptr_t>(copy.other) % 32);
        copy.length = below(16);
        std::memset(copy.other, 'x', copy.length);
        copy.other[copy.length] = 0;
    }
    const auto append = [](auto call, const Case &copy, auto... count) {
        char *const result = call(copy.other, copy.text, count...);
        copy.other[copy.length] = 0;
        return result;
    };
    measureBody(contest::TQANSI_strcat, copies, append);
    measureBody(contest::TQANSI_strncat, copies,
                [=](auto call, auto &copy) { return append(call, copy, copy.number); });
}

// Equal texts, but that half of the mixed ones differ somewhere.
void measureComparisons(const Sizes &sizes) {
    Workload exact = makeTexts(sizes);
    Workload folded = exact;
    for (size_t index = 0; index < exact.cases.size(); ++index) {
        std::string text(exact.cases[index].text);
        putSomewhere(sizes, text, '~');
        exact.cases[index].other = place(text, sizes.alignment(index, 1));
        text = withRandomCase(text);
        folded.cases[index].other = place(text, sizes.alignment(index, 1));
    }
    static std::array<uint8_t, 256> collation;
    for (int32_t byte = 0; byte < 256; ++byte) collation[byte] = byte >= 'A' && byte <= 'Z' ? byte + 32 : byte;
    measure(contest::TQANSI_strcmp, exact, of::text, of::other);
    measure(contest::TQANSI_strncmp, exact, of::text, of::other, beyondAll);
    measure(contest::TQANSI_memcmp, exact, of::text, of::other, of::length);
    measure(contest::TQANSI_stricmp, folded, of::text, of::other);
    measure(contest::TQANSI_strnicmp, folded, of::text, of::other, beyondAll);
    measure<host::byStrcasecmp>(contest::customStricmp, folded, of::text, of::other, collation.data());
}

Case search(const std::string &text, const std::string &needle) { return {place(text, 1), place(needle, 2)}; }

void measureSubstring(const Workload &searches) {
    measure(contest::TQANSI_strstr, searches, of::text, of::other);
    measure(contest::TQ_stristr, searches, of::text, of::other);
}

void measureSubstrings() {
    Workload inMix = makeTexts(allSizes()[0]);
    inMix.name = "mix, of 1 to 4 bytes";
    for (Case &search : inMix.cases) {
        const uint32_t length = 1 + below(4);
        const bool isThere = search.length >= length && below(2) == 0;
        const std::string wanted =
            isThere ? std::string(search.text + below(search.length - length + 1), length) : letters(length);
        search.other = place(wanted, below(32));
    }
    Workload inProse{"4096 of prose, a word"};
    for (int search = 0; search < 16; ++search) {
        const std::string word = letters(4 + below(7));
        inProse.cases.push_back({place(prose(4080) + word, below(32)), place(word, below(32))});
    }
    measureSubstring(inMix);
    measureSubstring(inProse);
    measureSubstring({"4096 periodic, of 33", {search(std::string(4095, 'a') + 'b', std::string(32, 'a') + 'b')}});
    const std::string text = prose(4096);
    measureSubstring({"4096 of prose, of 300", {search(text, text.substr(3796))}});
}

void measureClasses() {
    static std::array<uint8_t, 256> table;
    Workload bytes{"all bytes", std::vector<Case>(256)};
    for (int32_t byte = 0; byte < 256; ++byte) bytes.cases[byte].number = table[byte] = byte;
    measure<host::toupperInLine>(contest::TQANSI_toupper, bytes, of::number);
    measure<host::isalphaInLine>(contest::TQANSI_isalpha, bytes, of::number);
    measure<host::isdigitInLine>(contest::TQANSI_isdigit, bytes, of::number);
    measure(contest::TQ_isAttribute, bytes, 0x11, table.data(), of::number);
    for (const Sizes &sizes : allSizes()) {
        const Workload blanks = makeTexts(sizes, [&](std::string &text) {
            for (char &byte : text) byte = below(4) == 0 ? '\t' : ' ';
            putSomewhere(sizes, text, 'x');
        });
        measure(contest::TQ_isBlankLine, blanks, of::text);
        measure(contest::TQ_convertZstring, makeTexts(sizes), table.data(), of::text);
    }
}

int32_t mixedInteger(uint32_t most) {
    const uint32_t digits = 1 + below(most);
    uint32_t value = 0;
    for (uint32_t digit = 0; digit < digits; ++digit) value = value * 10 + below(10);
    return static_cast<int32_t>(below(4) == 0 ? 0 - value : value);
}

void measureNumbers(uint32_t most, const std::string &workload, const std::string &range) {
    Workload numbers{workload, std::vector<Case>(256)};
    for (Case &given : numbers.cases) {
        given.number = mixedInteger(most);
        given.text = place(std::to_string(given.number), below(32));
    }
    measure<host::fromChars>(contest::TQANSI_atoi, numbers, of::text);
    measure<host::toChars>(contest::decimal, {"radix 10" + range, numbers.cases}, of::number, onStack, 64, 10);
    measure<host::hexadecimal>(contest::hexadecimal, {"radix 16" + range, numbers.cases}, of::number, onStack, 64, 16);
}

using Slots = std::array<intptr_t, 3>;

intptr_t slot(auto *place) { return reinterpret_cast<intptr_t>(place); }

// Where time is measured, with many arguments beside the first.
template <auto &peer>
void measurePrint(const char *workload, const char *format, const Slots &first, auto random) {
    std::vector<Slots> prints = {first};
    while (measuresTime && prints.size() < 256) prints.push_back(random());
    Workload numbered{workload, std::vector<Case>(prints.size(), {place(format, 4)})};
    for (int32_t number = 0; Case & given : numbered.cases) given.number = number++;
    measure<peer>(contest::TQ_sprintf, numbered, onStack, 256, of::text,
                  [=](const Case &print) { return prints[static_cast<size_t>(print.number)].data(); });
}

void measureScan(const Slots &slots, const char *format, const std::string &first, auto random) {
    Workload inputs{format, {{place(first, 0)}}};
    while (measuresTime && inputs.cases.size() < 256) inputs.cases.push_back({place(random(), below(32))});
    measure(contest::TQ_sscanf, inputs, of::text, format, [=](const Case &) { return slots.data(); });
}

void measureFormats() {
    const intptr_t name = slot(place("temperature", 3));
    const auto integer = [] { return mixedInteger(9); };
    const auto mixed = [=] { return Slots{integer(), name, 'C'}; };
    const auto integers = [=] { return Slots{integer(), integer(), integer()}; };
    measurePrint<host::printFields>("%d|%s|%c", "%d|%s|%c", {1234, name, 'C'}, mixed);
    measurePrint<host::printIntegers>("%d,%d,%d", "%d,%d,%d", {-17, 90210, 4}, integers);
    measurePrint<host::printSentence>("a sentence", "The value %d of the sensor named %s is given in degrees %c.",
                                      {1234, name, 'C'}, mixed);

    // The first slot serves a number or a word of less than 64 bytes.
    alignas(32) static std::array<int32_t, 18> stored;
    const Slots slots = {slot(&stored[0]), slot(&stored[16]), slot(&stored[17])};
    const auto digits = [=] { return std::to_string(integer()); };
    const auto any = [] { return letters(1 + below(12)); };
    measureScan(slots, "%i,%i,%i", "-17,90210,4", [=] { return digits() + ',' + digits() + ',' + digits(); });
    measureScan(slots, "%s %i %u", "temperature 1234 56", [=] { return any() + ' ' + digits() + " 56"; });
    measureScan(slots, "%[^=]=%i %u", "temperature=1234 56", [=] { return any() + '=' + digits() + " 56"; });
    measureScan(slots, "%i,%i", "-17,90210", [=] { return digits() + ',' + std::to_string(mixedInteger(4)); });
}

void measureLines(const char *workload, uint32_t shortest, uint32_t most) {
    Workload lines{workload, std::vector<Case>(64)};
    for (Case &line : lines.cases)
        line.text = place(letters(shortest + below(most - shortest + 1)) + "\r\n" + letters(80), below(32));
    char *const destination = room(512, 4);
    measure(contest::X_TAMBRO_gets, lines, destination, 500, of::text);
}

void measureTokens(const char *workload, uint32_t shortest, uint32_t most) {
    Workload tokens{workload, std::vector<Case>(64)};
    for (Case &token : tokens.cases)
        token.text =
            place((below(2) == 0 ? ", " : ",") + letters(shortest + below(most - shortest + 1)) + ", next", below(32));
    static char *end;
    static uint16_t length;
    measure(contest::TQ_strtoken, tokens, of::text, ", ", &end);
    measure(contest::TQ_strtoklen, tokens, of::text, ", ", &length);
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
    Workload characters{workload, std::vector<Case>(256)};
    for (Case &character : characters.cases) {
        const uint32_t codePoint = next();
        character = {place(encoded(codePoint) + "next", below(32)), nullptr, 0, static_cast<int32_t>(codePoint)};
    }
    static char buffer[8];
    static uint32_t codePoint;
    static int32_t result;
    measure<host::encode>(contest::unicodeToUtf8, characters, of::number, buffer);
    measure<host::decode>(contest::utf8ToUnicode, characters, of::text, &codePoint, &result);
    measure<host::readCharacter>(contest::utf8ReadChar, characters, of::text, &result, buffer);
}

void measureUtf8Set(const char *workload, size_t characters, bool isThere) {
    std::string text;
    for (size_t character = 0; character < characters; ++character) text += encoded(0x430 + below(32));
    if (isThere) text += "\xC2\xA7";
    measure(contest::TQANSI_strpbrkUTF8, {workload, {{place(text, 1)}}}, of::text, "\xE2\x82\xAC\xC2\xA7\xE2\x80\x93");
}

void measureArithmetic() {
    Workload pairs{"4 to 12 bytes", std::vector<Case>(64)};
    for (Case &pair : pairs.cases)
        pair = {place(letters(4 + below(9)), below(32)), place(letters(4 + below(9)), below(32))};
    alignas(32) static char buffer[32];
    measure(contest::string_operator_diff, pairs, of::text, of::other);
    measure(contest::string_operator_add, pairs, buffer, of::text, 1);
}

// Whole texts: each call begins where the one before it ended, and waits for it.
void measureWalks() {
    std::string lines, tokens, characters;
    for (int piece = 0; piece < 2048; ++piece) {
        lines += letters(below(61)) + "\r\n";
        tokens += letters(1 + below(12)) + ' ';
        characters += encoded(latinCodePoint());
    }
    char *const destination = room(512, 4);
    static char *end;
    static uint32_t codePoint;
    static int32_t length;
    measureBody(contest::X_TAMBRO_gets, {"through 2048 short lines", {{place(lines, 0)}}}, [=](auto call, auto &given) {
        const char *at = given.text;
        while (*at != 0) at += call(destination, 500, at) + 1;
        return at;
    });
    measureBody(contest::TQ_strtoken, {"through 2048 short tokens", {{place(tokens, 0)}}}, [=](auto call, auto &given) {
        const char *at = given.text;
        while (call(at, " \t,", &end) != nullptr) at = end;
        return at;
    });
    measureBody<host::decode>(contest::utf8ToUnicode, {"through 2048 Latin characters", {{place(characters, 0)}}},
                              [=](auto call, auto &given) {
                                  const char *at = given.text;
                                  while (*at != 0) at = call(at, &codePoint, &length);
                                  return at;
                              });
}

// A needle at the end of a text that does not hold it before.
Case atTheEnd(const std::string &text, const std::string &needle) {
    startPage(0);
    return {place(text + needle, below(32)), place(needle, below(32))};
}

void measureNeedles() {
    for (const size_t length : {2, 8, 32}) {
        Workload searches{"4096 of prose, of " + std::to_string(length)};
        while (searches.cases.size() < (measuresTime ? 2 : 8)) {
            const std::string text = prose(4096 - length);
            const std::string needle = prose(length);
            if ((text + needle).find(needle) == text.size()) searches.cases.push_back(atTheEnd(text, needle));
        }
        measureSubstring(searches);
    }
    const std::string periods = repeated(std::string(63, 'a') + 'b', 4096);
    measureSubstring({"4096, almost everywhere 64", {atTheEnd(periods, std::string(64, 'a'))}});
    const std::string needle = prose(1000);
    measureSubstring({"16384 of prose, of 1000", {atTheEnd(prose(15384), needle)}});
    measureSubstring({"a^16384, a^31 b", {search(std::string(16384, 'a'), std::string(31, 'a') + 'b')}});

    Workload texts = makeTexts(alike(4096), [](std::string &text) { text[4080] = sought; });
    texts.name += ", near the end";
    measure(contest::TQANSI_strrchr, texts, of::text, sought);
}

// Equal texts, or a text and its destination, at the same place in a word.
void measureAlike(uint32_t length) {
    const std::string text = letters(length);
    char *const first = place(text, 3);
    startPage(2048);
    const Workload pairs{std::to_string(length) + ", aligned alike", {{first, place(text, 3), length}}};
    measure(contest::TQANSI_strcpy, pairs, of::other, of::text);
    measure(contest::TQANSI_strcmp, pairs, of::text, of::other);
    measure(contest::TQANSI_memcmp, pairs, of::text, of::other, of::length);
    measure(contest::TQANSI_stricmp, pairs, of::text, of::other);
}

// Long texts that are slow to search, exactly and folded, beside a plain loop that only looks for their end.
void measureWorst(const std::string &workload, const std::array<Case, 2> &searches) {
    measure(contest::worstSearch, {"worst: " + workload, {searches[0]}}, of::text, of::other);
    measure(contest::worstFoldedSearch, {"worst: " + workload, {searches[1]}}, of::text, of::other);
}

void measureWorstLine(const std::string &workload, const std::string &source) {
    const auto length = static_cast<uint32_t>(source.size());
    const Workload lines{"worst: " + workload, {{place(source, 1), room(length + 1, 4), length}}};
    measure(contest::worstLine, lines, of::other, of::length, of::text);
}

void measureWorstInputs() {
    constexpr size_t length = 16384;
    const std::string run(length, 'a');
    measureWorst("a^n, aaaab", {search(run, "aaaab"), search(run, "aaaab")});
    for (const std::string needle : {"aaaaaacaabbaccaaaabaaaabq", "aaaaabaaabq"})
        measureWorst("skewed letters, " + needle, {search(letters(length, 3, true), needle),
                                                   search(withRandomCase(letters(length, 3, true)), needle)});
    for (const uint32_t different : {2U, 3U, 4U})
        for (const size_t size : {6U, 25U, 100U}) {
            const std::string needle = letters(size - 1, different) + 'q';
            measureWorst(std::to_string(different) + " letters, of " + std::to_string(size),
                         {search(letters(length, different), needle),
                          search(withRandomCase(letters(length, different)), withRandomCase(needle))});
        }
    measureWorstLine("\\r^n", std::string(length, '\r'));
    measureWorstLine("(a \\r)^n", repeated("a\r", length));
}

}  // namespace

int main(int argc, char **argv) {
    std::array<char, 256> buffer;
    onStack = buffer.data();
    startMeter(argc, argv);
    for (const auto measureAll : {measureLengthAndSearch, measureCopies, measureComparisons})
        for (const Sizes &sizes : allSizes()) measureAll(sizes);
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
    for (const uint32_t length : {256, 4096}) measureAlike(length);
    measureWorstInputs();
    if (measuresTime) measureWalks();  // What costs nothing there does not end.
    return finishMeter();
}
