// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QMetaType>
#include <QString>

namespace vms_sdk {

// Every message type that travels between the library and a gateway, with its number.
// One list feeds the enumeration and the name table, so the two cannot drift apart.
// 34, 35 and 43 are reserved by the gateway and stay unassigned.
// clang-format off
#define VMS_MESSAGE_TYPES(X) \
    X(InitDgwReq, 1) \
    X(InitDgwRes, 2) \
    X(ClientHelloCmd, 3) \
    X(DgwExitCmd, 4) \
    X(SetSearchDevsConfigCmd, 5) \
    X(SearchDevsCmd, 6) \
    X(SetManagedDevsCmd, 7) \
    X(BroadcastSearchDevsCmd, 8) \
    X(AddManagedDevsCmd, 9) \
    X(DelManagedDevsCmd, 10) \
    X(EditManagedDevsCmd, 11) \
    X(DevTimingCmd, 12) \
    X(RebootDevsCmd, 13) \
    X(RestoreFactoryCmd, 14) \
    X(ReconnectDevsCmd, 15) \
    X(DevActivateCmd, 16) \
    X(GetDevChannelsInfoCmd, 17) \
    X(ActivateDevRes, 18) \
    X(ClearFaceTemperatureCountCmd, 19) \
    X(DevNetGetReq, 20) \
    X(DevNetGetRes, 21) \
    X(DevNetSetReq, 22) \
    X(DevPlatformGetReq, 23) \
    X(DevPlatformGetRes, 24) \
    X(DevPlatformSetReq, 25) \
    X(DevPlatformSetRes, 26) \
    X(DevPlatform_kvrGetReq, 27) \
    X(DevPlatform_kvrGetRes, 28) \
    X(DevPlatform_kvrSetReq, 29) \
    X(DevPlatform_kvrSetRes, 30) \
    X(DevCertImportReq, 31) \
    X(DevCertImportRes, 32) \
    X(DevNetSetRes, 33) \
    X(SetSaasTokenCmd, 36) \
    X(SaasLogoutCmd, 37) \
    X(SearchedDevsPush, 38) \
    X(BroadcastSearchedDevsPush, 39) \
    X(DevStatusPush, 40) \
    X(DevP2PSuccessPush, 41) \
    X(DevInfoPush, 42) \
    X(DevTempUserCodePush, 44) \
    X(DevChannelsInfoPush, 45) \
    X(PlaybackPosProgressPush, 46) \
    X(PlaybackTimeProgressPush, 47) \
    X(FaceDetectLivePush, 48) \
    X(FaceCountPush, 49) \
    X(CommonAlarmPush, 50) \
    X(TlvDataPush, 51) \
    X(SearchVideoRecordingsReq, 52) \
    X(GetRtspUrlReq, 53) \
    X(GetRtspUrlRes, 54) \
    X(SearchVideoRecordingsRes, 55) \
    X(PTZCtrlReq, 56) \
    X(PTZCtrlRes, 57) \
    X(GetPresetsReq, 58) \
    X(GetPresetRes, 59) \
    X(PresetOperReq, 60) \
    X(PresetOperRes, 61) \
    X(GetPatrolsReq, 62) \
    X(GetPatrolRes, 63) \
    X(PatrolOperReq, 64) \
    X(PatrolOperRes, 65) \
    X(PatrolPresetOperReq, 66) \
    X(PatrolPresetOperRes, 67) \
    X(SetPatrolPresetsReq, 68) \
    X(SetPatrolPresetsRes, 69) \
    X(SetOSDReq, 70) \
    X(ModifyDevNameReq, 71) \
    X(DevConfigRes, 72) \
    X(AddFaceReq, 73) \
    X(AddFaceRes, 74) \
    X(GetFacesReq, 75) \
    X(GetFacesRes, 76) \
    X(DelFaceReq, 77) \
    X(DelFaceRes, 78) \
    X(GetFaceDetectRecordsReq, 79) \
    X(GetFaceDetectRecordsRes, 80) \
    X(OpenRemoteConfigReq, 81) \
    X(CheckDevUpgradeReq, 82) \
    X(CheckDevUpgradeRes, 83) \
    X(UploadUpgradeFileFinishedPush, 84) \
    X(DoDevUpgradeCmd, 85) \
    X(GetDevUpgradeProgressReq, 86) \
    X(GetDevUpgradeProgressRes, 87) \
    X(ModifyDevAccountReq, 88) \
    X(ModifyDevAccountRes, 89) \
    X(DevSecretQuestionsGetReq, 90) \
    X(DevSecretQuestionsGetRes, 91) \
    X(DevPwdResetReq, 92) \
    X(ResetDevPwdRes, 93) \
    X(TalkOperReq, 94) \
    X(TalkOperRes, 95) \
    X(SpeakOperReq, 96) \
    X(SpeakOperRes, 97) \
    X(TalkEventPush, 98) \
    X(SpeakEventPush, 99) \
    X(CommonReq, 100) \
    X(CommonRes, 101) \
    X(StreamData, 102) \
    X(StreamEventPush, 103) \
    X(LiveVideoConnReq, 104) \
    X(PlaybackByFileReq, 105) \
    X(PlaybackByTimeReq, 106) \
    X(SkipByPosReq, 107) \
    X(SkipByTimeReq, 108) \
    X(PlaybackCtrlReq, 109) \
    X(PlaybackSpeedSetReq, 110) \
    X(UploadFileReq, 111) \
    X(DownloadFileReq, 112) \
    X(FileTransferProgressPush, 113)
// clang-format on

// A plain enumeration: the number is what matters on the wire (one signed byte), and a
// gateway may send numbers the library has no name for.
enum MessageType : int {
#define VMS_MESSAGE_TYPE_ENUMERATOR(name, number) name = number,
    VMS_MESSAGE_TYPES(VMS_MESSAGE_TYPE_ENUMERATOR)
#undef VMS_MESSAGE_TYPE_ENUMERATOR
};

// The enumerator's name ("DevNetGetReq"), or an empty string for an unassigned number.
QString messageTypeName(int type);

} // namespace vms_sdk

Q_DECLARE_METATYPE(vms_sdk::MessageType)
