// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "event_loop.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QPointer>
#include <QTimer>

namespace vms_cli {

vms_sdk::RequestOutcome await(vms_sdk::PendingRequest* pending, int guardMs)
{
    vms_sdk::RequestOutcome outcome{.requestId = pending->requestId(),
                                    .end = vms_sdk::RequestTimedOut};
    QEventLoop loop;
    QObject::connect(pending, &vms_sdk::PendingRequest::finished, &loop,
                     [&](const vms_sdk::RequestOutcome& finished) {
                         outcome = finished;
                         loop.quit();
                     });
    QTimer::singleShot(guardMs, &loop, &QEventLoop::quit);
    loop.exec();
    return outcome;
}

bool runUntil(const std::function<bool()>& done, int guardMs)
{
    QElapsedTimer clock;
    clock.start();
    QEventLoop loop;
    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, &loop, &QEventLoop::quit);
    tick.start(50);
    while (!done()) {
        if (clock.elapsed() >= guardMs)
            return false;
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void runFor(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace vms_cli
