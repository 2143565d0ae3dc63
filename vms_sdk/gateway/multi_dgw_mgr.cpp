// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/gateway/multi_dgw_mgr.h"

#include <vms_sdk/client_signals.h>

#include "vms_sdk/client/message_signals.h"
#include "vms_sdk/client/sdk_log.h"
#include "vms_sdk/gateway/private_names.h"
#include "vms_sdk/request/conversions/device_conversions.h"

#include "vms_message.pb.h"

#include <QProcess>
#include <QTimer>
#include <QUuid>

#include <cmath>
#include <utility>

namespace vms_sdk {
using conversion::serialized;

namespace {

QString processName(int index)
{
    return QStringLiteral("vms_dgw.exe_%1").arg(index);
}

template<typename Command>
QByteArray devicesCommand(const QList<DevInfo>& devs)
{
    Command command;
    conversion::fillWire(devs, command);
    return serialized(command);
}

QByteArray devList(const QStringList& devIds)
{
    vms_sdk_proto::DevList list;
    for (const QString& id : devIds)
        list.add_devs_id(id.toStdString());
    return serialized(list);
}

} // namespace

MultiDgwMgr* MultiDgwMgr::instance()
{
    static MultiDgwMgr* const manager = new MultiDgwMgr;
    return manager;
}

MultiDgwMgr::MultiDgwMgr(MultiDgwMgrTiming timing, QObject* parent)
    : QObject(parent)
    , m_timing(timing)
    , m_startProcess([](const QString& program, const QStringList& args) {
        return QProcess::startDetached(program, args);
    })
{
    auto* hub = MessageSignals::instance();
    connect(hub, &MessageSignals::signalReleaseClientSdk, this, &MultiDgwMgr::slotReleaseClientSdk);
    connect(hub, &MessageSignals::signalPrepareStartDgw, this, &MultiDgwMgr::slotPrepareStartDgw);
    connect(hub, &MessageSignals::signalSetManagedDevsCmd, this,
            &MultiDgwMgr::slotSetManagedDevsCmd);
    connect(hub, &MessageSignals::signalAddManagedDevsCmd, this,
            &MultiDgwMgr::slotAddManagedDevsCmd);
    connect(hub, &MessageSignals::signalDelManagedDevsCmd, this,
            &MultiDgwMgr::slotDelManagedDevsCmd);
    connect(hub, &MessageSignals::signalEditManagedDevsCmd, this,
            &MultiDgwMgr::slotEditManagedDevsCmd);
    connect(hub, &MessageSignals::signalSetDevsTimeCmd, this, &MultiDgwMgr::slotSetDevsTimeCmd);
    connect(hub, &MessageSignals::signalRebootDevsCmd, this, &MultiDgwMgr::slotRebootDevsCmd);
    connect(hub, &MessageSignals::signalRestoreFactoryCmd, this,
            &MultiDgwMgr::slotRestoreFactoryCmd);
    connect(hub, &MessageSignals::signalReconnectDevsCmd, this, &MultiDgwMgr::slotReconnectDevsCmd);
    connect(hub, &MessageSignals::signalSetSaasTokenCmd, this, &MultiDgwMgr::slotSetSaasTokenCmd);
    connect(hub, &MessageSignals::signalSaasLogoutCmd, this, &MultiDgwMgr::slotSaasLogoutCmd);
}

void MultiDgwMgr::slotPrepareStartDgw(const InitDgwCondition& condition, const QString& dgwPath,
                                      int devsCnt)
{
    m_condition = condition;
    m_dgwPath = dgwPath;
    int needed = int(std::ceil(devsCnt / double(DevicesPerGateway)));
    if (needed <= 0)
        needed = 1;
    if (m_gateways.size() >= needed) {
        Q_EMIT ClientSignals::instance()->signalPrepareStartDgwSuccess();
        return;
    }
    // Counted from zero even when gateways already run: the loop counter, not the list,
    // decides how many more are started.
    for (int i = 0; i < needed && i < MaxGateways; ++i) {
        if (!startGateway())
            return;
    }
    watchReadiness();
}

void MultiDgwMgr::watchReadiness()
{
    auto* poll = new QTimer(this);
    m_readinessPolls.append(poll);
    connect(poll, &QTimer::timeout, this, &MultiDgwMgr::reportReadiness);
    poll->start(m_timing.readinessPoll);
}

// Runs on every tick of a poll and as soon as a gateway turns ready: the tick remains the
// guarantee, the ready signal only spares the application the wait for the next tick.
void MultiDgwMgr::reportReadiness()
{
    if (m_readinessPolls.isEmpty())
        return;
    for (const MessageSocket* gateway : std::as_const(m_gateways)) {
        if (!gateway->isReady())
            return;
    }
    const QList<QTimer*> polls = std::exchange(m_readinessPolls, {});
    for (QTimer* poll : polls) {
        poll->stop();
        poll->deleteLater();
        Q_EMIT ClientSignals::instance()->signalPrepareStartDgwSuccess();
    }
}

MessageSocket* MultiDgwMgr::startGateway()
{
    if (m_exiting)
        return nullptr;
    const int index = m_gateways.size();
    if (index >= MaxGateways) {
        log::error(QStringLiteral("dgw limit of %1 reached, no more dgw started").arg(MaxGateways));
        return nullptr;
    }
    auto* gateway = new MessageSocket(this, m_timing.channel);
    gateway->setDgwName(processName(index));
    gateway->setServerName(private_names::serverName(QUuid::createUuid().toString(QUuid::Id128)));
    if (gateway->serverName().isEmpty() || !startProcess(gateway)) {
        delete gateway;
        Q_EMIT ClientSignals::instance()->signalDgwAbnormal(DgwAbnormalStartFailed);
        return nullptr;
    }
    m_gateways.append(gateway);
    connect(gateway, &MessageSocket::signalConnectStatus, this,
            [this, gateway](ConnStatus status) { onConnectStatus(gateway, status); });
    connect(gateway, &MessageSocket::signalMessageSocketIsReady, this,
            [this, gateway] { onGatewayReady(gateway); });
    connect(gateway, &MessageSocket::signalTryStartNewDgw, this,
            [this, gateway] { onGatewayLost(gateway); });
    return gateway;
}

bool MultiDgwMgr::startProcess(const MessageSocket* gateway)
{
    // Started here rather than through StartDgwThread: the prepare loop needs each result
    // before it starts the next gateway, and a detached start only forks and returns.
    const QStringList arguments{gateway->dgwName(), gateway->serverName(),
                                gateway->serverName() + QStringLiteral("_stream")};
    return m_startProcess(m_dgwPath, arguments);
}

void MultiDgwMgr::onConnectStatus(MessageSocket* gateway, ConnStatus status)
{
    // After release the gateways exit because they were told to: their channels closing is
    // the shutdown the application asked for, not a failure to report.
    if (m_exiting && status != ConnStatusConnected)
        return;
    switch (status) {
    case ConnStatusConnected: {
        vms_sdk_proto::InitDgwReq request;
        request.set_request_id(QUuid::createUuid().toString().toStdString());
        conversion::fillWire(m_condition, request);
        gateway->sendMessage(InitDgwReq, serialized(request));
        log::info(QStringLiteral("init dgw req"));
        break;
    }
    case ConnStatusDisconnected:
        Q_EMIT ClientSignals::instance()->signalDgwAbnormal(DgwAbnormalDisconnected);
        break;
    case ConnStatusSocketError:
        Q_EMIT ClientSignals::instance()->signalDgwAbnormal(DgwAbnormalSocketError);
        break;
    case ConnStatusConnectTimeout:
        Q_EMIT ClientSignals::instance()->signalDgwAbnormal(DgwAbnormalConnectTimeout);
        break;
    }
}

void MultiDgwMgr::onGatewayReady(MessageSocket* gateway)
{
    sendDeviceSet(gateway);
    if (!m_token.isEmpty())
        gateway->sendMessage(SetSaasTokenCmd, m_token.toUtf8());
    reportReadiness();
}

void MultiDgwMgr::onGatewayLost(MessageSocket* gateway)
{
    if (m_exiting)
        return;
    // Each lost gateway waits on a timer of its own, owned by its channel: losses close
    // together neither delay nor reorder each other's restarts, and the event loop goes on
    // serving everything else while the old process finishes dying.
    QTimer::singleShot(m_timing.restartDelay, gateway,
                       [this, gateway] { restartGateway(gateway); });
}

void MultiDgwMgr::restartGateway(MessageSocket* gateway)
{
    if (m_exiting)
        return;
    if (!startProcess(gateway)) {
        Q_EMIT ClientSignals::instance()->signalDgwAbnormal(DgwAbnormalStartFailed);
        return;
    }
    gateway->connectToDgw();
}

void MultiDgwMgr::send(MessageType type, const QByteArray& payload, const QString& devId)
{
    MessageSocket* gateway = devId.isEmpty() ? m_gateways.value(0) : gatewayOf(devId);
    if (gateway && gateway->isReady())
        gateway->sendMessage(type, payload);
}

QString MultiDgwMgr::streamServerName(const QString& devId) const
{
    const MessageSocket* gateway = gatewayOf(devId);
    return gateway ? gateway->serverName() + QStringLiteral("_stream") : QString();
}

MessageSocket* MultiDgwMgr::gatewayOf(const QString& devId) const
{
    for (MessageSocket* gateway : m_gateways) {
        if (gateway->devices().contains(devId))
            return gateway;
    }
    return nullptr;
}

QList<QPair<MessageSocket*, QStringList>>
MultiDgwMgr::splitByGateway(const QStringList& devIds) const
{
    QList<QPair<MessageSocket*, QStringList>> shares;
    for (MessageSocket* gateway : m_gateways) {
        QStringList share;
        for (const QString& id : devIds) {
            if (gateway->devices().contains(id))
                share.append(id);
        }
        if (!share.isEmpty())
            shares.append({gateway, share});
    }
    return shares;
}

void MultiDgwMgr::sendDeviceSet(MessageSocket* gateway)
{
    if (!gateway->isReady() || gateway->devices().isEmpty())
        return;
    // The map is ordered by device id, which is the order the gateway gets them in.
    gateway->sendMessage(SetManagedDevsCmd, devicesCommand<vms_sdk_proto::SetManagedDevsCmd>(
                                                gateway->devices().values()));
    log::trace(
        QStringLiteral("client cmd set managed devices to dgw:%1").arg(gateway->serverName()));
}

void MultiDgwMgr::slotSetManagedDevsCmd(const QList<DevInfo>& devs)
{
    for (int g = 0; g < m_gateways.size(); ++g) {
        MessageSocket* gateway = m_gateways[g];
        gateway->devices().clear();
        for (const DevInfo& dev : devs.mid(g * DevicesPerGateway, DevicesPerGateway))
            gateway->devices().insert(dev.id, dev);
    }
    for (MessageSocket* gateway : std::as_const(m_gateways))
        sendDeviceSet(gateway);
}

void MultiDgwMgr::slotAddManagedDevsCmd(const QList<DevInfo>& devs)
{
    int next = 0;
    for (MessageSocket* gateway : std::as_const(m_gateways)) {
        if (next >= devs.size())
            return;
        const int capacity = DevicesPerGateway - gateway->devices().size();
        if (capacity < 1)
            continue;
        const QList<DevInfo> share = devs.mid(next, capacity);
        next += share.size();
        for (const DevInfo& dev : share)
            gateway->devices().insert(dev.id, dev);
        if (gateway->isReady()) {
            gateway->sendMessage(AddManagedDevsCmd,
                                 devicesCommand<vms_sdk_proto::AddManagedDevsCmd>(share));
            log::trace(QStringLiteral("client cmd add managed devices to dgw"));
        }
    }
    while (next < devs.size()) {
        MessageSocket* gateway = startGateway();
        if (!gateway)
            return; // the rest stays unplaced
        for (const DevInfo& dev : devs.mid(next, DevicesPerGateway))
            gateway->devices().insert(dev.id, dev);
        next += DevicesPerGateway;
        // Not ready yet: the set goes out when the new gateway has been initialised.
        sendDeviceSet(gateway);
    }
}

void MultiDgwMgr::slotDelManagedDevsCmd(const QStringList& devIds)
{
    for (const auto& [gateway, share] : splitByGateway(devIds)) {
        for (const QString& id : share)
            gateway->devices().remove(id);
        if (gateway->isReady()) {
            gateway->sendMessage(DelManagedDevsCmd, devList(share));
            log::trace(QStringLiteral("client cmd delete managed devices from dgw"));
        }
    }
}

void MultiDgwMgr::slotEditManagedDevsCmd(const QList<DevInfo>& devs)
{
    for (MessageSocket* gateway : std::as_const(m_gateways)) {
        QList<DevInfo> share;
        for (const DevInfo& dev : devs) {
            if (gateway->devices().contains(dev.id)) {
                gateway->devices().insert(dev.id, dev);
                share.append(dev);
            }
        }
        if (!share.isEmpty() && gateway->isReady()) {
            gateway->sendMessage(EditManagedDevsCmd,
                                 devicesCommand<vms_sdk_proto::EditManagedDevsCmd>(share));
            log::trace(QStringLiteral("client cmd edit managed devices in dgw"));
        }
    }
}

void MultiDgwMgr::slotSetDevsTimeCmd(const QStringList& devIds, const QString& time)
{
    for (const auto& [gateway, share] : splitByGateway(devIds)) {
        if (!gateway->isReady())
            continue;
        vms_sdk_proto::DevTimingCmd command;
        for (const QString& id : share)
            command.add_devs_id(id.toStdString());
        command.set_time(time.toStdString());
        gateway->sendMessage(DevTimingCmd, serialized(command));
        log::trace(QStringLiteral("client cmd set devices time"));
    }
}

void MultiDgwMgr::slotRebootDevsCmd(const QStringList& devIds)
{
    sendDevList(RebootDevsCmd, devIds, QString());
}

void MultiDgwMgr::slotRestoreFactoryCmd(const QStringList& devIds, bool keepNetwork)
{
    for (const auto& [gateway, share] : splitByGateway(devIds)) {
        if (!gateway->isReady())
            continue;
        vms_sdk_proto::RestoreFactoryCmd command;
        for (const QString& id : share)
            command.add_devs_id(id.toStdString());
        command.set_attr_2(keepNetwork);
        gateway->sendMessage(RestoreFactoryCmd, serialized(command));
    }
}

void MultiDgwMgr::slotReconnectDevsCmd(const QStringList& devIds)
{
    sendDevList(ReconnectDevsCmd, devIds, QStringLiteral("client cmd reconnect devices"));
}

void MultiDgwMgr::sendDevList(MessageType type, const QStringList& devIds, const QString& logText)
{
    for (const auto& [gateway, share] : splitByGateway(devIds)) {
        if (!gateway->isReady())
            continue;
        gateway->sendMessage(type, devList(share));
        if (!logText.isEmpty())
            log::trace(logText);
    }
}

void MultiDgwMgr::slotSetSaasTokenCmd(const QString& token)
{
    m_token = token;
    log::trace(QStringLiteral("client cmd set saas token"));
    if (token.isEmpty())
        return;
    for (MessageSocket* gateway : std::as_const(m_gateways)) {
        if (gateway->isReady())
            gateway->sendMessage(SetSaasTokenCmd, token.toUtf8());
    }
}

void MultiDgwMgr::slotSaasLogoutCmd()
{
    // A gateway started after the logout must not be handed the old token again.
    m_token.clear();
    log::trace(QStringLiteral("client cmd saas logout"));
    for (MessageSocket* gateway : std::as_const(m_gateways)) {
        if (gateway->isReady())
            gateway->sendMessage(SaasLogoutCmd, QByteArray(""));
    }
}

void MultiDgwMgr::slotReleaseClientSdk()
{
    m_exiting = true;
    for (MessageSocket* gateway : std::as_const(m_gateways))
        gateway->sendMessage(DgwExitCmd, QByteArray());
}

} // namespace vms_sdk
