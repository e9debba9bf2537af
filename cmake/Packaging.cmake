# SPDX-License-Identifier: MIT
# Debian packages, one per install component (./run package): libzolt0 (the
# shared library), libzolt-dev (headers, CMake and pkg-config files, table
# scripts), zolt-tools (zolt-migrate, zolt-server), zolt-designer-plugin (when Qt
# Designer's development files are there) and zolt-demo (the sample application). Shared-library dependencies
# are computed by dpkg-shlibdeps.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zolt)
set(CPACK_PACKAGE_VENDOR "ZOLT")
set(CPACK_PACKAGE_CONTACT "ZOLT developers <zolt@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "Logon, user rights, search wizard, message box and menus for Vietnamese business applications on Qt")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The library its own packages ship is theirs, found here, not in another package.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR})
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libzolt0)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libzolt-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "qt6-base-dev (>= 6.4)")
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME zolt-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_COMPONENT_TOOLS_DEPENDS runtime)
set(CPACK_DEBIAN_DESIGNER_PACKAGE_NAME zolt-designer-plugin)
set(CPACK_DEBIAN_DESIGNER_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_DEMO_PACKAGE_NAME zolt-demo)
set(CPACK_DEBIAN_DEMO_PACKAGE_SECTION misc)
set(CPACK_COMPONENT_DEMO_DEPENDS runtime)

set(CPACK_COMPONENTS_ALL runtime development tools)
if(TARGET zolt_designer)
    list(APPEND CPACK_COMPONENTS_ALL designer)
endif()
if(TARGET zolt-demo)
    list(APPEND CPACK_COMPONENTS_ALL demo)
endif()
include(CPack)
