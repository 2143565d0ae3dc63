// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_VIEWER_VIDEO_DECODER_H
#define VMS_VIEWER_VIDEO_DECODER_H

#include <QImage>
#include <QSize>
#include <QString>

#include <memory>

struct AVCodecContext;
struct AVFrame;
struct AVPacket;
struct SwsContext;

// Decodes one H.264 stream, an access unit at a time, into pictures ready to draw. The
// conversion to RGB and the scaling to the view's size are one swscale pass, which costs
// less than converting at full size and letting the painter scale.
class VideoDecoder
{
public:
    VideoDecoder();
    ~VideoDecoder();
    VideoDecoder(const VideoDecoder&) = delete;
    VideoDecoder& operator=(const VideoDecoder&) = delete;

    // False, with error() saying why, when no H.264 decoder could be opened.
    bool isValid() const { return m_context != nullptr; }
    QString error() const { return m_error; }

    // Decodes one access unit (Annex B) and returns its picture scaled to fit `target`
    // (aspect kept), or a null image when the unit gave no picture or did not decode.
    QImage decode(const char* data, int size, QSize target);
    // The size the stream's pictures have, once one has decoded.
    QSize pictureSize() const { return m_pictureSize; }

private:
    QImage convert(const AVFrame& frame, QSize target);

    struct Free
    {
        void operator()(AVCodecContext* context) const;
        void operator()(AVFrame* frame) const;
        void operator()(AVPacket* packet) const;
        void operator()(SwsContext* scaler) const;
    };
    std::unique_ptr<AVCodecContext, Free> m_context;
    std::unique_ptr<AVFrame, Free> m_frame;
    std::unique_ptr<AVPacket, Free> m_packet;
    std::unique_ptr<SwsContext, Free> m_scaler;
    QSize m_pictureSize;
    QString m_error;
};

#endif // VMS_VIEWER_VIDEO_DECODER_H
