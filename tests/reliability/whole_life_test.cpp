// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// A whole life of the library as an application lives it: init, 32 gateways, managed devices,
// requests, streams, release. The sanitizer build runs it under LeakSanitizer, which checks at
// exit that nothing the life allocated is left unreachable.
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include <QSet>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace vms_sdk;

TEST(WholeLife, InitGatewaysRequestsStreamsRelease)
{
    qunsetenv("VMS_DGW_SIM_CONFIG"); // the simulator's own network behind every gateway
    init_vms_client_sdk();
    auto* out = ClientSignals::instance();
    QSignalSpy ready(out, &ClientSignals::signalPrepareStartDgwSuccess);
    QSignalSpy status(out, &ClientSignals::signalDevStatusPush);
    prepare_start_dgw_req(InitDgwCondition{}, QStringLiteral(VMS_DGW_SIM_PATH), 3200);
    ASSERT_TRUE(vms_test::waitFor([&] { return ready.count() == 1; }, 60000));

    QList<DevInfo> devs{DevInfo{.id = QStringLiteral("cam-1")}};
    for (int i = 1; i < 3200; ++i)
        devs.append(DevInfo{.id = QStringLiteral("dev-%1").arg(i, 4, 10, QLatin1Char('0'))});
    set_managed_devs_cmd(devs);
    ASSERT_TRUE(vms_test::waitFor([&] { return status.count() >= devs.size(); }, 60000));

    QSignalSpy answers(out, &ClientSignals::signalGetDevNetRes);
    for (int i = 0; i < 320; ++i)
        get_dev_net_req({.requestId = QString::number(i), .devId = devs[i * 10].id});
    ASSERT_TRUE(vms_test::waitFor([&] { return answers.count() == 320; }, 60000));

    QSignalSpy data(out, &ClientSignals::signalStreamData);
    const ChannelId cam1{.devId = QStringLiteral("cam-1"), .channelIndex = 1};
    const StreamId live = connect_live_video_req({.channelId = cam1});
    const StreamId playback =
        playback_by_file_req({.channelId = cam1, .fileName = QStringLiteral("ch01.mp4")});
    ASSERT_TRUE(vms_test::waitFor([&] {
        QSet<StreamId> seen;
        for (const QVariantList& args : data)
            seen.insert(args[0].value<StreamId>());
        return seen.size() == 2;
    }));
    disconnect_stream_req(playback);
    // The live stream is still open at release, as an application that quits leaves it.
    Q_UNUSED(live)
    release_vms_client_sdk();
}
