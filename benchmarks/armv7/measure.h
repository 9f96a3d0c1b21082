#ifndef BENCHMARKS_ARMV7_MEASURE_H
#define BENCHMARKS_ARMV7_MEASURE_H

#include <sys/syscall.h>
#include <unistd.h>

#include <cstddef>
#include <cstdio>

// The implementations of one routine, all with the library's signature; null where there is none.
template <class Function>
struct Implementations {
    Function *ours;
    Function *glibc = nullptr;
    Function *newlib = nullptr;
    Function *plain = nullptr;
};

// Takes the place of a routine to measure what the caller itself costs: one instruction besides the call.
template <class Result, class... Arguments>
[[gnu::naked]] Result returnAtOnce(Arguments...) {
    asm("bx lr");
}

template <class Result, class... Arguments>
constexpr auto emptyLike(Result (*)(Arguments...)) {
    return &returnAtOnce<Result, Arguments...>;
}

// One loop serves all implementations, so that the caller's cost is the same to the instruction.
template <class Function, class Body>
[[gnu::noinline]] void count(const char *name, Function *function, size_t calls, const Body &body) {
    if (function == nullptr) return;
    asm volatile("" : "+r"(function));
    for (size_t index = 0; index < calls; ++index) body(function, index);  // Whatever is set up once, is now.
    std::printf("\t%s\t%zu\t", name, calls);
    std::fflush(stdout);
    syscall(SYS_getppid, 0);
    for (size_t index = 0; index < calls; ++index) body(function, index);
    syscall(SYS_getppid, 1);
}

template <class Function, class Body>
void measure(const char *routine, const char *workload, const Implementations<Function> &implementations, size_t calls,
             const Body &body) {
    const auto countAs = [&](const char *name, Function *function) {
        if (function != nullptr) std::printf("%s\t%s", routine, workload);
        count(name, function, calls, body);
    };
    countAs("empty", emptyLike(implementations.ours));
    countAs("ours", implementations.ours);
    countAs("glibc", implementations.glibc);
    countAs("newlib", implementations.newlib);
    countAs("plain", implementations.plain);
}

#endif
