// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// What every benchmark shares: the clocks, the simulator launcher, the raw framed client that
// is the yardstick, the library started with simulator gateways, and the table of rows.
//
// A benchmark compares the library with a raw client speaking the same frames to the same
// simulator program, started the same way. Measurements that need a fresh library (it lives
// once per process) run in child processes of the benchmark, one per run; each child prints
// its samples and the parent prints the table.

#include <vms_sdk/device_records.h>

#include "vms_sdk/gateway/multi_dgw_mgr.h"

#include <QByteArray>
#include <QList>
#include <QLocalSocket>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace vms_bench {

constexpr int WaitMs = 60000;

// CPU time of the whole process (every thread: the library's log writer counts), seconds.
double processCpuSeconds();
// Bytes the allocator has handed out and not taken back; -1 where it cannot tell.
qint64 heapBytes();
double median(std::vector<double> values);
// The value below which `fraction` of the values lie.
double percentile(std::vector<double> values, double fraction);

// Runs the event loop until `done` holds; false after `timeoutMs` without.
bool waitUntil(const std::function<bool()>& done, int timeoutMs = WaitMs);

// Starts simulator processes the way the library starts its gateways: detached, with the
// gateway's three names, the config named by VMS_DGW_SIM_CONFIG. Every process it started is
// killed when it goes, so a run leaves nothing behind even when a simulator hangs.
class SimLauncher
{
public:
    explicit SimLauncher(const QString& folder);
    ~SimLauncher();

    // The config of the simulators started from now on: one for all, or one per process,
    // counted from 0 in the order they are started.
    void setConfig(const QByteArray& json);
    void setConfig(std::function<QByteArray(int index)> json) { m_config = std::move(json); }
    // Starts `program` with `args`; what the library's gateway manager is given to start with.
    bool start(const QString& program, const QStringList& args);
    vms_sdk::MultiDgwMgr::ProcessStarter starter();
    // Starts one simulator by hand, with fresh private names as the library makes them;
    // returns its message server name, empty when it did not start.
    QString startByHand();
    void killAll();
    int started() const { return int(m_pids.size()); }
    // CPU time (user and system) of the `index`th process started so far, seconds; -1 where the
    // system does not tell (Linux only). What limits a client can be its simulator's pace.
    double cpuSeconds(int index) const;

private:
    QString m_folder;
    std::function<QByteArray(int index)> m_config;
    QList<qint64> m_pids;
};

// The yardstick: a client that speaks the frames by hand. It frames its requests into one
// reusable buffer and hands each received frame over in place, straight from its read buffer.
class RawClient
{
public:
    using FrameHandler = std::function<void(int type, const char* payload, int size)>;

    RawClient();
    // Connects (waiting for the server to listen), says hello and initialises, as the
    // library's channel does; true once the gateway answered the init with success.
    bool open(const QString& serverName, int timeoutMs = WaitMs);
    bool initialised() const { return m_initialised; }
    void send(int type, const std::string& payload);
    // Every frame received goes to the handler, the init answer included.
    void setHandler(FrameHandler handler) { m_handler = std::move(handler); }
    QLocalSocket& socket() { return m_socket; }

private:
    void readFrames();

    QLocalSocket m_socket;
    QByteArray m_in;
    qsizetype m_inStart = 0;
    std::string m_out;
    FrameHandler m_handler;
    bool m_initialised = false;
};

// The library with simulator gateways, started as an application starts it.
class Library
{
public:
    explicit Library(SimLauncher& launcher);
    ~Library();

    // Starts gateways enough for `gatewayCount` hundred devices and waits until they are
    // ready; then manages `devices` and waits until the first `onlineNeeded` report online.
    bool start(int gatewayCount, const QList<vms_sdk::DevInfo>& devices, int onlineNeeded);
    // Prepares the gateways only; true once the library reports them ready.
    bool prepare(int gatewayCount);
    bool manage(const QList<vms_sdk::DevInfo>& devices, int onlineNeeded);
    QString streamServer(const QString& devId) const;

private:
    SimLauncher& m_launcher;
    bool m_started = false;
};

QList<vms_sdk::DevInfo> devices(const QStringList& ids);

// A row of the table: one workload, measured for a baseline and for the library in each run.
struct Row
{
    enum class Goal {
        None,         // shown for information
        RatioAtMost,  // library / baseline at most `goal`
        RatioAtLeast, // library / baseline at least `goal`
        LibraryAtMost // the library's figure at most `goal`, whatever the baseline
    };
    std::string key;
    std::string workload;
    std::string baseline; // what the baseline is; empty: no baseline
    std::string unit;
    Goal goal = Goal::None;
    double goalValue = 0;
    int decimals = 1;
};

// Collects samples (baseline, library) per run and prints one line per row.
class Table
{
public:
    explicit Table(std::vector<Row> rows);
    void add(const std::string& key, double baseline, double library);
    // Prints the rows as lines of a Markdown table (the header is scripts/bench.sh's); false
    // when a row has no sample.
    bool print() const;

private:
    std::vector<Row> m_rows;
    std::map<std::string, std::vector<std::pair<double, double>>> m_samples;
};

// A child run prints each sample as one line; the parent reads them back.
void printSample(const std::string& key, double baseline, double library);

// The parent side of a benchmark that runs in child processes: runs this program `runs` times
// with `--run=<mode>` (and `extra` arguments), adding each child's samples to `table`. False
// when a child failed; its output is shown.
bool runChildren(const QString& mode, int runs, const QStringList& extra, Table& table);

// The arguments every benchmark takes: --runs=N, --smoke (one short iteration, no figures
// that mean anything) and --run=<mode> for a child; the rest is left in `rest`.
struct Options
{
    int runs = 3;
    bool smoke = false;
    QString run;
    QMap<QString, QString> values;
    QStringList rest;

    static Options parse(int argc, char** argv);
    int number(const QString& name, int fallback) const;
    // What a child run is given of these: the values and --smoke.
    QStringList forwarded() const;
};

// Takes `--<name>=N` out of the arguments, so that Google Benchmark does not refuse it, and
// returns N (`fallback` when the argument is not there).
qint64 takeNumberArgument(int& argc, char** argv, const char* name, qint64 fallback);

// Keeps the library's log and the simulators' files in a temporary folder, not in the home.
class Sandbox
{
public:
    Sandbox();
    QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

} // namespace vms_bench
