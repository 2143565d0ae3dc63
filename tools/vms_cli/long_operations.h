// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "commands.h"

#include <vms_sdk/vms_client_sdk.h>

#include <functional>

namespace vms_cli {

// How a long operation ended: ok, and the last answer or push as lines.
struct LongResult
{
    bool ok = false;
    bool timedOut = false;
    QStringList lines;
};

// An operation the device reports through a progress request: start it, then ask for the
// progress until done, with a progress bar. percent and done read the progress answer's
// arguments by name (see answerArguments).
struct PolledOperation
{
    QString label;
    std::function<void()> command;                   // a command that starts it, or
    std::function<vms_sdk::PendingRequest*()> start; // a request that starts it, awaited
    QString pollRequest;
    QVariantMap pollArguments;
    std::function<int(const QVariantMap& answer)> percent;
    std::function<bool(const QVariantMap& answer)> done;
};
LongResult runPolled(const PolledOperation& operation, Io& io);

// A file transfer: the request ends with its last progress push; the pushes before it drive
// the bar.
LongResult runTransfer(const QString& label, const QString& request, const QVariantMap& arguments,
                       Io& io);

} // namespace vms_cli
