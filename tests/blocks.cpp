// The operations on words against their meaning for each byte, for every 32-bit word and every pair of bytes. Built
// once for the target's own words and once for plain ones. What a flag looks like is not looked at, but whether it is
// there.

#include "machine/block.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <thread>
#include <vector>

#include "support/choices.h"

using namespace strlib::block;

namespace {

constexpr size_t width = sizeof(Word);

std::atomic<uint64_t> faults = 0;

uint8_t byteAt(Word word, size_t index) { return static_cast<uint8_t>(word >> 8 * index); }

uint8_t folded(uint8_t byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<uint8_t>(byte + 32) : byte; }

void fail(const char *what, Word word) {
    if (++faults <= 10) std::printf("FAILED %s: 0x%llX\n", what, static_cast<unsigned long long>(word));
}

// Whether the bytes flagged are those of which the condition holds.
template <class Condition>
void check(const char *what, Word word, Word flags, Condition isFlagged) {
    for (size_t i = 0; i < width; ++i) {
        if ((byteAt(flags, i) != 0) != isFlagged(i)) fail(what, word);
    }
}

void checkLimit(Word word, uint8_t limit) {
    const Word flags = atMost(word, limit);
    check("atMost", word, flags, [&](size_t i) { return byteAt(word, i) <= limit; });
    check("inverse", word, inverse(flags), [&](size_t i) { return byteAt(word, i) > limit; });
}

void checkWord(Word word) {
    check("zeros", word, zeros(word), [&](size_t i) { return byteAt(word, i) == 0; });
    checkLimit(word, 32);
    Word expected = 0;
    for (size_t i = 0; i < width; ++i) expected |= static_cast<Word>(Word{folded(byteAt(word, i))} << 8 * i);
    if (fold(word) != expected) fail("fold", word);
}

// Every 32-bit word, as it stands and beside its complement where words are wider.
void checkWords(uint64_t step) {
    const unsigned count = std::max(1u, std::thread::hardware_concurrency());
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < count; ++i) {
        threads.emplace_back([=] {
            for (uint64_t value = i * step; value < uint64_t{1} << 32; value += count * step) {
                checkWord(static_cast<Word>(value | ~value << 32));
            }
        });
    }
    for (std::thread &thread : threads) thread.join();
}

// Every pair of bytes in every place, between bytes that are alike or not, and each byte with every limit.
void checkPairs() {
    static constexpr std::array<uint8_t, 7> around = {0, 1, 'A', 'a', 0x7F, 0x80, 0xFF};
    for (uint32_t pair = 0; pair < 65536; ++pair) {
        for (size_t place = 0; place < width; ++place) {
            const Word mask = static_cast<Word>(Word{0xFF} << 8 * place);
            const auto with = [&](uint8_t others, uint32_t byte) {
                return static_cast<Word>((splatWord(others) & ~mask) | (static_cast<Word>(byte & 0xFF) << 8 * place));
            };
            for (const uint8_t others : around) {
                const Word a = with(others, pair);
                const Word b = with(static_cast<uint8_t>(others ^ (pair & 0x20)), pair >> 8);
                check("equals", a, equals(a, b), [&](size_t i) { return byteAt(a, i) == byteAt(b, i); });
                check("foldedDifference", a, foldedDifference(a, b),
                      [&](size_t i) { return folded(byteAt(a, i)) != folded(byteAt(b, i)); });
                if (pair >> 8 < 0x7F) checkLimit(a, static_cast<uint8_t>(pair >> 8));
            }
        }
    }
}

}  // namespace

int main() {
    checkPairs();
    checkWords(tests::depthShift() > 0 ? 1 : tests::depthShift() == 0 ? 101 : 10007);
    std::printf("%zu bytes a word, %llu faults\n", width, static_cast<unsigned long long>(faults));
    return faults == 0 ? 0 : 1;
}
