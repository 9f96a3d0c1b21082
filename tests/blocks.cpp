// The operations on words against their meaning for each byte, for every 32-bit word and every pair of bytes. Built
// once for the target's own words and once for plain ones. What a flag looks like is not looked at, but whether it is
// there.

#include "machine/block.h"

#include "support/exhaust.h"

using namespace strlib::block;

namespace {

uint8_t byteAt(Word word, size_t index) { return static_cast<uint8_t>(word >> 8 * index); }

uint8_t folded(uint8_t byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<uint8_t>(byte + 32) : byte; }

// Whether the condition holds of each byte's index.
template <class Condition>
void expectOfEach(const char *what, Word word, Condition holds) {
    for (size_t i = 0; i < sizeof(Word); ++i) tests::expect(holds(i), what, word);
}

bool isFlagged(Word flags, size_t index) { return byteAt(flags, index) != 0; }

void checkLimit(Word word, uint8_t limit) {
    const Word flags = atMost(word, limit);
    expectOfEach("atMost", word, [&](size_t i) { return isFlagged(flags, i) == (byteAt(word, i) <= limit); });
    expectOfEach("inverse", word, [&](size_t i) { return isFlagged(inverse(flags), i) != isFlagged(flags, i); });
}

void checkWord(Word word) {
    expectOfEach("zeros", word, [&](size_t i) { return isFlagged(zeros(word), i) == (byteAt(word, i) == 0); });
    expectOfEach("fold", word, [&](size_t i) { return byteAt(fold(word), i) == folded(byteAt(word, i)); });
    checkLimit(word, 32);
}

// A pair of bytes in every place, between bytes that are alike or not, and a byte with a limit.
void checkPair(uint8_t first, uint8_t second) {
    for (size_t place = 0; place < sizeof(Word); ++place) {
        const auto with = [&](uint32_t others, uint8_t byte) {
            const Word mask = static_cast<Word>(Word{0xFF} << 8 * place);
            const Word outside = static_cast<Word>(splatWord(static_cast<uint8_t>(others)) & ~mask);
            return static_cast<Word>(outside | static_cast<Word>(byte) << 8 * place);
        };
        for (const uint32_t others : {0x00u, 0x01u, 0x41u, 0x61u, 0x7Fu, 0x80u, 0xFFu}) {
            const Word a = with(others, first);
            const Word b = with(others ^ (first & 0x20u), second);
            const Word same = equals(a, b);
            const Word unlike = foldedDifference(a, b);
            expectOfEach("equals", a, [&](size_t i) { return isFlagged(same, i) == (byteAt(a, i) == byteAt(b, i)); });
            expectOfEach("foldedDifference", a, [&](size_t i) {
                return isFlagged(unlike, i) == (folded(byteAt(a, i)) != folded(byteAt(b, i)));
            });
            if (second < 0x7F) checkLimit(a, second);
        }
    }
}

}  // namespace

int main() {
    for (uint32_t pair = 0; pair < 65536; ++pair)
        checkPair(static_cast<uint8_t>(pair), static_cast<uint8_t>(pair >> 8));
    // As it is and, where words are wider, beside its complement.
    tests::forAll(tests::byDepth(10007, 101, 1),
                  [](uint64_t value) { checkWord(static_cast<Word>(value | ~value << 32)); });
    std::printf("%zu bytes a word, ", sizeof(Word));
    return tests::conclude();
}
