# SPDX-License-Identifier: LicenseRef-Proprietary
# SPDX-FileCopyrightText: the vms_client_sdk developers

# Installs the build into a fresh prefix, checks that everything an application needs is
# there, then builds the example application against the installed package alone, once with
# CMake and once with pkg-config, and runs each against the package's simulator.
file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)

include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

# Every public header the build copied for its own use, and what finds and documents them.
file(GLOB headers RELATIVE ${BUILD_DIR} ${BUILD_DIR}/include/vms_sdk/*.h)
set(doc share/doc/vms-client-sdk)
foreach(path ${headers}
        bin/vms_dgw_sim
        ${LIBDIR}/libvms_client_sdk.so
        ${LIBDIR}/cmake/VmsClientSdk/VmsClientSdkConfig.cmake
        ${LIBDIR}/cmake/VmsClientSdk/VmsClientSdkConfigVersion.cmake
        ${LIBDIR}/cmake/VmsClientSdk/VmsClientSdkTargets.cmake
        ${LIBDIR}/pkgconfig/vms_client_sdk.pc
        ${doc}/README.md ${doc}/guide.md ${doc}/dgw_sim.md ${doc}/media_frames.md
        ${doc}/examples/consumer/main.cpp ${doc}/examples/consumer/hello.cpp
        ${doc}/examples/consumer/CMakeLists.txt
        share/vms_client_sdk/dgw_sim/three_cameras.json share/vms_client_sdk/dgw_sim/alarms.json)
    if(NOT EXISTS ${prefix}/${path})
        message(FATAL_ERROR "not installed: ${path}")
    endif()
endforeach()
if(NOT headers MATCHES "include/vms_sdk/vms_client_sdk.h")
    message(FATAL_ERROR "the build copied no public headers: ${headers}")
endif()

# With CMake: the consumer names the simulator as VmsClientSdk::vms_dgw_sim.
set(cmake_dir ${WORK_DIR}/cmake)
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples/consumer -B ${cmake_dir}
    -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_PREFIX_PATH=${prefix})
run(${CMAKE_COMMAND} --build ${cmake_dir})

# With pkg-config: flags and the simulator's path come from vms_client_sdk.pc alone.
set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
run(pkg-config --cflags --libs vms_client_sdk)
separate_arguments(flags UNIX_COMMAND "${output}")
run(pkg-config --variable=libdir vms_client_sdk)
string(STRIP "${output}" libdir)
run(pkg-config --variable=dgw_sim vms_client_sdk)
string(STRIP "${output}" dgw_sim)
file(REAL_PATH ${dgw_sim} dgw_sim_real)
if(NOT dgw_sim_real STREQUAL "${prefix}/bin/vms_dgw_sim")
    message(FATAL_ERROR "pkg-config names the simulator ${dgw_sim}, not ${prefix}/bin/vms_dgw_sim")
endif()
set(pkgconfig_dir ${WORK_DIR}/pkgconfig)
file(MAKE_DIRECTORY ${pkgconfig_dir})
run(${CXX} -std=c++20 ${SOURCE_DIR}/examples/consumer/main.cpp "-DVMS_DGW_SIM=\"${dgw_sim}\""
    ${flags} -Wl,-rpath,${libdir} -o ${pkgconfig_dir}/vms_consumer)

# Each build asks a simulated camera for its network settings through the installed library.
foreach(build cmake pkgconfig)
    set(ENV{XDG_DATA_HOME} ${WORK_DIR}/data-${build})
    run(${WORK_DIR}/${build}/vms_consumer)
    expect_in("the ${build} build's output" "${output}" "gateway ready" "cam-1 online"
        "cam-1 network: error 0, ip 192.168.1.64" "release vms client sdk")
    message(STATUS "${build}: ${output}")
endforeach()

# The README's application, as written there.
set(ENV{XDG_DATA_HOME} ${WORK_DIR}/data-hello)
run(${cmake_dir}/vms_hello)
expect_in("the README's application's output" "${output}"
    "\"net-cam-1\" error 0 ip \"192.168.1.64\"")
