// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// stream live|file|time DEVICE CHANNEL ...: one stream metered live, its media optionally
// written to a file.
#include "commands.h"
#include "stream_meter.h"

#include <QDateTime>
#include <QFile>

#include <csignal>

namespace vms_cli {

namespace {

volatile std::sig_atomic_t interrupted = 0;

struct StreamKind
{
    const char* name;
    const char* extra; // the third argument, or nullptr
    vms_sdk::StreamId (*open)(const vms_sdk::ChannelId& channel, const QString& extra);
};

const StreamKind kinds[] = {
    {"live", "[STREAMTYPE]",
     [](const vms_sdk::ChannelId& channel, const QString& extra) {
         return vms_sdk::connect_live_video_req(
             {.channelId = channel, .streamType = extra.toInt()});
     }},
    {"file", "FILENAME",
     [](const vms_sdk::ChannelId& channel, const QString& extra) {
         return vms_sdk::playback_by_file_req({.channelId = channel, .fileName = extra});
     }},
    {"time", "yyyy-MM-ddThh:mm:ss",
     [](const vms_sdk::ChannelId& channel, const QString& extra) {
         return vms_sdk::playback_by_time_req(
             {.channelId = channel, .startTime = QDateTime::fromString(extra, Qt::ISODate)});
     }},
};

const StreamKind* kindOf(const QString& name)
{
    for (const StreamKind& kind : kinds) {
        if (name == QLatin1String(kind.name))
            return &kind;
    }
    return nullptr;
}

} // namespace

ExitCode prepareStream(const Options& options, Io& io)
{
    const QStringList& args = options.arguments;
    const StreamKind* kind = kindOf(args.value(0));
    bool channelOk = false;
    args.value(2).toUInt(&channelOk);
    const bool extraOk = !kind || QByteArray(kind->extra).startsWith('[') || args.size() >= 4;
    const bool timeOk = !kind || QByteArray(kind->name) != "time" ||
                        QDateTime::fromString(args.value(3), Qt::ISODate).isValid();
    if (!kind || args.size() < 3 || args.size() > 4 || !channelOk || !extraOk || !timeOk) {
        io.err << "vms_cli stream: expected one of\n";
        for (const StreamKind& row : kinds)
            io.err << "  stream " << row.name << " DEVICE CHANNEL " << row.extra << '\n';
        io.err << Qt::flush;
        return ExitUsage;
    }
    return ExitOk;
}

ExitCode runStream(const Options& options, GatewaySession&, Io& io)
{
    const QStringList& args = options.arguments;
    QFile sink(options.output);
    if (!options.output.isEmpty() && !sink.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        io.err << "vms_cli stream: cannot write " << options.output << Qt::endl;
        return ExitUsage;
    }
    const vms_sdk::ChannelId channel{.devId = args[1], .channelIndex = args[2].toUInt()};
    const vms_sdk::StreamId id = kindOf(args[0])->open(channel, args.value(3));
    io.out << "stream " << id << ": " << args[0] << ' ' << channel.devId << '/'
           << channel.channelIndex << Qt::endl;
    std::signal(SIGINT, [](int) { interrupted = 1; });
    const StreamReport report = meterStream(
        id, int(options.seconds * 1000), [&](const QString& line) { io.out << line << Qt::endl; },
        sink.isOpen() ? &sink : nullptr, [] { return interrupted != 0; });
    vms_sdk::disconnect_stream_req(id);
    io.out << "total " << report.frames << " frames, " << report.bytes << " bytes, " << report.gaps
           << " gaps"
           << (sink.isOpen() ? QStringLiteral(", written to ") + options.output : QString())
           << Qt::endl;
    const bool failed = report.events.contains(vms_sdk::StreamEventConnectFailed) ||
                        report.events.contains(vms_sdk::StreamEventConnectTimeout);
    return report.frames > 0 && !failed ? ExitOk : ExitFailed;
}

} // namespace vms_cli
