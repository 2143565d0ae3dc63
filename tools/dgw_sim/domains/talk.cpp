// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// Two-way talk and one-way speaking to a channel's loudspeaker.
//
// A channel has one audio line, so a talk and a speak session exclude each other. A request
// is answered, then its event follows on the event type of its kind (98 talk, 99 speak), with
// the library's talk event numbers: 0 started, 1 stopped, 2 the line is busy. Operation 0
// starts, 1 stops; stopping a session that is not running is not an error.

#include "exchange.h"

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

namespace vms_dgw_sim {
namespace {

using namespace vms_sdk;

enum TalkOperation { Start = 0, Stop = 1 };
enum TalkEvent : qint32 { Started = 0, Stopped = 1, DeviceBusy = 2 };

struct AudioKind
{
    int requestType;
    int answerType;
    int eventType;
    SimChannel::Audio audio;
    const char* name;
};

constexpr AudioKind talk{TalkOperReq, TalkOperRes, TalkEventPush, SimChannel::Audio::Talk, "talk"};
constexpr AudioKind speak{SpeakOperReq, SpeakOperRes, SpeakEventPush, SimChannel::Audio::Speak,
                          "speak"};

// The event of an operation, changing the line's state; an Outcome when it cannot happen.
Outcome operate(SimChannel* channel, const AudioKind& kind, qint32 operation, TalkEvent* event)
{
    switch (operation) {
    case Start:
        if (channel->audio != SimChannel::Audio::Idle && channel->audio != kind.audio) {
            *event = DeviceBusy;
            return {};
        }
        channel->audio = kind.audio;
        *event = Started;
        return {};
    case Stop:
        if (channel->audio == kind.audio)
            channel->audio = SimChannel::Audio::Idle;
        *event = Stopped;
        return {};
    }
    return {InvalidArgument,
            QStringLiteral("unknown %1 operation %2").arg(QLatin1String(kind.name)).arg(operation)};
}

void handle(Session& session, const QByteArray& payload, const AudioKind& kind)
{
    Exchange<vms_sdk_proto::TalkOperReq, vms_sdk_proto::Response> call;
    if (!call.readForChannel(session, kind.requestType, payload))
        return;
    if (call.outcome.ok() && !call.channel->online)
        call.outcome = {DeviceOffline, QStringLiteral("the channel is offline")};
    TalkEvent event = Stopped;
    if (call.outcome.ok())
        call.outcome = operate(call.channel, kind, call.request.attr_3(), &event);
    const QString where = channelName(call.request.channel_id());
    call.answer(session, kind.answerType,
                QStringLiteral("%1 operation %2 on %3")
                    .arg(QLatin1String(kind.name))
                    .arg(call.request.attr_3())
                    .arg(where));
    if (!call.outcome.ok())
        return;
    vms_sdk_proto::TalkEventPush push;
    *push.mutable_channel_id() = call.request.channel_id();
    push.set_event(event);
    session.send(kind.eventType, serialized(push));
    session.log(
        QStringLiteral("%1 event %2 on %3").arg(QLatin1String(kind.name)).arg(event).arg(where));
}

void talkOperation(Session& session, const QByteArray& payload)
{
    handle(session, payload, talk);
}

void speakOperation(Session& session, const QByteArray& payload)
{
    handle(session, payload, speak);
}

} // namespace

QList<HandlerRow> talkHandlers()
{
    return {
        {TalkOperReq, talkOperation},
        {SpeakOperReq, speakOperation},
    };
}

} // namespace vms_dgw_sim
