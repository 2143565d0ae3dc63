// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_sdk/gateway/multi_dgw_mgr.h"

#include <QFile>
#include <QProcess>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <csignal>
#include <functional>

namespace vms_test {

// The library started with simulator gateways, as an application starts it, with every
// gateway's process id kept so that a test can kill one, and none outlives the test.
class SimGateways
{
public:
    // Gateways enough for `devs`, each simulator reading `config`; the devices managed.
    // `afterInit` runs once the library is initialised, before any gateway starts.
    void start(const QString& simPath, const QByteArray& config,
               const QList<vms_sdk::DevInfo>& devs, const std::function<void()>& afterInit = {})
    {
        using namespace vms_sdk;
        const QString path = tempDir() + QStringLiteral("/sim_gateways.json");
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(config);
        file.close();
        qputenv("VMS_DGW_SIM_CONFIG", path.toUtf8());

        init_vms_client_sdk();
        if (afterInit)
            afterInit();
        MultiDgwMgr::instance()->setProcessStarter(
            [this](const QString& program, const QStringList& args) {
                qint64 pid = 0;
                const bool started = QProcess::startDetached(program, args, QString(), &pid);
                pids.append(pid);
                return started;
            });
        QSignalSpy ready(ClientSignals::instance(), &ClientSignals::signalPrepareStartDgwSuccess);
        QSignalSpy status(ClientSignals::instance(), &ClientSignals::signalDevStatusPush);
        prepare_start_dgw_req(InitDgwCondition{}, simPath, int(devs.size()));
        ASSERT_TRUE(waitFor([&] { return ready.count() == 1; }, 30000));
        set_managed_devs_cmd(devs);
        ASSERT_TRUE(waitFor([&] { return status.count() >= devs.size(); }, 30000));
    }

    // Releases the library and kills what is left of its gateways.
    void stop()
    {
        vms_sdk::release_vms_client_sdk();
        for (qint64 pid : std::as_const(pids)) {
            if (pid > 0 && QFile::exists(QStringLiteral("/proc/%1").arg(pid)))
                ::kill(pid_t(pid), SIGKILL);
        }
    }

    QList<qint64> pids;
};

} // namespace vms_test
