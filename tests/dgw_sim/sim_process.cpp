// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "sim_process.h"

#include "support/test_support.h"

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

#include <QFile>
#include <QUuid>

#include <gtest/gtest.h>

#include <iostream>

namespace vms_test {

SimProcess::SimProcess(const QByteArray& config)
    : m_serverName(QStringLiteral("dgw-sim-test-") + QUuid::createUuid().toString(QUuid::Id128))
    , m_process(std::make_unique<QProcess>())
    , m_socket(std::make_unique<QLocalSocket>())
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("VMS_DGW_SIM_CONFIG"));
    if (!config.isEmpty()) {
        m_configPath = tempDir() + QLatin1Char('/') + m_serverName + QStringLiteral(".json");
        QFile file(m_configPath);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(config);
        environment.insert(QStringLiteral("VMS_DGW_SIM_CONFIG"), m_configPath);
    }
    m_process->setProcessEnvironment(environment);
    QObject::connect(m_process.get(), &QProcess::readyReadStandardError, m_process.get(),
                     [this] { m_stderr += m_process->readAllStandardError(); });
    QObject::connect(m_socket.get(), &QLocalSocket::readyRead, m_socket.get(),
                     [this] { readFrames(); });
}

SimProcess::~SimProcess()
{
    m_socket->abort();
    if (m_process->state() != QProcess::NotRunning) {
        m_process->kill();
        m_process->waitForFinished(5000);
    }
}

bool SimProcess::start()
{
    return start({QStringLiteral("vms_dgw.exe_0"), m_serverName, streamServerName()});
}

bool SimProcess::start(const QStringList& arguments)
{
    m_process->start(QStringLiteral(VMS_DGW_SIM_PATH), arguments);
    return m_process->waitForStarted(5000);
}

bool SimProcess::connectClient()
{
    m_reader.reset();
    m_frames.clear();
    // The server exists once the process has read its config; until then connecting fails
    // at once with server-not-found, and the next try comes on the next pass.
    return waitFor([this] {
               if (m_socket->state() == QLocalSocket::UnconnectedState)
                   m_socket->connectToServer(m_serverName);
               return m_socket->state() == QLocalSocket::ConnectedState ||
                      m_process->state() == QProcess::NotRunning;
           }) &&
           m_socket->state() == QLocalSocket::ConnectedState;
}

void SimProcess::disconnectClient()
{
    m_socket->disconnectFromServer();
    waitForDisconnected();
}

bool SimProcess::initialise(const std::string& requestId)
{
    if (m_socket->state() != QLocalSocket::ConnectedState && !connectClient())
        return false;
    send(vms_sdk::ClientHelloCmd, QByteArray());
    vms_sdk_proto::InitDgwReq init;
    init.set_request_id(requestId);
    init.set_ak("access-key");
    send(vms_sdk::InitDgwReq, init);
    const auto answer = take<vms_sdk_proto::Response>(vms_sdk::InitDgwRes);
    return answer.request_id() == requestId && answer.error().code() == 0;
}

void SimProcess::send(int type, const QByteArray& payload)
{
    m_socket->write(vms_sdk::FrameCodec::encode(type, payload));
    m_socket->flush();
}

void SimProcess::readFrames()
{
    vms_sdk::Frame frame;
    while (m_reader.read(*m_socket, frame))
        m_frames.append(frame);
}

QList<vms_sdk::Frame> SimProcess::takeUntil(int type, int timeoutMs)
{
    const auto position = [this, type] {
        for (int i = 0; i < m_frames.size(); ++i) {
            if (m_frames.at(i).type == type)
                return i;
        }
        return -1;
    };
    if (!waitFor([&] { return position() >= 0; }, timeoutMs)) {
        ADD_FAILURE() << "no frame of type " << type << " arrived";
        return {};
    }
    const QList<vms_sdk::Frame> taken = m_frames.mid(0, position() + 1);
    m_frames.erase(m_frames.begin(), m_frames.begin() + taken.size());
    return taken;
}

QByteArray SimProcess::takePayload(int type, int timeoutMs)
{
    if (!waitFor([this] { return !m_frames.isEmpty(); }, timeoutMs)) {
        ADD_FAILURE() << "no frame arrived, expected type " << type;
        return {};
    }
    const vms_sdk::Frame frame = m_frames.takeFirst();
    EXPECT_EQ(frame.type, type);
    return frame.payload;
}

bool SimProcess::waitForDisconnected(int timeoutMs)
{
    return waitFor([this] { return m_socket->state() == QLocalSocket::UnconnectedState; },
                   timeoutMs);
}

bool SimProcess::waitForExit(int timeoutMs)
{
    return waitFor([this] { return m_process->state() == QProcess::NotRunning; }, timeoutMs);
}

QString SimProcess::log()
{
    m_stderr += m_process->readAllStandardError();
    return QString::fromUtf8(m_stderr);
}

SimProcess& SimTest::startSim(const QByteArray& config)
{
    m_sims.push_back(std::make_unique<SimProcess>(config));
    EXPECT_TRUE(m_sims.back()->start());
    return *m_sims.back();
}

void SimTest::TearDown()
{
    if (!HasFailure())
        return;
    for (const auto& sim : m_sims) {
        std::cerr << "---- simulator " << sim->serverName().toStdString() << " ----\n"
                  << sim->log().toStdString() << "----\n";
    }
}

} // namespace vms_test
