// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "long_operations.h"

#include "event_loop.h"
#include "outcome_text.h"
#include "progress_bar.h"

#include <QElapsedTimer>

namespace vms_cli {

namespace {

constexpr int PollPaceMs = 200;
constexpr int OperationGuardMs = 30000;
constexpr int AnswerGuardMs = 10000;

} // namespace

LongResult runPolled(const PolledOperation& operation, Io& io)
{
    LongResult result;
    if (operation.command)
        operation.command();
    if (operation.start) {
        vms_sdk::PendingRequest* started = operation.start();
        const vms_sdk::RequestOutcome outcome =
            started ? await(started, AnswerGuardMs) : vms_sdk::RequestOutcome{};
        if (!started || !succeeded(outcome)) {
            result.timedOut = outcome.end == vms_sdk::RequestTimedOut;
            result.lines = started ? QStringList{QStringLiteral("start: ") + endText(outcome.end) +
                                                 QStringLiteral(" %1").arg(outcome.errorCode)}
                                   : QStringList{QStringLiteral("could not start")};
            return result;
        }
    }
    const vms_sdk::RequestEntry* poll = vms_sdk::find_request(operation.pollRequest);
    ProgressBar bar(io.chatter(), operation.label, io.interactive && !io.json);
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < OperationGuardMs) {
        vms_sdk::PendingRequest* pending =
            vms_sdk::send_request(operation.pollRequest, operation.pollArguments);
        const vms_sdk::RequestOutcome outcome =
            pending ? await(pending, AnswerGuardMs) : vms_sdk::RequestOutcome{};
        if (!pending || !succeeded(outcome)) {
            result.timedOut = outcome.end == vms_sdk::RequestTimedOut;
            result.lines = outcomeLines(*poll, outcome, 3);
            bar.finish(QStringLiteral("stopped"));
            return result;
        }
        const QVariantMap answer = answerArguments(*poll, outcome);
        bar.update(operation.percent(answer));
        if (operation.done(answer)) {
            bar.finish(QStringLiteral("done"));
            result.ok = true;
            result.lines = outcomeLines(*poll, outcome, 3);
            return result;
        }
        runFor(PollPaceMs);
    }
    bar.finish(QStringLiteral("no end in sight"));
    result.timedOut = true;
    return result;
}

LongResult runTransfer(const QString& label, const QString& request, const QVariantMap& arguments,
                       Io& io)
{
    LongResult result;
    QString error;
    vms_sdk::PendingRequest* pending = vms_sdk::send_request(request, arguments, &error);
    if (!pending) {
        result.lines = QStringList{error};
        return result;
    }
    ProgressBar bar(io.chatter(), label, io.interactive && !io.json);
    const QString id = pending->requestId();
    QObject context;
    QObject::connect(vms_sdk::ClientSignals::instance(),
                     &vms_sdk::ClientSignals::signalPushFileTransferProgress, &context,
                     [&](const vms_sdk::FileTransferProgress& progress) {
                         if (progress.requestId == id)
                             bar.update(progress.progress);
                     });
    const vms_sdk::RequestOutcome outcome = await(pending, OperationGuardMs);
    const vms_sdk::RequestEntry* entry = vms_sdk::find_request(request);
    // The last push says how it went: status 1 done, anything else a failure.
    const QVariant last = outcome.arguments.value(0);
    result.ok = succeeded(outcome) && last.value<vms_sdk::FileTransferProgress>().status == 1;
    result.timedOut = outcome.end == vms_sdk::RequestTimedOut;
    bar.finish(result.ok ? QStringLiteral("done") : QStringLiteral("failed"));
    result.lines = outcomeLines(*entry, outcome, 3);
    return result;
}

} // namespace vms_cli
