#include <strlib.h>

#include "core/scan.h"

using namespace strlib;

namespace {

struct NulOrByte {
    explicit NulOrByte(uint8_t byte) : sought(block::splat(byte)) {}
    block::Flags operator()(block::Block bytes) const { return block::orEquals(block::zeros(bytes), bytes, sought); }

    block::Block sought;
};

// The last place of a byte before `end`, going backwards from there; null if there is none.
const uint8_t *findLast(const uint8_t *string, const uint8_t *end, uint8_t byte) {
    if (string == end) return nullptr;
    const Byte isSought(byte);
    const block::Address start = block::beginReading(string);
    block::Address address = start + static_cast<size_t>(end - 1 - string);
    const size_t offset = block::offsetIn(address);
    address -= offset;
    block::Mask found = block::upTo(block::pack(isSought(block::loadAligned(address))), offset + 1);
    while (address > start) {
        if (found != 0) return block::pointerTo(address + block::last(found));
        address -= block::size;
        found = block::pack(isSought(block::loadAligned(address)));
    }
    found = block::from(found, start - address);  // Nothing before the string counts.
    return found == 0 ? nullptr : block::pointerTo(address + block::last(found));
}

}  // namespace

char *TQANSI_strchr(const char *string, int32_t byte) {
    if (string == nullptr) return nullptr;
    const uint8_t *const at = scan(bytesOf(string), NulOrByte(lowByte(byte)));
    return *at == 0 ? nullptr : resultAt(at);
}

char *TQANSI_strrchr(const char *string, int32_t byte) {
    if (string == nullptr) return nullptr;
    const uint8_t *const bytes = bytesOf(string);
    return resultAt(findLast(bytes, scan(bytes, Nul()), lowByte(byte)));
}

void *TQANSI_memchr(const void *range, int32_t byte, uint32_t count) {
    if (range == nullptr) return nullptr;
    const uint8_t *const bytes = static_cast<const uint8_t *>(range);
    return resultAt(findWithin(bytes, count, Byte(lowByte(byte))));
}
