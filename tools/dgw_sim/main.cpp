// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// A device gateway with a simulated network of devices behind it. It takes the command line
// of the real gateway, so the library starts it the same way; its devices, pushes and faults
// come from the JSON file named by VMS_DGW_SIM_CONFIG.

#include "config.h"
#include "device_model.h"
#include "sim_log.h"
#include "sim_server.h"
#include "streams.h"

#include <QCoreApplication>
#include <QStringList>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

// Distinct from a crash fault's SIGABRT and from the clean exit's 0.
constexpr int UsageError = 2;
constexpr int ListenError = 3;

} // namespace

int main(int argc, char** argv)
{
    using namespace vms_dgw_sim;
#ifdef __GLIBC__
    // An unpaced stream of large frames allocates and frees a few frames' worth of memory per
    // frame. Handed back to the system and faulted in again each time, it made the sender's
    // pace depend on how its client happened to read.
    mallopt(M_MMAP_THRESHOLD, 32 * 1024 * 1024);
    mallopt(M_TRIM_THRESHOLD, 64 * 1024 * 1024);
#endif
    QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4 || arguments.at(1).isEmpty() || arguments.at(2).isEmpty() ||
        arguments.at(3).isEmpty()) {
        logLine(QStringLiteral("usage: vms_dgw_sim <processName> <serverName> <streamServerName>"
                               " (got %1 arguments; devices, pushes and faults come from the "
                               "JSON file named by %2)")
                    .arg(arguments.size() - 1)
                    .arg(QLatin1String(ConfigVariable)));
        return UsageError;
    }
    setLogName(arguments.at(1));

    SimConfig config;
    QString error;
    if (!loadConfig(&config, &error)) {
        logLine(error);
        return UsageError;
    }
    DeviceModel model(config.devices, config.unknownDevicesOnline);
    SimServer server(config, model);
    StreamServer streams(config.media, config.faults, model);
    if (!server.listen(arguments.at(2), &error) || !streams.listen(arguments.at(3), &error)) {
        logLine(error);
        return ListenError;
    }
    logLine(QStringLiteral("listening on %1 (messages) and %2 (streams) with %3 devices")
                .arg(arguments.at(2), arguments.at(3))
                .arg(config.devices.size()));
    const int code = QCoreApplication::exec();
    logLine(QStringLiteral("exiting"));
    return code;
}
