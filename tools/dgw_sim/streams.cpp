// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "streams.h"

#include "serve_frames.h"
#include "sim_log.h"

#include "vms_protocol/message_type.h"

#include <QLocalServer>
#include <QLocalSocket>

namespace vms_dgw_sim {

StreamServer::StreamServer(QObject* parent)
    : QObject(parent)
    , m_server(new QLocalServer(this))
{
    connect(m_server, &QLocalServer::newConnection, this, &StreamServer::accept);
}

bool StreamServer::listen(const QString& name, QString* error)
{
    QLocalServer::removeServer(name);
    if (m_server->listen(name))
        return true;
    *error = QStringLiteral("cannot listen on %1: %2").arg(name, m_server->errorString());
    return false;
}

void StreamServer::accept()
{
    while (QLocalSocket* socket = m_server->nextPendingConnection())
        new StreamConnection(socket, m_streams++, this);
}

StreamConnection::StreamConnection(QLocalSocket* socket, int number, QObject* parent)
    : QObject(parent)
    , m_socket(socket)
    , m_name(QStringLiteral("stream %1").arg(number))
{
    m_socket->setParent(this);
    serveFrames(
        this, m_socket, &m_reader, [] { return true; },
        [this](const vms_sdk::Frame& frame) { handle(frame); },
        [this](const QString& text) { log(text); });
}

void StreamConnection::handle(const vms_sdk::Frame& frame)
{
    log(QStringLiteral("<- %1 %2 (%3 bytes): streams are not simulated yet")
            .arg(frame.type)
            .arg(vms_sdk::messageTypeName(frame.type))
            .arg(frame.payload.size()));
}

void StreamConnection::log(const QString& text)
{
    logLine(m_name + QStringLiteral(": ") + text);
}

} // namespace vms_dgw_sim
