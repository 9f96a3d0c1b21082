#ifndef STRLIB_DETAIL_BYTE_SET_H
#define STRLIB_DETAIL_BYTE_SET_H

// Sets of bytes, given as strings. A few members are compared with whole blocks; more are looked up byte by byte.

#include "detail/scan.h"

namespace strlib {
namespace {

// One bit for each byte value.
class ByteSet {
public:
    ByteSet() = default;
    explicit ByteSet(const uint8_t *members) {
        for (; *members != 0; ++members) add(*members);
    }

    void add(uint8_t byte) { words_[byte / 32] |= bit(byte); }

    // The first byte from `at` on that is a member, or the NUL.
    const uint8_t *find(const uint8_t *at) const {
        while (*at != 0 && !has(*at)) ++at;
        return at;
    }

    // The first byte from `at` on that is no member; the NUL never is one.
    const uint8_t *skip(const uint8_t *at) const {
        while (has(*at)) ++at;
        return at;
    }

private:
    static uint32_t bit(uint8_t byte) { return uint32_t{1} << (byte % 32); }
    bool has(uint8_t byte) const { return (words_[byte / 32] & bit(byte)) != 0; }

    uint32_t words_[8] = {};
};

inline constexpr size_t fewMembers = 4;

// The same of one to fewMembers members.
class FewBytes {
public:
    FewBytes(const uint8_t *members, size_t count) {
        for (size_t i = 0; i < fewMembers; ++i) members_[i] = block::splat(members[i < count ? i : 0]);
    }

    [[gnu::always_inline]] const uint8_t *find(const uint8_t *at) const {
        return scan(at, [&](block::Block bytes) -> block::Flags { return block::zeros(bytes) | anyIn(bytes); });
    }
    [[gnu::always_inline]] const uint8_t *skip(const uint8_t *at) const {
        return scan(at, [&](block::Block bytes) { return block::inverse(anyIn(bytes)); });
    }

private:
    [[gnu::always_inline]] block::Flags anyIn(block::Block bytes) const {
        const block::Flags firstTwo = block::equals(bytes, members_[0]) | block::equals(bytes, members_[1]);
        const block::Flags lastTwo = block::equals(bytes, members_[2]) | block::equals(bytes, members_[3]);
        return static_cast<block::Flags>(firstTwo | lastTwo);
    }

    block::Block members_[fewMembers];
};

// What `use` makes of the set, in the form that serves it best. An empty set has the NUL as its only member.
template <class Use>
[[gnu::always_inline]] inline auto withSet(const uint8_t *members, Use use) {
    const size_t count = measureUpTo(members, fewMembers + 1);
    return count <= fewMembers ? use(FewBytes(members, count)) : use(ByteSet(members));
}

}  // namespace
}  // namespace strlib

#endif
