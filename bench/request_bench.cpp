// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// What a request costs through the library, next to a raw client asking the same simulator the
// same thing, and how the cost changes with the number of requests outstanding.
//
// The request is the network settings of a device (20, answered with 21): small both ways.
// Requests meant to stay outstanding ask for a platform (23), which the simulator is told to
// ignore. Each run is a child process with a fresh library and fresh simulators; the table
// shows the medians of the runs and the median of the per-run ratios.
#include "bench_support.h"

#include <vms_sdk/client_signals.h>
#include <vms_sdk/vms_client_sdk.h>

#include "vms_protocol/message_type.h"
#include "vms_sdk/request/request_mgr.h"

#include "vms_message.pb.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLocale>

#include <cstdio>
#include <cstdlib>

namespace {

using namespace vms_bench;

const QByteArray simConfig =
    R"({"messageLog": false, "idleExitMs": 30000, "streams": {"video": "synthetic"},)"
    R"( "faults": {"ignoreTypes": [23]}})";
const QString device = QStringLiteral("cam-1");

// Sends request number n; whoever answers calls `answered` with the number.
struct Requester
{
    std::function<void(int n)> send;
    std::function<void(int n)> answered;
    // CPU seconds of the simulator that answers.
    std::function<double()> simulatorCpu = [] { return 0.0; };
};

struct Load
{
    std::vector<double> roundTripsUs;
    double seconds = 0;
    double cpuSeconds = 0;
    double simulatorCpuSeconds = 0;
    int total = 0;

    double perSecond() const { return seconds > 0 ? total / seconds : 0; }
    double cpuUsPerRequest() const { return total ? cpuSeconds * 1e6 / total : 0; }
    double simulatorCpuUsPerRequest() const
    {
        return total ? simulatorCpuSeconds * 1e6 / total : 0;
    }
    // Percent of one core.
    double coreShare() const { return seconds > 0 ? cpuSeconds * 100 / seconds : 0; }
    double simulatorCoreShare() const
    {
        return seconds > 0 ? simulatorCpuSeconds * 100 / seconds : 0;
    }
    double p50() const { return median(roundTripsUs); }
};

// `total` requests, `window` of them in flight at any time: each answer sends the next.
Load runLoad(Requester& requester, int total, int window)
{
    Load load;
    load.total = total;
    load.roundTripsUs.reserve(size_t(total));
    std::vector<qint64> sentAt(static_cast<size_t>(total));
    QElapsedTimer clock;
    int sent = 0;
    int answered = 0;
    const auto sendNext = [&] {
        sentAt[size_t(sent)] = clock.nsecsElapsed();
        requester.send(sent++);
    };
    requester.answered = [&](int n) {
        if (n < 0 || n >= sent)
            return;
        load.roundTripsUs.push_back(double(clock.nsecsElapsed() - sentAt[size_t(n)]) / 1000);
        ++answered;
        if (sent < total)
            sendNext();
    };
    const double cpu = processCpuSeconds();
    const double simulatorCpu = requester.simulatorCpu();
    clock.start();
    while (sent < qMin(window, total))
        sendNext();
    // Long: with many requests outstanding each answer may take milliseconds.
    if (!waitUntil([&] { return answered == total; }, 20 * 60 * 1000)) {
        std::fprintf(stderr, "%d of %d requests answered\n", answered, total);
        std::exit(1);
    }
    load.seconds = double(clock.nsecsElapsed()) / 1e9;
    load.cpuSeconds = processCpuSeconds() - cpu;
    load.simulatorCpuSeconds = requester.simulatorCpu() - simulatorCpu;
    requester.answered = nullptr;
    return load;
}

int numberOf(const std::string& requestId)
{
    return requestId.size() > 1 ? std::atoi(requestId.c_str() + 1) : -1;
}

// The raw client: the request built and framed by hand, the answer's id read back.
struct RawRequester : Requester
{
    RawClient client;

    explicit RawRequester(const QString& server)
    {
        if (!client.open(server)) {
            std::fprintf(stderr, "the raw client's simulator did not answer\n");
            std::exit(1);
        }
        send = [this](int n) {
            vms_sdk_proto::DevNetGetReq request;
            request.set_request_id("r" + std::to_string(n));
            request.set_dev_id("cam-1");
            client.send(vms_sdk::DevNetGetReq, request.SerializeAsString());
        };
        client.setHandler([this](int type, const char* payload, int size) {
            vms_sdk_proto::DevNetGetRes answer;
            if (type == vms_sdk::DevNetGetRes && answer.ParseFromArray(payload, size) && answered)
                answered(numberOf(answer.request_id()));
        });
    }
};

// The library: the exported function, the answer on ClientSignals.
struct LibraryRequester : Requester
{
    QObject context;

    LibraryRequester()
    {
        send = [](int n) {
            vms_sdk::get_dev_net_req(
                {.requestId = QLatin1Char('r') + QString::number(n), .devId = device});
        };
        QObject::connect(vms_sdk::ClientSignals::instance(),
                         &vms_sdk::ClientSignals::signalGetDevNetRes, &context,
                         [this](const vms_sdk::Response& response, const vms_sdk::DevNetInfo&) {
                             if (answered)
                                 answered(response.requestId.mid(1).toInt());
                         });
    }
};

// Requests the simulator never answers; they stay registered until they time out.
void sendUnanswered(int count, const QString& prefix)
{
    for (int i = 0; i < count; ++i) {
        vms_sdk::get_dev_platform_req({.requestId = prefix + QString::number(i), .devId = device});
    }
}

struct Sizes
{
    int roundTrips;
    int inFlightTotal;
    int window;
    int outstanding;
    int outstandingTotal;
    int timeouts;
    int timeoutMs;
};

Sizes sizesOf(const Options& options)
{
    const bool smoke = options.smoke;
    return {options.number(QStringLiteral("round_trips"), smoke ? 20 : 3000),
            options.number(QStringLiteral("in_flight_total"), smoke ? 200 : 60000),
            options.number(QStringLiteral("window"), smoke ? 10 : 1000),
            options.number(QStringLiteral("outstanding"), smoke ? 100 : 100000),
            options.number(QStringLiteral("outstanding_total"), smoke ? 200 : 10000),
            options.number(QStringLiteral("timeouts"), smoke ? 100 : 100000),
            options.number(QStringLiteral("timeout_ms"), smoke ? 50 : 1000)};
}

int requestsRun(const Sizes& sizes)
{
    Sandbox sandbox;
    SimLauncher launcher(sandbox.path());
    launcher.setConfig(simConfig);
    RawRequester raw(launcher.startByHand());
    Library library(launcher);
    if (!library.start(1, devices({device}), 1))
        return 1;
    LibraryRequester lib;
    // The raw client's simulator is the first started, the library's gateway the second.
    raw.simulatorCpu = [&] { return launcher.cpuSeconds(0); };
    lib.simulatorCpu = [&] { return launcher.cpuSeconds(1); };

    // Warm both paths up: first calls fill caches and grow buffers.
    runLoad(raw, 200, 10);
    runLoad(lib, 200, 10);

    const Load rawTrips = runLoad(raw, sizes.roundTrips, 1);
    const Load libTrips = runLoad(lib, sizes.roundTrips, 1);
    printSample("round_trip", rawTrips.p50(), libTrips.p50());
    const Load rawFlight = runLoad(raw, sizes.inFlightTotal, sizes.window);
    const Load libFlight = runLoad(lib, sizes.inFlightTotal, sizes.window);
    printSample("cpu_per_request", rawFlight.cpuUsPerRequest(), libFlight.cpuUsPerRequest());
    printSample("requests_per_second", rawFlight.perSecond(), libFlight.perSecond());
    printSample("client_core_share", rawFlight.coreShare(), libFlight.coreShare());
    printSample("simulator_cpu_per_request", rawFlight.simulatorCpuUsPerRequest(),
                libFlight.simulatorCpuUsPerRequest());
    printSample("simulator_core_share", rawFlight.simulatorCoreShare(),
                libFlight.simulatorCoreShare());

    const qint64 heap = heapBytes();
    const double cpu = processCpuSeconds();
    sendUnanswered(sizes.outstanding, QStringLiteral("o"));
    const double registerCpu = processCpuSeconds() - cpu;
    // One answered request after them: the gateway has read them all, nothing waits in a
    // write buffer any more.
    runLoad(lib, 1, 1);
    printSample("memory_per_outstanding", 0,
                double(heapBytes() - heap) / qMax(1, sizes.outstanding));
    printSample("cpu_per_registration", 0, registerCpu * 1e6 / qMax(1, sizes.outstanding));

    const Load outTrips = runLoad(lib, sizes.roundTrips, 1);
    // Fewer requests than without: each may cost as much as the outstanding ones make it.
    const Load outFlight = runLoad(lib, sizes.outstandingTotal, sizes.window);
    printSample("round_trip_outstanding", libTrips.p50(), outTrips.p50());
    printSample("requests_per_second_outstanding", libFlight.perSecond(), outFlight.perSecond());
    return 0;
}

int timeoutsRun(const Sizes& sizes)
{
    Sandbox sandbox;
    SimLauncher launcher(sandbox.path());
    launcher.setConfig(simConfig);
    Library library(launcher);
    if (!library.start(1, devices({device}), 1))
        return 1;

    int timedOut = 0;
    QElapsedTimer clock;
    qint64 firstNs = 0;
    qint64 lastNs = 0;
    double lastCpu = 0;
    QObject context;
    QObject::connect(vms_sdk::ClientSignals::instance(),
                     &vms_sdk::ClientSignals::signalRequestTimeout, &context, [&] {
                         if (++timedOut == 1)
                             firstNs = clock.nsecsElapsed();
                         if (timedOut == sizes.timeouts) {
                             lastNs = clock.nsecsElapsed();
                             lastCpu = processCpuSeconds();
                         }
                     });
    vms_sdk::RequestMgr::instance()->setTimeoutInterval(sizes.timeoutMs);
    clock.start();
    // Registered without a pass of the event loop in between: none can fall due before the
    // last is registered, so what follows is the time-outs' work alone.
    sendUnanswered(sizes.timeouts, QStringLiteral("t"));
    const double cpu = processCpuSeconds();
    if (!waitUntil([&] { return timedOut >= sizes.timeouts; }, 30 * 60 * 1000))
        return 1;
    printSample("cpu_per_timeout", 0, (lastCpu - cpu) * 1e6 / sizes.timeouts);
    printSample("timeouts_seconds", 0, double(lastNs - firstNs) / 1e9);
    return 0;
}

std::string withCount(const char* text, int count)
{
    return QString::fromLatin1(text).arg(QLocale(QLocale::English).toString(count)).toStdString();
}

} // namespace

int main(int argc, char** argv)
{
    const Options options = Options::parse(argc, argv);
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vms_bench_requests"));
    const Sizes sizes = sizesOf(options);
    if (options.run == QLatin1String("requests"))
        return requestsRun(sizes);
    if (options.run == QLatin1String("timeouts"))
        return timeoutsRun(sizes);

    using Goal = Row::Goal;
    Table table({
        {"round_trip", "round trip p50, one small request at a time", "raw client", "µs",
         Goal::None, 0, 1},
        {"cpu_per_request", withCount("client CPU per request, %1 in flight", sizes.window),
         "raw client", "µs", Goal::RatioAtMost, 2, 2},
        {"requests_per_second", withCount("requests/s, %1 in flight", sizes.window), "raw client",
         "/s", Goal::RatioAtLeast, 0.7, 0},
        // What bounds the pace: a process that uses a whole core cannot go faster.
        {"client_core_share", "client's share of a core, the same run", "raw client", "%",
         Goal::None, 0, 0},
        {"simulator_cpu_per_request", "simulator CPU per request answered, the same run",
         "answering the raw client", "µs", Goal::None, 0, 2},
        {"simulator_core_share", "simulator's share of a core, the same run",
         "answering the raw client", "%", Goal::None, 0, 0},
        {"round_trip_outstanding",
         withCount("round trip p50 with %1 requests outstanding", sizes.outstanding),
         "none outstanding", "µs", Goal::RatioAtMost, 1.2, 1},
        {"requests_per_second_outstanding",
         withCount("requests/s with %1 outstanding", sizes.outstanding), "none outstanding", "/s",
         Goal::RatioAtLeast, 0.8, 0},
        {"memory_per_outstanding", "memory per outstanding request", "", "B", Goal::LibraryAtMost,
         300, 0},
        {"cpu_per_registration", "client CPU per registration of an unanswered request", "", "µs",
         Goal::None, 0, 2},
        {"cpu_per_timeout", withCount("%1 time-outs falling due, CPU each", sizes.timeouts), "",
         "µs", Goal::LibraryAtMost, 5, 2},
        {"timeouts_seconds", withCount("%1 time-outs falling due, first to last", sizes.timeouts),
         "", "s", Goal::None, 0, 2},
    });
    const QStringList extra = options.forwarded();
    const bool requestsRan = runChildren(QStringLiteral("requests"), options.runs, extra, table);
    const bool timeoutsRan = runChildren(QStringLiteral("timeouts"), options.runs, extra, table);
    const bool ran = requestsRan && timeoutsRan;
    return table.print() && ran ? 0 : 1;
}
