#ifndef STRLIB_CORE_TWO_WAY_H
#define STRLIB_CORE_TWO_WAY_H

// The two-way search of Crochemore and Perrin: a substring in time linear in both lengths and constant space. The
// needle is cut in two at a place such that a mismatch right of it moves on by what was compared, and one left of it by
// the period. Places where the right part may stand are found by a scan.

#include "core/needle_scan.h"

namespace strlib {
namespace {

class TwoWay {
public:
    TwoWay(const uint8_t *needle, size_t length, bool folding) : needle_(needle), length_(length), folding_(folding) {
        const Suffix up = greatestSuffix(false);
        const Suffix down = greatestSuffix(true);
        const Suffix &greater = up.start > down.start ? up : down;
        cut_ = greater.start;
        period_ = greater.period;
        periodic_ = isPeriodic();
        if (!periodic_) period_ = (cut_ > length_ - cut_ ? cut_ : length_ - cut_) + 1;
    }

    // The first place in `count` bytes of text; null if there is none.
    template <class Mode>
    const uint8_t *find(const uint8_t *text, size_t count) const {
        if (count < length_) return nullptr;
        NeedleScan<Mode> scan(text + cut_, needle_ + cut_);
        const uint8_t *const last = text + (count - length_);
        size_t known = 0;  // bytes at the front that are known to match, in a periodic search
        for (const uint8_t *place = text; place <= last;) {
            const size_t start = known != 0 ? known : cut_;
            const size_t matched = start + agreement<Mode>(place, start, length_);
            if (matched < length_) {
                place += matched - cut_ + 1;
                known = 0;
                // This far on, the next place is as good as any.
                if (matched >= cut_ + scan.known || place > last) continue;
                const uint8_t *const right = scan.next(place + cut_);
                if (right == nullptr || right - cut_ > last) return nullptr;
                place = right - cut_;
                continue;
            }
            if (known != 0 || agreement<Mode>(place, 0, cut_) == cut_) return place;
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

    // How many bytes of the needle from `start` to `end` stand in a row in the text that is to begin at a place.
    template <class Mode>
    STRLIB_SHARED size_t agreement(const uint8_t *place, size_t start, size_t end) const {
        const uint8_t *const first = place + start;
        const uint8_t *const second = needle_ + start;
        const size_t count = end - start;
        size_t i = 0;
        for (; count - i >= block::size; i += block::size) {
            const block::Block unlike = Mode::unlike(block::load(first + i), block::load(second + i));
            const block::Mask differences = block::differences(unlike, block::splat(0));
            if (differences != 0) return i + block::first(differences);
        }
        while (i < count && Mode::alike(first[i], second[i])) ++i;
        return i;
    }

    // The greatest suffix in the order of bytes or its reverse, and its period.
    Suffix greatestSuffix(bool reversed) const {
        Suffix best = {0, 1};
        size_t candidate = 1;
        for (size_t matched = 0; candidate + matched < length_;) {
            const uint8_t a = byteOf(needle_[candidate + matched]);
            const uint8_t b = byteOf(needle_[best.start + matched]);
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
            if (byteOf(needle_[i]) != byteOf(needle_[i + period_])) return false;
        }
        return true;
    }

    const uint8_t *needle_;
    size_t length_;
    bool folding_;
    size_t cut_;
    size_t period_;
    bool periodic_;
};

}  // namespace
}  // namespace strlib

#endif
