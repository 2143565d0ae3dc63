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
    , m_timeoutMs(timeoutMs)
{
    // Automatic connection: a renewal asked for on another thread is carried out here, on
    // the thread whose timers it restarts.
    connect(MessageSignals::instance(), &MessageSignals::signalRenewalRequestId, this,
            &RequestMgr::slotRenewalRequestId);
}

RequestMgr::~RequestMgr()
{
    // The checkers have no parent. Left alone they would still fire, into nothing, and only
    // then go away; a registry that is gone has no deadlines left to keep.
    for (const QPointer<RequestTimeoutChecker>& checker : qAsConst(m_checkers)) {
        if (checker)
            checker->deleteLater();
    }
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
    const QPointer<RequestTimeoutChecker> existing = m_checkers.value(requestId);
    if (existing) {
        existing->restart();
        existing->addCount();
        m_kinds[requestId].append(kind);
        return;
    }
    auto* checker = new RequestTimeoutChecker(requestId, m_timeoutMs);
    m_checkers.insert(requestId, checker);
    m_kinds.insert(requestId, {kind});
    connect(checker, &RequestTimeoutChecker::signalRequestTimeout, this,
            &RequestMgr::slotRequestTimeout);
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
    const auto it = m_checkers.find(requestId);
    if (it == m_checkers.end())
        return false;
    RequestTimeoutChecker* const checker = it.value();
    if (!checker) {
        // Nothing deletes a checker while it is still listed; should it ever happen, the id
        // has no deadline any more and counts as gone.
        m_checkers.erase(it);
        m_kinds.remove(requestId);
        return false;
    }
    // An answer of one kind never ends a registration of another: it is not what that
    // request waits for.
    QStringList& kinds = m_kinds[requestId];
    const int index = kind ? kinds.indexOf(*kind) : (kinds.isEmpty() ? -1 : 0);
    if (index < 0)
        return false;
    kinds.removeAt(index);
    if (checker->releaseCount() < 1) {
        m_checkers.erase(it);
        m_kinds.remove(requestId);
    }
    return true;
}

QStringList RequestMgr::kinds(const QString& requestId) const
{
    QMutexLocker locker(&m_mutex);
    return m_kinds.value(requestId);
}

void RequestMgr::slotRenewalRequestId(const QString& requestId)
{
    QMutexLocker locker(&m_mutex);
    if (RequestTimeoutChecker* const checker = m_checkers.value(requestId))
        checker->restart();
}

void RequestMgr::slotRequestTimeout(const QString& requestId)
{
    int removed = 0;
    QVariant requestValue;
    {
        QMutexLocker locker(&m_mutex);
        removed = m_checkers.remove(requestId);
        m_kinds.remove(requestId);
        requestValue = m_values.take(requestId);
    }
    // Outside the lock: the application's slots may well read or set request values.
    if (removed == 0)
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
