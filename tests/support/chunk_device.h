// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QIODevice>

#include <cstring>

namespace vms_test {

// A sequential device whose bytes arrive when the test feeds them, the way a socket hands
// over what the kernel has so far.
class ChunkDevice : public QIODevice
{
public:
    ChunkDevice() { open(QIODevice::ReadOnly | QIODevice::Unbuffered); }

    void feed(const QByteArray& bytes) { m_pending.append(bytes); }
    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override
    {
        return m_pending.size() + QIODevice::bytesAvailable();
    }

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
        const qint64 n = qMin<qint64>(maxSize, m_pending.size());
        std::memcpy(data, m_pending.constData(), size_t(n));
        m_pending.remove(0, int(n));
        return n;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray m_pending;
};

} // namespace vms_test
