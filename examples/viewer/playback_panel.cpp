// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "playback_panel.h"

#include "timeline.h"
#include "video_view.h"

#include <QButtonGroup>
#include <QCalendarWidget>
#include <QHBoxLayout>
#include <QLabel>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>

using namespace vms_sdk;

namespace {

const QString RequestPrefix = QStringLiteral("viewer-playback-");
// How the devices write the times of recordings, and want them in a search.
const QString DeviceTimeFormat = QStringLiteral("yyyy-MM-dd hh:mm:ss");
const char* const Speeds[] = {"1/4", "1/2", "1", "2", "4"};

QToolButton* toolButton(const QString& text, const QString& toolTip)
{
    auto* button = new QToolButton;
    button->setText(text);
    button->setToolTip(toolTip);
    return button;
}

} // namespace

PlaybackPanel::PlaybackPanel(QWidget* parent)
    : QWidget(parent)
    , m_calendar(new QCalendarWidget)
    , m_timeline(new Timeline)
    , m_view(new VideoView)
    , m_position(new QLabel)
    , m_play(toolButton(QStringLiteral("▶"), tr("Play")))
    , m_pause(toolButton(QStringLiteral("❚❚"), tr("Pause")))
    , m_skipBack(toolButton(tr("−%1 s").arg(SkipSeconds), tr("Back %1 seconds").arg(SkipSeconds)))
    , m_skipForward(
          toolButton(tr("+%1 s").arg(SkipSeconds), tr("Forward %1 seconds").arg(SkipSeconds)))
{
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    m_calendar->setGridVisible(true);
    m_view->setMinimumSize(240, 135);
    m_view->setEmptyText(tr("choose a day, then a time on the timeline or ▶"));

    auto* controls = new QHBoxLayout;
    controls->addWidget(m_play);
    controls->addWidget(m_pause);
    controls->addWidget(m_skipBack);
    controls->addWidget(m_skipForward);
    controls->addSpacing(8);
    auto* speeds = new QButtonGroup(this);
    for (const char* speed : Speeds) {
        auto* button = toolButton(QStringLiteral("%1×").arg(QLatin1String(speed)), tr("Speed"));
        button->setCheckable(true);
        button->setChecked(qstrcmp(speed, "1") == 0);
        button->setProperty("speed", QLatin1String(speed));
        speeds->addButton(button);
        controls->addWidget(button);
        m_speeds.append(button);
        connect(button, &QAbstractButton::clicked, this,
                [this, speed] { setSpeed(QLatin1String(speed)); });
    }
    controls->addStretch();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_calendar);
    layout->addWidget(m_timeline);
    layout->addWidget(m_view, 1);
    layout->addLayout(controls);
    layout->addWidget(m_position);

    connect(m_calendar, &QCalendarWidget::currentPageChanged, this, &PlaybackPanel::askCalendar);
    connect(m_calendar, &QCalendarWidget::selectionChanged, this,
            [this] { askRecordings(m_calendar->selectedDate()); });
    connect(m_timeline, &Timeline::timeChosen, this, [this](const QDateTime& time) {
        m_timeline->setPosition(time);
        m_view->clear();
        play();
    });
    connect(m_play, &QAbstractButton::clicked, this, &PlaybackPanel::play);
    connect(m_pause, &QAbstractButton::clicked, this, &PlaybackPanel::pause);
    connect(m_skipBack, &QAbstractButton::clicked, this, [this] { skip(-SkipSeconds); });
    connect(m_skipForward, &QAbstractButton::clicked, this, [this] { skip(SkipSeconds); });

    auto* signals_ = ClientSignals::instance();
    connect(signals_, &ClientSignals::signalGetVideoRecordingsCalendarMaskRes, this,
            [this](const Response& response, const QList<QDate>& days) {
                if (!isOurs(response.requestId))
                    return;
                for (const QDate& day : std::as_const(m_markedDays))
                    m_calendar->setDateTextFormat(day, {});
                QTextCharFormat marked;
                marked.setFontWeight(QFont::Bold);
                marked.setBackground(QColor(200, 225, 255));
                for (const QDate& day : days)
                    m_calendar->setDateTextFormat(day, marked);
                m_markedDays = days;
            });
    connect(signals_, &ClientSignals::signalSearchVideoRecordingsRes, this,
            [this](const Response& response, const QList<VideoRecInfo>& recordings, bool) {
                if (!isOurs(response.requestId))
                    return;
                QList<Timeline::Span> spans;
                for (const VideoRecInfo& recording : recordings) {
                    spans.append({QDateTime::fromString(recording.beginTime, DeviceTimeFormat),
                                  QDateTime::fromString(recording.endTime, DeviceTimeFormat)});
                }
                m_timeline->setRecordings(spans);
                m_position->setText(tr("%n recording(s)", nullptr, int(spans.size())));
            });
    connect(signals_, &ClientSignals::signalPlaybackByTimeProgressPush, this,
            [this](StreamId stream, const QDateTime& time) {
                if (stream == m_view->stream())
                    showPosition(time);
            });
    setChannel(std::nullopt);
}

QAbstractButton* PlaybackPanel::speedButton(const QString& speed) const
{
    for (QAbstractButton* button : m_speeds) {
        if (button->property("speed").toString() == speed)
            return button;
    }
    return nullptr;
}

void PlaybackPanel::setChannel(const std::optional<NamedChannel>& named)
{
    if (named && m_channel && named->channel == m_channel->channel)
        return;
    m_channel = named;
    m_view->clear();
    m_timeline->setDay(m_calendar->selectedDate());
    setEnabled(named.has_value());
    if (!named)
        return;
    askCalendar();
    askRecordings(m_calendar->selectedDate());
}

QString PlaybackPanel::nextRequestId()
{
    return RequestPrefix + QString::number(++m_requests);
}

bool PlaybackPanel::isOurs(const QString& requestId) const
{
    return requestId.startsWith(RequestPrefix);
}

void PlaybackPanel::askCalendar()
{
    if (!m_channel)
        return;
    const QDate first(m_calendar->yearShown(), m_calendar->monthShown(), 1);
    get_video_recordings_calendar_mask_req({.requestId = nextRequestId(),
                                            .channelId = m_channel->channel,
                                            .startDate = first,
                                            .endDate = first.addMonths(1).addDays(-1)});
}

void PlaybackPanel::askRecordings(const QDate& day)
{
    m_timeline->setDay(day);
    if (!m_channel)
        return;
    const QDateTime midnight(day, QTime(0, 0));
    search_video_recordings_req(
        {.requestId = nextRequestId(),
         .channelId = m_channel->channel,
         .recordType = 0,
         .recordSrc = 0,
         .beginTime = midnight.toString(DeviceTimeFormat),
         .endTime = midnight.addSecs(24 * 3600 - 1).toString(DeviceTimeFormat)});
}

void PlaybackPanel::play()
{
    if (!m_channel)
        return;
    if (const auto stream = m_view->stream(); stream && m_paused) {
        playback_ctrl_req(*stream, PlaybackCtrlResume);
        m_paused = false;
        return;
    }
    if (m_view->stream())
        return;
    // From the chosen time, or else from the day's first recording.
    QDateTime from = m_timeline->position();
    if ((!from.isValid() || from.date() != m_calendar->selectedDate()) &&
        !m_timeline->recordings().isEmpty())
        from = m_timeline->recordings().first().begin;
    if (!from.isValid())
        return;
    const StreamId stream = playback_by_time_req(
        {.channelId = m_channel->channel, .startTime = from, .recordSrc = 0, .download = 0});
    m_view->showStream(stream, tr("%1, recorded").arg(m_channel->title));
    m_paused = false;
    if (QAbstractButton* normal = speedButton(QStringLiteral("1")))
        normal->setChecked(true);
}

void PlaybackPanel::pause()
{
    if (const auto stream = m_view->stream(); stream && !m_paused) {
        playback_ctrl_req(*stream, PlaybackCtrlPause);
        m_paused = true;
    }
}

void PlaybackPanel::setSpeed(const QString& speed)
{
    if (const auto stream = m_view->stream())
        playback_speed_set_req(*stream, speed);
}

void PlaybackPanel::skip(int seconds)
{
    const auto stream = m_view->stream();
    if (!stream || !m_timeline->position().isValid())
        return;
    skip_by_appointed_time_req(*stream, m_timeline->position().addSecs(seconds));
}

void PlaybackPanel::showPosition(const QDateTime& position)
{
    m_timeline->setPosition(position);
    m_position->setText(position.toString(DeviceTimeFormat));
}
