// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// How fast device pushes reach an application through the library, next to a raw framed
// reader of the same simulator.
//
// The simulator floods a device status push (40) from the moment its client is initialised,
// as fast as the client reads, a fixed number of times. The raw reader takes the frames from
// its read buffer and parses each push's message (the least a client does to learn what was
// pushed); the library delivers each on ClientSignals::signalDevStatusPush. Both are timed from
// their first push to their last. Each run is a child process; the table shows the medians of
// the runs and the median of the per-run ratios.
#include "bench_support.h"

#include <vms_sdk/client_signals.h>

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>
#include <functional>

namespace {

using namespace vms_bench;

// Counts pushes and notes the clocks at the first and the last.
class PushCounter
{
public:
    // `simulatorCpu` reads the CPU seconds of the simulator that sends the pushes.
    PushCounter(int total, std::function<double()> simulatorCpu)
        : m_total(total)
        , m_simulatorCpu(std::move(simulatorCpu))
    {
        m_clock.start();
    }

    void count()
    {
        if (++m_count == 1) {
            m_firstNs = m_clock.nsecsElapsed();
            m_firstCpu = processCpuSeconds();
            m_firstSimulatorCpu = m_simulatorCpu();
        } else if (m_count == m_total) {
            m_lastNs = m_clock.nsecsElapsed();
            m_lastCpu = processCpuSeconds();
            m_lastSimulatorCpu = m_simulatorCpu();
        }
    }

    bool waitForAll()
    {
        return waitUntil([this] { return m_count >= m_total; });
    }
    // Between the first push and the last, m_total - 1 arrived.
    double perSecond() const { return (m_total - 1) / (double(m_lastNs - m_firstNs) / 1e9); }
    double cpuUsEach() const { return (m_lastCpu - m_firstCpu) * 1e6 / (m_total - 1); }
    double simulatorCpuUsEach() const
    {
        return (m_lastSimulatorCpu - m_firstSimulatorCpu) * 1e6 / (m_total - 1);
    }
    // The share of one core the process used while the pushes came.
    double cpuShare() const
    {
        return (m_lastCpu - m_firstCpu) / (double(m_lastNs - m_firstNs) / 1e9);
    }
    double simulatorCpuShare() const
    {
        return (m_lastSimulatorCpu - m_firstSimulatorCpu) / (double(m_lastNs - m_firstNs) / 1e9);
    }

private:
    int m_total;
    std::function<double()> m_simulatorCpu;
    int m_count = 0;
    QElapsedTimer m_clock;
    qint64 m_firstNs = 0;
    qint64 m_lastNs = 0;
    double m_firstCpu = 0;
    double m_lastCpu = 0;
    double m_firstSimulatorCpu = 0;
    double m_lastSimulatorCpu = 0;
};

int pushesRun(int total)
{
    Sandbox sandbox;
    SimLauncher launcher(sandbox.path());
    launcher.setConfig(
        QStringLiteral(
            R"({"messageLog": false, "idleExitMs": 30000, "streams": {"video": "synthetic"}, "pushes": [
        {"type": "devStatus", "devId": "cam-1", "status": 0, "flood": true, "count": %1}]})")
            .arg(total)
            .toUtf8());

    // The raw reader's simulator is the first started, the library's gateway the second.
    PushCounter raw(total, [&] { return launcher.cpuSeconds(0); });
    RawClient client;
    client.setHandler([&](int type, const char* payload, int size) {
        vms_sdk_proto::DevStatusPush push;
        if (type == vms_sdk::DevStatusPush && push.ParseFromArray(payload, size) &&
            push.dev_id() == "cam-1")
            raw.count();
    });
    if (!client.open(launcher.startByHand()) || !raw.waitForAll())
        return 1;

    PushCounter library(total, [&] { return launcher.cpuSeconds(1); });
    QObject context;
    QObject::connect(vms_sdk::ClientSignals::instance(),
                     &vms_sdk::ClientSignals::signalDevStatusPush, &context,
                     [&](const QString& devId, vms_sdk::DevStatus) {
                         if (devId == QLatin1String("cam-1"))
                             library.count();
                     });
    // The flood starts with the gateway's init: no device is managed, nothing else comes.
    Library gateways(launcher);
    if (!gateways.prepare(1) || !library.waitForAll())
        return 1;

    printSample("pushes_per_second", raw.perSecond(), library.perSecond());
    printSample("cpu_per_push", raw.cpuUsEach(), library.cpuUsEach());
    printSample("client_core_share", raw.cpuShare() * 100, library.cpuShare() * 100);
    printSample("simulator_cpu_per_push", raw.simulatorCpuUsEach(), library.simulatorCpuUsEach());
    printSample("simulator_core_share", raw.simulatorCpuShare() * 100,
                library.simulatorCpuShare() * 100);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const Options options = Options::parse(argc, argv);
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vms_bench_pushes"));
    const int total =
        qMax(2, options.number(QStringLiteral("pushes"), options.smoke ? 1000 : 1000000));
    if (options.run == QLatin1String("pushes"))
        return pushesRun(total);

    using Goal = Row::Goal;
    Table table({
        {"pushes_per_second", "device pushes replayed as fast as the socket takes them, /s",
         "raw framed reader", "/s", Goal::RatioAtLeast, 0.5, 0},
        {"cpu_per_push", "client CPU per push", "raw framed reader", "µs", Goal::LibraryAtMost, 1,
         2},
        // What bounds the pace: a process that uses a whole core cannot go faster.
        {"client_core_share", "client's share of a core while pushes come", "raw framed reader",
         "%", Goal::None, 0, 0},
        {"simulator_cpu_per_push", "simulator CPU per push sent", "to the raw framed reader", "µs",
         Goal::None, 0, 2},
        {"simulator_core_share", "simulator's share of a core while it floods",
         "to the raw framed reader", "%", Goal::None, 0, 0},
    });
    const bool ran =
        runChildren(QStringLiteral("pushes"), options.runs, options.forwarded(), table);
    return table.print() && ran ? 0 : 1;
}
