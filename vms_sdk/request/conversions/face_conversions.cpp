// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/request/conversions/face_conversions.h"

namespace vms_sdk::conversion {

vms_sdk_proto::FaceInfo toWire(const FaceInfo& face)
{
    vms_sdk_proto::FaceInfo wire;
    wire.set_attr_1(face.index);
    wire.set_serial_num(utf8(face.serialNum));
    wire.set_name(utf8(face.name));
    wire.set_face_type(utf8(face.faceType));
    wire.set_face_url(utf8(face.faceUrl));
    wire.set_attr_6(face.gender);
    wire.set_attr_7(face.age);
    wire.set_attr_8(wireBytes(face.faceImage));
    wire.set_valid_time(utf8(face.validTime));
    wire.set_invalid_time(utf8(face.invalidTime));
    fillTexts(face.organizations, wire.mutable_organizations());
    return wire;
}

FaceInfo fromWire(const vms_sdk_proto::FaceInfo& face)
{
    return FaceInfo{.index = face.attr_1(),
                    .serialNum = text(face.serial_num()),
                    .name = text(face.name()),
                    .faceType = text(face.face_type()),
                    .faceUrl = text(face.face_url()),
                    .gender = face.attr_6(),
                    .age = face.attr_7(),
                    .faceImage = bytes(face.attr_8()),
                    .validTime = text(face.valid_time()),
                    .invalidTime = text(face.invalid_time()),
                    .organizations = texts(face.organizations())};
}

void fillWire(const ModifyFaceCondition& condition, vms_sdk_proto::AddFaceReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    *request.mutable_channel_id() = toWire(condition.channelId);
    request.set_serial_num(utf8(condition.serialNum));
    request.set_name(utf8(condition.name));
    fillTexts(condition.organizations, request.mutable_organizations());
    request.set_attr_6(condition.gender);
    request.set_attr_7(condition.age);
    request.set_attr_8(condition.libraryId);
    request.set_face_type(utf8(condition.faceType));
    request.set_valid_time(utf8(condition.validTime));
    request.set_invalid_time(utf8(condition.invalidTime));
    request.set_attr_12(wireBytes(condition.picture));
}

void fillRecord(const vms_sdk_proto::AddFaceReq& request, ModifyFaceCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.channelId = fromWire(request.channel_id());
    condition.serialNum = text(request.serial_num());
    condition.name = text(request.name());
    condition.organizations = texts(request.organizations());
    condition.gender = request.attr_6();
    condition.age = request.attr_7();
    condition.libraryId = request.attr_8();
    condition.faceType = text(request.face_type());
    condition.validTime = text(request.valid_time());
    condition.invalidTime = text(request.invalid_time());
    condition.picture = bytes(request.attr_12());
}

void fillWire(const GetFacesCondition& condition, vms_sdk_proto::GetFacesReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    *request.mutable_channel_id() = toWire(condition.channelId);
    request.set_attr_3(condition.pageNum);
    request.set_attr_4(condition.pageSize);
    request.set_attr_5(condition.libraryId);
    request.set_attr_6(condition.withPicture);
}

void fillRecord(const vms_sdk_proto::GetFacesReq& request, GetFacesCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.channelId = fromWire(request.channel_id());
    condition.pageNum = request.attr_3();
    condition.pageSize = request.attr_4();
    condition.libraryId = request.attr_5();
    condition.withPicture = request.attr_6();
}

void fillWire(const DelFaceCondition& condition, vms_sdk_proto::DelFaceReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    *request.mutable_channel_id() = toWire(condition.channelId);
    request.set_attr_3(condition.index);
}

void fillRecord(const vms_sdk_proto::DelFaceReq& request, DelFaceCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.channelId = fromWire(request.channel_id());
    condition.index = request.attr_3();
}

vms_sdk_proto::FaceDetectRecordInfo toWire(const FaceDetectRecordInfo& record)
{
    vms_sdk_proto::FaceDetectRecordInfo wire;
    wire.set_serial_num(utf8(record.serialNum));
    wire.set_name(utf8(record.name));
    wire.set_company(utf8(record.company));
    wire.set_department(utf8(record.department));
    wire.set_position(utf8(record.position));
    wire.set_detect_time(utf8(record.detectTime));
    wire.set_attr_7(record.recordId);
    wire.set_attr_8(record.similarity);
    wire.set_attr_9(record.temperature);
    wire.set_attr_10(record.temperatureState);
    wire.set_attr_11(record.maskState);
    wire.set_attr_12(wireBytes(record.snapImage));
    wire.set_attr_13(wireBytes(record.faceImage));
    return wire;
}

FaceDetectRecordInfo fromWire(const vms_sdk_proto::FaceDetectRecordInfo& record)
{
    return FaceDetectRecordInfo{.serialNum = text(record.serial_num()),
                                .name = text(record.name()),
                                .company = text(record.company()),
                                .department = text(record.department()),
                                .position = text(record.position()),
                                .detectTime = text(record.detect_time()),
                                .recordId = record.attr_7(),
                                .similarity = record.attr_8(),
                                .temperature = record.attr_9(),
                                .temperatureState = record.attr_10(),
                                .maskState = record.attr_11(),
                                .snapImage = bytes(record.attr_12()),
                                .faceImage = bytes(record.attr_13())};
}

void fillWire(const GetFaceDetectRecordsCondition& condition,
              vms_sdk_proto::GetFaceDetectRecordsReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    *request.mutable_channel_id() = toWire(condition.channelId);
    request.set_attr_3(condition.pageNum);
    request.set_attr_4(condition.pageSize);
    request.set_begin_time(utf8(condition.beginTime));
    request.set_end_time(utf8(condition.endTime));
}

void fillRecord(const vms_sdk_proto::GetFaceDetectRecordsReq& request,
                GetFaceDetectRecordsCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.channelId = fromWire(request.channel_id());
    condition.pageNum = request.attr_3();
    condition.pageSize = request.attr_4();
    condition.beginTime = text(request.begin_time());
    condition.endTime = text(request.end_time());
}

vms_sdk_proto::FaceCountInfo toWire(const FaceCountInfo& count)
{
    vms_sdk_proto::FaceCountInfo wire;
    *wire.mutable_channel_id() = toWire(count.channelId);
    wire.set_attr_2(count.faceCount);
    wire.set_attr_3(count.abnormalTemperatureCount);
    wire.set_attr_4(count.withoutMaskCount);
    return wire;
}

FaceCountInfo fromWire(const vms_sdk_proto::FaceCountInfo& count)
{
    return FaceCountInfo{.channelId = fromWire(count.channel_id()),
                         .faceCount = count.attr_2(),
                         .abnormalTemperatureCount = count.attr_3(),
                         .withoutMaskCount = count.attr_4()};
}

vms_sdk_proto::AlarmInfo toWire(const AlarmInfo& alarm)
{
    vms_sdk_proto::AlarmInfo wire;
    wire.set_alarm_id(utf8(alarm.alarmId));
    *wire.mutable_channel_id() = toWire(alarm.channelId);
    *wire.mutable_trigger_channel_id() = toWire(alarm.triggerChannelId);
    wire.set_trigger_name(utf8(alarm.triggerName));
    wire.set_alarm_time(utf8(alarm.alarmTime));
    fillByteArrays(alarm.attachments, wire.mutable_attachments());
    wire.set_alarm_type(utf8(alarm.alarmType));
    wire.set_attr_8(alarm.alarmKind);
    wire.set_alarm_name(utf8(alarm.alarmName));
    wire.set_attr_10(wireBytes(alarm.detail));
    return wire;
}

// The alarm families of a device: an alarm raised by an event of a channel names what
// triggered it, an alarm of the device's own names itself. An unknown family keeps both.
enum AlarmKind { TriggeredAlarm = 0, NamedAlarm = 1 };

AlarmInfo fromWire(const vms_sdk_proto::AlarmInfo& alarm)
{
    AlarmInfo record{.alarmId = text(alarm.alarm_id()),
                     .channelId = fromWire(alarm.channel_id()),
                     .alarmTime = text(alarm.alarm_time()),
                     .attachments = byteArrays(alarm.attachments()),
                     .alarmType = text(alarm.alarm_type()),
                     .alarmKind = alarm.attr_8(),
                     .detail = bytes(alarm.attr_10())};
    if (record.alarmKind != NamedAlarm) {
        record.triggerChannelId = fromWire(alarm.trigger_channel_id());
        record.triggerName = text(alarm.trigger_name());
    }
    if (record.alarmKind != TriggeredAlarm)
        record.alarmName = text(alarm.alarm_name());
    return record;
}

} // namespace vms_sdk::conversion
