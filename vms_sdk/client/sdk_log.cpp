// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/client/sdk_log.h"

#include "vms_kit/vms_kit.h"

#include <google/protobuf/stubs/logging.h>

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
    thread_local std::string line;
    line.assign(Tag);
    for (std::string_view piece : pieces)
        line += piece;
    vms_kit::log_line(vms_kit::LogLevel::Trace, line);
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
