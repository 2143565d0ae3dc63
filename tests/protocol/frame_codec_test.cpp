// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "support/chunk_device.h"
#include "support/frame_limit_rows.h"

#include "vms_protocol/frame_codec.h"

#include <QDataStream>

#include <gtest/gtest.h>

using namespace vms_sdk;
using vms_test::ChunkDevice;

namespace {

// What the gateway writes for a frame: a qint64, a qint8 and a QByteArray, stream version 19.
QByteArray dataStreamFrame(qint8 type, const QByteArray& payload)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(19);
    const qint64 length = (payload.isNull() ? 0 : payload.size()) + 1;
    out << length << type << payload;
    return bytes;
}

QList<Frame> readAll(ChunkDevice& device, FrameReader& reader)
{
    QList<Frame> frames;
    Frame frame;
    while (reader.read(device, frame))
        frames.append(frame);
    return frames;
}

} // namespace

TEST(FrameCodec, EncodesExactlyWhatQDataStreamWrites)
{
    struct Row
    {
        const char* name;
        qint8 type;
        QByteArray payload;
        QByteArray hex;
    };
    const Row rows[] = {
        {"null payload (the hello)", 3, QByteArray(),
         "0000000000000001"
         "03"
         "ffffffff"},
        {"empty payload", 37, QByteArray(""),
         "0000000000000001"
         "25"
         "00000000"},
        {"payload", 20, QByteArray("\x0a\x01x", 3),
         "0000000000000004"
         "14"
         "00000003"
         "0a0178"},
        {"negative type byte", -1, QByteArray("z"),
         "0000000000000002"
         "ff"
         "00000001"
         "7a"},
    };
    for (const Row& row : rows) {
        const QByteArray frame = FrameCodec::encode(row.type, row.payload);
        EXPECT_EQ(frame.toHex(), row.hex) << row.name;
        EXPECT_EQ(frame, dataStreamFrame(row.type, row.payload)) << row.name;
    }
    EXPECT_EQ(FrameCodec::encode(3, QByteArray()).size(), 13);
}

TEST(FrameReader, AFrameSplitAtEveryPositionIsDeliveredWholeOnceAndTheNextIsIntact)
{
    const QByteArray first = FrameCodec::encode(55, QByteArray(40, 'a'));
    const QByteArray second = FrameCodec::encode(56, "next");
    for (int split = 0; split <= first.size(); ++split) {
        ChunkDevice device;
        FrameReader reader;
        device.feed(first.left(split));
        const QList<Frame> early = readAll(device, reader);
        EXPECT_EQ(early.size(), split == first.size() ? 1 : 0) << "split at " << split;
        device.feed(first.mid(split) + second);
        const QList<Frame> late = readAll(device, reader);
        ASSERT_EQ(early.size() + late.size(), 2) << "split at " << split;
        const QList<Frame> all = early + late;
        EXPECT_EQ(all[0].type, 55);
        EXPECT_EQ(all[0].payload, QByteArray(40, 'a'));
        EXPECT_EQ(all[1].type, 56);
        EXPECT_EQ(all[1].payload, "next");
    }
}

TEST(FrameReader, AOneMebibytePayloadInSixtyFourKibibytePieces)
{
    QByteArray payload(1 << 20, Qt::Uninitialized);
    for (int i = 0; i < payload.size(); ++i)
        payload[i] = char(i * 7);
    const QByteArray frame = FrameCodec::encode(102, payload);
    ChunkDevice device;
    FrameReader reader;
    QList<Frame> frames;
    for (int offset = 0; offset < frame.size(); offset += 64 * 1024) {
        device.feed(frame.mid(offset, 64 * 1024));
        frames += readAll(device, reader);
    }
    ASSERT_EQ(frames.size(), 1);
    EXPECT_EQ(frames[0].payload, payload);
}

TEST(FrameReader, RefusesHeadersThatCannotBeOursAndReadsNothingAfterThem)
{
    // Each header is followed by a well-formed frame that must stay unread.
    const QByteArray next = FrameCodec::encode(40, "next");
    for (const vms_test::FrameLimitRow& row : vms_test::frameLimitRows()) {
        ChunkDevice device;
        device.feed(row.bytes + next);
        FrameReader reader(vms_test::SmallFrameLimit);
        const QList<Frame> frames = readAll(device, reader);
        if (!row.failure) {
            ASSERT_EQ(frames.size(), 2) << row.name;
            EXPECT_EQ(frames[0].payload, row.bytes.mid(13)) << row.name;
            EXPECT_EQ(frames[1].payload, "next") << row.name;
            EXPECT_FALSE(reader.failed()) << row.name;
            continue;
        }
        EXPECT_TRUE(frames.isEmpty()) << row.name;
        EXPECT_TRUE(reader.failed()) << row.name;
        EXPECT_EQ(reader.failure(), QLatin1String(row.failure)) << row.name;
        // Only the header was taken, nothing was reserved for the payload, and the reader
        // stays shut however often it is called.
        EXPECT_EQ(device.bytesAvailable(), row.bytes.size() - 13 + next.size()) << row.name;
        EXPECT_LT(reader.bufferCapacity(), 64) << row.name;
        Frame frame;
        EXPECT_FALSE(reader.read(device, frame)) << row.name;
        EXPECT_EQ(device.bytesAvailable(), row.bytes.size() - 13 + next.size()) << row.name;

        // A reset (a new connection) reads frames again under the same limit.
        reader.reset();
        ChunkDevice fresh;
        fresh.feed(next);
        EXPECT_TRUE(reader.read(fresh, frame)) << row.name;
        EXPECT_EQ(reader.maxPayload(), 16);
    }
}

TEST(FrameReader, TheDefaultLimitIsSixtyFourMebibytesAndALargeSizeAllocatesOnlyWhatArrived)
{
    FrameReader reader;
    EXPECT_EQ(reader.maxPayload(), 64 * 1024 * 1024);
    // 64 MiB announced, 1000 bytes sent: the buffer follows the bytes, not the announcement.
    ChunkDevice device;
    device.feed(QByteArray("\0\0\0\0\x04\0\0\x01"
                           "\x66"
                           "\x04\0\0\0",
                           13) +
                QByteArray(1000, 'x'));
    Frame frame;
    EXPECT_FALSE(reader.read(device, frame));
    EXPECT_FALSE(reader.failed());
    EXPECT_EQ(device.bytesAvailable(), 0);
    EXPECT_LE(reader.bufferCapacity(), 64 * 1024);
}

TEST(FrameReader, ARecycledPayloadIsReusedOnlyWhenNobodyKeptItAndItFits)
{
    struct Row
    {
        const char* name;
        bool receiverKeepsIt;
        int nextSize;
        bool reused;
    };
    const Row rows[] = {
        {"dropped, same size", false, 4096, true},
        {"dropped, a little smaller", false, 3000, true},
        {"kept by the receiver", true, 4096, false},
        {"dropped, far smaller", false, 100, false},
        {"dropped, larger", false, 8192, false},
        {"dropped, empty payload", false, 0, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const QByteArray first(4096, 'a');
        const QByteArray second(row.nextSize, 'b');
        ChunkDevice device;
        device.feed(FrameCodec::encode(102, first) + FrameCodec::encode(102, second));
        FrameReader reader;
        Frame frame;
        ASSERT_TRUE(reader.read(device, frame));
        const char* firstBuffer = frame.payload.constData();
        QByteArray kept;
        if (row.receiverKeepsIt)
            kept = frame.payload;
        reader.recycle(frame.payload);
        EXPECT_TRUE(frame.payload.isNull());

        ASSERT_TRUE(reader.read(device, frame));
        EXPECT_EQ(frame.payload, second);
        EXPECT_FALSE(frame.payload.isNull());
        EXPECT_EQ(frame.payload.constData() == firstBuffer, row.reused);
        if (row.receiverKeepsIt) {
            EXPECT_EQ(kept, first);
        }
    }
}

// The message channel reads what its socket holds at once and cuts the frames out of memory;
// whatever the batches' boundaries, the frames come out as from the device, and a piece is
// consumed only as far as its frames go.
TEST(FrameReader, BytesAlreadyInMemoryAreCutIntoTheSameFramesWhereverThePiecesEnd)
{
    const QByteArray three = FrameCodec::encode(21, "answer") + FrameCodec::encode(40, "b") +
                             FrameCodec::encode(3, QByteArray());
    QList<QByteArray> bytewise;
    for (char byte : three)
        bytewise.append(QByteArray(1, byte));
    struct Row
    {
        const char* name;
        QList<QByteArray> pieces;
    };
    const Row rows[] = {
        {"one piece", {three}},
        {"split in the length field", {three.left(5), three.mid(5)}},
        {"split in the size field", {three.left(11), three.mid(11)}},
        {"split in a payload", {three.left(16), three.mid(16)}},
        {"split between frames", {three.left(19), three.mid(19)}},
        {"byte by byte", bytewise},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        FrameReader reader;
        QList<Frame> frames;
        for (const QByteArray& piece : row.pieces) {
            const char* bytes = piece.constData();
            qint64 size = piece.size();
            Frame frame;
            while (reader.read(bytes, size, frame))
                frames.append(frame);
            EXPECT_EQ(size, 0);
            EXPECT_EQ(bytes, piece.constData() + piece.size());
        }
        ASSERT_EQ(frames.size(), 3);
        EXPECT_EQ(frames[0].type, 21);
        EXPECT_EQ(frames[0].payload, "answer");
        EXPECT_EQ(frames[1].type, 40);
        EXPECT_EQ(frames[1].payload, "b");
        EXPECT_EQ(frames[2].type, 3);
        EXPECT_TRUE(frames[2].payload.isNull());
    }

    // A refused header is all a reader takes of a piece.
    for (const vms_test::FrameLimitRow& row : vms_test::frameLimitRows()) {
        if (!row.failure)
            continue;
        FrameReader reader(vms_test::SmallFrameLimit);
        const QByteArray piece = row.bytes + FrameCodec::encode(40, "next");
        const char* bytes = piece.constData();
        qint64 size = piece.size();
        Frame frame;
        EXPECT_FALSE(reader.read(bytes, size, frame)) << row.name;
        EXPECT_FALSE(reader.read(bytes, size, frame)) << row.name;
        EXPECT_TRUE(reader.failed()) << row.name;
        EXPECT_EQ(size, piece.size() - 13) << row.name;
    }
}
