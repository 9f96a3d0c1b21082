#ifndef BENCHMARKS_METER_COUNT_H
#define BENCHMARKS_METER_COUNT_H

// Names each run on standard output, one line a run: routine, workload, implementation, calls. The instruction counter
// completes the line.

#include <sys/syscall.h>
#include <unistd.h>

#include <bit>
#include <cstddef>
#include <cstdio>

#include "contenders.h"

inline constexpr bool measuresTime = false;

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
[[gnu::noinline]] void count(Function *function, size_t calls, const Body &body) {
    asm volatile("" : "+r"(function));
    for (size_t index = 0; index < calls; ++index) body(function, index);  // Whatever is set up once, is now.
    std::fflush(stdout);
    syscall(SYS_getppid, 0);
    for (size_t index = 0; index < calls; ++index) body(function, index);
    syscall(SYS_getppid, 1);
}

// All are called with our signature, which the machine cannot tell from the C libraries' own.
template <auto ours, auto glibc, auto newlib, auto plain, class Body, class... Others>
void measure(const char *routine, const std::string &workload, Contenders<ours, glibc, newlib, plain> contenders,
             size_t calls, const Body &body, const Others &...) {
    const auto expected = outcome::of(contenders.same, Direct<ours>(), calls, body);
    const auto countAs = [&](const char *name, auto function) {
        std::printf("%s\t%s\t%s\t%zu\t", routine, workload.c_str(), name, calls);
        count(std::bit_cast<decltype(ours)>(function), calls, body);
    };
    const auto countPeer = [&]<auto peer>(const char *name, Direct<peer> call) {
        if constexpr (exists<peer>) {
            if (outcome::of(contenders.same, call, calls, body) != expected) {
                std::fprintf(stderr, "%s, %s: %s differs from our result\n", routine, workload.c_str(), name);
                std::exit(1);
            }
            countAs(name, peer);
        }
    };
    countAs("empty", emptyLike(ours));
    countAs("ours", ours);
    countPeer("glibc", Direct<glibc>());
    countPeer("newlib", Direct<newlib>());
    countPeer("plain", Direct<plain>());
}

inline int runMeter(int, char **, void (*enterAll)()) {
    enterAll();
    return 0;
}

// Peers that only the host has.
namespace host {
inline constexpr struct {
} memccpyThenEnd, strncpyThenEnd, strcasecmpAsCollation, toupperInLine, isalphaInLine, isdigitInLine, fromChars,
    toChars, hexadecimal, printFields, printIntegers, printSentence, encode, decode, readCharacter;
}  // namespace host

#endif
