// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "meter.h"

#include "video_view.h"

#include <QTextStream>
#include <QTimer>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#else
#include <ctime>
#endif

namespace {

// CPU seconds this process has used so far, user and system.
double cpuSeconds()
{
#ifdef Q_OS_UNIX
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) { return time.tv_sec + time.tv_usec / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
#else
    // The C library's count of the process's CPU time where getrusage is missing.
    return double(std::clock()) / CLOCKS_PER_SEC;
#endif
}

} // namespace

Meter::Meter(QList<VideoView*> views, int seconds, QObject* parent)
    : QObject(parent)
    , m_views(std::move(views))
    , m_seconds(seconds)
{}

Meter::Count Meter::count() const
{
    Count total;
    for (const VideoView* view : m_views) {
        total.decoded += view->decodedFrames();
        total.drawn += view->drawnFrames();
    }
    return total;
}

void Meter::start()
{
    m_start = count();
    m_cpuStart = cpuSeconds();
    m_wall.start();
    QTimer::singleShot(m_seconds * 1000, this, &Meter::report);
}

void Meter::report()
{
    const double wall = m_wall.nsecsElapsed() / 1e9;
    const double cpu = cpuSeconds() - m_cpuStart;
    const Count end = count();
    const double decoded = (end.decoded - m_start.decoded) / wall;
    const double drawn = (end.drawn - m_start.drawn) / wall;
    QTextStream(stdout) << QStringLiteral("measure: %1 views for %2 s: %3 pictures decoded/s "
                                          "(%4 per view), %5 drawn/s, CPU %6 % of one core")
                               .arg(m_views.size())
                               .arg(wall, 0, 'f', 1)
                               .arg(decoded, 0, 'f', 1)
                               .arg(decoded / m_views.size(), 0, 'f', 1)
                               .arg(drawn, 0, 'f', 1)
                               .arg(100 * cpu / wall, 0, 'f', 1)
                        << Qt::endl;
    Q_EMIT finished();
}
