#include <strlib.h>

#include "core/compare.h"
#include "core/needle_scan.h"
#include "core/two_way.h"

// Finding a substring. Places where it may stand are found by a scan and compared there, with nothing measured
// beforehand. Texts that keep agreeing with the needle for long use up a budget that grows with the bytes passed; the
// rest is then searched in a way whose cost has a bound.

using namespace strlib;

namespace {

// Wasted comparisons allowed for each byte advanced, as if 64 bytes had been passed at the start. Trying a place costs
// as much as some comparisons. Where masks are cheap, the search in bounded time is soon the faster one.
constexpr size_t budgetPerByte = block::maskBits == 1 ? 1 : 4;
constexpr size_t budgetAtStart = 64;
constexpr size_t costOfPlace = 8;

// Only where the cost of a whole scan is worth its while.
STRLIB_SHARED size_t lengthOf(const uint8_t *string) { return measure(string); }

// Seldom needed: cold code is compiled for size.
template <class Mode>
[[gnu::noinline, gnu::cold]] const uint8_t *findInBoundedTime(const uint8_t *text, const uint8_t *needle) {
    return TwoWay(needle, lengthOf(needle), Mode::folds).template find<Mode>(text, lengthOf(text));
}

// The first place of a needle that is not empty; null if there is none.
template <class Mode>
const uint8_t *findByScan(const uint8_t *text, const uint8_t *needle) {
    NeedleScan<Mode> scan(text, needle);
    const uint8_t *from = text;
    for (size_t spent = 0; (from = scan.next(from)) != nullptr; ++from) {
        const size_t agreed = scan.known + commonPrefix<Mode>(from + scan.known, needle + scan.known);
        if (needle[agreed] == 0) return from;
        if (from[agreed] == 0) return nullptr;
        spent += costOfPlace + agreed;
        if (spent / budgetPerByte > budgetAtStart + static_cast<size_t>(from - text))
            return findInBoundedTime<Mode>(from + 1, needle);
    }
    return nullptr;
}

// Where masks are cheap, what is near is found by the first two bytes, with nothing prepared.
constexpr bool findsNearByPair = block::maskBits == 1;
constexpr size_t near = 256;

template <class Mode>
class PairFilter {
public:
    explicit PairFilter(const uint8_t *needle)
        : first_(block::splat(Mode::read(needle[0]))),
          second_(block::splat(Mode::read(needle[1]))),
          always_(needle[1] == 0 ? block::fullMask : 0) {}

    // The places in a block where both bytes stand, or the first does and the second may, being outside.
    block::Mask candidates(block::Block bytes) const {
        const block::Block read = Mode::readBlock(bytes);
        const block::Mask followed = block::ofSuccessors(block::pack(block::equals(read, second_)));
        return block::pack(block::equals(read, first_)) & (followed | always_);
    }

private:
    block::Block first_;
    block::Block second_;
    block::Mask always_;  // a single byte needs no second one
};

template <class Mode>
const uint8_t *findByPair(const uint8_t *text, const uint8_t *needle) {
    const PairFilter<Mode> filter(needle);
    block::Address address = block::beginReading(text);
    const size_t offset = block::offsetIn(address);
    address -= offset;
    const block::Address end = address + near;
    size_t before = offset;  // bytes at the front of the block that do not count
    for (size_t spent = 0; address != end; address += block::size, before = 0) {
        const block::Block bytes = block::loadAligned(address);
        const block::Mask nuls = block::from(block::pack(block::zeros(bytes)), before);
        block::Mask places = block::from(filter.candidates(bytes), before);
        if (nuls != 0) places = block::before(places, nuls);
        for (; places != 0; places &= places - 1) {
            const uint8_t *const place = block::pointerTo(address + block::first(places));
            size_t agreed = 1;
            while (needle[agreed] != 0 && Mode::alike(place[agreed], needle[agreed])) ++agreed;
            if (needle[agreed] == 0) return place;
            if (place[agreed] == 0) return nullptr;
            spent += agreed;
            if (spent / budgetPerByte > budgetAtStart + near) return findByScan<Mode>(place + 1, needle);
        }
        if (nuls != 0) return nullptr;
    }
    return findByScan<Mode>(block::pointerTo(address), needle);
}

template <class Mode>
const uint8_t *findSubstring(const uint8_t *text, const uint8_t *needle) {
    if constexpr (findsNearByPair) return findByPair<Mode>(text, needle);
    return findByScan<Mode>(text, needle);
}

// Folded comparisons count to 16 bits: with a longer count they go on to the end of both strings.
constexpr size_t longestCounted = 0xFFFF;

// A substring as long as that matches only where the string ends as it does: one place.
[[gnu::noinline, gnu::cold]] const uint8_t *findAtEnd(const uint8_t *string, const uint8_t *sought, size_t length) {
    const size_t available = lengthOf(string);
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
    const size_t length = lengthOf(sought);
    if (length > longestCounted) return resultAt(findAtEnd(bytesOf(string), sought, length));
    return resultAt(findSubstring<Folded>(bytesOf(string), sought));
}
