// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Every message type the gateway sends on the message channel, through the dispatcher's
// incoming table: the signal it becomes with every field converted, its log lines, and what
// happens to garbage, to answers nobody waits for and to numbers nobody handles.
#include "support/record_filler.h"
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_kit/vms_kit.h"
#include "vms_sdk/client/record_json.h"
#include "vms_sdk/request/conversions/device_conversions.h"
#include "vms_sdk/request/conversions/face_conversions.h"
#include "vms_sdk/request/conversions/media_conversions.h"
#include "vms_sdk/request/conversions/network_conversions.h"
#include "vms_sdk/request/conversions/ptz_conversions.h"
#include "vms_sdk/request/conversions/upgrade_conversions.h"
#include "vms_sdk/request/message_hamal.h"
#include "vms_sdk/request/request_mgr.h"

#include "vms_message.pb.h"

#include <QMetaMethod>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>

using namespace vms_sdk;
using namespace vms_sdk::conversion;

namespace {

enum class Kind { Response, Answer, Push, QuietPush };

struct Row
{
    int type;
    Kind kind;
    QString words;      // inside the log lines
    const char* signal; // the ClientSignals signal it becomes
    QByteArray payload;
    QVariantList args;      // what the signal carries
    QString logDetail = {}; // after the words in the success line
    QString parseFailure = {};
    QString timeoutWords = {};
};

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

Row responseOnly(int type, const char* words, const char* signal)
{
    return {type,
            Kind::Response,
            QString::fromLatin1(words),
            signal,
            wire(withHead<vms_sdk_proto::Response>()),
            {var(head)}};
}

QList<Row> rows()
{
    vms_test::RecordFiller fill;
    QList<Row> rows;

    {
        vms_sdk_proto::ActivateDevRes a;
        a.set_dev_sn("SN-1");
        a.set_result(3);
        rows.append({18,
                     Kind::Answer,
                     "activate device",
                     "signalActivateDevRes",
                     wire(a),
                     {QStringLiteral("SN-1"), 3}});
    }
    {
        const DevNetInfo net = fill.make<DevNetInfo>();
        auto a = withHead<vms_sdk_proto::DevNetGetRes>();
        *a.mutable_net_info() = toWire(net);
        rows.append({21,
                     Kind::Response,
                     "get device net configuration",
                     "signalGetDevNetRes",
                     wire(a),
                     {var(head), var(net)}});
    }
    {
        const DevPlatformInfo platform = fill.make<DevPlatformInfo>();
        auto a = withHead<vms_sdk_proto::DevPlatformGetRes>();
        *a.mutable_platform_info() = toWire(platform);
        rows.append({24,
                     Kind::Response,
                     "get device platform configuration",
                     "signalGetDevPlatformRes",
                     wire(a),
                     {var(head), var(platform)}});
    }
    rows.append(responseOnly(26, "set device platform configuration", "signalSetDevPlatformRes"));
    {
        const DevPlatformInfo_kvr platform = fill.make<DevPlatformInfo_kvr>();
        auto a = withHead<vms_sdk_proto::DevPlatform_kvrGetRes>();
        *a.mutable_platform_info() = toWire(platform);
        rows.append({28,
                     Kind::Response,
                     "get device platform_kvr configuration",
                     "signalGetDevPlatform_kvrRes",
                     wire(a),
                     {var(head), var(platform)}});
    }
    rows.append(
        responseOnly(30, "set device platform_kvr configuration", "signalSetDevPlatform_kvrRes"));
    rows.append(responseOnly(32, "import device cert", "signalImportDevCertRes"));
    {
        auto a = withHead<vms_sdk_proto::DevNetSetRes>();
        a.set_dev_id("cam-1");
        a.set_dev_ip("10.0.0.9");
        rows.append({33,
                     Kind::Response,
                     "set device net configuration",
                     "signalSetDevNetRes",
                     wire(a),
                     {var(head), QStringLiteral("cam-1"), QStringLiteral("10.0.0.9")}});
    }
    for (auto [type, words, signal] :
         {std::tuple{38, "searched devices", "signalSearchedDevsPush"},
          std::tuple{39, "broadcast searched devices", "signalBroadcastSearchedDevsPush"}}) {
        const DevInfoList devs = fill.makeList<DevInfo>();
        vms_sdk_proto::SearchedDevsPush p;
        fillWire(devs, p);
        rows.append({type, Kind::Push, words, signal, wire(p), {var(devs)}});
    }
    {
        vms_sdk_proto::DevStatusPush p;
        p.set_dev_id("cam-7");
        p.set_status(1);
        rows.append({40,
                     Kind::Push,
                     "device status",
                     "signalDevStatusPush",
                     wire(p),
                     {QStringLiteral("cam-7"), var(DevStatusOffline)},
                     QStringLiteral(":cam-7 1")});
    }
    rows.append({41,
                 Kind::QuietPush,
                 {},
                 "signalDevP2PSuccessPush",
                 QByteArray("cam-8"),
                 {QStringLiteral("cam-8")}});
    {
        const DevInfoFromDgw info = fill.make<DevInfoFromDgw>();
        rows.append({42,
                     Kind::Push,
                     "device information",
                     "signalDevInfoPush",
                     wire(toWire(info)),
                     {var(info)},
                     QStringLiteral(":") + info.id});
    }
    {
        const DevTempUserCodeList codes = fill.makeList<DevTempUserCode>();
        vms_sdk_proto::DevTempUserCodePush p;
        fillWire(codes, p);
        rows.append({44,
                     Kind::Push,
                     "device temp user code",
                     "signalDevTempUserCodePush",
                     wire(p),
                     {var(codes)}});
    }
    {
        const DevChanInfoList channels = fill.makeList<DevChannelInfo>();
        vms_sdk_proto::DevChannelsInfoPush p;
        fillWire(QStringLiteral("nvr-1"), channels, p);
        rows.append({45,
                     Kind::Push,
                     "channels information",
                     "signalDevChannelsInfoPush",
                     wire(p),
                     {QStringLiteral("nvr-1"), var(channels)}});
    }
    {
        const FaceDetectRecordInfo record = fill.make<FaceDetectRecordInfo>();
        vms_sdk_proto::FaceDetectLiveInfo p;
        p.mutable_channel_id()->set_dev_id("cam-2");
        p.mutable_channel_id()->set_channel_index(3);
        *p.mutable_record() = toWire(record);
        rows.append({48,
                     Kind::Push,
                     "face detect information",
                     "signalFaceDetectPush",
                     wire(p),
                     {var(qMakePair(QStringLiteral("cam-2"), 3)), var(record)}});
    }
    {
        const FaceCountInfo count = fill.make<FaceCountInfo>();
        rows.append({49,
                     Kind::Push,
                     "face temperature count information",
                     "signalFaceTemperatureCountPush",
                     wire(toWire(count)),
                     {var(qMakePair(count.channelId.devId, int(count.channelId.channelIndex))),
                      var(count)}});
    }
    {
        const AlarmInfo alarm = fill.make<AlarmInfo>();
        rows.append({50,
                     Kind::Push,
                     "common alarm",
                     "signalCommonAlarmPush",
                     wire(toWire(alarm)),
                     {var(alarm)}});
    }
    {
        vms_sdk_proto::TlvInfo p;
        p.set_dev_id("cam-3");
        p.set_tlv_data(std::string("\x00\x01\xfe", 3));
        rows.append({51,
                     Kind::QuietPush,
                     "tlv data",
                     "signalTlvDataPush",
                     wire(p),
                     {QStringLiteral("cam-3"), QByteArray("\x00\x01\xfe", 3)}});
    }
    {
        auto a = withHead<vms_sdk_proto::GetRtspUrlRes>();
        a.set_rtsp_url("rtsp://10.0.0.2:554/ch1/main");
        Row row{54,
                Kind::Response,
                "get rtsp url",
                "signalGetRtspUrlRes",
                wire(a),
                {var(head), QStringLiteral("rtsp://10.0.0.2:554/ch1/main")}};
        row.timeoutWords = QStringLiteral("search video recordings");
        rows.append(row);
    }
    {
        const QList<VideoRecInfo> recordings = fill.makeList<VideoRecInfo>();
        auto a = withHead<vms_sdk_proto::SearchVideoRecordingsRes>();
        a.set_attr_3(true);
        mapToWire(recordings, a.mutable_recordings(), [](const auto& r) { return toWire(r); });
        rows.append({55,
                     Kind::Response,
                     "search video recordings",
                     "signalSearchVideoRecordingsRes",
                     wire(a),
                     {var(head), var(recordings), true}});
    }
    {
        auto a = withHead<vms_sdk_proto::PTZCtrlRes>();
        a.set_operation(5);
        a.set_action(1);
        rows.append({57,
                     Kind::Response,
                     "ptz ctrl",
                     "signalPTZCtrlRes",
                     wire(a),
                     {var(head), var(PTZOperation(5)), var(PTZAction(1))}});
    }
    {
        const PresetList presets = fill.makeList<PresetInfo>();
        auto a = withHead<vms_sdk_proto::GetPresetRes>();
        mapToWire(presets, a.mutable_presets(), [](const auto& p) { return toWire(p); });
        rows.append({59,
                     Kind::Response,
                     "get presets",
                     "signalGetPresetsRes",
                     wire(a),
                     {var(head), var(presets)}});
    }
    {
        auto a = withHead<vms_sdk_proto::PresetOperRes>();
        a.set_oper(2);
        rows.append({61,
                     Kind::Response,
                     "operate preset",
                     "signalOperPresetsRes",
                     wire(a),
                     {var(head), var(PresetOper(2))}});
    }
    {
        const PatrolList patrols = fill.makeList<PatrolInfo>();
        auto a = withHead<vms_sdk_proto::GetPatrolRes>();
        mapToWire(patrols, a.mutable_patrols(), [](const auto& p) { return toWire(p); });
        Row row{63,      Kind::Response,           "get patrols", "signalGetPatrolsRes",
                wire(a), {var(head), var(patrols)}};
        row.parseFailure = QStringLiteral("parse[dgw response get patrols] failure");
        rows.append(row);
    }
    {
        auto a = withHead<vms_sdk_proto::PatrolOperRes>();
        a.set_oper(1);
        rows.append({65,
                     Kind::Response,
                     "operate patrol",
                     "signalOperPatrolRes",
                     wire(a),
                     {var(head), var(PatrolOper(1))}});
    }
    {
        auto a = withHead<vms_sdk_proto::PatrolPresetOperRes>();
        a.set_oper(2);
        rows.append({67,
                     Kind::Response,
                     "operate patrol presets",
                     "signalOperPatrolPresetRes",
                     wire(a),
                     {var(head), var(PatrolPresetOper(2))}});
    }
    rows.append(responseOnly(69, "set patrol presets", "signalSetPatrolPresetsRes"));
    {
        Row row = responseOnly(72, "device configuration", "signalDevConfigRes");
        row.timeoutWords = QStringLiteral("device configration");
        rows.append(row);
    }
    rows.append(responseOnly(74, "add face", "signalAddFaceRes"));
    {
        const FaceInfoList faces = fill.makeList<FaceInfo>(3);
        auto a = withHead<vms_sdk_proto::GetFacesRes>();
        a.set_attr_4(250);
        mapToWire(faces, a.mutable_faces(), [](const auto& f) { return toWire(f); });
        rows.append({76,
                     Kind::Response,
                     "get faces",
                     "signalGetFacesRes",
                     wire(a),
                     {var(head), var(faces), 250u, 3u}});
    }
    {
        Row row = responseOnly(78, "delete face", "signalDelFaceRes");
        row.parseFailure = QStringLiteral("parse [dgw response delele face] failure");
        rows.append(row);
    }
    {
        const FaceDetectRecordList records = fill.makeList<FaceDetectRecordInfo>();
        auto a = withHead<vms_sdk_proto::GetFaceDetectRecordsRes>();
        a.set_attr_4(40);
        mapToWire(records, a.mutable_records(), [](const auto& r) { return toWire(r); });
        Row row{80,
                Kind::Response,
                "get face records",
                "signalGetFaceDetectRecordsRes",
                wire(a),
                {var(head), var(records), 40u}};
        row.timeoutWords = QStringLiteral("get face detect records");
        rows.append(row);
    }
    for (auto [type, words, signal] :
         {std::tuple{83, "check device upgrade information", "signalCheckDevUpgradeRes"},
          std::tuple{87, "get device upgrade progress", "signalGetDevUpgradeProgressRes"}}) {
        const DevUpgradeInfo info = fill.make<DevUpgradeInfo>();
        auto a = withHead<vms_sdk_proto::DevUpgradeRes>();
        fillWire(info, a);
        rows.append({type, Kind::Response, words, signal, wire(a), {var(head), var(info)}});
    }
    rows.append({84,
                 Kind::Push,
                 "upload upgrade file finished",
                 "signalUploadUpgradeFileFinished",
                 QByteArray("cam-9"),
                 {QStringLiteral("cam-9")}});
    rows.append(responseOnly(89, "modify device account", "signalModifyDevAccountRes"));
    {
        vms_sdk_proto::DevSecretQuestionsGetRes a;
        a.set_dev_sn("SN-2");
        a.set_result(1);
        a.add_questions("first pet");
        a.add_questions("first school");
        rows.append({91,
                     Kind::Answer,
                     "get device secret questions",
                     "signalGetDevSecretQuestionsRes",
                     wire(a),
                     {QStringLiteral("SN-2"), 1, QStringList{"first pet", "first school"}}});
    }
    {
        vms_sdk_proto::ResetDevPwdRes a;
        a.set_dev_sn("SN-3");
        a.set_result(4);
        rows.append({93,
                     Kind::Answer,
                     "reset device password",
                     "signalResetDevPwdRes",
                     wire(a),
                     {QStringLiteral("SN-3"), 4}});
    }
    {
        Row talk = responseOnly(95, "talk operation", "signalTalkOperRes");
        talk.timeoutWords = QStringLiteral("talk operration");
        rows.append(talk);
        Row speak = responseOnly(97, "speak operation", "signalSpeakOperRes");
        speak.timeoutWords = QStringLiteral("speak operration");
        rows.append(speak);
    }
    for (auto [type, words, signal] : {std::tuple{98, "talk event", "signalTalkEventPush"},
                                       std::tuple{99, "speak event", "signalSpeakEventPush"}}) {
        vms_sdk_proto::TalkEventPush p;
        p.mutable_channel_id()->set_dev_id("cam-4");
        p.mutable_channel_id()->set_channel_index(2);
        p.set_event(2);
        rows.append({type,
                     Kind::Push,
                     words,
                     signal,
                     wire(p),
                     {var(qMakePair(QStringLiteral("cam-4"), 2)), var(TalkEvent(2))}});
    }
    {
        const FileTransferProgress progress = fill.make<FileTransferProgress>();
        rows.append({113,
                     Kind::Push,
                     "file transfer progress",
                     "signalPushFileTransferProgress",
                     wire(toWire(progress)),
                     {var(progress)}});
    }
    return rows;
}

// Watches every signal of ClientSignals at once.
class SignalWatch
{
public:
    SignalWatch()
    {
        const QMetaObject& meta = ClientSignals::staticMetaObject;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            const QMetaMethod method = meta.method(i);
            if (method.methodType() == QMetaMethod::Signal)
                spies.emplace_back(std::make_unique<QSignalSpy>(ClientSignals::instance(), method));
        }
    }
    // Names of the signals emitted so far, once per emission.
    QStringList emitted() const
    {
        QStringList names;
        for (const auto& spy : spies) {
            for (int i = 0; i < spy->count(); ++i)
                names.append(QString::fromLatin1(spy->signal()).section(QLatin1Char('('), 0, 0));
        }
        return names;
    }
    QList<QVariant> argumentsOf(const char* name) const
    {
        for (const auto& spy : spies) {
            if (QString::fromLatin1(spy->signal()).section(QLatin1Char('('), 0, 0) == name &&
                spy->count() > 0)
                return spy->first();
        }
        return {};
    }
    void clear()
    {
        for (auto& spy : spies)
            spy->clear();
    }

private:
    std::vector<std::unique_ptr<QSignalSpy>> spies;
};

class IncomingRoutesTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        logPath = vms_test::openTestLog();
        hamal = MessageHamal::instance();
    }
    void TearDown() override { vms_kit::release_vms_log(); }

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

    static QString line(const char* level, const QString& text)
    {
        return QStringLiteral("[%1] [vms_client_sdk:]    ").arg(QLatin1String(level)) + text;
    }

    static QString dgwWords(const Row& row)
    {
        return (row.kind == Kind::Response || row.kind == Kind::Answer
                    ? QStringLiteral("dgw response ")
                    : QStringLiteral("dgw push ")) +
               row.words;
    }

    QString logPath;
    int seenLines = 0;
    MessageHamal* hamal = nullptr;
    SignalWatch watch;
};

TEST_F(IncomingRoutesTest, TheTableCoversEveryHandledType)
{
    QList<int> tested;
    for (const Row& row : rows())
        tested.append(row.type);
    tested.append(CommonRes); // its two ways out have tests of their own
    std::sort(tested.begin(), tested.end());
    EXPECT_EQ(tested, MessageHamal::handledMessageTypes());
}

TEST_F(IncomingRoutesTest, EveryTypeBecomesItsSignalWithEveryFieldConverted)
{
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.type);
        if (row.kind == Kind::Response)
            hamal->requestMgr()->addRequest(head.requestId);
        watch.clear();
        newLogLines();
        hamal->slotMessageComing(MessageType(row.type), row.payload);

        ASSERT_EQ(watch.emitted(), QStringList{QString::fromLatin1(row.signal)});
        const QVariantList args = watch.argumentsOf(row.signal);
        ASSERT_EQ(args.size(), row.args.size());
        for (int i = 0; i < args.size(); ++i) {
            EXPECT_EQ(record_json::variantToJson(args[i]), record_json::variantToJson(row.args[i]))
                << "argument " << i;
        }
        const QStringList expectedLog =
            row.kind == Kind::QuietPush ? QStringList{}
                                        : QStringList{line("trace", dgwWords(row) + row.logDetail)};
        EXPECT_EQ(newLogLines(), expectedLog);
        if (row.kind == Kind::Response) {
            EXPECT_FALSE(hamal->requestMgr()->removeRequest(head.requestId)) << "still registered";
        }
    }
}

TEST_F(IncomingRoutesTest, GarbageGivesTheParseFailureLineAndNothingElse)
{
    for (const Row& row : rows()) {
        if (row.type == DevP2PSuccessPush || row.type == UploadUpgradeFileFinishedPush)
            continue; // plain text: there is nothing to fail
        SCOPED_TRACE(row.type);
        hamal->requestMgr()->addRequest(head.requestId);
        watch.clear();
        newLogLines();
        hamal->slotMessageComing(MessageType(row.type), QByteArray("\xff\xff\xff", 3));
        EXPECT_TRUE(watch.emitted().isEmpty());
        const QString failure =
            row.parseFailure.isEmpty()
                ? QStringLiteral("parse [") + dgwWords(row) + QStringLiteral("] failure")
                : row.parseFailure;
        // A quiet push stays quiet about its garbage too.
        const QStringList expected =
            row.kind == Kind::QuietPush ? QStringList{} : QStringList{line("error", failure)};
        EXPECT_EQ(newLogLines(), expected);
        // The request stays outstanding: it will end in its time-out.
        EXPECT_TRUE(hamal->requestMgr()->removeRequest(head.requestId));
    }
}

TEST_F(IncomingRoutesTest, AnAnswerNobodyWaitsForGivesTheTimeOutLineAndNoSignal)
{
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.type);
        watch.clear();
        newLogLines();
        hamal->slotMessageComing(MessageType(row.type), row.payload);
        if (row.kind != Kind::Response) {
            // Pushes and serial-number answers are always delivered.
            EXPECT_EQ(watch.emitted().size(), 1);
            continue;
        }
        EXPECT_TRUE(watch.emitted().isEmpty());
        const QString words = row.timeoutWords.isEmpty() ? row.words : row.timeoutWords;
        EXPECT_EQ(newLogLines(),
                  QStringList{line("error", QStringLiteral("client request time out ") + words)});
    }
}

TEST_F(IncomingRoutesTest, NumbersNobodyHandlesAreDroppedSilently)
{
    for (int type : {0, 2, 17, 19, 34, 35, 43, 46, 47, 102, 103, 114, -1}) {
        SCOPED_TRACE(type);
        watch.clear();
        newLogLines();
        hamal->slotMessageComing(MessageType(type), QByteArray("\x0a\x01x", 3));
        EXPECT_TRUE(watch.emitted().isEmpty());
        EXPECT_TRUE(newLogLines().isEmpty());
    }
}

TEST_F(IncomingRoutesTest, AFaceDetectionThatIsAnAlarmIsAlsoPushedAsOne)
{
    FaceDetectRecordInfo record{.detectTime = QStringLiteral("2024-03-01 08:30:00"),
                                .temperatureState = 3};
    vms_sdk_proto::FaceDetectLiveInfo push;
    push.mutable_channel_id()->set_dev_id("cam-2");
    push.mutable_channel_id()->set_channel_index(3);
    *push.mutable_record() = toWire(record);
    hamal->slotMessageComing(FaceDetectLivePush, wire(push));
    EXPECT_EQ(watch.emitted(), (QStringList{"signalFaceDetectPush", "signalCommonAlarmPush"}));
    const AlarmInfo alarm = watch.argumentsOf("signalCommonAlarmPush").value(0).value<AlarmInfo>();
    EXPECT_EQ(alarm.alarmType, "abnormal_temperature");
    EXPECT_EQ(alarm.channelId, (ChannelId{.devId = "cam-2", .channelIndex = 3}));
}

} // namespace
