// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <vms_sdk/media_records.h>
#include <vms_sdk/vms_types.h>

#include "vms_protocol/frame_codec.h"
#include "vms_protocol/message_type.h"
#include "vms_sdk/channel/peer_check.h"

#include <QLocalSocket>
#include <QObject>

#include <variant>

namespace vms_sdk {

struct StreamSocketLimits
{
    qint64 maxPayload = FrameCodec::DefaultMaxPayload; // larger frames end the stream
    qint64 peerUser = peer_check::OwnUser;             // the user the gateway must run as
};

// One live or playback stream: a socket of its own to the stream server of the gateway that
// manages the stream's device.
//
// The socket carries the stream's start request (sent as soon as it connects) and its control
// requests one way, and media, stream events and playback progress the other, in the frames of
// the message channel. A stream is never reconnected: when its socket fails or closes the
// stream is over, and the worker tells the application so. A peer that does not run as our
// user (it gets no start request) and a frame the reader refuses fail the socket the same way.
class StreamSocket : public QObject
{
    Q_OBJECT
public:
    // What the stream plays; the index of the alternative is the stream's kind: 0 live video,
    // 1 playback by file, 2 playback by time.
    using Condition =
        std::variant<LiveVideoConnCondition, PlaybackByFileCondition, PlaybackByTimeCondition>;

    StreamSocket(StreamId streamId, Condition condition, QObject* parent = nullptr,
                 StreamSocketLimits limits = {});

    // Connects to the gateway's stream server; an empty name fails as a socket error.
    void open(const QString& serverName);
    // Frames and writes one message; dropped while the socket is not connected.
    void sendMessage(vms_sdk::MessageType type, const QByteArray& payload);

    StreamId streamId() const { return m_streamId; }
    quint32 kind() const { return quint32(m_condition.index()); }
    const ChannelId& channelId() const;

Q_SIGNALS:
    void signalMessageComing(vms_sdk::StreamId streamId, vms_sdk::MessageType msgType,
                             const QByteArray& message);
    void signalConnectStatus(vms_sdk::StreamId streamId, vms_sdk::ConnStatus status);

private Q_SLOTS:
    void slotConnected();
    void slotDisconnected();
    void slotReadyRead();
    void slotError(QLocalSocket::LocalSocketError socketError);

private:
    void dropConnection(const QString& why);

    const StreamId m_streamId;
    const Condition m_condition;
    QLocalSocket* m_socket;
    FrameReader m_reader;
    qint64 m_peerUser;
};

} // namespace vms_sdk
