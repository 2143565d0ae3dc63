// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "vms_protocol/message_type.h"

#include <string_view>

namespace vms_sdk {

// What differs between the dispatcher's request slots: the message type they send, whether
// the request is registered to wait for its answer, and the line they log (none: empty).
struct RequestRow
{
    MessageType type;
    bool registered;
    std::string_view log;
};

// One row per request slot, named after it. The face requests and the face records request
// have a second row for their other path.
namespace requests {
// clang-format off
inline constexpr RequestRow SearchDevs{SearchDevsCmd, false, {}};
inline constexpr RequestRow SetSearchDevsConfig{SetSearchDevsConfigCmd, false, "client cmd set searching devices configuration"};
inline constexpr RequestRow BroadcastSearchDevs{BroadcastSearchDevsCmd, false, "client cmd broadcast search devices"};
inline constexpr RequestRow ActivateDevs{DevActivateCmd, false, "client cmd activate devices"};
inline constexpr RequestRow GetDevSecretQuestions{DevSecretQuestionsGetReq, false, "client cmd get device secret questions"};
inline constexpr RequestRow ResetDevPwd{DevPwdResetReq, false, {}};
inline constexpr RequestRow GetDevNet{DevNetGetReq, true, "client request get device net configuration"};
inline constexpr RequestRow SetDevNet{DevNetSetReq, true, "client request set device net configuration"};
inline constexpr RequestRow GetDevNetMode{CommonReq, true, "client request get device net mode"};
inline constexpr RequestRow GetDevDisksInfo{CommonReq, true, "client request get device disks information"};
inline constexpr RequestRow FormatDevDisk{CommonReq, true, {}};
inline constexpr RequestRow GetDevDiskFormattingProgress{CommonReq, true, "client request get device disk formatting progress"};
inline constexpr RequestRow GetDevPlatform{DevPlatformGetReq, true, "client request get device platform configuration"};
inline constexpr RequestRow SetDevPlatform{DevPlatformSetReq, true, "client request set device platform configuration"};
inline constexpr RequestRow GetDevPlatform_kvr{DevPlatform_kvrGetReq, true, "client request get device platform_kvr configuration"};
inline constexpr RequestRow SetDevPlatform_kvr{DevPlatform_kvrSetReq, true, "client request set device platform_kvr configuration"};
inline constexpr RequestRow ImportDevCert{DevCertImportReq, true, {}};
inline constexpr RequestRow GetDevQRCode{CommonReq, true, {}};
inline constexpr RequestRow GetDevChannelsInfo{GetDevChannelsInfoCmd, false, "client cmd get device channels information"};
inline constexpr RequestRow GetDevLogs{CommonReq, true, "client request get device logs"};
inline constexpr RequestRow SearchVideoRecordings{SearchVideoRecordingsReq, true, "client request search video recordings"};
inline constexpr RequestRow GetVideoRecordingsCalendarMask{CommonReq, true, "client request get video recordings calendar mask"};
inline constexpr RequestRow GetRtspUrl{GetRtspUrlReq, true, "client request get rtsp url"};
inline constexpr RequestRow GetPTZAbility{CommonReq, true, "client request get ptz ability"};
inline constexpr RequestRow PTZAutoMove{CommonReq, true, "client request ptz auto move"};
inline constexpr RequestRow PTZCtrl{PTZCtrlReq, true, "client request ptz ctrl"};
inline constexpr RequestRow GetPresets{GetPresetsReq, true, {}};
inline constexpr RequestRow OperPreset{PresetOperReq, true, "client request operate preset"};
inline constexpr RequestRow GetPatrols{GetPatrolsReq, true, {}};
inline constexpr RequestRow OperPatrol{PatrolOperReq, true, "client request operate patrol"};
inline constexpr RequestRow OperPatrolPreset{PatrolPresetOperReq, true, "client request operate patrol presets"};
inline constexpr RequestRow SetPatrolPresets{SetPatrolPresetsReq, true, {}};
inline constexpr RequestRow PTZ3dLocate{CommonReq, false, {}};
inline constexpr RequestRow AddBulletTagPoint{CommonReq, true, "client request add bullet tag point"};
inline constexpr RequestRow GetBulletTagPoints{CommonReq, true, "client request get bullet tag points"};
inline constexpr RequestRow ClearBulletTagPoints{CommonReq, true, "client request clear bullet tag points"};
inline constexpr RequestRow CalibrateBulletDome{CommonReq, true, "client request calibrate bullet dome"};
inline constexpr RequestRow GetBulletDomeCalibrateStatus{CommonReq, true, "client request bullet dome calibrate status"};
inline constexpr RequestRow SetDomeTrackGuardInitialPos{CommonReq, true, "client request set dome track guard initial pos"};
inline constexpr RequestRow ManualBulletDomeTrack{CommonReq, false, "client cmd manual bullet dome track"};
inline constexpr RequestRow OpenDevRemoteConfig{OpenRemoteConfigReq, false, "client request open device remote configuration"};
inline constexpr RequestRow CheckDevUpgrade{CheckDevUpgradeReq, true, "client request check device upgrade information"};
inline constexpr RequestRow DoDevUpgrade{DoDevUpgradeCmd, false, "client cmd do device upgrade"};
inline constexpr RequestRow GetDevUpgradeProgress{GetDevUpgradeProgressReq, true, "client request get device upgrade progress"};
inline constexpr RequestRow ModifyDevAccount{ModifyDevAccountReq, true, "client request modify device account"};
inline constexpr RequestRow GetDevSysCfg{CommonReq, true, "client request get device system configure"};
inline constexpr RequestRow SetDevSysCfg{CommonReq, false, "client cmd set device system configure"};
inline constexpr RequestRow GetChannImageAdjustSettings{CommonReq, true, "client request get channel image adjust settings"};
inline constexpr RequestRow SetChannImageAdjustSettings{CommonReq, true, "client request set channel image adjust settings"};
inline constexpr RequestRow GetChannImageAbility{CommonReq, true, "client request get channel image ability"};
inline constexpr RequestRow GetChannImageSettings{CommonReq, true, "client request get channel image settings"};
inline constexpr RequestRow SetChannImageSettings{CommonReq, false, "client cmd set channel image settings"};
inline constexpr RequestRow SetOSD{SetOSDReq, true, "client request set osd"};
inline constexpr RequestRow ModifyDevName{ModifyDevNameReq, true, {}};
inline constexpr RequestRow AddFace{AddFaceReq, true, "client request add face"};
inline constexpr RequestRow AddFaceJson{CommonReq, true, "client request add face"};
inline constexpr RequestRow EditFace{CommonReq, true, {}};
inline constexpr RequestRow GetFaces{GetFacesReq, true, {}};
inline constexpr RequestRow GetFacesJson{CommonReq, true, {}};
inline constexpr RequestRow GetFacesModelingStatus{CommonReq, true, "client request get faces modeling status"};
inline constexpr RequestRow DelFace{DelFaceReq, true, {}};
inline constexpr RequestRow DelFaces{CommonReq, true, "client request delete faces"};
inline constexpr RequestRow GetFaceDetectRecords{GetFaceDetectRecordsReq, true, "client request get face detect records"};
inline constexpr RequestRow ClearFaceTemperatureCount{ClearFaceTemperatureCountCmd, false, "client cmd clear face temperature count"};
inline constexpr RequestRow GetAllFaceGroups{CommonReq, true, "client request get face groups"};
inline constexpr RequestRow AddFaceGroups{CommonReq, true, "client request add face groups"};
inline constexpr RequestRow DeleteFaceGroups{CommonReq, true, {}};
inline constexpr RequestRow EditFaceGroups{CommonReq, true, "client request edit face groups"};
inline constexpr RequestRow ImportFaceLibrary{CommonReq, true, "client request import face library"};
inline constexpr RequestRow ImportFaceLibraryProgress{CommonReq, true, "client request import face library progress"};
inline constexpr RequestRow ExportFaceLibrary{CommonReq, true, "client request export face library"};
inline constexpr RequestRow ExportFaceLibraryProgress{CommonReq, true, "client request export face library progress"};
inline constexpr RequestRow GetRegionTemperatureRecords{CommonReq, true, "client request get region temperature records"};
inline constexpr RequestRow GetAlarmRecords{CommonReq, true, {}};
inline constexpr RequestRow GetTriggeredEvents{CommonReq, true, "client request get triggered events"};
inline constexpr RequestRow GetEventRecords{CommonReq, true, {}};
inline constexpr RequestRow GetLicensePlateRecRecords{CommonReq, true, "client request get license plate recognition records"};
inline constexpr RequestRow GetFaceRecRecords{CommonReq, true, "client request get face recognition records"};
inline constexpr RequestRow GetFaceCaptureRecords{CommonReq, true, "client request get face capture records"};
inline constexpr RequestRow GetOtherEventRecords{CommonReq, true, "client request get other event records"};
inline constexpr RequestRow CancelAlarm{CommonReq, true, "client request cancel alarm"};
inline constexpr RequestRow TriggerAlarmLink{CommonReq, true, {}};
inline constexpr RequestRow GetSnapImage{CommonReq, true, "client request get snap image"};
inline constexpr RequestRow GetCustomersCount{CommonReq, true, "client get customers count req"};
inline constexpr RequestRow GetCustomersRegions{CommonReq, true, "client request get customers regions"};
inline constexpr RequestRow GetCustomersRegionAttention{CommonReq, true, "client request get customers region attention"};
inline constexpr RequestRow GetCustomersHeatMap{CommonReq, true, "client request get customers heat map"};
inline constexpr RequestRow GetCustomerGroup{CommonReq, true, {}};
inline constexpr RequestRow GetParkingLockStatus{CommonReq, true, "client request get parking lock status"};
inline constexpr RequestRow CtrlParkingLock{CommonReq, true, "client request control parking lock"};
inline constexpr RequestRow TalkOper{TalkOperReq, true, "client request talk operation"};
inline constexpr RequestRow SpeakOper{SpeakOperReq, true, "client request speak operation"};
inline constexpr RequestRow UploadFile{UploadFileReq, false, "client req upload file"};
inline constexpr RequestRow DownloadFile{DownloadFileReq, false, {}};
inline constexpr RequestRow Common{CommonReq, true, "client request common"};
// clang-format on
} // namespace requests

} // namespace vms_sdk
