#include <doctest/doctest.h>
#include <strlib.h>

#include <string>
#include <vector>

TEST_CASE("a text comes line by line") {
    using Lines = std::vector<std::string>;
    const auto linesOf = [](const char *at, int32_t size) {
        Lines lines;
        for (;; ++at) {
            char line[16];
            at += X_TAMBRO_gets(line, size, at);
            lines.emplace_back(line);
            if (*at == 0) return lines;
        }
    };
    CHECK(linesOf("he\rllo\r\nworld\n", 10) == Lines{"hello", "world", ""});
    CHECK(linesOf("abcdef", 3) == Lines{"abc", "def", ""});
    CHECK(linesOf("ab\r\ncd", 2) == Lines{"ab", "", "cd", ""});
    CHECK(linesOf("\r\r\r", 1) == Lines{""});
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
