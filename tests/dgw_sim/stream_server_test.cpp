// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The simulator's stream server on its own: a client socket speaking the stream frames.
#include "sim_process.h"

#include "support/test_support.h"

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

#include <QtEndian>

#include <gtest/gtest.h>

using namespace vms_sdk;
using vms_test::SimProcess;

namespace {

// One stream connection and the frames that came on it.
class StreamClient
{
public:
    explicit StreamClient(const QString& serverName)
    {
        vms_test::waitFor([&] {
            if (m_socket.state() == QLocalSocket::UnconnectedState)
                m_socket.connectToServer(serverName);
            return m_socket.state() == QLocalSocket::ConnectedState;
        });
        QObject::connect(&m_socket, &QLocalSocket::readyRead, [this] {
            Frame frame;
            while (m_reader.read(m_socket, frame))
                m_frames.append(frame);
        });
    }

    template<class Message>
    void send(int type, const Message& message)
    {
        m_socket.write(
            FrameCodec::encode(type, QByteArray::fromStdString(message.SerializeAsString())));
        m_socket.flush();
    }

    // The frames up to the `count`-th of `type`, once it is there.
    bool waitFor(int type, int count)
    {
        return vms_test::waitFor([&] { return this->count(type) >= count; });
    }
    int count(int type) const
    {
        int n = 0;
        for (const Frame& frame : m_frames)
            n += frame.type == type;
        return n;
    }
    const QList<Frame>& frames() const { return m_frames; }
    bool waitForDisconnected()
    {
        return vms_test::waitFor(
            [&] { return m_socket.state() == QLocalSocket::UnconnectedState; });
    }

private:
    QLocalSocket m_socket;
    FrameReader m_reader;
    QList<Frame> m_frames;
};

vms_sdk_proto::LiveVideoConnReq live(const char* devId)
{
    vms_sdk_proto::LiveVideoConnReq request;
    request.mutable_channel_id()->set_dev_id(devId);
    request.mutable_channel_id()->set_channel_index(1);
    return request;
}

quint64 sequenceOf(const Frame& frame)
{
    return qFromBigEndian<quint64>(frame.payload.constData() + 8);
}

class StreamServer : public vms_test::SimTest
{};

} // namespace

// Unpaced, the server writes as fast as the client reads; the close fault ends the stream at
// a frame boundary (the cut and stall faults are seen end to end by the library's stream tests).
TEST_F(StreamServer, UnpacedStreamsSendAsFastAsTheClientReadsUntilTheCloseFault)
{
    SimProcess& sim = startSim(R"({"streams": {"frameRate": 0, "frameBytes": 65536},
        "faults": {"streamCloseAfterFrames": 300}})");
    StreamClient client(sim.streamServerName());
    client.send(LiveVideoConnReq, live("cam-1"));
    ASSERT_TRUE(client.waitForDisconnected());
    EXPECT_TRUE(sim.log().contains(QLatin1String("fault: closing after 300 frames")));
    ASSERT_EQ(client.count(StreamData), 300);
    for (int i = 0; i < 300; ++i) {
        ASSERT_EQ(client.frames()[i].payload.size(), 65536);
        ASSERT_EQ(sequenceOf(client.frames()[i]), quint64(i));
    }
}

TEST_F(StreamServer, TakesTheSpeedsAPlaybackKnows)
{
    SimProcess& sim = startSim(R"({"streams": {"frameRate": 200}})");
    StreamClient client(sim.streamServerName());
    vms_sdk_proto::PlaybackByFileReq start;
    start.mutable_channel_id()->set_dev_id("cam-1");
    start.mutable_channel_id()->set_channel_index(1);
    client.send(PlaybackByFileReq, start);
    vms_sdk_proto::PlaybackCtrlReq pause;
    pause.set_ctrl(0);
    client.send(PlaybackCtrlReq, pause);
    int progress = 2; // at the start and on the pause
    ASSERT_TRUE(client.waitFor(PlaybackPosProgressPush, progress));

    struct Row
    {
        const char* speed;
        const char* logged; // empty: not a speed
    };
    const QList<Row> rows{{"1/2", "(x0.5)"}, {"0.25", "(x0.25)"}, {" 4 ", "(x4)"}, {"fast", ""},
                          {"0", ""},         {"1/0", ""},         {"128", ""}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.speed);
        vms_sdk_proto::PlaybackSpeedSetReq speed;
        speed.set_playback_speed(row.speed);
        client.send(PlaybackSpeedSetReq, speed);
        // Paused, a pause only reports where the playback stands: a marker after the speed.
        client.send(PlaybackCtrlReq, pause);
        progress += *row.logged ? 2 : 1;
        ASSERT_TRUE(client.waitFor(PlaybackPosProgressPush, progress));
        EXPECT_EQ(client.count(PlaybackPosProgressPush), progress);
        const QString line =
            QStringLiteral("speed \"%1\" %2")
                .arg(QLatin1String(row.speed), *row.logged ? QLatin1String(row.logged)
                                                           : QLatin1String("ignored: not a speed"));
        EXPECT_TRUE(sim.log().contains(line)) << line.toStdString();
    }
}
