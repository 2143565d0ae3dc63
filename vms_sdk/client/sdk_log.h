// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QString>

#include <initializer_list>
#include <string>
#include <string_view>

// Every line the library logs goes through here, so that each carries the library's tag.
namespace vms_sdk::log {

// "[vms_client_sdk:]" and four blanks: the tag in front of every text.
QString tag();

void info(const QString& text);
void error(const QString& text);
void trace(const QString& text);
// A trace line put together from UTF-8 pieces (what the messages carry): the frequent lines
// of pushes and answers are written without a detour through QString.
void trace(std::initializer_list<std::string_view> pieces);
// Appends `text` in UTF-8, for a piece of such a line.
void appendText(std::string& line, const QString& text);

// Sends what the message library would print on the application's stderr to our log instead,
// from init to release; release puts back whatever handler was there before.
void routeProtobufLog();
void restoreProtobufLog();

} // namespace vms_sdk::log
