// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "../outcome.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <algorithm>
#include <functional>
#include <string>

namespace vms_dgw_sim {

class DeviceModel;
struct SimConfig;

// What a message handler may do on the connection that brought the message. Answers and the
// pushes a message causes go out through send(), where the fault layer may hold them back.
class Session
{
public:
    virtual ~Session() = default;

    virtual DeviceModel& model() = 0;
    virtual const SimConfig& config() const = 0;
    virtual void send(int type, const QByteArray& payload) = 0;
    virtual void log(const QString& text) = 0;
    // The client completed the initialisation: scheduled pushes start counting from now.
    virtual void initialised() = 0;
    virtual void exitProcess() = 0;
    // Runs `action` in `ms` milliseconds, unless the connection is gone by then: what a device
    // does over time (a reboot, an upgrade, a file transfer) is reported to the client that
    // started it.
    virtual void later(int ms, std::function<void()> action) = 0;
};

using Handler = void (*)(Session& session, const QByteArray& payload);

struct HandlerRow
{
    int type;
    Handler handle;
};

// One function per device domain, each in its own file under domains/. A new domain adds its
// file and one line to allHandlers().
QList<HandlerRow> gatewayHandlers();
QList<HandlerRow> deviceManagementHandlers();
QList<HandlerRow> networkHandlers();
QList<HandlerRow> ptzHandlers();
QList<HandlerRow> recordingsHandlers();
QList<HandlerRow> facesHandlers();
QList<HandlerRow> maintenanceHandlers();
QList<HandlerRow> talkHandlers();
QList<HandlerRow> filesHandlers();
QList<HandlerRow> commonHandlers();

// Pushes the status of a device named by a managed or simulated id and, when it is online,
// its information: what the gateway says after every login.
void reportDevice(Session& session, const QString& devId);

QList<HandlerRow> allHandlers();

// Parses a payload as `Message`, logging and returning false when it does not parse.
template<typename Message>
bool parsePayload(Session& session, int type, const QByteArray& payload, Message* message)
{
    if (message->ParseFromArray(payload.constData(), payload.size()))
        return true;
    session.log(QStringLiteral("message type %1 dropped: its %2-byte payload does not parse")
                    .arg(type)
                    .arg(payload.size()));
    return false;
}

template<typename Message>
QByteArray serialized(const Message& message)
{
    const std::string bytes = message.SerializeAsString();
    return QByteArray(bytes.data(), int(bytes.size()));
}

// Removes the elements that match; returns how many there were.
template<typename T, typename Predicate>
int eraseIf(QList<T>& list, Predicate predicate)
{
    const auto kept = std::remove_if(list.begin(), list.end(), predicate);
    const int removed = int(list.end() - kept);
    list.erase(kept, list.end());
    return removed;
}

inline QString text(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

inline std::string utf8(const QString& text)
{
    return text.toStdString();
}

// Sends an answer with the outcome as its Error (every answer message has one) and logs it.
// `what` names the request in the log, e.g. "get presets of cam-1/1".
template<typename Answer>
void answer(Session& session, int type, Answer& message, const Outcome& outcome,
            const QString& what)
{
    if (!outcome.ok()) {
        message.mutable_error()->set_code(outcome.code);
        message.mutable_error()->set_err_msg(utf8(outcome.message));
    }
    session.send(type, serialized(message));
    session.log(
        outcome.ok()
            ? QStringLiteral("%1: ok").arg(what)
            : QStringLiteral("%1: error %2, %3").arg(what).arg(outcome.code).arg(outcome.message));
}

// "cam-1/2": a ChannelId for the log.
template<typename ChannelId>
QString channelName(const ChannelId& id)
{
    return QStringLiteral("%1/%2").arg(text(id.dev_id())).arg(id.channel_index());
}

} // namespace vms_dgw_sim
