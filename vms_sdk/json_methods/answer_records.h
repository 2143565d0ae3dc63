// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// The "result" documents of the JSON method answers turned into public records, one function
// per record. Functions named after a list item read one element of the answer's array; the
// others read the whole "result" object. Key names are the devices' own.

#include <vms_sdk/vms_client_sdk.h>

#include <QDate>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>

namespace vms_sdk::json_methods::answers {

// Channel picture, encoding and audio (device_answers.cpp).
ImageAdjustSettingInfo imageAdjustSettings(const QJsonObject& result);
ImageSettingInfo imageSettings(const QJsonObject& result);
ImageAbilityInfo imageAbility(const QJsonObject& result);
StreamSettingInfo streamSettingsItem(const QJsonObject& item);
AudioSettingInfo audioSettingsItem(const QJsonObject& item);

// PTZ and bullet-dome tracking (device_answers.cpp).
PTZAbilityInfo ptzAbility(const QJsonObject& result);
BulletTagPointInfo bulletTagPointItem(const QJsonObject& item);
CalibrationStatusInfo calibrationStatus(const QJsonObject& result);

// Device upkeep (device_answers.cpp).
DevDiskInfo diskItem(const QJsonObject& item);
DevLogInfo logItem(const QJsonObject& item);
DevSysCfgInfo sysCfg(const QJsonObject& result);
// "eth" 0, "wifi" 1, "_4G" 2, "ppp" 3, "ddns" 4; an interface the library has no number
// for counts as wired.
int netMode(const QJsonObject& result);

// Alarms, events and recordings (record_answers.cpp).
RegionTemperatureRecordInfo temperatureRecordItem(const QJsonObject& item);
// The device's alarm records name neither the channel nor the asked type: both come from the
// request.
AlarmInfo alarmRecordItem(const QJsonObject& item, const ChannelId& channel,
                          const QString& alarmType);
EventTypeInfo eventTypeItem(const QJsonObject& item);
EventInfo eventItem(const QJsonObject& item);
// Day i of the mask is start + i days; a day with recordings is marked with exactly 1.
QList<QDate> recordedDates(const QJsonArray& mask, const QDate& start);

// Analytics (record_answers.cpp).
LicensePlateRecRecordInfo plateRecordItem(const QJsonObject& item);
CustomersCountInfo customersCountItem(const QJsonObject& item);
CustomersRegionInfo customersRegionItem(const QJsonObject& item);
CustomersRegionAttentionInfo regionAttentionItem(const QJsonObject& item);
CustomersHeatMapInfo heatMap(const QJsonObject& result);
CustomerGroupInfo customerGroupItem(const QJsonObject& item);
ParkingLockInfo parkingLockItem(const QJsonObject& item);

// Faces and the face library of a device application (record_answers.cpp).
FaceRecRecordInfo faceCaptureItem(const QJsonObject& item);
FaceRecRecordInfo faceRecognitionItem(const QJsonObject& item);
FaceGroupInfo faceGroupItem(const QJsonObject& item);
FaceInfo libraryFaceItem(const QJsonObject& item);
FacesModelingStatusInfo modelingStatus(const QJsonObject& result);
FaceLibraryImportProgress importProgress(const QJsonObject& result);

} // namespace vms_sdk::json_methods::answers
