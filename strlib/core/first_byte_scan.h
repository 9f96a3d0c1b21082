#ifndef STRLIB_CORE_FIRST_BYTE_SCAN_H
#define STRLIB_CORE_FIRST_BYTE_SCAN_H

// Places where the first byte of a needle stands, in either case when folding.

#include "core/case_mode.h"
#include "core/scan.h"

namespace strlib {
namespace {

template <class Mode>
class NeedleScan {
public:
    // How many bytes of the needle are known to stand at the places found.
    static constexpr size_t known = 1;

    // Scans from any place of the text on.
    NeedleScan(const uint8_t *, const uint8_t *needle) : byte_(Mode::read(*needle)) {}

    // The first place from `from` on, which is not behind the NUL; null if there is none.
    const uint8_t *next(const uint8_t *from) const {
        const uint8_t *const at = find(from, byte_);
        return *at == 0 ? nullptr : at;
    }

private:
    [[gnu::noinline]] static const uint8_t *find(const uint8_t *from, uint8_t byte) {
        const block::Block sought = block::splat(byte);
        const block::Block other = block::splat(Mode::folds && isLetter(byte) ? byte ^ caseBit : byte);
        return scan(from, [=](block::Block bytes) {
            const block::Flags flags = block::orEquals(block::zeros(bytes), bytes, sought);
            return Mode::folds ? block::orEquals(flags, bytes, other) : flags;
        });
    }

    uint8_t byte_;
};

}  // namespace
}  // namespace strlib

#endif
