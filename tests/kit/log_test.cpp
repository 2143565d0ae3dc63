// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "support/test_support.h"

#include "vms_kit/vms_kit.h"

#include <QDir>
#include <QRegularExpression>
#include <QUuid>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

using namespace vms_kit;

namespace {

const QString tag = QStringLiteral("[tag:]  ");

QString freshLogPath(const QString& subFolder = {})
{
    return vms_test::tempDir() + QLatin1Char('/') + subFolder +
           QUuid::createUuid().toString(QUuid::Id128) + QStringLiteral(".log");
}

} // namespace

TEST(Log, ErrorLinesReachTheFileAtOnceAndTheRestSoonAfter)
{
    const QString path = freshLogPath(QStringLiteral("missing/folder/"));
    init_vms_log(path, QStringLiteral("kit"));
    log_info(QStringLiteral("first"), tag);
    log_error(QStringLiteral("second %1").arg(2), tag);
    // Read while the log is still open, nothing flushed by hand: the error took the line
    // before it along.
    EXPECT_EQ(vms_test::readFileLines(path).size(), 2);
    log_trace(QStringLiteral("third"), tag);
    ASSERT_TRUE(vms_test::waitFor([&] { return vms_test::readFileLines(path).size() == 3; }));

    const QStringList lines = vms_test::readFileLines(path);
    const QRegularExpression shape(QStringLiteral(
        R"(^\[\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3}\] \[(info|error|trace)\] (.*)$)"));
    const QStringList levels{"info", "error", "trace"};
    const QStringList texts{"first", "second 2", "third"};
    for (int i = 0; i < 3; ++i) {
        const auto match = shape.match(lines[i]);
        ASSERT_TRUE(match.hasMatch()) << lines[i].toStdString();
        EXPECT_EQ(match.captured(1), levels[i]);
        EXPECT_EQ(match.captured(2), tag + texts[i]);
    }
    release_vms_log();
}

TEST(Log, ReleaseWritesOutEveryLineHeldBack)
{
    const QString path = freshLogPath();
    init_vms_log(path, QStringLiteral("kit"));
    for (int i = 0; i < 100; ++i)
        log_info(QStringLiteral("line %1").arg(i), tag);
    release_vms_log();
    const QStringList lines = vms_test::readFileLines(path);
    ASSERT_EQ(lines.size(), 100);
    EXPECT_TRUE(lines.last().endsWith(tag + QStringLiteral("line 99")));
}

TEST(Log, LinesFromManyThreadsStayWhole)
{
    const QString path = freshLogPath();
    init_vms_log(path, QStringLiteral("kit"));
    constexpr int threads = 4;
    constexpr int perThread = 500;
    std::vector<std::thread> writers;
    for (int t = 0; t < threads; ++t) {
        writers.emplace_back([t] {
            for (int i = 0; i < perThread; ++i)
                log_info(QStringLiteral("thread %1 line %2 end").arg(t).arg(i), tag);
        });
    }
    // Releasing while others may still log must neither crash nor tear a line.
    for (auto& writer : writers)
        writer.join();
    release_vms_log();

    const QStringList lines = vms_test::readLines(path);
    ASSERT_EQ(lines.size(), threads * perThread);
    for (const QString& line : lines)
        ASSERT_TRUE(line.contains(tag + QStringLiteral("thread ")) && line.endsWith(" end"));
}

TEST(Log, AnUnwritableLogStaysSilent)
{
    const QString blocker = freshLogPath();
    QFile file(blocker);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    // A path below a regular file cannot be created.
    init_vms_log(blocker + QStringLiteral("/below/it.log"), QStringLiteral("kit"));
    log_info(QStringLiteral("nowhere to go"), tag);
    release_vms_log();
    EXPECT_FALSE(QFile::exists(blocker + QStringLiteral("/below/it.log")));
}

TEST(Log, TheEnvironmentLevelChoosesWhichLinesAreWritten)
{
    struct Row
    {
        const char* spdlogLevel; // empty: not set
        QStringList written;
    };
    const Row rows[] = {
        {"", {"info", "error", "trace"}},
        {"info", {"info", "error"}},
        {"err", {"error"}},
        {"kit=warn,other=trace", {"error"}},
        {"other=off", {"info", "error", "trace"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.spdlogLevel);
        qputenv("SPDLOG_LEVEL", row.spdlogLevel);
        const QString path = freshLogPath();
        // Twice under one name: the level is read anew and the name is never taken.
        for (int round = 0; round < 2; ++round) {
            init_vms_log(path, QStringLiteral("kit"));
            log_info(QStringLiteral("info"), tag);
            log_error(QStringLiteral("error"), tag);
            log_trace(QStringLiteral("trace"), tag);
            release_vms_log();
        }
        QStringList texts;
        for (const QString& line : vms_test::readLines(path))
            texts.append(line.section(tag, 1));
        EXPECT_EQ(texts, row.written + row.written);
    }
    qunsetenv("SPDLOG_LEVEL");
}
