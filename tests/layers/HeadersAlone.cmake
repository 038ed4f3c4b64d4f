# SPDX-FileCopyrightText: The GCodeAddin developers
# SPDX-License-Identifier: MIT
# Every header compiles alone: a source for each that includes it and nothing else, built as a test.

# Adds the object library `target` of one source per header; includes twice, so that the guard is seen too.
function(kx_add_headers_alone target base)
  set(sources "")
  foreach(header IN LISTS ARGN)
    cmake_path(RELATIVE_PATH header BASE_DIRECTORY "${base}" OUTPUT_VARIABLE name)
    set(source "${CMAKE_CURRENT_BINARY_DIR}/${target}/${name}.cpp")
    file(CONFIGURE OUTPUT "${source}" CONTENT "#include \"@header@\"\n#include \"@header@\"\n" @ONLY)
    list(APPEND sources "${source}")
  endforeach()
  add_library(${target} OBJECT EXCLUDE_FROM_ALL ${sources})
  set_target_properties(${target} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF UNITY_BUILD OFF)
endfunction()

function(kx_add_build_test name target)
  add_test(NAME ${name}
    COMMAND "${CMAKE_COMMAND}" --build "${PROJECT_BINARY_DIR}" --target ${target} --parallel)
  # Two builds in one folder would collide.
  set_tests_properties(${name} PROPERTIES RESOURCE_LOCK build-folder TIMEOUT 900)
endfunction()

set(headers "")
foreach(folder sdk addin check host cli)
  file(GLOB_RECURSE found CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${folder}/*.h")
  list(APPEND headers ${found})
endforeach()
kx_add_headers_alone(headers_alone "${PROJECT_SOURCE_DIR}" ${headers})
target_include_directories(headers_alone PRIVATE
  "${PROJECT_SOURCE_DIR}/sdk/include" "${PROJECT_SOURCE_DIR}/sdk/src"
  "${PROJECT_SOURCE_DIR}/addin" "${PROJECT_SOURCE_DIR}/check" "${PROJECT_SOURCE_DIR}/host" "${PROJECT_SOURCE_DIR}/cli")
foreach(target gcode_panel GCodeAddin kxdrawing kxgcode kxhost)
  if(TARGET ${target}) # for the headers that it generates
    target_include_directories(headers_alone PRIVATE "$<TARGET_PROPERTY:${target},INCLUDE_DIRECTORIES>")
  endif()
endforeach()
target_link_libraries(headers_alone PRIVATE Qt5::Widgets Qt5::OpenGL Qt5::Svg CLI11::CLI11 PkgConfig::dxflib)
kx_add_build_test(layers.everyHeaderCompilesAlone headers_alone)

# The same on a header that lacks its includes, to see that such a one is reported.
set(planted "${CMAKE_CURRENT_BINARY_DIR}/planted/NeedsVector.h")
file(CONFIGURE OUTPUT "${planted}" CONTENT "#pragma once\ninline std::vector<int> noVectorHere;\n")
kx_add_headers_alone(planted_headers_alone "${CMAKE_CURRENT_BINARY_DIR}/planted" "${planted}")
kx_add_build_test(layers.headerThatLacksIncludesIsReported planted_headers_alone)
set_tests_properties(layers.headerThatLacksIncludesIsReported PROPERTIES
  PASS_REGULAR_EXPRESSION "NeedsVector\\.h:2:[0-9]+: error")
