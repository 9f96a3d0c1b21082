#include <doctest/doctest.h>
#include <strlib.h>

#include <string>

TEST_CASE("code points") {
    char buffer[] = "****";
    CHECK(unicodeToUtf8(0x20AC, buffer) == 3);
    CHECK(std::string(buffer) == "\xE2\x82\xAC");
    CHECK(unicodeToUtf8(0x80000000, buffer) == 0);
    CHECK(std::string(buffer) == " ");
    uint32_t codePoint = 0;
    int32_t length = 1;
    const char *const broken = "\xE2\x82";
    CHECK(utf8ToUnicode(broken, &codePoint, &length) == broken + 1);
    CHECK(codePoint == 0x2080);
    CHECK(length == 0);
}

TEST_CASE("an invalid character leaves what was copied before it was seen") {
    char buffer[] = "****";
    int32_t valid = 1;
    const char *const input = "\xF0\x90\200A";
    CHECK(utf8ReadChar(input, &valid, buffer) == input + 1);
    CHECK(valid == 0);
    CHECK(std::string(buffer, 4) == std::string("\0\x90\x80*", 4));
}

TEST_CASE("a set's broken member counts from where the walk reaches it") {
    const auto position = [](const char *string, const char *set) {
        const char *const found = TQANSI_strpbrkUTF8(string, set);
        return found == nullptr ? -1 : found - string;
    };
    CHECK(position("bx", "b\200a") == 0);
    CHECK(position("xa", "a\x80") == -1);
    CHECK(position("ab", "b\xF8") == -1);
    CHECK(position("\xFF", "\xFF") == -1);
    CHECK(position("xy", "y\xC3") == 1);
    CHECK(position("x\303A", "\303A") == 1);
    CHECK(position("abc", "\342\202c") == -1);
    CHECK(position("a\xF5\x80\x80\x80", "\xF5\x80\x80\x80") == 1);
    CHECK(position("x\xE2\x82\xAC", "\xE2\x82\xAC\xE2\x82") == 1);
}
