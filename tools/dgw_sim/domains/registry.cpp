// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "handler.h"

namespace vms_dgw_sim {

QList<HandlerRow> allHandlers()
{
    return gatewayHandlers() + deviceManagementHandlers() + networkHandlers() + ptzHandlers() +
           recordingsHandlers() + facesHandlers() + maintenanceHandlers() + talkHandlers() +
           filesHandlers() + commonHandlers();
}

} // namespace vms_dgw_sim
