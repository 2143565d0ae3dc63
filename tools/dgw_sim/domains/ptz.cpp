// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// Pan-tilt-zoom control, presets and patrols of a channel, and the names a device and its
// channels show.
//
// The operation numbers are the library's public enumerations:
//   preset:        0 set (store or rename), 1 call (go to), 2 delete
//   patrol:        0 start, 1 stop, 2 delete
//   patrol preset: 0 add a stop, 1 delete the stops at a preset, 2 modify their stay time

#include "handler.h"

#include "../device_model.h"

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

#include <algorithm>

namespace vms_dgw_sim {
namespace {

using namespace vms_sdk;

enum PresetOperation { SetPreset = 0, CallPreset = 1, DeletePreset = 2 };
enum PatrolOperation { StartPatrol = 0, StopPatrol = 1, DeletePatrol = 2 };
enum PatrolPresetOperation { AddStop = 0, DeleteStop = 1, ModifyStop = 2 };

// A channel the request moves: the camera behind it must be there.
Outcome reachCamera(DeviceModel& model, const vms_sdk_proto::ChannelId& id, SimChannel** channel)
{
    SimDevice* device = nullptr;
    const Outcome outcome = model.reach(id, &device, channel);
    if (outcome.ok() && !(*channel)->online)
        return {DeviceOffline, QStringLiteral("channel %1 is offline").arg(channelName(id))};
    return outcome;
}

Preset* findPreset(SimChannel* channel, quint32 number)
{
    for (Preset& preset : channel->presets) {
        if (preset.number == number)
            return &preset;
    }
    return nullptr;
}

Patrol* findPatrol(SimChannel* channel, qint32 index)
{
    for (Patrol& patrol : channel->patrols) {
        if (patrol.index == index)
            return &patrol;
    }
    return nullptr;
}

Outcome noPreset(quint32 number)
{
    return {NotFound, QStringLiteral("no preset %1").arg(number)};
}

Outcome noPatrol(qint32 index)
{
    return {NotFound, QStringLiteral("no patrol %1").arg(index)};
}

void ptzControl(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::PTZCtrlReq request;
    if (!parsePayload(session, PTZCtrlReq, payload, &request))
        return;
    vms_sdk_proto::PTZCtrlRes message;
    message.set_request_id(request.request_id());
    message.set_operation(request.attr_3());
    message.set_action(request.attr_4());
    SimChannel* channel = nullptr;
    const Outcome outcome = reachCamera(session.model(), request.channel_id(), &channel);
    answer(session, PTZCtrlRes, message, outcome,
           QStringLiteral("ptz operation %1 action %2 on %3")
               .arg(request.attr_3())
               .arg(request.attr_4())
               .arg(channelName(request.channel_id())));
}

void getPresets(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::ChannelReq request;
    if (!parsePayload(session, GetPresetsReq, payload, &request))
        return;
    vms_sdk_proto::GetPresetRes message;
    message.set_request_id(request.request_id());
    SimDevice* device = nullptr;
    SimChannel* channel = nullptr;
    const Outcome outcome = session.model().reach(request.channel_id(), &device, &channel);
    if (outcome.ok()) {
        for (const Preset& preset : std::as_const(channel->presets)) {
            vms_sdk_proto::PresetInfo* info = message.add_presets();
            info->set_attr_1(preset.number);
            info->set_preset_name(utf8(preset.name));
        }
    }
    answer(session, GetPresetRes, message, outcome,
           QStringLiteral("presets of %1 (%2)")
               .arg(channelName(request.channel_id()))
               .arg(message.presets_size()));
}

Outcome operatePreset(SimChannel* channel, const vms_sdk_proto::PresetOperReq& request)
{
    const quint32 number = request.attr_3();
    Preset* preset = findPreset(channel, number);
    switch (request.attr_5()) {
    case SetPreset: {
        if (number == 0)
            return {InvalidArgument, QStringLiteral("presets are numbered from 1")};
        const QString name = request.preset_name().empty() ? QStringLiteral("Preset %1").arg(number)
                                                           : text(request.preset_name());
        if (preset) {
            preset->name = name;
            return {};
        }
        const auto after = std::find_if(channel->presets.begin(), channel->presets.end(),
                                        [number](const Preset& p) { return p.number > number; });
        channel->presets.insert(after, {number, name});
        return {};
    }
    case CallPreset:
        return preset ? Outcome{} : noPreset(number);
    case DeletePreset:
        if (!preset)
            return noPreset(number);
        eraseIf(channel->presets, [number](const Preset& p) { return p.number == number; });
        // A patrol cannot stop at a position that no longer exists.
        for (Patrol& patrol : channel->patrols)
            eraseIf(patrol.stops,
                    [number](const PatrolStop& stop) { return stop.preset == number; });
        return {};
    }
    return {InvalidArgument, QStringLiteral("unknown preset operation %1").arg(request.attr_5())};
}

void presetOperation(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::PresetOperReq request;
    if (!parsePayload(session, PresetOperReq, payload, &request))
        return;
    vms_sdk_proto::PresetOperRes message;
    message.set_request_id(request.request_id());
    message.set_oper(request.attr_5());
    SimChannel* channel = nullptr;
    Outcome outcome = reachCamera(session.model(), request.channel_id(), &channel);
    if (outcome.ok())
        outcome = operatePreset(channel, request);
    answer(session, PresetOperRes, message, outcome,
           QStringLiteral("preset operation %1 on preset %2 of %3")
               .arg(request.attr_5())
               .arg(request.attr_3())
               .arg(channelName(request.channel_id())));
}

void getPatrols(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::ChannelReq request;
    if (!parsePayload(session, GetPatrolsReq, payload, &request))
        return;
    vms_sdk_proto::GetPatrolRes message;
    message.set_request_id(request.request_id());
    SimDevice* device = nullptr;
    SimChannel* channel = nullptr;
    const Outcome outcome = session.model().reach(request.channel_id(), &device, &channel);
    if (outcome.ok()) {
        for (const Patrol& patrol : std::as_const(channel->patrols)) {
            vms_sdk_proto::PatrolInfo* info = message.add_patrols();
            info->set_attr_1(patrol.index);
            info->set_attr_3(patrol.running ? 1 : 0);
            info->set_attr_4(patrol.mode);
            for (const PatrolStop& stop : patrol.stops) {
                vms_sdk_proto::PatrolPresetInfo* out = info->add_patrol_presets();
                out->mutable_preset()->set_attr_1(stop.preset);
                if (const Preset* preset = findPreset(channel, stop.preset))
                    out->mutable_preset()->set_preset_name(utf8(preset->name));
                out->set_attr_2(stop.stayTime);
                out->set_attr_3(stop.speed);
            }
        }
    }
    answer(session, GetPatrolRes, message, outcome,
           QStringLiteral("patrols of %1 (%2)")
               .arg(channelName(request.channel_id()))
               .arg(message.patrols_size()));
}

Outcome operatePatrol(SimChannel* channel, const vms_sdk_proto::PatrolOperReq& request)
{
    const qint32 index = request.attr_3();
    Patrol* patrol = findPatrol(channel, index);
    if (!patrol)
        return noPatrol(index);
    switch (request.attr_5()) {
    case StartPatrol:
        if (patrol->stops.isEmpty())
            return {InvalidArgument, QStringLiteral("patrol %1 has no stops").arg(index)};
        // One camera follows one patrol at a time.
        for (Patrol& other : channel->patrols)
            other.running = false;
        patrol->running = true;
        if (request.attr_4() > 0) {
            for (PatrolStop& stop : patrol->stops)
                stop.speed = quint32(request.attr_4());
        }
        return {};
    case StopPatrol:
        patrol->running = false;
        return {};
    case DeletePatrol:
        eraseIf(channel->patrols, [index](const Patrol& p) { return p.index == index; });
        return {};
    }
    return {InvalidArgument, QStringLiteral("unknown patrol operation %1").arg(request.attr_5())};
}

void patrolOperation(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::PatrolOperReq request;
    if (!parsePayload(session, PatrolOperReq, payload, &request))
        return;
    vms_sdk_proto::PatrolOperRes message;
    message.set_request_id(request.request_id());
    message.set_oper(request.attr_5());
    SimChannel* channel = nullptr;
    Outcome outcome = reachCamera(session.model(), request.channel_id(), &channel);
    if (outcome.ok())
        outcome = operatePatrol(channel, request);
    answer(session, PatrolOperRes, message, outcome,
           QStringLiteral("patrol operation %1 on patrol %2 of %3")
               .arg(request.attr_5())
               .arg(request.attr_3())
               .arg(channelName(request.channel_id())));
}

Outcome operatePatrolPreset(SimChannel* channel, const vms_sdk_proto::PatrolPresetOperReq& request)
{
    const qint32 index = request.attr_3();
    const quint32 number = request.attr_5();
    const auto atPreset = [number](const PatrolStop& stop) { return stop.preset == number; };
    Patrol* patrol = findPatrol(channel, index);
    switch (request.attr_6()) {
    case AddStop:
        if (!findPreset(channel, number))
            return noPreset(number);
        if (!patrol) {
            channel->patrols.append(Patrol{index, {}, 0, false});
            patrol = &channel->patrols.last();
        }
        patrol->stops.append({number, quint32(qMax(0, request.attr_4())), 5});
        return {};
    case DeleteStop:
        if (!patrol)
            return noPatrol(index);
        if (eraseIf(patrol->stops, atPreset) == 0)
            return {NotFound,
                    QStringLiteral("patrol %1 does not stop at preset %2").arg(index).arg(number)};
        return {};
    case ModifyStop:
        if (!patrol)
            return noPatrol(index);
        if (std::none_of(patrol->stops.begin(), patrol->stops.end(), atPreset))
            return {NotFound,
                    QStringLiteral("patrol %1 does not stop at preset %2").arg(index).arg(number)};
        for (PatrolStop& stop : patrol->stops) {
            if (atPreset(stop))
                stop.stayTime = quint32(qMax(0, request.attr_4()));
        }
        return {};
    }
    return {InvalidArgument,
            QStringLiteral("unknown patrol preset operation %1").arg(request.attr_6())};
}

void patrolPresetOperation(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::PatrolPresetOperReq request;
    if (!parsePayload(session, PatrolPresetOperReq, payload, &request))
        return;
    vms_sdk_proto::PatrolPresetOperRes message;
    message.set_request_id(request.request_id());
    message.set_oper(request.attr_6());
    SimChannel* channel = nullptr;
    Outcome outcome = reachCamera(session.model(), request.channel_id(), &channel);
    if (outcome.ok())
        outcome = operatePatrolPreset(channel, request);
    answer(session, PatrolPresetOperRes, message, outcome,
           QStringLiteral("patrol preset operation %1 on patrol %2, preset %3 of %4")
               .arg(request.attr_6())
               .arg(request.attr_3())
               .arg(request.attr_5())
               .arg(channelName(request.channel_id())));
}

void setPatrolPresets(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::SetPatrolPresetsReq request;
    if (!parsePayload(session, SetPatrolPresetsReq, payload, &request))
        return;
    vms_sdk_proto::Response message;
    message.set_request_id(request.request_id());
    SimChannel* channel = nullptr;
    Outcome outcome = reachCamera(session.model(), request.channel_id(), &channel);
    QList<PatrolStop> stops;
    for (const auto& item : request.presets()) {
        if (outcome.ok() && !findPreset(channel, item.attr_1()))
            outcome = noPreset(item.attr_1());
        stops.append({item.attr_1(), item.attr_2(), 5});
    }
    if (outcome.ok()) {
        if (Patrol* patrol = findPatrol(channel, request.attr_3())) {
            // The stops keep the speed their patrol runs at.
            const quint32 speed = patrol->stops.isEmpty() ? 5 : patrol->stops.first().speed;
            for (PatrolStop& stop : stops)
                stop.speed = speed;
            patrol->stops = stops;
        } else {
            channel->patrols.append(Patrol{request.attr_3(), stops, 0, false});
        }
    }
    answer(session, SetPatrolPresetsRes, message, outcome,
           QStringLiteral("set %1 stops of patrol %2 of %3")
               .arg(request.presets_size())
               .arg(request.attr_3())
               .arg(channelName(request.channel_id())));
}

void setOsd(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::SetOSDReq request;
    if (!parsePayload(session, SetOSDReq, payload, &request))
        return;
    vms_sdk_proto::Response message;
    message.set_request_id(request.request_id());
    SimDevice* device = nullptr;
    SimChannel* channel = nullptr;
    const Outcome outcome = session.model().reach(request.channel_id(), &device, &channel);
    if (outcome.ok())
        channel->osd = text(request.osd());
    answer(session, DevConfigRes, message, outcome,
           QStringLiteral("osd of %1 set to \"%2\"")
               .arg(channelName(request.channel_id()), text(request.osd())));
}

void modifyName(Session& session, const QByteArray& payload)
{
    vms_sdk_proto::ModifyDevNameReq request;
    if (!parsePayload(session, ModifyDevNameReq, payload, &request))
        return;
    vms_sdk_proto::Response message;
    message.set_request_id(request.request_id());
    SimDevice* device = nullptr;
    Outcome outcome = session.model().reach(text(request.dev_id()), &device);
    if (outcome.ok() && request.dev_name().empty())
        outcome = {InvalidArgument, QStringLiteral("a device name must not be empty")};
    if (outcome.ok())
        device->name = text(request.dev_name());
    answer(session, DevConfigRes, message, outcome,
           QStringLiteral("name of %1 set to \"%2\"")
               .arg(text(request.dev_id()), text(request.dev_name())));
}

} // namespace

QList<HandlerRow> ptzHandlers()
{
    return {
        {PTZCtrlReq, ptzControl},
        {GetPresetsReq, getPresets},
        {PresetOperReq, presetOperation},
        {GetPatrolsReq, getPatrols},
        {PatrolOperReq, patrolOperation},
        {PatrolPresetOperReq, patrolPresetOperation},
        {SetPatrolPresetsReq, setPatrolPresets},
        {SetOSDReq, setOsd},
        {ModifyDevNameReq, modifyName},
    };
}

} // namespace vms_dgw_sim
