# As armv7.cmake, with NEON.
include(${CMAKE_CURRENT_LIST_DIR}/armv7.cmake)
set(CMAKE_C_FLAGS_INIT "-march=armv7-a+simd -mfpu=neon -mthumb")
set(CMAKE_CXX_FLAGS_INIT "${CMAKE_C_FLAGS_INIT}")
