#include <strlib.h>

#include "core/copy.h"

using namespace strlib;

namespace {

// Where the bytes that are copied as they stand may end: the NUL, line feeds and carriage returns. Words are better off
// with one comparison for all three, even if it stops at some other bytes.
struct Marks {
    block::Flags operator()(block::Block bytes) const {
        if (block::maskBits == 8) return block::atMost(bytes, '\r');
        const block::Flags ends = block::zeros(bytes) | block::equals(bytes, block::splat('\n'));
        return static_cast<block::Flags>(ends | block::equals(bytes, block::splat('\r')));
    }
};

}  // namespace

int32_t X_TAMBRO_gets(char *destination, int32_t size, const char *source) {
    const uint8_t *at = bytesOf(source);
    uint8_t *to = bytesOf(destination);
    size_t room = static_cast<size_t>(size);
    for (; room != 0; ++at) {
        const size_t count = scanUpTo(at, room, Marks());
        copyBytes(to, at, count);
        at += count;
        to += count;
        room -= count;
        if (room == 0 || *at == '\n' || *at == 0) break;
        if (*at == '\r') continue;
        *to++ = *at;
        --room;
    }
    *to = 0;
    if (room == 0) --at;  // The last byte stored is the last one read.
    return static_cast<int32_t>(at - bytesOf(source));
}
