// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// The device JSON methods as the simulator answers them: the keys and JSON types of each
// answer, sets read back by gets, paging, the recording calendar, the broken answers the
// method faults produce, and the alarm and face-detect pushes of a schedule.

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

// "key:type" words, type one of s(tring) i(nteger) d(ouble) b(ool) a(rray) o(bject).
void expectShape(const QJsonObject& object, const char* shape)
{
    for (const QString& word : QString::fromLatin1(shape).split(' ', Qt::SkipEmptyParts)) {
        const QString key = word.section(':', 0, 0);
        const QChar type = word.section(':', 1).at(0);
        const QJsonValue value = object.value(key);
        SCOPED_TRACE(key.toStdString());
        switch (type.toLatin1()) {
        case 's':
            EXPECT_TRUE(value.isString());
            break;
        case 'i':
            EXPECT_TRUE(value.isDouble() && value.toDouble() == double(value.toInt()));
            break;
        case 'd':
            EXPECT_TRUE(value.isDouble());
            break;
        case 'b':
            EXPECT_TRUE(value.isBool());
            break;
        case 'a':
            EXPECT_TRUE(value.isArray());
            break;
        case 'o':
            EXPECT_TRUE(value.isObject());
            break;
        default:
            ADD_FAILURE() << "unknown type " << word.toStdString();
        }
    }
}

const char* const day = R"("2024-03-01 00:00:00")";

QByteArray withPeriod(const char* begin, const char* end, const char* more)
{
    return QByteArray("{\"") + begin + "\": " + day + ", \"" + end + "\": \"2024-03-01 23:59:59\"" +
           more + "}";
}

} // namespace

TEST_F(JsonMethods, AnswersCarryTheKeysAndTypesOfTheirMethod)
{
    struct Row
    {
        const char* method;
        bool application;
        QByteArray param;
        const char* shape;     // of "result"
        const char* listKey;   // a list in "result" whose first element is checked
        const char* itemShape; // of that element
    };
    // Only answers made from the request: lists over the asked period, paged. What a get
    // merely reads back is checked against its set below.
    const Row rows[] = {
        {"alarm_temperature_get_history_list", false,
         withPeriod("start_time", "end_time", R"(, "page": 1, "page_size": 10)"),
         "total_cnt:i temper_records:a", "temper_records",
         "id:i name:s temper:d over_threshold:b time:s alarm_status:i jpeg_path:s "
         "temper_rect:s"},
        {"alarm_info_list_get", false,
         withPeriod("startTime", "endTime", R"(, "type": "", "page": 1, "page_size": 10)"),
         "total_cnt:i info_list:a", "info_list", "time:s path_list:a"},
        {"event_get_type_list", false, withPeriod("startTime", "endTime", ""), "eventTypeList:a",
         "eventTypeList", "type:i name:s alarm:b timetype:i"},
        {"ivp_LPR_get_history", false,
         withPeriod("startTime", "endTime", R"(, "plate_no": "", "pageNum": 1, "pageSize": 50)"),
         "total_cnt:i pageNum:i result_list:a", "result_list",
         "channelid:i time:s plate_num:s plate_color:i plate_type:i picPath:s vehicle_type:i "
         "vehicle_color:i vehicle_orientation:i"},
        {"intelligence_customer_count_get_history_list", false,
         withPeriod("start_time", "end_time", R"(, "count_type": "hour")"), "customer_count_list:a",
         "customer_count_list", "pass_cnt:i in_cnt:i out_cnt:i keep_cnt:i"},
        {"intelligence_regional_people_count_get_history_list", false,
         withPeriod("start_time", "end_time", R"(, "count_type": "day", "region_id": 2)"),
         "people_count_list:a", "people_count_list",
         "people_cnt:i stay_cnt:i stay_rate:d stay_average_time:i"},
        {"log_get", false, R"({"date": "2024-03-01", "type": "ALL"})", "log_items:a", "log_items",
         "time:s strlog:s"},
        {"intelligence_face_count_get_history_list", true,
         withPeriod("start_time", "end_time", R"(, "count_type": "day")"), "face_count_list:a",
         "face_count_list",
         "total:i male:i female:i child_num:i juvenile_num:i youth_num:i midlife_num:i "
         "senile_num:i"},
        {"intelligence_face_capture_get_history_list", true,
         withPeriod("start_time", "end_time", R"(, "page_num": 1, "page_size": 5)"),
         "page_num:i total_cnt:i face_capture_list:a", "face_capture_list",
         "channelid:i time:s age:i gender:i hair:i eyeglass:i mask:i beard:i hat:i expression:i "
         "obj_picName:s frm_picName:s"},
        {"caplib_search", true,
         withPeriod("start_time", "end_time", R"(, "keyword": "", "page_num": 1, "page_size": 5)"),
         "page_num:i total_size:i list:a", "list",
         "index:i cap_time:s gender:i classification:s face_id:s name:s similarity:i pic_path:s "
         "pic_full_path:s group_id:i"},
    };
    SimProcess& sim = startSim(domainNetwork);
    ASSERT_TRUE(sim.initialise());
    for (const Row& row : rows) {
        SCOPED_TRACE(row.method);
        const QJsonObject answer = call(sim, row.method, row.param, row.application);
        EXPECT_EQ(answer.value("method").toString(), row.method);
        EXPECT_EQ(answer.value("error").toObject().value("errorcode").toInt(-1), 0)
            << answer.value("error").toObject().value("message").toString().toStdString();
        const QJsonObject result = answer.value("result").toObject();
        expectShape(result, row.shape);
        if (row.listKey) {
            const QJsonArray list = result.value(row.listKey).toArray();
            ASSERT_FALSE(list.isEmpty());
            expectShape(list.first().toObject(), row.itemShape);
        }
    }
}

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
        {"system name",
         {{"dev_set_info", false, R"({"name": "Front gate"})", 0, nullptr},
          {"dev_get_info", false, "{}", 0, R"({"name": "Front gate"})"}}},
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
        {"face groups",
         {{"group_add", true, R"({"groups": [{"name": "VIP", "enable": 1}]})", 0, nullptr},
          {"group_add", true, R"({"groups": [{"name": "Staff", "enable": 1}]})", 1007, nullptr},
          {"group_mod", true, R"({"groups": [{"id": 3, "name": "Guests", "enable": 0}]})", 0,
           nullptr},
          {"group_del", true, R"({"id": [2]})", 0, nullptr},
          {"group_del", true, R"({"id": [9]})", 1004, nullptr},
          {"group_search", true, "{}", 0,
           R"({"groups": [{"id": 1, "name": "Staff", "enable": true},
                          {"id": 3, "name": "Guests", "enable": false}]})"}}},
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
        {"parking locks",
         {{"ground_lock_control", true, R"({"lock_id": "L-01", "status": 1})", 0, nullptr},
          {"ground_lock_control", true, R"({"lock_id": "L-09", "status": 1})", 1004, nullptr},
          {"get_ground_lock_list", true, "{}", 0,
           R"({"lock_list": [
               {"lock_id": "L-01", "status": 1, "region_name": "North", "parking_id": "P-101"},
               {"lock_id": "L-02", "status": 1, "region_name": "North", "parking_id": "P-102"}]})"}}},
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
        {"face library import and export",
         {{"rcglib_import", true, nullptr, 0, nullptr},
          {"rcglib_import_get_progress", true, nullptr, 0,
           R"({"total_count": 20, "success_count": 5, "failed_count": 0,
               "failed_person_path": ""})"},
          {"rcglib_import_get_progress", true, nullptr, 0, R"({"success_count": 9})"},
          {"rcglib_export_get_progress", true, nullptr, 0, R"({"progress": 0, "filename": ""})"},
          {"rcglib_export", true, nullptr, 0, nullptr},
          {"rcglib_export_get_progress", true, nullptr, 0, R"({"progress": 25})"}}},
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

TEST_F(JsonMethods, ScheduledPushesCarryTheConfiguredStates)
{
    SimProcess& sim = startSim(R"({"pushes": [
        {"type": "alarm", "afterMs": 0, "alarmId": "a-1", "alarmType": "motion_detection",
         "attr8": 0, "channelId": {"devId": "cam-1", "channelIndex": 1},
         "triggerChannelId": {"devId": "cam-1", "channelIndex": 1}},
        {"type": "alarm", "afterMs": 5, "alarmId": "a-2", "alarmType": "io_input", "attr8": 1,
         "alarmName": "door contact", "triggerName": "IO 1",
         "channelId": {"devId": "cam-1", "channelIndex": 1}},
        {"type": "faceDetect", "afterMs": 10, "everyMs": 10, "count": 4,
         "channelId": {"devId": "cam-1", "channelIndex": 1},
         "record": {"name": "Ann", "attr9": 36.5, "attr10": 1, "attr11": 1},
         "variants": [{"record": {"attr9": 38.2, "attr10": 2}},
                      {"record": {"attr10": 3, "attr11": 2}},
                      {"record": {"attr11": 2}},
                      {}]}]})");
    ASSERT_TRUE(sim.initialise());
    struct Alarm
    {
        std::string id;
        std::string type;
        int kind;
        std::string name;
    };
    const Alarm alarms[] = {{"a-1", "motion_detection", 0, ""},
                            {"a-2", "io_input", 1, "door contact"}};
    for (const Alarm& expected : alarms) {
        const auto alarm = sim.take<vms_sdk_proto::AlarmInfo>(CommonAlarmPush);
        EXPECT_EQ(alarm.alarm_id(), expected.id);
        EXPECT_EQ(alarm.alarm_type(), expected.type);
        EXPECT_EQ(alarm.attr_8(), expected.kind);
        EXPECT_EQ(alarm.alarm_name(), expected.name);
    }
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
