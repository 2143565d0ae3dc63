// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/json_methods/common_res_worker.h"

#include "vms_sdk/client/message_signals.h"
#include "vms_sdk/client/sdk_log.h"
#include "vms_sdk/json_methods/answer_fields.h"
#include "vms_sdk/json_methods/answer_records.h"
#include "vms_sdk/request/request_data.h"
#include "vms_sdk/request/request_mgr.h"

#include <QJsonDocument>
#include <QJsonParseError>
#include <QTimer>

#include <algorithm>
#include <span>

namespace vms_sdk {

using namespace json_methods;

namespace {

ClientSignals* out()
{
    return ClientSignals::instance();
}

// A key of an answer document, as a template argument of the frames below.
template<std::size_t N>
struct Key
{
    char text[N];
    constexpr Key(const char (&key)[N]) { std::copy_n(key, N, text); }
    QLatin1String latin1() const { return QLatin1String(text, int(N - 1)); }
};

// One answer document, read as far as every parser reads it.
struct Answer
{
    QString requestId{};
    Response response{};
    QJsonObject result{}; // empty when the device reports an error

    bool ok() const { return response.errCode == 0; }
    QJsonValue operator[](QLatin1String key) const { return result.value(key); }
    template<std::size_t N>
    QJsonValue operator[](const char (&key)[N]) const
    {
        return result.value(QLatin1String(key, int(N - 1)));
    }
};

// A device that reports an error may still send a "result"; it is not read, so every parser
// hands on its empty or default result without a test of its own.
Answer answerOf(const QString& requestId, const QJsonObject& document)
{
    const QJsonObject error = document.value(QLatin1String("error")).toObject();
    Answer answer{.requestId = requestId, .response = Response{.requestId = requestId}};
    readValue(error.value(QLatin1String("errorcode")), answer.response.errCode);
    readValue(error.value(QLatin1String("message")), answer.response.errMsg);
    if (answer.ok())
        answer.result = document.value(QLatin1String("result")).toObject();
    return answer;
}

} // namespace

struct AnswerParsers
{
    using Parser = void (*)(CommonResWorker&, const Answer&);

    // One method: the name its answer carries and the parser that turns it into its signal.
    struct Row
    {
        const char* method;
        Parser parse;
    };

    // --- The frames: what most methods share. ---

    // Methods that return no data.
    template<auto Signal>
    static void responseOnly(CommonResWorker&, const Answer& a)
    {
        Q_EMIT(out()->*Signal)(a.response);
    }

    // One record read from "result".
    template<auto Signal, auto Read>
    static void record(CommonResWorker&, const Answer& a)
    {
        Q_EMIT(out()->*Signal)(a.response, Read(a.result));
    }

    // A list of records from the array "result".ListKey.
    template<auto Signal, Key ListKey, auto ReadItem>
    static void records(CommonResWorker&, const Answer& a)
    {
        Q_EMIT(out()->*Signal)(a.response, listOf(a[ListKey.latin1()], ReadItem));
    }

    // A page of face records: the list, then the page number and the total count.
    template<Key ListKey, auto ReadItem, Key TotalKey>
    static void faceRecordsPage(CommonResWorker&, const Answer& a)
    {
        Q_EMIT out()->signalGetFaceRecRecordsRes(a.response, listOf(a[ListKey.latin1()], ReadItem),
                                                 a["page_num"].toInt(),
                                                 a[TotalKey.latin1()].toInt());
    }

    // --- The methods whose answers need more. ---

    // The answer does not repeat the dates: they count from the start date of the request.
    static void calendarMask(CommonResWorker&, const Answer& a)
    {
        const auto condition =
            RequestData::instance()->condition<GetCalendarMaskCondition>(a.requestId, true);
        Q_EMIT out()->signalGetVideoRecordingsCalendarMaskRes(
            a.response, answers::recordedDates(a["date_list"].toArray(), condition.startDate));
    }

    static void temperatureRecords(CommonResWorker&, const Answer& a)
    {
        Q_EMIT out()->signalGetRegionTemperatureRecordsRes(
            a.response, listOf(a["temper_records"], answers::temperatureRecordItem),
            a["total_cnt"].toInt());
    }

    static void alarmRecords(CommonResWorker&, const Answer& a)
    {
        const auto condition =
            RequestData::instance()->condition<GetAlarmRecordsCondition>(a.requestId, true);
        const auto read = [&](const QJsonObject& item) {
            return answers::alarmRecordItem(item, condition.channelId, condition.alarmType);
        };
        Q_EMIT out()->signalGetAlarmRecordsRes(a.response, listOf(a["info_list"], read),
                                               a["total_cnt"].toInt());
    }

    // Event records come a page at a time; the application gets them all at once.
    static void eventRecords(CommonResWorker& worker, const Answer& a)
    {
        if (!a.ok()) {
            endEventCollection(worker, a.requestId);
            Q_EMIT out()->signalGetEventRecordsRes(a.response, EventMap{});
            return;
        }
        CommonResWorker::EventCollection& collection = worker.m_eventCollections[a.requestId];
        const EventList page = listOf(a["eventList"], answers::eventItem);
        for (const EventInfo& event : page)
            collection.events[event.type].append(event);
        collection.collected += page.size();
        const int total = std::max(0, a["eventCount"].toInt());
        if (!page.isEmpty() && collection.collected < total) {
            const QString requestId = a.requestId;
            const int next = ++collection.page;
            QTimer::singleShot(worker.m_nextPageDelayMs, &worker, [requestId, next] {
                Q_EMIT MessageSignals::instance()->signalGetOtherEventRecordsReq(requestId, next);
            });
            return;
        }
        const EventMap events = collection.events;
        endEventCollection(worker, a.requestId);
        Q_EMIT out()->signalGetEventRecordsRes(a.response, events);
    }

    static void endEventCollection(CommonResWorker& worker, const QString& requestId)
    {
        worker.m_eventCollections.remove(requestId);
        RequestData::instance()->condition<GetEventRecordsCondition>(requestId, true);
    }

    static void plateRecords(CommonResWorker&, const Answer& a)
    {
        Q_EMIT out()->signalGetLicensePlateRecRecordsRes(
            a.response, listOf(a["result_list"], answers::plateRecordItem), a["total_cnt"].toInt(),
            a["pageNum"].toInt());
    }

    // The picture stays the Base64 text the device sent.
    static QByteArray snapData(const QJsonObject& result)
    {
        return result.value(QLatin1String("data")).toString().toUtf8();
    }

    static QString qrCode(const QJsonObject& result)
    {
        return result.value(QLatin1String("sn_verificationcode")).toString();
    }

    // The alarm is what the application attached to the request; it keeps it until it takes
    // it itself.
    static void cancelAlarm(CommonResWorker& worker, const Answer& a)
    {
        Q_EMIT out()->signalCancelAlarmRes(
            a.response, worker.m_registry->value(a.requestId, false).value<AlarmInfo>());
    }

    static void netMode(CommonResWorker&, const Answer& a)
    {
        Q_EMIT out()->signalGetDevNetModeRes(a.response, a.ok() ? answers::netMode(a.result) : -1);
    }

    static void formattingProgress(CommonResWorker&, const Answer& a)
    {
        int progress = 0;
        bool finished = false;
        readValue(a["progress"], progress);
        readValue(a["finished"], finished);
        Q_EMIT out()->signalGetDevDiskFormattingProgressRes(
            a.response, progress, finished, a["status"].toString() == QLatin1String("normal"));
    }

    static void libraryFaces(CommonResWorker&, const Answer& a)
    {
        const FaceInfoList faces = listOf(a["list"], answers::libraryFaceItem);
        Q_EMIT out()->signalGetFacesRes(a.response, faces, unsigned(a["total_size"].toInt()),
                                        unsigned(faces.size()));
    }

    static void exportProgress(CommonResWorker&, const Answer& a)
    {
        Q_EMIT out()->signalExportFaceLibraryProgressRes(a.response, a["progress"].toInt(),
                                                         a["filename"].toString());
    }

    // The wrapper of a device application's answer.
    static void transparent(CommonResWorker& worker, const Answer& a)
    {
        if (!a.ok())
            return worker.fail(a.requestId, a.response.errCode);
        const QByteArray decoded = QByteArray::fromBase64(a["resp_data"].toString().toUtf8());
        QJsonParseError error{};
        QJsonDocument document = QJsonDocument::fromJson(decoded, &error);
        // Device applications have been seen to cut multi-byte characters in half.
        if (error.error == QJsonParseError::IllegalUTF8String)
            document = QJsonDocument::fromJson(QString::fromUtf8(decoded).toUtf8(), &error);
        if (error.error != QJsonParseError::NoError || !document.isObject()) {
            worker.fail(a.requestId, CommonResWorker::NotJsonObject);
            log::error(QStringLiteral("parse [pvu transparent common resp data] failure:%1")
                           .arg(QString::fromUtf8(decoded)));
            return;
        }
        if (!dispatch(AppMethods, worker, a.requestId, document.object())) {
            worker.fail(a.requestId, CommonResWorker::MethodNotSupported);
            log::error(QStringLiteral("pvu method is not supported:"));
        }
    }

    // The first row whose name equals the document's method, letter case included, parses it.
    static bool dispatch(std::span<const Row> table, CommonResWorker& worker,
                         const QString& requestId, const QJsonObject& document)
    {
        const QString method = document.value(QLatin1String("method")).toString();
        const auto row = std::find_if(table.begin(), table.end(), [&](const Row& r) {
            return method == QLatin1String(r.method);
        });
        if (row == table.end())
            return false;
        row->parse(worker, answerOf(requestId, document));
        return true;
    }

    using S = ClientSignals;

    // Plain answers, in the order they are looked up.
    // clang-format off
    static constexpr Row Methods[] = {
        {"get_record_date_list", calendarMask},
        {"alarm_temperature_get_history_list", temperatureRecords},
        {"alarm_info_list_get", alarmRecords},
        {"event_get_type_list", records<&S::signalGetTriggeredEventsRes, "eventTypeList", answers::eventTypeItem>},
        {"event_get_list", eventRecords},
        {"ivp_LPR_get_history", plateRecords},
        {"snap_file_get", record<&S::signalGetSnapImageRes, snapData>},
        {"intelligence_customer_count_get_history_list", records<&S::signalGetCustomersCountRes, "customer_count_list", answers::customersCountItem>},
        {"intelligence_regional_people_count_get_param", records<&S::signalGetCustomersRegionsRes, "regions", answers::customersRegionItem>},
        {"intelligence_regional_people_count_get_history_list", records<&S::signalGetCustomersRegionAttentionRes, "people_count_list", answers::regionAttentionItem>},
        {"ivp_hm_get_heatmap", record<&S::signalGetCustomersHeatMapRes, answers::heatMap>},
        {"image_get_adjust_param", record<&S::signalGetChannImageAdjustSettingsRes, answers::imageAdjustSettings>},
        {"image_set_adjust_param", responseOnly<&S::signalSetChannImageAdjustSettingsRes>},
        {"image_get_ability", record<&S::signalGetChannImageAbilityRes, answers::imageAbility>},
        {"dev_get_qrcode", record<&S::signalGetDevQRCodeRes, qrCode>},
        {"log_get", records<&S::signalGetDevLogsRes, "log_items", answers::logItem>},
        {"stream_get_params", records<&S::signalGetChannStreamSettingsRes, "streams", answers::streamSettingsItem>},
        {"ai_get_all_param", records<&S::signalGetAllAudioInChannsSettingsRes, "all", answers::audioSettingsItem>},
        {"ao_get_all_param", records<&S::signalGetAllAudioOutChannsSettingsRes, "all", answers::audioSettingsItem>},
        {"alarm_manual_cancel", cancelAlarm},
        {"alarm_link_trigger", responseOnly<&S::signalTriggerAlarmLinkRes>},
        {"gtrack_add_mark_point", responseOnly<&S::signalAddBulletTagPointRes>},
        {"gtrack_get_point_list", records<&S::signalGetBulletTagPointsRes, "list", answers::bulletTagPointItem>},
        {"gtrack_clear_point", responseOnly<&S::signalClearBulletTagPointsRes>},
        {"gtrack_set_calibration", responseOnly<&S::signalCalibrateBulletDomeRes>},
        {"gtrack_get_calibration", record<&S::signalGetBulletDomeCalibrateStatusRes, answers::calibrationStatus>},
        {"gtrack_set_guard", responseOnly<&S::signalSetDomeTrackGuardInitialPosRes>},
        {"ptz_ability_get", record<&S::signalGetPTZAbilityRes, answers::ptzAbility>},
        {"ptz_auto", responseOnly<&S::signalPTZAutoMoveRes>},
        {"ifconfig_get_inet", netMode},
        {"storage_get_info", records<&S::signalGetDevDisksInfoRes, "disk", answers::diskItem>},
        {"storage_format", responseOnly<&S::signalFormatDevDiskRes>},
        {"storage_format_get_progress", formattingProgress},
        {"dev_trans_userparam", transparent},
    };

    // Answers of device applications, unwrapped, in the order they are looked up.
    static constexpr Row AppMethods[] = {
        {"intelligence_face_count_get_history_list", records<&S::signalGetCustomerGroupRes, "face_count_list", answers::customerGroupItem>},
        {"intelligence_face_capture_get_history_list", faceRecordsPage<"face_capture_list", answers::faceCaptureItem, "total_cnt">},
        {"caplib_search", faceRecordsPage<"list", answers::faceRecognitionItem, "total_size">},
        {"get_ground_lock_list", records<&S::signalGetParkingLockStatusRes, "lock_list", answers::parkingLockItem>},
        {"ground_lock_control", responseOnly<&S::signalCtrlParkingLockRes>},
        {"group_search", records<&S::signalGetAllFaceGroupsRes, "groups", answers::faceGroupItem>},
        {"group_add", responseOnly<&S::signalAddFaceGroupsRes>},
        {"group_del", responseOnly<&S::signalDeleteFaceGroupsRes>},
        {"group_mod", responseOnly<&S::signalEditFaceGroupsRes>},
        {"rcglib_search", libraryFaces},
        {"rcglib_add", responseOnly<&S::signalAddFaceRes>},
        {"rcglib_mod", responseOnly<&S::signalEditFaceRes>},
        {"rcglib_del", responseOnly<&S::signalDelFaceRes>},
        {"rcglib_statistics", record<&S::signalGetFacesModelingStatusRes, answers::modelingStatus>},
        {"rcglib_import", responseOnly<&S::signalImportFaceLibraryRes>},
        {"rcglib_import_get_progress", record<&S::signalImportFaceLibraryProgressRes, answers::importProgress>},
        {"rcglib_export", responseOnly<&S::signalExportFaceLibraryRes>},
        {"rcglib_export_get_progress", exportProgress},
    };
    // clang-format on
};

CommonResWorker::CommonResWorker(RequestMgr* registry, QObject* parent, int nextPageDelayMs)
    : QObject(parent)
    , m_registry(registry)
    , m_nextPageDelayMs(nextPageDelayMs)
{
    // A query asked anew, or one whose page request timed out, starts from nothing.
    connect(MessageSignals::instance(), &MessageSignals::signalGetEventRecordsReq, this,
            [this](const GetEventRecordsCondition& c) { m_eventCollections.remove(c.requestId); });
    connect(ClientSignals::instance(), &ClientSignals::signalRequestTimeout, this,
            [this](const QString& requestId) { m_eventCollections.remove(requestId); });
}

void CommonResWorker::handleCommonRes(const QString& requestId, const QString& resJson)
{
    const QJsonDocument document = QJsonDocument::fromJson(resJson.toUtf8());
    if (!document.isObject()) {
        fail(requestId, NotJsonObject);
        log::error(QStringLiteral("parse [common response json data] failure:%1").arg(resJson));
        return;
    }
    log::trace(QStringLiteral("common res method:%1")
                   .arg(document.object().value(QLatin1String("method")).toString()));
    if (!AnswerParsers::dispatch(AnswerParsers::Methods, *this, requestId, document.object())) {
        fail(requestId, MethodNotSupported);
        // The name is left out of the line, as readers of the log have always found it.
        log::error(QStringLiteral("method is not supported:"));
    }
}

void CommonResWorker::parseImageSettings(const QString& requestId, const QJsonObject& answer)
{
    AnswerParsers::record<&ClientSignals::signalGetChannImageSettingsRes, answers::imageSettings>(
        *this, answerOf(requestId, answer));
}

void CommonResWorker::parseDevSysCfg(const QString& requestId, const QJsonObject& answer)
{
    AnswerParsers::record<&ClientSignals::signalGetDevSysCfgRes, answers::sysCfg>(
        *this, answerOf(requestId, answer));
}

bool CommonResWorker::collectingEvents(const QString& requestId) const
{
    return m_eventCollections.contains(requestId);
}

void CommonResWorker::fail(const QString& requestId, int code)
{
    m_eventCollections.remove(requestId);
    Q_EMIT out()->signalCommonRequestFailed(requestId, code);
}

} // namespace vms_sdk
