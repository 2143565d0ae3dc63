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
//            included, which slightly favours the raw reader);
//   unix     (Unix only) the same with a plain socket and blocking recv, no event loop.
// After the benchmarks a table shows the medians of the repetitions side by side.
#include "bench_support.h"

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
#include <QTimer>

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <map>
#include <vector>

#ifdef Q_OS_UNIX
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
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

// The library with its three simulator gateways, one per frame size, for the whole run.
class Gateways
{
public:
    explicit Gateways(const QString& folder)
        : m_launcher(folder)
        , m_library(m_launcher)
    {
        m_launcher.setConfig([](int index) {
            return QStringLiteral(
                       R"({"idleExitMs": 5000, "unknownDevices": "offline",)"
                       R"( "streams": {"video": "synthetic", "frameRate": 0, "frameBytes": %1}})")
                .arg(FrameSizes[size_t(qMin(index, int(FrameSizes.size()) - 1))])
                .toUtf8();
        });
    }

    bool start()
    {
        // Up to the last camera: no gateway beyond the last is needed.
        QList<DevInfo> devices;
        const int count = (int(Cameras.size()) - 1) * MultiDgwMgr::DevicesPerGateway + 1;
        for (int i = 0; i < count; ++i) {
            const int gateway = i / MultiDgwMgr::DevicesPerGateway;
            devices.append({.id = i % MultiDgwMgr::DevicesPerGateway == 0
                                      ? QLatin1String(Cameras[size_t(gateway)])
                                      : QStringLiteral("idle-%1").arg(i)});
        }
        return m_library.prepare(int(FrameSizes.size())) &&
               m_launcher.started() == int(FrameSizes.size()) &&
               m_library.manage(devices, int(Cameras.size()));
    }

    QString streamServer(size_t size) const
    {
        return m_library.streamServer(QLatin1String(Cameras[size]));
    }

private:
    vms_bench::SimLauncher m_launcher;
    vms_bench::Library m_library;
};

Gateways* gateways = nullptr;

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

QByteArray startRequest(size_t size)
{
    vms_sdk_proto::LiveVideoConnReq request;
    request.mutable_channel_id()->set_dev_id(Cameras[size]);
    request.mutable_channel_id()->set_channel_index(1);
    return FrameCodec::encode(LiveVideoConnReq,
                              QByteArray::fromStdString(request.SerializeAsString()));
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
            socket.connectToServer(gateways->streamServer(size));
            if (!socket.waitForConnected(WaitMs))
                return false;
            socket.write(startRequest(size));
            socket.flush();
            return true;
        },
        [&] { socket.abort(); });
}

#ifdef Q_OS_UNIX
// The floor under every Qt reader: a Unix socket read with plain blocking recv calls into one
// reusable buffer, no event loop at all. The stream servers' names are socket paths.
void unixStream(benchmark::State& state, size_t size)
{
    const QByteArray path = QFile::encodeName(gateways->streamServer(size));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    if (fd < 0 || path.size() >= int(sizeof address.sun_path)) {
        state.SkipWithError("no Unix socket");
        return;
    }
    std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
    const QByteArray request = startRequest(size);
    std::vector<char> buffer(1024 * 1024);
    qint64 total = 0;
    if (::connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::send(fd, request.constData(), size_t(request.size()), 0) != request.size()) {
        state.SkipWithError("the stream did not start");
    } else {
        for (auto _ : state) {
            qint64 wanted = bytesPerIteration;
            while (wanted > 0) {
                const ssize_t got = ::recv(fd, buffer.data(), buffer.size(), 0);
                if (got <= 0) {
                    state.SkipWithError("the stream stopped");
                    break;
                }
                wanted -= got;
                total += got;
            }
        }
    }
    state.SetBytesProcessed(total);
    ::close(fd);
}
#endif

enum class Reader { Library, LocalSocket, UnixSocket };

struct ReaderRow
{
    Reader reader;
    const char* name;
    void (*run)(benchmark::State&, size_t);
};

constexpr ReaderRow Readers[] = {
    {Reader::Library, "library", libraryStream},
    {Reader::LocalSocket, "raw", rawStream},
#ifdef Q_OS_UNIX
    {Reader::UnixSocket, "unix", unixStream},
#endif
};

struct Sample
{
    double megabytesPerSecond;
    double cpuMsPerMegabyte;
};

// The console output as usual, then a table of medians per size, and the rows of the common
// table: the library against each raw reader, repetition by repetition.
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
        std::printf("\n%-8s %10s %10s %10s %8s %14s %14s %14s\n", "frame", "lib MB/s", "raw MB/s",
                    "unix MB/s", "ratio", "lib CPU ms/MB", "raw CPU ms/MB", "unix CPU ms/MB");
        for (size_t size = 0; size < FrameSizes.size(); ++size) {
            const auto column = [&](Reader reader, double Sample::*field) {
                std::vector<double> values;
                for (const Sample& sample : m_samples[{size, reader}])
                    values.push_back(sample.*field);
                return vms_bench::median(values);
            };
            const double library = column(Reader::Library, &Sample::megabytesPerSecond);
            const double raw = column(Reader::LocalSocket, &Sample::megabytesPerSecond);
            std::printf("%-8s %10.0f %10.0f %10.0f %8.2f %14.3f %14.3f %14.3f\n",
                        qPrintable(sizeName(FrameSizes[size])), library, raw,
                        column(Reader::UnixSocket, &Sample::megabytesPerSecond),
                        raw > 0 ? library / raw : 0.0,
                        column(Reader::Library, &Sample::cpuMsPerMegabyte),
                        column(Reader::LocalSocket, &Sample::cpuMsPerMegabyte),
                        column(Reader::UnixSocket, &Sample::cpuMsPerMegabyte));
        }
        std::printf("(medians of the repetitions; MB = 10^6 bytes; CPU: the benchmark "
                    "thread's, the simulator's not included)\n\n");
        printRows();
    }

    void name(const std::string& name, size_t size, Reader reader)
    {
        m_names[name] = {size, reader};
    }
    bool failed() const { return m_failed; }

private:
    void printRows()
    {
        using Goal = vms_bench::Row::Goal;
        struct Baseline
        {
            Reader reader;
            const char* key;
            const char* name;
            Goal goal;
        };
        const Baseline baselines[] = {
            {Reader::LocalSocket, "local ", "raw QLocalSocket reader", Goal::RatioAtLeast},
            {Reader::UnixSocket, "unix ", "raw Unix-socket reader", Goal::None},
        };
        std::vector<vms_bench::Row> rows;
        for (const Baseline& baseline : baselines) {
            for (const int bytes : FrameSizes) {
                const std::string name = sizeName(bytes).toStdString();
                rows.push_back({baseline.key + name, "stream data, " + name + " frames",
                                baseline.name, "MB/s", baseline.goal, 0.9, 0});
            }
        }
        vms_bench::Table table(rows);
        for (size_t size = 0; size < FrameSizes.size(); ++size) {
            const std::vector<Sample>& library = m_samples[{size, Reader::Library}];
            for (const Baseline& baseline : baselines) {
                const std::vector<Sample>& raw = m_samples[{size, baseline.reader}];
                for (size_t i = 0; i < qMin(raw.size(), library.size()); ++i) {
                    table.add(baseline.key + sizeName(FrameSizes[size]).toStdString(),
                              raw[i].megabytesPerSecond, library[i].megabytesPerSecond);
                }
            }
        }
        // Without Unix sockets their rows say "no sample".
        table.print();
    }

    using Key = std::pair<size_t, Reader>;
    std::map<std::string, Key> m_names;
    std::map<Key, std::vector<Sample>> m_samples;
    bool m_failed = false;
};

} // namespace

int main(int argc, char** argv)
{
    // Bytes read per iteration.
    bytesPerIteration = qMax<qint64>(
        1, vms_bench::takeNumberArgument(argc, argv, "vms_bench_bytes", bytesPerIteration));
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;

    vms_bench::Sandbox sandbox;
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vms_bench_streams"));
    Gateways running(sandbox.path());
    gateways = &running;
    if (!running.start()) {
        std::fprintf(stderr, "the simulator gateways did not start; their logs are in %s\n",
                     qPrintable(sandbox.path()));
        return 1;
    }

    TableReporter reporter;
    // Side by side: each size's library run right before its raw runs.
    for (size_t size = 0; size < FrameSizes.size(); ++size) {
        const QByteArray bytes = QByteArray::number(FrameSizes[size]);
        for (const ReaderRow& reader : Readers) {
            const std::string name =
                std::string("stream/") + reader.name + "/" + bytes.toStdString();
            benchmark::RegisterBenchmark(name.c_str(), reader.run, size)
                ->UseRealTime()
                ->Unit(benchmark::kMillisecond);
            reporter.name(name, size, reader.reader);
        }
    }
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    gateways = nullptr;
    return reporter.failed() ? 1 : 0;
}
