// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "faults.h"

#include "vms_message.pb.h"

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/wire_format_lite.h>

#include <utility>

namespace vms_dgw_sim {
namespace {

// Every request that expects an answer carries its id as string field 1. Reading just that
// field keeps the refusal independent of the request's message class.
std::string requestIdOf(const QByteArray& request)
{
    using google::protobuf::internal::WireFormatLite;
    google::protobuf::io::CodedInputStream input(
        reinterpret_cast<const quint8*>(request.constData()), request.size());
    while (const quint32 tag = input.ReadTag()) {
        if (tag == WireFormatLite::MakeTag(1, WireFormatLite::WIRETYPE_LENGTH_DELIMITED)) {
            std::string id;
            return WireFormatLite::ReadString(&input, &id) ? id : std::string();
        }
        if (!WireFormatLite::SkipField(&input, tag))
            break;
    }
    return {};
}

} // namespace

StreamFault streamFaultAfter(const FaultConfig& config, quint64 frames)
{
    const struct
    {
        int after;
        StreamFault fault;
    } rows[] = {{config.streamCloseAfterFrames, StreamFault::Close},
                {config.streamStallAfterFrames, StreamFault::Stall},
                {config.streamCutAfterFrames, StreamFault::Cut}};
    for (const auto& row : rows) {
        if (row.after > 0 && quint64(row.after) == frames)
            return row.fault;
    }
    return StreamFault::None;
}

Faults::Faults(FaultConfig config)
    : m_config(std::move(config))
{}

Faults::Verdict Faults::admit(int type)
{
    ++m_received;
    Verdict verdict;
    verdict.ignore = m_config.ignoredTypes.contains(type);
    for (const Refusal& refusal : std::as_const(m_config.refusals)) {
        if (refusal.requestType == type)
            verdict.refusal = refusal;
    }
    if (m_received == m_config.crashAfterMessages)
        verdict.then = Then::Crash;
    else if (m_received == m_config.closeAfterMessages)
        verdict.then = Then::Close;
    return verdict;
}

QByteArray Faults::refusalAnswer(const Refusal& refusal, const QByteArray& request)
{
    vms_sdk_proto::Response answer;
    answer.mutable_error()->set_code(refusal.code);
    answer.mutable_error()->set_err_msg(refusal.message.toStdString());
    answer.set_request_id(requestIdOf(request));
    const std::string bytes = answer.SerializeAsString();
    return QByteArray(bytes.data(), int(bytes.size()));
}

QByteArray Faults::outgoing(int type, const QByteArray& payload) const
{
    return m_config.malformedTypes.contains(type) ? malformedPayload() : payload;
}

QByteArray Faults::malformedPayload()
{
    // Field 1 announced as length-delimited with 16 bytes to follow, and only two do: every
    // message class stops there, whatever its fields. (An unknown field would merely be kept.)
    return QByteArray("\x0a\x10"
                      "ab",
                      4);
}

} // namespace vms_dgw_sim
