// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_VMS_TYPES_H
#define VMS_SDK_VMS_TYPES_H

#include "vms_sdk_global.h"

#include <QMetaType>

namespace vms_sdk {

// Number of an open live or playback stream, returned by the stream functions.
using StreamId = quint64;

// State of a device in signalDevStatusPush. The gateway may report further values; they are
// passed on unchanged.
enum DevStatus : qint32 {
    DevStatusOnline = 0,
    DevStatusOffline = 1,
};

// State of the library's connection to one gateway.
enum ConnStatus : qint32 {
    ConnStatusConnected = 1,
    ConnStatusDisconnected = 2, // lost too often: the gateway is not restarted again
    ConnStatusSocketError = 3,
    ConnStatusConnectTimeout = 4, // the gateway never answered the connection attempts
};

// Why signalDgwAbnormal was raised.
enum DgwAbnormal : qint32 {
    DgwAbnormalStartFailed = 0,    // the gateway program could not be started
    DgwAbnormalDisconnected = 1,   // the connection was lost for the fifth time
    DgwAbnormalSocketError = 2,    // the connection reported an error
    DgwAbnormalConnectTimeout = 3, // the gateway never accepted the connection
    DgwAbnormalInitFailed = 4,     // the gateway refused its initialisation
};

} // namespace vms_sdk

Q_DECLARE_METATYPE(vms_sdk::DevStatus)
Q_DECLARE_METATYPE(vms_sdk::ConnStatus)
Q_DECLARE_METATYPE(vms_sdk::DgwAbnormal)

#endif // VMS_SDK_VMS_TYPES_H
