// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// The records a channel's analytics keep: events, alarms, temperature readings, licence
// plates, people counts and heat maps.
//
// Records are generated, not stored: one every eventMinutes of the device, at multiples of
// that spacing, each drawn from its time. The same query therefore always finds the same
// records, a wider one finds more, and paging through them is consistent.

#include "json_method.h"

namespace vms_dgw_sim {
namespace {

struct EventType
{
    qint32 type;
    const char* name;
    bool alarm;
    qint32 timeType; // 0: an instant, 1: lasts a while
};

constexpr EventType eventTypes[] = {
    {1, "motion detection", true, 1}, {2, "video loss", true, 1},
    {3, "line crossing", true, 0},    {4, "region intrusion", true, 1},
    {5, "face detection", false, 0},  {6, "scheduled recording", false, 1},
};

constexpr int eventSeconds = 30;

qint64 spacing(const MethodCall& call)
{
    return qint64(call.device->eventMinutes) * 60;
}

// The n-th of the values asked for, cycling; `all` when none was asked.
template<typename T>
T cycled(const QList<T>& asked, const QList<T>& all, int n)
{
    const QList<T>& from = asked.isEmpty() ? all : asked;
    return from.at(n % from.size());
}

QList<qint32> allEventTypes()
{
    QList<qint32> types;
    for (const EventType& type : eventTypes)
        types.append(type.type);
    return types;
}

QJsonObject triggeredEvents(MethodCall& call, Outcome* outcome)
{
    TimeRange range;
    *outcome = readPeriod(call, "startTime", "endTime", &range);
    const int count = recordTimes(range, spacing(call), 6).size();
    QJsonArray list;
    for (int i = 0; i < count; ++i) {
        const EventType& type = eventTypes[i];
        list.append(QJsonObject{{QStringLiteral("type"), type.type},
                                {QStringLiteral("name"), QLatin1String(type.name)},
                                {QStringLiteral("alarm"), type.alarm},
                                {QStringLiteral("timetype"), type.timeType}});
    }
    return {{QStringLiteral("eventTypeList"), list}};
}

bool recorded(const SimDevice& device, qint64 at)
{
    const QDate since = device.recordingsSince;
    return since.isNull() || QDateTime::fromSecsSinceEpoch(at, Qt::UTC).date() >= since;
}

QJsonObject events(MethodCall& call, Outcome* outcome)
{
    TimeRange range;
    *outcome = readPeriod(call, "startTime", "endTime", &range);
    QList<qint32> asked;
    for (const QJsonValue& type : call.param.value(QStringLiteral("type")).toArray())
        asked.append(type.toInt());
    const QList<qint64> times = recordTimes(range, spacing(call));
    const QList<qint32> all = allEventTypes();
    const auto event = [&](int i) {
        return QJsonObject{
            {QStringLiteral("type"), cycled(asked, all, i)},
            {QStringLiteral("record"), recorded(*call.device, times.at(i))},
            {QStringLiteral("startTime"), deviceTimeText(times.at(i))},
            {QStringLiteral("stopTime"), deviceTimeText(times.at(i) + eventSeconds)}};
    };
    return {{QStringLiteral("eventCount"), times.size()},
            {QStringLiteral("eventList"),
             pageOf(times.size(), call.integer("pageNum"), call.integer("pageSize", 1000), event)}};
}

// A listing query's records in the asked order (0: oldest first, 1: newest first).
QList<qint64> ordered(QList<qint64> times, qint32 order)
{
    if (order == 1)
        std::reverse(times.begin(), times.end());
    return times;
}

QJsonObject alarmRecords(MethodCall& call, Outcome* outcome)
{
    static const QStringList types = {QStringLiteral("motion_detection"),
                                      QStringLiteral("line_crossing"),
                                      QStringLiteral("video_loss")};
    TimeRange range;
    *outcome = readPeriod(call, "startTime", "endTime", &range);
    const QString asked = call.text("type");
    const QList<qint64> times =
        ordered(recordTimes(range, spacing(call)), call.integer("order_type"));
    const qint64 index = call.channel->index;
    const auto alarm = [&](int i) {
        const qint64 at = times.at(i);
        const QString type = asked.isEmpty() ? types.at(int(at / spacing(call) % 3)) : asked;
        const QString file = QStringLiteral("/mnt/sd/alarm/ch%1_%2")
                                 .arg(index)
                                 .arg(deviceTimeText(at, QStringLiteral("yyyyMMddhhmmss")));
        return QJsonObject{
            {QStringLiteral("time"), deviceTimeText(at)},
            {QStringLiteral("type"), type},
            {QStringLiteral("name"), call.channel->osd},
            {QStringLiteral("channelid"), index},
            {QStringLiteral("path_list"),
             QJsonArray{
                 QJsonObject{{QStringLiteral("path"), QString(file + QStringLiteral("_1.jpg"))},
                             {QStringLiteral("time"), deviceTimeText(at)}},
                 QJsonObject{{QStringLiteral("path"), QString(file + QStringLiteral("_2.jpg"))},
                             {QStringLiteral("time"), deviceTimeText(at + 1)}}}}};
    };
    return {{QStringLiteral("total_cnt"), times.size()},
            {QStringLiteral("info_list"),
             pageOf(times.size(), call.integer("page"), call.integer("page_size"), alarm)}};
}

// Body temperature readings of a screening region: mostly normal, now and then over the
// 37.3 degree threshold, which raises an alarm.
QJsonObject temperatureRecords(MethodCall& call, Outcome* outcome)
{
    TimeRange range;
    *outcome = readPeriod(call, "start_time", "end_time", &range);
    const QList<qint64> times =
        ordered(recordTimes(range, spacing(call)), call.integer("order_type"));
    const auto reading = [&](int i) {
        const qint64 at = times.at(i);
        const double temper = 36.0 + scatter(at, 1, 19) / 10.0;
        const int region = 1 + scatter(at, 2, 2);
        return QJsonObject{
            {QStringLiteral("id"), region},
            {QStringLiteral("name"), QStringLiteral("Region %1").arg(region)},
            {QStringLiteral("temper"), temper},
            {QStringLiteral("over_threshold"), temper > 37.3},
            {QStringLiteral("time"), deviceTimeText(at)},
            {QStringLiteral("alarm_status"), temper > 37.3 ? 1 : 0},
            {QStringLiteral("jpeg_path"),
             QStringLiteral("/mnt/sd/temper/%1.jpg")
                 .arg(deviceTimeText(at, QStringLiteral("yyyyMMddhhmmss")))},
            {QStringLiteral("temper_rect"), QStringLiteral("%1,120,80,60").arg(region * 200)}};
    };
    return {{QStringLiteral("total_cnt"), times.size()},
            {QStringLiteral("temper_records"),
             pageOf(times.size(), call.integer("page"), call.integer("page_size"), reading)}};
}

QJsonObject plates(MethodCall& call, Outcome* outcome)
{
    static const char* const numbers[] = {"A12345", "B67890", "C24680", "D13579", "E11223"};
    TimeRange range;
    *outcome = readPeriod(call, "startTime", "endTime", &range);
    const QString wanted = call.text("plate_no");
    QList<qint64> times;
    for (const qint64 at : recordTimes(range, spacing(call))) {
        if (QLatin1String(numbers[scatter(at, 3, 5)]).contains(wanted, Qt::CaseInsensitive))
            times.append(at);
    }
    const int pageNum = call.integer("pageNum", 1);
    const auto plate = [&](int i) {
        const qint64 at = times.at(i);
        return QJsonObject{{QStringLiteral("channelid"), qint64(call.channel->index)},
                           {QStringLiteral("time"), deviceTimeText(at)},
                           {QStringLiteral("plate_num"), QLatin1String(numbers[scatter(at, 3, 5)])},
                           {QStringLiteral("plate_color"), scatter(at, 4, 4)},
                           {QStringLiteral("plate_type"), scatter(at, 5, 3)},
                           {QStringLiteral("picPath"),
                            QStringLiteral("/mnt/sd/lpr/%1.jpg")
                                .arg(deviceTimeText(at, QStringLiteral("yyyyMMddhhmmss")))},
                           {QStringLiteral("vehicle_type"), scatter(at, 6, 5)},
                           {QStringLiteral("vehicle_color"), scatter(at, 7, 8)},
                           {QStringLiteral("vehicle_orientation"), scatter(at, 8, 2)}};
    };
    return {{QStringLiteral("total_cnt"), times.size()},
            {QStringLiteral("pageNum"), pageNum},
            {QStringLiteral("result_list"),
             pageOf(times.size(), pageNum, call.integer("pageSize", 100), plate)}};
}

// Where people spent time in the picture over the period: a warm spot before the counter,
// warmer the longer the period. One byte per cell, row by row.
QJsonObject heatMap(MethodCall& call, Outcome* outcome)
{
    constexpr int width = 64;
    constexpr int height = 36;
    TimeRange range;
    *outcome = readPeriod(call, "startTime", "endTime", &range);
    const double weight = qMin(1.0, (range.end - range.begin) / 86400.0 + 0.2);
    QByteArray cells(width * height, '\0');
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double dx = (x - width * 0.6) / (width * 0.25);
            const double dy = (y - height * 0.65) / (height * 0.3);
            const double heat = weight * 255 / (1 + 2 * (dx * dx + dy * dy));
            cells[y * width + x] = char(qBound(0, int(heat), 255));
        }
    }
    return {{QStringLiteral("width"), width},
            {QStringLiteral("height"), height},
            {QStringLiteral("bgJpegBase64"),
             QString::fromLatin1(sceneJpeg(width * 5, height * 5, call.channel->index).toBase64())},
            {QStringLiteral("heatmapDataBase64"), QString::fromLatin1(cells.toBase64())}};
}

QJsonObject customerCounts(MethodCall& call, Outcome* outcome)
{
    TimeRange range;
    *outcome = readPeriod(call, "start_time", "end_time", &range);
    QJsonArray list;
    for (const TimeRange& period : countPeriods(range, call.text("count_type"))) {
        const int in = visitors(period, 1);
        const int out = in - scatter(period.begin, 9, in / 10 + 1);
        list.append(QJsonObject{{QStringLiteral("pass_cnt"), in * 3 + scatter(period.begin, 10, 9)},
                                {QStringLiteral("in_cnt"), in},
                                {QStringLiteral("out_cnt"), out},
                                {QStringLiteral("keep_cnt"), in - out}});
    }
    return {{QStringLiteral("customer_count_list"), list}};
}

constexpr const char* regionNames[] = {"Entrance", "Checkout", "Shelves"};

QJsonObject countingRegions(MethodCall&, Outcome*)
{
    QJsonArray regions;
    for (int i = 0; i < 3; ++i) {
        regions.append(QJsonObject{{QStringLiteral("id"), i + 1},
                                   {QStringLiteral("name"), QLatin1String(regionNames[i])}});
    }
    return {{QStringLiteral("regions"), regions}};
}

QJsonObject regionAttention(MethodCall& call, Outcome* outcome)
{
    const qint32 region = call.integer("region_id");
    TimeRange range;
    *outcome = readPeriod(call, "start_time", "end_time", &range);
    if (outcome->ok() && (region < 1 || region > 3))
        *outcome = {NotFound, QStringLiteral("no counting region %1").arg(region)};
    QJsonArray list;
    // The counts are shared out by region number: a refused request has none to divide by.
    if (!outcome->ok())
        return {{QStringLiteral("people_count_list"), list}};
    for (const TimeRange& period : countPeriods(range, call.text("count_type"))) {
        const int people = visitors(period, 10 + region) / region;
        const int stay = people * (40 + scatter(period.begin, 20 + region, 40)) / 100;
        list.append(QJsonObject{
            {QStringLiteral("people_cnt"), people},
            {QStringLiteral("stay_cnt"), stay},
            {QStringLiteral("stay_rate"), people ? double(stay) / people : 0.0},
            {QStringLiteral("stay_average_time"), 30 + scatter(period.begin, 30 + region, 240)}});
    }
    return {{QStringLiteral("people_count_list"), list}};
}

QJsonObject cancelAlarm(MethodCall& call, Outcome* outcome)
{
    if (call.text("alarm_source").isEmpty())
        *outcome = {InvalidArgument, QStringLiteral("\"alarm_source\" names no alarm")};
    return {};
}

} // namespace

MethodRows analyticsMethods()
{
    return {
        {"event_get_type_list", triggeredEvents},
        {"event_get_list", events},
        {"alarm_info_list_get", alarmRecords},
        {"alarm_temperature_get_history_list", temperatureRecords},
        {"alarm_manual_cancel", cancelAlarm},
        {"alarm_link_trigger", succeed},
        {"ivp_LPR_get_history", plates},
        {"ivp_hm_get_heatmap", heatMap},
        {"intelligence_customer_count_get_history_list", customerCounts},
        {"intelligence_regional_people_count_get_param", countingRegions},
        {"intelligence_regional_people_count_get_history_list", regionAttention},
    };
}

} // namespace vms_dgw_sim
