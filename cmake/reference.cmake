# The reference manual: the target `docs` makes it as HTML and as manual pages, in STRLIB_DOCS_DIR.
set(STRLIB_DOCS_DIR ${PROJECT_BINARY_DIR}/docs CACHE PATH "Where the reference manual is built")

find_package(Doxygen 1.9.4 QUIET)
find_package(Python3 QUIET COMPONENTS Interpreter)
if(NOT PROJECT_IS_TOP_LEVEL OR NOT DOXYGEN_FOUND OR NOT Python3_FOUND)
  return()
endif()

# The manual's looks, where Debian's package of them is there; it reads well without.
find_path(STRLIB_STYLE doxygen-awesome.css PATH_SUFFIXES share/doxygen-awesome-css)
set(strlibStylesheets "\"${PROJECT_SOURCE_DIR}/docs/reference/reference.css\"")
if(STRLIB_STYLE)
  string(PREPEND strlibStylesheets
    "\"${STRLIB_STYLE}/doxygen-awesome.css\" \"${STRLIB_STYLE}/doxygen-awesome-sidebar-only.css\" ")
endif()
configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)
add_custom_target(docs
  COMMAND ${CMAKE_COMMAND} -E remove_directory ${STRLIB_DOCS_DIR}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${STRLIB_DOCS_DIR}
  COMMAND Doxygen::doxygen ${PROJECT_BINARY_DIR}/Doxyfile
  COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/docs/reference/man_pages.py
    ${STRLIB_DOCS_DIR}/xml ${STRLIB_DOCS_DIR}/man/man3 ${PROJECT_VERSION}
  COMMENT "Building the reference manual"
  VERBATIM)
