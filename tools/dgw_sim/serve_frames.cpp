// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "serve_frames.h"

#include <QLocalSocket>
#include <QPointer>

namespace vms_dgw_sim {

void serveFrames(QObject* connection, QLocalSocket* socket, vms_sdk::FrameReader* reader,
                 std::function<bool()> reading, std::function<void(const vms_sdk::Frame&)> handle,
                 std::function<void(const QString&)> log)
{
    const auto readFrames = [connection, socket, reader, reading, handle, log] {
        // A handler may end the connection, and with it the socket and the reader.
        QPointer<QObject> alive(connection);
        vms_sdk::Frame frame;
        while (alive && reading() && reader->read(*socket, frame))
            handle(frame);
        // Nothing after a refused header can be trusted to start a frame: the client goes.
        if (alive && reader->failed()) {
            log(QStringLiteral("bad frame, %1; client dropped").arg(reader->failure()));
            socket->abort();
        }
    };
    const auto gone = [connection, log] {
        log(QStringLiteral("disconnected"));
        connection->deleteLater();
    };
    QObject::connect(socket, &QLocalSocket::readyRead, connection, readFrames);
    QObject::connect(socket, &QLocalSocket::disconnected, connection, gone);
    log(QStringLiteral("connected"));
    // Bytes may have arrived before the signals were connected, or the client may already be
    // gone again.
    readFrames();
    if (socket->state() == QLocalSocket::UnconnectedState)
        gone();
}

} // namespace vms_dgw_sim
