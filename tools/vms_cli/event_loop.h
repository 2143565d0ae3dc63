// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <vms_sdk/vms_client_sdk.h>

#include <functional>

// A command runs its steps one after the other; each waits in a local event loop, which keeps
// the library's sockets and timers running on this, its only, thread.
namespace vms_cli {

// Until the request finishes, or for at most guardMs: a request still outstanding then reads
// as timed out (the library's own time-out is a minute).
vms_sdk::RequestOutcome await(vms_sdk::PendingRequest* pending, int guardMs);
// Until done() holds (checked whenever events were handled, and every 50 ms) or guardMs pass.
bool runUntil(const std::function<bool()>& done, int guardMs);
void runFor(int ms);

} // namespace vms_cli
