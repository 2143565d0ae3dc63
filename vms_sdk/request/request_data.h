// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <vms_sdk/vms_client_sdk.h>

#include <QMap>
#include <QMutex>
#include <QMutexLocker>
#include <QObject>
#include <QString>

#include <tuple>

namespace vms_sdk {

// What becomes of a stored condition when its request times out.
enum class OnTimeout { Keep, Drop };

// One kind of stored condition: the record and its fate on a time-out.
template<typename Condition, OnTimeout Policy = OnTimeout::Keep>
struct StoredCondition
{
    using Type = Condition;
    static constexpr OnTimeout onTimeout = Policy;
};

// The Qt side of ConditionStore, which moc cannot read because it is a template: listens for
// request time-outs.
class ConditionStoreBase : public QObject
{
    Q_OBJECT
protected:
    explicit ConditionStoreBase(QObject* parent);

private Q_SLOTS:
    void slotRequestTimeout(const QString& requestId);

private:
    virtual void dropTimedOut(const QString& requestId) = 0;
};

// Copies of the conditions of requests whose answers cannot be read, or continued page by
// page, without the request that produced them. One map per kind, keyed by request id and
// found by the condition's type; a second store under the same id overwrites the first.
template<typename... Kinds>
class ConditionStore final : public ConditionStoreBase
{
public:
    explicit ConditionStore(QObject* parent = nullptr)
        : ConditionStoreBase(parent)
    {}

    static ConditionStore* instance()
    {
        static ConditionStore* const store = new ConditionStore;
        return store;
    }

    template<typename Condition>
    void setCondition(const QString& requestId, const Condition& condition)
    {
        QMutexLocker locker(&m_mutex);
        conditions<Condition>().insert(requestId, condition);
    }

    // A default-constructed condition when none is stored under the id.
    template<typename Condition>
    Condition condition(const QString& requestId, bool remove)
    {
        QMutexLocker locker(&m_mutex);
        QMap<QString, Condition>& stored = conditions<Condition>();
        return remove ? stored.take(requestId) : stored.value(requestId);
    }

private:
    // Fails to compile for a type that is not one of the kinds, or is listed twice.
    template<typename Condition>
    QMap<QString, Condition>& conditions()
    {
        return std::get<QMap<QString, Condition>>(m_conditions);
    }

    void dropTimedOut([[maybe_unused]] const QString& requestId) override
    {
        QMutexLocker locker(&m_mutex);
        (dropIfMarked<Kinds>(requestId), ...);
    }

    template<typename Kind>
    void dropIfMarked(const QString& requestId)
    {
        if constexpr (Kind::onTimeout == OnTimeout::Drop)
            conditions<typename Kind::Type>().remove(requestId);
    }

    QMutex m_mutex;
    std::tuple<QMap<QString, typename Kinds::Type>...> m_conditions;
};

// The process's store, one line per kind. Only the customers count is forgotten when its
// request times out; the other kinds outlive the time-out on purpose, so that a later page
// request or a late answer still finds its condition.
using RequestData = ConditionStore<
    StoredCondition<GetCustomersCntCondition, OnTimeout::Drop>,
    StoredCondition<GetCustomersRegionAttentionCondition>,
    StoredCondition<GetAlarmRecordsCondition>, StoredCondition<GetEventRecordsCondition>,
    StoredCondition<GetCalendarMaskCondition>, StoredCondition<GetCustomerGroupCondition>>;

} // namespace vms_sdk
