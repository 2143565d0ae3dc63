// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QByteArray>
#include <QString>

#include <array>

namespace vms_dgw_sim {

// How the simulated cameras encode: the "streams" object of the config.
struct MediaConfig
{
    // Frames per second of every stream; 0 sends frames as fast as the client reads them
    // (their time stamps still advance as at the nominal 25 frames per second).
    int frameRate = 25;
    qint64 bitRate = 4000000; // bits per second, key frames included
    int keyFrameIntervalMs = 2000;
    // When non-zero every frame has exactly this many bytes, header included, whatever the bit
    // rate says: frames larger than a pipe buffer, or a fixed load for a benchmark.
    int frameBytes = 0;
    // Length of every recording played back; 0: the device's recording length.
    int playbackMs = 0;
    // Media time between two progress pushes of a playback.
    int progressMs = 1000;
};

// The payload of one media frame (message type 102), all numbers big-endian:
//
//   offset  size  field
//        0     4  magic "VSMF"
//        4     4  header size (64)
//        8     8  sequence number, 0 for the stream's first frame
//       16     8  time stamp in ms (live: capture time since the epoch; playback: media time)
//       24     4  body size (bytes after the header)
//       28     4  stream number, given by the gateway to each stream connection in turn
//       32     4  channel index
//       36     1  flags: bit 0 key frame, bit 1 playback
//       37     3  zero
//       40    24  device id, UTF-8, zero-padded (cut to 24 bytes)
//       64     n  body: byte i is (sequence + i) mod 256
//
// so that a receiver can check order, loss, size and integrity of every frame and tell which
// stream it belongs to.
struct MediaHeader
{
    static constexpr int Size = 64;
    static constexpr char Magic[] = "VSMF";
    static constexpr int DeviceIdBytes = 24;
    enum Flag : quint8 { KeyFrame = 1, Playback = 2 };
};

// The frames of one stream, in order, sized like a camera's: one key frame per key-frame
// interval, KeyFrameWeight times the size of the frames between, together at the bit rate.
class MediaSource
{
public:
    static constexpr int KeyFrameWeight = 8;
    static constexpr int NominalFrameRate = 25;

    MediaSource(const MediaConfig& config, quint32 streamNumber, quint32 channel,
                const QString& devId, bool playback);

    // The next frame, stamped with `timestampMs`.
    QByteArray next(qint64 timestampMs);
    quint64 sequence() const { return m_sequence; }
    // Media time between two frames at normal speed.
    int frameIntervalMs() const { return 1000 / m_frameRate; }

private:
    int m_frameRate;
    int m_framesPerKey;
    int m_keyBytes;
    int m_otherBytes;
    std::array<char, MediaHeader::Size> m_header{};
    // The body of every frame is a window of this, so no frame is filled byte by byte.
    QByteArray m_pattern;
    quint64 m_sequence = 0;
};

} // namespace vms_dgw_sim
