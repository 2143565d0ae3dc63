// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "gateway_output.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace vms_cli {

FILE* keepStderr()
{
#ifdef Q_OS_UNIX
    static FILE* own = [] {
        const int fd = ::dup(STDERR_FILENO);
        FILE* file = fd >= 0 ? ::fdopen(fd, "w") : nullptr;
        return file ? file : stderr;
    }();
    return own;
#else
    return stderr;
#endif
}

QString divertGatewayOutput()
{
#ifdef Q_OS_UNIX
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    const QString path = folder + QStringLiteral("/gateways.log");
    if (!QDir().mkpath(folder))
        return {};
    const int fd = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (fd < 0)
        return {};
    keepStderr();
    ::dup2(fd, STDERR_FILENO);
    ::close(fd);
    return path;
#else
    return {};
#endif
}

} // namespace vms_cli
