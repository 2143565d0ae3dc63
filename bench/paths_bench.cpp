// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Client CPU of the request and push paths: the library next to a raw framed client of the
// same simulator.
//
//   requests  `inFlight` get_dev_net_req outstanding at any moment; each answer
//             (signalGetDevNetRes) sends the next. The raw client writes the same wire request
//             and parses the same answer, one flush per batch of answers read.
//   pushes    the simulator fires device status pushes as fast as it can (many series due every
//             millisecond, so it always has a backlog); the library counts signalDevStatusPush,
//             the raw reader counts whole frames.
//
// The library starts its gateways once per process, so run one library benchmark per process
// (--benchmark_filter=Requests, --benchmark_filter=Pushes).
//
// CPU time per item is the cost this benchmark is about. Under callgrind each benchmark's
// measured part is dumped on its own ("--collect-atstart=no" is not needed: the stats are
// zeroed when the measurement starts), so the instructions per item can be read from the dump
// named after the benchmark:
//   valgrind --tool=callgrind --dump-instr=no build-rel/bench/vms_bench_paths
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
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <QUuid>

#include <benchmark/benchmark.h>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else
#define CALLGRIND_ZERO_STATS
#define CALLGRIND_DUMP_STATS_AT(name) (void)(name)
#endif

#include <functional>
#include <memory>

#ifdef Q_OS_UNIX
#include <csignal>
#endif

namespace {

using namespace vms_sdk;

constexpr int WaitMs = 30000;
constexpr int InFlight = 1000;
constexpr const char* Camera = "cam-1";

int itemsPerIteration = 20000;

QTemporaryDir& folder()
{
    static QTemporaryDir dir;
    return dir;
}

QString writeConfig(const QString& name, const QByteArray& json)
{
    const QString path = folder().path() + QLatin1Char('/') + name;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return {};
    file.write(json);
    return path;
}

// Many series of device status pushes, each due every millisecond: more than the client takes,
// so the simulator always has pushes due and sends them back to back.
QByteArray floodConfig()
{
    QByteArray pushes;
    for (int i = 0; i < 200; ++i) {
        pushes += (i ? "," : "");
        pushes += R"({"type": "devStatus", "everyMs": 1, "devId": "cam-1", "status": 0})";
    }
    return R"({"idleExitMs": 5000, "pushes": [)" + pushes + "]}";
}

QByteArray plainConfig()
{
    return R"({"idleExitMs": 5000})";
}

QList<qint64>& simulatorPids()
{
    static QList<qint64> pids;
    return pids;
}

bool startSimulator(const QString& config, const QStringList& args)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VMS_DGW_SIM_CONFIG"), config);
    process.setProcessEnvironment(environment);
    process.setProgram(QStringLiteral(VMS_DGW_SIM_PATH));
    process.setArguments(args);
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    qint64 pid = 0;
    if (!process.startDetached(&pid))
        return false;
    simulatorPids().append(pid);
    return true;
}

void killSimulators()
{
#ifdef Q_OS_UNIX
    for (qint64 pid : std::as_const(simulatorPids())) {
        if (QFile::exists(QStringLiteral("/proc/%1").arg(pid)))
            ::kill(pid_t(pid), SIGKILL);
    }
#endif
    simulatorPids().clear();
}

// Runs the event loop until `done` holds; false after WaitMs without.
bool runUntil(const std::function<bool()>& done, QEventLoop& loop)
{
    QTimer timeout;
    timeout.setSingleShot(true);
    timeout.start(WaitMs);
    // Wakes the loop now and then for conditions that no event announces (a server that
    // starts listening).
    QTimer tick;
    tick.start(10);
    while (!done() && timeout.isActive())
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    return done();
}

// The library with one simulator gateway reading `config`, its camera managed and online.
class Library
{
public:
    Library(const QByteArray& config, bool waitForCamera)
    {
        const QString path = writeConfig(QStringLiteral("library.json"), config);
        MultiDgwMgr::instance()->setProcessStarter(
            [path](const QString&, const QStringList& args) { return startSimulator(path, args); });
        init_vms_client_sdk();
        bool ready = false;
        bool online = false;
        QObject context;
        QObject::connect(ClientSignals::instance(), &ClientSignals::signalPrepareStartDgwSuccess,
                         &context, [&] { ready = true; });
        QObject::connect(ClientSignals::instance(), &ClientSignals::signalDevStatusPush, &context,
                         [&](const QString&, DevStatus status) {
                             online = online || status == DevStatusOnline;
                         });
        QEventLoop loop;
        prepare_start_dgw_req(InitDgwCondition{}, QStringLiteral(VMS_DGW_SIM_PATH), 1);
        if (!runUntil([&] { return ready; }, loop)) {
            m_failure = "the library did not start its gateway";
            return;
        }
        set_managed_devs_cmd({DevInfo{.id = QLatin1String(Camera)}});
        // Pushes need no managed camera: the measurement itself waits for them.
        if (waitForCamera && !runUntil([&] { return online; }, loop))
            m_failure = "the camera did not come online";
    }
    ~Library()
    {
        release_vms_client_sdk();
        killSimulators();
    }
    // Why the session is of no use; null when it is.
    const char* failure() const { return m_failure; }

private:
    const char* m_failure = nullptr;
};

// A client of its own simulator speaking the frames by hand: hello, init, the camera managed.
class RawClient
{
public:
    explicit RawClient(const QByteArray& config)
    {
        const QString name = QStringLiteral("vms_bench_paths_") +
                             QUuid::createUuid().toString(QUuid::Id128).left(12);
        if (!startSimulator(
                writeConfig(QStringLiteral("raw.json"), config),
                {QStringLiteral("vms_dgw.exe_0"), name, name + QStringLiteral("_stream")}))
            return;
        QEventLoop loop;
        const bool connected = runUntil(
            [&] {
                if (socket.state() == QLocalSocket::UnconnectedState)
                    socket.connectToServer(name);
                return socket.state() == QLocalSocket::ConnectedState;
            },
            loop);
        if (!connected)
            return;
        send(ClientHelloCmd, QByteArray());
        vms_sdk_proto::InitDgwReq init;
        init.set_request_id("init");
        send(InitDgwReq, serialized(init));
        vms_sdk_proto::SetManagedDevsCmd managed;
        managed.add_devs()->set_id(Camera);
        send(SetManagedDevsCmd, serialized(managed));
        socket.flush();
        bool online = false;
        Frame frame;
        m_ok = runUntil(
            [&] {
                while (!online && reader.read(socket, frame))
                    online = frame.type == DevStatusPush;
                return online;
            },
            loop);
    }
    ~RawClient()
    {
        socket.abort();
        killSimulators();
    }

    static QByteArray serialized(const google::protobuf::MessageLite& message)
    {
        return QByteArray::fromStdString(message.SerializeAsString());
    }
    void send(int type, const QByteArray& payload)
    {
        socket.write(FrameCodec::encode(type, payload));
    }
    bool ok() const { return m_ok; }

    QLocalSocket socket;
    FrameReader reader;

private:
    bool m_ok = false;
};

// Counts items and lets the loop run until the count reaches a target.
struct Counter
{
    qint64 count = 0;

    bool waitForMore(qint64 items)
    {
        const qint64 target = count + items;
        QEventLoop loop;
        return runUntil([&] { return count >= target; }, loop);
    }
};

void measure(benchmark::State& state, Counter& counter, const char* dumpName)
{
    // Whatever was queued while the session started belongs to no iteration.
    CALLGRIND_ZERO_STATS;
    const qint64 before = counter.count;
    for (auto _ : state) {
        if (!counter.waitForMore(itemsPerIteration)) {
            state.SkipWithError("the items stopped coming");
            break;
        }
    }
    CALLGRIND_DUMP_STATS_AT(dumpName);
    state.SetItemsProcessed(counter.count - before);
}

void libraryRequests(benchmark::State& state)
{
    Library library(plainConfig(), true);
    if (library.failure())
        return state.SkipWithError(library.failure());
    Counter answered;
    qint64 sent = 0;
    const auto next = [&] {
        get_dev_net_req({.requestId = QString::number(++sent), .devId = QLatin1String(Camera)});
    };
    QObject context;
    QObject::connect(ClientSignals::instance(), &ClientSignals::signalGetDevNetRes, &context,
                     [&](const Response&, const DevNetInfo&) {
                         ++answered.count;
                         next();
                     });
    for (int i = 0; i < InFlight; ++i)
        next();
    measure(state, answered, "library requests");
}

void rawRequests(benchmark::State& state)
{
    RawClient raw(plainConfig());
    if (!raw.ok())
        return state.SkipWithError("the raw client did not get its gateway");
    Counter answered;
    qint64 sent = 0;
    const auto next = [&] {
        vms_sdk_proto::DevNetGetReq request;
        request.set_request_id(std::to_string(++sent));
        request.set_dev_id(Camera);
        raw.send(DevNetGetReq, RawClient::serialized(request));
    };
    QObject::connect(&raw.socket, &QLocalSocket::readyRead, [&] {
        Frame frame;
        vms_sdk_proto::DevNetGetRes answer;
        while (raw.reader.read(raw.socket, frame)) {
            if (frame.type != DevNetGetRes ||
                !answer.ParseFromArray(frame.payload.constData(), int(frame.payload.size())))
                continue;
            ++answered.count;
            next();
        }
        raw.socket.flush();
    });
    for (int i = 0; i < InFlight; ++i)
        next();
    raw.socket.flush();
    measure(state, answered, "raw requests");
}

void libraryPushes(benchmark::State& state)
{
    Library library(floodConfig(), false);
    if (library.failure())
        return state.SkipWithError(library.failure());
    Counter pushes;
    QObject context;
    QObject::connect(ClientSignals::instance(), &ClientSignals::signalDevStatusPush, &context,
                     [&](const QString&, DevStatus) { ++pushes.count; });
    measure(state, pushes, "library pushes");
}

void rawPushes(benchmark::State& state)
{
    RawClient raw(floodConfig());
    if (!raw.ok())
        return state.SkipWithError("the raw reader did not get its gateway");
    Counter pushes;
    QObject::connect(&raw.socket, &QLocalSocket::readyRead, [&] {
        Frame frame;
        while (raw.reader.read(raw.socket, frame))
            pushes.count += frame.type == DevStatusPush;
    });
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
    // Items counted per iteration (a smoke run takes a few).
    itemsPerIteration = qMax(
        1, int(vms_bench::takeNumberArgument(argc, argv, "vms_bench_items", itemsPerIteration)));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
