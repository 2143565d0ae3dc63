// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "sim_process.h"

#include "vms_message.pb.h"

#include <QByteArray>
#include <QList>

#include <gtest/gtest.h>

#include <string>

namespace vms_test {

// A camera with everything set up (a password, presets, a patrol, a face library, security
// questions, a platform and an upgrade on offer), a camera waiting to be activated, one that
// is unplugged, and a recorder with an offline channel. Timed operations are short.
inline const QByteArray domainNetwork = R"({"devices": [
  {"id": "cam-1", "name": "Gate", "sn": "SN-CAM-1", "ip": "10.0.0.11", "password": "pw1",
   "version": "V1.0.0", "upgradeVersion": "V2.0.0", "httpPort": 8080, "rtspPort": 8554,
   "recordingMinutes": 30, "faceRecordMinutes": 10,
   "secretQuestions": [{"question": "Pet?", "answer": "Rex"}, {"question": "Town?", "answer": "Ely"}],
   "platform": {"enabled": true, "address": "10.0.0.1", "port": 7660, "protocolType": 2},
   "platformKvr": {"enabled": true, "onlineServer": "10.0.0.2"},
   "channels": [{"index": 1, "osd": "Gate",
     "presets": [{"number": 1, "name": "Door"}, {"number": 2}, {"number": 5, "name": "Road"}],
     "patrols": [{"index": 1, "mode": 1, "stops": [{"preset": 1, "stayTime": 7, "speed": 3}]}],
     "faces": [
       {"serialNum": "F-1", "name": "Ann", "organizations": ["Acme", "R&D", "Lead"],
        "libraryId": 1, "gender": 2, "age": 30, "picture": "AQID"},
       {"serialNum": "F-2", "name": "Bob", "libraryId": 2},
       {"serialNum": "F-3", "name": "Cid", "libraryId": 1}]}]},
  {"id": "cam-2", "sn": "SN-CAM-2", "ip": "10.0.0.12", "activateStatus": 0},
  {"id": "cam-3", "sn": "SN-CAM-3", "ip": "10.0.0.13", "online": false},
  {"id": "nvr-1", "sn": "SN-NVR-1", "ip": "10.0.0.20",
   "channels": [{"index": 1, "osd": "Door"}, {"index": 2, "osd": "Hall", "online": false}]}
], "rebootMs": 100, "upgradeMs": 300, "fileTransferMs": 50})";

inline vms_sdk_proto::ChannelId channelOf(const std::string& devId, unsigned index)
{
    vms_sdk_proto::ChannelId id;
    id.set_dev_id(devId);
    id.set_channel_index(index);
    return id;
}

template<typename Message>
QByteArray bytesOf(const Message& message)
{
    const std::string bytes = message.SerializeAsString();
    return QByteArray(bytes.data(), int(bytes.size()));
}

template<typename Message>
Message parsedAs(const QByteArray& payload)
{
    Message message;
    EXPECT_TRUE(message.ParseFromArray(payload.constData(), payload.size()));
    return message;
}

// `config` with more top-level keys: `extra` starts with a comma.
inline QByteArray withKeys(const QByteArray& config, const QByteArray& extra)
{
    return config.left(config.lastIndexOf('}')) + extra + "}";
}

inline QList<int> typesOf(const QList<vms_sdk::Frame>& frames)
{
    QList<int> types;
    for (const vms_sdk::Frame& frame : frames)
        types.append(frame.type);
    return types;
}

// Sends a request and returns its answer, which must be the next frame.
template<typename Answer, typename Request>
Answer ask(SimProcess& sim, int type, const Request& request, int answerType)
{
    sim.send(type, request);
    return sim.take<Answer>(answerType);
}

} // namespace vms_test
