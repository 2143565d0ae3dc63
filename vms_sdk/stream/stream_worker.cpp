// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/stream/stream_worker.h"

#include <vms_sdk/client_signals.h>

#include "vms_sdk/client/message_signals.h"
#include "vms_sdk/client/sdk_log.h"
#include "vms_sdk/gateway/multi_dgw_mgr.h"
#include "vms_sdk/request/conversions/media_conversions.h"

#include "vms_message.pb.h"

#include <functional>

namespace vms_sdk {
namespace {

using conversion::serialized;

ClientSignals* out()
{
    return ClientSignals::instance();
}

// One row per message type a stream server sends besides the media itself. `emit` raises the
// signal and returns what follows the words in the log line.
struct IncomingRow
{
    MessageType type;
    const char* words;
    std::function<void(StreamId, const QByteArray&)> handle;
};

template<class Message, class Emit>
IncomingRow row(MessageType type, const char* words, Emit emit)
{
    return {type, words, [words, emit](StreamId streamId, const QByteArray& payload) {
                Message push;
                if (!push.ParseFromArray(payload.constData(), payload.size())) {
                    log::error(QStringLiteral("parse [%1] failure").arg(QLatin1String(words)));
                    return;
                }
                const QString detail = emit(streamId, push);
                log::trace(QLatin1String(words) + detail);
            }};
}

const QList<IncomingRow>& incomingRows()
{
    static const QList<IncomingRow> rows{
        row<vms_sdk_proto::StreamEventPush>(
            StreamEventPush, "dgw push stream event",
            [](StreamId streamId, const vms_sdk_proto::StreamEventPush& push) {
                Q_EMIT out()->signalStreamEventPush(streamId, StreamEvent(push.event()));
                return QStringLiteral(", stream id: %1, event:%2").arg(streamId).arg(push.event());
            }),
        row<vms_sdk_proto::PlaybackPosProgressPush>(
            PlaybackPosProgressPush, "server push playback by file progress",
            [](StreamId streamId, const vms_sdk_proto::PlaybackPosProgressPush& push) {
                Q_EMIT out()->signalPlaybackByFileProgressPush(streamId, push.cur_pos(),
                                                               push.total_pos());
                return QString();
            }),
        row<vms_sdk_proto::PlaybackTimeProgressPush>(
            PlaybackTimeProgressPush, "server push playback by time progress",
            [](StreamId streamId, const vms_sdk_proto::PlaybackTimeProgressPush& push) {
                Q_EMIT out()->signalPlaybackByTimeProgressPush(
                    streamId, conversion::streamTime(push.cur_time()));
                return QString();
            }),
    };
    return rows;
}

} // namespace

StreamWorker* StreamWorker::instance()
{
    static StreamWorker* const worker = new StreamWorker;
    return worker;
}

StreamWorker::StreamWorker(QObject* parent)
    : QObject(parent)
{
    auto* hub = MessageSignals::instance();
    connect(hub, &MessageSignals::signalConnectLiveVideoReq, this,
            &StreamWorker::slotConnectLiveVideoReq);
    connect(hub, &MessageSignals::signalPlaybackByFileReq, this,
            &StreamWorker::slotPlaybackByFileReq);
    connect(hub, &MessageSignals::signalPlaybackByTimeReq, this,
            &StreamWorker::slotPlaybackByTimeReq);
    connect(hub, &MessageSignals::signalSkipByOffsetTimeReq, this,
            &StreamWorker::slotSkipByOffsetTimeReq);
    connect(hub, &MessageSignals::signalSkipByAppointedTimeReq, this,
            &StreamWorker::slotSkipByAppointedTimeReq);
    connect(hub, &MessageSignals::signalPlaybackCtrlReq, this, &StreamWorker::slotPlaybackCtrlReq);
    connect(hub, &MessageSignals::signalPlaybackSpeedSetReq, this,
            &StreamWorker::slotPlaybackSpeedSetReq);
    connect(hub, &MessageSignals::signalDisconnectStreamReq, this,
            &StreamWorker::slotDisconnectStreamReq);
}

void StreamWorker::slotConnectLiveVideoReq(StreamId streamId,
                                           const LiveVideoConnCondition& condition)
{
    openStream(streamId, condition);
}

void StreamWorker::slotPlaybackByFileReq(StreamId streamId,
                                         const PlaybackByFileCondition& condition)
{
    openStream(streamId, condition);
}

void StreamWorker::slotPlaybackByTimeReq(StreamId streamId,
                                         const PlaybackByTimeCondition& condition)
{
    openStream(streamId, condition);
}

void StreamWorker::openStream(StreamId streamId, StreamSocket::Condition condition)
{
    auto* socket = new StreamSocket(streamId, std::move(condition), this);
    m_streams.insert(streamId, socket);
    connect(socket, &StreamSocket::signalMessageComing, this,
            &StreamWorker::slotStreamSocketMessageComing);
    connect(socket, &StreamSocket::signalConnectStatus, this,
            &StreamWorker::slotStreamSocketConnectStatus);
    const QString serverName = MultiDgwMgr::instance()->streamServerName(socket->channelId().devId);
    // A local connection may succeed or fail inside connectToServer itself. Connecting on the
    // next pass of the event loop lets the public call hand out the stream id before any event
    // of that stream can reach the application.
    QMetaObject::invokeMethod(
        socket, [socket, serverName] { socket->open(serverName); }, Qt::QueuedConnection);
}

void StreamWorker::sendControl(StreamId streamId, MessageType type,
                               const google::protobuf::MessageLite& request, const char* words)
{
    StreamSocket* socket = m_streams.value(streamId);
    if (!socket)
        return;
    socket->sendMessage(type, serialized(request));
    log::trace(
        QStringLiteral("client request %1, stream id:%2").arg(QLatin1String(words)).arg(streamId));
}

void StreamWorker::slotSkipByOffsetTimeReq(StreamId streamId, unsigned int offsetTime)
{
    sendControl(streamId, SkipByPosReq, conversion::skipByPosReq(offsetTime),
                "skip by offset time");
}

void StreamWorker::slotSkipByAppointedTimeReq(StreamId streamId, const QDateTime& appointedTime)
{
    sendControl(streamId, SkipByTimeReq, conversion::skipByTimeReq(appointedTime),
                "skip by appointed time");
}

void StreamWorker::slotPlaybackCtrlReq(StreamId streamId, PlaybackCtrl ctrl)
{
    sendControl(streamId, PlaybackCtrlReq, conversion::playbackCtrlReq(ctrl), "playback ctrl");
}

void StreamWorker::slotPlaybackSpeedSetReq(StreamId streamId, const QString& speed)
{
    sendControl(streamId, PlaybackSpeedSetReq, conversion::playbackSpeedSetReq(speed),
                "set playback speed");
}

void StreamWorker::slotDisconnectStreamReq(StreamId streamId)
{
    // Nothing is sent: the gateway stops the stream when its socket closes.
    StreamSocket* socket = m_streams.value(streamId);
    if (!socket)
        return;
    removeStream(socket);
    log::trace(QStringLiteral("client request disconnect stream, stream id:%1").arg(streamId));
}

void StreamWorker::removeStream(StreamSocket* socket)
{
    disconnect(socket, nullptr, nullptr, nullptr);
    socket->deleteLater();
    m_streams.remove(socket->streamId());
}

void StreamWorker::slotStreamSocketMessageComing(StreamId streamId, MessageType msgType,
                                                 const QByteArray& message)
{
    if (msgType == StreamData) {
        Q_EMIT out()->signalStreamData(streamId, message);
        return;
    }
    for (const IncomingRow& row : incomingRows()) {
        if (row.type == msgType)
            return row.handle(streamId, message);
    }
}

void StreamWorker::slotStreamSocketConnectStatus(StreamId streamId, ConnStatus status)
{
    log::info(QStringLiteral("client stream socket connect status, stream id:%1, status:%2")
                  .arg(streamId)
                  .arg(int(status)));
    StreamSocket* socket = m_streams.value(streamId);
    if (!socket || status == ConnStatusConnected)
        return;
    removeStream(socket);
    Q_EMIT out()->signalStreamEventPush(streamId, status == ConnStatusConnectTimeout
                                                      ? StreamEventConnectTimeout
                                                      : StreamEventDisconnected);
}

} // namespace vms_sdk
