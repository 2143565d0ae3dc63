// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Every request of the public interface, sent by name against the simulator, ends exactly once:
// on the signal the catalogue names for it, a failure or a time-out. The expected signals are
// written out here, apart from the catalogue, so that a wrong row there fails.
#include "support/signal_recorder.h"
#include "support/test_support.h"

#include <vms_sdk/pending_request.h>
#include <vms_sdk/vms_client_sdk.h>

#include "vms_sdk/request/message_hamal.h"
#include "vms_sdk/request/request_mgr.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace vms_sdk;

namespace {

struct EndRow
{
    // The request's name, and after a blank what sets the row apart.
    const char* row;
    // What the request needs besides its id and its device or channel (cam-1, channel 1).
    QVariantMap arguments;
    // The signal that ends it; empty for a request nothing answers.
    const char* endsOn;
};

// clang-format off
const QList<EndRow> Rows = {
        {"add_bullet_tag_point_req", {}, "signalAddBulletTagPointRes"},
        {"add_face_groups_req", {{"package", "face_app"}}, "signalAddFaceGroupsRes"},
        {"add_face_req", {{"name", "Ann"}}, "signalAddFaceRes"},
        {"add_face_req (application)", {{"name", "Ann"}, {"package", "face_app"}}, "signalAddFaceRes"},
        {"calibrate_bullet_dome_req", {}, "signalCalibrateBulletDomeRes"},
        {"cancel_alarm_req", {}, "signalCancelAlarmRes"},
        {"check_dev_upgrade_req", {}, "signalCheckDevUpgradeRes"},
        {"clear_bullet_tag_points_req", {}, "signalClearBulletTagPointsRes"},
        {"common_req", {{"reqJson", R"({"method": "dev_get_qrcode"})"}}, "signalCommonRes"},
        {"ctrl_parking_lock_req", {{"package", "face_app"}}, "signalCtrlParkingLockRes"},
        {"del_face_req", {}, "signalDelFaceRes"},
        {"del_faces_req", {{"package", "face_app"}}, "signalDelFaceRes"},
        {"delete_face_groups_req", {{"package", "face_app"}}, "signalDeleteFaceGroupsRes"},
        {"edit_face_groups_req", {{"package", "face_app"}}, "signalEditFaceGroupsRes"},
        {"edit_face_req", {{"package", "face_app"}}, "signalEditFaceRes"},
        {"export_face_library_progress_req", {{"package", "face_app"}}, "signalExportFaceLibraryProgressRes"},
        {"export_face_library_req", {{"package", "face_app"}}, "signalExportFaceLibraryRes"},
        {"format_dev_disk_req", {}, "signalFormatDevDiskRes"},
        {"get_alarm_records_req", {}, "signalGetAlarmRecordsRes"},
        {"get_all_face_groups_req", {{"package", "face_app"}}, "signalGetAllFaceGroupsRes"},
        {"get_bullet_dome_calibrate_status_req", {}, "signalGetBulletDomeCalibrateStatusRes"},
        {"get_bullet_tag_points_req", {}, "signalGetBulletTagPointsRes"},
        {"get_chann_image_ability_req", {}, "signalGetChannImageAbilityRes"},
        {"get_chann_image_adjust_settings_req", {}, "signalGetChannImageAdjustSettingsRes"},
        {"get_chann_image_settings_req", {}, "signalCommonRequestFailed"},
        {"get_customer_group_req", {{"package", "face_app"}}, "signalGetCustomerGroupRes"},
        {"get_customers_count_req", {}, "signalGetCustomersCountRes"},
        {"get_customers_heat_map_req", {}, "signalGetCustomersHeatMapRes"},
        {"get_customers_region_attention_req", {}, "signalGetCustomersRegionAttentionRes"},
        {"get_customers_regions_req", {}, "signalGetCustomersRegionsRes"},
        {"get_dev_disk_formatting_progress_req", {}, "signalGetDevDiskFormattingProgressRes"},
        {"get_dev_disks_info_req", {}, "signalGetDevDisksInfoRes"},
        {"get_dev_logs_req", {{"date", "2024-03-01"}}, "signalGetDevLogsRes"},
        {"get_dev_net_mode_req", {}, "signalGetDevNetModeRes"},
        {"get_dev_net_req", {}, "signalGetDevNetRes"},
        {"get_dev_platform_req", {}, "signalGetDevPlatformRes"},
        {"get_dev_qrcode_req", {}, "signalGetDevQRCodeRes"},
        {"get_dev_sys_cfg_req", {}, "signalCommonRequestFailed"},
        {"get_dev_upgrade_progress_req", {}, "signalGetDevUpgradeProgressRes"},
        {"get_event_records_req", {}, "signalGetEventRecordsRes"},
        {"get_face_detect_records_req", {}, "signalGetFaceDetectRecordsRes"},
        {"get_face_rec_records_req", {{"package", "face_app"}}, "signalGetFaceRecRecordsRes"},
        {"get_face_rec_records_req (captures)", {{"package", "face_app"}, {"captureRecords", true}}, "signalGetFaceRecRecordsRes"},
        {"get_faces_modeling_status_req", {{"package", "face_app"}}, "signalGetFacesModelingStatusRes"},
        {"get_faces_req", {}, "signalGetFacesRes"},
        {"get_faces_req (application)", {{"package", "face_app"}}, "signalGetFacesRes"},
        {"get_license_plate_rec_records_req", {}, "signalGetLicensePlateRecRecordsRes"},
        {"get_parking_lock_status_req", {{"package", "face_app"}}, "signalGetParkingLockStatusRes"},
        {"get_patrols_req", {}, "signalGetPatrolsRes"},
        {"get_presets_req", {}, "signalGetPresetsRes"},
        {"get_ptz_ability_req", {}, "signalGetPTZAbilityRes"},
        {"get_region_temperature_records_req", {}, "signalGetRegionTemperatureRecordsRes"},
        {"get_rtsp_url_req", {}, "signalGetRtspUrlRes"},
        {"get_snap_image_req", {}, "signalGetSnapImageRes"},
        {"get_triggered_events_req", {}, "signalGetTriggeredEventsRes"},
        {"get_video_recordings_calendar_mask_req", {{"startDate", "2024-03-01"}, {"endDate", "2024-03-31"}}, "signalGetVideoRecordingsCalendarMaskRes"},
        {"import_dev_cert_req", {}, "signalImportDevCertRes"},
        {"import_face_library_progress_req", {{"package", "face_app"}}, "signalImportFaceLibraryProgressRes"},
        {"import_face_library_req", {{"package", "face_app"}}, "signalImportFaceLibraryRes"},
        {"modify_dev_account_req", {}, "signalModifyDevAccountRes"},
        {"modify_dev_name_req", {{"devName", "hall"}}, "signalDevConfigRes"},
        {"oper_patrol_preset_req", {}, "signalOperPatrolPresetRes"},
        {"oper_patrol_req", {}, "signalOperPatrolRes"},
        {"oper_preset_req", {}, "signalOperPresetsRes"},
        {"PTZ_auto_move_req", {}, "signalPTZAutoMoveRes"},
        {"PTZ_ctrl_req", {}, "signalPTZCtrlRes"},
        {"search_video_recordings_req", {}, "signalSearchVideoRecordingsRes"},
        {"set_chann_image_adjust_settings_req", {}, "signalSetChannImageAdjustSettingsRes"},
        {"set_dev_net_req", {}, "signalSetDevNetRes"},
        {"set_dev_platform_req", {}, "signalSetDevPlatformRes"},
        {"set_dome_track_guard_initial_pos_req", {}, "signalSetDomeTrackGuardInitialPosRes"},
        {"set_osd_req", {}, "signalDevConfigRes"},
        {"set_patrol_presets_req", {}, "signalSetPatrolPresetsRes"},
        {"speak_oper_req", {}, "signalSpeakOperRes"},
        {"talk_oper_req", {}, "signalTalkOperRes"},
        {"trigger_alarm_link_req", {}, "signalTriggerAlarmLinkRes"},
        {"get_dev_platform_kvr_req", {}, "signalGetDevPlatform_kvrRes"},
        {"set_dev_platform_kvr_req", {}, "signalSetDevPlatform_kvrRes"},
    {"connect_live_video_req", {}, "signalStreamData"},
    {"playback_by_file_req", {{"fileName", "rec-1.mp4"}}, "signalStreamData"},
    {"playback_by_time_req", {{"startTime", "2024-03-01T10:00:00"}}, "signalStreamData"},
    {"upload_file_req", {{"fileName", "firmware.bin"}}, "signalPushFileTransferProgress"},
    {"download_file_req", {{"srcFileName", "log.txt"}, {"desFileName", "log.txt"}}, "signalPushFileTransferProgress"},
    {"download_speed_set_req", {{"speed", "2"}}, ""},
    {"disconnect_stream_req", {}, ""},
    {"open_dev_remote_config_req", {}, ""},
    {"playback_ctrl_req", {}, ""},
    {"playback_speed_set_req", {{"speed", "2"}}, ""},
    {"skip_by_appointed_time_req", {{"appointedTime", "2024-03-01T10:00:00"}}, ""},
    {"skip_by_offset_time_req", {}, ""},
};
// clang-format on
// Sent once by every case, to start the gateways.
const EndRow StartRow{"prepare_start_dgw_req", {}, "signalPrepareStartDgwSuccess"};

QString requestOf(const EndRow& row)
{
    return QString::fromLatin1(row.row).section(QLatin1Char(' '), 0, 0);
}

// The row's arguments with its id and address, in the shape the request takes.
QVariantMap argumentsOf(const EndRow& row, const QString& requestId)
{
    QVariantMap arguments = row.arguments;
    for (const RequestParameter& parameter : find_request(requestOf(row))->parameters) {
        if (parameter.name == QLatin1String("requestId"))
            arguments.insert(parameter.name, requestId);
        else if (parameter.name == QLatin1String("devId"))
            arguments.insert(parameter.name, QStringLiteral("cam-1"));
        else if (parameter.name == QLatin1String("channelId"))
            arguments.insert(parameter.name, QVariantMap{{"devId", "cam-1"}, {"channelIndex", 1}});
    }
    return arguments;
}

class RequestEndsTest : public ::testing::Test
{
protected:
    // The simulator, three devices managed; `faults` goes into its config.
    void start(const QByteArray& faults = "{}")
    {
        const QString config = vms_test::tempDir() + QStringLiteral("/request_ends.json");
        QFile file(config);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(R"({"idleExitMs": 10000, "fileTransferMs": 200, "faults": )" + faults + "}");
        file.close();
        qputenv("VMS_DGW_SIM_CONFIG", config.toUtf8());

        init_vms_client_sdk();
        // Short enough that a request nobody answers ends within the test.
        MessageHamal::instance()->requestMgr()->setTimeoutInterval(3000);
        QString error;
        PendingRequest* ready =
            send_request(requestOf(StartRow),
                         {{"dgwPath", QStringLiteral(VMS_DGW_SIM_PATH)}, {"devsCnt", 3}}, &error);
        ASSERT_NE(ready, nullptr) << error.toStdString();
        QSignalSpy started(ready, &PendingRequest::finished);
        ASSERT_TRUE(started.wait(20000));
        QSignalSpy status(ClientSignals::instance(), &ClientSignals::signalDevStatusPush);
        set_managed_devs_cmd({DevInfo{.id = QStringLiteral("cam-1")},
                              DevInfo{.id = QStringLiteral("cam-2")},
                              DevInfo{.id = QStringLiteral("nvr-1")}});
        ASSERT_TRUE(vms_test::waitFor([&] { return status.count() >= 3; }, 10000));
    }
    void TearDown() override
    {
        MessageHamal::instance()->requestMgr()->setTimeoutInterval(RequestMgr::DefaultTimeoutMs);
        release_vms_client_sdk();
    }
};

// A request missing from the rows, or from the catalogue, would go untested below.
TEST(RequestCatalogue, HoldsEveryRequestFunctionOfThePublicHeaderOnce)
{
    QFile header(QStringLiteral(VMS_PUBLIC_HEADER));
    ASSERT_TRUE(header.open(QIODevice::ReadOnly));
    QSet<QString> declared;
    const QRegularExpression function(QStringLiteral(R"(\b(\w+_req)\()"));
    for (auto matches = function.globalMatch(QString::fromUtf8(header.readAll()));
         matches.hasNext();)
        declared.insert(matches.next().captured(1));

    QSet<QString> rows{requestOf(StartRow)};
    for (const EndRow& row : Rows)
        rows.insert(requestOf(row));
    EXPECT_EQ(rows, declared);
    QSet<QString> catalogued;
    for (const RequestEntry& entry : request_catalogue())
        catalogued.insert(entry.name);
    EXPECT_EQ(catalogued, declared);
    EXPECT_EQ(request_catalogue().size(), declared.size());
}

TEST_F(RequestEndsTest, EveryRequestEndsExactlyOnceOnItsSignal)
{
    start();
    vms_test::SignalRecorder recorder;
    // The pending requests delete themselves once finished: their ids are kept here.
    QStringList ids;
    std::vector<std::unique_ptr<QSignalSpy>> finished;
    for (int i = 0; i < Rows.size(); ++i) {
        SCOPED_TRACE(Rows[i].row);
        QString error;
        PendingRequest* pending = send_request(
            requestOf(Rows[i]), argumentsOf(Rows[i], QStringLiteral("ends-%1").arg(i)), &error);
        ASSERT_NE(pending, nullptr) << error.toStdString();
        ids.append(pending->requestId());
        finished.push_back(std::make_unique<QSignalSpy>(pending, &PendingRequest::finished));
    }

    for (int i = 0; i < Rows.size(); ++i) {
        SCOPED_TRACE(Rows[i].row);
        ASSERT_TRUE(vms_test::waitFor([&] { return !finished[i]->isEmpty(); }, 10000));
        // Nothing left that could end it a second time: no deadline is running...
        EXPECT_TRUE(MessageHamal::instance()->requestMgr()->kinds(ids[i]).isEmpty());
    }
    // ... and the gateway, which answers in order, has nothing more for them.
    QSignalSpy last(ClientSignals::instance(), &ClientSignals::signalGetDevNetRes);
    get_dev_net_req({.requestId = QStringLiteral("last"), .devId = QStringLiteral("cam-1")});
    ASSERT_TRUE(last.wait(10000));

    for (int i = 0; i < Rows.size(); ++i) {
        const EndRow& row = Rows[i];
        SCOPED_TRACE(row.row);
        ASSERT_EQ(finished[i]->count(), 1);
        const auto outcome = finished[i]->first().first().value<RequestOutcome>();
        const QString endsOn = QString::fromLatin1(row.endsOn);
        if (endsOn == QLatin1String("signalCommonRequestFailed")) {
            EXPECT_EQ(outcome.end, RequestFailed);
        } else {
            EXPECT_EQ(outcome.end, RequestAnswered);
        }
        // The requests whose answers name their id: the signal the library emitted for it.
        if (ids[i].startsWith(QLatin1String("ends-")) && !endsOn.isEmpty() &&
            !endsOn.startsWith(QLatin1String("signalPush"))) {
            EXPECT_EQ(recorder.endingsOf(ids[i]), QStringList{endsOn});
        }
    }
}

TEST_F(RequestEndsTest, ARequestNobodyAnswersTimesOutOnceWithItsValue)
{
    start(R"({"ignoreTypes": [20]})");
    PendingRequest* pending =
        send<&get_dev_net_req>(DeviceCondition{.devId = QStringLiteral("cam-1")});
    add_request_value(pending->requestId(), QStringLiteral("kept"));
    QSignalSpy finished(pending, &PendingRequest::finished);
    QSignalSpy destroyed(pending, &QObject::destroyed);
    ASSERT_TRUE(destroyed.wait(10000));
    ASSERT_EQ(finished.count(), 1);
    const auto outcome = finished.first().first().value<RequestOutcome>();
    EXPECT_EQ(outcome.end, RequestTimedOut);
    EXPECT_EQ(outcome.requestValue, QVariant(QStringLiteral("kept")));
}

TEST_F(RequestEndsTest, RequestsOutstandingAtReleaseEndAsReleasedAndNothingElse)
{
    start();
    const QList<PendingRequest*> pending = {
        send<&get_presets_req>(
            ChannelCondition{.channelId = {.devId = QStringLiteral("cam-1"), .channelIndex = 1}}),
        send<&get_dev_net_req>(DeviceCondition{.devId = QStringLiteral("cam-1")}),
    };
    std::vector<std::unique_ptr<QSignalSpy>> finished;
    for (PendingRequest* request : pending)
        finished.push_back(std::make_unique<QSignalSpy>(request, &PendingRequest::finished));
    const QString lateId = pending[1]->requestId();
    QSignalSpy destroyed(pending[1], &QObject::destroyed);
    release_vms_client_sdk();
    // An answer that comes after all the same finds nothing left to end.
    Q_EMIT ClientSignals::instance()->signalGetDevNetRes(Response{.requestId = lateId}, {});
    ASSERT_TRUE(destroyed.wait(2000));
    for (const auto& spy : finished) {
        ASSERT_EQ(spy->count(), 1);
        EXPECT_EQ(spy->first().first().value<RequestOutcome>().end, RequestReleased);
    }
}

} // namespace
