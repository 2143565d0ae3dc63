// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_CLIENT_SIGNALS_H
#define VMS_SDK_CLIENT_SIGNALS_H

#include "vms_types.h"

#include <QObject>
#include <QString>
#include <QVariant>

namespace vms_sdk {

// Everything the library has to tell the application: answers, pushes, failures and
// time-outs. Connect to ClientSignals::instance() on the thread that initialises the library.
class VMS_CLIENT_SDK_EXPORT ClientSignals : public QObject
{
    Q_OBJECT
public:
    static ClientSignals* instance();

Q_SIGNALS:
    // Gateway state.
    void signalPrepareStartDgwSuccess();
    void signalDgwAbnormal(vms_sdk::DgwAbnormal abnormal);

    // Request bookkeeping.
    void signalRequestTimeout(const QString& requestId, const QVariant& requestValue);

    // Device discovery and state pushes.
    void signalDevStatusPush(const QString& devId, vms_sdk::DevStatus status);

private:
    ClientSignals();
};

} // namespace vms_sdk

#endif // VMS_SDK_CLIENT_SIGNALS_H
