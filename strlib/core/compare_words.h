#ifndef STRLIB_CORE_COMPARE_WORDS_H
#define STRLIB_CORE_COMPARE_WORDS_H

// Comparing by words: the first word of both strings where they stand, then aligned words of the first with words of
// the second at any alignment. What may be read of the second is known from the aligned words that its words reach
// into: one is loaded ahead of each, and without a NUL in it the next may be as well.

#include "core/case_mode.h"
#include "core/scan.h"

namespace strlib {
namespace {

using block::Word;
inline constexpr size_t wordSize = sizeof(Word);

// A step looks at two words at most.
inline constexpr size_t reach = 2 * wordSize;

// Compares byte by byte, a known number of positions or up to the end of both.
template <class Mode>
[[gnu::noinline]] int32_t compareBytes(const uint8_t *first, const uint8_t *second, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        if (!Mode::alike(first[i], second[i])) return difference<Mode>(first[i], second[i]);
        if (first[i] == 0) break;
    }
    return 0;
}

template <class Mode>
[[gnu::always_inline]] inline Word stopsIn(Word first, Word second) {
    return static_cast<Word>(Mode::unlike(first, second) | block::zeros(first));
}

[[gnu::noinline]] inline int32_t foldedDifferenceAt(uint32_t bits, Word first, Word second) {
    return difference<Folded>(static_cast<uint8_t>(first >> bits), static_cast<uint8_t>(second >> bits));
}

// The difference at the first place where two words differ or end.
template <class Mode>
[[gnu::always_inline]] inline int32_t differenceAt(Word stops, Word first, Word second) {
    const uint32_t bits = block::lowestBit(stops) & ~7u;
    if constexpr (Mode::folds) return foldedDifferenceAt(bits, first, second);
    return difference<Mode>(static_cast<uint8_t>(first >> bits), static_cast<uint8_t>(second >> bits));
}

// Two strings that are alike before the addresses, the first at an aligned word.
template <class Mode>
struct Walk {
    using Address = block::Address;

    // Takes a step; whether the strings differ or end in these words or, as far as it is known, the next ones.
    [[gnu::always_inline]] bool stops() {
        next = block::loadAlignedWord<Word>(ahead);
        ahead = block::stepped(ahead + wordSize);
        a = block::loadAlignedWord<Word>(at);
        b = block::loadWord<Word>(block::pointerTo(other));
        at = block::stepped(at + wordSize);
        other = block::stepped(other + wordSize);
        return (Mode::unlike(a, b) | block::zeros(next)) != 0;
    }

    // Goes on by pairs of words as long as nothing stops.
    template <class Limit>
    [[gnu::always_inline]] void passPairs(Limit &limit) {
        using namespace block;
        if (other % reach < wordSize && zeros(loadAlignedWord<Word>(ahead)) != 0) return;
        Address pair = other - other % reach + reach;
        for (;;) {
            if (!limit.pass(reach)) break;
            Word low, high, a0, a1;
            takeWords(pair, low, high);
            takeWords(at, a0, a1);
            const Word b0 = loadWord<Word>(pointerTo(other));
            const Word b1 = loadWord<Word>(pointerTo(other + wordSize));
            if ((Mode::unlike(a0, b0) | Mode::unlike(a1, b1) | zeros(low) | zeros(high)) != 0) {
                at -= reach;
                break;
            }
            other = stepped(other + reach);
        }
        limit.giveBack(reach);  // of the pair that stopped or did not pass
        ahead = other - other % wordSize + wordSize;
    }

    Address at;
    Address other;
    Address ahead;  // the aligned word behind that around `other`, in which there is no NUL from there on
    Word next;
    Word a = 0;
    Word b = 0;
};

// Goes on behind a first word that is alike in both. Apart, so that short comparisons save no registers.
template <class Mode, class Limit>
[[gnu::noinline]] int32_t compareOn(const uint8_t *first, const uint8_t *second, Limit limit) {
    using namespace block;
    Walk<Mode> walk;
    walk.at = beginReading(first);
    walk.other = beginReading(second);
    // Some of the first word is compared once more, so that the words of the first string are aligned from here on.
    const size_t done = wordSize - walk.at % wordSize;
    walk.at += done;
    walk.other += done;
    const size_t shift = walk.other % wordSize * 8;
    walk.ahead = walk.other - walk.other % wordSize;
    bool ranOut = !limit.pass(done);
    Word stops = 0;
    walk.next = loadAlignedWord<Word>(walk.ahead);
    walk.ahead += wordSize;
    if (!ranOut && zeros(static_cast<Word>(walk.next | ((Word{1} << shift) - 1))) == 0) {
        for (;;) {
            if (walk.stops()) {
                stops = stopsIn<Mode>(walk.a, walk.b);
                break;
            }
            if (!limit.pass(wordSize)) {
                ranOut = true;
                break;
            }
            if constexpr (Limit::pairsPay && wordsAtOnce == 2) {
                if (walk.at % 64 == 0) walk.passPairs(limit);
            }
        }
    }
    if (stops == 0) {
        if (ranOut) return compareBytes<Mode>(pointerTo(walk.at), pointerTo(walk.other), limit.leftWith(reach));
        // The second string ends in the word loaded ahead.
        walk.a = loadAlignedWord<Word>(walk.at);
        walk.b = static_cast<Word>(walk.next >> shift);
        stops = stopsIn<Mode>(walk.a, walk.b);
    }
    return differenceAt<Mode>(stops, walk.a, walk.b);
}

// Whether a word at an address reaches out of the group of 32 bytes that may be read.
inline bool leavesGroup(block::Address address) { return address % 32 > 32 - wordSize; }

template <class Mode, class Limit>
[[gnu::always_inline]] inline int32_t compareUpTo(const uint8_t *first, const uint8_t *second, Limit limit) {
    using namespace block;
    if (wordSize == 1) return compareBytes<Mode>(first, second, limit.all());
    if (!limit.pass(reach - 1)) return compareBytes<Mode>(first, second, limit.left(reach - 1));
    const Address at = beginReading(first);
    const Address other = beginReading(second);
    if (!leavesGroup(at) && !leavesGroup(other)) {
        const Word a = loadWord<Word>(pointerTo(at));
        const Word b = loadWord<Word>(pointerTo(other));
        const Word stops = stopsIn<Mode>(a, b);
        if (stops != 0) return differenceAt<Mode>(stops, a, b);
    } else {
        for (size_t i = 0; i < wordSize; ++i) {
            if (!Mode::alike(first[i], second[i])) return difference<Mode>(first[i], second[i]);
            if (first[i] == 0) return 0;
        }
    }
    return compareOn<Mode>(first, second, limit);
}

// Whether commonPrefix() takes less than looking bytes up.
inline constexpr bool passesEqualBytesFast = false;

// How many bytes two strings have in common at their start.
template <class Mode>
[[gnu::always_inline]] inline size_t commonPrefix(const uint8_t *first, const uint8_t *second) {
    size_t count = 0;
    while (second[count] != 0 && Mode::alike(first[count], second[count])) ++count;
    return count;
}

// The difference of the first bytes that differ, of words that do.
[[gnu::always_inline]] inline int32_t rangeDifference(Word first, Word second) {
    const uint32_t bits = block::lowestBit(static_cast<Word>(first ^ second)) & ~7u;
    return static_cast<uint8_t>(first >> bits) - static_cast<uint8_t>(second >> bits);
}

// Bytes that all exist. The last word overlaps what is compared already.
inline int32_t compareRanges(const uint8_t *first, const uint8_t *second, size_t count) {
    using namespace block;
    if (wordSize == 1 || !anyAddressIsFast || count < wordSize) {
        for (size_t i = 0; i < count; ++i) {
            if (first[i] != second[i]) return first[i] - second[i];
        }
        return 0;
    }
    const size_t last = count - wordSize;
    const Address start = addressOf(first);
    const Address other = addressOf(second);
    Address at = start;
    Address otherAt = other;
    const auto take = [](Address &from) {
        const Word word = loadWord<Word>(pointerTo(from));
        from = stepped(from + wordSize);
        return word;
    };
    for (size_t left = last; left >= 2 * wordSize; left -= 2 * wordSize) {
        const Word a = take(at);
        const Word b = take(otherAt);
        if (a != b) return rangeDifference(a, b);
        const Word c = take(at);
        const Word d = take(otherAt);
        if (c != d) return rangeDifference(c, d);
    }
    for (size_t left = last % (2 * wordSize); left != 0; left = left > wordSize ? left - wordSize : 0) {
        const Word a = take(at);
        const Word b = take(otherAt);
        if (a != b) return rangeDifference(a, b);
    }
    const Word a = loadWord<Word>(pointerTo(start + last));
    const Word b = loadWord<Word>(pointerTo(other + last));
    return a == b ? 0 : rangeDifference(a, b);
}

}  // namespace
}  // namespace strlib

#endif
