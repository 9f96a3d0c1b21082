# As armv7.cmake, in ARM state instead of Thumb.
include(${CMAKE_CURRENT_LIST_DIR}/armv7.cmake)
set(CMAKE_C_FLAGS_INIT "-march=armv7-a+fp -marm")
set(CMAKE_CXX_FLAGS_INIT "${CMAKE_C_FLAGS_INIT}")
