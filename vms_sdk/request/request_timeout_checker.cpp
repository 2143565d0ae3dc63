// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/request/request_timeout_checker.h"

#include <QTimerEvent>

#include <chrono>

namespace vms_sdk {
namespace {

qint64 nowNs()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

} // namespace

RequestTimeoutChecker::RequestTimeoutChecker(QObject* parent)
    : QObject(parent)
{}

int RequestTimeoutChecker::laneOf(int intervalMs)
{
    for (size_t lane = 0; lane < m_lanes.size(); ++lane) {
        if (m_lanes[lane].intervalMs == intervalMs)
            return int(lane);
    }
    m_lanes.push_back({intervalMs});
    return int(m_lanes.size() - 1);
}

void RequestTimeoutChecker::start(Deadline& deadline, int intervalMs)
{
    stop(deadline);
    append(deadline, laneOf(intervalMs), nowNs());
}

void RequestTimeoutChecker::restart(Deadline& deadline)
{
    if (!isSet(deadline))
        return;
    const int lane = deadline.lane;
    stop(deadline);
    append(deadline, lane, nowNs());
}

void RequestTimeoutChecker::append(Deadline& deadline, int lane, qint64 now)
{
    Lane& list = m_lanes[size_t(lane)];
    deadline.lane = lane;
    deadline.dueNs = now + qint64(list.intervalMs) * 1000000;
    deadline.previous = list.last;
    deadline.next = nullptr;
    (list.last ? list.last->next : list.first) = &deadline;
    list.last = &deadline;
    // A later deadline waits for the timer that is running; it re-arms when it fires.
    if (!m_timer.isActive() || deadline.dueNs < m_armedNs)
        arm(now);
}

void RequestTimeoutChecker::stop(Deadline& deadline)
{
    if (!isSet(deadline))
        return;
    Lane& list = m_lanes[size_t(deadline.lane)];
    (deadline.previous ? deadline.previous->next : list.first) = deadline.next;
    (deadline.next ? deadline.next->previous : list.last) = deadline.previous;
    deadline.previous = deadline.next = nullptr;
    deadline.lane = -1;
    // The timer stays armed: firing once for nothing is cheaper than re-arming on every answer.
}

RequestTimeoutChecker::Deadline* RequestTimeoutChecker::earliest() const
{
    Deadline* first = nullptr;
    for (const Lane& lane : m_lanes) {
        if (lane.first && (!first || lane.first->dueNs < first->dueNs))
            first = lane.first;
    }
    return first;
}

void RequestTimeoutChecker::arm(qint64 now)
{
    const Deadline* const first = earliest();
    if (!first) {
        m_timer.stop();
        return;
    }
    // Rounded up: the timer must not fire before the deadline is due.
    const qint64 waitMs = qMax<qint64>(0, (first->dueNs - now + 999999) / 1000000);
    m_armedNs = now + waitMs * 1000000;
    m_timer.start(int(waitMs), Qt::PreciseTimer, this);
}

void RequestTimeoutChecker::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_timer.timerId())
        slotRequestTimeout();
    else
        QObject::timerEvent(event);
}

void RequestTimeoutChecker::slotRequestTimeout()
{
    m_timer.stop();
    const qint64 now = nowNs();
    // One at a time: the receivers may register, answer and renew while this runs.
    while (Deadline* const due = earliest()) {
        if (due->dueNs > now)
            break;
        const QString requestId = due->requestId;
        stop(*due);
        Q_EMIT signalRequestTimeout(requestId);
    }
    arm(nowNs());
}

} // namespace vms_sdk
