// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "test_picture.h"

#include <QByteArray>
#include <QString>

#include <memory>

struct AVCodecContext;
struct AVFrame;
struct AVPacket;

namespace vms_dgw_sim {

struct VideoSettings
{
    int width = 0;
    int height = 0;
    int frameRate = 0;
    int framesPerKey = 0;
    qint64 bitRate = 0;
};

// One stream's H.264 encoder: a picture in, one access unit out, in Annex B form. No B-frames,
// so frames leave in the order they came; every key frame is an IDR with the parameter sets in
// front of it, so that a receiver can start at any key frame.
class VideoEncoder
{
public:
    // The first H.264 encoder that opens with these settings: libx264 tuned for low latency
    // when there is one, else any other. Null when none opens; `report` says which one opened
    // or why none did.
    static std::unique_ptr<VideoEncoder> open(const VideoSettings& settings, QString* report);
    ~VideoEncoder();

    // The planes of the next picture, to be drawn before encode().
    YuvPlanes picture();
    // Encodes the picture; `forceKey` makes it an IDR. Empty when the encoder failed (`error`
    // says why) or held the picture back; `key` tells whether the access unit is an IDR.
    QByteArray encode(bool forceKey, bool* key, QString* error);

private:
    struct Free
    {
        void operator()(AVCodecContext* context) const;
        void operator()(AVFrame* frame) const;
        void operator()(AVPacket* packet) const;
    };

    VideoEncoder() = default;

    std::unique_ptr<AVCodecContext, Free> m_context;
    std::unique_ptr<AVFrame, Free> m_frame;
    std::unique_ptr<AVPacket, Free> m_packet;
    qint64 m_pts = 0;
};

} // namespace vms_dgw_sim
