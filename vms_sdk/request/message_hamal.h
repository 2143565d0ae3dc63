// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <vms_sdk/vms_client_sdk.h>

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

#include <QByteArray>
#include <QList>
#include <QObject>

#include <functional>

namespace vms_sdk {

class AlarmWorker;
class CommonReqWorker;
class CommonResWorker;
class RequestMgr;
struct RequestRow;

// The dispatcher: turns the application's requests into gateway messages and the gateway's
// answers and pushes into ClientSignals.
//
// Incoming messages are routed by one table keyed by message type (message_hamal_incoming.cpp):
// each row names its wire message, its kind (answer to a registered request, answer that is
// always delivered, push), the words of its log lines and how it becomes a signal.
class MessageHamal : public QObject
{
    Q_OBJECT
public:
    // Sends one message to the gateway of a device; MultiDgwMgr's routing unless replaced.
    using SendOperation = std::function<void(vms_sdk::MessageType type, const QByteArray& payload,
                                             const QString& devId)>;

    static MessageHamal* instance();

    RequestMgr* requestMgr() const { return m_requestMgr; }
    CommonResWorker* commonResWorker() const { return m_commonResWorker; }
    // Lets a test see every outgoing message instead of a gateway.
    void setSendOperation(SendOperation send) { m_send = std::move(send); }

    // The message types the incoming table handles; every other number is ignored.
    static QList<int> handledMessageTypes();

    // Who reads the answer to a JSON method request: the application, which composed the
    // request itself (common_req), or the answer parsers.
    enum class JsonReader { Application, Parsers };
    // What a JSON request is registered with, so that its answer finds it even when another
    // request shares its id: the reader and the method the answer will name.
    static QString jsonAnswerKind(JsonReader reader, const QString& method);
    // The "method" of a request or answer document; empty when it has none.
    static QString methodOf(const QByteArray& json);

public Q_SLOTS:
    void slotMessageComing(vms_sdk::MessageType msgType, const QByteArray& message);

    // One slot per request signal of the hub, in the order of the request table. Each names
    // its row (message_hamal_requests.cpp); the frames below do the rest.
    void slotSearchDevsCmd();
    void slotSetSearchDevsConfigCmd(const vms_sdk::SearchDevsConfig& config);
    void slotBroadcastSearchDevsCmd();
    void slotActivateDevsCmd(const vms_sdk::ActivateCondition& condition);
    void slotGetDevSecretQuestionsCmd(const vms_sdk::GetDevSecretQuestionsCondition& condition);
    void slotResetDevPwdCmd(const vms_sdk::ResetDevPwdCondition& condition);
    void slotGetDevNetReq(const vms_sdk::DeviceCondition& condition);
    void slotSetDevNetReq(const vms_sdk::SetDevNetCondition& condition);
    void slotGetDevNetModeReq(const vms_sdk::DeviceCondition& condition);
    void slotGetDevDisksInfoReq(const vms_sdk::DeviceCondition& condition);
    void slotFormatDevDiskReq(const vms_sdk::FormatDiskCondition& condition);
    void slotGetDevDiskFormattingProgressReq(const vms_sdk::FormatDiskCondition& condition);
    void slotGetDevPlatformReq(const vms_sdk::GetDevPlatformCondition& condition);
    void slotSetDevPlatformReq(const vms_sdk::SetDevPlatformCondition& condition);
    void slotGetDevPlatform_kvrReq(const QString& requestId, const QString& devId);
    void slotSetDevPlatform_kvrReq(const vms_sdk::SetDevPlatform_kvrCondition& condition);
    void slotImportDevCertReq(const vms_sdk::ImportDevCertCondition& condition);
    void slotGetDevQRCodeReq(const vms_sdk::DeviceCondition& condition);
    void slotGetDevChannelsInfoCmd(const QString& devId);
    void slotGetDevLogsReq(const QString& requestId, const QString& devId, const QDate& date);
    void slotSearchVideoRecordingsReq(const vms_sdk::RecsSearchCondition& condition);
    void slotGetVideoRecordingsCalendarMaskReq(const vms_sdk::GetCalendarMaskCondition& condition);
    void slotGetRtspUrlReq(const vms_sdk::GetRtspUrlCondition& condition);
    void slotGetPTZAbilityReq(const vms_sdk::ChannelCondition& condition);
    void slotPTZAutoMoveReq(const vms_sdk::PTZAutoMoveCondition& condition);
    void slotPTZCtrlReq(const vms_sdk::PTZCtrlCondition& condition);
    void slotGetPresetsReq(const vms_sdk::ChannelCondition& condition);
    void slotOperPresetReq(const vms_sdk::PresetOperCondition& condition);
    void slotGetPatrolsReq(const vms_sdk::ChannelCondition& condition);
    void slotOperPatrolReq(const vms_sdk::PatrolOperCondition& condition);
    void slotOperPatrolPresetReq(const vms_sdk::PatrolPresetOperCondition& condition);
    void slotSetPatrolPresetsReq(const vms_sdk::SetPatrolPresetsCondition& condition);
    void slotPTZ3dLocateCmd(const vms_sdk::PTZ3dLocateCondition& condition);
    void slotAddBulletTagPointReq(const vms_sdk::AddBulletTagPointCondition& condition);
    void slotGetBulletTagPointsReq(const vms_sdk::ChannelCondition& condition);
    void slotClearBulletTagPointsReq(const vms_sdk::ChannelCondition& condition);
    void slotCalibrateBulletDomeReq(const vms_sdk::CalibrateBulletDomeCondition& condition);
    void slotGetBulletDomeCalibrateStatusReq(const vms_sdk::ChannelCondition& condition);
    void slotSetDomeTrackGuardInitialPosReq(const vms_sdk::ChannelCondition& condition);
    void slotManualBulletDomeTrackCmd(const vms_sdk::ManualTrackCondition& condition);
    void slotOpenDevRemoteConfigReq(const QString& devId, int language);
    void slotCheckDevUpgradeReq(const vms_sdk::DevUpgradeCondtition& condition);
    void slotDoDevUpgradeCmd(const vms_sdk::DevUpgradeCondtition& condition);
    void slotGetDevUpgradeProgressReq(const QString& requestId, const QString& devId);
    void slotModifyDevAccountReq(const vms_sdk::ModifyDevAccountCondition& condition);
    void slotGetDevSysCfgReq(const QString& requestId, const QString& devId);
    void slotSetDevSysCfgCmd(const QString& devId, const vms_sdk::DevSysCfgInfo& info);
    void slotGetChannImageAdjustSettingsReq(const QString& requestId,
                                            const vms_sdk::ChannelId& channelId);
    void slotSetChannImageAdjustSettingsReq(const QString& requestId,
                                            const vms_sdk::ChannelId& channelId,
                                            const vms_sdk::ImageAdjustSettingInfo& info);
    void slotGetChannImageAbilityReq(const vms_sdk::ChannelCondition& condition);
    void slotGetChannImageSettingsReq(const vms_sdk::ChannelCondition& condition);
    void slotSetChannImageSettingsCmd(const vms_sdk::ChannelId& channelId,
                                      const vms_sdk::ImageSettingInfo& info);
    void slotSetOSDReq(const vms_sdk::SetOSDCondition& condition);
    void slotModifyDevNameReq(const vms_sdk::ModifyDevNameCondition& condition);
    void slotAddFaceReq(const vms_sdk::ModifyFaceCondition& condition);
    void slotEditFaceReq(const vms_sdk::ModifyFaceCondition& condition);
    void slotGetFacesReq(const vms_sdk::GetFacesCondition& condition);
    void slotGetFacesModelingStatusReq(const vms_sdk::AiChannelCondition& condition);
    void slotDelFaceReq(const vms_sdk::DelFaceCondition& condition);
    void slotDelFacesReq(const vms_sdk::DelFacesCondition& condition);
    void slotGetFaceDetectRecordsReq(const vms_sdk::GetFaceDetectRecordsCondition& condition);
    void slotClearFaceTemperatureCountCmd(const QString& devId);
    void slotGetAllFaceGroupsReq(const vms_sdk::AiChannelCondition& condition);
    void slotAddFaceGroupsReq(const vms_sdk::AddFaceGroupsCondition& condition);
    void slotDeleteFaceGroupsReq(const vms_sdk::DeleteFaceGroupsCondition& condition);
    void slotEditFaceGroupsReq(const vms_sdk::EditFaceGroupsCondition& condition);
    void slotImportFaceLibraryReq(const vms_sdk::AiChannelCondition& condition);
    void slotImportFaceLibraryProgressReq(const vms_sdk::AiChannelCondition& condition);
    void slotExportFaceLibraryReq(const vms_sdk::AiChannelCondition& condition);
    void slotExportFaceLibraryProgressReq(const vms_sdk::AiChannelCondition& condition);
    void slotGetRegionTemperatureRecordsReq(
        const vms_sdk::GetRegionTemperatureRecordsCondition& condition);
    void slotGetAlarmRecordsReq(const vms_sdk::GetAlarmRecordsCondition& condition);
    void slotGetTriggeredEventsReq(const vms_sdk::GetTriggeredEventsCondition& condition);
    void slotGetEventRecordsReq(const vms_sdk::GetEventRecordsCondition& condition);
    void
    slotGetLicensePlateRecRecordsReq(const vms_sdk::GetLicensePlateRecRecordsCondition& condition);
    void slotGetFaceRecRecordsReq(const vms_sdk::GetFaceRecRecordsCondition& condition);
    void slotGetOtherEventRecordsReq(const QString& requestId, int pageNum);
    void slotCancelAlarmReq(const vms_sdk::CancelAlarmCondition& condition);
    void slotTriggerAlarmLinkReq(const vms_sdk::TriggerAlarmLinkCondition& condition);
    void slotGetSnapImageReq(const vms_sdk::GetSnapImageCondition& condition);
    void slotGetCustomersCountReq(const vms_sdk::GetCustomersCntCondition& condition);
    void slotGetCustomersRegionsReq(const vms_sdk::ChannelCondition& condition);
    void slotGetCustomersRegionAttentionReq(
        const vms_sdk::GetCustomersRegionAttentionCondition& condition);
    void slotGetCustomersHeatMapReq(const vms_sdk::GetCutomersHeatMapCondition& condition);
    void slotGetCustomerGroupReq(const vms_sdk::GetCustomerGroupCondition& condition);
    void slotGetParkingLockStatusReq(const vms_sdk::AiChannelCondition& condition);
    void slotCtrlParkingLockReq(const vms_sdk::CtrlParkingLockCondition& condition);
    void slotTalkOperReq(const vms_sdk::TalkOperCondition& condition);
    void slotSpeakOperReq(const vms_sdk::SpeakOperCondition& condition);
    void slotUploadFileReq(const vms_sdk::UploadFileCondition& condition);
    void slotDownloadFileReq(const vms_sdk::DownloadFileCondition& condition);
    void slotCommonReq(const QString& requestId, const QString& devId, const QString& reqJson);

private:
    explicit MessageHamal(QObject* parent = nullptr);

    // Registers (when the row says so), sends and logs one request.
    void dispatch(const RequestRow& row, const QString& requestId, const QByteArray& payload,
                  const QString& devId, const QString& kind = QString());
    // A condition copied into its wire message field by field.
    template<class Wire, class Condition>
    void sendWire(const RequestRow& row, const Condition& condition);
    // A JSON method, built by the CommonReqWorker.
    void sendJson(const RequestRow& row, const vms_sdk_proto::CommonReq& request,
                  JsonReader reader = JsonReader::Parsers);

    friend struct IncomingRoutes;

    RequestMgr* m_requestMgr;
    CommonReqWorker* m_commonReqWorker;
    CommonResWorker* m_commonResWorker;
    AlarmWorker* m_alarmWorker;
    SendOperation m_send;
};

} // namespace vms_sdk
