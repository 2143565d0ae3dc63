// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// Pan-tilt-zoom control, presets and patrols. Enumerations travel as their number.

#include <vms_sdk/ptz_records.h>

#include "vms_sdk/request/conversions/common_conversions.h"

namespace vms_sdk::conversion {

void fillWire(const PTZCtrlCondition& condition, vms_sdk_proto::PTZCtrlReq& request);
void fillRecord(const vms_sdk_proto::PTZCtrlReq& request, PTZCtrlCondition& condition);

vms_sdk_proto::PresetInfo toWire(const PresetInfo& preset);
PresetInfo fromWire(const vms_sdk_proto::PresetInfo& preset);

void fillWire(const PresetOperCondition& condition, vms_sdk_proto::PresetOperReq& request);
void fillRecord(const vms_sdk_proto::PresetOperReq& request, PresetOperCondition& condition);

vms_sdk_proto::PatrolPresetInfo toWire(const PatrolPresetInfo& stop);
PatrolPresetInfo fromWire(const vms_sdk_proto::PatrolPresetInfo& stop);

vms_sdk_proto::PatrolInfo toWire(const PatrolInfo& patrol);
PatrolInfo fromWire(const vms_sdk_proto::PatrolInfo& patrol);

void fillWire(const PatrolOperCondition& condition, vms_sdk_proto::PatrolOperReq& request);
void fillRecord(const vms_sdk_proto::PatrolOperReq& request, PatrolOperCondition& condition);

void fillWire(const PatrolPresetOperCondition& condition,
              vms_sdk_proto::PatrolPresetOperReq& request);
void fillRecord(const vms_sdk_proto::PatrolPresetOperReq& request,
                PatrolPresetOperCondition& condition);

vms_sdk_proto::SetPatrolPresetsReq::PresetInfo toWire(const PatrolPresetItem& item);
PatrolPresetItem fromWire(const vms_sdk_proto::SetPatrolPresetsReq::PresetInfo& item);

void fillWire(const SetPatrolPresetsCondition& condition,
              vms_sdk_proto::SetPatrolPresetsReq& request);
void fillRecord(const vms_sdk_proto::SetPatrolPresetsReq& request,
                SetPatrolPresetsCondition& condition);

} // namespace vms_sdk::conversion
