// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QString>
#include <QStringList>

namespace vms_cli {

// The command line: vms_cli [options] COMMAND [arguments].
struct Options
{
    QString command;
    QStringList arguments;
    QString gateway; // empty: the bundled simulator
    QString devices; // empty: the default device set
    bool json = false;
    double seconds = 0; // watch and stream: how long; 0 is until interrupted
    QString output;     // stream: where the media goes
};

// Reads argv (without the program name). false with the reason in *error.
bool parseOptions(const QStringList& args, Options* options, QString* error);
QString usage();

} // namespace vms_cli
