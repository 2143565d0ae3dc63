// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/request/request_data.h"

#include <vms_sdk/client_signals.h>

namespace vms_sdk {

ConditionStoreBase::ConditionStoreBase(QObject* parent)
    : QObject(parent)
{
    connect(ClientSignals::instance(), &ClientSignals::signalRequestTimeout, this,
            &ConditionStoreBase::slotRequestTimeout);
}

void ConditionStoreBase::slotRequestTimeout(const QString& requestId)
{
    dropTimedOut(requestId);
}

} // namespace vms_sdk
