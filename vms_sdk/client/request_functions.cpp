// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include <vms_sdk/vms_client_sdk.h>

#include "vms_sdk/client/message_signals.h"
#include "vms_sdk/request/request_mgr.h"

namespace vms_sdk {

void add_request_value(const QString& requestId, const QVariant& value)
{
    RequestMgr::instance()->setValue(requestId, value);
}

QVariant get_request_value(const QString& requestId, bool remove)
{
    return RequestMgr::instance()->value(requestId, remove);
}

void remove_request_value(const QString& requestId)
{
    RequestMgr::instance()->removeValue(requestId);
}

void remove_all_request_values()
{
    RequestMgr::instance()->clearValues();
}

void renewal_request_id(const QString& requestId)
{
    // Through the hub rather than a direct call: from another thread the renewal has to be
    // carried out on the registry's thread, where the timers are.
    Q_EMIT MessageSignals::instance()->signalRenewalRequestId(requestId);
}

} // namespace vms_sdk
