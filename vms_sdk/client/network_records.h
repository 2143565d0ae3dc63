// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_NETWORK_RECORDS_H
#define VMS_SDK_NETWORK_RECORDS_H

// Records of a device's network settings, the platforms it registers with and its
// certificates.

#include "common_records.h"

#include <QMetaType>
#include <QObject>
#include <QString>

namespace vms_sdk {

// A device's network configuration.
struct VMS_CLIENT_SDK_EXPORT DevNetInfo
{
    Q_GADGET
    Q_PROPERTY(QString ip MEMBER ip)
    Q_PROPERTY(QString subNetMask MEMBER subNetMask)
    Q_PROPERTY(QString defaultGateway MEMBER defaultGateway)
    Q_PROPERTY(QString dns MEMBER dns)
    Q_PROPERTY(bool dhcpEnabled MEMBER dhcpEnabled)
    Q_PROPERTY(int netMode MEMBER netMode)
    Q_PROPERTY(int httpPort MEMBER httpPort)
    Q_PROPERTY(int netCardIndex MEMBER netCardIndex)
public:
    QString ip{};
    QString subNetMask{};
    QString defaultGateway{};
    QString dns{};
    bool dhcpEnabled = false;
    int netMode = -1; // 0 wired, 1 wireless, 2 mobile, 3 dial-up, 4 dynamic DNS; -1 not reported
    int httpPort = 0;
    int netCardIndex = -1; // the interface the settings belong to; -1 the device's default one
    bool operator==(const DevNetInfo&) const = default;
};

// The fields after devId are those of DevNetInfo, with the same meaning and defaults.
struct VMS_CLIENT_SDK_EXPORT SetDevNetCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(QString devId MEMBER devId)
    Q_PROPERTY(QString ip MEMBER ip)
    Q_PROPERTY(QString subNetMask MEMBER subNetMask)
    Q_PROPERTY(QString defaultGateway MEMBER defaultGateway)
    Q_PROPERTY(QString dns MEMBER dns)
    Q_PROPERTY(bool dhcpEnabled MEMBER dhcpEnabled)
    Q_PROPERTY(int netMode MEMBER netMode)
    Q_PROPERTY(int httpPort MEMBER httpPort)
    Q_PROPERTY(int netCardIndex MEMBER netCardIndex)
public:
    QString requestId{};
    QString devId{};
    QString ip{};
    QString subNetMask{};
    QString defaultGateway{};
    QString dns{};
    bool dhcpEnabled = false;
    int netMode = -1;
    int httpPort = 0;
    int netCardIndex = -1;
    bool operator==(const SetDevNetCondition&) const = default;
};

// The management platform a device registers with.
struct VMS_CLIENT_SDK_EXPORT DevPlatformInfo
{
    Q_GADGET
    Q_PROPERTY(bool enabled MEMBER enabled)
    Q_PROPERTY(QString platformAddr MEMBER platformAddr)
    Q_PROPERTY(bool online MEMBER online)
    Q_PROPERTY(int port MEMBER port)
    Q_PROPERTY(int protocolType MEMBER protocolType)
public:
    bool enabled = false;
    QString platformAddr{};
    bool online = false; // the device is registered with the platform right now
    int port = 0;
    int protocolType = 0;
    bool operator==(const DevPlatformInfo&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT GetDevPlatformCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(QString devId MEMBER devId)
    Q_PROPERTY(int platformType MEMBER platformType)
    Q_PROPERTY(bool withStatus MEMBER withStatus)
public:
    QString requestId{};
    QString devId{};
    int platformType = 0;
    bool withStatus = false; // also ask whether the device is registered right now
    bool operator==(const GetDevPlatformCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT SetDevPlatformCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(QString devId MEMBER devId)
    Q_PROPERTY(vms_sdk::DevPlatformInfo platformInfo MEMBER platformInfo)
public:
    QString requestId{};
    QString devId{};
    DevPlatformInfo platformInfo{};
    bool operator==(const SetDevPlatformCondition&) const = default;
};

// The second kind of platform: one server for going online, one for the business traffic.
struct VMS_CLIENT_SDK_EXPORT DevPlatformInfo_kvr
{
    Q_GADGET
    Q_PROPERTY(bool enabled MEMBER enabled)
    Q_PROPERTY(bool onlineServerEnabled MEMBER onlineServerEnabled)
    Q_PROPERTY(QString onlineServer MEMBER onlineServer)
    Q_PROPERTY(bool bussinessServerEnabled MEMBER bussinessServerEnabled)
    Q_PROPERTY(QString bussinessServer MEMBER bussinessServer)
public:
    bool enabled = false;
    bool onlineServerEnabled = false;
    QString onlineServer{};
    bool bussinessServerEnabled = false;
    QString bussinessServer{};
    bool operator==(const DevPlatformInfo_kvr&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT SetDevPlatform_kvrCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(QString devId MEMBER devId)
    Q_PROPERTY(vms_sdk::DevPlatformInfo_kvr platformInfo MEMBER platformInfo)
public:
    QString requestId{};
    QString devId{};
    DevPlatformInfo_kvr platformInfo{};
    bool operator==(const SetDevPlatform_kvrCondition&) const = default;
};

// A certificate for the device's encrypted services, as PEM texts.
struct VMS_CLIENT_SDK_EXPORT ImportDevCertCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(QString devId MEMBER devId)
    Q_PROPERTY(int certType MEMBER certType)
    Q_PROPERTY(QString ca MEMBER ca)
    Q_PROPERTY(QString certContents MEMBER certContents)
    Q_PROPERTY(QString key MEMBER key)
    Q_PROPERTY(QString secretKey MEMBER secretKey)
public:
    QString requestId{};
    QString devId{};
    int certType = 0;
    QString ca{};
    QString certContents{};
    QString key{};
    QString secretKey{}; // pass phrase of the key
    bool operator==(const ImportDevCertCondition&) const = default;
};

} // namespace vms_sdk

Q_DECLARE_METATYPE(vms_sdk::DevNetInfo)
Q_DECLARE_METATYPE(vms_sdk::SetDevNetCondition)
Q_DECLARE_METATYPE(vms_sdk::DevPlatformInfo)
Q_DECLARE_METATYPE(vms_sdk::GetDevPlatformCondition)
Q_DECLARE_METATYPE(vms_sdk::SetDevPlatformCondition)
Q_DECLARE_METATYPE(vms_sdk::DevPlatformInfo_kvr)
Q_DECLARE_METATYPE(vms_sdk::SetDevPlatform_kvrCondition)
Q_DECLARE_METATYPE(vms_sdk::ImportDevCertCondition)

#endif // VMS_SDK_NETWORK_RECORDS_H
