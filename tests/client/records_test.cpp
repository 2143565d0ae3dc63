// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The public records and the two signal surfaces: names applications and queued connections
// rely on, and the generic JSON form of every record.

#include <vms_sdk/vms_client_sdk.h>

#include "support/record_filler.h"
#include "vms_sdk/client/message_signals.h"
#include "vms_sdk/client/record_json.h"
#include "vms_sdk/client/record_types.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QMetaMethod>
#include <QSet>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <cctype>
#include <functional>
#include <type_traits>

using namespace vms_sdk;
namespace rj = vms_sdk::record_json;

namespace {

// Designated initialisation is how applications are meant to write conditions.
#define VMS_ASSERT_AGGREGATE(Name)                                                                 \
    static_assert(std::is_aggregate_v<Name>, #Name " must stay an aggregate");
VMS_RECORD_TYPES(VMS_ASSERT_AGGREGATE)
#undef VMS_ASSERT_AGGREGATE

struct NamedType
{
    const char* name;
    int typeId;
};

void registerEverything()
{
    ClientSignals::instance();
    MessageSignals::instance();
}

TEST(MetaTypeRegistration, ResultNamesResolveToTheirTypes)
{
    registerEverything();
    const NamedType names[] = {
        {"DevInfoList", qMetaTypeId<QList<DevInfo>>()},
        {"DevStatus", qMetaTypeId<DevStatus>()},
        {"DevInfoFromDgw", qMetaTypeId<DevInfoFromDgw>()},
        {"Response", qMetaTypeId<Response>()},
        {"ConnStatus", qMetaTypeId<ConnStatus>()},
        {"StreamEvent", qMetaTypeId<StreamEvent>()},
        {"DevChanInfoList", qMetaTypeId<QList<DevChannelInfo>>()},
        {"PresetList", qMetaTypeId<QList<PresetInfo>>()},
        {"PresetOper", qMetaTypeId<PresetOper>()},
        {"PatrolList", qMetaTypeId<QList<PatrolInfo>>()},
        {"PatrolOper", qMetaTypeId<PatrolOper>()},
        {"PatrolPresetOper", qMetaTypeId<PatrolPresetOper>()},
        {"FaceInfoList", qMetaTypeId<QList<FaceInfo>>()},
        {"FaceDetectRecordList", qMetaTypeId<QList<FaceDetectRecordInfo>>()},
        {"FaceDetectRecordInfo", qMetaTypeId<FaceDetectRecordInfo>()},
        {"DevTempUserCodeList", qMetaTypeId<QList<DevTempUserCode>>()},
        {"FaceCountInfo", qMetaTypeId<FaceCountInfo>()},
        {"AlarmInfo", qMetaTypeId<AlarmInfo>()},
        {"AlarmList", qMetaTypeId<QList<AlarmInfo>>()},
        {"EventTypeList", qMetaTypeId<QList<EventTypeInfo>>()},
        {"EventInfo", qMetaTypeId<EventInfo>()},
        {"EventList", qMetaTypeId<QList<EventInfo>>()},
        {"EventMap", qMetaTypeId<QMap<int, QList<EventInfo>>>()},
        {"RegionTemperatureRecordList", qMetaTypeId<QList<RegionTemperatureRecordInfo>>()},
        {"ChannelId", qMetaTypeId<ChannelId>()},
        {"DevNetInfo", qMetaTypeId<DevNetInfo>()},
        {"CustomersCountList", qMetaTypeId<QList<CustomersCountInfo>>()},
        {"CustomersRegionList", qMetaTypeId<QList<CustomersRegionInfo>>()},
        {"CustomersHeatMapInfo", qMetaTypeId<CustomersHeatMapInfo>()},
        {"DevUpgradeInfo", qMetaTypeId<DevUpgradeInfo>()},
        {"ImageAdjustSettingInfo", qMetaTypeId<ImageAdjustSettingInfo>()},
        {"TalkEvent", qMetaTypeId<TalkEvent>()},
        {"DevPlatformInfo", qMetaTypeId<DevPlatformInfo>()},
        {"DevSysCfgInfo", qMetaTypeId<DevSysCfgInfo>()},
        {"ImageSettingInfo", qMetaTypeId<ImageSettingInfo>()},
        {"StreamSettingList", qMetaTypeId<QList<StreamSettingInfo>>()},
        {"AudioSettingList", qMetaTypeId<QList<AudioSettingInfo>>()},
        {"DevLogList", qMetaTypeId<QList<DevLogInfo>>()},
        {"BulletTagPointList", qMetaTypeId<QList<BulletTagPointInfo>>()},
        {"CalibrationStatusInfo", qMetaTypeId<CalibrationStatusInfo>()},
        {"LicensePlateRecRecordList", qMetaTypeId<QList<LicensePlateRecRecordInfo>>()},
        {"FaceRecRecordList", qMetaTypeId<QList<FaceRecRecordInfo>>()},
        {"PTZAbilityInfo", qMetaTypeId<PTZAbilityInfo>()},
        {"DevDiskList", qMetaTypeId<QList<DevDiskInfo>>()},
        {"CustomerGroupList", qMetaTypeId<QList<CustomerGroupInfo>>()},
        {"ParkingLockList", qMetaTypeId<QList<ParkingLockInfo>>()},
        {"FaceGroupList", qMetaTypeId<QList<FaceGroupInfo>>()},
        {"FileTransferProgress", qMetaTypeId<FileTransferProgress>()},
    };
    EXPECT_EQ(std::size(names), 48u);
    for (const NamedType& entry : names)
        EXPECT_EQ(QMetaType::type(entry.name), entry.typeId) << entry.name;
}

TEST(MetaTypeRegistration, RequestNamesResolveToTheirTypes)
{
    registerEverything();
    const NamedType names[] = {
        {"StreamId", qMetaTypeId<quint64>()},
        {"InitDgwCondition", qMetaTypeId<InitDgwCondition>()},
        {"SearchDevsConfig", qMetaTypeId<SearchDevsConfig>()},
        {"DevInfoList", qMetaTypeId<QList<DevInfo>>()},
        {"RecsSearchCondition", qMetaTypeId<RecsSearchCondition>()},
        {"LiveVideoConnCondition", qMetaTypeId<LiveVideoConnCondition>()},
        {"PlaybackByFileCondition", qMetaTypeId<PlaybackByFileCondition>()},
        {"PlaybackByTimeCondition", qMetaTypeId<PlaybackByTimeCondition>()},
        {"PlaybackCtrl", qMetaTypeId<PlaybackCtrl>()},
        {"PTZAutoMoveCondition", qMetaTypeId<PTZAutoMoveCondition>()},
        {"PTZCtrlCondition", qMetaTypeId<PTZCtrlCondition>()},
        {"PresetOperCondition", qMetaTypeId<PresetOperCondition>()},
        {"ChannelCondition", qMetaTypeId<ChannelCondition>()},
        {"AiChannelCondition", qMetaTypeId<AiChannelCondition>()},
        {"DeviceCondition", qMetaTypeId<DeviceCondition>()},
        {"AiDeviceCondition", qMetaTypeId<AiDeviceCondition>()},
        {"PatrolOperCondition", qMetaTypeId<PatrolOperCondition>()},
        {"PatrolPresetOperCondition", qMetaTypeId<PatrolPresetOperCondition>()},
        {"PTZ3dLocateCondition", qMetaTypeId<PTZ3dLocateCondition>()},
        {"AddBulletTagPointCondition", qMetaTypeId<AddBulletTagPointCondition>()},
        {"CalibrateBulletDomeCondition", qMetaTypeId<CalibrateBulletDomeCondition>()},
        {"ManualTrackCondition", qMetaTypeId<ManualTrackCondition>()},
        {"SetOSDCondition", qMetaTypeId<SetOSDCondition>()},
        {"ModifyFaceCondition", qMetaTypeId<ModifyFaceCondition>()},
        {"GetFacesCondition", qMetaTypeId<GetFacesCondition>()},
        {"DelFaceCondition", qMetaTypeId<DelFaceCondition>()},
        {"GetFaceDetectRecordsCondition", qMetaTypeId<GetFaceDetectRecordsCondition>()},
        {"SetDevNetCondition", qMetaTypeId<SetDevNetCondition>()},
        {"GetRegionTemperatureRecordsCondition",
         qMetaTypeId<GetRegionTemperatureRecordsCondition>()},
        {"GetSnapImageCondition", qMetaTypeId<GetSnapImageCondition>()},
        {"ModifyDevNameCondition", qMetaTypeId<ModifyDevNameCondition>()},
        {"GetCustomersCntCondition", qMetaTypeId<GetCustomersCntCondition>()},
        {"GetCustomersRegionAttentionCondition",
         qMetaTypeId<GetCustomersRegionAttentionCondition>()},
        {"GetCutomersHeatMapCondition", qMetaTypeId<GetCutomersHeatMapCondition>()},
        {"DevUpgradeCondtition", qMetaTypeId<DevUpgradeCondtition>()},
        {"ModifyDevAccountCondition", qMetaTypeId<ModifyDevAccountCondition>()},
        {"GetAlarmRecordsCondition", qMetaTypeId<GetAlarmRecordsCondition>()},
        {"GetTriggeredEventsCondition", qMetaTypeId<GetTriggeredEventsCondition>()},
        {"GetEventRecordsCondition", qMetaTypeId<GetEventRecordsCondition>()},
        {"TalkOperCondition", qMetaTypeId<TalkOperCondition>()},
        {"SpeakOperCondition", qMetaTypeId<SpeakOperCondition>()},
        {"CancelAlarmCondition", qMetaTypeId<CancelAlarmCondition>()},
        {"TriggerAlarmLinkCondition", qMetaTypeId<TriggerAlarmLinkCondition>()},
        {"ActivateCondition", qMetaTypeId<ActivateCondition>()},
        {"GetDevPlatformCondition", qMetaTypeId<GetDevPlatformCondition>()},
        {"SetDevPlatformCondition", qMetaTypeId<SetDevPlatformCondition>()},
        {"ImportDevCertCondition", qMetaTypeId<ImportDevCertCondition>()},
        {"GetDevSecretQuestionsCondition", qMetaTypeId<GetDevSecretQuestionsCondition>()},
        {"ResetDevPwdCondition", qMetaTypeId<ResetDevPwdCondition>()},
        {"SetDevPlatform_kvrCondition", qMetaTypeId<SetDevPlatform_kvrCondition>()},
        {"DevSysCfgInfo", qMetaTypeId<DevSysCfgInfo>()},
        {"StreamSettingInfo", qMetaTypeId<StreamSettingInfo>()},
        {"StreamSettingMap", qMetaTypeId<QMap<int, StreamSettingInfo>>()},
        {"ImageSettingInfo", qMetaTypeId<ImageSettingInfo>()},
        {"ImageAdjustSettingInfo", qMetaTypeId<ImageAdjustSettingInfo>()},
        {"AudioSettingList", qMetaTypeId<QList<AudioSettingInfo>>()},
        {"GetRtspUrlCondition", qMetaTypeId<GetRtspUrlCondition>()},
        {"SetPatrolPresetsCondition", qMetaTypeId<SetPatrolPresetsCondition>()},
        {"GetLicensePlateRecRecordsCondition", qMetaTypeId<GetLicensePlateRecRecordsCondition>()},
        {"GetFaceRecRecordsCondition", qMetaTypeId<GetFaceRecRecordsCondition>()},
        {"GetCalendarMaskCondition", qMetaTypeId<GetCalendarMaskCondition>()},
        {"FormatDiskCondition", qMetaTypeId<FormatDiskCondition>()},
        {"GetCustomerGroupCondition", qMetaTypeId<GetCustomerGroupCondition>()},
        {"CtrlParkingLockCondition", qMetaTypeId<CtrlParkingLockCondition>()},
        {"AddFaceGroupsCondition", qMetaTypeId<AddFaceGroupsCondition>()},
        {"DeleteFaceGroupsCondition", qMetaTypeId<DeleteFaceGroupsCondition>()},
        {"EditFaceGroupsCondition", qMetaTypeId<EditFaceGroupsCondition>()},
        {"DelFacesCondition", qMetaTypeId<DelFacesCondition>()},
        {"UploadFileCondition", qMetaTypeId<UploadFileCondition>()},
        {"DownloadFileCondition", qMetaTypeId<DownloadFileCondition>()},
    };
    EXPECT_EQ(std::size(names), 70u);
    for (const NamedType& entry : names)
        EXPECT_EQ(QMetaType::type(entry.name), entry.typeId) << entry.name;
}

// A queued connection finds each parameter's type by the name the signal spells. Every
// parameter of both hubs must resolve, or the signal cannot cross threads.
TEST(MetaTypeRegistration, EverySignalParameterCanBeQueued)
{
    registerEverything();
    for (const QMetaObject* hub :
         {&ClientSignals::staticMetaObject, &MessageSignals::staticMetaObject}) {
        for (int i = hub->methodOffset(); i < hub->methodCount(); ++i) {
            const QMetaMethod method = hub->method(i);
            if (method.methodType() != QMetaMethod::Signal)
                continue;
            for (const QByteArray& type : method.parameterTypes())
                EXPECT_NE(QMetaType::type(type), QMetaType::UnknownType)
                    << method.methodSignature().constData() << ": " << type.constData();
        }
    }
}

// Every signal of both hubs, emitted through a queued call with default arguments: the
// arguments are copied by the types their names resolve to, so a name registered for the
// wrong type shows here (under the sanitizers as a memory error), and the spy sees each
// argument arrive as the type the signal declares.
TEST(MetaTypeRegistration, EverySignalCrossesAQueuedCall)
{
    registerEverything();
    for (QObject* hub :
         std::initializer_list<QObject*>{ClientSignals::instance(), MessageSignals::instance()}) {
        const QMetaObject* meta = hub->metaObject();
        for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
            const QMetaMethod method = meta->method(i);
            if (method.methodType() != QMetaMethod::Signal)
                continue;
            const QByteArray signature = method.methodSignature();
            QSignalSpy spy(hub, QByteArray("2" + signature).constData());
            ASSERT_TRUE(spy.isValid()) << signature.constData();

            const QByteArrayList typeNames = method.parameterTypes();
            ASSERT_LE(method.parameterCount(), 4) << signature.constData();
            QVariant values[4];
            QGenericArgument args[4];
            for (int p = 0; p < method.parameterCount(); ++p) {
                values[p] = QVariant(method.parameterType(p), nullptr);
                args[p] = QGenericArgument(typeNames.at(p).constData(), values[p].data());
            }
            EXPECT_TRUE(
                method.invoke(hub, Qt::QueuedConnection, args[0], args[1], args[2], args[3]))
                << signature.constData();

            QCoreApplication::processEvents();
            ASSERT_EQ(spy.count(), 1) << signature.constData();
            // A QVariant argument is stored as the value it holds.
            for (int p = 0; p < method.parameterCount(); ++p) {
                if (method.parameterType(p) != QMetaType::QVariant) {
                    EXPECT_EQ(spy.at(0).at(p).userType(), method.parameterType(p))
                        << signature.constData() << " argument " << p;
                }
            }
        }
    }
}

QSet<QByteArray> signalNames(const QMetaObject& hub, bool folded)
{
    QSet<QByteArray> names;
    for (int i = hub.methodOffset(); i < hub.methodCount(); ++i) {
        const QMetaMethod method = hub.method(i);
        if (method.methodType() == QMetaMethod::Signal)
            names.insert(folded ? method.name().toLower() : method.name());
    }
    return names;
}

// get_dev_net_req -> signalGetDevNetReq; letter case inside a word is the signal's own.
QByteArray hubSignalFor(const QByteArray& function)
{
    QByteArray name = "signal";
    for (QByteArray word : function.split('_')) {
        word[0] = char(std::toupper(static_cast<unsigned char>(word[0])));
        name += word;
    }
    return name.toLower();
}

TEST(SignalSurface, EveryExportedFunctionHasItsHubSignal)
{
    const QByteArrayList functions = {"activate_devs_cmd",
                                      "add_bullet_tag_point_req",
                                      "add_face_groups_req",
                                      "add_face_req",
                                      "add_managed_devs_cmd",
                                      "broadcast_search_devs_cmd",
                                      "calibrate_bullet_dome_req",
                                      "cancel_alarm_req",
                                      "check_dev_upgrade_req",
                                      "clear_bullet_tag_points_req",
                                      "clear_face_temperature_count_cmd",
                                      "common_req",
                                      "ctrl_parking_lock_req",
                                      "del_face_req",
                                      "del_faces_req",
                                      "del_managed_devs_cmd",
                                      "delete_face_groups_req",
                                      "disconnect_stream_req",
                                      "do_dev_upgrade_cmd",
                                      "download_file_req",
                                      "edit_face_groups_req",
                                      "edit_face_req",
                                      "edit_managed_devs_cmd",
                                      "export_face_library_progress_req",
                                      "export_face_library_req",
                                      "format_dev_disk_req",
                                      "get_alarm_records_req",
                                      "get_all_face_groups_req",
                                      "get_bullet_dome_calibrate_status_req",
                                      "get_bullet_tag_points_req",
                                      "get_chann_image_ability_req",
                                      "get_chann_image_adjust_settings_req",
                                      "get_chann_image_settings_req",
                                      "get_customer_group_req",
                                      "get_customers_count_req",
                                      "get_customers_heat_map_req",
                                      "get_customers_region_attention_req",
                                      "get_customers_regions_req",
                                      "get_dev_channels_info_cmd",
                                      "get_dev_disk_formatting_progress_req",
                                      "get_dev_disks_info_req",
                                      "get_dev_logs_req",
                                      "get_dev_net_mode_req",
                                      "get_dev_net_req",
                                      "get_dev_platform_req",
                                      "get_dev_qrcode_req",
                                      "get_dev_secret_questions_cmd",
                                      "get_dev_sys_cfg_req",
                                      "get_dev_upgrade_progress_req",
                                      "get_event_records_req",
                                      "get_face_detect_records_req",
                                      "get_face_rec_records_req",
                                      "get_faces_modeling_status_req",
                                      "get_faces_req",
                                      "get_license_plate_rec_records_req",
                                      "get_parking_lock_status_req",
                                      "get_patrols_req",
                                      "get_presets_req",
                                      "get_ptz_ability_req",
                                      "get_region_temperature_records_req",
                                      "get_rtsp_url_req",
                                      "get_snap_image_req",
                                      "get_triggered_events_req",
                                      "get_video_recordings_calendar_mask_req",
                                      "import_dev_cert_req",
                                      "import_face_library_progress_req",
                                      "import_face_library_req",
                                      "manual_bullet_dome_track_cmd",
                                      "modify_dev_account_req",
                                      "modify_dev_name_req",
                                      "open_dev_remote_config_req",
                                      "oper_patrol_preset_req",
                                      "oper_patrol_req",
                                      "oper_preset_req",
                                      "playback_ctrl_req",
                                      "playback_speed_set_req",
                                      "PTZ_3d_locate_cmd",
                                      "PTZ_auto_move_req",
                                      "PTZ_ctrl_req",
                                      "reboot_devs_cmd",
                                      "reconnect_devs_cmd",
                                      "reset_dev_pwd_cmd",
                                      "restore_factory_cmd",
                                      "saas_logout_cmd",
                                      "search_devs_cmd",
                                      "search_video_recordings_req",
                                      "set_chann_image_adjust_settings_req",
                                      "set_chann_image_settings_cmd",
                                      "set_dev_net_req",
                                      "set_dev_platform_req",
                                      "set_dev_sys_cfg_cmd",
                                      "set_devs_time_cmd",
                                      "set_dome_track_guard_initial_pos_req",
                                      "set_managed_devs_cmd",
                                      "set_osd_req",
                                      "set_patrol_presets_req",
                                      "set_saas_token_cmd",
                                      "set_search_devs_config_cmd",
                                      "skip_by_appointed_time_req",
                                      "skip_by_offset_time_req",
                                      "speak_oper_req",
                                      "talk_oper_req",
                                      "trigger_alarm_link_req",
                                      "upload_file_req",
                                      "connect_live_video_req",
                                      "playback_by_file_req",
                                      "playback_by_time_req"};
    const QSet<QByteArray> folded = signalNames(MessageSignals::staticMetaObject, true);
    for (const QByteArray& function : functions)
        EXPECT_TRUE(folded.contains(hubSignalFor(function)))
            << function.constData() << " -> " << hubSignalFor(function).constData();

    // The exceptions to the naming rule, and the signals no exported function emits.
    const QSet<QByteArray> exact = signalNames(MessageSignals::staticMetaObject, false);
    for (const char* name :
         {"signalReleaseClientSdk", "signalPrepareStartDgw", "signalGetDevPlatform_kvrReq",
          "signalSetDevPlatform_kvrReq", "signalPlaybackSpeedSetReq",
          "signalGetChannStreamSettingsReq", "signalSetChannStreamSettingsCmd",
          "signalSetChannsStreamsSettingsCmd", "signalGetOtherEventRecordsReq",
          "signalRenewalRequestId", "signalSetSaasTokenCmd", "signalSaasLogoutCmd",
          "signalMessageComing", "signalCommonReq", "signalGetDevQRCodeReq", "signalSetOSDReq",
          "signalPTZ3dLocateCmd", "signalGetPTZAbilityReq"})
        EXPECT_TRUE(exact.contains(name)) << name;
}

TEST(SignalSurface, ClientSignalsHasEveryPublishedSignal)
{
    const QSet<QByteArray> names = signalNames(ClientSignals::staticMetaObject, false);
    for (const char* name :
         {// Gateway state, bookkeeping and pushes.
          "signalPrepareStartDgwSuccess", "signalDgwAbnormal", "signalRequestTimeout",
          "signalCommonRequestFailed", "signalSearchedDevsPush", "signalBroadcastSearchedDevsPush",
          "signalDevStatusPush", "signalDevP2PSuccessPush", "signalDevInfoPush",
          "signalDevChannelsInfoPush", "signalDevTempUserCodePush", "signalFaceDetectPush",
          "signalFaceTemperatureCountPush", "signalCommonAlarmPush", "signalTlvDataPush",
          "signalTalkEventPush", "signalSpeakEventPush", "signalUploadUpgradeFileFinished",
          "signalPushFileTransferProgress", "signalStreamData", "signalStreamEventPush",
          "signalPlaybackByFileProgressPush", "signalPlaybackByTimeProgressPush",
          // Answers to wire requests.
          "signalActivateDevRes", "signalGetDevNetRes", "signalSetDevNetRes",
          "signalGetDevPlatformRes", "signalSetDevPlatformRes", "signalGetDevPlatform_kvrRes",
          "signalSetDevPlatform_kvrRes", "signalImportDevCertRes", "signalGetRtspUrlRes",
          "signalSearchVideoRecordingsRes", "signalPTZCtrlRes", "signalGetPresetsRes",
          "signalOperPresetsRes", "signalGetPatrolsRes", "signalOperPatrolRes",
          "signalOperPatrolPresetRes", "signalSetPatrolPresetsRes", "signalDevConfigRes",
          "signalAddFaceRes", "signalGetFacesRes", "signalDelFaceRes",
          "signalGetFaceDetectRecordsRes", "signalCheckDevUpgradeRes",
          "signalGetDevUpgradeProgressRes", "signalModifyDevAccountRes",
          "signalGetDevSecretQuestionsRes", "signalResetDevPwdRes", "signalTalkOperRes",
          "signalSpeakOperRes", "signalCommonRes",
          // Answers to JSON methods.
          "signalAddBulletTagPointRes", "signalAddFaceGroupsRes", "signalCalibrateBulletDomeRes",
          "signalCancelAlarmRes", "signalClearBulletTagPointsRes", "signalCtrlParkingLockRes",
          "signalDeleteFaceGroupsRes", "signalEditFaceGroupsRes", "signalEditFaceRes",
          "signalExportFaceLibraryProgressRes", "signalExportFaceLibraryRes",
          "signalFormatDevDiskRes", "signalGetAlarmRecordsRes",
          "signalGetAllAudioInChannsSettingsRes", "signalGetAllAudioOutChannsSettingsRes",
          "signalGetAllFaceGroupsRes", "signalGetBulletDomeCalibrateStatusRes",
          "signalGetBulletTagPointsRes", "signalGetChannImageAbilityRes",
          "signalGetChannImageAdjustSettingsRes", "signalGetChannImageSettingsRes",
          "signalGetChannStreamSettingsRes", "signalGetCustomerGroupRes",
          "signalGetCustomersCountRes", "signalGetCustomersHeatMapRes",
          "signalGetCustomersRegionAttentionRes", "signalGetCustomersRegionsRes",
          "signalGetDevDiskFormattingProgressRes", "signalGetDevDisksInfoRes",
          "signalGetDevLogsRes", "signalGetDevNetModeRes", "signalGetDevQRCodeRes",
          "signalGetDevSysCfgRes", "signalGetEventRecordsRes", "signalGetFaceRecRecordsRes",
          "signalGetFacesModelingStatusRes", "signalGetLicensePlateRecRecordsRes",
          "signalGetPTZAbilityRes", "signalGetParkingLockStatusRes",
          "signalGetRegionTemperatureRecordsRes", "signalGetSnapImageRes",
          "signalGetTriggeredEventsRes", "signalGetVideoRecordingsCalendarMaskRes",
          "signalImportFaceLibraryProgressRes", "signalImportFaceLibraryRes",
          "signalPTZAutoMoveRes", "signalSetChannImageAdjustSettingsRes",
          "signalSetDomeTrackGuardInitialPosRes", "signalTriggerAlarmLinkRes"})
        EXPECT_TRUE(names.contains(name)) << name;
}

TEST(Records, DefaultsAndDesignatedInitialisation)
{
    const DevNetInfo netInfo;
    EXPECT_EQ(netInfo.netMode, -1);
    EXPECT_EQ(netInfo.httpPort, 0);
    EXPECT_EQ(netInfo.netCardIndex, -1);

    const SetDevNetCondition condition{.requestId = QStringLiteral("r1"),
                                       .devId = QStringLiteral("d1"),
                                       .dns = QStringLiteral("8.8.8.8")};
    EXPECT_EQ(condition.dns, QStringLiteral("8.8.8.8"));
    EXPECT_TRUE(condition.ip.isEmpty());

    const PresetOperCondition preset{
        .channelId = {.devId = QStringLiteral("d1"), .channelIndex = 3},
        .presetNum = 7,
        .operation = PresetOperCall};
    EXPECT_EQ(preset.channelId.channelIndex, 3u);
    EXPECT_NE(preset, PresetOperCondition{});
}

// Every record survives the trip to JSON text and back with every field set, nested records
// and lists included.
class RecordJsonRoundTrip : public testing::TestWithParam<int>
{};

struct RecordRow
{
    const char* name;
    std::function<void(vms_test::RecordFiller&)> check;
};

template<class T>
void checkJsonRoundTrip(vms_test::RecordFiller& filler)
{
    const T original = filler.make<T>();

    // Every property must show in the JSON with a value unlike its default; a property whose
    // type Qt cannot resolve reads as nothing and drops out.
    const QJsonObject json = rj::toJson(original);
    const QJsonObject defaults = rj::toJson(T{});
    const QMetaObject& meta = T::staticMetaObject;
    EXPECT_EQ(json.size(), meta.propertyCount() - meta.propertyOffset());
    for (auto it = json.begin(); it != json.end(); ++it)
        EXPECT_NE(it.value(), defaults.value(it.key())) << it.key().toStdString();

    const QByteArray text = QJsonDocument(json).toJson();
    bool read = false;
    const T back = rj::fromJson<T>(QJsonDocument::fromJson(text).object(), &read);
    EXPECT_TRUE(read);
    EXPECT_EQ(back, original) << text.constData();
}

const std::vector<RecordRow>& recordRows()
{
    static const std::vector<RecordRow> rows = {
#define VMS_RECORD_ROW(Name) {#Name, &checkJsonRoundTrip<Name>},
        VMS_RECORD_TYPES(VMS_RECORD_ROW)
#undef VMS_RECORD_ROW
    };
    return rows;
}

TEST_P(RecordJsonRoundTrip, EveryFieldComesBack)
{
    vms_test::RecordFiller filler;
    recordRows().at(std::size_t(GetParam())).check(filler);
}

INSTANTIATE_TEST_SUITE_P(AllRecords, RecordJsonRoundTrip,
                         testing::Range(0, int(recordRows().size())),
                         [](const testing::TestParamInfo<int>& info) {
                             return std::string(recordRows().at(std::size_t(info.param)).name);
                         });

TEST(RecordJson, ValueForms)
{
    const AlarmInfo alarm{.channelId = {.devId = QStringLiteral("d"), .channelIndex = 2},
                          .attachments = {QByteArray("\x00\x01", 2)},
                          .detail = QByteArray("{}")};
    const QJsonObject json = rj::toJson(alarm);
    EXPECT_EQ(
        json.value(QStringLiteral("channelId")).toObject().value(QStringLiteral("channelIndex")),
        QJsonValue(2));
    EXPECT_EQ(json.value(QStringLiteral("detail")), QJsonValue(QStringLiteral("e30=")));
    EXPECT_EQ(json.value(QStringLiteral("attachments")),
              QJsonValue(QJsonArray{QStringLiteral("AAE=")}));

    const PTZCtrlCondition ptz{.operation = PTZOperationZoomIn, .action = PTZActionStop};
    EXPECT_EQ(rj::toJson(ptz).value(QStringLiteral("operation")),
              QJsonValue(int(PTZOperationZoomIn)));

    const DevInfoFromDgw device{
        .abilityDetails = {{-4, AiAbilityInfo{.name = QStringLiteral("lpr")}}}};
    EXPECT_EQ(rj::toJson(device)
                  .value(QStringLiteral("abilityDetails"))
                  .toObject()
                  .value(QStringLiteral("-4"))
                  .toObject()
                  .value(QStringLiteral("name")),
              QJsonValue(QStringLiteral("lpr")));

    const PlaybackByTimeCondition playback{.startTime =
                                               QDateTime(QDate(2021, 3, 4), QTime(5, 6, 7, 89))};
    EXPECT_EQ(rj::toJson(playback).value(QStringLiteral("startTime")),
              QJsonValue(QStringLiteral("2021-03-04T05:06:07.089")));
}

TEST(RecordJson, ReadingIsLenientAboutMissingKeysAndStrictAboutTypes)
{
    bool ok = false;
    const DevNetInfo partial =
        rj::fromJson<DevNetInfo>(QJsonObject{{QStringLiteral("ip"), QStringLiteral("10.0.0.9")},
                                             {QStringLiteral("unknown"), 1}},
                                 &ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(partial.ip, QStringLiteral("10.0.0.9"));
    EXPECT_EQ(partial.netMode, -1) << "a missing key keeps the field's default";

    const DevNetInfo wrong =
        rj::fromJson<DevNetInfo>(QJsonObject{{QStringLiteral("httpPort"), QStringLiteral("80")},
                                             {QStringLiteral("dns"), QStringLiteral("1.1.1.1")}},
                                 &ok);
    EXPECT_FALSE(ok);
    EXPECT_EQ(wrong.httpPort, 0);
    EXPECT_EQ(wrong.dns, QStringLiteral("1.1.1.1")) << "the fields that fit are still read";

    rj::fromJson<PatrolInfo>(QJsonObject{{QStringLiteral("patrolPresets"), QJsonObject{}}}, &ok);
    EXPECT_FALSE(ok) << "an object where a list belongs";
}

TEST(RecordJson, ListsAndMapsOfRecords)
{
    vms_test::RecordFiller filler;
    const PresetList presets = filler.makeList<PresetInfo>(3);
    bool ok = false;
    EXPECT_EQ(rj::fromJsonValue<PresetList>(rj::toJsonValue(presets), &ok), presets);
    EXPECT_TRUE(ok);

    const EventMap events{{3, filler.makeList<EventInfo>()}, {9, filler.makeList<EventInfo>(1)}};
    EXPECT_EQ(rj::fromJsonValue<EventMap>(rj::toJsonValue(events), &ok), events);
    EXPECT_TRUE(ok);

    EXPECT_TRUE(rj::toText(presets.first()).startsWith(QStringLiteral("vms_sdk::PresetInfo {")));
}

} // namespace
