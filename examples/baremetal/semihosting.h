#ifndef BAREMETAL_SEMIHOSTING_H
#define BAREMETAL_SEMIHOSTING_H

// The debugger's or emulator's services: a console and an exit status.

#include <stdint.h>

namespace semihosting {

inline void call(uint32_t operation, const void *parameter) {
    register uint32_t first asm("r0") = operation;
    register const void *second asm("r1") = parameter;
#if __ARM_ARCH_PROFILE == 'M'
    asm volatile("bkpt 0xAB" : "+r"(first) : "r"(second) : "memory");
    // Elsewhere it is an exception to the supervisor mode, which is the mode that it is made in: it takes lr away.
#elif defined(__thumb__)
    asm volatile("svc 0xAB" : "+r"(first) : "r"(second) : "lr", "memory");
#else
    asm volatile("svc 0x123456" : "+r"(first) : "r"(second) : "lr", "memory");
#endif
}

inline void write(const char *text) {
    constexpr uint32_t write0 = 0x04;
    call(write0, text);
}

// The emulator reads parameters as little-endian whatever the program's data is.
inline uint32_t littleEndian(uint32_t value) {
#if defined(__ARM_BIG_ENDIAN)
    return __builtin_bswap32(value);
#else
    return value;
#endif
}

[[noreturn]] inline void exit(uint32_t status) {
    constexpr uint32_t exitExtended = 0x20, applicationExit = 0x20026;
    const uint32_t parameter[] = {littleEndian(applicationExit), littleEndian(status)};
    call(exitExtended, parameter);
    for (;;) {
    }
}

}  // namespace semihosting

#endif
