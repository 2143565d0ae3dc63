// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "device_model.h"
#include "faults.h"
#include "media_source.h"
#include "pushes.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace vms_dgw_sim {

// Everything a simulated gateway is told at start: its network of devices, the pushes it
// sends on its own and the faults it commits.
struct SimConfig
{
    QList<SimDevice> devices;
    bool unknownDevicesOnline = true;
    // Exit once no client has been connected for this long; 0: run until told to exit.
    int idleExitMs = 0;
    // A line per message received, sent or ignored; off for load measurements, where writing
    // the lines would cost the gateway more than the messages themselves.
    bool messageLog = true;
    // How long the device operations that take time last: a reboot until the device is back,
    // a firmware upgrade until it is finished, a file transfer until it is complete.
    int rebootMs = 3000;
    int upgradeMs = 10000;
    int fileTransferMs = 2000;
    QList<ScheduledPush> pushes;
    FaultConfig faults;
    MediaConfig media;
};

inline constexpr char ConfigVariable[] = "VMS_DGW_SIM_CONFIG";

// The file named by VMS_DGW_SIM_CONFIG, or the built-in defaults when the variable is unset
// or empty. On failure `error` says what is wrong and where.
bool loadConfig(SimConfig* config, QString* error);
bool loadConfigFile(const QString& path, SimConfig* config, QString* error);
bool parseConfig(const QByteArray& json, SimConfig* config, QString* error);

} // namespace vms_dgw_sim
