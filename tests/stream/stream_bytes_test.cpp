// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The stream sockets against a stream server inside the test process: the exact bytes the
// library sends, what it makes of the bytes it receives, and the ids it ignores. How streams
// end is watched end to end in stream_sim_test.
#include "support/fake_gateway.h"
#include "support/frame_limit_rows.h"
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_kit/vms_kit.h"
#include "vms_sdk/gateway/multi_dgw_mgr.h"
#include "vms_sdk/stream/stream_socket.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QUuid>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace vms_sdk;

namespace {

QByteArray bytes(const char* literal, int size)
{
    return QByteArray(literal, size);
}

const ChannelId cam1{.devId = QStringLiteral("cam-1"), .channelIndex = 1};
const QDateTime someTime(QDate(2024, 5, 6), QTime(7, 8, 9, 10));

// A gateway of the test process: its message server answers the initialisation, its stream
// server keeps the last stream connection and what arrived on it.
class StreamBytesTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        init_vms_client_sdk();
        MultiDgwMgr::instance()->setProcessStarter([this](const QString&, const QStringList& args) {
            gateway = new vms_test::FakeGateway(args, &owner);
            QLocalServer::removeServer(args.value(2));
            QObject::connect(&streamServer, &QLocalServer::newConnection, &owner,
                             [this] { client = streamServer.nextPendingConnection(); });
            return gateway->start() && streamServer.listen(args.value(2));
        });
        QSignalSpy ready(ClientSignals::instance(), &ClientSignals::signalPrepareStartDgwSuccess);
        prepare_start_dgw_req(InitDgwCondition{}, QStringLiteral("fake"), 1);
        ASSERT_TRUE(ready.wait(10000));
        set_managed_devs_cmd({DevInfo{.id = QStringLiteral("cam-1")}});
    }
    void TearDown() override { release_vms_client_sdk(); }

    // The bytes of the next `size` bytes that reach the stream server.
    QByteArray received(int size)
    {
        QByteArray got;
        vms_test::waitFor([&] {
            if (client)
                got += client->read(size - got.size());
            return got.size() == size;
        });
        return got;
    }

    StreamId openLive()
    {
        const StreamId id = connect_live_video_req({.channelId = cam1, .streamType = 1});
        EXPECT_TRUE(vms_test::waitFor([&] { return client && client->bytesAvailable() > 0; }));
        client->readAll();
        return id;
    }

    static QStringList logLines()
    {
        return vms_test::readLines(
            QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
            QStringLiteral("/vms.client.log"));
    }

    QObject owner;
    QLocalServer streamServer;
    QPointer<vms_test::FakeGateway> gateway;
    QPointer<QLocalSocket> client;
};

TEST_F(StreamBytesTest, StartRequestsAreTheConditionsOnTheWire)
{
    // Length (int64), type, payload size (uint32), payload: the channel (field 1: device id
    // "cam-1", channel 1) and the condition's own fields.
    struct Row
    {
        const char* name;
        std::function<StreamId()> open;
        QByteArray frame;
    };
    const QList<Row> rows{
        {"live video, stream type 1",
         [] { return connect_live_video_req({.channelId = cam1, .streamType = 1}); },
         bytes("\0\0\0\0\0\0\0\x0e"
               "\x68"
               "\0\0\0\x0d"
               "\x0a\x09\x0a\x05"
               "cam-1"
               "\x10\x01"
               "\x10\x01",
               26)},
        {"file a.mp4, source 2, download",
         [] {
             return playback_by_file_req(
                 {.channelId = cam1, .fileName = "a.mp4", .recordSrc = 2, .download = 1});
         },
         bytes("\0\0\0\0\0\0\0\x17"
               "\x69"
               "\0\0\0\x16"
               "\x0a\x09\x0a\x05"
               "cam-1"
               "\x10\x01"
               "\x12\x05"
               "a.mp4"
               "\x18\x02\x20\x01",
               35)},
        {"from a time with milliseconds, source 3",
         [] {
             return playback_by_time_req(
                 {.channelId = cam1, .startTime = someTime, .recordSrc = 3, .download = 1});
         },
         bytes("\0\0\0\0\0\0\0\x27"
               "\x6a"
               "\0\0\0\x26"
               "\x0a\x09\x0a\x05"
               "cam-1"
               "\x10\x01"
               "\x12\x17"
               "2024-05-06 07:08:09.010"
               "\x18\x03",
               51)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        row.open();
        EXPECT_EQ(received(row.frame.size()).toHex(' '), row.frame.toHex(' '));
    }
}

TEST_F(StreamBytesTest, ControlRequestsGoOnTheirStreamAndUnknownIdsAreIgnored)
{
    const StreamId id = openLive();
    const StreamId unknown = id + 1;
    struct Row
    {
        const char* name;
        std::function<void(StreamId)> call;
        QByteArray frame;
    };
    const QList<Row> rows{
        {"skip to offset 300", [](StreamId s) { skip_by_offset_time_req(s, 300); },
         bytes("\0\0\0\0\0\0\0\x04"
               "\x6b"
               "\0\0\0\x03"
               "\x08\xac\x02",
               16)},
        {"skip to a time", [](StreamId s) { skip_by_appointed_time_req(s, someTime); },
         bytes("\0\0\0\0\0\0\0\x1a"
               "\x6c"
               "\0\0\0\x19"
               "\x0a\x17"
               "2024-05-06 07:08:09.010",
               38)},
        {"resume", [](StreamId s) { playback_ctrl_req(s, PlaybackCtrlResume); },
         bytes("\0\0\0\0\0\0\0\x03"
               "\x6d"
               "\0\0\0\x02"
               "\x08\x01",
               15)},
        // Pause is the zero value: an empty message, but not a null payload.
        {"pause", [](StreamId s) { playback_ctrl_req(s, PlaybackCtrlPause); },
         bytes("\0\0\0\0\0\0\0\x01"
               "\x6d"
               "\0\0\0\0",
               13)},
        {"speed 1/2", [](StreamId s) { playback_speed_set_req(s, "1/2"); },
         bytes("\0\0\0\0\0\0\0\x06"
               "\x6e"
               "\0\0\0\x05"
               "\x0a\x03"
               "1/2",
               18)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        // Sent first, the request for the unknown id would arrive first.
        row.call(unknown);
        row.call(id);
        EXPECT_EQ(received(row.frame.size()).toHex(' '), row.frame.toHex(' '));
    }
}

TEST_F(StreamBytesTest, ClosingStopsTheStreamOnceAndLogsOnce)
{
    const StreamId id = openLive();
    QSignalSpy events(ClientSignals::instance(), &ClientSignals::signalStreamEventPush);
    disconnect_stream_req(id);
    disconnect_stream_req(id);
    playback_ctrl_req(id, PlaybackCtrlPause);
    ASSERT_TRUE(
        vms_test::waitFor([&] { return client->state() == QLocalSocket::UnconnectedState; }));
    // Closing is the whole message: nothing was written before the socket closed.
    EXPECT_EQ(client->readAll(), QByteArray());
    EXPECT_EQ(events.count(), 0);

    const QString closeLine =
        QStringLiteral("client request disconnect stream, stream id:%1").arg(id);
    int closes = 0;
    for (const QString& line : logLines()) {
        closes += line.endsWith(closeLine);
        EXPECT_FALSE(line.contains(QLatin1String("client request playback ctrl")))
            << line.toStdString();
    }
    EXPECT_EQ(closes, 1);
}

TEST_F(StreamBytesTest, IncomingFramesBecomeSignalsOfTheirStream)
{
    const StreamId id = openLive();
    QSignalSpy data(ClientSignals::instance(), &ClientSignals::signalStreamData);
    QSignalSpy events(ClientSignals::instance(), &ClientSignals::signalStreamEventPush);

    // Media split in two writes, a type the stream does not know, a push that does not parse,
    // then an event. The progress pushes' values are checked against the simulator.
    const QByteArray media = bytes("\0\0\0\0\0\0\0\x06"
                                   "\x66"
                                   "\0\0\0\x05"
                                   "\x01\x02\0\x04\x05",
                                   18);
    client->write(media.left(10));
    client->flush();
    client->write(media.mid(10) + bytes("\0\0\0\0\0\0\0\x03"
                                        "\x28"
                                        "\0\0\0\x02"
                                        "\x08\x01",
                                        15));
    client->write(bytes("\0\0\0\0\0\0\0\x03"
                        "\x67"
                        "\0\0\0\x02"
                        "\x0a\x10",
                        15));
    client->write(bytes("\0\0\0\0\0\0\0\x03"
                        "\x67"
                        "\0\0\0\x02"
                        "\x08\x03",
                        15));
    client->flush();

    ASSERT_TRUE(vms_test::waitFor([&] { return events.count() == 1; }));
    ASSERT_EQ(data.count(), 1);
    EXPECT_EQ(data.at(0).at(0).value<StreamId>(), id);
    EXPECT_EQ(data.at(0).at(1).toByteArray(), bytes("\x01\x02\0\x04\x05", 5));
    ASSERT_EQ(events.count(), 1);
    EXPECT_EQ(events.at(0).at(1).value<StreamEvent>(), StreamEventPlaybackFinished);
    EXPECT_EQ(events.at(0).at(0).value<StreamId>(), id);
    int failures = 0;
    for (const QString& line : logLines())
        failures += line.endsWith(QLatin1String("parse [dgw push stream event] failure"));
    EXPECT_EQ(failures, 1);
}

TEST(StreamSocketLimit, ARefusedFrameFailsTheStreamAsASocketErrorAndNothingAfterItArrives)
{
    ClientSignals::instance(); // registers the stream id's type for the spies
    const QString logPath = vms_test::openTestLog();
    const QByteArray next = FrameCodec::encode(StreamData, "next");
    for (const vms_test::FrameLimitRow& row : vms_test::frameLimitRows()) {
        SCOPED_TRACE(row.name);
        QLocalServer server;
        ASSERT_TRUE(server.listen(QUuid::createUuid().toString(QUuid::Id128)));
        StreamSocket stream(7, LiveVideoConnCondition{.channelId = cam1}, nullptr,
                            {.maxPayload = vms_test::SmallFrameLimit});
        QSignalSpy frames(&stream, &StreamSocket::signalMessageComing);
        QSignalSpy status(&stream, &StreamSocket::signalConnectStatus);
        stream.open(server.fullServerName());
        ASSERT_TRUE(vms_test::waitFor([&] { return server.hasPendingConnections(); }));
        std::unique_ptr<QLocalSocket> peer(server.nextPendingConnection());
        peer->write(row.bytes + next);
        peer->flush();
        if (!row.failure) {
            ASSERT_TRUE(vms_test::waitFor([&] { return frames.count() == 2; }));
            EXPECT_EQ(frames[1][2].toByteArray(), "next");
            EXPECT_EQ(status.count(), 0);
            continue;
        }
        ASSERT_TRUE(vms_test::waitFor([&] { return status.count() > 0; }));
        EXPECT_EQ(status[0][0].value<StreamId>(), StreamId(7));
        EXPECT_EQ(status[0][1].value<ConnStatus>(), ConnStatusSocketError);
        EXPECT_EQ(frames.count(), 0);
        int logged = 0;
        for (const QString& line : vms_test::readLines(logPath)) {
            logged += line.endsWith(QStringLiteral("[error] [vms_client_sdk:]    client stream "
                                                   "socket read bad frame, stream_id: 7; %1")
                                        .arg(QLatin1String(row.failure)));
        }
        EXPECT_EQ(logged, 1);
    }
    vms_kit::release_vms_log();
}

TEST(StreamSocketLimit, AStreamServerOfAnotherUserGetsNoStartRequest)
{
    ClientSignals::instance(); // registers the stream id's type for the spies
    const QString logPath = vms_test::openTestLog();
    QLocalServer server;
    ASSERT_TRUE(server.listen(QUuid::createUuid().toString(QUuid::Id128)));
    // Another user cannot be had in a test: expecting a user we are not makes us the stranger.
    StreamSocket stream(8, LiveVideoConnCondition{.channelId = cam1}, nullptr,
                        {.peerUser = qint64(::getuid()) + 1});
    QSignalSpy status(&stream, &StreamSocket::signalConnectStatus);
    stream.open(server.fullServerName());
    ASSERT_TRUE(vms_test::waitFor([&] { return status.count() > 0; }));
    EXPECT_EQ(status[0][1].value<ConnStatus>(), ConnStatusSocketError);
    ASSERT_TRUE(vms_test::waitFor([&] { return server.hasPendingConnections(); }));
    std::unique_ptr<QLocalSocket> peer(server.nextPendingConnection());
    EXPECT_TRUE(vms_test::waitFor([&] { return peer->state() == QLocalSocket::UnconnectedState; }));
    EXPECT_EQ(peer->readAll(), QByteArray());
    int logged = 0;
    for (const QString& line : vms_test::readLines(logPath)) {
        logged += line.contains(
            QStringLiteral("client stream socket peer is not our dgw, stream_id: 8; peer pid "));
    }
    EXPECT_EQ(logged, 1);
    vms_kit::release_vms_log();
}

} // namespace
