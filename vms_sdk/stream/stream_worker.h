// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <vms_sdk/media_records.h>
#include <vms_sdk/vms_types.h>

#include "vms_protocol/message_type.h"
#include "vms_sdk/stream/stream_socket.h"

#include <QDateTime>
#include <QMap>
#include <QObject>

namespace google::protobuf {
class MessageLite;
}

namespace vms_sdk {

// Owns the open streams, one StreamSocket per stream id, and turns what arrives on them into
// ClientSignals. Every slot runs on the library's thread, the only one that touches the map.
class StreamWorker : public QObject
{
    Q_OBJECT
public:
    static StreamWorker* instance();

    explicit StreamWorker(QObject* parent = nullptr);

    bool contains(StreamId streamId) const { return m_streams.contains(streamId); }

public Q_SLOTS:
    void slotConnectLiveVideoReq(vms_sdk::StreamId streamId,
                                 const vms_sdk::LiveVideoConnCondition& condition);
    void slotPlaybackByFileReq(vms_sdk::StreamId streamId,
                               const vms_sdk::PlaybackByFileCondition& condition);
    void slotPlaybackByTimeReq(vms_sdk::StreamId streamId,
                               const vms_sdk::PlaybackByTimeCondition& condition);
    void slotSkipByOffsetTimeReq(vms_sdk::StreamId streamId, unsigned int offsetTime);
    void slotSkipByAppointedTimeReq(vms_sdk::StreamId streamId, const QDateTime& appointedTime);
    void slotPlaybackCtrlReq(vms_sdk::StreamId streamId, vms_sdk::PlaybackCtrl ctrl);
    void slotPlaybackSpeedSetReq(vms_sdk::StreamId streamId, const QString& speed);
    void slotDisconnectStreamReq(vms_sdk::StreamId streamId);

    void slotStreamSocketMessageComing(vms_sdk::StreamId streamId, vms_sdk::MessageType msgType,
                                       const QByteArray& message);
    void slotStreamSocketConnectStatus(vms_sdk::StreamId streamId, vms_sdk::ConnStatus status);

private:
    void openStream(StreamId streamId, StreamSocket::Condition condition);
    void sendControl(StreamId streamId, MessageType type,
                     const google::protobuf::MessageLite& request, const char* words);
    // Ends a stream on the library's side: no more signals from its socket, which closes once
    // control returns to the event loop.
    void removeStream(StreamSocket* socket);

    QMap<StreamId, StreamSocket*> m_streams;
};

} // namespace vms_sdk
