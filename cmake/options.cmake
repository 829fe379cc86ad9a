# What every target of the project is compiled with.

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(tav_options INTERFACE)
target_include_directories(tav_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(tav_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor -Wold-style-cast
  -Wcast-align -Woverloaded-virtual -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough -Werror
  # A fused multiply-add rounds once where two operations round twice: schedules must not depend on the machine.
  -ffp-contract=off)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees overlapping and endless copies in std::string where there are none (GCC bugs 105651, 105329), the latter
  # where it optimises most; all other builds keep those warnings.
  target_compile_options(tav_options INTERFACE -Wno-restrict
    $<$<CONFIG:Release>:-Wno-stringop-overflow;-Wno-stringop-overread;-Wno-array-bounds>)
endif()

if(TAV_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Instrumented code looks uninitialised to GCC 12 where it is not; the plain build keeps the warning.
  target_compile_options(tav_options INTERFACE -Wno-maybe-uninitialized)
endif()
if(TAV_SANITIZE)
  target_compile_options(tav_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tav_options INTERFACE -fsanitize=address,undefined)
endif()

# tav_precompiled(TARGET HEADER...): headers that are parsed once for all sources of a target.
function(tav_precompiled target)
  if(ARGV1 STREQUAL "REUSE_FROM")
    target_precompile_headers(${target} ${ARGN})
  else()
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${target} PRIVATE -fpch-preprocess)  # else the compiler's cache passes it over
  endif()
endfunction()

# tav_computes(TARGET): what a diver waits for is optimised hard in a release; the windows are not, which halves their build.
function(tav_computes target)
  target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O3>)
endfunction()

# The headers of the standard library that most sources read, parsed once for all folders: half of a small source's time.
# Twice in all, since a compiler takes them only with the optimisation that they were parsed for.
set(standard_headers <algorithm> <array> <cmath> <cstdint> <filesystem> <functional> <map> <memory> <optional> <span> <string>
  <string_view> <utility> <vector>)
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/standard_headers.cpp CONTENT "")
foreach(headers tav_standard_headers tav_standard_headers_computing)
  add_library(${headers} OBJECT EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/standard_headers.cpp)
  target_link_libraries(${headers} PRIVATE tav_options)
  tav_precompiled(${headers} ${standard_headers})
endforeach()
tav_computes(tav_standard_headers_computing)

# tav_library(NAME [COMPUTES] DEPENDENCY...): the static library of the current folder, made of all sources in it.
function(tav_library name)
  cmake_parse_arguments(PARSE_ARGV 1 library "COMPUTES" "" "")
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC tav_options ${library_UNPARSED_ARGUMENTS})
  if(library_COMPUTES)
    tav_computes(${name})
    tav_precompiled(${name} REUSE_FROM tav_standard_headers_computing)
  else()
    tav_precompiled(${name} REUSE_FROM tav_standard_headers)
  endif()
endfunction()
