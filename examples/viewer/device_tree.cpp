// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "device_tree.h"

#include <QDataStream>
#include <QHeaderView>
#include <QMimeData>

using namespace vms_sdk;

namespace {

enum Column { NameColumn, StatusColumn };
enum Role { DevIdRole = Qt::UserRole, ChannelIndexRole };
const QString ChannelMimeType = QStringLiteral("application/x-vms-viewer-channel");

void showStatus(QTreeWidgetItem* item, int status)
{
    const bool online = status == DevStatusOnline;
    item->setText(StatusColumn, online ? DeviceTree::tr("online")
                                : status == DevStatusOffline
                                    ? DeviceTree::tr("offline")
                                    : DeviceTree::tr("status %1").arg(status));
    item->setForeground(StatusColumn, online ? QColor(0, 140, 0) : QColor(180, 0, 0));
}

bool isOnline(const QTreeWidgetItem* item)
{
    return item->text(StatusColumn) == DeviceTree::tr("online");
}

} // namespace

DeviceTree::DeviceTree(QWidget* parent)
    : QTreeWidget(parent)
{
    setHeaderLabels({tr("Device"), tr("Status")});
    header()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    header()->setSectionResizeMode(StatusColumn, QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    setDragEnabled(true);
    setDragDropMode(DragOnly);
    setSortingEnabled(true);
    sortByColumn(NameColumn, Qt::AscendingOrder);

    auto* signals_ = ClientSignals::instance();
    connect(signals_, &ClientSignals::signalDevStatusPush, this, &DeviceTree::onStatus);
    connect(signals_, &ClientSignals::signalDevInfoPush, this, &DeviceTree::onDevInfo);
    connect(signals_, &ClientSignals::signalDevChannelsInfoPush, this, &DeviceTree::onChannels);
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
        if (const auto named = channelOf(item))
            Q_EMIT channelActivated(named->channel, named->title);
    });
    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (const auto named = channelOf(item))
            Q_EMIT channelSelected(named->channel, named->title);
    });
}

void DeviceTree::addDevices(const QList<DevInfo>& devices)
{
    for (const DevInfo& device : devices) {
        QTreeWidgetItem* item = deviceItem(device.id);
        item->setText(NameColumn, device.name.isEmpty() ? device.id : device.name);
        item->setToolTip(NameColumn, QStringLiteral("%1, %2").arg(device.id, device.ip));
    }
}

QTreeWidgetItem* DeviceTree::deviceItem(const QString& devId)
{
    for (int i = 0; i < topLevelItemCount(); ++i) {
        if (topLevelItem(i)->data(NameColumn, DevIdRole).toString() == devId)
            return topLevelItem(i);
    }
    auto* item = new QTreeWidgetItem(this, {devId, tr("waiting")});
    item->setData(NameColumn, DevIdRole, devId);
    item->setExpanded(true);
    return item;
}

void DeviceTree::onStatus(const QString& devId, DevStatus status)
{
    QTreeWidgetItem* device = deviceItem(devId);
    showStatus(device, status);
    if (status == DevStatusOnline) {
        // The gateway tells a device's channels when asked, not by itself.
        get_dev_channels_info_cmd(devId);
        return;
    }
    // An offline device takes its channels with it.
    for (int i = 0; i < device->childCount(); ++i)
        showStatus(device->child(i), DevStatusOffline);
    Q_EMIT channelsChanged();
}

void DeviceTree::onDevInfo(const DevInfoFromDgw& info)
{
    QTreeWidgetItem* device = deviceItem(info.id);
    device->setToolTip(NameColumn,
                       tr("%1, %2, %3 %4, %n channel(s)", nullptr, int(info.channelCount))
                           .arg(info.id, info.ip, info.seriesName, info.version));
}

void DeviceTree::onChannels(const QString& devId, const QList<DevChannelInfo>& channels)
{
    QTreeWidgetItem* device = deviceItem(devId);
    qDeleteAll(device->takeChildren());
    for (const DevChannelInfo& info : channels) {
        const QString title =
            info.osd.isEmpty()
                ? QStringLiteral("%1 #%2").arg(devId).arg(info.channelId.channelIndex)
                : info.osd;
        auto* item = new QTreeWidgetItem(device, {title});
        item->setData(NameColumn, DevIdRole, devId);
        item->setData(NameColumn, ChannelIndexRole, info.channelId.channelIndex);
        item->setFlags(item->flags() | Qt::ItemIsDragEnabled);
        showStatus(item, info.status);
    }
    device->setExpanded(true);
    Q_EMIT channelsChanged();
}

std::optional<NamedChannel> DeviceTree::channelOf(const QTreeWidgetItem* item)
{
    if (!item || !item->data(NameColumn, ChannelIndexRole).isValid())
        return std::nullopt;
    return NamedChannel{{.devId = item->data(NameColumn, DevIdRole).toString(),
                         .channelIndex = item->data(NameColumn, ChannelIndexRole).toUInt()},
                        item->text(NameColumn)};
}

QList<NamedChannel> DeviceTree::onlineChannels() const
{
    QList<NamedChannel> online;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        const QTreeWidgetItem* device = topLevelItem(i);
        for (int c = 0; c < device->childCount(); ++c) {
            if (isOnline(device->child(c)))
                online.append(*channelOf(device->child(c)));
        }
    }
    return online;
}

int DeviceTree::onlineDevices() const
{
    int online = 0;
    for (int i = 0; i < topLevelItemCount(); ++i)
        online += isOnline(topLevelItem(i));
    return online;
}

QStringList DeviceTree::mimeTypes() const
{
    return {ChannelMimeType};
}

QMimeData* DeviceTree::mimeData(const QList<QTreeWidgetItem*> items) const
{
    const auto named = items.isEmpty() ? std::nullopt : channelOf(items.first());
    if (!named)
        return nullptr;
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << named->channel.devId << named->channel.channelIndex << named->title;
    auto* mime = new QMimeData;
    mime->setData(ChannelMimeType, bytes);
    return mime;
}

std::optional<NamedChannel> DeviceTree::channelFromMime(const QMimeData* mime)
{
    if (!mime || !mime->hasFormat(ChannelMimeType))
        return std::nullopt;
    NamedChannel named;
    QDataStream in(mime->data(ChannelMimeType));
    in >> named.channel.devId >> named.channel.channelIndex >> named.title;
    if (in.status() != QDataStream::Ok)
        return std::nullopt;
    return named;
}
