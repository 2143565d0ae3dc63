// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// The device functions that travel as JSON methods inside the common request.
//
// Every answer is the device's envelope {"method", "error": {"errorcode", "message"},
// "result"}, with the method echoed. Methods of an application on the device arrive wrapped
// in "dev_trans_userparam" (the inner document Base64 in "param"."req_data") and are answered
// wrapped the same way ("result"."resp_data"). What a method returns comes from a row of one
// of the family tables (json_*.cpp); a method without a row succeeds with an empty "result",
// which is what a device says to a method that only changes something.
//
// The method faults of the config replace a well-formed answer by a broken one here, after
// the method has run, so a set still takes effect when its answer is garbled.

#include "handler.h"
#include "json_method.h"

#include "../config.h"

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

#include <QJsonDocument>

#include <optional>

namespace vms_dgw_sim {
namespace {

using namespace vms_sdk;
using Kind = MethodFault::Kind;

const QString transparentMethod = QStringLiteral("dev_trans_userparam");

ResultBuilder builderOf(const MethodRows& rows, const QString& method)
{
    for (const MethodRow& row : rows) {
        if (method == QLatin1String(row.method))
            return row.build;
    }
    return [](MethodCall&, Outcome*) { return QJsonObject(); };
}

const MethodRows& deviceMethods()
{
    static const MethodRows rows = systemMethods() + mediaMethods() + analyticsMethods();
    return rows;
}

const MethodRows& applicationRows()
{
    static const MethodRows rows = applicationMethods();
    return rows;
}

std::optional<MethodFault> faultFor(const Session& session, const QString& method)
{
    for (const MethodFault& fault : session.config().faults.methodFaults) {
        if (fault.method.isEmpty() || fault.method == method)
            return fault;
    }
    return std::nullopt;
}

QJsonObject envelope(const QString& method, const Outcome& outcome, const QJsonObject& result)
{
    return {{QStringLiteral("method"), method},
            {QStringLiteral("error"),
             QJsonObject{{QStringLiteral("errorcode"), outcome.code},
                         {QStringLiteral("message"),
                          outcome.ok() ? QStringLiteral("success") : outcome.message}}},
            {QStringLiteral("result"), outcome.ok() ? result : QJsonObject()}};
}

QByteArray documentText(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Indented);
}

Outcome faultOutcome(const MethodFault& fault)
{
    return {fault.code ? fault.code : InvalidArgument,
            fault.message.isEmpty() ? QStringLiteral("the device refused the call")
                                    : fault.message};
}

// The text of one answer, built by `build` and then garbled by the fault, if any, that is
// about this level's method. Faults about the other level (the transparent wrapper or the
// inner document) are left to it.
QByteArray answerText(const QString& method, const std::optional<MethodFault>& fault,
                      Outcome outcome, const QJsonObject& result)
{
    QString named = method;
    if (fault) {
        switch (fault->kind) {
        case Kind::NotJson:
            return QByteArrayLiteral("{\"method\": \"") + method.toUtf8() + "\", \"error\": {";
        case Kind::NotObject:
            return "[" + documentText(envelope(method, outcome, result)) + "]";
        case Kind::UnknownMethod:
            named = method + QStringLiteral("_unknown");
            break;
        case Kind::WrongCase:
            named = method.toUpper();
            break;
        case Kind::DeviceError:
            outcome = faultOutcome(*fault);
            break;
        case Kind::TransparentError:
        case Kind::InvalidUtf8:
            break;
        }
    }
    return documentText(envelope(named, outcome, result));
}

// Unwraps an application's method, answers it and wraps the answer.
QByteArray transparentAnswer(Session& session, MethodCall& call, Outcome outcome)
{
    const QByteArray inner =
        QByteArray::fromBase64(call.param.value(QStringLiteral("req_data")).toString().toLatin1());
    const QJsonDocument document = QJsonDocument::fromJson(inner);
    if (outcome.ok() && !document.isObject())
        outcome = {InvalidArgument, QStringLiteral("req_data is not a Base64 JSON object")};
    const QString method = document.object().value(QStringLiteral("method")).toString();
    const auto innerFault = faultFor(session, method);
    const auto outerFault = faultFor(session, transparentMethod);
    for (const auto& fault : {innerFault, outerFault}) {
        if (outcome.ok() && fault && fault->kind == Kind::TransparentError)
            outcome = faultOutcome(*fault);
    }
    if (!outcome.ok())
        return answerText(transparentMethod, outerFault, outcome, {});

    MethodCall innerCall{call.device, call.channel,
                         document.object().value(QStringLiteral("param")).toObject()};
    Outcome innerOutcome;
    const QJsonObject result = builderOf(applicationRows(), method)(innerCall, &innerOutcome);
    QByteArray answer = answerText(method, innerFault, innerOutcome, result);
    if (innerFault && innerFault->kind == Kind::InvalidUtf8) {
        // A lone continuation byte and a truncated sequence, inside a string value.
        const int at = answer.indexOf("\"message\": \"") + 12;
        answer.insert(at, "\x80\xc3");
    }
    return answerText(transparentMethod, outerFault, outcome,
                      {{QStringLiteral("resp_data"), QString::fromLatin1(answer.toBase64())}});
}

QByteArray answerDocument(Session& session, const vms_sdk_proto::CommonReq& request,
                          QString* method)
{
    const QJsonDocument document =
        QJsonDocument::fromJson(QByteArray::fromStdString(request.req_json()));
    if (!document.isObject())
        return documentText(envelope(
            {}, {InvalidArgument, QStringLiteral("the request is not a JSON object")}, {}));
    *method = document.object().value(QStringLiteral("method")).toString();
    SimDevice* device = nullptr;
    SimChannel* channel = nullptr;
    Outcome outcome;
    if (request.channel_id().channel_index() == 0) {
        outcome = session.model().reach(text(request.channel_id().dev_id()), &device);
        if (outcome.ok() && device->channels.isEmpty())
            outcome = {NoSuchChannel, QStringLiteral("the device has no channels")};
        else if (outcome.ok())
            channel = &device->channels.first();
    } else {
        outcome = session.model().reach(request.channel_id(), &device, &channel);
    }
    MethodCall call{device, channel, document.object().value(QStringLiteral("param")).toObject()};
    if (*method == transparentMethod)
        return transparentAnswer(session, call, outcome);
    QJsonObject result;
    if (outcome.ok())
        result = builderOf(deviceMethods(), *method)(call, &outcome);
    return answerText(*method, faultFor(session, *method), outcome, result);
}

void common(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::CommonReq request;
    if (!parsePayload(session, CommonReq, payload, &request))
        return;
    QString method;
    const QByteArray answer = answerDocument(session, request, &method);
    vms_sdk_proto::CommonRes message;
    message.set_request_id(request.request_id());
    message.set_res_json(answer.toStdString());
    session.send(CommonRes, serialized(message));
    const QJsonObject error =
        QJsonDocument::fromJson(answer).object().value(QStringLiteral("error")).toObject();
    session.log(QStringLiteral("method \"%1\" on %2: error code %3")
                    .arg(method, channelName(request.channel_id()))
                    .arg(error.value(QStringLiteral("errorcode")).toInt()));
}

} // namespace

QList<HandlerRow> commonHandlers()
{
    return {
        {CommonReq, common},
    };
}

} // namespace vms_dgw_sim
