// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <vms_sdk/vms_client_sdk.h>

#include <QJsonObject>
#include <QStringList>

namespace vms_cli {

// "answered", "failed", "timed out", "released".
QString endText(vms_sdk::RequestEnd end);
// Ended well: answered, and the answer's Response says success.
bool succeeded(const vms_sdk::RequestOutcome& outcome);

// The answer's arguments by the answering signal's parameter names, e.g. {response, presets}.
QVariantMap answerArguments(const vms_sdk::RequestEntry& entry,
                            const vms_sdk::RequestOutcome& outcome);

// The outcome as readable lines: a head "REQUEST ID: answered" and the answer's arguments.
QStringList outcomeLines(const vms_sdk::RequestEntry& entry, const vms_sdk::RequestOutcome& outcome,
                         int maxItems = -1);
// The outcome as one JSON object: request, requestId, end, errorCode, answer.
QJsonObject outcomeJson(const vms_sdk::RequestEntry& entry, const vms_sdk::RequestOutcome& outcome);

// A signal's emission (a push) the same two ways.
QStringList emissionLines(const QMetaMethod& signal, const QVariantList& args, int maxItems = -1);
QJsonObject emissionJson(const QMetaMethod& signal, const QVariantList& args);

} // namespace vms_cli
