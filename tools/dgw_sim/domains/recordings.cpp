// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// The recordings of a channel and the address its streams are served at.
//
// A simulated channel records around the clock into files of the device's recording length,
// aligned to multiples of that length, so the same search always finds the same files.

#include "device_time.h"
#include "exchange.h"

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
    Exchange<vms_sdk_proto::SearchVideoRecordingsReq, vms_sdk_proto::SearchVideoRecordingsRes> call;
    if (!call.readForChannel(session, SearchVideoRecordingsReq, payload))
        return;
    TimeRange span;
    if (call.outcome.ok())
        call.outcome = readTimeRange(call.request, &span);
    if (call.outcome.ok()) {
        const qint64 length = qint64(call.device->recordingMinutes) * 60;
        // Every file that overlaps the range, the first and the last as a whole.
        qint64 start = alignDown(span.begin, length);
        for (; start < span.end && call.message.recordings_size() < maxRecordings;
             start += length) {
            vms_sdk_proto::VideoRecInfo* file = call.message.add_recordings();
            file->set_begin_time(utf8(deviceTimeText(start)));
            file->set_end_time(utf8(deviceTimeText(start + length)));
            file->set_file_name(
                utf8(recordingFileName(call.channel->index, start, start + length)));
            file->set_attr_4(call.request.attr_3());
            file->set_attr_5(call.request.attr_4());
        }
        call.message.set_attr_3(start >= span.end);
    }
    call.answer(session, SearchVideoRecordingsRes,
                QStringLiteral("recordings of %1 from %2 to %3 (%4)")
                    .arg(channelName(call.request.channel_id()), text(call.request.begin_time()),
                         text(call.request.end_time()))
                    .arg(call.message.recordings_size()));
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
    Exchange<vms_sdk_proto::GetRtspUrlReq, vms_sdk_proto::GetRtspUrlRes> call;
    if (!call.readForChannel(session, GetRtspUrlReq, payload))
        return;
    if (call.outcome.ok()) {
        call.message.set_rtsp_url(utf8(QStringLiteral("rtsp://%1:%2/ch%3/%4")
                                           .arg(call.device->ip)
                                           .arg(call.device->rtspPort)
                                           .arg(call.channel->index)
                                           .arg(streamName(call.request.attr_3()))));
    }
    call.answer(session, GetRtspUrlRes,
                QStringLiteral("rtsp url of %1: %2")
                    .arg(channelName(call.request.channel_id()), text(call.message.rtsp_url())));
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
