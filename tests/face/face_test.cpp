// What the functions of <strlib.hpp> add to the routines: sizes of destinations, views, positions, and where a text
// goes on. The routines themselves are tested elsewhere, the refusals by check.sh.
#include <array>
#include <cstdio>
#include <string>
#include <strlib.hpp>

int formatsTest();

namespace {

int failures;

void expect(bool holds, const char *what, int line) {
    if (holds) return;
    ++failures;
    std::printf("wrong: %s (line %d)\n", what, line);
}
#define EXPECT(condition) expect(condition, #condition, __LINE__)

// A destination between bytes that have to stay as they are.
struct Guarded {
    char before = '#', room[8] = "#######", behind = '#';
    bool isIntact() const { return before == '#' && behind == '#'; }
};

void copies() {
    Guarded cut, exact, part;
    EXPECT(strlib::copy(exact.room, "Caracas") == "Caracas" && exact.isIntact());
    EXPECT(strlib::copy(cut.room, "Montevideo") == "Montevi" && cut.isIntact());
    EXPECT(strlib::copy(part.room, std::string_view("Montevideo").substr(0, 5)) == "Monte" && part.room[6] == '#');
    EXPECT(strlib::copy(part.room, std::string_view("Montevideo").substr(0, 7)) == "Montevi" && part.isIntact());
    EXPECT(strlib::copy(part.room, std::string_view("Montevideo")) == "Montevi" && part.isIntact());
    EXPECT(strlib::copy(part.room, std::string_view("a\0b", 3)) == "a");
    EXPECT(strlib::copy(part.room, std::string_view()).empty());
    EXPECT(strlib::copy(part.room, static_cast<const char *>(nullptr)).empty() && part.room[0] == 'a');
    EXPECT(strlib::copy(std::span(cut.room).first(0), "Lima").empty() && cut.room[0] == 'M');
    EXPECT(strlib::copy(std::span(cut.room).first(1), "Lima").empty() && cut.room[0] == 0);
}

void appends() {
    Guarded guarded;
    strlib::copy(guarded.room, "San");
    EXPECT(strlib::append(guarded.room, " J") == "San J");
    EXPECT(strlib::append(guarded.room, "osé") == "San Jos" && guarded.isIntact());
    EXPECT(strlib::append(guarded.room, "more") == "San Jos" && guarded.isIntact());
    EXPECT(strlib::append(guarded.room, nullptr) == "San Jos");
}

void numbers() {
    Guarded guarded;
    EXPECT(strlib::toText(guarded.room, -123456) == "-123456" && guarded.isIntact());
    EXPECT(!strlib::toText(guarded.room, -1234567) && guarded.isIntact());
    EXPECT(strlib::toText(guarded.room, 255, 16) == "FF");
    EXPECT(strlib::add(guarded.room, "abcdefg", 1) == "abcdefh" && guarded.isIntact());
    EXPECT(!strlib::add(guarded.room, "abcdefgh", 1) && guarded.isIntact());
}

void formats() {
    char line[48];
    const std::string city = "Lima";
    EXPECT(strlib::format(line, "%s: %d|%c%%\\t", city, -7, 'Z') == "Lima: -7|Z%\t");
    EXPECT(strlib::format(line, "%d %d", std::int16_t{-5}, std::uint8_t{200}) == "-5 200");
    EXPECT(strlib::format(line, "%c%c", '\0', 'a') == std::string_view("\0a", 2));
    EXPECT(strlib::format(line, "%s|", nullptr) == "|");
    Guarded guarded;
    EXPECT(strlib::format(guarded.room, "%s|", "12345678") == "|" && guarded.isIntact());
    EXPECT(strlib::format(std::span<char>(), "abc").empty());
    EXPECT(strlib::format(std::span<char>(line, std::size_t{0}), "abc").empty());
}

void scans() {
    char name[8];
    std::array<char, 4> country;
    std::int32_t number = 0, count = 0;
    std::int16_t half = 0;
    std::uint8_t byte = 0;
    char letter = 0;
    EXPECT(strlib::scan("Lima;PER -7x", "%8[^;];%4s %i%c%n", name, country, number, letter, count) == 4);
    EXPECT(std::string_view(name) == "Lima" && std::string_view(country.data()) == "PER");
    EXPECT(number == -7 && letter == 'x' && count == 12);
    EXPECT(strlib::scan("70000,258", "%hi,%bu", half, byte) == 2 && half == 4464 && byte == 2);
    EXPECT(strlib::scan("x", "x") == -1);
}

template <class Next>
std::string collected(const char *text, Next next) {
    std::string all;
    for (const char *rest = text; const auto piece = next(rest);) all += '<' + std::string(*piece) + '>';
    return all;
}

void pieces() {
    const auto tokens = [](const char *&rest) { return strlib::nextToken(rest, ", "); };
    EXPECT(collected(", a,,bcd ", tokens) == "<a><bcd>");
    EXPECT(collected("", tokens).empty() && collected(nullptr, tokens).empty());

    const auto lines = [](const char *&rest) {
        static char line[4];
        return strlib::nextLine(line, rest);
    };
    EXPECT(collected("a\r\n\nbc", lines) == "<a><><bc>");
    EXPECT(collected("abcd\nabc\nd\n", lines) == "<abc><d><abc><><d>");

    const char *rest = "\xC3\xA9\x80z";
    EXPECT(strlib::nextCharacter(rest) == "\xC3\xA9");
    EXPECT(!strlib::nextCharacter(rest) && *rest == 'z');
    EXPECT(strlib::nextCharacter(++rest) == "" && *rest == 0);

    rest = "\xE2\x82\xAC\xFFz";
    EXPECT(strlib::nextCodePoint(rest) == U'\u20AC');
    EXPECT(!strlib::nextCodePoint(rest) && *rest == 'z');
    EXPECT(strlib::nextCodePoint(++rest) == U'\0' && *rest == 0);

    Guarded guarded;
    EXPECT(strlib::encode(guarded.room, U'\u20AC') == "\xE2\x82\xAC" && guarded.room[4] == '#');
    EXPECT(!strlib::encode(guarded.room, static_cast<char32_t>(0x80000000)));
}

void positions() {
    EXPECT(strlib::find("hello", 'l') == 2 && strlib::findLast("hello", 'l') == 3 && !strlib::find("hello", 'x'));
    EXPECT(strlib::find("hello", "lo") == 3 && strlib::find("hello", "") == 0 && !strlib::find(nullptr, "lo"));
    EXPECT(strlib::findFolded("heLLo", "LLO") == 2 && !strlib::findFolded("hello", "x"));
    EXPECT(strlib::findAnyOf("hello", "xol") == 2 && !strlib::findAnyOf("hello", "x"));
    EXPECT(strlib::findAnyCharacterOf("caf\xC3\xA9", "x\xC3\xA9") == 3 && !strlib::findAnyCharacterOf("a", "x"));
}

}  // namespace

int main() {
    copies();
    appends();
    numbers();
    formats();
    scans();
    pieces();
    positions();
    return failures + formatsTest() != 0;
}
