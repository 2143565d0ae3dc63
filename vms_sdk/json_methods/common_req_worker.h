// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// Builds the CommonReq messages that carry device functions the gateway does not model: each
// builder writes one JSON "method" document for its request. The dispatcher calls them from its
// request slots and registers and sends what they return; the worker holds no state, so the
// builders may run on any thread that owns their arguments.
//
//   CommonReq { request_id, channel_id { dev_id, channel_index }, req_json }
//
//   req_json, plain:        {"method": M, "param": {...}}
//   req_json, transparent:  {"method": "dev_trans_userparam",
//                            "param": {"channelid": N, "owner": ..., "req_data": base64(
//                                      {"method": M, "package": P, "param": {...}})}}
//
// The transparent form reaches an application running on the device (face library, customer
// groups, parking locks), which the device forwards the inner document to untouched.

#include <vms_sdk/vms_client_sdk.h>

#include "vms_message.pb.h"

#include <QDate>
#include <QObject>
#include <QString>

namespace vms_sdk {

class CommonReqWorker : public QObject
{
    Q_OBJECT
public:
    explicit CommonReqWorker(QObject* parent);

    // Bullet-dome tracking and PTZ.
    vms_sdk_proto::CommonReq addBulletTagPoint(const AddBulletTagPointCondition& c) const;
    vms_sdk_proto::CommonReq getBulletTagPoints(const ChannelCondition& c) const;
    vms_sdk_proto::CommonReq clearBulletTagPoints(const ChannelCondition& c) const;
    vms_sdk_proto::CommonReq calibrateBulletDome(const CalibrateBulletDomeCondition& c) const;
    vms_sdk_proto::CommonReq getBulletDomeCalibrateStatus(const ChannelCondition& c) const;
    vms_sdk_proto::CommonReq setDomeTrackGuardInitialPos(const ChannelCondition& c) const;
    vms_sdk_proto::CommonReq manualBulletDomeTrack(const ManualTrackCondition& c) const;
    vms_sdk_proto::CommonReq ptz3dLocate(const PTZ3dLocateCondition& c) const;
    vms_sdk_proto::CommonReq ptzAutoMove(const PTZAutoMoveCondition& c) const;
    vms_sdk_proto::CommonReq getPtzAbility(const ChannelCondition& c) const;

    // Alarms, events and analytics records.
    vms_sdk_proto::CommonReq cancelAlarm(const CancelAlarmCondition& c) const;
    vms_sdk_proto::CommonReq triggerAlarmLink(const TriggerAlarmLinkCondition& c) const;
    vms_sdk_proto::CommonReq getAlarmRecords(const GetAlarmRecordsCondition& c) const;
    vms_sdk_proto::CommonReq
    getRegionTemperatureRecords(const GetRegionTemperatureRecordsCondition& c) const;
    vms_sdk_proto::CommonReq getTriggeredEvents(const GetTriggeredEventsCondition& c) const;
    // pageNum counts from 1; the following pages of one query repeat its condition.
    vms_sdk_proto::CommonReq getEventRecords(const GetEventRecordsCondition& c, int pageNum) const;
    vms_sdk_proto::CommonReq
    getLicensePlateRecRecords(const GetLicensePlateRecRecordsCondition& c) const;
    vms_sdk_proto::CommonReq getCustomersHeatMap(const GetCutomersHeatMapCondition& c) const;
    vms_sdk_proto::CommonReq getCustomersCount(const GetCustomersCntCondition& c) const;
    vms_sdk_proto::CommonReq
    getCustomersRegionAttention(const GetCustomersRegionAttentionCondition& c) const;
    vms_sdk_proto::CommonReq getCustomersRegions(const ChannelCondition& c) const;
    vms_sdk_proto::CommonReq getCustomerGroup(const GetCustomerGroupCondition& c) const;
    // Capture records or recognition records, as c.captureRecords asks.
    vms_sdk_proto::CommonReq getFaceRecRecords(const GetFaceRecRecordsCondition& c) const;

    // Face library and face groups of a device application.
    vms_sdk_proto::CommonReq getAllFaceGroups(const AiChannelCondition& c) const;
    vms_sdk_proto::CommonReq addFaceGroups(const AddFaceGroupsCondition& c) const;
    vms_sdk_proto::CommonReq editFaceGroups(const EditFaceGroupsCondition& c) const;
    vms_sdk_proto::CommonReq deleteFaceGroups(const DeleteFaceGroupsCondition& c) const;
    vms_sdk_proto::CommonReq getFaces(const GetFacesCondition& c) const;
    vms_sdk_proto::CommonReq addFace(const ModifyFaceCondition& c) const;
    vms_sdk_proto::CommonReq editFace(const ModifyFaceCondition& c) const;
    vms_sdk_proto::CommonReq delFaces(const DelFacesCondition& c) const;
    vms_sdk_proto::CommonReq getFacesModelingStatus(const AiChannelCondition& c) const;
    vms_sdk_proto::CommonReq importFaceLibrary(const AiChannelCondition& c) const;
    vms_sdk_proto::CommonReq importFaceLibraryProgress(const AiChannelCondition& c) const;
    vms_sdk_proto::CommonReq exportFaceLibrary(const AiChannelCondition& c) const;
    vms_sdk_proto::CommonReq exportFaceLibraryProgress(const AiChannelCondition& c) const;
    vms_sdk_proto::CommonReq getParkingLockStatus(const AiChannelCondition& c) const;
    vms_sdk_proto::CommonReq ctrlParkingLock(const CtrlParkingLockCondition& c) const;

    // Pictures, recordings and channel image settings.
    vms_sdk_proto::CommonReq getSnapImage(const GetSnapImageCondition& c) const;
    vms_sdk_proto::CommonReq
    getVideoRecordingsCalendarMask(const GetCalendarMaskCondition& c) const;
    vms_sdk_proto::CommonReq getChannImageAbility(const ChannelCondition& c) const;
    vms_sdk_proto::CommonReq getChannImageSettings(const ChannelCondition& c) const;
    vms_sdk_proto::CommonReq setChannImageSettings(const ChannelId& channelId,
                                                   const ImageSettingInfo& info) const;
    vms_sdk_proto::CommonReq getChannImageAdjustSettings(const QString& requestId,
                                                         const ChannelId& channelId) const;
    vms_sdk_proto::CommonReq setChannImageAdjustSettings(const QString& requestId,
                                                         const ChannelId& channelId,
                                                         const ImageAdjustSettingInfo& info) const;

    // Device upkeep.
    vms_sdk_proto::CommonReq getDevDisksInfo(const DeviceCondition& c) const;
    vms_sdk_proto::CommonReq formatDevDisk(const FormatDiskCondition& c) const;
    vms_sdk_proto::CommonReq getDevDiskFormattingProgress(const FormatDiskCondition& c) const;
    vms_sdk_proto::CommonReq getDevNetMode(const DeviceCondition& c) const;
    vms_sdk_proto::CommonReq getDevQRCode(const DeviceCondition& c) const;
    vms_sdk_proto::CommonReq getDevSysCfg(const QString& requestId, const QString& devId) const;
    vms_sdk_proto::CommonReq setDevSysCfg(const QString& devId, const DevSysCfgInfo& info) const;
    vms_sdk_proto::CommonReq getDevLogs(const QString& requestId, const QString& devId,
                                        const QDate& date) const;

    // The application's own JSON text, sent as it is: no envelope.
    vms_sdk_proto::CommonReq commonReq(const QString& requestId, const QString& devId,
                                       const QString& reqJson) const;

    // Addressing only, for the builders above and for messages that are not JSON methods.
    vms_sdk_proto::CommonReq commonHeader(const QString& requestId, const QString& devId,
                                          unsigned int channelIndex) const;
    vms_sdk_proto::ChannelReq channelRequest(const ChannelCondition& c) const;
    vms_sdk_proto::DeviceReq deviceRequest(const QString& requestId, const QString& devId) const;
};

} // namespace vms_sdk
