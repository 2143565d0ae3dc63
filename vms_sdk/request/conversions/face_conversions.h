// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// Faces, face detection and alarms.

#include <vms_sdk/alarm_records.h>
#include <vms_sdk/face_records.h>

#include "vms_sdk/request/conversions/common_conversions.h"

namespace vms_sdk::conversion {

vms_sdk_proto::FaceInfo toWire(const FaceInfo& face);
FaceInfo fromWire(const vms_sdk_proto::FaceInfo& face);

// Only the fields up to picture travel in AddFaceReq; fillRecord leaves the others alone.
void fillWire(const ModifyFaceCondition& condition, vms_sdk_proto::AddFaceReq& request);
void fillRecord(const vms_sdk_proto::AddFaceReq& request, ModifyFaceCondition& condition);

// Only the fields up to withPicture travel in GetFacesReq; fillRecord leaves the others alone.
void fillWire(const GetFacesCondition& condition, vms_sdk_proto::GetFacesReq& request);
void fillRecord(const vms_sdk_proto::GetFacesReq& request, GetFacesCondition& condition);

void fillWire(const DelFaceCondition& condition, vms_sdk_proto::DelFaceReq& request);
void fillRecord(const vms_sdk_proto::DelFaceReq& request, DelFaceCondition& condition);

vms_sdk_proto::FaceDetectRecordInfo toWire(const FaceDetectRecordInfo& record);
FaceDetectRecordInfo fromWire(const vms_sdk_proto::FaceDetectRecordInfo& record);

void fillWire(const GetFaceDetectRecordsCondition& condition,
              vms_sdk_proto::GetFaceDetectRecordsReq& request);
void fillRecord(const vms_sdk_proto::GetFaceDetectRecordsReq& request,
                GetFaceDetectRecordsCondition& condition);

vms_sdk_proto::FaceCountInfo toWire(const FaceCountInfo& count);
FaceCountInfo fromWire(const vms_sdk_proto::FaceCountInfo& count);

vms_sdk_proto::AlarmInfo toWire(const AlarmInfo& alarm);
AlarmInfo fromWire(const vms_sdk_proto::AlarmInfo& alarm);

} // namespace vms_sdk::conversion
