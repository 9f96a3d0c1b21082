# Installation: the archive, the public headers, the CMake package, the pkg-config file, the documents, and the manual
# where it can be made. The same files make up the Debian package.
option(STRLIB_INSTALL "Install the library" ${PROJECT_IS_TOP_LEVEL})
include(${CMAKE_CURRENT_LIST_DIR}/reference.cmake)
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
install(DIRECTORY ${PROJECT_SOURCE_DIR}/strlib/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  FILES_MATCHING PATTERN *.h PATTERN *.hpp)

# Links between the documents hold where these lie as they do in the source.
set(strlibDocDir ${CMAKE_INSTALL_DATAROOTDIR}/doc/strlib)
file(GLOB strlibDocuments CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/*.md)
install(FILES ${strlibDocuments} DESTINATION ${strlibDocDir})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION ${strlibDocDir}
  FILES_MATCHING PATTERN reference EXCLUDE PATTERN *.md PATTERN *.svg)
file(GLOB strlibPortingExamples CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/examples/porting/*.c)
install(FILES ${strlibPortingExamples} DESTINATION ${strlibDocDir}/examples/porting)
if(STRLIB_HAS_MANUAL)
  install(DIRECTORY ${STRLIB_DOCS_DIR}/html DESTINATION ${strlibDocDir})
  install(DIRECTORY ${STRLIB_DOCS_DIR}/man/man3/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man3)
elseif(PROJECT_IS_TOP_LEVEL)
  message(STATUS "Without Doxygen 1.9.4 and Python 3: no manual and no manual pages are built or installed")
endif()

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
