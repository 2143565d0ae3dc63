// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_VIEWER_DEVICE_TREE_H
#define VMS_VIEWER_DEVICE_TREE_H

#include <vms_sdk/vms_client_sdk.h>

#include <QTreeWidget>

#include <optional>

// A channel with the name to show for it.
struct NamedChannel
{
    vms_sdk::ChannelId channel;
    QString title;
};

// The managed devices and their channels, with the status the gateway pushes. A channel is
// put into a view by double-click or by dragging it there.
class DeviceTree : public QTreeWidget
{
    Q_OBJECT
public:
    explicit DeviceTree(QWidget* parent = nullptr);

    // Lists the devices about to be managed, so that they show before they report.
    void addDevices(const QList<vms_sdk::DevInfo>& devices);
    // The online channels in the tree's order.
    QList<NamedChannel> onlineChannels() const;
    int onlineDevices() const;

    // How a dragged channel travels to a view.
    static std::optional<NamedChannel> channelFromMime(const QMimeData* mime);

Q_SIGNALS:
    void channelActivated(const vms_sdk::ChannelId& channel, const QString& title);
    void channelSelected(const vms_sdk::ChannelId& channel, const QString& title);
    // Channels came, went, or changed their status.
    void channelsChanged();

protected:
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QList<QTreeWidgetItem*> items) const override;

private:
    void onStatus(const QString& devId, vms_sdk::DevStatus status);
    void onDevInfo(const vms_sdk::DevInfoFromDgw& info);
    void onChannels(const QString& devId, const QList<vms_sdk::DevChannelInfo>& channels);
    QTreeWidgetItem* deviceItem(const QString& devId);
    static std::optional<NamedChannel> channelOf(const QTreeWidgetItem* item);
};

#endif // VMS_VIEWER_DEVICE_TREE_H
