// A Cortex-M from reset to main(): the processor sets the stack pointer itself, and what is left is to clear variables.
// A Cortex-M0 faults on every unaligned access; a Cortex-M4 allows them.

#include <stddef.h>
#include <stdint.h>

#include "semihosting.h"

extern "C" {
extern uint8_t bssBegin[], bssEnd[], stackTop[];

void *memset(void *destination, int value, size_t count);
int main();

[[noreturn]] void start();
[[noreturn]] void fault();
}

struct Vectors {
    const void *stack;
    void (*handlers[15])();
};

// Reset, then fifteen system exceptions less the reserved: whatever it is, it ends the program.
extern const Vectors vectors;
[[gnu::section(".vectors"), gnu::used]] const Vectors vectors = {
    stackTop,
    {start, fault, fault, fault, fault, fault, fault, fault, fault, fault, fault, fault, fault, fault, fault}};

void start() {
    memset(bssBegin, 0, static_cast<size_t>(bssEnd - bssBegin));
    semihosting::exit(static_cast<uint32_t>(main()));
}

void fault() {
    semihosting::write("fault: the program caused a processor exception\n");
    semihosting::exit(255);
}
