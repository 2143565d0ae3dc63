// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <vms_sdk/device_records.h>
#include <vms_sdk/vms_types.h>

#include "vms_protocol/frame_codec.h"
#include "vms_protocol/message_type.h"
#include "vms_sdk/channel/peer_check.h"

#include <QLocalSocket>
#include <QMap>
#include <QObject>

namespace vms_sdk {

class TimeCount;

struct MessageSocketTiming
{
    int retryInterval = 1000; // ms between connection attempts
    int retryCount = 30;      // attempts before the channel reports a time-out
    qint64 maxPayload = FrameCodec::DefaultMaxPayload; // larger frames drop the connection
    qint64 peerUser = peer_check::OwnUser;             // the user the gateway must run as
};

// The message channel to one gateway process.
//
// The gateway starts its local server some time after its process starts, so the channel
// keeps trying to connect, once per retry interval, until it gets through or gives up. Once
// connected it says hello, and the gateway manager initialises the gateway over it; the
// gateway's positive answer (type 2) makes the channel ready. Every other incoming frame
// goes to the hub. A lost connection reports the gateway's devices offline and asks the
// manager for a new gateway process, four times; from the fifth loss on it only gives up.
// A peer that does not run as our user, and a frame the reader refuses, end the connection as
// a socket error (nothing is sent to such a peer), and the loss is handled like any other.
class MessageSocket : public QObject
{
    Q_OBJECT
public:
    explicit MessageSocket(QObject* parent = nullptr, MessageSocketTiming timing = {});

    // Starts a fresh round of connection attempts; the first one a retry interval from now.
    void connectToDgw();
    // Frames and writes one message; dropped without a word while there is no connection.
    void sendMessage(vms_sdk::MessageType type, const QByteArray& payload);
    // Ends the channel: no more attempts and no more signals from it.
    void closeSocket();

    // The devices served by this gateway, kept by the gateway manager.
    QMap<QString, DevInfo>& devices() { return m_devices; }
    const QMap<QString, DevInfo>& devices() const { return m_devices; }
    QString serverName() const { return m_serverName; }
    void setServerName(const QString& name) { m_serverName = name; }
    QString dgwName() const { return m_dgwName; }
    void setDgwName(const QString& name) { m_dgwName = name; }
    bool isReady() const { return m_ready; }
    int disconnectCount() const { return m_disconnectCount; }
    QLocalSocket* socket() const { return m_socket; }

Q_SIGNALS:
    void signalMessageComing(vms_sdk::MessageType msgType, const QByteArray& message);
    void signalConnectStatus(vms_sdk::ConnStatus status);
    void signalMessageSocketIsReady();
    void signalTryStartNewDgw();

private Q_SLOTS:
    void slotConnected();
    void slotDisconnected();
    void slotReadyRead();
    void slotError(QLocalSocket::LocalSocketError socketError);
    void slotTryConnectAgain();
    void slotTryConnectTimeout();

private:
    void dropConnection(const QString& why);
    void handleMessage(vms_sdk::MessageType msgType, const QByteArray& message);

    QMap<QString, DevInfo> m_devices;
    QLocalSocket* m_socket;
    FrameReader m_reader;
    QByteArray m_batch;     // what one pass took off the socket, cut into frames
    bool m_reading = false; // a pass is under way
    qint64 m_peerUser;
    TimeCount* m_retryCounter;
    QString m_serverName;
    QString m_dgwName;
    bool m_ready = false;
    int m_disconnectCount = 0;
};

} // namespace vms_sdk
