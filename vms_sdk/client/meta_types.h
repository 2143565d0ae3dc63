// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

namespace vms_sdk {

// Registers, by their public names and in a fixed order, the types that travel in
// ClientSignals' signals (results) and in the hub's request signals (conditions), so that
// they cross threads in queued connections and fit in a QVariant.
void registerResultMetaTypes();
void registerRequestMetaTypes();

} // namespace vms_sdk
