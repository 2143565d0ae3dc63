// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// The gateway's own life: the client's hello, initialisation and the exit command.

#include "handler.h"

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

namespace vms_dgw_sim {
namespace {

using namespace vms_sdk;

void hello(Session& session, const QByteArray&)
{
    session.log(QStringLiteral("client said hello"));
}

void init(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::InitDgwReq request;
    if (!parsePayload(session, InitDgwReq, payload, &request))
        return;
    // The account keys are accepted as they come: a simulated network has no cloud to ask.
    vms_sdk_proto::Response answer;
    answer.set_request_id(request.request_id());
    session.send(InitDgwRes, serialized(answer));
    session.log(QStringLiteral("init answered (ok) to request %1")
                    .arg(QString::fromStdString(request.request_id())));
    session.initialised();
}

void exitCommand(Session& session, const QByteArray&)
{
    session.log(QStringLiteral("exit requested"));
    session.exitProcess();
}

void serviceToken(Session& session, const QByteArray& payload)
{
    // The token is for the cloud service, which a simulated network does not reach.
    session.log(QStringLiteral("service token set (%1 bytes)").arg(payload.size()));
}

void serviceLogout(Session& session, const QByteArray&)
{
    session.log(QStringLiteral("logged out of the service"));
}

} // namespace

QList<HandlerRow> gatewayHandlers()
{
    return {
        {ClientHelloCmd, hello},        {InitDgwReq, init},
        {DgwExitCmd, exitCommand},      {SetSaasTokenCmd, serviceToken},
        {SaasLogoutCmd, serviceLogout},
    };
}

} // namespace vms_dgw_sim
