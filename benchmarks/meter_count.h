#ifndef BENCHMARKS_METER_COUNT_H
#define BENCHMARKS_METER_COUNT_H

// Writes one line a run: routine, workload, implementation, calls, and what they took. Under Linux the emulator's
// instruction counter completes the line; without an operating system the core's cycle counter does.

#include <bit>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include "contenders.h"

#if defined(__linux__)
#include <sys/syscall.h>
#include <unistd.h>
#else
#include "cycle_counter.h"
#endif

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
#if defined(__linux__)
    syscall(SYS_getppid, 0);
    for (size_t index = 0; index < calls; ++index) body(function, index);
    syscall(SYS_getppid, 1);
#else
    const uint32_t before = cyclesPassed();
    for (size_t index = 0; index < calls; ++index) body(function, index);
    std::printf("%lu\n", static_cast<unsigned long>(cyclesPassed() - before));
#endif
}

// All are called with our signature, which the machine cannot tell from the C libraries' own.
template <auto ours, auto library, auto newlib, auto plain, class Body, class... Others>
void measure(const Contenders<ours, library, newlib, plain> &contest, const std::string &workload, size_t calls,
             const Body &body, const Others &...) {
    const auto expected = outcome::of(contest.same, Direct<ours>(), calls, body);
    const auto countAs = [&](const char *name, auto function) {
        std::printf("%s\t%s\t%s\t%u\t", contest.routine, workload.c_str(), name, static_cast<unsigned>(calls));
        count(std::bit_cast<decltype(ours)>(function), calls, body);
    };
    const auto countPeer = [&]<auto peer>(const char *name, Direct<peer> call) {
        if constexpr (exists<peer>) {
            if (outcome::of(contest.same, call, calls, body) != expected) {
                std::fprintf(stderr, "%s, %s: %s differs from our result\n", contest.routine, workload.c_str(), name);
                std::exit(1);
            }
            countAs(name, peer);
        }
    };
    countAs("empty", emptyLike(ours));
    countAs("ours", ours);
#if defined(__linux__)
    countPeer("glibc", Direct<library>());
    countPeer("newlib", Direct<newlib>());
#else
    countPeer("newlib", Direct<library>());
#endif
    countPeer("plain", Direct<plain>());
}

inline int runMeter(int, char **, void (*measureAll)()) {
#if !defined(__linux__)
    startCycleCounter();
#endif
    measureAll();
    return 0;
}

// Peers that only the host has.
namespace host {
inline constexpr struct {
} memccpyThenEnd, strncpyThenEnd, strcasecmpAsCollation, toupperInLine, isalphaInLine, isdigitInLine, fromChars,
    toChars, hexadecimal, printFields, printIntegers, printSentence, encode, decode, readCharacter;
}  // namespace host

#endif
