// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "timeline.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr qint64 SecondsPerDay = 24 * 3600;

} // namespace

Timeline::Timeline(QWidget* parent)
    : QWidget(parent)
{
    setMinimumHeight(36);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Timeline::setDay(const QDate& day)
{
    m_day = day;
    m_recordings.clear();
    update();
}

void Timeline::setRecordings(const QList<Span>& recordings)
{
    m_recordings = recordings;
    update();
}

void Timeline::setPosition(const QDateTime& position)
{
    m_position = position;
    update();
}

double Timeline::xOf(const QDateTime& time) const
{
    const qint64 seconds = QDateTime(m_day, QTime(0, 0)).secsTo(time);
    return width() * double(std::clamp<qint64>(seconds, 0, SecondsPerDay)) / SecondsPerDay;
}

void Timeline::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect bar = rect().adjusted(0, 0, 0, -14);
    painter.fillRect(bar, QColor(50, 50, 50));
    for (const Span& span : m_recordings) {
        // Recordings that touch make one bar; a one-pixel gap keeps files apart.
        painter.fillRect(QRectF(QPointF(xOf(span.begin), bar.top() + 4),
                                QPointF(xOf(span.end) - 1, bar.bottom() - 4)),
                         QColor(70, 150, 220));
    }
    painter.setPen(palette().color(QPalette::WindowText));
    for (int hour = 0; hour <= 24; hour += 6) {
        const int x = std::min(width() - 1, width() * hour / 24);
        painter.drawLine(x, bar.bottom(), x, bar.bottom() + 3);
        // The day's first and last labels stay inside the bar's ends.
        const QRect label = hour == 0    ? QRect(x, bar.bottom() + 2, 60, 12)
                            : hour == 24 ? QRect(x - 60, bar.bottom() + 2, 60, 12)
                                         : QRect(x - 30, bar.bottom() + 2, 60, 12);
        const int align = hour == 0    ? Qt::AlignLeft
                          : hour == 24 ? Qt::AlignRight
                                       : Qt::AlignHCenter;
        painter.drawText(label, align | Qt::AlignTop, QStringLiteral("%1:00").arg(hour));
    }
    if (m_position.isValid() && m_position.date() == m_day) {
        painter.setPen(QPen(QColor(255, 200, 0), 2));
        painter.drawLine(QPointF(xOf(m_position), bar.top()),
                         QPointF(xOf(m_position), bar.bottom()));
    }
}

void Timeline::mousePressEvent(QMouseEvent* event)
{
    if (!m_day.isValid() || width() <= 0)
        return;
    const qint64 seconds = SecondsPerDay * std::clamp(event->pos().x(), 0, width()) / width();
    Q_EMIT timeChosen(QDateTime(m_day, QTime(0, 0)).addSecs(seconds));
}
