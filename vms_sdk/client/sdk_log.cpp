// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/client/sdk_log.h"

#include "vms_kit/vms_kit.h"

namespace vms_sdk::log {

QString tag()
{
    return QStringLiteral("[vms_client_sdk:]    ");
}

void info(const QString& text)
{
    vms_kit::log_info(text, tag());
}

void error(const QString& text)
{
    vms_kit::log_error(text, tag());
}

void trace(const QString& text)
{
    vms_kit::log_trace(text, tag());
}

} // namespace vms_sdk::log
