// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_VIEWER_PLAYBACK_PANEL_H
#define VMS_VIEWER_PLAYBACK_PANEL_H

#include "device_tree.h"

#include <QDateTime>
#include <QWidget>

#include <optional>

class QAbstractButton;
class QCalendarWidget;
class QLabel;
class Timeline;
class VideoView;

// Recordings of the selected camera: a calendar that marks the days with recordings, the
// chosen day's recordings on a timeline, and a playback with pause, speed and skip.
class PlaybackPanel : public QWidget
{
    Q_OBJECT
public:
    explicit PlaybackPanel(QWidget* parent = nullptr);

    void setChannel(const std::optional<NamedChannel>& named);

    QCalendarWidget* calendar() const { return m_calendar; }
    Timeline* timeline() const { return m_timeline; }
    QAbstractButton* playButton() const { return m_play; }
    QAbstractButton* pauseButton() const { return m_pause; }
    QAbstractButton* skipBackButton() const { return m_skipBack; }
    QAbstractButton* skipForwardButton() const { return m_skipForward; }
    // The button of a speed ("1/4", "1/2", "1", "2", "4"), or null.
    QAbstractButton* speedButton(const QString& speed) const;

    // How far the skip buttons move the playback.
    static constexpr int SkipSeconds = 30;

private:
    void askCalendar();
    void askRecordings(const QDate& day);
    void play();
    void pause();
    void setSpeed(const QString& speed);
    void skip(int seconds);
    void showPosition(const QDateTime& position);
    QString nextRequestId();
    bool isOurs(const QString& requestId) const;

    std::optional<NamedChannel> m_channel;
    QCalendarWidget* m_calendar;
    Timeline* m_timeline;
    VideoView* m_view;
    QLabel* m_position;
    QAbstractButton* m_play;
    QAbstractButton* m_pause;
    QAbstractButton* m_skipBack;
    QAbstractButton* m_skipForward;
    QList<QAbstractButton*> m_speeds;
    QList<QDate> m_markedDays;
    bool m_paused = false;
    int m_requests = 0;
};

#endif // VMS_VIEWER_PLAYBACK_PANEL_H
