// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QByteArray>
#include <QString>

namespace vms_cli {

// Counts a stream's frames and bytes, per second and in all. A gap is a jump in the frames'
// sequence numbers where the frames carry the simulator's media header ("VSMF", a big-endian
// sequence number at byte 8); a device's own media is counted without gaps.
class StreamMeter
{
public:
    void add(const QByteArray& frame);
    // The last second (or whatever elapsedMs passed since the last call) as text:
    // "25 frames  25.0 fps  2.00 Mbit/s  gaps 0"; starts the next interval.
    QString takeInterval(qint64 elapsedMs);

    qint64 frames() const { return m_frames; }
    qint64 bytes() const { return m_bytes; }
    qint64 gaps() const { return m_gaps; }

private:
    qint64 m_frames = 0;
    qint64 m_bytes = 0;
    qint64 m_gaps = 0;
    qint64 m_intervalFrames = 0;
    qint64 m_intervalBytes = 0;
    qint64 m_nextSequence = -1;
};

} // namespace vms_cli

#include <vms_sdk/vms_client_sdk.h>

#include <QIODevice>

#include <functional>

namespace vms_cli {

struct StreamReport
{
    qint64 frames = 0;
    qint64 bytes = 0;
    qint64 gaps = 0;
    int progressPushes = 0;
    QList<vms_sdk::StreamEvent> events;
    bool ended = false; // finished, failed or disconnected
};

// Meters one open stream for ms milliseconds (0: until it ends or stop() holds), writing a
// line each second and each event or progress push through `line`, and the media to `sink`
// when there is one.
StreamReport meterStream(vms_sdk::StreamId id, int ms,
                         const std::function<void(const QString&)>& line, QIODevice* sink = nullptr,
                         const std::function<bool()>& stop = {});

} // namespace vms_cli
