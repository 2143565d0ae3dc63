// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/channel/peer_check.h"

#include <QLocalSocket>

#ifdef Q_OS_UNIX
#include <sys/socket.h>
#include <sys/types.h>
#include <unistd.h>
#endif

namespace vms_sdk::peer_check {

#ifdef Q_OS_UNIX

QString mismatch(const QLocalSocket& socket, qint64 expectedUser)
{
    const qint64 wanted = expectedUser == OwnUser ? qint64(::getuid()) : expectedUser;
    const int descriptor = int(socket.socketDescriptor());
#ifdef Q_OS_LINUX
    struct ucred peer = {};
    socklen_t size = sizeof(peer);
    if (::getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0)
        return QStringLiteral("peer credentials unavailable");
    const qint64 user = peer.uid;
    const QString who = QStringLiteral("pid %1 uid %2").arg(peer.pid).arg(user);
#else
    uid_t peerUser = 0;
    gid_t peerGroup = 0;
    if (::getpeereid(descriptor, &peerUser, &peerGroup) != 0)
        return QStringLiteral("peer credentials unavailable");
    const qint64 user = peerUser;
    const QString who = QStringLiteral("uid %1").arg(user);
#endif
    if (user != wanted)
        return QStringLiteral("peer %1, expected uid %2").arg(who).arg(wanted);
    return QString();
}

#else

QString mismatch(const QLocalSocket& socket, qint64 expectedUser)
{
    Q_UNUSED(socket)
    Q_UNUSED(expectedUser)
    return QString();
}

#endif

} // namespace vms_sdk::peer_check
