#include <doctest/doctest.h>
#include <strlib.h>

#include <string>
#include <vector>

TEST_CASE("a text comes line by line") {
    struct Row {
        const char *source;
        int32_t size;
        std::vector<std::string> lines;
    };
    const Row rows[] = {
        {"hello\nworld", 10, {"hello", "world"}},
        {"he\rllo\r\nworld\n", 10, {"hello", "world", ""}},
        {"abcdef", 3, {"abc", "def", ""}},
        {"abc\n", 3, {"abc", "", ""}},
        {"ab\r\ncd", 2, {"ab", "", "cd", ""}},
        {"a\rb", 1, {"a", "b", ""}},
        {"\r\r\r", 1, {""}},
        {"\xFF\x80\n", 5, {"\xFF\x80", ""}},
    };
    for (const Row &row : rows) {
        CAPTURE(row.source);
        std::vector<std::string> lines;
        for (const char *at = row.source;; ++at) {
            char line[16];
            at += X_TAMBRO_gets(line, row.size, at);
            lines.push_back(line);
            if (*at == 0) break;
        }
        CHECK(lines == row.lines);
    }
}

TEST_CASE("null strings hold no token") {
    for (const auto &[string, delimiters] : {std::pair<const char *, const char *>{nullptr, ","}, {"abc", nullptr}}) {
        uint16_t length = 7;
        char *end = nullptr;
        CHECK(TQ_strtoklen(string, delimiters, &length) == nullptr);
        CHECK(length == 0);
        CHECK(TQ_strtoken(string, delimiters, &end) == nullptr);
        CHECK(end == nullptr);
    }
}

TEST_CASE("token lengths are stored modulo 65536") {
    for (const size_t length : {65535u, 65536u, 70000u}) {
        const std::string text = "," + std::string(length, 'x') + ",y";
        uint16_t stored = 0;
        char *end = nullptr;
        CHECK(TQ_strtoklen(text.c_str(), ",", &stored) == text.c_str() + 1);
        CHECK(stored == length % 65536);
        CHECK(TQ_strtoken(text.c_str(), ",", &end) == text.c_str() + 1);
        CHECK(end == text.c_str() + 1 + length);
    }
}
