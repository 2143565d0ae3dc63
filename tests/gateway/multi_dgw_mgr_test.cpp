// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "support/fake_gateway.h"
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_kit/vms_kit.h"
#include "vms_sdk/gateway/multi_dgw_mgr.h"

#include "vms_message.pb.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>

#include <unistd.h>

using namespace vms_sdk;
using vms_test::FakeGateway;

namespace {

const MultiDgwMgrTiming fastTiming{
    .readinessPoll = 10, .restartDelay = 20, .channel = {.retryInterval = 10, .retryCount = 30}};

// Device ids run against list order, so that "sorted by id" and "in list order" differ.
QList<DevInfo> devices(int count)
{
    QList<DevInfo> list;
    for (int p = 0; p < count; ++p) {
        const QString id = QStringLiteral("dev-%1").arg(count - 1 - p, 4, 10, QLatin1Char('0'));
        list.append(
            DevInfo{.id = id, .ip = QStringLiteral("10.0.%1.%2").arg(p / 200).arg(p % 200)});
    }
    return list;
}

QStringList idsOf(const QList<DevInfo>& devs)
{
    QStringList ids;
    for (const DevInfo& dev : devs)
        ids.append(dev.id);
    return ids;
}

template<typename Message>
Message parse(const vms_sdk::Frame& frame)
{
    Message message;
    EXPECT_TRUE(message.ParseFromArray(frame.payload.constData(), frame.payload.size()));
    return message;
}

template<typename Command>
QStringList sentIds(const vms_sdk::Frame& frame)
{
    QStringList ids;
    const Command command = parse<Command>(frame);
    for (const auto& dev : command.devs())
        ids.append(QString::fromStdString(dev.id()));
    return ids;
}

QStringList listedIds(const vms_sdk::Frame& frame)
{
    QStringList ids;
    const auto list = parse<vms_sdk_proto::DevList>(frame);
    for (const auto& id : list.devs_id())
        ids.append(QString::fromStdString(id));
    return ids;
}

class MultiDgwMgrTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        logPath = vms_test::openTestLog();
        makeManager();
    }

    // A fresh manager with no gateways; the previous one and its fakes are gone.
    void makeManager(MultiDgwMgrTiming timing = fastTiming)
    {
        owner = std::make_unique<QObject>();
        starts.clear();
        startTimes.clear();
        clock.start();
        fakes.clear();
        manager = new MultiDgwMgr(timing, owner.get());
        manager->setProcessStarter([this](const QString& program, const QStringList& args) {
            return start(program, args);
        });
    }
    void TearDown() override { vms_kit::release_vms_log(); }

    bool start(const QString& program, const QStringList& args)
    {
        starts.append(args);
        startTimes.append(clock.elapsed());
        if (program == QLatin1String("missing"))
            return false;
        FakeGateway*& fake = fakes[args.value(1)];
        if (!fake)
            fake = new FakeGateway(args, owner.get());
        return fake->start();
    }

    FakeGateway* fake(int gateway) const
    {
        return fakes.value(manager->gateways().value(gateway)->serverName());
    }

    // Prepares `devsCnt` devices' worth of gateways and waits until all are ready.
    void prepare(int devsCnt)
    {
        QSignalSpy success(ClientSignals::instance(), &ClientSignals::signalPrepareStartDgwSuccess);
        prepare_start_dgw_req(condition, QStringLiteral("vms_dgw_sim"), devsCnt);
        ASSERT_TRUE(vms_test::waitFor([&] { return success.count() == 1; }, 10000));
    }

    int logCount(const QString& text) const { return vms_test::countLines(logPath, text); }

    const InitDgwCondition condition{.ak = QStringLiteral("ak"), .saasCer = QStringLiteral("cer")};
    std::unique_ptr<QObject> owner;
    QString logPath;
    MultiDgwMgr* manager = nullptr;
    QList<QStringList> starts;
    QList<qint64> startTimes; // ms on `clock`, one per start
    QElapsedTimer clock;
    QHash<QString, FakeGateway*> fakes;
};

TEST_F(MultiDgwMgrTest, StartsOneGatewayPerHundredDevicesWithinOneAndThirtyTwo)
{
    struct Row
    {
        int devsCnt;
        int gateways;
    };
    const Row rows[] = {{0, 1}, {100, 1}, {101, 2}, {5000, 32}};
    for (const Row& row : rows) {
        makeManager();
        prepare(row.devsCnt);
        ASSERT_EQ(manager->gateways().size(), row.gateways) << row.devsCnt << " devices";
        ASSERT_EQ(starts.size(), row.gateways);
        // Unique names inside the private folder (see the test main for where it is).
        const QRegularExpression privatePath(
            QRegularExpression::escape(qEnvironmentVariable("XDG_RUNTIME_DIR")) +
            QStringLiteral("/vms_sdk/[0-9a-f]{32}$"));
        for (int i = 0; i < row.gateways; ++i) {
            ASSERT_EQ(starts[i].size(), 3);
            EXPECT_EQ(starts[i][0], QStringLiteral("vms_dgw.exe_%1").arg(i));
            EXPECT_TRUE(privatePath.match(starts[i][1]).hasMatch()) << starts[i][1].toStdString();
            EXPECT_EQ(starts[i][2], starts[i][1] + QStringLiteral("_stream"));
        }
    }
}

TEST_F(MultiDgwMgrTest, InitialisesEachGatewayWithTheAccountSettings)
{
    prepare(1);
    const auto requests = fake(0)->framesOfType(InitDgwReq);
    ASSERT_EQ(requests.size(), 1);
    // Each field's place on the wire is pinned in conversions_test.
    const auto request = parse<vms_sdk_proto::InitDgwReq>(requests[0]);
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^\\{[0-9a-f-]{36}\\}$"))
                    .match(QString::fromStdString(request.request_id()))
                    .hasMatch());
    EXPECT_EQ(request.saas_cer(), "cer");
    // The hello came first, as a null payload.
    ASSERT_GE(fake(0)->frames().size(), 2);
    EXPECT_EQ(fake(0)->frames()[0].type, ClientHelloCmd);
    EXPECT_EQ(logCount(QStringLiteral("init dgw req")), 1);
}

TEST_F(MultiDgwMgrTest, ASecondPrepareWithEnoughGatewaysSucceedsAtOnce)
{
    prepare(150);
    QSignalSpy success(ClientSignals::instance(), &ClientSignals::signalPrepareStartDgwSuccess);
    prepare_start_dgw_req(condition, QStringLiteral("vms_dgw_sim"), 200);
    EXPECT_EQ(success.count(), 1); // synchronously
    EXPECT_EQ(starts.size(), 2);

    // Short of gateways, the whole count is started again on top of those that run.
    prepare(300);
    EXPECT_EQ(manager->gateways().size(), 5);
}

// The poll is only the fallback: the last gateway to turn ready reports success itself, so a
// start-up does not wait out a tick after the gateways are ready.
TEST_F(MultiDgwMgrTest, SuccessFollowsTheLastReadyGatewayWithoutWaitingForThePoll)
{
    makeManager({.readinessPoll = 60 * 60 * 1000, .channel = fastTiming.channel});
    QSignalSpy success(ClientSignals::instance(), &ClientSignals::signalPrepareStartDgwSuccess);
    int readyAtSuccess = -1;
    QObject context;
    QObject::connect(ClientSignals::instance(), &ClientSignals::signalPrepareStartDgwSuccess,
                     &context, [&] {
                         readyAtSuccess = 0;
                         for (const MessageSocket* gateway : manager->gateways())
                             readyAtSuccess += gateway->isReady() ? 1 : 0;
                     });
    prepare_start_dgw_req(condition, QStringLiteral("vms_dgw_sim"), 250);
    ASSERT_TRUE(vms_test::waitFor([&] { return success.count() == 1; }, 10000));
    EXPECT_EQ(readyAtSuccess, 3);
    // Once only, although every gateway's turn to ready passed through the check.
    QCoreApplication::processEvents();
    EXPECT_EQ(success.count(), 1);
}

TEST_F(MultiDgwMgrTest, SetSpreadsAHundredDevicesPerGatewaySentInIdOrder)
{
    prepare(250);
    const QList<DevInfo> devs = devices(250);
    set_managed_devs_cmd(devs);
    for (int g = 0; g < 3; ++g) {
        QStringList expected = idsOf(devs.mid(g * 100, 100));
        std::sort(expected.begin(), expected.end());
        ASSERT_TRUE(vms_test::waitFor(
            [&] { return fake(g)->framesOfType(SetManagedDevsCmd).size() == 1; }));
        const auto frame = fake(g)->framesOfType(SetManagedDevsCmd)[0];
        EXPECT_EQ(sentIds<vms_sdk_proto::SetManagedDevsCmd>(frame), expected) << "gateway " << g;
        EXPECT_EQ(manager->gateways()[g]->devices().keys(), expected);
        EXPECT_EQ(logCount(QStringLiteral("client cmd set managed devices to dgw:%1")
                               .arg(manager->gateways()[g]->serverName())),
                  1);
    }
    // Devices beyond what the gateways hold are not placed.
    set_managed_devs_cmd(devices(350));
    ASSERT_TRUE(
        vms_test::waitFor([&] { return fake(2)->framesOfType(SetManagedDevsCmd).size() == 2; }));
    EXPECT_EQ(manager->gateways()[2]->devices().size(), 100);
}

TEST_F(MultiDgwMgrTest, AddFillsFreeRoomThenStartsGatewaysAndRefusesTheThirtyThird)
{
    prepare(1);
    add_managed_devs_cmd(devices(60));
    ASSERT_TRUE(
        vms_test::waitFor([&] { return fake(0)->framesOfType(AddManagedDevsCmd).size() == 1; }));
    EXPECT_EQ(sentIds<vms_sdk_proto::AddManagedDevsCmd>(fake(0)->framesOfType(AddManagedDevsCmd)[0])
                  .size(),
              60);

    QList<DevInfo> more;
    for (int i = 0; i < 100; ++i)
        more.append(DevInfo{.id = QStringLiteral("more-%1").arg(i, 3, 10, QLatin1Char('0'))});
    add_managed_devs_cmd(more);
    ASSERT_EQ(manager->gateways().size(), 2);
    EXPECT_EQ(manager->gateways()[0]->devices().size(), 100);
    EXPECT_EQ(manager->gateways()[1]->devices().size(), 60);
    // The new gateway gets its share as its device set once it is ready.
    ASSERT_TRUE(vms_test::waitFor(
        [&] { return fake(1) && fake(1)->framesOfType(SetManagedDevsCmd).size() == 1; }));
    EXPECT_EQ(
        sentIds<vms_sdk_proto::SetManagedDevsCmd>(fake(1)->framesOfType(SetManagedDevsCmd)[0]),
        idsOf(more.mid(40)));
    EXPECT_EQ(logCount(QStringLiteral("client cmd add managed devices to dgw")), 2);

    // 30 more gateways fill the table; the devices beyond stay unplaced.
    QList<DevInfo> flood;
    for (int i = 0; i < 3100; ++i)
        flood.append(DevInfo{.id = QStringLiteral("flood-%1").arg(i, 4, 10, QLatin1Char('0'))});
    add_managed_devs_cmd(flood);
    EXPECT_EQ(manager->gateways().size(), 32);
    EXPECT_EQ(starts.size(), 32);
    int placed = 0;
    for (const MessageSocket* gateway : manager->gateways())
        placed += gateway->devices().size();
    EXPECT_EQ(placed, 3200);
}

TEST_F(MultiDgwMgrTest, MessagesGoToTheGatewayOfTheirDeviceAndDeviceCommandsAreSplit)
{
    prepare(200);
    const QList<DevInfo> devs = devices(200);
    set_managed_devs_cmd(devs);
    ASSERT_TRUE(
        vms_test::waitFor([&] { return fake(1)->framesOfType(SetManagedDevsCmd).size() == 1; }));
    manager->send(DevNetGetReq, "to-second", devs[150].id);
    manager->send(SearchDevsCmd, QByteArray(), QString());
    manager->send(DevNetGetReq, "nobody", QStringLiteral("unknown-device"));
    ASSERT_TRUE(vms_test::waitFor([&] { return fake(1)->framesOfType(DevNetGetReq).size() == 1; }));
    ASSERT_TRUE(
        vms_test::waitFor([&] { return fake(0)->framesOfType(SearchDevsCmd).size() == 1; }));
    EXPECT_EQ(fake(1)->framesOfType(DevNetGetReq)[0].payload, "to-second");
    EXPECT_TRUE(fake(0)->framesOfType(DevNetGetReq).isEmpty());
    EXPECT_TRUE(fake(0)->framesOfType(SearchDevsCmd)[0].payload.isNull());

    const QStringList ids{devs[5].id, devs[150].id, devs[7].id, QStringLiteral("stranger")};
    const QStringList first{devs[5].id, devs[7].id};
    const QStringList second{devs[150].id};

    struct Row
    {
        const char* name;
        std::function<void()> call;
        MessageType type;
        const char* log;
    };
    // clang-format off
    const Row rows[] = {
        {"reboot", [&] { reboot_devs_cmd(ids); }, RebootDevsCmd, nullptr},
        {"reconnect", [&] { reconnect_devs_cmd(ids); }, ReconnectDevsCmd, "client cmd reconnect devices"},
        {"time", [&] { set_devs_time_cmd(ids, QStringLiteral("2026-11-22 10:00:00")); }, DevTimingCmd, "client cmd set devices time"},
        {"restore", [&] { restore_factory_cmd(ids, true); }, RestoreFactoryCmd, nullptr},
        {"delete", [&] { del_managed_devs_cmd(ids); }, DelManagedDevsCmd, "client cmd delete managed devices from dgw"},
    };
    // clang-format on
    for (const Row& row : rows) {
        row.call();
        ASSERT_TRUE(vms_test::waitFor([&] {
            return fake(0)->framesOfType(row.type).size() == 1 &&
                   fake(1)->framesOfType(row.type).size() == 1;
        })) << row.name;
        const auto a = fake(0)->framesOfType(row.type)[0];
        const auto b = fake(1)->framesOfType(row.type)[0];
        if (row.type == DevTimingCmd) {
            const auto timing = parse<vms_sdk_proto::DevTimingCmd>(a);
            EXPECT_EQ(timing.devs_id_size(), 2);
            EXPECT_EQ(timing.time(), "2026-11-22 10:00:00");
        } else if (row.type == RestoreFactoryCmd) {
            const auto restore = parse<vms_sdk_proto::RestoreFactoryCmd>(b);
            EXPECT_EQ(restore.devs_id_size(), 1);
            EXPECT_TRUE(restore.attr_2());
        } else {
            EXPECT_EQ(listedIds(a), first) << row.name;
            EXPECT_EQ(listedIds(b), second) << row.name;
        }
        if (row.log) {
            EXPECT_EQ(logCount(QLatin1String(row.log)), 2) << row.name;
        }
    }
    EXPECT_FALSE(manager->gateways()[0]->devices().contains(devs[5].id));
    EXPECT_EQ(manager->gateways()[0]->devices().size(), 98);

    DevInfo renamed = devs[10];
    renamed.name = QStringLiteral("renamed");
    edit_managed_devs_cmd({renamed});
    ASSERT_TRUE(
        vms_test::waitFor([&] { return fake(0)->framesOfType(EditManagedDevsCmd).size() == 1; }));
    EXPECT_TRUE(fake(1)->framesOfType(EditManagedDevsCmd).isEmpty());
    EXPECT_EQ(manager->gateways()[0]->devices().value(renamed.id).name, "renamed");
    EXPECT_EQ(logCount(QStringLiteral("client cmd edit managed devices in dgw")), 1);
}

TEST_F(MultiDgwMgrTest, TheTokenReachesReadyGatewaysAndLogoutSendsAnEmptyPayload)
{
    prepare(1);
    set_saas_token_cmd(QStringLiteral("token-1"));
    ASSERT_TRUE(
        vms_test::waitFor([&] { return fake(0)->framesOfType(SetSaasTokenCmd).size() == 1; }));
    EXPECT_EQ(fake(0)->framesOfType(SetSaasTokenCmd)[0].payload, "token-1");

    saas_logout_cmd();
    ASSERT_TRUE(
        vms_test::waitFor([&] { return fake(0)->framesOfType(SaasLogoutCmd).size() == 1; }));
    const auto logout = fake(0)->framesOfType(SaasLogoutCmd)[0].payload;
    EXPECT_TRUE(logout.isEmpty());
    EXPECT_FALSE(logout.isNull()); // size field 0, not the null marker
    EXPECT_EQ(logCount(QStringLiteral("client cmd set saas token")), 1);
    EXPECT_EQ(logCount(QStringLiteral("client cmd saas logout")), 1);
}

TEST_F(MultiDgwMgrTest, ALostGatewayIsRestartedFourTimesThenGivenUp)
{
    prepare(1);
    set_managed_devs_cmd(devices(2));
    set_saas_token_cmd(QStringLiteral("tok"));
    ASSERT_TRUE(
        vms_test::waitFor([&] { return fake(0)->framesOfType(SetSaasTokenCmd).size() == 1; }));
    QSignalSpy offline(ClientSignals::instance(), &ClientSignals::signalDevStatusPush);
    QSignalSpy abnormal(ClientSignals::instance(), &ClientSignals::signalDgwAbnormal);
    const QStringList firstArgs = starts[0];

    for (int loss = 1; loss <= 4; ++loss) {
        fake(0)->clearFrames();
        fake(0)->crash();
        // Started again under the same names, initialised, and handed its devices and token.
        ASSERT_TRUE(vms_test::waitFor([&] { return starts.size() == 1 + loss; })) << loss;
        EXPECT_EQ(starts.last(), firstArgs);
        ASSERT_TRUE(vms_test::waitFor([&] {
            return fake(0)->framesOfType(SetSaasTokenCmd).size() == 1;
        })) << loss;
        ASSERT_EQ(fake(0)->framesOfType(SetManagedDevsCmd).size(), 1);
        EXPECT_TRUE(manager->gateways()[0]->isReady());
        // Wait for the channel's retry counter to settle before the next loss.
        ASSERT_TRUE(vms_test::waitFor(
            [&] { return logCount(QStringLiteral("socket state:3")) == 1 + loss; }));
    }
    EXPECT_EQ(offline.count(), 8);
    // A vanished gateway is also a socket error for the channel, reported as such.
    ASSERT_EQ(abnormal.count(), 4);
    for (const auto& args : abnormal)
        EXPECT_EQ(args[0].value<DgwAbnormal>(), DgwAbnormalSocketError);

    fake(0)->crash();
    ASSERT_TRUE(vms_test::waitFor([&] {
        return !abnormal.isEmpty() &&
               abnormal.last()[0].value<DgwAbnormal>() == DgwAbnormalDisconnected;
    }));
    EXPECT_FALSE(vms_test::waitFor([&] { return starts.size() > 5; }, 200));
    EXPECT_EQ(offline.count(), 8);
}

TEST_F(MultiDgwMgrTest, GatewaysLostCloseTogetherRestartEachADelayAfterItsOwnLossInLossOrder)
{
    // The second loss comes before the first restart is due: a wait stacked inside the first
    // one would restart the second gateway first and hold the first one back behind it.
    makeManager({.readinessPoll = 10, .restartDelay = 100, .channel = fastTiming.channel});
    prepare(101);
    const int before = starts.size();
    const QString first = manager->gateways()[0]->serverName();
    const QString second = manager->gateways()[1]->serverName();
    qint64 lostAt[2] = {-1, -1};
    lostAt[0] = clock.elapsed();
    fake(0)->crash();
    QTimer::singleShot(70, owner.get(), [&] {
        lostAt[1] = clock.elapsed();
        fake(1)->crash();
    });
    ASSERT_TRUE(vms_test::waitFor([&] { return starts.size() == before + 2; }));
    EXPECT_EQ(starts[before].value(1), first);
    EXPECT_EQ(starts[before + 1].value(1), second);
    ASSERT_GE(lostAt[1], 0);
    EXPECT_GE(startTimes[before] - lostAt[0], 100);
    EXPECT_GE(startTimes[before + 1] - lostAt[1], 100);
    EXPECT_LT(startTimes[before], startTimes[before + 1]);
    // Both come back and are initialised again.
    ASSERT_TRUE(vms_test::waitFor([&] {
        return fake(0)->framesOfType(InitDgwReq).size() == 2 &&
               fake(1)->framesOfType(InitDgwReq).size() == 2;
    }));
}

TEST_F(MultiDgwMgrTest, AGatewayOfAnotherUserGetsNeitherHelloNorCredentials)
{
    // Another user cannot be had in a test: expecting a user we are not makes us the stranger.
    MultiDgwMgrTiming timing = fastTiming;
    timing.channel.peerUser = qint64(::getuid()) + 1;
    makeManager(timing);
    QSignalSpy abnormal(ClientSignals::instance(), &ClientSignals::signalDgwAbnormal);
    prepare_start_dgw_req(condition, QStringLiteral("vms_dgw_sim"), 1);
    ASSERT_TRUE(vms_test::waitFor([&] { return !abnormal.isEmpty(); }));
    EXPECT_EQ(abnormal[0][0].value<DgwAbnormal>(), DgwAbnormalSocketError);
    // The loss is handled as any other: the gateway is started again, and refused again.
    ASSERT_TRUE(vms_test::waitFor([&] { return starts.size() >= 2; }));
    EXPECT_TRUE(fake(0)->frames().isEmpty());
    EXPECT_GE(logCount(QStringLiteral("expected uid %1; connection closed").arg(::getuid() + 1)),
              1);
    EXPECT_EQ(logCount(QStringLiteral("init dgw req")), 0);
}

TEST_F(MultiDgwMgrTest, ReleaseTellsEveryGatewayToExitAndNothingRestartsOrIsAbnormalAfterwards)
{
    makeManager({.readinessPoll = 10, .restartDelay = 100, .channel = fastTiming.channel});
    prepare(201);
    // One gateway lost before the release, its restart still waiting; one lost after.
    QSignalSpy abnormal(ClientSignals::instance(), &ClientSignals::signalDgwAbnormal);
    fake(2)->crash();
    ASSERT_TRUE(vms_test::waitFor([&] { return abnormal.count() == 1; }));
    release_vms_client_sdk();
    for (int g = 0; g < 2; ++g) {
        ASSERT_TRUE(
            vms_test::waitFor([&] { return fake(g)->framesOfType(DgwExitCmd).size() == 1; }));
        EXPECT_TRUE(fake(g)->framesOfType(DgwExitCmd)[0].payload.isNull());
    }
    fake(0)->crash();
    EXPECT_FALSE(vms_test::waitFor([&] { return starts.size() > 3; }, 300));
    // A gateway that ends after the release ends as it was told to: nothing abnormal.
    EXPECT_EQ(abnormal.count(), 1);
    prepare_start_dgw_req(condition, QStringLiteral("vms_dgw_sim"), 1000);
    EXPECT_EQ(starts.size(), 3);
}

} // namespace
