// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_protocol/message_type.h"

namespace vms_sdk {

QString messageTypeName(int type)
{
    struct Row
    {
        int number;
        const char* name;
    };
    static constexpr Row rows[] = {
#define VMS_MESSAGE_TYPE_ROW(name, number) {number, #name},
        VMS_MESSAGE_TYPES(VMS_MESSAGE_TYPE_ROW)
#undef VMS_MESSAGE_TYPE_ROW
    };
    for (const Row& row : rows) {
        if (row.number == type)
            return QString::fromLatin1(row.name);
    }
    return {};
}

} // namespace vms_sdk
