#include "characters.h"

#include <strlib.h>

#include <algorithm>
#include <iterator>

namespace {

struct Range {
    uint32_t first;
    uint32_t last;
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

template <size_t count>
bool isIn(const Range (&ranges)[count], uint32_t codePoint) {
    const auto reaches = [](const Range &range, uint32_t value) { return range.last < value; };
    const Range *const found = std::lower_bound(std::begin(ranges), std::end(ranges), codePoint, reaches);
    return found != std::end(ranges) && found->first <= codePoint;
}

struct Decoded {
    uint32_t codePoint;
    int32_t length;
};

Decoded decode(const char *at) {
    Decoded decoded{};
    utf8ToUnicode(at, &decoded.codePoint, &decoded.length);
    return decoded;
}

// The decoder takes any value in any length. A character that is encoded anew gives the same bytes only if they are its
// shortest form.
bool isStrict(const char *character) {
    const uint32_t codePoint = decode(character).codePoint;
    if (codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint <= 0xDFFF)) return false;
    char shortest[7];
    unicodeToUtf8(codePoint, shortest);
    return TQANSI_strcmp(character, shortest) == 0;
}

bool isControl(uint32_t codePoint) { return codePoint < 0x20 || (codePoint >= 0x7F && codePoint <= 0x9F); }

int32_t columnsOf(uint32_t codePoint) {
    if (isIn(zeroWidth, codePoint)) return 0;
    return isIn(doubleWidth, codePoint) ? 2 : 1;
}

// The letter below the accents, from U+00C0 to U+017F and from U+0218 to U+021B; 0 for every other character.
char baseLetter(uint32_t codePoint) {
    constexpr char latin[] =
        "AAAAAAACEEEEIIIIDNOOOOO OUUUUYTsaaaaaaaceeeeiiiidnooooo ouuuuyty"
        "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIiIiJjKkkLlLlLlL"
        "lLlNnNnNnnNnOoOoOoOoRrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZzs";
    if (codePoint >= 0xC0 && codePoint <= 0x17F) return latin[codePoint - 0xC0];
    if (codePoint >= 0x218 && codePoint <= 0x21B) return "SsTt"[codePoint - 0x218];
    return 0;
}

bool isAccent(uint32_t codePoint) { return codePoint >= 0x300 && codePoint <= 0x36F; }

}  // namespace

bool isUtf8(const char *text) {
    while (*text != 0) {
        int32_t valid = 0;
        char character[5];
        text = utf8ReadChar(text, &valid, character);
        if (!valid || !isStrict(character)) return false;
    }
    return true;
}

bool isPrintable(const char *text) {
    const char *const turningMarks = "\u2028\u2029\u202A\u202B\u202C\u202D\u202E\u2066\u2067\u2068\u2069\uFEFF";
    if (TQANSI_strpbrkUTF8(text, turningMarks) != nullptr) return false;
    for (; *text != 0; text = utf8ReadChar(text, nullptr, nullptr)) {
        if (isControl(decode(text).codePoint)) return false;
    }
    return true;
}

int32_t displayWidth(const char *text) {
    int32_t width = 0;
    for (; *text != 0; text = utf8ReadChar(text, nullptr, nullptr)) width += columnsOf(decode(text).codePoint);
    return width;
}

void copyPlain(char *destination, const char *source) {
    *destination = 0;
    while (*source != 0) {
        const Decoded decoded = decode(source);
        if (const char letter = baseLetter(decoded.codePoint)) {
            *destination++ = letter;
            *destination = 0;
        } else if (!isAccent(decoded.codePoint)) {
            destination = TQANSI_strncpy(destination, source, decoded.length) + decoded.length;
        }
        source += decoded.length;
    }
}
