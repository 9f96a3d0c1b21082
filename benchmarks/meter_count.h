#ifndef BENCHMARKS_METER_COUNT_H
#define BENCHMARKS_METER_COUNT_H

// Writes one line a run: routine, workload, implementation, calls, and what they took. Under Linux the emulator's
// instruction counter completes the line; without an operating system the core's cycle counter does.

#include <bit>

#if defined(__linux__)
#include <sys/syscall.h>
#include <unistd.h>
#else
#include "cycle_counter.h"
#endif

inline constexpr bool measuresTime = false;
#if defined(__linux__)
inline constexpr bool hasNewlibToo = true;
inline constexpr const char *cLibrary = "glibc";
#else
inline constexpr bool hasNewlibToo = false;
inline constexpr const char *cLibrary = "newlib";
#endif

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
[[gnu::noinline]] void count(Function *function, const std::vector<Case> &cases, const Body &body) {
    asm volatile("" : "+r"(function));
    const auto callAll = [&] {
        for (const Case &arguments : cases) body(function, arguments);
    };
    callAll();  // Whatever is set up once, is now.
    std::fflush(stdout);
#if defined(__linux__)
    syscall(SYS_getppid, 0);
    callAll();
    syscall(SYS_getppid, 1);
#else
    const uint32_t before = cyclesPassed();
    callAll();
    std::printf("%lu\n", static_cast<unsigned long>(cyclesPassed() - before));
#endif
}

// All are called with our signature, which the machine cannot tell from the C libraries' own.
template <class Ours, auto routine, class Body>
void enter(const char *title, const std::string &workload, const char *name, Direct<routine>,
           const std::vector<Case> &cases, const Body &body) {
    std::printf("%s\t%s\t%s\t%u\t", title, workload.c_str(), name, static_cast<unsigned>(cases.size()));
    count(std::bit_cast<Ours>(routine), cases, body);
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
