// A Cortex-A9 from reset to main(), in one of two settings.
//
// As a rule with the MMU on: the library reads and writes unaligned words, as ARMv7-A allows if SCTLR.A is 0 and the
// memory is of the type Normal. Without the MMU all data is Strongly-ordered and such an access faults, whatever an
// emulator makes of it.
//
// With CHECK_ALIGNMENT the MMU stays off and every unaligned access faults (SCTLR.A is 1): what a library compiled with
// -mno-unaligned-access has to get by with.

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

// Reset enters in ARM state, exceptions too. NEON has to be let in (CPACR) and turned on (FPEXC).
extern "C" [[gnu::naked, gnu::target("arm")]] void start() {
    asm(
#if defined(__ARM_BIG_ENDIAN)
        "setend be\n"
#endif
        "ldr sp, =stackTop\n"
#if defined(__ARM_NEON)
        "mrc p15, 0, r0, c1, c0, 2\n"
        "orr r0, r0, #0xF00000\n"
        "mcr p15, 0, r0, c1, c0, 2\n"
        "isb\n"
        "mov r0, #0x40000000\n"
        "vmsr fpexc, r0\n"
#endif
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

static constexpr uint32_t mmu = 1, alignmentFaults = 2;

// For exceptions and the table of sections.
#if defined(__ARM_BIG_ENDIAN)
static constexpr uint32_t byteOrder = 1 << 25;
#else
static constexpr uint32_t byteOrder = 0;
#endif

static void setControl(uint32_t clear, uint32_t set) {
    uint32_t control;
    asm volatile("mrc p15, 0, %0, c1, c0, 0" : "=r"(control));  // SCTLR
    control = (control & ~clear) | set;
    asm volatile("mcr p15, 0, %0, c1, c0, 0\n isb" ::"r"(control) : "memory");
}

static void turnMmuOn() {
    constexpr uint32_t checkedDomain0 = 1, none = 0;
    asm volatile("mcr p15, 0, %0, c2, c0, 2" ::"r"(none));                         // TTBCR: TTBR0 alone
    asm volatile("mcr p15, 0, %0, c2, c0, 0" ::"r"(sections));                     // TTBR0
    asm volatile("mcr p15, 0, %0, c3, c0, 0" ::"r"(checkedDomain0));               // DACR
    asm volatile("mcr p15, 0, %0, c8, c7, 0\n dsb\n isb" ::"r"(none) : "memory");  // TLBIALL
    setControl(alignmentFaults, mmu | byteOrder);
}

void run() {
    memset(bssBegin, 0, static_cast<size_t>(bssEnd - bssBegin));
    asm volatile("mcr p15, 0, %0, c12, c0, 0\n isb" ::"r"(vectors) : "memory");  // VBAR
    if (CHECK_ALIGNMENT) {
        setControl(mmu, alignmentFaults | byteOrder);
    } else {
        mapRam();
        turnMmuOn();
    }
    semihosting::exit(static_cast<uint32_t>(main()));
}

void fault() {
    semihosting::write("fault: the program caused a processor exception\n");
    semihosting::exit(255);
}
