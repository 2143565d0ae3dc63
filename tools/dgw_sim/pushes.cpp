// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "pushes.h"

#include "device_model.h"
#include "json_fields.h"
#include "sim_log.h"

#include "vms_protocol/message_type.h"

#include <QDateTime>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace vms_dgw_sim {
namespace {

using namespace vms_sdk;

template<typename Message>
QByteArray bytesOf(const Message& message)
{
    const std::string bytes = message.SerializeAsString();
    return QByteArray(bytes.data(), int(bytes.size()));
}

std::string utf8(const QString& text)
{
    return text.toStdString();
}

std::string bytes(const QByteArray& data)
{
    return data.toStdString();
}

// Devices report their own clock; pushes that leave the time out get the current one.
QString timeOr(JsonFields& fields, const QString& key)
{
    const QString given = fields.text(key);
    return given.isEmpty()
               ? QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"))
               : given;
}

void readChannelId(JsonFields& fields, const QString& key, vms_sdk_proto::ChannelId* id)
{
    JsonFields channel = fields.object(key);
    id->set_dev_id(utf8(channel.text(QStringLiteral("devId"))));
    id->set_channel_index(channel.uint32(QStringLiteral("channelIndex")));
    channel.finish();
}

QByteArray deviceIdText(JsonFields& fields, const DeviceModel&)
{
    return fields.requiredText(QStringLiteral("devId")).toUtf8();
}

QByteArray searchedDevs(JsonFields& fields, const DeviceModel& model, bool ranged)
{
    if (!fields.has(QStringLiteral("devIds")))
        return bytesOf(model.search(ranged));
    vms_sdk_proto::SearchedDevsPush push;
    for (const QString& id : fields.texts(QStringLiteral("devIds"))) {
        const SimDevice* device = model.simulated(id);
        if (!device) {
            fields.fail(QStringLiteral("devIds"), QStringLiteral("no device \"%1\"").arg(id));
            return {};
        }
        *push.add_devs() = model.searchEntry(*device);
    }
    return bytesOf(push);
}

QByteArray searchedDevsPush(JsonFields& fields, const DeviceModel& model)
{
    return searchedDevs(fields, model, true);
}

QByteArray broadcastSearchedDevsPush(JsonFields& fields, const DeviceModel& model)
{
    return searchedDevs(fields, model, false);
}

QByteArray devStatusPush(JsonFields& fields, const DeviceModel&)
{
    vms_sdk_proto::DevStatusPush push;
    push.set_dev_id(utf8(fields.requiredText(QStringLiteral("devId"))));
    push.set_status(fields.int32(QStringLiteral("status")));
    return bytesOf(push);
}

QByteArray devInfoPush(JsonFields& fields, const DeviceModel& model)
{
    const QString id = fields.requiredText(QStringLiteral("devId"));
    vms_sdk_proto::DevInfoFromDgw info;
    if (fields.ok() && !model.devInfoFromDgw(id, &info))
        fields.fail(QStringLiteral("devId"), QStringLiteral("no device \"%1\"").arg(id));
    return bytesOf(info);
}

QByteArray devTempUserCodePush(JsonFields& fields, const DeviceModel&)
{
    vms_sdk_proto::DevTempUserCodePush push;
    for (JsonFields& code : fields.objects(QStringLiteral("codes"))) {
        vms_sdk_proto::DevTempUserCode* entry = push.add_codes();
        entry->set_sn(utf8(code.text(QStringLiteral("sn"))));
        entry->set_code(utf8(code.text(QStringLiteral("code"))));
        code.finish();
    }
    return bytesOf(push);
}

QByteArray channelsInfoPush(JsonFields& fields, const DeviceModel& model)
{
    const QString id = fields.requiredText(QStringLiteral("devId"));
    if (fields.ok() && !model.simulated(id) && !model.managed().contains(id))
        fields.fail(QStringLiteral("devId"), QStringLiteral("no device \"%1\"").arg(id));
    return bytesOf(model.channelsInfo(id));
}

QByteArray faceDetectPush(JsonFields& fields, const DeviceModel&)
{
    vms_sdk_proto::FaceDetectLiveInfo push;
    readChannelId(fields, QStringLiteral("channelId"), push.mutable_channel_id());
    JsonFields record = fields.object(QStringLiteral("record"));
    vms_sdk_proto::FaceDetectRecordInfo* out = push.mutable_record();
    out->set_serial_num(utf8(record.text(QStringLiteral("serialNum"))));
    out->set_name(utf8(record.text(QStringLiteral("name"))));
    out->set_company(utf8(record.text(QStringLiteral("company"))));
    out->set_department(utf8(record.text(QStringLiteral("department"))));
    out->set_position(utf8(record.text(QStringLiteral("position"))));
    out->set_detect_time(utf8(timeOr(record, QStringLiteral("detectTime"))));
    out->set_attr_7(record.uint32(QStringLiteral("attr7")));
    out->set_attr_8(record.int32(QStringLiteral("attr8")));
    out->set_attr_9(record.number(QStringLiteral("attr9")));
    out->set_attr_10(record.int32(QStringLiteral("attr10")));
    out->set_attr_11(record.int32(QStringLiteral("attr11")));
    out->set_attr_12(bytes(record.base64(QStringLiteral("attr12"))));
    out->set_attr_13(bytes(record.base64(QStringLiteral("attr13"))));
    record.finish();
    return bytesOf(push);
}

QByteArray faceCountPush(JsonFields& fields, const DeviceModel&)
{
    vms_sdk_proto::FaceCountInfo push;
    readChannelId(fields, QStringLiteral("channelId"), push.mutable_channel_id());
    push.set_attr_2(fields.uint32(QStringLiteral("attr2")));
    push.set_attr_3(fields.uint32(QStringLiteral("attr3")));
    push.set_attr_4(fields.uint32(QStringLiteral("attr4")));
    return bytesOf(push);
}

QByteArray alarmPush(JsonFields& fields, const DeviceModel&)
{
    vms_sdk_proto::AlarmInfo push;
    push.set_alarm_id(utf8(fields.text(QStringLiteral("alarmId"))));
    readChannelId(fields, QStringLiteral("channelId"), push.mutable_channel_id());
    readChannelId(fields, QStringLiteral("triggerChannelId"), push.mutable_trigger_channel_id());
    push.set_trigger_name(utf8(fields.text(QStringLiteral("triggerName"))));
    push.set_alarm_time(utf8(timeOr(fields, QStringLiteral("alarmTime"))));
    for (const QString& attachment : fields.texts(QStringLiteral("attachments"))) {
        const auto decoded = QByteArray::fromBase64Encoding(
            attachment.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
        if (!decoded) {
            fields.fail(QStringLiteral("attachments"), QStringLiteral("expected base64 texts"));
            break;
        }
        push.add_attachments(bytes(decoded.decoded));
    }
    push.set_alarm_type(utf8(fields.text(QStringLiteral("alarmType"))));
    push.set_attr_8(fields.int32(QStringLiteral("attr8")));
    push.set_alarm_name(utf8(fields.text(QStringLiteral("alarmName"))));
    push.set_attr_10(bytes(fields.base64(QStringLiteral("attr10"))));
    return bytesOf(push);
}

QByteArray tlvPush(JsonFields& fields, const DeviceModel&)
{
    vms_sdk_proto::TlvInfo push;
    push.set_dev_id(utf8(fields.requiredText(QStringLiteral("devId"))));
    push.set_tlv_data(bytes(fields.base64(QStringLiteral("tlvData"))));
    return bytesOf(push);
}

QByteArray talkEventPush(JsonFields& fields, const DeviceModel&)
{
    vms_sdk_proto::TalkEventPush push;
    readChannelId(fields, QStringLiteral("channelId"), push.mutable_channel_id());
    push.set_event(fields.int32(QStringLiteral("event")));
    return bytesOf(push);
}

QByteArray fileTransferProgressPush(JsonFields& fields, const DeviceModel&)
{
    vms_sdk_proto::FileTransferProgress push;
    push.set_request_id(utf8(fields.text(QStringLiteral("requestId"))));
    push.set_attr_2(fields.int32(QStringLiteral("attr2")));
    push.set_attr_3(fields.int32(QStringLiteral("attr3")));
    return bytesOf(push);
}

// Every push the library routes, one row each.
constexpr PushKind pushKinds[] = {
    {"searchedDevs", SearchedDevsPush, searchedDevsPush},
    {"broadcastSearchedDevs", BroadcastSearchedDevsPush, broadcastSearchedDevsPush},
    {"devStatus", DevStatusPush, devStatusPush},
    {"devP2PSuccess", DevP2PSuccessPush, deviceIdText},
    {"devInfo", DevInfoPush, devInfoPush},
    {"devTempUserCode", DevTempUserCodePush, devTempUserCodePush},
    {"channelsInfo", DevChannelsInfoPush, channelsInfoPush},
    {"faceDetect", FaceDetectLivePush, faceDetectPush},
    {"faceCount", FaceCountPush, faceCountPush},
    {"alarm", CommonAlarmPush, alarmPush},
    {"tlv", TlvDataPush, tlvPush},
    {"uploadUpgradeFileFinished", UploadUpgradeFileFinishedPush, deviceIdText},
    {"talkEvent", TalkEventPush, talkEventPush},
    {"speakEvent", SpeakEventPush, talkEventPush},
    {"fileTransferProgress", FileTransferProgressPush, fileTransferProgressPush},
};

} // namespace

const PushKind* findPushKind(const QString& name)
{
    for (const PushKind& kind : pushKinds) {
        if (name == QLatin1String(kind.name))
            return &kind;
    }
    return nullptr;
}

QStringList pushKindNames()
{
    QStringList names;
    for (const PushKind& kind : pushKinds)
        names.append(QString::fromLatin1(kind.name));
    return names;
}

namespace {

QJsonObject entryOf(const ScheduledPush& push, int firing)
{
    if (push.variants.isEmpty())
        return push.entry;
    QJsonObject entry = push.entry;
    const QJsonObject variant = push.variants.at(firing % push.variants.size());
    for (auto key = variant.begin(); key != variant.end(); ++key) {
        QJsonObject nested = entry.value(key.key()).toObject();
        if (key.value().isObject() && !nested.isEmpty()) {
            const QJsonObject changes = key.value().toObject();
            for (auto change = changes.begin(); change != changes.end(); ++change)
                nested.insert(change.key(), change.value());
            entry.insert(key.key(), nested);
        } else {
            entry.insert(key.key(), key.value());
        }
    }
    return entry;
}

} // namespace

QByteArray buildPush(const ScheduledPush& push, const DeviceModel& model, QString* error,
                     int firing)
{
    const QString path =
        push.variants.isEmpty()
            ? push.path
            : QStringLiteral("%1 (variant %2)").arg(push.path).arg(firing % push.variants.size());
    JsonFields fields(entryOf(push, firing), path, error);
    for (const char* key : {"type", "afterMs", "everyMs", "count", "flood", "variants"})
        fields.skip(QString::fromLatin1(key));
    QByteArray payload = push.kind->build(fields, model);
    if (!fields.finish())
        return {};
    // Serialising a message whose fields are all defaults gives no bytes; that is still a
    // payload, unlike the null array that reports a failure.
    if (payload.isNull())
        payload = QByteArray("");
    return payload;
}

PushScheduler::PushScheduler(QList<ScheduledPush> pushes, const DeviceModel& model, Send send,
                             QObject* parent)
    : QObject(parent)
    , m_pushes(std::move(pushes))
    , m_model(model)
    , m_send(std::move(send))
    , m_timer(new QTimer(this))
{
    m_timer->setSingleShot(true);
    m_timer->setTimerType(Qt::PreciseTimer);
    connect(m_timer, &QTimer::timeout, this, &PushScheduler::fire);
}

void PushScheduler::start()
{
    m_clock.start();
    m_pending.clear();
    for (int i = 0; i < m_pushes.size(); ++i) {
        if (!m_pushes.at(i).flood)
            m_pending.append({i, m_pushes.at(i).afterMs, m_pushes.at(i).count, 0});
    }
    fire();
}

void PushScheduler::fire()
{
    const auto earliest = [](const Pending& a, const Pending& b) {
        return a.due != b.due ? a.due < b.due : a.index < b.index;
    };
    while (!m_pending.isEmpty()) {
        const auto next = std::min_element(m_pending.begin(), m_pending.end(), earliest);
        if (next->due > m_clock.elapsed())
            break;
        const ScheduledPush& push = m_pushes.at(next->index);
        QString error;
        const QByteArray payload = buildPush(push, m_model, &error, next->fired++);
        if (payload.isNull())
            logLine(QStringLiteral("push %1 not sent: %2").arg(push.path, error));
        else
            m_send(push, payload);
        const bool last = push.everyMs == 0 || next->remaining == 1;
        if (last) {
            m_pending.erase(next);
        } else {
            next->due += push.everyMs;
            if (next->remaining > 0)
                --next->remaining;
        }
    }
    arm();
}

void PushScheduler::arm()
{
    qint64 due = -1;
    for (const Pending& pending : std::as_const(m_pending))
        due = due < 0 ? pending.due : qMin(due, pending.due);
    if (due < 0) {
        m_timer->stop();
        return;
    }
    m_timer->start(int(qMax<qint64>(0, due - m_clock.elapsed())));
}

} // namespace vms_dgw_sim
