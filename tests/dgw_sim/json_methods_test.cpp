// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// The device JSON methods as the simulator answers them: sets read back by gets, paging, the
// recording calendar, the broken answers the method faults produce, and the variants of a push
// schedule.

#include "domain_support.h"

#include "vms_protocol/message_type.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <vector>

using namespace vms_sdk;
using namespace vms_test;

namespace {

class JsonMethods : public SimTest
{};

QJsonObject objectOf(const QByteArray& json)
{
    return QJsonDocument::fromJson(json).object();
}

// Sends one method to cam-1/1 and returns the answer text.
QByteArray answerText(SimProcess& sim, const QJsonObject& document, unsigned channel = 1)
{
    vms_sdk_proto::CommonReq request;
    request.set_request_id("{json}");
    *request.mutable_channel_id() = channelOf("cam-1", channel);
    request.set_req_json(QJsonDocument(document).toJson().toStdString());
    const auto answer = ask<vms_sdk_proto::CommonRes>(sim, CommonReq, request, CommonRes);
    EXPECT_EQ(answer.request_id(), "{json}");
    return QByteArray::fromStdString(answer.res_json());
}

QJsonObject transparentRequest(const char* method, const QByteArray& param)
{
    QJsonObject inner{{"method", method}, {"package", "face_app"}};
    if (!param.isNull())
        inner.insert("param", objectOf(param));
    return {
        {"method", "dev_trans_userparam"},
        {"param",
         QJsonObject{{"channelid", 1},
                     {"owner", "Tavirnex"},
                     {"req_data", QString::fromLatin1(QJsonDocument(inner).toJson().toBase64())}}}};
}

QByteArray innerText(const QJsonObject& outer)
{
    return QByteArray::fromBase64(
        outer.value("result").toObject().value("resp_data").toString().toLatin1());
}

// The envelope of a method's answer: the inner one for an application's method, whose outer
// envelope must be the transparent method's, successful.
QJsonObject call(SimProcess& sim, const char* method, const QByteArray& param, bool application)
{
    if (!application) {
        QJsonObject document{{"method", method}};
        if (!param.isNull())
            document.insert("param", objectOf(param));
        return QJsonDocument::fromJson(answerText(sim, document)).object();
    }
    const QJsonObject outer =
        QJsonDocument::fromJson(answerText(sim, transparentRequest(method, param))).object();
    EXPECT_EQ(outer.value("method").toString(), "dev_trans_userparam");
    EXPECT_EQ(outer.value("error").toObject().value("errorcode").toInt(-1), 0);
    const QJsonDocument inner = QJsonDocument::fromJson(innerText(outer));
    EXPECT_TRUE(inner.isObject()) << innerText(outer).toStdString();
    return inner.object();
}

} // namespace

TEST_F(JsonMethods, SetsAreReadBackByGets)
{
    struct Step
    {
        const char* method;
        bool application;
        const char* param;
        int errorCode;
        const char* expected; // keys of "result" and their values; nullptr: not checked
    };
    struct Row
    {
        const char* name;
        std::vector<Step> steps;
    };
    const Row rows[] = {
        {"image adjustment",
         {{"image_set_adjust_param", false,
           R"({"channelid": 1, "contrast": 70, "brightness": 40, "saturation": 55, "sharpen": 60,
               "bEnableMI": true, "bEnableST": false, "rotate": 90, "style": 1,
               "bEnableSmartSensor": 1})",
           0, nullptr},
          {"image_set_adjust_param", false, R"({"contrast": 101})", 1006, nullptr},
          {"image_get_adjust_param", false, "{}", 0,
           R"({"contrast": 70, "brightness": 40, "saturation": 55, "sharpen": 60,
               "bEnableMI": true, "bEnableST": false, "rotate": 90, "style": 1})"}}},
        {"library faces",
         {{"rcglib_add", true,
           R"({"name": "Cid", "group_id": [1], "face_id": "E-1002", "gender": 1,
               "birthdate": "2000-01-01", "classification": "staff",
               "start_time": "2024-01-01 00:00:00", "end_time": "2030-01-01 00:00:00",
               "jpeg_list": ["/9j/4AAQ"]})",
           0, nullptr},
          {"rcglib_add", true, R"({"name": "Dup", "face_id": "E-1002", "jpeg_list": ["/9j/"]})",
           1007, nullptr},
          {"rcglib_statistics", true, R"({"group_id": 0})", 0,
           R"({"total_cnt": 3, "modeled_cnt": 1, "modeling_failed_cnt": 1, "pending_cnt": 1})"},
          {"rcglib_statistics", true, R"({"group_id": 0})", 0,
           R"({"total_cnt": 3, "modeled_cnt": 2, "modeling_failed_cnt": 1, "pending_cnt": 0})"},
          {"rcglib_mod", true,
           R"({"index": 3, "name": "Cara", "group_id": [1, 2], "face_id": "E-1002", "gender": 1,
               "birthdate": "2000-01-01", "classification": "staff",
               "start_time": "2024-01-01 00:00:00", "end_time": "2030-01-01 00:00:00",
               "jpeg_list": [{"base64": "", "uuid": "jpeg-3-1"}]})",
           0, nullptr},
          {"rcglib_del", true, R"({"rcglib_items": [{"index": 1, "group_id": []}]})", 0, nullptr},
          {"rcglib_del", true, R"({"rcglib_items": [{"index": 1, "group_id": []}]})", 1004,
           nullptr},
          {"rcglib_search", true, R"({"keyword": "car", "page_num": 1, "page_size": 10})", 0,
           R"({"page_num": 1, "total_size": 1,
               "list": [{"index": 3, "name": "Cara", "face_id": "E-1002", "gender": 1,
                         "birthdate": "2000-01-01", "start_time": "2024-01-01 00:00:00",
                         "end_time": "2030-01-01 00:00:00", "classification": "staff",
                         "modeling_status": "success", "modeling_errorcode": 0,
                         "jpeg_uuid": "jpeg-3-1", "group_id": [1, 2]}]})"},
          {"rcglib_search", true, R"({"page_num": 1, "page_size": 10})", 0,
           R"({"total_size": 2})"}}},
        {"bullet tag points",
         {{"gtrack_add_mark_point", false, R"({"channelid": 1, "x": 5000, "y": 2500})", 0, nullptr},
          {"gtrack_add_mark_point", false, R"({"channelid": 1, "x": 10001, "y": 0})", 1006,
           nullptr},
          {"gtrack_get_point_list", false, "{}", 0,
           R"({"list": [{"x": 5000, "y": 2500, "p": 180, "t": -22.5, "z": 2}]})"},
          {"gtrack_clear_point", false, "{}", 0, nullptr},
          {"gtrack_get_point_list", false, "{}", 0, R"({"list": []})"}}},
        {"disk format",
         {{"storage_format_get_progress", false, R"({"diskNum": 1})", 1004, nullptr},
          {"storage_format", false, R"({"diskNum": 1, "diskName": "sda", "partionNum": 1})", 0,
           nullptr},
          {"storage_format", false, R"({"diskNum": 1, "diskName": "sda", "partionNum": 1})", 1008,
           nullptr},
          {"storage_format_get_progress", false, R"({"diskNum": 1})", 0,
           R"({"progress": 25, "finished": false, "status": "formatting"})"},
          {"storage_format_get_progress", false, R"({"diskNum": 1})", 0, R"({"progress": 50})"},
          {"storage_format_get_progress", false, R"({"diskNum": 1})", 0, R"({"progress": 75})"},
          {"storage_format_get_progress", false, R"({"diskNum": 1})", 0,
           R"({"progress": 100, "finished": true, "status": "normal"})"},
          {"storage_format_get_progress", false, R"({"diskNum": 1})", 0,
           R"({"progress": 100, "finished": true, "status": "normal"})"}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        SimProcess& sim = startSim(domainNetwork);
        ASSERT_TRUE(sim.initialise());
        for (const Step& step : row.steps) {
            SCOPED_TRACE(std::string(step.method) + " " + (step.param ? step.param : ""));
            const QJsonObject answer = call(sim, step.method, step.param, step.application);
            EXPECT_EQ(answer.value("error").toObject().value("errorcode").toInt(-1),
                      step.errorCode);
            if (!step.expected)
                continue;
            const QJsonObject result = answer.value("result").toObject();
            const QJsonObject expected = objectOf(step.expected);
            ASSERT_FALSE(expected.isEmpty()) << "bad literal";
            for (auto key = expected.begin(); key != expected.end(); ++key) {
                EXPECT_EQ(result.value(key.key()), key.value())
                    << key.key().toStdString() << " in "
                    << QJsonDocument(result).toJson(QJsonDocument::Compact).toStdString();
            }
        }
    }
}

TEST_F(JsonMethods, EventsArePagedByPageNumber)
{
    struct Row
    {
        int pageNum;
        QStringList startTimes;
        QList<int> types;
    };
    const Row rows[] = {
        {1, {"2024-03-01 08:00:00", "2024-03-01 08:15:00"}, {1, 3}},
        {2, {"2024-03-01 08:30:00", "2024-03-01 08:45:00"}, {1, 3}},
        {3, {"2024-03-01 09:00:00"}, {1}},
        {4, {}, {}},
    };
    SimProcess& sim = startSim(domainNetwork);
    ASSERT_TRUE(sim.initialise());
    for (const Row& row : rows) {
        SCOPED_TRACE(row.pageNum);
        const QByteArray param = QByteArrayLiteral(
                                     R"({"channelid": 1, "startTime": "2024-03-01 08:00:00",
            "endTime": "2024-03-01 09:00:00", "mergeTimeEnable": 0, "record": 1,
            "type": [1, 3], "pageSize": 2, "pageNum": )") +
                                 QByteArray::number(row.pageNum) + "}";
        const QJsonObject result =
            call(sim, "event_get_list", param, false).value("result").toObject();
        EXPECT_EQ(result.value("eventCount").toInt(), 5);
        QStringList startTimes;
        QList<int> types;
        for (const QJsonValue& event : result.value("eventList").toArray()) {
            startTimes.append(event.toObject().value("startTime").toString());
            types.append(event.toObject().value("type").toInt());
        }
        EXPECT_EQ(startTimes, row.startTimes);
        EXPECT_EQ(types, row.types);
    }
}

TEST_F(JsonMethods, CalendarMaskMarksTheDaysWithRecordings)
{
    struct Row
    {
        const char* start;
        const char* end;
        QList<int> mask;
    };
    const Row rows[] = {
        {"20240301000000", "20240305235959", {0, 0, 1, 1, 1}},
        {"20240303000000", "20240303235959", {1}},
        {"21000101000000", "21000102235959", {0, 0}}, // no recordings in the future
    };
    SimProcess& sim =
        startSim(R"({"devices": [{"id": "cam-1", "recordingsSince": "2024-03-03"}]})");
    ASSERT_TRUE(sim.initialise());
    for (const Row& row : rows) {
        SCOPED_TRACE(row.start);
        const QByteArray param = QByteArray(R"({"channel_id": 1, "start_time": ")") + row.start +
                                 R"(", "end_time": ")" + row.end + "\"}";
        const QJsonObject answer = call(sim, "get_record_date_list", param, false);
        QList<int> mask;
        for (const QJsonValue& flag :
             answer.value("result").toObject().value("date_list").toArray())
            mask.append(flag.toInt(-1));
        EXPECT_EQ(mask, row.mask);
    }
}

TEST_F(JsonMethods, MethodFaultsBreakTheAnswer)
{
    struct Row
    {
        const char* name;
        const char* method;
        bool application;
        std::function<void(const QByteArray& text)> check;
    };
    const auto envelopeOf = [](const QByteArray& text) {
        return QJsonDocument::fromJson(text).object();
    };
    const Row rows[] = {
        {"not JSON", "log_get", false,
         [](const QByteArray& text) {
             QJsonParseError error;
             QJsonDocument::fromJson(text, &error);
             EXPECT_NE(error.error, QJsonParseError::NoError);
         }},
        {"not an object", "storage_get_info", false,
         [](const QByteArray& text) { EXPECT_TRUE(QJsonDocument::fromJson(text).isArray()); }},
        {"unknown method", "dev_get_qrcode", false,
         [&](const QByteArray& text) {
             EXPECT_EQ(envelopeOf(text).value("method").toString(), "dev_get_qrcode_unknown");
         }},
        {"wrong case", "ptz_ability_get", false,
         [&](const QByteArray& text) {
             EXPECT_EQ(envelopeOf(text).value("method").toString(), "PTZ_ABILITY_GET");
         }},
        {"device error", "image_get_ability", false,
         [&](const QByteArray& text) {
             EXPECT_EQ(envelopeOf(text).value("error").toObject(),
                       objectOf(R"({"errorcode": 5001, "message": "sensor busy"})"));
             EXPECT_EQ(envelopeOf(text).value("result").toObject(), QJsonObject());
         }},
        {"transparent error", "group_search", true,
         [&](const QByteArray& text) {
             const QJsonObject outer = envelopeOf(text);
             EXPECT_EQ(outer.value("method").toString(), "dev_trans_userparam");
             EXPECT_EQ(outer.value("error").toObject().value("errorcode").toInt(), 4002);
             EXPECT_FALSE(outer.value("result").toObject().contains("resp_data"));
         }},
        {"invalid UTF-8 inside", "rcglib_search", true,
         [&](const QByteArray& text) {
             const QJsonObject outer = envelopeOf(text);
             EXPECT_EQ(outer.value("error").toObject().value("errorcode").toInt(-1), 0);
             QJsonParseError error;
             QJsonDocument::fromJson(innerText(outer), &error);
             EXPECT_EQ(error.error, QJsonParseError::IllegalUTF8String);
             // Repaired, the document is the method's answer.
             const QByteArray repaired = QString::fromUtf8(innerText(outer)).toUtf8();
             EXPECT_EQ(QJsonDocument::fromJson(repaired).object().value("method").toString(),
                       "rcglib_search");
         }},
        {"unknown inner method", "rcglib_statistics", true,
         [&](const QByteArray& text) {
             const QJsonObject inner =
                 QJsonDocument::fromJson(innerText(envelopeOf(text))).object();
             EXPECT_EQ(inner.value("method").toString(), "rcglib_statistics_unknown");
         }},
        {"other methods are whole", "ifconfig_get_inet", false,
         [&](const QByteArray& text) {
             EXPECT_EQ(envelopeOf(text).value("result").toObject(),
                       objectOf(R"({"iface": "eth"})"));
         }},
    };
    SimProcess& sim = startSim(R"({"faults": {"methodAnswers": [
        {"method": "log_get", "answer": "notJson"},
        {"method": "storage_get_info", "answer": "notObject"},
        {"method": "dev_get_qrcode", "answer": "unknownMethod"},
        {"method": "ptz_ability_get", "answer": "wrongCase"},
        {"method": "image_get_ability", "answer": "deviceError", "code": 5001,
         "message": "sensor busy"},
        {"method": "group_search", "answer": "transparentError", "code": 4002},
        {"method": "rcglib_search", "answer": "invalidUtf8"},
        {"method": "rcglib_statistics", "answer": "unknownMethod"}]}})");
    ASSERT_TRUE(sim.initialise());
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const QJsonObject document =
            row.application ? transparentRequest(row.method, "{}")
                            : QJsonObject{{"method", row.method}, {"param", QJsonObject()}};
        row.check(answerText(sim, document));
    }
}

// Each repetition of a series takes its variant's changes over the series' record.
TEST_F(JsonMethods, ScheduledPushVariantsChangeTheirRecord)
{
    SimProcess& sim = startSim(R"({"pushes": [
        {"type": "faceDetect", "afterMs": 10, "everyMs": 10, "count": 4,
         "channelId": {"devId": "cam-1", "channelIndex": 1},
         "record": {"name": "Ann", "attr9": 36.5, "attr10": 1, "attr11": 1},
         "variants": [{"record": {"attr9": 38.2, "attr10": 2}},
                      {"record": {"attr10": 3, "attr11": 2}},
                      {"record": {"attr11": 2}},
                      {}]}]})");
    ASSERT_TRUE(sim.initialise());
    struct Face
    {
        double temperature;
        int temperatureState;
        int maskState;
    };
    const Face faces[] = {{38.2, 2, 1}, {36.5, 3, 2}, {36.5, 1, 2}, {36.5, 1, 1}};
    for (const Face& expected : faces) {
        const auto face = sim.take<vms_sdk_proto::FaceDetectLiveInfo>(FaceDetectLivePush);
        EXPECT_EQ(face.channel_id().dev_id(), "cam-1");
        EXPECT_EQ(face.record().name(), "Ann");
        EXPECT_DOUBLE_EQ(face.record().attr_9(), expected.temperature);
        EXPECT_EQ(face.record().attr_10(), expected.temperatureState);
        EXPECT_EQ(face.record().attr_11(), expected.maskState);
    }
}

TEST_F(JsonMethods, TheAlarmsExampleRunsItsSchedule)
{
    QFile example(QStringLiteral(VMS_DGW_SIM_ALARMS_EXAMPLE));
    ASSERT_TRUE(example.open(QIODevice::ReadOnly));
    SimProcess& sim = startSim(example.readAll());
    ASSERT_TRUE(sim.initialise());
    const auto face = sim.take<vms_sdk_proto::FaceDetectLiveInfo>(FaceDetectLivePush);
    EXPECT_EQ(face.record().name(), "Ann");
    EXPECT_EQ(face.record().attr_10(), 1);
    EXPECT_EQ(sim.take<vms_sdk_proto::FaceCountInfo>(FaceCountPush).attr_2(), 5u);
}

TEST_F(JsonMethods, TheEnvelopeSaysWhatCouldNotBeAnswered)
{
    struct Row
    {
        const char* name;
        const char* devId;
        unsigned channel;
        QByteArray json;
        const char* method;
        int errorCode;
    };
    const QJsonObject wrapped = transparentRequest("rcglib_search", "{}");
    QJsonObject notJsonInside = wrapped;
    notJsonInside["param"] =
        QJsonObject{{"channelid", 1}, {"owner", "Tavirnex"}, {"req_data", "bm90IGpzb24="}};
    const Row rows[] = {
        {"a method without a row", "nvr-1", 0, R"({"method": "image_set_param", "param": {}})",
         "image_set_param", 0},
        {"wrapped data that is no JSON", "cam-1", 1, QJsonDocument(notJsonInside).toJson(),
         "dev_trans_userparam", 1006},
        {"unknown device", "ghost", 0, R"({"method": "dev_get_info"})", "dev_get_info", 1001},
        {"unknown channel", "cam-1", 4, R"({"method": "image_get_param"})", "image_get_param",
         1002},
        {"not JSON", "cam-1", 0, "method=dev_get_info", "", 1006},
    };
    SimProcess& sim = startSim(domainNetwork);
    ASSERT_TRUE(sim.initialise());
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        vms_sdk_proto::CommonReq request;
        request.set_request_id(row.name);
        *request.mutable_channel_id() = channelOf(row.devId, row.channel);
        request.set_req_json(row.json.toStdString());
        const auto answer = ask<vms_sdk_proto::CommonRes>(sim, CommonReq, request, CommonRes);
        EXPECT_EQ(answer.request_id(), row.name);
        const QJsonObject envelope = objectOf(QByteArray::fromStdString(answer.res_json()));
        EXPECT_EQ(envelope.value("method").toString(), row.method);
        EXPECT_EQ(envelope.value("error").toObject().value("errorcode").toInt(-1), row.errorCode);
        EXPECT_EQ(envelope.value("result"), QJsonObject()) << answer.res_json();
    }
}
