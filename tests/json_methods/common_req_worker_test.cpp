// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The JSON method documents the library sends. A few documents are pinned to the byte; every
// builder is then checked against its expected method, wrapping, addressing and the JSON type
// of each parameter, with a condition whose fields are all set to values of their own.

#include "support/record_filler.h"
#include "vms_sdk/json_methods/common_req_worker.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <utility>
#include <vector>

using namespace vms_sdk;
using vms_sdk_proto::CommonReq;

namespace {

QString text(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

QJsonObject parsed(const std::string& json)
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(json), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << json;
    EXPECT_TRUE(document.isObject()) << json;
    return document.object();
}

// The document a transparent request carries inside, as text.
std::string innerText(const CommonReq& request)
{
    const QJsonObject outer = parsed(request.req_json());
    const QString base64 = outer.value("param").toObject().value("req_data").toString();
    return QByteArray::fromBase64(base64.toLatin1(), QByteArray::AbortOnBase64DecodingErrors)
        .toStdString();
}

// The "param" object of a plain or transparent request.
QJsonObject paramOf(const CommonReq& request)
{
    QJsonObject document = parsed(request.req_json());
    if (document.value("method").toString() == "dev_trans_userparam")
        document = parsed(innerText(request));
    return document.value("param").toObject();
}

QDateTime at(int y, int mo, int d, int h, int mi, int s)
{
    return QDateTime(QDate(y, mo, d), QTime(h, mi, s));
}

class CommonReqWorkerTest : public ::testing::Test
{
protected:
    CommonReqWorker worker{nullptr};
};

// ---------------------------------------------------------------------------------------------
// Documents to the byte

TEST_F(CommonReqWorkerTest, AlarmRecordsDocument)
{
    const GetAlarmRecordsCondition condition{.requestId = "req-alarm",
                                             .channelId = {.devId = "dev-1", .channelIndex = 3},
                                             .alarmType = "motion",
                                             .orderType = 1,
                                             .startTime = at(2024, 3, 1, 8, 0, 5),
                                             .endTime = at(2024, 3, 1, 18, 30, 0),
                                             .page = 2,
                                             .pageSize = 50};
    const CommonReq request = worker.getAlarmRecords(condition);
    EXPECT_EQ(request.request_id(), "req-alarm");
    EXPECT_EQ(request.channel_id().dev_id(), "dev-1");
    EXPECT_EQ(request.channel_id().channel_index(), 3u);
    EXPECT_EQ(request.req_json(), "{\n"
                                  "    \"method\": \"alarm_info_list_get\",\n"
                                  "    \"param\": {\n"
                                  "        \"channelid\": 3,\n"
                                  "        \"endTime\": \"2024-03-01 18:30:00\",\n"
                                  "        \"order_type\": 1,\n"
                                  "        \"page\": 2,\n"
                                  "        \"page_size\": 50,\n"
                                  "        \"startTime\": \"2024-03-01 08:00:05\",\n"
                                  "        \"type\": \"motion\"\n"
                                  "    }\n"
                                  "}\n");
}

TEST_F(CommonReqWorkerTest, FirstEventRecordsPageDocument)
{
    const GetEventRecordsCondition condition{.requestId = "req-events",
                                             .channelId = {.devId = "dev-2", .channelIndex = 1},
                                             .startTime = at(2024, 2, 29, 0, 0, 0),
                                             .endTime = at(2024, 2, 29, 23, 59, 59),
                                             .mergeTimeEnable = true,
                                             .record = false,
                                             .types = {3, 17}};
    EXPECT_EQ(worker.getEventRecords(condition, 1).req_json(),
              "{\n"
              "    \"method\": \"event_get_list\",\n"
              "    \"param\": {\n"
              "        \"channelid\": 1,\n"
              "        \"endTime\": \"2024-02-29 23:59:59\",\n"
              "        \"mergeTimeEnable\": 1,\n"
              "        \"pageNum\": 1,\n"
              "        \"pageSize\": 1000,\n"
              "        \"record\": 0,\n"
              "        \"startTime\": \"2024-02-29 00:00:00\",\n"
              "        \"type\": [\n"
              "            3,\n"
              "            17\n"
              "        ]\n"
              "    }\n"
              "}\n");
}

TEST_F(CommonReqWorkerTest, ImageAdjustSettingsDocument)
{
    const ImageAdjustSettingInfo info{.contrast = 50,
                                      .brightness = 40,
                                      .saturation = 60,
                                      .sharpen = 30,
                                      .bEnableMI = true,
                                      .bEnableST = false,
                                      .rotate = 90,
                                      .style = 2};
    const CommonReq request = worker.setChannImageAdjustSettings(
        "req-adjust", ChannelId{.devId = "dev-3", .channelIndex = 0}, info);
    EXPECT_EQ(request.request_id(), "req-adjust");
    EXPECT_EQ(request.req_json(), "{\n"
                                  "    \"method\": \"image_set_adjust_param\",\n"
                                  "    \"param\": {\n"
                                  "        \"bEnableMI\": true,\n"
                                  "        \"bEnableST\": false,\n"
                                  "        \"bEnableSmartSensor\": 1,\n"
                                  "        \"brightness\": 40,\n"
                                  "        \"channelid\": 0,\n"
                                  "        \"contrast\": 50,\n"
                                  "        \"rotate\": 90,\n"
                                  "        \"saturation\": 60,\n"
                                  "        \"sharpen\": 30,\n"
                                  "        \"style\": 2\n"
                                  "    }\n"
                                  "}\n");
}

TEST_F(CommonReqWorkerTest, TransparentParkingLockDocument)
{
    const CtrlParkingLockCondition condition{.requestId = "req-lock",
                                             .channelId = {.devId = "dev-4", .channelIndex = 2},
                                             .package = "com.parking.app",
                                             .lockId = "L-07",
                                             .status = 1};
    const std::string inner = "{\n"
                              "    \"method\": \"ground_lock_control\",\n"
                              "    \"package\": \"com.parking.app\",\n"
                              "    \"param\": {\n"
                              "        \"lock_id\": \"L-07\",\n"
                              "        \"status\": 1\n"
                              "    }\n"
                              "}\n";
    const std::string base64 = QByteArray::fromStdString(inner).toBase64().toStdString();
    const CommonReq request = worker.ctrlParkingLock(condition);
    EXPECT_EQ(request.channel_id().channel_index(), 2u);
    EXPECT_EQ(request.req_json(), "{\n"
                                  "    \"method\": \"dev_trans_userparam\",\n"
                                  "    \"param\": {\n"
                                  "        \"channelid\": 2,\n"
                                  "        \"owner\": \"Tavirnex\",\n"
                                  "        \"req_data\": \"" +
                                      base64 +
                                      "\"\n"
                                      "    }\n"
                                      "}\n");
    EXPECT_EQ(innerText(request), inner);
}

TEST_F(CommonReqWorkerTest, CalendarMaskAsksForWholeDays)
{
    const GetCalendarMaskCondition condition{.requestId = "req-cal",
                                             .channelId = {.devId = "dev-5", .channelIndex = 4},
                                             .startDate = QDate(2024, 1, 1),
                                             .endDate = QDate(2024, 1, 31)};
    EXPECT_EQ(worker.getVideoRecordingsCalendarMask(condition).req_json(),
              "{\n"
              "    \"method\": \"get_record_date_list\",\n"
              "    \"param\": {\n"
              "        \"channel_id\": 4,\n"
              "        \"end_time\": \"20240131235959\",\n"
              "        \"start_time\": \"20240101000000\"\n"
              "    }\n"
              "}\n");
}

TEST_F(CommonReqWorkerTest, CommonRequestPassesTheTextThrough)
{
    // Not even valid JSON, and beyond Latin-1: nothing is parsed, reordered or re-encoded.
    const QString json =
        QString::fromUtf8("{\"method\":\"x\", \"b\":1,\"a\":\"\xe4\xb8\xad\xc3\xa9\" ");
    const CommonReq request = worker.commonReq("req-raw", "dev-6", json);
    EXPECT_EQ(request.req_json(), "{\"method\":\"x\", \"b\":1,\"a\":\"\xe4\xb8\xad\xc3\xa9\" ");
    EXPECT_EQ(request.request_id(), "req-raw");
    EXPECT_EQ(request.channel_id().dev_id(), "dev-6");
    EXPECT_EQ(request.channel_id().channel_index(), 0u);
}

TEST_F(CommonReqWorkerTest, HeaderOperations)
{
    const CommonReq header = worker.commonHeader("r1", QString::fromUtf8("d\xc3\xa9v"), 7);
    EXPECT_EQ(header.request_id(), "r1");
    EXPECT_EQ(header.channel_id().dev_id(), "d\xc3\xa9v");
    EXPECT_EQ(header.channel_id().channel_index(), 7u);
    EXPECT_TRUE(header.req_json().empty());

    const vms_sdk_proto::ChannelReq channel =
        worker.channelRequest(ChannelCondition{"r2", ChannelId{"dev-7", 5}});
    EXPECT_EQ(channel.request_id(), "r2");
    EXPECT_EQ(channel.channel_id().dev_id(), "dev-7");
    EXPECT_EQ(channel.channel_id().channel_index(), 5u);

    const vms_sdk_proto::DeviceReq device = worker.deviceRequest("r3", "dev-8");
    EXPECT_EQ(device.request_id(), "r3");
    EXPECT_EQ(device.dev_id(), "dev-8");
}

// ---------------------------------------------------------------------------------------------
// Every builder: addressing, method, wrapping and the type of every parameter

// What a builder was given, beside what it made of it.
struct Built
{
    CommonReq request;
    QString requestId;
    QString devId;
    unsigned int channel = 0;
    QString package;
};

template<class C>
Built built(CommonReq request, const C& c)
{
    Built b{std::move(request), c.requestId, {}, 0, {}};
    if constexpr (requires { c.channelId; }) {
        b.devId = c.channelId.devId;
        b.channel = c.channelId.channelIndex;
    } else {
        b.devId = c.devId;
    }
    if constexpr (requires { c.package; })
        b.package = c.package;
    return b;
}

using W = CommonReqWorker;
using Filler = vms_test::RecordFiller;
using Maker = std::function<Built(const W&, Filler&)>;

template<class C>
Maker by(CommonReq (W::*builder)(const C&) const, std::function<void(C&)> adjust = nullptr)
{
    return [=](const W& worker, Filler& filler) {
        C c = filler.make<C>();
        if (adjust)
            adjust(c);
        return built((worker.*builder)(c), c);
    };
}

enum class Wrap { Plain, Transparent };

struct MethodCase
{
    const char* name;
    Maker make;
    const char* method;
    Wrap wrap;
    // "key:type ..." with the types i(nt), s(tring), b(ool), a(rray), o(bject); nullptr when
    // the document has no "param" at all.
    const char* param;
};

void PrintTo(const MethodCase& c, std::ostream* os)
{
    *os << c.name;
}

constexpr Wrap P = Wrap::Plain;
constexpr Wrap T = Wrap::Transparent;

// clang-format off
const std::vector<MethodCase> methodCases{
    {"AddBulletTagPoint", by(&W::addBulletTagPoint), "gtrack_add_mark_point", P,
     "channelid:i x:i y:i"},
    {"GetBulletTagPoints", by(&W::getBulletTagPoints), "gtrack_get_point_list", P, "channelid:i"},
    {"ClearBulletTagPoints", by(&W::clearBulletTagPoints), "gtrack_clear_point", P, "channelid:i"},
    {"CalibrateBulletDome", by(&W::calibrateBulletDome), "gtrack_set_calibration", P,
     "channelid:i mode:s"},
    {"GetBulletDomeCalibrateStatus", by(&W::getBulletDomeCalibrateStatus), "gtrack_get_calibration",
     P, "channelid:i"},
    {"SetDomeTrackGuardInitialPos", by(&W::setDomeTrackGuardInitialPos), "gtrack_set_guard", P,
     "channelid:i"},
    {"ManualBulletDomeTrack", by(&W::manualBulletDomeTrack), "gtrack_manual_position", P,
     "channelid:i position:o"},
    {"Ptz3dLocate", by(&W::ptz3dLocate), "ptz_zoom_zone", P, "channelid:i zoneinfo:o"},
    {"PtzAutoMove", by(&W::ptzAutoMove), "ptz_auto", P, "channelid:i speed:i"},
    {"GetPtzAbility", by(&W::getPtzAbility), "ptz_ability_get", P, "channelid:i"},
    {"CancelAlarm", by(&W::cancelAlarm), "alarm_manual_cancel", P, "channelid:i alarm_source:s"},
    {"TriggerAlarmLink", by(&W::triggerAlarmLink), "alarm_link_trigger", P, "channelid:i status:s"},
    {"GetAlarmRecords", by(&W::getAlarmRecords), "alarm_info_list_get", P,
     "channelid:i type:s order_type:i startTime:s endTime:s page:i page_size:i"},
    {"GetRegionTemperatureRecords", by(&W::getRegionTemperatureRecords),
     "alarm_temperature_get_history_list", P,
     "channelid:i order_type:i data_type:i start_time:s end_time:s page:i page_size:i"},
    {"GetTriggeredEvents", by(&W::getTriggeredEvents), "event_get_type_list", P,
     "channelid:i startTime:s endTime:s"},
    {"GetEventRecords",
     [](const W& worker, Filler& filler) {
         const auto c = filler.make<GetEventRecordsCondition>();
         return built(worker.getEventRecords(c, 4), c);
     },
     "event_get_list", P,
     "channelid:i startTime:s endTime:s mergeTimeEnable:i record:i type:a pageNum:i pageSize:i"},
    {"GetLicensePlateRecRecords", by(&W::getLicensePlateRecRecords), "ivp_LPR_get_history", P,
     "channelid:i startTime:s endTime:s plate_no:s vehicle_type:i vehicle_color:i "
     "vehicle_orientation:i plate_color:i plate_type:i pageNum:i pageSize:i"},
    {"GetCustomersHeatMap", by(&W::getCustomersHeatMap), "ivp_hm_get_heatmap", P,
     "channelid:i startTime:s endTime:s"},
    {"GetCustomersCount", by(&W::getCustomersCount), "intelligence_customer_count_get_history_list",
     P, "channelid:i start_time:s end_time:s count_type:s"},
    {"GetCustomersRegionAttention", by(&W::getCustomersRegionAttention),
     "intelligence_regional_people_count_get_history_list", P,
     "channelid:i start_time:s end_time:s count_type:s region_id:i"},
    {"GetCustomersRegions", by(&W::getCustomersRegions),
     "intelligence_regional_people_count_get_param", P, "channelid:i"},
    {"GetCustomerGroup", by(&W::getCustomerGroup), "intelligence_face_count_get_history_list", T,
     "start_time:s end_time:s count_type:s"},
    {"GetFaceCaptureRecords",
     by<GetFaceRecRecordsCondition>(&W::getFaceRecRecords,
                                    [](auto& c) { c.captureRecords = true; }),
     "intelligence_face_capture_get_history_list", T,
     "channelid:i start_time:s end_time:s age:i gender:i page_num:i page_size:i"},
    {"GetFaceRecognitionRecords",
     by<GetFaceRecRecordsCondition>(&W::getFaceRecRecords,
                                    [](auto& c) { c.captureRecords = false; }),
     "caplib_search", T,
     "start_time:s end_time:s keyword:s gender:i group_id:i classification:s bduplicate:b "
     "page_num:i page_size:i"},
    {"GetAllFaceGroups", by(&W::getAllFaceGroups), "group_search", T, ""},
    {"AddFaceGroups", by(&W::addFaceGroups), "group_add", T, "groups:a"},
    {"EditFaceGroups", by(&W::editFaceGroups), "group_mod", T, "groups:a"},
    {"DeleteFaceGroups", by(&W::deleteFaceGroups), "group_del", T, "id:a"},
    {"GetFaces", by(&W::getFaces), "rcglib_search", T,
     "keyword:s group_id:a gender:i active:s classification:s modeling_status:s page_num:i "
     "page_size:i"},
    {"AddFace", by(&W::addFace), "rcglib_add", T,
     "name:s group_id:a face_id:s gender:i birthdate:s classification:s start_time:s end_time:s "
     "jpeg_list:a"},
    {"EditFace", by(&W::editFace), "rcglib_mod", T,
     "index:i name:s group_id:a face_id:s gender:i birthdate:s classification:s start_time:s "
     "end_time:s jpeg_list:a"},
    {"DelFaces", by(&W::delFaces), "rcglib_del", T, "rcglib_items:a"},
    {"GetFacesModelingStatus", by(&W::getFacesModelingStatus), "rcglib_statistics", T,
     "group_id:i"},
    {"ImportFaceLibrary", by(&W::importFaceLibrary), "rcglib_import", T, nullptr},
    {"ImportFaceLibraryProgress", by(&W::importFaceLibraryProgress), "rcglib_import_get_progress",
     T, nullptr},
    {"ExportFaceLibrary", by(&W::exportFaceLibrary), "rcglib_export", T, nullptr},
    {"ExportFaceLibraryProgress", by(&W::exportFaceLibraryProgress), "rcglib_export_get_progress",
     T, nullptr},
    {"GetParkingLockStatus", by(&W::getParkingLockStatus), "get_ground_lock_list", T, ""},
    {"CtrlParkingLock", by(&W::ctrlParkingLock), "ground_lock_control", T, "lock_id:s status:i"},
    {"GetSnapImage", by(&W::getSnapImage), "snap_file_get", P, "channelid:i path:s"},
    {"GetVideoRecordingsCalendarMask", by(&W::getVideoRecordingsCalendarMask),
     "get_record_date_list", P, "channel_id:i start_time:s end_time:s"},
    {"GetChannImageAbility", by(&W::getChannImageAbility), "image_get_ability", P, "channelid:i"},
    {"GetChannImageSettings", by(&W::getChannImageSettings), "image_get_param", P, "channelid:i"},
    {"SetChannImageSettings",
     [](const W& worker, Filler& filler) {
         const auto channel = filler.make<ChannelId>();
         const auto info = filler.make<ImageSettingInfo>();
         return built(worker.setChannImageSettings(channel, info), ChannelCondition{{}, channel});
     },
     "image_set_param", P,
     "channelid:i contrast:i brightness:i saturation:i sharpen:i fluency:i definition:i noise:i "
     "smear:i exposureMode:i exposureMax:i exposureMin:i antiflick:i scene:s daynightMode:s "
     "dayStart:o dayEnd:o light:i rotate:i bEnableAWB:b bEnableMI:b bEnableST:b bEnableNoC:b "
     "bEnableWDynamic:b bAutoLowFrameEn:b bNightOptimization:b bDefogging:b bStarlight:b "
     "bAutogain:b bBLC:b bDistortionCorrection:b bDigitalstabilize:b"},
    {"GetChannImageAdjustSettings",
     [](const W& worker, Filler& filler) {
         const auto c = filler.make<ChannelCondition>();
         return built(worker.getChannImageAdjustSettings(c.requestId, c.channelId), c);
     },
     "image_get_adjust_param", P, "channelid:i"},
    {"SetChannImageAdjustSettings",
     [](const W& worker, Filler& filler) {
         const auto c = filler.make<ChannelCondition>();
         const auto info = filler.make<ImageAdjustSettingInfo>();
         return built(worker.setChannImageAdjustSettings(c.requestId, c.channelId, info), c);
     },
     "image_set_adjust_param", P,
     "channelid:i contrast:i brightness:i saturation:i sharpen:i bEnableMI:b bEnableST:b "
     "rotate:i style:i bEnableSmartSensor:i"},
    {"GetDevDisksInfo", by(&W::getDevDisksInfo), "storage_get_info", P, ""},
    {"FormatDevDisk", by(&W::formatDevDisk), "storage_format", P,
     "diskNum:i diskName:s partionNum:i"},
    {"GetDevDiskFormattingProgress", by(&W::getDevDiskFormattingProgress),
     "storage_format_get_progress", P, "diskNum:i diskName:s partionNum:i"},
    {"GetDevNetMode", by(&W::getDevNetMode), "ifconfig_get_inet", P, ""},
    {"GetDevQRCode", by(&W::getDevQRCode), "dev_get_qrcode", P, ""},
    {"GetDevSysCfg",
     [](const W& worker, Filler& filler) {
         const auto c = filler.make<DeviceCondition>();
         return built(worker.getDevSysCfg(c.requestId, c.devId), c);
     },
     "dev_get_info", P, ""},
    {"SetDevSysCfg",
     [](const W& worker, Filler& filler) {
         const auto c = filler.make<DeviceCondition>();
         const auto info = filler.make<DevSysCfgInfo>();
         return built(worker.setDevSysCfg(c.devId, info), DeviceCondition{{}, c.devId});
     },
     "dev_set_info", P,
     "bDiscoverable:b hostname:s name:s rebootDay:s rebootHour:i syslanguage:s encryptEn:b"},
    {"GetDevLogs",
     [](const W& worker, Filler& filler) {
         const auto c = filler.make<DeviceCondition>();
         return built(worker.getDevLogs(c.requestId, c.devId, QDate(2023, 12, 24)), c);
     },
     "log_get", P, "date:s type:s"},
};
// clang-format on

bool hasType(const QJsonValue& value, QChar type)
{
    switch (type.toLatin1()) {
    case 'i':
        return value.isDouble() && std::trunc(value.toDouble()) == value.toDouble();
    case 's':
        return value.isString();
    case 'b':
        return value.isBool();
    case 'a':
        return value.isArray();
    case 'o':
        return value.isObject();
    }
    return false;
}

class EveryBuilder : public ::testing::TestWithParam<MethodCase>
{
protected:
    W worker{nullptr};
    Filler filler;
};

TEST_P(EveryBuilder, WritesItsMethod)
{
    const MethodCase& row = GetParam();
    const Built b = row.make(worker, filler);
    ASSERT_FALSE(b.devId.isEmpty()) << "the filler leaves no field empty";

    EXPECT_EQ(text(b.request.request_id()), b.requestId);
    EXPECT_EQ(text(b.request.channel_id().dev_id()), b.devId);
    EXPECT_EQ(b.request.channel_id().channel_index(), b.channel);

    QJsonObject document = parsed(b.request.req_json());
    if (row.wrap == Wrap::Transparent) {
        EXPECT_EQ(document.keys(), (QStringList{"method", "param"}));
        EXPECT_EQ(document.value("method"), "dev_trans_userparam");
        const QJsonObject outer = document.value("param").toObject();
        EXPECT_EQ(outer.keys(), (QStringList{"channelid", "owner", "req_data"}));
        EXPECT_EQ(outer.value("channelid"), int(b.channel));
        EXPECT_EQ(outer.value("owner"), "Tavirnex");
        document = parsed(innerText(b.request));
        ASSERT_FALSE(b.package.isEmpty());
        EXPECT_EQ(document.value("package"), b.package);
    } else {
        EXPECT_FALSE(document.contains("package"));
    }
    EXPECT_EQ(document.value("method"), row.method);

    if (!row.param) {
        EXPECT_FALSE(document.contains("param")) << "a method without parameters sends none";
        return;
    }
    ASSERT_TRUE(document.value("param").isObject());
    const QJsonObject param = document.value("param").toObject();
    QStringList keys;
    for (const QString& entry : QString::fromLatin1(row.param).split(' ', Qt::SkipEmptyParts)) {
        const QString key = entry.section(':', 0, 0);
        keys.append(key);
        EXPECT_TRUE(hasType(param.value(key), entry.section(':', 1).at(0)))
            << entry.toStdString() << " in " << QJsonDocument(param).toJson().toStdString();
    }
    keys.sort();
    EXPECT_EQ(param.keys(), keys);
}

INSTANTIATE_TEST_SUITE_P(CommonReqWorker, EveryBuilder, ::testing::ValuesIn(methodCases),
                         [](const auto& info) { return std::string(info.param.name); });

// ---------------------------------------------------------------------------------------------
// Values the device reads in one way only

TEST_F(CommonReqWorkerTest, CountPeriodsAreWords)
{
    const std::vector<std::pair<int, QString>> periods{
        {0, "hour"}, {1, "day"}, {2, "week"}, {3, "month"},     {4, "quarter"},
        {5, "year"}, {6, "day"}, {-1, "day"}, {INT_MIN, "day"}, {INT_MAX, "day"}};
    for (const auto& [countType, word] : periods) {
        SCOPED_TRACE(countType);
        GetCustomersCntCondition count{};
        count.countType = countType;
        EXPECT_EQ(paramOf(worker.getCustomersCount(count)).value("count_type"), word);
        GetCustomersRegionAttentionCondition attention{};
        attention.countType = countType;
        EXPECT_EQ(paramOf(worker.getCustomersRegionAttention(attention)).value("count_type"), word);
        GetCustomerGroupCondition group{};
        group.countType = countType;
        EXPECT_EQ(paramOf(worker.getCustomerGroup(group)).value("count_type"), word);
    }
}

TEST_F(CommonReqWorkerTest, InvalidDatesAreEmptyStrings)
{
    GetAlarmRecordsCondition alarms{};
    alarms.startTime = at(2024, 5, 6, 7, 8, 9);
    const QJsonObject alarmParam = paramOf(worker.getAlarmRecords(alarms));
    EXPECT_EQ(alarmParam.value("startTime"), "2024-05-06 07:08:09");
    EXPECT_EQ(alarmParam.value("endTime"), "");

    ModifyFaceCondition face{};
    face.package = "p";
    const QJsonObject faceParam = paramOf(worker.addFace(face));
    EXPECT_EQ(faceParam.value("birthdate"), "");
    EXPECT_EQ(faceParam.value("start_time"), "");

    face.birthdate = QDate(1990, 7, 4);
    EXPECT_EQ(paramOf(worker.editFace(face)).value("birthdate"), "1990-07-04");

    GetCalendarMaskCondition calendar{};
    calendar.endDate = QDate(2024, 12, 31);
    const QJsonObject calendarParam = paramOf(worker.getVideoRecordingsCalendarMask(calendar));
    EXPECT_EQ(calendarParam.value("start_time"), "");
    EXPECT_EQ(calendarParam.value("end_time"), "20241231235959");

    EXPECT_EQ(paramOf(worker.getDevLogs("r", "d", QDate())).value("date"), "");
    EXPECT_EQ(paramOf(worker.getDevLogs("r", "d", QDate(2024, 1, 9))).value("date"), "2024-01-09");
}

TEST_F(CommonReqWorkerTest, AllChannelSearchesKeepTheHeaderChannel)
{
    const ChannelId channel{.devId = "dev-9", .channelIndex = 6};
    GetLicensePlateRecRecordsCondition plates{};
    plates.channelId = channel;
    GetFaceRecRecordsCondition captures{};
    captures.channelId = channel;
    captures.captureRecords = true;

    for (const CommonReq& request :
         {worker.getLicensePlateRecRecords(plates), worker.getFaceRecRecords(captures)}) {
        EXPECT_EQ(request.channel_id().channel_index(), 6u);
        EXPECT_EQ(paramOf(request).value("channelid"), -1);
    }
    // The wrapper still names the channel: it is the device that picks the application.
    EXPECT_EQ(parsed(worker.getFaceRecRecords(captures).req_json())
                  .value("param")
                  .toObject()
                  .value("channelid"),
              6);
}

TEST_F(CommonReqWorkerTest, EventPagesAndFlags)
{
    GetEventRecordsCondition condition{};
    condition.record = true;
    const QJsonObject param = paramOf(worker.getEventRecords(condition, 3));
    EXPECT_EQ(param.value("pageNum"), 3);
    EXPECT_EQ(param.value("pageSize"), 1000);
    EXPECT_EQ(param.value("mergeTimeEnable"), 0);
    EXPECT_EQ(param.value("record"), 1);
    EXPECT_EQ(param.value("type"), QJsonArray());
}

TEST_F(CommonReqWorkerTest, FaceGroupsAndItems)
{
    const FaceGroupInfo a{.id = 11, .name = "staff", .enable = true};
    const FaceGroupInfo b{.id = 12, .name = "guests", .enable = false};

    AddFaceGroupsCondition add{};
    add.package = "p";
    add.groups = {a, b};
    EXPECT_EQ(paramOf(worker.addFaceGroups(add)).value("groups"),
              (QJsonArray{QJsonObject{{"name", "staff"}, {"enable", 1}},
                          QJsonObject{{"name", "guests"}, {"enable", 0}}}));

    EditFaceGroupsCondition edit{};
    edit.package = "p";
    edit.groups = {a, b};
    EXPECT_EQ(paramOf(worker.editFaceGroups(edit)).value("groups"),
              (QJsonArray{QJsonObject{{"id", 11}, {"name", "staff"}, {"enable", 1}},
                          QJsonObject{{"id", 12}, {"name", "guests"}, {"enable", 0}}}));

    DelFacesCondition del{};
    del.package = "p";
    del.items = {FaceItem{.index = 4, .groupIds = {1, 2}}, FaceItem{.index = 9, .groupIds = {}}};
    EXPECT_EQ(paramOf(worker.delFaces(del)).value("rcglib_items"),
              (QJsonArray{QJsonObject{{"index", 4}, {"group_id", QJsonArray{1, 2}}},
                          QJsonObject{{"index", 9}, {"group_id", QJsonArray{}}}}));
}

struct PictureCase
{
    const char* name;
    QStringList base64;
    QStringList uuids;
    QJsonArray expected;
};

TEST_F(CommonReqWorkerTest, EditedFacePairsPicturesWithTheirIds)
{
    auto pair = [](const char* base64, const char* uuid) {
        return QJsonObject{{"base64", base64}, {"uuid", uuid}};
    };
    const std::vector<PictureCase> cases{
        {"none", {}, {}, QJsonArray{}},
        {"equal",
         {"AA==", "Ag=="},
         {"u1", "u2"},
         QJsonArray{pair("AA==", "u1"), pair("Ag==", "u2")}},
        {"more pictures",
         {"AA==", "Ag==", "Aw=="},
         {"u1"},
         QJsonArray{pair("AA==", "u1"), pair("Ag==", ""), pair("Aw==", "")}},
        {"more ids", {}, {"u1", "u2"}, QJsonArray{pair("", "u1"), pair("", "u2")}},
    };
    for (const PictureCase& c : cases) {
        SCOPED_TRACE(c.name);
        ModifyFaceCondition face{};
        face.package = "p";
        face.index = 21;
        face.groupIds = {3, 5};
        face.jpegBase64List = c.base64;
        face.jpegUuidList = c.uuids;
        const QJsonObject edited = paramOf(worker.editFace(face));
        EXPECT_EQ(edited.value("jpeg_list"), c.expected);
        EXPECT_EQ(edited.value("index"), 21);
        EXPECT_EQ(edited.value("group_id"), (QJsonArray{3, 5}));

        // A new face sends its pictures as they are, and no ids.
        EXPECT_EQ(paramOf(worker.addFace(face)).value("jpeg_list"),
                  QJsonArray::fromStringList(c.base64));
    }
}

TEST_F(CommonReqWorkerTest, ImageSettingsTimesOfDay)
{
    ImageSettingInfo info{};
    info.dayStart = QTime(6, 30);
    info.dayEnd = QTime(19, 5);
    const QJsonObject param = paramOf(worker.setChannImageSettings(ChannelId{"d", 1}, info));
    EXPECT_EQ(param.value("dayStart"), (QJsonObject{{"hour", 6}, {"minute", 30}}));
    EXPECT_EQ(param.value("dayEnd"), (QJsonObject{{"hour", 19}, {"minute", 5}}));
}

} // namespace
