// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// Every request the library sends, against a simulator process: the answer's type, request
// id, error code and key fields; the errors for devices and channels that are not there; the
// commands that are answered by pushes or not at all; and the malformed-answer fault.

#include "domain_support.h"

#include "vms_protocol/message_type.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <functional>
#include <vector>

using namespace vms_sdk;
using namespace vms_test;

namespace {

class DomainRequests : public SimTest
{};

QList<int> typesOf(const QList<Frame>& frames)
{
    QList<int> types;
    for (const Frame& frame : frames)
        types.append(frame.type);
    return types;
}

// The request id of every row, so that an answer to the wrong request shows.
std::string idOf(int row)
{
    return "{row-" + std::to_string(row) + "}";
}

struct Row
{
    const char* name;
    int type;
    std::function<QByteArray(const std::string& requestId)> request;
    int answerType;
    std::function<void(const QByteArray& answer)> check;
    // Pushes the request causes right after its answer.
    QList<int> followers = {};
};

// Answers that carry no Error and request id of their own are checked by their row alone.
bool hasResponseHead(int answerType)
{
    return answerType != ActivateDevRes && answerType != DevSecretQuestionsGetRes &&
           answerType != ResetDevPwdRes && answerType != CommonRes;
}

template<typename Message>
std::function<QByteArray(const std::string&)> with(std::function<void(Message&)> fill)
{
    return [fill](const std::string& requestId) {
        Message message;
        if constexpr (requires { message.set_request_id(requestId); })
            message.set_request_id(requestId);
        fill(message);
        return bytesOf(message);
    };
}

template<typename Message>
std::function<void(const QByteArray&)> expect(std::function<void(const Message&)> check)
{
    return [check](const QByteArray& payload) { check(parsedAs<Message>(payload)); };
}

const auto onDevice = [](const char* devId) {
    return with<vms_sdk_proto::DeviceReq>([devId](auto& r) { r.set_dev_id(devId); });
};

const auto onChannel = [](const char* devId, unsigned index) {
    return with<vms_sdk_proto::ChannelReq>(
        [devId, index](auto& r) { *r.mutable_channel_id() = channelOf(devId, index); });
};

std::vector<Row> everyRequest()
{
    return {
        {"get net", DevNetGetReq, onDevice("cam-1"), DevNetGetRes,
         expect<vms_sdk_proto::DevNetGetRes>([](const auto& a) {
             EXPECT_EQ(a.net_info().ip(), "10.0.0.11");
             EXPECT_EQ(a.net_info().sub_net_mask(), "255.255.255.0");
             EXPECT_EQ(a.net_info().default_gateway(), "10.0.0.1");
             EXPECT_EQ(a.net_info().dns(), "10.0.0.1");
             EXPECT_EQ(a.net_info().attr_7(), 8080); // http port
         })},
        {"set net", DevNetSetReq, with<vms_sdk_proto::DevNetSetReq>([](auto& r) {
             r.set_dev_id("cam-2");
             r.mutable_net_info()->set_ip("10.0.0.42");
         }),
         DevNetSetRes, expect<vms_sdk_proto::DevNetSetRes>([](const auto& a) {
             EXPECT_EQ(a.dev_id(), "cam-2");
             EXPECT_EQ(a.dev_ip(), "10.0.0.42");
         })},
        {"get platform", DevPlatformGetReq, with<vms_sdk_proto::DevPlatformGetReq>([](auto& r) {
             r.set_dev_id("cam-1");
             r.set_attr_4(true);
         }),
         DevPlatformGetRes, expect<vms_sdk_proto::DevPlatformGetRes>([](const auto& a) {
             EXPECT_TRUE(a.platform_info().attr_1());
             EXPECT_EQ(a.platform_info().platform_addr(), "10.0.0.1");
             EXPECT_TRUE(a.platform_info().attr_3()); // registered
             EXPECT_EQ(a.platform_info().attr_4(), 7660);
             EXPECT_EQ(a.platform_info().attr_5(), 2);
         })},
        {"set platform",
         DevPlatformSetReq,
         with<vms_sdk_proto::DevPlatformSetReq>([](auto& r) { r.set_dev_id("cam-2"); }),
         DevPlatformSetRes,
         {}},
        {"get platform_kvr", DevPlatform_kvrGetReq, onDevice("cam-1"), DevPlatform_kvrGetRes,
         expect<vms_sdk_proto::DevPlatform_kvrGetRes>([](const auto& a) {
             EXPECT_TRUE(a.platform_info().attr_1());
             EXPECT_EQ(a.platform_info().online_server(), "10.0.0.2");
         })},
        {"set platform_kvr",
         DevPlatform_kvrSetReq,
         with<vms_sdk_proto::DevPlatform_kvrSetReq>([](auto& r) { r.set_dev_id("cam-2"); }),
         DevPlatform_kvrSetRes,
         {}},
        {"import certificate",
         DevCertImportReq,
         with<vms_sdk_proto::DevCertImportReq>([](auto& r) {
             r.set_dev_id("cam-1");
             r.set_cert_contents("-----BEGIN CERTIFICATE-----");
         }),
         DevCertImportRes,
         {}},
        {"search recordings", SearchVideoRecordingsReq,
         with<vms_sdk_proto::SearchVideoRecordingsReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("cam-1", 1);
             r.set_attr_3(2);
             r.set_attr_4(1);
             r.set_begin_time("2024-03-01 08:10:00");
             r.set_end_time("2024-03-01 09:00:00");
         }),
         SearchVideoRecordingsRes,
         expect<vms_sdk_proto::SearchVideoRecordingsRes>([](const auto& a) {
             EXPECT_TRUE(a.attr_3()); // finished
             ASSERT_EQ(a.recordings_size(), 2);
             EXPECT_EQ(a.recordings(0).file_name(), "ch01_20240301080000_20240301083000.mp4");
             EXPECT_EQ(a.recordings(0).attr_4(), 2);
             EXPECT_EQ(a.recordings(0).attr_5(), 1);
         })},
        {"rtsp url", GetRtspUrlReq, with<vms_sdk_proto::GetRtspUrlReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("cam-1", 1);
             r.set_attr_3(1);
         }),
         GetRtspUrlRes, expect<vms_sdk_proto::GetRtspUrlRes>([](const auto& a) {
             EXPECT_EQ(a.rtsp_url(), "rtsp://10.0.0.11:8554/ch1/sub");
         })},
        {"ptz", PTZCtrlReq, with<vms_sdk_proto::PTZCtrlReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("cam-1", 1);
             r.set_attr_3(8);
             r.set_attr_4(1);
         }),
         PTZCtrlRes, expect<vms_sdk_proto::PTZCtrlRes>([](const auto& a) {
             EXPECT_EQ(a.operation(), 8);
             EXPECT_EQ(a.action(), 1);
         })},
        {"get presets", GetPresetsReq, onChannel("cam-1", 1), GetPresetRes,
         expect<vms_sdk_proto::GetPresetRes>([](const auto& a) {
             ASSERT_EQ(a.presets_size(), 3);
             EXPECT_EQ(a.presets(0).preset_name(), "Door");
             EXPECT_EQ(a.presets(1).preset_name(), "Preset 2");
             EXPECT_EQ(a.presets(2).attr_1(), 5u);
         })},
        {"call preset", PresetOperReq, with<vms_sdk_proto::PresetOperReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("cam-1", 1);
             r.set_attr_3(5);
             r.set_attr_5(1);
         }),
         PresetOperRes,
         expect<vms_sdk_proto::PresetOperRes>([](const auto& a) { EXPECT_EQ(a.oper(), 1); })},
        {"get patrols", GetPatrolsReq, onChannel("cam-1", 1), GetPatrolRes,
         expect<vms_sdk_proto::GetPatrolRes>([](const auto& a) {
             ASSERT_EQ(a.patrols_size(), 1);
             EXPECT_EQ(a.patrols(0).attr_1(), 1);
             EXPECT_EQ(a.patrols(0).attr_4(), 1); // mode
             ASSERT_EQ(a.patrols(0).patrol_presets_size(), 1);
             EXPECT_EQ(a.patrols(0).patrol_presets(0).preset().preset_name(), "Door");
             EXPECT_EQ(a.patrols(0).patrol_presets(0).attr_2(), 7u);
             EXPECT_EQ(a.patrols(0).patrol_presets(0).attr_3(), 3u);
         })},
        {"start patrol", PatrolOperReq, with<vms_sdk_proto::PatrolOperReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("cam-1", 1);
             r.set_attr_3(1);
         }),
         PatrolOperRes,
         expect<vms_sdk_proto::PatrolOperRes>([](const auto& a) { EXPECT_EQ(a.oper(), 0); })},
        {"add patrol stop", PatrolPresetOperReq,
         with<vms_sdk_proto::PatrolPresetOperReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("cam-1", 1);
             r.set_attr_3(1);
             r.set_attr_4(4);
             r.set_attr_5(2);
             r.set_attr_6(0);
         }),
         PatrolPresetOperRes,
         expect<vms_sdk_proto::PatrolPresetOperRes>([](const auto& a) { EXPECT_EQ(a.oper(), 0); })},
        {"set patrol presets",
         SetPatrolPresetsReq,
         with<vms_sdk_proto::SetPatrolPresetsReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("cam-1", 1);
             r.set_attr_3(2);
             r.add_presets()->set_attr_1(5);
         }),
         SetPatrolPresetsRes,
         {}},
        {"set osd",
         SetOSDReq,
         with<vms_sdk_proto::SetOSDReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("nvr-1", 1);
             r.set_osd("Front");
         }),
         DevConfigRes,
         {}},
        {"modify name",
         ModifyDevNameReq,
         with<vms_sdk_proto::ModifyDevNameReq>([](auto& r) {
             r.set_dev_id("cam-2");
             r.set_dev_name("Yard");
         }),
         DevConfigRes,
         {}},
        {"get faces", GetFacesReq, with<vms_sdk_proto::GetFacesReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("cam-1", 1);
             r.set_attr_3(1);
             r.set_attr_4(2);
         }),
         GetFacesRes, expect<vms_sdk_proto::GetFacesRes>([](const auto& a) {
             EXPECT_EQ(a.attr_4(), 3u);
             ASSERT_EQ(a.faces_size(), 2);
             EXPECT_EQ(a.faces(0).serial_num(), "F-1");
             EXPECT_EQ(a.faces(0).face_url(), "http://10.0.0.11:8080/faces/ch1/1.jpg");
         })},
        {"add face",
         AddFaceReq,
         with<vms_sdk_proto::AddFaceReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("cam-1", 1);
             r.set_serial_num("F-9");
         }),
         AddFaceRes,
         {}},
        {"delete face",
         DelFaceReq,
         with<vms_sdk_proto::DelFaceReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("cam-1", 1);
             r.set_attr_3(2);
         }),
         DelFaceRes,
         {}},
        {"face records", GetFaceDetectRecordsReq,
         with<vms_sdk_proto::GetFaceDetectRecordsReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("cam-1", 1);
             r.set_begin_time("2024-03-01 08:00:00");
             r.set_end_time("2024-03-01 09:00:00");
         }),
         GetFaceDetectRecordsRes, expect<vms_sdk_proto::GetFaceDetectRecordsRes>([](const auto& a) {
             EXPECT_EQ(a.attr_4(), 7u);
             EXPECT_EQ(a.records_size(), 7);
         })},
        {"check upgrade", CheckDevUpgradeReq,
         with<vms_sdk_proto::DevUpgradeReq>([](auto& r) { r.set_dev_id("cam-1"); }),
         CheckDevUpgradeRes, expect<vms_sdk_proto::DevUpgradeRes>([](const auto& a) {
             EXPECT_EQ(a.new_version_name(), "V2.0.0");
             EXPECT_TRUE(a.attr_5());
             EXPECT_EQ(a.phase(), "idle");
         })},
        {"upgrade progress", GetDevUpgradeProgressReq, onDevice("cam-1"), GetDevUpgradeProgressRes,
         expect<vms_sdk_proto::DevUpgradeRes>([](const auto& a) { EXPECT_EQ(a.attr_3(), 0); })},
        {"modify account",
         ModifyDevAccountReq,
         with<vms_sdk_proto::ModifyDevAccountReq>([](auto& r) {
             r.set_dev_id("cam-1");
             r.set_account("admin");
             r.set_old_password("pw1");
             r.set_new_password("pw2");
         }),
         ModifyDevAccountRes,
         {}},
        {"security questions", DevSecretQuestionsGetReq,
         with<vms_sdk_proto::DevSecretQuestionsGetReq>([](auto& r) {
             r.set_dev_sn("SN-CAM-1");
             r.set_account("admin");
         }),
         DevSecretQuestionsGetRes,
         expect<vms_sdk_proto::DevSecretQuestionsGetRes>([](const auto& a) {
             EXPECT_EQ(a.dev_sn(), "SN-CAM-1");
             EXPECT_EQ(a.result(), 0);
             ASSERT_EQ(a.questions_size(), 2);
             EXPECT_EQ(a.questions(1), "Town?");
         })},
        {"reset password", DevPwdResetReq, with<vms_sdk_proto::DevPwdResetReq>([](auto& r) {
             r.set_dev_sn("SN-CAM-1");
             r.set_account("admin");
             r.set_password("pw3");
             for (const auto& [question, answer] : {std::pair{"Pet?", "Rex"}, {"Town?", "Ely"}}) {
                 vms_sdk_proto::SecretInfo* secret = r.add_secrets();
                 secret->set_question(question);
                 secret->set_answer(answer);
             }
         }),
         ResetDevPwdRes, expect<vms_sdk_proto::ResetDevPwdRes>([](const auto& a) {
             EXPECT_EQ(a.dev_sn(), "SN-CAM-1");
             EXPECT_EQ(a.result(), 0);
         })},
        {"activate", DevActivateCmd, with<vms_sdk_proto::DevActivateCmd>([](auto& r) {
             r.add_devs_sn("SN-CAM-2");
             r.set_password("first");
         }),
         ActivateDevRes, expect<vms_sdk_proto::ActivateDevRes>([](const auto& a) {
             EXPECT_EQ(a.dev_sn(), "SN-CAM-2");
             EXPECT_EQ(a.result(), 0);
         })},
        {"talk",
         TalkOperReq,
         with<vms_sdk_proto::TalkOperReq>(
             [](auto& r) { *r.mutable_channel_id() = channelOf("cam-1", 1); }),
         TalkOperRes,
         {},
         {TalkEventPush}},
        {"speak",
         SpeakOperReq,
         with<vms_sdk_proto::TalkOperReq>(
             [](auto& r) { *r.mutable_channel_id() = channelOf("nvr-1", 1); }),
         SpeakOperRes,
         {},
         {SpeakEventPush}},
        {"common", CommonReq, with<vms_sdk_proto::CommonReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("nvr-1", 0);
             r.set_req_json(R"({"method": "storage_get_info", "param": {}})");
         }),
         CommonRes, expect<vms_sdk_proto::CommonRes>([](const auto& a) {
             const QJsonObject answer =
                 QJsonDocument::fromJson(QByteArray::fromStdString(a.res_json())).object();
             EXPECT_EQ(answer.value("method").toString(), "storage_get_info");
             EXPECT_EQ(answer.value("error").toObject().value("errorcode").toInt(-1), 0);
             EXPECT_TRUE(answer.value("result").isObject());
         })},
    };
}

} // namespace

TEST_F(DomainRequests, EveryRequestIsAnsweredWithItsIdAndFields)
{
    SimProcess& sim = startSim(domainNetwork);
    ASSERT_TRUE(sim.initialise());
    const std::vector<Row> rows = everyRequest();
    for (size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        SCOPED_TRACE(row.name);
        sim.send(row.type, row.request(idOf(int(i))));
        const QList<Frame> frames = sim.takeUntil(row.answerType);
        ASSERT_EQ(typesOf(frames), QList<int>{row.answerType});
        const QByteArray& payload = frames.first().payload;
        if (hasResponseHead(row.answerType)) {
            const auto head = parsedAs<vms_sdk_proto::Response>(payload);
            EXPECT_EQ(head.request_id(), idOf(int(i)));
            EXPECT_EQ(head.error().code(), 0) << head.error().err_msg();
        }
        if (row.answerType == CommonRes) {
            EXPECT_EQ(parsedAs<vms_sdk_proto::CommonRes>(payload).request_id(), idOf(int(i)));
        }
        if (row.check)
            row.check(payload);
        for (const int follower : row.followers)
            sim.takePayload(follower);
    }
}

TEST_F(DomainRequests, RequestsForWhatIsNotThereAreErrors)
{
    struct ErrorRow
    {
        const char* name;
        int type;
        std::function<QByteArray(const std::string&)> request;
        int answerType;
        qint32 code;
    };
    const auto presetOperation = [](unsigned number, int operation) {
        return with<vms_sdk_proto::PresetOperReq>([=](auto& r) {
            *r.mutable_channel_id() = channelOf("cam-1", 1);
            r.set_attr_3(number);
            r.set_attr_5(operation);
        });
    };
    const auto recordings = [](const char* begin) {
        return with<vms_sdk_proto::SearchVideoRecordingsReq>([=](auto& r) {
            *r.mutable_channel_id() = channelOf("cam-1", 1);
            r.set_begin_time(begin);
            r.set_end_time("2024-03-01 09:00:00");
        });
    };
    const ErrorRow rows[] = {
        {"unknown device", DevNetGetReq, onDevice("ghost"), DevNetGetRes, 1001},
        {"managed, nothing simulated behind it", DevNetGetReq, onDevice("app-1"), DevNetGetRes,
         1001},
        {"unknown device of a channel", GetRtspUrlReq,
         with<vms_sdk_proto::GetRtspUrlReq>(
             [](auto& r) { *r.mutable_channel_id() = channelOf("ghost", 1); }),
         GetRtspUrlRes, 1001},
        {"unknown channel", GetPresetsReq, onChannel("cam-1", 9), GetPresetRes, 1002},
        {"unplugged device", DevPlatform_kvrGetReq, onDevice("cam-3"), DevPlatform_kvrGetRes, 1003},
        {"managed with the wrong password", CheckDevUpgradeReq,
         with<vms_sdk_proto::DevUpgradeReq>([](auto& r) { r.set_dev_id("app-2"); }),
         CheckDevUpgradeRes, 1003},
        {"offline channel", PTZCtrlReq, with<vms_sdk_proto::PTZCtrlReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("nvr-1", 2);
         }),
         PTZCtrlRes, 1003},
        {"call a missing preset", PresetOperReq, presetOperation(9, 1), PresetOperRes, 1004},
        {"unknown preset operation", PresetOperReq, presetOperation(1, 7), PresetOperRes, 1006},
        {"start a missing patrol", PatrolOperReq, with<vms_sdk_proto::PatrolOperReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("cam-1", 1);
             r.set_attr_3(9);
         }),
         PatrolOperRes, 1004},
        {"delete a missing face", DelFaceReq, with<vms_sdk_proto::DelFaceReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("cam-1", 1);
             r.set_attr_3(99);
         }),
         DelFaceRes, 1004},
        {"add a face twice", AddFaceReq, with<vms_sdk_proto::AddFaceReq>([](auto& r) {
             *r.mutable_channel_id() = channelOf("cam-1", 1);
             r.set_serial_num("F-1");
         }),
         AddFaceRes, 1007},
        {"wrong old password", ModifyDevAccountReq,
         with<vms_sdk_proto::ModifyDevAccountReq>([](auto& r) {
             r.set_dev_id("cam-1");
             r.set_account("admin");
             r.set_old_password("guess");
             r.set_new_password("x");
         }),
         ModifyDevAccountRes, 1005},
        {"unknown account", ModifyDevAccountReq,
         with<vms_sdk_proto::ModifyDevAccountReq>([](auto& r) {
             r.set_dev_id("cam-2");
             r.set_account("root");
             r.set_new_password("x");
         }),
         ModifyDevAccountRes, 1004},
        {"time that does not parse", SearchVideoRecordingsReq, recordings("yesterday"),
         SearchVideoRecordingsRes, 1006},
        {"address that does not parse", DevNetSetReq,
         with<vms_sdk_proto::DevNetSetReq>([](auto& r) {
             r.set_dev_id("cam-1");
             r.mutable_net_info()->set_ip("10.0.0.300");
         }),
         DevNetSetRes, 1006},
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

    for (const ErrorRow& row : rows) {
        SCOPED_TRACE(row.name);
        sim.send(row.type, row.request("{error}"));
        const auto head = parsedAs<vms_sdk_proto::Response>(sim.takePayload(row.answerType));
        EXPECT_EQ(head.request_id(), "{error}");
        EXPECT_EQ(head.error().code(), row.code);
        EXPECT_FALSE(head.error().err_msg().empty());
    }
}

TEST_F(DomainRequests, CommandsCauseOnlyTheirOwnPushes)
{
    struct CommandRow
    {
        const char* name;
        int type;
        QByteArray payload;
        QList<int> pushes; // what follows at once, before any timed push
    };
    const auto devList = [](std::initializer_list<const char*> ids) {
        vms_sdk_proto::DevList list;
        for (const char* id : ids)
            list.add_devs_id(id);
        return bytesOf(list);
    };
    vms_sdk_proto::DevTimingCmd timing;
    timing.add_devs_id("cam-1");
    timing.set_time("2024-03-01 08:00:00");
    vms_sdk_proto::RestoreFactoryCmd restore;
    restore.add_devs_id("cam-1");
    vms_sdk_proto::OpenRemoteConfigReq remote;
    remote.set_dev_id("cam-1");
    vms_sdk_proto::DevUpgradeReq upgrade;
    upgrade.set_dev_id("cam-3"); // unplugged: nothing starts
    const CommandRow rows[] = {
        {"set the clock", DevTimingCmd, bytesOf(timing), {}},
        {"reboot", RebootDevsCmd, devList({"cam-1", "ghost"}), {DevStatusPush}},
        {"factory reset", RestoreFactoryCmd, bytesOf(restore), {}},
        {"reconnect",
         ReconnectDevsCmd,
         devList({"cam-1", "cam-3", "ghost"}),
         {DevStatusPush, DevInfoPush, DevStatusPush}},
        {"clear face count", ClearFaceTemperatureCountCmd, QByteArray("cam-1"), {}},
        {"service token", SetSaasTokenCmd, QByteArray("token"), {}},
        {"service logout", SaasLogoutCmd, QByteArray(""), {}},
        {"open remote configuration", OpenRemoteConfigReq, bytesOf(remote), {}},
        {"upgrade of an unplugged device", DoDevUpgradeCmd, bytesOf(upgrade), {}},
    };
    for (const CommandRow& row : rows) {
        SCOPED_TRACE(row.name);
        SimProcess& sim = startSim(domainNetwork);
        ASSERT_TRUE(sim.initialise());
        sim.send(row.type, row.payload);
        // The search answer follows whatever the command caused at once.
        sim.send(SearchDevsCmd, QByteArray());
        QList<int> types = typesOf(sim.takeUntil(SearchedDevsPush));
        types.removeLast();
        EXPECT_EQ(types, row.pushes);
    }
}

TEST_F(DomainRequests, MalformedAnswerTypesCarryBytesThatDoNotParse)
{
    SimProcess& sim = startSim(domainNetwork.left(domainNetwork.lastIndexOf('}')) +
                               R"(, "faults": {"malformedTypes": [21, 59]}})");
    ASSERT_TRUE(sim.initialise());
    vms_sdk_proto::DevNetGetReq net;
    net.set_request_id("{net}");
    net.set_dev_id("cam-1");
    sim.send(DevNetGetReq, net);
    const QByteArray netAnswer = sim.takePayload(DevNetGetRes);
    EXPECT_FALSE(
        vms_sdk_proto::DevNetGetRes().ParseFromArray(netAnswer.constData(), netAnswer.size()));
    EXPECT_FALSE(vms_sdk_proto::Response().ParseFromArray(netAnswer.constData(), netAnswer.size()));

    vms_sdk_proto::ChannelReq presets;
    presets.set_request_id("{presets}");
    *presets.mutable_channel_id() = channelOf("cam-1", 1);
    sim.send(GetPresetsReq, presets);
    const QByteArray presetsAnswer = sim.takePayload(GetPresetRes);
    EXPECT_FALSE(vms_sdk_proto::GetPresetRes().ParseFromArray(presetsAnswer.constData(),
                                                              presetsAnswer.size()));

    // Other types are untouched.
    sim.send(GetPatrolsReq, presets);
    EXPECT_EQ(sim.take<vms_sdk_proto::GetPatrolRes>(GetPatrolRes).request_id(), "{presets}");
}
