// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_VIEWER_GATEWAY_STATUS_H
#define VMS_VIEWER_GATEWAY_STATUS_H

#include <QLabel>

class DeviceTree;

// The status bar's account of the gateways: how many were started, whether they are ready or
// why the library gave up on one, and how many devices are online behind them.
class GatewayStatus : public QLabel
{
    Q_OBJECT
public:
    GatewayStatus(const DeviceTree* tree, QWidget* parent = nullptr);

    // The gateway program is being started for `devices` devices.
    void starting(const QString& program, int devices);

private:
    void refresh();

    const DeviceTree* m_tree;
    QString m_program;
    int m_gateways = 0;
    QString m_state;
};

#endif // VMS_VIEWER_GATEWAY_STATUS_H
