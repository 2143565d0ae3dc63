// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_VIEWER_VIDEO_GRID_H
#define VMS_VIEWER_VIDEO_GRID_H

#include "device_tree.h"

#include <QList>
#include <QWidget>

class QGridLayout;
class VideoView;

// The live views: 1, 4 or 9 of them in a square. One view is selected at a time; the PTZ
// and playback panels work on its camera.
class VideoGrid : public QWidget
{
    Q_OBJECT
public:
    explicit VideoGrid(QWidget* parent = nullptr);

    // Switches to `count` views (1, 4 or 9). Views that no longer fit end their streams.
    void setViewCount(int count);
    int viewCount() const { return int(m_views.size()); }
    const QList<VideoView*>& views() const { return m_views; }
    VideoView* selectedView() const { return m_selected; }

    // Shows the channel in the first empty view, or in the selected one when none is empty.
    void show(const NamedChannel& named);
    // Gives each empty view the next of `channels` that no view shows yet.
    void fillEmpty(const QList<NamedChannel>& channels);
    // How many views show decoded pictures.
    int viewsWithPictures() const;

Q_SIGNALS:
    void viewSelected(VideoView* view);
    // A view shows the first decoded picture of its stream.
    void pictureShown();

private:
    void select(VideoView* view);

    QGridLayout* m_layout;
    QList<VideoView*> m_views;
    VideoView* m_selected = nullptr;
};

#endif // VMS_VIEWER_VIDEO_GRID_H
