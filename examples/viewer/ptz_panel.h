// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_VIEWER_PTZ_PANEL_H
#define VMS_VIEWER_PTZ_PANEL_H

#include <vms_sdk/vms_client_sdk.h>

#include <QMap>
#include <QWidget>

#include <optional>

class QAbstractButton;
class QLabel;
class QListWidget;

// Pan, tilt and zoom of the selected camera: a pad whose buttons move while held, and the
// camera's presets to go to.
class PtzPanel : public QWidget
{
    Q_OBJECT
public:
    explicit PtzPanel(QWidget* parent = nullptr);

    void setChannel(const std::optional<vms_sdk::ChannelId>& channel);

    QAbstractButton* moveButton(vms_sdk::PTZOperation operation) const;
    QAbstractButton* stopButton() const { return m_stop; }
    QAbstractButton* refreshPresetsButton() const { return m_refresh; }
    QAbstractButton* goToPresetButton() const { return m_goTo; }
    QListWidget* presetList() const { return m_presets; }

private:
    void move(vms_sdk::PTZOperation operation, vms_sdk::PTZAction action);
    void refreshPresets();
    void goToPreset();
    QString nextRequestId();
    bool isOurs(const vms_sdk::Response& response) const;
    void report(const vms_sdk::Response& response, const QString& what);

    std::optional<vms_sdk::ChannelId> m_channel;
    QMap<vms_sdk::PTZOperation, QAbstractButton*> m_moveButtons;
    vms_sdk::PTZOperation m_lastOperation = vms_sdk::PTZOperationUp;
    QAbstractButton* m_stop;
    QListWidget* m_presets;
    QAbstractButton* m_refresh;
    QAbstractButton* m_goTo;
    QLabel* m_result;
    int m_requests = 0;
};

#endif // VMS_VIEWER_PTZ_PANEL_H
