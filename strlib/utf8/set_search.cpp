#include <strlib.h>

#include "detail/byte_set.h"
#include "utf8/sequence.h"

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
template <uint32_t few>
class PlaceBytes {
public:
    void add(uint8_t byte) {
        for (uint32_t i = 0; i < few; ++i) {
            if (i == count_) bytes_[count_++] = byte;
            if (bytes_[i] == byte) return;
        }
        areFew_ = false;
    }

    void giveUp() { areFew_ = false; }
    bool areFew() const { return areFew_; }

    // A place that no byte has taken repeats the first.
    uint8_t operator[](uint32_t index) const { return bytes_[index < count_ ? index : 0]; }

private:
    uint8_t bytes_[few] = {};
    uint32_t count_ = 0;
    bool areFew_ = true;
};

class Members {
public:
    explicit Members(const uint8_t *set) : first_(set), end_(set) {
        while (*end_ != 0) {
            const uint32_t length = memberLength(*end_);
            broken_ = length == 0;
            if (broken_ || cutShort(end_, length)) return;
            leads_.add(end_[0]);
            if (length > 1)
                seconds_.add(end_[1]);
            else
                seconds_.giveUp();
            end_ += length;
        }
    }

    // Whether a byte that begins no member ends every walk that gets that far.
    bool broken() const { return broken_; }

    const PlaceBytes<2> &leads() const { return leads_; }
    const PlaceBytes<4> &seconds() const { return seconds_; }

    void addLeadsTo(ByteSet &set) const {
        for (const uint8_t *member = first_; member < end_; member += memberLength(*member)) set.add(*member);
    }

    bool matchAt(const uint8_t *position) const {
        for (const uint8_t *member = first_; member < end_; member += memberLength(*member)) {
            if (startsWith(position, member, memberLength(*member))) return true;
        }
        return false;
    }

private:
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

// Places where one of two leads stands and, if these are few, one of the second bytes behind it.
class Candidates {
public:
    explicit Candidates(const Members &members) : anySecond_(members.seconds().areFew() ? 0 : block::Mask(-1)) {
        for (uint32_t i = 0; i < 2; ++i) leads_[i] = block::splat(members.leads()[i]);
        for (uint32_t i = 0; i < 4; ++i) seconds_[i] = block::splat(members.seconds()[i]);
    }

    const uint8_t *find(const uint8_t *at) const {
        const size_t offset = block::offsetIn(at);
        block::Address address = block::addressOf(at) - offset;
        block::Mask found = block::from(stopsIn(address), offset);
        for (;;) {
            if (found != 0) found &= secondsOrNul(address);
            if (found != 0) return block::pointerTo(address + block::first(found));
            found = stopsIn(address += block::size);
        }
    }

private:
    using Block = block::Block;

    static Block either(const Block *members, Block bytes) {
        return static_cast<Block>(block::equals(bytes, members[0]) | block::equals(bytes, members[1]));
    }

    block::Mask stopsIn(block::Address address) const {
        const Block bytes = block::loadAligned(address);
        return block::pack(static_cast<Block>(block::zeros(bytes) | either(leads_, bytes)));
    }

    block::Mask secondsOrNul(block::Address address) const {
        const Block bytes = block::loadAligned(address);
        const Block seconds = static_cast<Block>(either(seconds_, bytes) | either(seconds_ + 2, bytes));
        return static_cast<block::Mask>(block::pack(block::zeros(bytes)) | block::ofSuccessors(block::pack(seconds)) |
                                        anySecond_);
    }

    Block leads_[2];
    Block seconds_[4];
    block::Mask anySecond_;
};

template <class Places>
[[gnu::always_inline]] inline const uint8_t *findMember(const uint8_t *at, const Members &members,
                                                        const Places &places) {
    for (at = places.find(at); *at != 0; at = places.find(at + 1)) {
        if (members.matchAt(at)) return at;
    }
    return nullptr;
}

}  // namespace

char *TQANSI_strpbrkUTF8(const char *string, const char *set) {
    if (isEmpty(string) || isEmpty(set)) return nullptr;
    const Members members(bytesOf(set));
    const uint8_t *const at = bytesOf(string);
    // The first position without a match meets the broken place, and that ends the search.
    if (members.broken()) return members.matchAt(at) ? resultAt(at) : nullptr;
    if (members.leads().areFew()) return resultAt(findMember(at, members, Candidates(members)));
    ByteSet leads;
    members.addLeadsTo(leads);
    return resultAt(findMember(at, members, leads));
}
