// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/request/conversions/media_conversions.h"

namespace vms_sdk::conversion {
namespace {

const QString streamTimeFormat = QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz");

} // namespace

std::string streamTime(const QDateTime& time)
{
    return utf8(time.toString(streamTimeFormat));
}

QDateTime streamTime(const std::string& text)
{
    return QDateTime::fromString(conversion::text(text), streamTimeFormat);
}

vms_sdk_proto::VideoRecInfo toWire(const VideoRecInfo& recording)
{
    vms_sdk_proto::VideoRecInfo wire;
    wire.set_begin_time(utf8(recording.beginTime));
    wire.set_end_time(utf8(recording.endTime));
    wire.set_file_name(utf8(recording.fileName));
    wire.set_attr_4(recording.recordType);
    wire.set_attr_5(recording.recordSrc);
    return wire;
}

VideoRecInfo fromWire(const vms_sdk_proto::VideoRecInfo& recording)
{
    return VideoRecInfo{.beginTime = text(recording.begin_time()),
                        .endTime = text(recording.end_time()),
                        .fileName = text(recording.file_name()),
                        .recordType = recording.attr_4(),
                        .recordSrc = recording.attr_5()};
}

void fillWire(const RecsSearchCondition& condition,
              vms_sdk_proto::SearchVideoRecordingsReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    *request.mutable_channel_id() = toWire(condition.channelId);
    request.set_attr_3(condition.recordType);
    request.set_attr_4(condition.recordSrc);
    request.set_begin_time(utf8(condition.beginTime));
    request.set_end_time(utf8(condition.endTime));
}

void fillRecord(const vms_sdk_proto::SearchVideoRecordingsReq& request,
                RecsSearchCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.channelId = fromWire(request.channel_id());
    condition.recordType = request.attr_3();
    condition.recordSrc = request.attr_4();
    condition.beginTime = text(request.begin_time());
    condition.endTime = text(request.end_time());
}

void fillWire(const GetRtspUrlCondition& condition, vms_sdk_proto::GetRtspUrlReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    *request.mutable_channel_id() = toWire(condition.channelId);
    request.set_attr_3(condition.streamType);
}

void fillRecord(const vms_sdk_proto::GetRtspUrlReq& request, GetRtspUrlCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.channelId = fromWire(request.channel_id());
    condition.streamType = request.attr_3();
}

void fillWire(const LiveVideoConnCondition& condition, vms_sdk_proto::LiveVideoConnReq& request)
{
    *request.mutable_channel_id() = toWire(condition.channelId);
    request.set_attr_2(condition.streamType);
}

void fillRecord(const vms_sdk_proto::LiveVideoConnReq& request, LiveVideoConnCondition& condition)
{
    condition.channelId = fromWire(request.channel_id());
    condition.streamType = request.attr_2();
}

void fillWire(const PlaybackByFileCondition& condition, vms_sdk_proto::PlaybackByFileReq& request)
{
    *request.mutable_channel_id() = toWire(condition.channelId);
    request.set_file_name(utf8(condition.fileName));
    request.set_attr_3(condition.recordSrc);
    request.set_attr_4(condition.download);
}

void fillRecord(const vms_sdk_proto::PlaybackByFileReq& request, PlaybackByFileCondition& condition)
{
    condition.channelId = fromWire(request.channel_id());
    condition.fileName = text(request.file_name());
    condition.recordSrc = request.attr_3();
    condition.download = request.attr_4();
}

void fillWire(const PlaybackByTimeCondition& condition, vms_sdk_proto::PlaybackByTimeReq& request)
{
    *request.mutable_channel_id() = toWire(condition.channelId);
    request.set_start_time(streamTime(condition.startTime));
    request.set_attr_3(condition.recordSrc);
}

void fillRecord(const vms_sdk_proto::PlaybackByTimeReq& request, PlaybackByTimeCondition& condition)
{
    condition.channelId = fromWire(request.channel_id());
    condition.startTime = streamTime(request.start_time());
    condition.recordSrc = request.attr_3();
}

vms_sdk_proto::SkipByPosReq skipByPosReq(quint32 offsetTime)
{
    vms_sdk_proto::SkipByPosReq request;
    request.set_offset_time(offsetTime);
    return request;
}

vms_sdk_proto::SkipByTimeReq skipByTimeReq(const QDateTime& skipTime)
{
    vms_sdk_proto::SkipByTimeReq request;
    request.set_skip_time(streamTime(skipTime));
    return request;
}

vms_sdk_proto::PlaybackCtrlReq playbackCtrlReq(PlaybackCtrl ctrl)
{
    vms_sdk_proto::PlaybackCtrlReq request;
    request.set_ctrl(ctrl);
    return request;
}

vms_sdk_proto::PlaybackSpeedSetReq playbackSpeedSetReq(const QString& speed)
{
    vms_sdk_proto::PlaybackSpeedSetReq request;
    request.set_playback_speed(utf8(speed));
    return request;
}

namespace {

// Talking to a channel and speaking through it are asked for with one message; only the
// message type tells them apart.
template<class Condition>
void fillTalkWire(const Condition& condition, vms_sdk_proto::TalkOperReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    *request.mutable_channel_id() = toWire(condition.channelId);
    request.set_attr_3(condition.operation);
}

template<class Condition>
void fillTalkRecord(const vms_sdk_proto::TalkOperReq& request, Condition& condition)
{
    condition.requestId = text(request.request_id());
    condition.channelId = fromWire(request.channel_id());
    condition.operation = request.attr_3();
}

} // namespace

void fillWire(const TalkOperCondition& condition, vms_sdk_proto::TalkOperReq& request)
{
    fillTalkWire(condition, request);
}

void fillRecord(const vms_sdk_proto::TalkOperReq& request, TalkOperCondition& condition)
{
    fillTalkRecord(request, condition);
}

void fillWire(const SpeakOperCondition& condition, vms_sdk_proto::TalkOperReq& request)
{
    fillTalkWire(condition, request);
}

void fillRecord(const vms_sdk_proto::TalkOperReq& request, SpeakOperCondition& condition)
{
    fillTalkRecord(request, condition);
}

} // namespace vms_sdk::conversion
