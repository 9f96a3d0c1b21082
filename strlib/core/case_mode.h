#ifndef STRLIB_CORE_CASE_MODE_H
#define STRLIB_CORE_CASE_MODE_H

// How a comparison reads bytes: as they stand, or with the capitals folded.

#include "core/bytes.h"
#include "machine/block.h"

namespace strlib {
namespace {

struct Exact {
    static constexpr bool folds = false;
    static uint8_t read(uint8_t byte) { return byte; }
    static block::Block readBlock(block::Block bytes) { return bytes; }
    static bool alike(uint8_t first, uint8_t second) { return first == second; }

    // Of blocks or words: zero in the bytes that are alike.
    template <class Bytes>
    static Bytes unlike(Bytes first, Bytes second) {
        return static_cast<Bytes>(first ^ second);
    }
};

struct Folded {
    static constexpr bool folds = true;
    static uint8_t read(uint8_t byte) { return folded(byte); }
    static block::Block readBlock(block::Block bytes) { return block::fold(bytes); }
    // Most pairs are the same byte, and most others not even the same letter: folding both would cost more.
    static bool alike(uint8_t first, uint8_t second) {
        return first == second || ((first ^ second) == caseBit && isLetter(first));
    }

    template <class Bytes>
    static Bytes unlike(Bytes first, Bytes second) {
        return block::foldedDifference(first, second);
    }
};

// The result of a comparison that ends at these two bytes.
template <class Reading>
inline int32_t difference(uint8_t first, uint8_t second) {
    return asSigned(Reading::read(first)) - asSigned(Reading::read(second));
}

}  // namespace
}  // namespace strlib

#endif
