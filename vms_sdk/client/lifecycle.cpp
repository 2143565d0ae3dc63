// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include <vms_sdk/vms_client_sdk.h>

#include "vms_kit/vms_kit.h"
#include "vms_sdk/client/message_signals.h"
#include "vms_sdk/client/sdk_log.h"
#include "vms_sdk/gateway/multi_dgw_mgr.h"
#include "vms_sdk/request/message_hamal.h"
#include "vms_sdk/stream/stream_worker.h"

#include <QStandardPaths>

namespace vms_sdk {
namespace {

// Not atomic on purpose: initialisation belongs to the one thread that runs the library.
bool initialised = false;

} // namespace

void init_vms_client_sdk()
{
    log::routeProtobufLog();
    if (!initialised) {
        const QString path = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                             QStringLiteral("/vms.client.log");
        vms_kit::init_vms_log(path, QStringLiteral("vms_client_log"));
        MessageSignals::instance();
        ClientSignals::instance();
        // The dispatcher, its registry and their timers belong to this thread.
        MessageHamal::instance();
        StreamWorker::instance();
        MultiDgwMgr::instance();
    }
    initialised = true;
}

void release_vms_client_sdk()
{
    log::info(QStringLiteral("release vms client sdk"));
    log::restoreProtobufLog();
    vms_kit::release_vms_log();
    // After the log is closed, so that shutting the gateways down leaves no line behind.
    Q_EMIT MessageSignals::instance()->signalReleaseClientSdk();
}

} // namespace vms_sdk
