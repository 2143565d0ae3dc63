// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QStringList>
#include <QThread>

namespace vms_sdk {

// Starts one gateway process off the calling thread and reports whether the system started
// it. It waits for nothing else. The gateway manager starts its processes on its own thread
// (it needs each result before starting the next); this is for callers that must not block
// even for the fork.
class StartDgwThread : public QThread
{
    Q_OBJECT
public:
    StartDgwThread(const QString& program, const QStringList& arguments, QObject* parent = nullptr);

Q_SIGNALS:
    void signalStartResult(bool success);

protected:
    void run() override;

private:
    QString m_program;
    QStringList m_arguments;
};

} // namespace vms_sdk
