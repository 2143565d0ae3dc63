// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_VMS_CLIENT_SDK_H
#define VMS_SDK_VMS_CLIENT_SDK_H

// The library's whole public interface. Every function returns at once; answers, failures
// and events arrive as signals of vms_sdk::ClientSignals.

#include "alarm_records.h"
#include "analytics_records.h"
#include "client_actions.h"
#include "client_signals.h"
#include "common_records.h"
#include "config_records.h"
#include "device_records.h"
#include "face_records.h"
#include "media_records.h"
#include "network_records.h"
#include "ptz_records.h"
#include "vms_sdk_global.h"
#include "vms_types.h"

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace vms_sdk {

// Opens the log and builds the library's objects on the calling thread, which must run a Qt
// event loop and is the thread every other function is meant to be called on. A second call
// does nothing.
VMS_CLIENT_SDK_EXPORT void init_vms_client_sdk();

// Writes the last log line, closes the log and tells every gateway to exit.
VMS_CLIENT_SDK_EXPORT void release_vms_client_sdk();

// Gateways.

// Starts one gateway program (dgwPath) per hundred expected devices, at most 32, and
// initialises each with `condition`; signalPrepareStartDgwSuccess once all are ready.
VMS_CLIENT_SDK_EXPORT void prepare_start_dgw_req(const InitDgwCondition& condition,
                                                 const QString& dgwPath, int devsCnt);

// Streams. Each returns the new stream's id at once; its data and events arrive as
// ClientSignals::signalStreamData and signalStreamEventPush for that id.
VMS_CLIENT_SDK_EXPORT StreamId connect_live_video_req(const LiveVideoConnCondition& condition);
VMS_CLIENT_SDK_EXPORT StreamId playback_by_file_req(const PlaybackByFileCondition& condition);
VMS_CLIENT_SDK_EXPORT StreamId playback_by_time_req(const PlaybackByTimeCondition& condition);
// The same as playback_speed_set_req.
VMS_CLIENT_SDK_EXPORT void download_speed_set_req(StreamId streamId, const QString& speed);

// Requests (_req: answered by a ClientSignals signal, or signalRequestTimeout) and commands
// (_cmd: no answer). request_catalogue.h lists every _req function beside the signal that
// answers it; pending_request.h makes any of them awaitable. Each returns at once. Managed devices
// are spread over the gateways, a hundred per gateway in list order; set_devs_time_cmd takes
// "yyyy-MM-dd hh:mm:ss"; the service token is kept and handed to every gateway, also to gateways
// started later.
VMS_CLIENT_SDK_EXPORT void activate_devs_cmd(const ActivateCondition& condition);
VMS_CLIENT_SDK_EXPORT void add_bullet_tag_point_req(const AddBulletTagPointCondition& condition);
VMS_CLIENT_SDK_EXPORT void add_face_groups_req(const AddFaceGroupsCondition& condition);
VMS_CLIENT_SDK_EXPORT void add_face_req(const ModifyFaceCondition& condition);
VMS_CLIENT_SDK_EXPORT void add_managed_devs_cmd(const QList<DevInfo>& devs);
VMS_CLIENT_SDK_EXPORT void broadcast_search_devs_cmd();
VMS_CLIENT_SDK_EXPORT void calibrate_bullet_dome_req(const CalibrateBulletDomeCondition& condition);
VMS_CLIENT_SDK_EXPORT void cancel_alarm_req(const CancelAlarmCondition& condition);
VMS_CLIENT_SDK_EXPORT void check_dev_upgrade_req(const DevUpgradeCondtition& condition);
VMS_CLIENT_SDK_EXPORT void clear_bullet_tag_points_req(const ChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void clear_face_temperature_count_cmd(const QString& devId);
VMS_CLIENT_SDK_EXPORT void common_req(const QString& requestId, const QString& devId,
                                      const QString& reqJson);
VMS_CLIENT_SDK_EXPORT void ctrl_parking_lock_req(const CtrlParkingLockCondition& condition);
VMS_CLIENT_SDK_EXPORT void del_face_req(const DelFaceCondition& condition);
VMS_CLIENT_SDK_EXPORT void del_faces_req(const DelFacesCondition& condition);
VMS_CLIENT_SDK_EXPORT void del_managed_devs_cmd(const QStringList& devsId);
VMS_CLIENT_SDK_EXPORT void delete_face_groups_req(const DeleteFaceGroupsCondition& condition);
VMS_CLIENT_SDK_EXPORT void disconnect_stream_req(StreamId streamId);
VMS_CLIENT_SDK_EXPORT void do_dev_upgrade_cmd(const DevUpgradeCondtition& condition);
VMS_CLIENT_SDK_EXPORT void download_file_req(const DownloadFileCondition& condition);
VMS_CLIENT_SDK_EXPORT void edit_face_groups_req(const EditFaceGroupsCondition& condition);
VMS_CLIENT_SDK_EXPORT void edit_face_req(const ModifyFaceCondition& condition);
VMS_CLIENT_SDK_EXPORT void edit_managed_devs_cmd(const QList<DevInfo>& devs);
VMS_CLIENT_SDK_EXPORT void export_face_library_progress_req(const AiChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void export_face_library_req(const AiChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void format_dev_disk_req(const FormatDiskCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_alarm_records_req(const GetAlarmRecordsCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_all_face_groups_req(const AiChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_bullet_dome_calibrate_status_req(const ChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_bullet_tag_points_req(const ChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_chann_image_ability_req(const ChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_chann_image_adjust_settings_req(const QString& requestId,
                                                               const ChannelId& channelId);
VMS_CLIENT_SDK_EXPORT void get_chann_image_settings_req(const ChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_customer_group_req(const GetCustomerGroupCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_customers_count_req(const GetCustomersCntCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_customers_heat_map_req(const GetCutomersHeatMapCondition& condition);
VMS_CLIENT_SDK_EXPORT void
get_customers_region_attention_req(const GetCustomersRegionAttentionCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_customers_regions_req(const ChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_dev_channels_info_cmd(const QString& devId);
VMS_CLIENT_SDK_EXPORT void
get_dev_disk_formatting_progress_req(const FormatDiskCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_dev_disks_info_req(const DeviceCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_dev_logs_req(const QString& requestId, const QString& devId,
                                            const QDate& date);
VMS_CLIENT_SDK_EXPORT void get_dev_net_mode_req(const DeviceCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_dev_net_req(const DeviceCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_dev_platform_req(const GetDevPlatformCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_dev_qrcode_req(const DeviceCondition& condition);
VMS_CLIENT_SDK_EXPORT void
get_dev_secret_questions_cmd(const GetDevSecretQuestionsCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_dev_sys_cfg_req(const QString& requestId, const QString& devId);
VMS_CLIENT_SDK_EXPORT void get_dev_upgrade_progress_req(const QString& requestId,
                                                        const QString& devId);
VMS_CLIENT_SDK_EXPORT void get_event_records_req(const GetEventRecordsCondition& condition);
VMS_CLIENT_SDK_EXPORT void
get_face_detect_records_req(const GetFaceDetectRecordsCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_face_rec_records_req(const GetFaceRecRecordsCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_faces_modeling_status_req(const AiChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_faces_req(const GetFacesCondition& condition);
VMS_CLIENT_SDK_EXPORT void
get_license_plate_rec_records_req(const GetLicensePlateRecRecordsCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_parking_lock_status_req(const AiChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_patrols_req(const ChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_presets_req(const ChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_ptz_ability_req(const ChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void
get_region_temperature_records_req(const GetRegionTemperatureRecordsCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_rtsp_url_req(const GetRtspUrlCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_snap_image_req(const GetSnapImageCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_triggered_events_req(const GetTriggeredEventsCondition& condition);
VMS_CLIENT_SDK_EXPORT void
get_video_recordings_calendar_mask_req(const GetCalendarMaskCondition& condition);
VMS_CLIENT_SDK_EXPORT void import_dev_cert_req(const ImportDevCertCondition& condition);
VMS_CLIENT_SDK_EXPORT void import_face_library_progress_req(const AiChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void import_face_library_req(const AiChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void manual_bullet_dome_track_cmd(const ManualTrackCondition& condition);
VMS_CLIENT_SDK_EXPORT void modify_dev_account_req(const ModifyDevAccountCondition& condition);
VMS_CLIENT_SDK_EXPORT void modify_dev_name_req(const ModifyDevNameCondition& condition);
VMS_CLIENT_SDK_EXPORT void open_dev_remote_config_req(const QString& devId, int language);
VMS_CLIENT_SDK_EXPORT void oper_patrol_preset_req(const PatrolPresetOperCondition& condition);
VMS_CLIENT_SDK_EXPORT void oper_patrol_req(const PatrolOperCondition& condition);
VMS_CLIENT_SDK_EXPORT void oper_preset_req(const PresetOperCondition& condition);
VMS_CLIENT_SDK_EXPORT void playback_ctrl_req(StreamId streamId, PlaybackCtrl ctrl);
VMS_CLIENT_SDK_EXPORT void playback_speed_set_req(StreamId streamId, const QString& speed);
VMS_CLIENT_SDK_EXPORT void PTZ_3d_locate_cmd(const PTZ3dLocateCondition& condition);
VMS_CLIENT_SDK_EXPORT void PTZ_auto_move_req(const PTZAutoMoveCondition& condition);
VMS_CLIENT_SDK_EXPORT void PTZ_ctrl_req(const PTZCtrlCondition& condition);
VMS_CLIENT_SDK_EXPORT void reboot_devs_cmd(const QStringList& devsId);
VMS_CLIENT_SDK_EXPORT void reconnect_devs_cmd(const QStringList& devsId);
VMS_CLIENT_SDK_EXPORT void reset_dev_pwd_cmd(const ResetDevPwdCondition& condition);
VMS_CLIENT_SDK_EXPORT void restore_factory_cmd(const QStringList& devsId, bool keepNetConfig);
VMS_CLIENT_SDK_EXPORT void saas_logout_cmd();
VMS_CLIENT_SDK_EXPORT void search_devs_cmd();
VMS_CLIENT_SDK_EXPORT void search_video_recordings_req(const RecsSearchCondition& condition);
VMS_CLIENT_SDK_EXPORT void set_chann_image_adjust_settings_req(const QString& requestId,
                                                               const ChannelId& channelId,
                                                               const ImageAdjustSettingInfo& info);
VMS_CLIENT_SDK_EXPORT void set_chann_image_settings_cmd(const ChannelId& channelId,
                                                        const ImageSettingInfo& info);
VMS_CLIENT_SDK_EXPORT void set_dev_net_req(const SetDevNetCondition& condition);
VMS_CLIENT_SDK_EXPORT void set_dev_platform_req(const SetDevPlatformCondition& condition);
VMS_CLIENT_SDK_EXPORT void set_dev_sys_cfg_cmd(const QString& devId, const DevSysCfgInfo& info);
VMS_CLIENT_SDK_EXPORT void set_devs_time_cmd(const QStringList& devsId, const QString& time);
VMS_CLIENT_SDK_EXPORT void set_dome_track_guard_initial_pos_req(const ChannelCondition& condition);
VMS_CLIENT_SDK_EXPORT void set_managed_devs_cmd(const QList<DevInfo>& devs);
VMS_CLIENT_SDK_EXPORT void set_osd_req(const SetOSDCondition& condition);
VMS_CLIENT_SDK_EXPORT void set_patrol_presets_req(const SetPatrolPresetsCondition& condition);
VMS_CLIENT_SDK_EXPORT void set_saas_token_cmd(const QString& token);
VMS_CLIENT_SDK_EXPORT void set_search_devs_config_cmd(const SearchDevsConfig& config);
VMS_CLIENT_SDK_EXPORT void skip_by_appointed_time_req(StreamId streamId,
                                                      const QDateTime& appointedTime);
VMS_CLIENT_SDK_EXPORT void skip_by_offset_time_req(StreamId streamId, unsigned int offsetTime);
VMS_CLIENT_SDK_EXPORT void speak_oper_req(const SpeakOperCondition& condition);
VMS_CLIENT_SDK_EXPORT void talk_oper_req(const TalkOperCondition& condition);
VMS_CLIENT_SDK_EXPORT void trigger_alarm_link_req(const TriggerAlarmLinkCondition& condition);
VMS_CLIENT_SDK_EXPORT void upload_file_req(const UploadFileCondition& condition);
VMS_CLIENT_SDK_EXPORT void get_dev_platform_kvr_req(const QString& requestId, const QString& devId);
VMS_CLIENT_SDK_EXPORT void set_dev_platform_kvr_req(const SetDevPlatform_kvrCondition& condition);

// Request values: one value per request id, which the application attaches to a request and
// gets back with its time-out (ClientSignals::signalRequestTimeout), or reads itself when the
// answer comes. A value stays until it is read with remove = true, removed, cleared, or
// handed over by a time-out. These five may be called from any thread.

// Attaches a value to a request id, replacing one attached before.
VMS_CLIENT_SDK_EXPORT void add_request_value(const QString& requestId, const QVariant& value);
// The value attached to a request id, or an invalid QVariant; remove = true also detaches it.
VMS_CLIENT_SDK_EXPORT QVariant get_request_value(const QString& requestId, bool remove);
VMS_CLIENT_SDK_EXPORT void remove_request_value(const QString& requestId);
VMS_CLIENT_SDK_EXPORT void remove_all_request_values();
// Gives an outstanding request a full new time-out from now, for answers known to take long.
// An id that is not outstanding is ignored.
VMS_CLIENT_SDK_EXPORT void renewal_request_id(const QString& requestId);

} // namespace vms_sdk

// Awaitable requests and the request catalogue, which names the signal that answers each
// request function above.
#include "pending_request.h"

#endif // VMS_SDK_VMS_CLIENT_SDK_H
