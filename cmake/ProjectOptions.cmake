# SPDX-FileCopyrightText: The GCodeAddin developers
# SPDX-License-Identifier: MIT
# What every target of this project is compiled with.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# The add-in and the libraries are found beside the programs, in the build tree and installed.
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR};$ORIGIN")
# Where both have the same shape, from the start: a path that is to be changed at installing ends with an empty entry,
# and the loader takes that for the folder one happens to be in.
if(CMAKE_INSTALL_LIBDIR STREQUAL "lib")
  set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)
endif()

option(KX_BUILD_TESTS "Build the tests" ON)
option(KX_BUILD_BENCHMARKS "Build the benchmarks (they need libbenchmark-dev)" OFF)
option(KX_WARNINGS_AS_ERRORS "Stop at the first warning" OFF)
option(KX_COVERAGE "Count the executed lines" OFF)
set(KX_SANITIZE "" CACHE STRING "Sanitizers, as -fsanitize= takes them")

# Results must not depend on the machine: no contraction of a*b+c into one rounding.
add_compile_options(-ffp-contract=off -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                    -Wformat-security -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast)
# GCC 12 gives this one falsely for moved std::variant values.
add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
if(KX_WARNINGS_AS_ERRORS)
  add_compile_options(-Werror)
endif()
if(KX_SANITIZE)
  add_compile_options(-fsanitize=${KX_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${KX_SANITIZE})
endif()
if(KX_COVERAGE)
  add_compile_options(--coverage)
  add_link_options(--coverage)
endif()

# Faults in memory end the program rather than serve somebody: guarded stacks, checked library calls where the optimiser
# makes them known and no sanitizer checks them itself, addresses that are nowhere fixed, tables that are read-only
# before the program begins.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
add_compile_options(-fstack-protector-strong)
add_link_options(LINKER:-z,relro,-z,now,-z,noexecstack,-z,text)
string(TOUPPER "${CMAKE_BUILD_TYPE}" config)
set(KX_FORTIFY OFF)
if("${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${config}}" MATCHES "-O[1-3s]" AND NOT KX_SANITIZE)
  set(KX_FORTIFY ON)
  add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()
