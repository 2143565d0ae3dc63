// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The exported request functions. Each hands its arguments, unchanged, to the hub signal of
// the same name; the receivers check, log and send. Called on the library's thread, the
// receiving slot has run when the function returns.
#include <vms_sdk/vms_client_sdk.h>

#include "vms_sdk/client/message_signals.h"

namespace vms_sdk {
namespace {

template<typename... Params, typename... Args>
void emitOnHub(void (MessageSignals::*signal)(Params...), Args&&... args)
{
    Q_EMIT(MessageSignals::instance()->*signal)(std::forward<Args>(args)...);
}

} // namespace

void prepare_start_dgw_req(const InitDgwCondition& condition, const QString& dgwPath, int devsCnt)
{
    emitOnHub(&MessageSignals::signalPrepareStartDgw, condition, dgwPath, devsCnt);
}

void set_managed_devs_cmd(const QList<DevInfo>& devs)
{
    emitOnHub(&MessageSignals::signalSetManagedDevsCmd, devs);
}

void add_managed_devs_cmd(const QList<DevInfo>& devs)
{
    emitOnHub(&MessageSignals::signalAddManagedDevsCmd, devs);
}

void del_managed_devs_cmd(const QStringList& devIds)
{
    emitOnHub(&MessageSignals::signalDelManagedDevsCmd, devIds);
}

void edit_managed_devs_cmd(const QList<DevInfo>& devs)
{
    emitOnHub(&MessageSignals::signalEditManagedDevsCmd, devs);
}

void set_devs_time_cmd(const QStringList& devIds, const QString& time)
{
    emitOnHub(&MessageSignals::signalSetDevsTimeCmd, devIds, time);
}

void reboot_devs_cmd(const QStringList& devIds)
{
    emitOnHub(&MessageSignals::signalRebootDevsCmd, devIds);
}

void restore_factory_cmd(const QStringList& devIds, bool keepNetwork)
{
    emitOnHub(&MessageSignals::signalRestoreFactoryCmd, devIds, keepNetwork);
}

void reconnect_devs_cmd(const QStringList& devIds)
{
    emitOnHub(&MessageSignals::signalReconnectDevsCmd, devIds);
}

void set_saas_token_cmd(const QString& token)
{
    emitOnHub(&MessageSignals::signalSetSaasTokenCmd, token);
}

void saas_logout_cmd()
{
    emitOnHub(&MessageSignals::signalSaasLogoutCmd);
}

} // namespace vms_sdk
