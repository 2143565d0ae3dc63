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
    if (json.isString())
        value = json.toString();
    else if (json.isDouble() || json.isBool())
        value = json.toVariant().toString();
}

namespace detail {

// The decimal number written by `count` digits from `at`; -1 when one of them is no digit.
inline int digitsAt(const QString& text, int at, int count)
{
    int number = 0;
    for (int i = at; i < at + count; ++i) {
        const char16_t c = text.at(i).unicode();
        if (c < u'0' || c > u'9')
            return -1;
        number = number * 10 + (c - u'0');
    }
    return number;
}

// "yyyy-MM-dd" at the start of `text` (at least 10 characters); invalid when it is not one.
inline QDate leadingDate(const QString& text)
{
    if (text.at(4) != u'-' || text.at(7) != u'-')
        return {};
    const int year = digitsAt(text, 0, 4);
    const int month = digitsAt(text, 5, 2);
    const int day = digitsAt(text, 8, 2);
    return year < 0 || month < 0 || day < 0 ? QDate() : QDate(year, month, day);
}

} // namespace detail

// Devices write their times in exactly one shape, which is read here digit by digit: the
// general format parser costs tens of microseconds a value, and a list of records carries
// thousands. Whatever does not fit the shape exactly still goes to the general parser, so
// both ways read every text alike.
inline void readValue(const QJsonValue& json, QDateTime& value)
{
    const QString text = json.toString();
    if (text.size() == 19 && text.at(10) == u' ' && text.at(13) == u':' && text.at(16) == u':') {
        const QDate date = detail::leadingDate(text);
        const int hour = detail::digitsAt(text, 11, 2);
        const int minute = detail::digitsAt(text, 14, 2);
        const int second = detail::digitsAt(text, 17, 2);
        const QTime time =
            hour < 0 || minute < 0 || second < 0 ? QTime() : QTime(hour, minute, second);
        if (date.isValid() && time.isValid()) {
            const QDateTime dateTime(date, time);
            // A local time the clock skips (summer time beginning) is the general parser's.
            if (dateTime.date() == date && dateTime.time() == time) {
                value = dateTime;
                return;
            }
        }
    }
    value = QDateTime::fromString(text, QLatin1String(AnswerDateTimeFormat));
}

inline void readValue(const QJsonValue& json, QDate& value)
{
    const QString text = json.toString();
    const QDate date = text.size() == 10 ? detail::leadingDate(text) : QDate();
    value = date.isValid() ? date : QDate::fromString(text, QLatin1String(AnswerDateFormat));
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
