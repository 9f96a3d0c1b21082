#ifndef STRLIB_DETAIL_TWO_WAY_H
#define STRLIB_DETAIL_TWO_WAY_H

// The two-way search of Crochemore and Perrin: a substring in time linear in both lengths and constant space. The
// sought bytes are cut in two at a place such that a mismatch right of it moves on by what was compared, and one left
// of it by the period. Bytes are compared as they stand or folded, by a flag: this is for texts where the fast ways
// give up, and one copy of the code is enough.

#include "detail/ascii.h"
#include "detail/bytes.h"
#include "detail/reading.h"

namespace strlib {
namespace {

class TwoWay {
public:
    TwoWay(const uint8_t *sought, size_t length, bool folding) : sought_(sought), length_(length), folding_(folding) {
        const Suffix up = greatestSuffix(false);
        const Suffix down = greatestSuffix(true);
        const Suffix &greater = up.start > down.start ? up : down;
        cut_ = greater.start;
        period_ = greater.period;
        periodic_ = isPeriodic();
        if (!periodic_) period_ = (cut_ > length_ - cut_ ? cut_ : length_ - cut_) + 1;
    }

    // The first place in `count` bytes; null if there is none.
    const uint8_t *find(const uint8_t *bytes, size_t count) const {
        size_t known = 0;  // bytes at the front that are known to match, in a periodic search
        for (size_t place = 0; count - place >= length_;) {
            size_t i = known > cut_ ? known : cut_;
            while (i < length_ && alike(bytes[place + i], sought_[i])) ++i;
            if (i < length_) {
                place += i - cut_ + 1;
                known = 0;
                continue;
            }
            i = cut_;
            while (i > known && alike(bytes[place + i - 1], sought_[i - 1])) --i;
            if (i <= known) return bytes + place;
            place += period_;
            known = periodic_ ? length_ - period_ : 0;
        }
        return nullptr;
    }

private:
    struct Suffix {
        size_t start;
        size_t period;
    };

    uint8_t byteOf(uint8_t byte) const { return folding_ ? folded(byte) : byte; }

    bool alike(uint8_t first, uint8_t second) const {
        return first == second || (folding_ && Folded::alike(first, second));
    }

    // The greatest suffix in the order of bytes or its reverse, and its period.
    Suffix greatestSuffix(bool reversed) const {
        Suffix best = {0, 1};
        size_t candidate = 1;
        for (size_t matched = 0; candidate + matched < length_;) {
            const uint8_t a = byteOf(sought_[candidate + matched]);
            const uint8_t b = byteOf(sought_[best.start + matched]);
            if (a == b) {
                if (++matched < best.period) continue;
                candidate += best.period;
            } else if ((a < b) != reversed) {
                candidate += matched + 1;
                best.period = candidate - best.start;
            } else {
                best = {candidate, 1};
                candidate = candidate + 1;
            }
            matched = 0;
        }
        return best;
    }

    bool isPeriodic() const {
        for (size_t i = 0; i < cut_; ++i) {
            if (byteOf(sought_[i]) != byteOf(sought_[i + period_])) return false;
        }
        return true;
    }

    const uint8_t *sought_;
    size_t length_;
    bool folding_;
    size_t cut_;
    size_t period_;
    bool periodic_;
};

}  // namespace
}  // namespace strlib

#endif
