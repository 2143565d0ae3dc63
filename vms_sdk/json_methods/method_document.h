// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// The writing rules every JSON method request shares: how values are spelled, the envelope,
// and the wrapping that carries a method to an application on the device.

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>

#include <optional>

namespace vms_sdk::json_methods {

// The method that hands a wrapped document to a device application, and the owner it names.
inline constexpr char WrapperMethod[] = "dev_trans_userparam";
inline constexpr char WrapperOwner[] = "Tavirnex";

// "yyyy-MM-dd hh:mm:ss", as the condition holds it (no zone conversion); empty when invalid.
QString dateTimeText(const QDateTime& dateTime);
// The same without separators, "yyyyMMddhhmmss".
QString compactDateTimeText(const QDateTime& dateTime);
// "yyyy-MM-dd"; empty when invalid.
QString dateText(const QDate& date);

// A count period as the device names it; a value it has no word for counts by day.
QString countTypeWord(int countType);

// Some device methods read their flags as 0/1 numbers and reject JSON booleans.
inline int flagNumber(bool flag)
{
    return flag ? 1 : 0;
}

QJsonArray intArray(const QList<int>& values);

// {"method": method, "package": package, "param": param}; "package" only when given, "param"
// only when the method takes one.
QJsonObject envelope(const QString& method, const std::optional<QString>& package,
                     const std::optional<QJsonObject>& param);

// The document wrapped for a device application: the inner document's indented text, in
// Base64, as "req_data" of the transparent method on the given channel.
QJsonObject transparentEnvelope(const QJsonObject& inner, int channel);

// Devices expect the indented layout; the writer keeps object keys sorted.
QByteArray documentText(const QJsonObject& document);

} // namespace vms_sdk::json_methods
