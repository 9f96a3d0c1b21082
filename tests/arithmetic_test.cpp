#include <doctest/doctest.h>
#include <strlib.h>

#include <string>

TEST_CASE("differences of strings") {
    CHECK(string_operator_diff("b", "a") == 1);
    CHECK(string_operator_diff("BA", "AA") == 256);
    CHECK(string_operator_diff("", "a") == -97);
    CHECK(string_operator_diff("\x80", "") == -128);
    CHECK(string_operator_diff("xabcd", "abcd") == 0);
    CHECK(string_operator_diff("", "ABCDE") == -0x42434445);
    CHECK(string_operator_diff("\x7F\x7F\x7F\x7F", "\x80\x80\x80\x80") == -1);
}

TEST_CASE("sums of strings and integers") {
    const auto sum = [](const char *source, int32_t addend) {
        char buffer[8] = "*******";
        CHECK(string_operator_add(buffer, source, addend) == buffer);
        return std::string(buffer);
    };
    CHECK(sum("a", 1) == "b");
    CHECK(sum("a", 256) == "\1a");
    CHECK(sum("ab", 257) == "bc");
    CHECK(sum("a", -1) == "`");
    CHECK(sum("\xFF", 1) == "");
    CHECK(sum("\377A", 256) == "");
    CHECK(sum("abc", 0x01010101) == "\1bcd");
    CHECK(sum("abcde", 0x01020304) == "acegi");
    CHECK(sum("", -256) == "");
    CHECK(sum("", -257) == "\xFE\xFF");
    CHECK(sum("x", 0x7F7F7F7F) == "\x7F\x7F\x7F\xF7");
}
