// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// File transfers between the application's computer and a device.
//
// A transfer is not answered; it reports itself through progress pushes carrying the
// request's id: percentages rising in steps of 10 over the configured transfer time, status 0
// while it runs and 1 with the final 100. A transfer that cannot start reports status 2 once,
// at 0 percent.

#include "handler.h"

#include "../config.h"
#include "../device_model.h"

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

namespace vms_dgw_sim {
namespace {

using namespace vms_sdk;

enum TransferStatus : qint32 { Transferring = 0, Transferred = 1, TransferFailed = 2 };

constexpr int steps = 10;

void progress(Session& session, const std::string& requestId, qint32 percent, qint32 status)
{
    vms_sdk_proto::FileTransferProgress push;
    push.set_request_id(requestId);
    push.set_attr_2(percent);
    push.set_attr_3(status);
    session.send(FileTransferProgressPush, serialized(push));
}

// Each step schedules the next, so the pushes leave in order whatever the timer resolution.
void step(Session& session, const std::string& requestId, int number, int intervalMs)
{
    session.later(intervalMs, [&session, requestId, number, intervalMs] {
        progress(session, requestId, number * 100 / steps,
                 number == steps ? Transferred : Transferring);
        if (number < steps)
            step(session, requestId, number + 1, intervalMs);
    });
}

void transfer(Session& session, const std::string& requestId, const std::string& devId,
              const std::string& fileName, const QString& what)
{
    SimDevice* device = nullptr;
    Outcome outcome = session.model().reach(text(devId), &device);
    if (outcome.ok() && fileName.empty())
        outcome = {InvalidArgument, QStringLiteral("no file named")};
    if (!outcome.ok()) {
        session.log(QStringLiteral("%1 of %2 failed: %3").arg(what, text(devId), outcome.message));
        progress(session, requestId, 0, TransferFailed);
        return;
    }
    session.log(
        QStringLiteral("%1 of \"%2\" on %3 started").arg(what, text(fileName), text(devId)));
    step(session, requestId, 1, session.config().fileTransferMs / steps);
}

void upload(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::UploadFileReq request;
    if (!parsePayload(session, UploadFileReq, payload, &request))
        return;
    transfer(session, request.request_id(), request.dev_id(), request.file_name(),
             QStringLiteral("upload (%1)").arg(text(request.purpose())));
}

void download(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::DownloadFileReq request;
    if (!parsePayload(session, DownloadFileReq, payload, &request))
        return;
    transfer(session, request.request_id(), request.dev_id(), request.src_file_name(),
             QStringLiteral("download to \"%1\"").arg(text(request.des_file_name())));
}

} // namespace

QList<HandlerRow> filesHandlers()
{
    return {
        {UploadFileReq, upload},
        {DownloadFileReq, download},
    };
}

} // namespace vms_dgw_sim
