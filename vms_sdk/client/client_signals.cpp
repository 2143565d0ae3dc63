// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include <vms_sdk/client_signals.h>

#include "vms_sdk/client/meta_types.h"

namespace vms_sdk {

ClientSignals* ClientSignals::instance()
{
    static ClientSignals* const hub = new ClientSignals;
    return hub;
}

ClientSignals::ClientSignals()
{
    registerResultMetaTypes();
}

} // namespace vms_sdk
