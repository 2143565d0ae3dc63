// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The simulator's cameras as a viewer sees them: every frame that reaches the application
// decodes to one picture of the configured size, key frames can be decoded from on their own,
// and the pictures show something.
#include "support/sim_gateways.h"
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include <QtEndian>

#include <gtest/gtest.h>

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <ostream>

using namespace vms_sdk;

namespace {

// A frame as the simulator's media header describes it.
struct VideoFrame
{
    quint64 sequence = 0;
    qint64 timestamp = 0;
    bool key = false;
    int codec = -1;
    QByteArray body{};
};

VideoFrame readFrame(const QByteArray& payload)
{
    VideoFrame frame;
    if (payload.size() < 64 || !payload.startsWith("VSMF"))
        return frame;
    const char* p = payload.constData();
    frame.sequence = qFromBigEndian<quint64>(p + 8);
    frame.timestamp = qFromBigEndian<qint64>(p + 16);
    frame.key = (p[36] & 1) != 0;
    frame.codec = quint8(p[37]);
    frame.body = payload.mid(64);
    return frame;
}

// The NAL unit types of an Annex B access unit, in order.
QList<int> nalTypes(const QByteArray& unit)
{
    QList<int> types;
    for (int i = 0; i + 3 < unit.size(); ++i) {
        if (unit[i] == 0 && unit[i + 1] == 0 && unit[i + 2] == 1) {
            types.append(unit[i + 3] & 0x1F);
            i += 2;
        }
    }
    return types;
}

// A decoded picture: its size and its planes, without row padding.
struct Picture
{
    int width = 0;
    int height = 0;
    QByteArray planes[3];
};

// libavcodec's H.264 decoder, fed one access unit at a time.
class Decoder
{
public:
    Decoder()
        : m_context(avcodec_alloc_context3(avcodec_find_decoder(AV_CODEC_ID_H264)))
        , m_packet(av_packet_alloc())
        , m_frame(av_frame_alloc())
    {
        m_context->thread_count = 1;
        m_open = avcodec_open2(m_context.get(), m_context->codec, nullptr) >= 0;
    }

    bool open() const { return m_open; }
    // False when the decoder refused the unit.
    bool feed(const QByteArray& unit)
    {
        if (av_new_packet(m_packet.get(), int(unit.size())) < 0)
            return false;
        std::memcpy(m_packet->data, unit.constData(), size_t(unit.size()));
        const bool taken = avcodec_send_packet(m_context.get(), m_packet.get()) >= 0;
        av_packet_unref(m_packet.get());
        receive();
        return taken;
    }
    void flush()
    {
        avcodec_send_packet(m_context.get(), nullptr);
        receive();
    }
    const QList<Picture>& pictures() const { return m_pictures; }

private:
    void receive()
    {
        while (avcodec_receive_frame(m_context.get(), m_frame.get()) >= 0) {
            Picture picture;
            picture.width = m_frame->width;
            picture.height = m_frame->height;
            for (int plane = 0; plane < 3; ++plane) {
                const int shift = plane == 0 ? 0 : 1;
                const int width = m_frame->width >> shift;
                for (int row = 0; row < m_frame->height >> shift; ++row) {
                    picture.planes[plane].append(
                        reinterpret_cast<const char*>(m_frame->data[plane] +
                                                      row * m_frame->linesize[plane]),
                        width);
                }
            }
            m_pictures.append(picture);
            av_frame_unref(m_frame.get());
        }
    }

    template<typename T, void (*release)(T**)>
    struct Free
    {
        void operator()(T* object) const { release(&object); }
    };
    std::unique_ptr<AVCodecContext, Free<AVCodecContext, avcodec_free_context>> m_context;
    std::unique_ptr<AVPacket, Free<AVPacket, av_packet_free>> m_packet;
    std::unique_ptr<AVFrame, Free<AVFrame, av_frame_free>> m_frame;
    bool m_open = false;
    QList<Picture> m_pictures;
};

QList<Picture> decodeAll(const QList<VideoFrame>& frames, int from = 0)
{
    Decoder decoder;
    EXPECT_TRUE(decoder.open());
    for (int i = from; i < frames.size(); ++i)
        EXPECT_TRUE(decoder.feed(frames[i].body)) << "frame " << i;
    decoder.flush();
    return decoder.pictures();
}

// The mean absolute difference of two planes of one size.
double difference(const QByteArray& a, const QByteArray& b)
{
    if (a.size() != b.size() || a.isEmpty())
        return -1;
    qint64 sum = 0;
    for (int i = 0; i < a.size(); ++i)
        sum += std::abs(int(quint8(a[i])) - int(quint8(b[i])));
    return double(sum) / double(a.size());
}

// The rows of a luma plane from `top` to `bottom` (fractions of the height).
QByteArray band(const Picture& picture, double top, double bottom)
{
    const int first = int(picture.height * top);
    const int last = int(picture.height * bottom);
    return picture.planes[0].mid(first * picture.width, (last - first) * picture.width);
}

class StreamVideoTest : public ::testing::Test
{
protected:
    void start(const QByteArray& streams)
    {
        gateways.start(QStringLiteral(VMS_DGW_SIM_PATH),
                       R"({"idleExitMs": 10000, "streams": )" + streams + "}",
                       {DevInfo{.id = "cam-1"}, DevInfo{.id = "cam-2"}}, [this] {
                           auto* out = ClientSignals::instance();
                           QObject::connect(out, &ClientSignals::signalStreamData, &context,
                                            [this](StreamId id, const QByteArray& data) {
                                                frames[id].append(readFrame(data));
                                            });
                           QObject::connect(out, &ClientSignals::signalStreamEventPush, &context,
                                            [this](StreamId id, StreamEvent event) {
                                                events[id].append(int(event));
                                            });
                       });
    }

    void TearDown() override { gateways.stop(); }

    vms_test::SimGateways gateways;
    QObject context;
    std::map<StreamId, QList<VideoFrame>> frames;
    std::map<StreamId, QList<int>> events;
};

const QDateTime playbackStart(QDate(2024, 5, 6), QTime(12, 0));

StreamId playbackByTime(const QString& devId)
{
    return playback_by_time_req(
        {.channelId = {.devId = devId, .channelIndex = 1}, .startTime = playbackStart});
}

const ChannelId cam1{.devId = QStringLiteral("cam-1"), .channelIndex = 1};

struct VideoRow
{
    const char* name;
    const char* streams;
    StreamId (*open)();
    int frames; // a live stream's first frames, or all of a playback
    int width;
    int height;
    qint64 stepMs; // between two time stamps of a playback; 0: live, stamped with the clock
    int keyEvery;  // frames
};

const VideoRow videoRows[] = {
    {"Live320x240At10Fps",
     R"({"frameRate": 10, "keyFrameIntervalMs": 1000, "width": 320, "height": 240,
         "bitRate": 300000})",
     [] { return connect_live_video_req({.channelId = cam1}); }, 15, 320, 240, 0, 10},
    {"PlaybackByTimeDefaultSizeAt25Fps",
     R"({"frameRate": 25, "keyFrameIntervalMs": 400, "playbackMs": 1000})",
     [] { return playbackByTime(QStringLiteral("cam-1")); }, 25, 640, 360, 40, 10},
    {"PlaybackByFile352x288At50Fps",
     R"({"frameRate": 50, "keyFrameIntervalMs": 500, "width": 352, "height": 288,
         "playbackMs": 1000})",
     [] {
         return playback_by_file_req(
             {.channelId = cam1, .fileName = "ch01_20240506120000_20240506130000.mp4"});
     },
     50, 352, 288, 20, 25},
    // As fast as the client reads, stamped as at 25 frames per second.
    {"UnpacedPlaybackByFile",
     R"({"frameRate": 0, "keyFrameIntervalMs": 200, "width": 320, "height": 240,
         "playbackMs": 400})",
     [] { return playback_by_file_req({.channelId = cam1, .fileName = "ch01_a.mp4"}); }, 10, 320,
     240, 40, 5},
};

void PrintTo(const VideoRow& row, std::ostream* out)
{
    *out << row.name;
}

class StreamVideoRowTest : public StreamVideoTest, public ::testing::WithParamInterface<VideoRow>
{};

TEST_P(StreamVideoRowTest, EveryFrameDecodesToOnePictureOfTheConfiguredSize)
{
    const VideoRow& row = GetParam();
    start(row.streams);
    const StreamId id = row.open();
    const bool live = row.stepMs == 0;
    if (live)
        ASSERT_TRUE(vms_test::waitFor([&] { return frames[id].size() >= row.frames; }, 20000));
    else
        ASSERT_TRUE(vms_test::waitFor([&] { return !events[id].isEmpty(); }, 20000));
    disconnect_stream_req(id);
    const QList<VideoFrame> got = frames[id].mid(0, row.frames);
    ASSERT_EQ(got.size(), row.frames);

    QList<int> keys;
    for (int i = 0; i < got.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(got[i].sequence, quint64(i));
        EXPECT_EQ(got[i].codec, 1);
        if (!live && i > 0) {
            EXPECT_EQ(got[i].timestamp - got[i - 1].timestamp, row.stepMs);
        }
        if (got[i].key)
            keys.append(i);
        // A key frame is an IDR and brings its parameter sets; the others are neither.
        const QList<int> types = nalTypes(got[i].body);
        EXPECT_EQ(types.contains(5), got[i].key);
        EXPECT_EQ(types.contains(7) && types.contains(8), got[i].key);
    }
    QList<int> expectedKeys;
    for (int i = 0; i < row.frames; i += row.keyEvery)
        expectedKeys.append(i);
    ASSERT_EQ(keys, expectedKeys);

    const QList<Picture> pictures = decodeAll(got);
    ASSERT_EQ(pictures.size(), row.frames);
    for (const Picture& picture : pictures) {
        ASSERT_EQ(picture.width, row.width);
        ASSERT_EQ(picture.height, row.height);
    }
    // A viewer that joins at the last key frame decodes from there.
    EXPECT_EQ(decodeAll(got, keys.last()).size(), row.frames - keys.last());
}

INSTANTIATE_TEST_SUITE_P(Rows, StreamVideoRowTest, ::testing::ValuesIn(videoRows),
                         [](const ::testing::TestParamInfo<VideoRow>& info) {
                             return std::string(info.param.name);
                         });

TEST_F(StreamVideoTest, CamerasShowPicturesOfTheirOwnThatMove)
{
    // Playbacks by time: pictures of the same media times, whatever the pace of delivery.
    start(R"({"frameRate": 50, "width": 320, "height": 240, "playbackMs": 1000})");
    const StreamId first = playbackByTime(QStringLiteral("cam-1"));
    const StreamId second = playbackByTime(QStringLiteral("cam-2"));
    ASSERT_TRUE(vms_test::waitFor(
        [&] { return !events[first].isEmpty() && !events[second].isEmpty(); }, 20000));
    const QList<Picture> cam1 = decodeAll(frames[first]);
    const QList<Picture> cam2 = decodeAll(frames[second]);
    ASSERT_EQ(cam1.size(), 50);
    ASSERT_EQ(cam2.size(), 50);
    ASSERT_EQ(frames[first][49].timestamp - frames[first][0].timestamp, 980);

    const Picture& picture = cam1.first();
    const auto [darkest, brightest] =
        std::minmax_element(picture.planes[0].cbegin(), picture.planes[0].cend(),
                            [](char a, char b) { return quint8(a) < quint8(b); });
    EXPECT_GT(quint8(*brightest) - quint8(*darkest), 100) << "a uniform picture";
    // Each camera has colours of its own.
    EXPECT_GT(difference(cam1.first().planes[1], cam2.first().planes[1]) +
                  difference(cam1.first().planes[2], cam2.first().planes[2]),
              10);
    // The block in the middle band moves; the text at the top and bottom is not in it.
    EXPECT_GT(difference(band(cam1.first(), 0.35, 0.65), band(cam1.last(), 0.35, 0.65)), 5);
    EXPECT_LT(difference(band(cam1[0], 0.35, 0.65), band(cam1[1], 0.35, 0.65)), 5);
}

TEST_F(StreamVideoTest, ASkipStartsAtAKeyFrame)
{
    // No key frame on the schedule after the first, so the one after the skip is the skip's.
    start(R"({"frameRate": 50, "keyFrameIntervalMs": 3600000, "width": 320, "height": 240,
              "playbackMs": 4000})");
    const StreamId id = playback_by_file_req({.channelId = cam1, .fileName = "ch01_a.mp4"});
    ASSERT_TRUE(vms_test::waitFor([&] { return frames[id].size() >= 3; }, 20000));
    skip_by_offset_time_req(id, 3000);
    ASSERT_TRUE(vms_test::waitFor([&] { return !events[id].isEmpty(); }, 20000));

    const QList<VideoFrame>& got = frames[id];
    QList<int> keys;
    int skippedTo = -1;
    for (int i = 0; i < got.size(); ++i) {
        if (got[i].key)
            keys.append(i);
        if (got[i].timestamp == 3000 && skippedTo < 0)
            skippedTo = i;
    }
    ASSERT_GT(skippedTo, 0);
    EXPECT_EQ(keys, (QList<int>{0, skippedTo}));
    EXPECT_EQ(got.size() - skippedTo, 50);
    EXPECT_EQ(decodeAll(got, skippedTo).size(), 50);
}

} // namespace
