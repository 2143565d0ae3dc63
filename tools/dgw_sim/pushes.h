// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

class QTimer;

namespace vms_dgw_sim {

class DeviceModel;
class JsonFields;

// One kind of unsolicited message the gateway can be told to send. Protobuf-lite has no
// reflection, so each kind reads its own fields from its config entry: the wire message's
// field names in lower camel case (dev_id is "devId", attr_9 is "attr9").
struct PushKind
{
    const char* name;
    int type;
    QByteArray (*build)(JsonFields& fields, const DeviceModel& model);
};

const PushKind* findPushKind(const QString& name);
QStringList pushKindNames();

struct ScheduledPush
{
    const PushKind* kind = nullptr;
    QJsonObject entry;
    QString path;
    qint64 afterMs = 0;
    qint64 everyMs = 0; // 0: once
    int count = 1;      // 0: for as long as the connection lives
    // Sent back to back for as long as the client keeps reading, instead of on a schedule: a
    // load for measuring how fast a client takes pushes.
    bool flood = false;
    // Keys that change from one firing to the next: firing n takes variant n modulo their
    // number over the entry (an object's keys one level down), so a repeated face detection
    // can be an alarm one time and none the next.
    QList<QJsonObject> variants;
};

// The payload of one push's `firing` (from 0), built from its entry and the model as they are
// now. Returns a null array and sets `error` when the entry does not describe a valid push.
QByteArray buildPush(const ScheduledPush& push, const DeviceModel& model, QString* error,
                     int firing = 0);

// Sends the scheduled pushes of one connection, relative to the moment it was initialised.
//
// Due times are computed from that start, not from the previous firing, and everything due is
// sent in due-time order (config order on a tie): a loaded machine may send late, but never
// out of order and never a different number of times.
class PushScheduler : public QObject
{
    Q_OBJECT
public:
    using Send = std::function<void(const ScheduledPush& push, const QByteArray& payload)>;

    PushScheduler(QList<ScheduledPush> pushes, const DeviceModel& model, Send send,
                  QObject* parent);

    // Starts the scheduled pushes; a flood is left to the connection, which knows when its
    // client has read enough to take more.
    void start();

private:
    struct Pending
    {
        int index;
        qint64 due;
        int remaining; // 0: no limit
        int fired;
    };

    void fire();
    void arm();

    QList<ScheduledPush> m_pushes;
    const DeviceModel& m_model;
    Send m_send;
    QList<Pending> m_pending;
    QElapsedTimer m_clock;
    QTimer* m_timer;
};

} // namespace vms_dgw_sim
