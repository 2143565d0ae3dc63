// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "cli_options.h"
#include "gateway_session.h"

#include <QTextStream>

namespace vms_cli {

// Where a command writes: results to out, complaints to err.
struct Io
{
    QTextStream& out;
    QTextStream& err;
    bool interactive; // out is a terminal
    // out carries JSON lines: progress and other chatter go to err.
    QTextStream& chatter() { return json ? err : out; }
    bool json = false;
};

// Exit codes of every command.
enum ExitCode : int {
    ExitOk = 0,
    ExitFailed = 1, // a request failed, timed out, or a demo step did
    ExitUsage = 2,  // the command line is wrong
    ExitNoGateway = 3,
    ExitHandled = -1, // prepare did all there was to do: exit 0 without a gateway
};

// Each command checks its arguments before any gateway starts (prepare), then runs against
// the started session.
struct Command
{
    const char* name;
    // ExitOk when the arguments are right; otherwise the complaint is written.
    ExitCode (*prepare)(const Options& options, Io& io);
    ExitCode (*run)(const Options& options, GatewaySession& session, Io& io);
};

ExitCode prepareCall(const Options& options, Io& io);
ExitCode runCall(const Options& options, GatewaySession& session, Io& io);
ExitCode prepareNothing(const Options& options, Io& io);
ExitCode runWatch(const Options& options, GatewaySession& session, Io& io);
ExitCode prepareStream(const Options& options, Io& io);
ExitCode runStream(const Options& options, GatewaySession& session, Io& io);
ExitCode runDemo(const Options& options, GatewaySession& session, Io& io);

} // namespace vms_cli
