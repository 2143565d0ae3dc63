// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/channel/time_count.h"

#include <QTimer>

namespace vms_sdk {

TimeCount::TimeCount(int interval, int maxCount, QObject* parent)
    : QObject(parent)
    , m_timer(new QTimer(this))
    , m_interval(interval)
    , m_maxCount(maxCount)
{
    connect(m_timer, &QTimer::timeout, this, &TimeCount::slotTimeout);
    m_timer->start(m_interval);
}

void TimeCount::start()
{
    m_count = 0;
    m_timer->start(m_interval);
}

void TimeCount::stop()
{
    m_timer->stop();
}

void TimeCount::slotTimeout()
{
    if (m_count >= m_maxCount) {
        m_timer->stop();
        Q_EMIT signalTryTimeout();
    } else {
        ++m_count;
        Q_EMIT signalTryAgain();
    }
}

} // namespace vms_sdk
