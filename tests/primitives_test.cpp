#include <doctest/doctest.h>
#include <strlib.h>

#include <array>
#include <climits>
#include <string>
#include <vector>

namespace {

// Values that the compiler does not see, so that neither its warnings nor its attributes decide a test.
template <class Value>
Value opaque(Value value) {
    volatile Value hidden = value;
    return hidden;
}
const char *const nullText = opaque<const char *>(nullptr);

}  // namespace

TEST_CASE("null is answered with the neutral result and nothing is written") {
    char buffer[] = "kept";
    char *const nowhere = opaque<char *>(nullptr);
    const auto results = [](char *destination, const char *source) {
        return std::vector<char *>{TQANSI_strcpy(destination, source), TQANSI_strncpy(destination, source, 1),
                                   TQANSI_strcat(destination, source), TQANSI_strncat(destination, source, 1),
                                   TQ_strappend(destination, source)};
    };
    CHECK(results(nowhere, "a") == std::vector<char *>(5, nullptr));
    CHECK(results(buffer, nullText) == std::vector<char *>(5, buffer));
    CHECK(TQANSI_memset(nowhere, 0, opaque(5u)) == nullptr);
    TQ_convertZstring(opaque<const uint8_t *>(nullptr), buffer);
    TQ_convertZstring(std::array<uint8_t, 256>{}.data(), nowhere);
    CHECK(std::string(buffer) == "kept");

    for (const auto &[first, second] : {std::pair{nullText, "a"}, {"a", nullText}, {nullText, nullText}}) {
        CHECK(TQANSI_strcmp(first, second) == 0);
        CHECK(TQANSI_strncmp(first, second, 1) == 0);
        CHECK(TQANSI_strnicmp(first, second, 1) == 0);
        CHECK(TQANSI_strpbrk(first, second) == nullptr);
        CHECK(TQANSI_strstr(first, second) == nullptr);
        CHECK(TQ_stristr(first, second) == nullptr);
        CHECK(TQANSI_strpbrkUTF8(first, second) == nullptr);
    }
    CHECK(TQANSI_strlen(nullText) == 0);
    CHECK(TQANSI_memcmp(nullText, nullText, opaque(0u)) == 0);
    CHECK(TQANSI_strchr(nullText, 'a') == nullptr);
    CHECK(TQANSI_strrchr(nullText, 'a') == nullptr);
    CHECK(TQANSI_memchr(nullText, 'a', opaque(1u)) == nullptr);
    CHECK(TQ_isAttribute(0xFF, opaque<const uint8_t *>(nullptr), 'a') == 0);
}

TEST_CASE("comparisons give the exact difference") {
    CHECK(TQANSI_strcmp("abc", "abd") == -1);
    CHECK(TQANSI_strcmp("ab", "abc") == -99);
    CHECK(TQANSI_strcmp("\xE9", "a") == -120);
    CHECK(TQANSI_strcmp("\x7F", "\x80") == 255);
    CHECK(TQANSI_stricmp("HeLLo", "hello") == 0);
    CHECK(TQANSI_stricmp("A", "b") == -1);
    CHECK(TQANSI_stricmp("[", "a") == -6);
    CHECK(TQANSI_stricmp("@", "`") == -32);
    CHECK(TQANSI_stricmp("\xC9", "\xE9") == -32);
    CHECK(TQANSI_strncmp("abc", "abd", 2) == 0);
    CHECK(TQANSI_strncmp("xbc", "abd", 0) == 0);
    CHECK(TQANSI_strncmp("xbc", "abd", INT_MIN) == 23);
    CHECK(TQANSI_strncmp("abc", "abd", INT_MAX) == -1);
    CHECK(TQANSI_strnicmp("HELLOx", "helloy", 5) == 0);
    CHECK(TQANSI_strnicmp("x", "A", -3) == 23);
    CHECK(TQANSI_memcmp("ab\x80", "ab\x01", 3) == 127);
}

TEST_CASE("the 16-bit counter: counts of 65536 and more bound nothing") {
    std::string first(70000, 'a');
    std::string second(first);
    second[69000] = 'B';
    CHECK(TQANSI_strnicmp(first.c_str(), second.c_str(), 65535) == 0);
    CHECK(TQANSI_strnicmp(first.c_str(), second.c_str(), 65536) == -1);
    CHECK(TQANSI_strncmp(first.c_str(), second.c_str(), 65536) == 0);
    CHECK(TQANSI_strncmp(first.c_str(), second.c_str(), 69001) == 'a' - 'B');

    for (const size_t length : {65535u, 65536u, 66000u}) {
        CAPTURE(length);
        const std::string sought(length, 'A');
        const std::string atEnd = "xx" + std::string(length, 'a');
        const std::string inside = atEnd + "x";
        const char *const found = length < 65536 ? inside.c_str() + 2 : nullptr;
        CHECK(TQ_stristr(inside.c_str(), sought.c_str()) == found);
        CHECK(TQ_stristr(atEnd.c_str(), sought.c_str()) == atEnd.c_str() + 2);
        CHECK(TQ_stristr(sought.c_str() + 1, sought.c_str()) == nullptr);
        CHECK(TQ_stristr(sought.c_str(), sought.c_str()) == sought.c_str());
    }
}

TEST_CASE("low 8 bits of the byte sought count, and the NUL is never found in strings") {
    const char *const text = "hello";
    CHECK(TQANSI_strchr(text, 0x16C) == text + 2);
    CHECK(TQANSI_strrchr(text, 'l' - 0x100) == text + 3);
    CHECK(TQANSI_strchr(text, 0x100) == nullptr);
    CHECK(TQANSI_strrchr(text, 0) == nullptr);
    CHECK(TQANSI_memchr(text, 0x200, 6) == text + 5);
}

TEST_CASE("sets of every size, with every byte value") {
    std::string set;
    for (int byte = 255; byte > 0; --byte) {
        const std::string text = std::string(37, '\x01') + static_cast<char>(byte) + "\x01";
        set.insert(set.begin(), static_cast<char>(byte));
        CHECK(TQANSI_strpbrk(text.c_str(), set.c_str()) == text.c_str() + (byte == 1 ? 0 : 37));
        CHECK(TQANSI_strpbrk(text.c_str(), set.c_str() + 1) == nullptr);
    }
}

TEST_CASE("a search never costs much more than the sum of the lengths") {
    // Quadratic ways would take minutes here.
    const std::string many(30000, 'a');
    const std::string text = std::string(3000000, 'a') + "b";
    for (const std::string &sought : {many + "bc", "b" + many, many + "b" + many}) {
        CHECK(TQANSI_strstr(text.c_str(), sought.c_str()) == nullptr);
        CHECK(TQ_stristr(text.c_str(), sought.c_str()) == nullptr);
    }
}
