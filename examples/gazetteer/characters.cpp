#include "characters.h"

#include <strlib.hpp>

#include <algorithm>
#include <iterator>

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// Marks that stand on, above or below the character before them, of the scripts that capitals are written in.
constexpr Range zeroWidth[] = {
    {0x0300, 0x036F}, {0x0591, 0x05BD}, {0x0610, 0x061A}, {0x064B, 0x065F}, {0x0670, 0x0670}, {0x07A6, 0x07B0},
    {0x0900, 0x0902}, {0x093C, 0x093C}, {0x0941, 0x0948}, {0x094D, 0x094D}, {0x0951, 0x0957}, {0x0981, 0x0981},
    {0x09BC, 0x09BC}, {0x09C1, 0x09C4}, {0x09CD, 0x09CD}, {0x0BC0, 0x0BC0}, {0x0BCD, 0x0BCD}, {0x0DCA, 0x0DCA},
    {0x0DD2, 0x0DD6}, {0x0E31, 0x0E31}, {0x0E34, 0x0E3A}, {0x0E47, 0x0E4E}, {0x0EB1, 0x0EB1}, {0x0EB4, 0x0EBC},
    {0x0EC8, 0x0ECE}, {0x0F71, 0x0F7E}, {0x0F80, 0x0F84}, {0x0F8D, 0x0FBC}, {0x102D, 0x1030}, {0x1032, 0x1037},
    {0x1039, 0x103A}, {0x103D, 0x103E}, {0x17B4, 0x17B5}, {0x17B7, 0x17BD}, {0x17C6, 0x17C6}, {0x17C9, 0x17D3},
    {0x200B, 0x200F}, {0x20D0, 0x20F0}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F},
};

// East Asian characters that take two columns.
constexpr Range doubleWidth[] = {
    {0x1100, 0x115F}, {0x2E80, 0x303E}, {0x3041, 0xA4CF}, {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},
    {0xFE30, 0xFE4F}, {0xFF01, 0xFF60}, {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F}, {0x20000, 0x3FFFD},
};

// Which of the ranges, in ascending order, holds a code point; null if none does.
template <class Range, size_t count>
const Range *findRange(const Range (&ranges)[count], char32_t codePoint) {
    const auto endsBefore = [](const Range &range, char32_t value) { return range.last < value; };
    const Range *const found = std::lower_bound(std::begin(ranges), std::end(ranges), codePoint, endsBefore);
    return found != std::end(ranges) && found->first <= codePoint ? found : nullptr;
}

// The decoder takes any value in any length. A character that is encoded anew gives the same bytes only if they are its
// shortest form.
bool isStrict(std::string_view character) {
    const char *at = character.data();
    const auto codePoint = strlib::nextCodePoint(at);
    if (!codePoint || *codePoint > 0x10FFFF || (*codePoint >= 0xD800 && *codePoint <= 0xDFFF)) return false;
    char shortest[7];
    return strlib::encode(shortest, *codePoint) == character;
}

// The next character of a text in UTF-8 that has not ended, of which the text is moved on.
char32_t nextOf(const char *&text) { return strlib::nextCodePoint(text).value_or(0); }

bool isControl(char32_t codePoint) { return codePoint < 0x20 || (codePoint >= 0x7F && codePoint <= 0x9F); }

int32_t columnsOf(char32_t codePoint) {
    if (findRange(zeroWidth, codePoint) != nullptr) return 0;
    return findRange(doubleWidth, codePoint) != nullptr ? 2 : 1;
}

struct LatinRange {
    char32_t first;
    char32_t last;
    // The letters below the accents, one for each.
    const char *letters;
};

constexpr LatinRange accented[] = {
    {0x00C0, 0x017F,
     "AAAAAAACEEEEIIIIDNOOOOOxOUUUUYTsaaaaaaaceeeeiiiidnooooo/ouuuuyty"
     "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIiIiJjKkkLlLlLlL"
     "lLlNnNnNnnNnOoOoOoOoRrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZzs"},
    {0x01A0, 0x01A1, "Oo"},
    {0x01AF, 0x01B0, "Uu"},
    {0x01CD, 0x01DC, "AaIiOoUuUuUuUuUu"},
    {0x0218, 0x021B, "SsTt"},
    {0x1EA0, 0x1EF9,
     "AaAaAaAaAaAaAaAaAaAaAaAaEeEeEeEeEeEeEeEeIiIi"
     "OoOoOoOoOoOoOoOoOoOoOoOoUuUuUuUuUuUuUuYyYyYyYy"},
};

struct Capitals {
    char32_t first;
    char32_t last;
    // The small letter of the first; those of the others follow it.
    char32_t small;
};

// Schwa, Greek with its accents and its final sigma, Cyrillic, Armenian.
constexpr Capitals capitals[] = {
    {0x018F, 0x018F, 0x0259}, {0x0386, 0x0386, 0x03B1}, {0x0388, 0x0388, 0x03B5}, {0x0389, 0x0389, 0x03B7},
    {0x038A, 0x038A, 0x03B9}, {0x038C, 0x038C, 0x03BF}, {0x038E, 0x038E, 0x03C5}, {0x038F, 0x038F, 0x03C9},
    {0x0390, 0x0390, 0x03B9}, {0x0391, 0x03A9, 0x03B1}, {0x03AA, 0x03AA, 0x03B9}, {0x03AB, 0x03AB, 0x03C5},
    {0x03AC, 0x03AC, 0x03B1}, {0x03AD, 0x03AD, 0x03B5}, {0x03AE, 0x03AE, 0x03B7}, {0x03AF, 0x03AF, 0x03B9},
    {0x03B0, 0x03B0, 0x03C5}, {0x03C2, 0x03C2, 0x03C3}, {0x03CA, 0x03CA, 0x03B9}, {0x03CB, 0x03CB, 0x03C5},
    {0x03CC, 0x03CC, 0x03BF}, {0x03CD, 0x03CD, 0x03C5}, {0x03CE, 0x03CE, 0x03C9}, {0x0400, 0x040F, 0x0450},
    {0x0410, 0x042F, 0x0430}, {0x0531, 0x0556, 0x0561},
};

// What a character counts as in comparisons.
char32_t plainCharacter(char32_t codePoint) {
    if (const LatinRange *const found = findRange(accented, codePoint)) {
        return static_cast<uint8_t>(found->letters[codePoint - found->first]);
    }
    // Here each capital stands before its small letter.
    if ((codePoint >= 0x48A && codePoint <= 0x4BF) || (codePoint >= 0x4D0 && codePoint <= 0x52F)) return codePoint | 1;
    const Capitals *const found = findRange(capitals, codePoint);
    return found != nullptr ? codePoint - found->first + found->small : codePoint;
}

bool isAccent(char32_t codePoint) { return codePoint >= 0x300 && codePoint <= 0x36F; }

}  // namespace

bool isUtf8(const char *text) {
    while (*text != 0) {
        const auto character = strlib::nextCharacter(text);
        if (!character || !isStrict(*character)) return false;
    }
    return true;
}

bool isPrintable(const char *text) {
    const char *const turningMarks = "\u2028\u2029\u202A\u202B\u202C\u202D\u202E\u2066\u2067\u2068\u2069\uFEFF";
    if (strlib::findAnyCharacterOf(text, turningMarks)) return false;
    while (*text != 0) {
        if (isControl(nextOf(text))) return false;
    }
    return true;
}

int32_t displayWidth(const char *text) {
    int32_t width = 0;
    while (*text != 0) width += columnsOf(nextOf(text));
    return width;
}

void copyPlain(char *destination, const char *source) {
    *destination = 0;
    while (*source != 0) {
        const char32_t codePoint = nextOf(source);
        if (!isAccent(codePoint)) destination += unicodeToUtf8(plainCharacter(codePoint), destination);
    }
}
