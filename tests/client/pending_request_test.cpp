// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Awaitable requests without a gateway: the test plays the library's side by emitting the
// public signals a gateway's answers would cause, and reads what the request functions hand
// to the library's hub.
#include "support/test_support.h"

#include <vms_sdk/pending_request.h>
#include <vms_sdk/vms_client_sdk.h>

#include "vms_sdk/client/message_signals.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <functional>

using namespace vms_sdk;

namespace {

ClientSignals* out()
{
    return ClientSignals::instance();
}

// QVariant compares records by their operator== only once told to.
const bool comparable = [] {
    QMetaType::registerEqualsComparator<Response>();
    QMetaType::registerEqualsComparator<DevNetInfo>();
    QMetaType::registerEqualsComparator<FileTransferProgress>();
    QMetaType::registerEqualsComparator<ChannelCondition>();
    QMetaType::registerEqualsComparator<PTZCtrlCondition>();
    QMetaType::registerEqualsComparator<DelFacesCondition>();
    return true;
}();

const QString Id = QStringLiteral("r-1");

struct EndingRow
{
    const char* name;
    std::function<PendingRequest*()> send;
    // Emits what ends the request whose id is given.
    std::function<void(const QString& requestId)> end;
    RequestEnd expectedEnd;
    QVariantList expectedArguments;
    int expectedErrorCode = 0;
};

const DevNetInfo NetInfo{.ip = QStringLiteral("10.0.0.7")};

QList<EndingRow> endingRows()
{
    const ChannelCondition presets{.requestId = Id,
                                   .channelId = {.devId = QStringLiteral("cam-1")}};
    // clang-format off
    return {
        {"answer carrying a Response",
         [] { return send<&get_dev_net_req>(DeviceCondition{.requestId = Id, .devId = QStringLiteral("cam-1")}); },
         [](const QString& id) { Q_EMIT out()->signalGetDevNetRes(Response{.requestId = id, .errCode = 7}, NetInfo); },
         RequestAnswered,
         {QVariant::fromValue(Response{.requestId = Id, .errCode = 7}), QVariant::fromValue(NetInfo)}, 7},
        {"answer carrying the id as text",
         [] { return send<&common_req>(Id, QStringLiteral("cam-1"), QStringLiteral(R"({"method": "x"})")); },
         [](const QString& id) { Q_EMIT out()->signalCommonRes(id, QStringLiteral(R"({"result": 1})")); },
         RequestAnswered, {Id, QStringLiteral(R"({"result": 1})")}},
        {"failure",
         [presets] { return send<&get_presets_req>(presets); },
         [](const QString& id) { Q_EMIT out()->signalCommonRequestFailed(id, -61005); },
         RequestFailed, {}, -61005},
        {"transfer: running pushes do not end it, the last one does",
         [] { return send<&upload_file_req>(UploadFileCondition{.requestId = Id}); },
         [](const QString& id) {
             Q_EMIT out()->signalPushFileTransferProgress({.requestId = id, .progress = 50, .status = 0});
             Q_EMIT out()->signalPushFileTransferProgress({.requestId = id, .progress = 100, .status = 1});
         },
         RequestAnswered,
         {QVariant::fromValue(FileTransferProgress{.requestId = Id, .progress = 100, .status = 1})}},
    };
    // clang-format on
}

// Everything that could end the request with this id a second time.
void emitEveryEnding(const QString& id)
{
    Q_EMIT out()->signalGetDevNetRes(Response{.requestId = id}, {});
    Q_EMIT out()->signalCommonRes(id, QString());
    Q_EMIT out()->signalCommonRequestFailed(id, 1);
    Q_EMIT out()->signalRequestTimeout(id, QVariant());
    Q_EMIT out()->signalPushFileTransferProgress({.requestId = id, .status = 2});
}

} // namespace

TEST(PendingRequest, EachEndingFinishesTheRequestOnceWithItsOutcomeThenDeletesIt)
{
    for (const EndingRow& row : endingRows()) {
        SCOPED_TRACE(row.name);
        PendingRequest* pending = row.send();
        ASSERT_NE(pending, nullptr);
        QSignalSpy finished(pending, &PendingRequest::finished);
        QSignalSpy destroyed(pending, &QObject::destroyed);
        const QString id = pending->requestId();
        // Another request's endings leave it alone.
        emitEveryEnding(QStringLiteral("r-other"));
        EXPECT_EQ(finished.count(), 0);

        row.end(id);
        if (finished.isEmpty()) {
            ASSERT_TRUE(finished.wait(2000));
        }
        emitEveryEnding(id);
        Q_EMIT out()->signalPrepareStartDgwSuccess();
        ASSERT_TRUE(destroyed.wait(2000));
        ASSERT_EQ(finished.count(), 1);

        const auto outcome = finished.first().first().value<RequestOutcome>();
        EXPECT_EQ(outcome.requestId, id);
        EXPECT_EQ(outcome.end, row.expectedEnd);
        EXPECT_EQ(outcome.arguments, row.expectedArguments);
        EXPECT_EQ(outcome.errorCode, row.expectedErrorCode);
    }
}

TEST(PendingRequest, AStreamRequestEndsOnItsOwnStreamsFirstDataOrAnEventBeforeIt)
{
    const QByteArray frame("frame");
    for (const bool connects : {true, false}) {
        SCOPED_TRACE(connects ? "data" : "event");
        PendingRequest* pending = send<&connect_live_video_req>(LiveVideoConnCondition{});
        QSignalSpy finished(pending, &PendingRequest::finished);
        bool isNumber = false;
        const StreamId stream = pending->requestId().toULongLong(&isNumber);
        ASSERT_TRUE(isNumber);

        Q_EMIT out()->signalStreamEventPush(stream + 1, StreamEventConnectFailed);
        Q_EMIT out()->signalStreamData(stream + 1, frame);
        Q_EMIT out()->signalCommonRequestFailed(pending->requestId(), 1);
        if (connects)
            Q_EMIT out()->signalStreamData(stream, frame);
        Q_EMIT out()->signalStreamEventPush(stream, StreamEventConnectTimeout);
        Q_EMIT out()->signalStreamData(stream, frame);
        ASSERT_TRUE(finished.wait(2000));
        ASSERT_EQ(finished.count(), 1);
        const auto outcome = finished.first().first().value<RequestOutcome>();
        if (connects) {
            EXPECT_EQ(outcome.end, RequestAnswered);
            const auto [streamId, data] = answer<&connect_live_video_req>(outcome);
            EXPECT_EQ(streamId, stream);
            EXPECT_EQ(data, frame);
        } else {
            EXPECT_EQ(outcome.end, RequestFailed);
            EXPECT_EQ(outcome.errorCode, int(StreamEventConnectTimeout));
        }
    }
}

TEST(PendingRequest, ARequestRefusedWhileItIsSentStillReachesTheCallersConnection)
{
    // The library reports some refusals from inside the request function.
    QObject::connect(MessageSignals::instance(), &MessageSignals::signalGetPresetsReq,
                     [](const ChannelCondition& condition) {
                         Q_EMIT out()->signalCommonRequestFailed(condition.requestId, -1);
                     });
    PendingRequest* pending = send<&get_presets_req>(ChannelCondition{});
    // Finished already, but not yet told: nobody could have connected before.
    EXPECT_TRUE(pending->isFinished());
    QSignalSpy finished(pending, &PendingRequest::finished);
    ASSERT_TRUE(finished.wait(2000));
    EXPECT_EQ(finished.first().first().value<RequestOutcome>().end, RequestFailed);
}

// send_request by name: what reaches the hub, against literal records.

namespace {

// The arguments of the one emission of the hub signal named `signal`, or why there is none.
class HubSpy
{
public:
    explicit HubSpy(const char* signal)
    {
        const QMetaObject& meta = MessageSignals::staticMetaObject;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            if (meta.method(i).name() == signal)
                m_spy = std::make_unique<QSignalSpy>(MessageSignals::instance(), meta.method(i));
        }
    }
    QVariantList arguments() const
    {
        return m_spy && m_spy->count() == 1 ? m_spy->first() : QVariantList{};
    }
    int count() const { return m_spy ? m_spy->count() : -1; }

private:
    std::unique_ptr<QSignalSpy> m_spy;
};

struct ByNameRow
{
    const char* name;
    const char* request;
    QVariantMap arguments;
    const char* hubSignal;
    QVariantList expected;
};

} // namespace

TEST(SendRequest, ConvertsEachArgumentToItsParameterType)
{
    using Map = QVariantMap;
    // clang-format off
    const QList<ByNameRow> rows = {
        {"nested record by dotted names, numbers as text", "get_presets_req",
         Map{{"requestId", "a-1"}, {"channelId.devId", "cam-1"}, {"channelId.channelIndex", "2"}},
         "signalGetPresetsReq",
         {QVariant::fromValue(ChannelCondition{.requestId = "a-1", .channelId = {.devId = "cam-1", .channelIndex = 2}})}},
        {"nested record as a map", "get_presets_req",
         Map{{"requestId", "a-2"}, {"channelId", Map{{"devId", "cam-2"}, {"channelIndex", 3}}}},
         "signalGetPresetsReq",
         {QVariant::fromValue(ChannelCondition{.requestId = "a-2", .channelId = {.devId = "cam-2", .channelIndex = 3}})}},
        {"enumeration by number, fields left out keep their defaults", "PTZ_ctrl_req",
         Map{{"requestId", "a-3"}, {"operation", "3"}, {"speed", 5}},
         "signalPTZCtrlReq",
         {QVariant::fromValue(PTZCtrlCondition{.requestId = "a-3", .operation = PTZOperationRight, .action = PTZActionStart, .speed = 5})}},
        {"plain arguments, date as ISO text", "get_dev_logs_req",
         Map{{"requestId", "a-4"}, {"devId", "nvr-1"}, {"date", "2024-03-01"}},
         "signalGetDevLogsReq", {"a-4", "nvr-1", QDate(2024, 3, 1)}},
        {"stream id and number as text", "skip_by_offset_time_req",
         Map{{"streamId", "12"}, {"offsetTime", "30"}},
         "signalSkipByOffsetTimeReq", {QVariant::fromValue(StreamId(12)), 30u}},
        {"list of records", "del_faces_req",
         Map{{"requestId", "a-6"}, {"items", QVariantList{Map{{"index", 4}, {"groupIds", QVariantList{1, 2}}}, Map{{"index", 9}}}}},
         "signalDelFacesReq",
         {QVariant::fromValue(DelFacesCondition{.requestId = "a-6", .items = {FaceItem{.index = 4, .groupIds = {1, 2}}, FaceItem{.index = 9}}})}},
    };
    // clang-format on
    for (const ByNameRow& row : rows) {
        SCOPED_TRACE(row.name);
        HubSpy hub(row.hubSignal);
        QString error;
        PendingRequest* pending =
            send_request(QString::fromLatin1(row.request), row.arguments, &error);
        ASSERT_NE(pending, nullptr) << error.toStdString();
        EXPECT_EQ(hub.arguments(), row.expected);
    }
}

TEST(SendRequest, GeneratesTheRequestIdWhenNoneIsGiven)
{
    HubSpy hub("signalGetDevNetReq");
    PendingRequest* pending = send_request(QStringLiteral("get_dev_net_req"), {});
    ASSERT_NE(pending, nullptr);
    ASSERT_EQ(hub.count(), 1);
    const auto condition = hub.arguments().value(0).value<DeviceCondition>();
    EXPECT_TRUE(condition.requestId.startsWith(QStringLiteral("vms-")));
    EXPECT_EQ(pending->requestId(), condition.requestId);
    // Each request gets an id of its own.
    EXPECT_NE(send_request(QStringLiteral("get_dev_net_req"), {})->requestId(),
              condition.requestId);
}

TEST(SendRequest, RefusesUnknownNamesAndValuesThatDoNotConvertWithoutSendingAnything)
{
    struct Row
    {
        const char* name;
        const char* request;
        QVariantMap arguments;
        QStringList errorHas;
    };
    // clang-format off
    const QList<Row> rows = {
        {"unknown request", "get_prests_req", {},
         {R"(unknown request "get_prests_req")", "get_presets_req", "common_req"}},
        {"unknown parameter", "get_presets_req", {{"chanelId", "cam-1"}},
         {R"(get_presets_req has no parameter "chanelId")", "requestId, channelId"}},
        {"unknown record behind a dotted name", "get_presets_req", {{"channel.devId", "cam-1"}},
         {R"(no parameter "channel")"}},
        {"date that does not read", "get_dev_logs_req", {{"date", "yesterday"}},
         {R"(parameter "date" takes QDate, not "yesterday")"}},
        {"enumeration by name", "PTZ_ctrl_req", {{"operation", "up"}},
         {R"(parameter "operation" takes vms_sdk::PTZOperation)"}},
        {"number that does not read", "get_presets_req", {{"channelId.channelIndex", "one"}},
         {R"(parameter "channelId" takes vms_sdk::ChannelId)"}},
    };
    // clang-format on
    HubSpy presets("signalGetPresetsReq");
    HubSpy logs("signalGetDevLogsReq");
    HubSpy ptz("signalPTZCtrlReq");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        QString error;
        EXPECT_EQ(send_request(QString::fromLatin1(row.request), row.arguments, &error), nullptr);
        for (const QString& part : row.errorHas)
            EXPECT_TRUE(error.contains(part)) << error.toStdString();
    }
    EXPECT_EQ(presets.count() + logs.count() + ptz.count(), 0);
}
