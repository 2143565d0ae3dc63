// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_CONFIG_RECORDS_H
#define VMS_SDK_CONFIG_RECORDS_H

// Records of device upkeep and configuration: firmware upgrade, file transfer, system
// settings, disks, logs, and the image, stream and audio settings of channels.

#include "common_records.h"

#include <QDateTime>
#include <QList>
#include <QMap>
#include <QMetaType>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTime>

namespace vms_sdk {

// Checks for or starts a firmware upgrade, from a server (url) or from uploaded files.
struct VMS_CLIENT_SDK_EXPORT DevUpgradeCondtition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(QString devId MEMBER devId)
    Q_PROPERTY(QString mode MEMBER mode)
    Q_PROPERTY(QString url MEMBER url)
    Q_PROPERTY(int upgradeType MEMBER upgradeType)
    Q_PROPERTY(QString mainFile MEMBER mainFile)
    Q_PROPERTY(QString verFile MEMBER verFile)
public:
    QString requestId{};
    QString devId{};
    QString mode{};
    QString url{};
    int upgradeType = 0;
    QString mainFile{};
    QString verFile{};
    bool operator==(const DevUpgradeCondtition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT DevUpgradeInfo
{
    Q_GADGET
    Q_PROPERTY(int status MEMBER status)
    Q_PROPERTY(QString newVersionName MEMBER newVersionName)
    Q_PROPERTY(bool hasNewVersion MEMBER hasNewVersion)
    Q_PROPERTY(QString phase MEMBER phase)
    Q_PROPERTY(int progress MEMBER progress)
public:
    int status = 0;
    QString newVersionName{};
    bool hasNewVersion = false;
    QString phase{};
    int progress = 0; // percent
    bool operator==(const DevUpgradeInfo&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT UploadFileCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(QString devId MEMBER devId)
    Q_PROPERTY(QString fileName MEMBER fileName)
    Q_PROPERTY(QString purpose MEMBER purpose)
public:
    QString requestId{};
    QString devId{};
    QString fileName{};
    QString purpose{};
    bool operator==(const UploadFileCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT DownloadFileCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(QString devId MEMBER devId)
    Q_PROPERTY(QString srcFileName MEMBER srcFileName)
    Q_PROPERTY(QString desFileName MEMBER desFileName)
public:
    QString requestId{};
    QString devId{};
    QString srcFileName{}; // on the device
    QString desFileName{}; // on this computer
    bool operator==(const DownloadFileCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT FileTransferProgress
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(int progress MEMBER progress)
    Q_PROPERTY(int status MEMBER status)
public:
    QString requestId{};
    int progress = 0; // percent
    int status = 0;
    bool operator==(const FileTransferProgress&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT DevSysCfgInfo
{
    Q_GADGET
    Q_PROPERTY(bool bDiscoverable MEMBER bDiscoverable)
    Q_PROPERTY(QString hostname MEMBER hostname)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString rebootDay MEMBER rebootDay)
    Q_PROPERTY(int rebootHour MEMBER rebootHour)
    Q_PROPERTY(QString syslanguage MEMBER syslanguage)
    Q_PROPERTY(bool encryptEn MEMBER encryptEn)
    Q_PROPERTY(QStringList supportedLangs MEMBER supportedLangs)
public:
    bool bDiscoverable = false;
    QString hostname{};
    QString name{};
    QString rebootDay{};
    int rebootHour = 0;
    QString syslanguage{};
    bool encryptEn = false;
    QStringList supportedLangs{}; // only in answers
    bool operator==(const DevSysCfgInfo&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT FormatDiskCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(QString devId MEMBER devId)
    Q_PROPERTY(int diskNum MEMBER diskNum)
    Q_PROPERTY(QString diskName MEMBER diskName)
    Q_PROPERTY(int partionNum MEMBER partionNum)
public:
    QString requestId{};
    QString devId{};
    int diskNum = 0;
    QString diskName{};
    int partionNum = 0;
    bool operator==(const FormatDiskCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT DevDiskInfo
{
    Q_GADGET
    Q_PROPERTY(int diskNum MEMBER diskNum)
    Q_PROPERTY(QString devName MEMBER devName)
    Q_PROPERTY(QString sn MEMBER sn)
    Q_PROPERTY(QString status MEMBER status)
    Q_PROPERTY(QString fs MEMBER fs)
    Q_PROPERTY(int sizeMB MEMBER sizeMB)
    Q_PROPERTY(int usedMB MEMBER usedMB)
    Q_PROPERTY(bool bCurDisk MEMBER bCurDisk)
    Q_PROPERTY(int partitionCount MEMBER partitionCount)
    Q_PROPERTY(int curPart MEMBER curPart)
public:
    int diskNum = 0;
    QString devName{};
    QString sn{};
    QString status{};
    QString fs{}; // file system
    int sizeMB = 0;
    int usedMB = 0;
    bool bCurDisk = false; // the disk being recorded to
    int partitionCount = 0;
    int curPart = 0;
    bool operator==(const DevDiskInfo&) const = default;
};

using DevDiskList = QList<DevDiskInfo>;

struct VMS_CLIENT_SDK_EXPORT DevLogInfo
{
    Q_GADGET
    Q_PROPERTY(QDateTime time MEMBER time)
    Q_PROPERTY(QString strlog MEMBER strlog)
public:
    QDateTime time{};
    QString strlog{};
    bool operator==(const DevLogInfo&) const = default;
};

using DevLogList = QList<DevLogInfo>;

struct VMS_CLIENT_SDK_EXPORT SetOSDCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString osd MEMBER osd)
public:
    QString requestId{};
    ChannelId channelId{};
    QString osd{};
    bool operator==(const SetOSDCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT ImageAdjustSettingInfo
{
    Q_GADGET
    Q_PROPERTY(int contrast MEMBER contrast)
    Q_PROPERTY(int brightness MEMBER brightness)
    Q_PROPERTY(int saturation MEMBER saturation)
    Q_PROPERTY(int sharpen MEMBER sharpen)
    Q_PROPERTY(bool bEnableMI MEMBER bEnableMI)
    Q_PROPERTY(bool bEnableST MEMBER bEnableST)
    Q_PROPERTY(int rotate MEMBER rotate)
    Q_PROPERTY(int style MEMBER style)
public:
    int contrast = 0;
    int brightness = 0;
    int saturation = 0;
    int sharpen = 0;
    bool bEnableMI = false; // mirror
    bool bEnableST = false; // flip
    int rotate = 0;
    int style = 0;
    bool operator==(const ImageAdjustSettingInfo&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT ImageSettingInfo
{
    Q_GADGET
    Q_PROPERTY(int contrast MEMBER contrast)
    Q_PROPERTY(int brightness MEMBER brightness)
    Q_PROPERTY(int saturation MEMBER saturation)
    Q_PROPERTY(int sharpen MEMBER sharpen)
    Q_PROPERTY(int fluency MEMBER fluency)
    Q_PROPERTY(int definition MEMBER definition)
    Q_PROPERTY(int noise MEMBER noise)
    Q_PROPERTY(int smear MEMBER smear)
    Q_PROPERTY(int exposureMode MEMBER exposureMode)
    Q_PROPERTY(int exposureMax MEMBER exposureMax)
    Q_PROPERTY(int exposureMin MEMBER exposureMin)
    Q_PROPERTY(int antiflick MEMBER antiflick)
    Q_PROPERTY(QString scene MEMBER scene)
    Q_PROPERTY(QString daynightMode MEMBER daynightMode)
    Q_PROPERTY(QTime dayStart MEMBER dayStart)
    Q_PROPERTY(QTime dayEnd MEMBER dayEnd)
    Q_PROPERTY(int light MEMBER light)
    Q_PROPERTY(int rotate MEMBER rotate)
    Q_PROPERTY(bool bEnableAWB MEMBER bEnableAWB)
    Q_PROPERTY(bool bEnableMI MEMBER bEnableMI)
    Q_PROPERTY(bool bEnableST MEMBER bEnableST)
    Q_PROPERTY(bool bEnableNoC MEMBER bEnableNoC)
    Q_PROPERTY(bool bEnableWDynamic MEMBER bEnableWDynamic)
    Q_PROPERTY(bool bAutoLowFrameEn MEMBER bAutoLowFrameEn)
    Q_PROPERTY(bool bNightOptimization MEMBER bNightOptimization)
    Q_PROPERTY(bool bDefogging MEMBER bDefogging)
    Q_PROPERTY(bool bStarlight MEMBER bStarlight)
    Q_PROPERTY(bool bAutogain MEMBER bAutogain)
    Q_PROPERTY(bool bBLC MEMBER bBLC)
    Q_PROPERTY(bool bDistortionCorrection MEMBER bDistortionCorrection)
    Q_PROPERTY(bool bDigitalstabilize MEMBER bDigitalstabilize)
public:
    int contrast = 0;
    int brightness = 0;
    int saturation = 0;
    int sharpen = 0;
    int fluency = 0;
    int definition = 0;
    int noise = 0;
    int smear = 0;
    int exposureMode = 0;
    int exposureMax = 0;
    int exposureMin = 0;
    int antiflick = 0;
    QString scene{};
    QString daynightMode{};
    QTime dayStart{};
    QTime dayEnd{};
    int light = 0;
    int rotate = 0;
    bool bEnableAWB = false;
    bool bEnableMI = false;
    bool bEnableST = false;
    bool bEnableNoC = false;
    bool bEnableWDynamic = false;
    bool bAutoLowFrameEn = false;
    bool bNightOptimization = false;
    bool bDefogging = false;
    bool bStarlight = false;
    bool bAutogain = false;
    bool bBLC = false;
    bool bDistortionCorrection = false;
    bool bDigitalstabilize = false;
    bool operator==(const ImageSettingInfo&) const = default;
};

// Which image settings a channel supports.
struct VMS_CLIENT_SDK_EXPORT ImageAbilityInfo
{
    Q_GADGET
    Q_PROPERTY(bool bMISup MEMBER bMISup)
    Q_PROPERTY(bool bSTSup MEMBER bSTSup)
    Q_PROPERTY(bool bRotateSup MEMBER bRotateSup)
    Q_PROPERTY(bool bStyleSup MEMBER bStyleSup)
    Q_PROPERTY(bool bExpModeSup MEMBER bExpModeSup)
    Q_PROPERTY(bool bWBSup MEMBER bWBSup)
    Q_PROPERTY(bool bWDSup MEMBER bWDSup)
    Q_PROPERTY(bool bHardWDSup MEMBER bHardWDSup)
    Q_PROPERTY(bool bASTimeSup MEMBER bASTimeSup)
    Q_PROPERTY(bool bFluencySup MEMBER bFluencySup)
    Q_PROPERTY(bool bDefinitionSup MEMBER bDefinitionSup)
    Q_PROPERTY(bool bNoiseRdSup MEMBER bNoiseRdSup)
    Q_PROPERTY(bool bSmearSup MEMBER bSmearSup)
    Q_PROPERTY(bool bAutoLowFrameSup MEMBER bAutoLowFrameSup)
    Q_PROPERTY(bool b3DNoiseRdSup MEMBER b3DNoiseRdSup)
    Q_PROPERTY(bool b3DNoiseRdValueSup MEMBER b3DNoiseRdValueSup)
    Q_PROPERTY(bool bDefogSup MEMBER bDefogSup)
    Q_PROPERTY(bool bDefogValueSup MEMBER bDefogValueSup)
    Q_PROPERTY(bool bDistCorSup MEMBER bDistCorSup)
    Q_PROPERTY(bool bDistCorValueSup MEMBER bDistCorValueSup)
    Q_PROPERTY(bool bFaceModeSup MEMBER bFaceModeSup)
    Q_PROPERTY(bool bStarSup MEMBER bStarSup)
    Q_PROPERTY(bool bVlpnIrSup MEMBER bVlpnIrSup)
    Q_PROPERTY(bool bSmartSensorSup MEMBER bSmartSensorSup)
    Q_PROPERTY(bool bCPModeSup MEMBER bCPModeSup)
    Q_PROPERTY(bool bWLValSetSup MEMBER bWLValSetSup)
public:
    bool bMISup = false;
    bool bSTSup = false;
    bool bRotateSup = false;
    bool bStyleSup = false;
    bool bExpModeSup = false;
    bool bWBSup = false;
    bool bWDSup = false;
    bool bHardWDSup = false;
    bool bASTimeSup = false;
    bool bFluencySup = false;
    bool bDefinitionSup = false;
    bool bNoiseRdSup = false;
    bool bSmearSup = false;
    bool bAutoLowFrameSup = false;
    bool b3DNoiseRdSup = false;
    bool b3DNoiseRdValueSup = false;
    bool bDefogSup = false;
    bool bDefogValueSup = false;
    bool bDistCorSup = false;
    bool bDistCorValueSup = false;
    bool bFaceModeSup = false;
    bool bStarSup = false;
    bool bVlpnIrSup = false;
    bool bSmartSensorSup = false;
    bool bCPModeSup = false;
    bool bWLValSetSup = false;
    bool operator==(const ImageAbilityInfo&) const = default;
};

// The encoding of one stream of a channel.
struct VMS_CLIENT_SDK_EXPORT StreamSettingInfo
{
    Q_GADGET
    Q_PROPERTY(int streamId MEMBER streamId)
    Q_PROPERTY(int width MEMBER width)
    Q_PROPERTY(int height MEMBER height)
    Q_PROPERTY(int frameRate MEMBER frameRate)
    Q_PROPERTY(int bitRate MEMBER bitRate)
    Q_PROPERTY(int gop MEMBER gop)
    Q_PROPERTY(int vencType MEMBER vencType)
    Q_PROPERTY(int quality MEMBER quality)
    Q_PROPERTY(int smooth MEMBER smooth)
    Q_PROPERTY(int rcMode MEMBER rcMode)
    Q_PROPERTY(int smartEncode MEMBER smartEncode)
    Q_PROPERTY(bool encryptEn MEMBER encryptEn)
public:
    int streamId = 0;
    int width = 0;
    int height = 0;
    int frameRate = 0;
    int bitRate = 0;
    int gop = 0;
    int vencType = 0;
    int quality = 0;
    int smooth = 0;
    int rcMode = 0;
    int smartEncode = 0;
    bool encryptEn = false;
    bool operator==(const StreamSettingInfo&) const = default;
};

using StreamSettingList = QList<StreamSettingInfo>;

using StreamSettingMap = QMap<int, StreamSettingInfo>; // keyed by streamId

struct VMS_CLIENT_SDK_EXPORT AudioSettingInfo
{
    Q_GADGET
    Q_PROPERTY(int channelIndex MEMBER channelIndex)
    Q_PROPERTY(bool bEnable MEMBER bEnable)
    Q_PROPERTY(int sampleRate MEMBER sampleRate)
    Q_PROPERTY(int bitWidth MEMBER bitWidth)
    Q_PROPERTY(int cntChannel MEMBER cntChannel)
    Q_PROPERTY(int bitRate MEMBER bitRate)
    Q_PROPERTY(int encType MEMBER encType)
    Q_PROPERTY(int aiGain MEMBER aiGain)
public:
    int channelIndex = 0;
    bool bEnable = false;
    int sampleRate = 0;
    int bitWidth = 0;
    int cntChannel = 0;
    int bitRate = 0;
    int encType = 0;
    int aiGain = 0;
    bool operator==(const AudioSettingInfo&) const = default;
};

using AudioSettingList = QList<AudioSettingInfo>;

} // namespace vms_sdk

Q_DECLARE_METATYPE(vms_sdk::DevUpgradeCondtition)
Q_DECLARE_METATYPE(vms_sdk::DevUpgradeInfo)
Q_DECLARE_METATYPE(vms_sdk::UploadFileCondition)
Q_DECLARE_METATYPE(vms_sdk::DownloadFileCondition)
Q_DECLARE_METATYPE(vms_sdk::FileTransferProgress)
Q_DECLARE_METATYPE(vms_sdk::DevSysCfgInfo)
Q_DECLARE_METATYPE(vms_sdk::FormatDiskCondition)
Q_DECLARE_METATYPE(vms_sdk::DevDiskInfo)
Q_DECLARE_METATYPE(vms_sdk::DevLogInfo)
Q_DECLARE_METATYPE(vms_sdk::SetOSDCondition)
Q_DECLARE_METATYPE(vms_sdk::ImageAdjustSettingInfo)
Q_DECLARE_METATYPE(vms_sdk::ImageSettingInfo)
Q_DECLARE_METATYPE(vms_sdk::ImageAbilityInfo)
Q_DECLARE_METATYPE(vms_sdk::StreamSettingInfo)
Q_DECLARE_METATYPE(vms_sdk::AudioSettingInfo)

#endif // VMS_SDK_CONFIG_RECORDS_H
