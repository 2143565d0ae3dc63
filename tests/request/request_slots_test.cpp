// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Requests from their exported function (or, for the two without, their hub signal) to the
// message handed to the gateway manager: message type, payload, the device that picks the
// gateway, registration and log line. One row per way a request is built: each JSON method
// that maps fields of its own, and each kind of binary payload. The binary field mappings are
// pinned by conversions_test, and every request's type and method reaching the simulator by
// request_ends_test. Expected JSON documents are written out here.

#include "support/test_support.h"
#include "support/wire_literals.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_kit/vms_kit.h"
#include "vms_sdk/client/message_signals.h"
#include "vms_sdk/request/message_hamal.h"
#include "vms_sdk/request/request_data.h"
#include "vms_sdk/request/request_mgr.h"

#include "vms_message.pb.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace vms_sdk;
using namespace vms_test::literal;

namespace {

const char* const kDev = "dev-\xc3\xa9"; // device id of the device-wide literals
const char* const kCam = "cam-\xc3\xa9"; // device id of literal::channel(), channel 7

QByteArray bytes(const google::protobuf::MessageLite& message)
{
    return QByteArray::fromStdString(message.SerializeAsString());
}

struct SlotRow
{
    const char* name;
    std::function<void()> call;
    int type;
    bool registered;
    const char* requestId;
    const char* devId;
    const char* log;
    QByteArray payload;         // the exact bytes, when no JSON document is given
    unsigned channel = 0;       // JSON rows: the channel of the CommonReq header
    const char* json = nullptr; // JSON rows: the document, the transparent one unwrapped
};

// The document a CommonReq carries, with a transparent request's Base64 "req_data" decoded
// into the object it holds.
QJsonObject documentOf(const std::string& json)
{
    QJsonObject document = QJsonDocument::fromJson(QByteArray::fromStdString(json)).object();
    if (document.value("method") == "dev_trans_userparam") {
        QJsonObject param = document.value("param").toObject();
        const QByteArray inner = QByteArray::fromBase64(
            param.value("req_data").toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
        param.insert("req_data", QJsonDocument::fromJson(inner).object());
        document.insert("param", param);
    }
    return document;
}

std::string compact(const QJsonObject& document)
{
    return QJsonDocument(document).toJson(QJsonDocument::Compact).toStdString();
}

const QDateTime from(QDate(2024, 3, 1), QTime(8, 0, 5));
const QDateTime to(QDate(2024, 3, 2), QTime(18, 30, 0));
#define FROM_TO_DASHED R"("startTime": "2024-03-01 08:00:05", "endTime": "2024-03-02 18:30:00")"
#define FROM_TO_SNAKE R"("start_time": "2024-03-01 08:00:05", "end_time": "2024-03-02 18:30:00")"

// clang-format off
const DeviceCondition device{.requestId = "req-device", .devId = kDev};
const ChannelCondition chan{.requestId = "req-chan", .channelId = channel().record};
const AiChannelCondition ai{.requestId = "req-ai", .channelId = channel().record,
                            .package = "com.ai"};
const FormatDiskCondition disk{.requestId = "req-disk", .devId = kDev, .diskNum = 11,
                               .diskName = "sda", .partionNum = 12};

// The six conditions the answers are read with.
const GetCustomersCntCondition customersCount{.requestId = "req-count",
                                              .channelId = channel().record, .startTime = from,
                                              .endTime = to, .countType = 3};
const GetCustomersRegionAttentionCondition attention{.requestId = "req-attention",
                                                     .channelId = channel().record,
                                                     .startTime = from, .endTime = to,
                                                     .countType = 2, .regionId = 181};
const GetAlarmRecordsCondition alarms{.requestId = "req-alarms", .channelId = channel().record,
                                      .alarmType = "motion", .orderType = 141, .startTime = from,
                                      .endTime = to, .page = 142, .pageSize = 143};
const GetEventRecordsCondition events{.requestId = "req-events", .channelId = channel().record,
                                      .startTime = from, .endTime = to, .mergeTimeEnable = true,
                                      .record = false, .types = {151, 152}};
const GetCalendarMaskCondition calendar{.requestId = "req-calendar", .channelId = channel().record,
                                        .startDate = QDate(2024, 1, 1),
                                        .endDate = QDate(2024, 1, 31)};
const GetCustomerGroupCondition group{.requestId = "req-group", .channelId = channel().record,
                                      .package = "com.ai", .startTime = from, .endTime = to,
                                      .countType = 5};

const ModifyFaceCondition libraryFace{.requestId = "req-face", .channelId = channel().record,
                                      .serialNum = "serialNum", .name = "Ana", .gender = 91,
                                      .package = "com.faces", .index = 94, .groupIds = {95, 96},
                                      .faceId = "face-1", .birthdate = QDate(1990, 7, 4),
                                      .classification = "staff", .startTime = from, .endTime = to,
                                      .jpegBase64List = {"AAE=", "AgM="}, .jpegUuidList = {"u1"}};
const GetFacesCondition libraryFaces{.requestId = "req-faces", .channelId = channel().record,
                                     .pageNum = 101, .pageSize = 102, .package = "com.faces",
                                     .keyword = "kw", .groupIds = {104}, .gender = 105,
                                     .active = "yes", .classification = "vip",
                                     .modelingStatus = "done"};
const QList<FaceGroupInfo> faceGroups{{.id = 121, .name = "staff", .enable = true},
                                      {.id = 122, .name = "guests", .enable = false}};
const GetFaceRecRecordsCondition faceRecords{.requestId = "req-facerec",
                                             .channelId = channel().record, .package = "com.ai",
                                             .captureRecords = true, .startTime = from,
                                             .endTime = to, .age = 171, .gender = 172,
                                             .keyword = "kw", .groupId = 173,
                                             .classification = "vip", .pageNum = 174,
                                             .pageSize = 175};
const DevSysCfgInfo sysCfg{.bDiscoverable = true, .hostname = "host", .name = "cam name",
                           .rebootDay = "monday", .rebootHour = 51, .syslanguage = "fr",
                           .encryptEn = false, .supportedLangs = {"fr", "de"}};
const ImageAdjustSettingInfo adjust{.contrast = 61, .brightness = 62, .saturation = 63,
                                    .sharpen = 64, .bEnableMI = true, .bEnableST = false,
                                    .rotate = 65, .style = 66};
const ImageSettingInfo image{.contrast = 71, .brightness = 72, .saturation = 73, .sharpen = 74,
                             .fluency = 75, .definition = 76, .noise = 77, .smear = 78,
                             .exposureMode = 79, .exposureMax = 80, .exposureMin = 81,
                             .antiflick = 82, .scene = "scene", .daynightMode = "auto",
                             .dayStart = QTime(6, 30), .dayEnd = QTime(19, 5), .light = 83,
                             .rotate = 84, .bEnableAWB = true, .bEnableMI = false,
                             .bEnableST = true, .bEnableNoC = false, .bEnableWDynamic = true,
                             .bAutoLowFrameEn = false, .bNightOptimization = true,
                             .bDefogging = false, .bStarlight = true, .bAutogain = false,
                             .bBLC = true, .bDistortionCorrection = false,
                             .bDigitalstabilize = true};
// clang-format on

vms_sdk_proto::OpenRemoteConfigReq remoteConfig()
{
    vms_sdk_proto::OpenRemoteConfigReq request;
    request.set_dev_id(kDev);
    request.set_language(211);
    return request;
}

vms_sdk_proto::CommonReq rawCommon()
{
    vms_sdk_proto::CommonReq request;
    request.set_request_id("req-raw");
    request.mutable_channel_id()->set_dev_id(kDev);
    request.set_req_json("{\"method\": \"x\", \"\xc3\xbc\": 1}");
    return request;
}

QList<SlotRow> slotRows()
{
    const QByteArray none;
    return {
        {"slotSearchDevsCmd", [] { search_devs_cmd(); }, 6, false, "", "", nullptr, none},
        {"slotActivateDevsCmd", [] { activate_devs_cmd(activate().record); }, 16, false, "", "",
         "client cmd activate devices", bytes(activate().wire)},
        {"slotSetDevNetReq", [] { set_dev_net_req(setDevNet().record); }, 22, true, "req-setDevNet",
         kDev, "client request set device net configuration", bytes(setDevNet().wire)},
        {"slotGetDevNetModeReq", [] { get_dev_net_mode_req(device); }, 100, true, "req-device",
         kDev, "client request get device net mode", none, 0,
         R"({"method": "ifconfig_get_inet", "param": {}})"},
        {"slotFormatDevDiskReq", [] { format_dev_disk_req(disk); }, 100, true, "req-disk", kDev,
         nullptr, none, 0,
         R"({"method": "storage_format", "param": {"diskNum": 11, "diskName": "sda",
             "partionNum": 12}})"},
        {"slotGetDevPlatform_kvrReq", [] { get_dev_platform_kvr_req("req-deviceReq", kDev); }, 27,
         true, "req-deviceReq", kDev, "client request get device platform_kvr configuration",
         bytes(deviceReq().wire)},
        {"slotGetDevChannelsInfoCmd", [] { get_dev_channels_info_cmd(kDev); }, 17, false, "", kDev,
         "client cmd get device channels information", kDev},
        {"slotGetDevLogsReq", [] { get_dev_logs_req("req-logs", kDev, QDate(2026, 11, 22)); }, 100,
         true, "req-logs", kDev, "client request get device logs", none, 0,
         R"({"method": "log_get", "param": {"date": "2026-11-22", "type": "ALL"}})"},
        {"slotGetVideoRecordingsCalendarMaskReq",
         [] { get_video_recordings_calendar_mask_req(calendar); }, 100, true, "req-calendar", kCam,
         "client request get video recordings calendar mask", none, 7,
         R"({"method": "get_record_date_list",
             "param": {"channel_id": 7, "start_time": "20240101000000",
             "end_time": "20240131235959"}})"},
        {"slotGetPTZAbilityReq", [] { get_ptz_ability_req(chan); }, 100, true, "req-chan", kCam,
         "client request get ptz ability", none, 7,
         R"({"method": "ptz_ability_get", "param": {"channelid": 7}})"},
        {"slotPTZAutoMoveReq",
         [] {
             PTZ_auto_move_req(
                 {.requestId = "req-auto", .channelId = channel().record, .speed = 13});
         },
         100, true, "req-auto", kCam, "client request ptz auto move", none, 7,
         R"({"method": "ptz_auto", "param": {"channelid": 7, "speed": 13}})"},
        {"slotPTZCtrlReq", [] { PTZ_ctrl_req(ptzCtrl().record); }, 56, true, "req-ptzCtrl", kCam,
         "client request ptz ctrl", bytes(ptzCtrl().wire)},
        {"slotPTZ3dLocateCmd",
         [] {
             PTZ_3d_locate_cmd({.requestId = "req-3d",
                                .channelId = channel().record,
                                .x = 21,
                                .y = 22,
                                .w = 23,
                                .h = 24,
                                .cmd = 25});
         },
         100, false, "req-3d", kCam, nullptr, none, 7,
         R"({"method": "ptz_zoom_zone",
             "param": {"channelid": 7, "zoneinfo": {"x": 21, "y": 22, "w": 23, "h": 24,
             "cmd": 25}}})"},
        {"slotAddBulletTagPointReq",
         [] {
             add_bullet_tag_point_req(
                 {.requestId = "req-tag", .channelId = channel().record, .x = 31, .y = 32});
         },
         100, true, "req-tag", kCam, "client request add bullet tag point", none, 7,
         R"({"method": "gtrack_add_mark_point", "param": {"channelid": 7, "x": 31, "y": 32}})"},
        {"slotCalibrateBulletDomeReq",
         [] {
             calibrate_bullet_dome_req(
                 {.requestId = "req-cal", .channelId = channel().record, .mode = "auto"});
         },
         100, true, "req-cal", kCam, "client request calibrate bullet dome", none, 7,
         R"({"method": "gtrack_set_calibration", "param": {"channelid": 7, "mode": "auto"}})"},
        {"slotManualBulletDomeTrackCmd",
         [] {
             manual_bullet_dome_track_cmd({.requestId = "req-track",
                                           .channelId = channel().record,
                                           .x = 41,
                                           .y = 42,
                                           .w = 43,
                                           .h = 44});
         },
         100, false, "req-track", kCam, "client cmd manual bullet dome track", none, 7,
         R"({"method": "gtrack_manual_position",
             "param": {"channelid": 7, "position": {"x": 41, "y": 42, "w": 43, "h": 44}}})"},
        {"slotOpenDevRemoteConfigReq", [] { open_dev_remote_config_req(kDev, 211); }, 81, false, "",
         kDev, "client request open device remote configuration", bytes(remoteConfig())},
        {"slotSetDevSysCfgCmd", [] { set_dev_sys_cfg_cmd(kDev, sysCfg); }, 100, false, "", kDev,
         "client cmd set device system configure", none, 0,
         R"({"method": "dev_set_info",
             "param": {"bDiscoverable": true, "hostname": "host", "name": "cam name",
             "rebootDay": "monday",
                       "rebootHour": 51, "syslanguage": "fr", "encryptEn": false}})"},
        {"slotSetChannImageAdjustSettingsReq",
         [] { set_chann_image_adjust_settings_req("req-adjust", channel().record, adjust); }, 100,
         true, "req-adjust", kCam, "client request set channel image adjust settings", none, 7,
         R"({"method": "image_set_adjust_param",
             "param": {"channelid": 7, "contrast": 61, "brightness": 62, "saturation": 63,
             "sharpen": 64,
                       "bEnableMI": true, "bEnableST": false, "rotate": 65, "style": 66,
                       "bEnableSmartSensor": 1}})"},
        {"slotSetChannImageSettingsCmd",
         [] { set_chann_image_settings_cmd(channel().record, image); }, 100, false, "", kCam,
         "client cmd set channel image settings", none, 7,
         R"({"method": "image_set_param",
             "param": {"channelid": 7, "contrast": 71, "brightness": 72, "saturation": 73,
             "sharpen": 74,
                       "fluency": 75, "definition": 76, "noise": 77, "smear": 78,
                       "exposureMode": 79,
                       "exposureMax": 80, "exposureMin": 81, "antiflick": 82, "scene": "scene",
                       "daynightMode": "auto", "dayStart": {"hour": 6, "minute": 30},
                       "dayEnd": {"hour": 19, "minute": 5}, "light": 83, "rotate": 84,
                       "bEnableAWB": true, "bEnableMI": false, "bEnableST": true,
                       "bEnableNoC": false,
                       "bEnableWDynamic": true, "bAutoLowFrameEn": false,
                       "bNightOptimization": true,
                       "bDefogging": false, "bStarlight": true, "bAutogain": false, "bBLC": true,
                       "bDistortionCorrection": false, "bDigitalstabilize": true}})"},
        {"slotAddFaceReq (library)", [] { add_face_req(libraryFace); }, 100, true, "req-face", kCam,
         "client request add face", none, 7,
         R"({"method": "dev_trans_userparam", "param": {"channelid": 7, "owner": "Tavirnex",
             "req_data": {
               "method": "rcglib_add", "package": "com.faces",
               "param": {"name": "Ana", "group_id": [95, 96], "face_id": "face-1", "gender": 91,
                         "birthdate": "1990-07-04", "classification": "staff", )" FROM_TO_SNAKE R"(,
                         "jpeg_list": ["AAE=", "AgM="]}}}})"},
        {"slotAddFaceReq (device)", [] { add_face_req(addFace().record); }, 73, true, "req-addFace",
         kCam, "client request add face", bytes(addFace().wire)},
        {"slotEditFaceReq", [] { edit_face_req(libraryFace); }, 100, true, "req-face", kCam,
         nullptr, none, 7,
         R"({"method": "dev_trans_userparam", "param": {"channelid": 7, "owner": "Tavirnex",
             "req_data": {
               "method": "rcglib_mod", "package": "com.faces",
               "param": {"index": 94, "name": "Ana", "group_id": [95, 96], "face_id": "face-1",
               "gender": 91,
                         "birthdate": "1990-07-04", "classification": "staff", )" FROM_TO_SNAKE R"(,
                         "jpeg_list": [{"base64": "AAE=", "uuid": "u1"}, {"base64": "AgM=",
                         "uuid": ""}]}}}})"},
        {"slotGetFacesReq (library)", [] { get_faces_req(libraryFaces); }, 100, true, "req-faces",
         kCam, nullptr, none, 7,
         R"({"method": "dev_trans_userparam", "param": {"channelid": 7, "owner": "Tavirnex",
             "req_data": {
               "method": "rcglib_search", "package": "com.faces",
               "param": {"keyword": "kw", "group_id": [104], "gender": 105, "active": "yes",
                         "classification": "vip", "modeling_status": "done", "page_num": 101,
                         "page_size": 102}}}})"},
        {"slotGetFacesModelingStatusReq", [] { get_faces_modeling_status_req(ai); }, 100, true,
         "req-ai", kCam, "client request get faces modeling status", none, 7,
         R"({"method": "dev_trans_userparam", "param": {"channelid": 7, "owner": "Tavirnex",
             "req_data": {
               "method": "rcglib_statistics", "package": "com.ai", "param": {"group_id": 0}}}})"},
        {"slotDelFacesReq",
         [] {
             del_faces_req({.requestId = "req-del",
                            .channelId = channel().record,
                            .package = "com.faces",
                            .items = {{.index = 111, .groupIds = {112, 113}}, {.index = 114}}});
         },
         100, true, "req-del", kCam, "client request delete faces", none, 7,
         R"({"method": "dev_trans_userparam", "param": {"channelid": 7, "owner": "Tavirnex",
             "req_data": {
               "method": "rcglib_del", "package": "com.faces",
               "param": {"rcglib_items": [{"index": 111, "group_id": [112, 113]},
                                          {"index": 114, "group_id": []}]}}}})"},
        {"slotAddFaceGroupsReq",
         [] {
             add_face_groups_req({.requestId = "req-groups",
                                  .channelId = channel().record,
                                  .package = "com.faces",
                                  .groups = faceGroups});
         },
         100, true, "req-groups", kCam, "client request add face groups", none, 7,
         R"({"method": "dev_trans_userparam", "param": {"channelid": 7, "owner": "Tavirnex",
             "req_data": {
               "method": "group_add", "package": "com.faces",
               "param": {"groups": [{"name": "staff", "enable": 1}, {"name": "guests",
               "enable": 0}]}}}})"},
        {"slotDeleteFaceGroupsReq",
         [] {
             delete_face_groups_req({.requestId = "req-groups",
                                     .channelId = channel().record,
                                     .package = "com.faces",
                                     .groupIds = {123, 124}});
         },
         100, true, "req-groups", kCam, nullptr, none, 7,
         R"({"method": "dev_trans_userparam", "param": {"channelid": 7, "owner": "Tavirnex",
             "req_data": {
               "method": "group_del", "package": "com.faces", "param": {"id": [123, 124]}}}})"},
        {"slotEditFaceGroupsReq",
         [] {
             edit_face_groups_req({.requestId = "req-groups",
                                   .channelId = channel().record,
                                   .package = "com.faces",
                                   .groups = faceGroups});
         },
         100, true, "req-groups", kCam, "client request edit face groups", none, 7,
         R"({"method": "dev_trans_userparam", "param": {"channelid": 7, "owner": "Tavirnex",
             "req_data": {
               "method": "group_mod", "package": "com.faces",
               "param": {"groups": [{"id": 121, "name": "staff", "enable": 1},
                                    {"id": 122, "name": "guests", "enable": 0}]}}}})"},
        {"slotImportFaceLibraryReq", [] { import_face_library_req(ai); }, 100, true, "req-ai", kCam,
         "client request import face library", none, 7,
         R"({"method": "dev_trans_userparam", "param": {"channelid": 7, "owner": "Tavirnex",
             "req_data": {
               "method": "rcglib_import", "package": "com.ai"}}})"},
        {"slotGetRegionTemperatureRecordsReq",
         [] {
             get_region_temperature_records_req({.requestId = "req-temp",
                                                 .channelId = channel().record,
                                                 .orderType = 131,
                                                 .dataType = 132,
                                                 .startTime = from,
                                                 .endTime = to,
                                                 .page = 133,
                                                 .pageSize = 134});
         },
         100, true, "req-temp", kCam, "client request get region temperature records", none, 7,
         R"({"method": "alarm_temperature_get_history_list",
             "param": {"channelid": 7, "order_type": 131, "data_type": 132, )" FROM_TO_SNAKE R"(,
                       "page": 133, "page_size": 134}})"},
        {"slotGetAlarmRecordsReq", [] { get_alarm_records_req(alarms); }, 100, true, "req-alarms",
         kCam, nullptr, none, 7,
         R"({"method": "alarm_info_list_get",
             "param": {"channelid": 7, "type": "motion", "order_type": 141, )" FROM_TO_DASHED R"(,
                       "page": 142, "page_size": 143}})"},
        {"slotGetTriggeredEventsReq",
         [] {
             get_triggered_events_req({.requestId = "req-trig",
                                       .channelId = channel().record,
                                       .startTime = from,
                                       .endTime = to});
         },
         100, true, "req-trig", kCam, "client request get triggered events", none, 7,
         R"({"method": "event_get_type_list", "param": {"channelid": 7, )" FROM_TO_DASHED R"(}})"},
        {"slotGetEventRecordsReq", [] { get_event_records_req(events); }, 100, true, "req-events",
         kCam, nullptr, none, 7,
         R"({"method": "event_get_list",
             "param": {"channelid": 7, )" FROM_TO_DASHED R"(, "mergeTimeEnable": 1, "record": 0,
                       "type": [151, 152], "pageNum": 1, "pageSize": 1000}})"},
        {"slotGetLicensePlateRecRecordsReq",
         [] {
             get_license_plate_rec_records_req({.requestId = "req-lpr",
                                                .channelId = channel().record,
                                                .startTime = from,
                                                .endTime = to,
                                                .plateNo = "AB-123",
                                                .vehicleType = 161,
                                                .vehicleColor = 162,
                                                .vehicleOrientation = 163,
                                                .plateColor = 164,
                                                .plateType = 165,
                                                .pageNum = 166,
                                                .pageSize = 167});
         },
         100, true, "req-lpr", kCam, "client request get license plate recognition records", none,
         7,
         R"({"method": "ivp_LPR_get_history",
             "param": {"channelid": -1, )" FROM_TO_DASHED
         R"(, "plate_no": "AB-123", "vehicle_type": 161,
                       "vehicle_color": 162, "vehicle_orientation": 163, "plate_color": 164,
                       "plate_type": 165, "pageNum": 166, "pageSize": 167}})"},
        {"slotGetFaceRecRecordsReq (capture)", [] { get_face_rec_records_req(faceRecords); }, 100,
         true, "req-facerec", kCam, "client request get face capture records", none, 7,
         R"({"method": "dev_trans_userparam", "param": {"channelid": 7, "owner": "Tavirnex",
             "req_data": {
               "method": "intelligence_face_capture_get_history_list", "package": "com.ai",
               "param": {"channelid": -1, )" FROM_TO_SNAKE R"(, "age": 171, "gender": 172,
                         "page_num": 174, "page_size": 175}}}})"},
        {"slotGetFaceRecRecordsReq (recognition)",
         [] {
             auto recognition = faceRecords;
             recognition.captureRecords = false;
             get_face_rec_records_req(recognition);
         },
         100, true, "req-facerec", kCam, "client request get face recognition records", none, 7,
         R"({"method": "dev_trans_userparam", "param": {"channelid": 7, "owner": "Tavirnex",
             "req_data": {
               "method": "caplib_search", "package": "com.ai",
               "param": {)" FROM_TO_SNAKE R"(, "keyword": "kw", "gender": 172, "group_id": 173,
                         "classification": "vip", "bduplicate": false, "page_num": 174,
                         "page_size": 175}}}})"},
        {"slotGetOtherEventRecordsReq (nothing stored)",
         [] { Q_EMIT MessageSignals::instance()->signalGetOtherEventRecordsReq("req-other", 4); },
         100, true, "req-other", "", "client request get other event records", none, 0,
         R"({"method": "event_get_list",
             "param": {"channelid": 0, "startTime": "", "endTime": "", "mergeTimeEnable": 0,
             "record": 0,
                       "type": [], "pageNum": 4, "pageSize": 1000}})"},
        {"slotCancelAlarmReq",
         [] {
             cancel_alarm_req(
                 {.requestId = "req-cancel", .channelId = channel().record, .alarmSource = "door"});
         },
         100, true, "req-cancel", kCam, "client request cancel alarm", none, 7,
         R"({"method": "alarm_manual_cancel", "param": {"channelid": 7, "alarm_source": "door"}})"},
        {"slotTriggerAlarmLinkReq",
         [] {
             Q_EMIT MessageSignals::instance()->signalTriggerAlarmLinkReq(
                 {.requestId = "req-link", .channelId = channel().record, .status = "on"});
         },
         100, true, "req-link", kCam, nullptr, none, 7,
         R"({"method": "alarm_link_trigger", "param": {"channelid": 7, "status": "on"}})"},
        {"slotGetSnapImageReq",
         [] {
             get_snap_image_req(
                 {.requestId = "req-snap", .channelId = channel().record, .path = "/snap/1.jpg"});
         },
         100, true, "req-snap", kCam, "client request get snap image", none, 7,
         R"({"method": "snap_file_get", "param": {"channelid": 7, "path": "/snap/1.jpg"}})"},
        {"slotGetCustomersCountReq", [] { get_customers_count_req(customersCount); }, 100, true,
         "req-count", kCam, "client get customers count req", none, 7,
         R"({"method": "intelligence_customer_count_get_history_list",
             "param": {"channelid": 7, )" FROM_TO_SNAKE R"(, "count_type": "month"}})"},
        {"slotGetCustomersRegionAttentionReq",
         [] { get_customers_region_attention_req(attention); }, 100, true, "req-attention", kCam,
         "client request get customers region attention", none, 7,
         R"({"method": "intelligence_regional_people_count_get_history_list",
             "param": {"channelid": 7, )" FROM_TO_SNAKE
         R"(, "count_type": "week", "region_id": 181}})"},
        {"slotGetCustomerGroupReq", [] { get_customer_group_req(group); }, 100, true, "req-group",
         kCam, nullptr, none, 7,
         R"({"method": "dev_trans_userparam", "param": {"channelid": 7, "owner": "Tavirnex",
             "req_data": {
               "method": "intelligence_face_count_get_history_list", "package": "com.ai",
               "param": {)" FROM_TO_SNAKE R"(, "count_type": "year"}}}})"},
        {"slotCtrlParkingLockReq",
         [] {
             ctrl_parking_lock_req({.requestId = "req-lock",
                                    .channelId = channel().record,
                                    .package = "com.ai",
                                    .lockId = "L-07",
                                    .status = 191});
         },
         100, true, "req-lock", kCam, "client request control parking lock", none, 7,
         R"({"method": "dev_trans_userparam", "param": {"channelid": 7, "owner": "Tavirnex",
             "req_data": {
               "method": "ground_lock_control", "package": "com.ai",
               "param": {"lock_id": "L-07", "status": 191}}}})"},
        {"slotUploadFileReq", [] { upload_file_req(uploadFile().record); }, 111, false,
         "req-uploadFile", kDev, "client req upload file", bytes(uploadFile().wire)},
        {"slotCommonReq",
         [] { common_req("req-raw", kDev, "{\"method\": \"x\", \"\xc3\xbc\": 1}"); }, 100, true,
         "req-raw", kDev, "client request common", bytes(rawCommon())},
    };
}

struct Sent
{
    int type;
    QByteArray payload;
    QString devId;
};

class RequestSlotsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        init_vms_client_sdk();
        logPath = vms_test::openTestLog(); // in place of the library's own
        hamal = MessageHamal::instance();
        hamal->setSendOperation(
            [this](MessageType type, const QByteArray& payload, const QString& devId) {
                sent.append({int(type), payload, devId});
            });
    }
    void TearDown() override { vms_kit::release_vms_log(); }

    QStringList newLogLines()
    {
        const QStringList lines = vms_test::readLines(logPath);
        const QStringList fresh = lines.mid(seenLines);
        seenLines = lines.size();
        return fresh;
    }

    void expectJson(const QByteArray& payload, const char* requestId, const char* devId,
                    unsigned channel, const char* json)
    {
        vms_sdk_proto::CommonReq request;
        ASSERT_TRUE(request.ParseFromString(payload.toStdString()));
        EXPECT_EQ(request.request_id(), requestId);
        EXPECT_EQ(request.channel_id().dev_id(), devId);
        EXPECT_EQ(request.channel_id().channel_index(), channel);
        const QJsonDocument expected = QJsonDocument::fromJson(json);
        ASSERT_TRUE(expected.isObject()) << "the expected document does not parse";
        // Compact text of both, keys in order: equal exactly when the documents are.
        EXPECT_EQ(compact(documentOf(request.req_json())), compact(expected.object()));
    }

    QString logPath;
    int seenLines = 0;
    MessageHamal* hamal = nullptr;
    QList<Sent> sent;
};

TEST_F(RequestSlotsTest, EveryRequestSendsItsMessageToItsGatewayRegisteredAndLogged)
{
    for (const SlotRow& row : slotRows()) {
        SCOPED_TRACE(row.name);
        sent.clear();
        newLogLines();
        row.call();
        ASSERT_EQ(sent.size(), 1);
        EXPECT_EQ(sent[0].type, row.type);
        EXPECT_EQ(sent[0].devId, QString(row.devId));
        if (row.json)
            expectJson(sent[0].payload, row.requestId, row.devId, row.channel, row.json);
        else
            EXPECT_EQ(sent[0].payload, row.payload);
        // The searches send a null body, as the gateway expects.
        EXPECT_EQ(sent[0].payload.isNull(), !row.json && row.payload.isNull());
        const QStringList lines = newLogLines();
        if (row.log) {
            ASSERT_EQ(lines.size(), 1);
            EXPECT_TRUE(lines[0].endsWith(QStringLiteral("[trace] [vms_client_sdk:]    ") +
                                          QLatin1String(row.log)))
                << lines[0].toStdString();
        } else {
            EXPECT_TRUE(lines.isEmpty()) << lines.value(0).toStdString();
        }
        // Registered requests wait for one answer; the others are not known to the registry.
        EXPECT_EQ(hamal->requestMgr()->removeRequest(row.requestId), row.registered);
        EXPECT_FALSE(hamal->requestMgr()->removeRequest(row.requestId));
    }
}

TEST_F(RequestSlotsTest, FurtherPagesOfEventRecordsReuseTheStoredCondition)
{
    get_event_records_req(events);
    Q_EMIT MessageSignals::instance()->signalGetOtherEventRecordsReq("req-events", 2);
    ASSERT_EQ(sent.size(), 2);
    expectJson(sent[1].payload, "req-events", kCam, 7, R"({"method": "event_get_list",
        "param": {"channelid": 7, )" FROM_TO_DASHED R"(, "mergeTimeEnable": 1, "record": 0,
                  "type": [151, 152], "pageNum": 2, "pageSize": 1000}})");
    // Both registrations of the one id are counted.
    EXPECT_TRUE(hamal->requestMgr()->removeRequest("req-events"));
    EXPECT_TRUE(hamal->requestMgr()->removeRequest("req-events"));
}

TEST_F(RequestSlotsTest, TheSixConditionsAnswersNeedAreStored)
{
    get_customers_count_req(customersCount);
    get_customers_region_attention_req(attention);
    get_alarm_records_req(alarms);
    get_event_records_req(events);
    get_video_recordings_calendar_mask_req(calendar);
    get_customer_group_req(group);
    auto* store = RequestData::instance();
    EXPECT_EQ(store->condition<GetCustomersCntCondition>("req-count", true), customersCount);
    EXPECT_EQ(store->condition<GetCustomersRegionAttentionCondition>("req-attention", true),
              attention);
    EXPECT_EQ(store->condition<GetAlarmRecordsCondition>("req-alarms", true), alarms);
    EXPECT_EQ(store->condition<GetEventRecordsCondition>("req-events", true), events);
    EXPECT_EQ(store->condition<GetCalendarMaskCondition>("req-calendar", true), calendar);
    EXPECT_EQ(store->condition<GetCustomerGroupCondition>("req-group", true), group);
}

TEST_F(RequestSlotsTest, StreamFunctionsReturnFreshIdsLogAndAnnounce)
{
    QSignalSpy live(MessageSignals::instance(), &MessageSignals::signalConnectLiveVideoReq);
    QSignalSpy trigger(ClientActions::instance(), &ClientActions::signalConnLiveVideoTrigger);
    QSignalSpy fileTrigger(ClientActions::instance(), &ClientActions::signalPlaybackByFileTrigger);
    const LiveVideoConnCondition condition{.channelId = {.devId = "cam-1", .channelIndex = 2},
                                           .streamType = 1};
    const StreamId first = connect_live_video_req(condition);
    const StreamId second = connect_live_video_req(condition);
    EXPECT_NE(first, second);
    EXPECT_LT(first, StreamId(1) << 32);
    ASSERT_EQ(live.count(), 2);
    EXPECT_EQ(live[0][0].value<StreamId>(), first);
    ASSERT_EQ(trigger.count(), 2);
    EXPECT_EQ(trigger[0], (QVariantList{QStringLiteral("cam-1"), 2, 1}));
    const QStringList lines = newLogLines();
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines[0].endsWith(
        QStringLiteral("client request connect live video, stream_id: %1, device id:cam-1, "
                       "channel index:2")
            .arg(first)));

    // A download announces no view.
    playback_by_file_req(PlaybackByFileCondition{.fileName = "a.mp4", .download = 1});
    playback_by_file_req(PlaybackByFileCondition{.fileName = "b.mp4"});
    ASSERT_EQ(fileTrigger.count(), 1);
    EXPECT_EQ(fileTrigger[0][2].toString(), "b.mp4");
}

TEST_F(RequestSlotsTest, BothSpeedFunctionsAreOneAction)
{
    QSignalSpy speed(MessageSignals::instance(), &MessageSignals::signalPlaybackSpeedSetReq);
    playback_speed_set_req(7, "2.0");
    download_speed_set_req(7, "2.0");
    ASSERT_EQ(speed.count(), 2);
    EXPECT_EQ(speed[0], speed[1]);
}

} // namespace
