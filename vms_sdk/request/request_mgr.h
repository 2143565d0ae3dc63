// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "vms_sdk/request/request_timeout_checker.h"

#include <QHash>
#include <QMutex>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVarLengthArray>
#include <QVariant>

#include <optional>
#include <unordered_map>

namespace vms_sdk {

// The registry of outstanding requests and of the application's request values.
//
// The dispatcher registers a request id before it sends the request and unregisters it when
// the answer comes; an id that stays registered for a whole interval times out, once, with
// "request timeout:<id>" in the log and ClientSignals::signalRequestTimeout carrying the value
// the application attached to it. Registration, answers, renewals and time-outs all run on
// the thread the registry lives on, where its checker's timer ticks; each costs the same
// whether one request is outstanding or a hundred thousand. The request values are set and
// read by the application from any thread, which is why one mutex guards both maps.
class RequestMgr : public QObject
{
    Q_OBJECT
public:
    static constexpr int DefaultTimeoutMs = 60000;

    explicit RequestMgr(QObject* parent = nullptr, int timeoutMs = DefaultTimeoutMs);

    // The dispatcher's registry, which the exported request-value functions reach.
    static RequestMgr* instance();

    // Applies to requests registered from now on; the outstanding ones keep their interval.
    void setTimeoutInterval(int ms);
    int timeoutInterval() const;

    // `kind` says which answers the registration waits for; the dispatcher makes it up and
    // reads it back through kinds() to tell apart requests that share an id.
    void addRequest(const QString& requestId, const QString& kind = QString());
    // Ends the oldest registration of the id, of whatever kind. False when there is none:
    // the answer came too late or was never asked for.
    bool removeRequest(const QString& requestId);
    // The same for an answer that can only be for registrations of one kind.
    bool removeRequest(const QString& requestId, const QString& kind);
    // The kinds of the id's outstanding registrations, oldest first.
    QStringList kinds(const QString& requestId) const;

    void setValue(const QString& requestId, const QVariant& value);
    // An invalid QVariant when there is none.
    QVariant value(const QString& requestId, bool remove);
    void removeValue(const QString& requestId);
    void clearValues();

public Q_SLOTS:
    void slotRequestTimeout(const QString& requestId);
    void slotRenewalRequestId(const QString& requestId);

private:
    // An outstanding id. The node-based map keeps it in place, as its deadline requires.
    struct Registration
    {
        RequestTimeoutChecker::Deadline deadline;
        // One per registration still waiting for its answer, oldest first; rarely more than
        // one, and then held without an allocation of its own.
        QVarLengthArray<QString, 1> kinds;
    };

    bool removeRegistration(const QString& requestId, const std::optional<QString>& kind);

    mutable QMutex m_mutex;
    RequestTimeoutChecker* m_checker;
    std::unordered_map<QString, Registration> m_requests;
    QHash<QString, QVariant> m_values;
    int m_timeoutMs;
};

} // namespace vms_sdk
