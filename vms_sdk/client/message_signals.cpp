// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/client/message_signals.h"

#include "vms_sdk/client/meta_types.h"

namespace vms_sdk {

MessageSignals* MessageSignals::instance()
{
    static MessageSignals* const hub = new MessageSignals;
    return hub;
}

MessageSignals::MessageSignals()
{
    registerRequestMetaTypes();
}

} // namespace vms_sdk
