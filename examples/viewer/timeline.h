// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_VIEWER_TIMELINE_H
#define VMS_VIEWER_TIMELINE_H

#include <QDateTime>
#include <QList>
#include <QWidget>

// One day from midnight to midnight, its recordings as bars and the playback's position as
// a line. A click chooses the time to play from.
class Timeline : public QWidget
{
    Q_OBJECT
public:
    struct Span
    {
        QDateTime begin;
        QDateTime end;
    };

    explicit Timeline(QWidget* parent = nullptr);

    void setDay(const QDate& day);
    void setRecordings(const QList<Span>& recordings);
    void setPosition(const QDateTime& position);
    QDateTime position() const { return m_position; }
    const QList<Span>& recordings() const { return m_recordings; }

    QSize sizeHint() const override { return {320, 40}; }

Q_SIGNALS:
    void timeChosen(const QDateTime& time);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    double xOf(const QDateTime& time) const;

    QDate m_day;
    QList<Span> m_recordings;
    QDateTime m_position;
};

#endif // VMS_VIEWER_TIMELINE_H
