# `cpack -G DEB` makes libstrlib-dev, below /usr; configure with -DCMAKE_INSTALL_PREFIX=/usr for Debian's own library
# directory.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME libstrlib-dev)
set(CPACK_PACKAGE_CONTACT "strlib maintainers <strlib@localhost>")
set(CPACK_PACKAGE_DESCRIPTION
"Null-tolerant string, memory and character routines, integer conversion,
formatted output and input over an argument vector, lines and tokens, UTF-8
and string arithmetic. A static archive and a header for C and C++; no state,
no allocation, and no dependency but memset.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)

# Whoever installs the package expects its manual pages.
if(NOT STRLIB_HAS_MANUAL)
  set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_LIST_DIR}/refuse-package.cmake)
endif()

# The architecture is that of the compiler's target; without an answer CPack takes the building machine's.
execute_process(COMMAND dpkg-architecture -t ${CMAKE_CXX_LIBRARY_ARCHITECTURE} -q DEB_TARGET_ARCH
  OUTPUT_VARIABLE CPACK_DEBIAN_PACKAGE_ARCHITECTURE OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
include(CPack)
