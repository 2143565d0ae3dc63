// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QString>

#include <vector>

namespace vms_sdk {

// The deadlines of all the outstanding request ids of one registry, on one timer.
//
// A registry may hold a hundred thousand ids at once; a timer each would make every
// registration, answer and time-out cost time in proportion to that number. Deadlines set
// with the same interval fall due in the order they were set, so each interval keeps its
// deadlines in a list in that order: setting, restarting and dropping one are constant-time,
// and only the earliest of all is ever armed. The registry embeds a Deadline in its own entry
// for the id, which therefore must not move while the deadline is set.
class RequestTimeoutChecker : public QObject
{
    Q_OBJECT
public:
    struct Deadline
    {
        QString requestId;
        Deadline* previous = nullptr;
        Deadline* next = nullptr;
        qint64 dueNs = 0;
        int lane = -1; // which interval's list holds it; -1 while not set
    };

    explicit RequestTimeoutChecker(QObject* parent = nullptr);

    // A full interval from now, in place of whatever was set before.
    void start(Deadline& deadline, int intervalMs);
    // A full new interval, the one the deadline was started with. Nothing when it is not set.
    void restart(Deadline& deadline);
    // Harmless when the deadline is not set.
    void stop(Deadline& deadline);
    bool isSet(const Deadline& deadline) const { return deadline.lane >= 0; }

Q_SIGNALS:
    // One for each deadline that falls due, earliest first, deadlines due at the same moment in
    // the order they were set. The deadline is no longer set when the signal comes.
    void signalRequestTimeout(const QString& requestId);

public Q_SLOTS:
    // The timer's: hands out every deadline that is due and arms the timer for the next one.
    void slotRequestTimeout();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Lane
    {
        int intervalMs;
        Deadline* first = nullptr;
        Deadline* last = nullptr;
    };

    int laneOf(int intervalMs);
    void append(Deadline& deadline, int lane, qint64 nowNs);
    Deadline* earliest() const;
    void arm(qint64 nowNs);

    // Few: one per interval ever used, which is one unless tests or the application change it.
    std::vector<Lane> m_lanes;
    QBasicTimer m_timer;
    qint64 m_armedNs = 0; // when the running timer fires
};

} // namespace vms_sdk
