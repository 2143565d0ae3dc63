// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QString>

// Every line the library logs goes through here, so that each carries the library's tag.
namespace vms_sdk::log {

// "[vms_client_sdk:]" and four blanks: the tag in front of every text.
QString tag();

void info(const QString& text);
void error(const QString& text);
void trace(const QString& text);

// Sends what the message library would print on the application's stderr to our log instead,
// from init to release; release puts back whatever handler was there before.
void routeProtobufLog();
void restoreProtobufLog();

} // namespace vms_sdk::log
