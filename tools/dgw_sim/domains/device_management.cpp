// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// Searching the network and keeping the set of devices this gateway manages.
//
// A gateway logs in to every device it is given to manage and reports the outcome: its status
// and, when it could log in, what the device says about itself.

#include "handler.h"

#include "../device_model.h"

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

namespace vms_dgw_sim {
namespace {

using namespace vms_sdk;

QString idOf(const vms_sdk_proto::DevInfo& device)
{
    return QString::fromStdString(device.id());
}

void reportLogin(Session& session, const vms_sdk_proto::DevInfo& device)
{
    const qint32 status = session.model().statusOf(device);
    vms_sdk_proto::DevStatusPush statusPush;
    statusPush.set_dev_id(device.id());
    statusPush.set_status(status);
    session.send(DevStatusPush, serialized(statusPush));
    if (status != DeviceModel::StatusOnline) {
        session.log(QStringLiteral("device %1 is offline").arg(idOf(device)));
        return;
    }
    vms_sdk_proto::DevInfoFromDgw info;
    session.model().devInfoFromDgw(idOf(device), &info);
    session.send(DevInfoPush, serialized(info));
    session.log(QStringLiteral("device %1 is online").arg(idOf(device)));
}

void setSearchConfig(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::SetSearchDevsConfigCmd config;
    if (!parsePayload(session, SetSearchDevsConfigCmd, payload, &config))
        return;
    session.model().setSearchConfig(config);
    session.log(QStringLiteral("search range set to %1 - %2")
                    .arg(QString::fromStdString(config.begin_ip()),
                         QString::fromStdString(config.end_ip())));
}

void search(Session& session, const QByteArray&)
{
    const vms_sdk_proto::SearchedDevsPush found = session.model().search(true);
    session.send(SearchedDevsPush, serialized(found));
    session.log(QStringLiteral("search found %1 devices").arg(found.devs_size()));
}

void broadcastSearch(Session& session, const QByteArray&)
{
    const vms_sdk_proto::SearchedDevsPush found = session.model().search(false);
    session.send(BroadcastSearchedDevsPush, serialized(found));
    session.log(QStringLiteral("broadcast search found %1 devices").arg(found.devs_size()));
}

void setManaged(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::SetManagedDevsCmd command;
    if (!parsePayload(session, SetManagedDevsCmd, payload, &command))
        return;
    session.model().setManaged({command.devs().begin(), command.devs().end()});
    session.log(QStringLiteral("managed devices set (%1)").arg(command.devs_size()));
    for (const vms_sdk_proto::DevInfo& device : command.devs())
        reportLogin(session, device);
}

void addManaged(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::AddManagedDevsCmd command;
    if (!parsePayload(session, AddManagedDevsCmd, payload, &command))
        return;
    session.log(QStringLiteral("managed devices added (%1)").arg(command.devs_size()));
    for (const vms_sdk_proto::DevInfo& device : command.devs()) {
        session.model().addManaged(device);
        reportLogin(session, device);
    }
}

void deleteManaged(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::DevList command;
    if (!parsePayload(session, DelManagedDevsCmd, payload, &command))
        return;
    for (const std::string& id : command.devs_id()) {
        const QString devId = QString::fromStdString(id);
        session.log(session.model().removeManaged(devId)
                        ? QStringLiteral("device %1 no longer managed").arg(devId)
                        : QStringLiteral("device %1 was not managed here").arg(devId));
    }
}

void editManaged(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::EditManagedDevsCmd command;
    if (!parsePayload(session, EditManagedDevsCmd, payload, &command))
        return;
    for (const vms_sdk_proto::DevInfo& device : command.devs()) {
        if (!session.model().editManaged(device)) {
            session.log(
                QStringLiteral("edit of device %1 ignored: not managed here").arg(idOf(device)));
            continue;
        }
        // New address or credentials: the gateway logs in again.
        session.log(QStringLiteral("device %1 edited").arg(idOf(device)));
        reportLogin(session, device);
    }
}

void channelsInfo(Session& session, const QByteArray& payload)
{
    // The device id travels as plain text, not as a message.
    const QString devId = QString::fromUtf8(payload);
    const vms_sdk_proto::DevChannelsInfoPush push = session.model().channelsInfo(devId);
    session.send(DevChannelsInfoPush, serialized(push));
    session.log(QStringLiteral("channels of %1 sent (%2)").arg(devId).arg(push.channels_size()));
}

void reconnect(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::DevList command;
    if (!parsePayload(session, ReconnectDevsCmd, payload, &command))
        return;
    for (const std::string& id : command.devs_id()) {
        session.log(QStringLiteral("reconnecting to %1").arg(text(id)));
        reportDevice(session, text(id));
    }
}

} // namespace

void reportDevice(Session& session, const QString& devId)
{
    const auto managed = session.model().managed().constFind(devId);
    if (managed != session.model().managed().constEnd()) {
        reportLogin(session, *managed);
        return;
    }
    if (const SimDevice* device = session.model().simulated(devId)) {
        // Not managed here: nothing but the device itself decides whether it is reachable.
        vms_sdk_proto::DevInfo record;
        record.set_id(utf8(devId));
        record.set_password(utf8(device->password));
        reportLogin(session, record);
        return;
    }
    session.log(QStringLiteral("device %1 is unknown here: no status to report").arg(devId));
}

QList<HandlerRow> deviceManagementHandlers()
{
    return {
        {SetSearchDevsConfigCmd, setSearchConfig},
        {SearchDevsCmd, search},
        {SetManagedDevsCmd, setManaged},
        {BroadcastSearchDevsCmd, broadcastSearch},
        {AddManagedDevsCmd, addManaged},
        {DelManagedDevsCmd, deleteManaged},
        {EditManagedDevsCmd, editManaged},
        {GetDevChannelsInfoCmd, channelsInfo},
        {ReconnectDevsCmd, reconnect},
    };
}

} // namespace vms_dgw_sim
