// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/stream/stream_socket.h"

#include "vms_sdk/client/sdk_log.h"
#include "vms_sdk/request/conversions/media_conversions.h"

#include "vms_message.pb.h"

#include <QPointer>

namespace vms_sdk {
namespace {

using conversion::serialized;

struct StartRequest
{
    MessageType type;
    QByteArray payload;
};

template<class Wire, class Condition>
StartRequest startRequest(MessageType type, const Condition& condition)
{
    Wire request;
    conversion::fillWire(condition, request);
    return {type, serialized(request)};
}

StartRequest startRequest(const StreamSocket::Condition& condition)
{
    struct Visitor
    {
        StartRequest operator()(const LiveVideoConnCondition& c) const
        {
            return startRequest<vms_sdk_proto::LiveVideoConnReq>(LiveVideoConnReq, c);
        }
        StartRequest operator()(const PlaybackByFileCondition& c) const
        {
            return startRequest<vms_sdk_proto::PlaybackByFileReq>(PlaybackByFileReq, c);
        }
        StartRequest operator()(const PlaybackByTimeCondition& c) const
        {
            return startRequest<vms_sdk_proto::PlaybackByTimeReq>(PlaybackByTimeReq, c);
        }
    };
    return std::visit(Visitor{}, condition);
}

} // namespace

StreamSocket::StreamSocket(StreamId streamId, Condition condition, QObject* parent,
                           StreamSocketLimits limits)
    : QObject(parent)
    , m_streamId(streamId)
    , m_condition(std::move(condition))
    , m_socket(new QLocalSocket(this))
    , m_reader(limits.maxPayload)
    , m_peerUser(limits.peerUser)
{
    connect(m_socket, &QLocalSocket::connected, this, &StreamSocket::slotConnected);
    connect(m_socket, &QLocalSocket::disconnected, this, &StreamSocket::slotDisconnected);
    connect(m_socket, &QLocalSocket::readyRead, this, &StreamSocket::slotReadyRead);
    connect(m_socket, &QLocalSocket::errorOccurred, this, &StreamSocket::slotError);
}

const ChannelId& StreamSocket::channelId() const
{
    return std::visit([](const auto& c) -> const ChannelId& { return c.channelId; }, m_condition);
}

void StreamSocket::open(const QString& serverName)
{
    m_socket->connectToServer(serverName, QIODevice::ReadWrite);
}

void StreamSocket::sendMessage(MessageType type, const QByteArray& payload)
{
    if (!m_socket->isValid())
        return;
    m_socket->write(FrameCodec::encode(type, payload));
    m_socket->flush();
}

void StreamSocket::slotConnected()
{
    const QString stranger = peer_check::mismatch(*m_socket, m_peerUser);
    if (!stranger.isEmpty()) {
        dropConnection(QStringLiteral("client stream socket peer is not our dgw, stream_id: %1; %2")
                           .arg(m_streamId)
                           .arg(stranger));
        return;
    }
    log::info(QStringLiteral("client stream socket connected, stream_id: %1").arg(m_streamId));
    const StartRequest start = startRequest(m_condition);
    sendMessage(start.type, start.payload);
}

void StreamSocket::slotDisconnected()
{
    log::info(QStringLiteral("client stream socket disconnected, stream_id: %1").arg(m_streamId));
    Q_EMIT signalConnectStatus(m_streamId, ConnStatusDisconnected);
}

void StreamSocket::slotReadyRead()
{
    // A receiver may close the stream, which deletes this socket once control returns to the
    // event loop, or disconnect it at once.
    QPointer<StreamSocket> self(this);
    Frame frame;
    while (self && m_socket->isValid() && m_reader.read(*m_socket, frame)) {
        Q_EMIT signalMessageComing(m_streamId, MessageType(frame.type), frame.payload);
        if (self)
            m_reader.recycle(frame.payload);
    }
    if (self && m_reader.failed()) {
        dropConnection(QStringLiteral("client stream socket read bad frame, stream_id: %1; %2")
                           .arg(m_streamId)
                           .arg(m_reader.failure()));
    }
}

void StreamSocket::dropConnection(const QString& why)
{
    log::error(why);
    QPointer<StreamSocket> self(this);
    Q_EMIT signalConnectStatus(m_streamId, ConnStatusSocketError);
    if (self)
        m_socket->abort();
}

void StreamSocket::slotError(QLocalSocket::LocalSocketError socketError)
{
    // The line has never shown the code, and log readers search for it as it is.
    Q_UNUSED(socketError)
    log::error(QStringLiteral("client stream socket connect error, stream_id: %1; error_code")
                   .arg(m_streamId));
    Q_EMIT signalConnectStatus(m_streamId, ConnStatusSocketError);
}

} // namespace vms_sdk
