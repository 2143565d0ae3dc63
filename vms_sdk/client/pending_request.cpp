// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include <vms_sdk/pending_request.h>

#include "vms_sdk/client/message_signals.h"

#include <QHash>
#include <QPointer>
#include <QSet>

#include <atomic>
#include <optional>
#include <type_traits>
#include <utility>

namespace vms_sdk {

// Ends pending requests from the public signals. One connection per answering signal,
// made once for the process, serves every pending request: an emission costs one look-up
// by its key, whatever the number of requests in flight.
class PendingRequests : public QObject
{
public:
    static PendingRequests* instance()
    {
        static PendingRequests* requests = new PendingRequests();
        return requests;
    }

    PendingRequest* expect(const QMetaMethod& answer, const QString& requestId)
    {
        auto* pending = new PendingRequest(requestId, answer);
        if (!answer.isValid())
            pending->finish({.requestId = requestId});
        else
            m_outstanding[pendingKey(answer, requestId)].append(pending);
        return pending;
    }

private:
    PendingRequests()
    {
        qRegisterMetaType<RequestEnd>("vms_sdk::RequestEnd");
        qRegisterMetaType<RequestOutcome>("vms_sdk::RequestOutcome");
        ClientSignals* out = ClientSignals::instance();
        m_failureIndex =
            QMetaMethod::fromSignal(&ClientSignals::signalCommonRequestFailed).methodIndex();
#define VMS_LISTEN(function, answerSignal, params) listen(&ClientSignals::answerSignal);
        VMS_SDK_ANSWERED_REQUESTS(VMS_LISTEN)
#undef VMS_LISTEN
        connect(out, &ClientSignals::signalCommonRequestFailed, this,
                [this](const QString& requestId, int code) {
                    end(requestId, {.end = RequestFailed, .errorCode = code});
                });
        connect(out, &ClientSignals::signalRequestTimeout, this,
                [this](const QString& requestId, const QVariant& value) {
                    end(requestId, {.end = RequestTimedOut, .requestValue = value});
                });
        // A stream that ends before its first data never got going.
        connect(out, &ClientSignals::signalStreamEventPush, this,
                [this](StreamId streamId, StreamEvent event) {
                    if (m_outstanding.isEmpty())
                        return;
                    PendingRequest* pending = take(streamKey(QString::number(streamId)),
                                                   [](const PendingRequest&) { return true; });
                    if (pending) {
                        pending->finish({.requestId = pending->requestId(),
                                         .end = RequestFailed,
                                         .arguments = {QVariant::fromValue(streamId),
                                                       QVariant::fromValue(event)},
                                         .errorCode = int(event)});
                    }
                });
        connect(MessageSignals::instance(), &MessageSignals::signalReleaseClientSdk, this,
                &PendingRequests::releaseAll);
    }

    // Where an answer carries its request: in a Response, as the text of its first argument,
    // in a transfer's progress or as the stream it reports on. nullopt: it ends nothing yet.
    template<class... Rest>
    static std::optional<QString> keyOf(const Response& response, const Rest&...)
    {
        return response.requestId;
    }
    template<class... Rest>
    static std::optional<QString> keyOf(const QString& requestId, const Rest&...)
    {
        return requestId;
    }
    template<class... Rest>
    static std::optional<QString> keyOf(const FileTransferProgress& progress, const Rest&...)
    {
        // Status 0: still running.
        if (progress.status == 0)
            return std::nullopt;
        return progress.requestId;
    }
    template<class... Rest>
    static std::optional<QString> keyOf(StreamId streamId, const Rest&...)
    {
        return streamKey(QString::number(streamId));
    }

    // Stream ids and request ids are different spaces; so is the one answer that carries none.
    static QString streamKey(const QString& streamId)
    {
        return QStringLiteral("stream:") + streamId;
    }
    static QString pendingKey(const QMetaMethod& answer, const QString& requestId)
    {
        if (answer.parameterCount() == 0)
            return QStringLiteral("next:");
        if (answer.parameterType(0) == qMetaTypeId<StreamId>())
            return streamKey(requestId);
        return requestId;
    }

    static int errorOf()
    {
        return 0;
    }
    template<class First, class... Rest>
    static int errorOf(const First& first, const Rest&...)
    {
        if constexpr (std::is_same_v<First, Response>)
            return first.errCode;
        else
            return 0;
    }

    template<class... A>
    void listen(void (ClientSignals::*signal)(A...))
    {
        const int index = QMetaMethod::fromSignal(signal).methodIndex();
        // A failure ends a request through end(), whatever its answer is.
        if (index == m_failureIndex || m_listening.contains(index))
            return;
        m_listening.insert(index);
        connect(ClientSignals::instance(), signal, this, [this, index](A... args) {
            // Stream data comes frame after frame: nothing to look up most of the time.
            if (m_outstanding.isEmpty())
                return;
            std::optional<QString> key;
            if constexpr (sizeof...(A) == 0)
                key = QStringLiteral("next:");
            else
                key = keyOf(args...);
            if (!key)
                return;
            PendingRequest* pending = take(*key, [index](const PendingRequest& p) {
                return p.m_answer.methodIndex() == index;
            });
            if (pending) {
                pending->finish({.requestId = pending->requestId(),
                                 .arguments = {QVariant::fromValue(args)...},
                                 .errorCode = errorOf(args...)});
            }
        });
    }

    // The oldest outstanding request under the key that the test accepts, out of the table.
    template<class Accept>
    PendingRequest* take(const QString& key, Accept accept)
    {
        const auto found = m_outstanding.find(key);
        if (found == m_outstanding.end())
            return nullptr;
        QList<QPointer<PendingRequest>>& list = *found;
        PendingRequest* taken = nullptr;
        for (int i = 0; i < list.size() && !taken; ++i) {
            if (list[i] && accept(*list[i])) {
                taken = list.takeAt(i);
            }
        }
        if (list.isEmpty())
            m_outstanding.erase(found);
        return taken;
    }

    void end(const QString& requestId, RequestOutcome outcome)
    {
        // Only requests the library registers by id fail or time out: not streams, not the
        // gateway start.
        PendingRequest* pending = take(requestId, [](const PendingRequest&) { return true; });
        if (pending) {
            outcome.requestId = requestId;
            pending->finish(std::move(outcome));
        }
    }

    void releaseAll()
    {
        const auto outstanding = std::exchange(m_outstanding, {});
        for (const QList<QPointer<PendingRequest>>& list : outstanding) {
            for (const QPointer<PendingRequest>& pending : list) {
                if (pending)
                    pending->finish({.requestId = pending->requestId(), .end = RequestReleased});
            }
        }
    }

    QHash<QString, QList<QPointer<PendingRequest>>> m_outstanding;
    QSet<int> m_listening;
    int m_failureIndex = -1;
};

PendingRequest::PendingRequest(const QString& requestId, const QMetaMethod& answer)
    : m_answer(answer)
{
    m_outcome.requestId = requestId;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_armed = true;
            if (m_finished)
                emitFinished();
        },
        Qt::QueuedConnection);
}

QString PendingRequest::requestId() const
{
    return m_outcome.requestId;
}

bool PendingRequest::isFinished() const
{
    return m_finished;
}

RequestOutcome PendingRequest::outcome() const
{
    return m_outcome;
}

void PendingRequest::finish(RequestOutcome outcome)
{
    if (m_finished)
        return;
    m_finished = true;
    m_outcome = std::move(outcome);
    if (m_armed)
        emitFinished();
}

void PendingRequest::emitFinished()
{
    Q_EMIT finished(m_outcome);
    deleteLater();
}

namespace detail {

QString new_request_id()
{
    // Applications number their requests or use UUIDs; a prefix keeps ours apart.
    static std::atomic<quint64> next{0};
    return QStringLiteral("vms-%1").arg(++next);
}

PendingRequest* expect_answer(const QMetaMethod& answer, const QString& requestId)
{
    return PendingRequests::instance()->expect(answer, requestId);
}

} // namespace detail

} // namespace vms_sdk
