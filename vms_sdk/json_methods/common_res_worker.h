// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// Reads the devices' answers to JSON method requests and hands each to the application as
// the result signal of its request. The dispatcher calls it with every CommonRes that answers
// one of the library's own JSON requests:
//
//   {"method": M, "error": {"errorcode": N, "message": T}, "result": {...}}
//
// A device error reaches the application in the Response of the method's own signal, with an
// empty result. An answer that is no JSON object (-61003), or names a method without a
// parser (-61005), ends the request with ClientSignals::signalCommonRequestFailed instead.
// Answers of a device application arrive wrapped in "dev_trans_userparam", their own document
// in Base64 in "result"."resp_data"; an error of the wrapper itself fails the request with
// the wrapper's code.

#include <vms_sdk/vms_client_sdk.h>

#include <QHash>
#include <QJsonObject>
#include <QObject>
#include <QString>

namespace vms_sdk {

class RequestMgr;

class CommonResWorker : public QObject
{
    Q_OBJECT
public:
    // Between an answer of the event records and the request for their next page.
    static constexpr int DefaultNextPageDelayMs = 10;
    static constexpr int NotJsonObject = -61003;
    static constexpr int MethodNotSupported = -61005;

    // `registry` holds the request values some answers carry back to the application.
    CommonResWorker(RequestMgr* registry, QObject* parent,
                    int nextPageDelayMs = DefaultNextPageDelayMs);

    // The only entry: one answer, by the request id it came with.
    void handleCommonRes(const QString& requestId, const QString& resJson);

    // Parsers of two answers the dispatch does not route (their methods end as not
    // supported), kept for when it does: `answer` is the whole answer document.
    void parseImageSettings(const QString& requestId, const QJsonObject& answer);
    void parseDevSysCfg(const QString& requestId, const QJsonObject& answer);

    // Whether the event records of a query are being collected page by page.
    bool collectingEvents(const QString& requestId) const;

private:
    friend struct AnswerParsers;

    struct EventCollection
    {
        EventMap events{};
        int collected = 0;
        int page = 1;
    };

    void fail(const QString& requestId, int code);

    RequestMgr* m_registry;
    int m_nextPageDelayMs;
    // Event records gathered so far, per request id, from the first answer to the last.
    QHash<QString, EventCollection> m_eventCollections;
};

} // namespace vms_sdk
