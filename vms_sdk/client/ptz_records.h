// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_PTZ_RECORDS_H
#define VMS_SDK_PTZ_RECORDS_H

// Records of pan-tilt-zoom control, presets and patrols, and of the fixed camera and dome
// pairs that track together.

#include "common_records.h"
#include "vms_types.h"

#include <QList>
#include <QMetaType>
#include <QObject>
#include <QString>

namespace vms_sdk {

struct VMS_CLIENT_SDK_EXPORT PTZCtrlCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(vms_sdk::PTZOperation operation MEMBER operation)
    Q_PROPERTY(vms_sdk::PTZAction action MEMBER action)
    Q_PROPERTY(int speed MEMBER speed)
    Q_PROPERTY(unsigned int duration MEMBER duration)
public:
    QString requestId{};
    ChannelId channelId{};
    PTZOperation operation = PTZOperationUp;
    PTZAction action = PTZActionStart;
    int speed = 0;
    unsigned int duration = 0; // ms until the device stops by itself; 0: until told to stop
    bool operator==(const PTZCtrlCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT PTZAutoMoveCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(int speed MEMBER speed)
public:
    QString requestId{};
    ChannelId channelId{};
    int speed = 0;
    bool operator==(const PTZAutoMoveCondition&) const = default;
};

// Zooms to a rectangle drawn on the picture.
struct VMS_CLIENT_SDK_EXPORT PTZ3dLocateCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(int x MEMBER x)
    Q_PROPERTY(int y MEMBER y)
    Q_PROPERTY(int w MEMBER w)
    Q_PROPERTY(int h MEMBER h)
    Q_PROPERTY(int cmd MEMBER cmd)
public:
    QString requestId{};
    ChannelId channelId{};
    int x = 0;
    int y = 0;
    int w = 0;
    int h = 0;
    int cmd = 0;
    bool operator==(const PTZ3dLocateCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT PTZAbilityInfo
{
    Q_GADGET
    Q_PROPERTY(bool panTiltBoth MEMBER panTiltBoth)
    Q_PROPERTY(bool autoMove MEMBER autoMove)
    Q_PROPERTY(bool zoom MEMBER zoom)
    Q_PROPERTY(bool focus MEMBER focus)
    Q_PROPERTY(bool iris MEMBER iris)
    Q_PROPERTY(int maxPreset MEMBER maxPreset)
    Q_PROPERTY(int maxPatrol MEMBER maxPatrol)
    Q_PROPERTY(int maxTrail MEMBER maxTrail)
    Q_PROPERTY(int maxTask MEMBER maxTask)
public:
    bool panTiltBoth = false; // pans and tilts at the same time
    bool autoMove = false;
    bool zoom = false;
    bool focus = false;
    bool iris = false;
    int maxPreset = 0;
    int maxPatrol = 0;
    int maxTrail = 0;
    int maxTask = 0;
    bool operator==(const PTZAbilityInfo&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT PresetInfo
{
    Q_GADGET
    Q_PROPERTY(unsigned int presetNum MEMBER presetNum)
    Q_PROPERTY(QString presetName MEMBER presetName)
public:
    unsigned int presetNum = 0;
    QString presetName{};
    bool operator==(const PresetInfo&) const = default;
};

using PresetList = QList<PresetInfo>;

struct VMS_CLIENT_SDK_EXPORT PresetOperCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(unsigned int presetNum MEMBER presetNum)
    Q_PROPERTY(QString presetName MEMBER presetName)
    Q_PROPERTY(vms_sdk::PresetOper operation MEMBER operation)
public:
    QString requestId{};
    ChannelId channelId{};
    unsigned int presetNum = 0;
    QString presetName{};
    PresetOper operation = PresetOperSet;
    bool operator==(const PresetOperCondition&) const = default;
};

// One stop of a patrol.
struct VMS_CLIENT_SDK_EXPORT PatrolPresetInfo
{
    Q_GADGET
    Q_PROPERTY(vms_sdk::PresetInfo preset MEMBER preset)
    Q_PROPERTY(unsigned int stayTime MEMBER stayTime)
    Q_PROPERTY(unsigned int speed MEMBER speed)
public:
    PresetInfo preset{};
    unsigned int stayTime = 0; // seconds at the preset
    unsigned int speed = 0;
    bool operator==(const PatrolPresetInfo&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT PatrolInfo
{
    Q_GADGET
    Q_PROPERTY(int patrolIndex MEMBER patrolIndex)
    Q_PROPERTY(QList<vms_sdk::PatrolPresetInfo> patrolPresets MEMBER patrolPresets)
    Q_PROPERTY(int status MEMBER status)
    Q_PROPERTY(int mode MEMBER mode)
public:
    int patrolIndex = 0;
    QList<PatrolPresetInfo> patrolPresets{};
    int status = 0;
    int mode = 0;
    bool operator==(const PatrolInfo&) const = default;
};

using PatrolList = QList<PatrolInfo>;

struct VMS_CLIENT_SDK_EXPORT PatrolOperCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(int patrolIndex MEMBER patrolIndex)
    Q_PROPERTY(int speed MEMBER speed)
    Q_PROPERTY(vms_sdk::PatrolOper operation MEMBER operation)
public:
    QString requestId{};
    ChannelId channelId{};
    int patrolIndex = 0;
    int speed = 0;
    PatrolOper operation = PatrolOperStart;
    bool operator==(const PatrolOperCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT PatrolPresetOperCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(int patrolIndex MEMBER patrolIndex)
    Q_PROPERTY(int stayTime MEMBER stayTime)
    Q_PROPERTY(unsigned int presetNum MEMBER presetNum)
    Q_PROPERTY(vms_sdk::PatrolPresetOper operation MEMBER operation)
public:
    QString requestId{};
    ChannelId channelId{};
    int patrolIndex = 0;
    int stayTime = 0; // seconds at the preset
    unsigned int presetNum = 0;
    PatrolPresetOper operation = PatrolPresetOperAdd;
    bool operator==(const PatrolPresetOperCondition&) const = default;
};

// One stop of a patrol as SetPatrolPresetsCondition writes it.
struct VMS_CLIENT_SDK_EXPORT PatrolPresetItem
{
    Q_GADGET
    Q_PROPERTY(unsigned int presetNum MEMBER presetNum)
    Q_PROPERTY(unsigned int stayTime MEMBER stayTime)
public:
    unsigned int presetNum = 0;
    unsigned int stayTime = 0;
    bool operator==(const PatrolPresetItem&) const = default;
};

// Replaces every stop of a patrol.
struct VMS_CLIENT_SDK_EXPORT SetPatrolPresetsCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(int patrolIndex MEMBER patrolIndex)
    Q_PROPERTY(QList<vms_sdk::PatrolPresetItem> presets MEMBER presets)
public:
    QString requestId{};
    ChannelId channelId{};
    int patrolIndex = 0;
    QList<PatrolPresetItem> presets{};
    bool operator==(const SetPatrolPresetsCondition&) const = default;
};

// A point of the fixed camera's picture that the linked dome learns to look at.
struct VMS_CLIENT_SDK_EXPORT AddBulletTagPointCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(int x MEMBER x)
    Q_PROPERTY(int y MEMBER y)
public:
    QString requestId{};
    ChannelId channelId{};
    int x = 0;
    int y = 0;
    bool operator==(const AddBulletTagPointCondition&) const = default;
};

// A learnt point: where it is in the fixed camera's picture and the dome's position for it.
struct VMS_CLIENT_SDK_EXPORT BulletTagPointInfo
{
    Q_GADGET
    Q_PROPERTY(int x MEMBER x)
    Q_PROPERTY(int y MEMBER y)
    Q_PROPERTY(double p MEMBER p)
    Q_PROPERTY(double t MEMBER t)
    Q_PROPERTY(double z MEMBER z)
public:
    int x = 0;
    int y = 0;
    double p = 0.0; // pan
    double t = 0.0; // tilt
    double z = 0.0; // zoom
    bool operator==(const BulletTagPointInfo&) const = default;
};

using BulletTagPointList = QList<BulletTagPointInfo>;

struct VMS_CLIENT_SDK_EXPORT CalibrateBulletDomeCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString mode MEMBER mode)
public:
    QString requestId{};
    ChannelId channelId{};
    QString mode{};
    bool operator==(const CalibrateBulletDomeCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT CalibrationStatusInfo
{
    Q_GADGET
    Q_PROPERTY(int status MEMBER status)
    Q_PROPERTY(int progress MEMBER progress)
public:
    int status = 0;
    int progress = 0;
    bool operator==(const CalibrationStatusInfo&) const = default;
};

// Makes the dome follow a rectangle of the fixed camera's picture.
struct VMS_CLIENT_SDK_EXPORT ManualTrackCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(int x MEMBER x)
    Q_PROPERTY(int y MEMBER y)
    Q_PROPERTY(int w MEMBER w)
    Q_PROPERTY(int h MEMBER h)
public:
    QString requestId{};
    ChannelId channelId{};
    int x = 0;
    int y = 0;
    int w = 0;
    int h = 0;
    bool operator==(const ManualTrackCondition&) const = default;
};

} // namespace vms_sdk

Q_DECLARE_METATYPE(vms_sdk::PTZCtrlCondition)
Q_DECLARE_METATYPE(vms_sdk::PTZAutoMoveCondition)
Q_DECLARE_METATYPE(vms_sdk::PTZ3dLocateCondition)
Q_DECLARE_METATYPE(vms_sdk::PTZAbilityInfo)
Q_DECLARE_METATYPE(vms_sdk::PresetInfo)
Q_DECLARE_METATYPE(vms_sdk::PresetOperCondition)
Q_DECLARE_METATYPE(vms_sdk::PatrolPresetInfo)
Q_DECLARE_METATYPE(vms_sdk::PatrolInfo)
Q_DECLARE_METATYPE(vms_sdk::PatrolOperCondition)
Q_DECLARE_METATYPE(vms_sdk::PatrolPresetOperCondition)
Q_DECLARE_METATYPE(vms_sdk::PatrolPresetItem)
Q_DECLARE_METATYPE(vms_sdk::SetPatrolPresetsCondition)
Q_DECLARE_METATYPE(vms_sdk::AddBulletTagPointCondition)
Q_DECLARE_METATYPE(vms_sdk::BulletTagPointInfo)
Q_DECLARE_METATYPE(vms_sdk::CalibrateBulletDomeCondition)
Q_DECLARE_METATYPE(vms_sdk::CalibrationStatusInfo)
Q_DECLARE_METATYPE(vms_sdk::ManualTrackCondition)

#endif // VMS_SDK_PTZ_RECORDS_H
