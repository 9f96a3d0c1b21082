// Calls every routine of the library on an input that shows what is particular about it. Exits with the number of
// wrong results.

#include <strlib.h>

#include "semihosting.h"

namespace {

// Odd addresses and texts longer than a word: what the library does a word at a time has to work unaligned.
alignas(8) char storage[64];
char *const room = storage + 1;

// The program's own comparison; the library's are under test.
bool holds(const char *found, const char *expected) {
    while (*found == *expected && *expected != 0) ++found, ++expected;
    return *found == *expected;
}

const char *withRoom(const char *text) {
    char *to = room;
    while ((*to++ = *text++) != 0) {
    }
    return room;
}

intptr_t slot(const void *address) { return reinterpret_cast<intptr_t>(address); }

struct Table {
    uint8_t entries[256] = {};
};

constexpr Table vowels = [] {
    Table table;
    for (const char *vowel = "aeiou"; *vowel != 0; ++vowel) table.entries[static_cast<uint8_t>(*vowel)] = 0x10;
    return table;
}();

constexpr Table backwards = [] {
    Table table;
    for (uint32_t byte = 1; byte < 256; ++byte) table.entries[byte] = static_cast<uint8_t>(256 - byte);
    return table;
}();

struct Check {
    const char *routine;
    bool (*passes)();
};

constexpr Check checks[] = {
    {"TQANSI_strlen", [] { return TQANSI_strlen(withRoom("seventeen letters")) == 17; }},
    {"TQANSI_strcpy", [] { return holds(TQANSI_strcpy(room, "as if byte by byte"), "as if byte by byte"); }},
    {"TQANSI_strncpy", [] { return holds(TQANSI_strncpy(room, "ended, never padded", 5), "ended"); }},
    {"TQANSI_strcat",
     [] {
         withRoom("two ");
         return TQANSI_strcat(room, "pieces, one string") == room && holds(room, "two pieces, one string");
     }},
    {"TQANSI_strncat",
     [] {
         withRoom("ab");
         return TQANSI_strncat(room, "xyz", 2) == room && holds(room, "abxy");
     }},
    {"TQ_strappend", [] { return TQ_strappend(room, "1234567") == room + 7 && holds(room, "1234567"); }},
    {"TQANSI_memset",
     [] {
         withRoom("abcdefghijklmnop");
         return TQANSI_memset(room, 0x12A, 13) == room && holds(room, "*************nop");
     }},
    {"TQANSI_strcmp", [] { return TQANSI_strcmp("the same until \xE9", "the same until a") == -120; }},
    {"TQANSI_strncmp", [] { return TQANSI_strncmp("xbc", "abd", -1) == 23; }},
    {"TQANSI_stricmp", [] { return TQANSI_stricmp("FOLDED, BUT FOR \xC9", "folded, but for \xE9") == -32; }},
    {"TQANSI_strnicmp", [] { return TQANSI_strnicmp("HELLOx", "helloy", 5) == 0; }},
    {"customStricmp", [] { return customStricmp("abc", "abd", backwards.entries) == 1; }},
    {"TQANSI_memcmp", [] { return TQANSI_memcmp("ab\0cdefgh\x80", "ab\0cdefgh\x01", 10) == 127; }},
    {"TQANSI_strchr",
     [] {
         const char *text = withRoom("one of several letters");
         return TQANSI_strchr(text, 0x16C) == text + 13 && TQANSI_strchr(text, 0) == nullptr;
     }},
    {"TQANSI_strrchr",
     [] {
         const char *text = withRoom("one of several letters");
         return TQANSI_strrchr(text, 'e') == text + 19;
     }},
    {"TQANSI_memchr",
     [] {
         const char *text = withRoom("behind a NUL?");
         room[6] = 0;
         return TQANSI_memchr(text, '?', 13) == text + 12;
     }},
    {"TQANSI_strpbrk",
     [] {
         const char *text = withRoom("hello");
         return TQANSI_strpbrk(text, "xol") == text + 2;
     }},
    {"TQANSI_strstr",
     [] {
         const char *text = withRoom("abcabcabcabd");
         return TQANSI_strstr(text, "abcabd") == text + 6;
     }},
    {"TQ_stristr",
     [] {
         const char *text = withRoom("xxHeLLo world");
         return TQ_stristr(text, "WORLD") == text + 8;
     }},
    {"TQANSI_toupper", [] { return TQANSI_toupper('z') == 'Z' && TQANSI_toupper(0x161) == 0x161; }},
    {"TQANSI_isalpha", [] { return TQANSI_isalpha(0x141) == 1 && TQANSI_isalpha('@') == 0; }},
    {"TQANSI_isdigit", [] { return TQANSI_isdigit('9') == 1 && TQANSI_isdigit(':') == 0; }},
    {"TQ_isBlankLine", [] { return TQ_isBlankLine(" \t\x01\r\n ") == 1 && TQ_isBlankLine(" \x7F") == 0; }},
    {"TQ_isAttribute", [] { return TQ_isAttribute(0x130, vowels.entries, 'e') == 1; }},
    {"TQ_convertZstring",
     [] {
         withRoom("\x01\xFF\x80");
         TQ_convertZstring(backwards.entries, room);
         return holds(room, "\xFF\x01\x80");
     }},
    {"TQANSI_atoi", [] { return TQANSI_atoi("  -42abc") == -42 && TQANSI_atoi("0x1Fz") == 31; }},
    {"TQANSI_itoa", [] { return TQANSI_itoa(-255, room, 3, 16) == room && holds(room, "FF"); }},
    {"TQ_sprintf",
     [] {
         const intptr_t arguments[] = {-7, slot("ab"), 'Z'};
         return TQ_sprintf(room, 63, "%d|%s|%c", arguments) == 8 && holds(room, "-7|ab|Z");
     }},
    {"TQ_sscanf",
     [] {
         int32_t number = 0;
         const intptr_t arguments[] = {slot(room), slot(&number)};
         return TQ_sscanf(" key=-65537", "%[^=]=%i", arguments) == 2 && holds(room, "key") && number == -65537;
     }},
    {"X_TAMBRO_gets", [] { return X_TAMBRO_gets(room, 10, "he\rllo\r\nworld") == 7 && holds(room, "hello"); }},
    {"TQ_strtoklen",
     [] {
         uint16_t length = 0;
         return holds(TQ_strtoklen(",,token,b", ",", &length), "token,b") && length == 5;
     }},
    {"TQ_strtoken",
     [] {
         char *end = nullptr;
         return holds(TQ_strtoken(", first;second", ",; ", &end), "first;second") && holds(end, ";second");
     }},
    {"unicodeToUtf8", [] { return unicodeToUtf8(0x20AC, room) == 3 && holds(room, "\xE2\x82\xAC"); }},
    {"utf8ToUnicode",
     [] {
         uint32_t codePoint = 0;
         int32_t length = 0;
         return holds(utf8ToUnicode("\xFD\xBF\xBF\xBF\xBF\xBF.", &codePoint, &length), ".") && length == 6 &&
                codePoint == 0x7FFFFFFF;
     }},
    {"utf8ReadChar",
     [] {
         int32_t valid = 0;
         return holds(utf8ReadChar("\xC3\xA9x", &valid, room), "x") && valid == 1 && holds(room, "\xC3\xA9");
     }},
    {"TQANSI_strpbrkUTF8",
     [] {
         const char *text = withRoom("na\xC3\xAFve");
         return TQANSI_strpbrkUTF8(text, "\xE2\x82\xAC\xC3\xAF") == text + 2;
     }},
    {"string_operator_diff", [] { return string_operator_diff("BA", "AA") == 256; }},
    {"string_operator_add", [] { return holds(string_operator_add(room, "ab", 257), "bc"); }},
};

constexpr int32_t count = sizeof checks / sizeof *checks;
static_assert(count == 38, "every routine has its check");

}  // namespace

int main() {
    int32_t failures = 0;
    for (const Check &check : checks) {
        if (check.passes()) continue;
        ++failures;
        semihosting::write(check.routine);
        semihosting::write(": wrong result\n");
    }
    const intptr_t arguments[] = {count, failures};
    TQ_sprintf(room, 63, "%d routines called, %d wrong\\n", arguments);
    semihosting::write(room);
    return failures;
}
