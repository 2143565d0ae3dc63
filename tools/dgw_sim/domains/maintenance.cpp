// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// Keeping devices: firmware upgrades, accounts and passwords, activation, the clock, reboots
// and factory resets.
//
// Activation, security questions and password reset address devices that are not managed
// yet, by serial number, and their answers carry a result number instead of an Error.

#include "device_time.h"
#include "exchange.h"

#include "../config.h"
#include "../device_model.h"

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

#include <QDateTime>

namespace vms_dgw_sim {
namespace {

using namespace vms_sdk;

// The result of the answers addressed by serial number (18, 91, 93).
enum SerialResult : qint32 {
    Done = 0,
    Refused = 1,        // already activated; the security answers do not match
    UnknownDevice = 2,  // no device with that serial number answers
    UnknownAccount = 3, // the device has no such account
    BadPassword = 4,    // an empty new password
};

enum UpgradeStatus : qint32 { UpgradeIdle = 0, Upgrading = 1, UpgradeFinished = 2 };

constexpr qint32 Activated = 1;

void finishUpgrade(SimDevice* device)
{
    SimDevice::Runtime& runtime = device->runtime;
    if (runtime.upgradeStartMs < 0 || runtime.upgradeFinished)
        return;
    runtime.upgradeFinished = true;
    device->version = runtime.upgradeTarget;
}

// The upgrade as the device reports it. An upgrade whose time is up is finished here too,
// so that it finishes even when the client that started it went away.
void fillUpgrade(DeviceModel& model, SimDevice* device, vms_sdk_proto::DevUpgradeRes* info)
{
    SimDevice::Runtime& runtime = device->runtime;
    if (runtime.upgradeStartMs >= 0 &&
        model.now() - runtime.upgradeStartMs >= runtime.upgradeDurationMs)
        finishUpgrade(device);
    info->set_new_version_name(utf8(device->upgradeVersion));
    info->set_attr_5(!device->upgradeVersion.isEmpty() &&
                     device->upgradeVersion != device->version);
    if (runtime.upgradeStartMs < 0) {
        info->set_attr_3(UpgradeIdle);
        info->set_phase("idle");
    } else if (runtime.upgradeFinished) {
        info->set_attr_3(UpgradeFinished);
        info->set_phase("finished");
        info->set_attr_7(100);
    } else {
        // The firmware is transferred to the device first, then written; 100 only once done.
        const qint64 elapsed = model.now() - runtime.upgradeStartMs;
        const int percent =
            int(qMin<qint64>(99, elapsed * 100 / qMax<qint64>(1, runtime.upgradeDurationMs)));
        info->set_attr_3(Upgrading);
        info->set_phase(percent < 40 ? "transferring" : "upgrading");
        info->set_attr_7(percent);
    }
}

void checkUpgrade(Session& session, const QByteArray& payload)
{
    Exchange<vms_sdk_proto::DevUpgradeReq, vms_sdk_proto::DevUpgradeRes> call;
    if (!call.readForDevice(session, CheckDevUpgradeReq, payload))
        return;
    if (call.outcome.ok())
        fillUpgrade(session.model(), call.device, &call.message);
    call.answer(session, CheckDevUpgradeRes,
                QStringLiteral("upgrade check of %1 (offered: \"%2\")")
                    .arg(text(call.request.dev_id()), text(call.message.new_version_name())));
}

void startUpgrade(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::DevUpgradeReq request;
    if (!parsePayload(session, DoDevUpgradeCmd, payload, &request))
        return;
    const QString devId = text(request.dev_id());
    SimDevice* device = nullptr;
    Outcome outcome = session.model().reach(devId, &device);
    vms_sdk_proto::DevUpgradeRes state;
    if (outcome.ok())
        fillUpgrade(session.model(), device, &state);
    if (outcome.ok() && state.attr_3() == Upgrading)
        outcome = {Busy, QStringLiteral("an upgrade is running")};
    if (!outcome.ok()) {
        // A command has no answer to carry the refusal; the progress request will show it.
        session.log(QStringLiteral("upgrade of %1 not started: %2").arg(devId, outcome.message));
        return;
    }
    SimDevice::Runtime& runtime = device->runtime;
    runtime.upgradeStartMs = session.model().now();
    runtime.upgradeDurationMs = session.config().upgradeMs;
    // Without a newer firmware on offer the device installs its own again.
    runtime.upgradeTarget =
        device->upgradeVersion.isEmpty() ? device->version : device->upgradeVersion;
    runtime.upgradeFinished = false;
    const int run = ++runtime.upgradeRun;
    const QString simulatedId = device->id;
    session.log(QStringLiteral("upgrade of %1 to \"%2\" started (mode \"%3\", %4 ms)")
                    .arg(devId, runtime.upgradeTarget, text(request.mode()))
                    .arg(runtime.upgradeDurationMs));
    session.later(session.config().upgradeMs, [&session, devId, simulatedId, run] {
        SimDevice* upgraded = session.model().target(devId);
        if (!upgraded || upgraded->id != simulatedId || upgraded->runtime.upgradeRun != run)
            return;
        finishUpgrade(upgraded);
        session.send(UploadUpgradeFileFinishedPush, devId.toUtf8());
        session.log(QStringLiteral("upgrade of %1 finished").arg(devId));
    });
}

void upgradeProgress(Session& session, const QByteArray& payload)
{
    Exchange<vms_sdk_proto::DeviceReq, vms_sdk_proto::DevUpgradeRes> call;
    if (!call.readForDevice(session, GetDevUpgradeProgressReq, payload))
        return;
    if (call.outcome.ok())
        fillUpgrade(session.model(), call.device, &call.message);
    call.answer(session, GetDevUpgradeProgressRes,
                QStringLiteral("upgrade progress of %1 (%2 %3%)")
                    .arg(text(call.request.dev_id()), text(call.message.phase()))
                    .arg(call.message.attr_7()));
}

void modifyAccount(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::ModifyDevAccountReq request;
    if (!parsePayload(session, ModifyDevAccountReq, payload, &request))
        return;
    vms_sdk_proto::Response message;
    message.set_request_id(request.request_id());
    SimDevice* device = nullptr;
    Outcome outcome = session.model().reach(text(request.dev_id()), &device);
    const QString account = text(request.account());
    if (outcome.ok() && account != device->user)
        outcome = {NotFound, QStringLiteral("no account \"%1\"").arg(account)};
    if (outcome.ok() && !device->password.isEmpty() &&
        text(request.old_password()) != device->password)
        outcome = {WrongPassword, QStringLiteral("the old password is wrong")};
    if (outcome.ok() && request.new_password().empty())
        outcome = {InvalidArgument, QStringLiteral("the new password is empty")};
    if (outcome.ok()) {
        device->password = text(request.new_password());
        session.model().passwordChanged(*device);
    }
    answer(session, ModifyDevAccountRes, message, outcome,
           QStringLiteral("password of %1 on %2").arg(account, text(request.dev_id())));
}

// A device that is not managed yet, found by its serial number when it is on the network.
SimDevice* bySerial(Session& session, const std::string& sn)
{
    SimDevice* device = session.model().bySerial(text(sn));
    return device && session.model().up(*device) ? device : nullptr;
}

void secretQuestions(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::DevSecretQuestionsGetReq request;
    if (!parsePayload(session, DevSecretQuestionsGetReq, payload, &request))
        return;
    vms_sdk_proto::DevSecretQuestionsGetRes message;
    message.set_dev_sn(request.dev_sn());
    SimDevice* device = bySerial(session, request.dev_sn());
    if (!device) {
        message.set_result(UnknownDevice);
    } else if (text(request.account()) != device->user) {
        message.set_result(UnknownAccount);
    } else {
        for (const SecretQuestion& secret : std::as_const(device->secretQuestions))
            message.add_questions(utf8(secret.question));
    }
    session.send(DevSecretQuestionsGetRes, serialized(message));
    session.log(QStringLiteral("security questions of %1: result %2, %3 questions")
                    .arg(text(request.dev_sn()))
                    .arg(message.result())
                    .arg(message.questions_size()));
}

// Every question the device asks is answered, and rightly.
bool answersMatch(const QList<SecretQuestion>& asked,
                  const google::protobuf::RepeatedPtrField<vms_sdk_proto::SecretInfo>& given)
{
    for (const SecretQuestion& secret : asked) {
        const bool answered = std::any_of(given.begin(), given.end(), [&](const auto& info) {
            return text(info.question()) == secret.question && text(info.answer()) == secret.answer;
        });
        if (!answered)
            return false;
    }
    return true;
}

void resetPassword(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::DevPwdResetReq request;
    if (!parsePayload(session, DevPwdResetReq, payload, &request))
        return;
    vms_sdk_proto::ResetDevPwdRes message;
    message.set_dev_sn(request.dev_sn());
    SimDevice* device = bySerial(session, request.dev_sn());
    if (!device) {
        message.set_result(UnknownDevice);
    } else if (text(request.account()) != device->user) {
        message.set_result(UnknownAccount);
    } else if (device->secretQuestions.isEmpty() ||
               !answersMatch(device->secretQuestions, request.secrets())) {
        // A device without security questions cannot be reset this way at all.
        message.set_result(Refused);
    } else if (request.password().empty()) {
        message.set_result(BadPassword);
    } else {
        device->password = text(request.password());
        session.model().passwordChanged(*device);
    }
    session.send(ResetDevPwdRes, serialized(message));
    session.log(QStringLiteral("password reset of %1: result %2")
                    .arg(text(request.dev_sn()))
                    .arg(message.result()));
}

void activate(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::DevActivateCmd command;
    if (!parsePayload(session, DevActivateCmd, payload, &command))
        return;
    // Each device answers on its own, in the order they were named.
    for (const std::string& sn : command.devs_sn()) {
        vms_sdk_proto::ActivateDevRes message;
        message.set_dev_sn(sn);
        SimDevice* device = bySerial(session, sn);
        if (!device) {
            message.set_result(UnknownDevice);
        } else if (device->activateStatus == Activated) {
            message.set_result(Refused);
        } else if (command.password().empty()) {
            message.set_result(BadPassword);
        } else {
            device->activateStatus = Activated;
            if (!command.account().empty())
                device->user = text(command.account());
            device->password = text(command.password());
            device->secretQuestions.clear();
            for (const vms_sdk_proto::SecretInfo& secret : command.secrets())
                device->secretQuestions.append({text(secret.question()), text(secret.answer())});
            session.model().passwordChanged(*device);
        }
        session.send(ActivateDevRes, serialized(message));
        session.log(
            QStringLiteral("activation of %1: result %2").arg(text(sn)).arg(message.result()));
    }
}

void setTime(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::DevTimingCmd command;
    if (!parsePayload(session, DevTimingCmd, payload, &command))
        return;
    qint64 seconds = 0;
    if (!parseDeviceTime(command.time(), &seconds)) {
        session.log(QStringLiteral("time \"%1\" not set: not yyyy-MM-dd hh:mm:ss")
                        .arg(text(command.time())));
        return;
    }
    const qint64 gatewayNow = QDateTime::currentDateTime().toSecsSinceEpoch() +
                              QDateTime::currentDateTime().offsetFromUtc();
    for (const std::string& id : command.devs_id()) {
        if (SimDevice* device = session.model().target(text(id))) {
            device->runtime.clockOffsetMs = (seconds - gatewayNow) * 1000;
            session.log(
                QStringLiteral("clock of %1 set to %2").arg(text(id), text(command.time())));
        } else {
            session.log(QStringLiteral("clock of %1 not set: no such device").arg(text(id)));
        }
    }
}

void reboot(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::DevList command;
    if (!parsePayload(session, RebootDevsCmd, payload, &command))
        return;
    const int rebootMs = session.config().rebootMs;
    for (const std::string& id : command.devs_id()) {
        const QString devId = text(id);
        SimDevice* device = nullptr;
        const Outcome outcome = session.model().reach(devId, &device);
        if (!outcome.ok()) {
            session.log(QStringLiteral("reboot of %1 ignored: %2").arg(devId, outcome.message));
            continue;
        }
        device->runtime.rebootUntilMs = session.model().now() + rebootMs;
        vms_sdk_proto::DevStatusPush offline;
        offline.set_dev_id(id);
        offline.set_status(DeviceModel::StatusOffline);
        session.send(DevStatusPush, serialized(offline));
        session.log(QStringLiteral("%1 rebooting for %2 ms").arg(devId).arg(rebootMs));
        const QString simulatedId = device->id;
        session.later(rebootMs, [&session, devId, simulatedId] {
            SimDevice* rebooted = session.model().target(devId);
            if (!rebooted || rebooted->id != simulatedId)
                return;
            rebooted->runtime.rebootUntilMs = 0;
            reportDevice(session, devId);
        });
    }
}

void restoreFactory(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::RestoreFactoryCmd command;
    if (!parsePayload(session, RestoreFactoryCmd, payload, &command))
        return;
    for (const std::string& id : command.devs_id()) {
        SimDevice* device = nullptr;
        const Outcome outcome = session.model().reach(text(id), &device);
        if (!outcome.ok()) {
            session.log(
                QStringLiteral("factory reset of %1 ignored: %2").arg(text(id), outcome.message));
            continue;
        }
        session.model().restoreFactory(device, command.attr_2());
        session.log(
            QStringLiteral("%1 reset to its factory settings%2")
                .arg(text(id), command.attr_2() ? QStringLiteral(", network kept") : QString()));
    }
}

void openRemoteConfig(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::OpenRemoteConfigReq request;
    if (!parsePayload(session, OpenRemoteConfigReq, payload, &request))
        return;
    // The real gateway opens the device's own configuration window; there is none to open.
    session.log(QStringLiteral("remote configuration of %1 opened (language %2)")
                    .arg(text(request.dev_id()))
                    .arg(request.language()));
}

} // namespace

QList<HandlerRow> maintenanceHandlers()
{
    return {
        {CheckDevUpgradeReq, checkUpgrade},
        {DoDevUpgradeCmd, startUpgrade},
        {GetDevUpgradeProgressReq, upgradeProgress},
        {ModifyDevAccountReq, modifyAccount},
        {DevSecretQuestionsGetReq, secretQuestions},
        {DevPwdResetReq, resetPassword},
        {DevActivateCmd, activate},
        {DevTimingCmd, setTime},
        {RebootDevsCmd, reboot},
        {RestoreFactoryCmd, restoreFactory},
        {OpenRemoteConfigReq, openRemoteConfig},
    };
}

} // namespace vms_dgw_sim
