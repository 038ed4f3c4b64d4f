# SPDX-FileCopyrightText: The GCodeAddin developers
# SPDX-License-Identifier: MIT
# What is installed beside programs and libraries, and the Debian packages. Included last: all targets exist.
set(package gcodeaddin)
set(sdk_package libkx-dev)
set(packaging "${PROJECT_SOURCE_DIR}/packaging")
set(made "${PROJECT_BINARY_DIR}/packaging")

# Below /usr the system finds the libraries by itself.
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  foreach(target kxLibrary kxInterface GCodeAddin kxgcode kxhost)
    if(TARGET ${target})
      set_target_properties(${target} PROPERTIES INSTALL_RPATH "" BUILD_WITH_INSTALL_RPATH OFF)
    endif()
  endforeach()
endif()

# Debian wants manual pages and changelogs compressed; without a time in them, the same bytes each time.
find_program(GZIP gzip REQUIRED)
file(MAKE_DIRECTORY "${made}")
function(kx_add_compressed source result)
  add_custom_command(OUTPUT "${result}" DEPENDS "${source}" VERBATIM
    COMMAND sh -c "\"$1\" -9nc \"$2\" > \"$3\"" sh "${GZIP}" "${source}" "${result}")
  set_property(GLOBAL APPEND PROPERTY KX_COMPRESSED "${result}")
endfunction()
foreach(program kxhost kxgcode)
  kx_add_compressed("${packaging}/${program}.1" "${made}/${program}.1.gz")
  install(FILES "${made}/${program}.1.gz" DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT data)
endforeach()
configure_file("${packaging}/debian/changelog" "${made}/changelog" @ONLY)
configure_file("${packaging}/debian/shlibs" "${made}/shlibs" @ONLY)
kx_add_compressed("${made}/changelog" "${made}/changelog.gz")
get_property(compressed GLOBAL PROPERTY KX_COMPRESSED)
add_custom_target(compressed_documents ALL DEPENDS ${compressed})

set(share "${CMAKE_INSTALL_DATADIR}")
install(FILES "${packaging}/kxhost.desktop" DESTINATION ${share}/applications COMPONENT data)
install(FILES "${packaging}/org.kxhost.kxhost.metainfo.xml" DESTINATION ${share}/metainfo COMPONENT data)
install(FILES host/resources/icons/kxhost.svg DESTINATION ${share}/icons/hicolor/scalable/apps COMPONENT data)
install(DIRECTORY docs/user/manual/ DESTINATION ${share}/kxhost/manual COMPONENT data)
install(FILES README.md CHANGELOG.md DESTINATION ${share}/doc/${package} COMPONENT data)
install(DIRECTORY examples/ DESTINATION ${share}/doc/${package}/examples COMPONENT data
  FILES_MATCHING PATTERN "*.dxf" PATTERN "*.toml" PATTERN "*.nc" PATTERN "minimal-addin" EXCLUDE)
install(DIRECTORY examples/minimal-addin DESTINATION ${share}/doc/${sdk_package}/examples COMPONENT sdk)
install(FILES docs/sdk/README.md DESTINATION ${share}/doc/${sdk_package} COMPONENT sdk)
install(FILES "${packaging}/debian/copyright" "${made}/changelog.gz" DESTINATION ${share}/doc/${package}
  COMPONENT data)
install(FILES "${packaging}/debian/copyright" "${made}/changelog.gz" DESTINATION ${share}/doc/${sdk_package}
  COMPONENT sdk)

# The package of the programs, and that of those who write add-ins.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${package})
set(CPACK_PACKAGE_VENDOR "The GCodeAddin developers")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_COMPONENTS_ALL addin cli data host libraries sdk)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The GCodeAddin developers <gcodeaddin@localhost.localdomain>")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/lib")
# Nothing links the driver that draws the preview.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS libgl1-mesa-dri)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SUGGESTS ${sdk_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${packaging}/debian/triggers" "${made}/shlibs")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "2-D drawings to CNC programs in G-code
kxhost opens DXF drawings; its add-in makes tool paths and drill cycles of
what is selected and shows them in 3-D. kxgcode does the same from the
command line, without a window.")
set(CPACK_DEBIAN_SDK_PACKAGE_NAME ${sdk_package})
set(CPACK_DEBIAN_SDK_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_SDK_PACKAGE_DEPENDS "${package} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_SDK_DESCRIPTION "headers of the kx interface, for add-ins of drawing hosts
The abstract C++ classes through which a drawing host and its add-ins talk
to each other, as a CMake package, with a minimal add-in as an example.")
include(CPack)
cpack_add_component_group(runtime)
cpack_add_component_group(sdk)
foreach(component addin cli data host libraries)
  cpack_add_component(${component} GROUP runtime)
endforeach()
cpack_add_component(sdk GROUP sdk)
