// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Faults end to end: simulator processes that die, stop answering, refuse, flood and cut
// their streams, watched through ClientSignals as an application watches them. Every request
// must end exactly once, every push must arrive, and a broken stream must end with only whole
// frames delivered.
//
// The sanitizer build runs the same cases with smaller numbers (VMS_RELIABILITY_LIGHT) so
// that each stays within seconds on a small machine; the figures below say which is which.
#include "support/sim_gateways.h"
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_sdk/gateway/multi_dgw_mgr.h"
#include "vms_sdk/request/message_hamal.h"
#include "vms_sdk/request/request_mgr.h"

#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QtGlobal>

#include <gtest/gtest.h>

#include <csignal>
#include <iostream>
#include <memory>

using namespace vms_sdk;

namespace {

#ifdef VMS_RELIABILITY_LIGHT
constexpr int Scale = 10;
#else
constexpr int Scale = 1;
#endif
constexpr int FloodPushes = 100000 / Scale;

// A line of /proc/self/status in KiB ("VmRSS", "VmHWM"); -1 where there is none.
qint64 statusKb(const char* key)
{
#ifdef Q_OS_LINUX
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray prefix = QByteArray(key) + ':';
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith(prefix))
            return line.mid(prefix.size()).trimmed().split(' ').value(0).toLongLong();
    }
#endif
    Q_UNUSED(key)
    return -1;
}

const QList<DevInfo> simulatedDevices{DevInfo{.id = QStringLiteral("cam-1")},
                                      DevInfo{.id = QStringLiteral("cam-2")},
                                      DevInfo{.id = QStringLiteral("nvr-1")}};

// How each get-net request ended: its answer or its time-out, counted per request id.
class Endings
{
public:
    Endings()
    {
        auto* out = ClientSignals::instance();
        QObject::connect(out, &ClientSignals::signalGetDevNetRes, &m_context,
                         [this](const Response& response, const DevNetInfo&) {
                             ++m_answers[response.requestId];
                         });
        QObject::connect(
            out, &ClientSignals::signalRequestTimeout, &m_context,
            [this](const QString& requestId, const QVariant&) { ++m_timeouts[requestId]; });
    }

    int ended() const { return int(m_answers.size() + m_timeouts.size()); }
    int timeouts() const { return int(m_timeouts.size()); }
    // The ids among `ids` that did not end exactly once.
    QStringList notOnce(const QStringList& ids) const
    {
        QStringList wrong;
        for (const QString& id : ids) {
            if (m_answers.value(id) + m_timeouts.value(id) != 1)
                wrong.append(id);
        }
        return wrong;
    }

private:
    QObject m_context;
    QHash<QString, int> m_answers;
    QHash<QString, int> m_timeouts;
};

class FaultInjectionTest : public ::testing::Test
{
protected:
    // The library with gateways for `devs`, each simulator run with `config`; the devices
    // managed. `timeoutMs` is the request time-out from the start.
    void start(const QByteArray& config, const QList<DevInfo>& devs, int timeoutMs = 60000)
    {
        lastDevId = devs.value(0).id;
        gateways.start(QStringLiteral(VMS_DGW_SIM_PATH), config, devs, [timeoutMs] {
            MessageHamal::instance()->requestMgr()->setTimeoutInterval(timeoutMs);
        });
    }

    void TearDown() override
    {
        MessageHamal::instance()->requestMgr()->setTimeoutInterval(RequestMgr::DefaultTimeoutMs);
        gateways.stop();
    }

    // `count` get-net requests, spread over `devs` in turn; their ids.
    static QStringList requestNets(const QString& prefix, int count, const QList<DevInfo>& devs)
    {
        QStringList ids;
        for (int i = 0; i < count; ++i) {
            ids.append(prefix + QString::number(i));
            get_dev_net_req({.requestId = ids.last(), .devId = devs[i % devs.size()].id});
        }
        return ids;
    }

    // A last request, ended by its answer or its time-out. Whatever could still end an
    // earlier request twice (a late answer, a second time-out) comes before it ends.
    void waitForLastRequest(Endings& endings)
    {
        const int before = endings.ended();
        get_dev_net_req({.requestId = QStringLiteral("last"), .devId = lastDevId});
        ASSERT_TRUE(vms_test::waitFor([&] { return endings.ended() == before + 1; }, 20000));
    }

    vms_test::SimGateways gateways;
    QList<qint64>& pids = gateways.pids;
    QString lastDevId; // a managed device, asked last
};

TEST_F(FaultInjectionTest, AKilledGatewayEndsEachOutstandingRequestOnce)
{
    // Answers late enough that every request is still outstanding when the process dies.
    start(R"({"idleExitMs": 10000, "faults": {"answerDelayMs": 1000}})", simulatedDevices, 1500);
    Endings endings;
    const QStringList ids = requestNets(QStringLiteral("killed-"), 300, simulatedDevices);
    ASSERT_EQ(pids.size(), 1);
    ::kill(pid_t(pids[0]), SIGKILL);

    ASSERT_TRUE(vms_test::waitFor([&] { return endings.ended() == ids.size(); }, 20000))
        << endings.ended();
    waitForLastRequest(endings);
    EXPECT_EQ(endings.notOnce(ids), QStringList());
    EXPECT_GE(pids.size(), 2) << "the lost gateway is started again";
}

TEST_F(FaultInjectionTest, AGatewayThatStopsAnsweringEndsEachRequestOnceByItsTimeOut)
{
    struct Row
    {
        const char* name;
        QByteArray faults;
        int lastTimeoutMs; // of the last request: it is dropped too, or must outwait the others
    };
    const Row rows[] = {
        {"requests read and dropped", R"({"ignoreTypes": [20]})", 1000},
        // The answers come after the time-out and must not end the requests a second time.
        {"answers after the time-out", R"({"answerDelayMs": 2500})", 10000},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        start(R"({"idleExitMs": 10000, "faults": )" + row.faults + "}", simulatedDevices);
        MessageHamal::instance()->requestMgr()->setTimeoutInterval(1000);
        Endings endings;
        const QStringList ids = requestNets(QStringLiteral("silent-"), 100, simulatedDevices);
        ASSERT_TRUE(vms_test::waitFor([&] { return endings.timeouts() == ids.size(); }, 20000));
        MessageHamal::instance()->requestMgr()->setTimeoutInterval(row.lastTimeoutMs);
        waitForLastRequest(endings);
        EXPECT_EQ(endings.notOnce(ids), QStringList());
        TearDown();
        pids.clear();
    }
}

TEST_F(FaultInjectionTest, ARefusedInitialisationIsReportedOnce)
{
    QSignalSpy abnormal(ClientSignals::instance(), &ClientSignals::signalDgwAbnormal);
    QSignalSpy ready(ClientSignals::instance(), &ClientSignals::signalPrepareStartDgwSuccess);
    const QString path = vms_test::tempDir() + QStringLiteral("/refuse.json");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"idleExitMs": 10000, "faults": {"refuseInit": {"code": 4, "message": "no"}}})");
    file.close();
    qputenv("VMS_DGW_SIM_CONFIG", path.toUtf8());
    init_vms_client_sdk();
    prepare_start_dgw_req(InitDgwCondition{}, QStringLiteral(VMS_DGW_SIM_PATH), 100);
    ASSERT_TRUE(abnormal.wait(30000));
    EXPECT_FALSE(vms_test::waitFor([&] { return abnormal.count() > 1; }, 500));
    EXPECT_EQ(abnormal[0][0].value<DgwAbnormal>(), DgwAbnormalInitFailed);
    EXPECT_EQ(ready.count(), 0);
}

TEST_F(FaultInjectionTest, AFloodOfPushesArrivesWholeInBoundedMemory)
{
    // Ten series firing every millisecond: 10,000 pushes a second, each an offline status that
    // tells them from the online statuses of the managed cameras.
    QByteArray pushes;
    for (int s = 0; s < 10; ++s) {
        pushes += (s ? "," : "") +
                  QStringLiteral(R"({"type": "devStatus", "devId": "cam-%1", "status": 1,)"
                                 R"( "everyMs": 1, "count": %2})")
                      .arg(s % 2 + 1)
                      .arg(FloodPushes / 10)
                      .toUtf8();
    }
    int received = 0;
    QObject context;
    QObject::connect(
        ClientSignals::instance(), &ClientSignals::signalDevStatusPush, &context,
        [&received](const QString&, DevStatus status) { received += status == DevStatusOffline; });
    const qint64 rssBefore = statusKb("VmRSS");
    start(R"({"idleExitMs": 10000, "pushes": [)" + pushes + "]}", simulatedDevices);
    ASSERT_TRUE(vms_test::waitFor([&] { return received >= FloodPushes; }, 120000)) << received;
    const qint64 rssAfter = statusKb("VmRSS");
    // None lost and none twice: the last request's answer comes after every push.
    Endings endings;
    waitForLastRequest(endings);
    EXPECT_EQ(received, FloodPushes);

    std::cout << "push flood: " << received << " pushes; VmRSS " << rssBefore << " KiB before, "
              << rssAfter << " KiB after, peak " << statusKb("VmHWM") << " KiB\n";
    RecordProperty("pushes", received);
    RecordProperty("vmrss_before_kib", int(rssBefore));
    RecordProperty("vmrss_after_kib", int(rssAfter));
#if defined(Q_OS_LINUX) && !defined(VMS_RELIABILITY_LIGHT)
    // Nothing is kept per push: what grows is the sockets' buffers and the log's queue.
    EXPECT_LT(rssAfter - rssBefore, 64 * 1024);
#endif
}

TEST_F(FaultInjectionTest, StreamsCutMidFrameEndOnceWithOnlyWholeFrames)
{
    // Frames larger than a socket buffer, so the cut falls inside a frame being read.
    constexpr int frameBytes = 300000;
    constexpr int streams = 12;
    start(
        R"({"idleExitMs": 10000, "streams": {"video": "synthetic", "frameRate": 100, "frameBytes": 300000},)"
        R"( "faults": {"streamCutAfterFrames": 3}})",
        simulatedDevices);
    QHash<StreamId, QList<int>> frames;
    QHash<StreamId, QList<int>> events;
    QObject context;
    QObject::connect(ClientSignals::instance(), &ClientSignals::signalStreamData, &context,
                     [&](StreamId id, const QByteArray& data) { frames[id].append(data.size()); });
    QObject::connect(ClientSignals::instance(), &ClientSignals::signalStreamEventPush, &context,
                     [&](StreamId id, StreamEvent event) { events[id].append(event); });
    QList<StreamId> ids;
    for (int s = 0; s < streams; ++s) {
        const QString devId = simulatedDevices[s % 2].id; // the two cameras
        ids.append(connect_live_video_req({.channelId = {.devId = devId, .channelIndex = 1}}));
    }
    ASSERT_TRUE(vms_test::waitFor([&] { return events.size() == streams; }, 30000));
    // Nothing more of the broken streams, while the gateways still answer.
    Endings endings;
    waitForLastRequest(endings);
    for (StreamId id : std::as_const(ids)) {
        SCOPED_TRACE(id);
        EXPECT_EQ(events[id], QList<int>{StreamEventDisconnected});
        EXPECT_EQ(frames[id], (QList<int>{frameBytes, frameBytes, frameBytes}));
    }
}

} // namespace
