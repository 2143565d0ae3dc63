// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// watch: every push and alarm of the library as it comes, until interrupted or --seconds.
#include "commands.h"
#include "event_loop.h"
#include "outcome_text.h"
#include "signal_tap.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QSocketNotifier>

#include <csignal>
#include <unistd.h>

namespace vms_cli {

namespace {

// What a watcher wants to see: the pushes, the gateways' state and the transfers' progress;
// not the answers to requests (nobody asked) nor the media bytes.
bool isWatched(const QMetaMethod& signal)
{
    const QByteArray name = signal.name();
    return name.endsWith("Push") || name == "signalDgwAbnormal" ||
           name == "signalUploadUpgradeFileFinished" || name == "signalPushFileTransferProgress";
}

volatile std::sig_atomic_t interrupted = 0;

} // namespace

ExitCode runWatch(const Options& options, GatewaySession& session, Io& io)
{
    int seen = 0;
    SignalTap tap([&](const QMetaMethod& signal, const QVariantList& args) {
        ++seen;
        if (options.json)
            io.out << QJsonDocument(emissionJson(signal, args)).toJson(QJsonDocument::Compact)
                   << Qt::endl;
        else
            io.out << emissionLines(signal, args, 5).join(QLatin1Char('\n')) << Qt::endl;
    });
    tap.tapAll(vms_sdk::ClientSignals::instance(), isWatched);
    if (!options.json)
        io.out << "watching " << session.devices().size() << " devices; Ctrl-C ends" << Qt::endl;
    std::signal(SIGINT, [](int) { interrupted = 1; });
    std::signal(SIGTERM, [](int) { interrupted = 1; });
    const int guardMs = options.seconds > 0 ? int(options.seconds * 1000) : INT_MAX;
    runUntil([] { return interrupted != 0; }, guardMs);
    if (!options.json)
        io.out << seen << " pushes" << Qt::endl;
    return ExitOk;
}

} // namespace vms_cli
