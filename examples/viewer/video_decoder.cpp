// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "video_decoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/imgutils.h>
#include <libswscale/swscale.h>
}

#include <cstring>

void VideoDecoder::Free::operator()(AVCodecContext* context) const
{
    avcodec_free_context(&context);
}

void VideoDecoder::Free::operator()(AVFrame* frame) const
{
    av_frame_free(&frame);
}

void VideoDecoder::Free::operator()(AVPacket* packet) const
{
    av_packet_free(&packet);
}

void VideoDecoder::Free::operator()(SwsContext* scaler) const
{
    sws_freeContext(scaler);
}

VideoDecoder::VideoDecoder()
{
    const AVCodec* codec = avcodec_find_decoder(AV_CODEC_ID_H264);
    if (!codec) {
        m_error = QStringLiteral("this libavcodec has no H.264 decoder");
        return;
    }
    std::unique_ptr<AVCodecContext, Free> context(avcodec_alloc_context3(codec));
    // Every view decodes on the thread that draws it: one thread per decoder keeps the
    // cost of a view plain to measure and adds no frame of delay.
    context->thread_count = 1;
    context->flags |= AV_CODEC_FLAG_LOW_DELAY;
    if (const int result = avcodec_open2(context.get(), codec, nullptr); result < 0) {
        char text[AV_ERROR_MAX_STRING_SIZE] = {};
        av_strerror(result, text, sizeof text);
        m_error = QStringLiteral("cannot open the H.264 decoder: %1").arg(QString::fromUtf8(text));
        return;
    }
    m_frame.reset(av_frame_alloc());
    m_packet.reset(av_packet_alloc());
    m_context = std::move(context);
}

VideoDecoder::~VideoDecoder() = default;

QImage VideoDecoder::decode(const char* data, int size, QSize target)
{
    if (!isValid() || size <= 0)
        return {};
    // The parser reads a little past the end of the data, so the bytes go into the
    // packet's own padded buffer.
    if (av_new_packet(m_packet.get(), size) < 0)
        return {};
    std::memcpy(m_packet->data, data, size_t(size));
    const int sent = avcodec_send_packet(m_context.get(), m_packet.get());
    av_packet_unref(m_packet.get());
    if (sent < 0)
        return {};
    // Without B-frames every unit gives at most one picture, at once.
    QImage picture;
    while (avcodec_receive_frame(m_context.get(), m_frame.get()) == 0) {
        picture = convert(*m_frame, target);
        av_frame_unref(m_frame.get());
    }
    return picture;
}

QImage VideoDecoder::convert(const AVFrame& frame, QSize target)
{
    m_pictureSize = QSize(frame.width, frame.height);
    const QSize size = m_pictureSize.scaled(target, Qt::KeepAspectRatio).expandedTo(QSize(2, 2));
    m_scaler.reset(sws_getCachedContext(m_scaler.release(), frame.width, frame.height,
                                        AVPixelFormat(frame.format), size.width(), size.height(),
                                        AV_PIX_FMT_RGB32, SWS_BILINEAR, nullptr, nullptr, nullptr));
    if (!m_scaler)
        return {};
    QImage image(size, QImage::Format_RGB32);
    uint8_t* planes[] = {image.bits()};
    const int strides[] = {int(image.bytesPerLine())};
    sws_scale(m_scaler.get(), frame.data, frame.linesize, 0, frame.height, planes, strides);
    return image;
}
