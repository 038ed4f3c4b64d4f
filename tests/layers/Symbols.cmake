# SPDX-FileCopyrightText: The GCodeAddin developers
# SPDX-License-Identifier: MIT
# What the built libraries export, and that nobody links what is only loaded at run time.

function(kx_add_symbols_test name)
  add_test(NAME layers.${name} COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/check-symbols" ${ARGN})
endfunction()

foreach(library kxLibrary kxInterface)
  # Counting the executed lines exports the counters' own symbols.
  if(TARGET ${library} AND NOT KX_COVERAGE)
    kx_add_symbols_test(${library}ExportsTheInterfaceOnly exports-kx "$<TARGET_FILE:${library}>")
    kx_add_symbols_test(${library}LinksNoQt does-not-link "$<TARGET_FILE:${library}>" libQt5)
  endif()
endforeach()

if(TARGET GCodeAddin)
  kx_add_symbols_test(addinExportsItsTwoEntryPointsOnly
    exports-only "$<TARGET_FILE:GCodeAddin>" connectToKestrix disconnectFromKestrix)
  kx_add_symbols_test(addinLinksNoHost does-not-link "$<TARGET_FILE:GCodeAddin>" dxflib)
  kx_add_symbols_test(addinHoldsNoHostCode does-not-hold "$<TARGET_FILE:GCodeAddin>" DL_Dxf)
  # The judge itself: a third export, or a missing one, is reported.
  kx_add_symbols_test(exportThatIsMissingIsReported
    exports-only "$<TARGET_FILE:GCodeAddin>" connectToKestrix disconnectFromKestrix missing)
  set_tests_properties(layers.exportThatIsMissingIsReported PROPERTIES PASS_REGULAR_EXPRESSION "< missing")
  kx_add_symbols_test(exportTooManyIsReported exports-only "$<TARGET_FILE:GCodeAddin>" connectToKestrix)
  set_tests_properties(layers.exportTooManyIsReported PROPERTIES
    PASS_REGULAR_EXPRESSION "> disconnectFromKestrix")
  kx_add_symbols_test(linkedLibraryIsReported does-not-link "$<TARGET_FILE:GCodeAddin>" libQt5Widgets)
  set_tests_properties(layers.linkedLibraryIsReported PROPERTIES PASS_REGULAR_EXPRESSION "links libQt5Widgets")
  kx_add_symbols_test(heldCodeIsReported does-not-hold "$<TARGET_FILE:GCodeAddin>" GCodeGeneratorImpl)
  set_tests_properties(layers.heldCodeIsReported PROPERTIES PASS_REGULAR_EXPRESSION "holds GCodeGeneratorImpl")
endif()

foreach(program kxgcode kxhost)
  if(TARGET ${program})
    kx_add_symbols_test(${program}DoesNotLinkTheAddin
      does-not-link "$<TARGET_FILE:${program}>" GCodeAddin)
    kx_add_symbols_test(${program}HoldsNoAddinCode
      does-not-hold "$<TARGET_FILE:${program}>" GCodeGeneratorImpl GCodeWidget)
  endif()
endforeach()
