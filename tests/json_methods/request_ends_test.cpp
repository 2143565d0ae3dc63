// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Every request of the public interface, made against the simulator, ends exactly once on a
// ClientSignals signal: its own, a failure or a time-out.
#include "support/request_answer_map.h"
#include "support/signal_recorder.h"
#include "support/sim_gateways.h"
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_sdk/request/message_hamal.h"
#include "vms_sdk/request/request_mgr.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace vms_sdk;

namespace {

class RequestEndsTest : public ::testing::Test
{
protected:
    // The simulator, three devices managed. A request nobody answers ending on its time-out
    // is in the fault injection tests.
    void start()
    {
        const QList<DevInfo> devs{DevInfo{.id = QStringLiteral("cam-1")},
                                  DevInfo{.id = QStringLiteral("cam-2")},
                                  DevInfo{.id = QStringLiteral("nvr-1")}};
        gateways.start(QStringLiteral(VMS_DGW_SIM_PATH), R"({"idleExitMs": 10000})", devs, [] {
            // Short enough that a request nobody answers ends within the test.
            MessageHamal::instance()->requestMgr()->setTimeoutInterval(3000);
        });
    }
    void TearDown() override
    {
        MessageHamal::instance()->requestMgr()->setTimeoutInterval(RequestMgr::DefaultTimeoutMs);
        gateways.stop();
    }

    vms_test::SimGateways gateways;
};

TEST_F(RequestEndsTest, EveryRequestEndsExactlyOnceOnItsSignal)
{
    start();
    vms_test::SignalRecorder recorder;
    const ChannelId cam1{.devId = QStringLiteral("cam-1"), .channelIndex = 1};
    const QList<vms_test::RequestAnswer> map = vms_test::requestAnswerMap();
    for (int i = 0; i < map.size(); ++i)
        map[i].call(QStringLiteral("ends-%1").arg(i), cam1);

    for (int i = 0; i < map.size(); ++i) {
        const vms_test::RequestAnswer& row = map[i];
        SCOPED_TRACE(row.function);
        const QString id = QStringLiteral("ends-%1").arg(i);
        ASSERT_TRUE(vms_test::waitFor([&] { return !recorder.endingsOf(id).isEmpty(); }, 10000));
        // Nothing left that could end it a second time: no deadline is running...
        EXPECT_TRUE(MessageHamal::instance()->requestMgr()->kinds(id).isEmpty());
    }
    // ... and the gateway, which answers in order, has nothing more for them.
    QSignalSpy last(ClientSignals::instance(), &ClientSignals::signalGetDevNetRes);
    get_dev_net_req({.requestId = QStringLiteral("last"), .devId = QStringLiteral("cam-1")});
    ASSERT_TRUE(last.wait(10000));

    for (int i = 0; i < map.size(); ++i) {
        const vms_test::RequestAnswer& row = map[i];
        SCOPED_TRACE(row.function);
        EXPECT_EQ(recorder.endingsOf(QStringLiteral("ends-%1").arg(i)),
                  QStringList{QString::fromLatin1(row.endsOn.name())});
    }
}

} // namespace
