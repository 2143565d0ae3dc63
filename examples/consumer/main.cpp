// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Starts the library, listens to it, shuts it down and shows what it logged.
#include <vms_sdk/vms_client_sdk.h>

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>
#include <QTextStream>
#include <QTimer>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vms_consumer"));
    QTextStream out(stdout);

    vms_sdk::init_vms_client_sdk();
    QObject::connect(vms_sdk::ClientSignals::instance(), &vms_sdk::ClientSignals::signalDgwAbnormal,
                     [&out](vms_sdk::DgwAbnormal reason) {
                         out << "gateway abnormal: " << int(reason) << Qt::endl;
                     });
    const vms_sdk::DevInfo device{.id = QStringLiteral("cam-1"), .ip = QStringLiteral("10.0.0.2")};
    out << "library initialised; a device record: " << device.id << ' ' << device.ip << Qt::endl;

    QTimer::singleShot(0, &app, [&app] {
        vms_sdk::release_vms_client_sdk();
        app.quit();
    });
    const int result = app.exec();

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
