// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// How fast media reaches an application through the library, next to a plain QLocalSocket
// reader of the same stream server.
//
// The library starts three simulator processes as its gateways, one per frame size, each
// sending unpaced frames of exactly that size. Both readers then take a live stream of the same
// camera from the same gateway process, one after the other, on the thread that runs the event
// loop:
//   library  connect_live_video_req, bytes of the payloads counted in a slot on
//            ClientSignals::signalStreamData, where an application receives them;
//   raw      a QLocalSocket to the same stream server, the start request written by hand, then
//            QLocalSocket::read into one reusable buffer, every byte counted (frame headers
//            included, which slightly favours the raw reader).
// After the benchmarks a table shows the medians of the repetitions side by side.
#include <vms_sdk/client_signals.h>
#include <vms_sdk/vms_client_sdk.h>

#include "vms_protocol/frame_codec.h"
#include "vms_protocol/message_type.h"
#include "vms_sdk/gateway/multi_dgw_mgr.h"

#include "vms_message.pb.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <vector>

#ifdef Q_OS_UNIX
#include <csignal>
#endif

namespace {

using namespace vms_sdk;

constexpr int WaitMs = 30000;
constexpr std::array<int, 3> FrameSizes{4 * 1024, 64 * 1024, 1024 * 1024};
// The gateways start one per hundred devices; the managed device list puts one camera of the
// simulator's default devices at the head of each hundred.
constexpr std::array<const char*, 3> Cameras{"cam-1", "cam-2", "nvr-1"};

qint64 bytesPerIteration = 32 * 1024 * 1024;

QString sizeName(int bytes)
{
    return bytes >= 1024 * 1024 ? QStringLiteral("%1 MiB").arg(bytes / (1024 * 1024))
                                : QStringLiteral("%1 KiB").arg(bytes / 1024);
}

// Counts bytes and ends a wait once the count reaches its target, so the benchmark thread
// runs the event loop and nothing else while the bytes come in.
class ByteCounter
{
public:
    void add(qint64 bytes)
    {
        m_total += bytes;
        if (m_loop && m_total >= m_target)
            m_loop->quit();
    }

    qint64 total() const { return m_total; }

    // Runs the event loop until `bytes` more have been counted; false after WaitMs without.
    bool waitForMore(qint64 bytes)
    {
        m_target = m_total + bytes;
        QEventLoop loop;
        QTimer timeout;
        timeout.setSingleShot(true);
        QObject::connect(&timeout, &QTimer::timeout, &loop, &QEventLoop::quit);
        timeout.start(WaitMs);
        m_loop = &loop;
        loop.exec();
        m_loop = nullptr;
        return m_total >= m_target;
    }

private:
    qint64 m_total = 0;
    qint64 m_target = 0;
    QEventLoop* m_loop = nullptr;
};

// The library with its three simulator gateways, for the whole run.
class Gateways
{
public:
    bool start(const QString& folder)
    {
        MultiDgwMgr::instance()->setProcessStarter(
            [this, folder](const QString& program, const QStringList& args) {
                return startSimulator(folder, program, args);
            });
        init_vms_client_sdk();

        QEventLoop loop;
        bool ready = false;
        QList<QString> online;
        QObject context;
        QObject::connect(ClientSignals::instance(), &ClientSignals::signalPrepareStartDgwSuccess,
                         &context, [&] {
                             ready = true;
                             loop.quit();
                         });
        QObject::connect(ClientSignals::instance(), &ClientSignals::signalDevStatusPush, &context,
                         [&](const QString& devId, DevStatus status) {
                             if (status == DevStatusOnline && !online.contains(devId))
                                 online.append(devId);
                             if (std::all_of(Cameras.begin(), Cameras.end(), [&](const char* id) {
                                     return online.contains(QLatin1String(id));
                                 }))
                                 loop.quit();
                         });
        QTimer::singleShot(WaitMs, &loop, &QEventLoop::quit);

        prepare_start_dgw_req(InitDgwCondition{}, QStringLiteral(VMS_DGW_SIM_PATH),
                              int(FrameSizes.size()) * MultiDgwMgr::DevicesPerGateway);
        loop.exec();
        if (!ready || m_streamServers.size() != int(FrameSizes.size()))
            return false;

        // Up to the last camera: no gateway beyond the last is needed.
        QList<DevInfo> devices;
        const int count = (int(Cameras.size()) - 1) * MultiDgwMgr::DevicesPerGateway + 1;
        for (int i = 0; i < count; ++i) {
            const int gateway = i / MultiDgwMgr::DevicesPerGateway;
            devices.append({.id = i % MultiDgwMgr::DevicesPerGateway == 0
                                      ? QLatin1String(Cameras[size_t(gateway)])
                                      : QStringLiteral("idle-%1").arg(i)});
        }
        set_managed_devs_cmd(devices);
        QTimer::singleShot(WaitMs, &loop, &QEventLoop::quit);
        loop.exec();
        return online.size() >= int(Cameras.size());
    }

    void stop()
    {
        release_vms_client_sdk();
#ifdef Q_OS_UNIX
        // The gateways exit on their own once the library is gone; a benchmark run leaves
        // nothing behind even when one of them hangs.
        for (qint64 pid : std::as_const(m_pids)) {
            if (QFile::exists(QStringLiteral("/proc/%1").arg(pid)))
                ::kill(pid_t(pid), SIGKILL);
        }
#endif
    }

    QString streamServer(size_t size) const
    {
        return m_streamServers.value(int(size));
    }

private:
    bool startSimulator(const QString& folder, const QString& program, const QStringList& args)
    {
        const int index = m_streamServers.size();
        if (index >= int(FrameSizes.size()))
            return false;
        const QString config = folder + QStringLiteral("/frames_%1.json").arg(index);
        QFile file(config);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return false;
        file.write(QStringLiteral(R"({"idleExitMs": 5000, "unknownDevices": "offline",)"
                                  R"( "streams": {"frameRate": 0, "frameBytes": %1}})")
                       .arg(FrameSizes[size_t(index)])
                       .toUtf8());
        file.close();

        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("VMS_DGW_SIM_CONFIG"), config);
        process.setProcessEnvironment(environment);
        process.setProgram(program);
        process.setArguments(args);
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(folder + QStringLiteral("/sim_%1.log").arg(index));
        qint64 pid = 0;
        if (!process.startDetached(&pid))
            return false;
        m_pids.append(pid);
        m_streamServers.append(args.value(2));
        return true;
    }

    QList<qint64> m_pids;
    QStringList m_streamServers;
};

Gateways& gateways()
{
    static Gateways instance;
    return instance;
}

// Reads `bytesPerIteration` per iteration from a stream that `open` started and `close` ends.
template<class Open, class Close>
void measure(benchmark::State& state, ByteCounter& counter, Open open, Close close)
{
    if (!open() || !counter.waitForMore(1)) {
        close();
        state.SkipWithError("the stream did not start");
        return;
    }
    const qint64 before = counter.total();
    for (auto _ : state) {
        if (!counter.waitForMore(bytesPerIteration)) {
            state.SkipWithError("the stream stopped");
            break;
        }
    }
    state.SetBytesProcessed(counter.total() - before);
    close();
}

void libraryStream(benchmark::State& state, size_t size)
{
    ByteCounter counter;
    StreamId stream = 0;
    bool wrongSize = false;
    QObject context;
    QObject::connect(ClientSignals::instance(), &ClientSignals::signalStreamData, &context,
                     [&](StreamId id, const QByteArray& data) {
                         if (id != stream)
                             return;
                         counter.add(data.size());
                         wrongSize = wrongSize || data.size() != FrameSizes[size];
                     });
    measure(
        state, counter,
        [&] {
            stream = connect_live_video_req(
                {.channelId = {.devId = QLatin1String(Cameras[size]), .channelIndex = 1}});
            return true;
        },
        [&] { disconnect_stream_req(stream); });
    // A stream from another gateway than the one of this size would measure another size.
    if (wrongSize)
        state.SkipWithError("frames of another size arrived");
}

void rawStream(benchmark::State& state, size_t size)
{
    ByteCounter counter;
    QLocalSocket socket;
    std::vector<char> buffer(1024 * 1024);
    QObject::connect(&socket, &QLocalSocket::readyRead, [&] {
        qint64 got = 0;
        while ((got = socket.read(buffer.data(), qint64(buffer.size()))) > 0)
            counter.add(got);
    });
    measure(
        state, counter,
        [&] {
            socket.connectToServer(gateways().streamServer(size));
            if (!socket.waitForConnected(WaitMs))
                return false;
            vms_sdk_proto::LiveVideoConnReq request;
            request.mutable_channel_id()->set_dev_id(Cameras[size]);
            request.mutable_channel_id()->set_channel_index(1);
            socket.write(FrameCodec::encode(
                LiveVideoConnReq, QByteArray::fromStdString(request.SerializeAsString())));
            socket.flush();
            return true;
        },
        [&] { socket.abort(); });
}

struct Sample
{
    double megabytesPerSecond;
    double cpuMsPerMegabyte;
};

double median(std::vector<double> values)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    const size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

// The console output as usual, then one table of medians: library against raw, per size.
class TableReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            m_failed = m_failed || run.error_occurred;
            const auto name = m_names.find(run.run_name.function_name);
            if (run.run_type != Run::RT_Iteration || run.error_occurred || name == m_names.end())
                continue;
            const double seconds = run.real_accumulated_time;
            const double megabytes = run.counters.at("bytes_per_second").value * seconds / 1e6;
            if (seconds <= 0 || megabytes <= 0)
                continue;
            m_samples[name->second].push_back(
                {megabytes / seconds, run.cpu_accumulated_time * 1000 / megabytes});
        }
        ConsoleReporter::ReportRuns(runs);
    }

    void Finalize() override
    {
        ConsoleReporter::Finalize();
        std::printf("\n%-8s %14s %14s %8s %18s %18s\n", "frame", "library MB/s", "raw MB/s",
                    "ratio", "library CPU ms/MB", "raw CPU ms/MB");
        for (size_t size = 0; size < FrameSizes.size(); ++size) {
            const auto column = [&](bool library, double Sample::*field) {
                std::vector<double> values;
                for (const Sample& sample : m_samples[{size, library}])
                    values.push_back(sample.*field);
                return median(values);
            };
            const double library = column(true, &Sample::megabytesPerSecond);
            const double raw = column(false, &Sample::megabytesPerSecond);
            std::printf("%-8s %14.0f %14.0f %8.2f %18.3f %18.3f\n",
                        qPrintable(sizeName(FrameSizes[size])), library, raw,
                        raw > 0 ? library / raw : 0.0, column(true, &Sample::cpuMsPerMegabyte),
                        column(false, &Sample::cpuMsPerMegabyte));
        }
        std::printf("(medians of the repetitions; MB = 10^6 bytes; CPU: the benchmark "
                    "thread's, the simulator's not included)\n");
        std::fflush(stdout);
    }

    void name(const std::string& name, size_t size, bool library)
    {
        m_names[name] = {size, library};
    }
    bool failed() const { return m_failed; }

private:
    using Key = std::pair<size_t, bool>;
    std::map<std::string, Key> m_names;
    std::map<Key, std::vector<Sample>> m_samples;
    bool m_failed = false;
};

// Takes --vms_bench_bytes=N (bytes read per iteration) out of the arguments.
void takeOwnArguments(int& argc, char** argv)
{
    const QByteArray prefix("--vms_bench_bytes=");
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        const QByteArray argument(argv[i]);
        if (argument.startsWith(prefix))
            bytesPerIteration = qMax<qint64>(1, argument.mid(prefix.size()).toLongLong());
        else
            argv[kept++] = argv[i];
    }
    argc = kept;
}

} // namespace

int main(int argc, char** argv)
{
    takeOwnArguments(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;

    // The library's log and the simulators' configs and logs stay out of the user's home.
    QTemporaryDir folder;
    qputenv("XDG_DATA_HOME", folder.path().toUtf8() + "/data");
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vms_bench_streams"));
    if (!gateways().start(folder.path())) {
        std::fprintf(stderr, "the simulator gateways did not start; their logs:\n");
        for (size_t i = 0; i < FrameSizes.size(); ++i) {
            QFile log(folder.filePath(QStringLiteral("sim_%1.log").arg(i)));
            if (log.open(QIODevice::ReadOnly))
                std::fprintf(stderr, "%s\n", log.readAll().constData());
        }
        gateways().stop();
        return 1;
    }

    TableReporter reporter;
    // Side by side: each size's library run right before its raw run.
    for (size_t size = 0; size < FrameSizes.size(); ++size) {
        const QByteArray bytes = QByteArray::number(FrameSizes[size]);
        for (const bool library : {true, false}) {
            const std::string name =
                (library ? "stream/library/" : "stream/raw/") + bytes.toStdString();
            benchmark::RegisterBenchmark(name.c_str(), library ? libraryStream : rawStream, size)
                ->UseRealTime()
                ->Unit(benchmark::kMillisecond);
            reporter.name(name, size, library);
        }
    }
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    gateways().stop();
    return reporter.failed() ? 1 : 0;
}
