# SPDX-FileCopyrightText: The GCodeAddin developers
# SPDX-License-Identifier: MIT
# The guards against faults in memory, which all configurations share with what users get.
set(check_hardening "${CMAKE_CURRENT_SOURCE_DIR}/check-hardening")

set(fortified "")
if(KX_FORTIFY)
  set(fortified --fortified)
endif()
foreach(target kxInterface GCodeAddin kxgcode kxhost)
  if(TARGET ${target})
    add_test(NAME layers.${target}IsGuarded COMMAND "${check_hardening}" ${fortified} "$<TARGET_FILE:${target}>")
  endif()
endforeach()
# Calls no library function of which there is a checked variant.
add_test(NAME layers.kxLibraryIsGuarded COMMAND "${check_hardening}" "$<TARGET_FILE:kxLibrary>")

# The judge itself: each guard that is missing is reported.
add_executable(kx_unguarded unguarded/main.cpp)
set_target_properties(kx_unguarded PROPERTIES
  POSITION_INDEPENDENT_CODE OFF BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "/tmp:$ORIGIN/../lib:")
target_compile_options(kx_unguarded PRIVATE -fno-pie -fno-stack-protector -U_FORTIFY_SOURCE)
target_link_options(kx_unguarded PRIVATE -no-pie LINKER:-z,norelro,-z,lazy,-z,execstack)
function(kx_add_unguarded_test name complaint)
  add_test(NAME layers.${name} COMMAND "${check_hardening}" --fortified "$<TARGET_FILE:kx_unguarded>")
  set_tests_properties(layers.${name} PROPERTIES PASS_REGULAR_EXPRESSION "${complaint}")
endfunction()
if(NOT KX_SANITIZE)
  kx_add_unguarded_test(fixedAddressesAreReported "has fixed addresses")
  kx_add_unguarded_test(writableTablesAreReported "its tables stay writable")
  kx_add_unguarded_test(lateBindingIsReported "its calls are bound late")
  kx_add_unguarded_test(stackThatCanBeRunIsReported "its stack can be run")
  kx_add_unguarded_test(unguardedStackIsReported "its stack is not guarded")
  kx_add_unguarded_test(uncheckedCallsAreReported "calls nothing that is checked")
  kx_add_unguarded_test(absoluteSearchPathIsReported "searches \"/tmp\" for libraries")
  kx_add_unguarded_test(searchInTheCurrentFolderIsReported "searches \"\" for libraries")
endif()
