# As baremetal.cmake, with NEON, which start-up code has to enable.
include(${CMAKE_CURRENT_LIST_DIR}/baremetal.cmake)
set(CMAKE_C_FLAGS_INIT "-mcpu=cortex-a9 -mthumb -mfpu=neon -mfloat-abi=softfp")
set(CMAKE_CXX_FLAGS_INIT "${CMAKE_C_FLAGS_INIT}")
