// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The gateway manager against real gateway processes: the simulator, started exactly as the
// library starts a gateway.
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_kit/vms_kit.h"
#include "vms_sdk/client/message_signals.h"
#include "vms_sdk/gateway/multi_dgw_mgr.h"
#include "vms_sdk/gateway/start_dgw_thread.h"

#include "vms_message.pb.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include <csignal>
#include <memory>

using namespace vms_sdk;

namespace {

const MultiDgwMgrTiming fastTiming{
    .readinessPoll = 20, .restartDelay = 50, .channel = {.retryInterval = 20, .retryCount = 250}};

bool isRunning(qint64 pid)
{
    // A detached gateway is not our child, so there is no zombie to confuse this.
    return QFile::exists(QStringLiteral("/proc/%1").arg(pid));
}

QList<DevInfo> devices(int count)
{
    QList<DevInfo> list;
    for (int p = 0; p < count; ++p)
        list.append(
            DevInfo{.id = QStringLiteral("dev-%1").arg(count - 1 - p, 4, 10, QLatin1Char('0'))});
    return list;
}

QString pushedDevice(const QByteArray& payload)
{
    vms_sdk_proto::DevStatusPush push;
    push.ParseFromArray(payload.constData(), payload.size());
    return QString::fromStdString(push.dev_id());
}

class GatewayProcessTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        logPath = vms_test::openTestLog();
        // Gateways left behind by a failing test go away by themselves.
        useConfig(R"({"idleExitMs": 10000})");
        manager = std::make_unique<MultiDgwMgr>(fastTiming);
        manager->setProcessStarter([this](const QString& program, const QStringList& args) {
            qint64 pid = 0;
            const bool started = QProcess::startDetached(program, args, QString(), &pid);
            starts.append({args, pid});
            return started;
        });
    }

    void TearDown() override
    {
        for (const auto& start : std::as_const(starts)) {
            if (start.second > 0 && isRunning(start.second))
                ::kill(pid_t(start.second), SIGKILL);
        }
        vms_kit::release_vms_log();
    }

    void useConfig(const QByteArray& json)
    {
        const QString path = vms_test::tempDir() + QStringLiteral("/sim-config.json");
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(json);
        qputenv("VMS_DGW_SIM_CONFIG", path.toUtf8());
    }

    bool prepare(int devsCnt)
    {
        QSignalSpy success(ClientSignals::instance(), &ClientSignals::signalPrepareStartDgwSuccess);
        prepare_start_dgw_req(InitDgwCondition{.ak = QStringLiteral("ak")},
                              QStringLiteral(VMS_DGW_SIM_PATH), devsCnt);
        return vms_test::waitFor([&] { return success.count() == 1; }, 20000);
    }

    // Records the devices whose status each gateway pushes, in the order it pushes them.
    void watchStatusPushes()
    {
        for (int g = 0; g < manager->gateways().size(); ++g) {
            QObject::connect(manager->gateways()[g], &MessageSocket::signalMessageComing,
                             manager.get(), [this, g](MessageType type, const QByteArray& payload) {
                                 if (type == DevStatusPush)
                                     pushedOnline[g].append(pushedDevice(payload));
                             });
        }
    }

    QString logPath;
    std::unique_ptr<MultiDgwMgr> manager;
    QList<QPair<QStringList, qint64>> starts;
    QHash<int, QStringList> pushedOnline;
};

TEST_F(GatewayProcessTest, AKilledGatewayComesBackFourTimesThenIsGivenUp)
{
    ASSERT_TRUE(prepare(1));
    watchStatusPushes();
    set_managed_devs_cmd(devices(3));
    ASSERT_TRUE(vms_test::waitFor([&] { return pushedOnline[0].size() == 3; }));
    QSignalSpy statuses(ClientSignals::instance(), &ClientSignals::signalDevStatusPush);
    QSignalSpy abnormal(ClientSignals::instance(), &ClientSignals::signalDgwAbnormal);
    const QStringList arguments = starts[0].first;

    for (int loss = 1; loss <= 4; ++loss) {
        ::kill(pid_t(starts.last().second), SIGKILL);
        // Offline for every device of the lost gateway, then a new process under the same
        // names, initialised and handed its devices again.
        ASSERT_TRUE(vms_test::waitFor([&] { return starts.size() == 1 + loss; }, 10000)) << loss;
        EXPECT_EQ(starts.last().first, arguments);
        ASSERT_TRUE(
            vms_test::waitFor([&] { return pushedOnline[0].size() == 3 * (loss + 1); }, 10000))
            << loss;
        EXPECT_EQ(statuses.count(), 3 * loss);
        for (const auto& args : std::as_const(statuses))
            EXPECT_EQ(args[1].value<DevStatus>(), DevStatusOffline);
        // Let the retry counter see the new connection before the next loss.
        ASSERT_TRUE(vms_test::waitFor(
            [&] {
                int connected = 0;
                for (const QString& line : vms_test::readLines(logPath))
                    connected += line.endsWith(QStringLiteral("socket state:3")) ? 1 : 0;
                return connected == loss + 1;
            },
            5000));
    }
    ::kill(pid_t(starts.last().second), SIGKILL);
    ASSERT_TRUE(vms_test::waitFor([&] {
        return !abnormal.isEmpty() &&
               abnormal.last()[0].value<DgwAbnormal>() == DgwAbnormalDisconnected;
    }));
    EXPECT_FALSE(vms_test::waitFor([&] { return starts.size() > 5; }, 300));
    EXPECT_EQ(statuses.count(), 12); // the fifth loss pushes nothing
}

TEST_F(GatewayProcessTest, RefusedInitialisationAndAMissingProgramAreReported)
{
    QSignalSpy abnormal(ClientSignals::instance(), &ClientSignals::signalDgwAbnormal);
    QSignalSpy success(ClientSignals::instance(), &ClientSignals::signalPrepareStartDgwSuccess);
    prepare_start_dgw_req(InitDgwCondition{}, QStringLiteral("/nonexistent/vms_dgw"), 1);
    ASSERT_EQ(abnormal.count(), 1);
    EXPECT_EQ(abnormal[0][0].value<DgwAbnormal>(), DgwAbnormalStartFailed);

    useConfig(R"({"idleExitMs": 10000, "faults": {"refuseInit": {"code": 9, "message": "no"}}})");
    prepare_start_dgw_req(InitDgwCondition{}, QStringLiteral(VMS_DGW_SIM_PATH), 1);
    ASSERT_TRUE(vms_test::waitFor([&] { return abnormal.count() == 2; }));
    EXPECT_EQ(abnormal[1][0].value<DgwAbnormal>(), DgwAbnormalInitFailed);
    EXPECT_EQ(success.count(), 0);
}

TEST(StartDgwThread, ReportsWhetherTheSystemStartedTheProgram)
{
    // A simulator without clients that goes away at once.
    const QString config = vms_test::tempDir() + QStringLiteral("/idle.json");
    QFile file(config);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"idleExitMs": 1})");
    file.close();
    qputenv("VMS_DGW_SIM_CONFIG", config.toUtf8());
    struct Row
    {
        QString program;
        bool started;
    };
    for (const Row& row : {Row{QStringLiteral(VMS_DGW_SIM_PATH), true},
                           Row{QStringLiteral("/nonexistent/vms_dgw"), false}}) {
        StartDgwThread thread(row.program,
                              {QStringLiteral("vms_dgw.exe_0"), QStringLiteral("start-thread-test"),
                               QStringLiteral("start-thread-test_stream")});
        QSignalSpy result(&thread, &StartDgwThread::signalStartResult);
        thread.start();
        ASSERT_TRUE(result.wait(5000)) << row.program.toStdString();
        EXPECT_EQ(result[0][0].toBool(), row.started) << row.program.toStdString();
        thread.wait();
    }
}

} // namespace

// The whole library, as an application uses it: after release every gateway has exited and
// the release line is the last line of the log.
TEST(GatewayLifecycle, ReleaseStopsEveryGatewayAndLogsNothingAfterwards)
{
    qunsetenv("VMS_DGW_SIM_CONFIG"); // the simulator's own network
    init_vms_client_sdk();
    QSignalSpy success(ClientSignals::instance(), &ClientSignals::signalPrepareStartDgwSuccess);
    prepare_start_dgw_req(InitDgwCondition{}, QStringLiteral(VMS_DGW_SIM_PATH), 150);
    ASSERT_TRUE(vms_test::waitFor([&] { return success.count() == 1; }, 20000));
    set_managed_devs_cmd(devices(150));

    // The gateways are found by their unique server names on their command lines.
    QList<qint64> pids;
    for (const MessageSocket* gateway : MultiDgwMgr::instance()->gateways()) {
        for (const QString& entry : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
            QFile cmdline(QStringLiteral("/proc/%1/cmdline").arg(entry));
            if (cmdline.open(QIODevice::ReadOnly) &&
                cmdline.readAll().contains(gateway->serverName().toUtf8() + '\0'))
                pids.append(entry.toLongLong());
        }
    }
    ASSERT_EQ(pids.size(), 2);

    release_vms_client_sdk();
    EXPECT_TRUE(vms_test::waitFor([&] { return !isRunning(pids[0]) && !isRunning(pids[1]); }));
    QCoreApplication::processEvents();
    const QStringList lines =
        vms_test::readLines(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                            QStringLiteral("/vms.client.log"));
    ASSERT_FALSE(lines.isEmpty());
    EXPECT_TRUE(lines.last().endsWith(QStringLiteral("release vms client sdk")));
}

// A push the simulator is told to send reaches the application as its signal.
TEST(GatewayLifecycle, ScheduledPushesReachTheApplication)
{
    const QString config = vms_test::tempDir() + QStringLiteral("/pushes.json");
    QFile file(config);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"idleExitMs": 10000, "pushes": [
        {"type": "devStatus", "afterMs": 10, "devId": "cam-1", "status": 1},
        {"type": "alarm", "afterMs": 20, "alarmId": "a-1", "alarmType": "motion",
         "channelId": {"devId": "cam-1", "channelIndex": 1}, "alarmName": "Motion"}]})");
    file.close();
    qputenv("VMS_DGW_SIM_CONFIG", config.toUtf8());

    init_vms_client_sdk();
    QSignalSpy status(ClientSignals::instance(), &ClientSignals::signalDevStatusPush);
    QSignalSpy alarm(ClientSignals::instance(), &ClientSignals::signalCommonAlarmPush);
    prepare_start_dgw_req(InitDgwCondition{}, QStringLiteral(VMS_DGW_SIM_PATH), 1);
    ASSERT_TRUE(
        vms_test::waitFor([&] { return status.count() == 1 && alarm.count() == 1; }, 20000));
    EXPECT_EQ(status[0][0].toString(), "cam-1");
    EXPECT_EQ(status[0][1].value<DevStatus>(), DevStatusOffline);
    const auto pushed = alarm[0][0].value<AlarmInfo>();
    EXPECT_EQ(pushed.alarmId, "a-1");
    EXPECT_EQ(pushed.alarmType, "motion");
    EXPECT_EQ(pushed.channelId.channelIndex, 1u);
    release_vms_client_sdk();
}
