#ifndef STRLIB_CORE_TWO_WAY_H
#define STRLIB_CORE_TWO_WAY_H

// The two-way search of Crochemore and Perrin: a substring in time linear in both lengths and constant space. The
// sought bytes are cut in two at a place such that a mismatch right of it moves on by what was compared, and one left
// of it by the period. Bytes are compared as they stand or folded, by a flag: this is for texts where the fast ways
// give up, and one copy of the code is enough.

#include "core/case_mode.h"

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
            const uint8_t *const at = bytes + place;
            const size_t start = known > cut_ ? known : cut_;
            const bool beginsAlike = alike(at[start], sought_[start]);  // Most places end here.
            const size_t matched = beginsAlike ? start + agreement(at, start, length_) : start;
            if (matched < length_) {
                place += matched - cut_ + 1;
                known = 0;
                continue;
            }
            if (known >= cut_ || known + agreement(at, known, cut_) == cut_) return at;
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

    // How many of the sought bytes from `start` to `end` stand in a row in the text that is to begin at a place.
    size_t agreement(const uint8_t *place, size_t start, size_t end) const {
        const uint8_t *const first = place + start;
        const uint8_t *const second = sought_ + start;
        const size_t count = end - start;
        size_t i = 0;
        for (; count - i >= block::size; i += block::size) {
            const block::Block a = block::load(first + i);
            const block::Block b = block::load(second + i);
            const block::Block unlike = folding_ ? Folded::unlike(a, b) : Exact::unlike(a, b);
            const block::Mask differences = block::differences(unlike, block::splat(0));
            if (differences != 0) return i + block::first(differences);
        }
        while (i < count && alike(first[i], second[i])) ++i;
        return i;
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
