// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The gateway manager against real processes: a program the system cannot start, and
// simulator gateways at release. Losses and refusals of real processes are in the fault
// injection tests, the manager's own rules against fake gateways in multi_dgw_mgr_test.
#include "support/sim_gateways.h"
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_sdk/gateway/multi_dgw_mgr.h"

#include <QFile>
#include <QSignalSpy>

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
    QSignalSpy success(ClientSignals::instance(), &ClientSignals::signalPrepareStartDgwSuccess);
    prepare_start_dgw_req(InitDgwCondition{}, QStringLiteral("/nonexistent/vms_dgw"), 300);
    // The first failure ends the starting: one report, no gateway.
    ASSERT_EQ(abnormal.count(), 1);
    EXPECT_EQ(abnormal[0][0].value<DgwAbnormal>(), DgwAbnormalStartFailed);
    EXPECT_TRUE(MultiDgwMgr::instance()->gateways().isEmpty());
    EXPECT_EQ(success.count(), 0);
    release_vms_client_sdk();
}

} // namespace

// After release every gateway process has exited, and none is reported abnormal.
TEST(GatewayLifecycle, ReleaseStopsEveryGatewayProcessWithoutAnAbnormalEnd)
{
    vms_test::SimGateways gateways;
    gateways.start(QStringLiteral(VMS_DGW_SIM_PATH), R"({"idleExitMs": 10000})", devices(150));
    const QList<qint64>& pids = gateways.pids;
    ASSERT_EQ(pids.size(), 2);

    QSignalSpy abnormal(ClientSignals::instance(), &ClientSignals::signalDgwAbnormal);
    release_vms_client_sdk();
    EXPECT_TRUE(vms_test::waitFor([&] { return !isRunning(pids[0]) && !isRunning(pids[1]); }));
    // They exited because they were told to: that is no abnormal end.
    EXPECT_FALSE(vms_test::waitFor([&] { return !abnormal.isEmpty(); }, 300));
    gateways.stop();
}
