// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "exercise.h"

#include "playback_panel.h"
#include "ptz_panel.h"
#include "timeline.h"

#include <vms_sdk/vms_client_sdk.h>

#include <QAbstractButton>
#include <QCalendarWidget>
#include <QListWidget>
#include <QTextStream>

#include <memory>

using namespace vms_sdk;
using Verdict = Exercise::Verdict;

namespace {

Verdict pass()
{
    return {Verdict::Pass, {}};
}

Verdict wait()
{
    return {Verdict::Wait, {}};
}

Verdict answered(const Response& response)
{
    if (response.errCode == 0)
        return pass();
    return {Verdict::Fail,
            QStringLiteral("refused: %1 (%2)").arg(response.errMsg).arg(response.errCode)};
}

// A step's answer is the first emission of `signal` for which `check` does not say Wait.
template<typename... Args, typename Check>
std::function<QMetaObject::Connection(Exercise*)> answer(void (ClientSignals::*signal)(Args...),
                                                         Check check)
{
    return [signal, check](Exercise* exercise) {
        return QObject::connect(ClientSignals::instance(), signal, exercise,
                                [exercise, check](Args... args) {
                                    const Verdict verdict = check(args...);
                                    if (verdict.kind != Verdict::Wait)
                                        exercise->conclude(verdict);
                                });
    };
}

// The PTZ answer that ends a press of the pad: the stop of that movement.
auto stopOf(PTZOperation expected)
{
    return answer(&ClientSignals::signalPTZCtrlRes,
                  [expected](const Response& response, PTZOperation operation, PTZAction action) {
                      if (operation != expected || action != PTZActionStop)
                          return wait();
                      return answered(response);
                  });
}

// A playback answers every control with its position; `check` judges the position.
template<typename Check>
auto position(Check check)
{
    return answer(&ClientSignals::signalPlaybackByTimeProgressPush,
                  [check](StreamId, const QDateTime& time) { return check(time); });
}

} // namespace

Exercise::Exercise(PtzPanel* ptz, PlaybackPanel* playback, QObject* parent, int stepTimeoutMs)
    : QObject(parent)
    , m_ptz(ptz)
    , m_playback(playback)
{
    m_timeout.setSingleShot(true);
    m_timeout.setInterval(stepTimeoutMs);
    connect(&m_timeout, &QTimer::timeout, this, [this, stepTimeoutMs] {
        conclude({Verdict::Fail, QStringLiteral("no answer within %1 ms").arg(stepTimeoutMs)});
    });
}

QList<Exercise::Step> Exercise::steps()
{
    const auto anyPosition = [](const QDateTime&) { return pass(); };
    // Where the playback stood when a skip was pressed.
    auto before = std::make_shared<QDateTime>();
    const auto remember = [this, before](QAbstractButton* button) {
        *before = m_playback->timeline()->position();
        button->click();
    };
    const QDate yesterday = QDate::currentDate().addDays(-1);
    return {
        {QStringLiteral("get presets"), [this] { m_ptz->refreshPresetsButton()->click(); },
         answer(&ClientSignals::signalGetPresetsRes,
                [](const Response& response, const QList<PresetInfo>&) {
                    return answered(response);
                })},
        {QStringLiteral("go to the first preset"),
         [this] {
             if (m_ptz->presetList()->count() == 0)
                 return conclude(pass());
             m_ptz->goToPresetButton()->click();
         },
         answer(&ClientSignals::signalOperPresetsRes,
                [](const Response& response, PresetOper) { return answered(response); })},
        {QStringLiteral("pan up"), [this] { m_ptz->moveButton(PTZOperationUp)->click(); },
         stopOf(PTZOperationUp)},
        {QStringLiteral("zoom in"), [this] { m_ptz->moveButton(PTZOperationZoomIn)->click(); },
         stopOf(PTZOperationZoomIn)},
        {QStringLiteral("stop"), [this] { m_ptz->stopButton()->click(); },
         stopOf(PTZOperationZoomIn)},
        {QStringLiteral("recording calendar"),
         [this] {
             // Another month than the one shown makes the calendar ask for its days.
             const QDate shown(m_playback->calendar()->yearShown(),
                               m_playback->calendar()->monthShown(), 1);
             m_playback->calendar()->setCurrentPage(shown.addMonths(-1).year(),
                                                    shown.addMonths(-1).month());
         },
         answer(&ClientSignals::signalGetVideoRecordingsCalendarMaskRes,
                [](const Response& response, const QList<QDate>& days) {
                    if (response.errCode == 0 && days.isEmpty())
                        return Verdict{Verdict::Fail, QStringLiteral("no day has recordings")};
                    return answered(response);
                })},
        {QStringLiteral("recordings of %1").arg(yesterday.toString(Qt::ISODate)),
         [this, yesterday] { m_playback->calendar()->setSelectedDate(yesterday); },
         answer(&ClientSignals::signalSearchVideoRecordingsRes,
                [](const Response& response, const QList<VideoRecInfo>& recordings, bool) {
                    if (response.errCode == 0 && recordings.isEmpty())
                        return Verdict{Verdict::Fail, QStringLiteral("no recordings")};
                    return answered(response);
                })},
        {QStringLiteral("play"), [this] { m_playback->playButton()->click(); },
         position(anyPosition)},
        {QStringLiteral("pause"), [this] { m_playback->pauseButton()->click(); },
         position(anyPosition)},
        {QStringLiteral("speed 2"),
         [this] { m_playback->speedButton(QStringLiteral("2"))->click(); }, position(anyPosition)},
        {QStringLiteral("skip forward"),
         [this, remember] { remember(m_playback->skipForwardButton()); },
         position([before](const QDateTime& time) {
             return before->secsTo(time) >= PlaybackPanel::SkipSeconds - 1 ? pass() : wait();
         })},
        {QStringLiteral("resume"), [this] { m_playback->playButton()->click(); },
         position(anyPosition)},
        {QStringLiteral("skip back"), [this, remember] { remember(m_playback->skipBackButton()); },
         position([before](const QDateTime& time) { return time < *before ? pass() : wait(); })},
    };
}

void Exercise::start()
{
    m_steps = steps();
    m_current = -1;
    conclude(pass());
}

void Exercise::conclude(const Verdict& verdict)
{
    QObject::disconnect(m_waiting);
    m_timeout.stop();
    QTextStream out(stdout);
    if (m_current >= 0) {
        const QString& name = m_steps[m_current].name;
        if (verdict.kind == Verdict::Fail) {
            out << "exercise: " << name << ": FAILED, " << verdict.why << Qt::endl;
            m_current = int(m_steps.size());
            Q_EMIT finished(false);
            return;
        }
        out << "exercise: " << name << ": ok" << Qt::endl;
    }
    if (++m_current >= m_steps.size()) {
        out << "exercise: passed, " << m_steps.size() << " steps" << Qt::endl;
        Q_EMIT finished(true);
        return;
    }
    // Listen before acting: an answer may come back within the click.
    const Step& step = m_steps[m_current];
    m_waiting = step.awaitAnswer(this);
    m_timeout.start();
    // Queued, so that a step that concludes within its own act does not recurse.
    QTimer::singleShot(0, this, [this, current = m_current] {
        if (current == m_current)
            m_steps[current].act();
    });
}
