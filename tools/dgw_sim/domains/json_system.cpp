// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// The device's system methods: its network mode, QR code, system settings, log and disks.
//
// A disk format takes a quarter of the way on every progress query, so a client that polls
// sees it advance and finish in four asks, and the formatted disk is empty from then on.

#include "json_method.h"

namespace vms_dgw_sim {
namespace {

QJsonObject netInterface(MethodCall& call, Outcome*)
{
    static const char* const names[] = {"eth", "wifi", "_4G", "ppp", "ddns"};
    const qint32 mode = call.device->netMode;
    return {
        {QStringLiteral("iface"), QLatin1String(mode >= 0 && mode < 5 ? names[mode] : names[0])}};
}

QJsonObject qrCode(MethodCall& call, Outcome*)
{
    return {{QStringLiteral("sn_verificationcode"),
             QStringLiteral("%1/%2").arg(call.device->sn, call.device->devCode.isEmpty()
                                                              ? QStringLiteral("ABCDEF")
                                                              : call.device->devCode)}};
}

QJsonObject systemInfo(MethodCall& call, Outcome*)
{
    return {{QStringLiteral("bDiscoverable"), true},
            {QStringLiteral("hostname"), call.device->id},
            {QStringLiteral("name"), call.device->name},
            {QStringLiteral("rebootDay"), QStringLiteral("never")},
            {QStringLiteral("rebootHour"), 0},
            {QStringLiteral("syslanguage"), QStringLiteral("English")},
            {QStringLiteral("encryptEn"), false},
            {QStringLiteral("supportedLangs"), QJsonArray{QStringLiteral("English")}}};
}

QJsonObject setSystemInfo(MethodCall& call, Outcome* outcome)
{
    const QString name = call.text("name");
    if (name.isEmpty())
        *outcome = {InvalidArgument, QStringLiteral("a device name must not be empty")};
    else
        call.device->name = name;
    return {};
}

// What a device notes in its log over a day, one line every two hours from midnight.
QJsonObject logItems(MethodCall& call, Outcome* outcome)
{
    static const char* const lines[] = {
        "system start",       "user admin login",      "motion detection alarm", "record start",
        "network disconnect", "network reconnect",     "user admin logout",      "disk check ok",
        "video loss alarm",   "video loss alarm stop", "config changed",         "record stop",
    };
    const QDate date = QDate::fromString(call.text("date"), dateFormat);
    if (!date.isValid()) {
        *outcome = {InvalidArgument, QStringLiteral("\"date\" is yyyy-MM-dd")};
        return {};
    }
    const qint64 dayStart = QDateTime(date, QTime(0, 0), Qt::UTC).toSecsSinceEpoch();
    const qint64 now = deviceNow(*call.device);
    QJsonArray items;
    for (int i = 0; i < 12 && dayStart + i * 7200 <= now; ++i) {
        items.append(QJsonObject{{QStringLiteral("time"), deviceTimeText(dayStart + i * 7200)},
                                 {QStringLiteral("strlog"), QLatin1String(lines[i])}});
    }
    return {{QStringLiteral("log_items"), items}};
}

bool hasDisk(const SimDevice& device, qint32 number)
{
    return number >= 1 && number <= device.diskSizesMB.size();
}

QJsonObject disks(MethodCall& call, Outcome*)
{
    const SimDevice::Runtime& runtime = call.device->runtime;
    QJsonArray list;
    for (int i = 0; i < call.device->diskSizesMB.size(); ++i) {
        const qint32 number = i + 1;
        const qint32 size = call.device->diskSizesMB.at(i);
        // A disk that has recorded for a while is well filled; a formatted one starts over.
        const qint32 used = runtime.formattedDisks.contains(number) ? 0 : size / 100 * 62;
        list.append(QJsonObject{
            {QStringLiteral("diskNum"), number},
            {QStringLiteral("devName"), QStringLiteral("sd%1").arg(QChar(u'a' + i % 26))},
            {QStringLiteral("sn"), QStringLiteral("%1-D%2").arg(call.device->sn).arg(number)},
            {QStringLiteral("status"), runtime.formattingDisk == number
                                           ? QStringLiteral("formatting")
                                           : QStringLiteral("normal")},
            {QStringLiteral("fs"), QStringLiteral("ext4")},
            {QStringLiteral("sizeMB"), size},
            {QStringLiteral("usedMB"), used},
            {QStringLiteral("bCurDisk"), i == 0},
            {QStringLiteral("partitionCount"), 1},
            {QStringLiteral("curPart"), 1},
        });
    }
    return {{QStringLiteral("disk"), list}};
}

QJsonObject formatDisk(MethodCall& call, Outcome* outcome)
{
    SimDevice::Runtime& runtime = call.device->runtime;
    const qint32 number = call.integer("diskNum");
    if (!hasDisk(*call.device, number))
        *outcome = {NotFound, QStringLiteral("no disk %1").arg(number)};
    else if (runtime.formattingDisk != 0)
        *outcome = {Busy, QStringLiteral("disk %1 is being formatted").arg(runtime.formattingDisk)};
    else {
        runtime.formattingDisk = number;
        runtime.formatAsked = 0;
        runtime.formattedDisks.removeAll(number);
    }
    return {};
}

QJsonObject formatProgress(MethodCall& call, Outcome* outcome)
{
    SimDevice::Runtime& runtime = call.device->runtime;
    const qint32 number = call.integer("diskNum");
    qint32 progress = 0;
    if (runtime.formattingDisk == number) {
        progress = qMin(100, ++runtime.formatAsked * 25);
        if (progress == 100) {
            runtime.formattingDisk = 0;
            runtime.formattedDisks.append(number);
        }
    } else if (runtime.formattedDisks.contains(number)) {
        progress = 100;
    } else {
        *outcome = {NotFound, QStringLiteral("disk %1 is not being formatted").arg(number)};
        return {};
    }
    return {{QStringLiteral("progress"), progress},
            {QStringLiteral("finished"), progress == 100},
            {QStringLiteral("status"),
             progress == 100 ? QStringLiteral("normal") : QStringLiteral("formatting")}};
}

} // namespace

MethodRows systemMethods()
{
    return {
        {"ifconfig_get_inet", netInterface},
        {"dev_get_qrcode", qrCode},
        {"dev_get_info", systemInfo},
        {"dev_set_info", setSystemInfo},
        {"log_get", logItems},
        {"storage_get_info", disks},
        {"storage_format", formatDisk},
        {"storage_format_get_progress", formatProgress},
    };
}

} // namespace vms_dgw_sim
