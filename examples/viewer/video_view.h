// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_VIEWER_VIDEO_VIEW_H
#define VMS_VIEWER_VIDEO_VIEW_H

#include "video_decoder.h"

#include <vms_sdk/vms_client_sdk.h>

#include <QImage>
#include <QWidget>

#include <memory>
#include <optional>

// One picture of the grid (or of the playback panel): shows the stream it is given, decoded
// as it arrives, with the camera's name over it. The view owns its stream and ends it when
// it is given another or goes away.
class VideoView : public QWidget
{
    Q_OBJECT
public:
    explicit VideoView(QWidget* parent = nullptr);
    ~VideoView() override;

    // Opens the channel's live stream and shows it.
    void showLive(const vms_sdk::ChannelId& channel, const QString& title);
    // Shows a stream opened elsewhere (a playback), and takes it over.
    void showStream(vms_sdk::StreamId stream, const QString& title);
    // Ends the stream and shows the empty view.
    void clear();

    std::optional<vms_sdk::StreamId> stream() const { return m_stream; }
    std::optional<vms_sdk::ChannelId> channel() const { return m_channel; }
    QString title() const { return m_title; }
    bool hasPicture() const { return !m_picture.isNull(); }
    // Where the picture is drawn in the view: the view's middle, the picture's shape.
    QRect pictureRect() const;
    void setSelected(bool selected);
    // What an empty view says.
    void setEmptyText(const QString& text);

    // For the meter: pictures decoded, and pictures drawn on the screen, since the start.
    quint64 decodedFrames() const { return m_decoded; }
    quint64 drawnFrames() const { return m_drawn; }

Q_SIGNALS:
    void clicked();
    void channelDropped(const vms_sdk::ChannelId& channel, const QString& title);
    void firstPicture();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void onStreamData(vms_sdk::StreamId stream, const QByteArray& data);
    void onStreamEvent(vms_sdk::StreamId stream, vms_sdk::StreamEvent event);
    void start(vms_sdk::StreamId stream, const QString& title);
    void setStatus(const QString& status);

    std::optional<vms_sdk::StreamId> m_stream;
    std::optional<vms_sdk::ChannelId> m_channel;
    std::unique_ptr<VideoDecoder> m_decoder;
    QString m_title;
    QString m_emptyText;
    QString m_status; // shown instead of the picture, e.g. "connecting"
    QImage m_picture;
    bool m_pictureDrawn = true;
    bool m_waitForKeyFrame = true;
    bool m_selected = false;
    quint64 m_nextSequence = 0;
    quint64 m_decoded = 0;
    quint64 m_drawn = 0;
    bool m_reportedBadFrame = false;
};

#endif // VMS_VIEWER_VIDEO_VIEW_H
