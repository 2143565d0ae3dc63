// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_COMMON_RECORDS_H
#define VMS_SDK_COMMON_RECORDS_H

// The records most requests and answers share: the answer head, the channel address and the
// conditions that name nothing but a device or a channel.
//
// Every public record is an aggregate and a Qt gadget with one property per field (see
// device_records.h); every field has an initialiser, which keeps designated initialisation free
// of missing-initialiser warnings. A property whose type is a record, a list or an enumeration
// spells the type with its namespace: Qt finds a property's type by that name, and the
// qualified names are the ones registered.

#include "vms_sdk_global.h"

#include <QMetaType>
#include <QObject>
#include <QString>

namespace vms_sdk {

// The head of every answer: which request it answers and whether it succeeded.
struct VMS_CLIENT_SDK_EXPORT Response
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(int errCode MEMBER errCode)
    Q_PROPERTY(QString errMsg MEMBER errMsg)
public:
    QString requestId{};
    int errCode = 0; // 0 is success; anything else is the gateway's or the device's error code
    QString errMsg{};
    bool operator==(const Response&) const = default;
};

// One channel of a device. Conditions embed it in place, so their second and third fields are
// the device id and the channel index.
struct VMS_CLIENT_SDK_EXPORT ChannelId
{
    Q_GADGET
    Q_PROPERTY(QString devId MEMBER devId)
    Q_PROPERTY(unsigned int channelIndex MEMBER channelIndex)
public:
    QString devId{};
    unsigned int channelIndex = 0;
    bool operator==(const ChannelId&) const = default;
};

// A request that names a device and nothing else.
struct VMS_CLIENT_SDK_EXPORT DeviceCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(QString devId MEMBER devId)
public:
    QString requestId{};
    QString devId{};
    bool operator==(const DeviceCondition&) const = default;
};

// A request that names a channel and nothing else.
struct VMS_CLIENT_SDK_EXPORT ChannelCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
public:
    QString requestId{};
    ChannelId channelId{};
    bool operator==(const ChannelCondition&) const = default;
};

// A request served by an application on the device (face library, customer statistics,
// parking locks): the package names that application.
struct VMS_CLIENT_SDK_EXPORT AiDeviceCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(QString devId MEMBER devId)
    Q_PROPERTY(QString package MEMBER package)
public:
    QString requestId{};
    QString devId{};
    QString package{};
    bool operator==(const AiDeviceCondition&) const = default;
};

// The same for one channel of the device.
struct VMS_CLIENT_SDK_EXPORT AiChannelCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString package MEMBER package)
public:
    QString requestId{};
    ChannelId channelId{};
    QString package{};
    bool operator==(const AiChannelCondition&) const = default;
};

} // namespace vms_sdk

Q_DECLARE_METATYPE(vms_sdk::Response)
Q_DECLARE_METATYPE(vms_sdk::ChannelId)
Q_DECLARE_METATYPE(vms_sdk::DeviceCondition)
Q_DECLARE_METATYPE(vms_sdk::ChannelCondition)
Q_DECLARE_METATYPE(vms_sdk::AiDeviceCondition)
Q_DECLARE_METATYPE(vms_sdk::AiChannelCondition)

#endif // VMS_SDK_COMMON_RECORDS_H
