// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "support/frame_limit_rows.h"
#include "support/test_support.h"

#include <vms_sdk/client_signals.h>

#include "vms_kit/vms_kit.h"
#include "vms_protocol/frame_codec.h"
#include "vms_sdk/channel/message_socket.h"
#include "vms_sdk/client/message_signals.h"

#include "vms_message.pb.h"

#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QSignalSpy>
#include <QUuid>

#include <gtest/gtest.h>

#include <memory>

using namespace vms_sdk;

namespace {

constexpr MessageSocketTiming fastTiming{.retryInterval = 20, .retryCount = 30};

QString uniqueServerName()
{
    return QUuid::createUuid().toString(QUuid::Id128);
}

QByteArray initAnswer(int code)
{
    vms_sdk_proto::Response answer;
    answer.set_request_id("{init}");
    answer.mutable_error()->set_code(code);
    return QByteArray::fromStdString(answer.SerializeAsString());
}

// Plays the gateway: a local server whose accepted connection the test writes to and reads.
class MessageSocketTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        logPath = vms_test::openTestLog();
        serverName = uniqueServerName();
        ASSERT_TRUE(server.listen(serverName));
    }
    void TearDown() override { vms_kit::release_vms_log(); }

    std::unique_ptr<MessageSocket> makeSocket()
    {
        auto channel = std::make_unique<MessageSocket>(nullptr, fastTiming);
        channel->setServerName(serverName);
        return channel;
    }

    // Waits for the channel to connect and returns the server's side of it.
    QLocalSocket* accept()
    {
        if (!vms_test::waitFor([this] { return server.hasPendingConnections(); }))
            return nullptr;
        QLocalSocket* peer = server.nextPendingConnection();
        return peer;
    }

    QByteArray readFromPeer(QLocalSocket* peer, int bytes)
    {
        vms_test::waitFor([&] { return peer->bytesAvailable() >= bytes; });
        return peer->read(bytes);
    }

    QStringList logLines() const { return vms_test::readLines(logPath); }
    int countLines(const QString& text) const { return vms_test::countLines(logPath, text); }

    QString logPath;
    QString serverName;
    QLocalServer server;
};

TEST_F(MessageSocketTest, ConnectsOnAFirstTickSaysHelloAndReportsConnected)
{
    auto channel = makeSocket();
    QSignalSpy status(channel.get(), &MessageSocket::signalConnectStatus);
    QLocalSocket* peer = accept();
    ASSERT_NE(peer, nullptr);
    EXPECT_EQ(readFromPeer(peer, 13).toHex(), QByteArray("0000000000000001"
                                                         "03"
                                                         "ffffffff"));
    ASSERT_TRUE(vms_test::waitFor([&] { return status.count() == 1; }));
    EXPECT_EQ(status[0][0].value<ConnStatus>(), ConnStatusConnected);
    EXPECT_EQ(
        countLines(QStringLiteral("[info] [vms_client_sdk:]    message socket connected to dgw")),
        1);
    EXPECT_FALSE(channel->isReady());
}

TEST_F(MessageSocketTest, ThirtyQuietAttemptsThenOneTimeOut)
{
    server.close();
    auto channel = makeSocket();
    QSignalSpy status(channel.get(), &MessageSocket::signalConnectStatus);
    ASSERT_TRUE(status.wait(5000));
    ASSERT_EQ(status.count(), 1);
    EXPECT_EQ(status[0][0].value<ConnStatus>(), ConnStatusConnectTimeout);

    const QStringList lines = logLines();
    ASSERT_EQ(lines.size(), 31);
    for (int i = 0; i < 30; ++i)
        EXPECT_TRUE(lines[i].endsWith(QStringLiteral(
            "[vms_client_sdk:]    message socket try connect to dgw, socket state:0")))
            << lines[i].toStdString();
    EXPECT_TRUE(lines[30].endsWith(QStringLiteral("message socket connect to dgw time out")));
    // Server-not-found errors on every attempt were silent.
    EXPECT_FALSE(status.wait(100));
}

TEST_F(MessageSocketTest, AnErrorOtherThanServerNotFoundReportsStatus3)
{
    // A name that exists but is no server: the connection is refused rather than not found.
    const QString notAServer = vms_test::tempDir() + QStringLiteral("/not-a-server");
    QFile file(notAServer);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    auto channel = makeSocket();
    channel->setServerName(notAServer);
    QSignalSpy status(channel.get(), &MessageSocket::signalConnectStatus);
    ASSERT_TRUE(status.wait(2000));
    EXPECT_EQ(status[0][0].value<ConnStatus>(), ConnStatusSocketError);
    EXPECT_EQ(countLines(QStringLiteral("message socket connect to dgw error: %1")
                             .arg(int(QLocalSocket::ConnectionRefusedError))),
              1);
    channel->closeSocket();
}

TEST_F(MessageSocketTest, TheInitAnswerDecidesReadiness)
{
    struct Row
    {
        const char* name;
        QByteArray payload;
        bool ready;
    };
    const Row rows[] = {
        {"success", initAnswer(0), true},
        {"no error part counts as success", QByteArray(""), true},
        {"refusal", initAnswer(7), false},
        {"unparsable payload", QByteArray("\xff\xff\xff", 3), false},
    };
    for (const Row& row : rows) {
        auto channel = makeSocket();
        QSignalSpy ready(channel.get(), &MessageSocket::signalMessageSocketIsReady);
        QSignalSpy abnormal(ClientSignals::instance(), &ClientSignals::signalDgwAbnormal);
        QSignalSpy routed(MessageSignals::instance(), &MessageSignals::signalMessageComing);
        QLocalSocket* peer = accept();
        ASSERT_NE(peer, nullptr) << row.name;
        readFromPeer(peer, 13);
        peer->write(FrameCodec::encode(InitDgwRes, row.payload));
        peer->flush();
        ASSERT_TRUE(vms_test::waitFor([&] { return ready.count() + abnormal.count() > 0; }))
            << row.name;
        EXPECT_EQ(channel->isReady(), row.ready) << row.name;
        EXPECT_EQ(ready.count(), row.ready ? 1 : 0) << row.name;
        if (!row.ready) {
            ASSERT_EQ(abnormal.count(), 1) << row.name;
            EXPECT_EQ(abnormal[0][0].value<DgwAbnormal>(), DgwAbnormalInitFailed);
        }
        EXPECT_EQ(routed.count(), 0) << row.name; // the init answer stays in the channel
        delete peer;
    }
    EXPECT_EQ(countLines(QStringLiteral("[info] [vms_client_sdk:]    init dgw success")), 2);
    EXPECT_EQ(countLines(QStringLiteral("[error] [vms_client_sdk:]    int dgw failure")), 2);
}

// How a reader cuts frames out of pieces is proven in frame_codec_test; here only that the
// channel hands it each piece as it comes.
TEST_F(MessageSocketTest, OtherFramesGoToTheHubWholeAndInOrderAndASlotMayDeleteTheChannel)
{
    auto owned = makeSocket();
    QPointer<MessageSocket> channel = owned.release();
    QSignalSpy routed(MessageSignals::instance(), &MessageSignals::signalMessageComing);
    QObject::connect(channel, &MessageSocket::signalMessageComing, channel,
                     [&](MessageType type, const QByteArray&) {
                         // What it sends first still waits for the end of the batch,
                         // which must cope with a socket gone by then.
                         if (type == DevStatusPush) {
                             channel->sendMessage(DevNetGetReq, "bye");
                             delete channel.data();
                         }
                     });
    QLocalSocket* peer = accept();
    ASSERT_NE(peer, nullptr);
    const QByteArray bytes = FrameCodec::encode(21, "answer") + FrameCodec::encode(40, "b") +
                             FrameCodec::encode(45, "c");
    // Split inside the size field.
    for (const QByteArray& piece : {bytes.left(11), bytes.mid(11)}) {
        peer->write(piece);
        peer->flush();
        vms_test::waitFor([&] { return channel && channel->socket()->bytesAvailable() > 0; }, 50);
        QCoreApplication::processEvents();
    }
    ASSERT_TRUE(vms_test::waitFor([&] { return channel.isNull(); }));
    QCoreApplication::processEvents();
    // The channel's own handler runs before the slot that deletes it; the frame after that
    // is never touched.
    ASSERT_EQ(routed.count(), 2);
    EXPECT_EQ(routed[0][0].value<MessageType>(), DevNetGetRes);
    EXPECT_EQ(routed[0][1].toByteArray(), "answer");
    EXPECT_EQ(routed[1][0].value<MessageType>(), DevStatusPush);
}

// A receiver that runs an event loop of its own while more frames arrive must neither see
// them out of order nor leave them waiting for bytes that come later.
TEST_F(MessageSocketTest, FramesThatArriveWhileAReceiverRunsAnEventLoopFollowInOrder)
{
    auto channel = makeSocket();
    QLocalSocket* peer = accept();
    ASSERT_NE(peer, nullptr);
    readFromPeer(peer, 13);
    QList<QByteArray> payloads;
    QObject context;
    QObject::connect(MessageSignals::instance(), &MessageSignals::signalMessageComing, &context,
                     [&](MessageType, const QByteArray& payload) {
                         payloads.append(payload);
                         if (payload != "first")
                             return;
                         peer->write(FrameCodec::encode(40, "second") +
                                     FrameCodec::encode(40, "third"));
                         peer->flush();
                         vms_test::waitFor([&] { return channel->socket()->bytesAvailable() > 0; });
                         QCoreApplication::processEvents();
                     });
    peer->write(FrameCodec::encode(40, "first"));
    peer->flush();
    ASSERT_TRUE(vms_test::waitFor([&] { return payloads.size() == 3; }));
    EXPECT_EQ(payloads, (QList<QByteArray>{"first", "second", "third"}));
    delete peer;
}

// Frames sent by receivers of incoming frames go out together once the batch is handled; from
// anywhere else at once. Either way nothing is left waiting for the next pass of the event loop.
TEST_F(MessageSocketTest, NothingSentWaitsForTheNextPassOfTheEventLoop)
{
    auto channel = makeSocket();
    QSignalSpy status(channel.get(), &MessageSocket::signalConnectStatus);
    std::unique_ptr<QLocalSocket> peer(accept());
    ASSERT_NE(peer, nullptr);
    ASSERT_TRUE(vms_test::waitFor([&] { return status.count() == 1; }));
    EXPECT_EQ(readFromPeer(peer.get(), 13).at(8), char(ClientHelloCmd));

    channel->sendMessage(DevNetGetReq, "alone");
    EXPECT_EQ(channel->socket()->bytesToWrite(), 0);

    QObject context;
    QObject::connect(MessageSignals::instance(), &MessageSignals::signalMessageComing, &context,
                     [&](MessageType, const QByteArray& payload) {
                         channel->sendMessage(DevNetGetReq, "re:" + payload);
                     });
    // Connected after the channel's own reader: runs once it has handled what arrived.
    QList<qint64> waitingAfterBatch;
    QObject::connect(channel->socket(), &QLocalSocket::readyRead, &context,
                     [&] { waitingAfterBatch.append(channel->socket()->bytesToWrite()); });
    peer->write(FrameCodec::encode(21, "a") + FrameCodec::encode(21, "b") +
                FrameCodec::encode(21, "c"));
    peer->flush();
    ASSERT_TRUE(vms_test::waitFor([&] { return peer->bytesAvailable() >= 18 + 3 * 17; }));
    EXPECT_EQ(peer->readAll(), QByteArray::fromHex("0000000000000006"
                                                   "14"
                                                   "00000005") +
                                   "alone" +
                                   QByteArray::fromHex("000000000000000514000000"
                                                       "04") +
                                   "re:a" +
                                   QByteArray::fromHex("000000000000000514000000"
                                                       "04") +
                                   "re:b" +
                                   QByteArray::fromHex("000000000000000514000000"
                                                       "04") +
                                   "re:c");
    ASSERT_FALSE(waitingAfterBatch.isEmpty());
    for (qint64 waiting : std::as_const(waitingAfterBatch))
        EXPECT_EQ(waiting, 0);
}

TEST_F(MessageSocketTest, SendingWithoutAConnectionDropsSilentlyAndCloseEndsTheChannel)
{
    auto channel = makeSocket();
    channel->sendMessage(DevNetGetReq, "lost"); // not connected yet
    QSignalSpy status(channel.get(), &MessageSocket::signalConnectStatus);
    QLocalSocket* peer = accept();
    ASSERT_NE(peer, nullptr);
    EXPECT_EQ(readFromPeer(peer, 13).at(8), char(ClientHelloCmd));
    channel->sendMessage(DevNetGetReq, "kept");
    EXPECT_EQ(readFromPeer(peer, 17), FrameCodec::encode(DevNetGetReq, "kept"));

    QSignalSpy restarts(channel.get(), &MessageSocket::signalTryStartNewDgw);
    channel->closeSocket();
    ASSERT_TRUE(vms_test::waitFor([&] { return peer->state() == QLocalSocket::UnconnectedState; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(restarts.count(), 0);
    EXPECT_FALSE(status.wait(100)); // and no more attempts
}

TEST_F(MessageSocketTest, ARefusedFrameClosesTheChannelAsASocketErrorAndNothingAfterItArrives)
{
    const QByteArray next = FrameCodec::encode(40, "next");
    for (const vms_test::FrameLimitRow& row : vms_test::frameLimitRows()) {
        SCOPED_TRACE(row.name);
        // A server of its own: the previous channel's reconnection may still be queued.
        server.close();
        serverName = uniqueServerName();
        ASSERT_TRUE(server.listen(serverName));
        MessageSocketTiming timing = fastTiming;
        timing.maxPayload = vms_test::SmallFrameLimit;
        MessageSocket channel(nullptr, timing);
        channel.setServerName(serverName);
        channel.devices().insert(QStringLiteral("cam-a"), DevInfo{.id = QStringLiteral("cam-a")});
        QSignalSpy frames(&channel, &MessageSocket::signalMessageComing);
        QSignalSpy status(&channel, &MessageSocket::signalConnectStatus);
        QSignalSpy restarts(&channel, &MessageSocket::signalTryStartNewDgw);
        QSignalSpy offline(ClientSignals::instance(), &ClientSignals::signalDevStatusPush);
        std::unique_ptr<QLocalSocket> peer(accept());
        ASSERT_NE(peer, nullptr);
        ASSERT_TRUE(vms_test::waitFor([&] { return status.count() == 1; }));
        peer->write(row.bytes + next);
        peer->flush();
        if (!row.failure) {
            ASSERT_TRUE(vms_test::waitFor([&] { return frames.count() == 2; }));
            EXPECT_EQ(frames[0][1].toByteArray(), "0123456789abcdef");
            EXPECT_EQ(frames[1][1].toByteArray(), "next");
            EXPECT_EQ(status.count(), 1);
            continue;
        }
        // Status 3 first, then the loss as any other: devices offline and a restart asked for.
        ASSERT_TRUE(vms_test::waitFor([&] { return restarts.count() == 1; }));
        QList<int> statuses;
        for (const auto& args : status)
            statuses.append(args[0].value<ConnStatus>());
        ASSERT_EQ(statuses.mid(0, 2), (QList<int>{ConnStatusConnected, ConnStatusSocketError}));
        EXPECT_EQ(statuses.count(ConnStatusSocketError), 1) << statuses.size();
        ASSERT_EQ(offline.count(), 1);
        EXPECT_EQ(offline[0][1].value<DevStatus>(), DevStatusOffline);
        EXPECT_EQ(frames.count(), 0);
        EXPECT_FALSE(channel.isReady());
        EXPECT_EQ(countLines(QStringLiteral("[error] [vms_client_sdk:]    message socket read bad "
                                            "frame from dgw, %1; connection closed")
                                 .arg(QLatin1String(row.failure))),
                  1);
        EXPECT_TRUE(
            vms_test::waitFor([&] { return peer->state() == QLocalSocket::UnconnectedState; }));
    }
}

} // namespace
