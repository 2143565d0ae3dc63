// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/client/sdk_log.h"

#include "vms_kit/vms_kit.h"

#include <google/protobuf/stubs/logging.h>

#include <algorithm>

namespace vms_sdk::log {
namespace {

google::protobuf::LogHandler* previousHandler = nullptr;
bool routed = false;

void protobufLine(google::protobuf::LogLevel level, const char* filename, int line,
                  const std::string& message)
{
    Q_UNUSED(filename)
    Q_UNUSED(line)
    const QString text = QStringLiteral("protobuf log: %1")
                             .arg(QString::fromUtf8(message.data(), int(message.size())));
    if (level >= google::protobuf::LOGLEVEL_ERROR)
        error(text);
    else
        info(text);
}

constexpr std::string_view Tag = "[vms_client_sdk:]    ";

} // namespace

QString tag()
{
    return QStringLiteral("[vms_client_sdk:]    ");
}

void info(const QString& text)
{
    vms_kit::log_info(text, tag());
}

void error(const QString& text)
{
    vms_kit::log_error(text, tag());
}

void trace(const QString& text)
{
    vms_kit::log_trace(text, tag());
}

void trace(std::initializer_list<std::string_view> pieces)
{
    // Filled by copies into a buffer that only ever grows: an append per piece, or a resize
    // per line, costs a check and a call each.
    thread_local std::string line;
    size_t size = Tag.size();
    for (std::string_view piece : pieces)
        size += piece.size();
    if (line.size() < size)
        line.resize(size);
    char* out = std::copy(Tag.begin(), Tag.end(), line.data());
    for (std::string_view piece : pieces)
        out = std::copy(piece.begin(), piece.end(), out);
    vms_kit::log_line(vms_kit::LogLevel::Trace, std::string_view(line.data(), size));
}

void appendText(std::string& line, const QString& text)
{
    vms_kit::appendUtf8(line, text);
}

void routeProtobufLog()
{
    if (routed)
        return;
    previousHandler = google::protobuf::SetLogHandler(&protobufLine);
    routed = true;
}

void restoreProtobufLog()
{
    if (!routed)
        return;
    google::protobuf::SetLogHandler(previousHandler);
    routed = false;
}

} // namespace vms_sdk::log
