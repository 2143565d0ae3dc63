// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "domain_support.h"

#include "support/test_support.h"

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

#include <gtest/gtest.h>

using namespace vms_sdk;
using namespace vms_test;

namespace {

class Gateway : public SimTest
{};

} // namespace

TEST_F(Gateway, RefusesInitWithTheConfiguredCodeAndSendsNoScheduledPushes)
{
    SimProcess& sim = startSim(R"({
        "faults": {"refuseInit": {"code": 7, "message": "account locked"}},
        "pushes": [{"type": "devStatus", "devId": "cam-1", "status": 1}]})");
    ASSERT_TRUE(sim.connectClient());
    vms_sdk_proto::InitDgwReq init;
    init.set_request_id("{refused}");
    sim.send(InitDgwReq, init);
    const auto answer = sim.take<vms_sdk_proto::Response>(InitDgwRes);
    EXPECT_EQ(answer.request_id(), "{refused}");
    EXPECT_EQ(answer.error().code(), 7);
    EXPECT_EQ(answer.error().err_msg(), "account locked");

    // A push due at once would have been written before the search result.
    sim.send(SearchDevsCmd, QByteArray());
    EXPECT_EQ(typesOf(sim.takeUntil(SearchedDevsPush)), QList<int>{SearchedDevsPush});
}

TEST_F(Gateway, DropsAClientWhoseFrameItCannotReadAndServesTheNext)
{
    struct Row
    {
        const char* name;
        QByteArray header;
        const char* logged;
    };
    const Row rows[] = {
        {"4 GiB payload",
         QByteArray("\0\0\0\0\xff\xff\xff\xff"
                    "\x14"
                    "\xff\xff\xff\xfe",
                    13),
         "bad frame, payload size 4294967294 over the limit 67108864; client dropped"},
        {"length not the payload size + 1",
         QByteArray("\0\0\0\0\0\0\0\x09"
                    "\x14"
                    "\0\0\0\x02"
                    "ab",
                    15),
         "bad frame, length 9 does not match payload size 2; client dropped"},
    };
    SimProcess& sim = startSim();
    for (const Row& row : rows) {
        ASSERT_TRUE(sim.connectClient()) << row.name;
        sim.socket().write(row.header + FrameCodec::encode(InitDgwReq, QByteArray()));
        sim.socket().flush();
        ASSERT_TRUE(sim.waitForDisconnected()) << row.name;
        EXPECT_TRUE(sim.log().contains(QLatin1String(row.logged))) << row.name;
        EXPECT_FALSE(sim.log().contains(QLatin1String("<- "))) << row.name; // nothing was read
        sim.disconnectClient();
    }
    ASSERT_TRUE(sim.connectClient());
    EXPECT_TRUE(sim.initialise());
}

TEST_F(Gateway, ExitsWhenLeftWithoutClientsIfConfiguredTo)
{
    SimProcess& sim = startSim(R"({"idleExitMs": 50})");
    ASSERT_TRUE(sim.initialise());
    sim.disconnectClient();
    ASSERT_TRUE(sim.waitForExit());
    EXPECT_EQ(sim.process().exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(sim.process().exitCode(), 0);
    EXPECT_TRUE(sim.log().contains(QLatin1String("client 0: disconnected")));
}

TEST_F(Gateway, RejectsBadArgumentsWithUsage)
{
    const QList<QStringList> rows = {
        {},
        {QStringLiteral("vms_dgw.exe_0"), QStringLiteral("s"), QStringLiteral("s_stream"),
         QStringLiteral("extra")},
        {QStringLiteral("vms_dgw.exe_0"), QString(), QStringLiteral("s_stream")},
    };
    for (const QStringList& arguments : rows) {
        SimProcess sim;
        ASSERT_TRUE(sim.start(arguments));
        ASSERT_TRUE(sim.waitForExit());
        EXPECT_EQ(sim.process().exitStatus(), QProcess::NormalExit)
            << arguments.join(' ').toStdString();
        EXPECT_NE(sim.process().exitCode(), 0) << arguments.join(' ').toStdString();
        EXPECT_TRUE(sim.log().contains(QLatin1String("usage: vms_dgw_sim <processName>")))
            << sim.log().toStdString();
    }
}

TEST_F(Gateway, RejectsBadConfigFilesSayingWhatIsWrong)
{
    struct Row
    {
        const char* name;
        QByteArray config;
        const char* message;
    };
    const Row rows[] = {
        {"not JSON", "{\"devices\": [", "is not valid JSON"},
        {"not an object", "[]", "the top level must be a JSON object"},
        {"device without id", R"({"devices": [{"ip": "10.0.0.1"}]})", "devices[0].id: missing"},
        {"port of the wrong type", R"({"devices": [{"id": "a", "port": "80"}]})",
         "devices[0].port: expected an integer"},
        {"duplicate device", R"({"devices": [{"id": "a"}, {"id": "a"}]})",
         "devices[1].id: \"a\" appears twice"},
        {"misspelt key", R"({"pushes": [{"type": "alarm", "everyMS": 10}]})",
         "pushes[0].everyMS: unknown key"},
        {"unknown push", R"({"pushes": [{"type": "alrm"}]})",
         "pushes[0].type: unknown push \"alrm\""},
        {"push for a missing device", R"({"pushes": [{"type": "devInfo", "devId": "nope"}]})",
         "pushes[0].devId: no device \"nope\""},
        {"bad base64", R"({"pushes": [{"type": "tlv", "devId": "cam-1", "tlvData": "%%"}]})",
         "pushes[0].tlvData: expected base64 text"},
        {"unknown device state", R"({"unknownDevices": "maybe"})",
         "unknownDevices: expected online or offline"},
        {"recordings since a non-date",
         R"({"devices": [{"id": "a", "recordingsSince": "3/3/24"}]})",
         "devices[0].recordingsSince: expected yyyy-MM-dd"},
        {"push variant with an unknown key",
         R"({"pushes": [{"type": "alarm", "everyMs": 5, "variants": [{}, {"alarmKind": 1}]}]})",
         "pushes[0] (variant 1).alarmKind: unknown key"},
        {"flood on a schedule",
         R"({"pushes": [{"type": "devStatus", "devId": "a", "flood": true, "everyMs": 5}]})",
         "pushes[0].flood: takes no afterMs or everyMs"},
        {"preset twice",
         R"({"devices": [{"id": "a", "channels": [{"presets": [{"number": 1}, {"number": 1}]}]}]})",
         "devices[0].channels[0].presets[1].number: 1 appears twice"},
        {"patrol at a missing preset",
         R"({"devices": [{"id": "a", "channels": [{"patrols": [{"stops": [{"preset": 4}]}]}]}]})",
         "devices[0].channels[0].patrols[0].stops[0].preset: 4 is not a preset of the channel"},
        {"recordings of no length", R"({"devices": [{"id": "a", "recordingMinutes": 0}]})",
         "devices[0].recordingMinutes: 0 is outside 1..1440"},
        {"unknown video", R"({"streams": {"video": "mjpeg"}})",
         "streams.video: unknown video \"mjpeg\" (known: h264, synthetic)"},
        {"odd picture height", R"({"streams": {"height": 241}})", "streams.height: must be even"},
        {"picture too narrow", R"({"streams": {"width": 32}})",
         "streams.width: 32 is outside 64..3840"},
    };
    for (const Row& row : rows) {
        SimProcess sim(row.config);
        ASSERT_TRUE(sim.start());
        ASSERT_TRUE(sim.waitForExit()) << row.name;
        EXPECT_NE(sim.process().exitCode(), 0) << row.name;
        EXPECT_TRUE(sim.log().contains(QLatin1String(row.message)))
            << row.name << ": " << sim.log().toStdString();
    }
}

TEST_F(Gateway, RejectsAConfigFileThatDoesNotExist)
{
    SimProcess sim;
    QProcessEnvironment environment = sim.process().processEnvironment();
    environment.insert(QStringLiteral("VMS_DGW_SIM_CONFIG"),
                       vms_test::tempDir() + QStringLiteral("/missing.json"));
    sim.process().setProcessEnvironment(environment);
    ASSERT_TRUE(sim.start());
    ASSERT_TRUE(sim.waitForExit());
    EXPECT_NE(sim.process().exitCode(), 0);
    EXPECT_TRUE(sim.log().contains(QLatin1String("cannot read config file")))
        << sim.log().toStdString();
}

TEST_F(Gateway, ClosesTheConnectionAfterTheConfiguredMessageAndStaysUp)
{
    // Hello, init and the search: the third message is answered, then the line goes down.
    SimProcess& sim = startSim(R"({"faults": {"closeAfterMessages": 3}})");
    ASSERT_TRUE(sim.initialise());
    sim.send(SearchDevsCmd, QByteArray());
    EXPECT_EQ(typesOf(sim.takeUntil(SearchedDevsPush)), QList<int>{SearchedDevsPush});
    ASSERT_TRUE(sim.waitForDisconnected());

    ASSERT_TRUE(sim.connectClient());
    EXPECT_TRUE(sim.initialise("{after-close}"));
}

TEST_F(Gateway, CrashesAfterTheConfiguredMessage)
{
    SimProcess& sim = startSim(R"({"faults": {"crashAfterMessages": 2}})");
    ASSERT_TRUE(sim.connectClient());
    sim.send(ClientHelloCmd, QByteArray());
    vms_sdk_proto::InitDgwReq init;
    init.set_request_id("{crash}");
    sim.send(InitDgwReq, init);
    ASSERT_TRUE(sim.waitForExit());
    EXPECT_EQ(sim.process().exitStatus(), QProcess::CrashExit);
    EXPECT_TRUE(sim.waitForDisconnected());
}
