// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/request/request_mgr.h"

#include <vms_sdk/client_signals.h>

#include "vms_sdk/client/message_signals.h"
#include "vms_sdk/client/sdk_log.h"
#include "vms_sdk/request/message_hamal.h"

#include <QMutexLocker>

namespace vms_sdk {

RequestMgr::RequestMgr(QObject* parent, int timeoutMs)
    : QObject(parent)
    , m_checker(new RequestTimeoutChecker(this))
    , m_timeoutMs(timeoutMs)
{
    connect(m_checker, &RequestTimeoutChecker::signalRequestTimeout, this,
            &RequestMgr::slotRequestTimeout);
    // Automatic connection: a renewal asked for on another thread is carried out here, on
    // the thread whose timer it restarts.
    connect(MessageSignals::instance(), &MessageSignals::signalRenewalRequestId, this,
            &RequestMgr::slotRenewalRequestId);
}

RequestMgr* RequestMgr::instance()
{
    return MessageHamal::instance()->requestMgr();
}

void RequestMgr::setTimeoutInterval(int ms)
{
    QMutexLocker locker(&m_mutex);
    m_timeoutMs = ms;
}

int RequestMgr::timeoutInterval() const
{
    QMutexLocker locker(&m_mutex);
    return m_timeoutMs;
}

void RequestMgr::addRequest(const QString& requestId, const QString& kind)
{
    QMutexLocker locker(&m_mutex);
    const auto [it, fresh] = m_requests.try_emplace(requestId);
    Registration& registration = it->second;
    // A repeated registration keeps the interval the id was first registered with.
    if (fresh) {
        registration.deadline.requestId = it->first;
        m_checker->start(registration.deadline, m_timeoutMs);
    } else {
        m_checker->restart(registration.deadline);
    }
    registration.kinds.append(kind);
}

bool RequestMgr::removeRequest(const QString& requestId)
{
    return removeRegistration(requestId, std::nullopt);
}

bool RequestMgr::removeRequest(const QString& requestId, const QString& kind)
{
    return removeRegistration(requestId, kind);
}

bool RequestMgr::removeRegistration(const QString& requestId, const std::optional<QString>& kind)
{
    QMutexLocker locker(&m_mutex);
    const auto it = m_requests.find(requestId);
    if (it == m_requests.end())
        return false;
    // An answer of one kind never ends a registration of another: it is not what that
    // request waits for.
    auto& kinds = it->second.kinds;
    const int index = kind ? kinds.indexOf(*kind) : 0;
    if (index < 0)
        return false;
    kinds.remove(index);
    if (kinds.isEmpty()) {
        m_checker->stop(it->second.deadline);
        m_requests.erase(it);
    }
    return true;
}

QStringList RequestMgr::kinds(const QString& requestId) const
{
    QMutexLocker locker(&m_mutex);
    const auto it = m_requests.find(requestId);
    if (it == m_requests.end())
        return {};
    const auto& kinds = it->second.kinds;
    return QStringList(kinds.cbegin(), kinds.cend());
}

void RequestMgr::slotRenewalRequestId(const QString& requestId)
{
    QMutexLocker locker(&m_mutex);
    const auto it = m_requests.find(requestId);
    if (it != m_requests.end())
        m_checker->restart(it->second.deadline);
}

void RequestMgr::slotRequestTimeout(const QString& requestId)
{
    bool removed = false;
    QVariant requestValue;
    {
        QMutexLocker locker(&m_mutex);
        const auto it = m_requests.find(requestId);
        if (it != m_requests.end()) {
            m_checker->stop(it->second.deadline);
            m_requests.erase(it);
            removed = true;
        }
        requestValue = m_values.take(requestId);
    }
    // Outside the lock: the application's slots may well read or set request values.
    if (!removed)
        return;
    log::error(QStringLiteral("request timeout:%1").arg(requestId));
    Q_EMIT ClientSignals::instance()->signalRequestTimeout(requestId, requestValue);
}

void RequestMgr::setValue(const QString& requestId, const QVariant& value)
{
    QMutexLocker locker(&m_mutex);
    m_values.insert(requestId, value);
}

QVariant RequestMgr::value(const QString& requestId, bool remove)
{
    QMutexLocker locker(&m_mutex);
    return remove ? m_values.take(requestId) : m_values.value(requestId);
}

void RequestMgr::removeValue(const QString& requestId)
{
    QMutexLocker locker(&m_mutex);
    m_values.remove(requestId);
}

void RequestMgr::clearValues()
{
    QMutexLocker locker(&m_mutex);
    m_values.clear();
}

} // namespace vms_sdk
