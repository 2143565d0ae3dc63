// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "support/test_support.h"

#include "vms_kit/vms_kit.h"
#include "vms_sdk/gateway/private_names.h"

#include <QDir>
#include <QFile>
#include <QLocalServer>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace vms_sdk;

namespace {

int modeOf(const QString& path)
{
    struct stat info = {};
    if (::lstat(QFile::encodeName(path).constData(), &info) != 0)
        return -1;
    return int(info.st_mode & 07777);
}

// Points the runtime folder somewhere fresh for one case and restores it afterwards.
class PrivateNamesTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        logPath = vms_test::openTestLog();
        saved = qgetenv("XDG_RUNTIME_DIR");
        runtime = vms_test::tempDir() + QStringLiteral("/rt-%1").arg(++counter);
        ASSERT_TRUE(QDir().mkpath(runtime));
        qputenv("XDG_RUNTIME_DIR", runtime.toUtf8());
    }
    void TearDown() override
    {
        qputenv("XDG_RUNTIME_DIR", saved);
        vms_kit::release_vms_log();
    }

    QString logPath;
    QString runtime;
    QByteArray saved;
    static inline int counter = 0;
};

TEST_F(PrivateNamesTest, NamesArePathsInAFolderOnlyWeCanEnter)
{
    const QString folder = runtime + QStringLiteral("/vms_sdk");
    const QString name = private_names::serverName(QStringLiteral("0123abcd"));
    EXPECT_EQ(name, folder + QStringLiteral("/0123abcd"));
    EXPECT_EQ(modeOf(folder), 0700);
    struct stat info = {};
    ASSERT_EQ(::lstat(QFile::encodeName(folder).constData(), &info), 0);
    EXPECT_EQ(info.st_uid, ::getuid());
    // A server can listen under such a name and is found under it.
    QLocalServer server;
    ASSERT_TRUE(server.listen(name));
    EXPECT_EQ(server.fullServerName(), name);
}

TEST_F(PrivateNamesTest, AnOpenFolderOfOursIsClosedAndAnythingElseIsRefused)
{
    const QString folder = runtime + QStringLiteral("/vms_sdk");
    struct Row
    {
        const char* name;
        std::function<void()> prepare;
        bool usable;
    };
    const QList<Row> rows{
        {"ours but open to everybody",
         [&] {
             ::mkdir(QFile::encodeName(folder).constData(), 0700);
             ::chmod(QFile::encodeName(folder).constData(), 0777);
         },
         true},
        {"a file in its place",
         [&] {
             QFile file(folder);
             file.open(QIODevice::WriteOnly);
         },
         false},
        {"a link to an open folder",
         [&] {
             const QString elsewhere = runtime + QStringLiteral("/elsewhere");
             ::mkdir(QFile::encodeName(elsewhere).constData(), 0777);
             QFile::link(elsewhere, folder);
         },
         false},
    };
    for (const Row& row : rows) {
        QDir(folder).removeRecursively();
        QFile::remove(folder);
        row.prepare();
        EXPECT_EQ(private_names::directory().isEmpty(), !row.usable) << row.name;
        EXPECT_EQ(private_names::serverName(QStringLiteral("x")).isEmpty(), !row.usable)
            << row.name;
        if (row.usable) {
            EXPECT_EQ(modeOf(folder), 0700) << row.name;
        }
    }
    EXPECT_EQ(
        vms_test::countLines(
            logPath,
            QStringLiteral("dgw server folder %1 is not private, no dgw started").arg(folder)),
        4);
}

TEST_F(PrivateNamesTest, WithoutARuntimeFolderTheTempFolderHoldsOneNamedWithOurUser)
{
    qputenv("XDG_RUNTIME_DIR", QByteArray());
    const QString expected = QDir::tempPath() + QStringLiteral("/vms_sdk-%1").arg(::getuid());
    EXPECT_EQ(private_names::directory(), expected);
    EXPECT_EQ(modeOf(expected), 0700);
}

} // namespace
