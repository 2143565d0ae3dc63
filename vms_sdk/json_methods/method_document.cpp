// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/json_methods/method_document.h"

#include <QJsonDocument>
#include <QLocale>

#include <array>

namespace vms_sdk::json_methods {

namespace {

// The C locale: a user's locale may write other digits, which no device reads.
QString formatted(const QDateTime& dateTime, const QString& format)
{
    // An invalid date-time is checked here rather than left to the formatter, which would
    // write the fields of its invalid date and time.
    return dateTime.isValid() ? QLocale::c().toString(dateTime, format) : QString();
}

} // namespace

QString dateTimeText(const QDateTime& dateTime)
{
    return formatted(dateTime, QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}

QString compactDateTimeText(const QDateTime& dateTime)
{
    return formatted(dateTime, QStringLiteral("yyyyMMddhhmmss"));
}

QString dateText(const QDate& date)
{
    return date.isValid() ? QLocale::c().toString(date, QStringLiteral("yyyy-MM-dd")) : QString();
}

QString countTypeWord(int countType)
{
    static const std::array<const char*, 6> words{"hour",  "day",     "week",
                                                  "month", "quarter", "year"};
    if (countType < 0 || countType >= int(words.size()))
        return QStringLiteral("day");
    return QString::fromLatin1(words[std::size_t(countType)]);
}

QJsonArray intArray(const QList<int>& values)
{
    QJsonArray array;
    for (int value : values)
        array.append(value);
    return array;
}

QJsonObject envelope(const QString& method, const std::optional<QString>& package,
                     const std::optional<QJsonObject>& param)
{
    QJsonObject document{{QStringLiteral("method"), method}};
    if (package)
        document.insert(QStringLiteral("package"), *package);
    if (param)
        document.insert(QStringLiteral("param"), *param);
    return document;
}

QJsonObject transparentEnvelope(const QJsonObject& inner, int channel)
{
    const QJsonObject param{
        {QStringLiteral("channelid"), channel},
        {QStringLiteral("owner"), QString::fromLatin1(WrapperOwner)},
        {QStringLiteral("req_data"), QString::fromLatin1(documentText(inner).toBase64())},
    };
    return envelope(QString::fromLatin1(WrapperMethod), std::nullopt, param);
}

QByteArray documentText(const QJsonObject& document)
{
    return QJsonDocument(document).toJson(QJsonDocument::Indented);
}

} // namespace vms_sdk::json_methods
