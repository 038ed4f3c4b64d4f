# SPDX-FileCopyrightText: The GCodeAddin developers
# SPDX-License-Identifier: MIT
# Installs the SDK into a fresh folder, builds the example add-in and a consumer against that copy alone, and runs
# them. Usage: cmake -D BUILD=... -D CONFIG=... -D WORK=... -D ADDIN=... -D CONSUMER=... -D GENERATOR=...
#   -D MAKE_PROGRAM=... -D COMPILER=... -D FLAGS=... -P AgainstInstalledSdk.cmake

foreach(variable BUILD WORK ADDIN CONSUMER GENERATOR COMPILER)
  if(NOT ${variable})
    message(FATAL_ERROR "${variable} is not given")
  endif()
endforeach()

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\nended with ${result}")
  endif()
endfunction()

function(build_against_sdk source binary)
  run("${CMAKE_COMMAND}" -S "${source}" -B "${binary}" -G "${GENERATOR}"
    "-DCMAKE_MAKE_PROGRAM=${MAKE_PROGRAM}"
    "-DCMAKE_CXX_COMPILER=${COMPILER}"
    "-DCMAKE_CXX_FLAGS=${FLAGS}"
    "-DCMAKE_BUILD_TYPE=${CONFIG}"
    "-DCMAKE_PREFIX_PATH=${WORK}/sdk"
    -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF
    -DCMAKE_FIND_USE_SYSTEM_PACKAGE_REGISTRY=OFF)
  # A package found anywhere else would prove nothing.
  load_cache("${binary}" READ_WITH_PREFIX found_ kx_DIR)
  cmake_path(IS_PREFIX WORK "${found_kx_DIR}" NORMALIZE is_ours)
  if(NOT is_ours)
    message(FATAL_ERROR "kx was found in ${found_kx_DIR}, not below ${WORK}")
  endif()
  run("${CMAKE_COMMAND}" --build "${binary}" --config "${CONFIG}" --parallel)
endfunction()

# What an earlier run left must not help.
file(REMOVE_RECURSE "${WORK}")
foreach(component libraries sdk)
  run("${CMAKE_COMMAND}" --install "${BUILD}" --config "${CONFIG}" --component ${component} --prefix "${WORK}/sdk")
endforeach()
build_against_sdk("${ADDIN}" "${WORK}/addin")
build_against_sdk("${CONSUMER}" "${WORK}/consumer")

find_program(host ConsumerHost PATHS "${WORK}/consumer" "${WORK}/consumer/${CONFIG}" NO_DEFAULT_PATH REQUIRED)
find_file(addin libMinimalAddin.so PATHS "${WORK}/addin" "${WORK}/addin/${CONFIG}" NO_DEFAULT_PATH REQUIRED)
# The installed libraries find each other: nothing is to be said about paths.
unset(ENV{LD_LIBRARY_PATH})
run("${host}" "${addin}")
