// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/client/meta_types.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_protocol/message_type.h"
#include "vms_sdk/client/record_types.h"

namespace vms_sdk {

// The names applications know come first, in their published order; a name registered twice
// (several types are both results and conditions) simply maps to the same type again. The
// names after them are those that signal parameters spell with the namespace: a queued
// connection looks a parameter's type up by the name written in the signal.

void registerResultMetaTypes()
{
    qRegisterMetaType<DevInfoList>("DevInfoList");
    qRegisterMetaType<DevStatus>("DevStatus");
    qRegisterMetaType<DevInfoFromDgw>("DevInfoFromDgw");
    qRegisterMetaType<Response>("Response");
    qRegisterMetaType<ConnStatus>("ConnStatus");
    qRegisterMetaType<StreamEvent>("StreamEvent");
    qRegisterMetaType<DevChanInfoList>("DevChanInfoList");
    qRegisterMetaType<PresetList>("PresetList");
    qRegisterMetaType<PresetOper>("PresetOper");
    qRegisterMetaType<PatrolList>("PatrolList");
    qRegisterMetaType<PatrolOper>("PatrolOper");
    qRegisterMetaType<PatrolPresetOper>("PatrolPresetOper");
    qRegisterMetaType<FaceInfoList>("FaceInfoList");
    qRegisterMetaType<FaceDetectRecordList>("FaceDetectRecordList");
    qRegisterMetaType<FaceDetectRecordInfo>("FaceDetectRecordInfo");
    qRegisterMetaType<DevTempUserCodeList>("DevTempUserCodeList");
    qRegisterMetaType<FaceCountInfo>("FaceCountInfo");
    qRegisterMetaType<AlarmInfo>("AlarmInfo");
    qRegisterMetaType<AlarmList>("AlarmList");
    qRegisterMetaType<EventTypeList>("EventTypeList");
    qRegisterMetaType<EventInfo>("EventInfo");
    qRegisterMetaType<EventList>("EventList");
    qRegisterMetaType<EventMap>("EventMap");
    qRegisterMetaType<RegionTemperatureRecordList>("RegionTemperatureRecordList");
    qRegisterMetaType<ChannelId>("ChannelId");
    qRegisterMetaType<DevNetInfo>("DevNetInfo");
    qRegisterMetaType<CustomersCountList>("CustomersCountList");
    qRegisterMetaType<CustomersRegionList>("CustomersRegionList");
    qRegisterMetaType<CustomersHeatMapInfo>("CustomersHeatMapInfo");
    qRegisterMetaType<DevUpgradeInfo>("DevUpgradeInfo");
    qRegisterMetaType<ImageAdjustSettingInfo>("ImageAdjustSettingInfo");
    qRegisterMetaType<TalkEvent>("TalkEvent");
    qRegisterMetaType<DevPlatformInfo>("DevPlatformInfo");
    qRegisterMetaType<DevSysCfgInfo>("DevSysCfgInfo");
    qRegisterMetaType<ImageSettingInfo>("ImageSettingInfo");
    qRegisterMetaType<StreamSettingList>("StreamSettingList");
    qRegisterMetaType<AudioSettingList>("AudioSettingList");
    qRegisterMetaType<DevLogList>("DevLogList");
    qRegisterMetaType<BulletTagPointList>("BulletTagPointList");
    qRegisterMetaType<CalibrationStatusInfo>("CalibrationStatusInfo");
    qRegisterMetaType<LicensePlateRecRecordList>("LicensePlateRecRecordList");
    qRegisterMetaType<FaceRecRecordList>("FaceRecRecordList");
    qRegisterMetaType<PTZAbilityInfo>("PTZAbilityInfo");
    qRegisterMetaType<DevDiskList>("DevDiskList");
    qRegisterMetaType<CustomerGroupList>("CustomerGroupList");
    qRegisterMetaType<ParkingLockList>("ParkingLockList");
    qRegisterMetaType<FaceGroupList>("FaceGroupList");
    qRegisterMetaType<FileTransferProgress>("FileTransferProgress");

    // Beyond the published names.
    qRegisterMetaType<DgwAbnormal>("DgwAbnormal");
    qRegisterMetaType<StreamId>("vms_sdk::StreamId");
    qRegisterMetaType<EventMap>("vms_sdk::EventMap");
    qRegisterMetaType<PTZOperation>("PTZOperation");
    qRegisterMetaType<PTZAction>("PTZAction");
    qRegisterMetaType<DevChannelInfo>("DevChannelInfo");
    qRegisterMetaType<DevTempUserCode>("DevTempUserCode");
    qRegisterMetaType<DevPlatformInfo_kvr>("DevPlatformInfo_kvr");
    qRegisterMetaType<VideoRecList>("VideoRecList");
    qRegisterMetaType<ImageAbilityInfo>("ImageAbilityInfo");
    qRegisterMetaType<CustomersRegionAttentionList>("CustomersRegionAttentionList");
    qRegisterMetaType<FacesModelingStatusInfo>("FacesModelingStatusInfo");
    qRegisterMetaType<FaceLibraryImportProgress>("FaceLibraryImportProgress");
    qRegisterMetaType<QList<QDate>>();
    qRegisterMetaType<QPair<QString, int>>();
    registerRecordMetaTypes();
}

void registerRequestMetaTypes()
{
    qRegisterMetaType<StreamId>("StreamId");
    qRegisterMetaType<InitDgwCondition>("InitDgwCondition");
    qRegisterMetaType<SearchDevsConfig>("SearchDevsConfig");
    qRegisterMetaType<DevInfoList>("DevInfoList");
    qRegisterMetaType<RecsSearchCondition>("RecsSearchCondition");
    qRegisterMetaType<LiveVideoConnCondition>("LiveVideoConnCondition");
    qRegisterMetaType<PlaybackByFileCondition>("PlaybackByFileCondition");
    qRegisterMetaType<PlaybackByTimeCondition>("PlaybackByTimeCondition");
    qRegisterMetaType<PlaybackCtrl>("PlaybackCtrl");
    qRegisterMetaType<PTZAutoMoveCondition>("PTZAutoMoveCondition");
    qRegisterMetaType<PTZCtrlCondition>("PTZCtrlCondition");
    qRegisterMetaType<PresetOperCondition>("PresetOperCondition");
    qRegisterMetaType<ChannelCondition>("ChannelCondition");
    qRegisterMetaType<AiChannelCondition>("AiChannelCondition");
    qRegisterMetaType<DeviceCondition>("DeviceCondition");
    qRegisterMetaType<AiDeviceCondition>("AiDeviceCondition");
    qRegisterMetaType<PatrolOperCondition>("PatrolOperCondition");
    qRegisterMetaType<PatrolPresetOperCondition>("PatrolPresetOperCondition");
    qRegisterMetaType<PTZ3dLocateCondition>("PTZ3dLocateCondition");
    qRegisterMetaType<AddBulletTagPointCondition>("AddBulletTagPointCondition");
    qRegisterMetaType<CalibrateBulletDomeCondition>("CalibrateBulletDomeCondition");
    qRegisterMetaType<ManualTrackCondition>("ManualTrackCondition");
    qRegisterMetaType<SetOSDCondition>("SetOSDCondition");
    qRegisterMetaType<ModifyFaceCondition>("ModifyFaceCondition");
    qRegisterMetaType<GetFacesCondition>("GetFacesCondition");
    qRegisterMetaType<DelFaceCondition>("DelFaceCondition");
    qRegisterMetaType<GetFaceDetectRecordsCondition>("GetFaceDetectRecordsCondition");
    qRegisterMetaType<SetDevNetCondition>("SetDevNetCondition");
    qRegisterMetaType<GetRegionTemperatureRecordsCondition>("GetRegionTemperatureRecordsCondition");
    qRegisterMetaType<GetSnapImageCondition>("GetSnapImageCondition");
    qRegisterMetaType<ModifyDevNameCondition>("ModifyDevNameCondition");
    qRegisterMetaType<GetCustomersCntCondition>("GetCustomersCntCondition");
    qRegisterMetaType<GetCustomersRegionAttentionCondition>("GetCustomersRegionAttentionCondition");
    qRegisterMetaType<GetCutomersHeatMapCondition>("GetCutomersHeatMapCondition");
    qRegisterMetaType<DevUpgradeCondtition>("DevUpgradeCondtition");
    qRegisterMetaType<ModifyDevAccountCondition>("ModifyDevAccountCondition");
    qRegisterMetaType<GetAlarmRecordsCondition>("GetAlarmRecordsCondition");
    qRegisterMetaType<GetTriggeredEventsCondition>("GetTriggeredEventsCondition");
    qRegisterMetaType<GetEventRecordsCondition>("GetEventRecordsCondition");
    qRegisterMetaType<TalkOperCondition>("TalkOperCondition");
    qRegisterMetaType<SpeakOperCondition>("SpeakOperCondition");
    qRegisterMetaType<CancelAlarmCondition>("CancelAlarmCondition");
    qRegisterMetaType<TriggerAlarmLinkCondition>("TriggerAlarmLinkCondition");
    qRegisterMetaType<ActivateCondition>("ActivateCondition");
    qRegisterMetaType<GetDevPlatformCondition>("GetDevPlatformCondition");
    qRegisterMetaType<SetDevPlatformCondition>("SetDevPlatformCondition");
    qRegisterMetaType<ImportDevCertCondition>("ImportDevCertCondition");
    qRegisterMetaType<GetDevSecretQuestionsCondition>("GetDevSecretQuestionsCondition");
    qRegisterMetaType<ResetDevPwdCondition>("ResetDevPwdCondition");
    qRegisterMetaType<SetDevPlatform_kvrCondition>("SetDevPlatform_kvrCondition");
    qRegisterMetaType<DevSysCfgInfo>("DevSysCfgInfo");
    qRegisterMetaType<StreamSettingInfo>("StreamSettingInfo");
    qRegisterMetaType<StreamSettingMap>("StreamSettingMap");
    qRegisterMetaType<ImageSettingInfo>("ImageSettingInfo");
    qRegisterMetaType<ImageAdjustSettingInfo>("ImageAdjustSettingInfo");
    qRegisterMetaType<AudioSettingList>("AudioSettingList");
    qRegisterMetaType<GetRtspUrlCondition>("GetRtspUrlCondition");
    qRegisterMetaType<SetPatrolPresetsCondition>("SetPatrolPresetsCondition");
    qRegisterMetaType<GetLicensePlateRecRecordsCondition>("GetLicensePlateRecRecordsCondition");
    qRegisterMetaType<GetFaceRecRecordsCondition>("GetFaceRecRecordsCondition");
    qRegisterMetaType<GetCalendarMaskCondition>("GetCalendarMaskCondition");
    qRegisterMetaType<FormatDiskCondition>("FormatDiskCondition");
    qRegisterMetaType<GetCustomerGroupCondition>("GetCustomerGroupCondition");
    qRegisterMetaType<CtrlParkingLockCondition>("CtrlParkingLockCondition");
    qRegisterMetaType<AddFaceGroupsCondition>("AddFaceGroupsCondition");
    qRegisterMetaType<DeleteFaceGroupsCondition>("DeleteFaceGroupsCondition");
    qRegisterMetaType<EditFaceGroupsCondition>("EditFaceGroupsCondition");
    qRegisterMetaType<DelFacesCondition>("DelFacesCondition");
    qRegisterMetaType<UploadFileCondition>("UploadFileCondition");
    qRegisterMetaType<DownloadFileCondition>("DownloadFileCondition");

    // Beyond the published names.
    qRegisterMetaType<MessageType>("MessageType");
    qRegisterMetaType<StreamId>("vms_sdk::StreamId");
    qRegisterMetaType<StreamSettingMap>("vms_sdk::StreamSettingMap");
    qRegisterMetaType<QList<ChannelId>>();
    registerRecordMetaTypes();
}

void registerRecordMetaTypes()
{
#define VMS_REGISTER_RECORD(Name)                                                                  \
    qRegisterMetaType<Name>();                                                                     \
    qRegisterMetaType<QList<Name>>();
    VMS_RECORD_TYPES(VMS_REGISTER_RECORD)
#undef VMS_REGISTER_RECORD
    qRegisterMetaType<DevStatus>();
    qRegisterMetaType<ConnStatus>();
    qRegisterMetaType<DgwAbnormal>();
    qRegisterMetaType<StreamEvent>();
    qRegisterMetaType<TalkEvent>();
    qRegisterMetaType<PTZOperation>();
    qRegisterMetaType<PTZAction>();
    qRegisterMetaType<PresetOper>();
    qRegisterMetaType<PatrolOper>();
    qRegisterMetaType<PatrolPresetOper>();
    qRegisterMetaType<PlaybackCtrl>();
    qRegisterMetaType<QList<int>>();
    qRegisterMetaType<QList<QDate>>();
    qRegisterMetaType<AiAbilityMap>();
    qRegisterMetaType<StreamSettingMap>();
    qRegisterMetaType<EventMap>();
}

} // namespace vms_sdk
