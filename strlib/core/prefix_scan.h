#ifndef STRLIB_CORE_PREFIX_SCAN_H
#define STRLIB_CORE_PREFIX_SCAN_H

// Places where the first bytes of a needle stand. Two of these bytes that are likely to be rare are looked for in each
// block; where both stand, the others are compared for all places in the block at once, which costs a bounded number of
// steps whatever the text. Blocks are those in which the last of the first bytes may stand: what comes before has been
// passed already and may be loaded.

#include "core/case_mode.h"
#include "core/scan.h"

namespace strlib {
namespace {

// How common bytes are in texts, roughly; where it is wrong, the scan chooses other bytes as it goes.
struct Commonness {
    constexpr Commonness() : of{} {
        uint8_t rank = 0;
        for (const char *byte = "zqxjkv0123456789bpygfwmucldrhsnioate "; *byte != 0; ++byte)
            of[static_cast<uint8_t>(*byte)] = ++rank;
        for (size_t lead = 0xC2; lead <= 0xF4; ++lead) of[lead] = rank;  // of UTF-8: before each character of a script
    }
    uint8_t of[256];
};

inline constexpr Commonness commonness;

template <class Mode>
class NeedleScan {
public:
    // How many bytes of the needle are known to stand at the places found.
    const size_t known;

    // Scans from any place of the text on.
    NeedleScan(const uint8_t *from, const uint8_t *needle)
        : known(measureUpTo(needle, most)), needle_(needle), start_(block::beginReading(from)) {
        next_ = start_ - block::offsetIn(start_);
        const size_t rarest = rarestBut(0);
        choose(rarest);
        choose(rarestBut(read(rarest)));
    }

    // The first place from `from` on, which grows from call to call and has no NUL before it; null if there is none.
    const uint8_t *next(const uint8_t *from) {
        const block::Address least = block::addressOf(from) + (known - 1);
        const block::Address current = block::addressOf(from) - block::offsetIn(block::addressOf(from));
        if (current > next_) {
            next_ = current;
            places_ = 0;
        }
        for (;;) {
            drop(least);
            if (places_ != 0) {
                const size_t index = block::first(places_);
                places_ &= places_ - 1;
                return block::pointerTo(next_ - block::size + index - (known - 1));
            }
            if (ended_) return nullptr;
            advance(least);
        }
    }

private:
    static constexpr size_t most = 16;
    static constexpr uint32_t failuresAllowed = 8;
    static constexpr uint32_t choicesAllowed = 2 + 16;

    struct Chosen {
        size_t back;  // from the last of the first bytes
        block::Block bytes;
    };

    uint8_t read(size_t index) const { return Mode::read(needle_[index]); }

    // The index of the rarest byte but for those of a value.
    size_t rarestBut(uint8_t value) const {
        size_t best = 0;
        for (size_t i = 1; i < known; ++i) {
            if (read(i) == value) continue;
            if (read(best) == value || commonness.of[read(i)] < commonness.of[read(best)]) best = i;
        }
        return best;
    }

    // Takes a byte into the pair, and drops the one chosen before the last.
    void choose(size_t index) {
        first_ = second_;
        second_ = {known - 1 - index, block::splat(read(index))};
        ++choices_;
    }

    // Where a block that begins `back` bytes before an address holds a byte of the needle.
    static block::Flags standing(block::Address address, size_t back, block::Block byte) {
        return block::equals(Mode::readBlock(block::load(block::pointerTo(address - back))), byte);
    }

    // Leaves out the places whose last byte is before an address.
    void drop(block::Address least) {
        const block::Address current = next_ - block::size;
        if (least > current) places_ = least < next_ ? block::from(places_, least - current) : 0;
    }

    // Goes on to the next block that may hold places, or the end.
    void advance(block::Address least) {
        using namespace block;
        Address address = next_;
        if (address < start_ + most) {
            next_ = address + size;
            return compareOneByOne(address);
        }
        const Chosen first = first_;
        const Chosen second = second_;
        Flags ends;
        Flags candidates;
        do {
            ends = zeros(loadAligned(address));
            candidates = Flags{};
            // In a last block, what begins further back reaches past the end.
            if (!readsAreWatched || !any(ends))
                candidates = standing(address, first.back, first.bytes) & standing(address, second.back, second.bytes);
            address += size;
        } while (!any(ends | candidates));
        next_ = address;
        address -= size;
        if (any(ends)) return compareOneByOne(address);
        places_ = pack(candidates);
        drop(least);
        if (places_ == 0) return;
        for (size_t back = 0; back < known; ++back) {
            const size_t index = known - 1 - back;
            places_ &= pack(standing(address, back, splat(read(index))));
            if (places_ == 0) return countFailure(index);
        }
    }

    // Where candidates keep failing, the byte that tells them from the needle is the better choice.
    void countFailure(size_t index) {
        if (++failures_ % failuresAllowed == 0 && choices_ < choicesAllowed) choose(index);
    }

    // The places of a block around which not all is text.
    [[gnu::noinline]] void compareOneByOne(block::Address address) {
        using namespace block;
        const Block bytes = loadAligned(address);
        const size_t before = address < start_ ? start_ - address : 0;
        const Mask end = from(pack(zeros(bytes)), before);
        Mask left = from(pack(equals(Mode::readBlock(bytes), splat(read(known - 1)))), before);
        if (end != 0) left = block::before(left, end);
        ended_ = end != 0;
        for (places_ = 0; left != 0; left &= left - 1) {
            if (stands(address + block::first(left))) places_ |= left & (0 - left);
        }
    }

    // Whether the first bytes stand so that the last of them has an address.
    bool stands(block::Address last) const {
        if (last - start_ < known - 1) return false;
        const uint8_t *const place = block::pointerTo(last - (known - 1));
        for (size_t i = 0; i < known; ++i) {
            if (Mode::read(place[i]) != read(i)) return false;
        }
        return true;
    }

    const uint8_t *needle_;
    block::Address start_;
    block::Address next_;  // the block behind the one that the places are in
    block::Mask places_ = 0;
    bool ended_ = false;
    Chosen first_ = {};
    Chosen second_ = {};
    uint32_t choices_ = 0;
    uint32_t failures_ = 0;
};

}  // namespace
}  // namespace strlib

#endif
