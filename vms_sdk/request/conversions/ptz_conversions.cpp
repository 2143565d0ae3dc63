// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/request/conversions/ptz_conversions.h"

namespace vms_sdk::conversion {

void fillWire(const PTZCtrlCondition& condition, vms_sdk_proto::PTZCtrlReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    *request.mutable_channel_id() = toWire(condition.channelId);
    request.set_attr_3(condition.operation);
    request.set_attr_4(condition.action);
    request.set_attr_5(condition.speed);
    request.set_attr_6(condition.duration);
}

void fillRecord(const vms_sdk_proto::PTZCtrlReq& request, PTZCtrlCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.channelId = fromWire(request.channel_id());
    condition.operation = PTZOperation(request.attr_3());
    condition.action = PTZAction(request.attr_4());
    condition.speed = request.attr_5();
    condition.duration = request.attr_6();
}

vms_sdk_proto::PresetInfo toWire(const PresetInfo& preset)
{
    vms_sdk_proto::PresetInfo wire;
    wire.set_attr_1(preset.presetNum);
    wire.set_preset_name(utf8(preset.presetName));
    return wire;
}

PresetInfo fromWire(const vms_sdk_proto::PresetInfo& preset)
{
    return PresetInfo{.presetNum = preset.attr_1(), .presetName = text(preset.preset_name())};
}

void fillWire(const PresetOperCondition& condition, vms_sdk_proto::PresetOperReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    *request.mutable_channel_id() = toWire(condition.channelId);
    request.set_attr_3(condition.presetNum);
    request.set_preset_name(utf8(condition.presetName));
    request.set_attr_5(condition.operation);
}

void fillRecord(const vms_sdk_proto::PresetOperReq& request, PresetOperCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.channelId = fromWire(request.channel_id());
    condition.presetNum = request.attr_3();
    condition.presetName = text(request.preset_name());
    condition.operation = PresetOper(request.attr_5());
}

vms_sdk_proto::PatrolPresetInfo toWire(const PatrolPresetInfo& stop)
{
    vms_sdk_proto::PatrolPresetInfo wire;
    *wire.mutable_preset() = toWire(stop.preset);
    wire.set_attr_2(stop.stayTime);
    wire.set_attr_3(stop.speed);
    return wire;
}

PatrolPresetInfo fromWire(const vms_sdk_proto::PatrolPresetInfo& stop)
{
    return PatrolPresetInfo{
        .preset = fromWire(stop.preset()), .stayTime = stop.attr_2(), .speed = stop.attr_3()};
}

vms_sdk_proto::PatrolInfo toWire(const PatrolInfo& patrol)
{
    vms_sdk_proto::PatrolInfo wire;
    wire.set_attr_1(patrol.patrolIndex);
    mapToWire(patrol.patrolPresets, wire.mutable_patrol_presets(),
              [](const PatrolPresetInfo& p) { return toWire(p); });
    wire.set_attr_3(patrol.status);
    wire.set_attr_4(patrol.mode);
    return wire;
}

PatrolInfo fromWire(const vms_sdk_proto::PatrolInfo& patrol)
{
    return PatrolInfo{.patrolIndex = patrol.attr_1(),
                      .patrolPresets = mapFromWire(
                          patrol.patrol_presets(),
                          [](const vms_sdk_proto::PatrolPresetInfo& p) { return fromWire(p); }),
                      .status = patrol.attr_3(),
                      .mode = patrol.attr_4()};
}

void fillWire(const PatrolOperCondition& condition, vms_sdk_proto::PatrolOperReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    *request.mutable_channel_id() = toWire(condition.channelId);
    request.set_attr_3(condition.patrolIndex);
    request.set_attr_4(condition.speed);
    request.set_attr_5(condition.operation);
}

void fillRecord(const vms_sdk_proto::PatrolOperReq& request, PatrolOperCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.channelId = fromWire(request.channel_id());
    condition.patrolIndex = request.attr_3();
    condition.speed = request.attr_4();
    condition.operation = PatrolOper(request.attr_5());
}

void fillWire(const PatrolPresetOperCondition& condition,
              vms_sdk_proto::PatrolPresetOperReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    *request.mutable_channel_id() = toWire(condition.channelId);
    request.set_attr_3(condition.patrolIndex);
    request.set_attr_4(condition.stayTime);
    request.set_attr_5(condition.presetNum);
    request.set_attr_6(condition.operation);
}

void fillRecord(const vms_sdk_proto::PatrolPresetOperReq& request,
                PatrolPresetOperCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.channelId = fromWire(request.channel_id());
    condition.patrolIndex = request.attr_3();
    condition.stayTime = request.attr_4();
    condition.presetNum = request.attr_5();
    condition.operation = PatrolPresetOper(request.attr_6());
}

vms_sdk_proto::SetPatrolPresetsReq::PresetInfo toWire(const PatrolPresetItem& item)
{
    vms_sdk_proto::SetPatrolPresetsReq::PresetInfo wire;
    wire.set_attr_1(item.presetNum);
    wire.set_attr_2(item.stayTime);
    return wire;
}

PatrolPresetItem fromWire(const vms_sdk_proto::SetPatrolPresetsReq::PresetInfo& item)
{
    return PatrolPresetItem{.presetNum = item.attr_1(), .stayTime = item.attr_2()};
}

void fillWire(const SetPatrolPresetsCondition& condition,
              vms_sdk_proto::SetPatrolPresetsReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    *request.mutable_channel_id() = toWire(condition.channelId);
    request.set_attr_3(condition.patrolIndex);
    mapToWire(condition.presets, request.mutable_presets(),
              [](const PatrolPresetItem& p) { return toWire(p); });
}

void fillRecord(const vms_sdk_proto::SetPatrolPresetsReq& request,
                SetPatrolPresetsCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.channelId = fromWire(request.channel_id());
    condition.patrolIndex = request.attr_3();
    condition.presets =
        mapFromWire(request.presets(), [](const vms_sdk_proto::SetPatrolPresetsReq::PresetInfo& p) {
            return fromWire(p);
        });
}

} // namespace vms_sdk::conversion
