// Every 32-bit value written, read and encoded, and every sequence of four bytes decoded, all like the model.

#include <strlib.h>

#include "support/exhaust.h"
#include "support/model.h"

using tests::expect;

namespace {

// Bytes that were stored over others, which all the rest must still be.
bool holds(std::string_view buffer, const std::string &stored) {
    return buffer.starts_with(stored) && buffer.find_first_not_of('*', stored.size()) == std::string_view::npos;
}

void checkWriting(uint64_t number, int32_t radix) {
    const auto bits = static_cast<uint32_t>(number);
    const auto value = static_cast<int32_t>(bits);
    char buffer[40] = "0x";
    char *const text = buffer + 2;
    expect(TQANSI_itoa(value, text, 38, radix) == text && model::writtenInteger(value, 38, radix) == text, "written",
           bits);
    if (radix == 10) expect(TQANSI_atoi(text) == value, "read", bits);
    const auto magnitude = static_cast<int32_t>(value < 0 ? 0 - bits : bits);
    if (radix == 16) expect(TQANSI_atoi(buffer) == magnitude, "read in hexadecimal", bits);
}

void checkEncoding(uint32_t codePoint) {
    const std::string expected = model::encode(codePoint);
    const bool isNone = codePoint > INT32_MAX;
    char buffer[] = "********";
    const int32_t written = unicodeToUtf8(codePoint, buffer);
    expect(written == (isNone ? 0 : std::ssize(expected)) && holds({buffer, 8}, expected + '\0'), "encoded", codePoint);
    if (isNone) return;
    uint32_t decoded = 0;
    int32_t length = 0;
    const char *const next = utf8ToUnicode(buffer, &decoded, &length);
    expect(decoded == codePoint && length == written && next == buffer + length, "decoded", codePoint);
}

void checkDecoding(uint32_t bytes) {
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8) text += static_cast<char>(bytes >> shift & 0xFF);
    const model::Decoded decoded = model::decode(text, 4711);
    uint32_t codePoint = 4711;
    int32_t length = -1;
    const char *const next = utf8ToUnicode(text.c_str(), &codePoint, &length);
    expect(
        length == decoded.length && codePoint == decoded.codePoint && next - text.c_str() == (length == 0 ? 1 : length),
        "decoded like the model", bytes);
    const model::Character character = model::readCharacter(text);
    char copy[] = "*******";
    int32_t valid = -1;
    const char *const after = utf8ReadChar(text.c_str(), &valid, copy);
    expect(valid == character.valid && after == text.c_str() + character.advance && holds({copy, 7}, character.copy),
           "read like the model", bytes);
}

}  // namespace

int main() {
    using tests::byDepth, tests::forAll;
    forAll(byDepth(100003, 1009, 1), [](uint64_t value) {
        checkWriting(value, 10);
        checkEncoding(static_cast<uint32_t>(value));
        checkDecoding(static_cast<uint32_t>(value));
    });
    for (int32_t radix = 2; radix <= 36; ++radix) {
        forAll(byDepth(10100303, 101909, 499), [=](uint64_t value) { checkWriting(value, radix); });
        // Around powers, where texts and sequences become longer.
        for (uint64_t power = 1; power <= uint64_t{1} << 31; power *= static_cast<uint32_t>(radix)) {
            for (uint64_t value = power - 100; value != power + 100; ++value) {
                checkWriting(value, radix);
                checkWriting(0 - value, radix);
                if (radix == 2) checkEncoding(static_cast<uint32_t>(value));
            }
        }
    }
    return tests::conclude();
}
