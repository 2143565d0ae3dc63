// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Frame reassembly from arbitrary pieces. The input's first byte is a seed for the piece
// sizes, the rest is the byte stream. Whatever the pieces, and whether they come from a device
// or from memory, the frames read must be the same as when the whole stream is there at once,
// and never hold more bytes than arrived.
#include "fuzz_support.h"

#include "vms_protocol/frame_codec.h"

#include "support/chunk_device.h"

#include <QList>

#include <cstdlib>

namespace {

QList<vms_sdk::Frame> readAll(const QByteArray& stream, quint32 seed, bool fromMemory,
                              QByteArray* consumed)
{
    vms_test::ChunkDevice device;
    vms_sdk::FrameReader reader;
    QList<vms_sdk::Frame> frames;
    int offset = 0;
    while (offset < stream.size()) {
        // seed 0: everything at once; otherwise pieces of 1 to 32 bytes from a small LCG.
        int piece = int(stream.size()) - offset;
        if (seed != 0) {
            seed = seed * 1103515245u + 12345u;
            piece = qMin(piece, int((seed >> 16) % 32) + 1);
        }
        const QByteArray bytes = stream.mid(offset, piece);
        offset += piece;
        const char* next = bytes.constData();
        qint64 left = bytes.size();
        if (!fromMemory)
            device.feed(bytes);
        vms_sdk::Frame frame;
        while (fromMemory ? reader.read(next, left, frame) : reader.read(device, frame)) {
            frames.append(frame);
            consumed->append(vms_sdk::FrameCodec::encode(frame.type, frame.payload));
            if (frames.size() > 4096)
                return frames;
        }
    }
    return frames;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    vms_fuzz::application();
    const QByteArray stream = vms_fuzz::bytes(data + 1, size - 1);
    QByteArray whole;
    QByteArray pieces;
    QByteArray memory;
    const QList<vms_sdk::Frame> atOnce = readAll(stream, 0, false, &whole);
    const QList<vms_sdk::Frame> inPieces = readAll(stream, quint32(data[0]) + 1, false, &pieces);
    const QList<vms_sdk::Frame> inMemory = readAll(stream, quint32(data[0]) + 1, true, &memory);
    // Re-encoding is exact for type, payload and null payload alike, so equal encodings are
    // equal frames.
    if (atOnce.size() != inPieces.size() || whole != pieces || whole != memory ||
        atOnce.size() != inMemory.size() || whole.size() > stream.size())
        std::abort();
    return 0;
}
