#ifndef TESTS_SUPPORT_MEMORY_H
#define TESTS_SUPPORT_MEMORY_H

// Arguments between no-access pages: a byte read or written outside faults, one written inside where the contract does
// not allow it is found by comparing everything around. With STRLIB_TEST_HEAP in the environment each argument ends a
// heap block of its own instead, for the checkers that watch such blocks.

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

#include "choices.h"

namespace tests {

class Region {
public:
    Region() : page_(static_cast<size_t>(sysconf(_SC_PAGESIZE))), size_(16 * page_) {
        if (onHeap_) return;
        void *const all = mmap(nullptr, size_ + 2 * page_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (all == MAP_FAILED) throw std::runtime_error("mmap failed");
        start_ = static_cast<char *>(all) + page_;
        if (mprotect(start_, size_, PROT_READ | PROT_WRITE) != 0) throw std::runtime_error("mprotect failed");
        std::memset(start_, filler, size_);
    }

    // Room for so many bytes, all of them and those around holding the filler.
    char *room(size_t size, Placement placement) {
        if (onHeap_) {
            const size_t before = placement.where == Placement::between ? placement.alignment : 0;
            std::free(start_);
            first_ = start_ = static_cast<char *>(std::malloc(before + size));
            at_ = start_ + before;
            last_ = at_ + size;
        } else {
            if (first_ != nullptr) clear();
            at_ = placement.where == Placement::atEnd     ? start_ + size_ - size
                  : placement.where == Placement::atStart ? start_
                                                          : start_ + page_ + placement.alignment;
            first_ = std::max(start_, at_ - margin);
            last_ = std::min(start_ + size_, at_ + size + margin);
        }
        clear();
        return at_;
    }

    char *place(std::string_view bytes, Placement placement) {
        char *const at = room(bytes.size(), placement);
        if (!bytes.empty()) std::memcpy(at, bytes.data(), bytes.size());
        return at;
    }

    // Whether the room holds these bytes and everything around and behind them is still filler.
    bool holds(std::string_view bytes) const {
        const auto isFiller = [](char byte) { return byte == filler; };
        return std::string_view(at_, bytes.size()) == bytes && std::all_of(first_, at_, isFiller) &&
               std::all_of(at_ + bytes.size(), last_, isFiller);
    }

    std::string content() const { return {at_, static_cast<size_t>(last_ - at_)}; }

    static constexpr char filler = '\xA5';

private:
    static constexpr ptrdiff_t margin = 48;

    void clear() { std::memset(first_, filler, static_cast<size_t>(last_ - first_)); }

    const bool onHeap_ = std::getenv("STRLIB_TEST_HEAP") != nullptr;
    size_t page_;
    size_t size_;
    char *start_ = nullptr;
    char *at_ = nullptr;
    char *first_ = nullptr;
    char *last_ = nullptr;
};

inline Region &region(int index) {
    static Region regions[3];
    return regions[index];
}

}  // namespace tests

#endif
