// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "cli_options.h"

#include <algorithm>
#include <functional>

namespace vms_cli {

namespace {

struct OptionRow
{
    const char* name;
    bool takesValue;
    std::function<bool(Options&, const QString&)> apply;
};

const QList<OptionRow>& optionRows()
{
    static const QList<OptionRow> rows{
        {"--gateway", true, [](Options& o, const QString& v) { return o.gateway = v, true; }},
        {"--devices", true, [](Options& o, const QString& v) { return o.devices = v, true; }},
        {"--json", false, [](Options& o, const QString&) { return o.json = true; }},
        {"--output", true, [](Options& o, const QString& v) { return o.output = v, true; }},
        {"--seconds", true,
         [](Options& o, const QString& v) {
             bool ok = false;
             o.seconds = v.toDouble(&ok);
             return ok && o.seconds >= 0;
         }},
    };
    return rows;
}

} // namespace

QString usage()
{
    return QStringLiteral(
        "usage: vms_cli [options] COMMAND [arguments]\n"
        "\n"
        "commands:\n"
        "  demo                          a guided tour over every capability, with a summary\n"
        "  call REQUEST [key=value ...]  one request by name (call list: every request)\n"
        "  watch                         pushes and alarms as they come\n"
        "  stream live DEVICE CHANNEL [STREAMTYPE]\n"
        "  stream file DEVICE CHANNEL FILENAME\n"
        "  stream time DEVICE CHANNEL yyyy-MM-ddThh:mm:ss\n"
        "                                frames, frame rate, bit rate and gaps, live\n"
        "\n"
        "options:\n"
        "  --gateway PATH   the gateway program (default: the bundled simulator)\n"
        "  --devices FILE   the devices to manage, JSON (default: the bundled set)\n"
        "  --json           results as JSON lines\n"
        "  --seconds S      watch and stream: stop after S seconds\n"
        "  --output FILE    stream: write the media to FILE\n"
        "\n"
        "SPDLOG_LEVEL (e.g. info) sets the level of the library's log; every line by default.\n");
}

bool parseOptions(const QStringList& args, Options* options, QString* error)
{
    // Options may stand anywhere; everything else is the command and its arguments.
    for (int i = 0; i < args.size(); ++i) {
        const QString& arg = args[i];
        if (!arg.startsWith(QLatin1String("--"))) {
            if (options->command.isEmpty())
                options->command = arg;
            else
                options->arguments.append(arg);
            continue;
        }
        const QString name = arg.section(QLatin1Char('='), 0, 0);
        const auto& rows = optionRows();
        auto row = std::find_if(rows.begin(), rows.end(),
                                [&](const OptionRow& r) { return name == QLatin1String(r.name); });
        if (row == rows.end()) {
            *error = QStringLiteral("unknown option %1").arg(name);
            return false;
        }
        QString value;
        if (row->takesValue) {
            if (arg.contains(QLatin1Char('='))) {
                value = arg.section(QLatin1Char('='), 1);
            } else if (i + 1 < args.size()) {
                value = args[++i];
            } else {
                *error = QStringLiteral("%1 needs a value").arg(name);
                return false;
            }
        }
        if (!row->apply(*options, value)) {
            *error = QStringLiteral("%1: bad value %2").arg(name, value);
            return false;
        }
    }
    if (options->command.isEmpty()) {
        *error = QStringLiteral("no command");
        return false;
    }
    return true;
}

} // namespace vms_cli
