// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QString>

namespace vms_dgw_sim {

// Every line goes to stderr prefixed with the gateway's process name, so that the output of
// several gateways started by one library (or dumped by a failing test) stays readable.
void setLogName(const QString& name);
void logLine(const QString& text);

} // namespace vms_dgw_sim
