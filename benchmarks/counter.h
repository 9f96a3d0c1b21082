#ifndef BENCHMARKS_COUNTER_H
#define BENCHMARKS_COUNTER_H

// What counts between two points of the program, and writes the count as the rest of a line: under Linux the emulator's
// counter of instructions, see instruction_counter.cpp; without an operating system the core's own counter of cycles.

#include <cstdint>
#include <cstdio>

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

#endif
