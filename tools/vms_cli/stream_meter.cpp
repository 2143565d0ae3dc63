// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "stream_meter.h"

#include <QtEndian>

namespace vms_cli {

void StreamMeter::add(const QByteArray& frame)
{
    ++m_frames;
    ++m_intervalFrames;
    m_bytes += frame.size();
    m_intervalBytes += frame.size();
    if (frame.size() < 16 || !frame.startsWith("VSMF"))
        return;
    const auto sequence = qint64(qFromBigEndian<quint64>(frame.constData() + 8));
    if (m_nextSequence >= 0 && sequence != m_nextSequence)
        ++m_gaps;
    m_nextSequence = sequence + 1;
}

QString StreamMeter::takeInterval(qint64 elapsedMs)
{
    const double seconds = std::max<qint64>(elapsedMs, 1) / 1000.0;
    const QString text = QStringLiteral("%1 frames  %2 fps  %3 Mbit/s  gaps %4")
                             .arg(m_intervalFrames)
                             .arg(m_intervalFrames / seconds, 0, 'f', 1)
                             .arg(m_intervalBytes * 8 / seconds / 1e6, 0, 'f', 2)
                             .arg(m_gaps);
    m_intervalFrames = 0;
    m_intervalBytes = 0;
    return text;
}

} // namespace vms_cli

#include "event_loop.h"
#include "value_text.h"

#include <QElapsedTimer>
#include <QTimer>

namespace vms_cli {

StreamReport meterStream(vms_sdk::StreamId id, int ms,
                         const std::function<void(const QString&)>& line, QIODevice* sink,
                         const std::function<bool()>& stop)
{
    StreamReport report;
    StreamMeter meter;
    QObject context;
    auto* signals_ = vms_sdk::ClientSignals::instance();
    QObject::connect(signals_, &vms_sdk::ClientSignals::signalStreamData, &context,
                     [&](vms_sdk::StreamId from, const QByteArray& data) {
                         if (from != id)
                             return;
                         meter.add(data);
                         if (sink)
                             sink->write(data);
                     });
    QObject::connect(
        signals_, &vms_sdk::ClientSignals::signalStreamEventPush, &context,
        [&](vms_sdk::StreamId from, vms_sdk::StreamEvent event) {
            if (from != id)
                return;
            report.events.append(event);
            line(QStringLiteral("event %1").arg(scalarText(QVariant::fromValue(event))));
            report.ended = report.ended || event != vms_sdk::StreamEventConnected;
        });
    QObject::connect(signals_, &vms_sdk::ClientSignals::signalPlaybackByFileProgressPush, &context,
                     [&](vms_sdk::StreamId from, unsigned int cur, unsigned int total) {
                         if (from != id)
                             return;
                         ++report.progressPushes;
                         line(QStringLiteral("position %1 of %2 ms").arg(cur).arg(total));
                     });
    QObject::connect(signals_, &vms_sdk::ClientSignals::signalPlaybackByTimeProgressPush, &context,
                     [&](vms_sdk::StreamId from, const QDateTime& time) {
                         if (from != id)
                             return;
                         ++report.progressPushes;
                         line(QStringLiteral("position %1").arg(scalarText(time)));
                     });
    QElapsedTimer clock;
    clock.start();
    qint64 lastTick = 0;
    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, &context, [&] {
        const qint64 now = clock.elapsed();
        line(QStringLiteral("%1 s  %2")
                 .arg(now / 1000.0, 0, 'f', 1)
                 .arg(meter.takeInterval(now - lastTick)));
        lastTick = now;
    });
    tick.start(1000);
    runUntil([&] { return report.ended || (stop && stop()); }, ms > 0 ? ms : INT_MAX);
    report.frames = meter.frames();
    report.bytes = meter.bytes();
    report.gaps = meter.gaps();
    return report;
}

} // namespace vms_cli
