// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The reference viewer: live views of the cameras behind a gateway (the package's simulator
// unless told another), their PTZ and recordings, and the alarms they push.
//
//   vms_viewer [--gateway PATH] [--grid 1|4|9] [--screenshot FILE [--quit-after-screenshot]]
//              [--exercise] [--measure SECONDS]
#include "main_window.h"
#include "options.h"

#include <vms_sdk/vms_client_sdk.h>

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    // The library's log goes to this application's data folder.
    QApplication::setApplicationName(QStringLiteral("vms_viewer"));
    const std::optional<Options> options = Options::parse(QApplication::arguments());
    if (!options)
        return 2;

    vms_sdk::init_vms_client_sdk();
    // The window releases the library when it closes, and quits a moment later.
    QApplication::setQuitOnLastWindowClosed(false);
    MainWindow window(*options);
    window.resize(1440, 900);
    window.show();
    window.start();
    return QApplication::exec();
}
