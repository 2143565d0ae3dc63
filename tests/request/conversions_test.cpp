// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Records to wire messages and back, each direction against a literal: the record written by
// hand must become the message written by hand, and that message, through its bytes, must
// read back as the record. Neither side is computed by the code under test, so a field that
// both directions swap or drop alike still fails.

#include "support/wire_literals.h"
#include "vms_sdk/client/record_json.h"
#include "vms_sdk/request/conversions/common_conversions.h"
#include "vms_sdk/request/conversions/device_conversions.h"
#include "vms_sdk/request/conversions/face_conversions.h"
#include "vms_sdk/request/conversions/media_conversions.h"
#include "vms_sdk/request/conversions/network_conversions.h"
#include "vms_sdk/request/conversions/ptz_conversions.h"
#include "vms_sdk/request/conversions/upgrade_conversions.h"

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/io/zero_copy_stream_impl_lite.h>

#include <gtest/gtest.h>

#include <functional>

using namespace vms_sdk;
using namespace vms_sdk::conversion;
using namespace vms_test::literal;
using vms_sdk::record_json::toText;

namespace {

// Map entries in a fixed order, so two equal messages are equal bytes.
std::string bytesOf(const google::protobuf::MessageLite& message)
{
    std::string bytes;
    {
        google::protobuf::io::StringOutputStream stream(&bytes);
        google::protobuf::io::CodedOutputStream coded(&stream);
        coded.SetSerializationDeterministic(true);
        EXPECT_TRUE(message.SerializeToCodedStream(&coded));
    }
    return bytes;
}

template<class Wire, class Record>
Wire wireOf(const Record& record)
{
    if constexpr (requires {
                      {
                          toWire(record)
                          } -> std::same_as<Wire>;
                  }) {
        return toWire(record);
    } else {
        Wire wire;
        fillWire(record, wire);
        return wire;
    }
}

template<class Record, class Wire>
Record recordOf(const Wire& literal)
{
    Wire wire; // through the bytes, as on the wire
    EXPECT_TRUE(wire.ParseFromString(literal.SerializeAsString()));
    if constexpr (requires {
                      {
                          fromWire(wire)
                          } -> std::same_as<Record>;
                  }) {
        return fromWire(wire);
    } else {
        Record record{};
        fillRecord(wire, record);
        return record;
    }
}

template<class Record, class Wire>
void expectBothWays(const Literal<Record, Wire>& literal)
{
    EXPECT_EQ(bytesOf(wireOf<Wire>(literal.record)), bytesOf(literal.wire));
    if constexpr (requires { toText(literal.record); })
        EXPECT_EQ(recordOf<Record>(literal.wire), literal.record)
            << toText(recordOf<Record>(literal.wire)).toStdString();
    else
        EXPECT_EQ(recordOf<Record>(literal.wire), literal.record);
}

// A list of one full item and one empty one: order and count both show.
template<class Message, class Record, class Item>
Literal<QList<Record>, Message> listOf(const Literal<Record, Item>& item, Item* (Message::*add)())
{
    Message message;
    *(message.*add)() = item.wire;
    (message.*add)();
    return {{item.record, Record{}}, message};
}

struct Row
{
    const char* name;
    std::function<void()> check;
};

template<class Make>
std::function<void()> both(Make make)
{
    return [make] { expectBothWays(make()); };
}

const std::vector<Row>& rows()
{
    namespace p = vms_sdk_proto;
    static const std::vector<Row> all = {
        // Shared. A record that travels inside others (a channel, a device, a secret, a
        // preset...) is checked by the message that carries it, both ways.
        {"Response", both(response)},
        {"DeviceReq", both(deviceReq)},
        {"DevNetGetReq", both(devNetGetReq)},
        {"ChannelReq", both(channelReq)},
        // Devices.
        {"InitDgwReq", both(initDgw)},
        {"SetManagedDevsCmd",
         [] { expectBothWays(listOf(devInfo(), &p::SetManagedDevsCmd::add_devs)); }},
        {"DevInfoFromDgw", both(devInfoFromDgw)},
        {"DevChannelsInfoPush",
         [] {
             const auto channels = listOf(devChannel(), &p::DevChannelsInfoPush::add_channels);
             p::DevChannelsInfoPush expected = channels.wire;
             // An empty channel still carries its (empty) channel id part.
             expected.mutable_channels(1)->mutable_channel_id();
             expected.set_dev_id("dev-\xc3\xa9");
             p::DevChannelsInfoPush push;
             fillWire(QStringLiteral("dev-\u00e9"), channels.record, push);
             EXPECT_EQ(bytesOf(push), bytesOf(expected));
             EXPECT_EQ(recordOf<DevChanInfoList>(expected), channels.record);
         }},
        {"DevTempUserCodePush",
         [] { expectBothWays(listOf(tempUserCode(), &p::DevTempUserCodePush::add_codes)); }},
        {"SetSearchDevsConfigCmd", both(searchConfig)},
        {"DevActivateCmd", both(activate)},
        {"DevSecretQuestionsGetReq", both(secretQuestions)},
        {"DevPwdResetReq", both(resetPwd)},
        {"ModifyDevAccountReq", both(modifyAccount)},
        {"ModifyDevNameReq", both(modifyName)},
        {"SetOSDReq", both(setOsd)},
        // Network, platforms and certificates.
        {"DevNetSetReq", both(setDevNet)},
        {"DevPlatformGetReq", both(getDevPlatform)},
        {"DevPlatformSetReq", both(setDevPlatform)},
        {"DevPlatform_kvrSetReq", both(setDevPlatformKvr)},
        {"DevCertImportReq", both(importCert)},
        // Pan-tilt-zoom.
        {"PTZCtrlReq", both(ptzCtrl)},
        {"PresetOperReq", both(presetOper)},
        {"PatrolInfo", both(patrol)},
        {"PatrolOperReq", both(patrolOper)},
        {"PatrolPresetOperReq", both(patrolPresetOper)},
        {"SetPatrolPresetsReq", both(setPatrolPresets)},
        // Recordings, streams and talk.
        {"VideoRecInfo", both(videoRec)},
        {"SearchVideoRecordingsReq", both(recsSearch)},
        {"GetRtspUrlReq", both(rtspUrl)},
        {"LiveVideoConnReq", both(liveVideo)},
        {"PlaybackByFileReq", both(playbackByFile)},
        {"PlaybackByTimeReq", both(playbackByTime)},
        {"TalkOperReq", both(talkOper)},
        // Faces and alarms.
        {"FaceInfo", both(faceInfo)},
        {"AddFaceReq", both(addFace)},
        {"GetFacesReq", both(getFaces)},
        {"DelFaceReq", both(delFace)},
        {"FaceDetectRecordInfo", both(faceDetectRecord)},
        {"GetFaceDetectRecordsReq", both(getFaceDetectRecords)},
        {"FaceCountInfo", both(faceCount)},
        {"AlarmInfo", both(alarmInfo)},
        // Upgrade and files.
        {"DevUpgradeReq", both(devUpgrade)},
        {"DevUpgradeRes", both(devUpgradeInfo)},
        {"UploadFileReq", both(uploadFile)},
        {"DownloadFileReq", both(downloadFile)},
        {"FileTransferProgress", both(fileProgress)},
    };
    return all;
}

class Conversion : public testing::TestWithParam<int>
{};

TEST_P(Conversion, MatchesItsLiteralBothWays)
{
    rows().at(std::size_t(GetParam())).check();
}

INSTANTIATE_TEST_SUITE_P(AllMessages, Conversion, testing::Range(0, int(rows().size())),
                         [](const testing::TestParamInfo<int>& info) {
                             return std::string(rows().at(std::size_t(info.param)).name);
                         });

// The face fields that only the JSON methods carry, and a stream's download flag, have no
// place in the message: setting them changes no byte.
TEST(WireFields, FieldsOfOtherPathsStayOffTheWire)
{
    ModifyFaceCondition face = addFace().record;
    face.package = "pkg";
    face.index = 301;
    face.groupIds = {302};
    face.faceId = "faceId";
    face.birthdate = QDate(1990, 7, 4);
    face.classification = "classification";
    face.startTime = QDateTime(QDate(2024, 1, 2), QTime(3, 4, 5));
    face.jpegBase64List = QStringList{"AA=="};
    face.jpegUuidList = QStringList{"u1"};
    EXPECT_EQ(bytesOf(wireOf<vms_sdk_proto::AddFaceReq>(face)), bytesOf(addFace().wire));

    GetFacesCondition faces = getFaces().record;
    faces.package = "pkg";
    faces.keyword = "keyword";
    faces.groupIds = {303};
    faces.gender = 304;
    faces.modelingStatus = "modelingStatus";
    EXPECT_EQ(bytesOf(wireOf<vms_sdk_proto::GetFacesReq>(faces)), bytesOf(getFaces().wire));

    PlaybackByTimeCondition playback = playbackByTime().record;
    playback.download = 1;
    EXPECT_EQ(bytesOf(wireOf<vms_sdk_proto::PlaybackByTimeReq>(playback)),
              bytesOf(playbackByTime().wire));
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
    EXPECT_EQ(responseOf(answer), (Response{.requestId = "req-7", .errCode = 0, .errMsg = ""}));

    answer.mutable_error()->set_code(-3);
    answer.mutable_error()->set_err_msg("d\xc3\xa9j\xc3\xa0");
    EXPECT_EQ(responseOf(answer),
              (Response{.requestId = "req-7", .errCode = -3, .errMsg = "d\xc3\xa9j\xc3\xa0"}));

    vms_sdk_proto::DevNetGetRes filled;
    fillResponse(responseOf(answer), filled);
    EXPECT_EQ(bytesOf(filled), bytesOf(answer));

    // A success without text leaves the Error part out: no request id, no bytes at all.
    vms_sdk_proto::Response empty;
    fillResponse(Response{}, empty);
    EXPECT_FALSE(empty.has_error());
    EXPECT_TRUE(empty.SerializeAsString().empty());
}

TEST(WireFields, StreamTimesAndChannelPairs)
{
    EXPECT_EQ(streamTime(QDateTime()), "");
    EXPECT_FALSE(streamTime(std::string("not a time")).isValid());
    EXPECT_EQ(channelPair(channel().wire), qMakePair(QStringLiteral("cam-\u00e9"), 7));
}

} // namespace

namespace {

// Texts both ways against their UTF-8 bytes written out by hand: the ASCII shortcut and the
// general codec must agree, including where one text mixes both.
TEST(WireFields, TextsAndTheirUtf8)
{
    const std::pair<QString, std::string> cases[] = {
        {QString(), ""},
        {QStringLiteral("r12345"), "r12345"},
        {QStringLiteral("a somewhat longer id that no small buffer holds"),
         "a somewhat longer id that no small buffer holds"},
        {QString::fromUtf8("S\xc3\xbc"
                           "d"),
         "S\xc3\xbc"
         "d"},
        {QString::fromUtf8("cam-\xe6\x91\x84"), "cam-\xe6\x91\x84"},
        {QString::fromUtf8("\xf0\x9f\x93\xb7"), "\xf0\x9f\x93\xb7"},
        {QStringLiteral("\x7f"), "\x7f"},
        {QString(QChar(0x80)), "\xc2\x80"},
    };
    for (const auto& [record, wire] : cases) {
        EXPECT_EQ(utf8(record), wire) << wire;
        EXPECT_EQ(text(wire), record) << wire;
        EXPECT_FALSE(text(wire).isNull()) << wire;
    }
}

// A payload never travels as the null one (that is the hello's): an empty message is an
// empty payload.
TEST(WireFields, SerializedPayloads)
{
    vms_sdk_proto::DevNetGetReq request;
    EXPECT_FALSE(serialized(request).isNull());
    EXPECT_TRUE(serialized(request).isEmpty());

    request.set_request_id("r1");
    request.set_dev_id("cam-1");
    EXPECT_EQ(serialized(request), QByteArray("\x0a\x02r1\x12\x05"
                                              "cam-1"));
}

} // namespace
