// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The outgoing half of the dispatcher: one slot per request of the hub. A slot names its row
// of the request table and how its message is made; the frames at the top register, send and
// log the same way for all of them.
#include "vms_sdk/request/message_hamal.h"

#include "vms_sdk/client/sdk_log.h"
#include "vms_sdk/json_methods/common_req_worker.h"
#include "vms_sdk/request/condition_head.h"
#include "vms_sdk/request/conversions/device_conversions.h"
#include "vms_sdk/request/conversions/face_conversions.h"
#include "vms_sdk/request/conversions/media_conversions.h"
#include "vms_sdk/request/conversions/network_conversions.h"
#include "vms_sdk/request/conversions/ptz_conversions.h"
#include "vms_sdk/request/conversions/upgrade_conversions.h"
#include "vms_sdk/request/request_data.h"
#include "vms_sdk/request/request_mgr.h"
#include "vms_sdk/request/request_table.h"

namespace vms_sdk {
using conversion::serialized;

void MessageHamal::dispatch(const RequestRow& row, const QString& requestId,
                            const QByteArray& payload, const QString& devId, const QString& kind)
{
    if (row.registered)
        m_requestMgr->addRequest(requestId, kind);
    m_send(row.type, payload, devId);
    // The row's words are plain ASCII, so they go to the log as they are.
    if (!row.log.empty())
        log::trace({row.log});
}

template<class Wire, class Condition>
void MessageHamal::sendWire(const RequestRow& row, const Condition& condition)
{
    Wire request;
    conversion::fillWire(condition, request);
    dispatch(row, requestIdOf(condition), serialized(request), devIdOf(condition));
}

void MessageHamal::sendJson(const RequestRow& row, const vms_sdk_proto::CommonReq& request,
                            JsonReader reader)
{
    const QString kind =
        row.registered
            ? jsonAnswerKind(reader, methodOf(QByteArray::fromStdString(request.req_json())))
            : QString();
    dispatch(row, QString::fromStdString(request.request_id()), serialized(request),
             QString::fromStdString(request.channel_id().dev_id()), kind);
}

void MessageHamal::slotSearchDevsCmd()
{
    // The first gateway searches; a null body, as the gateway expects.
    dispatch(requests::SearchDevs, QString(), QByteArray(), QString());
}

void MessageHamal::slotSetSearchDevsConfigCmd(const vms_sdk::SearchDevsConfig& config)
{
    sendWire<vms_sdk_proto::SetSearchDevsConfigCmd>(requests::SetSearchDevsConfig, config);
}

void MessageHamal::slotBroadcastSearchDevsCmd()
{
    dispatch(requests::BroadcastSearchDevs, QString(), QByteArray(), QString());
}

void MessageHamal::slotActivateDevsCmd(const vms_sdk::ActivateCondition& condition)
{
    sendWire<vms_sdk_proto::DevActivateCmd>(requests::ActivateDevs, condition);
}

void MessageHamal::slotGetDevSecretQuestionsCmd(
    const vms_sdk::GetDevSecretQuestionsCondition& condition)
{
    sendWire<vms_sdk_proto::DevSecretQuestionsGetReq>(requests::GetDevSecretQuestions, condition);
}

void MessageHamal::slotResetDevPwdCmd(const vms_sdk::ResetDevPwdCondition& condition)
{
    sendWire<vms_sdk_proto::DevPwdResetReq>(requests::ResetDevPwd, condition);
}

void MessageHamal::slotGetDevNetReq(const vms_sdk::DeviceCondition& condition)
{
    sendWire<vms_sdk_proto::DevNetGetReq>(requests::GetDevNet, condition);
}

void MessageHamal::slotSetDevNetReq(const vms_sdk::SetDevNetCondition& condition)
{
    sendWire<vms_sdk_proto::DevNetSetReq>(requests::SetDevNet, condition);
}

void MessageHamal::slotGetDevNetModeReq(const vms_sdk::DeviceCondition& condition)
{
    sendJson(requests::GetDevNetMode, m_commonReqWorker->getDevNetMode(condition));
}

void MessageHamal::slotGetDevDisksInfoReq(const vms_sdk::DeviceCondition& condition)
{
    sendJson(requests::GetDevDisksInfo, m_commonReqWorker->getDevDisksInfo(condition));
}

void MessageHamal::slotFormatDevDiskReq(const vms_sdk::FormatDiskCondition& condition)
{
    sendJson(requests::FormatDevDisk, m_commonReqWorker->formatDevDisk(condition));
}

void MessageHamal::slotGetDevDiskFormattingProgressReq(
    const vms_sdk::FormatDiskCondition& condition)
{
    sendJson(requests::GetDevDiskFormattingProgress,
             m_commonReqWorker->getDevDiskFormattingProgress(condition));
}

void MessageHamal::slotGetDevPlatformReq(const vms_sdk::GetDevPlatformCondition& condition)
{
    sendWire<vms_sdk_proto::DevPlatformGetReq>(requests::GetDevPlatform, condition);
}

void MessageHamal::slotSetDevPlatformReq(const vms_sdk::SetDevPlatformCondition& condition)
{
    sendWire<vms_sdk_proto::DevPlatformSetReq>(requests::SetDevPlatform, condition);
}

void MessageHamal::slotGetDevPlatform_kvrReq(const QString& requestId, const QString& devId)
{
    sendWire<vms_sdk_proto::DeviceReq>(requests::GetDevPlatform_kvr,
                                       DeviceCondition{.requestId = requestId, .devId = devId});
}

void MessageHamal::slotSetDevPlatform_kvrReq(const vms_sdk::SetDevPlatform_kvrCondition& condition)
{
    sendWire<vms_sdk_proto::DevPlatform_kvrSetReq>(requests::SetDevPlatform_kvr, condition);
}

void MessageHamal::slotImportDevCertReq(const vms_sdk::ImportDevCertCondition& condition)
{
    sendWire<vms_sdk_proto::DevCertImportReq>(requests::ImportDevCert, condition);
}

void MessageHamal::slotGetDevQRCodeReq(const vms_sdk::DeviceCondition& condition)
{
    sendJson(requests::GetDevQRCode, m_commonReqWorker->getDevQRCode(condition));
}

void MessageHamal::slotGetDevChannelsInfoCmd(const QString& devId)
{
    dispatch(requests::GetDevChannelsInfo, QString(), devId.toUtf8(), devId);
}

void MessageHamal::slotGetDevLogsReq(const QString& requestId, const QString& devId,
                                     const QDate& date)
{
    sendJson(requests::GetDevLogs, m_commonReqWorker->getDevLogs(requestId, devId, date));
}

void MessageHamal::slotSearchVideoRecordingsReq(const vms_sdk::RecsSearchCondition& condition)
{
    sendWire<vms_sdk_proto::SearchVideoRecordingsReq>(requests::SearchVideoRecordings, condition);
}

void MessageHamal::slotGetVideoRecordingsCalendarMaskReq(
    const vms_sdk::GetCalendarMaskCondition& condition)
{
    // Its answer is read, or continued page by page, with the condition that asked for it.
    RequestData::instance()->setCondition(condition.requestId, condition);
    sendJson(requests::GetVideoRecordingsCalendarMask,
             m_commonReqWorker->getVideoRecordingsCalendarMask(condition));
}

void MessageHamal::slotGetRtspUrlReq(const vms_sdk::GetRtspUrlCondition& condition)
{
    sendWire<vms_sdk_proto::GetRtspUrlReq>(requests::GetRtspUrl, condition);
}

void MessageHamal::slotGetPTZAbilityReq(const vms_sdk::ChannelCondition& condition)
{
    sendJson(requests::GetPTZAbility, m_commonReqWorker->getPtzAbility(condition));
}

void MessageHamal::slotPTZAutoMoveReq(const vms_sdk::PTZAutoMoveCondition& condition)
{
    sendJson(requests::PTZAutoMove, m_commonReqWorker->ptzAutoMove(condition));
}

void MessageHamal::slotPTZCtrlReq(const vms_sdk::PTZCtrlCondition& condition)
{
    sendWire<vms_sdk_proto::PTZCtrlReq>(requests::PTZCtrl, condition);
}

void MessageHamal::slotGetPresetsReq(const vms_sdk::ChannelCondition& condition)
{
    sendWire<vms_sdk_proto::ChannelReq>(requests::GetPresets, condition);
}

void MessageHamal::slotOperPresetReq(const vms_sdk::PresetOperCondition& condition)
{
    sendWire<vms_sdk_proto::PresetOperReq>(requests::OperPreset, condition);
}

void MessageHamal::slotGetPatrolsReq(const vms_sdk::ChannelCondition& condition)
{
    sendWire<vms_sdk_proto::ChannelReq>(requests::GetPatrols, condition);
}

void MessageHamal::slotOperPatrolReq(const vms_sdk::PatrolOperCondition& condition)
{
    sendWire<vms_sdk_proto::PatrolOperReq>(requests::OperPatrol, condition);
}

void MessageHamal::slotOperPatrolPresetReq(const vms_sdk::PatrolPresetOperCondition& condition)
{
    sendWire<vms_sdk_proto::PatrolPresetOperReq>(requests::OperPatrolPreset, condition);
}

void MessageHamal::slotSetPatrolPresetsReq(const vms_sdk::SetPatrolPresetsCondition& condition)
{
    sendWire<vms_sdk_proto::SetPatrolPresetsReq>(requests::SetPatrolPresets, condition);
}

void MessageHamal::slotPTZ3dLocateCmd(const vms_sdk::PTZ3dLocateCondition& condition)
{
    sendJson(requests::PTZ3dLocate, m_commonReqWorker->ptz3dLocate(condition));
}

void MessageHamal::slotAddBulletTagPointReq(const vms_sdk::AddBulletTagPointCondition& condition)
{
    sendJson(requests::AddBulletTagPoint, m_commonReqWorker->addBulletTagPoint(condition));
}

void MessageHamal::slotGetBulletTagPointsReq(const vms_sdk::ChannelCondition& condition)
{
    sendJson(requests::GetBulletTagPoints, m_commonReqWorker->getBulletTagPoints(condition));
}

void MessageHamal::slotClearBulletTagPointsReq(const vms_sdk::ChannelCondition& condition)
{
    sendJson(requests::ClearBulletTagPoints, m_commonReqWorker->clearBulletTagPoints(condition));
}

void MessageHamal::slotCalibrateBulletDomeReq(
    const vms_sdk::CalibrateBulletDomeCondition& condition)
{
    sendJson(requests::CalibrateBulletDome, m_commonReqWorker->calibrateBulletDome(condition));
}

void MessageHamal::slotGetBulletDomeCalibrateStatusReq(const vms_sdk::ChannelCondition& condition)
{
    sendJson(requests::GetBulletDomeCalibrateStatus,
             m_commonReqWorker->getBulletDomeCalibrateStatus(condition));
}

void MessageHamal::slotSetDomeTrackGuardInitialPosReq(const vms_sdk::ChannelCondition& condition)
{
    sendJson(requests::SetDomeTrackGuardInitialPos,
             m_commonReqWorker->setDomeTrackGuardInitialPos(condition));
}

void MessageHamal::slotManualBulletDomeTrackCmd(const vms_sdk::ManualTrackCondition& condition)
{
    sendJson(requests::ManualBulletDomeTrack, m_commonReqWorker->manualBulletDomeTrack(condition));
}

void MessageHamal::slotOpenDevRemoteConfigReq(const QString& devId, int language)
{
    vms_sdk_proto::OpenRemoteConfigReq request;
    request.set_dev_id(devId.toStdString());
    request.set_language(language);
    dispatch(requests::OpenDevRemoteConfig, QString(), serialized(request), devId);
}

void MessageHamal::slotCheckDevUpgradeReq(const vms_sdk::DevUpgradeCondtition& condition)
{
    sendWire<vms_sdk_proto::DevUpgradeReq>(requests::CheckDevUpgrade, condition);
}

void MessageHamal::slotDoDevUpgradeCmd(const vms_sdk::DevUpgradeCondtition& condition)
{
    sendWire<vms_sdk_proto::DevUpgradeReq>(requests::DoDevUpgrade, condition);
}

void MessageHamal::slotGetDevUpgradeProgressReq(const QString& requestId, const QString& devId)
{
    sendWire<vms_sdk_proto::DeviceReq>(requests::GetDevUpgradeProgress,
                                       DeviceCondition{.requestId = requestId, .devId = devId});
}

void MessageHamal::slotModifyDevAccountReq(const vms_sdk::ModifyDevAccountCondition& condition)
{
    sendWire<vms_sdk_proto::ModifyDevAccountReq>(requests::ModifyDevAccount, condition);
}

void MessageHamal::slotGetDevSysCfgReq(const QString& requestId, const QString& devId)
{
    sendJson(requests::GetDevSysCfg, m_commonReqWorker->getDevSysCfg(requestId, devId));
}

void MessageHamal::slotSetDevSysCfgCmd(const QString& devId, const vms_sdk::DevSysCfgInfo& info)
{
    sendJson(requests::SetDevSysCfg, m_commonReqWorker->setDevSysCfg(devId, info));
}

void MessageHamal::slotGetChannImageAdjustSettingsReq(const QString& requestId,
                                                      const vms_sdk::ChannelId& channelId)
{
    sendJson(requests::GetChannImageAdjustSettings,
             m_commonReqWorker->getChannImageAdjustSettings(requestId, channelId));
}

void MessageHamal::slotSetChannImageAdjustSettingsReq(const QString& requestId,
                                                      const vms_sdk::ChannelId& channelId,
                                                      const vms_sdk::ImageAdjustSettingInfo& info)
{
    sendJson(requests::SetChannImageAdjustSettings,
             m_commonReqWorker->setChannImageAdjustSettings(requestId, channelId, info));
}

void MessageHamal::slotGetChannImageAbilityReq(const vms_sdk::ChannelCondition& condition)
{
    sendJson(requests::GetChannImageAbility, m_commonReqWorker->getChannImageAbility(condition));
}

void MessageHamal::slotGetChannImageSettingsReq(const vms_sdk::ChannelCondition& condition)
{
    sendJson(requests::GetChannImageSettings, m_commonReqWorker->getChannImageSettings(condition));
}

void MessageHamal::slotSetChannImageSettingsCmd(const vms_sdk::ChannelId& channelId,
                                                const vms_sdk::ImageSettingInfo& info)
{
    sendJson(requests::SetChannImageSettings,
             m_commonReqWorker->setChannImageSettings(channelId, info));
}

void MessageHamal::slotSetOSDReq(const vms_sdk::SetOSDCondition& condition)
{
    sendWire<vms_sdk_proto::SetOSDReq>(requests::SetOSD, condition);
}

void MessageHamal::slotModifyDevNameReq(const vms_sdk::ModifyDevNameCondition& condition)
{
    sendWire<vms_sdk_proto::ModifyDevNameReq>(requests::ModifyDevName, condition);
}

void MessageHamal::slotAddFaceReq(const vms_sdk::ModifyFaceCondition& condition)
{
    // A face with a package goes to the face library application on the device; one without
    // goes to the device's own face store.
    if (condition.package.isEmpty())
        sendWire<vms_sdk_proto::AddFaceReq>(requests::AddFace, condition);
    else
        sendJson(requests::AddFaceJson, m_commonReqWorker->addFace(condition));
}

void MessageHamal::slotEditFaceReq(const vms_sdk::ModifyFaceCondition& condition)
{
    sendJson(requests::EditFace, m_commonReqWorker->editFace(condition));
}

void MessageHamal::slotGetFacesReq(const vms_sdk::GetFacesCondition& condition)
{
    if (condition.package.isEmpty())
        sendWire<vms_sdk_proto::GetFacesReq>(requests::GetFaces, condition);
    else
        sendJson(requests::GetFacesJson, m_commonReqWorker->getFaces(condition));
}

void MessageHamal::slotGetFacesModelingStatusReq(const vms_sdk::AiChannelCondition& condition)
{
    sendJson(requests::GetFacesModelingStatus,
             m_commonReqWorker->getFacesModelingStatus(condition));
}

void MessageHamal::slotDelFaceReq(const vms_sdk::DelFaceCondition& condition)
{
    sendWire<vms_sdk_proto::DelFaceReq>(requests::DelFace, condition);
}

void MessageHamal::slotDelFacesReq(const vms_sdk::DelFacesCondition& condition)
{
    sendJson(requests::DelFaces, m_commonReqWorker->delFaces(condition));
}

void MessageHamal::slotGetFaceDetectRecordsReq(
    const vms_sdk::GetFaceDetectRecordsCondition& condition)
{
    sendWire<vms_sdk_proto::GetFaceDetectRecordsReq>(requests::GetFaceDetectRecords, condition);
}

void MessageHamal::slotClearFaceTemperatureCountCmd(const QString& devId)
{
    dispatch(requests::ClearFaceTemperatureCount, QString(), devId.toUtf8(), devId);
}

void MessageHamal::slotGetAllFaceGroupsReq(const vms_sdk::AiChannelCondition& condition)
{
    sendJson(requests::GetAllFaceGroups, m_commonReqWorker->getAllFaceGroups(condition));
}

void MessageHamal::slotAddFaceGroupsReq(const vms_sdk::AddFaceGroupsCondition& condition)
{
    sendJson(requests::AddFaceGroups, m_commonReqWorker->addFaceGroups(condition));
}

void MessageHamal::slotDeleteFaceGroupsReq(const vms_sdk::DeleteFaceGroupsCondition& condition)
{
    sendJson(requests::DeleteFaceGroups, m_commonReqWorker->deleteFaceGroups(condition));
}

void MessageHamal::slotEditFaceGroupsReq(const vms_sdk::EditFaceGroupsCondition& condition)
{
    sendJson(requests::EditFaceGroups, m_commonReqWorker->editFaceGroups(condition));
}

void MessageHamal::slotImportFaceLibraryReq(const vms_sdk::AiChannelCondition& condition)
{
    sendJson(requests::ImportFaceLibrary, m_commonReqWorker->importFaceLibrary(condition));
}

void MessageHamal::slotImportFaceLibraryProgressReq(const vms_sdk::AiChannelCondition& condition)
{
    sendJson(requests::ImportFaceLibraryProgress,
             m_commonReqWorker->importFaceLibraryProgress(condition));
}

void MessageHamal::slotExportFaceLibraryReq(const vms_sdk::AiChannelCondition& condition)
{
    sendJson(requests::ExportFaceLibrary, m_commonReqWorker->exportFaceLibrary(condition));
}

void MessageHamal::slotExportFaceLibraryProgressReq(const vms_sdk::AiChannelCondition& condition)
{
    sendJson(requests::ExportFaceLibraryProgress,
             m_commonReqWorker->exportFaceLibraryProgress(condition));
}

void MessageHamal::slotGetRegionTemperatureRecordsReq(
    const vms_sdk::GetRegionTemperatureRecordsCondition& condition)
{
    sendJson(requests::GetRegionTemperatureRecords,
             m_commonReqWorker->getRegionTemperatureRecords(condition));
}

void MessageHamal::slotGetAlarmRecordsReq(const vms_sdk::GetAlarmRecordsCondition& condition)
{
    // Its answer is read, or continued page by page, with the condition that asked for it.
    RequestData::instance()->setCondition(condition.requestId, condition);
    sendJson(requests::GetAlarmRecords, m_commonReqWorker->getAlarmRecords(condition));
}

void MessageHamal::slotGetTriggeredEventsReq(const vms_sdk::GetTriggeredEventsCondition& condition)
{
    sendJson(requests::GetTriggeredEvents, m_commonReqWorker->getTriggeredEvents(condition));
}

void MessageHamal::slotGetEventRecordsReq(const vms_sdk::GetEventRecordsCondition& condition)
{
    // Its answer is read, or continued page by page, with the condition that asked for it.
    RequestData::instance()->setCondition(condition.requestId, condition);
    sendJson(requests::GetEventRecords, m_commonReqWorker->getEventRecords(condition, 1));
}

void MessageHamal::slotGetLicensePlateRecRecordsReq(
    const vms_sdk::GetLicensePlateRecRecordsCondition& condition)
{
    sendJson(requests::GetLicensePlateRecRecords,
             m_commonReqWorker->getLicensePlateRecRecords(condition));
}

void MessageHamal::slotGetFaceRecRecordsReq(const vms_sdk::GetFaceRecRecordsCondition& condition)
{
    sendJson(condition.captureRecords ? requests::GetFaceCaptureRecords
                                      : requests::GetFaceRecRecords,
             m_commonReqWorker->getFaceRecRecords(condition));
}

void MessageHamal::slotGetOtherEventRecordsReq(const QString& requestId, int pageNum)
{
    // The next page of an earlier query, asked for under the same request id; an id that was
    // never stored still goes out, with an otherwise empty condition.
    auto condition = RequestData::instance()->condition<GetEventRecordsCondition>(requestId, false);
    condition.requestId = requestId;
    sendJson(requests::GetOtherEventRecords,
             m_commonReqWorker->getEventRecords(condition, pageNum));
}

void MessageHamal::slotCancelAlarmReq(const vms_sdk::CancelAlarmCondition& condition)
{
    sendJson(requests::CancelAlarm, m_commonReqWorker->cancelAlarm(condition));
}

void MessageHamal::slotTriggerAlarmLinkReq(const vms_sdk::TriggerAlarmLinkCondition& condition)
{
    sendJson(requests::TriggerAlarmLink, m_commonReqWorker->triggerAlarmLink(condition));
}

void MessageHamal::slotGetSnapImageReq(const vms_sdk::GetSnapImageCondition& condition)
{
    sendJson(requests::GetSnapImage, m_commonReqWorker->getSnapImage(condition));
}

void MessageHamal::slotGetCustomersCountReq(const vms_sdk::GetCustomersCntCondition& condition)
{
    // Its answer is read, or continued page by page, with the condition that asked for it.
    RequestData::instance()->setCondition(condition.requestId, condition);
    sendJson(requests::GetCustomersCount, m_commonReqWorker->getCustomersCount(condition));
}

void MessageHamal::slotGetCustomersRegionsReq(const vms_sdk::ChannelCondition& condition)
{
    sendJson(requests::GetCustomersRegions, m_commonReqWorker->getCustomersRegions(condition));
}

void MessageHamal::slotGetCustomersRegionAttentionReq(
    const vms_sdk::GetCustomersRegionAttentionCondition& condition)
{
    // Its answer is read, or continued page by page, with the condition that asked for it.
    RequestData::instance()->setCondition(condition.requestId, condition);
    sendJson(requests::GetCustomersRegionAttention,
             m_commonReqWorker->getCustomersRegionAttention(condition));
}

void MessageHamal::slotGetCustomersHeatMapReq(const vms_sdk::GetCutomersHeatMapCondition& condition)
{
    sendJson(requests::GetCustomersHeatMap, m_commonReqWorker->getCustomersHeatMap(condition));
}

void MessageHamal::slotGetCustomerGroupReq(const vms_sdk::GetCustomerGroupCondition& condition)
{
    // Its answer is read, or continued page by page, with the condition that asked for it.
    RequestData::instance()->setCondition(condition.requestId, condition);
    sendJson(requests::GetCustomerGroup, m_commonReqWorker->getCustomerGroup(condition));
}

void MessageHamal::slotGetParkingLockStatusReq(const vms_sdk::AiChannelCondition& condition)
{
    sendJson(requests::GetParkingLockStatus, m_commonReqWorker->getParkingLockStatus(condition));
}

void MessageHamal::slotCtrlParkingLockReq(const vms_sdk::CtrlParkingLockCondition& condition)
{
    sendJson(requests::CtrlParkingLock, m_commonReqWorker->ctrlParkingLock(condition));
}

void MessageHamal::slotTalkOperReq(const vms_sdk::TalkOperCondition& condition)
{
    sendWire<vms_sdk_proto::TalkOperReq>(requests::TalkOper, condition);
}

void MessageHamal::slotSpeakOperReq(const vms_sdk::SpeakOperCondition& condition)
{
    sendWire<vms_sdk_proto::TalkOperReq>(requests::SpeakOper, condition);
}

void MessageHamal::slotUploadFileReq(const vms_sdk::UploadFileCondition& condition)
{
    sendWire<vms_sdk_proto::UploadFileReq>(requests::UploadFile, condition);
}

void MessageHamal::slotDownloadFileReq(const vms_sdk::DownloadFileCondition& condition)
{
    sendWire<vms_sdk_proto::DownloadFileReq>(requests::DownloadFile, condition);
}

void MessageHamal::slotCommonReq(const QString& requestId, const QString& devId,
                                 const QString& reqJson)
{
    sendJson(requests::Common, m_commonReqWorker->commonReq(requestId, devId, reqJson),
             JsonReader::Application);
}

} // namespace vms_sdk
