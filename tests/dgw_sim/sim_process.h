// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "vms_protocol/frame_codec.h"

#include <QByteArray>
#include <QList>
#include <QLocalSocket>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace vms_test {

// A gateway simulator process and one client connection to it, speaking the frames the way
// the library does. Frames that arrive are queued until a test takes them.
class SimProcess
{
public:
    // `config` is written to a file named by VMS_DGW_SIM_CONFIG; empty: no variable at all.
    explicit SimProcess(const QByteArray& config = {});
    ~SimProcess();

    // Starts the process with the gateway's three arguments (or `arguments` instead).
    bool start();
    bool start(const QStringList& arguments);
    // Connects the message channel, waiting for the server to listen.
    bool connectClient();
    void disconnectClient();
    // Connects, says hello and initialises; true when init was answered with success.
    bool initialise(const std::string& requestId = "{sim-test-init}");

    void send(int type, const QByteArray& payload);
    template<typename Message>
    void send(int type, const Message& message)
    {
        const std::string bytes = message.SerializeAsString();
        send(type, QByteArray(bytes.data(), int(bytes.size())));
    }

    // Waits for a frame of `type` and returns every frame queued up to and including it; empty
    // when none comes. Sending a message whose answer is certain and taking frames up to that
    // answer shows what earlier messages caused, with no waiting for things not to happen.
    QList<vms_sdk::Frame> takeUntil(int type, int timeoutMs = 5000);
    // The next frame, which must be of `type`, parsed as `Message`.
    template<typename Message>
    Message take(int type)
    {
        Message message;
        const QByteArray payload = takePayload(type);
        message.ParseFromArray(payload.constData(), payload.size());
        return message;
    }
    QByteArray takePayload(int type, int timeoutMs = 5000);

    bool waitForDisconnected(int timeoutMs = 5000);
    bool waitForExit(int timeoutMs = 5000);
    QProcess& process() { return *m_process; }
    QLocalSocket& socket() { return *m_socket; }
    QString serverName() const { return m_serverName; }
    QString streamServerName() const { return m_serverName + QStringLiteral("_stream"); }
    // Everything the simulator wrote to stderr so far.
    QString log();

private:
    void readFrames();

    QString m_configPath;
    QString m_serverName;
    std::unique_ptr<QProcess> m_process;
    std::unique_ptr<QLocalSocket> m_socket;
    vms_sdk::FrameReader m_reader;
    QList<vms_sdk::Frame> m_frames;
    QByteArray m_stderr;
};

// Starts simulators for a test and prints what they logged when the test fails.
class SimTest : public ::testing::Test
{
protected:
    SimProcess& startSim(const QByteArray& config = {});
    void TearDown() override;

private:
    std::vector<std::unique_ptr<SimProcess>> m_sims;
};

} // namespace vms_test
