#ifndef STRLIB_CORE_BYTE_SET_H
#define STRLIB_CORE_BYTE_SET_H

// Sets of bytes, given as strings. A few members are compared with whole blocks; more are looked up, by blocks where
// the machine can and else byte by byte.

#include "core/scan.h"

namespace strlib {
namespace {

// An entry for each byte value. The NUL, which ends every search, is no member but has an entry of its own.
class ByteSet {
public:
    ByteSet() {
        // The widest stores of the machine; a byte that is absent is 0.
        using Vector = long long __attribute__((vector_size(block::size > 16 ? block::size : 16)));
        typedef Vector Store __attribute__((may_alias, aligned(8)));
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

    alignas(8) uint8_t entries_[256];
};

// The same of one to `most` members.
template <size_t most>
class FewBytes {
public:
    FewBytes(const uint8_t *members, size_t count) : string_(members) {
#pragma GCC unroll 4
        for (size_t i = 0; i < most; ++i) members_[i] = block::splat(members[i < count ? i : 0]);
    }

    // Member by member: compilers might call memcpy().
    FewBytes(const FewBytes &other) : string_(other.string_) {
#pragma GCC unroll 4
        for (size_t i = 0; i < most; ++i) members_[i] = other.members_[i];
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

#if defined(STRLIB_BLOCK_LOOKS_UP)
// The same of any number of members. Tables tell by a byte's low half, one for bytes below 0x80 and one for the others,
// which high halves make a member: a bit for each.
class LookedUp {
public:
    explicit LookedUp(const uint8_t *members) {
        uint8_t entries[2][16] = {};
        for (; *members != 0; ++members)
            entries[*members >> 7][*members & 0xF] |= static_cast<uint8_t>(1 << (*members >> 4 & 7));
        below_ = block::tableOf(entries[0]);
        above_ = block::tableOf(entries[1]);
    }

    block::Flags operator()(block::Block bytes) const {
        static constexpr uint8_t bits[16] = {1, 2, 4, 8, 16, 32, 64, 128, 1, 2, 4, 8, 16, 32, 64, 128};
        const block::Block high = block::lookUp(block::tableOf(bits), bytes >> 4);
        const block::Block low = block::lookUp(below_, bytes) | block::lookUp(above_, bytes ^ 0x80);
        return block::equals(low & high, high);
    }

private:
    block::Block below_;
    block::Block above_;
};

// Tables take longer to prepare than a block takes to be compared with each member: they serve from the second block
// on.
class ManyBytes {
public:
    explicit ManyBytes(const uint8_t *members) : members_(members) {}

    [[gnu::always_inline]] const uint8_t *find(const uint8_t *at) const {
        return search(at, [](block::Block bytes, block::Flags members) { return block::zeros(bytes) | members; });
    }
    [[gnu::always_inline]] const uint8_t *skip(const uint8_t *at) const {
        return search(at, [](block::Block, block::Flags members) { return block::inverse(members); });
    }

private:
    template <class Ends>
    [[gnu::always_inline]] const uint8_t *search(const uint8_t *at, Ends ends) const {
        const block::Address start = block::beginReading(at);
        if (!block::leavesPage(start)) {
            const block::Block bytes = block::loadFrom(start);
            block::Flags members = {};
            for (const uint8_t *member = members_; *member != 0; ++member)
                members = block::orEquals(members, bytes, block::splat(*member));
            const block::Mask found = block::pack(ends(bytes, members));
            if (found != 0) return at + block::first(found);
            at += block::size;
        }
        return searchOn(at, members_, ends);
    }

    template <class Ends>
    [[gnu::noinline]] static const uint8_t *searchOn(const uint8_t *at, const uint8_t *members, Ends ends) {
        const LookedUp lookedUp(members);
        return scan(at, [&](block::Block bytes) { return ends(bytes, lookedUp(bytes)); });
    }

    const uint8_t *members_;
};
#else
using ManyBytes = ByteSet;
#endif

// What `use` makes of the set, in the form that serves it best. An empty set has the NUL as its only member.
template <class Use>
[[gnu::always_inline]] inline auto withSet(const uint8_t *members, Use use) {
    if constexpr (block::size == 1) return use(ByteSet(members));
    using block::fewMembers;
    size_t count = 0;
    while (count <= fewMembers && members[count] != 0) ++count;
    return count <= fewMembers ? use(FewBytes<fewMembers>(members, count)) : use(ManyBytes(members));
}

}  // namespace
}  // namespace strlib

#endif
