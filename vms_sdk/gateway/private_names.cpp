// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/gateway/private_names.h"

#include "vms_sdk/client/sdk_log.h"

#include <QDir>
#include <QFile>

#ifdef Q_OS_LINUX
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace vms_sdk::private_names {

#ifdef Q_OS_LINUX
namespace {

// Makes `path` a folder of ours that nobody else can enter. A folder that is someone else's,
// or not a folder at all, is refused: it may have been put there to catch our names.
bool makePrivate(const QString& path)
{
    const QByteArray native = QFile::encodeName(path);
    if (::mkdir(native.constData(), 0700) != 0 && errno != EEXIST)
        return false;
    struct stat info = {};
    if (::lstat(native.constData(), &info) != 0 || !S_ISDIR(info.st_mode) ||
        info.st_uid != ::getuid())
        return false;
    // Ours, but left open by an older version or a permissive umask elsewhere: close it.
    if ((info.st_mode & 077) != 0 && ::chmod(native.constData(), 0700) != 0)
        return false;
    return true;
}

} // namespace

QString directory()
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QString path = !runtime.isEmpty() && QDir(runtime).exists()
                             ? runtime + QStringLiteral("/vms_sdk")
                             : QDir::tempPath() + QStringLiteral("/vms_sdk-%1").arg(::getuid());
    if (makePrivate(path))
        return path;
    log::error(QStringLiteral("dgw server folder %1 is not private, no dgw started").arg(path));
    return QString();
}

QString serverName(const QString& name)
{
    const QString folder = directory();
    return folder.isEmpty() ? QString() : folder + QLatin1Char('/') + name;
}

#else

QString directory()
{
    return QString();
}

QString serverName(const QString& name)
{
    return name;
}

#endif

} // namespace vms_sdk::private_names
