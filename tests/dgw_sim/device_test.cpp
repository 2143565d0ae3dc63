// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// Managed devices and their logins, the search, channel queries and scheduled pushes.
#include "domain_support.h"

#include "vms_protocol/message_type.h"

#include <QFile>

#include <iostream>
#include <string>
#include <vector>

using namespace vms_sdk;
using namespace vms_test;

namespace {

// Two cameras that log in, one that needs a password, one unplugged, and a recorder.
const QByteArray network = R"({"devices": [
  {"id": "cam-1", "name": "Gate", "sn": "SN-CAM-1", "ip": "10.0.0.11", "port": 8001,
   "version": "V1.2.3", "seriesName": "B2", "devCode": "B2-4MP", "devType": 1,
   "abilities": [{"id": 4, "package": "face", "name": "Face detection", "version": 2,
                  "state": 1, "enabled": true}]},
  {"id": "cam-2", "name": "Yard", "sn": "SN-CAM-2", "ip": "10.0.0.12", "password": "s3cret"},
  {"id": "cam-3", "name": "Attic", "sn": "SN-CAM-3", "ip": "10.0.0.13", "online": false},
  {"id": "nvr-1", "name": "Recorder", "sn": "SN-NVR-1", "ip": "10.0.0.20", "devType": 2,
   "channels": [{"index": 1, "osd": "Door", "ip": "10.0.1.1"},
                {"index": 2, "osd": "Hall", "online": false,
                 "abilities": [{"id": 9, "name": "Counting"}]}]}
]})";

vms_sdk_proto::DevInfo managed(const std::string& id, const std::string& ip = {},
                               const std::string& password = {}, const std::string& sn = {})
{
    vms_sdk_proto::DevInfo device;
    device.set_id(id);
    device.set_ip(ip);
    device.set_password(password);
    device.set_sn(sn);
    return device;
}

// The frames caused by what was sent so far: a search answer follows everything before it.
QList<Frame> framesCausedSoFar(SimProcess& sim)
{
    sim.send(SearchDevsCmd, QByteArray());
    QList<Frame> frames = sim.takeUntil(SearchedDevsPush);
    if (!frames.isEmpty())
        frames.removeLast();
    return frames;
}

struct Login
{
    std::string devId;
    int status;
    std::string sn; // of the information push; empty: no information expected
};

void expectLogins(const QList<Frame>& frames, const std::vector<Login>& expected, const char* row)
{
    int next = 0;
    for (const Login& login : expected) {
        ASSERT_LT(next, frames.size()) << row << ": missing the status of " << login.devId;
        ASSERT_EQ(frames.at(next).type, DevStatusPush) << row;
        const auto status = parsedAs<vms_sdk_proto::DevStatusPush>(frames.at(next++).payload);
        EXPECT_EQ(status.dev_id(), login.devId) << row;
        EXPECT_EQ(status.status(), login.status) << row << " " << login.devId;
        if (login.sn.empty())
            continue;
        ASSERT_LT(next, frames.size()) << row << ": missing the information of " << login.devId;
        ASSERT_EQ(frames.at(next).type, DevInfoPush) << row;
        const auto info = parsedAs<vms_sdk_proto::DevInfoFromDgw>(frames.at(next++).payload);
        EXPECT_EQ(info.id(), login.devId) << row;
        EXPECT_EQ(info.sn(), login.sn) << row;
    }
    EXPECT_EQ(next, frames.size()) << row << ": more frames than expected";
}

std::vector<std::string> idsOf(const vms_sdk_proto::SearchedDevsPush& push)
{
    std::vector<std::string> ids;
    for (const auto& device : push.devs())
        ids.push_back(device.id());
    return ids;
}

class Devices : public SimTest
{};

} // namespace

TEST_F(Devices, ManagingADeviceReportsItsLogin)
{
    struct Row
    {
        const char* name;
        QByteArray config;
        int command;
        std::vector<vms_sdk_proto::DevInfo> devices;
        std::vector<Login> expected;
    };
    const Row rows[] = {
        {"set with simulated ids",
         network,
         SetManagedDevsCmd,
         {managed("cam-1"), managed("nvr-1")},
         {{"cam-1", 0, "SN-CAM-1"}, {"nvr-1", 0, "SN-NVR-1"}}},
        {"added under an id of the application, found by ip",
         network,
         AddManagedDevsCmd,
         {managed("app-7", "10.0.0.11")},
         {{"app-7", 0, "SN-CAM-1"}}},
        {"nothing simulated behind it",
         network,
         AddManagedDevsCmd,
         {managed("app-8", "10.9.9.9", "", "OWN-SN")},
         {{"app-8", 0, "OWN-SN"}}},
        {"nothing simulated behind it, unknown devices offline",
         withKeys(network, R"(, "unknownDevices": "offline")"),
         AddManagedDevsCmd,
         {managed("app-8", "10.9.9.9")},
         {{"app-8", 1, ""}}},
        {"wrong password",
         network,
         SetManagedDevsCmd,
         {managed("cam-2", "", "guess")},
         {{"cam-2", 1, ""}}},
        {"right password",
         network,
         SetManagedDevsCmd,
         {managed("cam-2", "", "s3cret")},
         {{"cam-2", 0, "SN-CAM-2"}}},
        {"unplugged", network, SetManagedDevsCmd, {managed("cam-3")}, {{"cam-3", 1, ""}}},
        {"edit of a device not managed here", network, EditManagedDevsCmd, {managed("cam-1")}, {}},
    };
    for (const Row& row : rows) {
        SimProcess sim(row.config);
        ASSERT_TRUE(sim.start());
        ASSERT_TRUE(sim.initialise()) << row.name;
        vms_sdk_proto::SetManagedDevsCmd command; // same shape as add and edit
        for (const auto& device : row.devices)
            *command.add_devs() = device;
        sim.send(row.command, command);
        expectLogins(framesCausedSoFar(sim), row.expected, row.name);
        if (HasFailure())
            std::cerr << row.name << ":\n" << sim.log().toStdString();
    }
}

TEST_F(Devices, DeleteEditAndSetChangeTheManagedSet)
{
    SimProcess& sim = startSim(network);
    ASSERT_TRUE(sim.initialise());
    vms_sdk_proto::SetManagedDevsCmd set;
    *set.add_devs() = managed("cam-1");
    *set.add_devs() = managed("cam-2", "", "s3cret");
    sim.send(SetManagedDevsCmd, set);
    expectLogins(framesCausedSoFar(sim), {{"cam-1", 0, "SN-CAM-1"}, {"cam-2", 0, "SN-CAM-2"}},
                 "set");

    vms_sdk_proto::DevList remove;
    remove.add_devs_id("cam-2");
    sim.send(DelManagedDevsCmd, remove);
    vms_sdk_proto::EditManagedDevsCmd edit;
    *edit.add_devs() = managed("cam-2", "", "s3cret");
    *edit.add_devs() = managed("cam-1", "10.0.0.11");
    sim.send(EditManagedDevsCmd, edit);
    expectLogins(framesCausedSoFar(sim), {{"cam-1", 0, "SN-CAM-1"}}, "delete and edit");

    // An edit that breaks the login is reported as such.
    vms_sdk_proto::SetManagedDevsCmd setAgain;
    *setAgain.add_devs() = managed("cam-2", "", "s3cret");
    sim.send(SetManagedDevsCmd, setAgain);
    vms_sdk_proto::EditManagedDevsCmd wrongPassword;
    *wrongPassword.add_devs() = managed("cam-2", "", "changed");
    *wrongPassword.add_devs() = managed("cam-1");
    sim.send(EditManagedDevsCmd, wrongPassword);
    expectLogins(framesCausedSoFar(sim), {{"cam-2", 0, "SN-CAM-2"}, {"cam-2", 1, ""}},
                 "set replaces, edit logs in again");
}

TEST_F(Devices, TheSearchRangeLimitsTheSearchButNotTheBroadcast)
{
    struct Row
    {
        const char* begin;
        const char* end;
        std::vector<std::string> found;
    };
    const std::vector<std::string> all = {"cam-1", "cam-2", "nvr-1"};
    const Row rows[] = {
        {"10.0.0.11", "10.0.0.12", {"cam-1", "cam-2"}},
        {"10.0.0.12", "10.0.0.255", {"cam-2", "nvr-1"}},
        {"10.0.0.20", "10.0.0.11", {}},
        {"not an address", "10.0.0.12", all},
        {"", "", all},
    };
    SimProcess& sim = startSim(network);
    ASSERT_TRUE(sim.initialise());
    for (const Row& row : rows) {
        vms_sdk_proto::SetSearchDevsConfigCmd config;
        config.set_begin_ip(row.begin);
        config.set_end_ip(row.end);
        sim.send(SetSearchDevsConfigCmd, config);
        sim.send(SearchDevsCmd, QByteArray());
        sim.send(BroadcastSearchDevsCmd, QByteArray());
        EXPECT_EQ(idsOf(sim.take<vms_sdk_proto::SearchedDevsPush>(SearchedDevsPush)), row.found)
            << row.begin << " - " << row.end;
        EXPECT_EQ(idsOf(sim.take<vms_sdk_proto::SearchedDevsPush>(BroadcastSearchedDevsPush)), all);
    }
}

TEST_F(Devices, ChannelQueriesNameTheDeviceInPlainText)
{
    struct Channel
    {
        unsigned index;
        std::string osd;
        int status;
        size_t abilities;
    };
    struct Row
    {
        const char* devId;
        std::vector<Channel> channels;
    };
    const Row rows[] = {
        {"nvr-1", {{1, "Door", 0, 0}, {2, "Hall", 1, 1}}},
        {"app-9", {{1, "Door", 0, 0}, {2, "Hall", 1, 1}}}, // managed here, the recorder by ip
        {"cam-1", {{1, "Gate", 0, 1}}},
        {"cam-3", {{1, "Attic", 1, 0}}},
        {"ghost", {}},
    };
    SimProcess& sim = startSim(network);
    ASSERT_TRUE(sim.initialise());
    vms_sdk_proto::SetManagedDevsCmd set;
    *set.add_devs() = managed("app-9", "10.0.0.20");
    sim.send(SetManagedDevsCmd, set);
    framesCausedSoFar(sim);

    for (const Row& row : rows) {
        sim.send(GetDevChannelsInfoCmd, QByteArray(row.devId));
        const auto push = sim.take<vms_sdk_proto::DevChannelsInfoPush>(DevChannelsInfoPush);
        EXPECT_EQ(push.dev_id(), row.devId);
        ASSERT_EQ(size_t(push.channels_size()), row.channels.size()) << row.devId;
        for (size_t i = 0; i < row.channels.size(); ++i) {
            const vms_sdk_proto::DevChannInfo& channel = push.channels(int(i));
            EXPECT_EQ(channel.channel_id().dev_id(), row.devId);
            EXPECT_EQ(channel.channel_id().channel_index(), row.channels[i].index) << row.devId;
            EXPECT_EQ(channel.osd(), row.channels[i].osd) << row.devId;
            EXPECT_EQ(channel.attr_4(), row.channels[i].status) << row.devId << " " << i;
            EXPECT_EQ(channel.ability_details().size(), row.channels[i].abilities) << row.devId;
        }
    }
}

// The kinds whose config differs most from the message: a list of devices, a push made from
// a device, and base64 bytes, nested channel ids and attachment lists in an alarm.
TEST_F(Devices, PushesAreBuiltFromTheirConfigEntries)
{
    SimProcess& sim = startSim(withKeys(network, R"(, "pushes": [
        {"type": "searchedDevs", "devIds": ["nvr-1"]},
        {"type": "devInfo", "devId": "cam-1"},
        {"type": "alarm", "alarmId": "A-1", "channelId": {"devId": "nvr-1", "channelIndex": 2},
         "triggerChannelId": {"devId": "nvr-1", "channelIndex": 1}, "triggerName": "Door",
         "alarmTime": "2024-03-01 08:00:01", "attachments": ["AQI=", "Aw=="],
         "alarmType": "motion", "attr8": 1, "alarmName": "Motion", "attr10": "e30="}])"));
    ASSERT_TRUE(sim.initialise());
    // Everything is due at once and goes out in config order.
    EXPECT_EQ(idsOf(sim.take<vms_sdk_proto::SearchedDevsPush>(SearchedDevsPush)),
              std::vector<std::string>{"nvr-1"});
    const auto info = sim.take<vms_sdk_proto::DevInfoFromDgw>(DevInfoPush);
    EXPECT_EQ(info.sn(), "SN-CAM-1");
    EXPECT_EQ(info.series_name(), "B2");
    EXPECT_EQ(info.attr_5(), 8001u); // port
    ASSERT_EQ(info.ability_details().size(), 1u);
    EXPECT_EQ(info.ability_details().at(4).name(), "Face detection");

    vms_sdk_proto::AlarmInfo alarm;
    alarm.set_alarm_id("A-1");
    *alarm.mutable_channel_id() = channelOf("nvr-1", 2);
    *alarm.mutable_trigger_channel_id() = channelOf("nvr-1", 1);
    alarm.set_trigger_name("Door");
    alarm.set_alarm_time("2024-03-01 08:00:01");
    alarm.add_attachments("\1\2");
    alarm.add_attachments("\3");
    alarm.set_alarm_type("motion");
    alarm.set_attr_8(1);
    alarm.set_alarm_name("Motion");
    alarm.set_attr_10("{}");
    EXPECT_EQ(sim.takePayload(CommonAlarmPush), bytesOf(alarm));
}

TEST_F(Devices, ScheduledPushesStartWithInitAndRepeatInDueOrder)
{
    SimProcess& sim = startSim(withKeys(network, R"(, "pushes": [
        {"type": "uploadUpgradeFileFinished", "devId": "cam-2", "afterMs": 100},
        {"type": "devP2PSuccess", "devId": "cam-1", "everyMs": 10, "count": 3}])"));
    ASSERT_TRUE(sim.connectClient());
    sim.send(ClientHelloCmd, QByteArray());
    EXPECT_TRUE(framesCausedSoFar(sim).isEmpty());

    ASSERT_TRUE(sim.initialise());
    EXPECT_EQ(typesOf(sim.takeUntil(UploadUpgradeFileFinishedPush)),
              (QList<int>{DevP2PSuccessPush, DevP2PSuccessPush, DevP2PSuccessPush,
                          UploadUpgradeFileFinishedPush}));
}

// More than the gateway keeps queued, so the flood only ends if the client's reading brings the
// gateway back for the rest.
TEST_F(Devices, AFloodSendsExactlyItsCountAsTheClientReadsAndLogsNoMessageLines)
{
    constexpr int count = 60000;
    SimProcess& sim = startSim(withKeys(network, R"(, "messageLog": false, "pushes": [
        {"type": "devStatus", "devId": "cam-1", "flood": true, "count": 60000,
         "variants": [{"status": 0}, {"status": 1}]}])"));
    ASSERT_TRUE(sim.initialise());
    sim.send(GetDevChannelsInfoCmd, QByteArray("cam-1"));

    QList<int> statuses;
    while (statuses.size() < count) {
        const QList<vms_sdk::Frame> frames = sim.takeUntil(DevStatusPush);
        ASSERT_FALSE(frames.isEmpty()) << statuses.size() << " pushes came";
        for (const vms_sdk::Frame& frame : frames) {
            if (frame.type == DevStatusPush)
                statuses.append(parsedAs<vms_sdk_proto::DevStatusPush>(frame.payload).status());
        }
    }
    for (int i = 0; i < count; ++i)
        ASSERT_EQ(statuses.at(i), i % 2) << "push " << i;
    sim.send(GetDevChannelsInfoCmd, QByteArray("cam-1"));
    EXPECT_EQ(typesOf(sim.takeUntil(DevChannelsInfoPush)), QList<int>{DevChannelsInfoPush});

    const QString log = sim.log();
    EXPECT_TRUE(log.contains(QStringLiteral("flood finished after 60000 pushes")))
        << log.toStdString();
    EXPECT_FALSE(log.contains(QStringLiteral("<- "))) << log.toStdString();
    EXPECT_FALSE(log.contains(QStringLiteral("-> "))) << log.toStdString();
}

TEST_F(Devices, WithoutAConfigTheBuiltInNetworkIsThere)
{
    SimProcess& sim = startSim();
    ASSERT_TRUE(sim.initialise());
    sim.send(SearchDevsCmd, QByteArray());
    EXPECT_EQ(idsOf(sim.take<vms_sdk_proto::SearchedDevsPush>(SearchedDevsPush)),
              (std::vector<std::string>{"cam-1", "cam-2", "nvr-1"}));
    sim.send(GetDevChannelsInfoCmd, QByteArray("nvr-1"));
    EXPECT_EQ(sim.take<vms_sdk_proto::DevChannelsInfoPush>(DevChannelsInfoPush).channels_size(), 4);
}

TEST_F(Devices, TheExampleConfigRuns)
{
    QFile example(QStringLiteral(VMS_DGW_SIM_EXAMPLE));
    ASSERT_TRUE(example.open(QIODevice::ReadOnly));
    SimProcess& sim = startSim(example.readAll());
    ASSERT_TRUE(sim.initialise());
    sim.send(BroadcastSearchDevsCmd, QByteArray());
    EXPECT_EQ(idsOf(sim.take<vms_sdk_proto::SearchedDevsPush>(BroadcastSearchedDevsPush)),
              (std::vector<std::string>{"front-door", "warehouse"}));
}
