// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Every public record has a generic JSON form.

#include <vms_sdk/vms_client_sdk.h>

#include "vms_sdk/client/meta_types.h"
#include "vms_sdk/client/record_json.h"
#include "vms_sdk/client/record_types.h"

#include <QDate>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaProperty>
#include <QTime>

#include <gtest/gtest.h>

#include <functional>

using namespace vms_sdk;
namespace rj = vms_sdk::record_json;

namespace {

// Builds records whose every field holds a value of its own: different from the field's
// default and from every other field of the record. A conversion that forgets a field leaves a
// default behind, one that swaps two fields swaps two different values, and either shows up
// when the record is compared after a round trip. Works for any record through its gadget
// properties, so a field added later is covered without touching a test.
class RecordFiller
{
public:
    // Property types are found by name, which needs the records registered first.
    RecordFiller() { vms_sdk::registerRecordMetaTypes(); }

    template<class T>
    T make()
    {
        bool read = false;
        const T record = vms_sdk::record_json::fromJson<T>(objectFor(T::staticMetaObject), &read);
        EXPECT_TRUE(read) << T::staticMetaObject.className()
                          << " has a field of a type the JSON helper cannot read";
        return record;
    }

    QJsonObject objectFor(const QMetaObject& metaObject)
    {
        QJsonObject object;
        for (int i = metaObject.propertyOffset(); i < metaObject.propertyCount(); ++i) {
            const QMetaProperty property = metaObject.property(i);
            object.insert(QString::fromLatin1(property.name()), valueFor(property.userType()));
        }
        return object;
    }

    // The JSON form of a fresh value of the type; undefined for a type the JSON helper cannot
    // hold, which then makes the record's read fail.
    QJsonValue valueFor(int typeId)
    {
        const int n = next++;
        switch (typeId) {
        case QMetaType::Bool:
            return true;
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
            return n;
        case QMetaType::Double:
            return n + 0.25;
        case QMetaType::QString:
            // Beyond Latin-1, so that a conversion that is not UTF-8 throughout shows.
            return QStringLiteral("t%1-\u00e9\u20ac\u4e2d").arg(n);
        case QMetaType::QByteArray:
            return QString::fromLatin1(
                QByteArray(QByteArray("b\0\xff", 3) + QByteArray::number(n)).toBase64());
        case QMetaType::QStringList:
            return QJsonArray{valueFor(QMetaType::QString), valueFor(QMetaType::QString)};
        case QMetaType::QDate:
            return QDate(2020, 1, 1).addDays(n).toString(Qt::ISODate);
        case QMetaType::QTime:
            return dayTime(n).toString(Qt::ISODateWithMs);
        case QMetaType::QDateTime:
            // Noon-ish local times: clear of any daylight-saving gap.
            return QDateTime(QDate(2020, 1, 1).addDays(n), dayTime(n)).toString(Qt::ISODateWithMs);
        default:
            break;
        }
        const QMetaType::TypeFlags flags = QMetaType::typeFlags(typeId);
        if (flags & QMetaType::IsEnumeration)
            return n;
        if (flags & QMetaType::IsGadget)
            return objectFor(*QMetaType::metaObjectForType(typeId));
        const auto container = vms_sdk::record_json::containerInfo(typeId);
        if (container.elementType == QMetaType::UnknownType)
            return QJsonValue(QJsonValue::Undefined);
        if (container.intKeyed) {
            QJsonObject map;
            map.insert(QString::number(n), valueFor(container.elementType));
            map.insert(QString::number(-n), valueFor(container.elementType));
            return map;
        }
        return QJsonArray{valueFor(container.elementType), valueFor(container.elementType)};
    }

private:
    static QTime dayTime(int n) { return QTime(12, n % 60, (n * 7) % 60, (n * 37) % 1000); }

    int next = 1;
};

// Every record survives the trip to JSON text and back with every field set, nested records
// and lists included.
class RecordJsonRoundTrip : public testing::TestWithParam<int>
{};

struct RecordRow
{
    const char* name;
    std::function<void(RecordFiller&)> check;
};

template<class T>
void checkJsonRoundTrip(RecordFiller& filler)
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
    RecordFiller filler;
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

    EXPECT_TRUE(rj::toText(PresetInfo{}).startsWith(QStringLiteral("vms_sdk::PresetInfo {")));
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

} // namespace
