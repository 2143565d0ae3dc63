// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "device_model.h"

#include <QHostAddress>

#include <utility>

namespace vms_dgw_sim {
namespace {

std::string utf8(const QString& text)
{
    return text.toStdString();
}

QString fromUtf8(const std::string& text)
{
    return QString::fromStdString(text);
}

template<typename Map>
void fillAbilities(const QList<Ability>& abilities, Map* map)
{
    for (const Ability& ability : abilities) {
        vms_sdk_proto::AiAbilityInfo& info = (*map)[ability.id];
        info.set_package(utf8(ability.package));
        info.set_attr_2(ability.version);
        info.set_name(utf8(ability.name));
        info.set_attr_4(ability.state);
        info.set_attr_5(ability.enabled);
    }
}

void fillChannel(const QString& devId, const SimChannel& channel, bool deviceOnline,
                 vms_sdk_proto::DevChannInfo* info)
{
    info->mutable_channel_id()->set_dev_id(utf8(devId));
    info->mutable_channel_id()->set_channel_index(channel.index);
    info->set_osd(utf8(channel.osd));
    info->set_attr_3(channel.devType);
    info->set_attr_4(deviceOnline && channel.online ? DeviceModel::StatusOnline
                                                    : DeviceModel::StatusOffline);
    info->set_sn(utf8(channel.sn));
    info->set_ip(utf8(channel.ip));
    info->set_attr_7(channel.port);
    info->set_user(utf8(channel.user));
    info->set_password(utf8(channel.password));
    info->set_attr_10(channel.protocol);
    info->set_attr_11(channel.loginMode);
    fillAbilities(channel.abilities, info->mutable_ability_details());
}

} // namespace

DeviceModel::DeviceModel(QList<SimDevice> devices, bool unknownDevicesOnline)
    : m_devices(std::move(devices))
    , m_factory(m_devices)
    , m_unknownDevicesOnline(unknownDevicesOnline)
{
    m_clock.start();
}

const SimDevice* DeviceModel::simulated(const QString& id) const
{
    for (const SimDevice& device : m_devices) {
        if (device.id == id)
            return &device;
    }
    return nullptr;
}

SimDevice* DeviceModel::bySerial(const QString& sn)
{
    if (sn.isEmpty())
        return nullptr;
    for (SimDevice& device : m_devices) {
        if (device.sn == sn)
            return &device;
    }
    return nullptr;
}

bool DeviceModel::rebooting(const SimDevice& device) const
{
    return device.runtime.rebootUntilMs > now();
}

bool DeviceModel::up(const SimDevice& device) const
{
    return device.online && !rebooting(device);
}

SimDevice* DeviceModel::target(const QString& devId)
{
    const auto managed = m_managed.constFind(devId);
    const SimDevice* found = managed != m_managed.constEnd() ? backing(*managed) : simulated(devId);
    if (!found)
        return nullptr;
    // Found through the const side, which never detaches the list: the factory copy shares
    // it, so the device to change is looked up again on the side that does.
    for (SimDevice& device : m_devices) {
        if (device.id == found->id)
            return &device;
    }
    return nullptr;
}

Outcome DeviceModel::reach(const QString& devId, SimDevice** device)
{
    *device = target(devId);
    if (!*device) {
        return {NoSuchDevice,
                m_managed.contains(devId)
                    ? QStringLiteral("device %1 has nothing simulated behind it").arg(devId)
                    : QStringLiteral("no device %1").arg(devId)};
    }
    const auto managed = m_managed.constFind(devId);
    const bool online =
        managed != m_managed.constEnd() ? statusOf(*managed) == StatusOnline : up(**device);
    if (!online)
        return {DeviceOffline, QStringLiteral("device %1 is offline").arg(devId)};
    return {};
}

Outcome DeviceModel::reach(const vms_sdk_proto::ChannelId& id, SimDevice** device,
                           SimChannel** channel)
{
    *channel = nullptr;
    const Outcome outcome = reach(fromUtf8(id.dev_id()), device);
    if (!outcome.ok())
        return outcome;
    for (SimChannel& candidate : (*device)->channels) {
        if (candidate.index == id.channel_index()) {
            *channel = &candidate;
            return {};
        }
    }
    return {NoSuchChannel, QStringLiteral("device %1 has no channel %2")
                               .arg(fromUtf8(id.dev_id()))
                               .arg(id.channel_index())};
}

void DeviceModel::restoreFactory(SimDevice* device, bool keepNetwork)
{
    for (const SimDevice& factory : m_factory) {
        if (factory.id != device->id)
            continue;
        const SimDevice before = *device;
        *device = factory;
        device->runtime = before.runtime;
        // A reset forgets settings, not the firmware an upgrade installed.
        device->version = before.version;
        if (keepNetwork) {
            device->ip = before.ip;
            device->subnetMask = before.subnetMask;
            device->gateway = before.gateway;
            device->dns = before.dns;
            device->dhcpEnabled = before.dhcpEnabled;
            device->netMode = before.netMode;
            device->netCardIndex = before.netCardIndex;
            device->httpPort = before.httpPort;
        }
        addressChanged(*device, before.ip);
        passwordChanged(*device);
        return;
    }
}

void DeviceModel::addressChanged(const SimDevice& device, const QString& oldIp)
{
    if (device.ip == oldIp)
        return;
    for (vms_sdk_proto::DevInfo& record : m_managed) {
        if (fromUtf8(record.ip()) == oldIp)
            record.set_ip(utf8(device.ip));
    }
}

void DeviceModel::passwordChanged(const SimDevice& device)
{
    for (vms_sdk_proto::DevInfo& record : m_managed) {
        if (backing(record) == &device)
            record.set_password(utf8(device.password));
    }
}

void DeviceModel::setManaged(const QList<vms_sdk_proto::DevInfo>& devices)
{
    m_managed.clear();
    for (const vms_sdk_proto::DevInfo& device : devices)
        addManaged(device);
}

void DeviceModel::addManaged(const vms_sdk_proto::DevInfo& device)
{
    m_managed.insert(fromUtf8(device.id()), device);
}

bool DeviceModel::removeManaged(const QString& id)
{
    return m_managed.remove(id) > 0;
}

bool DeviceModel::editManaged(const vms_sdk_proto::DevInfo& device)
{
    const auto it = m_managed.find(fromUtf8(device.id()));
    if (it == m_managed.end())
        return false;
    *it = device;
    return true;
}

const SimDevice* DeviceModel::backing(const vms_sdk_proto::DevInfo& managed) const
{
    if (const SimDevice* byId = simulated(fromUtf8(managed.id())))
        return byId;
    const QString ip = fromUtf8(managed.ip());
    if (ip.isEmpty())
        return nullptr;
    for (const SimDevice& device : m_devices) {
        if (device.ip == ip)
            return &device;
    }
    return nullptr;
}

qint32 DeviceModel::statusOf(const vms_sdk_proto::DevInfo& managed) const
{
    const SimDevice* device = backing(managed);
    if (!device)
        return m_unknownDevicesOnline ? StatusOnline : StatusOffline;
    const bool loggedIn = up(*device) && (device->password.isEmpty() ||
                                          device->password == fromUtf8(managed.password()));
    return loggedIn ? StatusOnline : StatusOffline;
}

void DeviceModel::setSearchConfig(const vms_sdk_proto::SetSearchDevsConfigCmd& config)
{
    m_searchConfig = config;
}

bool DeviceModel::inSearchRange(const QString& ip) const
{
    bool beginOk = false;
    bool endOk = false;
    const quint32 begin = QHostAddress(fromUtf8(m_searchConfig.begin_ip())).toIPv4Address(&beginOk);
    const quint32 end = QHostAddress(fromUtf8(m_searchConfig.end_ip())).toIPv4Address(&endOk);
    // Without a usable range the search covers everything, as before any range was set.
    if (!beginOk || !endOk)
        return true;
    bool ipOk = false;
    const quint32 address = QHostAddress(ip).toIPv4Address(&ipOk);
    return ipOk && begin <= address && address <= end;
}

vms_sdk_proto::SearchedDevsPush DeviceModel::search(bool ranged) const
{
    vms_sdk_proto::SearchedDevsPush push;
    for (const SimDevice& device : m_devices) {
        if (up(device) && (!ranged || inSearchRange(device.ip)))
            *push.add_devs() = searchEntry(device);
    }
    return push;
}

vms_sdk_proto::DevInfo DeviceModel::searchEntry(const SimDevice& device) const
{
    // A search sees what the device announces about itself: no account, no password.
    vms_sdk_proto::DevInfo entry;
    entry.set_id(utf8(device.id));
    entry.set_name(utf8(device.name));
    entry.set_sn(utf8(device.sn));
    entry.set_attr_4(device.devType);
    entry.set_ip(utf8(device.ip));
    entry.set_attr_6(device.port);
    entry.set_version(utf8(device.version));
    entry.set_series_name(utf8(device.seriesName));
    entry.set_attr_11(device.protocol);
    entry.set_attr_12(up(device) ? StatusOnline : StatusOffline);
    entry.set_attr_13(quint32(device.channels.size()));
    entry.set_attr_14(device.activateStatus);
    entry.set_attr_15(device.dhcpEnabled);
    entry.set_attr_16(device.httpPort);
    entry.set_attr_17(device.rtspPort);
    entry.set_attr_18(device.loginMode);
    return entry;
}

bool DeviceModel::devInfoFromDgw(const QString& devId, vms_sdk_proto::DevInfoFromDgw* info) const
{
    const auto managed = m_managed.find(devId);
    const SimDevice* device = managed != m_managed.end() ? backing(*managed) : simulated(devId);
    info->Clear();
    info->set_id(utf8(devId));
    if (device) {
        info->set_sn(utf8(device->sn));
        info->set_ip(utf8(device->ip));
        info->set_attr_4(device->devType);
        info->set_attr_5(device->port);
        info->set_attr_6(device->protocol);
        info->set_version(utf8(device->version));
        info->set_series_name(utf8(device->seriesName));
        info->set_attr_9(quint32(device->channels.size()));
        info->set_attr_10(device->activateStatus);
        info->set_dev_code(utf8(device->devCode));
        info->set_attr_12(device->loginMode);
        fillAbilities(device->abilities, info->mutable_ability_details());
        return true;
    }
    if (managed == m_managed.end())
        return false;
    // Nothing simulated behind it: the gateway knows only what the application told it.
    const vms_sdk_proto::DevInfo& record = *managed;
    info->set_sn(record.sn());
    info->set_ip(record.ip());
    info->set_attr_4(record.attr_4());
    info->set_attr_5(record.attr_6());
    info->set_attr_6(record.attr_11());
    info->set_version(record.version());
    info->set_series_name(record.series_name());
    info->set_attr_9(record.attr_13());
    info->set_attr_10(record.attr_14());
    info->set_attr_12(record.attr_18());
    return true;
}

vms_sdk_proto::DevChannelsInfoPush DeviceModel::channelsInfo(const QString& devId) const
{
    vms_sdk_proto::DevChannelsInfoPush push;
    push.set_dev_id(utf8(devId));
    const auto managed = m_managed.find(devId);
    const SimDevice* device = managed != m_managed.end() ? backing(*managed) : simulated(devId);
    if (device) {
        const bool online =
            managed != m_managed.end() ? statusOf(*managed) == StatusOnline : up(*device);
        for (const SimChannel& channel : device->channels)
            fillChannel(devId, channel, online, push.add_channels());
    } else if (managed != m_managed.end()) {
        // As many plain channels as the application says the device has, at least one.
        const bool online = statusOf(*managed) == StatusOnline;
        const quint32 count = qMax<quint32>(1, managed->attr_13());
        for (quint32 index = 1; index <= count; ++index) {
            SimChannel channel;
            channel.index = index;
            channel.osd = QStringLiteral("Channel %1").arg(index);
            fillChannel(devId, channel, online, push.add_channels());
        }
    }
    return push;
}

} // namespace vms_dgw_sim
