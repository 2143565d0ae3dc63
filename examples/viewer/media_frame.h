// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_VIEWER_MEDIA_FRAME_H
#define VMS_VIEWER_MEDIA_FRAME_H

#include <QByteArray>
#include <QString>

#include <optional>

// One media frame of the simulator's streams, as signalStreamData hands it over: a 64-byte
// header, all numbers big-endian, then the body.
//
//   0 "VSMF"  4 header size  8 sequence  16 time stamp (ms)  24 body size  28 stream number
//   32 channel  36 flags (bit 0 key frame, bit 1 playback)  37 codec  40 device id (24 bytes)
//
// A real gateway carries its device's own media here; this is what the bundled simulator sends.
struct MediaFrame
{
    enum Codec : quint8 { Synthetic = 0, H264 = 1 };

    quint64 sequence = 0;
    qint64 timeStampMs = 0;
    bool keyFrame = false;
    quint8 codec = Synthetic;
    // Points into the payload it was read from, which must outlive it.
    const char* body = nullptr;
    int bodySize = 0;

    // The frame in `payload`, or nothing with `error` saying what is wrong with it.
    static std::optional<MediaFrame> read(const QByteArray& payload, QString* error);
};

#endif // VMS_VIEWER_MEDIA_FRAME_H
