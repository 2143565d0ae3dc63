// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/client/meta_types.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_protocol/message_type.h"

namespace vms_sdk {

// A name registered twice (several types are both results and conditions) simply maps to
// the same type again.
void registerResultMetaTypes()
{
    qRegisterMetaType<DevInfoList>("DevInfoList");
    qRegisterMetaType<DevStatus>("DevStatus");
    qRegisterMetaType<ConnStatus>("ConnStatus");
    qRegisterMetaType<DgwAbnormal>("DgwAbnormal");
}

void registerRequestMetaTypes()
{
    qRegisterMetaType<StreamId>("StreamId");
    qRegisterMetaType<MessageType>("MessageType");
    qRegisterMetaType<InitDgwCondition>("InitDgwCondition");
    qRegisterMetaType<DevInfoList>("DevInfoList");
}

} // namespace vms_sdk
