// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// Every request function of the public interface and the ClientSignals signal its request
// ends on when the gateway answers it: one row per way a request travels (a function that
// takes two paths, by its condition, has a row per path). A request ends on exactly one
// signal: this one, signalCommonRequestFailed when the answer cannot be read, or
// signalRequestTimeout when none comes.
//
// Left out: the stream functions (their answers are stream events), upload_file_req and
// download_file_req (they end in a series of transfer progress pushes) and
// open_dev_remote_config_req (it carries no request id).

#include <vms_sdk/vms_client_sdk.h>

#include <QList>
#include <QMetaMethod>
#include <QString>

namespace vms_test {

struct RequestAnswer
{
    const char* function;
    // Makes the request with the given id, on the channel (or its device).
    void (*call)(const QString& requestId, const vms_sdk::ChannelId& channel);
    QMetaMethod endsOn;
};

template<auto Signal>
QMetaMethod endsOn()
{
    return QMetaMethod::fromSignal(Signal);
}

// The face library and face group requests that go to a device application name it.
inline const QString FaceApp = QStringLiteral("face_app");

inline QList<RequestAnswer> requestAnswerMap()
{
    using namespace vms_sdk;
    using S = ClientSignals;
    using Id = const QString&;
    using Ch = const ChannelId&;
    // clang-format off
    return {
        {"add_bullet_tag_point_req", [](Id id, Ch ch) { add_bullet_tag_point_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalAddBulletTagPointRes>()},
        {"add_face_groups_req", [](Id id, Ch ch) { add_face_groups_req({.requestId = id, .channelId = ch, .package = FaceApp}); }, endsOn<&S::signalAddFaceGroupsRes>()},
        {"add_face_req", [](Id id, Ch ch) { add_face_req({.requestId = id, .channelId = ch, .name = "Ann"}); }, endsOn<&S::signalAddFaceRes>()},
        {"add_face_req (application)", [](Id id, Ch ch) { add_face_req({.requestId = id, .channelId = ch, .name = "Ann", .package = FaceApp}); }, endsOn<&S::signalAddFaceRes>()},
        {"calibrate_bullet_dome_req", [](Id id, Ch ch) { calibrate_bullet_dome_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalCalibrateBulletDomeRes>()},
        {"cancel_alarm_req", [](Id id, Ch ch) { cancel_alarm_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalCancelAlarmRes>()},
        {"check_dev_upgrade_req", [](Id id, Ch ch) { check_dev_upgrade_req({.requestId = id, .devId = ch.devId}); }, endsOn<&S::signalCheckDevUpgradeRes>()},
        {"clear_bullet_tag_points_req", [](Id id, Ch ch) { clear_bullet_tag_points_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalClearBulletTagPointsRes>()},
        {"common_req", [](Id id, Ch ch) { common_req(id, ch.devId, QStringLiteral(R"({"method": "dev_get_qrcode"})")); }, endsOn<&S::signalCommonRes>()},
        {"ctrl_parking_lock_req", [](Id id, Ch ch) { ctrl_parking_lock_req({.requestId = id, .channelId = ch, .package = FaceApp}); }, endsOn<&S::signalCtrlParkingLockRes>()},
        {"del_face_req", [](Id id, Ch ch) { del_face_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalDelFaceRes>()},
        {"del_faces_req", [](Id id, Ch ch) { del_faces_req({.requestId = id, .channelId = ch, .package = FaceApp}); }, endsOn<&S::signalDelFaceRes>()},
        {"delete_face_groups_req", [](Id id, Ch ch) { delete_face_groups_req({.requestId = id, .channelId = ch, .package = FaceApp}); }, endsOn<&S::signalDeleteFaceGroupsRes>()},
        {"edit_face_groups_req", [](Id id, Ch ch) { edit_face_groups_req({.requestId = id, .channelId = ch, .package = FaceApp}); }, endsOn<&S::signalEditFaceGroupsRes>()},
        {"edit_face_req", [](Id id, Ch ch) { edit_face_req({.requestId = id, .channelId = ch, .package = FaceApp}); }, endsOn<&S::signalEditFaceRes>()},
        {"export_face_library_progress_req", [](Id id, Ch ch) { export_face_library_progress_req({.requestId = id, .channelId = ch, .package = FaceApp}); }, endsOn<&S::signalExportFaceLibraryProgressRes>()},
        {"export_face_library_req", [](Id id, Ch ch) { export_face_library_req({.requestId = id, .channelId = ch, .package = FaceApp}); }, endsOn<&S::signalExportFaceLibraryRes>()},
        {"format_dev_disk_req", [](Id id, Ch ch) { format_dev_disk_req({.requestId = id, .devId = ch.devId}); }, endsOn<&S::signalFormatDevDiskRes>()},
        {"get_alarm_records_req", [](Id id, Ch ch) { get_alarm_records_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetAlarmRecordsRes>()},
        {"get_all_face_groups_req", [](Id id, Ch ch) { get_all_face_groups_req({.requestId = id, .channelId = ch, .package = FaceApp}); }, endsOn<&S::signalGetAllFaceGroupsRes>()},
        {"get_bullet_dome_calibrate_status_req", [](Id id, Ch ch) { get_bullet_dome_calibrate_status_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetBulletDomeCalibrateStatusRes>()},
        {"get_bullet_tag_points_req", [](Id id, Ch ch) { get_bullet_tag_points_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetBulletTagPointsRes>()},
        {"get_chann_image_ability_req", [](Id id, Ch ch) { get_chann_image_ability_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetChannImageAbilityRes>()},
        {"get_chann_image_adjust_settings_req", [](Id id, Ch ch) { get_chann_image_adjust_settings_req(id, ch); }, endsOn<&S::signalGetChannImageAdjustSettingsRes>()},
        // The library reads no answer of this method (yet): it ends as not supported.
        {"get_chann_image_settings_req", [](Id id, Ch ch) { get_chann_image_settings_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalCommonRequestFailed>()},
        {"get_customer_group_req", [](Id id, Ch ch) { get_customer_group_req({.requestId = id, .channelId = ch, .package = FaceApp}); }, endsOn<&S::signalGetCustomerGroupRes>()},
        {"get_customers_count_req", [](Id id, Ch ch) { get_customers_count_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetCustomersCountRes>()},
        {"get_customers_heat_map_req", [](Id id, Ch ch) { get_customers_heat_map_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetCustomersHeatMapRes>()},
        {"get_customers_region_attention_req", [](Id id, Ch ch) { get_customers_region_attention_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetCustomersRegionAttentionRes>()},
        {"get_customers_regions_req", [](Id id, Ch ch) { get_customers_regions_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetCustomersRegionsRes>()},
        {"get_dev_disk_formatting_progress_req", [](Id id, Ch ch) { get_dev_disk_formatting_progress_req({.requestId = id, .devId = ch.devId}); }, endsOn<&S::signalGetDevDiskFormattingProgressRes>()},
        {"get_dev_disks_info_req", [](Id id, Ch ch) { get_dev_disks_info_req({.requestId = id, .devId = ch.devId}); }, endsOn<&S::signalGetDevDisksInfoRes>()},
        {"get_dev_logs_req", [](Id id, Ch ch) { get_dev_logs_req(id, ch.devId, QDate(2024, 3, 1)); }, endsOn<&S::signalGetDevLogsRes>()},
        {"get_dev_net_mode_req", [](Id id, Ch ch) { get_dev_net_mode_req({.requestId = id, .devId = ch.devId}); }, endsOn<&S::signalGetDevNetModeRes>()},
        {"get_dev_net_req", [](Id id, Ch ch) { get_dev_net_req({.requestId = id, .devId = ch.devId}); }, endsOn<&S::signalGetDevNetRes>()},
        {"get_dev_platform_req", [](Id id, Ch ch) { get_dev_platform_req({.requestId = id, .devId = ch.devId}); }, endsOn<&S::signalGetDevPlatformRes>()},
        {"get_dev_qrcode_req", [](Id id, Ch ch) { get_dev_qrcode_req({.requestId = id, .devId = ch.devId}); }, endsOn<&S::signalGetDevQRCodeRes>()},
        // As get_chann_image_settings_req.
        {"get_dev_sys_cfg_req", [](Id id, Ch ch) { get_dev_sys_cfg_req(id, ch.devId); }, endsOn<&S::signalCommonRequestFailed>()},
        {"get_dev_upgrade_progress_req", [](Id id, Ch ch) { get_dev_upgrade_progress_req(id, ch.devId); }, endsOn<&S::signalGetDevUpgradeProgressRes>()},
        {"get_event_records_req", [](Id id, Ch ch) { get_event_records_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetEventRecordsRes>()},
        {"get_face_detect_records_req", [](Id id, Ch ch) { get_face_detect_records_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetFaceDetectRecordsRes>()},
        {"get_face_rec_records_req", [](Id id, Ch ch) { get_face_rec_records_req({.requestId = id, .channelId = ch, .package = FaceApp}); }, endsOn<&S::signalGetFaceRecRecordsRes>()},
        {"get_face_rec_records_req (captures)", [](Id id, Ch ch) { get_face_rec_records_req({.requestId = id, .channelId = ch, .package = FaceApp, .captureRecords = true}); }, endsOn<&S::signalGetFaceRecRecordsRes>()},
        {"get_faces_modeling_status_req", [](Id id, Ch ch) { get_faces_modeling_status_req({.requestId = id, .channelId = ch, .package = FaceApp}); }, endsOn<&S::signalGetFacesModelingStatusRes>()},
        {"get_faces_req", [](Id id, Ch ch) { get_faces_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetFacesRes>()},
        {"get_faces_req (application)", [](Id id, Ch ch) { get_faces_req({.requestId = id, .channelId = ch, .package = FaceApp}); }, endsOn<&S::signalGetFacesRes>()},
        {"get_license_plate_rec_records_req", [](Id id, Ch ch) { get_license_plate_rec_records_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetLicensePlateRecRecordsRes>()},
        {"get_parking_lock_status_req", [](Id id, Ch ch) { get_parking_lock_status_req({.requestId = id, .channelId = ch, .package = FaceApp}); }, endsOn<&S::signalGetParkingLockStatusRes>()},
        {"get_patrols_req", [](Id id, Ch ch) { get_patrols_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetPatrolsRes>()},
        {"get_presets_req", [](Id id, Ch ch) { get_presets_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetPresetsRes>()},
        {"get_ptz_ability_req", [](Id id, Ch ch) { get_ptz_ability_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetPTZAbilityRes>()},
        {"get_region_temperature_records_req", [](Id id, Ch ch) { get_region_temperature_records_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetRegionTemperatureRecordsRes>()},
        {"get_rtsp_url_req", [](Id id, Ch ch) { get_rtsp_url_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetRtspUrlRes>()},
        {"get_snap_image_req", [](Id id, Ch ch) { get_snap_image_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetSnapImageRes>()},
        {"get_triggered_events_req", [](Id id, Ch ch) { get_triggered_events_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalGetTriggeredEventsRes>()},
        {"get_video_recordings_calendar_mask_req", [](Id id, Ch ch) { get_video_recordings_calendar_mask_req({.requestId = id, .channelId = ch, .startDate = QDate(2024, 3, 1), .endDate = QDate(2024, 3, 31)}); }, endsOn<&S::signalGetVideoRecordingsCalendarMaskRes>()},
        {"import_dev_cert_req", [](Id id, Ch ch) { import_dev_cert_req({.requestId = id, .devId = ch.devId}); }, endsOn<&S::signalImportDevCertRes>()},
        {"import_face_library_progress_req", [](Id id, Ch ch) { import_face_library_progress_req({.requestId = id, .channelId = ch, .package = FaceApp}); }, endsOn<&S::signalImportFaceLibraryProgressRes>()},
        {"import_face_library_req", [](Id id, Ch ch) { import_face_library_req({.requestId = id, .channelId = ch, .package = FaceApp}); }, endsOn<&S::signalImportFaceLibraryRes>()},
        {"modify_dev_account_req", [](Id id, Ch ch) { modify_dev_account_req({.requestId = id, .devId = ch.devId}); }, endsOn<&S::signalModifyDevAccountRes>()},
        {"modify_dev_name_req", [](Id id, Ch ch) { modify_dev_name_req({.requestId = id, .devId = ch.devId, .devName = "hall"}); }, endsOn<&S::signalDevConfigRes>()},
        {"oper_patrol_preset_req", [](Id id, Ch ch) { oper_patrol_preset_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalOperPatrolPresetRes>()},
        {"oper_patrol_req", [](Id id, Ch ch) { oper_patrol_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalOperPatrolRes>()},
        {"oper_preset_req", [](Id id, Ch ch) { oper_preset_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalOperPresetsRes>()},
        {"PTZ_auto_move_req", [](Id id, Ch ch) { PTZ_auto_move_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalPTZAutoMoveRes>()},
        {"PTZ_ctrl_req", [](Id id, Ch ch) { PTZ_ctrl_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalPTZCtrlRes>()},
        {"search_video_recordings_req", [](Id id, Ch ch) { search_video_recordings_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalSearchVideoRecordingsRes>()},
        {"set_chann_image_adjust_settings_req", [](Id id, Ch ch) { set_chann_image_adjust_settings_req(id, ch, {}); }, endsOn<&S::signalSetChannImageAdjustSettingsRes>()},
        {"set_dev_net_req", [](Id id, Ch ch) { set_dev_net_req({.requestId = id, .devId = ch.devId}); }, endsOn<&S::signalSetDevNetRes>()},
        {"set_dev_platform_req", [](Id id, Ch ch) { set_dev_platform_req({.requestId = id, .devId = ch.devId}); }, endsOn<&S::signalSetDevPlatformRes>()},
        {"set_dome_track_guard_initial_pos_req", [](Id id, Ch ch) { set_dome_track_guard_initial_pos_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalSetDomeTrackGuardInitialPosRes>()},
        {"set_osd_req", [](Id id, Ch ch) { set_osd_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalDevConfigRes>()},
        {"set_patrol_presets_req", [](Id id, Ch ch) { set_patrol_presets_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalSetPatrolPresetsRes>()},
        {"speak_oper_req", [](Id id, Ch ch) { speak_oper_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalSpeakOperRes>()},
        {"talk_oper_req", [](Id id, Ch ch) { talk_oper_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalTalkOperRes>()},
        {"trigger_alarm_link_req", [](Id id, Ch ch) { trigger_alarm_link_req({.requestId = id, .channelId = ch}); }, endsOn<&S::signalTriggerAlarmLinkRes>()},
        {"get_dev_platform_kvr_req", [](Id id, Ch ch) { get_dev_platform_kvr_req(id, ch.devId); }, endsOn<&S::signalGetDevPlatform_kvrRes>()},
        {"set_dev_platform_kvr_req", [](Id id, Ch ch) { set_dev_platform_kvr_req({.requestId = id, .devId = ch.devId}); }, endsOn<&S::signalSetDevPlatform_kvrRes>()},
    };
    // clang-format on
}

} // namespace vms_test
