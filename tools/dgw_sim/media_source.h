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
    enum class Video { H264, Synthetic };

    // What the frames' bodies carry: a test picture encoded as H.264, or the checkable pattern
    // that costs nothing to make (benchmarks).
    Video video = Video::H264;
    int width = 640; // of the encoded picture, even
    int height = 360;
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

    // A fixed frame size is a load, not a picture: it always takes the pattern.
    bool encodes() const { return video == Video::H264 && frameBytes == 0; }
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
//       37     1  codec: 0 the pattern below, 1 H.264
//       38     2  zero
//       40    24  device id, UTF-8, zero-padded (cut to 24 bytes)
//       64     n  body. Pattern: byte i is (sequence + i) mod 256. H.264: one access unit in
//                 Annex B form, one picture, no B-frames; a key frame is an IDR with SPS and
//                 PPS in front, so that a receiver can start at any key frame
//
// so that a receiver can check order, loss, size and integrity of every frame and tell which
// stream it belongs to.
struct MediaHeader
{
    static constexpr int Size = 64;
    static constexpr char Magic[] = "VSMF";
    static constexpr int DeviceIdBytes = 24;
    enum Flag : quint8 { KeyFrame = 1, Playback = 2 };
    enum Codec : quint8 { Pattern = 0, H264 = 1 };
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

    // The next frame, stamped with `timestampMs`, with the pattern as its body.
    QByteArray next(qint64 timestampMs);
    // The next frame with an encoded picture as its body.
    QByteArray next(qint64 timestampMs, bool key, MediaHeader::Codec codec, const QByteArray& body);
    // Whether the next frame is due to be a key frame.
    bool keyDue() const { return m_sequence % quint64(m_framesPerKey) == 0; }
    quint64 sequence() const { return m_sequence; }
    int frameRate() const { return m_frameRate; }
    int framesPerKey() const { return m_framesPerKey; }
    // Media time between two frames at normal speed.
    int frameIntervalMs() const { return 1000 / m_frameRate; }

private:
    QByteArray frame(qint64 timestampMs, bool key, MediaHeader::Codec codec, const char* body,
                     int bodySize);

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
