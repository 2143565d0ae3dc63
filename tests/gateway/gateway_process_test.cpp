// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The gateway manager against real gateway processes: the simulator, started exactly as the
// library starts a gateway. Losses and refusals of real processes are in the fault injection
// tests, the manager's own rules against fake gateways in multi_dgw_mgr_test.
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_sdk/gateway/multi_dgw_mgr.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QStandardPaths>

#include <gtest/gtest.h>

using namespace vms_sdk;

namespace {

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

// The system's refusal to start the program, through the thread that asks it.
TEST(GatewayLifecycle, AMissingProgramIsAStartFailure)
{
    init_vms_client_sdk();
    QSignalSpy abnormal(ClientSignals::instance(), &ClientSignals::signalDgwAbnormal);
    prepare_start_dgw_req(InitDgwCondition{}, QStringLiteral("/nonexistent/vms_dgw"), 1);
    ASSERT_EQ(abnormal.count(), 1);
    EXPECT_EQ(abnormal[0][0].value<DgwAbnormal>(), DgwAbnormalStartFailed);
    release_vms_client_sdk();
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
