// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace vms_test {

// Runs the event loop until `condition` holds or `timeoutMs` passes; true when it held.
bool waitFor(const std::function<bool()>& condition, int timeoutMs = 5000);

// A fresh folder that lives as long as the test process.
QString tempDir();

// The lines of a text file; none when it does not exist. The kit log is flushed first, so
// that every line logged so far is there.
QStringList readLines(const QString& path);
// The same as the file holds it now, without flushing the log.
QStringList readFileLines(const QString& path);

// How many lines of a text file end with `text`.
int countLines(const QString& path, const QString& text);

// Opens the kit log in a fresh file of its own and returns the file's path.
QString openTestLog();

} // namespace vms_test
