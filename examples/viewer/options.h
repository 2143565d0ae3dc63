// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_VIEWER_OPTIONS_H
#define VMS_VIEWER_OPTIONS_H

#include <QString>
#include <QStringList>

#include <optional>

// The viewer's command line.
struct Options
{
    QString gateway;    // the gateway program; the package's simulator by default
    int grid = 4;       // views: 1, 4 or 9
    QString screenshot; // a PNG of the window, once every view shows pictures
    bool quitAfterScreenshot = false;
    bool exercise = false; // drive the PTZ and playback controls, then quit
    int measureSeconds = 0;

    // The options, or nothing after printing to stderr why they are wrong (help and version
    // exit the process).
    static std::optional<Options> parse(const QStringList& arguments);
};

#endif // VMS_VIEWER_OPTIONS_H
