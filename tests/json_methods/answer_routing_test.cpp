// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The answer of a JSON request goes to whoever made the request: the application's own
// common_req gets the text, the library's requests get their result signal. Requests that
// share an id, answers that come crosswise, late and for the wrong kind of request.
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_kit/vms_kit.h"
#include "vms_sdk/request/message_hamal.h"
#include "vms_sdk/request/request_mgr.h"

#include "vms_message.pb.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace vms_sdk;

namespace {

class AnswerRoutingTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        logPath = vms_test::openTestLog();
        hamal->setSendOperation([](MessageType, const QByteArray&, const QString&) {});
    }
    void TearDown() override
    {
        hamal->requestMgr()->setTimeoutInterval(RequestMgr::DefaultTimeoutMs);
        vms_kit::release_vms_log();
    }

    void answer(const QString& requestId, const char* json)
    {
        vms_sdk_proto::CommonRes message;
        message.set_request_id(requestId.toStdString());
        message.set_res_json(json);
        hamal->slotMessageComing(CommonRes, QByteArray::fromStdString(message.SerializeAsString()));
    }
    void askRaw(const QString& requestId, const char* method)
    {
        hamal->slotCommonReq(requestId, "cam-1", QStringLiteral(R"({"method": "%1"})").arg(method));
    }
    void askQrCode(const QString& requestId)
    {
        hamal->slotGetDevQRCodeReq({.requestId = requestId, .devId = "cam-1"});
    }
    QStringList rawAnswers() const
    {
        QStringList ids;
        for (const QVariantList& args : raw)
            ids.append(args[0].toString() + " " + args[1].toString());
        return ids;
    }
    QStringList qrAnswers() const
    {
        QStringList ids;
        for (const QVariantList& args : qr)
            ids.append(args[0].value<Response>().requestId + " " + args[1].toString());
        return ids;
    }

    QString logPath;
    MessageHamal* hamal = MessageHamal::instance();
    QSignalSpy raw{ClientSignals::instance(), &ClientSignals::signalCommonRes};
    QSignalSpy qr{ClientSignals::instance(), &ClientSignals::signalGetDevQRCodeRes};
};

const char* const qrAnswer =
    R"({"method": "dev_get_qrcode", "error": {"errorcode": 0}, "result": {"sn_verificationcode": "QR"}})";
const char* const diskAnswer =
    R"({"method": "storage_get_info", "error": {"errorcode": 0}, "result": {"disk": []}})";

TEST_F(AnswerRoutingTest, RequestsThatShareAnIdEachGetTheAnswerToTheirMethod)
{
    for (const bool typedFirst : {true, false}) {
        SCOPED_TRACE(typedFirst);
        raw.clear();
        qr.clear();
        askRaw("same", "storage_get_info");
        askQrCode("same");
        answer("same", typedFirst ? qrAnswer : diskAnswer);
        answer("same", typedFirst ? diskAnswer : qrAnswer);
        EXPECT_EQ(qrAnswers(), QStringList{"same QR"});
        EXPECT_EQ(rawAnswers(), QStringList{QStringLiteral("same ") + diskAnswer});
        EXPECT_TRUE(hamal->requestMgr()->kinds("same").isEmpty());
    }
}

TEST_F(AnswerRoutingTest, AnAnswerThatNamesNoneOfTheMethodsGoesToTheOldestRequest)
{
    QSignalSpy failed(ClientSignals::instance(), &ClientSignals::signalCommonRequestFailed);
    askQrCode("odd");
    askRaw("odd", "dev_get_qrcode");
    answer("odd", "not json at all");
    // The typed request is the older one: it fails, as its answer cannot be read.
    EXPECT_EQ(failed.count(), 1);
    EXPECT_TRUE(raw.isEmpty());
    answer("odd", "still not json");
    EXPECT_EQ(rawAnswers(), QStringList{"odd still not json"});
    EXPECT_EQ(failed.count(), 1);
}

TEST_F(AnswerRoutingTest, AnAnswerAfterTheTimeOutIsDropped)
{
    hamal->requestMgr()->setTimeoutInterval(20);
    QSignalSpy timeouts(ClientSignals::instance(), &ClientSignals::signalRequestTimeout);
    askRaw("late", "dev_get_qrcode");
    askQrCode("late-typed");
    ASSERT_TRUE(vms_test::waitFor([&] { return timeouts.count() == 2; }));
    answer("late", qrAnswer);
    answer("late-typed", qrAnswer);
    EXPECT_TRUE(raw.isEmpty());
    EXPECT_TRUE(qr.isEmpty());
    const QStringList lines = vms_test::readLines(logPath);
    EXPECT_EQ(lines.filter("client request time out transparent transmission").size(), 2);
}

TEST_F(AnswerRoutingTest, JsonAndGatewayAnswersDoNotEndEachOthersRequestsOfTheSameId)
{
    hamal->slotGetDevNetReq({.requestId = "net", .devId = "cam-1"});
    askQrCode("json");
    QSignalSpy netAnswers(ClientSignals::instance(), &ClientSignals::signalGetDevNetRes);
    answer("net", qrAnswer);
    vms_sdk_proto::DevNetGetRes net;
    net.set_request_id("json");
    hamal->slotMessageComing(DevNetGetRes, QByteArray::fromStdString(net.SerializeAsString()));
    EXPECT_TRUE(qr.isEmpty());
    EXPECT_TRUE(raw.isEmpty());
    EXPECT_TRUE(netAnswers.isEmpty());
    EXPECT_EQ(hamal->requestMgr()->kinds("net"), QStringList{QString()});
    EXPECT_TRUE(hamal->requestMgr()->removeRequest("net"));
    answer("json", qrAnswer);
    EXPECT_EQ(qrAnswers(), QStringList{"json QR"});
}

} // namespace
