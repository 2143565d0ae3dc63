// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/request/message_hamal.h"

#include "vms_sdk/client/message_signals.h"
#include "vms_sdk/gateway/multi_dgw_mgr.h"
#include "vms_sdk/request/request_mgr.h"

namespace vms_sdk {

MessageHamal* MessageHamal::instance()
{
    static MessageHamal* const hamal = new MessageHamal;
    return hamal;
}

MessageHamal::MessageHamal(QObject* parent)
    : QObject(parent)
    , m_requestMgr(new RequestMgr(this))
    , m_send([](MessageType type, const QByteArray& payload, const QString& devId) {
        MultiDgwMgr::instance()->send(type, payload, devId);
    })
{
    auto* hub = MessageSignals::instance();
    connect(hub, &MessageSignals::signalMessageComing, this, &MessageHamal::slotMessageComing);
    // A raw request that never got its answer must not be remembered for ever.
    connect(ClientSignals::instance(), &ClientSignals::signalRequestTimeout, this,
            [this](const QString& requestId) { m_rawCommonRequests.remove(requestId); });
}

} // namespace vms_sdk
