// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "../outcome.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QString>

#include <string>

namespace vms_dgw_sim {

inline const QString deviceTimeFormat = QStringLiteral("yyyy-MM-dd hh:mm:ss");

// Device times carry no zone. They are read and written as they are, counted as if they were
// UTC so that no daylight-saving hour is lost or doubled in a generated series.
inline bool parseDeviceTime(const std::string& text, qint64* seconds)
{
    QDateTime time = QDateTime::fromString(QString::fromStdString(text), deviceTimeFormat);
    if (!time.isValid())
        return false;
    time.setTimeSpec(Qt::UTC);
    *seconds = time.toSecsSinceEpoch();
    return true;
}

inline QString deviceTimeText(qint64 seconds, const QString& format = deviceTimeFormat)
{
    return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).toString(format);
}

// A recording file's name tells its channel and its begin and end times:
// chNN_<begin>_<end>.mp4, times yyyyMMddhhmmss.
inline const QString recordingFileTimeFormat = QStringLiteral("yyyyMMddhhmmss");

inline QString recordingFileName(int channelIndex, qint64 begin, qint64 end)
{
    return QStringLiteral("ch%1_%2_%3.mp4")
        .arg(channelIndex, 2, 10, QLatin1Char('0'))
        .arg(deviceTimeText(begin, recordingFileTimeFormat),
             deviceTimeText(end, recordingFileTimeFormat));
}

// The begin time in a name recordingFileName() wrote; invalid when the name has none.
inline QDateTime recordingFileBegin(const QString& fileName)
{
    static const QRegularExpression pattern(QStringLiteral("_(\\d{14})_\\d{14}\\."));
    const QRegularExpressionMatch match = pattern.match(fileName);
    if (!match.hasMatch())
        return {};
    QDateTime begin = QDateTime::fromString(match.captured(1), recordingFileTimeFormat);
    begin.setTimeSpec(Qt::UTC);
    return begin;
}

// The first multiple of `step` at or before `seconds`.
inline qint64 alignDown(qint64 seconds, qint64 step)
{
    return seconds - ((seconds % step) + step) % step;
}

struct TimeRange
{
    qint64 begin = 0;
    qint64 end = 0;
};

// The begin and end times of a search request.
template<typename Request>
Outcome readTimeRange(const Request& request, TimeRange* range)
{
    if (parseDeviceTime(request.begin_time(), &range->begin) &&
        parseDeviceTime(request.end_time(), &range->end))
        return {};
    return {InvalidArgument, QStringLiteral("times are written yyyy-MM-dd hh:mm:ss")};
}

} // namespace vms_dgw_sim
