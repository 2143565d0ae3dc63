// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QString>

#include <string_view>

// The platform kit: one process-wide log file and a sleep.
//
// A log line reads "[time] [level] <tag><text>", one line per call. Error lines reach the
// file at once, the others within a second, and all of them before release returns. Every
// function may be called from any thread; logging while no log is open (before init, after
// release) writes nothing.
namespace vms_kit {

// Opens `path` (creating its folder) as the log named `name`, appending to what is there.
// A log that is already open is closed first.
void init_vms_log(const QString& path, const QString& name);
// Closes the log. Harmless when nothing is open.
void release_vms_log();
// Writes out what the log holds back now rather than within the second.
void flush_vms_log();

void log_info(const QString& text, const QString& tag);
void log_error(const QString& text, const QString& tag);
void log_trace(const QString& text, const QString& tag);

// The same for a line that is UTF-8 already, its tag included: nothing to convert on the way.
enum class LogLevel { Trace, Info, Error };
void log_line(LogLevel level, std::string_view utf8Line);
// Appends `text` to `to` in UTF-8; the loop over plain ASCII costs less than a conversion.
void appendUtf8(std::string& to, const QString& text);

void xsleep(int milliseconds);

} // namespace vms_kit
