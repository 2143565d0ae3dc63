// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "support/test_support.h"

#include "vms_kit/vms_kit.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QUuid>

namespace vms_test {

bool waitFor(const std::function<bool()>& condition, int timeoutMs)
{
    return QTest::qWaitFor(condition, timeoutMs);
}

QString tempDir()
{
    static QTemporaryDir dir;
    return dir.path();
}

QStringList readLines(const QString& path)
{
    // The log holds lines below error level back for up to a second.
    vms_kit::flush_vms_log();
    return readFileLines(path);
}

QStringList readFileLines(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

int countLines(const QString& path, const QString& text)
{
    int n = 0;
    for (const QString& line : readLines(path))
        n += line.endsWith(text) ? 1 : 0;
    return n;
}

QString openTestLog()
{
    const QString path = tempDir() + QStringLiteral("/log-") +
                         QUuid::createUuid().toString(QUuid::Id128) + QStringLiteral(".log");
    vms_kit::init_vms_log(path, QStringLiteral("test_log"));
    return path;
}

} // namespace vms_test
