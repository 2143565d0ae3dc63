// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_VMS_CLIENT_SDK_H
#define VMS_SDK_VMS_CLIENT_SDK_H

// The library's whole public interface. Every function returns at once; answers, failures
// and events arrive as signals of vms_sdk::ClientSignals.

#include "alarm_records.h"
#include "analytics_records.h"
#include "client_actions.h"
#include "client_signals.h"
#include "common_records.h"
#include "config_records.h"
#include "device_records.h"
#include "face_records.h"
#include "media_records.h"
#include "network_records.h"
#include "ptz_records.h"
#include "vms_sdk_global.h"
#include "vms_types.h"

namespace vms_sdk {

// Opens the log and builds the library's objects on the calling thread, which must run a Qt
// event loop and is the thread every other function is meant to be called on. A second call
// does nothing.
VMS_CLIENT_SDK_EXPORT void init_vms_client_sdk();

// Writes the last log line, closes the log and tells every gateway to exit.
VMS_CLIENT_SDK_EXPORT void release_vms_client_sdk();

} // namespace vms_sdk

#endif // VMS_SDK_VMS_CLIENT_SDK_H
