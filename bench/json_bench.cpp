// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// What a JSON method document costs through the library's own builder and parser, next to
// plain QJsonDocument doing the same.
//
// The documents are real: the requests are the library's own, the answers are what the
// simulator sends back for them (a small method, and an event list of 1,000 records, one full
// page), fetched once before the benchmarks by a raw client.
//   build   library: CommonReqWorker builds the request (document text in its wire message);
//           plain: the same document put together key by key with QJsonObject and written
//           indented, as devices expect it;
//   parse   library: CommonResWorker takes the answer text as the incoming path hands it over
//           and emits the records on ClientSignals; plain: QJsonDocument::fromJson and a walk
//           that reads every value once.
#include "bench_support.h"

#include <vms_sdk/client_signals.h>
#include <vms_sdk/vms_client_sdk.h>

#include "vms_protocol/message_type.h"
#include "vms_sdk/json_methods/common_req_worker.h"
#include "vms_sdk/json_methods/common_res_worker.h"
#include "vms_sdk/request/request_mgr.h"

#include "vms_message.pb.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>

namespace {

using namespace vms_sdk;
using vms_bench::Row;

const DeviceCondition smallCondition{.requestId = QStringLiteral("json-small"),
                                     .devId = QStringLiteral("cam-1")};

// Exactly 1,000 events at the simulator's default spacing of 15 minutes, ends included.
const GetEventRecordsCondition eventsCondition{
    .requestId = QStringLiteral("json-events"),
    .channelId = {.devId = QStringLiteral("cam-1"), .channelIndex = 1},
    .startTime = QDateTime(QDate(2024, 3, 1), QTime(0, 0)),
    .endTime = QDateTime(QDate(2024, 3, 1), QTime(0, 0)).addSecs(999 * 15 * 60)};

struct Documents
{
    std::string smallAnswer;
    std::string eventsAnswer;
};
Documents documents;
int failures = 0;

// Reads every value once, as a client that uses the whole document would.
double walk(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Object: {
        double sum = 0;
        const QJsonObject object = value.toObject();
        for (auto it = object.begin(); it != object.end(); ++it)
            sum += walk(it.value());
        return sum;
    }
    case QJsonValue::Array: {
        double sum = 0;
        for (const QJsonValue& item : value.toArray())
            sum += walk(item);
        return sum;
    }
    case QJsonValue::String:
        return double(value.toString().size());
    case QJsonValue::Double:
        return value.toDouble();
    case QJsonValue::Bool:
        return value.toBool() ? 1 : 0;
    default:
        return 0;
    }
}

// The same document put together key by key.
QJsonValue rebuilt(const QJsonValue& value)
{
    if (value.isObject()) {
        QJsonObject object;
        const QJsonObject source = value.toObject();
        for (auto it = source.begin(); it != source.end(); ++it)
            object.insert(it.key(), rebuilt(it.value()));
        return object;
    }
    if (value.isArray()) {
        QJsonArray array;
        for (const QJsonValue& item : value.toArray())
            array.append(rebuilt(item));
        return array;
    }
    return value;
}

void libraryBuild(benchmark::State& state)
{
    CommonReqWorker worker(nullptr);
    for (auto _ : state)
        benchmark::DoNotOptimize(worker.getDevNetMode(smallCondition));
}

void plainBuild(benchmark::State& state)
{
    const QJsonObject reference =
        QJsonDocument::fromJson(
            QByteArray::fromStdString(
                CommonReqWorker(nullptr).getDevNetMode(smallCondition).req_json()))
            .object();
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument(rebuilt(reference).toObject()).toJson());
}

template<std::string Documents::*answer>
void libraryParse(benchmark::State& state)
{
    RequestMgr registry;
    CommonResWorker worker(&registry, nullptr);
    const QString requestId = QStringLiteral("parse");
    for (auto _ : state)
        worker.handleCommonRes(requestId, QString::fromStdString(documents.*answer));
}

template<std::string Documents::*answer>
void plainParse(benchmark::State& state)
{
    for (auto _ : state) {
        const QJsonDocument document =
            QJsonDocument::fromJson(QByteArray::fromStdString(documents.*answer));
        benchmark::DoNotOptimize(walk(document.object()));
    }
}

struct BenchRow
{
    Row row;
    void (*library)(benchmark::State&);
    void (*plain)(benchmark::State&);
};

const BenchRow rows[] = {
    {{"build", "JSON build, small method request", "plain QJsonDocument", "µs", Row::Goal::None, 0,
      2},
     libraryBuild,
     plainBuild},
    {{"parse small", "JSON parse, small method answer", "plain QJsonDocument", "µs",
      Row::Goal::None, 0, 2},
     libraryParse<&Documents::smallAnswer>,
     plainParse<&Documents::smallAnswer>},
    {{"parse events", "JSON parse, event list of 1,000 records", "plain QJsonDocument", "µs",
      Row::Goal::None, 0, 0},
     libraryParse<&Documents::eventsAnswer>,
     plainParse<&Documents::eventsAnswer>},
};

// The console output as usual, then the rows: CPU microseconds per document (single-threaded
// work, so a busy machine does not count against it), repetition by repetition.
class RowReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            m_failed = m_failed || run.error_occurred;
            const auto found = m_names.find(run.run_name.function_name);
            if (run.run_type == Run::RT_Iteration && !run.error_occurred &&
                found != m_names.end() && run.iterations > 0) {
                m_times[found->second].push_back(run.cpu_accumulated_time * 1e6 /
                                                 double(run.iterations));
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    void Finalize() override
    {
        ConsoleReporter::Finalize();
        std::vector<Row> tableRows;
        for (const BenchRow& row : rows)
            tableRows.push_back(row.row);
        vms_bench::Table table(tableRows);
        for (const BenchRow& row : rows) {
            const std::vector<double>& library = m_times[{row.row.key, true}];
            const std::vector<double>& plain = m_times[{row.row.key, false}];
            for (size_t i = 0; i < qMin(library.size(), plain.size()); ++i)
                table.add(row.row.key, plain[i], library[i]);
        }
        std::printf("\n");
        table.print();
    }

    void name(const std::string& name, const std::string& key, bool library)
    {
        m_names[name] = {key, library};
    }
    bool failed() const { return m_failed; }

private:
    using Key = std::pair<std::string, bool>;
    std::map<std::string, Key> m_names;
    std::map<Key, std::vector<double>> m_times;
    bool m_failed = false;
};

// Asks the simulator, through a raw client, for the answers to the library's own requests.
bool fetchAnswers(const QString& folder)
{
    vms_bench::SimLauncher launcher(folder);
    vms_bench::RawClient client;
    if (!client.open(launcher.startByHand()))
        return false;
    std::map<std::string, std::string> answers;
    client.setHandler([&](int type, const char* payload, int size) {
        vms_sdk_proto::CommonRes answer;
        if (type == CommonRes && answer.ParseFromArray(payload, size))
            answers[answer.request_id()] = answer.res_json();
    });
    const CommonReqWorker worker(nullptr);
    client.send(CommonReq, worker.getDevNetMode(smallCondition).SerializeAsString());
    client.send(CommonReq, worker.getEventRecords(eventsCondition, 1).SerializeAsString());
    if (!vms_bench::waitUntil([&] { return answers.size() == 2; }))
        return false;
    documents.smallAnswer = answers[smallCondition.requestId.toStdString()];
    documents.eventsAnswer = answers[eventsCondition.requestId.toStdString()];
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    vms_bench::Sandbox sandbox;
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vms_bench_json"));
    // The log as an application has it: the parser writes its lines there.
    init_vms_client_sdk();
    if (!fetchAnswers(sandbox.path())) {
        std::fprintf(stderr, "the simulator did not answer the JSON methods\n");
        return 1;
    }
    QObject::connect(ClientSignals::instance(), &ClientSignals::signalCommonRequestFailed,
                     [](const QString&, int) { ++failures; });

    RowReporter reporter;
    for (const BenchRow& row : rows) {
        for (const bool library : {true, false}) {
            const std::string name = "json/" + row.row.key + (library ? "/library" : "/plain");
            benchmark::RegisterBenchmark(name.c_str(), library ? row.library : row.plain)
                ->Unit(benchmark::kMicrosecond);
            reporter.name(name, row.row.key, library);
        }
    }
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    release_vms_client_sdk();
    if (failures > 0)
        std::fprintf(stderr, "the library refused %d answers\n", failures);
    return reporter.failed() || failures > 0 ? 1 : 0;
}
