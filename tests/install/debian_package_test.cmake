# SPDX-License-Identifier: LicenseRef-Proprietary
# SPDX-FileCopyrightText: the vms_client_sdk developers

# Builds the Debian package from the build and checks what it holds and what it depends on.
file(REMOVE_RECURSE ${WORK_DIR})

include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

run(${CPACK} -G DEB --config ${BUILD_DIR}/CPackConfig.cmake -B ${WORK_DIR})
file(GLOB packages ${WORK_DIR}/vms-client-sdk_*.deb)
list(LENGTH packages count)
if(NOT count EQUAL 1)
    message(FATAL_ERROR "expected one package in ${WORK_DIR}, found: ${packages}")
endif()

run(dpkg-deb --contents ${packages})
set(contents "${output}")
expect_in("the package" "${contents}"
    ./usr/include/vms_sdk/vms_client_sdk.h ./usr/include/vms_sdk/client_signals.h
    ./usr/bin/vms_dgw_sim ./usr/${LIBDIR}/libvms_client_sdk.so
    ./usr/${LIBDIR}/cmake/VmsClientSdk/VmsClientSdkConfig.cmake
    ./usr/${LIBDIR}/pkgconfig/vms_client_sdk.pc ./usr/share/doc/vms-client-sdk/guide.md
    ./usr/share/vms_client_sdk/dgw_sim/three_cameras.json)

run(dpkg-deb --field ${packages} Package Depends)
expect_in("the package's control" "${output}"
    "Package: vms-client-sdk" libqt5core5a libqt5network5 qtbase5-dev libavcodec)
message(STATUS "${packages}\n${output}\n${contents}")
