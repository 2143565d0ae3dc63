// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QDir>
#include <QtGlobal>

#include <cstddef>
#include <cstdint>

namespace vms_fuzz {

// The one application object of a harness: the library's objects, timers and sockets need
// one, and it must outlive every input. Logs and data go below the system's temporary folder.
inline QCoreApplication& application()
{
    static int argc = 1;
    static char name[] = "vms_fuzz";
    static char* argv[] = {name, nullptr};
    static QCoreApplication* app = [] {
        qputenv("XDG_DATA_HOME", QDir::tempPath().toUtf8() + "/vms_fuzz/data");
        qputenv("XDG_CONFIG_HOME", QDir::tempPath().toUtf8() + "/vms_fuzz/config");
        // The library's diagnostics on stderr would drown the fuzzer's own report.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        return new QCoreApplication(argc, argv);
    }();
    return *app;
}

inline QByteArray bytes(const uint8_t* data, size_t size)
{
    return QByteArray(reinterpret_cast<const char*>(data), int(qMin<size_t>(size, 1 << 24)));
}

// Runs what an input left queued (deferred deletes, zero-interval timers) so that it cannot
// pile up across inputs or run into the next one.
inline void settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

} // namespace vms_fuzz
