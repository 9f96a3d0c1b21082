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

}  // namespace

int32_t X_TAMBRO_gets(char *destination, int32_t size, const char *source) {
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
