// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "vms_message.pb.h"

#include <QList>
#include <QMap>
#include <QString>

namespace vms_dgw_sim {

// One AI ability of a device or channel, keyed by its ability number in the wire maps.
struct Ability
{
    qint32 id = 0;
    QString package;
    qint32 version = 0;
    QString name;
    qint32 state = 0;
    bool enabled = false;
};

struct SimChannel
{
    quint32 index = 1;
    QString osd;
    quint32 devType = 0;
    bool online = true;
    // The camera behind a recorder's channel; empty for a camera's own channel.
    QString sn;
    QString ip;
    quint32 port = 0;
    QString user;
    QString password;
    qint32 protocol = 0;
    qint32 loginMode = 0;
    QList<Ability> abilities;
};

// A device that exists on the simulated network.
struct SimDevice
{
    QString id;
    QString name;
    QString sn;
    QString ip;
    quint32 port = 8000;
    QString user = QStringLiteral("admin");
    // Empty: any password logs in. Otherwise a managed device must bring exactly this one.
    QString password;
    QString version;
    QString seriesName;
    QString devCode;
    quint32 devType = 0;
    qint32 protocol = 0;
    qint32 activateStatus = 1;
    bool dhcpEnabled = false;
    qint32 httpPort = 80;
    qint32 rtspPort = 554;
    qint32 loginMode = 0;
    // An offline device is unplugged: it answers no search and never logs in.
    bool online = true;
    QList<SimChannel> channels;
    QList<Ability> abilities;
};

// The devices of the simulated network and the state this gateway keeps about them: which
// of them the application manages here and the search range it set. Every answer and push
// about a device is built here, so that what the application set is what it reads back.
//
// The application names a managed device by an id of its own choosing; the simulated device
// behind it is the one with the same id or, failing that, the same ip. A managed device with
// no simulated device behind it is answered from the record the application gave.
class DeviceModel
{
public:
    static constexpr qint32 StatusOnline = 0;
    static constexpr qint32 StatusOffline = 1;

    DeviceModel(QList<SimDevice> devices, bool unknownDevicesOnline);

    const QList<SimDevice>& devices() const { return m_devices; }
    const SimDevice* simulated(const QString& id) const;

    const QMap<QString, vms_sdk_proto::DevInfo>& managed() const { return m_managed; }
    void setManaged(const QList<vms_sdk_proto::DevInfo>& devices);
    void addManaged(const vms_sdk_proto::DevInfo& device);
    bool removeManaged(const QString& id);
    // Only a device that is managed here can be edited; returns false for any other.
    bool editManaged(const vms_sdk_proto::DevInfo& device);

    const SimDevice* backing(const vms_sdk_proto::DevInfo& managed) const;
    qint32 statusOf(const vms_sdk_proto::DevInfo& managed) const;

    void setSearchConfig(const vms_sdk_proto::SetSearchDevsConfigCmd& config);
    // What a search finds: the online devices, restricted to the configured ip range when
    // `ranged` (a broadcast reaches the whole segment and ignores the range).
    vms_sdk_proto::SearchedDevsPush search(bool ranged) const;

    vms_sdk_proto::DevInfo searchEntry(const SimDevice& device) const;
    // The information of a device named by its managed id or, when it is not managed here,
    // by its simulated id. False when the id names neither.
    bool devInfoFromDgw(const QString& devId, vms_sdk_proto::DevInfoFromDgw* info) const;
    // The channels of such a device; none for an id that names neither.
    vms_sdk_proto::DevChannelsInfoPush channelsInfo(const QString& devId) const;

private:
    bool inSearchRange(const QString& ip) const;

    QList<SimDevice> m_devices;
    bool m_unknownDevicesOnline;
    QMap<QString, vms_sdk_proto::DevInfo> m_managed;
    vms_sdk_proto::SetSearchDevsConfigCmd m_searchConfig;
};

} // namespace vms_dgw_sim
