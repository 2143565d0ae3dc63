// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "media_frame.h"

#include <QtEndian>

namespace {

constexpr int MinHeaderSize = 64;

template<typename T>
T bigEndianAt(const QByteArray& bytes, int offset)
{
    return qFromBigEndian<T>(bytes.constData() + offset);
}

} // namespace

std::optional<MediaFrame> MediaFrame::read(const QByteArray& payload, QString* error)
{
    if (payload.size() < MinHeaderSize || !payload.startsWith("VSMF")) {
        *error = QStringLiteral("not a media frame (%1 bytes)").arg(payload.size());
        return std::nullopt;
    }
    // The size fields come from the network: check them against what arrived before
    // pointing into the payload.
    const quint32 headerSize = bigEndianAt<quint32>(payload, 4);
    const quint32 bodySize = bigEndianAt<quint32>(payload, 24);
    if (headerSize < MinHeaderSize || headerSize > quint32(payload.size()) ||
        bodySize != quint32(payload.size()) - headerSize) {
        *error = QStringLiteral("frame of %1 bytes says header %2, body %3")
                     .arg(payload.size())
                     .arg(headerSize)
                     .arg(bodySize);
        return std::nullopt;
    }
    MediaFrame frame;
    frame.sequence = bigEndianAt<quint64>(payload, 8);
    frame.timeStampMs = bigEndianAt<qint64>(payload, 16);
    frame.keyFrame = quint8(payload.at(36)) & 0x01;
    frame.codec = quint8(payload.at(37));
    frame.body = payload.constData() + headerSize;
    frame.bodySize = int(bodySize);
    return frame;
}
