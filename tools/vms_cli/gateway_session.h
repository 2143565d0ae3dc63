// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "cli_options.h"

#include <vms_sdk/vms_client_sdk.h>

#include <QObject>
#include <QTextStream>

namespace vms_cli {

// The library with its gateways started and the devices of the device file managed: what
// every command needs before its first request. The device file is also the simulator's
// config, so the bundled simulator simulates exactly the devices that are managed.
class GatewaySession
{
public:
    // false, with the reason written to err, when no gateway became ready.
    bool start(const Options& options, QTextStream& err);
    // Releases the library: the gateways are told to exit.
    void stop();

    const QList<vms_sdk::DevInfo>& devices() const { return m_devices; }
    QString gatewayPath() const { return m_gateway; }
    QString devicesPath() const { return m_devicesPath; }
    int onlineCount() const { return m_online; }

    static QString defaultGateway();
    static QString defaultDevices();
    // The devices of a device file; false with the reason when it cannot be read.
    static bool readDevices(const QString& path, QList<vms_sdk::DevInfo>* devices, QString* error);

private:
    QList<vms_sdk::DevInfo> m_devices;
    QString m_gateway;
    QString m_devicesPath;
    int m_online = 0;
    bool m_started = false;
    QObject m_watch; // holds the connections that last as long as the session
};

} // namespace vms_cli
