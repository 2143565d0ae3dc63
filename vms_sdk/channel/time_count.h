// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QObject>

class QTimer;

namespace vms_sdk {

// Paces repeated attempts: signalTryAgain once per interval, maxCount times, then
// signalTryTimeout on the next tick. It starts ticking when it is constructed.
class TimeCount : public QObject
{
    Q_OBJECT
public:
    TimeCount(int interval, int maxCount, QObject* parent = nullptr);

    void start();
    void stop();
    int count() const { return m_count; }

Q_SIGNALS:
    void signalTryAgain();
    void signalTryTimeout();

private Q_SLOTS:
    void slotTimeout();

private:
    QTimer* m_timer;
    int m_interval;
    int m_maxCount;
    int m_count = 0;
};

} // namespace vms_sdk
