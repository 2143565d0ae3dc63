// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The README's ten-line application: starts the simulator as gateway, manages one camera and
// prints its address once the camera answers.
#include <vms_sdk/vms_client_sdk.h>

#include <QCoreApplication>
#include <QDebug>
#include <QTimer>

using namespace vms_sdk;

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    init_vms_client_sdk();
    auto* sdk = ClientSignals::instance();
    QObject::connect(sdk, &ClientSignals::signalPrepareStartDgwSuccess,
                     [] { set_managed_devs_cmd({{.id = "cam-1", .ip = "192.168.1.64"}}); });
    QObject::connect(sdk, &ClientSignals::signalDevStatusPush, [](QString id, DevStatus status) {
        if (status == DevStatusOnline)
            get_dev_net_req({.requestId = "net-" + id, .devId = id});
    });
    QObject::connect(sdk, &ClientSignals::signalGetDevNetRes, [&](Response r, DevNetInfo net) {
        qInfo() << r.requestId << "error" << r.errCode << "ip" << net.ip;
        release_vms_client_sdk();
        QTimer::singleShot(100, &app, &QCoreApplication::quit);
    });
    prepare_start_dgw_req({}, VMS_DGW_SIM, 1);
    return app.exec();
}
