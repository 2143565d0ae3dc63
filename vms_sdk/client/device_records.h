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

#include "vms_sdk_global.h"

#include <QList>
#include <QMetaType>
#include <QObject>
#include <QString>

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

} // namespace vms_sdk

Q_DECLARE_METATYPE(vms_sdk::InitDgwCondition)
Q_DECLARE_METATYPE(vms_sdk::DevInfo)

#endif // VMS_SDK_DEVICE_RECORDS_H
