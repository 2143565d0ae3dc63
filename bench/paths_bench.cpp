// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Client CPU of the request and push paths: the library next to the raw framed client of
// bench_support, each against a simulator of its own started the same way.
//
//   requests  1,000 get_dev_net_req outstanding at any moment; each answer
//             (signalGetDevNetRes) sends the next. The raw client writes the same wire request
//             and parses the same answer.
//   pushes    the simulator floods device status pushes for as long as the client reads; the
//             library counts signalDevStatusPush, the raw reader every push it parsed.
//
// The library starts its gateways once per process, so run one library benchmark per process
// (--benchmark_filter=libraryRequests, --benchmark_filter=libraryPushes).
//
// CPU time per item is the cost this benchmark is about. Under callgrind the measured part of
// each benchmark is dumped on its own (the counts are zeroed when the measurement starts, so
// nothing of the start-up is in it), named after the benchmark:
//   valgrind --tool=callgrind --dump-instr=no build-bench/bench/vms_bench_paths
//       --benchmark_filter=libraryRequests --vms_bench_items=5000   (one line)
//   callgrind_annotate --inclusive=yes callgrind.out.<pid>.1
// The instructions per item are the dump's total over the items the benchmark reports.
#include "bench_support.h"

#include <vms_sdk/client_signals.h>
#include <vms_sdk/vms_client_sdk.h>

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

#include <benchmark/benchmark.h>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else
#define CALLGRIND_ZERO_STATS
#define CALLGRIND_DUMP_STATS_AT(name) (void)(name)
#endif

#include <QCoreApplication>

#include <string>

namespace {

using namespace vms_bench;

constexpr int InFlight = 1000;
const QString Camera = QStringLiteral("cam-1");

int itemsPerIteration = 20000;

const QByteArray requestConfig = R"({"messageLog": false, "idleExitMs": 30000})";
// A flood without a count goes on until the client goes.
const QByteArray floodConfig = R"({"messageLog": false, "idleExitMs": 30000, "pushes": [
    {"type": "devStatus", "devId": "cam-1", "status": 0, "flood": true}]})";

// A simulator and whoever speaks to it, torn down with the benchmark.
struct Session
{
    explicit Session(const QByteArray& config)
        : launcher(sandbox.path())
    {
        launcher.setConfig(config);
    }

    Sandbox sandbox;
    SimLauncher launcher;
};

void measure(benchmark::State& state, const qint64& count, const char* dumpName)
{
    // Whatever was queued while the session started belongs to no iteration.
    CALLGRIND_ZERO_STATS;
    const qint64 before = count;
    for (auto _ : state) {
        const qint64 target = count + itemsPerIteration;
        if (!waitUntil([&] { return count >= target; })) {
            state.SkipWithError("the items stopped coming");
            break;
        }
    }
    CALLGRIND_DUMP_STATS_AT(dumpName);
    state.SetItemsProcessed(count - before);
}

void libraryRequests(benchmark::State& state)
{
    Session session(requestConfig);
    Library library(session.launcher);
    if (!library.start(1, devices({Camera}), 1))
        return state.SkipWithError("the library did not get its camera online");
    qint64 answered = 0;
    qint64 sent = 0;
    const auto next = [&] {
        vms_sdk::get_dev_net_req({.requestId = QString::number(++sent), .devId = Camera});
    };
    QObject context;
    QObject::connect(vms_sdk::ClientSignals::instance(),
                     &vms_sdk::ClientSignals::signalGetDevNetRes, &context,
                     [&](const vms_sdk::Response&, const vms_sdk::DevNetInfo&) {
                         ++answered;
                         next();
                     });
    for (int i = 0; i < InFlight; ++i)
        next();
    measure(state, answered, "library requests");
}

void rawRequests(benchmark::State& state)
{
    Session session(requestConfig);
    RawClient raw;
    if (!raw.open(session.launcher.startByHand()))
        return state.SkipWithError("the raw client did not get its gateway");
    qint64 answered = 0;
    qint64 sent = 0;
    const auto next = [&] {
        vms_sdk_proto::DevNetGetReq request;
        request.set_request_id(std::to_string(++sent));
        request.set_dev_id("cam-1");
        raw.send(vms_sdk::DevNetGetReq, request.SerializeAsString());
    };
    raw.setHandler([&](int type, const char* payload, int size) {
        vms_sdk_proto::DevNetGetRes answer;
        if (type != vms_sdk::DevNetGetRes || !answer.ParseFromArray(payload, size))
            return;
        ++answered;
        next();
    });
    for (int i = 0; i < InFlight; ++i)
        next();
    measure(state, answered, "raw requests");
}

void libraryPushes(benchmark::State& state)
{
    Session session(floodConfig);
    qint64 pushes = 0;
    QObject context;
    QObject::connect(vms_sdk::ClientSignals::instance(),
                     &vms_sdk::ClientSignals::signalDevStatusPush, &context,
                     [&](const QString&, vms_sdk::DevStatus) { ++pushes; });
    // The flood starts with the gateway's init; no device needs to be managed.
    Library library(session.launcher);
    if (!library.prepare(1))
        return state.SkipWithError("the library did not start its gateway");
    measure(state, pushes, "library pushes");
}

void rawPushes(benchmark::State& state)
{
    Session session(floodConfig);
    qint64 pushes = 0;
    RawClient raw;
    raw.setHandler([&](int type, const char* payload, int size) {
        vms_sdk_proto::DevStatusPush push;
        pushes += type == vms_sdk::DevStatusPush && push.ParseFromArray(payload, size);
    });
    if (!raw.open(session.launcher.startByHand()))
        return state.SkipWithError("the raw reader did not get its gateway");
    measure(state, pushes, "raw pushes");
}

} // namespace

BENCHMARK(libraryRequests)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(rawRequests)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(libraryPushes)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(rawPushes)->Unit(benchmark::kMillisecond)->UseRealTime();

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vms_bench_paths"));
    // Items counted per iteration (a smoke run takes a few).
    itemsPerIteration =
        qMax(1, int(takeNumberArgument(argc, argv, "vms_bench_items", itemsPerIteration)));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
