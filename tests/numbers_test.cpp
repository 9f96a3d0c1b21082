#include <doctest/doctest.h>
#include <strlib.h>

#include <climits>
#include <cstring>
#include <string>
#include <vector>

namespace {

intptr_t slot(const void *address) { return reinterpret_cast<intptr_t>(address); }

// The bytes of an integer.
template <class Integer>
std::string stored(Integer value) {
    return {reinterpret_cast<const char *>(&value), sizeof value};
}

// The bytes of a string, with its NUL.
std::string field(const std::string &text) { return text + '\0'; }

}  // namespace

TEST_CASE("integers that are read") {
    CHECK(TQANSI_atoi("  -42abc") == -42);
    CHECK(TQANSI_atoi("0x1Fz") == 31);
    for (const char *const none : {"+5", "- 5", "0X1F", "-0x10", "00x5", "\2407", "\1777"})
        CHECK(TQANSI_atoi(none) == 0);
    CHECK(TQANSI_atoi("\x01 7") == 7);
    CHECK(TQANSI_atoi("2147483648") == INT_MIN);
    CHECK(TQANSI_atoi("-2147483648") == INT_MIN);
    CHECK(TQANSI_atoi("4294967297") == 1);
    CHECK(TQANSI_atoi("-99999999999") == -1215752191);
    CHECK(TQANSI_atoi("0xFFFFFFFF") == -1);
    CHECK(TQANSI_atoi("0x123456789") == 0x23456789);
}

TEST_CASE("integers that are written") {
    const auto text = [](int32_t value, int32_t size, int32_t radix) {
        char buffer[12] = "***********";
        const char *const result = TQANSI_itoa(value, buffer, size, radix);
        CHECK(result == (*buffer == 0 ? nullptr : buffer));
        return std::string(buffer);
    };
    CHECK(text(-1234, 6, 10) == "-1234");
    CHECK(text(-1234, 5, 10) == "");
    CHECK(text(-255, 6, 16) == "FF");
    CHECK(text(0, 6, 0) == "0");
    CHECK(text(INT_MIN, 12, 10) == "-2147483648");
    CHECK(text(INT_MIN, 12, 16) == "80000000");
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
    const auto print = [](uint32_t size, const char *format, std::initializer_list<intptr_t> slots) {
        char buffer[64];
        const volatile uint32_t opaque = size;
        const int32_t count = TQ_sprintf(buffer, opaque, format, std::data(slots));
        REQUIRE(count > 0);
        CHECK(buffer[count - 1] == 0);
        return std::string(buffer, static_cast<size_t>(count) - 1);
    };
    CHECK(print(64, "%d|%s|%c", {-7, slot("ab"), 90}) == "-7|ab|Z");
    CHECK(print(4, "ab%sX", {slot("cd")}) == "abX");
    CHECK(print(12, "%d", {5}) == "5");
    CHECK(print(11, "%d", {5}) == "");
    CHECK(print(64, "%3d|%2d|%2d|", {123, 7, -7}) == "|7||");
    CHECK(print(64, "%05d|%0d|", {42, 5}) == "42||");
    CHECK(print(64, "%d%12d", {-1234567890, -1234567890}) == "");
    CHECK(print(64, "%11d|", {-123456789}) == "-123456789|");
    CHECK(print(64, "%12345678d|%00000012d", {1234567, 12}) == "1234567|");
    CHECK(print(64, "%%|%x|%5%|%-5d|", {}) == "%|x|%|-5d|");
    CHECK(print(64, "%s|%s|%s|", {slot(""), 0, slot("xyz")}) == "||xyz|");
    CHECK(print(64, "%c|", {0}) == std::string("\0|", 2));
    CHECK(print(64, "a\\nb\\q\\\\\\%d%\\t|", {}) == "a\nbq\\%d\t|");
    CHECK(print(64, "a\\", {}) == "a\\");
    CHECK(print(3, "ab\\n", {}) == "ab");
    CHECK(print(UINT32_MAX, "%s", {slot("abc")}) == "abc");
}

TEST_CASE("formatted input") {
    // Each destination holds the bytes wanted, and nothing else has been written.
    const auto scan = [](const char *input, const char *format, std::vector<std::string> wanted) {
        CAPTURE(input);
        CAPTURE(format);
        alignas(4) char destinations[3][16];
        std::memset(destinations, '*', sizeof destinations);
        const intptr_t slots[] = {slot(destinations[0]), slot(destinations[1]), slot(destinations[2])};
        const int32_t result = TQ_sscanf(input, format, slots);
        wanted.resize(3);
        for (size_t i = 0; i < 3; ++i)
            CHECK(std::string(destinations[i], 16) == wanted[i] + std::string(16 - wanted[i].size(), '*'));
        return result;
    };
    CHECK(scan("key=value", "%[^=]=%s", {field("key"), field("value")}) == 2);
    CHECK(scan("0x1F", "%i%n", {stored(31), stored(1)}) == 1);
    CHECK(scan("x", "%i", {stored(0)}) == 0);
    CHECK(scan("x", "y%i", {}) == -1);
    CHECK(scan("12345678901", "%i%n", {stored(-539222987), stored(11)}) == 1);
    CHECK(scan("  123 456", "%i %i%n", {stored(123), stored(456), stored(9)}) == 2);
    CHECK(scan("7-", "%i%n", {stored(7), stored(1)}) == 1);
    CHECK(scan("-", "%i%n", {stored(0)}) == 0);
    CHECK(scan("-1", "%u", {stored(-1)}) == 1);
    CHECK(scan("5%", "%i%", {stored(5)}) == 1);
    CHECK(scan("5", "%i%[^x", {stored(5)}) == 1);
    CHECK(scan("5d", "%hd", {}) == -1);
    CHECK(scan("5", "%h5i", {}) == -1);
    CHECK(scan("\r\n 5", "\\r\\n%i", {stored(5)}) == 1);
    CHECK(scan("\t5", "\\n%i", {}) == -1);
    CHECK(scan("\n5", " \\n%i", {}) == -1);
    CHECK(scan("", "%n", {}) == -1);
    CHECK(scan(nullptr, "%n", {}) == -1);
    CHECK(scan("5", nullptr, {}) == -1);
    // Size letters tell how many bits are stored, and stay in force.
    CHECK(scan("70000 70001", "%hi %i", {stored<int16_t>(4464), stored<int16_t>(4465)}) == 2);
    CHECK(scan("70000 300 70000", "%hi %bu %li", {stored<int16_t>(4464), stored<int8_t>(44), stored(70000)}) == 3);
    // Widths bound fields.
    CHECK(scan("hello", "%4s%s", {field("hel"), field("lo")}) == 2);
    CHECK(scan("hello world", "%s%s", {field("hello"), field("")}) == 1);
    CHECK(scan("hello", "%1s", {field("")}) == 0);
    CHECK(scan("hello", "%0s", {}) == 0);
    CHECK(scan("hello", "%10000002s%12345678s", {field("h"), field("ello")}) == 2);
    CHECK(scan("abcdef,g", "%4[^,]%s", {field("abc"), field("def,g")}) == 2);
    CHECK(scan("a]b", "%[^]]]%c", {field("a"), "b"}) == 2);
    CHECK(scan("abc]d", "%[abc]%s", {field("d")}) == 1);
}
