// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "vms_protocol/frame_codec.h"

#include <QString>

#include <functional>

class QLocalSocket;
class QObject;

namespace vms_dgw_sim {

// Serves a client's socket for `connection`, which owns the socket and `reader`: each whole
// frame that arrives goes to `handle` for as long as `reading` allows, and the connection logs
// and deletes itself once the client is gone. Both servers accept their clients this way.
void serveFrames(QObject* connection, QLocalSocket* socket, vms_sdk::FrameReader* reader,
                 std::function<bool()> reading, std::function<void(const vms_sdk::Frame&)> handle,
                 std::function<void(const QString&)> log);

} // namespace vms_dgw_sim
