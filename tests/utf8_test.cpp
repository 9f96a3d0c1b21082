#include <doctest/doctest.h>
#include <strlib.h>

#include <cstring>
#include <string>

#include "support/choices.h"
#include "support/model.h"

namespace {

// Both decoder and reader, on a text that ends where its bytes do.
bool agreesWithModel(const std::string &text) {
    uint32_t codePoint = 4711;
    int32_t length = -1;
    const char *const next = utf8ToUnicode(text.c_str(), &codePoint, &length);
    const model::Decoded decoded = model::decode(text, 4711);
    const ptrdiff_t advance = decoded.length == 0 ? 1 : decoded.length;
    int32_t valid = -1;
    const char *const after = utf8ReadChar(text.c_str(), &valid, nullptr);
    const model::Character character = model::readCharacter(text);
    return length == decoded.length && codePoint == decoded.codePoint && next - text.c_str() == advance &&
           valid == character.valid && after - text.c_str() == static_cast<ptrdiff_t>(character.advance);
}

}  // namespace

TEST_CASE("every code point comes back") {
    // All that RFC 3629 knows and a sample above; all 2^31 in a long run.
    const uint32_t above = tests::depthShift() > 0 ? 1 : 10007;
    uint32_t wrong = 0;
    for (uint64_t value = 0; value <= INT32_MAX; value += value < 0x110000 ? 1 : above) {
        char buffer[8] = "*******";
        const int32_t written = unicodeToUtf8(static_cast<uint32_t>(value), buffer);
        uint32_t codePoint = 0;
        int32_t length = 0;
        const char *const next = utf8ToUnicode(buffer, &codePoint, &length);
        wrong += codePoint != value || length != written || next != buffer + written || buffer[written] != 0;
        if (value < 0x4000 || value % 64 == 0)
            wrong += model::encode(static_cast<uint32_t>(value)) != std::string(buffer, static_cast<size_t>(written));
    }
    CHECK(wrong == 0);
    for (const uint32_t value : {0x80000000u, 0xFFFFFFFFu}) {
        char buffer[8] = "***";
        CHECK(unicodeToUtf8(value, buffer) == 0);
        CHECK(std::memcmp(buffer, " \0*", 4) == 0);
    }
}

TEST_CASE("all inputs of one to three bytes, and of four in a long run") {
    const uint32_t lengths = tests::depthShift() > 0 ? 4 : tests::depthShift() == 0 ? 3 : 2;
    uint32_t wrong = 0;
    for (uint64_t bytes = 0; bytes < uint64_t{1} << 8 * lengths; ++bytes) {
        std::string text(lengths, '\0');
        for (uint32_t i = 0; i < lengths; ++i) text[i] = static_cast<char>(bytes >> 8 * (lengths - 1 - i) & 0xFF);
        wrong += !agreesWithModel(text);
    }
    CHECK(wrong == 0);
}

TEST_CASE("sequences of four to six bytes by classes") {
    const std::string leads = "\xF0\xF3\xF4\xF7\xF8\xFB\xFC\xFD\xFE\xFF";
    const std::string others = "\x80\x9F\xBF\x7F\xC2\x01";
    uint32_t wrong = 0;
    for (const char lead : leads) {
        for (uint32_t choice = 0; choice < 6 * 6 * 6 * 6 * 6; ++choice) {
            std::string text(1, lead);
            for (uint32_t rest = choice, i = 0; i < 5; ++i, rest /= 6) text += others[rest % 6];
            wrong += !agreesWithModel(text);
        }
    }
    CHECK(wrong == 0);
}

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
