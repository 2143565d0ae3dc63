// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// The device functions that travel as JSON methods inside the common request.
//
// Every answer is the device's envelope {"method", "error": {"errorcode", "message"},
// "result"}, with the method echoed. Methods of an application on the device arrive wrapped
// in "dev_trans_userparam" (the inner document Base64 in "param"."req_data") and are answered
// wrapped the same way ("result"."resp_data"). What a method returns comes from a row of one
// of the two tables below; a method without a row succeeds with an empty "result", which is
// what a device says to a method that only changes something.

#include "handler.h"

#include "../device_model.h"

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace vms_dgw_sim {
namespace {

using namespace vms_sdk;

const QString transparentMethod = QStringLiteral("dev_trans_userparam");

// The target of one method call. `channel` is null for a call about the whole device
// (channel 0, or a channel the method does not need).
struct MethodCall
{
    SimDevice* device;
    SimChannel* channel;
    QJsonObject param;
};

using ResultBuilder = QJsonObject (*)(MethodCall& call, Outcome* outcome);

struct MethodRow
{
    const char* method;
    ResultBuilder build;
};

QJsonObject emptyResult(MethodCall&, Outcome*)
{
    return {};
}

QJsonObject netInterface(MethodCall& call, Outcome*)
{
    static const char* const names[] = {"eth", "wifi", "_4G", "ppp", "ddns"};
    const qint32 mode = call.device->netMode;
    return {
        {QStringLiteral("iface"), QLatin1String(mode >= 0 && mode < 5 ? names[mode] : names[0])}};
}

QJsonObject qrCode(MethodCall& call, Outcome*)
{
    return {{QStringLiteral("sn_verificationcode"), call.device->sn}};
}

QJsonObject systemInfo(MethodCall& call, Outcome*)
{
    return {{QStringLiteral("bDiscoverable"), true},
            {QStringLiteral("hostname"), call.device->id},
            {QStringLiteral("name"), call.device->name},
            {QStringLiteral("rebootDay"), QStringLiteral("never")},
            {QStringLiteral("rebootHour"), 0},
            {QStringLiteral("syslanguage"), QStringLiteral("English")},
            {QStringLiteral("encryptEn"), false},
            {QStringLiteral("supportedLangs"), QJsonArray{QStringLiteral("English")}}};
}

QJsonObject setSystemInfo(MethodCall& call, Outcome* outcome)
{
    const QString name = call.param.value(QStringLiteral("name")).toString();
    if (name.isEmpty())
        *outcome = {InvalidArgument, QStringLiteral("a device name must not be empty")};
    else
        call.device->name = name;
    return {};
}

QJsonObject faceGroups(MethodCall&, Outcome*)
{
    return {{QStringLiteral("groups"), QJsonArray()}};
}

// The methods the device itself answers. Add a row to give a method its answer.
constexpr MethodRow deviceMethods[] = {
    {"ifconfig_get_inet", netInterface},
    {"dev_get_qrcode", qrCode},
    {"dev_get_info", systemInfo},
    {"dev_set_info", setSystemInfo},
};

// The methods of applications on the device, reached through the transparent method.
constexpr MethodRow applicationMethods[] = {
    {"group_search", faceGroups},
};

template<size_t N>
ResultBuilder builderOf(const MethodRow (&table)[N], const QString& method)
{
    for (const MethodRow& row : table) {
        if (method == QLatin1String(row.method))
            return row.build;
    }
    return emptyResult;
}

QJsonObject envelope(const QString& method, const Outcome& outcome, const QJsonObject& result)
{
    return {{QStringLiteral("method"), method},
            {QStringLiteral("error"),
             QJsonObject{{QStringLiteral("errorcode"), outcome.code},
                         {QStringLiteral("message"),
                          outcome.ok() ? QStringLiteral("success") : outcome.message}}},
            {QStringLiteral("result"), result}};
}

QByteArray documentText(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Indented);
}

// Unwraps an application's method, answers it and wraps the answer.
QJsonObject transparent(MethodCall& call, Outcome* outcome)
{
    const QByteArray inner =
        QByteArray::fromBase64(call.param.value(QStringLiteral("req_data")).toString().toLatin1());
    const QJsonDocument document = QJsonDocument::fromJson(inner);
    if (!document.isObject()) {
        *outcome = {InvalidArgument, QStringLiteral("req_data is not a Base64 JSON object")};
        return {};
    }
    const QString method = document.object().value(QStringLiteral("method")).toString();
    MethodCall innerCall{call.device, call.channel,
                         document.object().value(QStringLiteral("param")).toObject()};
    Outcome innerOutcome;
    const QJsonObject result = builderOf(applicationMethods, method)(innerCall, &innerOutcome);
    const QByteArray answer = documentText(envelope(method, innerOutcome, result));
    return {{QStringLiteral("resp_data"), QString::fromLatin1(answer.toBase64())}};
}

QJsonObject answerDocument(DeviceModel& model, const vms_sdk_proto::CommonReq& request)
{
    const QJsonDocument document =
        QJsonDocument::fromJson(QByteArray::fromStdString(request.req_json()));
    if (!document.isObject())
        return envelope({}, {InvalidArgument, QStringLiteral("the request is not a JSON object")},
                        {});
    const QString method = document.object().value(QStringLiteral("method")).toString();
    SimDevice* device = nullptr;
    SimChannel* channel = nullptr;
    Outcome outcome;
    if (request.channel_id().channel_index() == 0) {
        outcome = model.reach(text(request.channel_id().dev_id()), &device);
    } else {
        outcome = model.reach(request.channel_id(), &device, &channel);
    }
    if (!outcome.ok())
        return envelope(method, outcome, {});
    MethodCall call{device, channel, document.object().value(QStringLiteral("param")).toObject()};
    const ResultBuilder build =
        method == transparentMethod ? transparent : builderOf(deviceMethods, method);
    const QJsonObject result = build(call, &outcome);
    return envelope(method, outcome, outcome.ok() ? result : QJsonObject());
}

void common(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::CommonReq request;
    if (!parsePayload(session, CommonReq, payload, &request))
        return;
    const QJsonObject answer = answerDocument(session.model(), request);
    vms_sdk_proto::CommonRes message;
    message.set_request_id(request.request_id());
    message.set_res_json(documentText(answer).toStdString());
    session.send(CommonRes, serialized(message));
    session.log(QStringLiteral("method \"%1\" on %2: error code %3")
                    .arg(answer.value(QStringLiteral("method")).toString(),
                         channelName(request.channel_id()))
                    .arg(answer.value(QStringLiteral("error"))
                             .toObject()
                             .value(QStringLiteral("errorcode"))
                             .toInt()));
}

} // namespace

QList<HandlerRow> commonHandlers()
{
    return {
        {CommonReq, common},
    };
}

} // namespace vms_dgw_sim
