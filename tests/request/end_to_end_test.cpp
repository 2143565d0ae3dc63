// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Every request that travels as a gateway message, from the exported function to the
// simulator and back to the application as its result signal, with the simulator's data.
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_sdk/request/message_hamal.h"
#include "vms_sdk/request/request_mgr.h"

#include <QFile>
#include <QMetaMethod>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>

using namespace vms_sdk;

namespace {

const ChannelId cam1{.devId = QStringLiteral("cam-1"), .channelIndex = 1};
const ChannelId cam2{.devId = QStringLiteral("cam-2"), .channelIndex = 1};

// Every emission of every ClientSignals signal, kept by signal name.
class Recorder
{
public:
    Recorder()
    {
        const QMetaObject& meta = ClientSignals::staticMetaObject;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            const QMetaMethod method = meta.method(i);
            if (method.methodType() == QMetaMethod::Signal)
                m_spies.emplace(QString::fromLatin1(method.name()),
                                std::make_unique<QSignalSpy>(ClientSignals::instance(), method));
        }
    }

    // Waits for an emission of `signal` whose first argument is `key`: the request id of its
    // Response, or the device id or serial number it names.
    QVariantList waitFor(const QString& signal, const QString& key, int timeoutMs = 10000)
    {
        QVariantList found;
        vms_test::waitFor(
            [&] {
                const QSignalSpy& spy = *m_spies.at(signal);
                for (const QVariantList& args : spy) {
                    const QVariant first = args.value(0);
                    const QString id =
                        first.canConvert<Response>() && first.userType() != QMetaType::QString
                            ? first.value<Response>().requestId
                            : first.toString();
                    if (id == key) {
                        found = args;
                        return true;
                    }
                }
                return false;
            },
            timeoutMs);
        return found;
    }

private:
    std::map<QString, std::unique_ptr<QSignalSpy>> m_spies;
};

void writeConfig(const QByteArray& json)
{
    const QString path = vms_test::tempDir() + QStringLiteral("/e2e.json");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(json);
    qputenv("VMS_DGW_SIM_CONFIG", path.toUtf8());
}

class EndToEndTest : public ::testing::Test
{
protected:
    // The simulator's own network, managed; `faults` goes into its config.
    void start(const QByteArray& faults = "{}")
    {
        writeConfig(R"({"idleExitMs": 10000, "rebootMs": 50, "upgradeMs": 200,
                        "fileTransferMs": 100, "faults": )" +
                    faults + "}");
        init_vms_client_sdk();
        recorder = std::make_unique<Recorder>();
        QSignalSpy ready(ClientSignals::instance(), &ClientSignals::signalPrepareStartDgwSuccess);
        prepare_start_dgw_req(InitDgwCondition{}, QStringLiteral(VMS_DGW_SIM_PATH), 3);
        ASSERT_TRUE(vms_test::waitFor([&] { return ready.count() == 1; }, 20000));
        set_managed_devs_cmd({DevInfo{.id = QStringLiteral("cam-1")},
                              DevInfo{.id = QStringLiteral("cam-2")},
                              DevInfo{.id = QStringLiteral("nvr-1")}});
        // The devices are managed once the gateway has said so.
        ASSERT_FALSE(
            recorder->waitFor(QStringLiteral("signalDevStatusPush"), QStringLiteral("nvr-1"))
                .isEmpty());
    }
    void TearDown() override { release_vms_client_sdk(); }

    std::unique_ptr<Recorder> recorder;
};

Response responseOf(const QVariantList& args)
{
    return args.value(0).value<Response>();
}

TEST_F(EndToEndTest, EveryGatewayRequestComesBackAsItsSignal)
{
    start();
    struct Row
    {
        const char* signal;
        QString key;
        std::function<void()> call;
        std::function<void(const QVariantList&)> check;
    };
    auto ok = [](const QVariantList& args) { EXPECT_EQ(responseOf(args).errCode, 0); };
    const QString today = QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd"));
    const QList<Row> rows{
        {"signalGetDevNetRes", "net",
         [] { get_dev_net_req({.requestId = "net", .devId = "cam-1"}); },
         [](const QVariantList& args) {
             EXPECT_EQ(responseOf(args).errCode, 0);
             EXPECT_EQ(args[1].value<DevNetInfo>().ip, "192.168.1.64");
         }},
        {"signalSetDevNetRes", "setnet",
         [] {
             set_dev_net_req({.requestId = "setnet",
                              .devId = "cam-2",
                              .ip = "192.168.1.99",
                              .subNetMask = "255.255.255.0",
                              .defaultGateway = "192.168.1.1"});
         },
         [](const QVariantList& args) {
             EXPECT_EQ(responseOf(args).errCode, 0);
             EXPECT_EQ(args[2].toString(), "192.168.1.99");
         }},
        {"signalGetDevPlatformRes", "plat",
         [] { get_dev_platform_req({.requestId = "plat", .devId = "cam-1"}); }, ok},
        {"signalSetDevPlatformRes", "setplat",
         [] {
             set_dev_platform_req({.requestId = "setplat",
                                   .devId = "cam-1",
                                   .platformInfo = {.enabled = true, .platformAddr = "p.example"}});
         },
         ok},
        {"signalGetDevPlatform_kvrRes", "kvr", [] { get_dev_platform_kvr_req("kvr", "cam-1"); },
         ok},
        {"signalSetDevPlatform_kvrRes", "setkvr",
         [] { set_dev_platform_kvr_req({.requestId = "setkvr", .devId = "cam-1"}); }, ok},
        {"signalImportDevCertRes", "cert",
         [] {
             import_dev_cert_req(
                 {.requestId = "cert", .devId = "cam-1", .ca = "CA", .certContents = "PEM"});
         },
         ok},
        {"signalGetRtspUrlRes", "rtsp",
         [] { get_rtsp_url_req({.requestId = "rtsp", .channelId = cam1}); },
         [](const QVariantList& args) {
             EXPECT_TRUE(args[1].toString().startsWith("rtsp://192.168.1.64"))
                 << args[1].toString().toStdString();
         }},
        {"signalSearchVideoRecordingsRes", "recs",
         [today] {
             search_video_recordings_req({.requestId = "recs",
                                          .channelId = cam1,
                                          .beginTime = today + " 00:00:00",
                                          .endTime = today + " 03:00:00"});
         },
         [](const QVariantList& args) {
             EXPECT_FALSE(args[1].value<QList<VideoRecInfo>>().isEmpty());
         }},
        {"signalPTZCtrlRes", "ptz",
         [] { PTZ_ctrl_req({.requestId = "ptz", .channelId = cam2, .speed = 3}); }, ok},
        {"signalGetPresetsRes", "presets",
         [] { get_presets_req({.requestId = "presets", .channelId = cam2}); },
         [](const QVariantList& args) { EXPECT_EQ(args[1].value<QList<PresetInfo>>().size(), 3); }},
        {"signalOperPresetsRes", "preset",
         [] {
             oper_preset_req(
                 {.requestId = "preset", .channelId = cam2, .presetNum = 4, .presetName = "Gate"});
         },
         ok},
        {"signalGetPatrolsRes", "patrols",
         [] { get_patrols_req({.requestId = "patrols", .channelId = cam2}); },
         [](const QVariantList& args) { EXPECT_EQ(args[1].value<QList<PatrolInfo>>().size(), 1); }},
        {"signalOperPatrolRes", "patrol",
         [] { oper_patrol_req({.requestId = "patrol", .channelId = cam2, .patrolIndex = 1}); }, ok},
        {"signalOperPatrolPresetRes", "stop",
         [] {
             oper_patrol_preset_req({.requestId = "stop",
                                     .channelId = cam2,
                                     .patrolIndex = 1,
                                     .stayTime = 5,
                                     .presetNum = 4});
         },
         ok},
        {"signalSetPatrolPresetsRes", "stops",
         [] {
             set_patrol_presets_req({.requestId = "stops", .channelId = cam2, .patrolIndex = 1});
         },
         ok},
        {"signalDevConfigRes", "osd",
         [] { set_osd_req({.requestId = "osd", .channelId = cam1, .osd = "Front"}); }, ok},
        {"signalDevConfigRes", "name",
         [] { modify_dev_name_req({.requestId = "name", .devId = "cam-1", .devName = "Front"}); },
         ok},
        {"signalAddFaceRes", "addface",
         [] {
             add_face_req(
                 {.requestId = "addface", .channelId = cam1, .serialNum = "EMP-9", .name = "Cy"});
         },
         ok},
        {"signalGetFacesRes", "faces",
         [] {
             get_faces_req({.requestId = "faces", .channelId = cam1, .pageNum = 1, .pageSize = 10});
         },
         [](const QVariantList& args) { EXPECT_EQ(args[1].value<QList<FaceInfo>>().size(), 3); }},
        {"signalDelFaceRes", "delface",
         [] { del_face_req({.requestId = "delface", .channelId = cam1, .index = 1}); }, ok},
        {"signalGetFaceDetectRecordsRes", "detect",
         [today] {
             get_face_detect_records_req({.requestId = "detect",
                                          .channelId = cam1,
                                          .pageNum = 1,
                                          .pageSize = 5,
                                          .beginTime = today + " 00:00:00",
                                          .endTime = today + " 02:00:00"});
         },
         [](const QVariantList& args) { EXPECT_GT(args[2].toUInt(), 0u); }},
        {"signalCheckDevUpgradeRes", "check",
         [] { check_dev_upgrade_req({.requestId = "check", .devId = "cam-1"}); },
         [](const QVariantList& args) {
             EXPECT_EQ(args[1].value<DevUpgradeInfo>().newVersionName, "V5.8.0 build 240110");
         }},
        {"signalGetDevUpgradeProgressRes", "progress",
         [] { get_dev_upgrade_progress_req("progress", "cam-1"); }, ok},
        {"signalModifyDevAccountRes", "account",
         [] {
             modify_dev_account_req({.requestId = "account",
                                     .devId = "cam-1",
                                     .account = "admin",
                                     .newPassword = "New#1"});
         },
         ok},
        {"signalGetDevSecretQuestionsRes", "SIM-IPC-20230001",
         [] { get_dev_secret_questions_cmd({.devSn = "SIM-IPC-20230001", .account = "admin"}); },
         [](const QVariantList& args) {
             EXPECT_EQ(args[2].toStringList(), QStringList{"Name of your first school?"});
         }},
        {"signalResetDevPwdRes", "SIM-IPC-20230001",
         [] {
             reset_dev_pwd_cmd(
                 {.devSn = "SIM-IPC-20230001",
                  .account = "admin",
                  .password = "Pw#2",
                  .secrets = {{.question = "Name of your first school?", .answer = "Hillside"}}});
         },
         [](const QVariantList& args) { EXPECT_EQ(args[1].toInt(), 0); }},
        {"signalActivateDevRes", "SIM-IPC-20230002",
         [] {
             activate_devs_cmd(
                 {.devsSn = {"SIM-IPC-20230002"}, .account = "admin", .password = "Pw#3"});
         },
         [](const QVariantList&) {}},
        {"signalTalkOperRes", "talk",
         [] { talk_oper_req({.requestId = "talk", .channelId = cam1}); }, ok},
        {"signalSpeakOperRes", "speak",
         [] { speak_oper_req({.requestId = "speak", .channelId = cam2, .operation = 0}); }, ok},
        {"signalCommonRes", "raw",
         [] { common_req("raw", "cam-1", R"({"method": "dev_get_qrcode", "param": {}})"); },
         [](const QVariantList& args) {
             EXPECT_TRUE(args[1].toString().contains("dev_get_qrcode"));
         }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.signal) + " " + row.key.toStdString());
        row.call();
        const QVariantList args = recorder->waitFor(QString::fromLatin1(row.signal), row.key);
        ASSERT_FALSE(args.isEmpty());
        row.check(args);
    }
}

TEST_F(EndToEndTest, PushesThatFollowRequestsAndJsonMethodsComplete)
{
    start();
    QSignalSpy talk(ClientSignals::instance(), &ClientSignals::signalTalkEventPush);
    talk_oper_req({.requestId = "talk", .channelId = cam1});
    ASSERT_TRUE(talk.wait(10000));
    const auto channel = talk[0][0].value<QPair<QString, int>>();
    EXPECT_EQ(channel, qMakePair(QStringLiteral("cam-1"), 1));

    QSignalSpy progress(ClientSignals::instance(), &ClientSignals::signalPushFileTransferProgress);
    upload_file_req({.requestId = "up", .devId = "cam-1", .fileName = "fw.bin"});
    ASSERT_TRUE(vms_test::waitFor([&] {
        return !progress.isEmpty() &&
               progress.last()[0].value<FileTransferProgress>().progress == 100;
    }));

    // A JSON method's answer reaches the application, and the request is no longer waited for.
    QSignalSpy json(ClientSignals::instance(), &ClientSignals::signalGetDevQRCodeRes);
    get_dev_qrcode_req({.requestId = "qr", .devId = "cam-1"});
    ASSERT_TRUE(json.wait(10000));
    EXPECT_EQ(json[0][0].value<Response>().requestId, "qr");
    EXPECT_TRUE(MessageHamal::instance()->requestMgr()->kinds("qr").isEmpty());
}

TEST_F(EndToEndTest, AnIgnoredRequestTimesOutWithItsValue)
{
    start(R"({"ignoreTypes": [20]})");
    MessageHamal::instance()->requestMgr()->setTimeoutInterval(100);
    QSignalSpy timeouts(ClientSignals::instance(), &ClientSignals::signalRequestTimeout);
    add_request_value("lost", QStringLiteral("my context"));
    get_dev_net_req({.requestId = "lost", .devId = "cam-1"});
    ASSERT_TRUE(timeouts.wait(5000));
    EXPECT_EQ(timeouts[0][0].toString(), "lost");
    EXPECT_EQ(timeouts[0][1].toString(), "my context");
    EXPECT_FALSE(get_request_value("lost", false).isValid());
}

} // namespace
