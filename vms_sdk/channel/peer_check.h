// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QString>

class QLocalSocket;

// Who is at the other end of a gateway's socket.
//
// The library only talks to the gateways it started, and those run as our user (a gateway may
// be started through a wrapper, so its process id proves nothing). Before a word goes out, the
// user of the peer, as the kernel reports it, must be ours. On Windows the check passes: a
// named pipe there is closed to other users by its default access list.
namespace vms_sdk::peer_check {

// Stands for "the user this process runs as".
constexpr qint64 OwnUser = -1;

// Empty when the peer of `socket` runs as `expectedUser` (OwnUser: ours); otherwise why not, for
// the log.
QString mismatch(const QLocalSocket& socket, qint64 expectedUser = OwnUser);

} // namespace vms_sdk::peer_check
