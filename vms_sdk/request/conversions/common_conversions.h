// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// Public records to wire messages and back. Each domain has its own file; this one holds the
// shared pieces and the shape all of them follow:
//
//   Wire toWire(const Record&)            a record with a wire message of its own
//   Record fromWire(const Wire&)
//   void fillWire(const Cond&, Req&)      a condition into the request message it travels in
//   void fillRecord(const Req&, Cond&)    and back, for the gateway simulator
//
// Every field is copied, in both directions. Text travels as UTF-8, bytes as they are.

#include <vms_sdk/common_records.h>

#include "vms_message.pb.h"

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

#include <string>
#include <utility>

namespace vms_sdk::conversion {

// Most texts on the wire (ids, addresses, names of methods) are plain ASCII; both directions
// take a shortcut for them that skips the general UTF-8 codec and its extra buffer.
QString text(const std::string& utf8);
std::string utf8(const QString& text);

inline QByteArray bytes(const std::string& wire)
{
    return QByteArray(wire.data(), qsizetype(wire.size()));
}

inline std::string wireBytes(const QByteArray& bytes)
{
    return std::string(bytes.constData(), std::size_t(bytes.size()));
}

// A wire message as the payload of a frame, written straight into the payload's own buffer.
// Never null: an empty message is an empty payload, not a missing one.
QByteArray serialized(const google::protobuf::MessageLite& message);

QStringList texts(const google::protobuf::RepeatedPtrField<std::string>& utf8);
void fillTexts(const QStringList& texts, google::protobuf::RepeatedPtrField<std::string>* utf8);
QList<QByteArray> byteArrays(const google::protobuf::RepeatedPtrField<std::string>& wire);
void fillByteArrays(const QList<QByteArray>& bytes,
                    google::protobuf::RepeatedPtrField<std::string>* wire);

// A repeated message field into a list of records and back, one element at a time with the
// given conversion: mapFromWire(res.presets(), [](const auto& p) { return fromWire(p); }).
template<class Message, class Convert>
auto mapFromWire(const google::protobuf::RepeatedPtrField<Message>& items, Convert convert)
{
    QList<std::decay_t<decltype(convert(std::declval<const Message&>()))>> records;
    records.reserve(items.size());
    for (const Message& item : items)
        records.append(convert(item));
    return records;
}

template<class Record, class Message, class Convert>
void mapToWire(const QList<Record>& records, google::protobuf::RepeatedPtrField<Message>* items,
               Convert convert)
{
    items->Clear();
    items->Reserve(int(records.size()));
    for (const Record& record : records)
        *items->Add() = convert(record);
}

vms_sdk_proto::ChannelId toWire(const ChannelId& channel);
ChannelId fromWire(const vms_sdk_proto::ChannelId& channel);

// An answer's head. An answer without an Error part reads as success with no text.
Response fromWire(const vms_sdk_proto::Error& error, const std::string& requestId);
Response fromWire(const vms_sdk_proto::Response& response);
vms_sdk_proto::Response toWire(const Response& response);

// The head of any answer message (error field 1, request_id field 2).
template<class Answer>
Response responseOf(const Answer& answer)
{
    return fromWire(answer.error(), answer.request_id());
}

// Writes the head into an answer message; a success without text leaves the Error part out,
// as the gateway does.
template<class Answer>
void fillResponse(const Response& response, Answer& answer)
{
    answer.set_request_id(utf8(response.requestId));
    if (response.errCode != 0 || !response.errMsg.isEmpty()) {
        answer.mutable_error()->set_code(response.errCode);
        answer.mutable_error()->set_err_msg(utf8(response.errMsg));
    } else {
        answer.clear_error();
    }
}

// DeviceReq and DevNetGetReq have the same two fields.
void fillWire(const DeviceCondition& condition, vms_sdk_proto::DeviceReq& request);
void fillRecord(const vms_sdk_proto::DeviceReq& request, DeviceCondition& condition);
void fillWire(const DeviceCondition& condition, vms_sdk_proto::DevNetGetReq& request);
void fillRecord(const vms_sdk_proto::DevNetGetReq& request, DeviceCondition& condition);

void fillWire(const ChannelCondition& condition, vms_sdk_proto::ChannelReq& request);
void fillRecord(const vms_sdk_proto::ChannelReq& request, ChannelCondition& condition);

// A channel as the push signals name it: device id and channel index.
QPair<QString, int> channelPair(const vms_sdk_proto::ChannelId& channel);

} // namespace vms_sdk::conversion
