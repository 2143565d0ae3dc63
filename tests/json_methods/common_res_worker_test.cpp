// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The answers of every JSON method, as a device writes them, to the ClientSignals signal the
// application receives: each field converted, device errors, failures of the answer itself,
// the event records paging and the log lines.
#include "support/signal_recorder.h"
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_kit/vms_kit.h"
#include "vms_sdk/client/record_json.h"
#include "vms_sdk/json_methods/common_res_worker.h"
#include "vms_sdk/request/message_hamal.h"
#include "vms_sdk/request/request_data.h"
#include "vms_sdk/request/request_mgr.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QUuid>

#include <gtest/gtest.h>

using namespace vms_sdk;

namespace {

QJsonValue json(const char* text)
{
    return QJsonDocument::fromJson(QByteArray("[") + text + "]").array().at(0);
}

QByteArray documentText(const QJsonObject& document)
{
    return QJsonDocument(document).toJson(QJsonDocument::Compact);
}

QJsonObject envelope(const QString& method, int code, const QJsonValue& result)
{
    return {{"method", method},
            {"error", QJsonObject{{"errorcode", code}, {"message", code ? "offline" : "ok"}}},
            {"result", result}};
}

// A device application's answer, wrapped as the device sends it.
QJsonObject wrapped(const QJsonObject& inner)
{
    return envelope(
        "dev_trans_userparam", 0,
        QJsonObject{{"resp_data", QString::fromLatin1(documentText(inner).toBase64())}});
}

struct Row
{
    const char* method;
    bool application; // answered by a device application, wrapped
    const char* result;
    const char* signal;
    const char* expected; // the signal's arguments after the Response, as JSON
};

// clang-format off
const Row rows[] = {
    {"get_record_date_list", false, R"({"date_list": [1, 0, 1, 2, 1]})",
     "signalGetVideoRecordingsCalendarMaskRes", R"([["2024-02-28", "2024-03-01", "2024-03-03"]])"},
    {"alarm_temperature_get_history_list", false,
     R"({"total_cnt": 7, "temper_records": [{"id": 3, "name": "door", "temper": 37.5, "over_threshold": true, "time": "2024-03-01 08:30:00", "alarm_status": 1, "jpeg_path": "/pic/3.jpg", "temper_rect": "10,20,30,40"}]})",
     "signalGetRegionTemperatureRecordsRes",
     R"([[{"id": 3, "name": "door", "temper": 37.5, "overThreshold": true, "time": "2024-03-01T08:30:00.000", "alarmStatus": 1, "jpegPath": "/pic/3.jpg", "temperRect": "10,20,30,40"}], 7])"},
    {"event_get_type_list", false, R"({"eventTypeList": [{"type": 5, "name": "motion", "alarm": 1, "timetype": 2}]})",
     "signalGetTriggeredEventsRes", R"([[{"type": 5, "name": "motion", "alarm": true, "timeType": 2}]])"},
    {"event_get_list", false,
     R"({"eventCount": 2, "eventList": [{"type": 7, "record": true, "startTime": "2024-03-01 08:00:00", "stopTime": "2024-03-01 08:05:00"}, {"type": 5, "record": false, "startTime": "2024-03-01 09:00:00", "stopTime": "2024-03-01 09:01:00"}]})",
     "signalGetEventRecordsRes",
     R"([{"5": [{"type": 5, "record": false, "startTime": "2024-03-01T09:00:00.000", "stopTime": "2024-03-01T09:01:00.000"}], "7": [{"type": 7, "record": true, "startTime": "2024-03-01T08:00:00.000", "stopTime": "2024-03-01T08:05:00.000"}]}])"},
    {"ivp_LPR_get_history", false,
     R"({"total_cnt": 40, "pageNum": 2, "result_list": [{"channelid": 1, "time": "2024-03-01 10:00:00", "plate_num": "AB123", "plate_color": 2, "plate_type": 3, "picPath": "/lpr/1.jpg", "vehicle_type": 4, "vehicle_color": 5, "vehicle_orientation": 1}]})",
     "signalGetLicensePlateRecRecordsRes",
     R"([[{"channelIndex": 1, "time": "2024-03-01T10:00:00.000", "plateNum": "AB123", "plateColor": 2, "plateType": 3, "picPath": "/lpr/1.jpg", "vehicleType": 4, "vehicleColor": 5, "vehicleOrientation": 1}], 40, 2])"},
    // The picture is handed on as the text the device sent: the bytes "QUI=", not "AB".
    {"snap_file_get", false, R"({"data": "QUI="})", "signalGetSnapImageRes", R"(["UVVJPQ=="])"},
    {"ivp_hm_get_heatmap", false, R"({"width": 64, "height": 48, "bgJpegBase64": "QUI=", "heatmapDataBase64": "AQID"})",
     "signalGetCustomersHeatMapRes", R"([{"width": 64, "height": 48, "bgJpeg": "QUI=", "heatmapData": "AQID"}])"},
    {"image_set_adjust_param", false, "{}", "signalSetChannImageAdjustSettingsRes", "[]"},
    {"stream_get_params", false,
     R"({"streams": [{"streamid": 0, "width": 1920, "height": 1080, "frameRate": 25, "bitRate": 4096, "gop": 50, "venctype": 1, "quality": 3, "smooth": 2, "rcMode": 1, "smartencode": 1, "encryptEn": true}]})",
     "signalGetChannStreamSettingsRes",
     R"([[{"streamId": 0, "width": 1920, "height": 1080, "frameRate": 25, "bitRate": 4096, "gop": 50, "vencType": 1, "quality": 3, "smooth": 2, "rcMode": 1, "smartEncode": 1, "encryptEn": true}]])"},
    {"ptz_ability_get", false,
     R"({"motor_ability": {"pan_tilt_both": true}, "ex_ability": {"auto_move": true}, "lens_ability": {"zoom": true, "focus": false, "iris": true}, "max_preset": 255, "max_patrol": 8, "max_trail": 4, "max_task": 16})",
     "signalGetPTZAbilityRes",
     R"([{"panTiltBoth": true, "autoMove": true, "zoom": true, "focus": false, "iris": true, "maxPreset": 255, "maxPatrol": 8, "maxTrail": 4, "maxTask": 16}])"},
    {"ifconfig_get_inet", false, R"({"iface": "wifi"})", "signalGetDevNetModeRes", "[1]"},
    {"storage_format_get_progress", false, R"({"progress": 60, "finished": false, "status": "normal"})",
     "signalGetDevDiskFormattingProgressRes", "[60, false, true]"},
    // Normal only when the device says so in exactly these letters.
    {"storage_format_get_progress", false,
     R"({"progress": 100, "finished": true, "status": "Normal"})",
     "signalGetDevDiskFormattingProgressRes", "[100, true, false]"},
    {"intelligence_face_capture_get_history_list", true,
     R"({"page_num": 1, "total_cnt": 30, "face_capture_list": [{"channelid": 2, "time": "2024-03-01 11:00:00", "age": 30, "gender": 1, "hair": 2, "eyeglass": 1, "mask": 0, "beard": 1, "hat": 0, "expression": 3, "obj_picName": "/cap/o1.jpg", "frm_picName": "/cap/f1.jpg"}]})",
     "signalGetFaceRecRecordsRes",
     R"([[{"channelIndex": 2, "time": "2024-03-01T11:00:00.000", "age": 30, "gender": 1, "hair": 2, "eyeglass": 1, "mask": 0, "beard": 1, "hat": 0, "expression": 3, "objPicName": "/cap/o1.jpg", "frmPicName": "/cap/f1.jpg", "index": 0, "classification": "", "faceId": "", "name": "", "similarity": 0, "picPath": "", "picFullPath": "", "groupId": 0}], 1, 30])"},
    {"caplib_search", true,
     R"({"page_num": 2, "total_size": 45, "list": [{"index": 7, "cap_time": "2024-03-01 12:00:00", "gender": 2, "classification": "vip", "face_id": "F-7", "name": "Ann", "similarity": 93, "pic_path": "/lib/7.jpg", "pic_full_path": "/lib/full/7.jpg", "group_id": 3}]})",
     "signalGetFaceRecRecordsRes",
     R"([[{"channelIndex": 0, "time": "2024-03-01T12:00:00.000", "age": 0, "gender": 2, "hair": 0, "eyeglass": 0, "mask": 0, "beard": 0, "hat": 0, "expression": 0, "objPicName": "", "frmPicName": "", "index": 7, "classification": "vip", "faceId": "F-7", "name": "Ann", "similarity": 93, "picPath": "/lib/7.jpg", "picFullPath": "/lib/full/7.jpg", "groupId": 3}], 2, 45])"},
    {"ground_lock_control", true, "{}", "signalCtrlParkingLockRes", "[]"},
    {"group_search", true, R"({"groups": [{"id": 3, "name": "staff", "enable": 1}]})",
     "signalGetAllFaceGroupsRes", R"([[{"id": 3, "name": "staff", "enable": true}]])"},
    {"rcglib_search", true,
     R"({"page_num": 1, "total_size": 120, "list": [{"index": 7, "name": "Ann", "face_id": "F-7", "gender": 2, "birthdate": "1990-05-01", "start_time": "2024-01-01 00:00:00", "end_time": "2025-01-01 00:00:00", "classification": "vip", "modeling_status": "done", "modeling_errorcode": 0, "jpeg_uuid": "u-1", "group_id": [3]}]})",
     "signalGetFacesRes",
     R"([[{"index": 7, "serialNum": "F-7", "name": "Ann", "faceType": "vip", "faceUrl": "", "gender": 2, "age": 0, "faceImage": "", "validTime": "2024-01-01 00:00:00", "invalidTime": "2025-01-01 00:00:00", "organizations": []}], 120, 1])"},
};
// clang-format on

class CommonResWorkerTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        logPath = vms_test::openTestLog();
        worker = MessageHamal::instance()->commonResWorker();
        // The calendar mask counts its days from the start date the request asked with.
        RequestData::instance()->setCondition(
            QStringLiteral("r1"), GetCalendarMaskCondition{.requestId = QStringLiteral("r1"),
                                                           .startDate = QDate(2024, 2, 28)});
    }
    void TearDown() override { vms_kit::release_vms_log(); }

    // The answer to request "r1", as the gateway hands it over.
    void answer(const QJsonObject& document)
    {
        worker->handleCommonRes(QStringLiteral("r1"), QString::fromUtf8(documentText(document)));
    }
    void answer(const Row& row, int code)
    {
        const QJsonObject inner = envelope(row.method, code, json(row.result));
        answer(row.application ? wrapped(inner) : inner);
    }

    QStringList newLogLines()
    {
        const QStringList lines = vms_test::readLines(logPath);
        const QStringList fresh = lines.mid(seenLines);
        seenLines = lines.size();
        QStringList texts;
        for (const QString& line : fresh)
            texts.append(line.section(QStringLiteral("]    "), 1)); // "[level] [tag]    text"
        return texts;
    }

    QString logPath;
    int seenLines = 0;
    CommonResWorker* worker = nullptr;
    vms_test::SignalRecorder emissions;
};

QJsonArray argumentsAfterResponse(const QVariantList& args)
{
    QJsonArray array;
    for (int i = 1; i < args.size(); ++i)
        array.append(record_json::variantToJson(args[i]));
    return array;
}

TEST_F(CommonResWorkerTest, EveryMethodBecomesItsSignalWithEveryFieldConverted)
{
    for (const Row& row : rows) {
        SCOPED_TRACE(row.method);
        emissions.clear();
        answer(row, 0);
        ASSERT_EQ(emissions.names(), QStringList{QString::fromLatin1(row.signal)});
        const QVariantList args = emissions.argumentsOf(row.signal);
        EXPECT_EQ(args.value(0).value<Response>(),
                  (Response{.requestId = "r1", .errCode = 0, .errMsg = "ok"}));
        EXPECT_EQ(argumentsAfterResponse(args), json(row.expected).toArray());
    }
}

TEST_F(CommonResWorkerTest, ADeviceErrorGivesTheSignalWithItsResponseAndNoData)
{
    for (const Row& row : rows) {
        SCOPED_TRACE(row.method);
        emissions.clear();
        answer(row, 1003); // the data beside the error is not read
        ASSERT_EQ(emissions.names(), QStringList{QString::fromLatin1(row.signal)});
        const QVariantList args = emissions.argumentsOf(row.signal);
        EXPECT_EQ(args.value(0).value<Response>(),
                  (Response{.requestId = "r1", .errCode = 1003, .errMsg = "offline"}));
        QJsonArray defaults;
        for (int i = 1; i < args.size(); ++i)
            defaults.append(record_json::variantToJson(QVariant(args[i].userType(), nullptr)));
        // The net mode is the one result with a value of its own for "unknown".
        if (QLatin1String(row.method) == QLatin1String("ifconfig_get_inet"))
            defaults = QJsonArray{-1};
        EXPECT_EQ(argumentsAfterResponse(args), defaults);
    }
}

TEST_F(CommonResWorkerTest, MissingKeysAndAMissingErrorGiveDefaults)
{
    answer(QJsonObject{{"method", "storage_format_get_progress"}});
    const QVariantList args = emissions.argumentsOf("signalGetDevDiskFormattingProgressRes");
    ASSERT_EQ(args.size(), 4);
    EXPECT_EQ(args[0].value<Response>(), Response{.requestId = "r1"});
    EXPECT_EQ(argumentsAfterResponse(args), json("[0, false, false]").toArray());
}

TEST_F(CommonResWorkerTest, EveryInterfaceHasItsNetModeAndAnUnknownOneIsWired)
{
    const std::pair<const char*, int> modes[] = {{"eth", 0},  {"wifi", 1}, {"_4G", 2},  {"ppp", 3},
                                                 {"ddns", 4}, {"4G", 0},   {"WIFI", 0}, {"", 0}};
    for (const auto& [iface, mode] : modes) {
        SCOPED_TRACE(iface);
        emissions.clear();
        answer(envelope("ifconfig_get_inet", 0, QJsonObject{{"iface", iface}}));
        EXPECT_EQ(emissions.argumentsOf("signalGetDevNetModeRes").value(1).toInt(), mode);
    }
}

// A wrapped answer fails on the wrapper's own error or on its inner document.
TEST_F(CommonResWorkerTest, AnswersThatCannotBeReadFailTheRequest)
{
    const auto text = [](const QJsonObject& document) {
        return QString::fromUtf8(documentText(document));
    };
    struct Case
    {
        const char* what;
        QString text;
        int code;
        QString logLine; // empty: none looked for
    };
    const QList<Case> cases{
        {"not JSON", R"({"method": )", -61003,
         "parse [common response json data] failure:{\"method\": "},
        {"an array", "[1, 2]", -61003, "parse [common response json data] failure:[1, 2]"},
        {"a method in other letter case", R"({"method": "Storage_Get_Info"})", -61005,
         "method is not supported:"},
        {"a method with no parser", R"({"method": "image_get_param"})", -61005,
         "method is not supported:"},
        {"no method", R"({"error": {"errorcode": 0}})", -61005, "method is not supported:"},
        // The wrapper's own error, even with a readable inner answer beside it.
        {"an error of the wrapper",
         text(envelope("dev_trans_userparam", 1005,
                       QJsonObject{{"resp_data",
                                    QString::fromLatin1(
                                        documentText(envelope("group_add", 0, {})).toBase64())}})),
         1005, QString()},
        {"an inner document that is not JSON",
         text(envelope("dev_trans_userparam", 0, QJsonObject{{"resp_data", "bm90IGpzb24="}})),
         -61003, "parse [pvu transparent common resp data] failure:not json"},
        {"a plain method wrapped", text(wrapped(envelope("storage_format", 0, {}))), -61005,
         "pvu method is not supported:"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        emissions.clear();
        newLogLines();
        worker->handleCommonRes(QStringLiteral("r1"), c.text);
        ASSERT_EQ(emissions.names(), QStringList{"signalCommonRequestFailed"});
        EXPECT_EQ(emissions.argumentsOf("signalCommonRequestFailed"), (QVariantList{"r1", c.code}));
        if (!c.logLine.isEmpty()) {
            EXPECT_TRUE(newLogLines().contains(c.logLine)) << c.logLine.toStdString();
        }
    }
}

TEST_F(CommonResWorkerTest, AWrappedAnswerWithBrokenUtf8IsRepairedAndRead)
{
    // "staff" followed by half of a two-byte character.
    const QByteArray inner = R"({"method": "group_search", "error": {"errorcode": 0},)"
                             R"( "result": {"groups": [{"id": 3, "name": "st)"
                             "\xc3"
                             R"(", "enable": true}]}})";
    answer(envelope("dev_trans_userparam", 0,
                    QJsonObject{{"resp_data", QString::fromLatin1(inner.toBase64())}}));
    ASSERT_EQ(emissions.names(), QStringList{"signalGetAllFaceGroupsRes"});
    const auto groups =
        emissions.argumentsOf("signalGetAllFaceGroupsRes").value(1).value<QList<FaceGroupInfo>>();
    ASSERT_EQ(groups.size(), 1);
    EXPECT_EQ(groups[0].id, 3);
    EXPECT_EQ(groups[0].name, QStringLiteral("st\uFFFD"));
}

TEST_F(CommonResWorkerTest, TheTwoParsersOutsideTheDispatchReadTheirAnswers)
{
    worker->parseImageSettings(
        "r1", envelope("image_get_param", 0,
                       json(R"({"contrast": 1, "scene": "indoor", "daynightMode": "auto",
                                "dayStart": {"hour": 7, "minute": 30}, "bStarlight": true})")
                           .toObject()));
    const auto image =
        emissions.argumentsOf("signalGetChannImageSettingsRes").value(1).value<ImageSettingInfo>();
    EXPECT_EQ(image, (ImageSettingInfo{.contrast = 1,
                                       .scene = "indoor",
                                       .daynightMode = "auto",
                                       .dayStart = QTime(7, 30),
                                       .bStarlight = true}));

    worker->parseDevSysCfg(
        "r1", envelope("dev_get_info", 0,
                       json(R"({"bDiscoverable": true, "hostname": "cam-1", "name": "hall",
                                "rebootDay": "sunday", "rebootHour": 3, "syslanguage": "English",
                                "encryptEn": true, "supportedLangs": ["English"]})")
                           .toObject()));
    EXPECT_EQ(emissions.argumentsOf("signalGetDevSysCfgRes").value(1).value<DevSysCfgInfo>(),
              (DevSysCfgInfo{.bDiscoverable = true,
                             .hostname = "cam-1",
                             .name = "hall",
                             .rebootDay = "sunday",
                             .rebootHour = 3,
                             .syslanguage = "English",
                             .encryptEn = true}));
}

TEST_F(CommonResWorkerTest, AlarmRecordsGetFreshIdsAndTheChannelAndTypeOfTheirRequest)
{
    RequestData::instance()->setCondition(
        QStringLiteral("r1"),
        GetAlarmRecordsCondition{.requestId = QStringLiteral("r1"),
                                 .channelId = {.devId = "cam-2", .channelIndex = 4},
                                 .alarmType = "motion"});
    answer(envelope("alarm_info_list_get", 0,
                    json(R"({"total_cnt": 12, "info_list": [
        {"time": "2024-03-01 08:30:00", "path_list": [{"path": "/a/1.jpg", "time": "x"},
                                                      {"path": "/a/2.jpg"}]},
        {"time": "2024-03-01 09:30:00"}]})")
                        .toObject()));
    const QVariantList args = emissions.argumentsOf("signalGetAlarmRecordsRes");
    const auto alarms = args.value(1).value<QList<AlarmInfo>>();
    ASSERT_EQ(alarms.size(), 2);
    EXPECT_EQ(args.value(2).toInt(), 12);
    EXPECT_NE(alarms[0].alarmId, alarms[1].alarmId);
    for (const AlarmInfo& alarm : alarms) {
        EXPECT_FALSE(QUuid(alarm.alarmId).isNull()) << alarm.alarmId.toStdString();
        EXPECT_EQ(alarm.channelId, (ChannelId{.devId = "cam-2", .channelIndex = 4}));
        EXPECT_EQ(alarm.alarmType, "motion");
    }
    EXPECT_EQ(alarms[0].alarmTime, "2024-03-01 08:30:00");
    EXPECT_EQ(alarms[0].attachments, (QList<QByteArray>{"/a/1.jpg", "/a/2.jpg"}));
    EXPECT_TRUE(alarms[1].attachments.isEmpty());
}

TEST_F(CommonResWorkerTest, ACancelledAlarmIsTheValueTheApplicationAttached)
{
    RequestMgr* registry = MessageHamal::instance()->requestMgr();
    const AlarmInfo attached{.alarmId = "{a-1}", .alarmType = "motion"};
    registry->setValue("r1", QVariant::fromValue(attached));
    answer(envelope("alarm_manual_cancel", 0, QJsonObject()));
    EXPECT_EQ(emissions.argumentsOf("signalCancelAlarmRes").value(1).value<AlarmInfo>(), attached);
    // The application takes the value itself when it handles the answer.
    EXPECT_TRUE(registry->value("r1", true).isValid());

    emissions.clear();
    answer(envelope("alarm_manual_cancel", 0, QJsonObject()));
    EXPECT_EQ(emissions.argumentsOf("signalCancelAlarmRes").value(1).value<AlarmInfo>(),
              AlarmInfo{});
}

} // namespace

namespace {

// Event records come a page at a time; the pages are asked for through the dispatcher, whose
// messages are kept here instead of going to a gateway.
class EventPagingTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        MessageHamal::instance()->setSendOperation(
            [this](MessageType type, const QByteArray& payload, const QString&) {
                if (type != CommonReq)
                    return;
                vms_sdk_proto::CommonReq request;
                request.ParseFromArray(payload.constData(), payload.size());
                const QJsonObject document =
                    QJsonDocument::fromJson(QByteArray::fromStdString(request.req_json())).object();
                pages.append({QString::fromStdString(request.request_id()),
                              document["param"]["pageNum"].toInt()});
            });
    }
    void TearDown() override
    {
        MessageHamal::instance()->setSendOperation(
            [](MessageType, const QByteArray&, const QString&) {});
    }

    // One page of the answer, with `count` events of type 5 and the total the device reports.
    void answerPage(int total, int count, int code = 0)
    {
        QJsonArray events;
        for (int i = 0; i < count; ++i)
            events.append(QJsonObject{{"type", 5},
                                      {"record", true},
                                      {"startTime", "2024-03-01 08:00:00"},
                                      {"stopTime", "2024-03-01 08:01:00"}});
        worker.handleCommonRes(
            "ev", QString::fromUtf8(documentText(
                      envelope("event_get_list", code,
                               QJsonObject{{"eventCount", total}, {"eventList", events}}))));
    }

    // The number of events the application received, or -1 when it received nothing.
    int delivered() const
    {
        if (records.isEmpty())
            return -1;
        return records[0][1].value<EventMap>().value(5).size();
    }

    QList<std::pair<QString, int>> pages; // request id and page number, as sent
    CommonResWorker worker{MessageHamal::instance()->requestMgr(), nullptr, 0};
    QSignalSpy records{ClientSignals::instance(), &ClientSignals::signalGetEventRecordsRes};
};

TEST_F(EventPagingTest, PagesAreAskedForUntilTheTotalOrAnEmptyPageOrAnError)
{
    struct Page
    {
        int total;
        int count;
        int code;
    };
    struct Case
    {
        const char* what;
        QList<Page> answers; // each but the last asks for the next page
        int delivered;
        int code;
    };
    const Case cases[] = {
        {"the total collected", {{5, 2, 0}, {5, 2, 0}, {5, 1, 0}}, 5, 0},
        {"an empty page", {{10, 2, 0}, {10, 0, 0}}, 2, 0},
        {"an error", {{10, 2, 0}, {10, 2, 1003}}, 0, 1003},
        {"a negative total counts as none", {{-5, 2, 0}}, 2, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        while (MessageHamal::instance()->requestMgr()->removeRequest("ev")) {
        }
        pages.clear();
        records.clear();
        MessageHamal::instance()->slotGetEventRecordsReq(
            {.requestId = "ev", .channelId = {.devId = "cam-1", .channelIndex = 1}});
        QList<std::pair<QString, int>> asked{{"ev", 1}};
        for (int i = 0; i < c.answers.size(); ++i) {
            ASSERT_EQ(pages, asked);
            EXPECT_TRUE(records.isEmpty());
            answerPage(c.answers[i].total, c.answers[i].count, c.answers[i].code);
            if (i + 1 < c.answers.size()) {
                asked.append({"ev", i + 2});
                ASSERT_TRUE(vms_test::waitFor([&] { return pages.size() == asked.size(); }));
            }
        }
        ASSERT_EQ(records.count(), 1);
        EXPECT_EQ(records[0][0].value<Response>().errCode, c.code);
        EXPECT_EQ(delivered(), c.delivered);
        EXPECT_EQ(pages, asked);
        EXPECT_FALSE(worker.collectingEvents("ev"));
    }
}

} // namespace
