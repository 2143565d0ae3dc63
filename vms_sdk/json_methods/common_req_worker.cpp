// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/json_methods/common_req_worker.h"

#include "vms_sdk/json_methods/method_document.h"
#include "vms_sdk/request/conversions/common_conversions.h"

#include <QJsonArray>
#include <QJsonObject>

#include <optional>

namespace vms_sdk {

namespace {

using namespace json_methods;
using conversion::utf8;
using vms_sdk_proto::CommonReq;

enum class Wrapping { Plain, Transparent };

// One JSON method: its name, whether it is wrapped for a device application, and what its
// "param" holds. A method without a param function sends no "param" at all, which is not the
// same to the device as an empty one. Transparent rows need arguments with a package, and the
// compiler holds them to it.
template<class Args, Wrapping W = Wrapping::Plain>
struct Method
{
    const char* name;
    QJsonObject (*param)(const Args&);
};

template<class Args>
using AppMethod = Method<Args, Wrapping::Transparent>;

template<class Args>
QJsonObject emptyParam(const Args&)
{
    return {};
}

// Builders with more than one argument bundle them, so that every row takes one argument
// whose head (requestId, then devId or channelId) addresses the request.
struct EventPage : GetEventRecordsCondition
{
    int pageNum = 1;
};

struct ImageSettings
{
    QString requestId{};
    ChannelId channelId{};
    ImageSettingInfo info{};
};

struct ImageAdjustSettings
{
    QString requestId{};
    ChannelId channelId{};
    ImageAdjustSettingInfo info{};
};

struct SysCfg
{
    QString requestId{};
    QString devId{};
    DevSysCfgInfo info{};
};

struct LogDay
{
    QString requestId{};
    QString devId{};
    QDate date{};
};

// Conditions without a channel address the device as a whole, which the gateway knows as
// channel 0.
template<class Args>
unsigned int channelIndexOf(const Args& args)
{
    if constexpr (requires { args.channelId.channelIndex; })
        return args.channelId.channelIndex;
    else
        return 0;
}

template<class Args>
QString devIdOf(const Args& args)
{
    if constexpr (requires { args.channelId.devId; })
        return args.channelId.devId;
    else
        return args.devId;
}

// The device reads channel numbers as signed: -1 stands for every channel.
template<class Args>
int channelOf(const Args& args)
{
    return int(channelIndexOf(args));
}

constexpr int EveryChannel = -1;
// Event records come in pages this size; the answers say how many there are in all.
constexpr int EventPageSize = 1000;

CommonReq header(const QString& requestId, const QString& devId, unsigned int channelIndex)
{
    CommonReq request;
    request.set_request_id(utf8(requestId));
    request.mutable_channel_id()->set_dev_id(utf8(devId));
    request.mutable_channel_id()->set_channel_index(channelIndex);
    return request;
}

template<class Args, Wrapping W>
CommonReq build(const Method<Args, W>& method, const Args& args)
{
    CommonReq request = header(args.requestId, devIdOf(args), channelIndexOf(args));
    const std::optional<QJsonObject> param =
        method.param ? std::optional<QJsonObject>(method.param(args)) : std::nullopt;
    const QString name = QString::fromLatin1(method.name);
    QJsonObject document;
    if constexpr (W == Wrapping::Transparent)
        document = transparentEnvelope(envelope(name, args.package, param), channelOf(args));
    else
        document = envelope(name, std::nullopt, param);
    request.set_req_json(documentText(document).toStdString());
    return request;
}

QJsonObject channelParam(const auto& c)
{
    return {{"channelid", channelOf(c)}};
}

QJsonObject diskParam(const FormatDiskCondition& c)
{
    return {{"diskNum", c.diskNum}, {"diskName", c.diskName}, {"partionNum", c.partionNum}};
}

QJsonObject hourMinute(const QTime& time)
{
    return {{"hour", time.hour()}, {"minute", time.minute()}};
}

// The keys adding and editing a face share; they differ in their picture lists.
QJsonObject faceParam(const ModifyFaceCondition& c)
{
    return {
        {"name", c.name},
        {"group_id", intArray(c.groupIds)},
        {"face_id", c.faceId},
        {"gender", c.gender},
        {"birthdate", dateText(c.birthdate)},
        {"classification", c.classification},
        {"start_time", dateTimeText(c.startTime)},
        {"end_time", dateTimeText(c.endTime)},
    };
}

QJsonObject faceGroup(const FaceGroupInfo& group, bool withId)
{
    QJsonObject object{{"name", group.name}, {"enable", flagNumber(group.enable)}};
    if (withId)
        object.insert(QStringLiteral("id"), group.id);
    return object;
}

QJsonObject faceGroupsParam(const QList<FaceGroupInfo>& groups, bool withId)
{
    QJsonArray array;
    for (const FaceGroupInfo& group : groups)
        array.append(faceGroup(group, withId));
    return {{"groups", array}};
}

// The methods, in one place. Each row says what differs; build() does the rest.
// clang-format off

constexpr Method<AddBulletTagPointCondition> gtrackAddMarkPoint{"gtrack_add_mark_point",
    [](const auto& c) -> QJsonObject {
        return {{"channelid", channelOf(c)}, {"x", c.x}, {"y", c.y}};
    }};
constexpr Method<ChannelCondition> gtrackGetPointList{"gtrack_get_point_list", channelParam};
constexpr Method<ChannelCondition> gtrackClearPoint{"gtrack_clear_point", channelParam};
constexpr Method<CalibrateBulletDomeCondition> gtrackSetCalibration{"gtrack_set_calibration",
    [](const auto& c) -> QJsonObject { return {{"channelid", channelOf(c)}, {"mode", c.mode}}; }};
constexpr Method<ChannelCondition> gtrackGetCalibration{"gtrack_get_calibration", channelParam};
constexpr Method<ChannelCondition> gtrackSetGuard{"gtrack_set_guard", channelParam};
constexpr Method<ManualTrackCondition> gtrackManualPosition{"gtrack_manual_position",
    [](const auto& c) -> QJsonObject {
        return {{"channelid", channelOf(c)},
                {"position", QJsonObject{{"x", c.x}, {"y", c.y}, {"w", c.w}, {"h", c.h}}}};
    }};
constexpr Method<PTZ3dLocateCondition> ptzZoomZone{"ptz_zoom_zone",
    [](const auto& c) -> QJsonObject {
        return {{"channelid", channelOf(c)},
                {"zoneinfo", QJsonObject{{"x", c.x}, {"y", c.y}, {"w", c.w}, {"h", c.h},
                                         {"cmd", c.cmd}}}};
    }};
constexpr Method<PTZAutoMoveCondition> ptzAuto{"ptz_auto",
    [](const auto& c) -> QJsonObject { return {{"channelid", channelOf(c)}, {"speed", c.speed}}; }};
constexpr Method<ChannelCondition> ptzAbilityGet{"ptz_ability_get", channelParam};

constexpr Method<CancelAlarmCondition> alarmManualCancel{"alarm_manual_cancel",
    [](const auto& c) -> QJsonObject {
        return {{"channelid", channelOf(c)}, {"alarm_source", c.alarmSource}};
    }};
constexpr Method<TriggerAlarmLinkCondition> alarmLinkTrigger{"alarm_link_trigger",
    [](const auto& c) -> QJsonObject {
        return {{"channelid", channelOf(c)}, {"status", c.status}};
    }};
constexpr Method<GetAlarmRecordsCondition> alarmInfoListGet{"alarm_info_list_get",
    [](const auto& c) -> QJsonObject {
        return {{"channelid", channelOf(c)}, {"type", c.alarmType}, {"order_type", c.orderType},
                {"startTime", dateTimeText(c.startTime)}, {"endTime", dateTimeText(c.endTime)},
                {"page", c.page}, {"page_size", c.pageSize}};
    }};
constexpr Method<GetRegionTemperatureRecordsCondition> alarmTemperatureHistory{
    "alarm_temperature_get_history_list",
    [](const auto& c) -> QJsonObject {
        return {{"channelid", channelOf(c)}, {"order_type", c.orderType},
                {"data_type", c.dataType}, {"start_time", dateTimeText(c.startTime)},
                {"end_time", dateTimeText(c.endTime)}, {"page", c.page},
                {"page_size", c.pageSize}};
    }};
constexpr Method<GetTriggeredEventsCondition> eventGetTypeList{"event_get_type_list",
    [](const auto& c) -> QJsonObject {
        return {{"channelid", channelOf(c)}, {"startTime", dateTimeText(c.startTime)},
                {"endTime", dateTimeText(c.endTime)}};
    }};
constexpr Method<EventPage> eventGetList{"event_get_list",
    [](const auto& c) -> QJsonObject {
        return {{"channelid", channelOf(c)}, {"startTime", dateTimeText(c.startTime)},
                {"endTime", dateTimeText(c.endTime)},
                {"mergeTimeEnable", flagNumber(c.mergeTimeEnable)},
                {"record", flagNumber(c.record)}, {"type", intArray(c.types)},
                {"pageNum", c.pageNum}, {"pageSize", EventPageSize}};
    }};
// Plate records are searched on every channel of the device, whichever one the header names.
constexpr Method<GetLicensePlateRecRecordsCondition> ivpLprGetHistory{"ivp_LPR_get_history",
    [](const auto& c) -> QJsonObject {
        return {{"channelid", EveryChannel}, {"startTime", dateTimeText(c.startTime)},
                {"endTime", dateTimeText(c.endTime)}, {"plate_no", c.plateNo},
                {"vehicle_type", c.vehicleType}, {"vehicle_color", c.vehicleColor},
                {"vehicle_orientation", c.vehicleOrientation}, {"plate_color", c.plateColor},
                {"plate_type", c.plateType}, {"pageNum", c.pageNum}, {"pageSize", c.pageSize}};
    }};
constexpr Method<GetCutomersHeatMapCondition> ivpHmGetHeatmap{"ivp_hm_get_heatmap",
    [](const auto& c) -> QJsonObject {
        return {{"channelid", channelOf(c)}, {"startTime", dateTimeText(c.startTime)},
                {"endTime", dateTimeText(c.endTime)}};
    }};
constexpr Method<GetCustomersCntCondition> customerCountHistory{
    "intelligence_customer_count_get_history_list",
    [](const auto& c) -> QJsonObject {
        return {{"channelid", channelOf(c)}, {"start_time", dateTimeText(c.startTime)},
                {"end_time", dateTimeText(c.endTime)}, {"count_type", countTypeWord(c.countType)}};
    }};
constexpr Method<GetCustomersRegionAttentionCondition> regionalPeopleCountHistory{
    "intelligence_regional_people_count_get_history_list",
    [](const auto& c) -> QJsonObject {
        return {{"channelid", channelOf(c)}, {"start_time", dateTimeText(c.startTime)},
                {"end_time", dateTimeText(c.endTime)}, {"count_type", countTypeWord(c.countType)},
                {"region_id", c.regionId}};
    }};
constexpr Method<ChannelCondition> regionalPeopleCountParam{
    "intelligence_regional_people_count_get_param", channelParam};
constexpr AppMethod<GetCustomerGroupCondition> faceCountHistory{
    "intelligence_face_count_get_history_list",
    [](const auto& c) -> QJsonObject {
        return {{"start_time", dateTimeText(c.startTime)}, {"end_time", dateTimeText(c.endTime)},
                {"count_type", countTypeWord(c.countType)}};
    }};
// Capture records too are searched on every channel; the header still names the asked one.
constexpr AppMethod<GetFaceRecRecordsCondition> faceCaptureHistory{
    "intelligence_face_capture_get_history_list",
    [](const auto& c) -> QJsonObject {
        return {{"channelid", EveryChannel}, {"start_time", dateTimeText(c.startTime)},
                {"end_time", dateTimeText(c.endTime)}, {"age", c.age}, {"gender", c.gender},
                {"page_num", c.pageNum}, {"page_size", c.pageSize}};
    }};
constexpr AppMethod<GetFaceRecRecordsCondition> caplibSearch{"caplib_search",
    [](const auto& c) -> QJsonObject {
        return {{"start_time", dateTimeText(c.startTime)}, {"end_time", dateTimeText(c.endTime)},
                {"keyword", c.keyword}, {"gender", c.gender}, {"group_id", c.groupId},
                {"classification", c.classification}, {"bduplicate", false},
                {"page_num", c.pageNum}, {"page_size", c.pageSize}};
    }};

constexpr AppMethod<AiChannelCondition> groupSearch{"group_search", emptyParam};
constexpr AppMethod<AddFaceGroupsCondition> groupAdd{"group_add",
    [](const auto& c) { return faceGroupsParam(c.groups, false); }};
constexpr AppMethod<EditFaceGroupsCondition> groupMod{"group_mod",
    [](const auto& c) { return faceGroupsParam(c.groups, true); }};
constexpr AppMethod<DeleteFaceGroupsCondition> groupDel{"group_del",
    [](const auto& c) -> QJsonObject { return {{"id", intArray(c.groupIds)}}; }};
constexpr AppMethod<GetFacesCondition> rcglibSearch{"rcglib_search",
    [](const auto& c) -> QJsonObject {
        return {{"keyword", c.keyword}, {"group_id", intArray(c.groupIds)}, {"gender", c.gender},
                {"active", c.active}, {"classification", c.classification},
                {"modeling_status", c.modelingStatus}, {"page_num", int(c.pageNum)},
                {"page_size", int(c.pageSize)}};
    }};
// A new face brings its pictures only.
constexpr AppMethod<ModifyFaceCondition> rcglibAdd{"rcglib_add",
    [](const auto& c) {
        QJsonObject param = faceParam(c);
        param.insert(QStringLiteral("jpeg_list"), QJsonArray::fromStringList(c.jpegBase64List));
        return param;
    }};
// An edited face names the pictures it keeps by their ids on the device, beside new ones; the
// two lists pair up position by position and the shorter one pads with empty strings.
constexpr AppMethod<ModifyFaceCondition> rcglibMod{"rcglib_mod",
    [](const auto& c) {
        QJsonArray pictures;
        const int count = qMax(c.jpegBase64List.size(), c.jpegUuidList.size());
        for (int i = 0; i < count; ++i)
            pictures.append(QJsonObject{{"base64", c.jpegBase64List.value(i)},
                                        {"uuid", c.jpegUuidList.value(i)}});
        QJsonObject param = faceParam(c);
        param.insert(QStringLiteral("index"), c.index);
        param.insert(QStringLiteral("jpeg_list"), pictures);
        return param;
    }};
constexpr AppMethod<DelFacesCondition> rcglibDel{"rcglib_del",
    [](const auto& c) -> QJsonObject {
        QJsonArray items;
        for (const FaceItem& item : c.items)
            items.append(QJsonObject{{"index", item.index}, {"group_id", intArray(item.groupIds)}});
        return {{"rcglib_items", items}};
    }};
// Group 0 is the whole library.
constexpr AppMethod<AiChannelCondition> rcglibStatistics{"rcglib_statistics",
    [](const auto&) -> QJsonObject { return {{"group_id", 0}}; }};
constexpr AppMethod<AiChannelCondition> rcglibImport{"rcglib_import", nullptr};
constexpr AppMethod<AiChannelCondition> rcglibImportProgress{"rcglib_import_get_progress", nullptr};
constexpr AppMethod<AiChannelCondition> rcglibExport{"rcglib_export", nullptr};
constexpr AppMethod<AiChannelCondition> rcglibExportProgress{"rcglib_export_get_progress", nullptr};
constexpr AppMethod<AiChannelCondition> getGroundLockList{"get_ground_lock_list", emptyParam};
constexpr AppMethod<CtrlParkingLockCondition> groundLockControl{"ground_lock_control",
    [](const auto& c) -> QJsonObject { return {{"lock_id", c.lockId}, {"status", c.status}}; }};

constexpr Method<GetSnapImageCondition> snapFileGet{"snap_file_get",
    [](const auto& c) -> QJsonObject { return {{"channelid", channelOf(c)}, {"path", c.path}}; }};
// The only method that spells the channel "channel_id" and writes times without separators;
// it asks for whole days.
constexpr Method<GetCalendarMaskCondition> getRecordDateList{"get_record_date_list",
    [](const auto& c) -> QJsonObject {
        return {{"channel_id", channelOf(c)},
                {"start_time", compactDateTimeText(QDateTime(c.startDate, QTime(0, 0, 0)))},
                {"end_time", compactDateTimeText(QDateTime(c.endDate, QTime(23, 59, 59)))}};
    }};
constexpr Method<ChannelCondition> imageGetAbility{"image_get_ability", channelParam};
constexpr Method<ChannelCondition> imageGetParam{"image_get_param", channelParam};
constexpr Method<ImageSettings> imageSetParam{"image_set_param",
    [](const auto& a) -> QJsonObject {
        const ImageSettingInfo& i = a.info;
        return {{"channelid", channelOf(a)},
                {"contrast", i.contrast}, {"brightness", i.brightness},
                {"saturation", i.saturation}, {"sharpen", i.sharpen}, {"fluency", i.fluency},
                {"definition", i.definition}, {"noise", i.noise}, {"smear", i.smear},
                {"exposureMode", i.exposureMode}, {"exposureMax", i.exposureMax},
                {"exposureMin", i.exposureMin}, {"antiflick", i.antiflick},
                {"scene", i.scene}, {"daynightMode", i.daynightMode},
                {"dayStart", hourMinute(i.dayStart)}, {"dayEnd", hourMinute(i.dayEnd)},
                {"light", i.light}, {"rotate", i.rotate},
                {"bEnableAWB", i.bEnableAWB}, {"bEnableMI", i.bEnableMI},
                {"bEnableST", i.bEnableST}, {"bEnableNoC", i.bEnableNoC},
                {"bEnableWDynamic", i.bEnableWDynamic}, {"bAutoLowFrameEn", i.bAutoLowFrameEn},
                {"bNightOptimization", i.bNightOptimization}, {"bDefogging", i.bDefogging},
                {"bStarlight", i.bStarlight}, {"bAutogain", i.bAutogain}, {"bBLC", i.bBLC},
                {"bDistortionCorrection", i.bDistortionCorrection},
                {"bDigitalstabilize", i.bDigitalstabilize}};
    }};
constexpr Method<ChannelCondition> imageGetAdjustParam{"image_get_adjust_param", channelParam};
// Mirror and flip are booleans here, while the smart sensor switch is a number the device
// insists on and that the application has no say in.
constexpr Method<ImageAdjustSettings> imageSetAdjustParam{"image_set_adjust_param",
    [](const auto& a) -> QJsonObject {
        const ImageAdjustSettingInfo& i = a.info;
        return {{"channelid", channelOf(a)},
                {"contrast", i.contrast}, {"brightness", i.brightness},
                {"saturation", i.saturation}, {"sharpen", i.sharpen},
                {"bEnableMI", i.bEnableMI}, {"bEnableST", i.bEnableST},
                {"rotate", i.rotate}, {"style", i.style}, {"bEnableSmartSensor", 1}};
    }};

constexpr Method<DeviceCondition> storageGetInfo{"storage_get_info", emptyParam};
constexpr Method<FormatDiskCondition> storageFormat{"storage_format", diskParam};
constexpr Method<FormatDiskCondition> storageFormatProgress{"storage_format_get_progress",
                                                            diskParam};
constexpr Method<DeviceCondition> ifconfigGetInet{"ifconfig_get_inet", emptyParam};
constexpr Method<DeviceCondition> devGetQrcode{"dev_get_qrcode", emptyParam};
constexpr Method<DeviceCondition> devGetInfo{"dev_get_info", emptyParam};
constexpr Method<SysCfg> devSetInfo{"dev_set_info",
    [](const auto& a) -> QJsonObject {
        const DevSysCfgInfo& i = a.info;
        return {{"bDiscoverable", i.bDiscoverable}, {"hostname", i.hostname}, {"name", i.name},
                {"rebootDay", i.rebootDay}, {"rebootHour", i.rebootHour},
                {"syslanguage", i.syslanguage}, {"encryptEn", i.encryptEn}};
    }};
constexpr Method<LogDay> logGet{"log_get",
    [](const auto& a) -> QJsonObject { return {{"date", dateText(a.date)}, {"type", "ALL"}}; }};

// clang-format on

} // namespace

CommonReqWorker::CommonReqWorker(QObject* parent)
    : QObject(parent)
{}

CommonReq CommonReqWorker::addBulletTagPoint(const AddBulletTagPointCondition& c) const
{
    return build(gtrackAddMarkPoint, c);
}

CommonReq CommonReqWorker::getBulletTagPoints(const ChannelCondition& c) const
{
    return build(gtrackGetPointList, c);
}

CommonReq CommonReqWorker::clearBulletTagPoints(const ChannelCondition& c) const
{
    return build(gtrackClearPoint, c);
}

CommonReq CommonReqWorker::calibrateBulletDome(const CalibrateBulletDomeCondition& c) const
{
    return build(gtrackSetCalibration, c);
}

CommonReq CommonReqWorker::getBulletDomeCalibrateStatus(const ChannelCondition& c) const
{
    return build(gtrackGetCalibration, c);
}

CommonReq CommonReqWorker::setDomeTrackGuardInitialPos(const ChannelCondition& c) const
{
    return build(gtrackSetGuard, c);
}

CommonReq CommonReqWorker::manualBulletDomeTrack(const ManualTrackCondition& c) const
{
    return build(gtrackManualPosition, c);
}

CommonReq CommonReqWorker::ptz3dLocate(const PTZ3dLocateCondition& c) const
{
    return build(ptzZoomZone, c);
}

CommonReq CommonReqWorker::ptzAutoMove(const PTZAutoMoveCondition& c) const
{
    return build(ptzAuto, c);
}

CommonReq CommonReqWorker::getPtzAbility(const ChannelCondition& c) const
{
    return build(ptzAbilityGet, c);
}

CommonReq CommonReqWorker::cancelAlarm(const CancelAlarmCondition& c) const
{
    return build(alarmManualCancel, c);
}

CommonReq CommonReqWorker::triggerAlarmLink(const TriggerAlarmLinkCondition& c) const
{
    return build(alarmLinkTrigger, c);
}

CommonReq CommonReqWorker::getAlarmRecords(const GetAlarmRecordsCondition& c) const
{
    return build(alarmInfoListGet, c);
}

CommonReq
CommonReqWorker::getRegionTemperatureRecords(const GetRegionTemperatureRecordsCondition& c) const
{
    return build(alarmTemperatureHistory, c);
}

CommonReq CommonReqWorker::getTriggeredEvents(const GetTriggeredEventsCondition& c) const
{
    return build(eventGetTypeList, c);
}

CommonReq CommonReqWorker::getEventRecords(const GetEventRecordsCondition& c, int pageNum) const
{
    return build(eventGetList, EventPage{c, pageNum});
}

CommonReq
CommonReqWorker::getLicensePlateRecRecords(const GetLicensePlateRecRecordsCondition& c) const
{
    return build(ivpLprGetHistory, c);
}

CommonReq CommonReqWorker::getCustomersHeatMap(const GetCutomersHeatMapCondition& c) const
{
    return build(ivpHmGetHeatmap, c);
}

CommonReq CommonReqWorker::getCustomersCount(const GetCustomersCntCondition& c) const
{
    return build(customerCountHistory, c);
}

CommonReq
CommonReqWorker::getCustomersRegionAttention(const GetCustomersRegionAttentionCondition& c) const
{
    return build(regionalPeopleCountHistory, c);
}

CommonReq CommonReqWorker::getCustomersRegions(const ChannelCondition& c) const
{
    return build(regionalPeopleCountParam, c);
}

CommonReq CommonReqWorker::getCustomerGroup(const GetCustomerGroupCondition& c) const
{
    return build(faceCountHistory, c);
}

CommonReq CommonReqWorker::getFaceRecRecords(const GetFaceRecRecordsCondition& c) const
{
    return c.captureRecords ? build(faceCaptureHistory, c) : build(caplibSearch, c);
}

CommonReq CommonReqWorker::getAllFaceGroups(const AiChannelCondition& c) const
{
    return build(groupSearch, c);
}

CommonReq CommonReqWorker::addFaceGroups(const AddFaceGroupsCondition& c) const
{
    return build(groupAdd, c);
}

CommonReq CommonReqWorker::editFaceGroups(const EditFaceGroupsCondition& c) const
{
    return build(groupMod, c);
}

CommonReq CommonReqWorker::deleteFaceGroups(const DeleteFaceGroupsCondition& c) const
{
    return build(groupDel, c);
}

CommonReq CommonReqWorker::getFaces(const GetFacesCondition& c) const
{
    return build(rcglibSearch, c);
}

CommonReq CommonReqWorker::addFace(const ModifyFaceCondition& c) const
{
    return build(rcglibAdd, c);
}

CommonReq CommonReqWorker::editFace(const ModifyFaceCondition& c) const
{
    return build(rcglibMod, c);
}

CommonReq CommonReqWorker::delFaces(const DelFacesCondition& c) const
{
    return build(rcglibDel, c);
}

CommonReq CommonReqWorker::getFacesModelingStatus(const AiChannelCondition& c) const
{
    return build(rcglibStatistics, c);
}

CommonReq CommonReqWorker::importFaceLibrary(const AiChannelCondition& c) const
{
    return build(rcglibImport, c);
}

CommonReq CommonReqWorker::importFaceLibraryProgress(const AiChannelCondition& c) const
{
    return build(rcglibImportProgress, c);
}

CommonReq CommonReqWorker::exportFaceLibrary(const AiChannelCondition& c) const
{
    return build(rcglibExport, c);
}

CommonReq CommonReqWorker::exportFaceLibraryProgress(const AiChannelCondition& c) const
{
    return build(rcglibExportProgress, c);
}

CommonReq CommonReqWorker::getParkingLockStatus(const AiChannelCondition& c) const
{
    return build(getGroundLockList, c);
}

CommonReq CommonReqWorker::ctrlParkingLock(const CtrlParkingLockCondition& c) const
{
    return build(groundLockControl, c);
}

CommonReq CommonReqWorker::getSnapImage(const GetSnapImageCondition& c) const
{
    return build(snapFileGet, c);
}

CommonReq CommonReqWorker::getVideoRecordingsCalendarMask(const GetCalendarMaskCondition& c) const
{
    return build(getRecordDateList, c);
}

CommonReq CommonReqWorker::getChannImageAbility(const ChannelCondition& c) const
{
    return build(imageGetAbility, c);
}

CommonReq CommonReqWorker::getChannImageSettings(const ChannelCondition& c) const
{
    return build(imageGetParam, c);
}

// Setting the image is a command: nothing answers it, so it carries no request id.
CommonReq CommonReqWorker::setChannImageSettings(const ChannelId& channelId,
                                                 const ImageSettingInfo& info) const
{
    return build(imageSetParam, ImageSettings{QString(), channelId, info});
}

CommonReq CommonReqWorker::getChannImageAdjustSettings(const QString& requestId,
                                                       const ChannelId& channelId) const
{
    return build(imageGetAdjustParam, ChannelCondition{requestId, channelId});
}

CommonReq CommonReqWorker::setChannImageAdjustSettings(const QString& requestId,
                                                       const ChannelId& channelId,
                                                       const ImageAdjustSettingInfo& info) const
{
    return build(imageSetAdjustParam, ImageAdjustSettings{requestId, channelId, info});
}

CommonReq CommonReqWorker::getDevDisksInfo(const DeviceCondition& c) const
{
    return build(storageGetInfo, c);
}

CommonReq CommonReqWorker::formatDevDisk(const FormatDiskCondition& c) const
{
    return build(storageFormat, c);
}

CommonReq CommonReqWorker::getDevDiskFormattingProgress(const FormatDiskCondition& c) const
{
    return build(storageFormatProgress, c);
}

CommonReq CommonReqWorker::getDevNetMode(const DeviceCondition& c) const
{
    return build(ifconfigGetInet, c);
}

CommonReq CommonReqWorker::getDevQRCode(const DeviceCondition& c) const
{
    return build(devGetQrcode, c);
}

CommonReq CommonReqWorker::getDevSysCfg(const QString& requestId, const QString& devId) const
{
    return build(devGetInfo, DeviceCondition{requestId, devId});
}

// A command as well: no request id.
CommonReq CommonReqWorker::setDevSysCfg(const QString& devId, const DevSysCfgInfo& info) const
{
    return build(devSetInfo, SysCfg{QString(), devId, info});
}

CommonReq CommonReqWorker::getDevLogs(const QString& requestId, const QString& devId,
                                      const QDate& date) const
{
    return build(logGet, LogDay{requestId, devId, date});
}

CommonReq CommonReqWorker::commonReq(const QString& requestId, const QString& devId,
                                     const QString& reqJson) const
{
    CommonReq request = commonHeader(requestId, devId, 0);
    request.set_req_json(utf8(reqJson));
    return request;
}

CommonReq CommonReqWorker::commonHeader(const QString& requestId, const QString& devId,
                                        unsigned int channelIndex) const
{
    return header(requestId, devId, channelIndex);
}

vms_sdk_proto::ChannelReq CommonReqWorker::channelRequest(const ChannelCondition& c) const
{
    vms_sdk_proto::ChannelReq request;
    conversion::fillWire(c, request);
    return request;
}

vms_sdk_proto::DeviceReq CommonReqWorker::deviceRequest(const QString& requestId,
                                                        const QString& devId) const
{
    vms_sdk_proto::DeviceReq request;
    conversion::fillWire(DeviceCondition{requestId, devId}, request);
    return request;
}

} // namespace vms_sdk
