#ifndef BENCHMARKS_METER_COUNT_H
#define BENCHMARKS_METER_COUNT_H

// Writes one line a run: routine, workload, implementation, calls, and what they took.

#include <bit>

#include "counter.h"

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
[[gnu::noinline]] void count(Function *function, const std::vector<Case> &cases, const Body &body) {
    asm volatile("" : "+r"(function));
    const auto callAll = [&] {
        for (const Case &of : cases) body(function, of);
    };
    callAll();  // Whatever is set up once, is now.
    std::fflush(stdout);
    startCounting();
    callAll();
    writeCount();
}

// All are called with our signature, which the machine cannot tell from the C libraries' own.
template <class Ours, auto routine, class Body>
void enter(const char *title, const Workload &workload, const char *name, Direct<routine>, const Body &body) {
    std::printf("%s\t%s\t%s\t%u\t", title, workload.name.c_str(), name, static_cast<unsigned>(workload.cases.size()));
    count(std::bit_cast<Ours>(routine), workload.cases, body);
}

inline int runMeter(int, char **, void (*measureAll)()) {
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
