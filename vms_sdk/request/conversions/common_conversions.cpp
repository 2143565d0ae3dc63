// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/request/conversions/common_conversions.h"

namespace vms_sdk::conversion {

QStringList texts(const google::protobuf::RepeatedPtrField<std::string>& utf8)
{
    QStringList list;
    list.reserve(utf8.size());
    for (const std::string& item : utf8)
        list.append(text(item));
    return list;
}

void fillTexts(const QStringList& texts, google::protobuf::RepeatedPtrField<std::string>* utf8)
{
    utf8->Clear();
    utf8->Reserve(int(texts.size()));
    for (const QString& item : texts)
        utf8->Add(conversion::utf8(item));
}

QList<QByteArray> byteArrays(const google::protobuf::RepeatedPtrField<std::string>& wire)
{
    QList<QByteArray> list;
    list.reserve(wire.size());
    for (const std::string& item : wire)
        list.append(bytes(item));
    return list;
}

void fillByteArrays(const QList<QByteArray>& bytes,
                    google::protobuf::RepeatedPtrField<std::string>* wire)
{
    wire->Clear();
    wire->Reserve(int(bytes.size()));
    for (const QByteArray& item : bytes)
        wire->Add(wireBytes(item));
}

vms_sdk_proto::ChannelId toWire(const ChannelId& channel)
{
    vms_sdk_proto::ChannelId wire;
    wire.set_dev_id(utf8(channel.devId));
    wire.set_channel_index(channel.channelIndex);
    return wire;
}

ChannelId fromWire(const vms_sdk_proto::ChannelId& channel)
{
    return ChannelId{.devId = text(channel.dev_id()), .channelIndex = channel.channel_index()};
}

Response fromWire(const vms_sdk_proto::Error& error, const std::string& requestId)
{
    return Response{
        .requestId = text(requestId), .errCode = error.code(), .errMsg = text(error.err_msg())};
}

Response fromWire(const vms_sdk_proto::Response& response)
{
    return responseOf(response);
}

vms_sdk_proto::Response toWire(const Response& response)
{
    vms_sdk_proto::Response wire;
    fillResponse(response, wire);
    return wire;
}

void fillWire(const DeviceCondition& condition, vms_sdk_proto::DeviceReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    request.set_dev_id(utf8(condition.devId));
}

void fillRecord(const vms_sdk_proto::DeviceReq& request, DeviceCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.devId = text(request.dev_id());
}

void fillWire(const DeviceCondition& condition, vms_sdk_proto::DevNetGetReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    request.set_dev_id(utf8(condition.devId));
}

void fillRecord(const vms_sdk_proto::DevNetGetReq& request, DeviceCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.devId = text(request.dev_id());
}

void fillWire(const ChannelCondition& condition, vms_sdk_proto::ChannelReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    *request.mutable_channel_id() = toWire(condition.channelId);
}

void fillRecord(const vms_sdk_proto::ChannelReq& request, ChannelCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.channelId = fromWire(request.channel_id());
}

QPair<QString, int> channelPair(const vms_sdk_proto::ChannelId& channel)
{
    return {text(channel.dev_id()), int(channel.channel_index())};
}

} // namespace vms_sdk::conversion
