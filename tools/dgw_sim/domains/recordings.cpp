// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// The recordings of a channel and the address its streams are served at.
//
// A simulated channel records around the clock into files of the device's recording length,
// aligned to multiples of that length, so the same search always finds the same files.

#include "device_time.h"
#include "handler.h"

#include "../device_model.h"

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

namespace vms_dgw_sim {
namespace {

using namespace vms_sdk;

// More files than this in one answer and the search is cut short, reported as not finished:
// a recorder answers a search with a bounded list, the caller narrows the range.
constexpr int maxRecordings = 2000;

void searchRecordings(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::SearchVideoRecordingsReq request;
    if (!parsePayload(session, SearchVideoRecordingsReq, payload, &request))
        return;
    vms_sdk_proto::SearchVideoRecordingsRes message;
    message.set_request_id(request.request_id());
    SimDevice* device = nullptr;
    SimChannel* channel = nullptr;
    Outcome outcome = session.model().reach(request.channel_id(), &device, &channel);
    qint64 begin = 0;
    qint64 end = 0;
    if (outcome.ok() && (!parseDeviceTime(request.begin_time(), &begin) ||
                         !parseDeviceTime(request.end_time(), &end))) {
        outcome = {InvalidArgument, QStringLiteral("times are written yyyy-MM-dd hh:mm:ss")};
    }
    if (outcome.ok()) {
        const qint64 length = qint64(device->recordingMinutes) * 60;
        // Every file that overlaps the range, the first and the last as a whole.
        qint64 start = alignDown(begin, length);
        for (; start < end && message.recordings_size() < maxRecordings; start += length) {
            vms_sdk_proto::VideoRecInfo* file = message.add_recordings();
            file->set_begin_time(utf8(deviceTimeText(start)));
            file->set_end_time(utf8(deviceTimeText(start + length)));
            file->set_file_name(
                utf8(QStringLiteral("ch%1_%2_%3.mp4")
                         .arg(channel->index, 2, 10, QLatin1Char('0'))
                         .arg(deviceTimeText(start, QStringLiteral("yyyyMMddhhmmss")),
                              deviceTimeText(start + length, QStringLiteral("yyyyMMddhhmmss")))));
            file->set_attr_4(request.attr_3());
            file->set_attr_5(request.attr_4());
        }
        message.set_attr_3(start >= end);
    }
    answer(session, SearchVideoRecordingsRes, message, outcome,
           QStringLiteral("recordings of %1 from %2 to %3 (%4)")
               .arg(channelName(request.channel_id()), text(request.begin_time()),
                    text(request.end_time()))
               .arg(message.recordings_size()));
}

QString streamName(qint32 streamType)
{
    switch (streamType) {
    case 0:
        return QStringLiteral("main");
    case 1:
        return QStringLiteral("sub");
    }
    return QStringLiteral("stream%1").arg(streamType);
}

void rtspUrl(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::GetRtspUrlReq request;
    if (!parsePayload(session, GetRtspUrlReq, payload, &request))
        return;
    vms_sdk_proto::GetRtspUrlRes message;
    message.set_request_id(request.request_id());
    SimDevice* device = nullptr;
    SimChannel* channel = nullptr;
    const Outcome outcome = session.model().reach(request.channel_id(), &device, &channel);
    if (outcome.ok()) {
        message.set_rtsp_url(utf8(QStringLiteral("rtsp://%1:%2/ch%3/%4")
                                      .arg(device->ip)
                                      .arg(device->rtspPort)
                                      .arg(channel->index)
                                      .arg(streamName(request.attr_3()))));
    }
    answer(session, GetRtspUrlRes, message, outcome,
           QStringLiteral("rtsp url of %1: %2")
               .arg(channelName(request.channel_id()), text(message.rtsp_url())));
}

} // namespace

QList<HandlerRow> recordingsHandlers()
{
    return {
        {SearchVideoRecordingsReq, searchRecordings},
        {GetRtspUrlReq, rtspUrl},
    };
}

} // namespace vms_dgw_sim
