// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_REQUEST_CATALOGUE_H
#define VMS_SDK_REQUEST_CATALOGUE_H

// Every request function of vms_client_sdk.h beside the ClientSignals signal that answers it:
// X(function, answering signal, plain parameter names). The runtime catalogue
// (vms_sdk::request_catalogue(), send_request) and the typed layer (vms_sdk::send,
// vms_sdk::answer) are both generated from these two lists, so a request is in both or in
// neither.
//
// The third column is empty for a function that takes one condition record: its parameters
// are the record's properties. Otherwise it names the function's arguments in order.
//
// How an answer finds its request: a Response first argument, or a first argument that is
// the request id as text, carries the id. Besides its answer, a request whose id the library
// registers also ends on ClientSignals::signalCommonRequestFailed or signalRequestTimeout.
//
// - prepare_start_dgw_req ends on the next signalPrepareStartDgwSuccess (it carries no id).
// - The stream functions end on the first signalStreamData of the stream they open, their
//   request id being the stream id; a signalStreamEventPush of that stream before it (the
//   stream did not connect, or ended at once) ends them as failed.
// - upload_file_req and download_file_req end on the first signalPushFileTransferProgress of
//   their id whose status is no longer 0 (running): the last one of the transfer.
// - get_chann_image_settings_req and get_dev_sys_cfg_req: the library does not read their
//   answers yet, so they end on signalCommonRequestFailed (not supported).
// clang-format off
#define VMS_SDK_ANSWERED_REQUESTS(X) \
    X(prepare_start_dgw_req, signalPrepareStartDgwSuccess, "condition,dgwPath,devsCnt") \
    X(connect_live_video_req, signalStreamData, "") \
    X(playback_by_file_req, signalStreamData, "") \
    X(playback_by_time_req, signalStreamData, "") \
    X(download_file_req, signalPushFileTransferProgress, "") \
    X(get_chann_image_settings_req, signalCommonRequestFailed, "") \
    X(get_dev_sys_cfg_req, signalCommonRequestFailed, "requestId,devId") \
    X(upload_file_req, signalPushFileTransferProgress, "") \
    X(add_bullet_tag_point_req, signalAddBulletTagPointRes, "") \
    X(add_face_groups_req, signalAddFaceGroupsRes, "") \
    X(add_face_req, signalAddFaceRes, "") \
    X(calibrate_bullet_dome_req, signalCalibrateBulletDomeRes, "") \
    X(cancel_alarm_req, signalCancelAlarmRes, "") \
    X(check_dev_upgrade_req, signalCheckDevUpgradeRes, "") \
    X(clear_bullet_tag_points_req, signalClearBulletTagPointsRes, "") \
    X(common_req, signalCommonRes, "requestId,devId,reqJson") \
    X(ctrl_parking_lock_req, signalCtrlParkingLockRes, "") \
    X(del_face_req, signalDelFaceRes, "") \
    X(del_faces_req, signalDelFaceRes, "") \
    X(delete_face_groups_req, signalDeleteFaceGroupsRes, "") \
    X(edit_face_groups_req, signalEditFaceGroupsRes, "") \
    X(edit_face_req, signalEditFaceRes, "") \
    X(export_face_library_progress_req, signalExportFaceLibraryProgressRes, "") \
    X(export_face_library_req, signalExportFaceLibraryRes, "") \
    X(format_dev_disk_req, signalFormatDevDiskRes, "") \
    X(get_alarm_records_req, signalGetAlarmRecordsRes, "") \
    X(get_all_face_groups_req, signalGetAllFaceGroupsRes, "") \
    X(get_bullet_dome_calibrate_status_req, signalGetBulletDomeCalibrateStatusRes, "") \
    X(get_bullet_tag_points_req, signalGetBulletTagPointsRes, "") \
    X(get_chann_image_ability_req, signalGetChannImageAbilityRes, "") \
    X(get_chann_image_adjust_settings_req, signalGetChannImageAdjustSettingsRes, "requestId,channelId") \
    X(get_customer_group_req, signalGetCustomerGroupRes, "") \
    X(get_customers_count_req, signalGetCustomersCountRes, "") \
    X(get_customers_heat_map_req, signalGetCustomersHeatMapRes, "") \
    X(get_customers_region_attention_req, signalGetCustomersRegionAttentionRes, "") \
    X(get_customers_regions_req, signalGetCustomersRegionsRes, "") \
    X(get_dev_disk_formatting_progress_req, signalGetDevDiskFormattingProgressRes, "") \
    X(get_dev_disks_info_req, signalGetDevDisksInfoRes, "") \
    X(get_dev_logs_req, signalGetDevLogsRes, "requestId,devId,date") \
    X(get_dev_net_mode_req, signalGetDevNetModeRes, "") \
    X(get_dev_net_req, signalGetDevNetRes, "") \
    X(get_dev_platform_req, signalGetDevPlatformRes, "") \
    X(get_dev_qrcode_req, signalGetDevQRCodeRes, "") \
    X(get_dev_upgrade_progress_req, signalGetDevUpgradeProgressRes, "requestId,devId") \
    X(get_event_records_req, signalGetEventRecordsRes, "") \
    X(get_face_detect_records_req, signalGetFaceDetectRecordsRes, "") \
    X(get_face_rec_records_req, signalGetFaceRecRecordsRes, "") \
    X(get_faces_modeling_status_req, signalGetFacesModelingStatusRes, "") \
    X(get_faces_req, signalGetFacesRes, "") \
    X(get_license_plate_rec_records_req, signalGetLicensePlateRecRecordsRes, "") \
    X(get_parking_lock_status_req, signalGetParkingLockStatusRes, "") \
    X(get_patrols_req, signalGetPatrolsRes, "") \
    X(get_presets_req, signalGetPresetsRes, "") \
    X(get_ptz_ability_req, signalGetPTZAbilityRes, "") \
    X(get_region_temperature_records_req, signalGetRegionTemperatureRecordsRes, "") \
    X(get_rtsp_url_req, signalGetRtspUrlRes, "") \
    X(get_snap_image_req, signalGetSnapImageRes, "") \
    X(get_triggered_events_req, signalGetTriggeredEventsRes, "") \
    X(get_video_recordings_calendar_mask_req, signalGetVideoRecordingsCalendarMaskRes, "") \
    X(import_dev_cert_req, signalImportDevCertRes, "") \
    X(import_face_library_progress_req, signalImportFaceLibraryProgressRes, "") \
    X(import_face_library_req, signalImportFaceLibraryRes, "") \
    X(modify_dev_account_req, signalModifyDevAccountRes, "") \
    X(modify_dev_name_req, signalDevConfigRes, "") \
    X(oper_patrol_preset_req, signalOperPatrolPresetRes, "") \
    X(oper_patrol_req, signalOperPatrolRes, "") \
    X(oper_preset_req, signalOperPresetsRes, "") \
    X(PTZ_auto_move_req, signalPTZAutoMoveRes, "") \
    X(PTZ_ctrl_req, signalPTZCtrlRes, "") \
    X(search_video_recordings_req, signalSearchVideoRecordingsRes, "") \
    X(set_chann_image_adjust_settings_req, signalSetChannImageAdjustSettingsRes, "requestId,channelId,info") \
    X(set_dev_net_req, signalSetDevNetRes, "") \
    X(set_dev_platform_req, signalSetDevPlatformRes, "") \
    X(set_dome_track_guard_initial_pos_req, signalSetDomeTrackGuardInitialPosRes, "") \
    X(set_osd_req, signalDevConfigRes, "") \
    X(set_patrol_presets_req, signalSetPatrolPresetsRes, "") \
    X(speak_oper_req, signalSpeakOperRes, "") \
    X(talk_oper_req, signalTalkOperRes, "") \
    X(trigger_alarm_link_req, signalTriggerAlarmLinkRes, "") \
    X(get_dev_platform_kvr_req, signalGetDevPlatform_kvrRes, "requestId,devId") \
    X(set_dev_platform_kvr_req, signalSetDevPlatform_kvrRes, "")

// Requests nothing answers: the stream controls act on a running stream, and the gateway
// opens the device's own configuration window without a reply (nor a request id).
#define VMS_SDK_UNANSWERED_REQUESTS(X) \
    X(download_speed_set_req, "streamId,speed") \
    X(disconnect_stream_req, "streamId") \
    X(open_dev_remote_config_req, "devId,language") \
    X(playback_ctrl_req, "streamId,ctrl") \
    X(playback_speed_set_req, "streamId,speed") \
    X(skip_by_appointed_time_req, "streamId,appointedTime") \
    X(skip_by_offset_time_req, "streamId,offsetTime")
// clang-format on

#endif // VMS_SDK_REQUEST_CATALOGUE_H
