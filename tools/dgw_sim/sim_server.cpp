// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "sim_server.h"

#include "config.h"
#include "device_model.h"
#include "pushes.h"
#include "serve_frames.h"
#include "sim_log.h"

#include "vms_protocol/message_type.h"

#include <QCoreApplication>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTimer>

#include <algorithm>
#include <cstdlib>

namespace vms_dgw_sim {
namespace {

// What a flood keeps queued in the socket: enough that the client never waits for the
// gateway, little enough that the queue stays in the caches.
constexpr qint64 floodBacklogBytes = 1024 * 1024;

QString describe(int type)
{
    const QString name = vms_sdk::messageTypeName(type);
    return name.isEmpty() ? QString::number(type) : QStringLiteral("%1 %2").arg(type).arg(name);
}

} // namespace

SimServer::SimServer(const SimConfig& config, DeviceModel& model, QObject* parent)
    : QObject(parent)
    , m_config(config)
    , m_model(model)
    , m_faults(config.faults)
    , m_server(new QLocalServer(this))
    , m_idleTimer(new QTimer(this))
{
    m_idleTimer->setSingleShot(true);
    connect(m_idleTimer, &QTimer::timeout, this, [this] {
        logLine(QStringLiteral("no client for %1 ms").arg(m_config.idleExitMs));
        exit();
    });
    for (const HandlerRow& row : allHandlers()) {
        if (m_handlers.contains(row.type))
            qFatal("two handlers for message type %d", row.type);
        m_handlers.insert(row.type, row.handle);
    }
    connect(m_server, &QLocalServer::newConnection, this, &SimServer::accept);
}

bool SimServer::listen(const QString& name, QString* error)
{
    // A gateway that crashed before us may have left its socket file behind.
    QLocalServer::removeServer(name);
    if (m_server->listen(name)) {
        if (m_config.idleExitMs > 0)
            m_idleTimer->start(m_config.idleExitMs);
        return true;
    }
    *error = QStringLiteral("cannot listen on %1: %2").arg(name, m_server->errorString());
    return false;
}

void SimServer::exit()
{
    m_exiting = true;
    QCoreApplication::exit(0);
}

void SimServer::accept()
{
    while (QLocalSocket* socket = m_server->nextPendingConnection()) {
        m_idleTimer->stop();
        ++m_connected;
        auto* connection = new SimConnection(socket, *this, m_clients++);
        connect(connection, &QObject::destroyed, this, &SimServer::clientGone);
    }
}

void SimServer::clientGone()
{
    if (--m_connected == 0 && m_config.idleExitMs > 0)
        m_idleTimer->start(m_config.idleExitMs);
}

SimConnection::SimConnection(QLocalSocket* socket, SimServer& server, int number)
    : QObject(&server)
    , m_socket(socket)
    , m_server(server)
    , m_name(QStringLiteral("client %1").arg(number))
    , m_outboxTimer(new QTimer(this))
    , m_pushes(new PushScheduler(
          server.config().pushes, server.model(),
          [this](const ScheduledPush& push, const QByteArray& payload) {
              logMessage(QStringLiteral("scheduled push %1 (%2)")
                             .arg(QLatin1String(push.kind->name), push.path));
              enqueue({m_clock.elapsed(), Outgoing::Frame, push.kind->type, payload});
          },
          this))
{
    m_socket->setParent(this);
    m_clock.start();
    m_outboxTimer->setSingleShot(true);
    m_outboxTimer->setTimerType(Qt::PreciseTimer);
    connect(m_outboxTimer, &QTimer::timeout, this, &SimConnection::drain);
    connect(m_socket, &QLocalSocket::bytesWritten, this, &SimConnection::flood);
    serveFrames(
        this, m_socket, &m_reader, [this] { return !m_closing && !m_server.exiting(); },
        [this](const vms_sdk::Frame& frame) { dispatch(frame); },
        [this](const QString& text) { log(text); });
}

DeviceModel& SimConnection::model()
{
    return m_server.model();
}

const SimConfig& SimConnection::config() const
{
    return m_server.config();
}

void SimConnection::later(int ms, std::function<void()> action)
{
    // Precise: a device that is due back online must not be reported before it is.
    QTimer::singleShot(ms, Qt::PreciseTimer, this, std::move(action));
}

void SimConnection::log(const QString& text)
{
    logLine(m_name + QStringLiteral(": ") + text);
}

void SimConnection::send(int type, const QByteArray& payload)
{
    enqueue(
        {m_clock.elapsed() + m_server.faults().answerDelayMs(), Outgoing::Frame, type, payload});
}

void SimConnection::logMessage(const QString& text)
{
    if (m_server.config().messageLog)
        log(text);
}

void SimConnection::initialised()
{
    m_pushes->start();
    startFloods();
}

void SimConnection::startFloods()
{
    m_floods.clear();
    for (const ScheduledPush& push : m_server.config().pushes) {
        if (!push.flood)
            continue;
        Flood flood{{}, push.count};
        for (int firing = 0; firing < qMax(1, int(push.variants.size())); ++firing) {
            QString error;
            const QByteArray payload = buildPush(push, m_server.model(), &error, firing);
            if (payload.isNull()) {
                log(QStringLiteral("push %1 not sent: %2").arg(push.path, error));
                break;
            }
            flood.frames.append(vms_sdk::FrameCodec::encode(
                push.kind->type, m_server.faults().outgoing(push.kind->type, payload)));
        }
        if (flood.frames.size() < qMax(1, int(push.variants.size())))
            continue;
        log(QStringLiteral("flooding push %1 (%2)").arg(QLatin1String(push.kind->name), push.path));
        m_floods.append(flood);
    }
    flood();
}

void SimConnection::flood()
{
    if (m_floods.isEmpty())
        return;
    if (m_closing || m_socket->state() != QLocalSocket::ConnectedState) {
        m_floods.clear();
        return;
    }
    // Round robin over the floods, whole frames only; bytesWritten brings us back for more.
    while (!m_floods.isEmpty() && m_socket->bytesToWrite() < floodBacklogBytes) {
        for (auto flood = m_floods.begin(); flood != m_floods.end();) {
            m_socket->write(flood->frames.at(flood->sent % flood->frames.size()));
            if (++flood->sent == flood->count) {
                log(QStringLiteral("flood finished after %1 pushes").arg(flood->sent));
                flood = m_floods.erase(flood);
            } else {
                ++flood;
            }
        }
    }
    m_socket->flush();
}

void SimConnection::exitProcess()
{
    m_socket->flush();
    m_server.exit();
}

void SimConnection::dispatch(const vms_sdk::Frame& frame)
{
    logMessage(
        QStringLiteral("<- %1 (%2 bytes)").arg(describe(frame.type)).arg(frame.payload.size()));
    const Faults::Verdict verdict = m_server.faults().admit(frame.type);
    if (verdict.ignore) {
        logMessage(QStringLiteral("fault: message type %1 ignored").arg(frame.type));
    } else if (verdict.refusal) {
        log(QStringLiteral("fault: message type %1 refused with code %2")
                .arg(frame.type)
                .arg(verdict.refusal->code));
        send(verdict.refusal->answerType, Faults::refusalAnswer(*verdict.refusal, frame.payload));
    } else if (const Handler handle = m_server.handler(frame.type)) {
        handle(*this, frame.payload);
    } else {
        log(QStringLiteral("message type %1 is not simulated, ignored").arg(frame.type));
    }

    const qint64 afterAnswers = m_clock.elapsed() + m_server.faults().answerDelayMs();
    if (verdict.then == Faults::Then::Close)
        enqueue({afterAnswers, Outgoing::Close, 0, {}});
    else if (verdict.then == Faults::Then::Crash)
        enqueue({afterAnswers, Outgoing::Crash, 0, {}});
}

void SimConnection::enqueue(Outgoing item)
{
    const auto position =
        std::upper_bound(m_outbox.begin(), m_outbox.end(), item.due,
                         [](qint64 due, const Outgoing& queued) { return due < queued.due; });
    m_outbox.insert(position, std::move(item));
    drain();
}

void SimConnection::drain()
{
    while (!m_outbox.isEmpty() && m_outbox.first().due <= m_clock.elapsed()) {
        const Outgoing item = m_outbox.takeFirst();
        switch (item.kind) {
        case Outgoing::Frame:
            write(item.type, item.payload);
            break;
        case Outgoing::Close:
            closeOnPurpose();
            return;
        case Outgoing::Crash:
            crashOnPurpose();
        }
    }
    if (m_outbox.isEmpty())
        m_outboxTimer->stop();
    else
        m_outboxTimer->start(int(qMax<qint64>(0, m_outbox.first().due - m_clock.elapsed())));
}

void SimConnection::write(int type, const QByteArray& payload)
{
    if (m_closing || m_socket->state() != QLocalSocket::ConnectedState) {
        log(QStringLiteral("-> %1 dropped: not connected").arg(describe(type)));
        return;
    }
    // One write per frame: the client's reader may take a frame as complete before its last
    // bytes, so a frame must never reach it in pieces written at different times.
    const QByteArray bytes = m_server.faults().outgoing(type, payload);
    if (bytes != payload)
        log(QStringLiteral("fault: payload of %1 made malformed").arg(describe(type)));
    m_socket->write(vms_sdk::FrameCodec::encode(type, bytes));
    m_socket->flush();
    logMessage(QStringLiteral("-> %1 (%2 bytes)").arg(describe(type)).arg(bytes.size()));
}

void SimConnection::closeOnPurpose()
{
    log(QStringLiteral("fault: closing the connection"));
    m_closing = true;
    m_outbox.clear();
    m_outboxTimer->stop();
    m_socket->disconnectFromServer();
}

void SimConnection::crashOnPurpose()
{
    log(QStringLiteral("fault: crashing"));
    m_socket->flush();
    // No clean-up on purpose: the socket file stays behind as after a real crash.
    std::abort();
}

} // namespace vms_dgw_sim
