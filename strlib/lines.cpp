#include <strlib.h>

#include "core/copy.h"

using namespace strlib;

namespace {

// Where the bytes that are copied as they stand may end: the NUL, line feeds and carriage returns. Words are better off
// with one comparison for all three, even if it stops at some other bytes.
struct Marks {
    block::Flags operator()(block::Block bytes) const {
        if (block::isWord) return block::atMost(bytes, '\r');
        return block::orEquals(block::orEquals(block::zeros(bytes), bytes, block::splat('\n')), bytes,
                               block::splat('\r'));
    }
};

// Whether carriage returns in a row are passed one after the other, without a copy of nothing behind each. On ARM every
// line would pay for that.
constexpr bool passesRuns = block::maskBits == 1;

[[gnu::noinline]] int32_t takeByBlocks(char *destination, int32_t size, const char *source) {
    const uint8_t *at = bytesOf(source);
    uint8_t *to = bytesOf(destination);
    size_t room = static_cast<size_t>(size);
    for (; room != 0; ++at) {
        uint8_t *const end = copyUntil<false>(to, at, Marks(), Within{room - 1});
        const size_t count = static_cast<size_t>(end - to);
        at += count;
        to = end;
        room -= count;
        if (room == 0 || *at == '\n' || *at == 0) break;
        if (*at == '\r') {
            while (passesRuns && at[1] == '\r') ++at;
            continue;
        }
        *to++ = *at;
        --room;
    }
    *to = 0;
    if (room == 0) --at;  // The last byte stored is the last one read.
    return static_cast<int32_t>(at - bytesOf(source));
}

// For a line that is taken into the text itself, at its place or closely before it: blocks would load again what has
// been overwritten.
[[gnu::noinline, gnu::cold]] int32_t takeByBytes(char *destination, int32_t size, const char *source) {
    int32_t index = 0;
    for (; source[index] != '\n' && source[index] != 0; ++index) {
        if (source[index] == '\r') continue;
        *destination++ = source[index];
        if (--size == 0) break;
    }
    *destination = 0;
    return index;
}

}  // namespace

int32_t X_TAMBRO_gets(char *destination, int32_t size, const char *source) {
    const size_t distance = block::addressOf(bytesOf(source)) - block::addressOf(bytesOf(destination));
    return distance < 2 * block::size ? takeByBytes(destination, size, source)
                                      : takeByBlocks(destination, size, source);
}
