// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_ALARM_RECORDS_H
#define VMS_SDK_ALARM_RECORDS_H

// Records of alarms, temperature records and device events.

#include "common_records.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QMap>
#include <QMetaType>
#include <QObject>
#include <QString>

namespace vms_sdk {

// An alarm, pushed by a device or read from its alarm records.
struct VMS_CLIENT_SDK_EXPORT AlarmInfo
{
    Q_GADGET
    Q_PROPERTY(QString alarmId MEMBER alarmId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(vms_sdk::ChannelId triggerChannelId MEMBER triggerChannelId)
    Q_PROPERTY(QString triggerName MEMBER triggerName)
    Q_PROPERTY(QString alarmTime MEMBER alarmTime)
    Q_PROPERTY(QList<QByteArray> attachments MEMBER attachments)
    Q_PROPERTY(QString alarmType MEMBER alarmType)
    Q_PROPERTY(int alarmKind MEMBER alarmKind)
    Q_PROPERTY(QString alarmName MEMBER alarmName)
    Q_PROPERTY(QByteArray detail MEMBER detail)
public:
    QString alarmId{};
    ChannelId channelId{};
    ChannelId triggerChannelId{}; // the channel whose event raised the alarm
    QString triggerName{};
    QString alarmTime{};
    QList<QByteArray> attachments{};
    QString alarmType{};
    int alarmKind = 0; // which of the device's alarm families the alarm belongs to
    QString alarmName{};
    QByteArray detail{}; // JSON text with the particulars of the alarm type
    bool operator==(const AlarmInfo&) const = default;
};

using AlarmList = QList<AlarmInfo>;

struct VMS_CLIENT_SDK_EXPORT GetAlarmRecordsCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString alarmType MEMBER alarmType)
    Q_PROPERTY(int orderType MEMBER orderType)
    Q_PROPERTY(QDateTime startTime MEMBER startTime)
    Q_PROPERTY(QDateTime endTime MEMBER endTime)
    Q_PROPERTY(int page MEMBER page)
    Q_PROPERTY(int pageSize MEMBER pageSize)
public:
    QString requestId{};
    ChannelId channelId{};
    QString alarmType{};
    int orderType = 0;
    QDateTime startTime{};
    QDateTime endTime{};
    int page = 0;
    int pageSize = 0;
    bool operator==(const GetAlarmRecordsCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT CancelAlarmCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString alarmSource MEMBER alarmSource)
public:
    QString requestId{};
    ChannelId channelId{};
    QString alarmSource{};
    bool operator==(const CancelAlarmCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT TriggerAlarmLinkCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString status MEMBER status)
public:
    QString requestId{};
    ChannelId channelId{};
    QString status{};
    bool operator==(const TriggerAlarmLinkCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT RegionTemperatureRecordInfo
{
    Q_GADGET
    Q_PROPERTY(int id MEMBER id)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(double temper MEMBER temper)
    Q_PROPERTY(bool overThreshold MEMBER overThreshold)
    Q_PROPERTY(QDateTime time MEMBER time)
    Q_PROPERTY(int alarmStatus MEMBER alarmStatus)
    Q_PROPERTY(QString jpegPath MEMBER jpegPath)
    Q_PROPERTY(QString temperRect MEMBER temperRect)
public:
    int id = 0;
    QString name{};
    double temper = 0.0;
    bool overThreshold = false;
    QDateTime time{};
    int alarmStatus = 0;
    QString jpegPath{};
    QString temperRect{}; // the measured rectangle, as the device writes it
    bool operator==(const RegionTemperatureRecordInfo&) const = default;
};

using RegionTemperatureRecordList = QList<RegionTemperatureRecordInfo>;

struct VMS_CLIENT_SDK_EXPORT GetRegionTemperatureRecordsCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(int orderType MEMBER orderType)
    Q_PROPERTY(int dataType MEMBER dataType)
    Q_PROPERTY(QDateTime startTime MEMBER startTime)
    Q_PROPERTY(QDateTime endTime MEMBER endTime)
    Q_PROPERTY(int page MEMBER page)
    Q_PROPERTY(int pageSize MEMBER pageSize)
public:
    QString requestId{};
    ChannelId channelId{};
    int orderType = 0;
    int dataType = 0;
    QDateTime startTime{};
    QDateTime endTime{};
    int page = 0;
    int pageSize = 0;
    bool operator==(const GetRegionTemperatureRecordsCondition&) const = default;
};

// A kind of event that occurred in the asked period.
struct VMS_CLIENT_SDK_EXPORT EventTypeInfo
{
    Q_GADGET
    Q_PROPERTY(int type MEMBER type)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(bool alarm MEMBER alarm)
    Q_PROPERTY(int timeType MEMBER timeType)
public:
    int type = 0;
    QString name{};
    bool alarm = false;
    int timeType = 0;
    bool operator==(const EventTypeInfo&) const = default;
};

using EventTypeList = QList<EventTypeInfo>;

struct VMS_CLIENT_SDK_EXPORT GetTriggeredEventsCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QDateTime startTime MEMBER startTime)
    Q_PROPERTY(QDateTime endTime MEMBER endTime)
public:
    QString requestId{};
    ChannelId channelId{};
    QDateTime startTime{};
    QDateTime endTime{};
    bool operator==(const GetTriggeredEventsCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT EventInfo
{
    Q_GADGET
    Q_PROPERTY(int type MEMBER type)
    Q_PROPERTY(bool record MEMBER record)
    Q_PROPERTY(QDateTime startTime MEMBER startTime)
    Q_PROPERTY(QDateTime stopTime MEMBER stopTime)
public:
    int type = 0;
    bool record = false; // the event was recorded
    QDateTime startTime{};
    QDateTime stopTime{};
    bool operator==(const EventInfo&) const = default;
};

using EventList = QList<EventInfo>;

using EventMap = QMap<int, EventList>; // keyed by event type

struct VMS_CLIENT_SDK_EXPORT GetEventRecordsCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QDateTime startTime MEMBER startTime)
    Q_PROPERTY(QDateTime endTime MEMBER endTime)
    Q_PROPERTY(bool mergeTimeEnable MEMBER mergeTimeEnable)
    Q_PROPERTY(bool record MEMBER record)
    Q_PROPERTY(QList<int> types MEMBER types)
public:
    QString requestId{};
    ChannelId channelId{};
    QDateTime startTime{};
    QDateTime endTime{};
    bool mergeTimeEnable = false; // merge events that follow each other into one
    bool record = false;          // only recorded events
    QList<int> types{};
    bool operator==(const GetEventRecordsCondition&) const = default;
};

} // namespace vms_sdk

Q_DECLARE_METATYPE(vms_sdk::AlarmInfo)
Q_DECLARE_METATYPE(vms_sdk::GetAlarmRecordsCondition)
Q_DECLARE_METATYPE(vms_sdk::CancelAlarmCondition)
Q_DECLARE_METATYPE(vms_sdk::TriggerAlarmLinkCondition)
Q_DECLARE_METATYPE(vms_sdk::RegionTemperatureRecordInfo)
Q_DECLARE_METATYPE(vms_sdk::GetRegionTemperatureRecordsCondition)
Q_DECLARE_METATYPE(vms_sdk::EventTypeInfo)
Q_DECLARE_METATYPE(vms_sdk::GetTriggeredEventsCondition)
Q_DECLARE_METATYPE(vms_sdk::EventInfo)
Q_DECLARE_METATYPE(vms_sdk::GetEventRecordsCondition)

#endif // VMS_SDK_ALARM_RECORDS_H
