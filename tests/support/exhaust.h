#ifndef TESTS_SUPPORT_EXHAUST_H
#define TESTS_SUPPORT_EXHAUST_H

// For programs that check billions of values, on all processors.

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <thread>
#include <vector>

#include "choices.h"

namespace tests {

inline std::atomic<uint64_t> faults = 0;

inline void expect(bool holds, const char *what, uint64_t value) {
    if (!holds && ++faults <= 10) std::printf("FAILED %s: 0x%llX\n", what, static_cast<unsigned long long>(value));
}

// Calls check(value) for every 32-bit value, or for one in so many.
template <class Check>
void forAll(uint32_t step, Check check) {
    const unsigned count = std::max(1u, std::thread::hardware_concurrency());
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < count; ++i) {
        threads.emplace_back([=] {
            for (uint64_t value = uint64_t{i} * step; value <= UINT32_MAX; value += uint64_t{count} * step)
                check(value);
        });
    }
    for (std::thread &thread : threads) thread.join();
}

// Tells the number of faults; what main() returns.
inline int conclude() {
    std::printf("%llu faults\n", static_cast<unsigned long long>(faults));
    return faults == 0 ? 0 : 1;
}

}  // namespace tests

#endif
