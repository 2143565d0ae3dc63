// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QString>

namespace vms_sdk {

// The head of a condition: its request id and the device that picks the gateway. Conditions
// of devices that are not managed yet (activation, password reset, search settings) have
// neither and go to the first gateway.
template<class Condition>
QString requestIdOf(const Condition& condition)
{
    if constexpr (requires { condition.requestId; })
        return condition.requestId;
    else
        return {};
}

template<class Condition>
QString devIdOf(const Condition& condition)
{
    if constexpr (requires { condition.devId; })
        return condition.devId;
    else if constexpr (requires { condition.channelId.devId; })
        return condition.channelId.devId;
    else
        return {};
}

} // namespace vms_sdk
