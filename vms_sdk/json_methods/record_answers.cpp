// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/json_methods/answer_fields.h"
#include "vms_sdk/json_methods/answer_records.h"

#include <QUuid>

namespace vms_sdk::json_methods::answers {

// clang-format off

RegionTemperatureRecordInfo temperatureRecordItem(const QJsonObject& item)
{
    using R = RegionTemperatureRecordInfo;
    return readRecord<R>(item,
        field("id", &R::id), field("name", &R::name), field("temper", &R::temper),
        field("over_threshold", &R::overThreshold), field("time", &R::time),
        field("alarm_status", &R::alarmStatus), field("jpeg_path", &R::jpegPath),
        field("temper_rect", &R::temperRect));
}

EventTypeInfo eventTypeItem(const QJsonObject& item)
{
    using R = EventTypeInfo;
    return readRecord<R>(item, field("type", &R::type), field("name", &R::name),
                         field("alarm", &R::alarm), field("timetype", &R::timeType));
}

EventInfo eventItem(const QJsonObject& item)
{
    using R = EventInfo;
    return readRecord<R>(item, field("type", &R::type), field("record", &R::record),
                         field("startTime", &R::startTime), field("stopTime", &R::stopTime));
}

LicensePlateRecRecordInfo plateRecordItem(const QJsonObject& item)
{
    using R = LicensePlateRecRecordInfo;
    return readRecord<R>(item,
        field("channelid", &R::channelIndex), field("time", &R::time),
        field("plate_num", &R::plateNum), field("plate_color", &R::plateColor),
        field("plate_type", &R::plateType), field("picPath", &R::picPath),
        field("vehicle_type", &R::vehicleType), field("vehicle_color", &R::vehicleColor),
        field("vehicle_orientation", &R::vehicleOrientation));
}

CustomersCountInfo customersCountItem(const QJsonObject& item)
{
    using R = CustomersCountInfo;
    return readRecord<R>(item, field("pass_cnt", &R::passCnt), field("in_cnt", &R::inCnt),
                         field("out_cnt", &R::outCnt), field("keep_cnt", &R::keepCnt));
}

CustomersRegionInfo customersRegionItem(const QJsonObject& item)
{
    using R = CustomersRegionInfo;
    return readRecord<R>(item, field("id", &R::id), field("name", &R::name));
}

CustomersRegionAttentionInfo regionAttentionItem(const QJsonObject& item)
{
    using R = CustomersRegionAttentionInfo;
    return readRecord<R>(item,
        field("people_cnt", &R::peopleCnt), field("stay_cnt", &R::stayCnt),
        field("stay_rate", &R::stayRate), field("stay_average_time", &R::stayAverageTime));
}

CustomerGroupInfo customerGroupItem(const QJsonObject& item)
{
    using R = CustomerGroupInfo;
    return readRecord<R>(item,
        field("total", &R::total), field("male", &R::male), field("female", &R::female),
        field("child_num", &R::childNum), field("juvenile_num", &R::juvenileNum),
        field("youth_num", &R::youthNum), field("midlife_num", &R::midlifeNum),
        field("senile_num", &R::senileNum));
}

ParkingLockInfo parkingLockItem(const QJsonObject& item)
{
    using R = ParkingLockInfo;
    return readRecord<R>(item,
        field("lock_id", &R::lockId), field("status", &R::status),
        field("region_name", &R::regionName), field("parking_id", &R::parkingId));
}

FaceRecRecordInfo faceCaptureItem(const QJsonObject& item)
{
    using R = FaceRecRecordInfo;
    return readRecord<R>(item,
        field("channelid", &R::channelIndex), field("time", &R::time), field("age", &R::age),
        field("gender", &R::gender), field("hair", &R::hair), field("eyeglass", &R::eyeglass),
        field("mask", &R::mask), field("beard", &R::beard), field("hat", &R::hat),
        field("expression", &R::expression), field("obj_picName", &R::objPicName),
        field("frm_picName", &R::frmPicName));
}

FaceRecRecordInfo faceRecognitionItem(const QJsonObject& item)
{
    using R = FaceRecRecordInfo;
    return readRecord<R>(item,
        field("index", &R::index), field("cap_time", &R::time), field("gender", &R::gender),
        field("classification", &R::classification), field("face_id", &R::faceId),
        field("name", &R::name), field("similarity", &R::similarity),
        field("pic_path", &R::picPath), field("pic_full_path", &R::picFullPath),
        field("group_id", &R::groupId));
}

FaceGroupInfo faceGroupItem(const QJsonObject& item)
{
    using R = FaceGroupInfo;
    return readRecord<R>(item, field("id", &R::id), field("name", &R::name),
                         field("enable", &R::enable));
}

// A library face of a device application: its id on the device is the serial number, its
// category the face type and its validity the valid and invalid times. Birth date, modelling
// state and picture ids have no place in the record.
FaceInfo libraryFaceItem(const QJsonObject& item)
{
    using R = FaceInfo;
    return readRecord<R>(item,
        field("index", &R::index), field("name", &R::name), field("face_id", &R::serialNum),
        field("gender", &R::gender), field("classification", &R::faceType),
        field("start_time", &R::validTime), field("end_time", &R::invalidTime));
}

FacesModelingStatusInfo modelingStatus(const QJsonObject& result)
{
    using R = FacesModelingStatusInfo;
    return readRecord<R>(result,
        field("total_cnt", &R::totalCnt), field("modeled_cnt", &R::modeledCnt),
        field("modeling_failed_cnt", &R::modelingFailedCnt),
        field("pending_cnt", &R::pendingCnt));
}

FaceLibraryImportProgress importProgress(const QJsonObject& result)
{
    using R = FaceLibraryImportProgress;
    return readRecord<R>(result,
        field("total_count", &R::totalCount), field("success_count", &R::successCount),
        field("failed_count", &R::failedCount),
        field("failed_person_path", &R::failedPersonPath));
}

// clang-format on

AlarmInfo alarmRecordItem(const QJsonObject& item, const ChannelId& channel,
                          const QString& alarmType)
{
    AlarmInfo alarm{.alarmId = QUuid::createUuid().toString(),
                    .channelId = channel,
                    .triggerChannelId = channel,
                    .alarmType = alarmType};
    readValue(item[QLatin1String("time")], alarm.alarmTime);
    const QJsonArray paths = item[QLatin1String("path_list")].toArray();
    for (const QJsonValue& path : paths)
        alarm.attachments.append(path[QLatin1String("path")].toString().toUtf8());
    return alarm;
}

QList<QDate> recordedDates(const QJsonArray& mask, const QDate& start)
{
    QList<QDate> dates;
    for (int day = 0; day < mask.size(); ++day) {
        if (mask[day].isDouble() && mask[day].toDouble() == 1)
            dates.append(start.addDays(day));
    }
    return dates;
}

CustomersHeatMapInfo heatMap(const QJsonObject& result)
{
    CustomersHeatMapInfo map;
    readValue(result[QLatin1String("width")], map.width);
    readValue(result[QLatin1String("height")], map.height);
    map.bgJpeg = QByteArray::fromBase64(result[QLatin1String("bgJpegBase64")].toString().toUtf8());
    map.heatmapData =
        QByteArray::fromBase64(result[QLatin1String("heatmapDataBase64")].toString().toUtf8());
    return map;
}

} // namespace vms_sdk::json_methods::answers
