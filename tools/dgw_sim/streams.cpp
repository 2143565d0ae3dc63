// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "streams.h"

#include "device_model.h"
#include "domains/device_time.h"
#include "domains/handler.h"
#include "serve_frames.h"
#include "sim_log.h"

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QTimer>

#include <functional>

namespace vms_dgw_sim {
namespace {

using namespace vms_sdk;

// The stream events and playback controls, as the library's public numbering has them.
constexpr qint32 EventConnectFailed = 1;
constexpr qint32 EventPlaybackFinished = 3;
enum Ctrl : qint32 { Pause = 0, Resume = 1, StepForward = 2, StepBackward = 3 };

const QString streamTimeFormat = QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz");

// A paced stream that falls further behind than this stops queueing frames for a client that
// does not read, as a camera drops frames on a congested link.
constexpr qint64 maxBacklogBytes = 64 * 1024 * 1024;
// An unpaced stream keeps this much queued, so the socket never runs dry between two writes.
constexpr qint64 unpacedBacklogBytes = 4 * 1024 * 1024;
// A paced stream that wakes up late catches up with at most this many frames at once.
constexpr quint64 maxCatchUpFrames = 10;

// "2", "0.5", "1/4": a factor, or a fraction of two factors. Zero when the text is neither or
// the speed is outside what a recorder plays (1/64 to 64).
double parseSpeed(const QString& speed)
{
    const QStringList parts = speed.trimmed().split(QLatin1Char('/'));
    if (parts.size() > 2)
        return 0;
    bool ok = true;
    double value = parts.at(0).toDouble(&ok);
    if (ok && parts.size() == 2) {
        const double divisor = parts.at(1).toDouble(&ok);
        value = ok && divisor > 0 ? value / divisor : 0;
    }
    return ok && value >= 1.0 / 64 && value <= 64 ? value : 0;
}

} // namespace

// The requests a stream connection takes, one row per message type.
struct StreamRequests
{
    using Handler = void (*)(StreamConnection&, const QByteArray&);
    struct Row
    {
        int type;
        bool playbackOnly;
        Handler handler;
    };

    static const QList<Row>& rows()
    {
        static const QList<Row> rows{
            {LiveVideoConnReq, false, &live},    {PlaybackByFileReq, false, &byFile},
            {PlaybackByTimeReq, false, &byTime}, {SkipByPosReq, true, &skipByPos},
            {SkipByTimeReq, true, &skipByTime},  {PlaybackCtrlReq, true, &control},
            {PlaybackSpeedSetReq, true, &speed},
        };
        return rows;
    }

    template<class Message>
    static bool parse(StreamConnection& stream, const QByteArray& payload, Message* message)
    {
        if (message->ParseFromArray(payload.constData(), payload.size()))
            return true;
        stream.log(QStringLiteral("request does not parse, ignored"));
        return false;
    }

    static void live(StreamConnection& stream, const QByteArray& payload)
    {
        vms_sdk_proto::LiveVideoConnReq request;
        if (!parse(stream, payload, &request))
            return;
        stream.log(QStringLiteral("live video, stream type %1").arg(request.attr_2()));
        stream.begin(StreamConnection::Kind::Live, text(request.channel_id().dev_id()),
                     request.channel_id().channel_index());
    }

    static void byFile(StreamConnection& stream, const QByteArray& payload)
    {
        vms_sdk_proto::PlaybackByFileReq request;
        if (!parse(stream, payload, &request))
            return;
        stream.log(QStringLiteral("playback of file %1, record source %2, download %3")
                       .arg(text(request.file_name()))
                       .arg(request.attr_3())
                       .arg(request.attr_4()));
        stream.m_playback.recordingStart = recordingFileBegin(text(request.file_name()));
        stream.begin(StreamConnection::Kind::File, text(request.channel_id().dev_id()),
                     request.channel_id().channel_index());
    }

    static void byTime(StreamConnection& stream, const QByteArray& payload)
    {
        vms_sdk_proto::PlaybackByTimeReq request;
        if (!parse(stream, payload, &request))
            return;
        stream.log(QStringLiteral("playback from %1, record source %2")
                       .arg(text(request.start_time()))
                       .arg(request.attr_3()));
        stream.m_playback.start =
            QDateTime::fromString(text(request.start_time()), streamTimeFormat);
        if (!stream.m_playback.start.isValid())
            return stream.refuse(QStringLiteral("start time does not parse"));
        stream.begin(StreamConnection::Kind::Time, text(request.channel_id().dev_id()),
                     request.channel_id().channel_index());
    }

    static void skipByPos(StreamConnection& stream, const QByteArray& payload)
    {
        vms_sdk_proto::SkipByPosReq request;
        if (!parse(stream, payload, &request))
            return;
        stream.log(QStringLiteral("skip to %1 ms").arg(request.offset_time()));
        stream.moveTo(request.offset_time());
    }

    static void skipByTime(StreamConnection& stream, const QByteArray& payload)
    {
        vms_sdk_proto::SkipByTimeReq request;
        if (!parse(stream, payload, &request))
            return;
        const QDateTime time = QDateTime::fromString(text(request.skip_time()), streamTimeFormat);
        if (stream.m_kind != StreamConnection::Kind::Time || !time.isValid()) {
            stream.log(QStringLiteral("skip to time \"%1\" ignored: %2")
                           .arg(text(request.skip_time()),
                                time.isValid() ? QStringLiteral("not a playback by time")
                                               : QStringLiteral("does not parse")));
            return;
        }
        stream.log(QStringLiteral("skip to %1").arg(text(request.skip_time())));
        stream.moveTo(stream.m_playback.start.msecsTo(time));
    }

    static void control(StreamConnection& stream, const QByteArray& payload)
    {
        vms_sdk_proto::PlaybackCtrlReq request;
        if (!parse(stream, payload, &request))
            return;
        StreamConnection::Playback& playback = stream.m_playback;
        switch (request.ctrl()) {
        case Pause:
            stream.log(QStringLiteral("paused"));
            playback.paused = true;
            break;
        case Resume:
            stream.log(QStringLiteral("resumed"));
            playback.paused = false;
            stream.startPacing();
            break;
        case StepForward:
        case StepBackward:
            if (!playback.paused) {
                stream.log(QStringLiteral("step ignored: not paused"));
                return;
            }
            stream.log(request.ctrl() == StepForward ? QStringLiteral("step forward")
                                                     : QStringLiteral("step backward"));
            if (request.ctrl() == StepBackward)
                playback.positionMs =
                    qMax<qint64>(0, playback.positionMs - 2 * stream.m_source->frameIntervalMs());
            stream.sendFrame();
            break;
        default:
            stream.log(QStringLiteral("unknown playback control %1 ignored").arg(request.ctrl()));
            return;
        }
        stream.sendProgress();
    }

    static void speed(StreamConnection& stream, const QByteArray& payload)
    {
        vms_sdk_proto::PlaybackSpeedSetReq request;
        if (!parse(stream, payload, &request))
            return;
        const QString speed = text(request.playback_speed());
        const double factor = parseSpeed(speed);
        if (factor == 0) {
            stream.log(QStringLiteral("speed \"%1\" ignored: not a speed").arg(speed));
            return;
        }
        stream.log(QStringLiteral("speed \"%1\" (x%2)").arg(speed).arg(factor));
        stream.m_playback.speed = factor;
        stream.sendProgress();
    }
};

StreamServer::StreamServer(const MediaConfig& media, const FaultConfig& faults, DeviceModel& model,
                           QObject* parent)
    : QObject(parent)
    , m_server(new QLocalServer(this))
    , m_media(media)
    , m_faults(faults)
    , m_model(model)
{
    connect(m_server, &QLocalServer::newConnection, this, &StreamServer::accept);
}

bool StreamServer::listen(const QString& name, QString* error)
{
    QLocalServer::removeServer(name);
    if (m_server->listen(name))
        return true;
    *error = QStringLiteral("cannot listen on %1: %2").arg(name, m_server->errorString());
    return false;
}

void StreamServer::accept()
{
    while (QLocalSocket* socket = m_server->nextPendingConnection())
        new StreamConnection(socket, m_streams++, m_media, m_faults, m_model, this);
}

StreamConnection::StreamConnection(QLocalSocket* socket, int number, const MediaConfig& media,
                                   const FaultConfig& faults, DeviceModel& model, QObject* parent)
    : QObject(parent)
    , m_socket(socket)
    , m_name(QStringLiteral("stream %1").arg(number))
    , m_number(number)
    , m_media(media)
    , m_faults(faults)
    , m_model(model)
    , m_timer(new QTimer(this))
{
    m_socket->setParent(this);
    m_timer->setTimerType(Qt::PreciseTimer);
    connect(m_timer, &QTimer::timeout, this, &StreamConnection::tick);
    if (m_media.frameRate == 0) {
        // Unpaced: every write the client takes makes room for the next frames.
        connect(m_socket, &QLocalSocket::bytesWritten, this, &StreamConnection::tick);
    }
    serveFrames(
        this, m_socket, &m_reader, [] { return true; },
        [this](const vms_sdk::Frame& frame) { handle(frame); },
        [this](const QString& text) { log(text); });
}

void StreamConnection::handle(const vms_sdk::Frame& frame)
{
    log(QStringLiteral("<- %1 %2 (%3 bytes)")
            .arg(frame.type)
            .arg(messageTypeName(frame.type))
            .arg(frame.payload.size()));
    for (const StreamRequests::Row& row : StreamRequests::rows()) {
        if (row.type != frame.type)
            continue;
        const bool starts = !row.playbackOnly;
        if (starts && m_kind != Kind::None)
            return log(QStringLiteral("the stream has started already, ignored"));
        if (!starts && !isPlayback())
            return log(QStringLiteral("not a playback, ignored"));
        return row.handler(*this, frame.payload);
    }
    log(QStringLiteral("not a stream request, ignored"));
}

void StreamConnection::log(const QString& text)
{
    logLine(m_name + QStringLiteral(": ") + text);
}

void StreamConnection::send(int type, const QByteArray& payload)
{
    m_socket->write(FrameCodec::encode(type, payload));
}

void StreamConnection::sendEvent(qint32 event)
{
    vms_sdk_proto::StreamEventPush push;
    push.set_event(event);
    send(StreamEventPush, serialized(push));
    m_socket->flush();
    log(QStringLiteral("-> %1 StreamEventPush event %2").arg(int(StreamEventPush)).arg(event));
}

void StreamConnection::refuse(const QString& reason)
{
    log(QStringLiteral("refused: %1").arg(reason));
    sendEvent(EventConnectFailed);
    m_socket->disconnectFromServer();
}

void StreamConnection::begin(Kind kind, const QString& devId, quint32 channel)
{
    SimDevice* device = nullptr;
    SimChannel* simChannel = nullptr;
    vms_sdk_proto::ChannelId id;
    id.set_dev_id(devId.toStdString());
    id.set_channel_index(qint32(channel));
    const Outcome outcome = m_model.reach(id, &device, &simChannel);
    if (!outcome.ok())
        return refuse(outcome.message);
    if (!simChannel->online)
        return refuse(QStringLiteral("channel %1 of %2 is offline").arg(channel).arg(devId));

    m_kind = kind;
    m_source =
        std::make_unique<MediaSource>(m_media, quint32(m_number), channel, devId, isPlayback());
    if (m_media.encodes()) {
        QString report;
        m_encoder = VideoEncoder::open({.width = m_media.width,
                                        .height = m_media.height,
                                        .frameRate = m_source->frameRate(),
                                        .framesPerKey = m_source->framesPerKey(),
                                        .bitRate = m_media.bitRate},
                                       &report);
        log(m_encoder ? report : report + QStringLiteral(": synthetic frames instead"));
        m_picture = std::make_unique<TestPicture>(devId, channel, simChannel->osd);
    }
    if (isPlayback()) {
        m_playback.totalMs =
            m_media.playbackMs > 0 ? m_media.playbackMs : qint64(device->recordingMinutes) * 60000;
        m_playback.nextProgressMs = m_media.progressMs;
        sendProgress();
    }
    startPacing();
}

void StreamConnection::startPacing()
{
    m_clock.start();
    m_pacedFrames = 0;
    m_timer->start(m_media.frameRate > 0 ? qMax(1, 1000 / m_media.frameRate) : 0);
}

void StreamConnection::tick()
{
    if (!m_source || m_stalled || m_playback.paused || m_playback.finished)
        return m_timer->stop();
    if (m_media.frameRate == 0) {
        // Unpaced: the zero timer starts the stream, bytesWritten keeps it going.
        m_timer->stop();
        while (m_socket->bytesToWrite() < unpacedBacklogBytes) {
            if (!sendFrame())
                return;
        }
        return;
    }
    const quint64 due = quint64(m_clock.elapsed()) * quint64(m_media.frameRate) / 1000 + 1;
    for (quint64 sent = 0; m_pacedFrames < due && sent < maxCatchUpFrames; ++sent) {
        ++m_pacedFrames;
        if (m_socket->bytesToWrite() > maxBacklogBytes) {
            if (!m_dropping)
                log(QStringLiteral("the client does not read: dropping frames"));
            m_dropping = true;
            continue;
        }
        m_dropping = false;
        if (!sendFrame())
            return;
    }
    m_pacedFrames = qMax(m_pacedFrames, due);
}

bool StreamConnection::sendFrame()
{
    Playback& playback = m_playback;
    qint64 timestamp = QDateTime::currentMSecsSinceEpoch();
    if (m_kind == Kind::File)
        timestamp = playback.positionMs;
    else if (m_kind == Kind::Time)
        timestamp = playback.start.toMSecsSinceEpoch() + playback.positionMs;
    const QByteArray media = nextMedia(timestamp);
    if (media.isEmpty())
        return true;
    const QByteArray frame = FrameCodec::encode(StreamData, media);

    const quint64 frames = m_source->sequence();
    const StreamFault fault = streamFaultAfter(m_faults, frames - 1);
    if (fault == StreamFault::Cut) {
        log(QStringLiteral("fault: frame %1 cut after %2 of %3 bytes, closing")
                .arg(frames - 1)
                .arg(frame.size() / 2)
                .arg(frame.size()));
        m_socket->write(frame.constData(), frame.size() / 2);
        m_socket->disconnectFromServer();
        m_stalled = true;
        return false;
    }
    m_socket->write(frame);
    switch (streamFaultAfter(m_faults, frames)) {
    case StreamFault::Close:
        log(QStringLiteral("fault: closing after %1 frames").arg(frames));
        m_socket->disconnectFromServer();
        m_stalled = true;
        return false;
    case StreamFault::Stall:
        log(QStringLiteral("fault: stalled after %1 frames").arg(frames));
        m_socket->flush();
        m_stalled = true;
        return false;
    default:
        break;
    }

    if (!isPlayback())
        return true;
    playback.positionMs += qint64(playback.speed * m_source->frameIntervalMs());
    if (playback.positionMs >= playback.totalMs) {
        playback.positionMs = playback.totalMs;
        playback.finished = true;
        sendProgress();
        log(QStringLiteral("end of the recording after %1 frames").arg(frames));
        sendEvent(EventPlaybackFinished);
        return false;
    }
    if (playback.positionMs >= playback.nextProgressMs) {
        playback.nextProgressMs = playback.positionMs + m_media.progressMs;
        sendProgress();
    }
    return true;
}

QByteArray StreamConnection::nextMedia(qint64 timestampMs)
{
    if (!m_encoder)
        return m_source->next(timestampMs);
    m_picture->draw(m_encoder->picture(), timestampMs, pictureTime(timestampMs));
    bool key = false;
    QString error;
    const QByteArray unit = m_encoder->encode(m_source->keyDue() || m_forceKey, &key, &error);
    if (!error.isEmpty()) {
        log(QStringLiteral("the encoder failed (%1): synthetic frames from here on").arg(error));
        m_encoder.reset();
        return m_source->next(timestampMs);
    }
    if (unit.isEmpty())
        return {};
    m_forceKey = m_forceKey && !key;
    return m_source->next(timestampMs, key, MediaHeader::H264, unit);
}

QString StreamConnection::pictureTime(qint64 timestampMs) const
{
    switch (m_kind) {
    case Kind::File:
        if (!m_playback.recordingStart.isValid()) {
            return QTime::fromMSecsSinceStartOfDay(int(m_playback.positionMs % 86400000))
                .toString(QStringLiteral("+hh:mm:ss.zzz"));
        }
        return m_playback.recordingStart.addMSecs(m_playback.positionMs).toString(streamTimeFormat);
    case Kind::Time:
        return m_playback.start.addMSecs(m_playback.positionMs).toString(streamTimeFormat);
    default:
        return QDateTime::fromMSecsSinceEpoch(timestampMs).toString(streamTimeFormat);
    }
}

void StreamConnection::sendProgress()
{
    if (m_kind == Kind::File) {
        vms_sdk_proto::PlaybackPosProgressPush push;
        push.set_cur_pos(quint32(m_playback.positionMs));
        push.set_total_pos(quint32(m_playback.totalMs));
        send(PlaybackPosProgressPush, serialized(push));
    } else {
        vms_sdk_proto::PlaybackTimeProgressPush push;
        push.set_cur_time(m_playback.start.addMSecs(m_playback.positionMs)
                              .toString(streamTimeFormat)
                              .toStdString());
        send(PlaybackTimeProgressPush, serialized(push));
    }
}

void StreamConnection::moveTo(qint64 positionMs)
{
    m_playback.positionMs = qBound<qint64>(0, positionMs, m_playback.totalMs);
    m_playback.nextProgressMs = m_playback.positionMs + m_media.progressMs;
    // The client starts decoding afresh from where it skipped to.
    m_forceKey = true;
    // A recording played to its end plays again from where the client skipped to.
    const bool restart = m_playback.finished && m_playback.positionMs < m_playback.totalMs;
    m_playback.finished = m_playback.finished && !restart;
    sendProgress();
    if (restart && !m_playback.paused)
        startPacing();
}

} // namespace vms_dgw_sim
