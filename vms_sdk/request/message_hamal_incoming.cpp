// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The incoming half of the dispatcher: one row per message type the gateway sends on the
// message channel. A row says how to read the payload and which signal it becomes; the frames
// below do the rest (parse, registry, log lines) the same way for every row.
#include "vms_sdk/request/message_hamal.h"

#include "vms_sdk/client/sdk_log.h"
#include "vms_sdk/json_methods/alarm_worker.h"
#include "vms_sdk/json_methods/common_res_worker.h"
#include "vms_sdk/request/conversions/device_conversions.h"
#include "vms_sdk/request/conversions/face_conversions.h"
#include "vms_sdk/request/conversions/media_conversions.h"
#include "vms_sdk/request/conversions/network_conversions.h"
#include "vms_sdk/request/conversions/ptz_conversions.h"
#include "vms_sdk/request/conversions/upgrade_conversions.h"
#include "vms_sdk/request/request_mgr.h"

#include "vms_message.pb.h"

#include <QHash>

#include <string>

namespace vms_sdk {

using namespace conversion;

namespace {

ClientSignals* out()
{
    return ClientSignals::instance();
}

// Texts of the log lines that differ from the usual pattern. They are what log readers have
// always searched for, so the odd ones are kept as they are.
struct Quirks
{
    const char* timeoutWords = nullptr; // after "client request time out "
    const char* parseFailure = nullptr; // the whole failure line
};

template<class Message>
bool parse(Message& message, const QByteArray& payload)
{
    return message.ParseFromArray(payload.constData(), payload.size());
}

} // namespace

struct IncomingRoutes
{
    using Handler = std::function<void(MessageHamal&, const QByteArray&)>;

    static void parseFailed(const QString& words, const Quirks& quirks)
    {
        log::error(quirks.parseFailure
                       ? QString::fromLatin1(quirks.parseFailure)
                       : QStringLiteral("parse [") + words + QStringLiteral("] failure"));
    }

    // An answer to a registered request: delivered only while the request is outstanding.
    template<class Message, class Emit>
    static Handler response(const char* words, Emit emit, Quirks quirks = {})
    {
        // The words are copied only into the one line written.
        return [=](MessageHamal& hamal, const QByteArray& payload) {
            Message answer;
            if (!parse(answer, payload))
                return parseFailed(QStringLiteral("dgw response ") + QLatin1String(words), quirks);
            const Response response = responseOf(answer);
            // Only a request that went out as this message waits for it; one of the same id
            // that went out as a JSON method does not.
            if (!hamal.m_requestMgr->removeRequest(response.requestId, QString())) {
                log::error(QStringLiteral("client request time out ") +
                           QLatin1String(quirks.timeoutWords ? quirks.timeoutWords : words));
                return;
            }
            emit(answer, response);
            log::trace({"dgw response ", words});
        };
    }

    // An answer to a request that is never registered (it is matched by serial number).
    template<class Message, class Emit>
    static Handler answer(const char* words, Emit emit)
    {
        return [=](MessageHamal&, const QByteArray& payload) {
            Message answer;
            if (!parse(answer, payload))
                return parseFailed(QStringLiteral("dgw response ") + QLatin1String(words), {});
            emit(answer);
            log::trace({"dgw response ", words});
        };
    }

    // A push. `emit` returns what follows the words in the log line, in UTF-8. A quiet push
    // logs nothing, not even a payload it cannot read.
    enum class Logged { Yes, Never };
    template<class Message, class Emit>
    static Handler push(const char* words, Emit emit, Logged logged = Logged::Yes)
    {
        return [=](MessageHamal& hamal, const QByteArray& payload) {
            Message push;
            if (!parse(push, payload)) {
                if (logged == Logged::Yes)
                    parseFailed(QStringLiteral("dgw push ") + QLatin1String(words), {});
                return;
            }
            const std::string detail = emit(hamal, push);
            if (logged == Logged::Yes)
                log::trace({"dgw push ", words, detail});
        };
    }

    // A push whose payload is the device id as text.
    template<class Emit>
    static Handler textPush(const char* words, Emit emit)
    {
        return [=](MessageHamal&, const QByteArray& payload) {
            emit(QString::fromUtf8(payload));
            if (words)
                log::trace({"dgw push ", words});
        };
    }

    // The registration of a JSON request that an answer ends: among the JSON requests
    // outstanding under its id, the oldest that asked for the method the answer names, or
    // else the oldest. Empty when no JSON request waits under the id.
    static QString answeredKind(const QStringList& kinds, const QString& method)
    {
        QString oldest;
        for (const QString& kind : kinds) {
            // Requests that went out as wire messages are registered without a kind.
            if (kind.isEmpty())
                continue;
            if (kind.section(QLatin1Char(':'), 1) == method)
                return kind;
            if (oldest.isEmpty())
                oldest = kind;
        }
        return oldest;
    }

    // A JSON request's answer goes to whoever composed the request: the application gets
    // the text, the library's own requests go to the answer parsers.
    static Handler commonResponse()
    {
        return [](MessageHamal& hamal, const QByteArray& payload) {
            const QString text = QStringLiteral("transparent transmission");
            vms_sdk_proto::CommonRes answer;
            if (!parse(answer, payload))
                return parseFailed(QStringLiteral("dgw response ") + text, {});
            const QString requestId = QString::fromStdString(answer.request_id());
            const QByteArray json = QByteArray::fromStdString(answer.res_json());
            const QString kind =
                answeredKind(hamal.m_requestMgr->kinds(requestId), MessageHamal::methodOf(json));
            if (kind.isEmpty() || !hamal.m_requestMgr->removeRequest(requestId, kind)) {
                log::error(QStringLiteral("client request time out ") + text);
                return;
            }
            const QString resJson = QString::fromUtf8(json);
            if (kind.startsWith(
                    MessageHamal::jsonAnswerKind(MessageHamal::JsonReader::Application, {})))
                Q_EMIT out()->signalCommonRes(requestId, resJson);
            else
                hamal.m_commonResWorker->handleCommonRes(requestId, resJson);
            log::trace(QStringLiteral("dgw response ") + text);
        };
    }

    static const QHash<int, Handler>& table()
    {
        using namespace vms_sdk_proto;
        static const QHash<int, Handler> routes{
            {ActivateDevRes,
             answer<vms_sdk_proto::ActivateDevRes>("activate device",
                                                   [](const auto& a) {
                                                       Q_EMIT out()->signalActivateDevRes(
                                                           text(a.dev_sn()), a.result());
                                                   })},
            {DevNetGetRes, response<vms_sdk_proto::DevNetGetRes>(
                               "get device net configuration",
                               [](const auto& a, const Response& r) {
                                   Q_EMIT out()->signalGetDevNetRes(r, fromWire(a.net_info()));
                               })},
            {DevPlatformGetRes,
             response<vms_sdk_proto::DevPlatformGetRes>("get device platform configuration",
                                                        [](const auto& a, const Response& r) {
                                                            Q_EMIT out()->signalGetDevPlatformRes(
                                                                r, fromWire(a.platform_info()));
                                                        })},
            {DevPlatformSetRes,
             response<vms_sdk_proto::Response>(
                 "set device platform configuration",
                 [](const auto&, const Response& r) { Q_EMIT out()->signalSetDevPlatformRes(r); })},
            {DevPlatform_kvrGetRes, response<vms_sdk_proto::DevPlatform_kvrGetRes>(
                                        "get device platform_kvr configuration",
                                        [](const auto& a, const Response& r) {
                                            Q_EMIT out()->signalGetDevPlatform_kvrRes(
                                                r, fromWire(a.platform_info()));
                                        })},
            {DevPlatform_kvrSetRes,
             response<vms_sdk_proto::Response>("set device platform_kvr configuration",
                                               [](const auto&, const Response& r) {
                                                   Q_EMIT out()->signalSetDevPlatform_kvrRes(r);
                                               })},
            {DevCertImportRes,
             response<vms_sdk_proto::Response>(
                 "import device cert",
                 [](const auto&, const Response& r) { Q_EMIT out()->signalImportDevCertRes(r); })},
            {DevNetSetRes,
             response<vms_sdk_proto::DevNetSetRes>("set device net configuration",
                                                   [](const auto& a, const Response& r) {
                                                       Q_EMIT out()->signalSetDevNetRes(
                                                           r, text(a.dev_id()), text(a.dev_ip()));
                                                   })},
            {SearchedDevsPush, push<vms_sdk_proto::SearchedDevsPush>(
                                   "searched devices",
                                   [](MessageHamal&, const auto& p) {
                                       Q_EMIT out()->signalSearchedDevsPush(fromWire(p));
                                       return std::string();
                                   })},
            {BroadcastSearchedDevsPush, push<vms_sdk_proto::SearchedDevsPush>(
                                            "broadcast searched devices",
                                            [](MessageHamal&, const auto& p) {
                                                Q_EMIT out()->signalBroadcastSearchedDevsPush(
                                                    fromWire(p));
                                                return std::string();
                                            })},
            {DevStatusPush, push<vms_sdk_proto::DevStatusPush>(
                                "device status",
                                [](MessageHamal&, const auto& p) {
                                    const QString devId = text(p.dev_id());
                                    Q_EMIT out()->signalDevStatusPush(devId, DevStatus(p.status()));
                                    // The id as the signal carries it: a byte that is not UTF-8
                                    // is logged as the replacement character.
                                    std::string detail(1, ':');
                                    log::appendText(detail, devId);
                                    detail += ' ';
                                    detail += std::to_string(p.status());
                                    return detail;
                                })},
            {DevP2PSuccessPush,
             textPush(nullptr,
                      [](const QString& devId) { Q_EMIT out()->signalDevP2PSuccessPush(devId); })},
            {DevInfoPush,
             push<vms_sdk_proto::DevInfoFromDgw>("device information",
                                                 [](MessageHamal&, const auto& p) {
                                                     Q_EMIT out()->signalDevInfoPush(fromWire(p));
                                                     std::string detail(1, ':');
                                                     log::appendText(detail, text(p.id()));
                                                     return detail;
                                                 })},
            {DevTempUserCodePush, push<vms_sdk_proto::DevTempUserCodePush>(
                                      "device temp user code",
                                      [](MessageHamal&, const auto& p) {
                                          Q_EMIT out()->signalDevTempUserCodePush(fromWire(p));
                                          return std::string();
                                      })},
            {DevChannelsInfoPush,
             push<vms_sdk_proto::DevChannelsInfoPush>("channels information",
                                                      [](MessageHamal&, const auto& p) {
                                                          Q_EMIT out()->signalDevChannelsInfoPush(
                                                              text(p.dev_id()), fromWire(p));
                                                          return std::string();
                                                      })},
            {FaceDetectLivePush,
             push<vms_sdk_proto::FaceDetectLiveInfo>(
                 "face detect information",
                 [](MessageHamal& hamal, const auto& p) {
                     const QPair<QString, int> channel = channelPair(p.channel_id());
                     const FaceDetectRecordInfo record = fromWire(p.record());
                     Q_EMIT out()->signalFaceDetectPush(channel, record);
                     hamal.m_alarmWorker->handleFaceDetectAlarm(channel, record);
                     return std::string();
                 })},
            {FaceCountPush,
             push<vms_sdk_proto::FaceCountInfo>("face temperature count information",
                                                [](MessageHamal&, const auto& p) {
                                                    Q_EMIT out()->signalFaceTemperatureCountPush(
                                                        channelPair(p.channel_id()), fromWire(p));
                                                    return std::string();
                                                })},
            {CommonAlarmPush,
             [](MessageHamal& hamal, const QByteArray& payload) {
                 hamal.m_alarmWorker->handleCommonAlarmPush(payload);
             }},
            {TlvDataPush, push<vms_sdk_proto::TlvInfo>(
                              nullptr,
                              [](MessageHamal&, const auto& p) {
                                  Q_EMIT out()->signalTlvDataPush(text(p.dev_id()),
                                                                  bytes(p.tlv_data()));
                                  return std::string();
                              },
                              Logged::Never)},
            {GetRtspUrlRes, response<vms_sdk_proto::GetRtspUrlRes>(
                                "get rtsp url",
                                [](const auto& a, const Response& r) {
                                    Q_EMIT out()->signalGetRtspUrlRes(r, text(a.rtsp_url()));
                                },
                                {.timeoutWords = "search video recordings"})},
            {SearchVideoRecordingsRes,
             response<vms_sdk_proto::SearchVideoRecordingsRes>(
                 "search video recordings",
                 [](const auto& a, const Response& r) {
                     Q_EMIT out()->signalSearchVideoRecordingsRes(
                         r, mapFromWire(a.recordings(), [](const auto& v) { return fromWire(v); }),
                         a.attr_3());
                 })},
            {PTZCtrlRes, response<vms_sdk_proto::PTZCtrlRes>("ptz ctrl",
                                                             [](const auto& a, const Response& r) {
                                                                 Q_EMIT out()->signalPTZCtrlRes(
                                                                     r, PTZOperation(a.operation()),
                                                                     PTZAction(a.action()));
                                                             })},
            {GetPresetRes, response<vms_sdk_proto::GetPresetRes>(
                               "get presets",
                               [](const auto& a, const Response& r) {
                                   Q_EMIT out()->signalGetPresetsRes(
                                       r, mapFromWire(a.presets(),
                                                      [](const auto& v) { return fromWire(v); }));
                               })},
            {PresetOperRes, response<vms_sdk_proto::PresetOperRes>(
                                "operate preset",
                                [](const auto& a, const Response& r) {
                                    Q_EMIT out()->signalOperPresetsRes(r, PresetOper(a.oper()));
                                })},
            {GetPatrolRes, response<vms_sdk_proto::GetPatrolRes>(
                               "get patrols",
                               [](const auto& a, const Response& r) {
                                   Q_EMIT out()->signalGetPatrolsRes(
                                       r, mapFromWire(a.patrols(),
                                                      [](const auto& v) { return fromWire(v); }));
                               },
                               {.parseFailure = "parse[dgw response get patrols] failure"})},
            {PatrolOperRes, response<vms_sdk_proto::PatrolOperRes>(
                                "operate patrol",
                                [](const auto& a, const Response& r) {
                                    Q_EMIT out()->signalOperPatrolRes(r, PatrolOper(a.oper()));
                                })},
            {PatrolPresetOperRes, response<vms_sdk_proto::PatrolPresetOperRes>(
                                      "operate patrol presets",
                                      [](const auto& a, const Response& r) {
                                          Q_EMIT out()->signalOperPatrolPresetRes(
                                              r, PatrolPresetOper(a.oper()));
                                      })},
            {SetPatrolPresetsRes,
             response<vms_sdk_proto::Response>("set patrol presets",
                                               [](const auto&, const Response& r) {
                                                   Q_EMIT out()->signalSetPatrolPresetsRes(r);
                                               })},
            {DevConfigRes,
             response<vms_sdk_proto::Response>(
                 "device configuration",
                 [](const auto&, const Response& r) { Q_EMIT out()->signalDevConfigRes(r); },
                 {.timeoutWords = "device configration"})},
            {AddFaceRes, response<vms_sdk_proto::Response>("add face",
                                                           [](const auto&, const Response& r) {
                                                               Q_EMIT out()->signalAddFaceRes(r);
                                                           })},
            {GetFacesRes,
             response<vms_sdk_proto::GetFacesRes>("get faces",
                                                  [](const auto& a, const Response& r) {
                                                      const FaceInfoList faces =
                                                          mapFromWire(a.faces(), [](const auto& v) {
                                                              return fromWire(v);
                                                          });
                                                      Q_EMIT out()->signalGetFacesRes(
                                                          r, faces, a.attr_4(),
                                                          unsigned(faces.size()));
                                                  })},
            {DelFaceRes,
             response<vms_sdk_proto::Response>(
                 "delete face",
                 [](const auto&, const Response& r) { Q_EMIT out()->signalDelFaceRes(r); },
                 {.parseFailure = "parse [dgw response delele face] failure"})},
            {GetFaceDetectRecordsRes,
             response<
                 vms_sdk_proto::GetFaceDetectRecordsRes>("get face records",
                                                         [](const auto& a, const Response& r) {
                                                             Q_EMIT out()
                                                                 ->signalGetFaceDetectRecordsRes(
                                                                     r,
                                                                     mapFromWire(
                                                                         a.records(),
                                                                         [](const auto& v) {
                                                                             return fromWire(v);
                                                                         }),
                                                                     a.attr_4());
                                                         },
                                                         {.timeoutWords =
                                                              "get face detect records"})},
            {CheckDevUpgradeRes, response<vms_sdk_proto::DevUpgradeRes>(
                                     "check device upgrade information",
                                     [](const auto& a, const Response& r) {
                                         Q_EMIT out()->signalCheckDevUpgradeRes(r, fromWire(a));
                                     })},
            {UploadUpgradeFileFinishedPush,
             textPush("upload upgrade file finished",
                      [](const QString& devId) {
                          Q_EMIT out()->signalUploadUpgradeFileFinished(devId);
                      })},
            {GetDevUpgradeProgressRes, response<vms_sdk_proto::DevUpgradeRes>(
                                           "get device upgrade progress",
                                           [](const auto& a, const Response& r) {
                                               Q_EMIT out()->signalGetDevUpgradeProgressRes(
                                                   r, fromWire(a));
                                           })},
            {ModifyDevAccountRes,
             response<vms_sdk_proto::Response>("modify device account",
                                               [](const auto&, const Response& r) {
                                                   Q_EMIT out()->signalModifyDevAccountRes(r);
                                               })},
            {DevSecretQuestionsGetRes,
             answer<
                 vms_sdk_proto::DevSecretQuestionsGetRes>("get device secret questions",
                                                          [](const auto& a) {
                                                              Q_EMIT out()
                                                                  ->signalGetDevSecretQuestionsRes(
                                                                      text(a.dev_sn()), a.result(),
                                                                      texts(a.questions()));
                                                          })},
            {ResetDevPwdRes,
             answer<vms_sdk_proto::ResetDevPwdRes>("reset device password",
                                                   [](const auto& a) {
                                                       Q_EMIT out()->signalResetDevPwdRes(
                                                           text(a.dev_sn()), a.result());
                                                   })},
            {TalkOperRes, response<vms_sdk_proto::Response>("talk operation",
                                                            [](const auto&, const Response& r) {
                                                                Q_EMIT out()->signalTalkOperRes(r);
                                                            },
                                                            {.timeoutWords = "talk operration"})},
            {SpeakOperRes, response<vms_sdk_proto::Response>("speak operation",
                                                             [](const auto&, const Response& r) {
                                                                 Q_EMIT out()->signalSpeakOperRes(
                                                                     r);
                                                             },
                                                             {.timeoutWords = "speak operration"})},
            {TalkEventPush,
             push<vms_sdk_proto::TalkEventPush>("talk event",
                                                [](MessageHamal&, const auto& p) {
                                                    Q_EMIT out()->signalTalkEventPush(
                                                        channelPair(p.channel_id()),
                                                        TalkEvent(p.event()));
                                                    return std::string();
                                                })},
            {SpeakEventPush, push<vms_sdk_proto::TalkEventPush>("speak event",
                                                                [](MessageHamal&, const auto& p) {
                                                                    Q_EMIT out()
                                                                        ->signalSpeakEventPush(
                                                                            channelPair(
                                                                                p.channel_id()),
                                                                            TalkEvent(p.event()));
                                                                    return std::string();
                                                                })},
            {CommonRes, commonResponse()},
            {FileTransferProgressPush,
             push<vms_sdk_proto::FileTransferProgress>("file transfer progress",
                                                       [](MessageHamal&, const auto& p) {
                                                           Q_EMIT out()
                                                               ->signalPushFileTransferProgress(
                                                                   fromWire(p));
                                                           return std::string();
                                                       })},
        };
        return routes;
    }
};

void MessageHamal::slotMessageComing(MessageType msgType, const QByteArray& message)
{
    const auto& routes = IncomingRoutes::table();
    const auto route = routes.constFind(int(msgType));
    if (route != routes.constEnd())
        (*route)(*this, message);
}

QList<int> MessageHamal::handledMessageTypes()
{
    QList<int> types = IncomingRoutes::table().keys();
    std::sort(types.begin(), types.end());
    return types;
}

} // namespace vms_sdk
