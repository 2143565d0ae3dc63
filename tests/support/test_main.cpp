// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "support/test_support.h"

#include <QCoreApplication>
#include <QDir>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // The library writes its log below the application's data folder: keep every test run's
    // files out of the user's home.
    qputenv("XDG_DATA_HOME", vms_test::tempDir().toUtf8() + "/data");
    qputenv("XDG_CONFIG_HOME", vms_test::tempDir().toUtf8() + "/config");
    // The gateways' private server folder too.
    const QString runtime = vms_test::tempDir() + QStringLiteral("/runtime");
    QDir().mkpath(runtime);
    qputenv("XDG_RUNTIME_DIR", runtime.toUtf8());
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vms_sdk_test"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
