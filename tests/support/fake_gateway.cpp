// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "support/fake_gateway.h"

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

#include <QLocalSocket>

namespace vms_test {

FakeGateway::FakeGateway(const QStringList& arguments, QObject* parent)
    : QObject(parent)
    , m_arguments(arguments)
{
    connect(&m_server, &QLocalServer::newConnection, this, &FakeGateway::onNewConnection);
}

bool FakeGateway::start()
{
    // Started again while still listening: a restart without a crash before it.
    m_server.close();
    QLocalServer::removeServer(serverName());
    return m_server.listen(serverName());
}

void FakeGateway::crash()
{
    m_server.close();
    if (m_client) {
        m_client->abort();
        m_client->deleteLater();
    }
    m_reader.reset();
}

QList<vms_sdk::Frame> FakeGateway::framesOfType(int type) const
{
    QList<vms_sdk::Frame> matching;
    for (const vms_sdk::Frame& frame : m_frames) {
        if (frame.type == type)
            matching.append(frame);
    }
    return matching;
}

void FakeGateway::send(int type, const QByteArray& payload)
{
    if (m_client) {
        m_client->write(vms_sdk::FrameCodec::encode(type, payload));
        m_client->flush();
    }
}

void FakeGateway::onNewConnection()
{
    while (QLocalSocket* client = m_server.nextPendingConnection()) {
        if (m_client)
            m_client->deleteLater();
        m_client = client;
        m_reader.reset();
        connect(client, &QLocalSocket::readyRead, this, &FakeGateway::onReadyRead);
    }
}

void FakeGateway::onReadyRead()
{
    vms_sdk::Frame frame;
    while (m_client && m_reader.read(*m_client, frame)) {
        m_frames.append(frame);
        if (frame.type == vms_sdk::InitDgwReq) {
            vms_sdk_proto::InitDgwReq request;
            request.ParseFromArray(frame.payload.constData(), frame.payload.size());
            vms_sdk_proto::Response answer;
            answer.set_request_id(request.request_id());
            answer.mutable_error()->set_code(0);
            send(vms_sdk::InitDgwRes, QByteArray::fromStdString(answer.SerializeAsString()));
        }
    }
}

} // namespace vms_test
