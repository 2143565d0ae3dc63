// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_sdk/client/message_signals.h"
#include "vms_sdk/client/sdk_log.h"

#include <QFile>
#include <QSignalSpy>
#include <QStandardPaths>

#include <gtest/gtest.h>

using namespace vms_sdk;

namespace {

QString clientLogPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QStringLiteral("/vms.client.log");
}

} // namespace

// Each case runs in a process of its own, so the library starts uninitialised in each.

TEST(Lifecycle, InitOpensTheLogInTheApplicationDataFolderOnlyOnce)
{
    init_vms_client_sdk();
    log::info(QStringLiteral("first"));
    ASSERT_EQ(vms_test::readLines(clientLogPath()).size(), 1);
    EXPECT_TRUE(vms_test::readLines(clientLogPath())[0].endsWith(
        QStringLiteral("[info] [vms_client_sdk:]    first")));

    // Had the second call opened the log again, it would create the file anew.
    ASSERT_TRUE(QFile::remove(clientLogPath()));
    init_vms_client_sdk();
    log::info(QStringLiteral("second"));
    EXPECT_FALSE(QFile::exists(clientLogPath()));
}

TEST(Lifecycle, ReleaseLogsLastThenTellsTheGatewaysInSilence)
{
    init_vms_client_sdk();
    log::trace(QStringLiteral("working"));
    int releaseSeen = 0;
    QObject::connect(MessageSignals::instance(), &MessageSignals::signalReleaseClientSdk, [&] {
        ++releaseSeen;
        log::info(QStringLiteral("shutting gateways down"));
    });
    release_vms_client_sdk();
    EXPECT_EQ(releaseSeen, 1);
    release_vms_client_sdk(); // a second release is harmless
    log::error(QStringLiteral("after release"));

    const QStringList lines = vms_test::readLines(clientLogPath());
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines[0].endsWith(QStringLiteral("[trace] [vms_client_sdk:]    working")));
    EXPECT_TRUE(
        lines[1].endsWith(QStringLiteral("[info] [vms_client_sdk:]    release vms client sdk")));

    // Released is final: initialising again does not reopen the log.
    init_vms_client_sdk();
    log::info(QStringLiteral("still nothing"));
    EXPECT_EQ(vms_test::readLines(clientLogPath()).size(), 2);
}

TEST(Lifecycle, ReleaseWithoutInitStillSignalsAndLogsNothing)
{
    QSignalSpy released(MessageSignals::instance(), &MessageSignals::signalReleaseClientSdk);
    release_vms_client_sdk();
    EXPECT_EQ(released.count(), 1);
    EXPECT_FALSE(QFile::exists(clientLogPath()));
}
