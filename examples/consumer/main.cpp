// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Starts the library, runs a gateway (the simulator unless told otherwise), hands it two
// devices, shuts everything down and shows what the library logged.
//
//   vms_consumer [gateway program]
#include <vms_sdk/vms_client_sdk.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTextStream>
#include <QTimer>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vms_consumer"));
    QTextStream out(stdout);
    const QString gateway =
        argc > 1 ? QString::fromLocal8Bit(argv[1])
                 : QCoreApplication::applicationDirPath() + QStringLiteral("/vms_dgw_sim");

    vms_sdk::init_vms_client_sdk();
    auto* signals_ = vms_sdk::ClientSignals::instance();
    int result = 0;
    bool finished = false;
    auto finish = [&](int code) {
        // Gateways that exit on release drop their connections, which reports them abnormal.
        if (finished)
            return;
        finished = true;
        result = code;
        vms_sdk::release_vms_client_sdk();
        QTimer::singleShot(100, &app, &QCoreApplication::quit);
    };
    QObject::connect(signals_, &vms_sdk::ClientSignals::signalDgwAbnormal,
                     [&](vms_sdk::DgwAbnormal reason) {
                         out << "gateway abnormal: " << int(reason) << Qt::endl;
                         finish(1);
                     });
    QObject::connect(signals_, &vms_sdk::ClientSignals::signalPrepareStartDgwSuccess, [&] {
        out << "gateway ready" << Qt::endl;
        vms_sdk::set_managed_devs_cmd({
            vms_sdk::DevInfo{.id = QStringLiteral("cam-1"), .ip = QStringLiteral("192.168.1.64")},
            vms_sdk::DevInfo{.id = QStringLiteral("cam-2"), .ip = QStringLiteral("192.168.1.65")},
        });
        QTimer::singleShot(500, &app, [&] { finish(0); });
    });
    QTimer::singleShot(30000, &app, [&] {
        out << "no gateway became ready" << Qt::endl;
        finish(1);
    });

    out << "starting gateway " << QDir::toNativeSeparators(gateway) << Qt::endl;
    vms_sdk::prepare_start_dgw_req(vms_sdk::InitDgwCondition{}, gateway, 2);
    app.exec();

    const QString logPath = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                            QStringLiteral("/vms.client.log");
    QFile log(logPath);
    if (!log.open(QIODevice::ReadOnly)) {
        out << "no log at " << logPath << Qt::endl;
        return 1;
    }
    out << "log " << logPath << ":\n" << log.readAll();
    return result;
}
