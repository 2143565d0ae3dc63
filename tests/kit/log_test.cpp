// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "support/test_support.h"

#include "vms_kit/line_formatter.h"
#include "vms_kit/vms_kit.h"

#include <QDir>
#include <QRegularExpression>
#include <QUuid>

#include <gtest/gtest.h>
#include <spdlog/details/log_msg.h>
#include <spdlog/pattern_formatter.h>

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
    // A few lines stay held until the release; many go out in several writes on the way.
    for (const int count : {1, 100, 5000}) {
        SCOPED_TRACE(count);
        const QString path = freshLogPath();
        init_vms_log(path, QStringLiteral("kit"));
        for (int i = 0; i < count; ++i)
            log_info(QStringLiteral("line %1").arg(i), tag);
        release_vms_log();
        const QStringList lines = vms_test::readFileLines(path);
        ASSERT_EQ(lines.size(), count);
        for (int i = 0; i < count; ++i)
            ASSERT_TRUE(lines[i].endsWith(tag + QStringLiteral("line %1").arg(i))) << i;
    }
}

TEST(Log, OpeningAnotherLogWritesOutTheLinesOfTheFirst)
{
    const QString first = freshLogPath();
    const QString second = freshLogPath();
    init_vms_log(first, QStringLiteral("kit"));
    log_info(QStringLiteral("to the first"), tag);
    init_vms_log(second, QStringLiteral("kit"));
    const QStringList lines = vms_test::readFileLines(first);
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines[0].endsWith(tag + QStringLiteral("to the first")));
    release_vms_log();
    EXPECT_TRUE(vms_test::readFileLines(second).isEmpty());
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

// The formatter must print what spdlog's own pattern prints, letter for letter, however the
// times of consecutive lines fall: within a second, across one, back in time.
TEST(Log, TheLineFormatterPrintsWhatThePatternPrints)
{
    using namespace std::chrono;
    using spdlog::level::level_enum;
    struct Row
    {
        const char* name;
        milliseconds time; // since the epoch
        level_enum level;
        const char* text;
    };
    const milliseconds noon{1'798'200'000'000};
    const Row rows[] = {
        {"first line", noon, level_enum::info, "first"},
        {"same second", noon + 999ms, level_enum::trace, "[tag:]  dgw push device status:c 1"},
        {"next second", noon + 1s, level_enum::err, "int dgw failure"},
        {"a millisecond in", noon + 1001ms, level_enum::info, ""},
        {"back in time", noon - 1ms, level_enum::info, "late"},
        {"another day", noon + 86'400'123ms, level_enum::trace, "caf\xc3\xa9"},
        {"the day before", noon - 86'400'010ms, level_enum::err, "x"},
    };
    vms_kit::LineFormatter ours;
    spdlog::pattern_formatter pattern("[%Y-%m-%d %H:%M:%S.%e] [%l] %v");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        spdlog::details::log_msg msg(spdlog::log_clock::time_point(row.time), {}, "kit", row.level,
                                     row.text);
        spdlog::memory_buf_t expected;
        spdlog::memory_buf_t got;
        pattern.format(msg, expected);
        ours.format(msg, got);
        EXPECT_EQ(fmt::to_string(got), fmt::to_string(expected));
    }
    // A clone starts afresh and prints the same.
    spdlog::details::log_msg msg(spdlog::log_clock::time_point(noon), {}, "kit", level_enum::info,
                                 "clone");
    spdlog::memory_buf_t expected;
    spdlog::memory_buf_t got;
    pattern.format(msg, expected);
    ours.clone()->format(msg, got);
    EXPECT_EQ(fmt::to_string(got), fmt::to_string(expected));
}

TEST(Log, TextsReachTheLineInUtf8)
{
    struct Row
    {
        const char* name;
        QString text;
        std::string utf8;
    };
    const Row rows[] = {
        {"ASCII", QStringLiteral("cam-1 0"), "cam-1 0"},
        {"empty", QString(), ""},
        {"Latin-1 after ASCII", QStringLiteral("Caf\u00e9!"), "Caf\xc3\xa9!"},
        {"first letter not ASCII", QStringLiteral("\u00e9t\u00e9"), "\xc3\xa9t\xc3\xa9"},
        {"three bytes", QStringLiteral("id \u6444"), "id \xe6\x91\x84"},
        {"surrogate pair", QStringLiteral("a\U0001F600b"),
         "a\xf0\x9f\x98\x80"
         "b"},
        {"replacement character", QStringLiteral("Caf\uFFFD"), "Caf\xef\xbf\xbd"},
    };
    for (const Row& row : rows) {
        std::string line = "[tag:]";
        appendUtf8(line, row.text);
        EXPECT_EQ(line, "[tag:]" + row.utf8) << row.name;
    }
}
