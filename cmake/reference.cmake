# The reference manual, as HTML and as manual pages in STRLIB_DOCS_DIR, made by the target `docs` where Doxygen and
# Python are there, which STRLIB_HAS_MANUAL tells; a part of what is built where there is something to install.
set(STRLIB_DOCS_DIR ${PROJECT_BINARY_DIR}/docs CACHE PATH "Where the reference manual is built")

set(STRLIB_HAS_MANUAL OFF)
if(NOT PROJECT_IS_TOP_LEVEL)
  return()
endif()
find_package(Doxygen 1.9.4 QUIET)
find_package(Python3 QUIET COMPONENTS Interpreter)
if(NOT DOXYGEN_FOUND OR NOT Python3_FOUND)
  return()
endif()
set(STRLIB_HAS_MANUAL ON)

# Other versions of Doxygen have other complaints; these are errors where those of compilers are.
set(strlibDoxygenWarnings NO)
if(STRLIB_WERROR)
  set(strlibDoxygenWarnings FAIL_ON_WARNINGS)
endif()

# The manual's looks, where Debian's package of them is there; it reads well without.
find_path(STRLIB_STYLE doxygen-awesome.css PATH_SUFFIXES share/doxygen-awesome-css)
set(strlibStylesheets "\"${PROJECT_SOURCE_DIR}/docs/reference/reference.css\"")
if(STRLIB_STYLE)
  string(PREPEND strlibStylesheets
    "\"${STRLIB_STYLE}/doxygen-awesome.css\" \"${STRLIB_STYLE}/doxygen-awesome-sidebar-only.css\" ")
endif()
configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)
file(GLOB_RECURSE strlibManualSources CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/docs/*.md ${PROJECT_SOURCE_DIR}/docs/*.svg ${PROJECT_SOURCE_DIR}/docs/reference/*
  ${PROJECT_SOURCE_DIR}/examples/porting/*.c)
add_custom_command(OUTPUT ${STRLIB_DOCS_DIR}/built
  COMMAND ${CMAKE_COMMAND} -E remove_directory ${STRLIB_DOCS_DIR}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${STRLIB_DOCS_DIR}
  COMMAND Doxygen::doxygen ${PROJECT_BINARY_DIR}/Doxyfile
  COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/docs/reference/man_pages.py
    ${STRLIB_DOCS_DIR}/xml ${STRLIB_DOCS_DIR}/man/man3 ${PROJECT_VERSION}
  COMMAND ${CMAKE_COMMAND} -E touch ${STRLIB_DOCS_DIR}/built
  DEPENDS ${PROJECT_BINARY_DIR}/Doxyfile ${strlibManualSources} ${PROJECT_SOURCE_DIR}/strlib/include/strlib.h
  COMMENT "Building the reference manual"
  VERBATIM)
set(strlibDocsInAll)
if(STRLIB_INSTALL)
  set(strlibDocsInAll ALL)
endif()
add_custom_target(docs ${strlibDocsInAll} DEPENDS ${STRLIB_DOCS_DIR}/built)
