// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_PENDING_REQUEST_H
#define VMS_SDK_PENDING_REQUEST_H

// Awaitable requests: one object per request that finishes exactly once, with the answer, a
// failure, a time-out or the release of the library, instead of the application filtering
// the global signals by a request id of its own. The functions and signals of
// vms_client_sdk.h stay as they are; this is built on them and on the table of
// request_catalogue.h.
//
//     auto* pending = vms_sdk::send<&vms_sdk::get_presets_req>(
//         vms_sdk::ChannelCondition{.channelId = {.devId = "cam-1", .channelIndex = 1}});
//     QObject::connect(pending, &vms_sdk::PendingRequest::finished, context,
//                      [](const vms_sdk::RequestOutcome& outcome) {
//                          if (outcome.end != vms_sdk::RequestAnswered)
//                              return;
//                          auto [response, presets] =
//                              vms_sdk::answer<&vms_sdk::get_presets_req>(outcome);
//                      });
//
// or by name, with the arguments as values (what a shell or a script has):
//
//     vms_sdk::send_request("get_presets_req", {{"channelId.devId", "cam-1"},
//                                               {"channelId.channelIndex", "1"}});
//
// Like everything else, on the thread that initialised the library.

#include "request_catalogue.h"
#include "vms_client_sdk.h"

#include <QList>
#include <QMetaMethod>
#include <QMetaType>
#include <QObject>
#include <QString>
#include <QVariant>

#include <concepts>
#include <cstddef>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

namespace vms_sdk {

enum RequestEnd : qint32 {
    RequestAnswered = 0,
    RequestFailed = 1,   // signalCommonRequestFailed
    RequestTimedOut = 2, // signalRequestTimeout
    RequestReleased = 3, // release_vms_client_sdk while it was outstanding
};

// How one request ended.
struct VMS_CLIENT_SDK_EXPORT RequestOutcome
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::RequestEnd end MEMBER end)
    Q_PROPERTY(QVariantList arguments MEMBER arguments)
    Q_PROPERTY(int errorCode MEMBER errorCode)
    Q_PROPERTY(QVariant requestValue MEMBER requestValue)
public:
    QString requestId{};
    RequestEnd end = RequestAnswered;
    // RequestAnswered: the answering signal's arguments, in order.
    QVariantList arguments{};
    // RequestFailed: signalCommonRequestFailed's code, or the StreamEvent that ended a stream
    // before its first data (then `arguments` holds that event's arguments).
    // RequestAnswered: the answer's Response::errCode when it has a Response (a device's
    // refusal is still an answer).
    int errorCode = 0;
    // RequestTimedOut: the value signalRequestTimeout handed over.
    QVariant requestValue{};
    bool operator==(const RequestOutcome&) const = default;
};

class PendingRequests;

// One request in flight. Finishes exactly once, then deletes itself (deleteLater). finished is
// never emitted before control is back in the event loop, so connecting to it right after
// sending is never too late, even for a request the library refuses at once.
class VMS_CLIENT_SDK_EXPORT PendingRequest : public QObject
{
    Q_OBJECT
public:
    // The request's id: the caller's, or one generated ("vms-<n>"). A stream function's
    // request id is its stream id in decimal.
    QString requestId() const;
    bool isFinished() const;
    // Valid once finished.
    RequestOutcome outcome() const;

Q_SIGNALS:
    void finished(const vms_sdk::RequestOutcome& outcome);

private:
    friend class PendingRequests;
    PendingRequest(const QString& requestId, const QMetaMethod& answer);
    void finish(RequestOutcome outcome);
    void emitFinished();

    QMetaMethod m_answer;
    RequestOutcome m_outcome;
    bool m_finished = false;
    bool m_armed = false; // the event loop has run since it was made
};

// The request catalogue, by name.
struct VMS_CLIENT_SDK_EXPORT RequestParameter
{
    QString name{};
    int metaType = QMetaType::UnknownType;
    bool operator==(const RequestParameter&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT RequestEntry
{
    QString name{}; // "get_presets_req"
    // The ClientSignals signal that answers it; invalid for the requests nothing answers.
    QMetaMethod answer{};
    // The condition record's meta-type, 0 for a function that takes plain arguments.
    int conditionType = 0;
    // The condition's properties (requestId first), or the plain arguments in order.
    QList<RequestParameter> parameters{};
};

// Every request function of the public interface, in the order of request_catalogue.h.
VMS_CLIENT_SDK_EXPORT const QList<RequestEntry>& request_catalogue();
// nullptr for a name that is not a request function.
VMS_CLIENT_SDK_EXPORT const RequestEntry* find_request(const QString& name);

// Sends a request by name. `arguments` maps parameter names to values: a value that is not of
// the parameter's type is converted (text to numbers, dates as ISO 8601, an enumeration as its
// number); a record takes a QVariantMap of its properties, a list a QVariantList, and
// "channelId.devId" names a property of a record parameter. Parameters left out keep their
// defaults; an empty or missing requestId is generated. nullptr, with the reason in *error,
// for an unknown request (the reason lists every request), an unknown parameter (it lists the
// request's parameters) or a value that does not convert.
VMS_CLIENT_SDK_EXPORT PendingRequest*
send_request(const QString& name, const QVariantMap& arguments, QString* error = nullptr);

// The typed layer. RequestTraits<&function> holds the catalogue row of a request function:
// its name, its answering signal (nullptr when nothing answers) and its plain parameters.
template<auto Function>
struct RequestTraits;

#define VMS_SDK_ANSWERED_TRAITS(function, answerSignal, params)                                    \
    template<>                                                                                     \
    struct RequestTraits<&vms_sdk::function>                                                       \
    {                                                                                              \
        static constexpr const char* name = #function;                                             \
        static constexpr auto answer = &vms_sdk::ClientSignals::answerSignal;                      \
        static constexpr const char* parameters = params;                                          \
    };
#define VMS_SDK_UNANSWERED_TRAITS(function, params)                                                \
    template<>                                                                                     \
    struct RequestTraits<&vms_sdk::function>                                                       \
    {                                                                                              \
        static constexpr const char* name = #function;                                             \
        static constexpr std::nullptr_t answer = nullptr;                                          \
        static constexpr const char* parameters = params;                                          \
    };
VMS_SDK_ANSWERED_REQUESTS(VMS_SDK_ANSWERED_TRAITS)
VMS_SDK_UNANSWERED_REQUESTS(VMS_SDK_UNANSWERED_TRAITS)
#undef VMS_SDK_ANSWERED_TRAITS
#undef VMS_SDK_UNANSWERED_TRAITS

namespace detail {

VMS_CLIENT_SDK_EXPORT QString new_request_id();
// A pending request for the id, finished by `answer` (an invalid method: by nothing, so it
// finishes as answered once the event loop runs).
VMS_CLIENT_SDK_EXPORT PendingRequest* expect_answer(const QMetaMethod& answer,
                                                    const QString& requestId);

template<class T>
concept HasRequestId = requires(T& record)
{
    {
        record.requestId
        } -> std::same_as<QString&>;
};

template<class F>
struct FunctionOf;
template<class R, class... A>
struct FunctionOf<R (*)(A...)>
{
    using Result = R;
    using Arguments = std::tuple<std::decay_t<A>...>;
};

template<class S>
struct SignalOf
{
    using Arguments = std::tuple<>;
};
template<class... A>
struct SignalOf<void (ClientSignals::*)(A...)>
{
    using Arguments = std::tuple<std::decay_t<A>...>;
};

template<auto Signal>
QMetaMethod answerMethod()
{
    if constexpr (std::is_null_pointer_v<decltype(Signal)>)
        return QMetaMethod();
    else
        return QMetaMethod::fromSignal(Signal);
}

template<class Tuple, std::size_t... I>
Tuple fromVariants(const QVariantList& values, std::index_sequence<I...>)
{
    return Tuple{values.value(int(I)).template value<std::tuple_element_t<I, Tuple>>()...};
}

} // namespace detail

// The answer's arguments, typed: e.g. std::tuple<Response, QList<PresetInfo>> for
// get_presets_req. Defaults when the request did not end with an answer.
template<auto Function>
using AnswerOf = typename detail::SignalOf<
    std::remove_cv_t<decltype(RequestTraits<Function>::answer)>>::Arguments;

template<auto Function>
AnswerOf<Function> answer(const RequestOutcome& outcome)
{
    if (outcome.end != RequestAnswered)
        return {};
    return detail::fromVariants<AnswerOf<Function>>(
        outcome.arguments, std::make_index_sequence<std::tuple_size_v<AnswerOf<Function>>>());
}

// Calls the request function with the arguments and returns its pending request. An empty
// requestId (of the condition, or the function's requestId argument) is generated first.
template<auto Function, class... Args>
PendingRequest* send(Args&&... args)
{
    using Traits = RequestTraits<Function>;
    using Call = detail::FunctionOf<decltype(Function)>;
    typename Call::Arguments values{std::forward<Args>(args)...};
    const QMetaMethod answer = detail::answerMethod<Traits::answer>();
    if constexpr (std::is_same_v<typename Call::Result, StreamId>) {
        const StreamId streamId = std::apply(Function, values);
        return detail::expect_answer(answer, QString::number(streamId));
    } else {
        QString requestId;
        if constexpr (std::tuple_size_v < typename Call::Arguments >> 0) {
            auto& first = std::get<0>(values);
            if constexpr (detail::HasRequestId<std::decay_t<decltype(first)>>) {
                if (first.requestId.isEmpty())
                    first.requestId = detail::new_request_id();
                requestId = first.requestId;
            } else if constexpr (std::string_view(Traits::parameters).starts_with("requestId")) {
                if (first.isEmpty())
                    first = detail::new_request_id();
                requestId = first;
            }
        }
        // Before the call: a request the library refuses at once fails while it runs.
        PendingRequest* pending = detail::expect_answer(
            answer, requestId.isEmpty() ? detail::new_request_id() : requestId);
        std::apply(Function, values);
        return pending;
    }
}

} // namespace vms_sdk

Q_DECLARE_METATYPE(vms_sdk::RequestEnd)
Q_DECLARE_METATYPE(vms_sdk::RequestOutcome)

#endif // VMS_SDK_PENDING_REQUEST_H
