// Runs every routine and its peers on fixed texts and names each run on standard output, one line a run: routine,
// workload, implementation, calls. The instruction counter completes the line.

#include <strlib.h>

#include <numeric>

#include "measure.h"
#include "peers.h"
#include "plain.h"
#include "texts.h"

namespace {

constexpr char sought = ';';

void putSomewhere(std::string &text, char byte) {
    if (!text.empty()) text[below(static_cast<uint32_t>(text.size()))] = byte;
}

// Half of the mixed texts hold the byte; the texts of one length do not.
std::vector<Text> textsToSearch(const Sizes &sizes) {
    return makeTexts(sizes, [&](std::string &text) {
        if (sizes.isMix && below(2) == 0) putSomewhere(text, sought);
    });
}

void measureLengthAndSearch(const Sizes &sizes) {
    const auto texts = textsToSearch(sizes);
    measure("TQANSI_strlen", sizes.workload, Implementations{TQANSI_strlen, glibcStrlen, newlibStrlen, plain::length},
            texts.size(), [&](auto call, size_t i) { call(texts[i].at); });
    const auto byByte = [&](auto call, size_t i) { call(texts[i].at, sought); };
    measure("TQANSI_strchr", sizes.workload, Implementations{TQANSI_strchr, glibcStrchr, newlibStrchr, plain::find},
            texts.size(), byByte);
    measure("TQANSI_strrchr", sizes.workload,
            Implementations{TQANSI_strrchr, glibcStrrchr, newlibStrrchr, plain::findLast}, texts.size(), byByte);
    measure("TQANSI_memchr", sizes.workload, Implementations{TQANSI_memchr, glibcMemchr, newlibMemchr, plain::findByte},
            texts.size(), [&](auto call, size_t i) { call(texts[i].at, sought, texts[i].length); });
    const std::string prefix = std::string(sizes.workload) + ", set of ";
    for (const char *const set : {",;\t", ",;:!?/\t\n"})
        measure("TQANSI_strpbrk", (prefix + std::to_string(std::strlen(set))).c_str(),
                Implementations{TQANSI_strpbrk, glibcStrpbrk, newlibStrpbrk, plain::findAny}, texts.size(),
                [&](auto call, size_t i) { call(texts[i].at, set); });
}

void measureCopies(const Sizes &sizes) {
    const auto texts = makeTexts(sizes);
    const auto rooms = makeRooms(sizes, 65);
    std::vector<int32_t> counts;
    for (const Text &text : texts)
        counts.push_back(static_cast<int32_t>(sizes.isMix ? below(33) : text.length * 3 / 4));
    const size_t calls = texts.size();
    const auto toRoom = [&](auto call, size_t i) { call(rooms[i], texts[i].at); };
    measure("TQANSI_strcpy", sizes.workload, Implementations{TQANSI_strcpy, glibcStrcpy, newlibStrcpy, plain::copy},
            calls, toRoom);
    measure("TQ_strappend", sizes.workload, Implementations{TQ_strappend, glibcStpcpy, newlibStpcpy, plain::copyToEnd},
            calls, toRoom);
    measure("TQANSI_strncpy", sizes.workload,
            Implementations{TQANSI_strncpy, boundedCopy<glibcStrnlen, glibcMemcpy>,
                            boundedCopy<newlibStrnlen, newlibMemcpy>, plain::copyUpTo},
            calls, [&](auto call, size_t i) { call(rooms[i], texts[i].at, counts[i]); });
    measure("TQANSI_memset", sizes.workload, Implementations{TQANSI_memset, glibcMemset, newlibMemset, plain::fill},
            calls, [&](auto call, size_t i) { call(rooms[i], 'x', texts[i].length); });

    std::vector<char *> ends;
    for (char *const at : rooms) {
        const size_t before = below(16);
        std::memset(at, 'x', before);
        ends.push_back(at + before);
    }
    measure("TQANSI_strcat", sizes.workload, Implementations{TQANSI_strcat, glibcStrcat, newlibStrcat, plain::append},
            calls, [&](auto call, size_t i) { *ends[i] = 0, call(rooms[i], texts[i].at); });
    measure("TQANSI_strncat", sizes.workload,
            Implementations{TQANSI_strncat, glibcStrncat, newlibStrncat, plain::appendUpTo}, calls,
            [&](auto call, size_t i) { *ends[i] = 0, call(rooms[i], texts[i].at, counts[i]); });
}

// Equal texts, but that half of the mixed ones differ somewhere.
void measureComparisons(const Sizes &sizes) {
    const auto firsts = makeTexts(sizes);
    std::vector<char *> seconds;
    std::vector<char *> capitals;
    for (size_t i = 0; i < firsts.size(); ++i) {
        std::string text(firsts[i].at);
        if (sizes.isMix && below(2) == 0) putSomewhere(text, '~');
        seconds.push_back(place(text, sizes.alignment(i, 1)));
        for (char &byte : text)
            if (below(2) == 0) byte = static_cast<char>(TQANSI_toupper(byte));
        capitals.push_back(place(text, sizes.alignment(i, 1)));
    }
    std::array<uint8_t, 256> collation;
    std::iota(collation.begin(), collation.end(), uint8_t{0});
    for (uint8_t letter = 'A'; letter <= 'Z'; ++letter) collation[letter] = static_cast<uint8_t>(letter + 32);

    const size_t calls = firsts.size();
    const auto ofSeconds = [&](auto call, size_t i) { call(firsts[i].at, seconds[i]); };
    const auto ofCapitals = [&](auto call, size_t i) { call(firsts[i].at, capitals[i]); };
    measure("TQANSI_strcmp", sizes.workload, Implementations{TQANSI_strcmp, glibcStrcmp, newlibStrcmp, plain::compare},
            calls, ofSeconds);
    measure("TQANSI_strncmp", sizes.workload,
            Implementations{TQANSI_strncmp, glibcStrncmp, newlibStrncmp, plain::compareUpTo}, calls,
            [&](auto call, size_t i) { call(firsts[i].at, seconds[i], 5000); });
    measure("TQANSI_memcmp", sizes.workload,
            Implementations{TQANSI_memcmp, glibcMemcmp, newlibMemcmp, plain::compareBytes}, calls,
            [&](auto call, size_t i) { call(firsts[i].at, seconds[i], firsts[i].length); });
    measure("TQANSI_stricmp", sizes.workload,
            Implementations{TQANSI_stricmp, glibcStrcasecmp, newlibStrcasecmp, plain::compareFolded}, calls,
            ofCapitals);
    measure("TQANSI_strnicmp", sizes.workload,
            Implementations{TQANSI_strnicmp, glibcStrncasecmp, newlibStrncasecmp, plain::compareFoldedUpTo}, calls,
            [&](auto call, size_t i) { call(firsts[i].at, capitals[i], 5000); });
    measure("customStricmp", sizes.workload, Implementations{.ours = customStricmp, .plain = plain::collate}, calls,
            [&](auto call, size_t i) { call(firsts[i].at, capitals[i], collation.data()); });
}

std::string prose(size_t length) {
    std::vector<std::string> words;
    for (int word = 0; word < 200; ++word) words.push_back(letters(1 + below(5) + below(5)));
    std::string text;
    while (text.size() < length) text += words[std::min(below(200), below(200))] + ' ';
    text.resize(length);
    return text;
}

struct Search {
    char *string;
    char *substring;
};

void measureSubstring(const char *workload, const std::vector<Search> &searches) {
    const auto search = [&](auto call, size_t i) { call(searches[i].string, searches[i].substring); };
    measure("TQANSI_strstr", workload, Implementations{TQANSI_strstr, glibcStrstr, newlibStrstr, plain::findString},
            searches.size(), search);
    measure("TQ_stristr", workload,
            Implementations{TQ_stristr, glibcStrcasestr, newlibStrcasestr, plain::findStringFolded}, searches.size(),
            search);
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
    std::array<uint8_t, 256> table;
    std::iota(table.begin(), table.end(), uint8_t{0});
    const auto ofByte = [&](auto call, size_t i) { call(static_cast<int32_t>(i)); };
    measure("TQANSI_toupper", "all bytes", Implementations{TQANSI_toupper, glibcToupper, newlibToupper, plain::toUpper},
            256, ofByte);
    measure("TQANSI_isalpha", "all bytes",
            Implementations{TQANSI_isalpha, glibcIsalpha, newlibIsalpha, plain::isLetter}, 256, ofByte);
    measure("TQANSI_isdigit", "all bytes", Implementations{TQANSI_isdigit, glibcIsdigit, newlibIsdigit, plain::isDigit},
            256, ofByte);
    measure("TQ_isAttribute", "all bytes", Implementations{.ours = TQ_isAttribute, .plain = plain::hasAttribute}, 256,
            [&](auto call, size_t i) { call(0x11, table.data(), static_cast<int32_t>(i)); });
    for (const Sizes &sizes : allSizes()) {
        const auto blanks = makeTexts(sizes, [&](std::string &text) {
            for (char &byte : text) byte = below(4) == 0 ? '\t' : ' ';
            if (sizes.isMix && below(2) == 0) putSomewhere(text, 'x');
        });
        measure("TQ_isBlankLine", sizes.workload,
                Implementations{TQ_isBlankLine, blankBySpan<glibcStrspn>, blankBySpan<newlibStrspn>, plain::isBlank},
                blanks.size(), [&](auto call, size_t i) { call(blanks[i].at); });
        const auto texts = makeTexts(sizes);
        measure("TQ_convertZstring", sizes.workload,
                Implementations{.ours = TQ_convertZstring, .plain = plain::convert}, texts.size(),
                [&](auto call, size_t i) { call(table.data(), texts[i].at); });
    }
}

int32_t mixedInteger() {
    const uint32_t digits = 1 + below(10);
    uint32_t value = 0;
    for (uint32_t digit = 0; digit < digits; ++digit) value = value * 10 + below(10);
    return static_cast<int32_t>(below(4) == 0 ? 0 - value : value);
}

void measureNumbers() {
    std::vector<int32_t> values(256);
    std::vector<char *> texts;
    for (int32_t &value : values) {
        value = mixedInteger();
        texts.push_back(place(std::to_string(value), below(32)));
    }
    std::array<char, 64> buffer;
    measure("TQANSI_atoi", "1 to 10 digits", Implementations{TQANSI_atoi, glibcAtoi, newlibAtoi, plain::readInteger},
            256, [&](auto call, size_t i) { call(texts[i]); });
    for (const int32_t radix : {10, 16})
        measure("TQANSI_itoa", radix == 10 ? "radix 10" : "radix 16",
                Implementations{TQANSI_itoa, writeInteger<glibcSnprintf>, writeInteger<newlibSnprintf>}, 256,
                [&](auto call, size_t i) { call(values[i], buffer.data(), 64, radix); });
}

void measureFormats() {
    std::array<char, 256> buffer;
    char *const name = place("temperature", 3);
    const std::array<intptr_t, 3> threeIntegers = {-17, 90210, 4};
    const std::array<intptr_t, 3> mixed = {1234, reinterpret_cast<intptr_t>(name), 'C'};
    const auto print = [&](const char *workload, const char *format, const intptr_t *arguments) {
        measure("TQ_sprintf", workload,
                Implementations{TQ_sprintf, printThree<glibcSnprintf>, printThree<newlibSnprintf>}, 1,
                [&](auto call, size_t) { call(buffer.data(), 256, format, arguments); });
    };
    print("%d|%s|%c", "%d|%s|%c", mixed.data());
    print("%d,%d,%d", "%d,%d,%d", threeIntegers.data());
    print("a sentence", "The value %d of the sensor named %s is given in degrees %c.", mixed.data());

    std::array<int32_t, 3> numbers;
    std::array<char, 64> word;
    const auto addressOf = [](auto &object) { return reinterpret_cast<intptr_t>(object.data()); };
    const intptr_t number = reinterpret_cast<intptr_t>(&numbers[1]);
    const std::array<intptr_t, 3> integers = {addressOf(numbers), number, reinterpret_cast<intptr_t>(&numbers[2])};
    const std::array<intptr_t, 3> fields = {addressOf(word), addressOf(numbers), number};
    const auto scan = [&](const char *workload, const char *input, const char *format, const intptr_t *arguments) {
        measure("TQ_sscanf", workload, Implementations{TQ_sscanf, scanThree<glibcSscanf>, scanThree<newlibSscanf>}, 1,
                [&](auto call, size_t) { call(input, format, arguments); });
    };
    scan("%i,%i,%i", "-17,90210,4", "%i,%i,%i", integers.data());
    scan("%s %i %u", "temperature 1234 56", "%s %i %u", fields.data());
    scan("%[^=]=%i %u", "temperature=1234 56", "%[^=]=%i %u", fields.data());
}

void measureLines(const char *workload, uint32_t shortest, uint32_t longest) {
    std::vector<char *> lines;
    for (int line = 0; line < 64; ++line)
        lines.push_back(place(letters(shortest + below(longest - shortest + 1)) + "\r\n" + letters(80), below(32)));
    char *const destination = room(512, 4);
    measure("X_TAMBRO_gets", workload,
            Implementations{X_TAMBRO_gets, lineByMemchr<glibcMemchr, glibcMemcpy>,
                            lineByMemchr<newlibMemchr, newlibMemcpy>, plain::readLine},
            lines.size(), [&](auto call, size_t i) { call(destination, 500, lines[i]); });
}

void measureTokens(const char *workload, uint32_t shortest, uint32_t longest) {
    std::vector<char *> tokens;
    for (int token = 0; token < 64; ++token)
        tokens.push_back(place(
            (below(2) == 0 ? ", " : ",") + letters(shortest + below(longest - shortest + 1)) + ", next", below(32)));
    char *end = nullptr;
    uint16_t length = 0;
    measure("TQ_strtoken", workload,
            Implementations{TQ_strtoken, tokenBySpans<glibcStrspn, glibcStrcspn>,
                            tokenBySpans<newlibStrspn, newlibStrcspn>, plain::findToken},
            tokens.size(), [&](auto call, size_t i) { call(tokens[i], ", ", &end); });
    measure("TQ_strtoklen", workload,
            Implementations{TQ_strtoklen, tokenLengthBySpans<glibcStrspn, glibcStrcspn>,
                            tokenLengthBySpans<newlibStrspn, newlibStrcspn>, plain::measureToken},
            tokens.size(), [&](auto call, size_t i) { call(tokens[i], ", ", &length); });
}

uint32_t mixedCodePoint() {
    static constexpr std::array<uint32_t, 5> limits = {1, 0x80, 0x800, 0x10000, 0x110000};
    const uint32_t chance = below(20);
    const size_t length = chance < 10 ? 1 : chance < 14 ? 2 : chance < 19 ? 3 : 4;
    return limits[length - 1] + below(limits[length] - limits[length - 1]);
}

std::string encoded(uint32_t codePoint) {
    std::array<char, 8> buffer;
    const int32_t length = unicodeToUtf8(codePoint, buffer.data());
    return {buffer.data(), static_cast<size_t>(length)};
}

void measureUtf8(const char *workload, bool isAscii) {
    std::vector<uint32_t> codePoints(256);
    std::vector<char *> texts;
    for (uint32_t &codePoint : codePoints) {
        codePoint = isAscii ? 'a' + below(26) : mixedCodePoint();
        texts.push_back(place(encoded(codePoint) + "next", below(32)));
    }
    std::array<char, 8> buffer;
    uint32_t codePoint = 0;
    int32_t result = 0;
    measure("unicodeToUtf8", workload, Implementations{.ours = unicodeToUtf8, .plain = plain::encode}, 256,
            [&](auto call, size_t i) { call(codePoints[i], buffer.data()); });
    measure("utf8ToUnicode", workload, Implementations{.ours = utf8ToUnicode, .plain = plain::decode}, 256,
            [&](auto call, size_t i) { call(texts[i], &codePoint, &result); });
    measure("utf8ReadChar", workload, Implementations{.ours = utf8ReadChar, .plain = plain::readCharacter}, 256,
            [&](auto call, size_t i) { call(texts[i], &result, buffer.data()); });
}

void measureUtf8Set(const char *workload, size_t characters, bool isThere) {
    std::string text;
    for (size_t character = 0; character < characters; ++character) text += encoded(0x430 + below(32));
    const std::string set = "\xE2\x82\xAC\xC2\xA7\xE2\x80\x93";
    const char *const string = place(isThere ? text + "\xC2\xA7" : text, 1);
    measure("TQANSI_strpbrkUTF8", workload,
            Implementations{.ours = TQANSI_strpbrkUTF8, .plain = plain::findAnyCharacter}, 1,
            [&](auto call, size_t) { call(string, set.c_str()); });
}

void measureArithmetic() {
    std::vector<std::array<char *, 2>> pairs;
    for (int pair = 0; pair < 64; ++pair)
        pairs.push_back({place(letters(4 + below(9)), below(32)), place(letters(4 + below(9)), below(32))});
    std::array<char, 32> buffer;
    measure("string_operator_diff", "4 to 12 bytes",
            Implementations{.ours = string_operator_diff, .plain = plain::subtract}, pairs.size(),
            [&](auto call, size_t i) { call(pairs[i][0], pairs[i][1]); });
    measure("string_operator_add", "4 to 12 bytes", Implementations{.ours = string_operator_add, .plain = plain::add},
            pairs.size(), [&](auto call, size_t i) { call(buffer.data(), pairs[i][0], 1); });
}

}  // namespace

int main() {
    for (const Sizes &sizes : allSizes()) measureLengthAndSearch(sizes);
    for (const Sizes &sizes : allSizes()) measureCopies(sizes);
    for (const Sizes &sizes : allSizes()) measureComparisons(sizes);
    measureSubstrings();
    measureClasses();
    measureNumbers();
    measureFormats();
    measureLines("short", 10, 50);
    measureLines("400", 400, 400);
    measureTokens("short", 3, 8);
    measureTokens("400", 400, 400);
    measureUtf8("mixed", false);
    measureUtf8("ASCII", true);
    measureUtf8Set("near", 4, true);
    measureUtf8Set("4096", 2048, false);
    measureArithmetic();
}
