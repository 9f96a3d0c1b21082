# As baremetal.cmake, for a Cortex-M0: no unaligned accesses, and helpers of the compiler for what Thumb-1 lacks.
include(${CMAKE_CURRENT_LIST_DIR}/baremetal.cmake)
set(CMAKE_SYSTEM_PROCESSOR armv6-m)
set(CMAKE_C_FLAGS_INIT "-mcpu=cortex-m0 -mthumb -mfloat-abi=soft")
set(CMAKE_CXX_FLAGS_INIT "${CMAKE_C_FLAGS_INIT}")
set(BAREMETAL_BOARD cortex_m CACHE STRING "")
set(BAREMETAL_RUNTIME gcc)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/emulate-board;microbit)
