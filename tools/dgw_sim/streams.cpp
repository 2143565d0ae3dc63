// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "streams.h"

#include "sim_log.h"

#include "vms_protocol/message_type.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>

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
    connect(m_socket, &QLocalSocket::readyRead, this, &StreamConnection::readFrames);
    connect(m_socket, &QLocalSocket::disconnected, this, [this] {
        log(QStringLiteral("disconnected"));
        deleteLater();
    });
    log(QStringLiteral("connected"));
    readFrames();
    if (m_socket->state() == QLocalSocket::UnconnectedState) {
        log(QStringLiteral("disconnected"));
        deleteLater();
    }
}

void StreamConnection::readFrames()
{
    QPointer<StreamConnection> self(this);
    vms_sdk::Frame frame;
    while (self && m_reader.read(*m_socket, frame))
        handle(frame);
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
