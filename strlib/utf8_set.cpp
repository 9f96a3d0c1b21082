#include <strlib.h>

#include "core/byte_set.h"
#include "core/utf8_sequence.h"

// A string is searched for places where a member may begin: by the members' leads and, if these are few, by their
// second bytes as well, as text of one script has the same few leads all over. What is found is compared.

using namespace strlib;

namespace {

// Unlike the reader, the set takes the overlong leads 0xC0 and 0xC1 and does not look at what follows a lead.
constexpr uint32_t longestMember = 4;

// The length of the member that a byte begins, 0 for a byte that begins none.
uint32_t memberLength(uint8_t lead) {
    const uint32_t ones = leadingOnes(lead);
    if (ones == 0) return 1;
    return ones >= 2 && ones <= longestMember ? ones : 0;
}

bool startsWith(const uint8_t *string, const uint8_t *prefix, uint32_t length) {
    for (uint32_t i = 0; i < length; ++i) {
        if (string[i] != prefix[i]) return false;
    }
    return true;
}

// The different bytes that the members have at one place, as long as these are few.
template <size_t most>
class PlaceBytes {
public:
    void add(uint8_t byte) {
        size_t i = 0;
        while (i < count_ && bytes_[i] != byte) ++i;
        if (i < count_) return;
        if (i == most) return giveUp();
        bytes_[count_++] = byte;
    }

    void giveUp() { areFew_ = false; }
    bool areFew() const { return areFew_; }
    FewBytes<most> set() const { return FewBytes<most>(bytes_, count_); }

private:
    uint8_t bytes_[most] = {};
    size_t count_ = 0;
    bool areFew_ = true;
};

class Members {
public:
    explicit Members(const uint8_t *set) : first_(set), end_(set) {
        while (*end_ != 0) {
            const uint32_t length = memberLength(*end_);
            broken_ = length == 0;
            if (broken_ || cutShort(end_, length)) return;
            if (block::size > 1) notePlaces(end_, length);
            end_ += length;
        }
    }

    // Whether a byte that begins no member ends every walk that gets that far.
    bool broken() const { return broken_; }

    const PlaceBytes<2> &leads() const { return leads_; }
    const PlaceBytes<4> &seconds() const { return seconds_; }

    ByteSet allLeads() const {
        ByteSet set;
        for (const uint8_t *member = first_; member < end_; member += memberLength(*member)) set.add(*member);
        return set;
    }

    [[gnu::noinline]] bool matchAt(const uint8_t *position) const {
        for (const uint8_t *member = first_; member < end_; member += memberLength(*member)) {
            if (startsWith(position, member, memberLength(*member))) return true;
        }
        return false;
    }

private:
    void notePlaces(const uint8_t *member, uint32_t length) {
        leads_.add(member[0]);
        if (length > 1)
            seconds_.add(member[1]);
        else
            seconds_.giveUp();
    }

    static bool cutShort(const uint8_t *member, uint32_t length) {
        for (uint32_t i = 1; i < length; ++i) {
            if (member[i] == 0) return true;
        }
        return false;
    }

    const uint8_t *first_;
    const uint8_t *end_;
    PlaceBytes<2> leads_;
    PlaceBytes<4> seconds_;
    bool broken_ = false;
};

// Places where a few leads stand and, if these are few as well, second bytes behind them.
class Pairs {
public:
    explicit Pairs(const Members &members)
        : leads_(members.leads().set()),
          seconds_(members.seconds().set()),
          anySecond_(members.seconds().areFew() ? 0 : static_cast<block::Mask>(~block::Mask{0})) {}

    // The first such place from `at` on, or the NUL.
    const uint8_t *find(const uint8_t *at) const {
        block::Address address = block::beginReading(at);
        const size_t offset = block::offsetIn(address);
        address -= offset;
        block::Mask found = block::from(stopsIn(address), offset);
        for (;;) {
            if (found != 0) found &= followedOrNul(address);
            if (found != 0) return block::pointerTo(address + block::first(found));
            found = stopsIn(address += block::size);
        }
    }

private:
    block::Mask stopsIn(block::Address address) const {
        const block::Block bytes = block::loadAligned(address);
        return block::pack(leads_.orAnyIn(block::zeros(bytes), bytes));
    }

    block::Mask followedOrNul(block::Address address) const {
        const block::Block bytes = block::loadAligned(address);
        const block::Mask followed = block::ofSuccessors(block::pack(seconds_.orAnyIn(block::Flags{}, bytes)));
        return static_cast<block::Mask>(block::pack(block::zeros(bytes)) | followed | anySecond_);
    }

    FewBytes<2> leads_;
    FewBytes<4> seconds_;
    block::Mask anySecond_;
};

template <class Places>
[[gnu::always_inline]] inline const uint8_t *findMember(const uint8_t *at, const Members &members,
                                                        const Places &places) {
    for (;; ++at) {
        at = places.find(at);
        if (*at == 0) return nullptr;
        if (members.matchAt(at)) return at;
    }
}

}  // namespace

char *TQANSI_strpbrkUTF8(const char *string, const char *set) {
    if (isEmpty(string) || isEmpty(set)) return nullptr;
    const Members members(bytesOf(set));
    const uint8_t *const at = bytesOf(string);
    // The first position without a match meets the broken place, and that ends the search.
    if (members.broken()) return members.matchAt(at) ? resultAt(at) : nullptr;
    if (block::size > 1 && members.leads().areFew()) return resultAt(findMember(at, members, Pairs(members)));
    return resultAt(findMember(at, members, members.allLeads()));
}
