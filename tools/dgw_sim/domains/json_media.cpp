// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// The picture, stream, audio, recording-calendar and PTZ methods of a channel.
//
// The image adjustment and the tag points of a bullet-dome pair are the channel's state: a set
// changes what the next get returns. A bullet-dome calibration advances a fifth of the way on
// every status query.

#include "json_method.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>

namespace vms_dgw_sim {
namespace {

QJsonObject imageAdjust(MethodCall& call, Outcome*)
{
    const ImageAdjust& image = call.channel->apps.image;
    return {{QStringLiteral("contrast"), image.contrast},
            {QStringLiteral("brightness"), image.brightness},
            {QStringLiteral("saturation"), image.saturation},
            {QStringLiteral("sharpen"), image.sharpen},
            {QStringLiteral("bEnableMI"), image.mirror},
            {QStringLiteral("bEnableST"), image.flip},
            {QStringLiteral("rotate"), image.rotate},
            {QStringLiteral("style"), image.style}};
}

QJsonObject setImageAdjust(MethodCall& call, Outcome* outcome)
{
    ImageAdjust image;
    image.contrast = call.integer("contrast", -1);
    image.brightness = call.integer("brightness", -1);
    image.saturation = call.integer("saturation", -1);
    image.sharpen = call.integer("sharpen", -1);
    image.mirror = call.flag("bEnableMI");
    image.flip = call.flag("bEnableST");
    image.rotate = call.integer("rotate");
    image.style = call.integer("style");
    for (const qint32 level : {image.contrast, image.brightness, image.saturation, image.sharpen}) {
        if (level < 0 || level > 100) {
            *outcome = {InvalidArgument, QStringLiteral("levels are 0..100")};
            return {};
        }
    }
    call.channel->apps.image = image;
    return {};
}

QJsonObject imageAbility(MethodCall&, Outcome*)
{
    // A day-and-night bullet camera: no lens distortion correction, no starlight sensor.
    static const char* const supported[] = {
        "bMISup",           "bSTSup",         "bRotateSup",
        "bStyleSup",        "bExpModeSup",    "bWBSup",
        "bWDSup",           "bASTimeSup",     "bFluencySup",
        "bDefinitionSup",   "bNoiseRdSup",    "bSmearSup",
        "bAutoLowFrameSup", "b3DNoiseRdSup",  "b3DNoiseRdValueSup",
        "bDefogSup",        "bDefogValueSup", "bFaceModeSup",
        "bSmartSensorSup",  "bWLValSetSup"};
    static const char* const unsupported[] = {"bHardWDSup", "bDistCorSup", "bDistCorValueSup",
                                              "bStarSup",   "bVlpnIrSup",  "bCPModeSup"};
    QJsonObject ability;
    for (const char* key : supported)
        ability.insert(QLatin1String(key), true);
    for (const char* key : unsupported)
        ability.insert(QLatin1String(key), false);
    return ability;
}

QJsonObject imageSettings(MethodCall& call, Outcome*)
{
    QJsonObject settings = imageAdjust(call, nullptr);
    settings.remove(QStringLiteral("style"));
    const auto clock = [](int hour) {
        return QJsonObject{{QStringLiteral("hour"), hour}, {QStringLiteral("minute"), 0}};
    };
    for (const char* key : {"fluency", "definition", "noise", "smear"})
        settings.insert(QLatin1String(key), 50);
    settings.insert(QStringLiteral("exposureMode"), 0);
    settings.insert(QStringLiteral("exposureMax"), 40000);
    settings.insert(QStringLiteral("exposureMin"), 10);
    settings.insert(QStringLiteral("antiflick"), 0);
    settings.insert(QStringLiteral("scene"), QStringLiteral("outdoor"));
    settings.insert(QStringLiteral("daynightMode"), QStringLiteral("auto"));
    settings.insert(QStringLiteral("dayStart"), clock(6));
    settings.insert(QStringLiteral("dayEnd"), clock(18));
    settings.insert(QStringLiteral("light"), 50);
    for (const char* key : {"bEnableAWB", "bEnableNoC", "bAutogain"})
        settings.insert(QLatin1String(key), true);
    for (const char* key :
         {"bEnableWDynamic", "bAutoLowFrameEn", "bNightOptimization", "bDefogging", "bStarlight",
          "bBLC", "bDistortionCorrection", "bDigitalstabilize"})
        settings.insert(QLatin1String(key), false);
    return settings;
}

QJsonObject streamParams(MethodCall&, Outcome*)
{
    struct Stream
    {
        int width, height, frameRate, bitRate, gop;
    };
    static const Stream streams[] = {{2560, 1440, 25, 4096, 50}, {640, 360, 15, 512, 30}};
    QJsonArray list;
    for (int i = 0; i < 2; ++i) {
        const Stream& stream = streams[i];
        list.append(QJsonObject{{QStringLiteral("streamid"), i},
                                {QStringLiteral("width"), stream.width},
                                {QStringLiteral("height"), stream.height},
                                {QStringLiteral("frameRate"), stream.frameRate},
                                {QStringLiteral("bitRate"), stream.bitRate},
                                {QStringLiteral("gop"), stream.gop},
                                {QStringLiteral("venctype"), i == 0 ? 2 : 1}, // H.265, H.264
                                {QStringLiteral("quality"), 4},
                                {QStringLiteral("smooth"), 50},
                                {QStringLiteral("rcMode"), 0},
                                {QStringLiteral("smartencode"), i == 0 ? 1 : 0},
                                {QStringLiteral("encryptEn"), false}});
    }
    return {{QStringLiteral("streams"), list}};
}

// One line in or out per channel of the device, the first of them enabled.
QJsonObject audioLines(MethodCall& call, Outcome*)
{
    QJsonArray all;
    for (const SimChannel& channel : std::as_const(call.device->channels)) {
        all.append(QJsonObject{{QStringLiteral("channelid"), qint64(channel.index)},
                               {QStringLiteral("bEnable"), all.isEmpty()},
                               {QStringLiteral("sampleRate"), 8000},
                               {QStringLiteral("bitWidth"), 16},
                               {QStringLiteral("cntChannel"), 1},
                               {QStringLiteral("bitRate"), 64},
                               {QStringLiteral("encType"), 1},
                               {QStringLiteral("aiGain"), 50}});
    }
    return {{QStringLiteral("all"), all}};
}

QJsonObject snapFile(MethodCall& call, Outcome* outcome)
{
    const QString path = call.text("path");
    if (path.isEmpty()) {
        *outcome = {InvalidArgument, QStringLiteral("\"path\" names no picture")};
        return {};
    }
    return {{QStringLiteral("data"),
             QString::fromLatin1(sceneJpeg(160, 90, uint(qHash(path))).toBase64())}};
}

// One flag per day of the asked dates: 1 on the days the channel has recordings, which are
// the days from the device's first recording to its today.
QJsonObject recordDates(MethodCall& call, Outcome* outcome)
{
    const QString format = QStringLiteral("yyyyMMddhhmmss");
    const QDate first = QDateTime::fromString(call.text("start_time"), format).date();
    const QDate last = QDateTime::fromString(call.text("end_time"), format).date();
    if (!first.isValid() || !last.isValid() || last < first || first.daysTo(last) > 366) {
        *outcome = {InvalidArgument,
                    QStringLiteral("times are yyyyMMddhhmmss, at most a year apart")};
        return {};
    }
    const QDate today = QDateTime::fromSecsSinceEpoch(deviceNow(*call.device), Qt::UTC).date();
    const QDate since = call.device->recordingsSince;
    QJsonArray days;
    for (QDate day = first; day <= last; day = day.addDays(1))
        days.append(day <= today && (since.isNull() || day >= since) ? 1 : 0);
    return {{QStringLiteral("date_list"), days}};
}

QJsonObject ptzAbility(MethodCall&, Outcome*)
{
    return {{QStringLiteral("motor_ability"), QJsonObject{{QStringLiteral("pan_tilt_both"), true}}},
            {QStringLiteral("ex_ability"), QJsonObject{{QStringLiteral("auto_move"), true}}},
            {QStringLiteral("lens_ability"), QJsonObject{{QStringLiteral("zoom"), true},
                                                         {QStringLiteral("focus"), true},
                                                         {QStringLiteral("iris"), false}}},
            {QStringLiteral("max_preset"), 255},
            {QStringLiteral("max_patrol"), 8},
            {QStringLiteral("max_trail"), 4},
            {QStringLiteral("max_task"), 8}};
}

// Tag points are in the bullet camera's picture, 0..10000 each way; the dome's position for
// a point follows from it.
constexpr int maxTagPoints = 16;

QJsonObject addTagPoint(MethodCall& call, Outcome* outcome)
{
    const qint32 x = call.integer("x", -1);
    const qint32 y = call.integer("y", -1);
    QList<TagPoint>& points = call.channel->apps.tagPoints;
    if (x < 0 || x > 10000 || y < 0 || y > 10000)
        *outcome = {InvalidArgument, QStringLiteral("a tag point lies in 0..10000 each way")};
    else if (points.size() >= maxTagPoints)
        *outcome = {Busy, QStringLiteral("%1 tag points are the most").arg(maxTagPoints)};
    else
        points.append({x, y, x * 0.036, y * 0.009 - 45, 1 + y / 2500.0});
    return {};
}

QJsonObject tagPoints(MethodCall& call, Outcome*)
{
    QJsonArray list;
    for (const TagPoint& point : std::as_const(call.channel->apps.tagPoints)) {
        list.append(QJsonObject{{QStringLiteral("x"), point.x},
                                {QStringLiteral("y"), point.y},
                                {QStringLiteral("p"), point.pan},
                                {QStringLiteral("t"), point.tilt},
                                {QStringLiteral("z"), point.zoom}});
    }
    return {{QStringLiteral("list"), list}};
}

QJsonObject clearTagPoints(MethodCall& call, Outcome*)
{
    call.channel->apps.tagPoints.clear();
    return {};
}

QJsonObject calibrate(MethodCall& call, Outcome* outcome)
{
    if (call.channel->apps.tagPoints.size() < 2)
        *outcome = {InvalidArgument, QStringLiteral("a calibration needs two tag points")};
    else
        call.channel->apps.calibration = {true, 0};
    return {};
}

// Status 0: never calibrated, 1: calibrating, 2: calibrated.
QJsonObject calibration(MethodCall& call, Outcome*)
{
    Progress& progress = call.channel->apps.calibration;
    const int percent = progress.started ? qMin(100, ++progress.asked * 20) : 0;
    return {{QStringLiteral("status"), !progress.started ? 0
                                       : percent < 100   ? 1
                                                         : 2},
            {QStringLiteral("progress"), percent}};
}

} // namespace

QByteArray sceneJpeg(int width, int height, quint32 seed)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(int(seed % 360), 60, 200));
    QPainter painter(&image);
    painter.fillRect(0, height * 2 / 3, width, height / 3, QColor(90, 90, 90)); // the floor
    painter.fillRect(width / 4, height / 4, width / 6, height / 2, QColor(140, 100, 60));
    painter.end();
    QByteArray jpeg;
    QBuffer buffer(&jpeg);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPEG", 80);
    return jpeg;
}

MethodRows mediaMethods()
{
    return {
        {"image_get_adjust_param", imageAdjust},
        {"image_set_adjust_param", setImageAdjust},
        {"image_get_ability", imageAbility},
        {"image_get_param", imageSettings},
        {"stream_get_params", streamParams},
        {"ai_get_all_param", audioLines},
        {"ao_get_all_param", audioLines},
        {"snap_file_get", snapFile},
        {"get_record_date_list", recordDates},
        {"ptz_ability_get", ptzAbility},
        {"ptz_auto", succeed},
        {"gtrack_add_mark_point", addTagPoint},
        {"gtrack_get_point_list", tagPoints},
        {"gtrack_clear_point", clearTagPoints},
        {"gtrack_set_calibration", calibrate},
        {"gtrack_get_calibration", calibration},
        {"gtrack_set_guard", succeed},
    };
}

} // namespace vms_dgw_sim
