// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <vms_sdk/device_records.h>
#include <vms_sdk/vms_types.h>

#include "vms_protocol/message_type.h"
#include "vms_sdk/channel/message_socket.h"

#include <QList>
#include <QObject>
#include <QStringList>

#include <functional>

class QTimer;

namespace vms_sdk {

struct MultiDgwMgrTiming
{
    int readinessPoll = 200; // ms between checks that every gateway is ready
    int restartDelay = 1000; // ms to wait before a lost gateway is started again
    MessageSocketTiming channel;
};

// Owns the gateway processes and their message channels.
//
// A gateway serves at most 100 devices, so the manager starts one process per hundred devices
// the application expects (at most 32), initialises each over its channel, spreads the managed
// devices over them and sends every message to the gateway that manages its device. A lost
// gateway is started again with the same names, so the channel finds it where it was.
class MultiDgwMgr : public QObject
{
    Q_OBJECT
public:
    static constexpr int DevicesPerGateway = 100;
    static constexpr int MaxGateways = 32;

    // Starts a program detached with the given arguments; true when it was started.
    using ProcessStarter = std::function<bool(const QString& program, const QStringList& args)>;

    static MultiDgwMgr* instance();

    explicit MultiDgwMgr(MultiDgwMgrTiming timing = {}, QObject* parent = nullptr);

    // Sends a message to the gateway that manages `devId` (the first gateway for an empty id);
    // dropped silently when there is no such gateway or it is not ready yet.
    void send(vms_sdk::MessageType type, const QByteArray& payload, const QString& devId);
    // The stream server of the gateway that manages `devId`; empty when none manages it.
    QString streamServerName(const QString& devId) const;

    const QList<MessageSocket*>& gateways() const { return m_gateways; }
    // Replaces how processes are started, for tests that count starts.
    void setProcessStarter(ProcessStarter starter) { m_startProcess = std::move(starter); }

public Q_SLOTS:
    void slotPrepareStartDgw(const vms_sdk::InitDgwCondition& condition, const QString& dgwPath,
                             int devsCnt);
    void slotReleaseClientSdk();
    void slotSetManagedDevsCmd(const QList<vms_sdk::DevInfo>& devs);
    void slotAddManagedDevsCmd(const QList<vms_sdk::DevInfo>& devs);
    void slotDelManagedDevsCmd(const QStringList& devIds);
    void slotEditManagedDevsCmd(const QList<vms_sdk::DevInfo>& devs);
    void slotSetDevsTimeCmd(const QStringList& devIds, const QString& time);
    void slotRebootDevsCmd(const QStringList& devIds);
    void slotRestoreFactoryCmd(const QStringList& devIds, bool keepNetwork);
    void slotReconnectDevsCmd(const QStringList& devIds);
    void slotSetSaasTokenCmd(const QString& token);
    void slotSaasLogoutCmd();

private:
    MessageSocket* startGateway();
    bool startProcess(const MessageSocket* gateway);
    void watchReadiness();
    void reportReadiness();
    void onConnectStatus(MessageSocket* gateway, vms_sdk::ConnStatus status);
    void onGatewayReady(MessageSocket* gateway);
    void onGatewayLost(MessageSocket* gateway);
    void restartGateway(MessageSocket* gateway);
    void sendDeviceSet(MessageSocket* gateway);
    MessageSocket* gatewayOf(const QString& devId) const;
    // Splits device ids by the gateway that manages them, in gateway order.
    QList<QPair<MessageSocket*, QStringList>> splitByGateway(const QStringList& devIds) const;
    void sendDevList(vms_sdk::MessageType type, const QStringList& devIds, const QString& logText);

    MultiDgwMgrTiming m_timing;
    ProcessStarter m_startProcess;
    bool m_exiting = false;
    QList<MessageSocket*> m_gateways;
    QString m_dgwPath;
    InitDgwCondition m_condition;
    QString m_token;
    // The readiness polls still waiting for every gateway; each reports success once.
    QList<QTimer*> m_readinessPolls;
};

} // namespace vms_sdk
