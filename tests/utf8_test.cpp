#include <doctest/doctest.h>
#include <strlib.h>

#include <cstddef>
#include <cstring>

TEST_CASE("an invalid character leaves what was copied before it was seen") {
    char buffer[8] = "*******";
    int32_t valid = 1;
    const char *const input =
        "\xF0\x90\x80"
        "A";
    CHECK(utf8ReadChar(input, &valid, buffer) == input + 1);
    CHECK(valid == 0);
    CHECK(std::memcmp(buffer, "\0\x90\x80*", 4) == 0);
}

TEST_CASE("a set's broken member counts from where the walk reaches it") {
    struct Row {
        const char *string, *set;
        ptrdiff_t position;
    };
    const Row rows[] = {{"xa", "a\x80", -1},
                        {"bx",
                         "b\x80"
                         "a",
                         0},
                        {"ba", "b\xF8", 0},
                        {"ab", "b\xF8", -1},
                        {"\xFF", "\xFF", -1},
                        {"xy", "y\xC3", 1},
                        {"x\xC3"
                         "A",
                         "\xC3"
                         "A",
                         1},
                        {"abc",
                         "\xE2\x82"
                         "c",
                         -1},
                        {"a\xF5\x80\x80\x80", "\xF5\x80\x80\x80", 1},
                        {"x\xE2\x82\xAC", "\xE2\x82\xAC\xE2\x82", 1}};
    for (const Row &row : rows) {
        CAPTURE(row.set);
        const char *const found = TQANSI_strpbrkUTF8(row.string, row.set);
        CHECK((found == nullptr ? -1 : found - row.string) == row.position);
    }
}
