// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <vms_sdk/device_records.h>

#include "vms_protocol/message_type.h"

#include <QByteArray>
#include <QObject>
#include <QStringList>
#include <QString>

namespace vms_sdk {

// The library's internal hub. Exported functions emit its request signals; the dispatcher,
// the stream worker and the gateway manager listen. Every gateway message other than the
// answer to the initialisation request passes through signalMessageComing.
class MessageSignals : public QObject
{
    Q_OBJECT
public:
    static MessageSignals* instance();

Q_SIGNALS:
    // Life cycle.
    void signalReleaseClientSdk();
    void signalPrepareStartDgw(const vms_sdk::InitDgwCondition& condition, const QString& dgwPath,
                               int devsCnt);

    // Managed devices, spread over the gateways by the gateway manager.
    void signalSetManagedDevsCmd(const QList<vms_sdk::DevInfo>& devs);
    void signalAddManagedDevsCmd(const QList<vms_sdk::DevInfo>& devs);
    void signalDelManagedDevsCmd(const QStringList& devIds);
    void signalEditManagedDevsCmd(const QList<vms_sdk::DevInfo>& devs);
    void signalSetDevsTimeCmd(const QStringList& devIds, const QString& time);
    void signalRebootDevsCmd(const QStringList& devIds);
    void signalRestoreFactoryCmd(const QStringList& devIds, bool keepNetwork);
    void signalReconnectDevsCmd(const QStringList& devIds);
    void signalSetSaasTokenCmd(const QString& token);
    void signalSaasLogoutCmd();

    // Gives an outstanding request a fresh time-out.
    void signalRenewalRequestId(const QString& requestId);

    // An incoming gateway message.
    void signalMessageComing(vms_sdk::MessageType msgType, const QByteArray& message);

private:
    MessageSignals();
};

} // namespace vms_sdk
