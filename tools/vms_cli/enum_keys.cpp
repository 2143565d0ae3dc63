// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "value_text.h"

#include <vms_sdk/vms_client_sdk.h>

#include <QHash>
#include <QMetaType>

#include <utility>

namespace vms_cli {

namespace {

using Keys = QList<std::pair<int, const char*>>;

// The public enumerations carry no meta-object of their own; their key names are these.
#define VMS_CLI_KEY(key)                                                                           \
    {                                                                                              \
        int(vms_sdk::key), #key                                                                    \
    }
const QHash<int, Keys>& keysByType()
{
    static const QHash<int, Keys> table{
        {qMetaTypeId<vms_sdk::DevStatus>(),
         {VMS_CLI_KEY(DevStatusOnline), VMS_CLI_KEY(DevStatusOffline)}},
        {qMetaTypeId<vms_sdk::ConnStatus>(),
         {VMS_CLI_KEY(ConnStatusConnected), VMS_CLI_KEY(ConnStatusDisconnected),
          VMS_CLI_KEY(ConnStatusSocketError), VMS_CLI_KEY(ConnStatusConnectTimeout)}},
        {qMetaTypeId<vms_sdk::DgwAbnormal>(),
         {VMS_CLI_KEY(DgwAbnormalStartFailed), VMS_CLI_KEY(DgwAbnormalDisconnected),
          VMS_CLI_KEY(DgwAbnormalSocketError), VMS_CLI_KEY(DgwAbnormalConnectTimeout),
          VMS_CLI_KEY(DgwAbnormalInitFailed)}},
        {qMetaTypeId<vms_sdk::StreamEvent>(),
         {VMS_CLI_KEY(StreamEventConnected), VMS_CLI_KEY(StreamEventConnectFailed),
          VMS_CLI_KEY(StreamEventConnectTimeout), VMS_CLI_KEY(StreamEventPlaybackFinished),
          VMS_CLI_KEY(StreamEventDisconnected)}},
        {qMetaTypeId<vms_sdk::TalkEvent>(),
         {VMS_CLI_KEY(TalkEventStarted), VMS_CLI_KEY(TalkEventStopped),
          VMS_CLI_KEY(TalkEventDeviceBusy), VMS_CLI_KEY(TalkEventFailed)}},
        {qMetaTypeId<vms_sdk::PTZOperation>(),
         {VMS_CLI_KEY(PTZOperationUp), VMS_CLI_KEY(PTZOperationDown), VMS_CLI_KEY(PTZOperationLeft),
          VMS_CLI_KEY(PTZOperationRight), VMS_CLI_KEY(PTZOperationUpLeft),
          VMS_CLI_KEY(PTZOperationUpRight), VMS_CLI_KEY(PTZOperationDownLeft),
          VMS_CLI_KEY(PTZOperationDownRight), VMS_CLI_KEY(PTZOperationZoomIn),
          VMS_CLI_KEY(PTZOperationZoomOut), VMS_CLI_KEY(PTZOperationFocusNear),
          VMS_CLI_KEY(PTZOperationFocusFar), VMS_CLI_KEY(PTZOperationIrisOpen),
          VMS_CLI_KEY(PTZOperationIrisClose)}},
        {qMetaTypeId<vms_sdk::PTZAction>(),
         {VMS_CLI_KEY(PTZActionStart), VMS_CLI_KEY(PTZActionStop)}},
        {qMetaTypeId<vms_sdk::PresetOper>(),
         {VMS_CLI_KEY(PresetOperSet), VMS_CLI_KEY(PresetOperCall), VMS_CLI_KEY(PresetOperDelete)}},
        {qMetaTypeId<vms_sdk::PatrolOper>(),
         {VMS_CLI_KEY(PatrolOperStart), VMS_CLI_KEY(PatrolOperStop),
          VMS_CLI_KEY(PatrolOperDelete)}},
        {qMetaTypeId<vms_sdk::PatrolPresetOper>(),
         {VMS_CLI_KEY(PatrolPresetOperAdd), VMS_CLI_KEY(PatrolPresetOperDelete),
          VMS_CLI_KEY(PatrolPresetOperModify)}},
        {qMetaTypeId<vms_sdk::PlaybackCtrl>(),
         {VMS_CLI_KEY(PlaybackCtrlPause), VMS_CLI_KEY(PlaybackCtrlResume),
          VMS_CLI_KEY(PlaybackCtrlStepForward), VMS_CLI_KEY(PlaybackCtrlStepBackward)}},
        {qMetaTypeId<vms_sdk::RequestEnd>(),
         {VMS_CLI_KEY(RequestAnswered), VMS_CLI_KEY(RequestFailed), VMS_CLI_KEY(RequestTimedOut),
          VMS_CLI_KEY(RequestReleased)}},
    };
    return table;
}
#undef VMS_CLI_KEY

} // namespace

QString enumKey(int metaType, int value)
{
    for (const auto& [number, key] : keysByType().value(metaType)) {
        if (number == value)
            return QLatin1String(key);
    }
    return {};
}

int enumValue(int metaType, const QString& key)
{
    for (const auto& [number, name] : keysByType().value(metaType)) {
        if (key == QLatin1String(name))
            return number;
    }
    return -1;
}

} // namespace vms_cli
