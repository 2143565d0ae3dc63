// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/request/request_timeout_checker.h"

#include <QTimer>

namespace vms_sdk {

RequestTimeoutChecker::RequestTimeoutChecker(const QString& requestId, int intervalMs,
                                             QObject* parent)
    : QObject(parent)
    , m_requestId(requestId)
    , m_timer(new QTimer(this))
    , m_interval(intervalMs)
{
    m_timer->setSingleShot(true);
    connect(m_timer, &QTimer::timeout, this, &RequestTimeoutChecker::slotRequestTimeout);
    m_timer->start(m_interval);
}

void RequestTimeoutChecker::restart()
{
    m_timer->start(m_interval);
}

int RequestTimeoutChecker::addCount()
{
    return ++m_count;
}

int RequestTimeoutChecker::releaseCount()
{
    if (--m_count <= 0) {
        m_timer->stop();
        deleteLater();
    }
    return m_count;
}

void RequestTimeoutChecker::slotRequestTimeout()
{
    if (m_count > 0)
        Q_EMIT signalRequestTimeout(m_requestId);
    deleteLater();
}

} // namespace vms_sdk
