# SPDX-License-Identifier: LicenseRef-Proprietary
# SPDX-FileCopyrightText: the vms_client_sdk developers

# Installs the build into a fresh prefix, builds the example application against the
# installed package alone and runs it.
file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed: ${ARGN}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
foreach(path include/vms_sdk/vms_client_sdk.h bin/vms_dgw_sim lib/cmake/VmsClientSdk/VmsClientSdkConfig.cmake
        lib/cmake/VmsClientSdk/VmsClientSdkConfigVersion.cmake)
    if(NOT EXISTS ${prefix}/${path})
        message(FATAL_ERROR "not installed: ${path}")
    endif()
endforeach()

run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples/consumer -B ${WORK_DIR}/consumer
    -DCMAKE_PREFIX_PATH=${prefix})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/consumer)
set(ENV{XDG_DATA_HOME} ${WORK_DIR}/data)
run(${WORK_DIR}/consumer/vms_consumer ${prefix}/bin/vms_dgw_sim)
if(NOT output MATCHES "gateway ready" OR NOT output MATCHES "release vms client sdk")
    message(FATAL_ERROR "the example application did not log its release:\n${output}")
endif()
message(STATUS "${output}")
