// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// The reading rules every JSON method answer shares. Devices leave keys out and now and then
// write a flag as a number, so nothing here fails: a key that is missing, or holds something
// its field cannot take, leaves the field at its default.

#include <QDate>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QString>
#include <QTime>

namespace vms_sdk::json_methods {

inline constexpr char AnswerDateTimeFormat[] = "yyyy-MM-dd hh:mm:ss";
inline constexpr char AnswerDateFormat[] = "yyyy-MM-dd";

inline void readValue(const QJsonValue& json, int& value)
{
    if (json.isDouble())
        value = json.toInt();
}

inline void readValue(const QJsonValue& json, double& value)
{
    if (json.isDouble())
        value = json.toDouble();
}

inline void readValue(const QJsonValue& json, bool& value)
{
    if (json.isBool())
        value = json.toBool();
    else if (json.isDouble())
        value = json.toDouble() != 0;
}

// A number where text is expected is taken as its decimal text.
inline void readValue(const QJsonValue& json, QString& value)
{
    if (json.isString() || json.isDouble() || json.isBool())
        value = json.toVariant().toString();
}

inline void readValue(const QJsonValue& json, QDateTime& value)
{
    value = QDateTime::fromString(json.toString(), QLatin1String(AnswerDateTimeFormat));
}

inline void readValue(const QJsonValue& json, QDate& value)
{
    value = QDate::fromString(json.toString(), QLatin1String(AnswerDateFormat));
}

// A time of day is an object {"hour", "minute"}.
inline void readValue(const QJsonValue& json, QTime& value)
{
    if (json.isObject())
        value = QTime(json[QLatin1String("hour")].toInt(), json[QLatin1String("minute")].toInt());
}

// One key of an answer object and the record field it fills.
template<class Record, class T>
struct Field
{
    const char* key;
    T Record::*member;
};

template<class Record, class T>
constexpr Field<Record, T> field(const char* key, T Record::*member)
{
    return {key, member};
}

template<class Record, class... T>
Record readRecord(const QJsonObject& object, const Field<Record, T>&... fields)
{
    Record record{};
    (readValue(object.value(QLatin1String(fields.key)), record.*(fields.member)), ...);
    return record;
}

// An array of objects, each read by `read`; anything but an array is an empty list.
template<class Read>
auto listOf(const QJsonValue& json, Read read)
{
    QList<decltype(read(QJsonObject()))> list;
    const QJsonArray array = json.toArray();
    for (const QJsonValue& item : array)
        list.append(read(item.toObject()));
    return list;
}

} // namespace vms_sdk::json_methods
