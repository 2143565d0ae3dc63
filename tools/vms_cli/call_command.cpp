// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// call REQUEST key=value ...: any request function by name through the request catalogue.
#include "commands.h"
#include "event_loop.h"
#include "outcome_text.h"

#include <QJsonDocument>
#include <QMetaType>

namespace vms_cli {

namespace {

// Long enough for the slowest answer; the library's own time-out ends the request first.
constexpr int CallGuardMs = 65000;

QString parameterList(const vms_sdk::RequestEntry& entry)
{
    QStringList names;
    for (const vms_sdk::RequestParameter& parameter : entry.parameters)
        names.append(QStringLiteral("%1 (%2)").arg(
            parameter.name, QLatin1String(QMetaType::typeName(parameter.metaType))));
    return names.join(QStringLiteral(", "));
}

QString requestList()
{
    QStringList lines;
    for (const vms_sdk::RequestEntry& entry : vms_sdk::request_catalogue())
        lines.append(QStringLiteral("  %1: %2").arg(entry.name, parameterList(entry)));
    return lines.join(QLatin1Char('\n'));
}

// key=value pairs; false with the first argument that is not one.
bool readArguments(const QStringList& args, QVariantMap* map, QString* bad)
{
    for (const QString& arg : args) {
        const int equals = arg.indexOf(QLatin1Char('='));
        if (equals <= 0) {
            *bad = arg;
            return false;
        }
        map->insert(arg.left(equals), arg.mid(equals + 1));
    }
    return true;
}

} // namespace

ExitCode prepareCall(const Options& options, Io& io)
{
    const QString name = options.arguments.value(0);
    if (name.isEmpty() || name == QLatin1String("list")) {
        (name.isEmpty() ? io.err : io.out)
            << (name.isEmpty() ? "vms_cli call: which request? " : "") << "requests:\n"
            << requestList() << Qt::endl;
        return name.isEmpty() ? ExitUsage : ExitHandled;
    }
    const vms_sdk::RequestEntry* entry = vms_sdk::find_request(name);
    if (!entry) {
        io.err << "vms_cli call: unknown request " << name << "; requests:\n"
               << requestList() << Qt::endl;
        return ExitUsage;
    }
    QVariantMap arguments;
    QString bad;
    if (!readArguments(options.arguments.mid(1), &arguments, &bad)) {
        io.err << "vms_cli call: " << bad << " is not key=value; " << name << " takes "
               << parameterList(*entry) << Qt::endl;
        return ExitUsage;
    }
    // Names are checked here, before any gateway starts; values when the request is sent.
    for (auto it = arguments.cbegin(); it != arguments.cend(); ++it) {
        const QString top = it.key().section(QLatin1Char('.'), 0, 0);
        const bool known =
            std::any_of(entry->parameters.begin(), entry->parameters.end(),
                        [&](const vms_sdk::RequestParameter& p) { return p.name == top; });
        if (!known) {
            io.err << "vms_cli call: " << name << " has no field " << it.key() << "; it takes "
                   << parameterList(*entry) << Qt::endl;
            return ExitUsage;
        }
    }
    return ExitOk;
}

ExitCode runCall(const Options& options, GatewaySession&, Io& io)
{
    const QString name = options.arguments.value(0);
    const vms_sdk::RequestEntry* entry = vms_sdk::find_request(name);
    QVariantMap arguments;
    QString bad;
    readArguments(options.arguments.mid(1), &arguments, &bad);
    QString error;
    vms_sdk::PendingRequest* pending = vms_sdk::send_request(name, arguments, &error);
    if (!pending) {
        io.err << "vms_cli call: " << error << Qt::endl;
        return ExitUsage;
    }
    const vms_sdk::RequestOutcome outcome = await(pending, CallGuardMs);
    if (options.json)
        io.out << QJsonDocument(outcomeJson(*entry, outcome)).toJson(QJsonDocument::Compact)
               << Qt::endl;
    else
        io.out << outcomeLines(*entry, outcome).join(QLatin1Char('\n')) << Qt::endl;
    return succeeded(outcome) ? ExitOk : ExitFailed;
}

ExitCode prepareNothing(const Options& options, Io& io)
{
    if (options.arguments.isEmpty())
        return ExitOk;
    io.err << "vms_cli " << options.command << ": takes no arguments" << Qt::endl;
    return ExitUsage;
}

} // namespace vms_cli
