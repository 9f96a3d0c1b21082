#include <doctest/doctest.h>
#include <strlib.h>

#include <array>
#include <bit>
#include <climits>
#include <cstring>
#include <string>

namespace {

intptr_t slot(const void *address) { return std::bit_cast<intptr_t>(address); }

}  // namespace

TEST_CASE("integers of many digits wrap") {
    const std::pair<const char *, int32_t> rows[] = {{"2147483648", INT_MIN},
                                                     {"-2147483648", INT_MIN},
                                                     {"4294967297", 1},
                                                     {"-99999999999", -1215752191},
                                                     {"0xFFFFFFFF", -1},
                                                     {"0x123456789", 591751049},
                                                     {"0x7fffffff", INT_MAX},
                                                     {"00x5", 0},
                                                     {"\x01 7", 7},
                                                     {"\xA0"
                                                      "7",
                                                      0},
                                                     {"\x7F"
                                                      "7",
                                                      0},
                                                     {"  -42abc", -42}};
    for (const auto &row : rows) {
        CAPTURE(row.first);
        CHECK(TQANSI_atoi(row.first) == row.second);
    }
}

TEST_CASE("unusable buffers") {
    char buffer[] = "kept";
    for (const int32_t size : {0, -1, INT_MIN}) {
        const volatile int32_t opaque = size;
        CHECK(TQANSI_itoa(5, buffer, opaque, 10) == nullptr);
    }
    char *volatile nowhere = nullptr;
    const volatile uint32_t none = 0;
    CHECK(TQANSI_itoa(5, nowhere, 20, 10) == nullptr);
    CHECK(TQ_sprintf(nowhere, none, "a", nullptr) == 0);
    const char *volatile noFormat = nullptr;
    CHECK(TQ_sprintf(buffer, 4, noFormat, nullptr) == 0);
    CHECK(TQ_sprintf(buffer, none, "a", nullptr) == -1);
    CHECK(std::string(buffer) == "kept");
}

TEST_CASE("formatted output") {
    struct Row {
        const char *format;
        std::array<intptr_t, 3> slots;
        uint32_t size;
        std::string expected;
    };
    const intptr_t ab = slot("ab");
    const Row rows[] = {
        {"v=%d|%s|%c", {-7, ab, 90}, 64, "v=-7|ab|Z"},
        {"%3d|%2d|%2d|", {123, 7, -7}, 64, "|7||"},
        {"%05d|%0d|", {42, 5}, 64, "42||"},
        {"%d%12d", {-1234567890, -1234567890}, 64, ""},
        {"%11d|", {-123456789}, 64, "-123456789|"},
        {"%12345678d|%00000012d", {1234567, 12}, 64, "1234567|"},
        {"%%|%x|%5%|%-5d|", {}, 64, "%|x|%|-5d|"},
        {"%2d|%s|%c", {123, slot("xy"), 0x51}, 64, "|xy|Q"},
        {"%s|%s|%s|", {slot(""), 0, slot("xyz")}, 64, "||xyz|"},
        {"%c|", {0}, 64, std::string("\0|", 2)},
        {"a\\nb\\q\\\\\\%d%\\t|", {}, 64, "a\nbq\\%d\t|"},
        {"a\\", {}, 64, "a\\"},
        {"ab%sX", {slot("cd")}, 4, "abX"},
        {"ab\\n", {}, 3, "ab"},
        {"%d", {5}, 12, "5"},
        {"%d", {5}, 11, ""},
        {"ab%d", {5}, 14, "ab5"},
        {"%s", {slot("abc")}, UINT32_MAX, "abc"},
        {"\x80%s\xFF", {slot("\xE9")}, 64, "\x80\xE9\xFF"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.format);
        char buffer[64];
        const volatile uint32_t size = row.size;
        CHECK(TQ_sprintf(buffer, size, row.format, row.slots.data()) == static_cast<int32_t>(row.expected.size()) + 1);
        CHECK(std::string(buffer, row.expected.size() + 1) == row.expected + '\0');
    }
}

TEST_CASE("formatted input") {
    struct Row {
        const char *input, *format;
        int32_t result;
        std::array<int32_t, 3> values;
    };
    constexpr int32_t kept = 0x55555555;
    const Row rows[] = {
        {"-42x", "%i%n", 1, {-42, 3, kept}},
        {"0x1F", "%i%n", 1, {31, 1, kept}},
        {"12345678901", "%i%n", 1, {-539222987, 11, kept}},
        {"7-", "%i%n", 1, {7, 1, kept}},
        {"5,x", "%i,%i", 1, {5, 0, kept}},
        {"  123 456", "%i %i%n", 2, {123, 456, 9}},
        {"-", "%i%n", 0, {0, kept, kept}},
        {"5   ", "%i %n", 1, {5, 4, kept}},
        {"5%", "%i%", 1, {5, kept, kept}},
        {"5d", "%hd", -1, {kept, kept, kept}},
        {"5", "%h5i", -1, {kept, kept, kept}},
        {"\n5", "\\n%i", 1, {5, kept, kept}},
        {"\r\n 5", "\\r\\n%i", 1, {5, kept, kept}},
        {"\t5", "\\n%i", -1, {kept, kept, kept}},
        {"\n5", " \\n%i", -1, {kept, kept, kept}},
        {"a\n5", "a\\n%i", 1, {5, kept, kept}},
        {"-1", "%u", 1, {-1, kept, kept}},
        {"", "%n", -1, {kept, kept, kept}},
        {"5", "%i%[^x", 1, {5, kept, kept}},
        {"\xE9"
         "5",
         "\xE9%i",
         1,
         {5, kept, kept}},
    };
    for (const Row &row : rows) {
        CAPTURE(row.input);
        CAPTURE(row.format);
        std::array values = {kept, kept, kept};
        const intptr_t slots[] = {slot(&values[0]), slot(&values[1]), slot(&values[2])};
        CHECK(TQ_sscanf(row.input, row.format, slots) == row.result);
        CHECK(values == row.values);
    }
    CHECK(TQ_sscanf(nullptr, "%n", nullptr) == -1);
    CHECK(TQ_sscanf("5", nullptr, nullptr) == -1);
}

TEST_CASE("size letters store so many bits, and stay in force") {
    int16_t half = 0;
    int8_t byte = 0;
    int32_t whole = 0;
    const intptr_t slots[] = {slot(&half), slot(&byte), slot(&whole)};
    CHECK(TQ_sscanf("70000 300 70000", "%hi %bu %li", slots) == 3);
    CHECK(half == 4464);
    CHECK(byte == 44);
    CHECK(whole == 70000);
    std::array<int16_t, 4> halves = {1, 1, 1, 1};
    const intptr_t more[] = {slot(&halves[0]), slot(&halves[2])};
    CHECK(TQ_sscanf("70000 70001", "%hi %i", more) == 2);
    CHECK(halves == std::array<int16_t, 4>{4464, 1, 4465, 1});
}

TEST_CASE("fields are bounded by their width") {
    struct Row {
        const char *input, *format;
        int32_t result;
        const char *first, *second;
    };
    const Row rows[] = {{"hello", "%4s%s", 2, "hel", "lo"},
                        {"hello world", "%s%s", 1, "hello", ""},
                        {"hello", "%1s", 0, "", "*"},
                        {"hello", "%0s", 0, "*", "*"},
                        {"hello", "%10000002s%12345678s", 2, "h", "ello"},
                        {"key=value", "%[^=]=%s", 2, "key", "value"},
                        {"abcdef,g", "%4[^,]%s", 2, "abc", "def,g"},
                        {"=v", "%[^=]=%s", 0, "", "*"},
                        {"a]b", "%[^]]]%c", 2, "a", "b"},
                        {"abc]d", "%[abc]%s", 1, "d", "*"},
                        {"a\x7F\x80 b", "%s %s", 2, "a\x7F\x80", "b"}};
    for (const Row &row : rows) {
        CAPTURE(row.format);
        char first[16] = "*";
        char second[16] = "*";
        const intptr_t slots[] = {slot(first), slot(second)};
        CHECK(TQ_sscanf(row.input, row.format, slots) == row.result);
        CHECK(std::string(first) == row.first);
        CHECK(std::string(second) == row.second);
    }
}
