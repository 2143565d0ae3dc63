// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QString>

#include <cstdio>

namespace vms_cli {

// This program's own stderr, kept apart from the one the gateways inherit.
FILE* keepStderr();
// Points stderr, which the gateway processes inherit, at gateways.log in the application's
// data folder; that path, or empty when stderr stays as it was.
QString divertGatewayOutput();

} // namespace vms_cli
