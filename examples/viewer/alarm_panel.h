// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_VIEWER_ALARM_PANEL_H
#define VMS_VIEWER_ALARM_PANEL_H

#include <QTreeWidget>

// The alarms the devices push, newest first. Only the latest ones are kept: a device that
// alarms every second must not make the list grow for as long as the viewer runs.
class AlarmPanel : public QTreeWidget
{
    Q_OBJECT
public:
    explicit AlarmPanel(QWidget* parent = nullptr, int keep = 500);

private:
    int m_keep;
};

#endif // VMS_VIEWER_ALARM_PANEL_H
