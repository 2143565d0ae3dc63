// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// Turns the two kinds of alarm the gateway pushes into the one alarm signal of the library,
// ClientSignals::signalCommonAlarmPush: the devices' own alarms, and the face detections that
// are alarms (a temperature out of range, or no mask). Keeps nothing between pushes.

#include <vms_sdk/vms_client_sdk.h>

#include <QByteArray>
#include <QObject>
#include <QPair>
#include <QString>

namespace vms_sdk {

class AlarmWorker : public QObject
{
    Q_OBJECT
public:
    explicit AlarmWorker(QObject* parent);

    // The serialized alarm message of a common alarm push.
    void handleCommonAlarmPush(const QByteArray& message);
    // A face detection on a channel (device id, channel number); most are no alarm.
    void handleFaceDetectAlarm(const QPair<QString, int>& channel,
                               const FaceDetectRecordInfo& record);

    // The alarm type a face detection raises, empty when none: a temperature out of range
    // before a missing mask.
    static QString faceAlarmType(int temperatureState, int maskState);
};

} // namespace vms_sdk
