// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_protocol/frame_codec.h"

#include <QIODevice>
#include <QtEndian>

#include <cstring>

namespace vms_sdk {
namespace {

// Where a reader takes its bytes from: a device, or memory the owner has read already.
struct DeviceSource
{
    QIODevice& device;

    qint64 available() const { return device.bytesAvailable(); }
    qint64 take(char* to, qint64 wanted) { return device.read(to, wanted); }
};

struct MemorySource
{
    const char*& bytes;
    qint64& size;

    qint64 available() const { return size; }
    qint64 take(char* to, qint64 wanted)
    {
        const qint64 n = qMin(wanted, size);
        std::memcpy(to, bytes, size_t(n));
        bytes += n;
        size -= n;
        return n;
    }
};

} // namespace

QByteArray FrameCodec::encode(int type, const QByteArray& payload)
{
    const bool isNull = payload.isNull();
    const qint64 size = isNull ? 0 : payload.size();
    QByteArray frame(HeaderSize + int(size), Qt::Uninitialized);
    char* out = frame.data();
    qToBigEndian<qint64>(size + 1, out);
    out[8] = char(qint8(type));
    qToBigEndian<quint32>(isNull ? NullPayloadSize : quint32(size), out + 9);
    if (size > 0)
        std::memcpy(out + HeaderSize, payload.constData(), size_t(size));
    return frame;
}

FrameReader::FrameReader(qint64 maxPayload)
{
    setMaxPayload(maxPayload);
}

void FrameReader::setMaxPayload(qint64 maxPayload)
{
    m_maxPayload = qBound<qint64>(0, maxPayload, FrameCodec::LargestPayload);
}

void FrameReader::reset()
{
    m_failure.clear();
    m_headerFilled = 0;
    m_pendingLength = 0;
    m_type = 0;
    m_payloadSize = 0;
    m_payloadFilled = 0;
    m_payload = QByteArray();
}

void FrameReader::recycle(QByteArray& payload)
{
    // A receiver that kept the frame shares the buffer: it stays theirs.
    if (payload.isDetached())
        m_spare.swap(payload);
    payload.clear();
}

bool FrameReader::read(QIODevice& device, Frame& frame)
{
    DeviceSource source{device};
    return readFrom(source, frame);
}

bool FrameReader::read(const char*& bytes, qint64& size, Frame& frame)
{
    MemorySource source{bytes, size};
    return readFrom(source, frame);
}

template<class Source>
bool FrameReader::readFrom(Source& source, Frame& frame)
{
    if (failed())
        return false;
    if (m_headerFilled < FrameCodec::HeaderSize && !readHeader(source))
        return false;
    if (!readPayload(source))
        return false;
    frame.type = m_type;
    frame.payload = std::move(m_payload);
    reset();
    return true;
}

template<class Source>
bool FrameReader::readHeader(Source& source)
{
    const qint64 got =
        source.take(m_header + m_headerFilled, FrameCodec::HeaderSize - m_headerFilled);
    if (got > 0)
        m_headerFilled += int(got);
    if (m_headerFilled < FrameCodec::HeaderSize)
        return false;

    m_pendingLength = qFromBigEndian<qint64>(m_header);
    m_type = qint8(m_header[8]);
    const quint32 size = qFromBigEndian<quint32>(m_header + 9);
    // Both fields describe the same payload; when they disagree the bytes are not a frame of
    // ours (or no longer line up with one), and nothing after them can be trusted either.
    const qint64 payloadSize = size == FrameCodec::NullPayloadSize ? 0 : qint64(size);
    if (m_pendingLength != payloadSize + 1) {
        return refuse(QStringLiteral("length %1 does not match payload size %2")
                          .arg(m_pendingLength)
                          .arg(size));
    }
    if (payloadSize > m_maxPayload) {
        return refuse(
            QStringLiteral("payload size %1 over the limit %2").arg(size).arg(m_maxPayload));
    }
    if (size == FrameCodec::NullPayloadSize) {
        m_payloadSize = 0;
        m_payload = QByteArray();
    } else {
        m_payloadSize = size;
        // Not a spare much larger than the payload: a receiver that keeps the frame would keep
        // mostly unused memory.
        if (size > 0 && m_spare.capacity() >= qint64(size) &&
            m_spare.capacity() / 2 <= qint64(size))
            m_payload.swap(m_spare);
        else
            m_payload = QByteArray("");
    }
    m_payloadFilled = 0;
    return true;
}

bool FrameReader::refuse(const QString& why)
{
    m_failure = why;
    return false;
}

template<class Source>
bool FrameReader::readPayload(Source& source)
{
    constexpr qint64 minimumStep = 64 * 1024;
    while (m_payloadFilled < m_payloadSize) {
        const qint64 available = source.available();
        if (available <= 0)
            return false;
        const qint64 wanted = qMin(available, m_payloadSize - m_payloadFilled);
        const qint64 needed = m_payloadFilled + wanted;
        if (m_payload.capacity() < needed) {
            const qint64 grown = qMax(needed, qMax(minimumStep, qint64(m_payload.capacity()) * 2));
            m_payload.reserve(int(qMin(grown, m_payloadSize)));
        }
        m_payload.resize(int(needed));
        const qint64 got = source.take(m_payload.data() + m_payloadFilled, wanted);
        if (got <= 0) {
            m_payload.resize(int(m_payloadFilled));
            return false;
        }
        m_payloadFilled += got;
        if (got < wanted)
            m_payload.resize(int(m_payloadFilled));
    }
    return true;
}

} // namespace vms_sdk
