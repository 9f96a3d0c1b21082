#include <strlib.h>

#include "detail/byte_set.h"
#include "detail/bytes.h"
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

class Members {
public:
    explicit Members(const uint8_t *set) : first_(set), end_(set) {
        while (*end_ != 0) {
            const uint32_t length = memberLength(*end_);
            broken_ = length == 0;
            if (broken_ || cutShort(end_, length)) return;
            leads_.add(*end_);
            end_ += length;
        }
    }

    // Whether a byte that begins no member ends every walk that gets that far.
    bool broken() const { return broken_; }

    // The first place from `at` on where a member may begin, or the NUL.
    const uint8_t *nextCandidate(const uint8_t *at) const { return leads_.find(at); }

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
    ByteSet leads_;
    bool broken_ = false;
};

}  // namespace

char *TQANSI_strpbrkUTF8(const char *string, const char *set) {
    if (isEmpty(string) || set == nullptr) return nullptr;
    const Members members(bytesOf(set));
    const uint8_t *at = bytesOf(string);
    // The first position without a match meets the broken place, and that ends the search.
    if (members.broken()) return members.matchAt(at) ? resultAt(at) : nullptr;
    for (at = members.nextCandidate(at); *at != 0; at = members.nextCandidate(at + 1)) {
        if (members.matchAt(at)) return resultAt(at);
    }
    return nullptr;
}
