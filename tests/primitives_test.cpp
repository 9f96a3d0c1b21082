#include <doctest/doctest.h>
#include <strlib.h>

#include <array>
#include <climits>
#include <cstddef>
#include <string>

namespace {

// Values that the compiler does not see, so that neither its warnings nor its attributes decide a test.
template <class Value>
Value opaque(Value value) {
    volatile Value hidden = value;
    return hidden;
}
const char *const nullText = opaque<const char *>(nullptr);

ptrdiff_t positionIn(const char *string, const char *result) { return result == nullptr ? -1 : result - string; }

}  // namespace

TEST_CASE("null is answered with the neutral result and nothing is written") {
    char buffer[] = "kept";
    char *const nowhere = opaque<char *>(nullptr);
    CHECK(TQANSI_strlen(nullText) == 0);
    CHECK(TQANSI_strcpy(nowhere, "a") == nullptr);
    CHECK(TQANSI_strcpy(buffer, nullText) == buffer);
    CHECK(TQANSI_strncpy(nowhere, "a", 1) == nullptr);
    CHECK(TQANSI_strncpy(buffer, nullText, 1) == buffer);
    CHECK(TQANSI_strcat(nowhere, "a") == nullptr);
    CHECK(TQANSI_strcat(buffer, nullText) == buffer);
    CHECK(TQANSI_strncat(nowhere, "a", 1) == nullptr);
    CHECK(TQANSI_strncat(buffer, nullText, 1) == buffer);
    CHECK(TQ_strappend(nowhere, "a") == nullptr);
    CHECK(TQ_strappend(buffer, nullText) == buffer);
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
    CHECK(TQANSI_memcmp(nullText, nullText, opaque(0u)) == 0);
    CHECK(TQANSI_strchr(nullText, 'a') == nullptr);
    CHECK(TQANSI_strrchr(nullText, 'a') == nullptr);
    CHECK(TQANSI_memchr(nullText, 'a', opaque(1u)) == nullptr);
    CHECK(TQ_isAttribute(0xFF, opaque<const uint8_t *>(nullptr), 'a') == 0);
}

TEST_CASE("comparisons give the exact difference") {
    struct Row {
        const char *first, *second;
        int32_t exact, folded;
    };
    const Row rows[] = {{"abc", "abd", -1, -1},
                        {"ab", "abc", -99, -99},
                        {"abc", "ab", 99, 99},
                        {"\xE9", "a", -120, -120},
                        {"HeLLo", "hello", -32, 0},
                        {"A", "b", -33, -1},
                        {"\xC9", "\xE9", -32, -32},
                        {"[", "a", -6, -6},
                        {"@", "`", -32, -32},
                        {"\x7F", "\x80", 255, 255},
                        {"Zebra", "zebra\x80", -32, 128},
                        {"", "", 0, 0}};
    for (const Row &row : rows) {
        CAPTURE(row.first);
        CHECK(TQANSI_strcmp(row.first, row.second) == row.exact);
        CHECK(TQANSI_strncmp(row.first, row.second, INT_MAX) == row.exact);
        CHECK(TQANSI_stricmp(row.first, row.second) == row.folded);
        CHECK(TQANSI_strnicmp(row.first, row.second, 9) == row.folded);
        CHECK(customStricmp(row.first, row.second, opaque<const uint8_t *>(nullptr)) == row.exact);
    }
    CHECK(TQANSI_strncmp("xbc", "abd", 0) == 0);
    CHECK(TQANSI_strncmp("xbc", "abd", INT_MIN) == 23);
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

    struct Row {
        size_t length;
        bool foundInside;
    };
    for (const Row &row : {Row{65535, true}, Row{65536, false}, Row{66000, false}}) {
        CAPTURE(row.length);
        const std::string sought(row.length, 'A');
        const std::string inside = "xx" + std::string(row.length, 'a') + "x";
        const std::string atEnd = "xx" + sought;
        CHECK(positionIn(inside.c_str(), TQ_stristr(inside.c_str(), sought.c_str())) == (row.foundInside ? 2 : -1));
        CHECK(positionIn(atEnd.c_str(), TQ_stristr(atEnd.c_str(), sought.c_str())) == 2);
        CHECK(TQ_stristr(sought.c_str() + 1, sought.c_str()) == nullptr);
        CHECK(TQ_stristr(sought.c_str(), sought.c_str()) == sought.c_str());
    }
}

TEST_CASE("low 8 bits of the byte sought count, and the NUL is never found in strings") {
    const char *const text = "hello";
    CHECK(positionIn(text, TQANSI_strchr(text, 0x16C)) == 2);
    CHECK(positionIn(text, TQANSI_strrchr(text, 'l' - 0x100)) == 3);
    CHECK(TQANSI_strchr(text, 0x100) == nullptr);
    CHECK(TQANSI_strrchr(text, 0) == nullptr);
    CHECK(positionIn(text, static_cast<char *>(TQANSI_memchr(text, 0x200, 6))) == 5);
    CHECK(TQANSI_memchr(text, 'o', 4) == nullptr);
}

TEST_CASE("sets of every size, with every byte value") {
    std::string set;
    for (int byte = 255; byte > 0; --byte) {
        const std::string text = std::string(37, '\x01') + static_cast<char>(byte) + "\x01";
        set.insert(set.begin(), static_cast<char>(byte));
        CHECK(positionIn(text.c_str(), TQANSI_strpbrk(text.c_str(), set.c_str())) == (byte == 1 ? 0 : 37));
        CHECK(TQANSI_strpbrk(text.c_str(), set.c_str() + 1) == nullptr);
    }
}

TEST_CASE("a search never costs much more than the sum of the lengths") {
    // Quadratic ways would take minutes here.
    const std::string text = std::string(3000000, 'a') + "b";
    for (const std::string &sought : {std::string(30000, 'a') + "bc", "b" + std::string(30000, 'a'),
                                      std::string(20000, 'a') + "b" + std::string(20000, 'a')}) {
        CHECK(TQANSI_strstr(text.c_str(), sought.c_str()) == nullptr);
        CHECK(TQ_stristr(text.c_str(), sought.c_str()) == nullptr);
    }
}
