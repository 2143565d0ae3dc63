// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Every request of the library, from its exported function (or, for the one without, its hub
// signal) to the message handed to the gateway manager: message type, payload, the device
// that picks the gateway, registration and log line.
#include "support/record_filler.h"
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_kit/vms_kit.h"
#include "vms_sdk/client/message_signals.h"
#include "vms_sdk/json_methods/common_req_worker.h"
#include "vms_sdk/request/condition_head.h"
#include "vms_sdk/request/conversions/device_conversions.h"
#include "vms_sdk/request/conversions/face_conversions.h"
#include "vms_sdk/request/conversions/media_conversions.h"
#include "vms_sdk/request/conversions/network_conversions.h"
#include "vms_sdk/request/conversions/ptz_conversions.h"
#include "vms_sdk/request/conversions/upgrade_conversions.h"
#include "vms_sdk/request/message_hamal.h"
#include "vms_sdk/request/request_data.h"
#include "vms_sdk/request/request_mgr.h"

#include "vms_message.pb.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace vms_sdk;

namespace {

struct SlotRow
{
    const char* name;
    std::function<void()> call;
    int type;
    QString requestId;
    bool registered;
    QString devId;
    const char* log;
    QByteArray payload;
};

using conversion::serialized;

template<class Wire, class Condition>
QByteArray payloadOf(const Condition& condition)
{
    Wire wire;
    conversion::fillWire(condition, wire);
    return serialized(wire);
}

QByteArray remoteConfig(const QString& devId, int language)
{
    vms_sdk_proto::OpenRemoteConfigReq request;
    request.set_dev_id(devId.toStdString());
    request.set_language(language);
    return serialized(request);
}

QList<SlotRow> slotRows()
{
    vms_test::RecordFiller fill;
    const CommonReqWorker worker(nullptr);
    QList<SlotRow> rows;
    {

        rows.append({"slotSearchDevsCmd", [=] { search_devs_cmd(); }, SearchDevsCmd, QString(),
                     false, QString(), nullptr, QByteArray()});
    }
    {
        const auto config = fill.make<vms_sdk::SearchDevsConfig>();
        rows.append({"slotSetSearchDevsConfigCmd", [=] { set_search_devs_config_cmd(config); },
                     SetSearchDevsConfigCmd, QString(), false, QString(),
                     "client cmd set searching devices configuration",
                     payloadOf<vms_sdk_proto::SetSearchDevsConfigCmd>(config)});
    }
    {

        rows.append({"slotBroadcastSearchDevsCmd", [=] { broadcast_search_devs_cmd(); },
                     BroadcastSearchDevsCmd, QString(), false, QString(),
                     "client cmd broadcast search devices", QByteArray()});
    }
    {
        const auto condition = fill.make<vms_sdk::ActivateCondition>();
        rows.append({"slotActivateDevsCmd", [=] { activate_devs_cmd(condition); }, DevActivateCmd,
                     QString(), false, devIdOf(condition), "client cmd activate devices",
                     payloadOf<vms_sdk_proto::DevActivateCmd>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::GetDevSecretQuestionsCondition>();
        rows.append({"slotGetDevSecretQuestionsCmd",
                     [=] { get_dev_secret_questions_cmd(condition); }, DevSecretQuestionsGetReq,
                     QString(), false, devIdOf(condition), "client cmd get device secret questions",
                     payloadOf<vms_sdk_proto::DevSecretQuestionsGetReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::ResetDevPwdCondition>();
        rows.append({"slotResetDevPwdCmd", [=] { reset_dev_pwd_cmd(condition); }, DevPwdResetReq,
                     QString(), false, devIdOf(condition), nullptr,
                     payloadOf<vms_sdk_proto::DevPwdResetReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::DeviceCondition>();
        rows.append({"slotGetDevNetReq", [=] { get_dev_net_req(condition); }, DevNetGetReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request get device net configuration",
                     payloadOf<vms_sdk_proto::DevNetGetReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::SetDevNetCondition>();
        rows.append({"slotSetDevNetReq", [=] { set_dev_net_req(condition); }, DevNetSetReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request set device net configuration",
                     payloadOf<vms_sdk_proto::DevNetSetReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::DeviceCondition>();
        rows.append({"slotGetDevNetModeReq", [=] { get_dev_net_mode_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request get device net mode",
                     serialized(worker.getDevNetMode(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::DeviceCondition>();
        rows.append({"slotGetDevDisksInfoReq", [=] { get_dev_disks_info_req(condition); },
                     CommonReq, condition.requestId, true, devIdOf(condition),
                     "client request get device disks information",
                     serialized(worker.getDevDisksInfo(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::FormatDiskCondition>();
        rows.append({"slotFormatDevDiskReq", [=] { format_dev_disk_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition), nullptr,
                     serialized(worker.formatDevDisk(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::FormatDiskCondition>();
        rows.append({"slotGetDevDiskFormattingProgressReq",
                     [=] { get_dev_disk_formatting_progress_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request get device disk formatting progress",
                     serialized(worker.getDevDiskFormattingProgress(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::GetDevPlatformCondition>();
        rows.append({"slotGetDevPlatformReq", [=] { get_dev_platform_req(condition); },
                     DevPlatformGetReq, condition.requestId, true, devIdOf(condition),
                     "client request get device platform configuration",
                     payloadOf<vms_sdk_proto::DevPlatformGetReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::SetDevPlatformCondition>();
        rows.append({"slotSetDevPlatformReq", [=] { set_dev_platform_req(condition); },
                     DevPlatformSetReq, condition.requestId, true, devIdOf(condition),
                     "client request set device platform configuration",
                     payloadOf<vms_sdk_proto::DevPlatformSetReq>(condition)});
    }
    {
        const auto requestId = QStringLiteral("req-GetDevPlatform_kvrReq");
        const auto devId = QStringLiteral("dev-GetDevPlatform_kvrReq");
        rows.append({"slotGetDevPlatform_kvrReq",
                     [=] { get_dev_platform_kvr_req(requestId, devId); }, DevPlatform_kvrGetReq,
                     requestId, true, devId, "client request get device platform_kvr configuration",
                     payloadOf<vms_sdk_proto::DeviceReq>(
                         DeviceCondition{.requestId = requestId, .devId = devId})});
    }
    {
        const auto condition = fill.make<vms_sdk::SetDevPlatform_kvrCondition>();
        rows.append({"slotSetDevPlatform_kvrReq", [=] { set_dev_platform_kvr_req(condition); },
                     DevPlatform_kvrSetReq, condition.requestId, true, devIdOf(condition),
                     "client request set device platform_kvr configuration",
                     payloadOf<vms_sdk_proto::DevPlatform_kvrSetReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::ImportDevCertCondition>();
        rows.append({"slotImportDevCertReq", [=] { import_dev_cert_req(condition); },
                     DevCertImportReq, condition.requestId, true, devIdOf(condition), nullptr,
                     payloadOf<vms_sdk_proto::DevCertImportReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::DeviceCondition>();
        rows.append({"slotGetDevQRCodeReq", [=] { get_dev_qrcode_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition), nullptr,
                     serialized(worker.getDevQRCode(condition))});
    }
    {
        const auto devId = QStringLiteral("dev-GetDevChannelsInfoCmd");
        rows.append({"slotGetDevChannelsInfoCmd", [=] { get_dev_channels_info_cmd(devId); },
                     GetDevChannelsInfoCmd, QString(), false, devId,
                     "client cmd get device channels information", devId.toUtf8()});
    }
    {
        const auto requestId = QStringLiteral("req-GetDevLogsReq");
        const auto devId = QStringLiteral("dev-GetDevLogsReq");
        const auto date = QDate(2026, 11, 22);
        rows.append({"slotGetDevLogsReq", [=] { get_dev_logs_req(requestId, devId, date); },
                     CommonReq, requestId, true, devId, "client request get device logs",
                     serialized(worker.getDevLogs(requestId, devId, date))});
    }
    {
        const auto condition = fill.make<vms_sdk::RecsSearchCondition>();
        rows.append({"slotSearchVideoRecordingsReq",
                     [=] { search_video_recordings_req(condition); }, SearchVideoRecordingsReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request search video recordings",
                     payloadOf<vms_sdk_proto::SearchVideoRecordingsReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::GetCalendarMaskCondition>();
        rows.append({"slotGetVideoRecordingsCalendarMaskReq",
                     [=] { get_video_recordings_calendar_mask_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request get video recordings calendar mask",
                     serialized(worker.getVideoRecordingsCalendarMask(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::GetRtspUrlCondition>();
        rows.append({"slotGetRtspUrlReq", [=] { get_rtsp_url_req(condition); }, GetRtspUrlReq,
                     condition.requestId, true, devIdOf(condition), "client request get rtsp url",
                     payloadOf<vms_sdk_proto::GetRtspUrlReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::ChannelCondition>();
        rows.append({"slotGetPTZAbilityReq", [=] { get_ptz_ability_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request get ptz ability",
                     serialized(worker.getPtzAbility(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::PTZAutoMoveCondition>();
        rows.append({"slotPTZAutoMoveReq", [=] { PTZ_auto_move_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition), "client request ptz auto move",
                     serialized(worker.ptzAutoMove(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::PTZCtrlCondition>();
        rows.append({"slotPTZCtrlReq", [=] { PTZ_ctrl_req(condition); }, PTZCtrlReq,
                     condition.requestId, true, devIdOf(condition), "client request ptz ctrl",
                     payloadOf<vms_sdk_proto::PTZCtrlReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::ChannelCondition>();
        rows.append({"slotGetPresetsReq", [=] { get_presets_req(condition); }, GetPresetsReq,
                     condition.requestId, true, devIdOf(condition), nullptr,
                     payloadOf<vms_sdk_proto::ChannelReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::PresetOperCondition>();
        rows.append({"slotOperPresetReq", [=] { oper_preset_req(condition); }, PresetOperReq,
                     condition.requestId, true, devIdOf(condition), "client request operate preset",
                     payloadOf<vms_sdk_proto::PresetOperReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::ChannelCondition>();
        rows.append({"slotGetPatrolsReq", [=] { get_patrols_req(condition); }, GetPatrolsReq,
                     condition.requestId, true, devIdOf(condition), nullptr,
                     payloadOf<vms_sdk_proto::ChannelReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::PatrolOperCondition>();
        rows.append({"slotOperPatrolReq", [=] { oper_patrol_req(condition); }, PatrolOperReq,
                     condition.requestId, true, devIdOf(condition), "client request operate patrol",
                     payloadOf<vms_sdk_proto::PatrolOperReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::PatrolPresetOperCondition>();
        rows.append({"slotOperPatrolPresetReq", [=] { oper_patrol_preset_req(condition); },
                     PatrolPresetOperReq, condition.requestId, true, devIdOf(condition),
                     "client request operate patrol presets",
                     payloadOf<vms_sdk_proto::PatrolPresetOperReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::SetPatrolPresetsCondition>();
        rows.append({"slotSetPatrolPresetsReq", [=] { set_patrol_presets_req(condition); },
                     SetPatrolPresetsReq, condition.requestId, true, devIdOf(condition), nullptr,
                     payloadOf<vms_sdk_proto::SetPatrolPresetsReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::PTZ3dLocateCondition>();
        rows.append({"slotPTZ3dLocateCmd", [=] { PTZ_3d_locate_cmd(condition); }, CommonReq,
                     condition.requestId, false, devIdOf(condition), nullptr,
                     serialized(worker.ptz3dLocate(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::AddBulletTagPointCondition>();
        rows.append({"slotAddBulletTagPointReq", [=] { add_bullet_tag_point_req(condition); },
                     CommonReq, condition.requestId, true, devIdOf(condition),
                     "client request add bullet tag point",
                     serialized(worker.addBulletTagPoint(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::ChannelCondition>();
        rows.append({"slotGetBulletTagPointsReq", [=] { get_bullet_tag_points_req(condition); },
                     CommonReq, condition.requestId, true, devIdOf(condition),
                     "client request get bullet tag points",
                     serialized(worker.getBulletTagPoints(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::ChannelCondition>();
        rows.append({"slotClearBulletTagPointsReq", [=] { clear_bullet_tag_points_req(condition); },
                     CommonReq, condition.requestId, true, devIdOf(condition),
                     "client request clear bullet tag points",
                     serialized(worker.clearBulletTagPoints(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::CalibrateBulletDomeCondition>();
        rows.append({"slotCalibrateBulletDomeReq", [=] { calibrate_bullet_dome_req(condition); },
                     CommonReq, condition.requestId, true, devIdOf(condition),
                     "client request calibrate bullet dome",
                     serialized(worker.calibrateBulletDome(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::ChannelCondition>();
        rows.append({"slotGetBulletDomeCalibrateStatusReq",
                     [=] { get_bullet_dome_calibrate_status_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request bullet dome calibrate status",
                     serialized(worker.getBulletDomeCalibrateStatus(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::ChannelCondition>();
        rows.append({"slotSetDomeTrackGuardInitialPosReq",
                     [=] { set_dome_track_guard_initial_pos_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request set dome track guard initial pos",
                     serialized(worker.setDomeTrackGuardInitialPos(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::ManualTrackCondition>();
        rows.append({"slotManualBulletDomeTrackCmd",
                     [=] { manual_bullet_dome_track_cmd(condition); }, CommonReq,
                     condition.requestId, false, devIdOf(condition),
                     "client cmd manual bullet dome track",
                     serialized(worker.manualBulletDomeTrack(condition))});
    }
    {
        const auto devId = QStringLiteral("dev-OpenDevRemoteConfigReq");
        const auto language = 3;
        rows.append({"slotOpenDevRemoteConfigReq",
                     [=] { open_dev_remote_config_req(devId, language); }, OpenRemoteConfigReq,
                     QString(), false, devId, "client request open device remote configuration",
                     remoteConfig(devId, language)});
    }
    {
        const auto condition = fill.make<vms_sdk::DevUpgradeCondtition>();
        rows.append({"slotCheckDevUpgradeReq", [=] { check_dev_upgrade_req(condition); },
                     CheckDevUpgradeReq, condition.requestId, true, devIdOf(condition),
                     "client request check device upgrade information",
                     payloadOf<vms_sdk_proto::DevUpgradeReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::DevUpgradeCondtition>();
        rows.append({"slotDoDevUpgradeCmd", [=] { do_dev_upgrade_cmd(condition); }, DoDevUpgradeCmd,
                     condition.requestId, false, devIdOf(condition), "client cmd do device upgrade",
                     payloadOf<vms_sdk_proto::DevUpgradeReq>(condition)});
    }
    {
        const auto requestId = QStringLiteral("req-GetDevUpgradeProgressReq");
        const auto devId = QStringLiteral("dev-GetDevUpgradeProgressReq");
        rows.append({"slotGetDevUpgradeProgressReq",
                     [=] { get_dev_upgrade_progress_req(requestId, devId); },
                     GetDevUpgradeProgressReq, requestId, true, devId,
                     "client request get device upgrade progress",
                     payloadOf<vms_sdk_proto::DeviceReq>(
                         DeviceCondition{.requestId = requestId, .devId = devId})});
    }
    {
        const auto condition = fill.make<vms_sdk::ModifyDevAccountCondition>();
        rows.append({"slotModifyDevAccountReq", [=] { modify_dev_account_req(condition); },
                     ModifyDevAccountReq, condition.requestId, true, devIdOf(condition),
                     "client request modify device account",
                     payloadOf<vms_sdk_proto::ModifyDevAccountReq>(condition)});
    }
    {
        const auto requestId = QStringLiteral("req-GetDevSysCfgReq");
        const auto devId = QStringLiteral("dev-GetDevSysCfgReq");
        rows.append({"slotGetDevSysCfgReq", [=] { get_dev_sys_cfg_req(requestId, devId); },
                     CommonReq, requestId, true, devId,
                     "client request get device system configure",
                     serialized(worker.getDevSysCfg(requestId, devId))});
    }
    {
        const auto devId = QStringLiteral("dev-SetDevSysCfgCmd");
        const auto info = fill.make<vms_sdk::DevSysCfgInfo>();
        rows.append({"slotSetDevSysCfgCmd", [=] { set_dev_sys_cfg_cmd(devId, info); }, CommonReq,
                     QString(), false, devId, "client cmd set device system configure",
                     serialized(worker.setDevSysCfg(devId, info))});
    }
    {
        const auto requestId = QStringLiteral("req-GetChannImageAdjustSettingsReq");
        const auto channelId = fill.make<vms_sdk::ChannelId>();
        rows.append({"slotGetChannImageAdjustSettingsReq",
                     [=] { get_chann_image_adjust_settings_req(requestId, channelId); }, CommonReq,
                     requestId, true, channelId.devId,
                     "client request get channel image adjust settings",
                     serialized(worker.getChannImageAdjustSettings(requestId, channelId))});
    }
    {
        const auto requestId = QStringLiteral("req-SetChannImageAdjustSettingsReq");
        const auto channelId = fill.make<vms_sdk::ChannelId>();
        const auto info = fill.make<vms_sdk::ImageAdjustSettingInfo>();
        rows.append({"slotSetChannImageAdjustSettingsReq",
                     [=] { set_chann_image_adjust_settings_req(requestId, channelId, info); },
                     CommonReq, requestId, true, channelId.devId,
                     "client request set channel image adjust settings",
                     serialized(worker.setChannImageAdjustSettings(requestId, channelId, info))});
    }
    {
        const auto condition = fill.make<vms_sdk::ChannelCondition>();
        rows.append({"slotGetChannImageAbilityReq", [=] { get_chann_image_ability_req(condition); },
                     CommonReq, condition.requestId, true, devIdOf(condition),
                     "client request get channel image ability",
                     serialized(worker.getChannImageAbility(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::ChannelCondition>();
        rows.append({"slotGetChannImageSettingsReq",
                     [=] { get_chann_image_settings_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request get channel image settings",
                     serialized(worker.getChannImageSettings(condition))});
    }
    {
        const auto channelId = fill.make<vms_sdk::ChannelId>();
        const auto info = fill.make<vms_sdk::ImageSettingInfo>();
        rows.append({"slotSetChannImageSettingsCmd",
                     [=] { set_chann_image_settings_cmd(channelId, info); }, CommonReq, QString(),
                     false, channelId.devId, "client cmd set channel image settings",
                     serialized(worker.setChannImageSettings(channelId, info))});
    }
    {
        const auto condition = fill.make<vms_sdk::SetOSDCondition>();
        rows.append({"slotSetOSDReq", [=] { set_osd_req(condition); }, SetOSDReq,
                     condition.requestId, true, devIdOf(condition), "client request set osd",
                     payloadOf<vms_sdk_proto::SetOSDReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::ModifyDevNameCondition>();
        rows.append({"slotModifyDevNameReq", [=] { modify_dev_name_req(condition); },
                     ModifyDevNameReq, condition.requestId, true, devIdOf(condition), nullptr,
                     payloadOf<vms_sdk_proto::ModifyDevNameReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::ModifyFaceCondition>();
        rows.append({"slotAddFaceReq (library)", [=] { add_face_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition), "client request add face",
                     serialized(worker.addFace(condition))});
        auto own = condition;
        own.package.clear();
        rows.append({"slotAddFaceReq (device)", [=] { add_face_req(own); }, AddFaceReq,
                     own.requestId, true, devIdOf(own), "client request add face",
                     payloadOf<vms_sdk_proto::AddFaceReq>(own)});
    }
    {
        const auto condition = fill.make<vms_sdk::ModifyFaceCondition>();
        rows.append({"slotEditFaceReq", [=] { edit_face_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition), nullptr,
                     serialized(worker.editFace(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::GetFacesCondition>();
        rows.append({"slotGetFacesReq (library)", [=] { get_faces_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition), nullptr,
                     serialized(worker.getFaces(condition))});
        auto own = condition;
        own.package.clear();
        rows.append({"slotGetFacesReq (device)", [=] { get_faces_req(own); }, GetFacesReq,
                     own.requestId, true, devIdOf(own), nullptr,
                     payloadOf<vms_sdk_proto::GetFacesReq>(own)});
    }
    {
        const auto condition = fill.make<vms_sdk::AiChannelCondition>();
        rows.append({"slotGetFacesModelingStatusReq",
                     [=] { get_faces_modeling_status_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request get faces modeling status",
                     serialized(worker.getFacesModelingStatus(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::DelFaceCondition>();
        rows.append({"slotDelFaceReq", [=] { del_face_req(condition); }, DelFaceReq,
                     condition.requestId, true, devIdOf(condition), nullptr,
                     payloadOf<vms_sdk_proto::DelFaceReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::DelFacesCondition>();
        rows.append({"slotDelFacesReq", [=] { del_faces_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition), "client request delete faces",
                     serialized(worker.delFaces(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::GetFaceDetectRecordsCondition>();
        rows.append({"slotGetFaceDetectRecordsReq", [=] { get_face_detect_records_req(condition); },
                     GetFaceDetectRecordsReq, condition.requestId, true, devIdOf(condition),
                     "client request get face detect records",
                     payloadOf<vms_sdk_proto::GetFaceDetectRecordsReq>(condition)});
    }
    {
        const auto devId = QStringLiteral("dev-ClearFaceTemperatureCountCmd");
        rows.append({"slotClearFaceTemperatureCountCmd",
                     [=] { clear_face_temperature_count_cmd(devId); }, ClearFaceTemperatureCountCmd,
                     QString(), false, devId, "client cmd clear face temperature count",
                     devId.toUtf8()});
    }
    {
        const auto condition = fill.make<vms_sdk::AiChannelCondition>();
        rows.append({"slotGetAllFaceGroupsReq", [=] { get_all_face_groups_req(condition); },
                     CommonReq, condition.requestId, true, devIdOf(condition),
                     "client request get face groups",
                     serialized(worker.getAllFaceGroups(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::AddFaceGroupsCondition>();
        rows.append({"slotAddFaceGroupsReq", [=] { add_face_groups_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request add face groups",
                     serialized(worker.addFaceGroups(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::DeleteFaceGroupsCondition>();
        rows.append({"slotDeleteFaceGroupsReq", [=] { delete_face_groups_req(condition); },
                     CommonReq, condition.requestId, true, devIdOf(condition), nullptr,
                     serialized(worker.deleteFaceGroups(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::EditFaceGroupsCondition>();
        rows.append({"slotEditFaceGroupsReq", [=] { edit_face_groups_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request edit face groups",
                     serialized(worker.editFaceGroups(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::AiChannelCondition>();
        rows.append({"slotImportFaceLibraryReq", [=] { import_face_library_req(condition); },
                     CommonReq, condition.requestId, true, devIdOf(condition),
                     "client request import face library",
                     serialized(worker.importFaceLibrary(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::AiChannelCondition>();
        rows.append({"slotImportFaceLibraryProgressReq",
                     [=] { import_face_library_progress_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request import face library progress",
                     serialized(worker.importFaceLibraryProgress(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::AiChannelCondition>();
        rows.append({"slotExportFaceLibraryReq", [=] { export_face_library_req(condition); },
                     CommonReq, condition.requestId, true, devIdOf(condition),
                     "client request export face library",
                     serialized(worker.exportFaceLibrary(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::AiChannelCondition>();
        rows.append({"slotExportFaceLibraryProgressReq",
                     [=] { export_face_library_progress_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request export face library progress",
                     serialized(worker.exportFaceLibraryProgress(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::GetRegionTemperatureRecordsCondition>();
        rows.append({"slotGetRegionTemperatureRecordsReq",
                     [=] { get_region_temperature_records_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request get region temperature records",
                     serialized(worker.getRegionTemperatureRecords(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::GetAlarmRecordsCondition>();
        rows.append({"slotGetAlarmRecordsReq", [=] { get_alarm_records_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition), nullptr,
                     serialized(worker.getAlarmRecords(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::GetTriggeredEventsCondition>();
        rows.append({"slotGetTriggeredEventsReq", [=] { get_triggered_events_req(condition); },
                     CommonReq, condition.requestId, true, devIdOf(condition),
                     "client request get triggered events",
                     serialized(worker.getTriggeredEvents(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::GetEventRecordsCondition>();
        rows.append({"slotGetEventRecordsReq", [=] { get_event_records_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition), nullptr,
                     serialized(worker.getEventRecords(condition, 1))});
    }
    {
        const auto condition = fill.make<vms_sdk::GetLicensePlateRecRecordsCondition>();
        rows.append({"slotGetLicensePlateRecRecordsReq",
                     [=] { get_license_plate_rec_records_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request get license plate recognition records",
                     serialized(worker.getLicensePlateRecRecords(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::GetFaceRecRecordsCondition>();
        rows.append({"slotGetFaceRecRecordsReq (capture)",
                     [=] { get_face_rec_records_req(condition); }, CommonReq, condition.requestId,
                     true, devIdOf(condition), "client request get face capture records",
                     serialized(worker.getFaceRecRecords(condition))});
        auto recognition = condition;
        recognition.captureRecords = false;
        rows.append({"slotGetFaceRecRecordsReq (recognition)",
                     [=] { get_face_rec_records_req(recognition); }, CommonReq,
                     recognition.requestId, true, devIdOf(recognition),
                     "client request get face recognition records",
                     serialized(worker.getFaceRecRecords(recognition))});
    }
    {
        const auto requestId = QStringLiteral("req-GetOtherEventRecordsReq");
        const auto pageNum = 4;
        rows.append(
            {"slotGetOtherEventRecordsReq",
             [=] {
                 Q_EMIT MessageSignals::instance()->signalGetOtherEventRecordsReq(requestId,
                                                                                  pageNum);
             },
             CommonReq, requestId, true, QString(), "client request get other event records",
             serialized(worker.getEventRecords(GetEventRecordsCondition{.requestId = requestId},
                                               pageNum))});
    }
    {
        const auto condition = fill.make<vms_sdk::CancelAlarmCondition>();
        rows.append({"slotCancelAlarmReq", [=] { cancel_alarm_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition), "client request cancel alarm",
                     serialized(worker.cancelAlarm(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::TriggerAlarmLinkCondition>();
        rows.append(
            {"slotTriggerAlarmLinkReq",
             [=] { Q_EMIT MessageSignals::instance()->signalTriggerAlarmLinkReq(condition); },
             CommonReq, condition.requestId, true, devIdOf(condition), nullptr,
             serialized(worker.triggerAlarmLink(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::GetSnapImageCondition>();
        rows.append({"slotGetSnapImageReq", [=] { get_snap_image_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition), "client request get snap image",
                     serialized(worker.getSnapImage(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::GetCustomersCntCondition>();
        rows.append({"slotGetCustomersCountReq", [=] { get_customers_count_req(condition); },
                     CommonReq, condition.requestId, true, devIdOf(condition),
                     "client get customers count req",
                     serialized(worker.getCustomersCount(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::ChannelCondition>();
        rows.append({"slotGetCustomersRegionsReq", [=] { get_customers_regions_req(condition); },
                     CommonReq, condition.requestId, true, devIdOf(condition),
                     "client request get customers regions",
                     serialized(worker.getCustomersRegions(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::GetCustomersRegionAttentionCondition>();
        rows.append({"slotGetCustomersRegionAttentionReq",
                     [=] { get_customers_region_attention_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request get customers region attention",
                     serialized(worker.getCustomersRegionAttention(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::GetCutomersHeatMapCondition>();
        rows.append({"slotGetCustomersHeatMapReq", [=] { get_customers_heat_map_req(condition); },
                     CommonReq, condition.requestId, true, devIdOf(condition),
                     "client request get customers heat map",
                     serialized(worker.getCustomersHeatMap(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::GetCustomerGroupCondition>();
        rows.append({"slotGetCustomerGroupReq", [=] { get_customer_group_req(condition); },
                     CommonReq, condition.requestId, true, devIdOf(condition), nullptr,
                     serialized(worker.getCustomerGroup(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::AiChannelCondition>();
        rows.append({"slotGetParkingLockStatusReq", [=] { get_parking_lock_status_req(condition); },
                     CommonReq, condition.requestId, true, devIdOf(condition),
                     "client request get parking lock status",
                     serialized(worker.getParkingLockStatus(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::CtrlParkingLockCondition>();
        rows.append({"slotCtrlParkingLockReq", [=] { ctrl_parking_lock_req(condition); }, CommonReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request control parking lock",
                     serialized(worker.ctrlParkingLock(condition))});
    }
    {
        const auto condition = fill.make<vms_sdk::TalkOperCondition>();
        rows.append({"slotTalkOperReq", [=] { talk_oper_req(condition); }, TalkOperReq,
                     condition.requestId, true, devIdOf(condition), "client request talk operation",
                     payloadOf<vms_sdk_proto::TalkOperReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::SpeakOperCondition>();
        rows.append({"slotSpeakOperReq", [=] { speak_oper_req(condition); }, SpeakOperReq,
                     condition.requestId, true, devIdOf(condition),
                     "client request speak operation",
                     payloadOf<vms_sdk_proto::TalkOperReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::UploadFileCondition>();
        rows.append({"slotUploadFileReq", [=] { upload_file_req(condition); }, UploadFileReq,
                     condition.requestId, false, devIdOf(condition), "client req upload file",
                     payloadOf<vms_sdk_proto::UploadFileReq>(condition)});
    }
    {
        const auto condition = fill.make<vms_sdk::DownloadFileCondition>();
        rows.append({"slotDownloadFileReq", [=] { download_file_req(condition); }, DownloadFileReq,
                     condition.requestId, false, devIdOf(condition), nullptr,
                     payloadOf<vms_sdk_proto::DownloadFileReq>(condition)});
    }
    {
        const auto requestId = QStringLiteral("req-CommonReq");
        const auto devId = QStringLiteral("dev-CommonReq");
        const auto reqJson = QStringLiteral(R"({"method": "x", "ü": 1})");
        rows.append({"slotCommonReq", [=] { common_req(requestId, devId, reqJson); }, CommonReq,
                     requestId, true, devId, "client request common",
                     serialized(worker.commonReq(requestId, devId, reqJson))});
    }
    return rows;
}

struct Sent
{
    MessageType type;
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
                sent.append({type, payload, devId});
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

    QString logPath;
    int seenLines = 0;
    MessageHamal* hamal = nullptr;
    QList<Sent> sent;
};

TEST_F(RequestSlotsTest, EveryRequestSendsItsMessageToItsGatewayRegisteredAndLogged)
{
    const QList<SlotRow> rows = slotRows();
    EXPECT_EQ(rows.size(), 95); // 92 slots, three of them with a second path
    for (const SlotRow& row : rows) {
        SCOPED_TRACE(row.name);
        sent.clear();
        newLogLines();
        row.call();
        ASSERT_EQ(sent.size(), 1);
        EXPECT_EQ(int(sent[0].type), row.type);
        EXPECT_EQ(sent[0].devId, row.devId);
        EXPECT_EQ(sent[0].payload, row.payload);
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

TEST_F(RequestSlotsTest, SearchesSendANullBodyToTheFirstGateway)
{
    search_devs_cmd();
    broadcast_search_devs_cmd();
    ASSERT_EQ(sent.size(), 2);
    for (const Sent& message : std::as_const(sent)) {
        EXPECT_TRUE(message.payload.isNull());
        EXPECT_TRUE(message.devId.isEmpty());
    }
}

TEST_F(RequestSlotsTest, FurtherPagesOfEventRecordsReuseTheStoredCondition)
{
    vms_test::RecordFiller fill;
    const auto condition = fill.make<GetEventRecordsCondition>();
    get_event_records_req(condition);
    Q_EMIT MessageSignals::instance()->signalGetOtherEventRecordsReq(condition.requestId, 2);
    const CommonReqWorker worker(nullptr);
    ASSERT_EQ(sent.size(), 2);
    EXPECT_EQ(sent[0].payload, serialized(worker.getEventRecords(condition, 1)));
    EXPECT_EQ(sent[1].payload, serialized(worker.getEventRecords(condition, 2)));
    // Both registrations of the one id are counted.
    EXPECT_TRUE(hamal->requestMgr()->removeRequest(condition.requestId));
    EXPECT_TRUE(hamal->requestMgr()->removeRequest(condition.requestId));

    // An id that was never stored still goes out, with an empty condition.
    Q_EMIT MessageSignals::instance()->signalGetOtherEventRecordsReq(QStringLiteral("never"), 3);
    ASSERT_EQ(sent.size(), 3);
    const auto empty = GetEventRecordsCondition{.requestId = QStringLiteral("never")};
    EXPECT_EQ(sent[2].payload, serialized(worker.getEventRecords(empty, 3)));
}

TEST_F(RequestSlotsTest, TheSixConditionsAnswersNeedAreStored)
{
    vms_test::RecordFiller fill;
    const auto count = fill.make<GetCustomersCntCondition>();
    const auto attention = fill.make<GetCustomersRegionAttentionCondition>();
    const auto alarms = fill.make<GetAlarmRecordsCondition>();
    const auto events = fill.make<GetEventRecordsCondition>();
    const auto calendar = fill.make<GetCalendarMaskCondition>();
    const auto group = fill.make<GetCustomerGroupCondition>();
    get_customers_count_req(count);
    get_customers_region_attention_req(attention);
    get_alarm_records_req(alarms);
    get_event_records_req(events);
    get_video_recordings_calendar_mask_req(calendar);
    get_customer_group_req(group);
    auto* store = RequestData::instance();
    EXPECT_EQ(store->condition<GetCustomersCntCondition>(count.requestId, true), count);
    EXPECT_EQ(store->condition<GetCustomersRegionAttentionCondition>(attention.requestId, true),
              attention);
    EXPECT_EQ(store->condition<GetAlarmRecordsCondition>(alarms.requestId, true), alarms);
    EXPECT_EQ(store->condition<GetEventRecordsCondition>(events.requestId, true), events);
    EXPECT_EQ(store->condition<GetCalendarMaskCondition>(calendar.requestId, true), calendar);
    EXPECT_EQ(store->condition<GetCustomerGroupCondition>(group.requestId, true), group);
}

TEST_F(RequestSlotsTest, ARawJsonRequestIsAnsweredAsItCame)
{
    QSignalSpy answers(ClientSignals::instance(), &ClientSignals::signalCommonRes);
    common_req(QStringLiteral("raw-1"), QStringLiteral("cam-1"),
               QStringLiteral(R"({"method": "m"})"));
    vms_sdk_proto::CommonRes answer;
    answer.set_request_id("raw-1");
    answer.set_res_json(R"({"method": "m", "result": {}})");
    hamal->slotMessageComing(CommonRes, serialized(answer));
    ASSERT_EQ(answers.count(), 1);
    EXPECT_EQ(answers[0][0].toString(), "raw-1");
    EXPECT_EQ(answers[0][1].toString(), R"({"method": "m", "result": {}})");
}

TEST_F(RequestSlotsTest, StreamFunctionsReturnFreshIdsLogAndAnnounce)
{
    QSignalSpy live(MessageSignals::instance(), &MessageSignals::signalConnectLiveVideoReq);
    QSignalSpy trigger(ClientActions::instance(), &ClientActions::signalConnLiveVideoTrigger);
    QSignalSpy fileTrigger(ClientActions::instance(), &ClientActions::signalPlaybackByFileTrigger);
    const LiveVideoConnCondition condition{
        .channelId = {.devId = QStringLiteral("cam-1"), .channelIndex = 2}, .streamType = 1};
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
    playback_by_file_req(
        PlaybackByFileCondition{.fileName = QStringLiteral("a.mp4"), .download = 1});
    playback_by_file_req(PlaybackByFileCondition{.fileName = QStringLiteral("b.mp4")});
    ASSERT_EQ(fileTrigger.count(), 1);
    EXPECT_EQ(fileTrigger[0][2].toString(), "b.mp4");
}

TEST_F(RequestSlotsTest, BothSpeedFunctionsAreOneAction)
{
    QSignalSpy speed(MessageSignals::instance(), &MessageSignals::signalPlaybackSpeedSetReq);
    playback_speed_set_req(7, QStringLiteral("2.0"));
    download_speed_set_req(7, QStringLiteral("2.0"));
    ASSERT_EQ(speed.count(), 2);
    EXPECT_EQ(speed[0], speed[1]);
}

} // namespace
