// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "video_encoder.h"

#include <QStringList>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/dict.h>
#include <libavutil/error.h>
#include <libavutil/log.h>
}

#include <algorithm>

namespace vms_dgw_sim {
namespace {

constexpr char preferred[] = "libx264";
// An encoder buffers at most this much; beyond it a frame rate that is low would let single
// frames grow to seconds of the bit rate.
constexpr qint64 maxEncoderBitRate = 200000000;

QString averror(int code)
{
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    return QString::fromUtf8(text);
}

bool takesPlanarYuv(const AVCodec* codec)
{
    if (!codec->pix_fmts)
        return true;
    for (const AVPixelFormat* format = codec->pix_fmts; *format != AV_PIX_FMT_NONE; ++format) {
        if (*format == AV_PIX_FMT_YUV420P)
            return true;
    }
    return false;
}

// libx264 first, then every other H.264 encoder that takes planar YUV (hardware encoders that
// want pictures in their own memory do not).
QList<const AVCodec*> candidates()
{
    QList<const AVCodec*> codecs;
    if (const AVCodec* codec = avcodec_find_encoder_by_name(preferred))
        codecs.append(codec);
    void* state = nullptr;
    while (const AVCodec* codec = av_codec_iterate(&state)) {
        if (av_codec_is_encoder(codec) && codec->id == AV_CODEC_ID_H264 &&
            qstrcmp(codec->name, preferred) != 0 && takesPlanarYuv(codec))
            codecs.append(codec);
    }
    return codecs;
}

} // namespace

void VideoEncoder::Free::operator()(AVCodecContext* context) const
{
    avcodec_free_context(&context);
}

void VideoEncoder::Free::operator()(AVFrame* frame) const
{
    av_frame_free(&frame);
}

void VideoEncoder::Free::operator()(AVPacket* packet) const
{
    av_packet_free(&packet);
}

VideoEncoder::~VideoEncoder() = default;

std::unique_ptr<VideoEncoder> VideoEncoder::open(const VideoSettings& settings, QString* report)
{
    // The encoders' own chatter (capabilities, statistics) is no event of the simulator's.
    av_log_set_level(AV_LOG_ERROR);
    const qint64 bitRate = std::min(settings.bitRate, maxEncoderBitRate);
    QStringList failures;
    for (const AVCodec* codec : candidates()) {
        std::unique_ptr<VideoEncoder> encoder(new VideoEncoder);
        encoder->m_context.reset(avcodec_alloc_context3(codec));
        AVCodecContext* context = encoder->m_context.get();
        if (!context)
            continue;
        context->width = settings.width;
        context->height = settings.height;
        context->pix_fmt = AV_PIX_FMT_YUV420P;
        context->time_base = AVRational{1, settings.frameRate};
        context->framerate = AVRational{settings.frameRate, 1};
        context->gop_size = settings.framesPerKey;
        context->max_b_frames = 0;
        context->bit_rate = bitRate;
        // At most a second's worth in the buffer, so no frame outgrows a second of the rate.
        context->rc_max_rate = bitRate;
        context->rc_buffer_size = int(bitRate);
        // Many streams share the simulator's cores; one thread each keeps them fair.
        context->thread_count = 1;

        AVDictionary* options = nullptr;
        if (qstrcmp(codec->name, preferred) == 0) {
            av_dict_set(&options, "preset", "ultrafast", 0);
            av_dict_set(&options, "tune", "zerolatency", 0);
            av_dict_set(&options, "forced-idr", "1", 0);
            // Key frames come when the schedule (or a skip) asks for them, and each brings
            // its parameter sets.
            av_dict_set(&options, "x264-params", "scenecut=0:repeat-headers=1", 0);
        }
        const int opened = avcodec_open2(context, codec, &options);
        av_dict_free(&options);
        if (opened < 0) {
            failures.append(
                QStringLiteral("%1: %2").arg(QLatin1String(codec->name), averror(opened)));
            continue;
        }
        encoder->m_frame.reset(av_frame_alloc());
        encoder->m_packet.reset(av_packet_alloc());
        AVFrame* frame = encoder->m_frame.get();
        if (!frame || !encoder->m_packet) {
            failures.append(QStringLiteral("%1: out of memory").arg(QLatin1String(codec->name)));
            continue;
        }
        frame->format = AV_PIX_FMT_YUV420P;
        frame->width = settings.width;
        frame->height = settings.height;
        const int allocated = av_frame_get_buffer(frame, 0);
        if (allocated < 0) {
            failures.append(
                QStringLiteral("%1: %2").arg(QLatin1String(codec->name), averror(allocated)));
            continue;
        }
        *report =
            QStringLiteral("H.264 by %1, %2x%3 at %4 fps, %5 bit/s, a key frame every %6 frames")
                .arg(QLatin1String(codec->name))
                .arg(settings.width)
                .arg(settings.height)
                .arg(settings.frameRate)
                .arg(bitRate)
                .arg(settings.framesPerKey);
        return encoder;
    }
    *report = failures.isEmpty() ? QStringLiteral("no H.264 encoder is installed")
                                 : QStringLiteral("no H.264 encoder opens (%1)")
                                       .arg(failures.join(QStringLiteral("; ")));
    return nullptr;
}

YuvPlanes VideoEncoder::picture()
{
    AVFrame* frame = m_frame.get();
    // The encoder may still hold the last picture as a reference.
    av_frame_make_writable(frame);
    YuvPlanes planes;
    for (int plane = 0; plane < 3; ++plane) {
        planes.data[plane] = frame->data[plane];
        planes.stride[plane] = frame->linesize[plane];
    }
    planes.width = frame->width;
    planes.height = frame->height;
    return planes;
}

QByteArray VideoEncoder::encode(bool forceKey, bool* key, QString* error)
{
    AVFrame* frame = m_frame.get();
    AVPacket* packet = m_packet.get();
    frame->pts = m_pts++;
    frame->pict_type = forceKey ? AV_PICTURE_TYPE_I : AV_PICTURE_TYPE_NONE;
    int result = avcodec_send_frame(m_context.get(), frame);
    if (result >= 0)
        result = avcodec_receive_packet(m_context.get(), packet);
    if (result == AVERROR(EAGAIN))
        return {};
    if (result < 0) {
        *error = averror(result);
        return {};
    }
    *key = (packet->flags & AV_PKT_FLAG_KEY) != 0;
    QByteArray unit(reinterpret_cast<const char*>(packet->data), packet->size);
    av_packet_unref(packet);
    return unit;
}

} // namespace vms_dgw_sim
