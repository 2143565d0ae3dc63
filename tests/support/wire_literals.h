// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// Records and the wire messages they must become, both written out by hand from the field
// tables of the messages, never through the conversions under test. Every field holds a value
// of its own (no number repeats within a record, strings name their field, the booleans of a
// record alternate), so a field dropped or swapped by a conversion changes the bytes. The
// device id and the channel are not ASCII, so a conversion that is not UTF-8 shows too.

#include <vms_sdk/vms_client_sdk.h>

#include "vms_message.pb.h"

#include <QByteArray>
#include <QDateTime>

#include <string>

namespace vms_test::literal {

using namespace vms_sdk;
namespace p = vms_sdk_proto;

// Records are packed several fields to a line; the messages keep one field to a line.
// clang-format off

template<class Record, class Wire>
struct Literal
{
    Record record;
    Wire wire;
};

inline Literal<ChannelId, p::ChannelId> channel()
{
    const ChannelId record{.devId = "cam-\xc3\xa9", .channelIndex = 7};
    p::ChannelId wire;
    wire.set_dev_id("cam-\xc3\xa9");
    wire.set_channel_index(7);
    return {record, wire};
}

// The head of a request: its id and the device, or the channel, it is for.
template<class Wire>
Wire deviceRequest(const char* requestId)
{
    Wire wire;
    wire.set_request_id(requestId);
    wire.set_dev_id("dev-\xc3\xa9");
    return wire;
}

template<class Wire>
Wire channelRequest(const char* requestId)
{
    Wire wire;
    wire.set_request_id(requestId);
    *wire.mutable_channel_id() = channel().wire;
    return wire;
}

inline Literal<Response, p::Response> response()
{
    const Response record{.requestId = "req-response", .errCode = -3,
                          .errMsg = "d\xc3\xa9j\xc3\xa0"};
    p::Response wire;
    wire.mutable_error()->set_code(-3);
    wire.mutable_error()->set_err_msg("d\xc3\xa9j\xc3\xa0");
    wire.set_request_id("req-response");
    return {record, wire};
}

inline Literal<DeviceCondition, p::DeviceReq> deviceReq()
{
    const DeviceCondition record{.requestId = "req-deviceReq", .devId = "dev-\xc3\xa9"};
    return {record, deviceRequest<p::DeviceReq>("req-deviceReq")};
}

inline Literal<DeviceCondition, p::DevNetGetReq> devNetGetReq()
{
    const DeviceCondition record{.requestId = "req-devNetGetReq", .devId = "dev-\xc3\xa9"};
    return {record, deviceRequest<p::DevNetGetReq>("req-devNetGetReq")};
}

inline Literal<ChannelCondition, p::ChannelReq> channelReq()
{
    const ChannelCondition record{.requestId = "req-channelReq", .channelId = channel().record};
    return {record, channelRequest<p::ChannelReq>("req-channelReq")};
}

inline Literal<InitDgwCondition, p::InitDgwReq> initDgw()
{
    const InitDgwCondition record{.ak = "ak", .sk = "sk", .ck = "ck", .csk = "csk",
                                  .serviceEnabled = true, .url = "url", .serviceType = 11,
                                  .saasServer = "saasServer", .saasCer = "saasCer"};
    p::InitDgwReq wire;
    wire.set_ak("ak");
    wire.set_sk("sk");
    wire.set_ck("ck");
    wire.set_csk("csk");
    wire.set_attr_6(true);
    wire.set_url("url");
    wire.set_attr_8(11);
    wire.set_saas_server("saasServer");
    wire.set_saas_cer("saasCer");
    return {record, wire};
}

inline Literal<AiAbilityInfo, p::AiAbilityInfo> aiAbility()
{
    const AiAbilityInfo record{.package = "package", .version = 12, .name = "name", .status = 13,
                               .enabled = true};
    p::AiAbilityInfo wire;
    wire.set_package("package");
    wire.set_attr_2(12);
    wire.set_name("name");
    wire.set_attr_4(13);
    wire.set_attr_5(true);
    return {record, wire};
}

inline Literal<DevInfo, p::DevInfo> devInfo()
{
    const DevInfo record{.id = "id", .name = "name", .sn = "sn", .devType = 14, .ip = "ip",
                         .port = 15, .user = "user", .password = "password", .version = "version",
                         .seriesName = "seriesName", .protocol = 16, .status = 17,
                         .channelCount = 18, .activateStatus = 19, .dhcpEnabled = true,
                         .httpPort = 20, .rtspPort = 21, .loginMode = 22};
    p::DevInfo wire;
    wire.set_id("id");
    wire.set_name("name");
    wire.set_sn("sn");
    wire.set_attr_4(14);
    wire.set_ip("ip");
    wire.set_attr_6(15);
    wire.set_user("user");
    wire.set_password("password");
    wire.set_version("version");
    wire.set_series_name("seriesName");
    wire.set_attr_11(16);
    wire.set_attr_12(17);
    wire.set_attr_13(18);
    wire.set_attr_14(19);
    wire.set_attr_15(true);
    wire.set_attr_16(20);
    wire.set_attr_17(21);
    wire.set_attr_18(22);
    return {record, wire};
}

inline Literal<DevInfoFromDgw, p::DevInfoFromDgw> devInfoFromDgw()
{
    const DevInfoFromDgw record{.id = "id", .sn = "sn", .ip = "ip", .devType = 23, .port = 24,
                                .protocol = 25, .version = "version", .seriesName = "seriesName",
                                .channelCount = 26, .status = 27, .devCode = "devCode",
                                .p2pStatus = 28,
                                .abilityDetails = {{29, aiAbility().record}, {-29, {}}}};
    p::DevInfoFromDgw wire;
    wire.set_id("id");
    wire.set_sn("sn");
    wire.set_ip("ip");
    wire.set_attr_4(23);
    wire.set_attr_5(24);
    wire.set_attr_6(25);
    wire.set_version("version");
    wire.set_series_name("seriesName");
    wire.set_attr_9(26);
    wire.set_attr_10(27);
    wire.set_dev_code("devCode");
    wire.set_attr_12(28);
    (*wire.mutable_ability_details())[29] = aiAbility().wire;
    (*wire.mutable_ability_details())[-29] = p::AiAbilityInfo();
    return {record, wire};
}

inline Literal<DevChannelInfo, p::DevChannInfo> devChannel()
{
    const DevChannelInfo record{.channelId = channel().record, .osd = "osd", .devType = 30,
                                .status = 31, .sn = "sn", .ip = "ip", .port = 32, .user = "user",
                                .password = "password", .protocol = 33, .remoteChannelIndex = 34,
                                .abilityDetails = {{35, aiAbility().record}, {-35, {}}}};
    p::DevChannInfo wire;
    *wire.mutable_channel_id() = channel().wire;
    wire.set_osd("osd");
    wire.set_attr_3(30);
    wire.set_attr_4(31);
    wire.set_sn("sn");
    wire.set_ip("ip");
    wire.set_attr_7(32);
    wire.set_user("user");
    wire.set_password("password");
    wire.set_attr_10(33);
    wire.set_attr_11(34);
    (*wire.mutable_ability_details())[35] = aiAbility().wire;
    (*wire.mutable_ability_details())[-35] = p::AiAbilityInfo();
    return {record, wire};
}

inline Literal<DevTempUserCode, p::DevTempUserCode> tempUserCode()
{
    const DevTempUserCode record{.sn = "sn", .code = "code"};
    p::DevTempUserCode wire;
    wire.set_sn("sn");
    wire.set_code("code");
    return {record, wire};
}

inline Literal<SearchDevsConfig, p::SetSearchDevsConfigCmd> searchConfig()
{
    const SearchDevsConfig record{.rangeEnabled = true, .beginIp = "beginIp", .endIp = "endIp",
                                  .port = 36};
    p::SetSearchDevsConfigCmd wire;
    wire.set_attr_1(true);
    wire.set_begin_ip("beginIp");
    wire.set_end_ip("endIp");
    wire.set_attr_4(36);
    return {record, wire};
}

inline Literal<SecretInfo, p::SecretInfo> secret()
{
    const SecretInfo record{.question = "question", .answer = "answer"};
    p::SecretInfo wire;
    wire.set_question("question");
    wire.set_answer("answer");
    return {record, wire};
}

inline Literal<ActivateCondition, p::DevActivateCmd> activate()
{
    const ActivateCondition record{.devsSn = {"devsSn-1", "devsSn-2"}, .account = "account",
                                   .password = "password", .secrets = {secret().record, {}},
                                   .pwdLevel = 37};
    p::DevActivateCmd wire;
    wire.add_devs_sn("devsSn-1");
    wire.add_devs_sn("devsSn-2");
    wire.set_account("account");
    wire.set_password("password");
    *wire.add_secrets() = secret().wire;
    wire.add_secrets();
    wire.set_attr_5(37);
    return {record, wire};
}

inline Literal<GetDevSecretQuestionsCondition, p::DevSecretQuestionsGetReq> secretQuestions()
{
    const GetDevSecretQuestionsCondition record{.devSn = "devSn", .account = "account"};
    p::DevSecretQuestionsGetReq wire;
    wire.set_dev_sn("devSn");
    wire.set_account("account");
    return {record, wire};
}

inline Literal<ResetDevPwdCondition, p::DevPwdResetReq> resetPwd()
{
    const ResetDevPwdCondition record{.devSn = "devSn", .account = "account",
                                      .password = "password", .secrets = {secret().record, {}}};
    p::DevPwdResetReq wire;
    wire.set_dev_sn("devSn");
    wire.set_account("account");
    wire.set_password("password");
    *wire.add_secrets() = secret().wire;
    wire.add_secrets();
    return {record, wire};
}

inline Literal<ModifyDevAccountCondition, p::ModifyDevAccountReq> modifyAccount()
{
    const ModifyDevAccountCondition record{.requestId = "req-modifyAccount",
                                           .devId = "dev-\xc3\xa9", .account = "account",
                                           .oldPassword = "oldPassword",
                                           .newPassword = "newPassword", .level = "level"};
    auto wire = deviceRequest<p::ModifyDevAccountReq>("req-modifyAccount");
    wire.set_account("account");
    wire.set_old_password("oldPassword");
    wire.set_new_password("newPassword");
    wire.set_level("level");
    return {record, wire};
}

inline Literal<ModifyDevNameCondition, p::ModifyDevNameReq> modifyName()
{
    const ModifyDevNameCondition record{.requestId = "req-modifyName", .devId = "dev-\xc3\xa9",
                                        .devName = "devName"};
    auto wire = deviceRequest<p::ModifyDevNameReq>("req-modifyName");
    wire.set_dev_name("devName");
    return {record, wire};
}

inline Literal<SetOSDCondition, p::SetOSDReq> setOsd()
{
    const SetOSDCondition record{.requestId = "req-setOsd", .channelId = channel().record,
                                 .osd = "osd"};
    auto wire = channelRequest<p::SetOSDReq>("req-setOsd");
    wire.set_osd("osd");
    return {record, wire};
}

inline Literal<DevNetInfo, p::DevNetInfo> devNetInfo()
{
    const DevNetInfo record{.ip = "ip", .subNetMask = "subNetMask",
                            .defaultGateway = "defaultGateway", .dns = "dns", .dhcpEnabled = true,
                            .netMode = 38, .httpPort = 39, .netCardIndex = 40};
    p::DevNetInfo wire;
    wire.set_ip("ip");
    wire.set_sub_net_mask("subNetMask");
    wire.set_default_gateway("defaultGateway");
    wire.set_dns("dns");
    wire.set_attr_5(true);
    wire.set_attr_6(38);
    wire.set_attr_7(39);
    wire.set_attr_8(40);
    return {record, wire};
}

// The one mapping the dispatcher's description gives field by field: the four address strings
// in order, then the flag and the three numbers, all inside the nested net_info.
inline Literal<SetDevNetCondition, p::DevNetSetReq> setDevNet()
{
    const SetDevNetCondition record{.requestId = "req-setDevNet", .devId = "dev-\xc3\xa9",
                                    .ip = "10.0.0.2", .subNetMask = "255.255.255.0",
                                    .defaultGateway = "10.0.0.1", .dns = "10.0.0.53",
                                    .dhcpEnabled = true, .netMode = 201, .httpPort = 8080,
                                    .netCardIndex = 202};
    auto wire = deviceRequest<p::DevNetSetReq>("req-setDevNet");
    wire.mutable_net_info()->set_ip("10.0.0.2");
    wire.mutable_net_info()->set_sub_net_mask("255.255.255.0");
    wire.mutable_net_info()->set_default_gateway("10.0.0.1");
    wire.mutable_net_info()->set_dns("10.0.0.53");
    wire.mutable_net_info()->set_attr_5(true);
    wire.mutable_net_info()->set_attr_6(201);
    wire.mutable_net_info()->set_attr_7(8080);
    wire.mutable_net_info()->set_attr_8(202);
    return {record, wire};
}

inline Literal<DevPlatformInfo, p::DevPlatformInfo> devPlatformInfo()
{
    const DevPlatformInfo record{.enabled = true, .platformAddr = "platformAddr", .online = false,
                                 .port = 41, .protocolType = 42};
    p::DevPlatformInfo wire;
    wire.set_attr_1(true);
    wire.set_platform_addr("platformAddr");
    wire.set_attr_3(false);
    wire.set_attr_4(41);
    wire.set_attr_5(42);
    return {record, wire};
}

inline Literal<GetDevPlatformCondition, p::DevPlatformGetReq> getDevPlatform()
{
    const GetDevPlatformCondition record{.requestId = "req-getDevPlatform", .devId = "dev-\xc3\xa9",
                                         .platformType = 43, .withStatus = true};
    auto wire = deviceRequest<p::DevPlatformGetReq>("req-getDevPlatform");
    wire.set_attr_3(43);
    wire.set_attr_4(true);
    return {record, wire};
}

inline Literal<SetDevPlatformCondition, p::DevPlatformSetReq> setDevPlatform()
{
    const SetDevPlatformCondition record{.requestId = "req-setDevPlatform", .devId = "dev-\xc3\xa9",
                                         .platformInfo = devPlatformInfo().record};
    auto wire = deviceRequest<p::DevPlatformSetReq>("req-setDevPlatform");
    *wire.mutable_platform_info() = devPlatformInfo().wire;
    return {record, wire};
}

inline Literal<DevPlatformInfo_kvr, p::DevPlatformInfo_kvr> devPlatformKvr()
{
    const DevPlatformInfo_kvr record{.enabled = true, .onlineServerEnabled = false,
                                     .onlineServer = "onlineServer", .bussinessServerEnabled = true,
                                     .bussinessServer = "bussinessServer"};
    p::DevPlatformInfo_kvr wire;
    wire.set_attr_1(true);
    wire.set_attr_2(false);
    wire.set_online_server("onlineServer");
    wire.set_attr_4(true);
    wire.set_bussiness_server("bussinessServer");
    return {record, wire};
}

inline Literal<SetDevPlatform_kvrCondition, p::DevPlatform_kvrSetReq> setDevPlatformKvr()
{
    const SetDevPlatform_kvrCondition record{.requestId = "req-setDevPlatformKvr",
                                             .devId = "dev-\xc3\xa9",
                                             .platformInfo = devPlatformKvr().record};
    auto wire = deviceRequest<p::DevPlatform_kvrSetReq>("req-setDevPlatformKvr");
    *wire.mutable_platform_info() = devPlatformKvr().wire;
    return {record, wire};
}

inline Literal<ImportDevCertCondition, p::DevCertImportReq> importCert()
{
    const ImportDevCertCondition record{.requestId = "req-importCert", .devId = "dev-\xc3\xa9",
                                        .certType = 44, .ca = "ca", .certContents = "certContents",
                                        .key = "key", .secretKey = "secretKey"};
    auto wire = deviceRequest<p::DevCertImportReq>("req-importCert");
    wire.set_attr_3(44);
    wire.set_ca("ca");
    wire.set_cert_contents("certContents");
    wire.set_key("key");
    wire.set_secret_key("secretKey");
    return {record, wire};
}

inline Literal<PTZCtrlCondition, p::PTZCtrlReq> ptzCtrl()
{
    const PTZCtrlCondition record{.requestId = "req-ptzCtrl", .channelId = channel().record,
                                  .operation = PTZOperationZoomOut, .action = PTZActionStop,
                                  .speed = 47, .duration = 48};
    auto wire = channelRequest<p::PTZCtrlReq>("req-ptzCtrl");
    wire.set_attr_3(9);
    wire.set_attr_4(1);
    wire.set_attr_5(47);
    wire.set_attr_6(48);
    return {record, wire};
}

inline Literal<PresetInfo, p::PresetInfo> preset()
{
    const PresetInfo record{.presetNum = 49, .presetName = "presetName"};
    p::PresetInfo wire;
    wire.set_attr_1(49);
    wire.set_preset_name("presetName");
    return {record, wire};
}

inline Literal<PresetOperCondition, p::PresetOperReq> presetOper()
{
    const PresetOperCondition record{.requestId = "req-presetOper", .channelId = channel().record,
                                     .presetNum = 50, .presetName = "presetName",
                                     .operation = PresetOperDelete};
    auto wire = channelRequest<p::PresetOperReq>("req-presetOper");
    wire.set_attr_3(50);
    wire.set_preset_name("presetName");
    wire.set_attr_5(2);
    return {record, wire};
}

inline Literal<PatrolPresetInfo, p::PatrolPresetInfo> patrolPreset()
{
    const PatrolPresetInfo record{.preset = preset().record, .stayTime = 52, .speed = 53};
    p::PatrolPresetInfo wire;
    *wire.mutable_preset() = preset().wire;
    wire.set_attr_2(52);
    wire.set_attr_3(53);
    return {record, wire};
}

inline Literal<PatrolInfo, p::PatrolInfo> patrol()
{
    const PatrolInfo record{.patrolIndex = 54, .patrolPresets = {patrolPreset().record, {}},
                            .status = 55, .mode = 56};
    p::PatrolInfo wire;
    wire.set_attr_1(54);
    *wire.add_patrol_presets() = patrolPreset().wire;
    // An empty stop still carries its (empty) preset part.
    wire.add_patrol_presets()->mutable_preset();
    wire.set_attr_3(55);
    wire.set_attr_4(56);
    return {record, wire};
}

inline Literal<PatrolOperCondition, p::PatrolOperReq> patrolOper()
{
    const PatrolOperCondition record{.requestId = "req-patrolOper", .channelId = channel().record,
                                     .patrolIndex = 57, .speed = 58, .operation = PatrolOperDelete};
    auto wire = channelRequest<p::PatrolOperReq>("req-patrolOper");
    wire.set_attr_3(57);
    wire.set_attr_4(58);
    wire.set_attr_5(2);
    return {record, wire};
}

inline Literal<PatrolPresetOperCondition, p::PatrolPresetOperReq> patrolPresetOper()
{
    const PatrolPresetOperCondition record{.requestId = "req-patrolPresetOper",
                                           .channelId = channel().record, .patrolIndex = 60,
                                           .stayTime = 61, .presetNum = 62,
                                           .operation = PatrolPresetOperModify};
    auto wire = channelRequest<p::PatrolPresetOperReq>("req-patrolPresetOper");
    wire.set_attr_3(60);
    wire.set_attr_4(61);
    wire.set_attr_5(62);
    wire.set_attr_6(2);
    return {record, wire};
}

inline Literal<PatrolPresetItem, p::SetPatrolPresetsReq::PresetInfo> patrolPresetItem()
{
    const PatrolPresetItem record{.presetNum = 64, .stayTime = 65};
    p::SetPatrolPresetsReq::PresetInfo wire;
    wire.set_attr_1(64);
    wire.set_attr_2(65);
    return {record, wire};
}

inline Literal<SetPatrolPresetsCondition, p::SetPatrolPresetsReq> setPatrolPresets()
{
    const SetPatrolPresetsCondition record{.requestId = "req-setPatrolPresets",
                                           .channelId = channel().record, .patrolIndex = 66,
                                           .presets = {patrolPresetItem().record, {}}};
    auto wire = channelRequest<p::SetPatrolPresetsReq>("req-setPatrolPresets");
    wire.set_attr_3(66);
    *wire.add_presets() = patrolPresetItem().wire;
    wire.add_presets();
    return {record, wire};
}

inline Literal<VideoRecInfo, p::VideoRecInfo> videoRec()
{
    const VideoRecInfo record{.beginTime = "beginTime", .endTime = "endTime",
                              .fileName = "fileName", .recordType = 67, .recordSrc = 68};
    p::VideoRecInfo wire;
    wire.set_begin_time("beginTime");
    wire.set_end_time("endTime");
    wire.set_file_name("fileName");
    wire.set_attr_4(67);
    wire.set_attr_5(68);
    return {record, wire};
}

inline Literal<RecsSearchCondition, p::SearchVideoRecordingsReq> recsSearch()
{
    const RecsSearchCondition record{.requestId = "req-recsSearch", .channelId = channel().record,
                                     .recordType = 69, .recordSrc = 70, .beginTime = "beginTime",
                                     .endTime = "endTime"};
    auto wire = channelRequest<p::SearchVideoRecordingsReq>("req-recsSearch");
    wire.set_attr_3(69);
    wire.set_attr_4(70);
    wire.set_begin_time("beginTime");
    wire.set_end_time("endTime");
    return {record, wire};
}

inline Literal<GetRtspUrlCondition, p::GetRtspUrlReq> rtspUrl()
{
    const GetRtspUrlCondition record{.requestId = "req-rtspUrl", .channelId = channel().record,
                                     .streamType = 71};
    auto wire = channelRequest<p::GetRtspUrlReq>("req-rtspUrl");
    wire.set_attr_3(71);
    return {record, wire};
}

inline Literal<LiveVideoConnCondition, p::LiveVideoConnReq> liveVideo()
{
    const LiveVideoConnCondition record{.channelId = channel().record, .streamType = 72};
    p::LiveVideoConnReq wire;
    *wire.mutable_channel_id() = channel().wire;
    wire.set_attr_2(72);
    return {record, wire};
}

inline Literal<PlaybackByFileCondition, p::PlaybackByFileReq> playbackByFile()
{
    const PlaybackByFileCondition record{.channelId = channel().record, .fileName = "fileName",
                                         .recordSrc = 73, .download = 74};
    p::PlaybackByFileReq wire;
    *wire.mutable_channel_id() = channel().wire;
    wire.set_file_name("fileName");
    wire.set_attr_3(73);
    wire.set_attr_4(74);
    return {record, wire};
}

// Stream requests carry their time with milliseconds.
inline Literal<PlaybackByTimeCondition, p::PlaybackByTimeReq> playbackByTime()
{
    const PlaybackByTimeCondition record{.channelId = channel().record,
                                         .startTime = QDateTime(QDate(2021, 3, 4),
                                                                QTime(5, 6, 7, 8)),
                                         .recordSrc = 203};
    p::PlaybackByTimeReq wire;
    *wire.mutable_channel_id() = channel().wire;
    wire.set_start_time("2021-03-04 05:06:07.008");
    wire.set_attr_3(203);
    return {record, wire};
}

inline Literal<TalkOperCondition, p::TalkOperReq> talkOper()
{
    const TalkOperCondition record{.requestId = "req-talkOper", .channelId = channel().record,
                                   .operation = 75};
    auto wire = channelRequest<p::TalkOperReq>("req-talkOper");
    wire.set_attr_3(75);
    return {record, wire};
}

inline Literal<FaceInfo, p::FaceInfo> faceInfo()
{
    const FaceInfo record{.index = 77, .serialNum = "serialNum", .name = "name",
                          .faceType = "faceType", .faceUrl = "faceUrl", .gender = 78, .age = 79,
                          .faceImage = QByteArray("\0\xff" "faceImage", 11),
                          .validTime = "validTime", .invalidTime = "invalidTime",
                          .organizations = {"organizations-1", "organizations-2"}};
    p::FaceInfo wire;
    wire.set_attr_1(77);
    wire.set_serial_num("serialNum");
    wire.set_name("name");
    wire.set_face_type("faceType");
    wire.set_face_url("faceUrl");
    wire.set_attr_6(78);
    wire.set_attr_7(79);
    wire.set_attr_8(std::string("\0\xff"
                                "faceImage",
                                11));
    wire.set_valid_time("validTime");
    wire.set_invalid_time("invalidTime");
    wire.add_organizations("organizations-1");
    wire.add_organizations("organizations-2");
    return {record, wire};
}

inline Literal<DelFaceCondition, p::DelFaceReq> delFace()
{
    const DelFaceCondition record{.requestId = "req-delFace", .channelId = channel().record,
                                  .index = 80};
    auto wire = channelRequest<p::DelFaceReq>("req-delFace");
    wire.set_attr_3(80);
    return {record, wire};
}

inline Literal<FaceDetectRecordInfo, p::FaceDetectRecordInfo> faceDetectRecord()
{
    const FaceDetectRecordInfo record{.serialNum = "serialNum", .name = "name",
                                      .company = "company", .department = "department",
                                      .position = "position", .detectTime = "detectTime",
                                      .recordId = 81, .similarity = 82, .temperature = 83.5,
                                      .temperatureState = 84, .maskState = 85,
                                      .snapImage = QByteArray("\0\xff" "snapImage", 11),
                                      .faceImage = QByteArray("\0\xff" "faceImage", 11)};
    p::FaceDetectRecordInfo wire;
    wire.set_serial_num("serialNum");
    wire.set_name("name");
    wire.set_company("company");
    wire.set_department("department");
    wire.set_position("position");
    wire.set_detect_time("detectTime");
    wire.set_attr_7(81);
    wire.set_attr_8(82);
    wire.set_attr_9(83.5);
    wire.set_attr_10(84);
    wire.set_attr_11(85);
    wire.set_attr_12(std::string("\0\xff"
                                 "snapImage",
                                 11));
    wire.set_attr_13(std::string("\0\xff"
                                 "faceImage",
                                 11));
    return {record, wire};
}

inline Literal<GetFaceDetectRecordsCondition, p::GetFaceDetectRecordsReq> getFaceDetectRecords()
{
    const GetFaceDetectRecordsCondition record{.requestId = "req-getFaceDetectRecords",
                                               .channelId = channel().record, .pageNum = 86,
                                               .pageSize = 87, .beginTime = "beginTime",
                                               .endTime = "endTime"};
    auto wire = channelRequest<p::GetFaceDetectRecordsReq>("req-getFaceDetectRecords");
    wire.set_attr_3(86);
    wire.set_attr_4(87);
    wire.set_begin_time("beginTime");
    wire.set_end_time("endTime");
    return {record, wire};
}

inline Literal<FaceCountInfo, p::FaceCountInfo> faceCount()
{
    const FaceCountInfo record{.channelId = channel().record, .faceCount = 88,
                               .abnormalTemperatureCount = 89, .withoutMaskCount = 90};
    p::FaceCountInfo wire;
    *wire.mutable_channel_id() = channel().wire;
    wire.set_attr_2(88);
    wire.set_attr_3(89);
    wire.set_attr_4(90);
    return {record, wire};
}

inline Literal<AlarmInfo, p::AlarmInfo> alarmInfo()
{
    const AlarmInfo record{.alarmId = "alarmId", .channelId = channel().record,
                           .triggerChannelId = channel().record, .triggerName = "triggerName",
                           .alarmTime = "alarmTime",
                           .attachments = {QByteArray("\0\xff" "attachments", 13), QByteArray()},
                           .alarmType = "alarmType", .alarmKind = 91, .alarmName = "alarmName",
                           .detail = QByteArray("\0\xff" "detail", 8)};
    p::AlarmInfo wire;
    wire.set_alarm_id("alarmId");
    *wire.mutable_channel_id() = channel().wire;
    *wire.mutable_trigger_channel_id() = channel().wire;
    wire.set_trigger_name("triggerName");
    wire.set_alarm_time("alarmTime");
    wire.add_attachments(std::string("\0\xff"
                                     "attachments",
                                     13));
    wire.add_attachments("");
    wire.set_alarm_type("alarmType");
    wire.set_attr_8(91);
    wire.set_alarm_name("alarmName");
    wire.set_attr_10(std::string("\0\xff"
                                 "detail",
                                 8));
    return {record, wire};
}

inline Literal<DevUpgradeCondtition, p::DevUpgradeReq> devUpgrade()
{
    const DevUpgradeCondtition record{.requestId = "req-devUpgrade", .devId = "dev-\xc3\xa9",
                                      .mode = "mode", .url = "url", .upgradeType = 92,
                                      .mainFile = "mainFile", .verFile = "verFile"};
    auto wire = deviceRequest<p::DevUpgradeReq>("req-devUpgrade");
    wire.set_mode("mode");
    wire.set_url("url");
    wire.set_attr_5(92);
    wire.set_main_file("mainFile");
    wire.set_ver_file("verFile");
    return {record, wire};
}

inline Literal<UploadFileCondition, p::UploadFileReq> uploadFile()
{
    const UploadFileCondition record{.requestId = "req-uploadFile", .devId = "dev-\xc3\xa9",
                                     .fileName = "fileName", .purpose = "purpose"};
    auto wire = deviceRequest<p::UploadFileReq>("req-uploadFile");
    wire.set_file_name("fileName");
    wire.set_purpose("purpose");
    return {record, wire};
}

inline Literal<DownloadFileCondition, p::DownloadFileReq> downloadFile()
{
    const DownloadFileCondition record{.requestId = "req-downloadFile", .devId = "dev-\xc3\xa9",
                                       .srcFileName = "srcFileName", .desFileName = "desFileName"};
    auto wire = deviceRequest<p::DownloadFileReq>("req-downloadFile");
    wire.set_src_file_name("srcFileName");
    wire.set_des_file_name("desFileName");
    return {record, wire};
}

inline Literal<FileTransferProgress, p::FileTransferProgress> fileProgress()
{
    const FileTransferProgress record{.requestId = "req-fileProgress", .progress = 93,
                                      .status = 94};
    p::FileTransferProgress wire;
    wire.set_request_id("req-fileProgress");
    wire.set_attr_2(93);
    wire.set_attr_3(94);
    return {record, wire};
}

inline Literal<ModifyFaceCondition, p::AddFaceReq> addFace()
{
    const ModifyFaceCondition record{.requestId = "req-addFace", .channelId = channel().record,
                                     .serialNum = "serialNum", .name = "name",
                                     .organizations = {"organizations-1", "organizations-2"},
                                     .gender = 95, .age = 96, .libraryId = 97,
                                     .faceType = "faceType", .validTime = "validTime",
                                     .invalidTime = "invalidTime",
                                     .picture = QByteArray("\0\xff" "picture", 9)};
    auto wire = channelRequest<p::AddFaceReq>("req-addFace");
    wire.set_serial_num("serialNum");
    wire.set_name("name");
    wire.add_organizations("organizations-1");
    wire.add_organizations("organizations-2");
    wire.set_attr_6(95);
    wire.set_attr_7(96);
    wire.set_attr_8(97);
    wire.set_face_type("faceType");
    wire.set_valid_time("validTime");
    wire.set_invalid_time("invalidTime");
    wire.set_attr_12(std::string("\0\xff"
                                 "picture",
                                 9));
    return {record, wire};
}

inline Literal<GetFacesCondition, p::GetFacesReq> getFaces()
{
    const GetFacesCondition record{.requestId = "req-getFaces", .channelId = channel().record,
                                   .pageNum = 98, .pageSize = 99, .libraryId = 100,
                                   .withPicture = true};
    auto wire = channelRequest<p::GetFacesReq>("req-getFaces");
    wire.set_attr_3(98);
    wire.set_attr_4(99);
    wire.set_attr_5(100);
    wire.set_attr_6(true);
    return {record, wire};
}

inline Literal<DevUpgradeInfo, p::DevUpgradeRes> devUpgradeInfo()
{
    const DevUpgradeInfo record{.status = 101, .newVersionName = "newVersionName",
                                .hasNewVersion = true, .phase = "phase", .progress = 102};
    p::DevUpgradeRes wire;
    wire.set_attr_3(101);
    wire.set_new_version_name("newVersionName");
    wire.set_attr_5(true);
    wire.set_phase("phase");
    wire.set_attr_7(102);
    return {record, wire};
}

// clang-format on

} // namespace vms_test::literal
