// From reset to main(): a stack, cleared variables, and memory in which unaligned words may be accessed.
//
// The library reads and writes unaligned words, as ARMv7-A allows if SCTLR.A is 0 and the memory is of the type Normal.
// Without the MMU all data is Strongly-ordered and such an access faults, whatever an emulator makes of it. Whoever
// cannot turn the MMU on compiles the library with -mno-unaligned-access instead.

#include <stddef.h>
#include <stdint.h>

#include "semihosting.h"

extern "C" {
extern uint8_t bssBegin[], bssEnd[];

void *memset(void *destination, int value, size_t count);
int main();

[[noreturn]] void run();
[[noreturn]] void fault();
}

// Reset enters in ARM state, exceptions too.
extern "C" [[gnu::naked, gnu::target("arm")]] void start() {
    asm("ldr sp, =stackTop\n"
        "ldr r0, =run\n"
        "bx r0\n");
}

// Whatever the exception, it has no stack of its own and ends the program.
extern "C" [[gnu::naked, gnu::target("arm"), gnu::aligned(32)]] void vectors() {
    asm("b 1f\n b 1f\n b 1f\n b 1f\n b 1f\n b 1f\n b 1f\n"
        "1: ldr sp, =stackTop\n"
        "ldr r0, =fault\n"
        "bx r0\n");
}

static constexpr size_t mebibyte = 1 << 20;
static constexpr size_t ramBegin = 0x60000000, ramEnd = ramBegin + 128 * mebibyte;

// One entry for each mebibyte of the address space. What is not RAM stays unmapped, null with it.
alignas(16384) static uint32_t sections[4096];

static void mapRam() {
    constexpr uint32_t section = 2, anyAccess = 3 << 10, normalUncached = 1 << 12;
    for (size_t address = ramBegin; address != ramEnd; address += mebibyte)
        sections[address / mebibyte] = address | section | anyAccess | normalUncached;
}

static void turnMmuOn() {
    constexpr uint32_t mmu = 1, alignmentFaults = 2, checkedDomain0 = 1, none = 0;
    uint32_t control;
    asm volatile("mcr p15, 0, %0, c2, c0, 2" ::"r"(none));                         // TTBCR: TTBR0 alone
    asm volatile("mcr p15, 0, %0, c2, c0, 0" ::"r"(sections));                     // TTBR0
    asm volatile("mcr p15, 0, %0, c3, c0, 0" ::"r"(checkedDomain0));               // DACR
    asm volatile("mcr p15, 0, %0, c8, c7, 0\n dsb\n isb" ::"r"(none) : "memory");  // TLBIALL
    asm volatile("mrc p15, 0, %0, c1, c0, 0" : "=r"(control));                     // SCTLR
    control = (control & ~alignmentFaults) | mmu;
    asm volatile("mcr p15, 0, %0, c1, c0, 0\n isb" ::"r"(control) : "memory");
}

void run() {
    memset(bssBegin, 0, static_cast<size_t>(bssEnd - bssBegin));
    asm volatile("mcr p15, 0, %0, c12, c0, 0\n isb" ::"r"(vectors) : "memory");  // VBAR
    mapRam();
    turnMmuOn();
    semihosting::exit(static_cast<uint32_t>(main()));
}

void fault() {
    semihosting::write("fault: the program caused a processor exception\n");
    semihosting::exit(255);
}
