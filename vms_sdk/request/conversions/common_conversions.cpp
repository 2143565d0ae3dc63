// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/request/conversions/common_conversions.h"

#include <cstdint>

namespace vms_sdk::conversion {

namespace {

bool isAscii(const char* bytes, std::size_t size)
{
    for (std::size_t i = 0; i < size; ++i) {
        if (static_cast<unsigned char>(bytes[i]) >= 0x80)
            return false;
    }
    return true;
}

} // namespace

QString text(const std::string& utf8)
{
    // ASCII is Latin-1 as well, and Latin-1 widens without decoding; an empty text costs no
    // allocation that way either.
    if (isAscii(utf8.data(), utf8.size()))
        return QString::fromLatin1(utf8.data(), int(utf8.size()));
    return QString::fromUtf8(utf8.data(), int(utf8.size()));
}

std::string utf8(const QString& text)
{
    const auto size = std::size_t(text.size());
    const QChar* characters = text.constData();
    std::string narrow(size, '\0');
    for (std::size_t i = 0; i < size; ++i) {
        const char16_t unit = characters[i].unicode();
        if (unit >= 0x80)
            return text.toStdString();
        narrow[i] = char(unit);
    }
    return narrow;
}

QByteArray serialized(const google::protobuf::MessageLite& message)
{
    const std::size_t size = message.ByteSizeLong();
    if (size == 0)
        return QByteArray("", 0);
    QByteArray payload(int(size), Qt::Uninitialized);
    message.SerializeWithCachedSizesToArray(reinterpret_cast<std::uint8_t*>(payload.data()));
    return payload;
}

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
