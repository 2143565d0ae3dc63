// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QObject>
#include <QString>

class QTimer;

namespace vms_sdk {

// The deadline of one outstanding request id. The same id may be in flight several times at
// once; the checker counts the registrations so the id stays outstanding until that many
// answers have come. It is never deleted directly, only through deleteLater, so that it can
// finish delivering its time-out even when the receiver unregisters it on the way.
class RequestTimeoutChecker : public QObject
{
    Q_OBJECT
public:
    RequestTimeoutChecker(const QString& requestId, int intervalMs, QObject* parent = nullptr);

    QString requestId() const { return m_requestId; }
    int interval() const { return m_interval; }
    int count() const { return m_count; }

    // A full new interval from now, whether or not the timer is running.
    void restart();
    // One more registration of the id; returns the new count.
    int addCount();
    // One answer came; returns the new count. At zero the deadline is dropped and the checker
    // goes away.
    int releaseCount();

Q_SIGNALS:
    void signalRequestTimeout(const QString& requestId);

public Q_SLOTS:
    void slotRequestTimeout();

private:
    QString m_requestId;
    QTimer* m_timer;
    int m_interval;
    int m_count = 1;
};

} // namespace vms_sdk
