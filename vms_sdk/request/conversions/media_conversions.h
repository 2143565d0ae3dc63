// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// Recordings, live and playback streams, and talk.

#include <vms_sdk/media_records.h>
#include <vms_sdk/vms_types.h>

#include "vms_sdk/request/conversions/common_conversions.h"

#include <QDateTime>

namespace vms_sdk::conversion {

// Times on stream requests and pushes carry milliseconds: "yyyy-MM-dd hh:mm:ss.zzz". An
// invalid time is written as an empty text and read back as an invalid time.
std::string streamTime(const QDateTime& time);
QDateTime streamTime(const std::string& text);

vms_sdk_proto::VideoRecInfo toWire(const VideoRecInfo& recording);
VideoRecInfo fromWire(const vms_sdk_proto::VideoRecInfo& recording);

void fillWire(const RecsSearchCondition& condition,
              vms_sdk_proto::SearchVideoRecordingsReq& request);
void fillRecord(const vms_sdk_proto::SearchVideoRecordingsReq& request,
                RecsSearchCondition& condition);

void fillWire(const GetRtspUrlCondition& condition, vms_sdk_proto::GetRtspUrlReq& request);
void fillRecord(const vms_sdk_proto::GetRtspUrlReq& request, GetRtspUrlCondition& condition);

void fillWire(const LiveVideoConnCondition& condition, vms_sdk_proto::LiveVideoConnReq& request);
void fillRecord(const vms_sdk_proto::LiveVideoConnReq& request, LiveVideoConnCondition& condition);

void fillWire(const PlaybackByFileCondition& condition, vms_sdk_proto::PlaybackByFileReq& request);
void fillRecord(const vms_sdk_proto::PlaybackByFileReq& request,
                PlaybackByFileCondition& condition);

// The download flag of a time playback stays in the library; fillRecord leaves it alone.
void fillWire(const PlaybackByTimeCondition& condition, vms_sdk_proto::PlaybackByTimeReq& request);
void fillRecord(const vms_sdk_proto::PlaybackByTimeReq& request,
                PlaybackByTimeCondition& condition);

// The control requests of an open playback stream. The speed is the application's text, passed
// on as it is: the gateway knows which speeds its devices take.
vms_sdk_proto::SkipByPosReq skipByPosReq(quint32 offsetTime);
vms_sdk_proto::SkipByTimeReq skipByTimeReq(const QDateTime& skipTime);
vms_sdk_proto::PlaybackCtrlReq playbackCtrlReq(PlaybackCtrl ctrl);
vms_sdk_proto::PlaybackSpeedSetReq playbackSpeedSetReq(const QString& speed);

// Talk and speak requests share one message; the message type tells them apart.
void fillWire(const TalkOperCondition& condition, vms_sdk_proto::TalkOperReq& request);
void fillRecord(const vms_sdk_proto::TalkOperReq& request, TalkOperCondition& condition);
void fillWire(const SpeakOperCondition& condition, vms_sdk_proto::TalkOperReq& request);
void fillRecord(const vms_sdk_proto::TalkOperReq& request, SpeakOperCondition& condition);

} // namespace vms_sdk::conversion
