// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "commands.h"

#include <QStringList>
#include <QVariantMap>

#include <functional>

namespace vms_cli {

struct StepResult
{
    bool ok = false;
    bool timedOut = false;
    QStringList lines; // what the step found, shown under its head
};

// What the steps share: the session, and values one step keeps for a later one.
struct Tour
{
    GatewaySession& session;
    Io& io;
    QVariantMap kept;
};

// One step of the tour: a request by name, whose arguments may name kept values as "$name"
// and whose answer may keep values by path (e.g. {"recording", "recordings.0.fileName"}), or
// an action of its own for what is not one request.
struct DemoStep
{
    QString family;
    QString title;
    QString request;
    QVariantMap arguments;
    QList<std::pair<QString, QString>> keep;
    std::function<StepResult(Tour&)> action;
};

// The guided tour, family by family.
QList<DemoStep> demoSteps();

} // namespace vms_cli
