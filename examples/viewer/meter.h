// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_VIEWER_METER_H
#define VMS_VIEWER_METER_H

#include <QElapsedTimer>
#include <QList>
#include <QObject>

class VideoView;

// Measures what the views cost: pictures decoded and drawn per second, and the CPU time of
// this process (every thread of it) as a share of one core, over a given time.
class Meter : public QObject
{
    Q_OBJECT
public:
    Meter(QList<VideoView*> views, int seconds, QObject* parent = nullptr);

    void start();

Q_SIGNALS:
    void finished();

private:
    struct Count
    {
        quint64 decoded = 0;
        quint64 drawn = 0;
    };
    Count count() const;
    void report();

    QList<VideoView*> m_views;
    int m_seconds;
    Count m_start;
    double m_cpuStart = 0;
    QElapsedTimer m_wall;
};

#endif // VMS_VIEWER_METER_H
