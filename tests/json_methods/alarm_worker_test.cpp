// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The two pushes that become the application's alarms: the devices' own alarms, field by
// field, and the face detections that are alarms.
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_kit/vms_kit.h"
#include "vms_sdk/json_methods/alarm_worker.h"

#include "vms_message.pb.h"

#include <QRegularExpression>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace vms_sdk;

namespace {

class AlarmWorkerTest : public ::testing::Test
{
protected:
    void SetUp() override { logPath = vms_test::openTestLog(); }
    void TearDown() override { vms_kit::release_vms_log(); }

    QStringList logTexts() const
    {
        QStringList texts;
        for (const QString& line : vms_test::readLines(logPath))
            texts.append(line.section(QStringLiteral("]    "), 1));
        return texts;
    }

    QString logPath;
    AlarmWorker worker{nullptr};
    QSignalSpy alarms{ClientSignals::instance(), &ClientSignals::signalCommonAlarmPush};
};

TEST(FaceAlarmRules, TemperatureComesBeforeTheMask)
{
    struct Case
    {
        int temperatureState;
        int maskState;
        QString alarmType; // empty: no alarm
    };
    const Case cases[] = {
        {2, 0, "abnormal_temperature"},
        {3, 0, "abnormal_temperature"},
        {0, 0, ""},
        {1, 0, ""},
        {4, 0, ""},
        {1, 2, "without_mask"},
        {3, 2, "abnormal_temperature"},
        {1, 1, ""},
        {1, 3, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.temperatureState << "/" << c.maskState);
        EXPECT_EQ(AlarmWorker::faceAlarmType(c.temperatureState, c.maskState), c.alarmType);
    }
}

TEST_F(AlarmWorkerTest, AFaceAlarmCarriesItsChannelTimeAndACompactDetail)
{
    const FaceDetectRecordInfo record{.serialNum = "S-1",
                                      .name = "Ann",
                                      .detectTime = "2024-03-01 08:30:00",
                                      .similarity = 88,
                                      .temperature = 38.5,
                                      .temperatureState = 2,
                                      .maskState = 2,
                                      .snapImage = QByteArray("/snap/1.jpg\0\0junk", 17),
                                      .faceImage = "/face/1.jpg"};
    worker.handleFaceDetectAlarm({"cam-2", 3}, record);
    ASSERT_EQ(alarms.count(), 1);
    const AlarmInfo alarm = alarms[0][0].value<AlarmInfo>();
    EXPECT_TRUE(
        QRegularExpression("^\\{[0-9a-f]{8}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{12}\\}$")
            .match(alarm.alarmId)
            .hasMatch())
        << alarm.alarmId.toStdString();
    EXPECT_EQ(alarm.alarmType, "abnormal_temperature");
    EXPECT_EQ(alarm.channelId, (ChannelId{.devId = "cam-2", .channelIndex = 3}));
    EXPECT_EQ(alarm.triggerChannelId, (ChannelId{.devId = "cam-2", .channelIndex = 3}));
    EXPECT_EQ(alarm.alarmTime, "2024-03-01 08:30:00");
    EXPECT_EQ(alarm.detail,
              QByteArray(R"({"faceImage":"/face/1.jpg","name":"Ann","serialNum":"S-1",)"
                         R"("similarity":88,"snapImage":"/snap/1.jpg","temperature":38.5})"));
    EXPECT_TRUE(logTexts().contains("dgw push face detect alarm"));

    // Every alarm has an id of its own; a record that is no alarm gives none.
    worker.handleFaceDetectAlarm({"cam-2", 3}, record);
    worker.handleFaceDetectAlarm({"cam-2", 3}, FaceDetectRecordInfo{.temperatureState = 1});
    ASSERT_EQ(alarms.count(), 2);
    EXPECT_NE(alarms[1][0].value<AlarmInfo>().alarmId, alarm.alarmId);
}

TEST_F(AlarmWorkerTest, ACommonAlarmIsCopiedByItsKindAndAnUnreadableOneDropped)
{
    // The alarm message as the gateway writes it: field numbers 1 to 10.
    const auto wire = [](int kind) {
        vms_sdk_proto::AlarmInfo push;
        push.set_alarm_id("{alarm-7}");
        push.mutable_channel_id()->set_dev_id("nvr-1");
        push.mutable_channel_id()->set_channel_index(2);
        push.mutable_trigger_channel_id()->set_dev_id("nvr-1");
        push.mutable_trigger_channel_id()->set_channel_index(5);
        push.set_trigger_name("door sensor");
        push.set_alarm_time("2024-03-01 08:30:00");
        push.add_attachments("/a/1.jpg");
        push.add_attachments(std::string("\x00\xff", 2));
        push.set_alarm_type("io");
        push.set_attr_8(kind);
        push.set_alarm_name("back door");
        push.set_attr_10(R"({"level":2})");
        return QByteArray::fromStdString(push.SerializeAsString());
    };
    const AlarmInfo common{.alarmId = "{alarm-7}",
                           .channelId = {.devId = "nvr-1", .channelIndex = 2},
                           .alarmTime = "2024-03-01 08:30:00",
                           .attachments = {"/a/1.jpg", QByteArray("\x00\xff", 2)},
                           .alarmType = "io",
                           .detail = R"({"level":2})"};
    AlarmInfo triggered = common;
    triggered.triggerChannelId = {.devId = "nvr-1", .channelIndex = 5};
    triggered.triggerName = "door sensor";
    AlarmInfo named = common;
    named.alarmKind = 1;
    named.alarmName = "back door";
    AlarmInfo unknown = triggered;
    unknown.alarmKind = 7;
    unknown.alarmName = "back door";

    const std::pair<int, AlarmInfo> cases[] = {{0, triggered}, {1, named}, {7, unknown}};
    for (const auto& [kind, expected] : cases) {
        SCOPED_TRACE(kind);
        alarms.clear();
        worker.handleCommonAlarmPush(wire(kind));
        ASSERT_EQ(alarms.count(), 1);
        EXPECT_EQ(alarms[0][0].value<AlarmInfo>(), expected);
    }
    EXPECT_TRUE(logTexts().contains("dgw push common alarm"));

    alarms.clear();
    worker.handleCommonAlarmPush(QByteArray("\xff\xff\xff", 3));
    EXPECT_TRUE(alarms.isEmpty());
    EXPECT_EQ(logTexts().last(), "parse [dgw push common alarm] failure");
}

} // namespace
