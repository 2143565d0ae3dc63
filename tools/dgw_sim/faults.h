// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QByteArray>
#include <QList>
#include <QSet>
#include <QString>

#include <optional>

namespace vms_dgw_sim {

// A request that the gateway turns down with an error answer instead of handling it.
struct Refusal
{
    int requestType = 0;
    int answerType = 0;
    qint32 code = 0;
    QString message;
};

// A JSON method answered with a broken document, so that the library's failure paths for
// device answers can be driven end to end.
struct MethodFault
{
    enum class Kind {
        NotJson,          // the answer text is no JSON at all
        NotObject,        // JSON, but an array
        UnknownMethod,    // the answer names a method nobody asked for
        WrongCase,        // the method's name in upper case
        DeviceError,      // the device turns the call down with `code` and `message`
        TransparentError, // the transparent wrapper itself fails with `code` and `message`
        InvalidUtf8,      // the transparent inner document carries bytes that are no UTF-8
    };

    // The method, or the inner method of a transparent one; empty: every method.
    QString method;
    Kind kind = Kind::NotJson;
    qint32 code = 0;
    QString message;
};

struct FaultConfig
{
    QList<Refusal> refusals;
    int answerDelayMs = 0;
    QSet<int> ignoredTypes;
    // Counted over every message the process receives, on any connection; 0 disables.
    int closeAfterMessages = 0;
    int crashAfterMessages = 0;
    // Types of outgoing frames whose payload is replaced by bytes that parse as no message.
    QSet<int> malformedTypes;
    // Counted on each stream over the media frames it sent; 0 disables. After that many frames
    // the stream is closed, stalls (no more frames, the socket stays open), or has half of its
    // next frame written before it is closed.
    int streamCloseAfterFrames = 0;
    int streamStallAfterFrames = 0;
    int streamCutAfterFrames = 0;
    QList<MethodFault> methodFaults;
};

enum class StreamFault { None, Close, Stall, Cut };

// What a stream that has just sent its `frames`-th media frame does next.
StreamFault streamFaultAfter(const FaultConfig& config, quint64 frames);

// Misbehaviour on purpose, so that the library's failure paths can be driven end to end.
//
// The dispatch layer asks admit() about every received message before any handler sees it,
// which keeps the handlers free of fault logic: a handler never knows whether its answer is
// delayed, whether the connection closes after it or whether the process dies. Faults that
// change the bytes of an answer belong here too, applied where the connection writes.
class Faults
{
public:
    enum class Then { Nothing, Close, Crash };

    struct Verdict
    {
        bool ignore = false;
        std::optional<Refusal> refusal;
        // What happens once the message has been dealt with and its answers are written.
        Then then = Then::Nothing;
    };

    explicit Faults(FaultConfig config);

    Verdict admit(int type);
    int answerDelayMs() const { return m_config.answerDelayMs; }

    // The error answer to a refused request: a Response carrying the request's own id. Every
    // answer message starts with the error and the request id as fields 1 and 2, so these
    // bytes read correctly as any of them.
    static QByteArray refusalAnswer(const Refusal& refusal, const QByteArray& request);

    // The payload a frame of `type` leaves with: its own, or garbage for a malformed type.
    QByteArray outgoing(int type, const QByteArray& payload) const;
    static QByteArray malformedPayload();

private:
    FaultConfig m_config;
    int m_received = 0;
};

} // namespace vms_dgw_sim
