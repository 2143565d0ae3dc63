// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "media_frame.h"

#include <QTest>

// A live H.264 key frame of cam-1, channel 1: sequence 7, time stamp 1700000000000 ms, body
// "ABC", byte by byte as the simulator sends it.
static const QByteArray KeyFrame = QByteArray::fromHex("56534d46"         // magic
                                                       "00000040"         // header size
                                                       "0000000000000007" // sequence
                                                       "0000018bcfe56800" // time stamp
                                                       "00000003"         // body size
                                                       "00000000"         // stream number
                                                       "00000001"         // channel
                                                       "01"
                                                       "01"
                                                       "0000" // flags, codec
                                                       "63616d2d31000000000000000000000000000000"
                                                       "00000000" // device id
                                                       "414243"); // body

class MediaFrameTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void read_data();
    void read();
};

void MediaFrameTest::read_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<quint64>("sequence");
    QTest::addColumn<bool>("keyFrame");
    QTest::addColumn<int>("codec");
    QTest::addColumn<QByteArray>("body");

    const auto patched = [](int offset, const char* hex) {
        QByteArray payload = KeyFrame;
        const QByteArray bytes = QByteArray::fromHex(hex);
        return payload.replace(offset, bytes.size(), bytes);
    };
    QTest::newRow("key frame") << KeyFrame << true << quint64(7) << true << 1 << QByteArray("ABC");
    QTest::newRow("delta frame of the synthetic pattern")
        << patched(36, "0000") << true << quint64(7) << false << 0 << QByteArray("ABC");
    QTest::newRow("sequence above 2^32") << patched(8, "0000000100000002") << true
                                         << quint64(0x100000002) << true << 1 << QByteArray("ABC");
    QTest::newRow("empty body") << patched(24, "00000000").left(64) << true << quint64(7) << true
                                << 1 << QByteArray();
    QTest::newRow("longer header: the body starts after it")
        << patched(4, "00000041").replace(24, 4, QByteArray::fromHex("00000002")) << true
        << quint64(7) << true << 1 << QByteArray("BC");
    // Bad input is refused, never read past.
    QTest::newRow("shorter than a header")
        << KeyFrame.left(63) << false << quint64() << false << 0 << QByteArray();
    QTest::newRow("wrong magic") << patched(0, "56534d47") << false << quint64() << false << 0
                                 << QByteArray();
    QTest::newRow("header size below 64")
        << patched(4, "00000020") << false << quint64() << false << 0 << QByteArray();
    QTest::newRow("header size past the payload")
        << patched(4, "00010000") << false << quint64() << false << 0 << QByteArray();
    QTest::newRow("body size too large")
        << patched(24, "00000004") << false << quint64() << false << 0 << QByteArray();
    QTest::newRow("body size too small")
        << patched(24, "00000002") << false << quint64() << false << 0 << QByteArray();
    QTest::newRow("body size that wraps around")
        << patched(24, "ffffffff") << false << quint64() << false << 0 << QByteArray();
}

void MediaFrameTest::read()
{
    QFETCH(QByteArray, payload);
    QFETCH(bool, valid);
    QString error;
    const std::optional<MediaFrame> frame = MediaFrame::read(payload, &error);
    QCOMPARE(frame.has_value(), valid);
    if (!valid) {
        QVERIFY(!error.isEmpty());
        return;
    }
    QTEST(frame->sequence, "sequence");
    QTEST(frame->keyFrame, "keyFrame");
    QTEST(int(frame->codec), "codec");
    QTEST(QByteArray(frame->body, frame->bodySize), "body");
    QCOMPARE(frame->timeStampMs, Q_INT64_C(1700000000000));
}

QTEST_APPLESS_MAIN(MediaFrameTest)
#include "media_frame_test.moc"
