#ifndef BENCHMARKS_METER_COUNT_H
#define BENCHMARKS_METER_COUNT_H

// Writes one line a run: routine, workload, implementation, calls, and what they took. Under Linux the emulator's
// counter of instructions completes the line, see instruction_counter.cpp; without an operating system the core's own
// counter of cycles does.

#include <bit>

inline constexpr bool measuresTime = false;

#if defined(__linux__)

#include <sys/syscall.h>
#include <unistd.h>

inline constexpr bool isBoard = false;

inline void startCounting() { syscall(SYS_getppid, 0); }
inline void writeCount() { syscall(SYS_getppid, 1); }

#else

inline constexpr bool isBoard = true;

#if __ARM_ARCH_PROFILE == 'M'

inline volatile uint32_t &debugRegister(uint32_t address) { return *reinterpret_cast<volatile uint32_t *>(address); }

// DWT; cores without the counter read 0 all the time.
inline void enableCycles() {
    debugRegister(0xE000EDFC) = debugRegister(0xE000EDFC) | 1U << 24;  // DEMCR.TRCENA
    debugRegister(0xE0001000) = debugRegister(0xE0001000) | 1U;        // DWT_CTRL.CYCCNTENA
}

inline uint32_t cyclesPassed() { return debugRegister(0xE0001004); }

#else

inline void enableCycles() {
    asm volatile("mcr p15, 0, %0, c9, c12, 1" ::"r"(1U << 31));  // PMCNTENSET: the cycle counter
    asm volatile("mcr p15, 0, %0, c9, c12, 0\n isb" ::"r"(1U));  // PMCR.E, counting each cycle
}

inline uint32_t cyclesPassed() {
    uint32_t cycles;
    asm volatile("isb\n mrc p15, 0, %0, c9, c13, 0" : "=r"(cycles)::"memory");  // PMCCNTR
    return cycles;
}

#endif

inline uint32_t cyclesAtStart;

inline void startCounting() {
    enableCycles();
    cyclesAtStart = cyclesPassed();
}
inline void writeCount() { std::printf("%lu\n", static_cast<unsigned long>(cyclesPassed() - cyclesAtStart)); }

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
        for (const Case &given : cases) body(function, given);
    };
    callAll();  // Whatever is set up once, is now.
    std::fflush(stdout);
    startCounting();
    callAll();
    writeCount();
}

// All are called with our signature, which the machine cannot tell from the C libraries' own.
template <class Ours, auto routine>
void enter(const char *title, const Workload &workload, const char *name, Direct<routine>, const auto &body, auto &) {
    std::printf("%s\t%s\t%s\t%u\t", title, workload.name.c_str(), name, static_cast<unsigned>(workload.cases.size()));
    count(std::bit_cast<Ours>(routine), workload.cases, body);
}

inline void startMeter(int, char **) {}
inline int finishMeter() { return 0; }

// Peers that only the host has.
namespace host {
inline constexpr struct {
} byMemccpy, byStrncpy, byStrcasecmp, toupperInLine, isalphaInLine, isdigitInLine, fromChars, toChars, hexadecimal,
    printFields, printIntegers, printSentence, encode, decode, readCharacter;
}  // namespace host

#endif
