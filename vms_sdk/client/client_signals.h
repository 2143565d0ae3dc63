// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_CLIENT_SIGNALS_H
#define VMS_SDK_CLIENT_SIGNALS_H

#include "alarm_records.h"
#include "analytics_records.h"
#include "common_records.h"
#include "config_records.h"
#include "device_records.h"
#include "face_records.h"
#include "media_records.h"
#include "network_records.h"
#include "ptz_records.h"
#include "vms_types.h"

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QList>
#include <QObject>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace vms_sdk {

// Everything the library has to tell the application: answers, pushes, failures and
// time-outs. Connect to ClientSignals::instance() on the thread that initialises the library.
//
// Parameter types are spelt with their namespace: a queued connection finds a parameter's
// meta-type by the name written here.
class VMS_CLIENT_SDK_EXPORT ClientSignals : public QObject
{
    Q_OBJECT
public:
    static ClientSignals* instance();

Q_SIGNALS:
    // Gateway state.
    void signalPrepareStartDgwSuccess();
    void signalDgwAbnormal(vms_sdk::DgwAbnormal abnormal);

    // Request bookkeeping.
    void signalRequestTimeout(const QString& requestId, const QVariant& requestValue);
    void signalCommonRequestFailed(const QString& requestId, int errorCode);

    // Device discovery and state pushes. A QPair<QString, int> names a channel: device id and
    // channel index.
    void signalSearchedDevsPush(const QList<vms_sdk::DevInfo>& devsInfo);
    void signalBroadcastSearchedDevsPush(const QList<vms_sdk::DevInfo>& devsInfo);
    void signalDevStatusPush(const QString& devId, vms_sdk::DevStatus status);
    void signalDevP2PSuccessPush(const QString& devId);
    void signalDevInfoPush(const vms_sdk::DevInfoFromDgw& devInfo);
    void signalDevChannelsInfoPush(const QString& devId,
                                   const QList<vms_sdk::DevChannelInfo>& channelsInfo);
    void signalDevTempUserCodePush(const QList<vms_sdk::DevTempUserCode>& codes);
    void signalFaceDetectPush(const QPair<QString, int>& channel,
                              const vms_sdk::FaceDetectRecordInfo& record);
    void signalFaceTemperatureCountPush(const QPair<QString, int>& channel,
                                        const vms_sdk::FaceCountInfo& count);
    void signalCommonAlarmPush(const vms_sdk::AlarmInfo& alarm);
    void signalTlvDataPush(const QString& devId, const QByteArray& tlvData);
    void signalTalkEventPush(const QPair<QString, int>& channel, vms_sdk::TalkEvent event);
    void signalSpeakEventPush(const QPair<QString, int>& channel, vms_sdk::TalkEvent event);
    void signalUploadUpgradeFileFinished(const QString& devId);
    void signalPushFileTransferProgress(const vms_sdk::FileTransferProgress& progress);

    // Stream data and stream pushes.
    void signalStreamData(vms_sdk::StreamId streamId, const QByteArray& data);
    void signalStreamEventPush(vms_sdk::StreamId streamId, vms_sdk::StreamEvent event);
    void signalPlaybackByFileProgressPush(vms_sdk::StreamId streamId, unsigned int curPos,
                                          unsigned int totalPos);
    void signalPlaybackByTimeProgressPush(vms_sdk::StreamId streamId, const QDateTime& curTime);

    // Answers to requests that travel as gateway messages. The three answers to unmanaged
    // devices carry the device's serial number and the device's result code instead of a
    // Response.
    void signalActivateDevRes(const QString& devSn, int result);
    void signalGetDevNetRes(const vms_sdk::Response& response, const vms_sdk::DevNetInfo& netInfo);
    void signalSetDevNetRes(const vms_sdk::Response& response, const QString& devId,
                            const QString& devIp);
    void signalGetDevPlatformRes(const vms_sdk::Response& response,
                                 const vms_sdk::DevPlatformInfo& platformInfo);
    void signalSetDevPlatformRes(const vms_sdk::Response& response);
    void signalGetDevPlatform_kvrRes(const vms_sdk::Response& response,
                                     const vms_sdk::DevPlatformInfo_kvr& platformInfo);
    void signalSetDevPlatform_kvrRes(const vms_sdk::Response& response);
    void signalImportDevCertRes(const vms_sdk::Response& response);
    void signalGetRtspUrlRes(const vms_sdk::Response& response, const QString& rtspUrl);
    void signalSearchVideoRecordingsRes(const vms_sdk::Response& response,
                                        const QList<vms_sdk::VideoRecInfo>& recordings,
                                        bool finished);
    void signalPTZCtrlRes(const vms_sdk::Response& response, vms_sdk::PTZOperation operation,
                          vms_sdk::PTZAction action);
    void signalGetPresetsRes(const vms_sdk::Response& response,
                             const QList<vms_sdk::PresetInfo>& presets);
    void signalOperPresetsRes(const vms_sdk::Response& response, vms_sdk::PresetOper oper);
    void signalGetPatrolsRes(const vms_sdk::Response& response,
                             const QList<vms_sdk::PatrolInfo>& patrols);
    void signalOperPatrolRes(const vms_sdk::Response& response, vms_sdk::PatrolOper oper);
    void signalOperPatrolPresetRes(const vms_sdk::Response& response,
                                   vms_sdk::PatrolPresetOper oper);
    void signalSetPatrolPresetsRes(const vms_sdk::Response& response);
    // Answers both set_osd_req and modify_dev_name_req.
    void signalDevConfigRes(const vms_sdk::Response& response);
    void signalAddFaceRes(const vms_sdk::Response& response);
    // totalCount: the faces in the library; count: the faces in this answer.
    void signalGetFacesRes(const vms_sdk::Response& response, const QList<vms_sdk::FaceInfo>& faces,
                           unsigned int totalCount, unsigned int count);
    void signalDelFaceRes(const vms_sdk::Response& response);
    void signalGetFaceDetectRecordsRes(const vms_sdk::Response& response,
                                       const QList<vms_sdk::FaceDetectRecordInfo>& records,
                                       unsigned int totalCount);
    void signalCheckDevUpgradeRes(const vms_sdk::Response& response,
                                  const vms_sdk::DevUpgradeInfo& upgradeInfo);
    void signalGetDevUpgradeProgressRes(const vms_sdk::Response& response,
                                        const vms_sdk::DevUpgradeInfo& upgradeInfo);
    void signalModifyDevAccountRes(const vms_sdk::Response& response);
    void signalGetDevSecretQuestionsRes(const QString& devSn, int result,
                                        const QStringList& questions);
    void signalResetDevPwdRes(const QString& devSn, int result);
    void signalTalkOperRes(const vms_sdk::Response& response);
    void signalSpeakOperRes(const vms_sdk::Response& response);
    // The answer to common_req: the device's JSON text, unparsed.
    void signalCommonRes(const QString& requestId, const QString& resJson);

    // Answers to requests that travel as device JSON methods. A device error arrives in the
    // Response together with empty or default results.
    void signalAddBulletTagPointRes(const vms_sdk::Response& response);
    void signalAddFaceGroupsRes(const vms_sdk::Response& response);
    void signalCalibrateBulletDomeRes(const vms_sdk::Response& response);
    // The alarm is the request value the application attached to the request, if any.
    void signalCancelAlarmRes(const vms_sdk::Response& response, const vms_sdk::AlarmInfo& alarm);
    void signalClearBulletTagPointsRes(const vms_sdk::Response& response);
    void signalCtrlParkingLockRes(const vms_sdk::Response& response);
    void signalDeleteFaceGroupsRes(const vms_sdk::Response& response);
    void signalEditFaceGroupsRes(const vms_sdk::Response& response);
    void signalEditFaceRes(const vms_sdk::Response& response);
    void signalExportFaceLibraryProgressRes(const vms_sdk::Response& response, int progress,
                                            const QString& fileName);
    void signalExportFaceLibraryRes(const vms_sdk::Response& response);
    void signalFormatDevDiskRes(const vms_sdk::Response& response);
    void signalGetAlarmRecordsRes(const vms_sdk::Response& response,
                                  const QList<vms_sdk::AlarmInfo>& alarms, int totalCount);
    void signalGetAllAudioInChannsSettingsRes(const vms_sdk::Response& response,
                                              const QList<vms_sdk::AudioSettingInfo>& settings);
    void signalGetAllAudioOutChannsSettingsRes(const vms_sdk::Response& response,
                                               const QList<vms_sdk::AudioSettingInfo>& settings);
    void signalGetAllFaceGroupsRes(const vms_sdk::Response& response,
                                   const QList<vms_sdk::FaceGroupInfo>& groups);
    void signalGetBulletDomeCalibrateStatusRes(const vms_sdk::Response& response,
                                               const vms_sdk::CalibrationStatusInfo& status);
    void signalGetBulletTagPointsRes(const vms_sdk::Response& response,
                                     const QList<vms_sdk::BulletTagPointInfo>& points);
    void signalGetChannImageAbilityRes(const vms_sdk::Response& response,
                                       const vms_sdk::ImageAbilityInfo& ability);
    void signalGetChannImageAdjustSettingsRes(const vms_sdk::Response& response,
                                              const vms_sdk::ImageAdjustSettingInfo& settings);
    void signalGetChannImageSettingsRes(const vms_sdk::Response& response,
                                        const vms_sdk::ImageSettingInfo& settings);
    void signalGetChannStreamSettingsRes(const vms_sdk::Response& response,
                                         const QList<vms_sdk::StreamSettingInfo>& settings);
    void signalGetCustomerGroupRes(const vms_sdk::Response& response,
                                   const QList<vms_sdk::CustomerGroupInfo>& groups);
    void signalGetCustomersCountRes(const vms_sdk::Response& response,
                                    const QList<vms_sdk::CustomersCountInfo>& counts);
    void signalGetCustomersHeatMapRes(const vms_sdk::Response& response,
                                      const vms_sdk::CustomersHeatMapInfo& heatMap);
    void signalGetCustomersRegionAttentionRes(
        const vms_sdk::Response& response,
        const QList<vms_sdk::CustomersRegionAttentionInfo>& attention);
    void signalGetCustomersRegionsRes(const vms_sdk::Response& response,
                                      const QList<vms_sdk::CustomersRegionInfo>& regions);
    // status is true only when the device reports the formatting as normal.
    void signalGetDevDiskFormattingProgressRes(const vms_sdk::Response& response, int progress,
                                               bool finished, bool status);
    void signalGetDevDisksInfoRes(const vms_sdk::Response& response,
                                  const QList<vms_sdk::DevDiskInfo>& disks);
    void signalGetDevLogsRes(const vms_sdk::Response& response,
                             const QList<vms_sdk::DevLogInfo>& logs);
    // netMode as in DevNetInfo; -1 when the device answered with an error.
    void signalGetDevNetModeRes(const vms_sdk::Response& response, int netMode);
    void signalGetDevQRCodeRes(const vms_sdk::Response& response, const QString& qrCode);
    void signalGetDevSysCfgRes(const vms_sdk::Response& response,
                               const vms_sdk::DevSysCfgInfo& sysCfg);
    // Every page of the query, collected, grouped by event type.
    void signalGetEventRecordsRes(const vms_sdk::Response& response,
                                  const vms_sdk::EventMap& events);
    void signalGetFaceRecRecordsRes(const vms_sdk::Response& response,
                                    const QList<vms_sdk::FaceRecRecordInfo>& records, int pageNum,
                                    int totalCount);
    void signalGetFacesModelingStatusRes(const vms_sdk::Response& response,
                                         const vms_sdk::FacesModelingStatusInfo& status);
    void
    signalGetLicensePlateRecRecordsRes(const vms_sdk::Response& response,
                                       const QList<vms_sdk::LicensePlateRecRecordInfo>& records,
                                       int totalCount, int pageNum);
    void signalGetPTZAbilityRes(const vms_sdk::Response& response,
                                const vms_sdk::PTZAbilityInfo& ability);
    void signalGetParkingLockStatusRes(const vms_sdk::Response& response,
                                       const QList<vms_sdk::ParkingLockInfo>& locks);
    void
    signalGetRegionTemperatureRecordsRes(const vms_sdk::Response& response,
                                         const QList<vms_sdk::RegionTemperatureRecordInfo>& records,
                                         int totalCount);
    // The picture exactly as the device sent it (Base64 text).
    void signalGetSnapImageRes(const vms_sdk::Response& response, const QByteArray& data);
    void signalGetTriggeredEventsRes(const vms_sdk::Response& response,
                                     const QList<vms_sdk::EventTypeInfo>& eventTypes);
    // The days that have recordings, in ascending order.
    void signalGetVideoRecordingsCalendarMaskRes(const vms_sdk::Response& response,
                                                 const QList<QDate>& dates);
    void signalImportFaceLibraryProgressRes(const vms_sdk::Response& response,
                                            const vms_sdk::FaceLibraryImportProgress& progress);
    void signalImportFaceLibraryRes(const vms_sdk::Response& response);
    void signalPTZAutoMoveRes(const vms_sdk::Response& response);
    void signalSetChannImageAdjustSettingsRes(const vms_sdk::Response& response);
    void signalSetDomeTrackGuardInitialPosRes(const vms_sdk::Response& response);
    void signalTriggerAlarmLinkRes(const vms_sdk::Response& response);

private:
    ClientSignals();
};

} // namespace vms_sdk

#endif // VMS_SDK_CLIENT_SIGNALS_H
