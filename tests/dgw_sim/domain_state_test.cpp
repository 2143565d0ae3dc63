// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// What the simulated devices keep and generate: sets read back by gets, generated recordings,
// logins after password changes and activation, a reboot that takes time, the errors for what
// is not there, and the malformed-answer fault.

#include "domain_support.h"

#include "support/test_support.h"

#include "vms_protocol/message_type.h"

#include <functional>
#include <string>
#include <vector>

using namespace vms_sdk;
using namespace vms_test;

namespace {

class DomainState : public SimTest
{};

vms_sdk_proto::DevNetGetRes getNet(SimProcess& sim, const char* devId)
{
    vms_sdk_proto::DevNetGetReq request;
    request.set_request_id("{get-net}");
    request.set_dev_id(devId);
    return ask<vms_sdk_proto::DevNetGetRes>(sim, DevNetGetReq, request, DevNetGetRes);
}

// "1 Door, 2 Preset 2": a channel's presets as one comparable text.
std::string presetsOf(SimProcess& sim)
{
    vms_sdk_proto::ChannelReq request;
    *request.mutable_channel_id() = channelOf("cam-1", 1);
    const auto answer = ask<vms_sdk_proto::GetPresetRes>(sim, GetPresetsReq, request, GetPresetRes);
    std::string text;
    for (const auto& preset : answer.presets())
        text += (text.empty() ? "" : ", ") + std::to_string(preset.attr_1()) + " " +
                preset.preset_name();
    return text;
}

// "1 running: 1/7 2/4; 2: 5/0": patrols with their stops (preset/stay time).
std::string patrolsOf(SimProcess& sim)
{
    vms_sdk_proto::ChannelReq request;
    *request.mutable_channel_id() = channelOf("cam-1", 1);
    const auto answer = ask<vms_sdk_proto::GetPatrolRes>(sim, GetPatrolsReq, request, GetPatrolRes);
    std::string text;
    for (const auto& patrol : answer.patrols()) {
        text += (text.empty() ? "" : "; ") + std::to_string(patrol.attr_1()) +
                (patrol.attr_3() == 1 ? " running:" : ":");
        for (const auto& stop : patrol.patrol_presets())
            text +=
                " " + std::to_string(stop.preset().attr_1()) + "/" + std::to_string(stop.attr_2());
    }
    return text;
}

} // namespace

TEST_F(DomainState, NetworkSettingsReadBackAndMoveTheDevice)
{
    SimProcess& sim = startSim(domainNetwork);
    ASSERT_TRUE(sim.initialise());
    // Managed under an id of its own, found by address: the gateway follows the new address.
    vms_sdk_proto::SetManagedDevsCmd managed;
    managed.add_devs()->set_id("app-7");
    managed.mutable_devs(0)->set_ip("10.0.0.12");
    sim.send(SetManagedDevsCmd, managed);
    sim.takeUntil(DevInfoPush);

    vms_sdk_proto::DevNetSetReq set;
    set.set_request_id("{set-net}");
    set.set_dev_id("app-7");
    vms_sdk_proto::DevNetInfo& info = *set.mutable_net_info();
    info.set_ip("10.0.5.9");
    info.set_sub_net_mask("255.255.0.0");
    info.set_default_gateway("10.0.0.254");
    info.set_dns("10.0.0.53");
    info.set_attr_5(true);
    info.set_attr_6(1);
    info.set_attr_7(81);
    info.set_attr_8(2);
    const auto answer = ask<vms_sdk_proto::DevNetSetRes>(sim, DevNetSetReq, set, DevNetSetRes);
    EXPECT_EQ(answer.error().code(), 0);
    EXPECT_EQ(answer.dev_ip(), "10.0.5.9");

    EXPECT_EQ(getNet(sim, "app-7").net_info().SerializeAsString(), info.SerializeAsString());
    EXPECT_EQ(getNet(sim, "cam-2").net_info().ip(), "10.0.5.9");
    sim.send(SearchDevsCmd, QByteArray());
    const auto found = sim.take<vms_sdk_proto::SearchedDevsPush>(SearchedDevsPush);
    ASSERT_EQ(found.devs_size(), 3);
    EXPECT_EQ(found.devs(1).ip(), "10.0.5.9");

    // An address that does not parse changes nothing.
    info.set_ip("ten.zero");
    EXPECT_EQ(ask<vms_sdk_proto::DevNetSetRes>(sim, DevNetSetReq, set, DevNetSetRes).error().code(),
              1006);
    EXPECT_EQ(getNet(sim, "cam-2").net_info().ip(), "10.0.5.9");
}

TEST_F(DomainState, PresetAndPatrolOperationsChangeTheLists)
{
    using Send = std::function<QByteArray()>;
    const auto preset = [](unsigned number, const char* name, int operation) -> Send {
        return [=] {
            vms_sdk_proto::PresetOperReq r;
            *r.mutable_channel_id() = channelOf("cam-1", 1);
            r.set_attr_3(number);
            r.set_preset_name(name);
            r.set_attr_5(operation);
            return bytesOf(r);
        };
    };
    const auto patrol = [](int index, int operation) -> Send {
        return [=] {
            vms_sdk_proto::PatrolOperReq r;
            *r.mutable_channel_id() = channelOf("cam-1", 1);
            r.set_attr_3(index);
            r.set_attr_5(operation);
            return bytesOf(r);
        };
    };
    const auto stop = [](int index, unsigned number, int stay, int operation) -> Send {
        return [=] {
            vms_sdk_proto::PatrolPresetOperReq r;
            *r.mutable_channel_id() = channelOf("cam-1", 1);
            r.set_attr_3(index);
            r.set_attr_4(stay);
            r.set_attr_5(number);
            r.set_attr_6(operation);
            return bytesOf(r);
        };
    };
    const auto stops = [](int index, std::vector<std::pair<unsigned, unsigned>> list) -> Send {
        return [=] {
            vms_sdk_proto::SetPatrolPresetsReq r;
            *r.mutable_channel_id() = channelOf("cam-1", 1);
            r.set_attr_3(index);
            for (const auto& [number, stay] : list) {
                auto* item = r.add_presets();
                item->set_attr_1(number);
                item->set_attr_2(stay);
            }
            return bytesOf(r);
        };
    };
    struct Row
    {
        const char* name;
        int type;
        Send request;
        int answerType;
        qint32 code;
        std::string presets;
        std::string patrols;
    };
    const Row rows[] = {
        {"set a new preset", PresetOperReq, preset(3, "Gate", 0), PresetOperRes, 0,
         "1 Door, 2 Preset 2, 3 Gate, 5 Road", "1: 1/7"},
        {"set renames", PresetOperReq, preset(2, "Yard", 0), PresetOperRes, 0,
         "1 Door, 2 Yard, 3 Gate, 5 Road", "1: 1/7"},
        {"set without a name", PresetOperReq, preset(9, "", 0), PresetOperRes, 0,
         "1 Door, 2 Yard, 3 Gate, 5 Road, 9 Preset 9", "1: 1/7"},
        {"preset 0", PresetOperReq, preset(0, "Zero", 0), PresetOperRes, 1006,
         "1 Door, 2 Yard, 3 Gate, 5 Road, 9 Preset 9", "1: 1/7"},
        {"add a stop", PatrolPresetOperReq, stop(1, 3, 4, 0), PatrolPresetOperRes, 0,
         "1 Door, 2 Yard, 3 Gate, 5 Road, 9 Preset 9", "1: 1/7 3/4"},
        {"add a stop to a new patrol", PatrolPresetOperReq, stop(2, 5, 6, 0), PatrolPresetOperRes,
         0, "1 Door, 2 Yard, 3 Gate, 5 Road, 9 Preset 9", "1: 1/7 3/4; 2: 5/6"},
        {"stop at a missing preset", PatrolPresetOperReq, stop(1, 4, 4, 0), PatrolPresetOperRes,
         1004, "1 Door, 2 Yard, 3 Gate, 5 Road, 9 Preset 9", "1: 1/7 3/4; 2: 5/6"},
        {"modify a stay time", PatrolPresetOperReq, stop(1, 3, 9, 2), PatrolPresetOperRes, 0,
         "1 Door, 2 Yard, 3 Gate, 5 Road, 9 Preset 9", "1: 1/7 3/9; 2: 5/6"},
        {"start", PatrolOperReq, patrol(1, 0), PatrolOperRes, 0,
         "1 Door, 2 Yard, 3 Gate, 5 Road, 9 Preset 9", "1 running: 1/7 3/9; 2: 5/6"},
        {"start another stops the first", PatrolOperReq, patrol(2, 0), PatrolOperRes, 0,
         "1 Door, 2 Yard, 3 Gate, 5 Road, 9 Preset 9", "1: 1/7 3/9; 2 running: 5/6"},
        {"stop", PatrolOperReq, patrol(2, 1), PatrolOperRes, 0,
         "1 Door, 2 Yard, 3 Gate, 5 Road, 9 Preset 9", "1: 1/7 3/9; 2: 5/6"},
        {"replace the stops", SetPatrolPresetsReq, stops(2, {{9, 1}, {2, 2}}), SetPatrolPresetsRes,
         0, "1 Door, 2 Yard, 3 Gate, 5 Road, 9 Preset 9", "1: 1/7 3/9; 2: 9/1 2/2"},
        {"replace with a missing preset changes nothing", SetPatrolPresetsReq, stops(2, {{4, 1}}),
         SetPatrolPresetsRes, 1004, "1 Door, 2 Yard, 3 Gate, 5 Road, 9 Preset 9",
         "1: 1/7 3/9; 2: 9/1 2/2"},
        {"delete a stop", PatrolPresetOperReq, stop(1, 1, 0, 1), PatrolPresetOperRes, 0,
         "1 Door, 2 Yard, 3 Gate, 5 Road, 9 Preset 9", "1: 3/9; 2: 9/1 2/2"},
        {"delete a preset takes it out of the patrols", PresetOperReq, preset(9, "", 2),
         PresetOperRes, 0, "1 Door, 2 Yard, 3 Gate, 5 Road", "1: 3/9; 2: 2/2"},
        {"start a missing patrol", PatrolOperReq, patrol(9, 0), PatrolOperRes, 1004,
         "1 Door, 2 Yard, 3 Gate, 5 Road", "1: 3/9; 2: 2/2"},
        {"delete a patrol", PatrolOperReq, patrol(1, 2), PatrolOperRes, 0,
         "1 Door, 2 Yard, 3 Gate, 5 Road", "2: 2/2"},
        {"replace with no stops", SetPatrolPresetsReq, stops(2, {}), SetPatrolPresetsRes, 0,
         "1 Door, 2 Yard, 3 Gate, 5 Road", "2:"},
    };
    SimProcess& sim = startSim(domainNetwork);
    ASSERT_TRUE(sim.initialise());
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        sim.send(row.type, row.request());
        EXPECT_EQ(parsedAs<vms_sdk_proto::Response>(sim.takePayload(row.answerType)).error().code(),
                  row.code);
        EXPECT_EQ(presetsOf(sim), row.presets);
        EXPECT_EQ(patrolsOf(sim), row.patrols);
    }
    // A patrol with nowhere to go cannot start.
    sim.send(PatrolOperReq, patrol(2, 0)());
    EXPECT_EQ(parsedAs<vms_sdk_proto::Response>(sim.takePayload(PatrolOperRes)).error().code(),
              1006);
}

TEST_F(DomainState, TheFaceLibraryPagesAndChanges)
{
    SimProcess& sim = startSim(domainNetwork);
    ASSERT_TRUE(sim.initialise());
    vms_sdk_proto::AddFaceReq add;
    *add.mutable_channel_id() = channelOf("cam-1", 1);
    add.set_serial_num("F-4");
    add.set_name("Dee");
    add.add_organizations("Acme");
    add.set_attr_6(2);
    add.set_attr_7(28);
    add.set_attr_8(1);
    add.set_face_type("staff");
    add.set_valid_time("2024-01-01 00:00:00");
    add.set_attr_12(std::string("\xff\xd8", 2));
    EXPECT_EQ(ask<vms_sdk_proto::Response>(sim, AddFaceReq, add, AddFaceRes).error().code(), 0);
    EXPECT_EQ(ask<vms_sdk_proto::Response>(sim, AddFaceReq, add, AddFaceRes).error().code(), 1007);
    vms_sdk_proto::DelFaceReq remove;
    *remove.mutable_channel_id() = channelOf("cam-1", 1);
    remove.set_attr_3(2); // Bob
    EXPECT_EQ(ask<vms_sdk_proto::Response>(sim, DelFaceReq, remove, DelFaceRes).error().code(), 0);
    EXPECT_EQ(ask<vms_sdk_proto::Response>(sim, DelFaceReq, remove, DelFaceRes).error().code(),
              1004);

    struct Row
    {
        unsigned page;
        unsigned size;
        unsigned library;
        std::vector<std::string> serials;
        unsigned total;
    };
    const Row rows[] = {
        {1, 0, 0, {"F-1", "F-3", "F-4"}, 3},
        {0, 2, 0, {"F-1", "F-3"}, 3},
        {2, 2, 0, {"F-4"}, 3},
        {3, 2, 0, {}, 3},
        {1, 10, 1, {"F-1", "F-3", "F-4"}, 3},
        {1, 10, 2, {}, 0},
    };
    for (const Row& row : rows) {
        vms_sdk_proto::GetFacesReq get;
        *get.mutable_channel_id() = channelOf("cam-1", 1);
        get.set_attr_3(row.page);
        get.set_attr_4(row.size);
        get.set_attr_5(row.library);
        const auto faces = ask<vms_sdk_proto::GetFacesRes>(sim, GetFacesReq, get, GetFacesRes);
        std::vector<std::string> serials;
        for (const auto& face : faces.faces())
            serials.push_back(face.serial_num());
        EXPECT_EQ(serials, row.serials) << row.page << "/" << row.size << "/" << row.library;
        EXPECT_EQ(faces.attr_4(), row.total) << row.page << "/" << row.size << "/" << row.library;
    }

    vms_sdk_proto::GetFacesReq withPictures;
    *withPictures.mutable_channel_id() = channelOf("cam-1", 1);
    withPictures.set_attr_3(2);
    withPictures.set_attr_4(2);
    withPictures.set_attr_6(true);
    const auto last = ask<vms_sdk_proto::GetFacesRes>(sim, GetFacesReq, withPictures, GetFacesRes);
    ASSERT_EQ(last.faces_size(), 1);
    const vms_sdk_proto::FaceInfo& face = last.faces(0);
    EXPECT_EQ(face.attr_1(), 4); // after the highest index, Bob's 2 is not reused
    EXPECT_EQ(face.name(), "Dee");
    EXPECT_EQ(face.attr_8(), std::string("\xff\xd8", 2));
    EXPECT_EQ(face.face_url(), "http://10.0.0.11:8080/faces/ch1/4.jpg");
}

TEST_F(DomainState, APasswordChangeDecidesTheNextLogin)
{
    SimProcess& sim = startSim(domainNetwork);
    ASSERT_TRUE(sim.initialise());
    const auto modify = [&](const char* devId, const char* oldPassword, const char* newPassword,
                            const char* account = "admin") {
        vms_sdk_proto::ModifyDevAccountReq request;
        request.set_dev_id(devId);
        request.set_account(account);
        request.set_old_password(oldPassword);
        request.set_new_password(newPassword);
        return ask<vms_sdk_proto::Response>(sim, ModifyDevAccountReq, request, ModifyDevAccountRes)
            .error()
            .code();
    };
    const auto loginStatus = [&](const char* password) {
        vms_sdk_proto::SetManagedDevsCmd set;
        set.add_devs()->set_id("cam-1");
        set.mutable_devs(0)->set_password(password);
        sim.send(SetManagedDevsCmd, set);
        return sim.take<vms_sdk_proto::DevStatusPush>(DevStatusPush).status();
    };
    EXPECT_EQ(modify("cam-1", "pw2", "pw3"), 1005);
    EXPECT_EQ(modify("cam-1", "pw1", "pw2"), 0);
    EXPECT_EQ(modify("cam-1", "pw1", "pw3"), 1005);
    EXPECT_EQ(loginStatus("pw1"), 1);
    EXPECT_EQ(loginStatus("pw2"), 0);
    sim.takePayload(DevInfoPush);
    // The gateway changed the password itself and keeps its login.
    EXPECT_EQ(modify("cam-1", "pw2", "pw3"), 0);
    EXPECT_EQ(getNet(sim, "cam-1").error().code(), 0);
    // A device without a password takes any old one.
    EXPECT_EQ(modify("cam-2", "whatever", "set"), 0);
    EXPECT_EQ(modify("cam-2", "whatever", "again"), 1005);
    EXPECT_EQ(modify("cam-2", "", "x", "root"), 1004);
}

TEST_F(DomainState, RecordingsCoverTheAskedRangeInWholeFiles)
{
    struct Row
    {
        const char* name;
        const char* begin;
        const char* end;
        int count;
        const char* firstBegin;
        const char* lastEnd;
        bool finished;
        // Playback by file finds the begin time in it.
        const char* firstFile = "";
    };
    // The camera records into files of 30 minutes.
    const Row rows[] = {
        {"inside two files", "2024-03-01 08:10:00", "2024-03-01 09:00:00", 2, "2024-03-01 08:00:00",
         "2024-03-01 09:00:00", true, "ch01_20240301080000_20240301083000.mp4"},
        {"one second", "2024-03-01 08:00:00", "2024-03-01 08:00:01", 1, "2024-03-01 08:00:00",
         "2024-03-01 08:30:00", true},
        {"across midnight", "2024-03-01 23:50:00", "2024-03-02 00:40:00", 3, "2024-03-01 23:30:00",
         "2024-03-02 01:00:00", true, "ch01_20240301233000_20240302000000.mp4"},
        {"end before begin", "2024-03-01 09:00:00", "2024-03-01 08:00:00", 0, "", "", true},
        {"time that does not parse", "yesterday", "2024-03-01 09:00:00", -1, "", "", true},
        {"more than one answer holds", "2024-01-01 00:00:00", "2024-03-01 00:00:00", 2000,
         "2024-01-01 00:00:00", "2024-02-11 16:00:00", false},
    };
    SimProcess& sim = startSim(domainNetwork);
    ASSERT_TRUE(sim.initialise());
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        vms_sdk_proto::SearchVideoRecordingsReq request;
        *request.mutable_channel_id() = channelOf("cam-1", 1);
        request.set_begin_time(row.begin);
        request.set_end_time(row.end);
        const auto answer = ask<vms_sdk_proto::SearchVideoRecordingsRes>(
            sim, SearchVideoRecordingsReq, request, SearchVideoRecordingsRes);
        EXPECT_EQ(answer.error().code(), row.count < 0 ? 1006 : 0); // -1: refused
        if (row.count < 0)
            continue;
        ASSERT_EQ(answer.recordings_size(), row.count);
        EXPECT_EQ(answer.attr_3(), row.finished);
        if (row.count == 0)
            continue;
        EXPECT_EQ(answer.recordings(0).begin_time(), row.firstBegin);
        EXPECT_EQ(answer.recordings(row.count - 1).end_time(), row.lastEnd);
        if (*row.firstFile) {
            EXPECT_EQ(answer.recordings(0).file_name(), row.firstFile);
        }
        for (int i = 1; i < row.count; ++i)
            ASSERT_EQ(answer.recordings(i).begin_time(), answer.recordings(i - 1).end_time());
    }
}

TEST_F(DomainState, ActivationAndPasswordResetResults)
{
    SimProcess& sim = startSim(domainNetwork);
    ASSERT_TRUE(sim.initialise());
    const auto activate = [&](std::vector<std::string> serials, const char* password) {
        vms_sdk_proto::DevActivateCmd command;
        for (const std::string& sn : serials)
            command.add_devs_sn(sn);
        command.set_account("owner");
        command.set_password(password);
        vms_sdk_proto::SecretInfo* secret = command.add_secrets();
        secret->set_question("Colour?");
        secret->set_answer("Teal");
        sim.send(DevActivateCmd, command);
        std::vector<std::pair<std::string, int>> results;
        for (size_t i = 0; i < serials.size(); ++i) {
            const auto answer = sim.take<vms_sdk_proto::ActivateDevRes>(ActivateDevRes);
            results.emplace_back(answer.dev_sn(), answer.result());
        }
        return results;
    };
    using Results = std::vector<std::pair<std::string, int>>;
    EXPECT_EQ(activate({"SN-CAM-2"}, ""), (Results{{"SN-CAM-2", 4}}));
    EXPECT_EQ(activate({"SN-CAM-2", "SN-CAM-1", "SN-NONE", "SN-CAM-3"}, "secret"),
              (Results{{"SN-CAM-2", 0}, {"SN-CAM-1", 1}, {"SN-NONE", 2}, {"SN-CAM-3", 2}}));
    EXPECT_EQ(activate({"SN-CAM-2"}, "again"), (Results{{"SN-CAM-2", 1}}));
    sim.send(SearchDevsCmd, QByteArray());
    EXPECT_EQ(sim.take<vms_sdk_proto::SearchedDevsPush>(SearchedDevsPush).devs(1).attr_14(), 1);

    struct Row
    {
        const char* name;
        const char* sn;
        const char* account;
        std::vector<std::pair<const char*, const char*>> answers;
        const char* password;
        int result;
    };
    const Row rows[] = {
        {"unknown serial", "SN-NONE", "owner", {{"Colour?", "Teal"}}, "new", 2},
        {"unknown account", "SN-CAM-2", "admin", {{"Colour?", "Teal"}}, "new", 3},
        {"wrong answer", "SN-CAM-2", "owner", {{"Colour?", "Red"}}, "new", 1},
        {"empty password", "SN-CAM-2", "owner", {{"Colour?", "Teal"}}, "", 4},
        {"right answers", "SN-CAM-2", "owner", {{"Colour?", "Teal"}}, "reset", 0},
    };
    for (const Row& row : rows) {
        vms_sdk_proto::DevPwdResetReq reset;
        reset.set_dev_sn(row.sn);
        reset.set_account(row.account);
        reset.set_password(row.password);
        for (const auto& [question, answer] : row.answers) {
            vms_sdk_proto::SecretInfo* secret = reset.add_secrets();
            secret->set_question(question);
            secret->set_answer(answer);
        }
        const auto answer =
            ask<vms_sdk_proto::ResetDevPwdRes>(sim, DevPwdResetReq, reset, ResetDevPwdRes);
        EXPECT_EQ(answer.dev_sn(), row.sn) << row.name;
        EXPECT_EQ(answer.result(), row.result) << row.name;
    }

    // The activation's questions are asked, and the reset password is the one that logs in.
    vms_sdk_proto::DevSecretQuestionsGetReq questions;
    questions.set_dev_sn("SN-CAM-2");
    questions.set_account("owner");
    const auto asked = ask<vms_sdk_proto::DevSecretQuestionsGetRes>(
        sim, DevSecretQuestionsGetReq, questions, DevSecretQuestionsGetRes);
    ASSERT_EQ(asked.questions_size(), 1);
    EXPECT_EQ(asked.questions(0), "Colour?");
    vms_sdk_proto::SetManagedDevsCmd set;
    set.add_devs()->set_id("cam-2");
    set.mutable_devs(0)->set_password("reset");
    sim.send(SetManagedDevsCmd, set);
    EXPECT_EQ(sim.take<vms_sdk_proto::DevStatusPush>(DevStatusPush).status(), 0);
}

TEST_F(DomainState, ARebootGoesOfflineAndComesBack)
{
    // Long enough that the request sent with the reboot is surely handled while it lasts.
    SimProcess& sim = startSim(withKeys(domainNetwork, R"(, "rebootMs": 1000)"));
    ASSERT_TRUE(sim.initialise());
    vms_sdk_proto::DevList reboot;
    reboot.add_devs_id("cam-1");
    sim.send(RebootDevsCmd, reboot);
    vms_sdk_proto::DevNetGetReq net;
    net.set_dev_id("cam-1");
    sim.send(DevNetGetReq, net);
    const QList<Frame> during = sim.takeUntil(DevNetGetRes);
    ASSERT_EQ(typesOf(during), (QList<int>{DevStatusPush, DevNetGetRes}));
    EXPECT_EQ(parsedAs<vms_sdk_proto::DevStatusPush>(during.at(0).payload).status(), 1);
    EXPECT_EQ(parsedAs<vms_sdk_proto::DevNetGetRes>(during.at(1).payload).error().code(), 1003);

    const QList<Frame> after = sim.takeUntil(DevInfoPush);
    ASSERT_EQ(typesOf(after), (QList<int>{DevStatusPush, DevInfoPush}));
    const auto online = parsedAs<vms_sdk_proto::DevStatusPush>(after.at(0).payload);
    EXPECT_EQ(online.dev_id(), "cam-1");
    EXPECT_EQ(online.status(), 0);
    EXPECT_EQ(getNet(sim, "cam-1").error().code(), 0);
}

TEST_F(DomainState, TalkAndSpeakShareTheAudioLine)
{
    struct Row
    {
        const char* name;
        int type;
        const char* devId;
        unsigned channel;
        int operation;
        qint32 code;
        int event; // -1: no event
    };
    const Row rows[] = {
        {"talk starts", TalkOperReq, "cam-1", 1, 0, 0, 0},
        {"speak finds the line busy", SpeakOperReq, "cam-1", 1, 0, 0, 2},
        {"talk stops", TalkOperReq, "cam-1", 1, 1, 0, 1},
        {"speak starts on the free line", SpeakOperReq, "cam-1", 1, 0, 0, 0},
        {"another channel has its own line", TalkOperReq, "nvr-1", 1, 0, 0, 0},
        {"unknown operation", TalkOperReq, "cam-1", 1, 5, 1006, -1},
    };
    SimProcess& sim = startSim(domainNetwork);
    ASSERT_TRUE(sim.initialise());
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        vms_sdk_proto::TalkOperReq request;
        request.set_request_id(row.name);
        *request.mutable_channel_id() = channelOf(row.devId, row.channel);
        request.set_attr_3(row.operation);
        sim.send(row.type, request);
        const int answerType = row.type == TalkOperReq ? TalkOperRes : SpeakOperRes;
        const auto answer = parsedAs<vms_sdk_proto::Response>(sim.takePayload(answerType));
        EXPECT_EQ(answer.request_id(), row.name);
        EXPECT_EQ(answer.error().code(), row.code);
        if (row.event < 0)
            continue;
        const int eventType = row.type == TalkOperReq ? TalkEventPush : SpeakEventPush;
        const auto event = parsedAs<vms_sdk_proto::TalkEventPush>(sim.takePayload(eventType));
        EXPECT_EQ(event.channel_id().dev_id(), row.devId);
        EXPECT_EQ(event.channel_id().channel_index(), row.channel);
        EXPECT_EQ(event.event(), row.event);
    }
}

TEST_F(DomainState, RequestsForWhatIsNotThereAreErrors)
{
    struct Row
    {
        const char* name;
        int type;
        int answerType;
        const char* devId;
        unsigned channel; // 0: a device request
        qint32 code;
    };
    const Row rows[] = {
        {"unknown device", DevNetGetReq, DevNetGetRes, "ghost", 0, 1001},
        {"managed, nothing simulated behind it", DevNetGetReq, DevNetGetRes, "app-1", 0, 1001},
        {"unknown device of a channel", GetPatrolsReq, GetPatrolRes, "ghost", 1, 1001},
        {"unknown channel", GetPresetsReq, GetPresetRes, "cam-1", 9, 1002},
        {"unplugged device", DevPlatform_kvrGetReq, DevPlatform_kvrGetRes, "cam-3", 0, 1003},
        {"managed with the wrong password", GetDevUpgradeProgressReq, GetDevUpgradeProgressRes,
         "app-2", 0, 1003},
        {"offline channel", PTZCtrlReq, PTZCtrlRes, "nvr-1", 2, 1003},
    };
    SimProcess& sim = startSim(domainNetwork);
    ASSERT_TRUE(sim.initialise());
    vms_sdk_proto::SetManagedDevsCmd managed;
    managed.add_devs()->set_id("app-1");
    managed.mutable_devs(0)->set_ip("10.9.9.9");
    managed.add_devs()->set_id("app-2");
    managed.mutable_devs(1)->set_ip("10.0.0.11");
    managed.mutable_devs(1)->set_password("bad");
    sim.send(SetManagedDevsCmd, managed);
    sim.takeUntil(DevStatusPush);
    sim.takeUntil(DevStatusPush);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        vms_sdk_proto::DeviceReq device;
        device.set_request_id("{error}");
        device.set_dev_id(row.devId);
        vms_sdk_proto::ChannelReq channel;
        channel.set_request_id("{error}");
        *channel.mutable_channel_id() = channelOf(row.devId, row.channel);
        sim.send(row.type, row.channel == 0 ? bytesOf(device) : bytesOf(channel));
        const auto head = parsedAs<vms_sdk_proto::Response>(sim.takePayload(row.answerType));
        EXPECT_EQ(head.request_id(), "{error}");
        EXPECT_EQ(head.error().code(), row.code);
        EXPECT_FALSE(head.error().err_msg().empty());
    }
}

TEST_F(DomainState, MalformedAnswerTypesCarryBytesThatDoNotParse)
{
    SimProcess& sim = startSim(withKeys(domainNetwork, R"(, "faults": {"malformedTypes": [59]})"));
    ASSERT_TRUE(sim.initialise());
    vms_sdk_proto::ChannelReq presets;
    presets.set_request_id("{presets}");
    *presets.mutable_channel_id() = channelOf("cam-1", 1);
    sim.send(GetPresetsReq, presets);
    const QByteArray answer = sim.takePayload(GetPresetRes);
    EXPECT_FALSE(vms_sdk_proto::GetPresetRes().ParseFromArray(answer.constData(), answer.size()));
    EXPECT_FALSE(vms_sdk_proto::Response().ParseFromArray(answer.constData(), answer.size()));
    // Other types are untouched.
    sim.send(GetPatrolsReq, presets);
    EXPECT_EQ(sim.take<vms_sdk_proto::GetPatrolRes>(GetPatrolRes).request_id(), "{presets}");
}
