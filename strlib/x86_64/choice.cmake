# The choice at load time; choice.h tells how it works. This folder may be deleted: everything else goes on without it.
option(STRLIB_X86_64_CHOICE "Choose between SSE2 and AVX2 at load time, on x86-64 with glibc" ON)
if(NOT STRLIB_X86_64_CHOICE OR NOT CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  return()
endif()

# Where the flags of the build rule the choice out, there are no second objects. What else may rule it out, such as
# options that a project around this one adds, choice.h sees for itself; then nothing calls them.
include(CheckCXXSourceCompiles)
set(choice ${CMAKE_CURRENT_LIST_DIR}/choice.h)
function(strlib_see_choice)
  set(CMAKE_REQUIRED_INCLUDES ${PROJECT_SOURCE_DIR}/strlib/include)
  set(CMAKE_REQUIRED_FLAGS -ffreestanding)
  set(CMAKE_REQUIRED_QUIET ON)
  set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
  check_cxx_source_compiles("
    #include \"${choice}\"
    #if !defined(STRLIB_X86_64_MAY_CHOOSE) || defined(__AVX2__)
    #error
    #endif
    int main() {}" STRLIB_CHOICE_COMPILES)
endfunction()
strlib_see_choice()
if(NOT STRLIB_CHOICE_COMPILES)
  return()
endif()

add_library(strlib_avx2 OBJECT)
foreach(family collate compare copy length find_byte find_set find_string lines tokens utf8_set)
  set(source ${PROJECT_SOURCE_DIR}/strlib/${family}.cpp)
  set_source_files_properties(${source} PROPERTIES
    COMPILE_OPTIONS "-include;${choice};-DSTRLIB_FORMS=STRLIB_FORMS_${family}" OBJECT_DEPENDS ${choice})
  target_sources(strlib_avx2 PRIVATE ${source})
endforeach()

# All that the library itself is compiled with, whoever adds to it.
target_compile_features(strlib_avx2 PRIVATE cxx_std_20)
target_include_directories(strlib_avx2 PRIVATE $<TARGET_PROPERTY:strlib,INCLUDE_DIRECTORIES>)
set_target_properties(strlib_avx2 PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden)
target_compile_options(strlib_avx2 PRIVATE
  $<TARGET_PROPERTY:strlib,COMPILE_OPTIONS> -mavx2 -mbmi -mbmi2 -DSTRLIB_X86_64_AVX2)
target_link_libraries(strlib_avx2 PRIVATE strlib_warnings)
target_sources(strlib PRIVATE $<TARGET_OBJECTS:strlib_avx2>)
