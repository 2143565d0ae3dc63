// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include <vms_sdk/client_actions.h>

namespace vms_sdk {

ClientActions* ClientActions::instance()
{
    static ClientActions* const actions = new ClientActions;
    return actions;
}

} // namespace vms_sdk
