# As baremetal.cmake, for a Cortex-M4.
include(${CMAKE_CURRENT_LIST_DIR}/baremetal.cmake)
set(CMAKE_SYSTEM_PROCESSOR armv7e-m)
set(CMAKE_C_FLAGS_INIT "-mcpu=cortex-m4 -mthumb -mfloat-abi=soft")
set(CMAKE_CXX_FLAGS_INIT "${CMAKE_C_FLAGS_INIT}")
set(BAREMETAL_BOARD cortex_m CACHE STRING "")
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/emulate-board;mps2-an386)
