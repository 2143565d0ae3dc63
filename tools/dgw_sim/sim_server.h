// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "domains/handler.h"
#include "faults.h"

#include "vms_protocol/frame_codec.h"

#include <QElapsedTimer>
#include <QHash>
#include <QList>
#include <QObject>

class QLocalServer;
class QLocalSocket;
class QTimer;

namespace vms_dgw_sim {

class DeviceModel;
class PushScheduler;
struct SimConfig;

// The gateway's message server: accepts clients, one SimConnection each, and owns what all
// connections share (the handler table, the device model, the fault counters).
//
// A client that goes away leaves the gateway running: a gateway ends only when told to exit
// or when killed, and the next client to connect is served as the first one was. The library
// starts gateways detached and replaces a lost one by a new process under the same server
// name, so a config may ask for an exit after some time without clients, lest a replaced
// gateway outlive everything.
class SimServer : public QObject
{
    Q_OBJECT
public:
    SimServer(const SimConfig& config, DeviceModel& model, QObject* parent = nullptr);

    bool listen(const QString& name, QString* error);

    const SimConfig& config() const { return m_config; }
    DeviceModel& model() { return m_model; }
    Faults& faults() { return m_faults; }
    Handler handler(int type) const { return m_handlers.value(type); }
    bool exiting() const { return m_exiting; }
    void exit();

private:
    void accept();
    void clientGone();

    const SimConfig& m_config;
    DeviceModel& m_model;
    Faults m_faults;
    QHash<int, Handler> m_handlers;
    QLocalServer* m_server;
    QTimer* m_idleTimer;
    int m_clients = 0;
    int m_connected = 0;
    bool m_exiting = false;
};

// One client of the message server.
//
// Every received frame passes the fault layer, then the handler of its type. What leaves goes
// through an outbox ordered by due time, which is where answer delays, and the close or crash
// that follows a message, take effect in the right order relative to the answers.
class SimConnection : public QObject, public Session
{
    Q_OBJECT
public:
    SimConnection(QLocalSocket* socket, SimServer& server, int number);

    DeviceModel& model() override;
    const SimConfig& config() const override;
    void send(int type, const QByteArray& payload) override;
    void log(const QString& text) override;
    void initialised() override;
    void exitProcess() override;
    void later(int ms, std::function<void()> action) override;

private:
    struct Outgoing
    {
        enum Kind { Frame, Close, Crash };
        qint64 due;
        Kind kind;
        int type = 0;
        QByteArray payload;
    };

    // A push sent back to back while the client keeps reading: its frames, one per variant,
    // are made once, when it starts.
    struct Flood
    {
        QList<QByteArray> frames;
        int count; // 0: for as long as the connection lives
        int sent = 0;
    };

    void startFloods();
    void flood();
    // A line about one message: kept out of the log when the config turns the message log off.
    void logMessage(const QString& text);
    void dispatch(const vms_sdk::Frame& frame);
    void enqueue(Outgoing item);
    void drain();
    void write(int type, const QByteArray& payload);
    void closeOnPurpose();
    [[noreturn]] void crashOnPurpose();

    QLocalSocket* m_socket;
    SimServer& m_server;
    QString m_name;
    vms_sdk::FrameReader m_reader;
    QList<Outgoing> m_outbox;
    QElapsedTimer m_clock;
    QTimer* m_outboxTimer;
    PushScheduler* m_pushes;
    QList<Flood> m_floods;
    bool m_closing = false;
};

} // namespace vms_dgw_sim
