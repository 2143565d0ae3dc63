// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "sim_log.h"

#include <cstdio>

namespace vms_dgw_sim {
namespace {

QString& logName()
{
    static QString name = QStringLiteral("vms_dgw_sim");
    return name;
}

} // namespace

void setLogName(const QString& name)
{
    logName() = name;
}

void logLine(const QString& text)
{
    const QByteArray line = (logName() + QStringLiteral(": ") + text + QLatin1Char('\n')).toUtf8();
    // Flushed per line: a crash fault must not swallow what led up to it.
    std::fwrite(line.constData(), 1, size_t(line.size()), stderr);
    std::fflush(stderr);
}

} // namespace vms_dgw_sim
