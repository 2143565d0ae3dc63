// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The exported request functions. Each hands its arguments, unchanged, to the hub signal of
// the same name; the receivers check, log and send. Called on the library's thread, the
// receiving slot has run when the function returns.
#include <vms_sdk/vms_client_sdk.h>

#include "vms_sdk/client/message_signals.h"
#include "vms_sdk/client/sdk_log.h"

#include <QUuid>

namespace vms_sdk {
namespace {

template<typename... Params, typename... Args>
void emitOnHub(void (MessageSignals::*signal)(Params...), Args&&... args)
{
    Q_EMIT(MessageSignals::instance()->*signal)(std::forward<Args>(args)...);
}

// The stream functions answer with the new stream's id before anything is sent. The id is a
// hash of a fresh UUID: below 2^32 and, barring a collision, unique.
StreamId newStreamId()
{
    return StreamId(qHash(QUuid::createUuid(), 0));
}

QString streamLog(const char* what, StreamId id, const ChannelId& channel)
{
    return QStringLiteral("client request %1, stream_id: %2, device id:%3, channel index:%4")
        .arg(QLatin1String(what))
        .arg(id)
        .arg(channel.devId)
        .arg(channel.channelIndex);
}

} // namespace

void prepare_start_dgw_req(const InitDgwCondition& condition, const QString& dgwPath, int devsCnt)
{
    emitOnHub(&MessageSignals::signalPrepareStartDgw, condition, dgwPath, devsCnt);
}

StreamId connect_live_video_req(const LiveVideoConnCondition& condition)
{
    const StreamId id = newStreamId();
    log::info(streamLog("connect live video", id, condition.channelId));
    emitOnHub(&MessageSignals::signalConnectLiveVideoReq, id, condition);
    Q_EMIT ClientActions::instance()->signalConnLiveVideoTrigger(
        condition.channelId.devId, int(condition.channelId.channelIndex), condition.streamType);
    return id;
}

StreamId playback_by_file_req(const PlaybackByFileCondition& condition)
{
    const StreamId id = newStreamId();
    log::info(streamLog("playback by file", id, condition.channelId));
    emitOnHub(&MessageSignals::signalPlaybackByFileReq, id, condition);
    // A download has no view to announce.
    if (condition.download == 0) {
        Q_EMIT ClientActions::instance()->signalPlaybackByFileTrigger(
            condition.channelId.devId, int(condition.channelId.channelIndex), condition.fileName,
            condition.recordSrc, id);
    }
    return id;
}

StreamId playback_by_time_req(const PlaybackByTimeCondition& condition)
{
    const StreamId id = newStreamId();
    log::info(streamLog("playback by time", id, condition.channelId));
    emitOnHub(&MessageSignals::signalPlaybackByTimeReq, id, condition);
    if (condition.download == 0) {
        Q_EMIT ClientActions::instance()->signalPlaybackByTimeTrigger(
            condition.channelId.devId, int(condition.channelId.channelIndex), condition.startTime,
            condition.recordSrc, id);
    }
    return id;
}

void download_speed_set_req(StreamId streamId, const QString& speed)
{
    emitOnHub(&MessageSignals::signalPlaybackSpeedSetReq, streamId, speed);
}

void activate_devs_cmd(const ActivateCondition& condition)
{
    emitOnHub(&MessageSignals::signalActivateDevsCmd, condition);
}

void add_bullet_tag_point_req(const AddBulletTagPointCondition& condition)
{
    emitOnHub(&MessageSignals::signalAddBulletTagPointReq, condition);
}

void add_face_groups_req(const AddFaceGroupsCondition& condition)
{
    emitOnHub(&MessageSignals::signalAddFaceGroupsReq, condition);
}

void add_face_req(const ModifyFaceCondition& condition)
{
    emitOnHub(&MessageSignals::signalAddFaceReq, condition);
}

void add_managed_devs_cmd(const QList<DevInfo>& devs)
{
    emitOnHub(&MessageSignals::signalAddManagedDevsCmd, devs);
}

void broadcast_search_devs_cmd()
{
    emitOnHub(&MessageSignals::signalBroadcastSearchDevsCmd);
}

void calibrate_bullet_dome_req(const CalibrateBulletDomeCondition& condition)
{
    emitOnHub(&MessageSignals::signalCalibrateBulletDomeReq, condition);
}

void cancel_alarm_req(const CancelAlarmCondition& condition)
{
    emitOnHub(&MessageSignals::signalCancelAlarmReq, condition);
}

void check_dev_upgrade_req(const DevUpgradeCondtition& condition)
{
    emitOnHub(&MessageSignals::signalCheckDevUpgradeReq, condition);
}

void clear_bullet_tag_points_req(const ChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalClearBulletTagPointsReq, condition);
}

void clear_face_temperature_count_cmd(const QString& devId)
{
    emitOnHub(&MessageSignals::signalClearFaceTemperatureCountCmd, devId);
}

void common_req(const QString& requestId, const QString& devId, const QString& reqJson)
{
    emitOnHub(&MessageSignals::signalCommonReq, requestId, devId, reqJson);
}

void ctrl_parking_lock_req(const CtrlParkingLockCondition& condition)
{
    emitOnHub(&MessageSignals::signalCtrlParkingLockReq, condition);
}

void del_face_req(const DelFaceCondition& condition)
{
    emitOnHub(&MessageSignals::signalDelFaceReq, condition);
}

void del_faces_req(const DelFacesCondition& condition)
{
    emitOnHub(&MessageSignals::signalDelFacesReq, condition);
}

void del_managed_devs_cmd(const QStringList& devsId)
{
    emitOnHub(&MessageSignals::signalDelManagedDevsCmd, devsId);
}

void delete_face_groups_req(const DeleteFaceGroupsCondition& condition)
{
    emitOnHub(&MessageSignals::signalDeleteFaceGroupsReq, condition);
}

void disconnect_stream_req(StreamId streamId)
{
    emitOnHub(&MessageSignals::signalDisconnectStreamReq, streamId);
}

void do_dev_upgrade_cmd(const DevUpgradeCondtition& condition)
{
    emitOnHub(&MessageSignals::signalDoDevUpgradeCmd, condition);
}

void download_file_req(const DownloadFileCondition& condition)
{
    emitOnHub(&MessageSignals::signalDownloadFileReq, condition);
}

void edit_face_groups_req(const EditFaceGroupsCondition& condition)
{
    emitOnHub(&MessageSignals::signalEditFaceGroupsReq, condition);
}

void edit_face_req(const ModifyFaceCondition& condition)
{
    emitOnHub(&MessageSignals::signalEditFaceReq, condition);
}

void edit_managed_devs_cmd(const QList<DevInfo>& devs)
{
    emitOnHub(&MessageSignals::signalEditManagedDevsCmd, devs);
}

void export_face_library_progress_req(const AiChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalExportFaceLibraryProgressReq, condition);
}

void export_face_library_req(const AiChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalExportFaceLibraryReq, condition);
}

void format_dev_disk_req(const FormatDiskCondition& condition)
{
    emitOnHub(&MessageSignals::signalFormatDevDiskReq, condition);
}

void get_alarm_records_req(const GetAlarmRecordsCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetAlarmRecordsReq, condition);
}

void get_all_face_groups_req(const AiChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetAllFaceGroupsReq, condition);
}

void get_bullet_dome_calibrate_status_req(const ChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetBulletDomeCalibrateStatusReq, condition);
}

void get_bullet_tag_points_req(const ChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetBulletTagPointsReq, condition);
}

void get_chann_image_ability_req(const ChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetChannImageAbilityReq, condition);
}

void get_chann_image_adjust_settings_req(const QString& requestId, const ChannelId& channelId)
{
    emitOnHub(&MessageSignals::signalGetChannImageAdjustSettingsReq, requestId, channelId);
}

void get_chann_image_settings_req(const ChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetChannImageSettingsReq, condition);
}

void get_customer_group_req(const GetCustomerGroupCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetCustomerGroupReq, condition);
}

void get_customers_count_req(const GetCustomersCntCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetCustomersCountReq, condition);
}

void get_customers_heat_map_req(const GetCutomersHeatMapCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetCustomersHeatMapReq, condition);
}

void get_customers_region_attention_req(const GetCustomersRegionAttentionCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetCustomersRegionAttentionReq, condition);
}

void get_customers_regions_req(const ChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetCustomersRegionsReq, condition);
}

void get_dev_channels_info_cmd(const QString& devId)
{
    emitOnHub(&MessageSignals::signalGetDevChannelsInfoCmd, devId);
}

void get_dev_disk_formatting_progress_req(const FormatDiskCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetDevDiskFormattingProgressReq, condition);
}

void get_dev_disks_info_req(const DeviceCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetDevDisksInfoReq, condition);
}

void get_dev_logs_req(const QString& requestId, const QString& devId, const QDate& date)
{
    emitOnHub(&MessageSignals::signalGetDevLogsReq, requestId, devId, date);
}

void get_dev_net_mode_req(const DeviceCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetDevNetModeReq, condition);
}

void get_dev_net_req(const DeviceCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetDevNetReq, condition);
}

void get_dev_platform_req(const GetDevPlatformCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetDevPlatformReq, condition);
}

void get_dev_qrcode_req(const DeviceCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetDevQRCodeReq, condition);
}

void get_dev_secret_questions_cmd(const GetDevSecretQuestionsCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetDevSecretQuestionsCmd, condition);
}

void get_dev_sys_cfg_req(const QString& requestId, const QString& devId)
{
    emitOnHub(&MessageSignals::signalGetDevSysCfgReq, requestId, devId);
}

void get_dev_upgrade_progress_req(const QString& requestId, const QString& devId)
{
    emitOnHub(&MessageSignals::signalGetDevUpgradeProgressReq, requestId, devId);
}

void get_event_records_req(const GetEventRecordsCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetEventRecordsReq, condition);
}

void get_face_detect_records_req(const GetFaceDetectRecordsCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetFaceDetectRecordsReq, condition);
}

void get_face_rec_records_req(const GetFaceRecRecordsCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetFaceRecRecordsReq, condition);
}

void get_faces_modeling_status_req(const AiChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetFacesModelingStatusReq, condition);
}

void get_faces_req(const GetFacesCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetFacesReq, condition);
}

void get_license_plate_rec_records_req(const GetLicensePlateRecRecordsCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetLicensePlateRecRecordsReq, condition);
}

void get_parking_lock_status_req(const AiChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetParkingLockStatusReq, condition);
}

void get_patrols_req(const ChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetPatrolsReq, condition);
}

void get_presets_req(const ChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetPresetsReq, condition);
}

void get_ptz_ability_req(const ChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetPTZAbilityReq, condition);
}

void get_region_temperature_records_req(const GetRegionTemperatureRecordsCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetRegionTemperatureRecordsReq, condition);
}

void get_rtsp_url_req(const GetRtspUrlCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetRtspUrlReq, condition);
}

void get_snap_image_req(const GetSnapImageCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetSnapImageReq, condition);
}

void get_triggered_events_req(const GetTriggeredEventsCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetTriggeredEventsReq, condition);
}

void get_video_recordings_calendar_mask_req(const GetCalendarMaskCondition& condition)
{
    emitOnHub(&MessageSignals::signalGetVideoRecordingsCalendarMaskReq, condition);
}

void import_dev_cert_req(const ImportDevCertCondition& condition)
{
    emitOnHub(&MessageSignals::signalImportDevCertReq, condition);
}

void import_face_library_progress_req(const AiChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalImportFaceLibraryProgressReq, condition);
}

void import_face_library_req(const AiChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalImportFaceLibraryReq, condition);
}

void manual_bullet_dome_track_cmd(const ManualTrackCondition& condition)
{
    emitOnHub(&MessageSignals::signalManualBulletDomeTrackCmd, condition);
}

void modify_dev_account_req(const ModifyDevAccountCondition& condition)
{
    emitOnHub(&MessageSignals::signalModifyDevAccountReq, condition);
}

void modify_dev_name_req(const ModifyDevNameCondition& condition)
{
    emitOnHub(&MessageSignals::signalModifyDevNameReq, condition);
}

void open_dev_remote_config_req(const QString& devId, int language)
{
    emitOnHub(&MessageSignals::signalOpenDevRemoteConfigReq, devId, language);
}

void oper_patrol_preset_req(const PatrolPresetOperCondition& condition)
{
    emitOnHub(&MessageSignals::signalOperPatrolPresetReq, condition);
}

void oper_patrol_req(const PatrolOperCondition& condition)
{
    emitOnHub(&MessageSignals::signalOperPatrolReq, condition);
}

void oper_preset_req(const PresetOperCondition& condition)
{
    emitOnHub(&MessageSignals::signalOperPresetReq, condition);
}

void playback_ctrl_req(StreamId streamId, PlaybackCtrl ctrl)
{
    emitOnHub(&MessageSignals::signalPlaybackCtrlReq, streamId, ctrl);
}

void playback_speed_set_req(StreamId streamId, const QString& speed)
{
    emitOnHub(&MessageSignals::signalPlaybackSpeedSetReq, streamId, speed);
}

void PTZ_3d_locate_cmd(const PTZ3dLocateCondition& condition)
{
    emitOnHub(&MessageSignals::signalPTZ3dLocateCmd, condition);
}

void PTZ_auto_move_req(const PTZAutoMoveCondition& condition)
{
    emitOnHub(&MessageSignals::signalPTZAutoMoveReq, condition);
}

void PTZ_ctrl_req(const PTZCtrlCondition& condition)
{
    emitOnHub(&MessageSignals::signalPTZCtrlReq, condition);
}

void reboot_devs_cmd(const QStringList& devsId)
{
    emitOnHub(&MessageSignals::signalRebootDevsCmd, devsId);
}

void reconnect_devs_cmd(const QStringList& devsId)
{
    emitOnHub(&MessageSignals::signalReconnectDevsCmd, devsId);
}

void reset_dev_pwd_cmd(const ResetDevPwdCondition& condition)
{
    emitOnHub(&MessageSignals::signalResetDevPwdCmd, condition);
}

void restore_factory_cmd(const QStringList& devsId, bool keepNetConfig)
{
    emitOnHub(&MessageSignals::signalRestoreFactoryCmd, devsId, keepNetConfig);
}

void saas_logout_cmd()
{
    emitOnHub(&MessageSignals::signalSaasLogoutCmd);
}

void search_devs_cmd()
{
    emitOnHub(&MessageSignals::signalSearchDevsCmd);
}

void search_video_recordings_req(const RecsSearchCondition& condition)
{
    emitOnHub(&MessageSignals::signalSearchVideoRecordingsReq, condition);
}

void set_chann_image_adjust_settings_req(const QString& requestId, const ChannelId& channelId,
                                         const ImageAdjustSettingInfo& info)
{
    emitOnHub(&MessageSignals::signalSetChannImageAdjustSettingsReq, requestId, channelId, info);
}

void set_chann_image_settings_cmd(const ChannelId& channelId, const ImageSettingInfo& info)
{
    emitOnHub(&MessageSignals::signalSetChannImageSettingsCmd, channelId, info);
}

void set_dev_net_req(const SetDevNetCondition& condition)
{
    emitOnHub(&MessageSignals::signalSetDevNetReq, condition);
}

void set_dev_platform_req(const SetDevPlatformCondition& condition)
{
    emitOnHub(&MessageSignals::signalSetDevPlatformReq, condition);
}

void set_dev_sys_cfg_cmd(const QString& devId, const DevSysCfgInfo& info)
{
    emitOnHub(&MessageSignals::signalSetDevSysCfgCmd, devId, info);
}

void set_devs_time_cmd(const QStringList& devsId, const QString& time)
{
    emitOnHub(&MessageSignals::signalSetDevsTimeCmd, devsId, time);
}

void set_dome_track_guard_initial_pos_req(const ChannelCondition& condition)
{
    emitOnHub(&MessageSignals::signalSetDomeTrackGuardInitialPosReq, condition);
}

void set_managed_devs_cmd(const QList<DevInfo>& devs)
{
    emitOnHub(&MessageSignals::signalSetManagedDevsCmd, devs);
}

void set_osd_req(const SetOSDCondition& condition)
{
    emitOnHub(&MessageSignals::signalSetOSDReq, condition);
}

void set_patrol_presets_req(const SetPatrolPresetsCondition& condition)
{
    emitOnHub(&MessageSignals::signalSetPatrolPresetsReq, condition);
}

void set_saas_token_cmd(const QString& token)
{
    emitOnHub(&MessageSignals::signalSetSaasTokenCmd, token);
}

void set_search_devs_config_cmd(const SearchDevsConfig& config)
{
    emitOnHub(&MessageSignals::signalSetSearchDevsConfigCmd, config);
}

void skip_by_appointed_time_req(StreamId streamId, const QDateTime& appointedTime)
{
    emitOnHub(&MessageSignals::signalSkipByAppointedTimeReq, streamId, appointedTime);
}

void skip_by_offset_time_req(StreamId streamId, unsigned int offsetTime)
{
    emitOnHub(&MessageSignals::signalSkipByOffsetTimeReq, streamId, offsetTime);
}

void speak_oper_req(const SpeakOperCondition& condition)
{
    emitOnHub(&MessageSignals::signalSpeakOperReq, condition);
}

void talk_oper_req(const TalkOperCondition& condition)
{
    emitOnHub(&MessageSignals::signalTalkOperReq, condition);
}

void trigger_alarm_link_req(const TriggerAlarmLinkCondition& condition)
{
    emitOnHub(&MessageSignals::signalTriggerAlarmLinkReq, condition);
}

void upload_file_req(const UploadFileCondition& condition)
{
    emitOnHub(&MessageSignals::signalUploadFileReq, condition);
}

void get_dev_platform_kvr_req(const QString& requestId, const QString& devId)
{
    emitOnHub(&MessageSignals::signalGetDevPlatform_kvrReq, requestId, devId);
}

void set_dev_platform_kvr_req(const SetDevPlatform_kvrCondition& condition)
{
    emitOnHub(&MessageSignals::signalSetDevPlatform_kvrReq, condition);
}

} // namespace vms_sdk
