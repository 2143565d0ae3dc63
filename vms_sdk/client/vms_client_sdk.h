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

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace vms_sdk {

// Opens the log and builds the library's objects on the calling thread, which must run a Qt
// event loop and is the thread every other function is meant to be called on. A second call
// does nothing.
VMS_CLIENT_SDK_EXPORT void init_vms_client_sdk();

// Writes the last log line, closes the log and tells every gateway to exit.
VMS_CLIENT_SDK_EXPORT void release_vms_client_sdk();

// Gateways and managed devices.

// Starts one gateway program (dgwPath) per hundred expected devices, at most 32, and
// initialises each with `condition`; signalPrepareStartDgwSuccess once all are ready.
VMS_CLIENT_SDK_EXPORT void prepare_start_dgw_req(const InitDgwCondition& condition,
                                                 const QString& dgwPath, int devsCnt);
// Hands the gateways the devices to manage, a hundred per gateway in list order.
VMS_CLIENT_SDK_EXPORT void set_managed_devs_cmd(const QList<DevInfo>& devs);
// Adds devices where there is room, starting further gateways for the rest.
VMS_CLIENT_SDK_EXPORT void add_managed_devs_cmd(const QList<DevInfo>& devs);
VMS_CLIENT_SDK_EXPORT void del_managed_devs_cmd(const QStringList& devIds);
VMS_CLIENT_SDK_EXPORT void edit_managed_devs_cmd(const QList<DevInfo>& devs);
// `time` as "yyyy-MM-dd hh:mm:ss".
VMS_CLIENT_SDK_EXPORT void set_devs_time_cmd(const QStringList& devIds, const QString& time);
VMS_CLIENT_SDK_EXPORT void reboot_devs_cmd(const QStringList& devIds);
VMS_CLIENT_SDK_EXPORT void restore_factory_cmd(const QStringList& devIds, bool keepNetwork);
VMS_CLIENT_SDK_EXPORT void reconnect_devs_cmd(const QStringList& devIds);
// The service token is kept and handed to every gateway, also to gateways started later.
VMS_CLIENT_SDK_EXPORT void set_saas_token_cmd(const QString& token);
VMS_CLIENT_SDK_EXPORT void saas_logout_cmd();
// Request values: one value per request id, which the application attaches to a request and
// gets back with its time-out (ClientSignals::signalRequestTimeout), or reads itself when the
// answer comes. A value stays until it is read with remove = true, removed, cleared, or
// handed over by a time-out. These five may be called from any thread.
// Attaches a value to a request id, replacing one attached before.
VMS_CLIENT_SDK_EXPORT void add_request_value(const QString& requestId, const QVariant& value);
// The value attached to a request id, or an invalid QVariant; remove = true also detaches it.
VMS_CLIENT_SDK_EXPORT QVariant get_request_value(const QString& requestId, bool remove);
VMS_CLIENT_SDK_EXPORT void remove_request_value(const QString& requestId);
VMS_CLIENT_SDK_EXPORT void remove_all_request_values();
// Gives an outstanding request a full new time-out from now, for answers known to take long.
// An id that is not outstanding is ignored.
VMS_CLIENT_SDK_EXPORT void renewal_request_id(const QString& requestId);

} // namespace vms_sdk

#endif // VMS_SDK_VMS_CLIENT_SDK_H
