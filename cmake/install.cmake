# Installation: the archive, the public header, the CMake package, the pkg-config file, and the manual pages if the
# target `docs` has built them. The same files make up the Debian package.
include(${CMAKE_CURRENT_LIST_DIR}/reference.cmake)

option(STRLIB_INSTALL "Install the library" ${PROJECT_IS_TOP_LEVEL})
if(NOT STRLIB_INSTALL)
  return()
endif()

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(strlibPackageDir ${CMAKE_INSTALL_LIBDIR}/cmake/strlib)
set(strlibPkgConfigDir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS strlib EXPORT strlib
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES ${PROJECT_SOURCE_DIR}/strlib/include/strlib.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${STRLIB_DOCS_DIR}/man/man3/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man3 OPTIONAL)

# The library depends on no other package, so that the exported target needs nothing around it.
install(EXPORT strlib NAMESPACE strlib:: FILE strlibConfig.cmake DESTINATION ${strlibPackageDir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/strlibConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/strlibConfigVersion.cmake DESTINATION ${strlibPackageDir})

# Below the prefix, the pkg-config file finds the prefix from its own place and may move with it; from an absolute
# library directory it cannot.
if(IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
  set(strlibPcPrefix ${CMAKE_INSTALL_PREFIX})
  set(strlibPcLibDir ${CMAKE_INSTALL_LIBDIR})
else()
  file(RELATIVE_PATH strlibPcPrefix ${CMAKE_INSTALL_PREFIX}/${strlibPkgConfigDir} ${CMAKE_INSTALL_PREFIX})
  string(REGEX REPLACE "/$" "" strlibPcPrefix ${strlibPcPrefix})
  string(PREPEND strlibPcPrefix "\${pcfiledir}/")
  set(strlibPcLibDir "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
endif()
if(IS_ABSOLUTE ${CMAKE_INSTALL_INCLUDEDIR})
  set(strlibPcIncludeDir ${CMAKE_INSTALL_INCLUDEDIR})
else()
  set(strlibPcIncludeDir "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/strlib.pc.in ${PROJECT_BINARY_DIR}/strlib.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/strlib.pc DESTINATION ${strlibPkgConfigDir})

if(PROJECT_IS_TOP_LEVEL)
  include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
endif()
