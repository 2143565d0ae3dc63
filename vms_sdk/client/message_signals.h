// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <vms_sdk/client_signals.h>

#include "vms_protocol/message_type.h"

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

namespace vms_sdk {

// The library's internal hub. Exported functions emit its request signals; the dispatcher,
// the stream worker and the gateway manager listen. Every gateway message other than the
// answer to the initialisation request passes through signalMessageComing.
//
// A request signal is named after the exported function that emits it and carries that
// function's arguments unchanged; the receiving slot has the same stem. Parameter types are
// spelt with their namespace so that the signals can be queued from the application's threads.
class MessageSignals : public QObject
{
    Q_OBJECT
public:
    static MessageSignals* instance();

Q_SIGNALS:
    // Life cycle.
    void signalReleaseClientSdk();
    void signalPrepareStartDgw(const vms_sdk::InitDgwCondition& condition, const QString& dgwPath,
                               int devsCnt);

    // Managed devices, received by the gateway manager, which splits them over the gateways.
    void signalSetManagedDevsCmd(const QList<vms_sdk::DevInfo>& devs);
    void signalAddManagedDevsCmd(const QList<vms_sdk::DevInfo>& devs);
    void signalDelManagedDevsCmd(const QStringList& devsId);
    void signalEditManagedDevsCmd(const QList<vms_sdk::DevInfo>& devs);
    // time is the device time as text, "yyyy-MM-dd hh:mm:ss".
    void signalSetDevsTimeCmd(const QStringList& devsId, const QString& time);
    void signalRebootDevsCmd(const QStringList& devsId);
    void signalRestoreFactoryCmd(const QStringList& devsId, bool keepNetConfig);
    void signalReconnectDevsCmd(const QStringList& devsId);

    // Device search, activation and accounts.
    void signalSearchDevsCmd();
    void signalSetSearchDevsConfigCmd(const vms_sdk::SearchDevsConfig& config);
    void signalBroadcastSearchDevsCmd();
    void signalActivateDevsCmd(const vms_sdk::ActivateCondition& condition);
    void signalGetDevSecretQuestionsCmd(const vms_sdk::GetDevSecretQuestionsCondition& condition);
    void signalResetDevPwdCmd(const vms_sdk::ResetDevPwdCondition& condition);
    void signalModifyDevAccountReq(const vms_sdk::ModifyDevAccountCondition& condition);
    void signalModifyDevNameReq(const vms_sdk::ModifyDevNameCondition& condition);
    void signalGetDevChannelsInfoCmd(const QString& devId);
    void signalOpenDevRemoteConfigReq(const QString& devId, int language);

    // Network, platforms and certificates.
    void signalGetDevNetReq(const vms_sdk::DeviceCondition& condition);
    void signalSetDevNetReq(const vms_sdk::SetDevNetCondition& condition);
    void signalGetDevNetModeReq(const vms_sdk::DeviceCondition& condition);
    void signalGetDevPlatformReq(const vms_sdk::GetDevPlatformCondition& condition);
    void signalSetDevPlatformReq(const vms_sdk::SetDevPlatformCondition& condition);
    void signalGetDevPlatform_kvrReq(const QString& requestId, const QString& devId);
    void signalSetDevPlatform_kvrReq(const vms_sdk::SetDevPlatform_kvrCondition& condition);
    void signalImportDevCertReq(const vms_sdk::ImportDevCertCondition& condition);
    void signalGetDevQRCodeReq(const vms_sdk::DeviceCondition& condition);

    // Disks, logs, system configuration, upgrade and files.
    void signalGetDevDisksInfoReq(const vms_sdk::DeviceCondition& condition);
    void signalFormatDevDiskReq(const vms_sdk::FormatDiskCondition& condition);
    void signalGetDevDiskFormattingProgressReq(const vms_sdk::FormatDiskCondition& condition);
    void signalGetDevLogsReq(const QString& requestId, const QString& devId, const QDate& date);
    void signalGetDevSysCfgReq(const QString& requestId, const QString& devId);
    void signalSetDevSysCfgCmd(const QString& devId, const vms_sdk::DevSysCfgInfo& info);
    void signalCheckDevUpgradeReq(const vms_sdk::DevUpgradeCondtition& condition);
    void signalDoDevUpgradeCmd(const vms_sdk::DevUpgradeCondtition& condition);
    void signalGetDevUpgradeProgressReq(const QString& requestId, const QString& devId);
    void signalUploadFileReq(const vms_sdk::UploadFileCondition& condition);
    void signalDownloadFileReq(const vms_sdk::DownloadFileCondition& condition);

    // Channel image, stream and on-screen text settings. The three stream-settings signals
    // have no exported function.
    void signalGetChannImageAbilityReq(const vms_sdk::ChannelCondition& condition);
    void signalGetChannImageSettingsReq(const vms_sdk::ChannelCondition& condition);
    void signalSetChannImageSettingsCmd(const vms_sdk::ChannelId& channelId,
                                        const vms_sdk::ImageSettingInfo& info);
    void signalGetChannImageAdjustSettingsReq(const QString& requestId,
                                              const vms_sdk::ChannelId& channelId);
    void signalSetChannImageAdjustSettingsReq(const QString& requestId,
                                              const vms_sdk::ChannelId& channelId,
                                              const vms_sdk::ImageAdjustSettingInfo& info);
    void signalGetChannStreamSettingsReq(const vms_sdk::ChannelCondition& condition);
    void signalSetChannStreamSettingsCmd(const vms_sdk::ChannelId& channelId,
                                         const vms_sdk::StreamSettingInfo& info);
    // The same stream settings for several channels.
    void signalSetChannsStreamsSettingsCmd(const QList<vms_sdk::ChannelId>& channelIds,
                                           const vms_sdk::StreamSettingMap& settings);
    void signalSetOSDReq(const vms_sdk::SetOSDCondition& condition);

    // Recordings and snapshots.
    void signalSearchVideoRecordingsReq(const vms_sdk::RecsSearchCondition& condition);
    void
    signalGetVideoRecordingsCalendarMaskReq(const vms_sdk::GetCalendarMaskCondition& condition);
    void signalGetRtspUrlReq(const vms_sdk::GetRtspUrlCondition& condition);
    void signalGetSnapImageReq(const vms_sdk::GetSnapImageCondition& condition);

    // Streams, received by the stream worker. The three that open a stream carry the id the
    // exported function has just returned.
    void signalConnectLiveVideoReq(vms_sdk::StreamId streamId,
                                   const vms_sdk::LiveVideoConnCondition& condition);
    void signalPlaybackByFileReq(vms_sdk::StreamId streamId,
                                 const vms_sdk::PlaybackByFileCondition& condition);
    void signalPlaybackByTimeReq(vms_sdk::StreamId streamId,
                                 const vms_sdk::PlaybackByTimeCondition& condition);
    void signalSkipByOffsetTimeReq(vms_sdk::StreamId streamId, unsigned int offsetTime);
    void signalSkipByAppointedTimeReq(vms_sdk::StreamId streamId, const QDateTime& appointedTime);
    void signalPlaybackCtrlReq(vms_sdk::StreamId streamId, vms_sdk::PlaybackCtrl ctrl);
    // Emitted by both playback_speed_set_req and download_speed_set_req.
    void signalPlaybackSpeedSetReq(vms_sdk::StreamId streamId, const QString& speed);
    void signalDisconnectStreamReq(vms_sdk::StreamId streamId);

    // Talk.
    void signalTalkOperReq(const vms_sdk::TalkOperCondition& condition);
    void signalSpeakOperReq(const vms_sdk::SpeakOperCondition& condition);

    // Pan-tilt-zoom, presets and patrols.
    void signalGetPTZAbilityReq(const vms_sdk::ChannelCondition& condition);
    void signalPTZAutoMoveReq(const vms_sdk::PTZAutoMoveCondition& condition);
    void signalPTZCtrlReq(const vms_sdk::PTZCtrlCondition& condition);
    void signalPTZ3dLocateCmd(const vms_sdk::PTZ3dLocateCondition& condition);
    void signalGetPresetsReq(const vms_sdk::ChannelCondition& condition);
    void signalOperPresetReq(const vms_sdk::PresetOperCondition& condition);
    void signalGetPatrolsReq(const vms_sdk::ChannelCondition& condition);
    void signalOperPatrolReq(const vms_sdk::PatrolOperCondition& condition);
    void signalOperPatrolPresetReq(const vms_sdk::PatrolPresetOperCondition& condition);
    void signalSetPatrolPresetsReq(const vms_sdk::SetPatrolPresetsCondition& condition);

    // Fixed camera and dome pairs.
    void signalAddBulletTagPointReq(const vms_sdk::AddBulletTagPointCondition& condition);
    void signalGetBulletTagPointsReq(const vms_sdk::ChannelCondition& condition);
    void signalClearBulletTagPointsReq(const vms_sdk::ChannelCondition& condition);
    void signalCalibrateBulletDomeReq(const vms_sdk::CalibrateBulletDomeCondition& condition);
    void signalGetBulletDomeCalibrateStatusReq(const vms_sdk::ChannelCondition& condition);
    void signalSetDomeTrackGuardInitialPosReq(const vms_sdk::ChannelCondition& condition);
    void signalManualBulletDomeTrackCmd(const vms_sdk::ManualTrackCondition& condition);

    // Faces, face library and face groups.
    void signalAddFaceReq(const vms_sdk::ModifyFaceCondition& condition);
    void signalEditFaceReq(const vms_sdk::ModifyFaceCondition& condition);
    void signalGetFacesReq(const vms_sdk::GetFacesCondition& condition);
    void signalGetFacesModelingStatusReq(const vms_sdk::AiChannelCondition& condition);
    void signalDelFaceReq(const vms_sdk::DelFaceCondition& condition);
    void signalDelFacesReq(const vms_sdk::DelFacesCondition& condition);
    void signalGetFaceDetectRecordsReq(const vms_sdk::GetFaceDetectRecordsCondition& condition);
    void signalClearFaceTemperatureCountCmd(const QString& devId);
    void signalGetAllFaceGroupsReq(const vms_sdk::AiChannelCondition& condition);
    void signalAddFaceGroupsReq(const vms_sdk::AddFaceGroupsCondition& condition);
    void signalDeleteFaceGroupsReq(const vms_sdk::DeleteFaceGroupsCondition& condition);
    void signalEditFaceGroupsReq(const vms_sdk::EditFaceGroupsCondition& condition);
    void signalImportFaceLibraryReq(const vms_sdk::AiChannelCondition& condition);
    void signalImportFaceLibraryProgressReq(const vms_sdk::AiChannelCondition& condition);
    void signalExportFaceLibraryReq(const vms_sdk::AiChannelCondition& condition);
    void signalExportFaceLibraryProgressReq(const vms_sdk::AiChannelCondition& condition);
    void signalGetFaceRecRecordsReq(const vms_sdk::GetFaceRecRecordsCondition& condition);

    // Alarms, temperatures and events. signalGetOtherEventRecordsReq has no exported function:
    // the answer parser asks for the next page of an event query with it.
    void signalGetRegionTemperatureRecordsReq(
        const vms_sdk::GetRegionTemperatureRecordsCondition& condition);
    void signalGetAlarmRecordsReq(const vms_sdk::GetAlarmRecordsCondition& condition);
    void signalCancelAlarmReq(const vms_sdk::CancelAlarmCondition& condition);
    void signalTriggerAlarmLinkReq(const vms_sdk::TriggerAlarmLinkCondition& condition);
    void signalGetTriggeredEventsReq(const vms_sdk::GetTriggeredEventsCondition& condition);
    void signalGetEventRecordsReq(const vms_sdk::GetEventRecordsCondition& condition);
    void signalGetOtherEventRecordsReq(const QString& requestId, int pageNum);

    // Analytics.
    void signalGetCustomersCountReq(const vms_sdk::GetCustomersCntCondition& condition);
    void signalGetCustomersRegionsReq(const vms_sdk::ChannelCondition& condition);
    void signalGetCustomersRegionAttentionReq(
        const vms_sdk::GetCustomersRegionAttentionCondition& condition);
    void signalGetCustomersHeatMapReq(const vms_sdk::GetCutomersHeatMapCondition& condition);
    void signalGetCustomerGroupReq(const vms_sdk::GetCustomerGroupCondition& condition);
    void signalGetLicensePlateRecRecordsReq(
        const vms_sdk::GetLicensePlateRecRecordsCondition& condition);
    void signalGetParkingLockStatusReq(const vms_sdk::AiChannelCondition& condition);
    void signalCtrlParkingLockReq(const vms_sdk::CtrlParkingLockCondition& condition);

    // Request ids and the service account.
    void signalRenewalRequestId(const QString& requestId);
    void signalSetSaasTokenCmd(const QString& token);
    void signalSaasLogoutCmd();

    // An incoming gateway message.
    void signalMessageComing(vms_sdk::MessageType msgType, const QByteArray& message);

    // A JSON method the application wrote itself (common_req), sent as it is.
    void signalCommonReq(const QString& requestId, const QString& devId, const QString& reqJson);

private:
    MessageSignals();
};

} // namespace vms_sdk
