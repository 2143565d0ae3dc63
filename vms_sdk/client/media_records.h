// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_MEDIA_RECORDS_H
#define VMS_SDK_MEDIA_RECORDS_H

// Records of recordings, live and playback streams, talk and snapshots.

#include "common_records.h"

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QMetaType>
#include <QObject>
#include <QString>

namespace vms_sdk {

// One recording found on a device. Times are the device's texts.
struct VMS_CLIENT_SDK_EXPORT VideoRecInfo
{
    Q_GADGET
    Q_PROPERTY(QString beginTime MEMBER beginTime)
    Q_PROPERTY(QString endTime MEMBER endTime)
    Q_PROPERTY(QString fileName MEMBER fileName)
    Q_PROPERTY(int recordType MEMBER recordType)
    Q_PROPERTY(int recordSrc MEMBER recordSrc)
public:
    QString beginTime{};
    QString endTime{};
    QString fileName{};
    int recordType = 0;
    int recordSrc = 0; // where the recording is kept (device, recorder, cloud ...)
    bool operator==(const VideoRecInfo&) const = default;
};

using VideoRecList = QList<VideoRecInfo>;

struct VMS_CLIENT_SDK_EXPORT RecsSearchCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(int recordType MEMBER recordType)
    Q_PROPERTY(int recordSrc MEMBER recordSrc)
    Q_PROPERTY(QString beginTime MEMBER beginTime)
    Q_PROPERTY(QString endTime MEMBER endTime)
public:
    QString requestId{};
    ChannelId channelId{};
    int recordType = 0;
    int recordSrc = 0;
    QString beginTime{};
    QString endTime{};
    bool operator==(const RecsSearchCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT GetRtspUrlCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(int streamType MEMBER streamType)
public:
    QString requestId{};
    ChannelId channelId{};
    int streamType = 0; // 0 main stream, 1 sub stream, ...
    bool operator==(const GetRtspUrlCondition&) const = default;
};

// Asks on which days from startDate to endDate the channel has recordings.
struct VMS_CLIENT_SDK_EXPORT GetCalendarMaskCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QDate startDate MEMBER startDate)
    Q_PROPERTY(QDate endDate MEMBER endDate)
public:
    QString requestId{};
    ChannelId channelId{};
    QDate startDate{};
    QDate endDate{};
    bool operator==(const GetCalendarMaskCondition&) const = default;
};

// Streams have no request id: the stream id the call returns names them.
struct VMS_CLIENT_SDK_EXPORT LiveVideoConnCondition
{
    Q_GADGET
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(int streamType MEMBER streamType)
public:
    ChannelId channelId{};
    int streamType = 0; // 0 main stream, 1 sub stream, ...
    bool operator==(const LiveVideoConnCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT PlaybackByFileCondition
{
    Q_GADGET
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString fileName MEMBER fileName)
    Q_PROPERTY(int recordSrc MEMBER recordSrc)
    Q_PROPERTY(int download MEMBER download)
public:
    ChannelId channelId{};
    QString fileName{};
    int recordSrc = 0;
    int download = 0; // non-zero: the stream is a download, and no view is announced for it
    bool operator==(const PlaybackByFileCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT PlaybackByTimeCondition
{
    Q_GADGET
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QDateTime startTime MEMBER startTime)
    Q_PROPERTY(int recordSrc MEMBER recordSrc)
    Q_PROPERTY(int download MEMBER download)
public:
    ChannelId channelId{};
    QDateTime startTime{};
    int recordSrc = 0;
    int download = 0; // as in PlaybackByFileCondition; decided here, the gateway is not told
    bool operator==(const PlaybackByTimeCondition&) const = default;
};

// Starts or stops two-way talk with a channel.
struct VMS_CLIENT_SDK_EXPORT TalkOperCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(int operation MEMBER operation)
public:
    QString requestId{};
    ChannelId channelId{};
    int operation = 0; // 0 start, 1 stop
    bool operator==(const TalkOperCondition&) const = default;
};

// Starts or stops speaking to a channel's loudspeaker, without listening.
struct VMS_CLIENT_SDK_EXPORT SpeakOperCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(int operation MEMBER operation)
public:
    QString requestId{};
    ChannelId channelId{};
    int operation = 0; // 0 start, 1 stop
    bool operator==(const SpeakOperCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT GetSnapImageCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString path MEMBER path)
public:
    QString requestId{};
    ChannelId channelId{};
    QString path{}; // where the picture lies on the device
    bool operator==(const GetSnapImageCondition&) const = default;
};

} // namespace vms_sdk

Q_DECLARE_METATYPE(vms_sdk::VideoRecInfo)
Q_DECLARE_METATYPE(vms_sdk::RecsSearchCondition)
Q_DECLARE_METATYPE(vms_sdk::GetRtspUrlCondition)
Q_DECLARE_METATYPE(vms_sdk::GetCalendarMaskCondition)
Q_DECLARE_METATYPE(vms_sdk::LiveVideoConnCondition)
Q_DECLARE_METATYPE(vms_sdk::PlaybackByFileCondition)
Q_DECLARE_METATYPE(vms_sdk::PlaybackByTimeCondition)
Q_DECLARE_METATYPE(vms_sdk::TalkOperCondition)
Q_DECLARE_METATYPE(vms_sdk::SpeakOperCondition)
Q_DECLARE_METATYPE(vms_sdk::GetSnapImageCondition)

#endif // VMS_SDK_MEDIA_RECORDS_H
