// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/json_methods/alarm_worker.h"

#include "vms_sdk/client/sdk_log.h"
#include "vms_sdk/request/conversions/face_conversions.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

namespace vms_sdk {

namespace {

// Picture fields of face records hold text, padded with zero bytes by some devices.
QString textUpToZero(const QByteArray& bytes)
{
    const int end = bytes.indexOf('\0');
    return QString::fromUtf8(end < 0 ? bytes : bytes.left(end));
}

QByteArray faceAlarmDetail(const FaceDetectRecordInfo& record)
{
    const QJsonObject detail{
        {"temperature", record.temperature},
        {"serialNum", record.serialNum},
        {"name", record.name},
        {"similarity", record.similarity},
        {"snapImage", textUpToZero(record.snapImage)},
        {"faceImage", textUpToZero(record.faceImage)},
    };
    return QJsonDocument(detail).toJson(QJsonDocument::Compact);
}

} // namespace

AlarmWorker::AlarmWorker(QObject* parent)
    : QObject(parent)
{}

void AlarmWorker::handleCommonAlarmPush(const QByteArray& message)
{
    vms_sdk_proto::AlarmInfo push;
    if (!push.ParseFromArray(message.constData(), message.size())) {
        log::error(QStringLiteral("parse [dgw push common alarm] failure"));
        return;
    }
    Q_EMIT ClientSignals::instance()->signalCommonAlarmPush(conversion::fromWire(push));
    log::trace(QStringLiteral("dgw push common alarm"));
}

QString AlarmWorker::faceAlarmType(int temperatureState, int maskState)
{
    if (temperatureState == 2 || temperatureState == 3)
        return QStringLiteral("abnormal_temperature");
    if (maskState == 2)
        return QStringLiteral("without_mask");
    return {};
}

void AlarmWorker::handleFaceDetectAlarm(const QPair<QString, int>& channel,
                                        const FaceDetectRecordInfo& record)
{
    const QString type = faceAlarmType(record.temperatureState, record.maskState);
    if (type.isEmpty())
        return;
    const ChannelId channelId{.devId = channel.first, .channelIndex = unsigned(channel.second)};
    const AlarmInfo alarm{.alarmId = QUuid::createUuid().toString(QUuid::WithBraces),
                          .channelId = channelId,
                          .triggerChannelId = channelId,
                          .alarmTime = record.detectTime,
                          .alarmType = type,
                          .detail = faceAlarmDetail(record)};
    Q_EMIT ClientSignals::instance()->signalCommonAlarmPush(alarm);
    log::trace(QStringLiteral("dgw push face detect alarm"));
}

} // namespace vms_sdk
