// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <string>

namespace vms_dgw_sim {

class DeviceModel;

// What a message handler may do on the connection that brought the message. Answers and the
// pushes a message causes go out through send(), where the fault layer may hold them back.
class Session
{
public:
    virtual ~Session() = default;

    virtual DeviceModel& model() = 0;
    virtual void send(int type, const QByteArray& payload) = 0;
    virtual void log(const QString& text) = 0;
    // The client completed the initialisation: scheduled pushes start counting from now.
    virtual void initialised() = 0;
    virtual void exitProcess() = 0;
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

} // namespace vms_dgw_sim
