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
  # GCC 12 sees overlapping copies in std::string where there are none (GCC bug 105651).
  target_compile_options(tav_options INTERFACE -Wno-restrict)
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

# The headers of the standard library that most sources read, parsed once for all folders: half of a small source's time.
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/standard_headers.cpp CONTENT "")
add_library(tav_standard_headers OBJECT ${CMAKE_BINARY_DIR}/standard_headers.cpp)
target_link_libraries(tav_standard_headers PRIVATE tav_options)
set(standard_headers <algorithm> <array> <cmath> <cstdint> <filesystem> <functional> <map> <memory> <optional> <span> <string>
  <string_view> <utility> <vector>)
tav_precompiled(tav_standard_headers ${standard_headers})

# tav_library(NAME DEPENDENCY...): the static library of the current folder, made of all sources in it.
function(tav_library name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC tav_options ${ARGN})
  tav_precompiled(${name} REUSE_FROM tav_standard_headers)
endfunction()
