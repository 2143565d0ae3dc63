// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <vms_sdk/vms_client_sdk.h>

#include "vms_protocol/message_type.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QSet>

#include <functional>

namespace vms_sdk {

class RequestMgr;

// The dispatcher: turns the application's requests into gateway messages and the gateway's
// answers and pushes into ClientSignals.
//
// Incoming messages are routed by one table keyed by message type (message_hamal_incoming.cpp):
// each row names its wire message, its kind (answer to a registered request, answer that is
// always delivered, push), the words of its log lines and how it becomes a signal.
class MessageHamal : public QObject
{
    Q_OBJECT
public:
    // Sends one message to the gateway of a device; MultiDgwMgr's routing unless replaced.
    using SendOperation = std::function<void(vms_sdk::MessageType type, const QByteArray& payload,
                                             const QString& devId)>;

    static MessageHamal* instance();

    RequestMgr* requestMgr() const { return m_requestMgr; }
    // Lets a test see every outgoing message instead of a gateway.
    void setSendOperation(SendOperation send) { m_send = std::move(send); }

    // The message types the incoming table handles; every other number is ignored.
    static QList<int> handledMessageTypes();

Q_SIGNALS:
    // A face-detect push, handed on for the alarm side to judge.
    void signalFaceDetectRecord(const QPair<QString, int>& channel,
                                const vms_sdk::FaceDetectRecordInfo& record);
    // The answer to a JSON-method request, for the answer parsers.
    void signalCommonJsonAnswer(const QString& requestId, const QString& resJson);

public Q_SLOTS:
    void slotMessageComing(vms_sdk::MessageType msgType, const QByteArray& message);

private:
    explicit MessageHamal(QObject* parent = nullptr);

    friend struct IncomingRoutes;

    RequestMgr* m_requestMgr;
    SendOperation m_send;
    // Requests the application composed itself: their answers go out as signalCommonRes.
    QSet<QString> m_rawCommonRequests;
};

} // namespace vms_sdk
