// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The stream reading path: a StreamSocket connected to an in-process stream server that
// writes the input and hangs up. What the socket reassembles goes to the stream worker's
// handling, as in the library; the stream must end (disconnect) whatever the bytes.
#include "fuzz_support.h"

#include "vms_sdk/stream/stream_socket.h"
#include "vms_sdk/stream/stream_worker.h"

#include <QDeadlineTimer>
#include <QLocalServer>
#include <QLocalSocket>

#include <cstdlib>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    vms_fuzz::application();
    static QLocalServer* server = [] {
        auto* s = new QLocalServer;
        const QString name =
            QStringLiteral("vms_fuzz_stream_%1").arg(QCoreApplication::applicationPid());
        QLocalServer::removeServer(name);
        if (!s->listen(name))
            std::abort();
        return s;
    }();
    static vms_sdk::StreamWorker worker;

    vms_sdk::StreamSocket socket(
        1, vms_sdk::LiveVideoConnCondition{
               .channelId = {.devId = QStringLiteral("cam-1"), .channelIndex = 1}});
    QObject::connect(&socket, &vms_sdk::StreamSocket::signalMessageComing, &worker,
                     &vms_sdk::StreamWorker::slotStreamSocketMessageComing);
    bool over = false;
    QObject::connect(&socket, &vms_sdk::StreamSocket::signalConnectStatus,
                     [&over](vms_sdk::StreamId, vms_sdk::ConnStatus status) {
                         over = over || status != vms_sdk::ConnStatusConnected;
                     });
    socket.open(server->fullServerName());
    if (!server->waitForNewConnection(5000))
        std::abort();
    std::unique_ptr<QLocalSocket> peer(server->nextPendingConnection());
    peer->write(vms_fuzz::bytes(data, size));
    peer->disconnectFromServer();

    const QDeadlineTimer deadline(10000);
    while (!over) {
        if (deadline.hasExpired())
            std::abort(); // a stream that never ends
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    }
    peer.reset();
    vms_fuzz::settle();
    return 0;
}
