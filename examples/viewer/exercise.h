// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_VIEWER_EXERCISE_H
#define VMS_VIEWER_EXERCISE_H

#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>

class PlaybackPanel;
class PtzPanel;

// Drives the PTZ and playback panels of the selected camera through their own buttons, one
// step at a time, and checks that each step's answer comes back through ClientSignals: what
// a user's clicks would do, without a user.
class Exercise : public QObject
{
    Q_OBJECT
public:
    // What an arriving signal means for the step that waits: not its answer yet, its answer,
    // or a failure (with the reason).
    struct Verdict
    {
        enum Kind { Wait, Pass, Fail } kind = Wait;
        QString why;
    };
    struct Step
    {
        QString name;
        std::function<void()> act;
        // Connects the check of the step's answer; the connection goes when the step ends.
        std::function<QMetaObject::Connection(Exercise*)> awaitAnswer;
    };

    Exercise(PtzPanel* ptz, PlaybackPanel* playback, QObject* parent = nullptr,
             int stepTimeoutMs = 15000);

    void start();
    void conclude(const Verdict& verdict);

Q_SIGNALS:
    void finished(bool passed);

private:
    void runStep();
    QList<Step> steps();

    PtzPanel* m_ptz;
    PlaybackPanel* m_playback;
    QList<Step> m_steps;
    int m_current = -1;
    QMetaObject::Connection m_waiting;
    QTimer m_timeout;
};

#endif // VMS_VIEWER_EXERCISE_H
