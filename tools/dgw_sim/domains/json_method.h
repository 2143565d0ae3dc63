// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// What the files of the JSON method families share: the call a builder gets, the row that
// names it, and the readers and writers of the values every family uses.

#include "device_time.h"

#include "../device_model.h"
#include "../outcome.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QPair>
#include <QString>

#include <functional>

namespace vms_dgw_sim {

// The target of one method call. `channel` is the channel the request names, or the device's
// first channel for a call about the whole device (channel 0).
struct MethodCall
{
    SimDevice* device;
    SimChannel* channel;
    QJsonObject param;

    qint32 integer(const char* key, qint32 fallback = 0) const
    {
        return param.value(QLatin1String(key)).toInt(fallback);
    }
    QString text(const char* key) const { return param.value(QLatin1String(key)).toString(); }
    bool flag(const char* key) const
    {
        const QJsonValue value = param.value(QLatin1String(key));
        return value.isBool() ? value.toBool() : value.toInt() != 0;
    }
};

// Builds the "result" of a method; sets `outcome` when the device turns the call down.
using ResultBuilder = QJsonObject (*)(MethodCall& call, Outcome* outcome);

struct MethodRow
{
    const char* method;
    ResultBuilder build;
};

using MethodRows = QList<MethodRow>;

// The builder of a method that only does something, and does it.
inline QJsonObject succeed(MethodCall&, Outcome*)
{
    return {};
}

// The rows of each family, one file each. The device's own methods:
MethodRows systemMethods();    // json_system.cpp: network mode, QR code, system, logs, storage
MethodRows mediaMethods();     // json_media.cpp: image, streams, audio, snapshots, calendar, PTZ
MethodRows analyticsMethods(); // json_analytics.cpp: events, alarms, plates, people counting
// The methods of applications on the device, reached through the transparent method:
MethodRows applicationMethods(); // json_faces.cpp: face groups and library, customers, locks

// A small picture of a scene, as a JPEG: what snapshots and heat-map backgrounds show. The
// seed varies its colour.
QByteArray sceneJpeg(int width, int height, quint32 seed);

// Times in JSON methods: "yyyy-MM-dd hh:mm:ss" and "yyyy-MM-dd", with no zone, as devices
// keep them.
inline const QString dateFormat = QStringLiteral("yyyy-MM-dd");

// The device's own clock, in the seconds of device_time.h.
inline qint64 deviceNow(const SimDevice& device)
{
    const QDateTime now = QDateTime::currentDateTime();
    return now.toSecsSinceEpoch() + now.offsetFromUtc() + device.runtime.clockOffsetMs / 1000;
}

// The period a history query names by two date-time keys; fails a call whose times do not
// read or run backwards.
inline Outcome readPeriod(const MethodCall& call, const char* beginKey, const char* endKey,
                          TimeRange* range)
{
    if (parseDeviceTime(call.text(beginKey).toStdString(), &range->begin) &&
        parseDeviceTime(call.text(endKey).toStdString(), &range->end) && range->begin <= range->end)
        return {};
    return {InvalidArgument,
            QStringLiteral("\"%1\" and \"%2\" are yyyy-MM-dd hh:mm:ss, the first not after the "
                           "second")
                .arg(QLatin1String(beginKey), QLatin1String(endKey))};
}

// The moments of a period at which a device that logs one record every `step` seconds logged
// one: multiples of the step, so the same query always finds the same records.
inline QList<qint64> recordTimes(const TimeRange& range, qint64 step, int limit = 100000)
{
    QList<qint64> times;
    qint64 at = alignDown(range.begin, step);
    if (at < range.begin)
        at += step;
    for (; at <= range.end && times.size() < limit; at += step)
        times.append(at);
    return times;
}

// Page `page` (from 1) of `total` records of `size` each, built by `record(i)` for the
// record's place i in the whole list. A page past the end is empty.
inline QJsonArray pageOf(int total, int page, int size,
                         const std::function<QJsonObject(int)>& record)
{
    QJsonArray list;
    if (page < 1 || size < 1)
        return list;
    for (qint64 i = qint64(page - 1) * size; i < total && i < qint64(page) * size; ++i)
        list.append(record(int(i)));
    return list;
}

// A number in 0..range-1 that looks random but is the same for the same moment and salt:
// generated counts and readings vary, and the same query reads the same ones.
inline int scatter(qint64 seconds, int salt, int range)
{
    return int(qHash(QPair<qint64, int>(seconds, salt)) % uint(range));
}

// How busy a place is at a time of day, 0..10: quiet at night, a peak at noon and at six.
inline int busyness(qint64 seconds)
{
    static const int byHour[24] = {0,  0, 0, 0, 0, 1, 2,  4, 6, 7, 7, 8,
                                   10, 8, 7, 7, 8, 9, 10, 8, 6, 4, 2, 1};
    return byHour[((seconds % 86400) + 86400) % 86400 / 3600];
}

// The counting periods ("hour", "day", "week", "month", "quarter", "year"; any other word
// counts by day) that overlap a period, at most `limit` of them.
inline QList<TimeRange> countPeriods(const TimeRange& range, const QString& unit, int limit = 1000)
{
    const QDateTime end = QDateTime::fromSecsSinceEpoch(range.end, Qt::UTC);
    QDateTime at = QDateTime::fromSecsSinceEpoch(range.begin, Qt::UTC);
    const QDate day = at.date();
    if (unit == QLatin1String("hour"))
        at.setTime(QTime(at.time().hour(), 0));
    else if (unit == QLatin1String("week"))
        at = QDateTime(day.addDays(1 - day.dayOfWeek()), QTime(0, 0), Qt::UTC);
    else if (unit == QLatin1String("month"))
        at = QDateTime(QDate(day.year(), day.month(), 1), QTime(0, 0), Qt::UTC);
    else if (unit == QLatin1String("quarter"))
        at = QDateTime(QDate(day.year(), (day.month() - 1) / 3 * 3 + 1, 1), QTime(0, 0), Qt::UTC);
    else if (unit == QLatin1String("year"))
        at = QDateTime(QDate(day.year(), 1, 1), QTime(0, 0), Qt::UTC);
    else
        at = QDateTime(day, QTime(0, 0), Qt::UTC);
    QList<TimeRange> periods;
    while (at <= end && periods.size() < limit) {
        const qint64 start = at.toSecsSinceEpoch();
        if (unit == QLatin1String("hour"))
            at = at.addSecs(3600);
        else if (unit == QLatin1String("week"))
            at = at.addDays(7);
        else if (unit == QLatin1String("month"))
            at = at.addMonths(1);
        else if (unit == QLatin1String("quarter"))
            at = at.addMonths(3);
        else if (unit == QLatin1String("year"))
            at = at.addYears(1);
        else
            at = at.addDays(1);
        periods.append({start, at.toSecsSinceEpoch()});
    }
    return periods;
}

// How many people pass a counting line in a period: some 60 an hour at the busiest, about 700
// a day; `salt` tells apart the lines or regions counted.
inline int visitors(const TimeRange& period, int salt)
{
    const qint64 hours = (period.end - period.begin) / 3600;
    const int base = hours <= 1 ? busyness(period.begin) * 6 : int(hours * 684 / 24);
    return base + scatter(period.begin, salt, base / 5 + 3);
}

} // namespace vms_dgw_sim
