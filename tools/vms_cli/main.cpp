// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// vms_cli: the client library from a shell. It starts its gateways (the bundled simulator
// with the bundled devices unless told otherwise), runs one command and shuts down.
#include "commands.h"
#include "gateway_output.h"

#include <QCoreApplication>
#include <QTextStream>

#include <unistd.h>

using namespace vms_cli;

namespace {

const Command commands[] = {
    {"demo", prepareNothing, runDemo},
    {"call", prepareCall, runCall},
    {"watch", prepareNothing, runWatch},
    {"stream", prepareStream, runStream},
};

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vms_cli"));
    QTextStream out(stdout);
    // The gateways inherit stderr and write a line per message they handle: that goes to a
    // file, and this program's own complaints to the terminal.
    QTextStream err(keepStderr());
    const QString gatewayOutput = divertGatewayOutput();
    Io io{out, err, bool(::isatty(STDOUT_FILENO))};

    Options options;
    QString error;
    QStringList args = app.arguments();
    args.removeFirst();
    if (args.contains(QLatin1String("--help")) || args.contains(QLatin1String("-h"))) {
        out << usage();
        return ExitOk;
    }
    if (!parseOptions(args, &options, &error)) {
        err << "vms_cli: " << error << "\n\n" << usage() << Qt::flush;
        return ExitUsage;
    }
    const Command* command = nullptr;
    for (const Command& row : commands) {
        if (options.command == QLatin1String(row.name))
            command = &row;
    }
    if (!command) {
        err << "vms_cli: unknown command " << options.command << "\n\n" << usage() << Qt::flush;
        return ExitUsage;
    }
    io.json = options.json;
    if (const ExitCode prepared = command->prepare(options, io); prepared != ExitOk)
        return prepared == ExitHandled ? ExitOk : prepared;

    GatewaySession session;
    if (!session.start(options, err)) {
        session.stop();
        return ExitNoGateway;
    }
    const ExitCode result = command->run(options, session, io);
    session.stop();
    if (!gatewayOutput.isEmpty() && result != ExitOk)
        err << "the gateways' output: " << gatewayOutput << Qt::endl;
    out << Qt::flush;
    return result;
}
