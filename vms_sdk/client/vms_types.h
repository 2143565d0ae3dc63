// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_VMS_TYPES_H
#define VMS_SDK_VMS_TYPES_H

#include "vms_sdk_global.h"

#include <QMetaType>

namespace vms_sdk {

// Number of an open live or playback stream, returned by the stream functions.
using StreamId = quint64;

// State of a device in signalDevStatusPush. The gateway may report further values; they are
// passed on unchanged.
enum DevStatus : qint32 {
    DevStatusOnline = 0,
    DevStatusOffline = 1,
};

// State of the library's connection to one gateway.
enum ConnStatus : qint32 {
    ConnStatusConnected = 1,
    ConnStatusDisconnected = 2, // lost too often: the gateway is not restarted again
    ConnStatusSocketError = 3,
    ConnStatusConnectTimeout = 4, // the gateway never answered the connection attempts
};

// Why signalDgwAbnormal was raised.
enum DgwAbnormal : qint32 {
    DgwAbnormalStartFailed = 0,    // the gateway program could not be started
    DgwAbnormalDisconnected = 1,   // the connection was lost for the fifth time
    DgwAbnormalSocketError = 2,    // the connection reported an error
    DgwAbnormalConnectTimeout = 3, // the gateway never accepted the connection
    DgwAbnormalInitFailed = 4,     // the gateway refused its initialisation
};

// The numbering of the enumerations below is this library's own and is shared with the gateway,
// which carries them as plain integers. A value the library does not know is passed on as it is.

// What happened to a stream, in signalStreamEventPush. The library itself raises
// StreamEventConnectTimeout and StreamEventDisconnected when a stream's socket gives up; the
// other values are the gateway's.
enum StreamEvent : qint32 {
    StreamEventConnected = 0,
    StreamEventConnectFailed = 1,
    StreamEventConnectTimeout = 2,
    StreamEventPlaybackFinished = 3,
    StreamEventDisconnected = 4,
};

// What happened to a talk or speak session, in signalTalkEventPush and signalSpeakEventPush.
enum TalkEvent : qint32 {
    TalkEventStarted = 0,
    TalkEventStopped = 1,
    TalkEventDeviceBusy = 2, // someone else is talking to the channel
    TalkEventFailed = 3,
};

// The movement of a pan-tilt-zoom request.
enum PTZOperation : qint32 {
    PTZOperationUp = 0,
    PTZOperationDown = 1,
    PTZOperationLeft = 2,
    PTZOperationRight = 3,
    PTZOperationUpLeft = 4,
    PTZOperationUpRight = 5,
    PTZOperationDownLeft = 6,
    PTZOperationDownRight = 7,
    PTZOperationZoomIn = 8,
    PTZOperationZoomOut = 9,
    PTZOperationFocusNear = 10,
    PTZOperationFocusFar = 11,
    PTZOperationIrisOpen = 12,
    PTZOperationIrisClose = 13,
};

// Whether a pan-tilt-zoom movement begins or ends.
enum PTZAction : qint32 {
    PTZActionStart = 0,
    PTZActionStop = 1,
};

enum PresetOper : qint32 {
    PresetOperSet = 0, // store the current position under the preset number and name
    PresetOperCall = 1,
    PresetOperDelete = 2,
};

enum PatrolOper : qint32 {
    PatrolOperStart = 0,
    PatrolOperStop = 1,
    PatrolOperDelete = 2,
};

// Changes one stop of a patrol.
enum PatrolPresetOper : qint32 {
    PatrolPresetOperAdd = 0,
    PatrolPresetOperDelete = 1,
    PatrolPresetOperModify = 2,
};

// Control of a playback stream.
enum PlaybackCtrl : qint32 {
    PlaybackCtrlPause = 0,
    PlaybackCtrlResume = 1,
    PlaybackCtrlStepForward = 2, // one frame, while paused
    PlaybackCtrlStepBackward = 3,
};

} // namespace vms_sdk

Q_DECLARE_METATYPE(vms_sdk::DevStatus)
Q_DECLARE_METATYPE(vms_sdk::ConnStatus)
Q_DECLARE_METATYPE(vms_sdk::DgwAbnormal)
Q_DECLARE_METATYPE(vms_sdk::StreamEvent)
Q_DECLARE_METATYPE(vms_sdk::TalkEvent)
Q_DECLARE_METATYPE(vms_sdk::PTZOperation)
Q_DECLARE_METATYPE(vms_sdk::PTZAction)
Q_DECLARE_METATYPE(vms_sdk::PresetOper)
Q_DECLARE_METATYPE(vms_sdk::PatrolOper)
Q_DECLARE_METATYPE(vms_sdk::PatrolPresetOper)
Q_DECLARE_METATYPE(vms_sdk::PlaybackCtrl)

#endif // VMS_SDK_VMS_TYPES_H
