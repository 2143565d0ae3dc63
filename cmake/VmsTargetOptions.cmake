# SPDX-License-Identifier: LicenseRef-Proprietary
# SPDX-FileCopyrightText: the vms_client_sdk developers

# Warnings and Qt hygiene for code we write; generated code gets none of it.
function(vms_target_options target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
    target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_USE_QSTRINGBUILDER
        QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING)
endfunction()
