// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_VIEWER_MAIN_WINDOW_H
#define VMS_VIEWER_MAIN_WINDOW_H

#include "options.h"

#include <QMainWindow>

class AlarmPanel;
class DeviceTree;
class GatewayStatus;
class PlaybackPanel;
class PtzPanel;
class VideoGrid;
class VideoView;

// The viewer's window: the device tree on the left, the live views in the middle, PTZ and
// playback of the selected camera on the right, alarms below, the gateways in the status bar.
// It starts the gateway, manages every device the gateway finds, and runs the jobs the command
// line asks for (screenshot, exercise, measurement).
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit MainWindow(const Options& options);

    void start();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void onViewSelected(VideoView* view);
    void onPictureShown();
    void takeScreenshot();
    void jobDone(const QString& job, bool passed);
    void finish(int exitCode);

    Options m_options;
    DeviceTree* m_tree;
    VideoGrid* m_grid;
    PtzPanel* m_ptz;
    PlaybackPanel* m_playback;
    AlarmPanel* m_alarms;
    GatewayStatus* m_gatewayStatus;
    bool m_managed = false;
    // The command line's jobs that are still to do; the viewer quits once none is left,
    // when one of them asked it to.
    QStringList m_jobs;
    bool m_quitWhenDone = false;
    bool m_failed = false;
    bool m_finishing = false;
};

#endif // VMS_VIEWER_MAIN_WINDOW_H
