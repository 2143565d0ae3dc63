// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/channel/message_socket.h"

#include <vms_sdk/client_signals.h>

#include "vms_sdk/channel/time_count.h"
#include "vms_sdk/client/message_signals.h"
#include "vms_sdk/client/sdk_log.h"

#include "vms_message.pb.h"

#include <QPointer>

#include <utility>

namespace vms_sdk {
namespace {

// A gateway is lost for good on its fifth disconnect.
constexpr int MaxRestarts = 4;

// Frames sent while incoming frames are being handled (an answer that prompts the next
// request, a push that prompts a query) wait until the handling of the whole batch is over and
// then go out together: one system call for the batch instead of one per frame, and still
// before control returns to the event loop, as a frame sent from anywhere else does.
struct SendBatch
{
    int depth = 0;
    QList<QPointer<QLocalSocket>> unflushed;
};

SendBatch& sendBatch()
{
    static SendBatch batch;
    return batch;
}

class SendBatchScope
{
public:
    SendBatchScope() { ++sendBatch().depth; }
    ~SendBatchScope()
    {
        SendBatch& batch = sendBatch();
        if (--batch.depth > 0)
            return;
        const QList<QPointer<QLocalSocket>> sockets = std::exchange(batch.unflushed, {});
        for (const QPointer<QLocalSocket>& socket : sockets) {
            if (socket)
                socket->flush();
        }
    }
    SendBatchScope(const SendBatchScope&) = delete;
    SendBatchScope& operator=(const SendBatchScope&) = delete;
};

} // namespace

MessageSocket::MessageSocket(QObject* parent, MessageSocketTiming timing)
    : QObject(parent)
    , m_socket(new QLocalSocket(this))
    , m_reader(timing.maxPayload)
    , m_peerUser(timing.peerUser)
    , m_retryCounter(new TimeCount(timing.retryInterval, timing.retryCount, this))
{
    connect(m_socket, &QLocalSocket::connected, this, &MessageSocket::slotConnected);
    connect(m_socket, &QLocalSocket::disconnected, this, &MessageSocket::slotDisconnected);
    connect(m_socket, &QLocalSocket::readyRead, this, &MessageSocket::slotReadyRead);
    connect(m_socket, &QLocalSocket::errorOccurred, this, &MessageSocket::slotError);
    connect(m_retryCounter, &TimeCount::signalTryAgain, this, &MessageSocket::slotTryConnectAgain);
    connect(m_retryCounter, &TimeCount::signalTryTimeout, this,
            &MessageSocket::slotTryConnectTimeout);
}

void MessageSocket::connectToDgw()
{
    m_retryCounter->start();
}

void MessageSocket::sendMessage(MessageType type, const QByteArray& payload)
{
    if (!m_socket->isValid())
        return;
    m_socket->write(FrameCodec::encode(type, payload));
    SendBatch& batch = sendBatch();
    if (batch.depth > 0) {
        if (!batch.unflushed.contains(m_socket))
            batch.unflushed.append(m_socket);
        return;
    }
    // Without a flush the bytes would wait for the next pass of the event loop.
    m_socket->flush();
}

void MessageSocket::closeSocket()
{
    m_retryCounter->stop();
    disconnect(this, nullptr, nullptr, nullptr);
    m_socket->disconnectFromServer();
}

void MessageSocket::slotTryConnectAgain()
{
    const QLocalSocket::LocalSocketState state = m_socket->state();
    log::info(QStringLiteral("message socket try connect to dgw, socket state:%1").arg(int(state)));
    if (state == QLocalSocket::UnconnectedState) {
        m_socket->connectToServer(m_serverName, QIODevice::ReadWrite);
    } else if (state == QLocalSocket::ConnectedState) {
        // Stopped on the tick after the connection was made, not in slotConnected: the gateway
        // manager relies on the counter running until then.
        m_retryCounter->stop();
    }
}

void MessageSocket::slotTryConnectTimeout()
{
    if (m_socket->state() == QLocalSocket::ConnectedState)
        return;
    m_ready = false;
    m_socket->disconnectFromServer();
    Q_EMIT signalConnectStatus(ConnStatusConnectTimeout);
    log::info(QStringLiteral("message socket connect to dgw time out"));
}

void MessageSocket::slotConnected()
{
    // Whatever a previous connection left half-read belongs to a gateway that is gone.
    m_reader.reset();
    const QString stranger = peer_check::mismatch(*m_socket, m_peerUser);
    if (!stranger.isEmpty()) {
        dropConnection(QStringLiteral("message socket peer is not our dgw, %1").arg(stranger));
        return;
    }
    log::info(QStringLiteral("message socket connected to dgw"));
    sendMessage(ClientHelloCmd, QByteArray());
    Q_EMIT signalConnectStatus(ConnStatusConnected);
}

void MessageSocket::slotDisconnected()
{
    m_ready = false;
    ++m_disconnectCount;
    if (m_disconnectCount <= MaxRestarts) {
        const QMap<QString, DevInfo> devices = m_devices;
        for (auto it = devices.cbegin(); it != devices.cend(); ++it)
            Q_EMIT ClientSignals::instance()->signalDevStatusPush(it.key(), DevStatusOffline);
        Q_EMIT signalTryStartNewDgw();
    } else {
        Q_EMIT signalConnectStatus(ConnStatusDisconnected);
    }
    log::info(QStringLiteral("message socket disconnected from dgw"));
}

void MessageSocket::slotReadyRead()
{
    // A receiver that runs an event loop of its own leaves the bytes to the pass under way,
    // which takes them after its batch, in order.
    if (m_reading)
        return;
    // A receiver of a message may close or even delete this channel.
    QPointer<MessageSocket> self(this);
    const SendBatchScope batch;
    m_reading = true;
    Frame frame;
    // What the socket holds is taken in reads of up to a batch and cut into frames in memory:
    // one read for many small frames, and a large frame costs no batch of its size.
    constexpr qint64 BatchSize = 16 * 1024;
    for (qint64 size; self && m_socket->isValid() && m_socket->bytesAvailable() > 0;) {
        if (m_batch.isEmpty())
            m_batch.resize(int(BatchSize));
        size = m_socket->read(m_batch.data(), qMin(BatchSize, m_socket->bytesAvailable()));
        if (size <= 0)
            break;
        const char* bytes = m_batch.constData();
        while (self && m_socket->isValid() && m_reader.read(bytes, size, frame)) {
            handleMessage(MessageType(frame.type), frame.payload);
            if (self)
                Q_EMIT signalMessageComing(MessageType(frame.type), frame.payload);
            if (self)
                m_reader.recycle(frame.payload);
        }
        if (!self || m_reader.failed())
            break;
    }
    if (!self)
        return;
    m_reading = false;
    if (m_reader.failed()) {
        dropConnection(
            QStringLiteral("message socket read bad frame from dgw, %1").arg(m_reader.failure()));
    }
}

void MessageSocket::dropConnection(const QString& why)
{
    log::error(why + QStringLiteral("; connection closed"));
    m_ready = false;
    QPointer<MessageSocket> self(this);
    Q_EMIT signalConnectStatus(ConnStatusSocketError);
    // The disconnect that follows runs the usual loss handling: offline pushes, a restart.
    if (self)
        m_socket->abort();
}

void MessageSocket::slotError(QLocalSocket::LocalSocketError socketError)
{
    // While the gateway is still starting its server does not exist yet; the retry ticks go on.
    if (socketError == QLocalSocket::ServerNotFoundError)
        return;
    m_ready = false;
    Q_EMIT signalConnectStatus(ConnStatusSocketError);
    log::info(QStringLiteral("message socket connect to dgw error: %1").arg(int(socketError)));
}

// The channel's own handling comes first, before any other receiver of signalMessageComing.
void MessageSocket::handleMessage(MessageType msgType, const QByteArray& message)
{
    if (msgType != InitDgwRes) {
        Q_EMIT MessageSignals::instance()->signalMessageComing(msgType, message);
        return;
    }
    vms_sdk_proto::Response answer;
    if (answer.ParseFromArray(message.constData(), message.size()) && answer.error().code() == 0) {
        m_ready = true;
        Q_EMIT signalMessageSocketIsReady();
        log::info(QStringLiteral("init dgw success"));
    } else {
        Q_EMIT ClientSignals::instance()->signalDgwAbnormal(DgwAbnormalInitFailed);
        // "int", not "init": the text is what log readers search for.
        log::error(QStringLiteral("int dgw failure"));
    }
}

} // namespace vms_sdk
