// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "handler.h"

#include "../device_model.h"

namespace vms_dgw_sim {

// A request about one device or channel and its answer. Nearly every handler parses, looks
// its target up and answers with the outcome in the same way; only what happens in between
// is its own.
template<typename Request, typename Answer>
struct Exchange
{
    Request request;
    Answer message;
    SimDevice* device = nullptr;
    SimChannel* channel = nullptr; // only when read for a channel
    Outcome outcome;

    // Parses the payload, stamps the answer with the request id and looks up the device the
    // request names. False when the payload does not parse: there is nothing to answer.
    bool readForDevice(Session& session, int type, const QByteArray& payload)
    {
        if (!read(session, type, payload))
            return false;
        outcome = session.model().reach(text(request.dev_id()), &device);
        return true;
    }

    // The same for a request that names a channel.
    bool readForChannel(Session& session, int type, const QByteArray& payload)
    {
        if (!read(session, type, payload))
            return false;
        outcome = session.model().reach(request.channel_id(), &device, &channel);
        return true;
    }

    void answer(Session& session, int type, const QString& what)
    {
        vms_dgw_sim::answer(session, type, message, outcome, what);
    }

private:
    bool read(Session& session, int type, const QByteArray& payload)
    {
        if (!parsePayload(session, type, payload, &request))
            return false;
        message.set_request_id(request.request_id());
        return true;
    }
};

} // namespace vms_dgw_sim
