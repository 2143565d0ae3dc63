// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "vms_protocol/frame_codec.h"

#include <QList>
#include <QLocalServer>
#include <QObject>
#include <QPointer>
#include <QStringList>

class QLocalSocket;

namespace vms_test {

// A gateway inside the test process: it listens on the server name the library gave the
// "process", records every frame it receives and answers the initialisation request. Tests
// that need exact bytes or many gateways at once use it instead of the simulator process.
class FakeGateway : public QObject
{
    Q_OBJECT
public:
    explicit FakeGateway(const QStringList& arguments, QObject* parent = nullptr);

    // Starts listening (again) under the names of the command line.
    bool start();
    // Goes away like a killed process: the server and the connection vanish.
    void crash();

    QString serverName() const { return m_arguments.value(1); }
    const QList<vms_sdk::Frame>& frames() const { return m_frames; }
    QList<vms_sdk::Frame> framesOfType(int type) const;
    void clearFrames() { m_frames.clear(); }
    void send(int type, const QByteArray& payload);

private:
    void onNewConnection();
    void onReadyRead();

    QStringList m_arguments;
    QLocalServer m_server;
    QPointer<QLocalSocket> m_client;
    vms_sdk::FrameReader m_reader;
    QList<vms_sdk::Frame> m_frames;
};

} // namespace vms_test
