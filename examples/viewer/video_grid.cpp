// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "video_grid.h"

#include "video_view.h"

#include <QGridLayout>

#include <algorithm>
#include <cmath>

VideoGrid::VideoGrid(QWidget* parent)
    : QWidget(parent)
    , m_layout(new QGridLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(2);
}

void VideoGrid::setViewCount(int count)
{
    while (m_views.size() > count)
        delete m_views.takeLast();
    while (m_views.size() < count) {
        auto* view = new VideoView(this);
        connect(view, &VideoView::clicked, this, [this, view] { select(view); });
        connect(view, &VideoView::channelDropped, this,
                [view](const vms_sdk::ChannelId& channel, const QString& title) {
                    view->showLive(channel, title);
                });
        connect(view, &VideoView::firstPicture, this, &VideoGrid::pictureShown);
        m_views.append(view);
    }
    // Lay the views out afresh: a square of side 1, 2 or 3, each cell stretching alike.
    const int side = int(std::lround(std::sqrt(count)));
    for (VideoView* view : m_views)
        m_layout->removeWidget(view);
    for (int i = 0; i < m_views.size(); ++i)
        m_layout->addWidget(m_views[i], i / side, i % side);
    for (int i = 0; i < 3; ++i) {
        m_layout->setRowStretch(i, i < side ? 1 : 0);
        m_layout->setColumnStretch(i, i < side ? 1 : 0);
    }
    if (!m_views.contains(m_selected))
        select(m_views.first());
}

void VideoGrid::select(VideoView* view)
{
    if (m_selected && m_views.contains(m_selected))
        m_selected->setSelected(false);
    m_selected = view;
    view->setSelected(true);
    Q_EMIT viewSelected(view);
}

void VideoGrid::show(const NamedChannel& named)
{
    auto empty = std::find_if(m_views.begin(), m_views.end(),
                              [](const VideoView* view) { return !view->stream(); });
    VideoView* view = empty != m_views.end() ? *empty : m_selected;
    view->showLive(named.channel, named.title);
    select(view);
}

void VideoGrid::fillEmpty(const QList<NamedChannel>& channels)
{
    auto next = channels.begin();
    for (VideoView* view : m_views) {
        if (view->stream())
            continue;
        next = std::find_if(next, channels.end(), [this](const NamedChannel& named) {
            return std::none_of(m_views.begin(), m_views.end(), [&](const VideoView* shown) {
                return shown->channel() == named.channel;
            });
        });
        if (next == channels.end())
            return;
        view->showLive(next->channel, next->title);
    }
}

int VideoGrid::viewsWithPictures() const
{
    return int(std::count_if(m_views.begin(), m_views.end(),
                             [](const VideoView* view) { return view->hasPicture(); }));
}
