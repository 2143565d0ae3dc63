// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Records to wire messages and back. Every conversion makes the round trip with every field
// set to a value of its own and the message serialized on the way, so a forgotten or swapped
// field fails its row; a few exact checks pin fields that a consistent mistake in both
// directions would keep hidden.

#include "support/record_filler.h"
#include "vms_sdk/client/record_json.h"
#include "vms_sdk/request/conversions/common_conversions.h"
#include "vms_sdk/request/conversions/device_conversions.h"
#include "vms_sdk/request/conversions/face_conversions.h"
#include "vms_sdk/request/conversions/media_conversions.h"
#include "vms_sdk/request/conversions/network_conversions.h"
#include "vms_sdk/request/conversions/ptz_conversions.h"
#include "vms_sdk/request/conversions/upgrade_conversions.h"

#include <QMetaProperty>

#include <gtest/gtest.h>

#include <functional>

using namespace vms_sdk;
using namespace vms_sdk::conversion;
using vms_sdk::record_json::toText;

namespace {

// Through the bytes, as on the wire.
template<class Message>
Message reparse(const Message& message)
{
    Message copy;
    EXPECT_TRUE(copy.ParseFromString(message.SerializeAsString()));
    return copy;
}

// Fields a message does not carry come back at their defaults.
template<class Record>
Record withoutFields(Record record, std::initializer_list<const char*> fields)
{
    const QMetaObject& meta = Record::staticMetaObject;
    for (const char* field : fields) {
        const QMetaProperty property = meta.property(meta.indexOfProperty(field));
        EXPECT_TRUE(property.isValid()) << field;
        property.writeOnGadget(&record, QVariant(property.userType(), nullptr));
    }
    return record;
}

template<class Record, class Wire>
void valueRoundTrip(vms_test::RecordFiller& filler)
{
    const Record original = filler.make<Record>();
    const Record back = fromWire(reparse<Wire>(toWire(original)));
    EXPECT_EQ(back, original) << toText(original).toStdString() << "\n"
                              << toText(back).toStdString();
}

template<class Condition, class Request>
void conditionRoundTripWithout(vms_test::RecordFiller& filler,
                               std::initializer_list<const char*> notOnWire)
{
    const Condition original = filler.make<Condition>();
    Request request;
    fillWire(original, request);
    Condition back{};
    fillRecord(reparse(request), back);
    const Condition expected = withoutFields(original, notOnWire);
    EXPECT_EQ(back, expected) << toText(expected).toStdString() << "\n"
                              << toText(back).toStdString();
}

template<class Condition, class Request>
void conditionRoundTrip(vms_test::RecordFiller& filler)
{
    conditionRoundTripWithout<Condition, Request>(filler, {});
}

template<class Record, class Message>
void listRoundTrip(vms_test::RecordFiller& filler)
{
    const QList<Record> original = filler.makeList<Record>(3);
    Message message;
    fillWire(original, message);
    EXPECT_EQ(fromWire(reparse(message)), original);
}

struct Row
{
    const char* name;
    std::function<void(vms_test::RecordFiller&)> check;
};

const std::vector<Row>& rows()
{
    namespace p = vms_sdk_proto;
    static const std::vector<Row> all = {
        // Shared.
        {"ChannelId", valueRoundTrip<ChannelId, p::ChannelId>},
        {"Response", valueRoundTrip<Response, p::Response>},
        {"DeviceReq", conditionRoundTrip<DeviceCondition, p::DeviceReq>},
        {"DevNetGetReq", conditionRoundTrip<DeviceCondition, p::DevNetGetReq>},
        {"ChannelReq", conditionRoundTrip<ChannelCondition, p::ChannelReq>},
        // Devices.
        {"InitDgwReq", conditionRoundTrip<InitDgwCondition, p::InitDgwReq>},
        {"DevInfo", valueRoundTrip<DevInfo, p::DevInfo>},
        {"SetManagedDevsCmd", listRoundTrip<DevInfo, p::SetManagedDevsCmd>},
        {"AddManagedDevsCmd", listRoundTrip<DevInfo, p::AddManagedDevsCmd>},
        {"EditManagedDevsCmd", listRoundTrip<DevInfo, p::EditManagedDevsCmd>},
        {"SearchedDevsPush", listRoundTrip<DevInfo, p::SearchedDevsPush>},
        {"AiAbilityInfo", valueRoundTrip<AiAbilityInfo, p::AiAbilityInfo>},
        {"DevInfoFromDgw", valueRoundTrip<DevInfoFromDgw, p::DevInfoFromDgw>},
        {"DevChannInfo", valueRoundTrip<DevChannelInfo, p::DevChannInfo>},
        {"DevChannelsInfoPush",
         [](vms_test::RecordFiller& filler) {
             const DevChanInfoList channels = filler.makeList<DevChannelInfo>();
             p::DevChannelsInfoPush push;
             fillWire(QStringLiteral("dev-\u00e9"), channels, push);
             push = reparse(push);
             EXPECT_EQ(text(push.dev_id()), QStringLiteral("dev-\u00e9"));
             EXPECT_EQ(fromWire(push), channels);
         }},
        {"DevTempUserCode", valueRoundTrip<DevTempUserCode, p::DevTempUserCode>},
        {"DevTempUserCodePush", listRoundTrip<DevTempUserCode, p::DevTempUserCodePush>},
        {"SetSearchDevsConfigCmd", conditionRoundTrip<SearchDevsConfig, p::SetSearchDevsConfigCmd>},
        {"SecretInfo", valueRoundTrip<SecretInfo, p::SecretInfo>},
        {"DevActivateCmd", conditionRoundTrip<ActivateCondition, p::DevActivateCmd>},
        {"DevSecretQuestionsGetReq",
         conditionRoundTrip<GetDevSecretQuestionsCondition, p::DevSecretQuestionsGetReq>},
        {"DevPwdResetReq", conditionRoundTrip<ResetDevPwdCondition, p::DevPwdResetReq>},
        {"ModifyDevAccountReq",
         conditionRoundTrip<ModifyDevAccountCondition, p::ModifyDevAccountReq>},
        {"ModifyDevNameReq", conditionRoundTrip<ModifyDevNameCondition, p::ModifyDevNameReq>},
        {"SetOSDReq", conditionRoundTrip<SetOSDCondition, p::SetOSDReq>},
        // Network, platforms and certificates.
        {"DevNetInfo", valueRoundTrip<DevNetInfo, p::DevNetInfo>},
        {"DevNetSetReq", conditionRoundTrip<SetDevNetCondition, p::DevNetSetReq>},
        {"DevPlatformInfo", valueRoundTrip<DevPlatformInfo, p::DevPlatformInfo>},
        {"DevPlatformGetReq", conditionRoundTrip<GetDevPlatformCondition, p::DevPlatformGetReq>},
        {"DevPlatformSetReq", conditionRoundTrip<SetDevPlatformCondition, p::DevPlatformSetReq>},
        {"DevPlatformInfo_kvr", valueRoundTrip<DevPlatformInfo_kvr, p::DevPlatformInfo_kvr>},
        {"DevPlatform_kvrSetReq",
         conditionRoundTrip<SetDevPlatform_kvrCondition, p::DevPlatform_kvrSetReq>},
        {"DevCertImportReq", conditionRoundTrip<ImportDevCertCondition, p::DevCertImportReq>},
        // Pan-tilt-zoom.
        {"PTZCtrlReq", conditionRoundTrip<PTZCtrlCondition, p::PTZCtrlReq>},
        {"PresetInfo", valueRoundTrip<PresetInfo, p::PresetInfo>},
        {"PresetOperReq", conditionRoundTrip<PresetOperCondition, p::PresetOperReq>},
        {"PatrolPresetInfo", valueRoundTrip<PatrolPresetInfo, p::PatrolPresetInfo>},
        {"PatrolInfo", valueRoundTrip<PatrolInfo, p::PatrolInfo>},
        {"PatrolOperReq", conditionRoundTrip<PatrolOperCondition, p::PatrolOperReq>},
        {"PatrolPresetOperReq",
         conditionRoundTrip<PatrolPresetOperCondition, p::PatrolPresetOperReq>},
        {"SetPatrolPresetsReq_PresetInfo",
         valueRoundTrip<PatrolPresetItem, p::SetPatrolPresetsReq::PresetInfo>},
        {"SetPatrolPresetsReq",
         conditionRoundTrip<SetPatrolPresetsCondition, p::SetPatrolPresetsReq>},
        // Recordings, streams and talk.
        {"VideoRecInfo", valueRoundTrip<VideoRecInfo, p::VideoRecInfo>},
        {"SearchVideoRecordingsReq",
         conditionRoundTrip<RecsSearchCondition, p::SearchVideoRecordingsReq>},
        {"GetRtspUrlReq", conditionRoundTrip<GetRtspUrlCondition, p::GetRtspUrlReq>},
        {"LiveVideoConnReq", conditionRoundTrip<LiveVideoConnCondition, p::LiveVideoConnReq>},
        {"PlaybackByFileReq", conditionRoundTrip<PlaybackByFileCondition, p::PlaybackByFileReq>},
        {"PlaybackByTimeReq",
         [](vms_test::RecordFiller& filler) {
             conditionRoundTripWithout<PlaybackByTimeCondition, p::PlaybackByTimeReq>(filler,
                                                                                      {"download"});
         }},
        {"TalkOperReq", conditionRoundTrip<TalkOperCondition, p::TalkOperReq>},
        {"SpeakOperReq", conditionRoundTrip<SpeakOperCondition, p::TalkOperReq>},
        // Faces and alarms.
        {"FaceInfo", valueRoundTrip<FaceInfo, p::FaceInfo>},
        {"AddFaceReq",
         [](vms_test::RecordFiller& filler) {
             conditionRoundTripWithout<ModifyFaceCondition, p::AddFaceReq>(
                 filler, {"package", "index", "groupIds", "faceId", "birthdate", "classification",
                          "startTime", "endTime", "jpegBase64List", "jpegUuidList"});
         }},
        {"GetFacesReq",
         [](vms_test::RecordFiller& filler) {
             conditionRoundTripWithout<GetFacesCondition, p::GetFacesReq>(
                 filler, {"package", "keyword", "groupIds", "gender", "active", "classification",
                          "modelingStatus"});
         }},
        {"DelFaceReq", conditionRoundTrip<DelFaceCondition, p::DelFaceReq>},
        {"FaceDetectRecordInfo", valueRoundTrip<FaceDetectRecordInfo, p::FaceDetectRecordInfo>},
        {"GetFaceDetectRecordsReq",
         conditionRoundTrip<GetFaceDetectRecordsCondition, p::GetFaceDetectRecordsReq>},
        {"FaceCountInfo", valueRoundTrip<FaceCountInfo, p::FaceCountInfo>},
        {"AlarmInfo", valueRoundTrip<AlarmInfo, p::AlarmInfo>},
        // Upgrade and files.
        {"DevUpgradeReq", conditionRoundTrip<DevUpgradeCondtition, p::DevUpgradeReq>},
        {"DevUpgradeRes",
         [](vms_test::RecordFiller& filler) {
             const DevUpgradeInfo info = filler.make<DevUpgradeInfo>();
             const Response response = filler.make<Response>();
             p::DevUpgradeRes answer;
             fillResponse(response, answer);
             fillWire(info, answer);
             answer = reparse(answer);
             EXPECT_EQ(responseOf(answer), response);
             EXPECT_EQ(fromWire(answer), info);
         }},
        {"UploadFileReq", conditionRoundTrip<UploadFileCondition, p::UploadFileReq>},
        {"DownloadFileReq", conditionRoundTrip<DownloadFileCondition, p::DownloadFileReq>},
        {"FileTransferProgress", valueRoundTrip<FileTransferProgress, p::FileTransferProgress>},
    };
    return all;
}

class ConversionRoundTrip : public testing::TestWithParam<int>
{};

TEST_P(ConversionRoundTrip, EveryFieldComesBack)
{
    vms_test::RecordFiller filler;
    rows().at(std::size_t(GetParam())).check(filler);
}

INSTANTIATE_TEST_SUITE_P(AllMessages, ConversionRoundTrip, testing::Range(0, int(rows().size())),
                         [](const testing::TestParamInfo<int>& info) {
                             return std::string(rows().at(std::size_t(info.param)).name);
                         });

TEST(WireFields, SetDevNetConditionFillsTheNestedNetInfo)
{
    const SetDevNetCondition condition{.requestId = QStringLiteral("req-1"),
                                       .devId = QStringLiteral("dev-1"),
                                       .ip = QStringLiteral("10.0.0.2"),
                                       .subNetMask = QStringLiteral("255.255.255.0"),
                                       .defaultGateway = QStringLiteral("10.0.0.1"),
                                       .dns = QStringLiteral("10.0.0.53"),
                                       .dhcpEnabled = true,
                                       .netMode = 1,
                                       .httpPort = 8080,
                                       .netCardIndex = 2};
    vms_sdk_proto::DevNetSetReq request;
    fillWire(condition, request);
    EXPECT_EQ(request.request_id(), "req-1");
    EXPECT_EQ(request.dev_id(), "dev-1");
    EXPECT_EQ(request.net_info().ip(), "10.0.0.2");
    EXPECT_EQ(request.net_info().sub_net_mask(), "255.255.255.0");
    EXPECT_EQ(request.net_info().default_gateway(), "10.0.0.1");
    EXPECT_EQ(request.net_info().dns(), "10.0.0.53");
    EXPECT_TRUE(request.net_info().attr_5());
    EXPECT_EQ(request.net_info().attr_6(), 1);
    EXPECT_EQ(request.net_info().attr_7(), 8080);
    EXPECT_EQ(request.net_info().attr_8(), 2);
}

TEST(WireFields, AbsentNetInfoReadsAsZeroesNotAsRecordDefaults)
{
    // The -1 defaults belong to a record made by hand; a gateway's answer says what it says.
    EXPECT_EQ(DevNetInfo{}.netMode, -1);
    EXPECT_EQ(DevNetInfo{}.netCardIndex, -1);
    const DevNetInfo fromGateway = fromWire(vms_sdk_proto::DevNetGetRes{}.net_info());
    EXPECT_EQ(fromGateway.netMode, 0);
    EXPECT_EQ(fromGateway.netCardIndex, 0);
}

TEST(WireFields, ResponseHead)
{
    vms_sdk_proto::DevNetGetRes answer;
    answer.set_request_id("req-7");
    const Response success = responseOf(answer);
    EXPECT_EQ(success.requestId, QStringLiteral("req-7"));
    EXPECT_EQ(success.errCode, 0);
    EXPECT_TRUE(success.errMsg.isEmpty());

    answer.mutable_error()->set_code(-3);
    answer.mutable_error()->set_err_msg("d\xc3\xa9j\xc3\xa0");
    EXPECT_EQ(responseOf(answer), (Response{.requestId = QStringLiteral("req-7"),
                                            .errCode = -3,
                                            .errMsg = QStringLiteral("d\u00e9j\u00e0")}));

    // A success without text leaves the Error part out: no request id, no bytes at all.
    vms_sdk_proto::Response empty;
    fillResponse(Response{}, empty);
    EXPECT_FALSE(empty.has_error());
    EXPECT_TRUE(empty.SerializeAsString().empty());
}

TEST(WireFields, EnumerationsTravelAsTheirNumbers)
{
    vms_sdk_proto::PTZCtrlReq request;
    fillWire(
        PTZCtrlCondition{
            .operation = PTZOperationZoomOut, .action = PTZActionStop, .speed = 5, .duration = 300},
        request);
    EXPECT_EQ(request.attr_3(), 9);
    EXPECT_EQ(request.attr_4(), 1);
    EXPECT_EQ(request.attr_5(), 5);
    EXPECT_EQ(request.attr_6(), 300u);

    vms_sdk_proto::PresetOperReq preset;
    fillWire(PresetOperCondition{.presetNum = 4, .operation = PresetOperDelete}, preset);
    EXPECT_EQ(preset.attr_3(), 4u);
    EXPECT_EQ(preset.attr_5(), 2);
}

TEST(WireFields, StreamTimesCarryMilliseconds)
{
    vms_sdk_proto::PlaybackByTimeReq request;
    fillWire(PlaybackByTimeCondition{.channelId = {.devId = QStringLiteral("d"), .channelIndex = 1},
                                     .startTime = QDateTime(QDate(2021, 3, 4), QTime(5, 6, 7, 8)),
                                     .recordSrc = 2},
             request);
    EXPECT_EQ(request.start_time(), "2021-03-04 05:06:07.008");
    EXPECT_EQ(request.channel_id().dev_id(), "d");
    EXPECT_EQ(request.channel_id().channel_index(), 1u);
    EXPECT_EQ(request.attr_3(), 2);

    EXPECT_EQ(streamTime(QDateTime()), "");
    EXPECT_FALSE(streamTime(std::string("not a time")).isValid());
}

TEST(WireFields, DeviceNumbersAndAbilities)
{
    const DevInfo device{.devType = 3,
                         .port = 8000,
                         .protocol = 2,
                         .channelCount = 16,
                         .dhcpEnabled = true,
                         .loginMode = 7};
    const vms_sdk_proto::DevInfo wire = toWire(device);
    EXPECT_EQ(wire.attr_4(), 3u);
    EXPECT_EQ(wire.attr_6(), 8000u);
    EXPECT_EQ(wire.attr_11(), 2);
    EXPECT_EQ(wire.attr_13(), 16u);
    EXPECT_TRUE(wire.attr_15());
    EXPECT_EQ(wire.attr_18(), 7);

    const DevInfoFromDgw pushed{
        .abilityDetails = {{5, AiAbilityInfo{.package = QStringLiteral("pkg")}},
                           {-1, AiAbilityInfo{.enabled = true}}}};
    const vms_sdk_proto::DevInfoFromDgw pushedWire = toWire(pushed);
    ASSERT_EQ(pushedWire.ability_details().size(), 2u);
    EXPECT_EQ(pushedWire.ability_details().at(5).package(), "pkg");
    EXPECT_TRUE(pushedWire.ability_details().at(-1).attr_5());
}

TEST(WireFields, RepeatedFieldsKeepTheirOrder)
{
    const ActivateCondition condition{
        .devsSn = {QStringLiteral("sn-2"), QStringLiteral("sn-1"), QStringLiteral("sn-3")},
        .secrets = {SecretInfo{.question = QStringLiteral("q1"), .answer = QStringLiteral("a1")},
                    SecretInfo{.question = QStringLiteral("q2"), .answer = QStringLiteral("a2")}}};
    vms_sdk_proto::DevActivateCmd command;
    fillWire(condition, command);
    ASSERT_EQ(command.devs_sn_size(), 3);
    EXPECT_EQ(command.devs_sn(0), "sn-2");
    EXPECT_EQ(command.devs_sn(2), "sn-3");
    ASSERT_EQ(command.secrets_size(), 2);
    EXPECT_EQ(command.secrets(1).question(), "q2");

    const AlarmInfo alarm{.attachments = {QByteArray("\x00z", 2), QByteArray(), QByteArray("y")}};
    const vms_sdk_proto::AlarmInfo alarmWire = toWire(alarm);
    ASSERT_EQ(alarmWire.attachments_size(), 3);
    EXPECT_EQ(alarmWire.attachments(0), std::string("\x00z", 2));
    EXPECT_EQ(alarmWire.attachments(1), "");
}

} // namespace
