// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// What the registry of outstanding requests and the log cost the thread that runs the library:
//   RegisterAnswer/<n>   one request registered and answered while n others are outstanding;
//                        the cost must not grow with n;
//   Outstanding          heap bytes held per outstanding request id (glibc's allocator only);
//   TimeoutsDue/<n>      CPU per time-out when n outstanding requests fall due at once, the
//                        error line and the application's signal included;
//   LogLine/<level>      CPU per line written through the library's log, next to a plain
//                        logger that flushes every line (how the log used to write).
// Every figure is the CPU of this one thread; --vms_bench_timeouts caps the largest n.
#include "bench_support.h"

#include <vms_sdk/client_signals.h>

#include "vms_kit/vms_kit.h"
#include "vms_sdk/client/sdk_log.h"
#include "vms_sdk/request/request_mgr.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>

#include <memory>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

using namespace vms_sdk;

int largestTimeoutBatch = 100000;

QString requestId(int n)
{
    return QStringLiteral("req-%1").arg(n, 6, 10, QLatin1Char('0'));
}

std::vector<QString> requestIds(int first, int count)
{
    std::vector<QString> ids;
    ids.reserve(size_t(count));
    for (int i = 0; i < count; ++i)
        ids.push_back(requestId(first + i));
    return ids;
}

// The objects an old registry's answers leave to the event loop.
void deleteLeftovers()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void RegisterAnswer(benchmark::State& state)
{
    const int outstanding = int(state.range(0));
    RequestMgr registry;
    for (const QString& id : requestIds(0, outstanding))
        registry.addRequest(id);
    const std::vector<QString> ids = requestIds(outstanding, 1024);
    size_t next = 0;
    for (auto _ : state) {
        const QString& id = ids[next++ % ids.size()];
        registry.addRequest(id);
        registry.removeRequest(id);
        if (next % ids.size() == 0)
            deleteLeftovers();
    }
    deleteLeftovers();
}
BENCHMARK(RegisterAnswer)->Arg(0)->Arg(100000)->Unit(benchmark::kNanosecond);

#ifdef __GLIBC__
void Outstanding(benchmark::State& state)
{
    constexpr int Count = 100000;
    for (auto _ : state) {
        auto registry = std::make_unique<RequestMgr>();
        const size_t before = mallinfo2().uordblks;
        for (int i = 0; i < Count; ++i)
            registry->addRequest(requestId(i));
        const size_t after = mallinfo2().uordblks;
        state.counters["bytes_per_id"] = double(after - before) / Count;
        registry.reset();
        deleteLeftovers();
    }
}
BENCHMARK(Outstanding)->Iterations(1)->Unit(benchmark::kMillisecond);
#endif

void TimeoutsDue(benchmark::State& state)
{
    const int count = std::min(int(state.range(0)), largestTimeoutBatch);
    const QTemporaryDir dir;
    vms_kit::init_vms_log(dir.filePath(QStringLiteral("timeouts.log")), QStringLiteral("bench"));
    const std::vector<QString> ids = requestIds(0, count);
    int timedOut = 0;
    QEventLoop loop;
    QObject context;
    QObject::connect(ClientSignals::instance(), &ClientSignals::signalRequestTimeout, &context,
                     [&] {
                         if (++timedOut == count)
                             loop.quit();
                     });
    for (auto _ : state) {
        state.PauseTiming();
        timedOut = 0;
        RequestMgr registry(nullptr, 1);
        for (const QString& id : ids)
            registry.addRequest(id);
        state.ResumeTiming();
        QTimer::singleShot(600000, &loop, &QEventLoop::quit);
        loop.exec();
        if (timedOut != count)
            state.SkipWithError("not every request timed out");
        deleteLeftovers();
    }
    vms_kit::release_vms_log();
    state.counters["per_timeout"] = benchmark::Counter(
        double(count), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(TimeoutsDue)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(1);

// A line as long as the one every request writes.
const QString RequestLine = QStringLiteral("device_info_req, request sent to the gateway");

void LogLine(benchmark::State& state)
{
    const bool error = state.range(0) != 0;
    const QTemporaryDir dir;
    vms_kit::init_vms_log(dir.filePath(QStringLiteral("lines.log")), QStringLiteral("bench"));
    for (auto _ : state) {
        if (error)
            log::error(RequestLine);
        else
            log::info(RequestLine);
    }
    // Closing writes what is still buffered: part of what the lines cost.
    vms_kit::release_vms_log();
}
BENCHMARK(LogLine)->ArgName("error")->Arg(0)->Arg(1);

// The baseline: the same pattern and text, each line flushed as it is written.
void LogLineFlushedEach(benchmark::State& state)
{
    const QTemporaryDir dir;
    auto sink = std::make_shared<spdlog::sinks::basic_file_sink_mt>(
        dir.filePath(QStringLiteral("flushed.log")).toStdString());
    spdlog::logger logger("flushed", sink);
    logger.set_pattern("[%Y-%m-%d %H:%M:%S.%e] [%l] %v");
    logger.flush_on(spdlog::level::trace);
    for (auto _ : state) {
        const QByteArray line = (log::tag() + RequestLine).toUtf8();
        logger.info(spdlog::string_view_t(line.constData(), size_t(line.size())));
    }
}
BENCHMARK(LogLineFlushedEach);

} // namespace

int main(int argc, char** argv)
{
    largestTimeoutBatch =
        int(vms_bench::takeNumberArgument(argc, argv, "vms_bench_timeouts", largestTimeoutBatch));
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    QCoreApplication app(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
