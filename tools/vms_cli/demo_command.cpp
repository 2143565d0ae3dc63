// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// demo: the tour of demo_tour.cpp, a report of each step and a summary line.
#include "commands.h"
#include "demo_tour.h"
#include "event_loop.h"
#include "outcome_text.h"
#include "value_text.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

namespace vms_cli {

namespace {

constexpr int StepGuardMs = 15000;
constexpr int ShownLines = 10;
constexpr int ShownItems = 2;

// "$name" arguments become what an earlier step kept.
QVariant resolved(const QVariant& value, const QVariantMap& kept)
{
    if (value.userType() == QMetaType::QString && value.toString().startsWith(QLatin1Char('$')))
        return kept.value(value.toString().mid(1));
    if (value.userType() == QMetaType::QVariantMap) {
        QVariantMap map = value.toMap();
        for (auto it = map.begin(); it != map.end(); ++it)
            it.value() = resolved(it.value(), kept);
        return map;
    }
    return value;
}

StepResult runRequest(const DemoStep& step, Tour& tour)
{
    const vms_sdk::RequestEntry* entry = vms_sdk::find_request(step.request);
    QString error;
    vms_sdk::PendingRequest* pending =
        vms_sdk::send_request(step.request, resolved(step.arguments, tour.kept).toMap(), &error);
    if (!entry || !pending)
        return {.ok = false, .timedOut = false, .lines = {error}};
    const vms_sdk::RequestOutcome outcome = await(pending, StepGuardMs);
    const QVariantMap answer = answerArguments(*entry, outcome);
    for (const auto& [name, path] : step.keep)
        tour.kept.insert(name, pick(answer, path));
    return {.ok = succeeded(outcome),
            .timedOut = outcome.end == vms_sdk::RequestTimedOut,
            .lines = outcomeLines(*entry, outcome, ShownItems)};
}

} // namespace

ExitCode runDemo(const Options& options, GatewaySession& session, Io& io)
{
    Tour tour{session, io, {}};
    const QList<DemoStep> steps = demoSteps();
    QElapsedTimer all;
    all.start();
    int passed = 0;
    int failed = 0;
    int timedOut = 0;
    QString family;
    for (int i = 0; i < steps.size(); ++i) {
        const DemoStep& step = steps[i];
        if (step.family != family && !options.json)
            io.out << '\n' << step.family << Qt::endl;
        family = step.family;
        QElapsedTimer clock;
        clock.start();
        const StepResult result = step.action ? step.action(tour) : runRequest(step, tour);
        const QString verdict = result.ok         ? QStringLiteral("ok")
                                : result.timedOut ? QStringLiteral("TIMED OUT")
                                                  : QStringLiteral("FAILED");
        passed += result.ok ? 1 : 0;
        timedOut += !result.ok && result.timedOut ? 1 : 0;
        failed += !result.ok && !result.timedOut ? 1 : 0;
        if (options.json) {
            io.out << QJsonDocument(QJsonObject{{QStringLiteral("step"), i + 1},
                                                {QStringLiteral("family"), step.family},
                                                {QStringLiteral("title"), step.title},
                                                {QStringLiteral("result"), verdict},
                                                {QStringLiteral("ms"), clock.elapsed()}})
                          .toJson(QJsonDocument::Compact)
                   << Qt::endl;
            continue;
        }
        io.out << QStringLiteral("  %1. %2 ... %3 (%4 ms)")
                      .arg(i + 1, 2)
                      .arg(step.title, verdict)
                      .arg(clock.elapsed())
               << Qt::endl;
        // A failed step shows all it has: that is where the reader looks.
        const QStringList shown =
            result.ok ? QStringList(result.lines.mid(0, ShownLines)) : result.lines;
        for (const QString& line : shown)
            io.out << "        " << line << '\n';
        if (shown.size() < result.lines.size())
            io.out << "        ...\n";
        io.out << Qt::flush;
    }
    const QString summary =
        QStringLiteral("demo: %1 steps, %2 passed, %3 failed, %4 timed out in %5 s")
            .arg(steps.size())
            .arg(passed)
            .arg(failed)
            .arg(timedOut)
            .arg(all.elapsed() / 1000.0, 0, 'f', 1);
    if (options.json)
        io.out << QJsonDocument(QJsonObject{{QStringLiteral("summary"), summary},
                                            {QStringLiteral("passed"), passed},
                                            {QStringLiteral("failed"), failed},
                                            {QStringLiteral("timedOut"), timedOut}})
                      .toJson(QJsonDocument::Compact)
               << Qt::endl;
    else
        io.out << "\nthe library's log: "
               << QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
               << "/vms.client.log\n"
               << summary << Qt::endl;
    return failed + timedOut == 0 ? ExitOk : ExitFailed;
}

} // namespace vms_cli
