#ifndef BENCHMARKS_CYCLE_COUNTER_H
#define BENCHMARKS_CYCLE_COUNTER_H

// The cycle counter of the core that the program runs on, without an operating system.

#include <cstdint>

#if __ARM_ARCH_PROFILE == 'M'

inline volatile uint32_t &debugRegister(uint32_t address) { return *reinterpret_cast<volatile uint32_t *>(address); }

// DWT; cores without the counter read 0 all the time.
inline void startCycleCounter() {
    debugRegister(0xE000EDFC) = debugRegister(0xE000EDFC) | 1U << 24;  // DEMCR.TRCENA
    debugRegister(0xE0001000) = debugRegister(0xE0001000) | 1U;        // DWT_CTRL.CYCCNTENA
}

inline uint32_t cyclesPassed() { return debugRegister(0xE0001004); }

#else

inline void startCycleCounter() {
    asm volatile("mcr p15, 0, %0, c9, c12, 1" ::"r"(1U << 31));  // PMCNTENSET: the cycle counter
    asm volatile("mcr p15, 0, %0, c9, c12, 0\n isb" ::"r"(1U));  // PMCR.E, counting each cycle
}

inline uint32_t cyclesPassed() {
    uint32_t cycles;
    asm volatile("isb\n mrc p15, 0, %0, c9, c13, 0" : "=r"(cycles)::"memory");  // PMCCNTR
    return cycles;
}

#endif

#endif
