// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// vms_cli as a user runs it: the built executable with the bundled simulator and devices.
#include "support/test_support.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

struct CliRun
{
    int exitCode = -1;
    QString out;
    QString err;
};

CliRun runCli(const QStringList& args, int timeoutMs = 30000)
{
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    // Its log and sockets in the test's own folders; the bundled devices, not a test's config.
    env.insert(QStringLiteral("XDG_DATA_HOME"), vms_test::tempDir() + QStringLiteral("/data"));
    env.remove(QStringLiteral("VMS_DGW_SIM_CONFIG"));
    process.setProcessEnvironment(env);
    process.start(QStringLiteral(VMS_CLI_PATH), args);
    CliRun run;
    if (!process.waitForFinished(timeoutMs)) {
        process.kill();
        process.waitForFinished();
    }
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

TEST(VmsCli, CallsRequestsOfEveryKindByName)
{
    struct Row
    {
        const char* name;
        QStringList args;
        int exitCode;
        QStringList outHas;
    };
    const Row rows[] = {
        {"a condition record, nested by dotted names",
         {"call", "get_presets_req", "channelId.devId=cam-2", "channelId.channelIndex=1"},
         0,
         {"get_presets_req vms-", ": answered", "presets: (3)", "presetName: Lifts"}},
        {"plain arguments, a date from text",
         {"call", "get_dev_logs_req", "devId=cam-1", "date=2024-03-01"},
         0,
         {"get_dev_logs_req", ": answered", "logs: ("}},
        {"a device's refusal is an answer with its error, and exit 1",
         {"call", "get_presets_req", "channelId.devId=cam-2", "channelId.channelIndex=9"},
         1,
         {": answered, error 1002", "errCode: 1002"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const CliRun run = runCli(row.args);
        EXPECT_EQ(run.exitCode, row.exitCode) << run.err.toStdString();
        for (const QString& text : row.outHas)
            EXPECT_TRUE(run.out.contains(text)) << text.toStdString() << " not in\n"
                                                << run.out.toStdString();
    }
}

TEST(VmsCli, RefusesWrongArgumentsAndListsWhatIsValid)
{
    struct Row
    {
        const char* name;
        QStringList args;
        QStringList errHas;
    };
    const Row rows[] = {
        {"unknown request",
         {"call", "get_everything_req"},
         {"unknown request get_everything_req", "get_presets_req: requestId (QString), channelId"}},
        {"unknown field",
         {"call", "get_dev_net_req", "device=cam-1"},
         {"get_dev_net_req has no field device", "requestId (QString), devId (QString)"}},
        {"not key=value", {"call", "get_dev_net_req", "cam-1"}, {"cam-1 is not key=value"}},
        {"a value that does not convert",
         {"call", "get_dev_logs_req", "devId=cam-1", "date=soon"},
         {"date"}},
        {"no request", {"call"}, {"which request?"}},
        {"unknown command", {"explode"}, {"unknown command explode", "usage: vms_cli"}},
        {"unknown option", {"demo", "--fast"}, {"unknown option --fast"}},
        {"stream at no time",
         {"stream", "time", "cam-1", "1", "noon"},
         {"stream time DEVICE CHANNEL"}},
        {"demo takes nothing", {"demo", "now"}, {"takes no arguments"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const CliRun run = runCli(row.args);
        EXPECT_EQ(run.exitCode, 2) << run.out.toStdString();
        for (const QString& text : row.errHas)
            EXPECT_TRUE(run.err.contains(text)) << text.toStdString() << " not in\n"
                                                << run.err.toStdString();
    }
}

TEST(VmsCli, JsonLinesParseBack)
{
    const CliRun run = runCli({"--json", "call", "get_presets_req", "channelId.devId=cam-2",
                               "channelId.channelIndex=1", "requestId=json-1"});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QStringList lines = run.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 1) << run.out.toStdString();
    QJsonParseError error;
    const QJsonObject object = QJsonDocument::fromJson(lines[0].toUtf8(), &error).object();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << lines[0].toStdString();
    EXPECT_EQ(object.value("request"), "get_presets_req");
    EXPECT_EQ(object.value("requestId"), "json-1");
    EXPECT_EQ(object.value("end"), "answered");
    EXPECT_EQ(object.value("errorCode"), 0);
    const QJsonObject answer = object.value("answer").toObject();
    EXPECT_EQ(answer.value("response").toObject().value("requestId"), "json-1");
    const QJsonArray presets = answer.value("presets").toArray();
    ASSERT_EQ(presets.size(), 3);
    EXPECT_EQ(presets[2].toObject(), (QJsonObject{{"presetNum", 3}, {"presetName", "Lifts"}}));
}

TEST(VmsCli, TheDemoPassesEveryStepAndShutsDownCleanly)
{
    const CliRun run = runCli({"demo"}, 90000);
    EXPECT_EQ(run.exitCode, 0) << run.out.toStdString() << run.err.toStdString();
    const QRegularExpression summary(QStringLiteral(
        R"(\ndemo: (\d+) steps, (\d+) passed, 0 failed, 0 timed out in [\d.]+ s\n$)"));
    const auto match = summary.match(run.out);
    ASSERT_TRUE(match.hasMatch()) << run.out.toStdString();
    EXPECT_EQ(match.captured(1), match.captured(2));
    EXPECT_FALSE(run.out.contains(QStringLiteral("FAILED")));
    // Release ends the gateways as asked: nothing reports them abnormal.
    EXPECT_FALSE(run.err.contains(QStringLiteral("abnormal"))) << run.err.toStdString();
    for (const char* family : {"gateways",   "discovery", "device management",
                               "network",    "platform",  "PTZ",
                               "recordings", "live view", "playback",
                               "talk",       "faces",     "alarms",
                               "events",     "counting",  "plates",
                               "disks",      "logs",      "image",
                               "upgrade",    "files"})
        EXPECT_TRUE(run.out.contains(QStringLiteral("\n%1\n").arg(QLatin1String(family))))
            << family;
}

} // namespace
