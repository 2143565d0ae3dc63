// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "vms_protocol/frame_codec.h"

#include <QObject>

class QLocalServer;
class QLocalSocket;

namespace vms_dgw_sim {

// The gateway's second server, where the library opens one socket per live or playback
// stream and sends the stream's request and its control requests on it.
//
// Streams are not simulated yet: connections are accepted and kept open, and what arrives on
// them is read frame by frame and logged, so that a client sees a live server and not a
// refused connection. Answering a stream request starts in StreamConnection::handle().
class StreamServer : public QObject
{
    Q_OBJECT
public:
    explicit StreamServer(QObject* parent = nullptr);

    bool listen(const QString& name, QString* error);

private:
    void accept();

    QLocalServer* m_server;
    int m_streams = 0;
};

class StreamConnection : public QObject
{
    Q_OBJECT
public:
    StreamConnection(QLocalSocket* socket, int number, QObject* parent);

private:
    void handle(const vms_sdk::Frame& frame);
    void log(const QString& text);

    QLocalSocket* m_socket;
    QString m_name;
    vms_sdk::FrameReader m_reader;
};

} // namespace vms_dgw_sim
