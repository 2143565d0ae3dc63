// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QString>

// Where the gateways' local servers live.
//
// A gateway's server names travel on its command line, where any local user can read them. On
// Linux a plain name is a socket file in the temp folder, so another user who binds the name
// first would receive the initialisation request with every credential in it. The names are
// therefore full paths inside a folder only our user can enter: nobody else can bind them or
// connect to them. Windows keeps plain names: a named pipe carries the default access list of
// the user who creates it, and a check against squatting there (GetNamedPipeServerProcessId)
// belongs to the Windows port.
namespace vms_sdk::private_names {

// The private folder, created when missing; empty when there is none we can trust (logged).
// On Linux: `$XDG_RUNTIME_DIR/vms_sdk`, or `vms_sdk-<uid>` in the temp folder when there is no
// runtime folder. Elsewhere: always empty.
QString directory();

// The server name to give a gateway for `name`: a path inside the private folder on Linux, the
// name itself elsewhere; empty when the private folder is unusable.
QString serverName(const QString& name);

} // namespace vms_sdk::private_names
