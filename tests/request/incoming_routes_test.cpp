// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The dispatcher's incoming table, one case per kind of frame: a registered answer, an
// answer matched by serial number, pushes loud and quiet, garbage, late answers, the odd log
// texts readers search for, and numbers nobody handles. Every type reaching its public signal
// is proven against the simulator (request_ends_test); the field mappings by conversions_test.
#include "support/signal_recorder.h"
#include "support/test_support.h"
#include "support/wire_literals.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_kit/vms_kit.h"
#include "vms_sdk/client/record_json.h"
#include "vms_sdk/request/message_hamal.h"
#include "vms_sdk/request/request_mgr.h"

#include "vms_message.pb.h"

#include <gtest/gtest.h>

using namespace vms_sdk;
using namespace vms_test::literal;

namespace {

template<class Message>
QByteArray wire(const Message& message)
{
    return QByteArray::fromStdString(message.SerializeAsString());
}

template<class T>
QVariant var(const T& value)
{
    return QVariant::fromValue(value);
}

// A Response head with an error, so that code and text are seen to travel.
const Response head{
    .requestId = QStringLiteral("req-1"), .errCode = 17, .errMsg = QStringLiteral("busy")};

template<class Answer>
Answer withHead()
{
    Answer answer;
    answer.set_request_id("req-1");
    answer.mutable_error()->set_code(17);
    answer.mutable_error()->set_err_msg("busy");
    return answer;
}

QString trace(const QString& text)
{
    return QStringLiteral("[trace] [vms_client_sdk:]    ") + text;
}

QString error(const QString& text)
{
    return QStringLiteral("[error] [vms_client_sdk:]    ") + text;
}

class IncomingRoutesTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        logPath = vms_test::openTestLog();
        hamal = MessageHamal::instance();
    }
    void TearDown() override { vms_kit::release_vms_log(); }

    // The lines logged since the last call, each from its level on.
    QStringList newLogLines()
    {
        const QStringList lines = vms_test::readLines(logPath);
        const QStringList fresh = lines.mid(seenLines);
        seenLines = lines.size();
        QStringList texts;
        for (const QString& line : fresh)
            texts.append(line.section(QStringLiteral("] "), 1)); // "[level] [tag]    text"
        return texts;
    }

    void deliver(int type, const QByteArray& payload, bool registered)
    {
        if (registered)
            hamal->requestMgr()->addRequest(head.requestId);
        watch.clear();
        newLogLines();
        hamal->slotMessageComing(MessageType(type), payload);
    }

    QString logPath;
    int seenLines = 0;
    MessageHamal* hamal = nullptr;
    vms_test::SignalRecorder watch;
};

TEST_F(IncomingRoutesTest, EachKindOfFrameBecomesItsSignalAndItsLogLine)
{
    struct Row
    {
        int type;
        bool registered; // an answer to a registered request
        QByteArray payload;
        const char* signal;
        QVariantList args;
        QStringList log;
    };
    auto net = withHead<vms_sdk_proto::DevNetGetRes>();
    *net.mutable_net_info() = devNetInfo().wire;
    auto netSet = withHead<vms_sdk_proto::DevNetSetRes>();
    netSet.set_dev_id("cam-1");
    netSet.set_dev_ip("10.0.0.9");
    auto recordings = withHead<vms_sdk_proto::SearchVideoRecordingsRes>();
    recordings.set_attr_3(true);
    *recordings.add_recordings() = videoRec().wire;
    auto faces = withHead<vms_sdk_proto::GetFacesRes>();
    faces.set_attr_4(250);
    *faces.add_faces() = faceInfo().wire;
    faces.add_faces();
    vms_sdk_proto::DevSecretQuestionsGetRes questions;
    questions.set_dev_sn("SN-2");
    questions.set_result(1);
    questions.add_questions("first pet");
    questions.add_questions("first school");
    vms_sdk_proto::DevStatusPush status;
    status.set_dev_id("cam-7");
    status.set_status(1);
    vms_sdk_proto::DevChannelsInfoPush channels;
    channels.set_dev_id("nvr-1");
    *channels.add_channels() = devChannel().wire;
    vms_sdk_proto::TlvInfo tlv;
    tlv.set_dev_id("cam-3");
    tlv.set_tlv_data(std::string("\x00\x01\xfe", 3));

    const QList<Row> rows = {
        {21,
         true,
         wire(net),
         "signalGetDevNetRes",
         {var(head), var(devNetInfo().record)},
         {trace("dgw response get device net configuration")}},
        {33,
         true,
         wire(netSet),
         "signalSetDevNetRes",
         {var(head), QStringLiteral("cam-1"), QStringLiteral("10.0.0.9")},
         {trace("dgw response set device net configuration")}},
        {55,
         true,
         wire(recordings),
         "signalSearchVideoRecordingsRes",
         {var(head), var(QList<VideoRecInfo>{videoRec().record}), true},
         {trace("dgw response search video recordings")}},
        {76,
         true,
         wire(faces),
         "signalGetFacesRes",
         {var(head), var(FaceInfoList{faceInfo().record, FaceInfo{}}), 250u, 2u},
         {trace("dgw response get faces")}},
        // Matched by serial number: never registered, always delivered.
        {91,
         false,
         wire(questions),
         "signalGetDevSecretQuestionsRes",
         {QStringLiteral("SN-2"), 1, QStringList{"first pet", "first school"}},
         {trace("dgw response get device secret questions")}},
        {40,
         false,
         wire(status),
         "signalDevStatusPush",
         {QStringLiteral("cam-7"), var(DevStatusOffline)},
         {trace("dgw push device status:cam-7 1")}},
        {45,
         false,
         wire(channels),
         "signalDevChannelsInfoPush",
         {QStringLiteral("nvr-1"), var(DevChanInfoList{devChannel().record})},
         {trace("dgw push channels information")}},
        // Pushes whose payload is the device id as text, one logged and one quiet.
        {84,
         false,
         QByteArray("cam-9"),
         "signalUploadUpgradeFileFinished",
         {QStringLiteral("cam-9")},
         {trace("dgw push upload upgrade file finished")}},
        {41, false, QByteArray("cam-8"), "signalDevP2PSuccessPush", {QStringLiteral("cam-8")}, {}},
        {51,
         false,
         wire(tlv),
         "signalTlvDataPush",
         {QStringLiteral("cam-3"), QByteArray("\x00\x01\xfe", 3)},
         {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.type);
        deliver(row.type, row.payload, row.registered);
        ASSERT_EQ(watch.names(), QStringList{QString::fromLatin1(row.signal)});
        const QVariantList args = watch.argumentsOf(row.signal);
        ASSERT_EQ(args.size(), row.args.size());
        for (int i = 0; i < args.size(); ++i) {
            EXPECT_EQ(record_json::variantToJson(args[i]), record_json::variantToJson(row.args[i]))
                << "argument " << i;
        }
        EXPECT_EQ(newLogLines(), row.log);
        EXPECT_FALSE(hamal->requestMgr()->removeRequest(head.requestId)) << "still registered";
    }
}

// Garbage and answers nobody waits for give one error line and no signal; a request that
// got garbage stays outstanding, to end in its time-out. The odd texts are kept letter for
// letter.
TEST_F(IncomingRoutesTest, GarbageAndLateAnswersGiveOnlyTheirErrorLine)
{
    struct Row
    {
        int type;
        bool garbage;
        QStringList log;
    };
    const QList<Row> rows = {
        {21, true, {error("parse [dgw response get device net configuration] failure")}},
        {40, true, {error("parse [dgw push device status] failure")}},
        {51, true, {}}, // a quiet push stays quiet about its garbage too
        {63, true, {error("parse[dgw response get patrols] failure")}},
        {78, true, {error("parse [dgw response delele face] failure")}},
        {21, false, {error("client request time out get device net configuration")}},
        {72, false, {error("client request time out device configration")}},
        {95, false, {error("client request time out talk operration")}},
        {97, false, {error("client request time out speak operration")}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.type);
        // Any answer with a head parses as any other answer type with a head.
        const QByteArray late = wire(withHead<vms_sdk_proto::Response>());
        deliver(row.type, row.garbage ? QByteArray("\xff\xff\xff", 3) : late, row.garbage);
        EXPECT_TRUE(watch.names().isEmpty());
        EXPECT_EQ(newLogLines(), row.log);
        EXPECT_EQ(hamal->requestMgr()->removeRequest(head.requestId), row.garbage);
    }
}

TEST_F(IncomingRoutesTest, NumbersNobodyHandlesAreDroppedSilently)
{
    for (int type : {0, 2, 17, 19, 34, 35, 43, 46, 47, 102, 103, 114, -1}) {
        SCOPED_TRACE(type);
        deliver(type, QByteArray("\x0a\x01x", 3), false);
        EXPECT_TRUE(watch.names().isEmpty());
        EXPECT_TRUE(newLogLines().isEmpty());
    }
}

TEST_F(IncomingRoutesTest, AFaceDetectionThatIsAnAlarmIsAlsoPushedAsOne)
{
    vms_sdk_proto::FaceDetectLiveInfo push;
    push.mutable_channel_id()->set_dev_id("cam-2");
    push.mutable_channel_id()->set_channel_index(3);
    push.mutable_record()->set_detect_time("2024-03-01 08:30:00");
    push.mutable_record()->set_attr_10(3); // temperature state
    hamal->slotMessageComing(FaceDetectLivePush, wire(push));
    EXPECT_EQ(watch.names(), (QStringList{"signalFaceDetectPush", "signalCommonAlarmPush"}));
    const AlarmInfo alarm = watch.argumentsOf("signalCommonAlarmPush").value(0).value<AlarmInfo>();
    EXPECT_EQ(alarm.alarmType, "abnormal_temperature");
    EXPECT_EQ(alarm.channelId, (ChannelId{.devId = "cam-2", .channelIndex = 3}));
}

} // namespace
