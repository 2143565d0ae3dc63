// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The guided tour: one row per step, family by family, over the bundled device set (cam-1 at
// the entrance with face detection and an upgrade on offer, cam-2 in the lobby with presets, a
// patrol and people counting, the recorder nvr-1). Most rows are one request by name; the
// rest watch pushes, streams or long operations.
#include "demo_tour.h"

#include "event_loop.h"
#include "long_operations.h"
#include "outcome_text.h"
#include "stream_meter.h"
#include "value_text.h"

#include <QDateTime>

namespace vms_cli {

namespace {

constexpr int PushGuardMs = 8000;

QVariantMap channel(const char* devId, int index = 1)
{
    return {
        {QStringLiteral("channelId"), QVariantMap{{QStringLiteral("devId"), QLatin1String(devId)},
                                                  {QStringLiteral("channelIndex"), index}}}};
}

QVariantMap with(QVariantMap map, const QVariantMap& more)
{
    for (auto it = more.cbegin(); it != more.cend(); ++it)
        map.insert(it.key(), it.value());
    return map;
}

QVariantMap device(const char* devId)
{
    return {{QStringLiteral("devId"), QLatin1String(devId)}};
}

// Today from midnight to now, in the two forms the requests take.
QVariantMap todayTexts(const char* begin, const char* end)
{
    const QDateTime now = QDateTime::currentDateTime();
    const QString format = QStringLiteral("yyyy-MM-dd hh:mm:ss");
    return {{QLatin1String(begin), QDateTime(now.date(), QTime(0, 0)).toString(format)},
            {QLatin1String(end), now.toString(format)}};
}
QVariantMap todayTimes()
{
    const QDateTime now = QDateTime::currentDateTime();
    return {{QStringLiteral("startTime"), QDateTime(now.date(), QTime(0, 0))},
            {QStringLiteral("endTime"), now}};
}

// Runs `trigger` and waits for the first emission of `signal` that `wanted` accepts.
template<class Signal, class Wanted>
StepResult awaitPush(Signal signal, const std::function<void()>& trigger, Wanted wanted,
                     const std::function<QStringList()>& describe)
{
    bool seen = false;
    QObject context;
    QObject::connect(vms_sdk::ClientSignals::instance(), signal, &context,
                     [&](const auto&... args) { seen = seen || wanted(args...); });
    trigger();
    StepResult result;
    result.ok = runUntil([&] { return seen; }, PushGuardMs);
    result.timedOut = !result.ok;
    result.lines = describe();
    return result;
}

StepResult gatewaysReady(Tour& tour)
{
    const GatewaySession& session = tour.session;
    return {.ok = session.onlineCount() > 0,
            .lines = {QStringLiteral("gateway: %1").arg(session.gatewayPath()),
                      QStringLiteral("devices: %1 (%2), %3 managed, %4 online")
                          .arg(session.devicesPath())
                          .arg(session.devices().size())
                          .arg(session.devices().size())
                          .arg(session.onlineCount())}};
}

StepResult searchNetwork(Tour&)
{
    QList<vms_sdk::DevInfo> found;
    return awaitPush(
        &vms_sdk::ClientSignals::signalSearchedDevsPush, [] { vms_sdk::search_devs_cmd(); },
        [&](const QList<vms_sdk::DevInfo>& devs) { return found = devs, true; },
        [&] { return valueLines(QStringLiteral("found"), QVariant::fromValue(found), 3, 0); });
}

StepResult recorderChannels(Tour&)
{
    QList<vms_sdk::DevChannelInfo> channels;
    return awaitPush(
        &vms_sdk::ClientSignals::signalDevChannelsInfoPush,
        [] { vms_sdk::get_dev_channels_info_cmd(QStringLiteral("nvr-1")); },
        [&](const QString& devId, const QList<vms_sdk::DevChannelInfo>& list) {
            if (devId != QLatin1String("nvr-1"))
                return false;
            channels = list;
            return true;
        },
        [&] {
            QStringList lines;
            for (const vms_sdk::DevChannelInfo& info : std::as_const(channels))
                lines.append(QStringLiteral("channel %1: %2 (%3)")
                                 .arg(info.channelId.channelIndex)
                                 .arg(info.osd, info.status == 0 ? QStringLiteral("online")
                                                                 : QStringLiteral("offline")));
            return lines;
        });
}

StepResult rebootAndBack(Tour&)
{
    QStringList seen;
    return awaitPush(
        &vms_sdk::ClientSignals::signalDevStatusPush,
        [] { vms_sdk::reboot_devs_cmd({QStringLiteral("cam-2")}); },
        [&](const QString& devId, vms_sdk::DevStatus status) {
            if (devId != QLatin1String("cam-2"))
                return false;
            seen.append(scalarText(QVariant::fromValue(status)));
            return seen.size() >= 2 && status == vms_sdk::DevStatusOnline;
        },
        [&] { return QStringList{QStringLiteral("cam-2: ") + seen.join(QStringLiteral(" -> "))}; });
}

StepResult liveView(Tour& tour)
{
    const vms_sdk::StreamId id = vms_sdk::connect_live_video_req(
        {.channelId = {.devId = QStringLiteral("cam-1"), .channelIndex = 1}});
    QStringList lines;
    const StreamReport report =
        meterStream(id, 2100, [&](const QString& line) { lines.append(line); });
    vms_sdk::disconnect_stream_req(id);
    Q_UNUSED(tour);
    lines.append(QStringLiteral("stream %1: %2 frames, %3 bytes, %4 gaps")
                     .arg(id)
                     .arg(report.frames)
                     .arg(report.bytes)
                     .arg(report.gaps));
    return {.ok = report.frames > 0 && report.gaps == 0, .lines = lines};
}

StepResult playbackByFile(Tour& tour)
{
    const QString file = tour.kept.value(QStringLiteral("recording")).toString();
    const vms_sdk::StreamId id = vms_sdk::playback_by_file_req(
        {.channelId = {.devId = QStringLiteral("cam-1"), .channelIndex = 1}, .fileName = file});
    QStringList lines{QStringLiteral("file %1").arg(file)};
    auto line = [&](const QString& text) { lines.append(text); };
    StreamReport report = meterStream(id, 600, line);
    // Pause, resume, jump and speed up: each answered by a progress push.
    const std::pair<const char*, std::function<void()>> controls[] = {
        {"pause", [&] { vms_sdk::playback_ctrl_req(id, vms_sdk::PlaybackCtrlPause); }},
        {"resume", [&] { vms_sdk::playback_ctrl_req(id, vms_sdk::PlaybackCtrlResume); }},
        {"skip to 2 s", [&] { vms_sdk::skip_by_offset_time_req(id, 2000); }},
        {"speed 2", [&] { vms_sdk::playback_speed_set_req(id, QStringLiteral("2")); }},
    };
    int answered = 0;
    for (const auto& [name, control] : controls) {
        lines.append(QLatin1String(name));
        control();
        const StreamReport step = meterStream(id, 400, line);
        answered += step.progressPushes > 0 ? 1 : 0;
        report.frames += step.frames;
    }
    vms_sdk::disconnect_stream_req(id);
    return {.ok = !file.isEmpty() && report.frames > 0 && answered == 4, .lines = lines};
}

StepResult playbackByTime(Tour&)
{
    const QDateTime start(QDate::currentDate(), QTime(8, 0));
    const vms_sdk::StreamId id = vms_sdk::playback_by_time_req(
        {.channelId = {.devId = QStringLiteral("cam-1"), .channelIndex = 1}, .startTime = start});
    vms_sdk::playback_speed_set_req(id, QStringLiteral("8"));
    QStringList lines{QStringLiteral("from %1 at 8x").arg(scalarText(start))};
    const StreamReport report =
        meterStream(id, 8000, [&](const QString& text) { lines.append(text); });
    vms_sdk::disconnect_stream_req(id);
    return {.ok = report.frames > 0 && report.events.contains(vms_sdk::StreamEventPlaybackFinished),
            .lines = lines};
}

StepResult talk(Tour&)
{
    StepResult result;
    result.ok = true;
    int events = 0;
    QObject context;
    QObject::connect(vms_sdk::ClientSignals::instance(),
                     &vms_sdk::ClientSignals::signalTalkEventPush, &context,
                     [&](const QPair<QString, int>& on, vms_sdk::TalkEvent event) {
                         ++events;
                         result.lines.append(QStringLiteral("%1/%2: %3")
                                                 .arg(on.first)
                                                 .arg(on.second)
                                                 .arg(scalarText(QVariant::fromValue(event))));
                     });
    for (int operation : {0, 1}) {
        // The answer comes first, then the event.
        vms_sdk::PendingRequest* pending = vms_sdk::send_request(
            QStringLiteral("talk_oper_req"),
            with(channel("cam-1"), {{QStringLiteral("operation"), operation}}));
        const vms_sdk::RequestOutcome outcome = await(pending, PushGuardMs);
        const bool evented = runUntil([&] { return events > operation; }, PushGuardMs);
        result.ok = result.ok && evented && succeeded(outcome);
        result.timedOut = result.timedOut || !evented || outcome.end == vms_sdk::RequestTimedOut;
    }
    return result;
}

StepResult alarmPush(Tour&)
{
    vms_sdk::AlarmInfo alarm;
    return awaitPush(
        &vms_sdk::ClientSignals::signalCommonAlarmPush, [] {},
        [&](const vms_sdk::AlarmInfo& pushed) { return alarm = pushed, true; },
        [&] { return valueLines(QString(), QVariant::fromValue(alarm), 3, 0).mid(0, 8); });
}

int percentOf(const QVariant& value)
{
    return value.toInt();
}

StepResult fromLong(const LongResult& result)
{
    return {.ok = result.ok, .timedOut = result.timedOut, .lines = result.lines};
}

StepResult importFaces(Tour& tour)
{
    const QVariantMap where = channel("cam-1");
    return fromLong(runPolled(
        {.label = QStringLiteral("face import"),
         .command = {},
         .start =
             [=] {
                 return vms_sdk::send_request(QStringLiteral("import_face_library_req"), where);
             },
         .pollRequest = QStringLiteral("import_face_library_progress_req"),
         .pollArguments = where,
         .percent =
             [](const QVariantMap& answer) {
                 const QVariant progress = answer.value(QStringLiteral("progress"));
                 const int total = pick(progress, QStringLiteral("totalCount")).toInt();
                 const int done = pick(progress, QStringLiteral("successCount")).toInt() +
                                  pick(progress, QStringLiteral("failedCount")).toInt();
                 return total > 0 ? done * 100 / total : 0;
             },
         .done =
             [](const QVariantMap& answer) {
                 const QVariant progress = answer.value(QStringLiteral("progress"));
                 const int total = pick(progress, QStringLiteral("totalCount")).toInt();
                 return total > 0 &&
                        pick(progress, QStringLiteral("successCount")).toInt() +
                                pick(progress, QStringLiteral("failedCount")).toInt() >=
                            total;
             }},
        tour.io));
}

StepResult exportFaces(Tour& tour)
{
    const QVariantMap where = channel("cam-1");
    return fromLong(runPolled(
        {.label = QStringLiteral("face export"),
         .command = {},
         .start =
             [=] {
                 return vms_sdk::send_request(QStringLiteral("export_face_library_req"), where);
             },
         .pollRequest = QStringLiteral("export_face_library_progress_req"),
         .pollArguments = where,
         .percent =
             [](const QVariantMap& a) { return percentOf(a.value(QStringLiteral("progress"))); },
         .done =
             [](const QVariantMap& a) {
                 return percentOf(a.value(QStringLiteral("progress"))) >= 100;
             }},
        tour.io));
}

StepResult formatDisk(Tour& tour)
{
    const QVariantMap disk = with(
        device("nvr-1"), {{QStringLiteral("diskNum"), tour.kept.value(QStringLiteral("disk"))}});
    return fromLong(runPolled(
        {.label = QStringLiteral("disk format"),
         .command = {},
         .start =
             [=] { return vms_sdk::send_request(QStringLiteral("format_dev_disk_req"), disk); },
         .pollRequest = QStringLiteral("get_dev_disk_formatting_progress_req"),
         .pollArguments = disk,
         .percent =
             [](const QVariantMap& a) { return percentOf(a.value(QStringLiteral("progress"))); },
         .done = [](const QVariantMap& a) { return a.value(QStringLiteral("finished")).toBool(); }},
        tour.io));
}

StepResult upgrade(Tour& tour)
{
    return fromLong(runPolled(
        {.label = QStringLiteral("upgrade"),
         .command = [] { vms_sdk::do_dev_upgrade_cmd({.devId = QStringLiteral("cam-1")}); },
         .start = {},
         .pollRequest = QStringLiteral("get_dev_upgrade_progress_req"),
         .pollArguments = device("cam-1"),
         .percent =
             [](const QVariantMap& a) {
                 return pick(a.value(QStringLiteral("upgradeInfo")), QStringLiteral("progress"))
                     .toInt();
             },
         .done =
             [](const QVariantMap& a) {
                 return pick(a.value(QStringLiteral("upgradeInfo")), QStringLiteral("status"))
                            .toInt() == 2;
             }},
        tour.io));
}

StepResult upload(Tour& tour)
{
    return fromLong(runTransfer(
        QStringLiteral("upload"), QStringLiteral("upload_file_req"),
        with(device("cam-1"), {{QStringLiteral("fileName"), QStringLiteral("config.bin")},
                               {QStringLiteral("purpose"), QStringLiteral("config")}}),
        tour.io));
}

StepResult download(Tour& tour)
{
    return fromLong(runTransfer(
        QStringLiteral("download"), QStringLiteral("download_file_req"),
        with(device("cam-1"), {{QStringLiteral("srcFileName"), QStringLiteral("device.log")},
                               {QStringLiteral("desFileName"), QStringLiteral("device.log")}}),
        tour.io));
}

} // namespace

QList<DemoStep> demoSteps()
{
    const QString today = QDate::currentDate().toString(Qt::ISODate);
    const QString monthStart =
        QDate::currentDate().addDays(1 - QDate::currentDate().day()).toString(Qt::ISODate);
    const QVariantMap cam1 = channel("cam-1");
    const QVariantMap cam2 = channel("cam-2");
    const auto S = [](const char* text) { return QString::fromLatin1(text); };
    return {
        {S("gateways"),
         S("the gateways are up and the devices managed"),
         {},
         {},
         {},
         gatewaysReady},
        {S("discovery"), S("search the network"), {}, {}, {}, searchNetwork},
        {S("discovery"), S("the recorder's channels"), {}, {}, {}, recorderChannels},
        {S("device management"),
         S("rename the lobby camera"),
         S("modify_dev_name_req"),
         with(device("cam-2"), {{S("devName"), S("Lobby east")}}),
         {},
         {}},
        {S("device management"),
         S("the entrance camera's QR code"),
         S("get_dev_qrcode_req"),
         device("cam-1"),
         {},
         {}},
        {S("device management"),
         S("reboot the lobby camera and see it come back"),
         {},
         {},
         {},
         rebootAndBack},
        {S("network"), S("network settings"), S("get_dev_net_req"), device("cam-1"), {}, {}},
        {S("network"), S("network mode"), S("get_dev_net_mode_req"), device("cam-1"), {}, {}},
        {S("network"),
         S("set a DNS server"),
         S("set_dev_net_req"),
         with(device("cam-1"), {{S("ip"), S("192.168.1.64")},
                                {S("subNetMask"), S("255.255.255.0")},
                                {S("defaultGateway"), S("192.168.1.1")},
                                {S("dns"), S("192.168.1.2")}}),
         {},
         {}},
        {S("platform"),
         S("enrol with a management platform"),
         S("set_dev_platform_req"),
         with(device("cam-1"),
              {{S("platformInfo"), QVariantMap{{S("enabled"), true},
                                               {S("platformAddr"), S("192.168.1.10")},
                                               {S("port"), 7661}}}}),
         {},
         {}},
        {S("platform"),
         S("the platform, with its registration"),
         S("get_dev_platform_req"),
         with(device("cam-1"), {{S("withStatus"), true}}),
         {},
         {}},
        {S("platform"), S("RTSP address of the main stream"), S("get_rtsp_url_req"), cam1, {}, {}},
        {S("PTZ"), S("what the lobby dome can do"), S("get_ptz_ability_req"), cam2, {}, {}},
        {S("PTZ"),
         S("pan left"),
         S("PTZ_ctrl_req"),
         with(cam2, {{S("operation"), 2}, {S("action"), 0}, {S("speed"), 4}}),
         {},
         {}},
        {S("PTZ"), S("the presets"), S("get_presets_req"), cam2, {}, {}},
        {S("PTZ"),
         S("store preset 4"),
         S("oper_preset_req"),
         with(cam2, {{S("presetNum"), 4}, {S("presetName"), S("Window")}, {S("operation"), 0}}),
         {},
         {}},
        {S("PTZ"),
         S("go to preset 4"),
         S("oper_preset_req"),
         with(cam2, {{S("presetNum"), 4}, {S("operation"), 1}}),
         {},
         {}},
        {S("PTZ"),
         S("add preset 4 to patrol 1"),
         S("oper_patrol_preset_req"),
         with(cam2, {{S("patrolIndex"), 1},
                     {S("presetNum"), 4},
                     {S("stayTime"), 15},
                     {S("operation"), 0}}),
         {},
         {}},
        {S("PTZ"), S("the patrols"), S("get_patrols_req"), cam2, {}, {}},
        {S("PTZ"),
         S("start patrol 1"),
         S("oper_patrol_req"),
         with(cam2, {{S("patrolIndex"), 1}, {S("operation"), 0}}),
         {},
         {}},
        {S("PTZ"),
         S("stop patrol 1"),
         S("oper_patrol_req"),
         with(cam2, {{S("patrolIndex"), 1}, {S("operation"), 1}}),
         {},
         {}},
        {S("recordings"),
         S("today's recordings"),
         S("search_video_recordings_req"),
         with(cam1, todayTexts("beginTime", "endTime")),
         {{S("recording"), S("recordings.0.fileName")}},
         {}},
        {S("recordings"),
         S("this month's calendar"),
         S("get_video_recordings_calendar_mask_req"),
         with(cam1, {{S("startDate"), monthStart}, {S("endDate"), today}}),
         {},
         {}},
        {S("live view"), S("two seconds of live video"), {}, {}, {}, liveView},
        {S("live view"),
         S("a snapshot"),
         S("get_snap_image_req"),
         with(cam1, {{S("path"), S("snapshots/entrance.jpg")}}),
         {},
         {}},
        {S("playback"),
         S("play a recording, pause, resume, skip, speed up"),
         {},
         {},
         {},
         playbackByFile},
        {S("playback"), S("play from 08:00 at 8x to the end"), {}, {}, {}, playbackByTime},
        {S("talk"), S("talk to the entrance and stop"), {}, {}, {}, talk},
        {S("faces"),
         S("the face library"),
         S("get_faces_req"),
         with(cam1, {{S("pageNum"), 1}, {S("pageSize"), 10}}),
         {},
         {}},
        {S("faces"),
         S("add a person"),
         S("add_face_req"),
         with(cam1, {{S("serialNum"), S("EMP-0003")},
                     {S("name"), S("Cy Park")},
                     {S("gender"), 1},
                     {S("age"), 29}}),
         {},
         {}},
        {S("faces"),
         S("today's face detections, first page"),
         S("get_face_detect_records_req"),
         with(cam1,
              with(todayTexts("beginTime", "endTime"), {{S("pageNum"), 1}, {S("pageSize"), 5}})),
         {},
         {}},
        {S("faces"), S("face groups"), S("get_all_face_groups_req"), cam1, {}, {}},
        {S("faces"),
         S("add a group"),
         S("add_face_groups_req"),
         with(cam1, {{S("groups"), QVariantList{QVariantMap{{S("name"), S("Contractors")},
                                                            {S("enable"), true}}}}}),
         {},
         {}},
        {S("faces"),
         S("face recognitions, first page"),
         S("get_face_rec_records_req"),
         with(cam1, with(todayTimes(), {{S("pageNum"), 1}, {S("pageSize"), 5}})),
         {},
         {}},
        {S("faces"), S("import a face library"), {}, {}, {}, importFaces},
        {S("faces"), S("export the face library"), {}, {}, {}, exportFaces},
        {S("alarms"), S("an alarm as it happens"), {}, {}, {}, alarmPush},
        {S("alarms"),
         S("alarm records, page 1"),
         S("get_alarm_records_req"),
         with(cam1, with(todayTimes(), {{S("page"), 1}, {S("pageSize"), 5}})),
         {},
         {}},
        {S("alarms"),
         S("alarm records, page 2"),
         S("get_alarm_records_req"),
         with(cam1, with(todayTimes(), {{S("page"), 2}, {S("pageSize"), 5}})),
         {},
         {}},
        {S("events"),
         S("today's events"),
         S("get_event_records_req"),
         with(cam1, todayTimes()),
         {},
         {}},
        {S("events"),
         S("event types that fired"),
         S("get_triggered_events_req"),
         with(cam1, todayTimes()),
         {},
         {}},
        {S("counting"),
         S("people counted today"),
         S("get_customers_count_req"),
         with(cam2, todayTimes()),
         {},
         {}},
        {S("counting"),
         S("today's heat map"),
         S("get_customers_heat_map_req"),
         with(cam2, todayTimes()),
         {},
         {}},
        {S("counting"), S("counting regions"), S("get_customers_regions_req"), cam2, {}, {}},
        {S("plates"),
         S("licence plates, first page"),
         S("get_license_plate_rec_records_req"),
         with(cam1, with(todayTimes(), {{S("pageNum"), 1}, {S("pageSize"), 5}})),
         {},
         {}},
        {S("disks"),
         S("the recorder's disks"),
         S("get_dev_disks_info_req"),
         device("nvr-1"),
         {{S("disk"), S("disks.0.diskNum")}},
         {}},
        {S("disks"), S("format the first disk"), {}, {}, {}, formatDisk},
        {S("logs"),
         S("today's device log"),
         S("get_dev_logs_req"),
         with(device("cam-1"), {{S("date"), today}}),
         {},
         {}},
        {S("image"), S("image abilities"), S("get_chann_image_ability_req"), cam1, {}, {}},
        {S("image"),
         S("brighter"),
         S("set_chann_image_adjust_settings_req"),
         with(cam1, {{S("info"), QVariantMap{{S("brightness"), 60},
                                             {S("contrast"), 50},
                                             {S("saturation"), 50},
                                             {S("sharpen"), 50}}}}),
         {},
         {}},
        {S("image"),
         S("image adjustments"),
         S("get_chann_image_adjust_settings_req"),
         cam1,
         {},
         {}},
        {S("upgrade"),
         S("is there a newer firmware?"),
         S("check_dev_upgrade_req"),
         device("cam-1"),
         {},
         {}},
        {S("upgrade"), S("upgrade the entrance camera"), {}, {}, {}, upgrade},
        {S("files"), S("upload a file"), {}, {}, {}, upload},
        {S("files"), S("download a file"), {}, {}, {}, download},
    };
}

} // namespace vms_cli
