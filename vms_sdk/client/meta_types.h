// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

namespace vms_sdk {

// Registers, by their public names and in a fixed order, the types that travel in
// ClientSignals' signals (results) and in the hub's request signals (conditions), so that
// they cross threads in queued connections and fit in a QVariant.
void registerResultMetaTypes();
void registerRequestMetaTypes();

// Every record, enumeration, list and map under its own qualified name ("vms_sdk::PresetInfo",
// "QList<vms_sdk::PresetInfo>"): Qt finds the type of a record's property by the name the
// property spells, so a record cannot be read through its properties before this ran. Both
// functions above end with it; anything else reading records generically calls it first.
void registerRecordMetaTypes();

} // namespace vms_sdk
