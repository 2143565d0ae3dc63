// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "support/test_support.h"

#include <vms_sdk/vms_client_sdk.h>

#include "vms_kit/vms_kit.h"
#include "vms_sdk/client/sdk_log.h"
#include "vms_sdk/request/request_data.h"
#include "vms_sdk/request/request_mgr.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

using namespace vms_sdk;

namespace {

// Every ClientSignals::signalRequestTimeout, in the order it came.
class TimeoutRecorder
{
public:
    TimeoutRecorder()
    {
        m_connection =
            QObject::connect(ClientSignals::instance(), &ClientSignals::signalRequestTimeout,
                             [this](const QString& id, const QVariant& value) {
                                 m_ids.append(id);
                                 m_values.append(value);
                             });
    }
    ~TimeoutRecorder() { QObject::disconnect(m_connection); }

    const QStringList& ids() const { return m_ids; }
    int count(const QString& id) const { return int(m_ids.count(id)); }
    QVariant valueOf(const QString& id) const { return m_values.value(m_ids.indexOf(id)); }
    int indexOf(const QString& id) const { return int(m_ids.indexOf(id)); }
    bool waitFor(const QString& id, int timeoutMs = 2000) const
    {
        return vms_test::waitFor([&] { return m_ids.contains(id); }, timeoutMs);
    }

private:
    QMetaObject::Connection m_connection;
    QStringList m_ids;
    QList<QVariant> m_values;
};

class RequestRegistry : public ::testing::Test
{
protected:
    void SetUp() override { m_logPath = vms_test::openTestLog(); }
    void TearDown() override { vms_kit::release_vms_log(); }

    int timeoutLines(const QString& id) const
    {
        const QString text = log::tag() + QStringLiteral("request timeout:") + id;
        int n = 0;
        for (const QString& line : vms_test::readLines(m_logPath)) {
            if (line.endsWith(text)) {
                EXPECT_TRUE(line.contains(QStringLiteral("[error]"))) << line.toStdString();
                ++n;
            }
        }
        return n;
    }

    // Registers an id with a long deadline and waits for it: every deadline set before, and
    // shorter, has passed by then.
    static void outwait(RequestMgr& registry, const TimeoutRecorder& timeouts, int intervalMs)
    {
        const int saved = registry.timeoutInterval();
        registry.setTimeoutInterval(intervalMs);
        registry.addRequest(QStringLiteral("sentinel"));
        registry.setTimeoutInterval(saved);
        ASSERT_TRUE(timeouts.waitFor(QStringLiteral("sentinel")));
    }

    QString m_logPath;
};

// Each row is one request id living through registrations, renewals and answers; the rows
// run side by side and are judged once every deadline they could have had is over.
TEST_F(RequestRegistry, AnIdStaysOutstandingUntilAsManyAnswersAsRegistrations)
{
    struct Row
    {
        const char* id;
        int registrations;
        int renewals;
        int answers;
        bool withValue = true;
    };
    const std::vector<Row> rows = {
        {"answered", 1, 0, 1},
        {"twice-answered-twice", 2, 0, 2},
        {"three-answered-three", 3, 0, 3},
        {"twice-answered-once", 2, 0, 1},
        {"renewed-answered-once", 1, 2, 1}, // a renewal is not a registration
        {"silent", 1, 0, 0},
        {"silent-without-value", 1, 0, 0, false},
        {"never-registered", 0, 1, 2},
    };

    RequestMgr registry(nullptr, 20);
    TimeoutRecorder timeouts;
    for (const Row& row : rows) {
        const QString id = QString::fromLatin1(row.id);
        if (row.withValue)
            registry.setValue(id, QLatin1String(row.id));
        for (int i = 0; i < row.registrations; ++i)
            registry.addRequest(id);
        for (int i = 0; i < row.renewals; ++i)
            renewal_request_id(id);
        for (int i = 0; i < row.answers; ++i)
            EXPECT_EQ(registry.removeRequest(id), i < row.registrations) << row.id << i;
    }
    outwait(registry, timeouts, 60);

    for (const Row& row : rows) {
        SCOPED_TRACE(row.id);
        const QString id = QString::fromLatin1(row.id);
        const bool timedOut = row.answers < row.registrations;
        EXPECT_EQ(timeouts.count(id), timedOut ? 1 : 0);
        EXPECT_EQ(timeoutLines(id), timedOut ? 1 : 0);
        // Answers leave the value alone; a time-out hands it over and forgets it.
        if (timedOut) {
            EXPECT_EQ(timeouts.valueOf(id), row.withValue ? QVariant(id) : QVariant());
        }
        EXPECT_EQ(registry.value(id, false).isValid(), row.withValue && !timedOut);
        // Whatever happened, the id is no longer outstanding: a late answer is refused.
        EXPECT_FALSE(registry.removeRequest(id));
    }
}

TEST_F(RequestRegistry, RepeatedRegistrationAndRenewalRestartTheDeadline)
{
    RequestMgr registry(nullptr, 50);
    TimeoutRecorder timeouts;
    registry.addRequest(QStringLiteral("plain"));
    registry.addRequest(QStringLiteral("repeated"));
    registry.addRequest(QStringLiteral("renewed"));
    registry.setTimeoutInterval(60);
    registry.addRequest(QStringLiteral("reference"));
    registry.setTimeoutInterval(20);
    registry.addRequest(QStringLiteral("halfway"));

    // From here on "repeated" and "renewed" are due 50 ms after now, later than "reference".
    ASSERT_TRUE(timeouts.waitFor(QStringLiteral("halfway")));
    ASSERT_FALSE(timeouts.ids().contains(QStringLiteral("plain"))) << "the machine stalled";
    registry.addRequest(QStringLiteral("repeated"));
    renewal_request_id(QStringLiteral("renewed"));

    ASSERT_TRUE(timeouts.waitFor(QStringLiteral("repeated")));
    ASSERT_TRUE(timeouts.waitFor(QStringLiteral("renewed")));
    EXPECT_LT(timeouts.indexOf(QStringLiteral("plain")),
              timeouts.indexOf(QStringLiteral("reference")));
    EXPECT_LT(timeouts.indexOf(QStringLiteral("reference")),
              timeouts.indexOf(QStringLiteral("repeated")));
    EXPECT_LT(timeouts.indexOf(QStringLiteral("reference")),
              timeouts.indexOf(QStringLiteral("renewed")));
    EXPECT_EQ(timeouts.count(QStringLiteral("repeated")), 1);
}

// Many deadlines share the registry's one timer: the earliest goes first whatever was
// registered before it, deadlines due together keep their registration order, answering the
// one the timer waits for leaves the others due, and an id is as good as new after its
// time-out.
TEST_F(RequestRegistry, TimeOutsComeEarliestFirstThenInRegistrationOrder)
{
    constexpr int batch = 200;
    RequestMgr registry(nullptr, 200);
    TimeoutRecorder timeouts;
    auto batchId = [](int i) { return QStringLiteral("batch-%1").arg(i); };
    for (int i = 0; i < batch; ++i)
        registry.addRequest(batchId(i));
    EXPECT_TRUE(registry.removeRequest(batchId(0)));
    registry.setTimeoutInterval(10);
    registry.addRequest(QStringLiteral("short"));

    ASSERT_TRUE(timeouts.waitFor(batchId(batch - 1)));
    QStringList expected{QStringLiteral("short")};
    for (int i = 1; i < batch; ++i)
        expected.append(batchId(i));
    EXPECT_EQ(timeouts.ids(), expected);

    registry.addRequest(QStringLiteral("short"));
    ASSERT_TRUE(vms_test::waitFor([&] { return timeouts.count(QStringLiteral("short")) == 2; }));
    EXPECT_EQ(timeoutLines(QStringLiteral("short")), 2);
    EXPECT_FALSE(registry.removeRequest(QStringLiteral("short")));
}

TEST_F(RequestRegistry, RequestValuesAreReadRemovedAndReplacedById)
{
    add_request_value(QStringLiteral("a"), 1);
    add_request_value(QStringLiteral("b"), 2);
    add_request_value(QStringLiteral("b"), 3); // replaces

    EXPECT_EQ(get_request_value(QStringLiteral("a"), false), QVariant(1));
    EXPECT_EQ(get_request_value(QStringLiteral("a"), false), QVariant(1));
    EXPECT_EQ(get_request_value(QStringLiteral("b"), true), QVariant(3));
    EXPECT_FALSE(get_request_value(QStringLiteral("b"), false).isValid());
    EXPECT_FALSE(get_request_value(QStringLiteral("unknown"), true).isValid());

    remove_request_value(QStringLiteral("unknown"));
    EXPECT_EQ(get_request_value(QStringLiteral("a"), false), QVariant(1));
    remove_request_value(QStringLiteral("a"));
    EXPECT_FALSE(get_request_value(QStringLiteral("a"), false).isValid());

    // An invalid value may be attached too; it reads back as "none".
    add_request_value(QStringLiteral("c"), QVariant());
    add_request_value(QStringLiteral("d"), QStringLiteral("x"));
    remove_all_request_values();
    for (const char* id : {"a", "b", "c", "d"})
        EXPECT_FALSE(get_request_value(QString::fromLatin1(id), false).isValid()) << id;

    // Renewal and answer of unknown ids change nothing and report nothing.
    TimeoutRecorder timeouts;
    renewal_request_id(QStringLiteral("ghost"));
    EXPECT_FALSE(RequestMgr::instance()->removeRequest(QStringLiteral("ghost")));
    RequestMgr::instance()->slotRequestTimeout(QStringLiteral("ghost"));
    EXPECT_TRUE(timeouts.ids().isEmpty());
    EXPECT_EQ(timeoutLines(QStringLiteral("ghost")), 0);
}

struct Dropped
{
    QString requestId;
    int page = -1;
};

struct Kept
{
    QString requestId;
    int page = -1;
};

TEST_F(RequestRegistry, ConditionStoreForgetsOnlyTheKindsMarkedForTimeout)
{
    ConditionStore<StoredCondition<Dropped, OnTimeout::Drop>, StoredCondition<Kept>> store;
    RequestMgr registry(nullptr, 20);
    TimeoutRecorder timeouts;

    store.setCondition(QStringLiteral("late"), Dropped{QStringLiteral("late"), 1});
    store.setCondition(QStringLiteral("late"), Dropped{QStringLiteral("late"), 2}); // overwrites
    store.setCondition(QStringLiteral("late"), Kept{QStringLiteral("late"), 3});
    store.setCondition(QStringLiteral("other"), Dropped{QStringLiteral("other"), 4});
    store.setCondition(QStringLiteral("read"), Kept{QStringLiteral("read"), 5});

    EXPECT_EQ(store.condition<Dropped>(QStringLiteral("late"), false).page, 2);
    EXPECT_EQ(store.condition<Kept>(QStringLiteral("read"), true).page, 5);
    EXPECT_EQ(store.condition<Kept>(QStringLiteral("read"), false).page, -1);
    EXPECT_TRUE(store.condition<Kept>(QStringLiteral("unknown"), false).requestId.isEmpty());

    registry.addRequest(QStringLiteral("late"));
    ASSERT_TRUE(timeouts.waitFor(QStringLiteral("late")));

    EXPECT_EQ(store.condition<Dropped>(QStringLiteral("late"), false).page, -1);
    EXPECT_EQ(store.condition<Kept>(QStringLiteral("late"), false).page, 3);
    EXPECT_EQ(store.condition<Dropped>(QStringLiteral("other"), false).page, 4);
}

// The application's threads work on request values, and ask for renewals, while the
// library's thread registers requests and times them out. Meant for the sanitizer build.
TEST_F(RequestRegistry, RequestValuesFromManyThreadsWhileRequestsTimeOut)
{
    constexpr int ids = 8;
    constexpr int rounds = 5;
    constexpr int workers = 4;
    RequestMgr* const registry = RequestMgr::instance();
    registry->setTimeoutInterval(20);
    TimeoutRecorder timeouts;
    auto requestId = [](int k) { return QStringLiteral("req-%1").arg(k); };

    // Every time-out registers its id again, until each id has timed out `rounds` times.
    QObject context;
    QObject::connect(ClientSignals::instance(), &ClientSignals::signalRequestTimeout, &context,
                     [&](const QString& id) {
                         if (timeouts.count(id) < rounds)
                             registry->addRequest(id);
                     });
    for (int k = 0; k < ids; ++k)
        registry->addRequest(requestId(k));

    std::atomic<bool> stop{false};
    std::atomic<int> mismatches{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < workers; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; !stop || i < 2000; ++i) {
                const QString shared = requestId(i % ids);
                add_request_value(shared, i);
                get_request_value(shared, i % 3 == 0);
                if (i % 7 == 0)
                    remove_request_value(shared);
                if (i % 500 == 0)
                    remove_all_request_values();
                // Only the even ids, so that the odd ones are sure to time out meanwhile.
                if (i % 1000 == 0)
                    renewal_request_id(requestId(2 * (i / 1000 % (ids / 2))));

                const QString own = QStringLiteral("t%1-%2").arg(t).arg(i % 16);
                add_request_value(own, i);
                const QVariant back = get_request_value(own, i % 2 == 0);
                // Another thread may have cleared everything in between, nothing else.
                if (back.isValid() && back != QVariant(i))
                    ++mismatches;
            }
        });
    }

    auto oddIdsDone = [&] {
        for (int k = 1; k < ids; k += 2) {
            if (timeouts.count(requestId(k)) < rounds)
                return false;
        }
        return true;
    };
    const bool oddDone = vms_test::waitFor(oddIdsDone, 20000);
    stop = true;
    for (std::thread& thread : threads)
        thread.join();
    ASSERT_TRUE(oddDone);
    ASSERT_TRUE(vms_test::waitFor([&] { return timeouts.ids().size() == ids * rounds; }, 20000));

    EXPECT_EQ(mismatches, 0);
    for (int k = 0; k < ids; ++k) {
        EXPECT_EQ(timeouts.count(requestId(k)), rounds) << k;
        EXPECT_EQ(timeoutLines(requestId(k)), rounds) << k;
    }
}

} // namespace
