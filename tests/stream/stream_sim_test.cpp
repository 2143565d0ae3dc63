// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Streams end to end: the exported stream functions against simulator processes, watched
// through ClientSignals as an application watches them.
#include "support/sim_gateways.h"
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_sdk/gateway/multi_dgw_mgr.h"
#include "vms_sdk/stream/stream_worker.h"

#include <QtEndian>

#include <gtest/gtest.h>

#include <csignal>
#include <map>

using namespace vms_sdk;

namespace {

const ChannelId cam1{.devId = QStringLiteral("cam-1"), .channelIndex = 1};

// The simulator's media header, read at the offsets its documentation gives.
struct MediaFrame
{
    QByteArray magic{};
    quint64 sequence = 0;
    qint64 timestamp = 0;
    quint32 bodySize = 0;
    quint32 channel = 0;
    bool key = false;
    QString devId{};
    bool bodyIntact = false;
    int size = 0;
};

MediaFrame readMedia(const QByteArray& payload)
{
    MediaFrame frame;
    frame.size = int(payload.size());
    if (payload.size() < 64)
        return frame;
    const char* p = payload.constData();
    frame.magic = payload.left(4);
    frame.sequence = qFromBigEndian<quint64>(p + 8);
    frame.timestamp = qFromBigEndian<qint64>(p + 16);
    frame.bodySize = qFromBigEndian<quint32>(p + 24);
    frame.channel = qFromBigEndian<quint32>(p + 32);
    frame.key = (p[36] & 1) != 0;
    frame.devId = QString::fromUtf8(payload.mid(40, 24).constData());
    frame.bodyIntact = int(frame.bodySize) == payload.size() - 64;
    for (int i = 64; frame.bodyIntact && i < payload.size(); ++i)
        frame.bodyIntact = quint8(p[i]) == quint8(frame.sequence + quint64(i - 64));
    return frame;
}

// What one stream delivered, in the order it came.
struct Item
{
    enum Kind { Data, Event, Progress } kind = Data;
    MediaFrame frame{};
    int event = -1;
    quint32 curPos = 0;
    quint32 totalPos = 0;
    QDateTime time{};
};

class StreamRecorder
{
public:
    StreamRecorder()
    {
        auto* out = ClientSignals::instance();
        QObject::connect(out, &ClientSignals::signalStreamData, &m_context,
                         [this](StreamId id, const QByteArray& data) {
                             m_items[id].append({.kind = Item::Data, .frame = readMedia(data)});
                         });
        QObject::connect(out, &ClientSignals::signalStreamEventPush, &m_context,
                         [this](StreamId id, StreamEvent event) {
                             m_items[id].append({.kind = Item::Event, .event = int(event)});
                         });
        QObject::connect(out, &ClientSignals::signalPlaybackByFileProgressPush, &m_context,
                         [this](StreamId id, unsigned int cur, unsigned int total) {
                             m_items[id].append(
                                 {.kind = Item::Progress, .curPos = cur, .totalPos = total});
                         });
        QObject::connect(out, &ClientSignals::signalPlaybackByTimeProgressPush, &m_context,
                         [this](StreamId id, const QDateTime& time) {
                             m_items[id].append({.kind = Item::Progress, .time = time});
                         });
    }

    const QList<Item>& of(StreamId id) { return m_items[id]; }
    // One field of each item of the kind.
    template<typename T>
    QList<T> fields(StreamId id, Item::Kind kind, T Item::*field)
    {
        QList<T> values;
        for (const Item& item : of(id)) {
            if (item.kind == kind)
                values.append(item.*field);
        }
        return values;
    }
    int count(StreamId id, Item::Kind kind) { return int(fields(id, kind, &Item::kind).size()); }
    QList<MediaFrame> frames(StreamId id) { return fields(id, Item::Data, &Item::frame); }
    QList<int> events(StreamId id) { return fields(id, Item::Event, &Item::event); }
    bool waitFor(StreamId id, Item::Kind kind, int count, int timeoutMs = 20000)
    {
        return vms_test::waitFor([&] { return this->count(id, kind) >= count; }, timeoutMs);
    }
    // The frames that came after the n-th progress push (from 1) and before the next one.
    QList<MediaFrame> framesAfterProgress(StreamId id, int n)
    {
        QList<MediaFrame> frames;
        int seen = 0;
        for (const Item& item : of(id)) {
            seen += item.kind == Item::Progress;
            if (seen == n && item.kind == Item::Data)
                frames.append(item.frame);
        }
        return frames;
    }
    Item progress(StreamId id, int n)
    {
        int seen = 0;
        for (const Item& item : of(id)) {
            if (item.kind == Item::Progress && ++seen == n)
                return item;
        }
        return {};
    }

private:
    QObject m_context;
    std::map<StreamId, QList<Item>> m_items;
};

// Sequence numbers from 0 without a gap, every frame whole and of the stream's channel.
void expectWholeFramesInOrder(const QList<MediaFrame>& frames, const QString& devId)
{
    for (int i = 0; i < frames.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(frames[i].magic, QByteArray("VSMF"));
        EXPECT_EQ(frames[i].sequence, quint64(i));
        EXPECT_TRUE(frames[i].bodyIntact);
        EXPECT_EQ(frames[i].devId, devId);
        EXPECT_EQ(frames[i].channel, 1u);
        if (::testing::Test::HasFailure())
            return;
    }
}

QList<qint64> stampSteps(const QList<MediaFrame>& frames)
{
    QList<qint64> steps;
    for (int i = 1; i < frames.size(); ++i)
        steps.append(frames[i].timestamp - frames[i - 1].timestamp);
    return steps;
}

class StreamSimTest : public ::testing::Test
{
protected:
    // Gateways enough for `devs` with `config` as their config file; the devices managed.
    void start(const QByteArray& config, const QList<DevInfo>& devs)
    {
        gateways.start(QStringLiteral(VMS_DGW_SIM_PATH), config, devs,
                       [this] { recorder = std::make_unique<StreamRecorder>(); });
    }

    void startWithCameras(const QByteArray& streams, const QByteArray& faults = "{}")
    {
        start(R"({"idleExitMs": 10000, "streams": )" + streams + R"(, "faults": )" + faults + "}",
              {DevInfo{.id = "cam-1"}, DevInfo{.id = "cam-2"}, DevInfo{.id = "nvr-1"},
               DevInfo{.id = "ghost"}});
    }

    void TearDown() override { gateways.stop(); }

    std::unique_ptr<StreamRecorder> recorder;
    vms_test::SimGateways gateways;
    QList<qint64>& pids = gateways.pids;
};

TEST_F(StreamSimTest, LiveFramesOfACameraArriveInOrderAndWhole)
{
    // A camera's cadence, faster: one key frame every ten frames.
    startWithCameras(R"({"video": "synthetic", "frameRate": 200, "keyFrameIntervalMs": 50})");
    const StreamId id = connect_live_video_req({.channelId = cam1});
    ASSERT_TRUE(recorder->waitFor(id, Item::Data, 30));
    const QList<MediaFrame> frames = recorder->frames(id);
    expectWholeFramesInOrder(frames, "cam-1");
    for (int i = 0; i < 30; ++i)
        EXPECT_EQ(frames[i].key, i % 10 == 0) << i;
    EXPECT_GT(frames[0].size, frames[1].size * 4);
    disconnect_stream_req(id);
}

TEST_F(StreamSimTest, PlaybackByFileFollowsPauseSpeedAndSkip)
{
    // 5 ms of media per frame; progress only at the start, on control and at the end.
    startWithCameras(
        R"({"video": "synthetic", "frameRate": 200, "playbackMs": 4000, "progressMs": 1000000})");
    const StreamId id = playback_by_file_req({.channelId = cam1, .fileName = "ch01_a.mp4"});
    StreamRecorder& r = *recorder;
    ASSERT_TRUE(r.waitFor(id, Item::Progress, 1));
    ASSERT_TRUE(r.waitFor(id, Item::Data, 3));
    playback_ctrl_req(id, PlaybackCtrlPause);
    ASSERT_TRUE(r.waitFor(id, Item::Progress, 2));
    playback_ctrl_req(id, PlaybackCtrlResume);
    ASSERT_TRUE(r.waitFor(id, Item::Progress, 3));
    ASSERT_TRUE(vms_test::waitFor([&] { return r.framesAfterProgress(id, 3).size() >= 2; }));
    playback_speed_set_req(id, "2");
    ASSERT_TRUE(r.waitFor(id, Item::Progress, 4));
    ASSERT_TRUE(vms_test::waitFor([&] { return r.framesAfterProgress(id, 4).size() >= 3; }));
    skip_by_offset_time_req(id, 3000);
    ASSERT_TRUE(r.waitFor(id, Item::Event, 1));

    expectWholeFramesInOrder(r.frames(id), "cam-1");
    EXPECT_EQ(r.events(id), QList<int>{StreamEventPlaybackFinished});
    EXPECT_EQ(r.progress(id, 1).curPos, 0u);
    EXPECT_EQ(r.progress(id, 1).totalPos, 4000u);
    // Paused: not a frame between the pause and the resume, and nothing skipped over.
    const QList<MediaFrame> beforePause = r.framesAfterProgress(id, 1);
    EXPECT_TRUE(r.framesAfterProgress(id, 2).isEmpty());
    EXPECT_EQ(r.progress(id, 2).curPos, quint32(beforePause.last().timestamp + 5));
    EXPECT_EQ(r.progress(id, 3).curPos, r.progress(id, 2).curPos);
    EXPECT_EQ(r.framesAfterProgress(id, 3).first().timestamp, r.progress(id, 3).curPos);

    struct Row
    {
        const char* name;
        int afterProgress;
        qint64 step;
    };
    for (const Row& row : {Row{"normal speed", 1, 5}, Row{"after resume", 3, 5},
                           Row{"speed 2", 4, 10}, Row{"after the skip", 5, 10}}) {
        SCOPED_TRACE(row.name);
        for (qint64 step : stampSteps(r.framesAfterProgress(id, row.afterProgress)))
            ASSERT_EQ(step, row.step);
    }
    EXPECT_EQ(r.progress(id, 5).curPos, 3000u);
    EXPECT_EQ(r.framesAfterProgress(id, 5).first().timestamp, 3000);
    EXPECT_EQ(r.progress(id, 6).curPos, 4000u);
    EXPECT_EQ(r.progress(id, 6).totalPos, 4000u);
}

TEST_F(StreamSimTest, PlaybackByTimeSkipsToATimeWithItsMillisecondsAndEnds)
{
    startWithCameras(
        R"({"video": "synthetic", "frameRate": 200, "playbackMs": 2000, "progressMs": 1000000})");
    const QDateTime from(QDate(2024, 5, 6), QTime(12, 0));
    const StreamId id = playback_by_time_req({.channelId = cam1, .startTime = from});
    StreamRecorder& r = *recorder;
    ASSERT_TRUE(r.waitFor(id, Item::Data, 2));
    skip_by_appointed_time_req(id, from.addMSecs(1250));
    ASSERT_TRUE(r.waitFor(id, Item::Event, 1));

    EXPECT_EQ(r.events(id), QList<int>{StreamEventPlaybackFinished});
    EXPECT_EQ(r.progress(id, 1).time, from);
    EXPECT_EQ(r.framesAfterProgress(id, 1).first().timestamp, from.toMSecsSinceEpoch());
    EXPECT_EQ(r.progress(id, 2).time, from.addMSecs(1250));
    EXPECT_EQ(r.framesAfterProgress(id, 2).first().timestamp,
              from.addMSecs(1250).toMSecsSinceEpoch());
    EXPECT_EQ(r.progress(id, 3).time, from.addMSecs(2000));
}

TEST_F(StreamSimTest, BrokenStreamsEndWithTheirEvent)
{
    // A stream cut mid-frame is in the fault injection tests.
    startWithCameras(R"({"video": "synthetic", "frameRate": 200})");
    struct Row
    {
        QString devId;
        QList<int> events;
    };
    // A device the gateway does not know: it refuses and closes.
    const QList<Row> rows{{"ghost", {StreamEventConnectFailed, StreamEventDisconnected}},
                          {"nobody", {StreamEventDisconnected}}}; // no gateway manages it
    for (const Row& row : rows) {
        SCOPED_TRACE(row.devId.toStdString());
        const StreamId id =
            connect_live_video_req({.channelId = {.devId = row.devId, .channelIndex = 1}});
        ASSERT_TRUE(recorder->waitFor(id, Item::Event, int(row.events.size())));
        EXPECT_EQ(recorder->events(id), row.events);
        EXPECT_EQ(recorder->count(id, Item::Data), 0);
        EXPECT_FALSE(StreamWorker::instance()->contains(id));
    }
}

TEST_F(StreamSimTest, AStalledStreamEndsWhenItsGatewayDies)
{
    startWithCameras(R"({"video": "synthetic", "frameRate": 200})",
                     R"({"streamStallAfterFrames": 5})");
    const StreamId id = connect_live_video_req({.channelId = cam1});
    ASSERT_TRUE(recorder->waitFor(id, Item::Data, 5));
    ASSERT_EQ(pids.size(), 1);
    ::kill(pid_t(pids.first()), SIGKILL);
    ASSERT_TRUE(recorder->waitFor(id, Item::Event, 1));
    EXPECT_EQ(recorder->events(id), QList<int>{StreamEventDisconnected});
    // Everything sent before the gateway died came before the event: the stall held.
    EXPECT_EQ(recorder->count(id, Item::Data), 5);
}

TEST_F(StreamSimTest, ManyStreamsOverFourGatewaysEachGetTheirOwnFrames)
{
    QByteArray devices;
    QList<DevInfo> managed;
    for (int i = 0; i < 400; ++i) {
        const QString id = QStringLiteral("dev-%1").arg(i, 4, 10, QLatin1Char('0'));
        devices += (i ? ", " : "") + QStringLiteral(R"({"id": "%1"})").arg(id).toUtf8();
        managed.append(DevInfo{.id = id});
    }
    start(
        R"({"idleExitMs": 10000, "streams": {"video": "synthetic", "frameRate": 50, "frameBytes": 2048},
              "devices": [)" +
            devices + "]}",
        managed);
    EXPECT_EQ(MultiDgwMgr::instance()->gateways().size(), 4);

    std::map<StreamId, QString> streams;
    for (int s = 0; s < 32; ++s) {
        const QString devId = managed.at(s * 12 + 5).id;
        streams[connect_live_video_req({.channelId = {.devId = devId, .channelIndex = 1}})] = devId;
    }
    ASSERT_EQ(streams.size(), 32u);
    for (const auto& [id, devId] : streams) {
        SCOPED_TRACE(devId.toStdString());
        ASSERT_TRUE(recorder->waitFor(id, Item::Data, 10, 60000));
        expectWholeFramesInOrder(recorder->frames(id), devId);
        EXPECT_TRUE(recorder->events(id).isEmpty());
    }
}

} // namespace
