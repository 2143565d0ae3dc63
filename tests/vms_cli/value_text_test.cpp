// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The command line's own pieces: the generic printer of records, the option reader and the
// stream meter.
#include "cli_options.h"
#include "stream_meter.h"
#include "value_text.h"

#include <vms_sdk/vms_client_sdk.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>

#include <gtest/gtest.h>

using namespace vms_cli;

namespace {

class ValueTextTest : public ::testing::Test
{
protected:
    // The library registers the record and list types the printer goes through.
    void SetUp() override { vms_sdk::init_vms_client_sdk(); }
};

const vms_sdk::PresetOperCondition presetCall{
    .requestId = QStringLiteral("r-1"),
    .channelId = {.devId = QStringLiteral("cam-2"), .channelIndex = 1},
    .presetNum = 4,
    .presetName = QString(),
    .operation = vms_sdk::PresetOperCall,
};

const QList<vms_sdk::PresetInfo> presets{{.presetNum = 1, .presetName = QStringLiteral("Door")},
                                         {.presetNum = 2, .presetName = QStringLiteral("Desk")},
                                         {.presetNum = 3, .presetName = QStringLiteral("Lifts")}};

TEST_F(ValueTextTest, PrintsAnyValueThroughItsType)
{
    struct Row
    {
        const char* name;
        QString label;
        QVariant value;
        int maxItems;
        QStringList lines;
    };
    const Row rows[] = {
        {"a record by its properties, nested ones indented, enums by key",
         QStringLiteral("condition"),
         QVariant::fromValue(presetCall),
         -1,
         {"condition:", "  requestId: r-1", "  channelId:", "    devId: cam-2",
          "    channelIndex: 1", "  presetNum: 4", "  presetName: \"\"",
          "  operation: PresetOperCall"}},
        {"a list cut after maxItems",
         QStringLiteral("presets"),
         QVariant::fromValue(presets),
         1,
         {"presets: (3)", "  [0]:", "    presetNum: 1", "    presetName: Door", "  ... 2 more"}},
        {"an enum value without a key stays a number",
         QStringLiteral("event"),
         QVariant::fromValue(vms_sdk::StreamEvent(17)),
         -1,
         {"event: 17"}},
        {"bytes by their size",
         QStringLiteral("data"),
         QVariant(QByteArray(5, 'x')),
         -1,
         {"data: <5 bytes>"}},
        {"a date-time to the millisecond",
         QStringLiteral("at"),
         QVariant(QDateTime(QDate(2024, 3, 1), QTime(8, 5, 9, 7))),
         -1,
         {"at: 2024-03-01 08:05:09.007"}},
        {"a map of records by key",
         QStringLiteral("abilities"),
         QVariant::fromValue(QMap<int, vms_sdk::AiAbilityInfo>{
             {3, vms_sdk::AiAbilityInfo{.package = QStringLiteral("people_count")}}}),
         -1,
         {"abilities: {1}", "  3:", "    package: people_count", "    version: 0", "    name: \"\"",
          "    status: 0", "    enabled: false"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(valueLines(row.label, row.value, row.maxItems), row.lines);
    }
}

TEST_F(ValueTextTest, WritesJsonAndPicksByPath)
{
    const QByteArray json = QJsonDocument(valueJson(QVariant::fromValue(presetCall)).toObject())
                                .toJson(QJsonDocument::Compact);
    EXPECT_EQ(json,
              R"({"channelId":{"channelIndex":1,"devId":"cam-2"},"operation":"PresetOperCall",)"
              R"("presetName":"","presetNum":4,"requestId":"r-1"})");
    EXPECT_EQ(valueJson(QVariant(QByteArray("hi!"))).toString(), QStringLiteral("aGkh"));

    struct Row
    {
        const char* path;
        QVariant expected; // invalid: nothing there
    };
    const QVariantMap answer{{QStringLiteral("presets"), QVariant::fromValue(presets)}};
    const Row rows[] = {
        {"presets.1.presetName", QStringLiteral("Desk")},
        {"presets.3.presetNum", {}},
        {"presets.x", {}},
        {"presets.0.nothing", {}},
        {"response", {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.path);
        EXPECT_EQ(pick(answer, QLatin1String(row.path)), row.expected);
    }
}

TEST(CliOptions, ReadsOptionsAnywhereAndRefusesWhatItDoesNotKnow)
{
    struct Row
    {
        QStringList args;
        bool ok;
        QString command;
        QStringList arguments;
        QString gateway;
        bool json;
        double seconds;
        QString error;
    };
    const Row rows[] = {
        {{"call", "get_presets_req", "channelId.devId=cam-2", "--json"},
         true,
         "call",
         {"get_presets_req", "channelId.devId=cam-2"},
         {},
         true,
         0,
         {}},
        {{"--gateway", "/opt/dgw", "watch", "--seconds=2.5"},
         true,
         "watch",
         {},
         "/opt/dgw",
         false,
         2.5,
         {}},
        {{"--gateway=/x", "demo"}, true, "demo", {}, "/x", false, 0, {}},
        {{"demo", "--seconds", "-1"}, false, {}, {}, {}, false, 0, "--seconds: bad value -1"},
        {{"demo", "--gateway"}, false, {}, {}, {}, false, 0, "--gateway needs a value"},
        {{"--json"}, false, {}, {}, {}, false, 0, "no command"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.args.join(QLatin1Char(' ')).toStdString());
        Options options;
        QString error;
        ASSERT_EQ(parseOptions(row.args, &options, &error), row.ok);
        if (!row.ok) {
            EXPECT_EQ(error, row.error);
            continue;
        }
        EXPECT_EQ(options.command, row.command);
        EXPECT_EQ(options.arguments, row.arguments);
        EXPECT_EQ(options.gateway, row.gateway);
        EXPECT_EQ(options.json, row.json);
        EXPECT_EQ(options.seconds, row.seconds);
    }
}

QByteArray mediaFrame(quint64 sequence, int size = 80)
{
    QByteArray frame(size, '\0');
    frame.replace(0, 4, "VSMF");
    qToBigEndian<quint64>(sequence, frame.data() + 8);
    return frame;
}

TEST(StreamMeter, CountsFramesBytesAndJumpsInTheSequence)
{
    struct Row
    {
        const char* name;
        QList<QByteArray> frames;
        qint64 gaps;
    };
    const Row rows[] = {
        {"one lost", {mediaFrame(0), mediaFrame(2), mediaFrame(3)}, 1},
        {"two runs lost", {mediaFrame(5), mediaFrame(9), mediaFrame(10), mediaFrame(20)}, 2},
        {"a repeat is a jump too", {mediaFrame(0), mediaFrame(0)}, 1},
        {"a device's own media has no sequence", {QByteArray(80, 'a'), QByteArray(90, 'b')}, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        StreamMeter meter;
        qint64 bytes = 0;
        for (const QByteArray& frame : row.frames) {
            meter.add(frame);
            bytes += frame.size();
        }
        EXPECT_EQ(meter.frames(), row.frames.size());
        EXPECT_EQ(meter.bytes(), bytes);
        EXPECT_EQ(meter.gaps(), row.gaps);
    }
    StreamMeter meter;
    for (int i = 0; i < 25; ++i)
        meter.add(mediaFrame(quint64(i), 10000));
    EXPECT_EQ(meter.takeInterval(1000), QStringLiteral("25 frames  25.0 fps  2.00 Mbit/s  gaps 0"));
    EXPECT_EQ(meter.takeInterval(1000), QStringLiteral("0 frames  0.0 fps  0.00 Mbit/s  gaps 0"));
}

} // namespace
