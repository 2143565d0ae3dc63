// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/request/message_hamal.h"

#include "vms_sdk/client/message_signals.h"
#include "vms_sdk/gateway/multi_dgw_mgr.h"
#include "vms_sdk/json_methods/alarm_worker.h"
#include "vms_sdk/json_methods/common_req_worker.h"
#include "vms_sdk/json_methods/common_res_worker.h"
#include "vms_sdk/request/request_mgr.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace vms_sdk {

QString MessageHamal::jsonAnswerKind(JsonReader reader, const QString& method)
{
    return (reader == JsonReader::Application ? QStringLiteral("application:")
                                              : QStringLiteral("parsers:")) +
           method;
}

QString MessageHamal::methodOf(const QByteArray& json)
{
    return QJsonDocument::fromJson(json).object().value(QLatin1String("method")).toString();
}

MessageHamal* MessageHamal::instance()
{
    static MessageHamal* const hamal = new MessageHamal;
    return hamal;
}

MessageHamal::MessageHamal(QObject* parent)
    : QObject(parent)
    , m_requestMgr(new RequestMgr(this))
    , m_commonReqWorker(new CommonReqWorker(this))
    , m_commonResWorker(new CommonResWorker(m_requestMgr, this))
    , m_alarmWorker(new AlarmWorker(this))
    , m_send([](MessageType type, const QByteArray& payload, const QString& devId) {
        MultiDgwMgr::instance()->send(type, payload, devId);
    })
{
    auto* hub = MessageSignals::instance();
    connect(hub, &MessageSignals::signalMessageComing, this, &MessageHamal::slotMessageComing);
    connect(hub, &MessageSignals::signalSearchDevsCmd, this, &MessageHamal::slotSearchDevsCmd);
    connect(hub, &MessageSignals::signalSetSearchDevsConfigCmd, this,
            &MessageHamal::slotSetSearchDevsConfigCmd);
    connect(hub, &MessageSignals::signalBroadcastSearchDevsCmd, this,
            &MessageHamal::slotBroadcastSearchDevsCmd);
    connect(hub, &MessageSignals::signalActivateDevsCmd, this, &MessageHamal::slotActivateDevsCmd);
    connect(hub, &MessageSignals::signalGetDevSecretQuestionsCmd, this,
            &MessageHamal::slotGetDevSecretQuestionsCmd);
    connect(hub, &MessageSignals::signalResetDevPwdCmd, this, &MessageHamal::slotResetDevPwdCmd);
    connect(hub, &MessageSignals::signalGetDevNetReq, this, &MessageHamal::slotGetDevNetReq);
    connect(hub, &MessageSignals::signalSetDevNetReq, this, &MessageHamal::slotSetDevNetReq);
    connect(hub, &MessageSignals::signalGetDevNetModeReq, this,
            &MessageHamal::slotGetDevNetModeReq);
    connect(hub, &MessageSignals::signalGetDevDisksInfoReq, this,
            &MessageHamal::slotGetDevDisksInfoReq);
    connect(hub, &MessageSignals::signalFormatDevDiskReq, this,
            &MessageHamal::slotFormatDevDiskReq);
    connect(hub, &MessageSignals::signalGetDevDiskFormattingProgressReq, this,
            &MessageHamal::slotGetDevDiskFormattingProgressReq);
    connect(hub, &MessageSignals::signalGetDevPlatformReq, this,
            &MessageHamal::slotGetDevPlatformReq);
    connect(hub, &MessageSignals::signalSetDevPlatformReq, this,
            &MessageHamal::slotSetDevPlatformReq);
    connect(hub, &MessageSignals::signalGetDevPlatform_kvrReq, this,
            &MessageHamal::slotGetDevPlatform_kvrReq);
    connect(hub, &MessageSignals::signalSetDevPlatform_kvrReq, this,
            &MessageHamal::slotSetDevPlatform_kvrReq);
    connect(hub, &MessageSignals::signalImportDevCertReq, this,
            &MessageHamal::slotImportDevCertReq);
    connect(hub, &MessageSignals::signalGetDevQRCodeReq, this, &MessageHamal::slotGetDevQRCodeReq);
    connect(hub, &MessageSignals::signalGetDevChannelsInfoCmd, this,
            &MessageHamal::slotGetDevChannelsInfoCmd);
    connect(hub, &MessageSignals::signalGetDevLogsReq, this, &MessageHamal::slotGetDevLogsReq);
    connect(hub, &MessageSignals::signalSearchVideoRecordingsReq, this,
            &MessageHamal::slotSearchVideoRecordingsReq);
    connect(hub, &MessageSignals::signalGetVideoRecordingsCalendarMaskReq, this,
            &MessageHamal::slotGetVideoRecordingsCalendarMaskReq);
    connect(hub, &MessageSignals::signalGetRtspUrlReq, this, &MessageHamal::slotGetRtspUrlReq);
    connect(hub, &MessageSignals::signalGetPTZAbilityReq, this,
            &MessageHamal::slotGetPTZAbilityReq);
    connect(hub, &MessageSignals::signalPTZAutoMoveReq, this, &MessageHamal::slotPTZAutoMoveReq);
    connect(hub, &MessageSignals::signalPTZCtrlReq, this, &MessageHamal::slotPTZCtrlReq);
    connect(hub, &MessageSignals::signalGetPresetsReq, this, &MessageHamal::slotGetPresetsReq);
    connect(hub, &MessageSignals::signalOperPresetReq, this, &MessageHamal::slotOperPresetReq);
    connect(hub, &MessageSignals::signalGetPatrolsReq, this, &MessageHamal::slotGetPatrolsReq);
    connect(hub, &MessageSignals::signalOperPatrolReq, this, &MessageHamal::slotOperPatrolReq);
    connect(hub, &MessageSignals::signalOperPatrolPresetReq, this,
            &MessageHamal::slotOperPatrolPresetReq);
    connect(hub, &MessageSignals::signalSetPatrolPresetsReq, this,
            &MessageHamal::slotSetPatrolPresetsReq);
    connect(hub, &MessageSignals::signalPTZ3dLocateCmd, this, &MessageHamal::slotPTZ3dLocateCmd);
    connect(hub, &MessageSignals::signalAddBulletTagPointReq, this,
            &MessageHamal::slotAddBulletTagPointReq);
    connect(hub, &MessageSignals::signalGetBulletTagPointsReq, this,
            &MessageHamal::slotGetBulletTagPointsReq);
    connect(hub, &MessageSignals::signalClearBulletTagPointsReq, this,
            &MessageHamal::slotClearBulletTagPointsReq);
    connect(hub, &MessageSignals::signalCalibrateBulletDomeReq, this,
            &MessageHamal::slotCalibrateBulletDomeReq);
    connect(hub, &MessageSignals::signalGetBulletDomeCalibrateStatusReq, this,
            &MessageHamal::slotGetBulletDomeCalibrateStatusReq);
    connect(hub, &MessageSignals::signalSetDomeTrackGuardInitialPosReq, this,
            &MessageHamal::slotSetDomeTrackGuardInitialPosReq);
    connect(hub, &MessageSignals::signalManualBulletDomeTrackCmd, this,
            &MessageHamal::slotManualBulletDomeTrackCmd);
    connect(hub, &MessageSignals::signalOpenDevRemoteConfigReq, this,
            &MessageHamal::slotOpenDevRemoteConfigReq);
    connect(hub, &MessageSignals::signalCheckDevUpgradeReq, this,
            &MessageHamal::slotCheckDevUpgradeReq);
    connect(hub, &MessageSignals::signalDoDevUpgradeCmd, this, &MessageHamal::slotDoDevUpgradeCmd);
    connect(hub, &MessageSignals::signalGetDevUpgradeProgressReq, this,
            &MessageHamal::slotGetDevUpgradeProgressReq);
    connect(hub, &MessageSignals::signalModifyDevAccountReq, this,
            &MessageHamal::slotModifyDevAccountReq);
    connect(hub, &MessageSignals::signalGetDevSysCfgReq, this, &MessageHamal::slotGetDevSysCfgReq);
    connect(hub, &MessageSignals::signalSetDevSysCfgCmd, this, &MessageHamal::slotSetDevSysCfgCmd);
    connect(hub, &MessageSignals::signalGetChannImageAdjustSettingsReq, this,
            &MessageHamal::slotGetChannImageAdjustSettingsReq);
    connect(hub, &MessageSignals::signalSetChannImageAdjustSettingsReq, this,
            &MessageHamal::slotSetChannImageAdjustSettingsReq);
    connect(hub, &MessageSignals::signalGetChannImageAbilityReq, this,
            &MessageHamal::slotGetChannImageAbilityReq);
    connect(hub, &MessageSignals::signalGetChannImageSettingsReq, this,
            &MessageHamal::slotGetChannImageSettingsReq);
    connect(hub, &MessageSignals::signalSetChannImageSettingsCmd, this,
            &MessageHamal::slotSetChannImageSettingsCmd);
    connect(hub, &MessageSignals::signalSetOSDReq, this, &MessageHamal::slotSetOSDReq);
    connect(hub, &MessageSignals::signalModifyDevNameReq, this,
            &MessageHamal::slotModifyDevNameReq);
    connect(hub, &MessageSignals::signalAddFaceReq, this, &MessageHamal::slotAddFaceReq);
    connect(hub, &MessageSignals::signalEditFaceReq, this, &MessageHamal::slotEditFaceReq);
    connect(hub, &MessageSignals::signalGetFacesReq, this, &MessageHamal::slotGetFacesReq);
    connect(hub, &MessageSignals::signalGetFacesModelingStatusReq, this,
            &MessageHamal::slotGetFacesModelingStatusReq);
    connect(hub, &MessageSignals::signalDelFaceReq, this, &MessageHamal::slotDelFaceReq);
    connect(hub, &MessageSignals::signalDelFacesReq, this, &MessageHamal::slotDelFacesReq);
    connect(hub, &MessageSignals::signalGetFaceDetectRecordsReq, this,
            &MessageHamal::slotGetFaceDetectRecordsReq);
    connect(hub, &MessageSignals::signalClearFaceTemperatureCountCmd, this,
            &MessageHamal::slotClearFaceTemperatureCountCmd);
    connect(hub, &MessageSignals::signalGetAllFaceGroupsReq, this,
            &MessageHamal::slotGetAllFaceGroupsReq);
    connect(hub, &MessageSignals::signalAddFaceGroupsReq, this,
            &MessageHamal::slotAddFaceGroupsReq);
    connect(hub, &MessageSignals::signalDeleteFaceGroupsReq, this,
            &MessageHamal::slotDeleteFaceGroupsReq);
    connect(hub, &MessageSignals::signalEditFaceGroupsReq, this,
            &MessageHamal::slotEditFaceGroupsReq);
    connect(hub, &MessageSignals::signalImportFaceLibraryReq, this,
            &MessageHamal::slotImportFaceLibraryReq);
    connect(hub, &MessageSignals::signalImportFaceLibraryProgressReq, this,
            &MessageHamal::slotImportFaceLibraryProgressReq);
    connect(hub, &MessageSignals::signalExportFaceLibraryReq, this,
            &MessageHamal::slotExportFaceLibraryReq);
    connect(hub, &MessageSignals::signalExportFaceLibraryProgressReq, this,
            &MessageHamal::slotExportFaceLibraryProgressReq);
    connect(hub, &MessageSignals::signalGetRegionTemperatureRecordsReq, this,
            &MessageHamal::slotGetRegionTemperatureRecordsReq);
    connect(hub, &MessageSignals::signalGetAlarmRecordsReq, this,
            &MessageHamal::slotGetAlarmRecordsReq);
    connect(hub, &MessageSignals::signalGetTriggeredEventsReq, this,
            &MessageHamal::slotGetTriggeredEventsReq);
    connect(hub, &MessageSignals::signalGetEventRecordsReq, this,
            &MessageHamal::slotGetEventRecordsReq);
    connect(hub, &MessageSignals::signalGetLicensePlateRecRecordsReq, this,
            &MessageHamal::slotGetLicensePlateRecRecordsReq);
    connect(hub, &MessageSignals::signalGetFaceRecRecordsReq, this,
            &MessageHamal::slotGetFaceRecRecordsReq);
    connect(hub, &MessageSignals::signalGetOtherEventRecordsReq, this,
            &MessageHamal::slotGetOtherEventRecordsReq);
    connect(hub, &MessageSignals::signalCancelAlarmReq, this, &MessageHamal::slotCancelAlarmReq);
    connect(hub, &MessageSignals::signalTriggerAlarmLinkReq, this,
            &MessageHamal::slotTriggerAlarmLinkReq);
    connect(hub, &MessageSignals::signalGetSnapImageReq, this, &MessageHamal::slotGetSnapImageReq);
    connect(hub, &MessageSignals::signalGetCustomersCountReq, this,
            &MessageHamal::slotGetCustomersCountReq);
    connect(hub, &MessageSignals::signalGetCustomersRegionsReq, this,
            &MessageHamal::slotGetCustomersRegionsReq);
    connect(hub, &MessageSignals::signalGetCustomersRegionAttentionReq, this,
            &MessageHamal::slotGetCustomersRegionAttentionReq);
    connect(hub, &MessageSignals::signalGetCustomersHeatMapReq, this,
            &MessageHamal::slotGetCustomersHeatMapReq);
    connect(hub, &MessageSignals::signalGetCustomerGroupReq, this,
            &MessageHamal::slotGetCustomerGroupReq);
    connect(hub, &MessageSignals::signalGetParkingLockStatusReq, this,
            &MessageHamal::slotGetParkingLockStatusReq);
    connect(hub, &MessageSignals::signalCtrlParkingLockReq, this,
            &MessageHamal::slotCtrlParkingLockReq);
    connect(hub, &MessageSignals::signalTalkOperReq, this, &MessageHamal::slotTalkOperReq);
    connect(hub, &MessageSignals::signalSpeakOperReq, this, &MessageHamal::slotSpeakOperReq);
    connect(hub, &MessageSignals::signalUploadFileReq, this, &MessageHamal::slotUploadFileReq);
    connect(hub, &MessageSignals::signalDownloadFileReq, this, &MessageHamal::slotDownloadFileReq);
    connect(hub, &MessageSignals::signalCommonReq, this, &MessageHamal::slotCommonReq);
}

} // namespace vms_sdk
