# As armv7.cmake, with AddressSanitizer. It looks for leaks by tracing the process, which an emulator does not let it do;
# the library allocates nothing. What it keeps of freed memory does not fit beside the rest into an emulated process,
# where it also walks the stack slowly at each allocation.
include(${CMAKE_CURRENT_LIST_DIR}/armv7.cmake)
string(APPEND CMAKE_C_FLAGS_INIT " -fsanitize=address")
string(APPEND CMAKE_CXX_FLAGS_INIT " -fsanitize=address")
# Before the emulator: the sanitizer reads its options where the emulator does not put them.
set(options detect_leaks=0:quarantine_size_mb=8:malloc_context_size=1)
list(PREPEND CMAKE_CROSSCOMPILING_EMULATOR /usr/bin/env ASAN_OPTIONS=${options})
