// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/gateway/start_dgw_thread.h"

#include <QProcess>

namespace vms_sdk {

StartDgwThread::StartDgwThread(const QString& program, const QStringList& arguments,
                               QObject* parent)
    : QThread(parent)
    , m_program(program)
    , m_arguments(arguments)
{}

void StartDgwThread::run()
{
    Q_EMIT signalStartResult(QProcess::startDetached(m_program, m_arguments));
}

} // namespace vms_sdk
