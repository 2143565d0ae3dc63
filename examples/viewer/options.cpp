// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "options.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

namespace {

// The build names the simulator it found in the package (the imported target
// VmsClientSdk::vms_dgw_sim).
QString defaultGateway()
{
#ifdef VMS_DGW_SIM
    return QStringLiteral(VMS_DGW_SIM);
#else
    return QCoreApplication::applicationDirPath() + QStringLiteral("/vms_dgw_sim");
#endif
}

} // namespace

std::optional<Options> Options::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Live views, PTZ, playback and alarms of the devices behind a gateway."));
    parser.addHelpOption();
    const QCommandLineOption gateway(
        QStringLiteral("gateway"),
        QStringLiteral("The gateway program (default: %1).").arg(defaultGateway()),
        QStringLiteral("path"), defaultGateway());
    const QCommandLineOption grid(QStringLiteral("grid"),
                                  QStringLiteral("Live views at the start: 1, 4 or 9 (default 4), "
                                                 "filled with the first cameras."),
                                  QStringLiteral("views"), QStringLiteral("4"));
    const QCommandLineOption screenshot(
        QStringLiteral("screenshot"),
        QStringLiteral("Write a PNG of the window once every view has shown a picture, and the "
                       "views' places in it on stdout."),
        QStringLiteral("file"));
    const QCommandLineOption quitAfterScreenshot(QStringLiteral("quit-after-screenshot"),
                                                 QStringLiteral("Quit once the PNG is written."));
    const QCommandLineOption exercise(
        QStringLiteral("exercise"),
        QStringLiteral("Press the PTZ and playback controls of the first camera, check that the "
                       "answers come back, and quit: 0 when they all did."));
    const QCommandLineOption measure(
        QStringLiteral("measure"),
        QStringLiteral("Once every view shows pictures, count the pictures decoded and drawn and "
                       "the CPU time used for this many seconds, print them and quit."),
        QStringLiteral("seconds"));
    parser.addOptions({gateway, grid, screenshot, quitAfterScreenshot, exercise, measure});

    QTextStream err(stderr);
    if (!parser.parse(arguments)) {
        err << parser.errorText() << Qt::endl;
        return std::nullopt;
    }
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp(0);

    Options options;
    options.gateway = parser.value(gateway);
    options.grid = parser.value(grid).toInt();
    if (options.grid != 1 && options.grid != 4 && options.grid != 9) {
        err << "--grid takes 1, 4 or 9, not " << parser.value(grid) << Qt::endl;
        return std::nullopt;
    }
    options.screenshot = parser.value(screenshot);
    options.quitAfterScreenshot = parser.isSet(quitAfterScreenshot);
    options.exercise = parser.isSet(exercise);
    if (parser.isSet(measure)) {
        bool ok = false;
        options.measureSeconds = parser.value(measure).toInt(&ok);
        if (!ok || options.measureSeconds <= 0) {
            err << "--measure takes a number of seconds, not " << parser.value(measure) << Qt::endl;
            return std::nullopt;
        }
    }
    if (!parser.positionalArguments().isEmpty()) {
        err << "unexpected arguments: " << parser.positionalArguments().join(' ') << Qt::endl;
        return std::nullopt;
    }
    return options;
}
