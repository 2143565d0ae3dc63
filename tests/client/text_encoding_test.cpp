// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Texts that are not UTF-8 on the wire, and what the message library has to say about anything:
// neither may cost the application an answer or a line on its stderr.
#include "support/fake_gateway.h"
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_sdk/gateway/multi_dgw_mgr.h"

#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <google/protobuf/stubs/logging.h>
#include <gtest/gtest.h>

#include <cstdio>

#include <unistd.h>

using namespace vms_sdk;

namespace {

// Catches what is written to file descriptor 2 between construction and take().
class StderrCapture
{
public:
    StderrCapture()
    {
        m_file.open();
        std::fflush(stderr);
        m_saved = ::dup(2);
        ::dup2(m_file.handle(), 2);
    }
    ~StderrCapture() { take(); }

    QByteArray take()
    {
        if (m_saved >= 0) {
            std::fflush(stderr);
            ::dup2(m_saved, 2);
            ::close(m_saved);
            m_saved = -1;
        }
        m_file.seek(0);
        return m_file.readAll();
    }

private:
    QTemporaryFile m_file;
    int m_saved = -1;
};

QStringList clientLog()
{
    return vms_test::readLines(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                               QStringLiteral("/vms.client.log"));
}

class TextEncodingTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        init_vms_client_sdk();
        MultiDgwMgr::instance()->setProcessStarter([this](const QString&, const QStringList& args) {
            gateway = new vms_test::FakeGateway(args, &owner);
            return gateway->start();
        });
        QSignalSpy ready(ClientSignals::instance(), &ClientSignals::signalPrepareStartDgwSuccess);
        prepare_start_dgw_req(InitDgwCondition{}, QStringLiteral("fake"), 1);
        ASSERT_TRUE(ready.wait(10000));
    }
    void TearDown() override { release_vms_client_sdk(); }

    QObject owner;
    vms_test::FakeGateway* gateway = nullptr;
};

TEST_F(TextEncodingTest, ADeviceNameInALegacyEncodingArrivesWithReplacementCharacters)
{
    struct Row
    {
        const char* name;
        QByteArray wireName;
        QString delivered;
    };
    const Row rows[] = {
        {"Latin-1 e acute", QByteArray("Caf\xe9", 4), QStringLiteral("Caf\uFFFD")},
        {"UTF-8 untouched", QByteArray("Caf\xc3\xa9", 5), QStringLiteral("Caf\u00e9")},
    };
    for (const Row& row : rows) {
        // Searched devices push: one device, id "cam-1" (field 1), name (field 2).
        const QByteArray device = QByteArray("\x0a\x05"
                                             "cam-1"
                                             "\x12",
                                             8) +
                                  char(row.wireName.size()) + row.wireName;
        const QByteArray push = QByteArray("\x0a", 1) + char(device.size()) + device;
        QSignalSpy searched(ClientSignals::instance(), &ClientSignals::signalSearchedDevsPush);
        StderrCapture stderrCapture;
        gateway->send(SearchedDevsPush, push);
        ASSERT_TRUE(searched.wait(5000)) << row.name;
        EXPECT_EQ(stderrCapture.take(), QByteArray()) << row.name;
        const auto devs = searched[0][0].value<QList<DevInfo>>();
        ASSERT_EQ(devs.size(), 1) << row.name;
        EXPECT_EQ(devs[0].id, QStringLiteral("cam-1")) << row.name;
        EXPECT_EQ(devs[0].name, row.delivered) << row.name;
    }
}

TEST(ProtobufLog, GoesToOurLogFromInitToReleaseAndToStderrOtherwise)
{
    init_vms_client_sdk();
    {
        StderrCapture stderrCapture;
        GOOGLE_LOG(ERROR) << "probe while initialised";
        GOOGLE_LOG(WARNING) << "warning while initialised";
        EXPECT_EQ(stderrCapture.take(), QByteArray());
    }
    release_vms_client_sdk();
    StderrCapture stderrCapture;
    GOOGLE_LOG(ERROR) << "probe after release";
    EXPECT_TRUE(stderrCapture.take().contains("probe after release"));

    struct Row
    {
        const char* line;
        int count;
    };
    const Row rows[] = {
        {"[error] [vms_client_sdk:]    protobuf log: probe while initialised", 1},
        {"[info] [vms_client_sdk:]    protobuf log: warning while initialised", 1},
        {"protobuf log: probe after release", 0},
    };
    const QStringList lines = clientLog();
    for (const Row& row : rows) {
        int count = 0;
        for (const QString& line : lines)
            count += line.endsWith(QLatin1String(row.line)) ? 1 : 0;
        EXPECT_EQ(count, row.count) << row.line;
    }
}

} // namespace
