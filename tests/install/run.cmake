# SPDX-License-Identifier: LicenseRef-Proprietary
# SPDX-FileCopyrightText: the vms_client_sdk developers

# run(command args...): runs a command, stops the test with its output when it fails, and
# leaves stdout and stderr together in `output`.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed: ${ARGN}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

# expect_in(what text expected...): stops the test unless `text` holds every expected piece.
function(expect_in what text)
    foreach(expected IN LISTS ARGN)
        string(FIND "${text}" "${expected}" at)
        if(at EQUAL -1)
            message(FATAL_ERROR "${what} lacks \"${expected}\":\n${text}")
        endif()
    endforeach()
endfunction()
