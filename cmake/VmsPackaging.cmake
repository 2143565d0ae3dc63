# SPDX-License-Identifier: LicenseRef-Proprietary
# SPDX-FileCopyrightText: the vms_client_sdk developers

# What an installed copy holds beyond the library and its headers, and how it is found:
# the CMake package, the pkg-config file, the documentation, the simulator's example configs
# and the Debian package. Included last, so that every program of the tree is known here.
include(CMakePackageConfigHelpers)

set(VMS_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/VmsClientSdk)
# Debian names packages without underscores, and a package's documentation folder is named
# after the package.
set(VMS_PACKAGE_NAME vms-client-sdk)
set(VMS_DOC_DIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/${VMS_PACKAGE_NAME})
set(VMS_DATA_DIR ${CMAKE_INSTALL_DATADIR}/vms_client_sdk)

# The programs installed beside the library become imported executables of the package, so
# that an application names them as VmsClientSdk::<program> instead of guessing paths. The
# command-line client joins them when the tree builds it.
set(VMS_PACKAGE_PROGRAMS vms_dgw_sim)
if(TARGET vms_cli)
    list(APPEND VMS_PACKAGE_PROGRAMS vms_cli)
endif()

install(EXPORT VmsClientSdkTargets NAMESPACE VmsClientSdk:: DESTINATION ${VMS_CMAKE_DIR})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/VmsClientSdkConfig.cmake.in
    ${PROJECT_BINARY_DIR}/VmsClientSdkConfig.cmake
    INSTALL_DESTINATION ${VMS_CMAKE_DIR}
    PATH_VARS CMAKE_INSTALL_BINDIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VmsClientSdkConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/VmsClientSdkConfig.cmake
    ${PROJECT_BINARY_DIR}/VmsClientSdkConfigVersion.cmake
    DESTINATION ${VMS_CMAKE_DIR})

# pkg-config: the prefix is found from the file's own place, so a copy moved elsewhere (or
# unpacked from the Debian package) stays right.
set(VMS_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH VMS_PKGCONFIG_TO_PREFIX /prefix/${VMS_PKGCONFIG_DIR} /prefix)
string(REGEX REPLACE "/$" "" VMS_PKGCONFIG_TO_PREFIX "${VMS_PKGCONFIG_TO_PREFIX}")
configure_file(${PROJECT_SOURCE_DIR}/cmake/vms_client_sdk.pc.in
    ${PROJECT_BINARY_DIR}/vms_client_sdk.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vms_client_sdk.pc DESTINATION ${VMS_PKGCONFIG_DIR})

file(GLOB VMS_DOCS ${PROJECT_SOURCE_DIR}/docs/*.md)
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${VMS_DOCS} DESTINATION ${VMS_DOC_DIR})
# The API reference, when scripts/apidoc.sh has written it into this build.
install(DIRECTORY ${PROJECT_BINARY_DIR}/docs/api/html/ DESTINATION ${VMS_DOC_DIR}/api OPTIONAL)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/consumer/ DESTINATION ${VMS_DOC_DIR}/examples/consumer)
# The reference viewer is a sample to read and copy: its sources travel with the documentation
# and build from there against the installed package.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/viewer/ DESTINATION ${VMS_DOC_DIR}/examples/viewer)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/tools/dgw_sim/examples/
    DESTINATION ${VMS_DATA_DIR}/dgw_sim FILES_MATCHING PATTERN "*.json")

# cpack -G DEB --config <build>/CPackConfig.cmake
set(CPACK_PACKAGE_NAME ${VMS_PACKAGE_NAME})
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}, with its gateway simulator")
set(CPACK_PACKAGE_VENDOR "the vms_client_sdk developers")
set(CPACK_PACKAGE_CONTACT "the vms_client_sdk developers <vms-client-sdk@localhost>")
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
# The run-time libraries come from what the binaries link (libavcodec for the simulator's
# video among them); the headers need Qt's.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qtbase5-dev (>= 5.15)")
include(CPack)
