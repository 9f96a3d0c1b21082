// The search in bounded time by itself: the routines leave only long needles to it, late in long texts.

#include "core/two_way.h"

#include <cstdio>
#include <string>

using namespace strlib;

static uint32_t failures = 0;

// All strings of a length over two letters.
template <class Use>
static void forAllOf(size_t length, Use use) {
    for (uint32_t bits = 0; bits < uint32_t{1} << length; ++bits) {
        std::string string(length, 'a');
        for (size_t i = 0; i < length; ++i) string[i] = static_cast<char>('a' + (bits >> i & 1));
        use(string);
    }
}

static void check(const std::string &needle, const std::string &text) {
    const TwoWay search(bytesOf(needle.c_str()), needle.size(), false);
    const uint8_t *const found = search.find<Exact>(bytesOf(text.c_str()), text.size());
    const size_t expected = text.find(needle);
    if (found == (expected == text.npos ? nullptr : bytesOf(text.c_str()) + expected)) return;
    if (++failures <= 20) std::printf("wrong: %s in %s\n", needle.c_str(), text.c_str());
}

int main() {
    for (size_t length = 1; length <= 7; ++length) {
        forAllOf(length, [](const std::string &needle) {
            forAllOf(12, [&](const std::string &text) { check(needle, text); });
        });
    }
    std::printf("%u failed\n", failures);
    return failures != 0;
}
