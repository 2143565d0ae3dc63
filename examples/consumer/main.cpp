// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Starts the library, runs a gateway (the installed simulator unless told otherwise), hands it
// two devices, asks the first one for its network settings once it is online, shuts
// everything down and shows what the library logged.
//
//   vms_consumer [gateway program]
#include <vms_sdk/vms_client_sdk.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTextStream>
#include <QTimer>

namespace {

// The build names the simulator it found in the package (CMake: the imported target
// VmsClientSdk::vms_dgw_sim; pkg-config: the dgw_sim variable).
QString defaultGateway()
{
#ifdef VMS_DGW_SIM
    return QStringLiteral(VMS_DGW_SIM);
#else
    return QCoreApplication::applicationDirPath() + QStringLiteral("/vms_dgw_sim");
#endif
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vms_consumer"));
    QTextStream out(stdout);
    const QString gateway = argc > 1 ? QString::fromLocal8Bit(argv[1]) : defaultGateway();
    const QString camera = QStringLiteral("cam-1");
    const QString requestId = QStringLiteral("consumer-net-1");

    vms_sdk::init_vms_client_sdk();
    auto* signals_ = vms_sdk::ClientSignals::instance();
    int result = 1;
    bool finished = false;
    auto finish = [&](int code) {
        // Called once: the first answer, failure or time-out decides the exit code.
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
            vms_sdk::DevInfo{.id = camera, .ip = QStringLiteral("192.168.1.64")},
            vms_sdk::DevInfo{.id = QStringLiteral("cam-2"), .ip = QStringLiteral("192.168.1.65")},
        });
    });
    bool asked = false;
    QObject::connect(signals_, &vms_sdk::ClientSignals::signalDevStatusPush,
                     [&](const QString& devId, vms_sdk::DevStatus status) {
                         if (devId != camera || status != vms_sdk::DevStatusOnline || asked)
                             return;
                         asked = true;
                         out << devId << " online" << Qt::endl;
                         vms_sdk::get_dev_net_req({.requestId = requestId, .devId = devId});
                     });
    QObject::connect(signals_, &vms_sdk::ClientSignals::signalGetDevNetRes,
                     [&](const vms_sdk::Response& response, const vms_sdk::DevNetInfo& net) {
                         if (response.requestId != requestId)
                             return;
                         out << camera << " network: error " << response.errCode << ", ip "
                             << net.ip << ", http port " << net.httpPort << Qt::endl;
                         finish(response.errCode == 0 ? 0 : 1);
                     });
    QObject::connect(signals_, &vms_sdk::ClientSignals::signalRequestTimeout,
                     [&](const QString& id, const QVariant&) {
                         out << "request " << id << " timed out" << Qt::endl;
                         finish(1);
                     });
    QTimer::singleShot(30000, &app, [&] {
        out << "no answer within 30 s" << Qt::endl;
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
