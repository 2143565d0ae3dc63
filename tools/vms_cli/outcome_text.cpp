// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "outcome_text.h"

#include "value_text.h"

#include <QJsonArray>

namespace vms_cli {

namespace {

QList<std::pair<QString, QVariant>> namedArguments(const QMetaMethod& signal,
                                                   const QVariantList& args)
{
    QList<std::pair<QString, QVariant>> named;
    const QList<QByteArray> names =
        signal.isValid() ? signal.parameterNames() : QList<QByteArray>();
    for (int i = 0; i < args.size(); ++i) {
        const QString name =
            i < names.size() ? QString::fromLatin1(names[i]) : QStringLiteral("argument%1").arg(i);
        named.append({name, args[i]});
    }
    return named;
}

} // namespace

QString endText(vms_sdk::RequestEnd end)
{
    switch (end) {
    case vms_sdk::RequestAnswered:
        return QStringLiteral("answered");
    case vms_sdk::RequestFailed:
        return QStringLiteral("failed");
    case vms_sdk::RequestTimedOut:
        return QStringLiteral("timed out");
    case vms_sdk::RequestReleased:
        return QStringLiteral("released");
    }
    return QString::number(int(end));
}

bool succeeded(const vms_sdk::RequestOutcome& outcome)
{
    return outcome.end == vms_sdk::RequestAnswered && outcome.errorCode == 0;
}

QVariantMap answerArguments(const vms_sdk::RequestEntry& entry,
                            const vms_sdk::RequestOutcome& outcome)
{
    QVariantMap map;
    for (const auto& [name, value] : namedArguments(entry.answer, outcome.arguments))
        map.insert(name, value);
    return map;
}

QStringList outcomeLines(const vms_sdk::RequestEntry& entry, const vms_sdk::RequestOutcome& outcome,
                         int maxItems)
{
    QString head =
        QStringLiteral("%1 %2: %3").arg(entry.name, outcome.requestId, endText(outcome.end));
    if (outcome.errorCode != 0)
        head += QStringLiteral(", error %1").arg(outcome.errorCode);
    QStringList lines{head};
    for (const auto& [name, value] : namedArguments(entry.answer, outcome.arguments))
        lines += valueLines(name, value, maxItems, 1);
    return lines;
}

QJsonObject outcomeJson(const vms_sdk::RequestEntry& entry, const vms_sdk::RequestOutcome& outcome)
{
    QJsonObject answer;
    for (const auto& [name, value] : namedArguments(entry.answer, outcome.arguments))
        answer.insert(name, valueJson(value));
    return {{QStringLiteral("request"), entry.name},
            {QStringLiteral("requestId"), outcome.requestId},
            {QStringLiteral("end"), endText(outcome.end)},
            {QStringLiteral("errorCode"), outcome.errorCode},
            {QStringLiteral("answer"), answer}};
}

QStringList emissionLines(const QMetaMethod& signal, const QVariantList& args, int maxItems)
{
    QStringList lines{QString::fromLatin1(signal.name())};
    for (const auto& [name, value] : namedArguments(signal, args))
        lines += valueLines(name, value, maxItems, 1);
    return lines;
}

QJsonObject emissionJson(const QMetaMethod& signal, const QVariantList& args)
{
    QJsonObject arguments;
    for (const auto& [name, value] : namedArguments(signal, args))
        arguments.insert(name, valueJson(value));
    return {{QStringLiteral("signal"), QString::fromLatin1(signal.name())},
            {QStringLiteral("arguments"), arguments}};
}

} // namespace vms_cli
