# 32-bit ARM Linux as the library is made for: ARMv7-A, Thumb-2, no NEON. The emulated processor has no more than that
# (and NEON), so that an instruction from a later extension is caught as an illegal one.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_C_FLAGS_INIT "-march=armv7-a+fp -mthumb")
set(CMAKE_CXX_FLAGS_INIT "${CMAKE_C_FLAGS_INIT}")
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm;-cpu;cortex-a9;-L;/usr/arm-linux-gnueabihf)
