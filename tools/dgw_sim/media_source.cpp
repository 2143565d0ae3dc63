// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "media_source.h"

#include <QtEndian>

#include <cstring>

namespace vms_dgw_sim {

MediaSource::MediaSource(const MediaConfig& config, quint32 streamNumber, quint32 channel,
                         const QString& devId, bool playback)
    : m_frameRate(config.frameRate > 0 ? config.frameRate : NominalFrameRate)
    , m_framesPerKey(qMax(1, int(qint64(config.keyFrameIntervalMs) * m_frameRate / 1000)))
{
    if (config.frameBytes > 0) {
        m_keyBytes = m_otherBytes = qMax(MediaHeader::Size, config.frameBytes);
    } else {
        const qint64 bytesPerKeyInterval = config.bitRate / 8 * m_framesPerKey / m_frameRate;
        const qint64 other = bytesPerKeyInterval / (m_framesPerKey - 1 + KeyFrameWeight);
        m_otherBytes = int(qBound<qint64>(MediaHeader::Size, other, 64 * 1024 * 1024));
        m_keyBytes = int(qMin<qint64>(qint64(m_otherBytes) * KeyFrameWeight, 256 * 1024 * 1024));
    }
    m_pattern.resize(m_keyBytes + 256);
    for (int i = 0; i < m_pattern.size(); ++i)
        m_pattern[i] = char(i & 0xFF);

    char* header = m_header.data();
    std::memcpy(header, MediaHeader::Magic, 4);
    qToBigEndian<quint32>(MediaHeader::Size, header + 4);
    qToBigEndian<quint32>(streamNumber, header + 28);
    qToBigEndian<quint32>(channel, header + 32);
    header[36] = char(playback ? MediaHeader::Playback : 0);
    const QByteArray id = devId.toUtf8().left(MediaHeader::DeviceIdBytes);
    std::memcpy(header + 40, id.constData(), size_t(id.size()));
}

QByteArray MediaSource::next(qint64 timestampMs)
{
    const bool key = keyDue();
    const int body = (key ? m_keyBytes : m_otherBytes) - MediaHeader::Size;
    return frame(timestampMs, key, MediaHeader::Pattern, m_pattern.constData() + m_sequence % 256,
                 body);
}

QByteArray MediaSource::next(qint64 timestampMs, bool key, MediaHeader::Codec codec,
                             const QByteArray& body)
{
    return frame(timestampMs, key, codec, body.constData(), int(body.size()));
}

QByteArray MediaSource::frame(qint64 timestampMs, bool key, MediaHeader::Codec codec,
                              const char* body, int bodySize)
{
    std::array<char, MediaHeader::Size> header = m_header;
    qToBigEndian<quint64>(m_sequence, header.data() + 8);
    qToBigEndian<qint64>(timestampMs, header.data() + 16);
    qToBigEndian<quint32>(quint32(bodySize), header.data() + 24);
    if (key)
        header[36] = char(header[36] | MediaHeader::KeyFrame);
    header[37] = char(codec);
    QByteArray frame;
    frame.reserve(MediaHeader::Size + bodySize);
    frame.append(header.data(), MediaHeader::Size);
    frame.append(body, bodySize);
    ++m_sequence;
    return frame;
}

} // namespace vms_dgw_sim
