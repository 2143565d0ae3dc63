// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "video_view.h"

#include "device_tree.h"
#include "media_frame.h"

#include <QDebug>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMouseEvent>
#include <QPainter>

using namespace vms_sdk;

VideoView::VideoView(QWidget* parent)
    : QWidget(parent)
{
    setAcceptDrops(true);
    setMinimumSize(160, 90);
    // The picture covers the whole view: nothing behind it needs drawing first.
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_emptyText = m_status = tr("drop a camera here");
    auto* signals_ = ClientSignals::instance();
    connect(signals_, &ClientSignals::signalStreamData, this, &VideoView::onStreamData);
    connect(signals_, &ClientSignals::signalStreamEventPush, this, &VideoView::onStreamEvent);
}

VideoView::~VideoView()
{
    if (m_stream)
        disconnect_stream_req(*m_stream);
}

void VideoView::showLive(const ChannelId& channel, const QString& title)
{
    start(connect_live_video_req({.channelId = channel, .streamType = 0}), title);
    m_channel = channel;
}

void VideoView::showStream(StreamId stream, const QString& title)
{
    start(stream, title);
}

void VideoView::start(StreamId stream, const QString& title)
{
    clear();
    m_stream = stream;
    m_title = title;
    // A fresh decoder per stream: the new stream starts with its own parameter sets.
    m_decoder = std::make_unique<VideoDecoder>();
    m_waitForKeyFrame = true;
    m_nextSequence = 0;
    m_reportedBadFrame = false;
    setStatus(m_decoder->isValid() ? tr("connecting") : m_decoder->error());
}

void VideoView::clear()
{
    if (m_stream)
        disconnect_stream_req(*m_stream);
    m_stream.reset();
    m_channel.reset();
    m_decoder.reset();
    m_picture = {};
    m_title.clear();
    setStatus(m_emptyText);
}

void VideoView::setSelected(bool selected)
{
    m_selected = selected;
    update();
}

void VideoView::setEmptyText(const QString& text)
{
    m_emptyText = text;
    if (!m_stream)
        setStatus(text);
}

void VideoView::setStatus(const QString& status)
{
    m_status = status;
    update();
}

void VideoView::onStreamData(StreamId stream, const QByteArray& data)
{
    if (stream != m_stream || !m_decoder)
        return;
    QString error;
    const std::optional<MediaFrame> frame = MediaFrame::read(data, &error);
    if (!frame) {
        // Said once per stream: a gateway that sends something else sends it every frame.
        if (!m_reportedBadFrame)
            qWarning().noquote() << "stream" << stream << "of" << m_title
                                 << "dropped a frame:" << error;
        m_reportedBadFrame = true;
        return;
    }
    if (frame->codec != MediaFrame::H264) {
        m_picture = {};
        setStatus(tr("no video"));
        return;
    }
    // After a lost frame the pictures that refer to it would decode wrong: wait for the next
    // key frame, which starts afresh.
    if (frame->sequence != m_nextSequence)
        m_waitForKeyFrame = true;
    m_nextSequence = frame->sequence + 1;
    if (m_waitForKeyFrame && !frame->keyFrame)
        return;
    m_waitForKeyFrame = false;
    QImage picture = m_decoder->decode(frame->body, frame->bodySize, size() * devicePixelRatioF());
    if (picture.isNull())
        return;
    const bool first = m_picture.isNull();
    m_picture = std::move(picture);
    m_pictureDrawn = false;
    m_status.clear();
    ++m_decoded;
    update();
    if (first)
        Q_EMIT firstPicture();
}

void VideoView::onStreamEvent(StreamId stream, StreamEvent event)
{
    if (stream != m_stream)
        return;
    switch (event) {
    case StreamEventConnected:
        break;
    case StreamEventConnectFailed:
    case StreamEventConnectTimeout:
        setStatus(tr("cannot connect"));
        break;
    case StreamEventPlaybackFinished:
        setStatus(tr("end of the recording"));
        break;
    case StreamEventDisconnected:
        setStatus(tr("disconnected"));
        break;
    }
}

void VideoView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(24, 24, 24));
    if (!m_picture.isNull() && m_status.isEmpty()) {
        // The decoder scaled it to this view's size already; a resize since then is
        // caught up by the next picture.
        painter.drawImage(pictureRect(), m_picture);
        if (!m_pictureDrawn)
            ++m_drawn;
        m_pictureDrawn = true;
    } else {
        painter.setPen(QColor(160, 160, 160));
        painter.drawText(rect(), Qt::AlignCenter, m_status);
    }
    if (!m_title.isEmpty()) {
        QRect label = painter.fontMetrics().boundingRect(m_title).adjusted(-4, -2, 4, 2);
        label.moveTopLeft(QPoint(6, 6));
        painter.fillRect(label, QColor(0, 0, 0, 160));
        painter.setPen(Qt::white);
        painter.drawText(label, Qt::AlignCenter, m_title);
    }
    painter.setPen(QPen(m_selected ? QColor(0, 160, 255) : QColor(60, 60, 60), 2));
    painter.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
}

QRect VideoView::pictureRect() const
{
    QRect picture(QPoint(), m_picture.size().scaled(size(), Qt::KeepAspectRatio));
    picture.moveCenter(rect().center());
    return picture;
}

void VideoView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT clicked();
}

void VideoView::dragEnterEvent(QDragEnterEvent* event)
{
    if (DeviceTree::channelFromMime(event->mimeData()))
        event->acceptProposedAction();
}

void VideoView::dropEvent(QDropEvent* event)
{
    if (const auto dropped = DeviceTree::channelFromMime(event->mimeData())) {
        event->acceptProposedAction();
        Q_EMIT channelDropped(dropped->channel, dropped->title);
    }
}
