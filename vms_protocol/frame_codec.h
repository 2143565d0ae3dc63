// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

class QIODevice;

namespace vms_sdk {

// The frame of the message channel and of every stream socket, both directions:
//
//   offset 0   8 bytes  length        qint64, payload size + 1 (type byte and payload)
//          8   1 byte   type          qint8, the message type
//          9   4 bytes  payload size  quint32, 0xFFFFFFFF for a null payload
//         13   n bytes  payload
//
// All big-endian: exactly what QDataStream (version 19) writes for a qint64, a qint8 and a
// QByteArray. A null payload (hello, exit) and an empty one differ only in the size field.
struct Frame
{
    qint8 type = 0;
    QByteArray payload;
};

namespace FrameCodec {
constexpr int HeaderSize = 13;
constexpr quint32 NullPayloadSize = 0xFFFFFFFF;
// The largest payload a reader accepts unless told otherwise; the biggest media frame is far
// smaller.
constexpr qint64 DefaultMaxPayload = 64 * 1024 * 1024;
// What a QByteArray can hold at most, whatever limit a reader is given.
constexpr qint64 LargestPayload = 0x7fffffff - 64;

QByteArray encode(int type, const QByteArray& payload);
} // namespace FrameCodec

// Reassembles frames from a device that hands them over in arbitrary pieces.
//
// The reader only ever takes what the frame in progress still lacks, so it never consumes a
// byte of the next frame and never hands over a frame that is not complete. The payload is
// sized from its size field and filled straight from the device (one copy); its buffer grows
// with the bytes that actually arrive, so a hostile size field allocates nothing up front.
//
// A header that cannot be a frame of ours (a payload over the limit, a length field that is
// not the payload size + 1) is refused: the reader keeps the reason and reads nothing more
// until it is reset. Whatever follows such a header cannot be trusted to start a frame, so
// the owner is expected to drop the connection.
class FrameReader
{
public:
    explicit FrameReader(qint64 maxPayload = FrameCodec::DefaultMaxPayload);

    // Reads what the current frame still needs. Returns true and fills `frame` once it is
    // complete; returns false while bytes are missing (call again on the next readyRead) and
    // once the reader has refused a header (see failed()).
    bool read(QIODevice& device, Frame& frame);
    // The same from bytes the owner has already taken off its device: consumes from the front
    // of `bytes` what the frame needs. A whole batch read at once and cut here costs one read of
    // the device instead of two per frame.
    bool read(const char*& bytes, qint64& size, Frame& frame);

    // True once a header was refused; why, in a few words, for the owner's log.
    bool failed() const { return !m_failure.isEmpty(); }
    QString failure() const { return m_failure; }

    qint64 maxPayload() const { return m_maxPayload; }
    void setMaxPayload(qint64 maxPayload);
    // What the payload buffer of the frame in progress has reserved so far.
    qint64 bufferCapacity() const { return m_payload.capacity(); }

    // Takes back a payload the caller is done with. When nothing else holds it, its buffer
    // takes a later payload that fits it, so a steady stream fills one buffer over and over
    // instead of having the allocator hand out, and give back to the system, a fresh one for
    // every frame.
    void recycle(QByteArray& payload);

    // The length field of the frame in progress; 0 while it has not been read.
    qint64 pendingLength() const { return m_pendingLength; }
    // Forgets the frame in progress and a refusal; the limit stays.
    void reset();

private:
    template<class Source>
    bool readFrom(Source& source, Frame& frame);
    template<class Source>
    bool readHeader(Source& source);
    template<class Source>
    bool readPayload(Source& source);
    bool refuse(const QString& why);

    qint64 m_maxPayload;
    QString m_failure;
    char m_header[FrameCodec::HeaderSize] = {};
    int m_headerFilled = 0;
    qint64 m_pendingLength = 0;
    qint8 m_type = 0;
    qint64 m_payloadSize = 0;
    qint64 m_payloadFilled = 0;
    QByteArray m_payload;
    QByteArray m_spare;
};

} // namespace vms_sdk
