// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// How long the library takes to start its gateways, next to starting that many simulators by
// hand, and what it keeps in memory per open stream and per managed device.
//
// Start-up: by hand, the simulators are spawned the way the library spawns them, then a raw
// client connects to each (trying again until it listens), says hello and initialises; the
// time runs from the first spawn to the last init answer. Through the library, from
// prepare_start_dgw_req to signalPrepareStartDgwSuccess. Memory: the allocator's count of
// bytes in use before and after managing devices (each reported online) and opening live
// streams (each delivering its first frame). Each run is a child process.
#include "bench_support.h"

#include <vms_sdk/client_signals.h>
#include <vms_sdk/vms_client_sdk.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSet>

#include <cstdio>
#include <memory>

namespace {

using namespace vms_bench;

const QByteArray simConfig =
    R"({"messageLog": false, "idleExitMs": 30000, "streams": {"video": "synthetic"}})";

int startupRun(int gateways)
{
    Sandbox sandbox;
    SimLauncher launcher(sandbox.path());
    launcher.setConfig(simConfig);

    QElapsedTimer clock;
    clock.start();
    QStringList servers;
    for (int i = 0; i < gateways; ++i)
        servers.append(launcher.startByHand());
    std::vector<std::unique_ptr<RawClient>> clients;
    for (const QString& server : std::as_const(servers)) {
        clients.push_back(std::make_unique<RawClient>());
        if (!clients.back()->open(server))
            return 1;
    }
    const double byHandMs = double(clock.nsecsElapsed()) / 1e6;

    Library library(launcher);
    clock.restart();
    if (!library.prepare(gateways))
        return 1;
    printSample("start " + std::to_string(gateways), byHandMs, double(clock.nsecsElapsed()) / 1e6);
    return 0;
}

int memoryRun(int deviceCount, int streamCount)
{
    Sandbox sandbox;
    SimLauncher launcher(sandbox.path());
    // Slow small frames: a stream costs what it keeps, not what passes through it.
    launcher.setConfig(
        R"({"messageLog": false, "idleExitMs": 30000,)"
        R"( "streams": {"video": "synthetic", "frameRate": 5, "frameBytes": 1024}})");
    Library library(launcher);
    if (!library.start(1, devices({QStringLiteral("cam-1")}), 1))
        return 1;

    QStringList ids{QStringLiteral("cam-1")};
    for (int i = 1; i < deviceCount; ++i)
        ids.append(QStringLiteral("dev-%1").arg(i));
    qint64 heap = heapBytes();
    if (!library.manage(devices(ids), deviceCount))
        return 1;
    printSample("memory per device", 0, double(heapBytes() - heap) / (deviceCount - 1));

    QSet<vms_sdk::StreamId> open;
    QSet<vms_sdk::StreamId> delivering;
    QObject context;
    QObject::connect(vms_sdk::ClientSignals::instance(), &vms_sdk::ClientSignals::signalStreamData,
                     &context, [&](vms_sdk::StreamId id, const QByteArray&) {
                         if (open.contains(id))
                             delivering.insert(id);
                     });
    heap = heapBytes();
    for (int i = 0; i < streamCount; ++i) {
        open.insert(vms_sdk::connect_live_video_req(
            {.channelId = {.devId = QStringLiteral("cam-1"), .channelIndex = 1}}));
    }
    if (!waitUntil([&] { return delivering.size() == streamCount; }))
        return 1;
    printSample("memory per stream", 0, double(heapBytes() - heap) / streamCount);
    for (vms_sdk::StreamId id : std::as_const(open))
        vms_sdk::disconnect_stream_req(id);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const Options options = Options::parse(argc, argv);
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vms_bench_startup"));
    const int many = options.number(QStringLiteral("gateways"), options.smoke ? 2 : 32);
    const int deviceCount = options.number(QStringLiteral("devices"), options.smoke ? 5 : 100);
    const int streamCount = options.number(QStringLiteral("streams"), options.smoke ? 2 : 50);
    if (options.run.startsWith(QLatin1String("start ")))
        return startupRun(options.run.mid(6).toInt());
    if (options.run == QLatin1String("memory"))
        return memoryRun(qMax(2, deviceCount), qMax(1, streamCount));

    using Goal = Row::Goal;
    std::vector<Row> rows;
    bool ran = true;
    for (const int gateways : {1, many}) {
        const std::string count = std::to_string(gateways);
        rows.push_back({"start " + count,
                        "start-up of " + count + (gateways == 1 ? " gateway" : " gateways"),
                        "spawning " + count + " by hand", "ms", Goal::None, 0, 0});
    }
    rows.push_back({"memory per stream", "memory per open stream", "", "B", Goal::None, 0, 0});
    rows.push_back({"memory per device", "memory per managed device", "", "B", Goal::None, 0, 0});
    Table table(rows);
    for (const int gateways : {1, many}) {
        ran = runChildren(QStringLiteral("start %1").arg(gateways), options.runs,
                          options.forwarded(), table) &&
              ran;
    }
    ran = runChildren(QStringLiteral("memory"), options.runs, options.forwarded(), table) && ran;
    return table.print() && ran ? 0 : 1;
}
