// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "bench_support.h"

#include <vms_sdk/client_signals.h>
#include <vms_sdk/vms_client_sdk.h>

#include "vms_protocol/frame_codec.h"
#include "vms_protocol/message_type.h"
#include "vms_sdk/gateway/private_names.h"

#include "vms_message.pb.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QSet>
#include <QThread>
#include <QTimer>
#include <QUuid>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <map>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>
#endif
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace vms_bench {

double processCpuSeconds()
{
#ifdef Q_OS_UNIX
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) { return time.tv_sec + time.tv_usec / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
#else
    return double(std::clock()) / CLOCKS_PER_SEC;
#endif
}

qint64 heapBytes()
{
#if defined(__GLIBC__) && (__GLIBC__ > 2 || __GLIBC_MINOR__ >= 33)
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
#else
    return -1;
#endif
}

double median(std::vector<double> values)
{
    return percentile(std::move(values), 0.5);
}

double percentile(std::vector<double> values, double fraction)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    if (fraction == 0.5 && values.size() % 2 == 0)
        return (values[values.size() / 2 - 1] + values[values.size() / 2]) / 2;
    return values[std::min(values.size() - 1, size_t(fraction * double(values.size())))];
}

bool waitUntil(const std::function<bool()>& done, int timeoutMs)
{
    QElapsedTimer clock;
    clock.start();
    // Wakes the wait now and then, so that the deadline is seen while nothing else happens.
    QTimer wake;
    wake.start(20);
    while (!done()) {
        if (clock.elapsed() > timeoutMs)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

SimLauncher::SimLauncher(const QString& folder)
    : m_folder(folder)
{
    // Benchmarks measure the transport: the synthetic pattern costs nothing to make.
    setConfig(R"({"streams": {"video": "synthetic"}})");
}

SimLauncher::~SimLauncher()
{
    killAll();
}

void SimLauncher::setConfig(const QByteArray& json)
{
    m_config = [json](int) { return json; };
}

bool SimLauncher::start(const QString& program, const QStringList& args)
{
    const QString config = m_folder + QStringLiteral("/sim_%1.json").arg(m_pids.size());
    QFile file(config);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(m_config(int(m_pids.size()))) < 0)
        return false;
    file.close();
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VMS_DGW_SIM_CONFIG"), config);
    process.setProcessEnvironment(environment);
    process.setProgram(program);
    process.setArguments(args);
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(m_folder + QStringLiteral("/sim_%1.log").arg(m_pids.size()));
    qint64 pid = 0;
    if (!process.startDetached(&pid))
        return false;
    m_pids.append(pid);
    return true;
}

vms_sdk::MultiDgwMgr::ProcessStarter SimLauncher::starter()
{
    return [this](const QString& program, const QStringList& args) { return start(program, args); };
}

QString SimLauncher::startByHand()
{
    const QString server =
        vms_sdk::private_names::serverName(QUuid::createUuid().toString(QUuid::Id128));
    const QStringList args{QStringLiteral("vms_dgw.exe_%1").arg(m_pids.size()), server,
                           server + QStringLiteral("_stream")};
    return !server.isEmpty() && start(QStringLiteral(VMS_DGW_SIM_PATH), args) ? server : QString();
}

double SimLauncher::cpuSeconds(int index) const
{
#ifdef Q_OS_LINUX
    if (index < 0 || index >= m_pids.size())
        return -1;
    QFile stat(QStringLiteral("/proc/%1/stat").arg(m_pids[index]));
    if (!stat.open(QIODevice::ReadOnly))
        return -1;
    // The program's name may hold blanks; the fields after it are counted from its ')'.
    const QByteArray text = stat.readAll();
    const QList<QByteArray> fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
    // utime and stime are fields 14 and 15 of the whole line, 12 and 13 after the name.
    if (fields.size() < 13)
        return -1;
    return double(fields[11].toLongLong() + fields[12].toLongLong()) / double(sysconf(_SC_CLK_TCK));
#else
    Q_UNUSED(index)
    return -1;
#endif
}

void SimLauncher::killAll()
{
#ifdef Q_OS_UNIX
    for (qint64 pid : std::as_const(m_pids)) {
        if (pid > 0 && QFile::exists(QStringLiteral("/proc/%1").arg(pid)))
            ::kill(pid_t(pid), SIGKILL);
    }
#endif
    m_pids.clear();
}

RawClient::RawClient()
{
    QObject::connect(&m_socket, &QLocalSocket::readyRead, [this] { readFrames(); });
}

bool RawClient::open(const QString& serverName, int timeoutMs)
{
    QElapsedTimer clock;
    clock.start();
    // The simulator may not listen yet: try again until it does.
    for (;;) {
        m_socket.connectToServer(serverName);
        if (m_socket.waitForConnected(timeoutMs))
            break;
        m_socket.abort();
        if (clock.elapsed() > timeoutMs)
            return false;
        QThread::msleep(2);
    }
    send(vms_sdk::ClientHelloCmd, std::string());
    vms_sdk_proto::InitDgwReq init;
    init.set_request_id(QUuid::createUuid().toString().toStdString());
    send(vms_sdk::InitDgwReq, init.SerializeAsString());
    return waitUntil([this] { return m_initialised; }, timeoutMs);
}

void RawClient::send(int type, const std::string& payload)
{
    const auto size = quint32(payload.size());
    const quint64 length = quint64(size) + 1;
    m_out.resize(vms_sdk::FrameCodec::HeaderSize + payload.size());
    char* out = m_out.data();
    for (int i = 0; i < 8; ++i)
        out[i] = char(length >> (8 * (7 - i)));
    out[8] = char(type);
    for (int i = 0; i < 4; ++i)
        out[9 + i] = char(size >> (8 * (3 - i)));
    std::memcpy(out + vms_sdk::FrameCodec::HeaderSize, payload.data(), payload.size());
    m_socket.write(m_out.data(), qint64(m_out.size()));
    m_socket.flush();
}

void RawClient::readFrames()
{
    constexpr qint64 header = vms_sdk::FrameCodec::HeaderSize;
    for (;;) {
        const qint64 available = m_socket.bytesAvailable();
        if (available <= 0)
            return;
        if (m_in.size() < m_inStart + available)
            m_in.resize(m_inStart + available);
        const qint64 got = m_socket.read(m_in.data() + m_inStart, available);
        if (got <= 0)
            return;
        const qint64 end = m_inStart + got;
        qint64 at = 0;
        while (end - at >= header) {
            const auto* bytes = reinterpret_cast<const uchar*>(m_in.constData() + at);
            quint32 size = 0;
            for (int i = 0; i < 4; ++i)
                size = (size << 8) | bytes[9 + i];
            if (size == vms_sdk::FrameCodec::NullPayloadSize)
                size = 0;
            if (end - at < header + qint64(size))
                break;
            const char* payload = m_in.constData() + at + header;
            const int type = qint8(bytes[8]);
            if (type == vms_sdk::InitDgwRes) {
                vms_sdk_proto::Response answer;
                m_initialised = answer.ParseFromArray(payload, int(size)) && !answer.error().code();
            }
            if (m_handler)
                m_handler(type, payload, int(size));
            at += header + size;
        }
        std::memmove(m_in.data(), m_in.constData() + at, size_t(end - at));
        m_inStart = end - at;
    }
}

Library::Library(SimLauncher& launcher)
    : m_launcher(launcher)
{}

Library::~Library()
{
    if (m_started)
        vms_sdk::release_vms_client_sdk();
}

bool Library::prepare(int gatewayCount)
{
    using namespace vms_sdk;
    init_vms_client_sdk();
    m_started = true;
    MultiDgwMgr::instance()->setProcessStarter(m_launcher.starter());
    bool ready = false;
    QObject context;
    QObject::connect(ClientSignals::instance(), &ClientSignals::signalPrepareStartDgwSuccess,
                     &context, [&] { ready = true; });
    prepare_start_dgw_req(InitDgwCondition{}, QStringLiteral(VMS_DGW_SIM_PATH),
                          gatewayCount * MultiDgwMgr::DevicesPerGateway);
    return waitUntil([&] { return ready; });
}

bool Library::manage(const QList<vms_sdk::DevInfo>& devices, int onlineNeeded)
{
    using namespace vms_sdk;
    QSet<QString> online;
    QObject context;
    QObject::connect(ClientSignals::instance(), &ClientSignals::signalDevStatusPush, &context,
                     [&](const QString& devId, DevStatus status) {
                         if (status == DevStatusOnline)
                             online.insert(devId);
                     });
    set_managed_devs_cmd(devices);
    return waitUntil([&] { return online.size() >= onlineNeeded; });
}

bool Library::start(int gatewayCount, const QList<vms_sdk::DevInfo>& devices, int onlineNeeded)
{
    return prepare(gatewayCount) && manage(devices, onlineNeeded);
}

QString Library::streamServer(const QString& devId) const
{
    return vms_sdk::MultiDgwMgr::instance()->streamServerName(devId);
}

QList<vms_sdk::DevInfo> devices(const QStringList& ids)
{
    QList<vms_sdk::DevInfo> list;
    for (const QString& id : ids)
        list.append({.id = id});
    return list;
}

Table::Table(std::vector<Row> rows)
    : m_rows(std::move(rows))
{}

void Table::add(const std::string& key, double baseline, double library)
{
    m_samples[key].push_back({baseline, library});
}

namespace {

std::string number(double value, int decimals)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    // Thousands apart, as the issue's table writes them.
    std::string digits(text);
    const size_t point = std::min(digits.find('.'), digits.size());
    for (size_t at = point; at > 3 + (digits[0] == '-' ? 1 : 0);) {
        at -= 3;
        digits.insert(at, 1, ',');
    }
    return digits;
}

} // namespace

bool Table::print() const
{
    bool complete = true;
    for (const Row& row : m_rows) {
        const auto found = m_samples.find(row.key);
        if (found == m_samples.end() || found->second.empty()) {
            std::printf("| %s | no sample | | | | missed |\n", row.workload.c_str());
            complete = false;
            continue;
        }
        std::vector<double> baselines, libraries, ratios;
        for (const auto& [baseline, library] : found->second) {
            baselines.push_back(baseline);
            libraries.push_back(library);
            if (baseline > 0)
                ratios.push_back(library / baseline);
        }
        const bool hasBaseline = !row.baseline.empty();
        const double ratio = median(ratios);
        const double library = median(libraries);
        std::string goal = "-";
        std::string met = "-";
        const auto verdict = [&](bool ok) { met = ok ? "met" : "missed"; };
        switch (row.goal) {
        case Row::Goal::None:
            break;
        case Row::Goal::RatioAtMost:
            goal = "ratio <= " + number(row.goalValue, 2);
            verdict(ratio <= row.goalValue);
            break;
        case Row::Goal::RatioAtLeast:
            goal = "ratio >= " + number(row.goalValue, 2);
            verdict(ratio >= row.goalValue);
            break;
        case Row::Goal::LibraryAtMost:
            goal = "<= " + number(row.goalValue, row.decimals) + " " + row.unit;
            verdict(library <= row.goalValue);
            break;
        }
        std::string ratioText = "-";
        if (hasBaseline && !ratios.empty()) {
            ratioText = number(ratio, 2);
            if (ratios.size() > 1) {
                ratioText += " (" + number(*std::min_element(ratios.begin(), ratios.end()), 2) +
                             "-" + number(*std::max_element(ratios.begin(), ratios.end()), 2) + ")";
            }
        }
        const std::string baselineText =
            hasBaseline
                ? row.baseline + ": " + number(median(baselines), row.decimals) + " " + row.unit
                : "-";
        std::printf("| %s | %s | %s %s | %s | %s | %s |\n", row.workload.c_str(),
                    baselineText.c_str(), number(library, row.decimals).c_str(), row.unit.c_str(),
                    ratioText.c_str(), goal.c_str(), met.c_str());
    }
    std::fflush(stdout);
    return complete;
}

void printSample(const std::string& key, double baseline, double library)
{
    std::printf("sample\t%s\t%.17g\t%.17g\n", key.c_str(), baseline, library);
    std::fflush(stdout);
}

bool runChildren(const QString& mode, int runs, const QStringList& extra, Table& table)
{
    for (int run = 0; run < runs; ++run) {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(),
                    QStringList{QStringLiteral("--run=") + mode} + extra);
        const bool finished = child.waitForFinished(30 * 60 * 1000);
        const QByteArray output = child.readAllStandardOutput();
        for (const QByteArray& line : output.split('\n')) {
            const QList<QByteArray> fields = line.split('\t');
            if (fields.size() == 4 && fields[0] == "sample")
                table.add(fields[1].toStdString(), fields[2].toDouble(), fields[3].toDouble());
        }
        if (!finished || child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0) {
            std::fprintf(stderr, "run %d of %s failed:\n%s\n%s\n", run + 1, qPrintable(mode),
                         output.constData(), child.readAllStandardError().constData());
            return false;
        }
    }
    return true;
}

qint64 takeNumberArgument(int& argc, char** argv, const char* name, qint64 fallback)
{
    const QByteArray prefix = QByteArray("--") + name + '=';
    qint64 value = fallback;
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        const QByteArray argument(argv[i]);
        if (argument.startsWith(prefix))
            value = argument.mid(prefix.size()).toLongLong();
        else
            argv[kept++] = argv[i];
    }
    argc = kept;
    return value;
}

Options Options::parse(int argc, char** argv)
{
    Options options;
    for (int i = 1; i < argc; ++i) {
        const QString argument = QString::fromLocal8Bit(argv[i]);
        if (argument == QLatin1String("--smoke")) {
            options.smoke = true;
        } else if (argument.startsWith(QLatin1String("--")) &&
                   argument.contains(QLatin1Char('='))) {
            const int equals = int(argument.indexOf(QLatin1Char('=')));
            const QString name = argument.mid(2, equals - 2);
            const QString value = argument.mid(equals + 1);
            if (name == QLatin1String("runs"))
                options.runs = qMax(1, value.toInt());
            else if (name == QLatin1String("run"))
                options.run = value;
            else
                options.values.insert(name, value);
        } else {
            options.rest.append(argument);
        }
    }
    if (options.smoke)
        options.runs = 1;
    return options;
}

int Options::number(const QString& name, int fallback) const
{
    bool ok = false;
    const int value = values.value(name).toInt(&ok);
    return ok ? value : fallback;
}

QStringList Options::forwarded() const
{
    QStringList arguments;
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        arguments.append(QStringLiteral("--%1=%2").arg(value.key(), value.value()));
    if (smoke)
        arguments.append(QStringLiteral("--smoke"));
    return arguments;
}

Sandbox::Sandbox()
{
    qputenv("XDG_DATA_HOME", m_folder.path().toUtf8() + "/data");
}

} // namespace vms_bench
