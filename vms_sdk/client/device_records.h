// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_DEVICE_RECORDS_H
#define VMS_SDK_DEVICE_RECORDS_H

// Records of gateway start-up and device management.
//
// Every public record is an aggregate (write DevInfo{.id = "a", .ip = "10.0.0.2"}) and a Qt
// gadget with one property per field, so that it prints, converts to and from JSON and reaches
// QML without a line of code per record. Q_GADGET leaves a private section behind it, which is
// why every record reopens with public: before its fields. Every field has an initialiser,
// which keeps designated initialisation free of missing-initialiser warnings.

#include "common_records.h"
#include "vms_sdk_global.h"

#include <QList>
#include <QMap>
#include <QMetaType>
#include <QObject>
#include <QString>
#include <QStringList>

namespace vms_sdk {

// The account settings every gateway is initialised with.
struct VMS_CLIENT_SDK_EXPORT InitDgwCondition
{
    Q_GADGET
    Q_PROPERTY(QString ak MEMBER ak)
    Q_PROPERTY(QString sk MEMBER sk)
    Q_PROPERTY(QString ck MEMBER ck)
    Q_PROPERTY(QString csk MEMBER csk)
    Q_PROPERTY(bool serviceEnabled MEMBER serviceEnabled)
    Q_PROPERTY(QString url MEMBER url)
    Q_PROPERTY(int serviceType MEMBER serviceType)
    Q_PROPERTY(QString saasServer MEMBER saasServer)
    Q_PROPERTY(QString saasCer MEMBER saasCer)
public:
    QString ak{};  // access key
    QString sk{};  // secret key
    QString ck{};  // client key
    QString csk{}; // client secret key
    bool serviceEnabled = false;
    QString url{};
    int serviceType = 0;
    QString saasServer{}; // address of the service server
    QString saasCer{};    // its certificate
    bool operator==(const InitDgwCondition&) const = default;
};

// A device as the application manages it and as a search finds it.
struct VMS_CLIENT_SDK_EXPORT DevInfo
{
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString sn MEMBER sn)
    Q_PROPERTY(unsigned int devType MEMBER devType)
    Q_PROPERTY(QString ip MEMBER ip)
    Q_PROPERTY(unsigned int port MEMBER port)
    Q_PROPERTY(QString user MEMBER user)
    Q_PROPERTY(QString password MEMBER password)
    Q_PROPERTY(QString version MEMBER version)
    Q_PROPERTY(QString seriesName MEMBER seriesName)
    Q_PROPERTY(int protocol MEMBER protocol)
    Q_PROPERTY(int status MEMBER status)
    Q_PROPERTY(unsigned int channelCount MEMBER channelCount)
    Q_PROPERTY(int activateStatus MEMBER activateStatus)
    Q_PROPERTY(bool dhcpEnabled MEMBER dhcpEnabled)
    Q_PROPERTY(int httpPort MEMBER httpPort)
    Q_PROPERTY(int rtspPort MEMBER rtspPort)
    Q_PROPERTY(int loginMode MEMBER loginMode)
public:
    QString id{};
    QString name{};
    QString sn{}; // serial number
    unsigned int devType = 0;
    QString ip{};
    unsigned int port = 0;
    QString user{};
    QString password{};
    QString version{};
    QString seriesName{};
    int protocol = 0;
    int status = 0;
    unsigned int channelCount = 0;
    int activateStatus = 0;
    bool dhcpEnabled = false;
    int httpPort = 0;
    int rtspPort = 0;
    int loginMode = 0;
    bool operator==(const DevInfo&) const = default;
};

using DevInfoList = QList<DevInfo>;

// One intelligent function a device or channel offers, keyed by its ability number.
struct VMS_CLIENT_SDK_EXPORT AiAbilityInfo
{
    Q_GADGET
    Q_PROPERTY(QString package MEMBER package)
    Q_PROPERTY(int version MEMBER version)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(int status MEMBER status)
    Q_PROPERTY(bool enabled MEMBER enabled)
public:
    QString package{}; // the device application that provides it
    int version = 0;
    QString name{};
    int status = 0;
    bool enabled = false;
    bool operator==(const AiAbilityInfo&) const = default;
};

using AiAbilityMap = QMap<int, AiAbilityInfo>;

// What a gateway learnt about a device once it logged in.
struct VMS_CLIENT_SDK_EXPORT DevInfoFromDgw
{
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString sn MEMBER sn)
    Q_PROPERTY(QString ip MEMBER ip)
    Q_PROPERTY(unsigned int devType MEMBER devType)
    Q_PROPERTY(unsigned int port MEMBER port)
    Q_PROPERTY(int protocol MEMBER protocol)
    Q_PROPERTY(QString version MEMBER version)
    Q_PROPERTY(QString seriesName MEMBER seriesName)
    Q_PROPERTY(unsigned int channelCount MEMBER channelCount)
    Q_PROPERTY(int status MEMBER status)
    Q_PROPERTY(QString devCode MEMBER devCode)
    Q_PROPERTY(int p2pStatus MEMBER p2pStatus)
    Q_PROPERTY(QMap<int, vms_sdk::AiAbilityInfo> abilityDetails MEMBER abilityDetails)
public:
    QString id{};
    QString sn{};
    QString ip{};
    unsigned int devType = 0;
    unsigned int port = 0;
    int protocol = 0;
    QString version{};
    QString seriesName{};
    unsigned int channelCount = 0;
    int status = 0;
    QString devCode{};
    int p2pStatus = 0;
    AiAbilityMap abilityDetails{};
    bool operator==(const DevInfoFromDgw&) const = default;
};

// One channel of a device; for a recorder, the camera behind the channel.
struct VMS_CLIENT_SDK_EXPORT DevChannelInfo
{
    Q_GADGET
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString osd MEMBER osd)
    Q_PROPERTY(unsigned int devType MEMBER devType)
    Q_PROPERTY(int status MEMBER status)
    Q_PROPERTY(QString sn MEMBER sn)
    Q_PROPERTY(QString ip MEMBER ip)
    Q_PROPERTY(unsigned int port MEMBER port)
    Q_PROPERTY(QString user MEMBER user)
    Q_PROPERTY(QString password MEMBER password)
    Q_PROPERTY(int protocol MEMBER protocol)
    Q_PROPERTY(int remoteChannelIndex MEMBER remoteChannelIndex)
    Q_PROPERTY(QMap<int, vms_sdk::AiAbilityInfo> abilityDetails MEMBER abilityDetails)
public:
    ChannelId channelId{};
    QString osd{}; // the text shown over the picture
    unsigned int devType = 0;
    int status = 0;
    QString sn{};
    QString ip{};
    unsigned int port = 0;
    QString user{};
    QString password{};
    int protocol = 0;
    int remoteChannelIndex = 0; // the channel's number on the camera behind a recorder
    AiAbilityMap abilityDetails{};
    bool operator==(const DevChannelInfo&) const = default;
};

using DevChanInfoList = QList<DevChannelInfo>;

// A temporary user code a device handed out, for the device of this serial number.
struct VMS_CLIENT_SDK_EXPORT DevTempUserCode
{
    Q_GADGET
    Q_PROPERTY(QString sn MEMBER sn)
    Q_PROPERTY(QString code MEMBER code)
public:
    QString sn{};
    QString code{};
    bool operator==(const DevTempUserCode&) const = default;
};

using DevTempUserCodeList = QList<DevTempUserCode>;

// How the gateway searches the local network for devices.
struct VMS_CLIENT_SDK_EXPORT SearchDevsConfig
{
    Q_GADGET
    Q_PROPERTY(bool rangeEnabled MEMBER rangeEnabled)
    Q_PROPERTY(QString beginIp MEMBER beginIp)
    Q_PROPERTY(QString endIp MEMBER endIp)
    Q_PROPERTY(int port MEMBER port)
public:
    bool rangeEnabled = false; // search only the addresses from beginIp to endIp
    QString beginIp{};
    QString endIp{};
    int port = 0;
    bool operator==(const SearchDevsConfig&) const = default;
};

// A security question with its answer, for activation and password reset.
struct VMS_CLIENT_SDK_EXPORT SecretInfo
{
    Q_GADGET
    Q_PROPERTY(QString question MEMBER question)
    Q_PROPERTY(QString answer MEMBER answer)
public:
    QString question{};
    QString answer{};
    bool operator==(const SecretInfo&) const = default;
};

// Activates devices that a search found. They are not managed yet, so they are named by
// serial number and no answer is matched to a request id: each device answers on its own.
struct VMS_CLIENT_SDK_EXPORT ActivateCondition
{
    Q_GADGET
    Q_PROPERTY(QStringList devsSn MEMBER devsSn)
    Q_PROPERTY(QString account MEMBER account)
    Q_PROPERTY(QString password MEMBER password)
    Q_PROPERTY(QList<vms_sdk::SecretInfo> secrets MEMBER secrets)
    Q_PROPERTY(int pwdLevel MEMBER pwdLevel)
public:
    QStringList devsSn{};
    QString account{};
    QString password{};
    QList<SecretInfo> secrets{};
    int pwdLevel = 0; // strength level of the new password, as the device rates it
    bool operator==(const ActivateCondition&) const = default;
};

// Asks an unmanaged device for the security questions of an account.
struct VMS_CLIENT_SDK_EXPORT GetDevSecretQuestionsCondition
{
    Q_GADGET
    Q_PROPERTY(QString devSn MEMBER devSn)
    Q_PROPERTY(QString account MEMBER account)
public:
    QString devSn{};
    QString account{};
    bool operator==(const GetDevSecretQuestionsCondition&) const = default;
};

// Resets the password of an account by answering its security questions.
struct VMS_CLIENT_SDK_EXPORT ResetDevPwdCondition
{
    Q_GADGET
    Q_PROPERTY(QString devSn MEMBER devSn)
    Q_PROPERTY(QString account MEMBER account)
    Q_PROPERTY(QString password MEMBER password)
    Q_PROPERTY(QList<vms_sdk::SecretInfo> secrets MEMBER secrets)
public:
    QString devSn{};
    QString account{};
    QString password{};
    QList<SecretInfo> secrets{};
    bool operator==(const ResetDevPwdCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT ModifyDevAccountCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(QString devId MEMBER devId)
    Q_PROPERTY(QString account MEMBER account)
    Q_PROPERTY(QString oldPassword MEMBER oldPassword)
    Q_PROPERTY(QString newPassword MEMBER newPassword)
    Q_PROPERTY(QString level MEMBER level)
public:
    QString requestId{};
    QString devId{};
    QString account{};
    QString oldPassword{};
    QString newPassword{};
    QString level{};
    bool operator==(const ModifyDevAccountCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT ModifyDevNameCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(QString devId MEMBER devId)
    Q_PROPERTY(QString devName MEMBER devName)
public:
    QString requestId{};
    QString devId{};
    QString devName{};
    bool operator==(const ModifyDevNameCondition&) const = default;
};

} // namespace vms_sdk

Q_DECLARE_METATYPE(vms_sdk::InitDgwCondition)
Q_DECLARE_METATYPE(vms_sdk::DevInfo)
Q_DECLARE_METATYPE(vms_sdk::AiAbilityInfo)
Q_DECLARE_METATYPE(vms_sdk::DevInfoFromDgw)
Q_DECLARE_METATYPE(vms_sdk::DevChannelInfo)
Q_DECLARE_METATYPE(vms_sdk::DevTempUserCode)
Q_DECLARE_METATYPE(vms_sdk::SearchDevsConfig)
Q_DECLARE_METATYPE(vms_sdk::SecretInfo)
Q_DECLARE_METATYPE(vms_sdk::ActivateCondition)
Q_DECLARE_METATYPE(vms_sdk::GetDevSecretQuestionsCondition)
Q_DECLARE_METATYPE(vms_sdk::ResetDevPwdCondition)
Q_DECLARE_METATYPE(vms_sdk::ModifyDevAccountCondition)
Q_DECLARE_METATYPE(vms_sdk::ModifyDevNameCondition)

#endif // VMS_SDK_DEVICE_RECORDS_H
