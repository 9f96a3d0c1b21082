#ifndef STRLIB_CORE_BYTE_SET_H
#define STRLIB_CORE_BYTE_SET_H

// Sets of bytes, given as strings. A few members are compared with whole blocks; more are looked up byte by byte.

#include "core/scan.h"

namespace strlib {
namespace {

// An entry for each byte value. The NUL, which ends every search, is no member but has an entry of its own.
class ByteSet {
public:
    ByteSet() {
        // The widest stores of the machine; a byte that is absent is 0.
        using Store = long long __attribute__((vector_size(block::size > 16 ? block::size : 16), may_alias));
        for (size_t i = 0; i < sizeof entries_; i += sizeof(Store)) *reinterpret_cast<Store *>(entries_ + i) = Store{};
        entries_[0] = nul;
    }
    explicit ByteSet(const uint8_t *members) : ByteSet() {
        for (; *members != 0; ++members) add(*members);
    }

    void add(uint8_t byte) { entries_[byte] = member; }

    // The first byte from `at` on that is a member, or the NUL.
    const uint8_t *find(const uint8_t *at) const {
        while (entries_[*at] == absent) ++at;
        return at;
    }

    // The first byte from `at` on that is no member; the NUL never is one.
    [[gnu::always_inline]] const uint8_t *skip(const uint8_t *at) const {
        while (entries_[*at] == member) ++at;
        return at;
    }

private:
    static constexpr uint8_t absent = 0;
    static constexpr uint8_t member = 1;
    static constexpr uint8_t nul = 2;

    alignas(32) uint8_t entries_[256];
};

// The same of one to `most` members.
template <size_t most>
class FewBytes {
public:
    FewBytes(const uint8_t *members, size_t count) : string_(members) {
#pragma GCC unroll 4
        for (size_t i = 0; i < most; ++i) members_[i] = block::splat(members[i < count ? i : 0]);
    }

    [[gnu::always_inline]] const uint8_t *find(const uint8_t *at) const {
        return scan<Steps::blocksThenGroups>(
            at, [set = *this](block::Block bytes) { return set.orAnyIn(block::zeros(bytes), bytes); });
    }

    // Members in a row are few as well: blocks would not pay.
    [[gnu::always_inline]] const uint8_t *skip(const uint8_t *at) const {
        for (const uint8_t *member = string_; *member != 0;) {
            if (*member++ != *at) continue;
            ++at;
            member = string_;
        }
        return at;
    }

    // The bytes that are members, and what is flagged already.
    [[gnu::always_inline]] block::Flags orAnyIn(block::Flags flags, block::Block bytes) const {
#pragma GCC unroll 4
        for (size_t i = 0; i < most; ++i) flags = block::orEquals(flags, bytes, members_[i]);
        return flags;
    }

private:
    const uint8_t *string_;
    block::Block members_[most];
};

// What `use` makes of the set, in the form that serves it best. An empty set has the NUL as its only member.
template <class Use>
[[gnu::always_inline]] inline auto withSet(const uint8_t *members, Use use) {
    if constexpr (block::size == 1) return use(ByteSet(members));
    using block::fewMembers;
    size_t count = 0;
    while (count <= fewMembers && members[count] != 0) ++count;
    return count <= fewMembers ? use(FewBytes<fewMembers>(members, count)) : use(ByteSet(members));
}

}  // namespace
}  // namespace strlib

#endif
