#ifndef STRLIB_DETAIL_BYTE_SET_H
#define STRLIB_DETAIL_BYTE_SET_H

#include <stdint.h>

namespace strlib {

// A set of byte values, one bit each.
class ByteSet {
public:
    ByteSet() = default;

    // The bytes of a string, without its NUL.
    explicit ByteSet(const uint8_t *members) {
        for (; *members != 0; ++members) add(*members);
    }

    void add(uint8_t byte) { words_[byte / 32] |= bit(byte); }
    bool has(uint8_t byte) const { return (words_[byte / 32] & bit(byte)) != 0; }

private:
    static uint32_t bit(uint8_t byte) { return uint32_t{1} << (byte % 32); }

    uint32_t words_[8] = {};
};

}  // namespace strlib

#endif
