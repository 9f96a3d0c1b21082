#include <doctest/doctest.h>
#include <strlib.h>

#include <string>

TEST_CASE("differences of strings") {
    struct Row {
        const char *first, *second;
        int32_t difference;
    };
    const Row rows[] = {{"", "", 0},
                        {"a", "", 97},
                        {"BA", "AA", 256},
                        {"xabcd", "abcd", 0},
                        {"", "ABCDE", -0x42434445},
                        {"\x80", "", -128},
                        {"\x7F\x7F\x7F\x7F", "\x80\x80\x80\x80", -1},
                        {"hello world", "hello", 10 * 16777216 + 6 * 65536 - 11}};
    for (const Row &row : rows) {
        CAPTURE(row.first);
        CHECK(string_operator_diff(row.first, row.second) == row.difference);
        CHECK(string_operator_diff(row.second, row.first) == -row.difference);
    }
}

TEST_CASE("sums of strings and integers, also in place") {
    struct Row {
        const char *source;
        int32_t addend;
        const char *sum;
    };
    const Row rows[] = {{"", 0, ""},
                        {"", 0x4142, "AB"},
                        {"a", -1, "`"},
                        {"a", 256,
                         "\x01"
                         "a"},
                        {"\xFF", 1, ""},
                        {"ab", 257, "bc"},
                        {"abc", 0x01010101,
                         "\x01"
                         "bcd"},
                        {"abcd", -257, "abac"},
                        {"abcde", 0x01020304, "acegi"},
                        {"", -256, ""},
                        {"", -257, "\xFE\xFF"},
                        {"", 65536, "\x01"},
                        {"\xFF"
                         "A",
                         256, ""},
                        {"x", 0x7F7F7F7F, "\x7F\x7F\x7F\xF7"}};
    for (const Row &row : rows) {
        CAPTURE(row.source);
        CAPTURE(row.addend);
        char buffer[8] = "*******";
        CHECK(string_operator_add(buffer, row.source, row.addend) == buffer);
        CHECK(std::string(buffer) == row.sum);
        TQANSI_strcpy(buffer, row.source);
        string_operator_add(buffer, buffer, row.addend);
        CHECK(std::string(buffer) == row.sum);
    }
}
