// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The public records and the signal hubs: every signal must cross a queued connection, and
// every record has a generic JSON form.

#include <vms_sdk/vms_client_sdk.h>

#include "support/record_filler.h"
#include "vms_sdk/client/message_signals.h"
#include "vms_sdk/client/record_json.h"
#include "vms_sdk/client/record_types.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QMetaMethod>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <functional>

using namespace vms_sdk;
namespace rj = vms_sdk::record_json;

namespace {

void registerEverything()
{
    ClientSignals::instance();
    MessageSignals::instance();
}

// Every signal of both hubs, emitted through a queued call with default arguments: the
// arguments are copied by the types their names resolve to, so a name registered for the
// wrong type shows here (under the sanitizers as a memory error), and the spy sees each
// argument arrive as the type the signal declares.
TEST(MetaTypeRegistration, EverySignalCrossesAQueuedCall)
{
    registerEverything();
    for (QObject* hub :
         std::initializer_list<QObject*>{ClientSignals::instance(), MessageSignals::instance()}) {
        const QMetaObject* meta = hub->metaObject();
        for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
            const QMetaMethod method = meta->method(i);
            if (method.methodType() != QMetaMethod::Signal)
                continue;
            const QByteArray signature = method.methodSignature();
            QSignalSpy spy(hub, QByteArray("2" + signature).constData());
            ASSERT_TRUE(spy.isValid()) << signature.constData();

            const QByteArrayList typeNames = method.parameterTypes();
            ASSERT_LE(method.parameterCount(), 4) << signature.constData();
            QVariant values[4];
            QGenericArgument args[4];
            for (int p = 0; p < method.parameterCount(); ++p) {
                values[p] = QVariant(method.parameterType(p), nullptr);
                args[p] = QGenericArgument(typeNames.at(p).constData(), values[p].data());
            }
            EXPECT_TRUE(
                method.invoke(hub, Qt::QueuedConnection, args[0], args[1], args[2], args[3]))
                << signature.constData();

            QCoreApplication::processEvents();
            ASSERT_EQ(spy.count(), 1) << signature.constData();
            // A QVariant argument is stored as the value it holds.
            for (int p = 0; p < method.parameterCount(); ++p) {
                if (method.parameterType(p) != QMetaType::QVariant) {
                    EXPECT_EQ(spy.at(0).at(p).userType(), method.parameterType(p))
                        << signature.constData() << " argument " << p;
                }
            }
        }
    }
}

// Every record survives the trip to JSON text and back with every field set, nested records
// and lists included.
class RecordJsonRoundTrip : public testing::TestWithParam<int>
{};

struct RecordRow
{
    const char* name;
    std::function<void(vms_test::RecordFiller&)> check;
};

template<class T>
void checkJsonRoundTrip(vms_test::RecordFiller& filler)
{
    const T original = filler.make<T>();

    // Every property must show in the JSON with a value unlike its default; a property whose
    // type Qt cannot resolve reads as nothing and drops out.
    const QJsonObject json = rj::toJson(original);
    const QJsonObject defaults = rj::toJson(T{});
    const QMetaObject& meta = T::staticMetaObject;
    EXPECT_EQ(json.size(), meta.propertyCount() - meta.propertyOffset());
    for (auto it = json.begin(); it != json.end(); ++it)
        EXPECT_NE(it.value(), defaults.value(it.key())) << it.key().toStdString();

    const QByteArray text = QJsonDocument(json).toJson();
    bool read = false;
    const T back = rj::fromJson<T>(QJsonDocument::fromJson(text).object(), &read);
    EXPECT_TRUE(read);
    EXPECT_EQ(back, original) << text.constData();
}

const std::vector<RecordRow>& recordRows()
{
    static const std::vector<RecordRow> rows = {
#define VMS_RECORD_ROW(Name) {#Name, &checkJsonRoundTrip<Name>},
        VMS_RECORD_TYPES(VMS_RECORD_ROW)
#undef VMS_RECORD_ROW
    };
    return rows;
}

TEST_P(RecordJsonRoundTrip, EveryFieldComesBack)
{
    vms_test::RecordFiller filler;
    recordRows().at(std::size_t(GetParam())).check(filler);
}

INSTANTIATE_TEST_SUITE_P(AllRecords, RecordJsonRoundTrip,
                         testing::Range(0, int(recordRows().size())),
                         [](const testing::TestParamInfo<int>& info) {
                             return std::string(recordRows().at(std::size_t(info.param)).name);
                         });

TEST(RecordJson, ValueForms)
{
    const AlarmInfo alarm{.channelId = {.devId = QStringLiteral("d"), .channelIndex = 2},
                          .attachments = {QByteArray("\x00\x01", 2)},
                          .detail = QByteArray("{}")};
    const QJsonObject json = rj::toJson(alarm);
    EXPECT_EQ(
        json.value(QStringLiteral("channelId")).toObject().value(QStringLiteral("channelIndex")),
        QJsonValue(2));
    EXPECT_EQ(json.value(QStringLiteral("detail")), QJsonValue(QStringLiteral("e30=")));
    EXPECT_EQ(json.value(QStringLiteral("attachments")),
              QJsonValue(QJsonArray{QStringLiteral("AAE=")}));

    const PTZCtrlCondition ptz{.operation = PTZOperationZoomIn, .action = PTZActionStop};
    EXPECT_EQ(rj::toJson(ptz).value(QStringLiteral("operation")),
              QJsonValue(int(PTZOperationZoomIn)));

    const DevInfoFromDgw device{
        .abilityDetails = {{-4, AiAbilityInfo{.name = QStringLiteral("lpr")}}}};
    EXPECT_EQ(rj::toJson(device)
                  .value(QStringLiteral("abilityDetails"))
                  .toObject()
                  .value(QStringLiteral("-4"))
                  .toObject()
                  .value(QStringLiteral("name")),
              QJsonValue(QStringLiteral("lpr")));

    const PlaybackByTimeCondition playback{.startTime =
                                               QDateTime(QDate(2021, 3, 4), QTime(5, 6, 7, 89))};
    EXPECT_EQ(rj::toJson(playback).value(QStringLiteral("startTime")),
              QJsonValue(QStringLiteral("2021-03-04T05:06:07.089")));
}

TEST(RecordJson, ReadingIsLenientAboutMissingKeysAndStrictAboutTypes)
{
    bool ok = false;
    const DevNetInfo partial =
        rj::fromJson<DevNetInfo>(QJsonObject{{QStringLiteral("ip"), QStringLiteral("10.0.0.9")},
                                             {QStringLiteral("unknown"), 1}},
                                 &ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(partial.ip, QStringLiteral("10.0.0.9"));
    EXPECT_EQ(partial.netMode, -1) << "a missing key keeps the field's default";

    const DevNetInfo wrong =
        rj::fromJson<DevNetInfo>(QJsonObject{{QStringLiteral("httpPort"), QStringLiteral("80")},
                                             {QStringLiteral("dns"), QStringLiteral("1.1.1.1")}},
                                 &ok);
    EXPECT_FALSE(ok);
    EXPECT_EQ(wrong.httpPort, 0);
    EXPECT_EQ(wrong.dns, QStringLiteral("1.1.1.1")) << "the fields that fit are still read";

    rj::fromJson<PatrolInfo>(QJsonObject{{QStringLiteral("patrolPresets"), QJsonObject{}}}, &ok);
    EXPECT_FALSE(ok) << "an object where a list belongs";
}

TEST(RecordJson, ListsAndMapsOfRecords)
{
    vms_test::RecordFiller filler;
    const PresetList presets = filler.makeList<PresetInfo>(3);
    bool ok = false;
    EXPECT_EQ(rj::fromJsonValue<PresetList>(rj::toJsonValue(presets), &ok), presets);
    EXPECT_TRUE(ok);

    const EventMap events{{3, filler.makeList<EventInfo>()}, {9, filler.makeList<EventInfo>(1)}};
    EXPECT_EQ(rj::fromJsonValue<EventMap>(rj::toJsonValue(events), &ok), events);
    EXPECT_TRUE(ok);

    EXPECT_TRUE(rj::toText(presets.first()).startsWith(QStringLiteral("vms_sdk::PresetInfo {")));
}

} // namespace
