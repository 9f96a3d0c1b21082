#include <strlib.h>

#include "core/compare.h"
#include "core/scan.h"
#include "core/two_way.h"

// Finding a substring. Places where its first two bytes stand are found a block at a time and compared there, with
// nothing measured beforehand. Texts that keep agreeing with the substring for long use up a budget that grows with the
// bytes passed; the rest is then searched in a way whose cost has a bound.

using namespace strlib;

namespace {

// Bytes compared for nothing: so many for each byte passed, of which so many count in advance.
constexpr size_t budgetPerByte = 4;
constexpr size_t budgetAtStart = 64;

// Seldom needed: cold code is compiled for size.
[[gnu::noinline, gnu::cold]] const uint8_t *findInBoundedTime(const uint8_t *string, const uint8_t *sought,
                                                              bool folding) {
    return TwoWay(sought, measure<Steps::blocks>(sought), folding).find(string, measure<Steps::blocks>(string));
}

// How many bytes at a place agree with the sought ones, not counting the NULs.
template <class Reading>
size_t agreement(const uint8_t *place, const uint8_t *sought) {
    size_t count = 0;
    while (sought[count] != 0 && Reading::read(place[count]) == Reading::read(sought[count])) ++count;
    return count;
}

template <class Reading>
class PairFilter {
public:
    explicit PairFilter(const uint8_t *sought)
        : first_(block::splat(Reading::read(sought[0]))),
          second_(block::splat(Reading::read(sought[1]))),
          always_(sought[1] == 0 ? static_cast<block::Mask>(~block::Mask{0}) : 0) {}

    // The places in a block where both bytes stand, or the first does and the second may, being outside.
    block::Mask candidates(block::Block bytes) const {
        const block::Block read = Reading::readBlock(bytes);
        const block::Mask places = block::pack(block::equals(read, first_));
        if (block::isWord && places == 0) return 0;  // Often so in a word, seldom in a vector.
        const block::Mask followed = block::ofSuccessors(block::pack(block::equals(read, second_)));
        return static_cast<block::Mask>(places & (followed | always_));
    }

private:
    block::Block first_;
    block::Block second_;
    block::Mask always_;  // a single byte needs no second one
};

// The first place of a substring that is not empty; null if there is none.
template <class Reading>
const uint8_t *findSubstring(const uint8_t *string, const uint8_t *sought) {
    const PairFilter<Reading> filter(sought);
    block::Address address = block::beginReading(string);
    const size_t offset = block::offsetIn(address);
    address -= offset;
    const block::Address start = address;
    size_t before = offset;  // bytes at the front of the block that do not count
    for (size_t spent = 0;; address += block::size) {
        const block::Block bytes = block::loadAligned(address);
        block::Mask end = block::pack(block::zeros(bytes));
        block::Mask places = filter.candidates(bytes);
        if (before != 0) {
            end = block::from(end, before);
            places = block::from(places, before);
            before = 0;
        }
        if (end != 0) places = block::before(places, end);
        while (places != 0) {
            const size_t index = block::first(places);
            const uint8_t *const place = block::pointerTo(address + index);
            const size_t agreed = agreement<Reading>(place, sought);
            if (sought[agreed] == 0) return place;
            if (place[agreed] == 0) return nullptr;
            spent += agreed;
            if (spent / budgetPerByte > budgetAtStart + (address - start)) {
                return findInBoundedTime(place + 1, sought, Reading::folds);
            }
            places = block::after(places, index);
        }
        if (end != 0) return nullptr;
    }
}

// Folded comparisons count to 16 bits: with a longer count they go on to the end of both strings.
constexpr size_t longestCounted = 0xFFFF;

// A substring as long as that matches only where the string ends as it does: one place.
[[gnu::noinline, gnu::cold]] const uint8_t *findAtEnd(const uint8_t *string, const uint8_t *sought, size_t length) {
    const size_t available = measure<Steps::blocks>(string);
    if (available < length) return nullptr;
    const uint8_t *const place = string + (available - length);
    return TQANSI_strnicmp(resultAt(place), resultAt(sought), static_cast<int32_t>(length)) == 0 ? place : nullptr;
}

}  // namespace

char *TQANSI_strstr(const char *string, const char *substring) {
    if (string == nullptr || substring == nullptr) return nullptr;
    if (isEmpty(substring)) return resultAt(bytesOf(string));
    return resultAt(findSubstring<Exact>(bytesOf(string), bytesOf(substring)));
}

char *TQ_stristr(const char *string, const char *substring) {
    if (string == nullptr || substring == nullptr) return nullptr;
    if (isEmpty(substring)) return resultAt(bytesOf(string));
    const uint8_t *const sought = bytesOf(substring);
    const size_t length = measure<Steps::blocks>(sought);
    if (length > longestCounted) return resultAt(findAtEnd(bytesOf(string), sought, length));
    return resultAt(findSubstring<Folded>(bytesOf(string), sought));
}
