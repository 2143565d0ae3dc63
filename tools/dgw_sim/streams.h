// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "faults.h"
#include "media_source.h"
#include "test_picture.h"
#include "video_encoder.h"

#include "vms_protocol/frame_codec.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QObject>

#include <memory>

class QLocalServer;
class QLocalSocket;
class QTimer;

namespace vms_dgw_sim {

class DeviceModel;

// The gateway's second server, where the library opens one socket per live or playback
// stream and sends the stream's start request and its control requests on it.
class StreamServer : public QObject
{
    Q_OBJECT
public:
    StreamServer(const MediaConfig& media, const FaultConfig& faults, DeviceModel& model,
                 QObject* parent = nullptr);

    bool listen(const QString& name, QString* error);

private:
    void accept();

    QLocalServer* m_server;
    MediaConfig m_media;
    FaultConfig m_faults;
    DeviceModel& m_model;
    int m_streams = 0;
};

// One stream connection. The first request says what to play; the stream then sends media
// frames at the configured pace until the client closes the socket. A playback also sends its
// progress, obeys the control requests and ends with the event that the recording is over.
class StreamConnection : public QObject
{
    Q_OBJECT
public:
    StreamConnection(QLocalSocket* socket, int number, const MediaConfig& media,
                     const FaultConfig& faults, DeviceModel& model, QObject* parent);

private:
    enum class Kind { None, Live, File, Time };
    struct Playback
    {
        qint64 positionMs = 0;
        qint64 totalMs = 0;
        double speed = 1;
        bool paused = false;
        bool finished = false;
        qint64 nextProgressMs = 0;
        QDateTime start; // of a playback by time
        // Of the recording a playback by file plays, when its name tells; its pictures show
        // the time of day then, else the position.
        QDateTime recordingStart;
    };

    friend struct StreamRequests;

    void handle(const vms_sdk::Frame& frame);
    void log(const QString& text);
    void send(int type, const QByteArray& payload);
    void sendEvent(qint32 event);
    void refuse(const QString& reason);
    void begin(Kind kind, const QString& devId, quint32 channel);
    void startPacing();
    void tick();
    // Sends one frame and applies the frame faults; false when the stream stopped sending.
    bool sendFrame();
    // The next frame's payload: an encoded picture, or the pattern. Empty when the encoder
    // held the picture back.
    QByteArray nextMedia(qint64 timestampMs);
    // The time a picture shows: the capture time of a live stream, the media time of a
    // playback.
    QString pictureTime(qint64 timestampMs) const;
    void sendProgress();
    void moveTo(qint64 positionMs);
    bool isPlayback() const { return m_kind == Kind::File || m_kind == Kind::Time; }

    QLocalSocket* m_socket;
    QString m_name;
    int m_number;
    vms_sdk::FrameReader m_reader;
    const MediaConfig& m_media;
    const FaultConfig& m_faults;
    DeviceModel& m_model;
    Kind m_kind = Kind::None;
    std::unique_ptr<MediaSource> m_source;
    std::unique_ptr<TestPicture> m_picture;
    std::unique_ptr<VideoEncoder> m_encoder; // null: the pattern
    bool m_forceKey = false;
    Playback m_playback;
    QTimer* m_timer;
    QElapsedTimer m_clock;
    quint64 m_pacedFrames = 0;
    bool m_stalled = false;
    bool m_dropping = false;
};

} // namespace vms_dgw_sim
