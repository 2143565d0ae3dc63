// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "config.h"

#include "json_fields.h"

#include "vms_protocol/message_type.h"

#include <QFile>
#include <QJsonDocument>
#include <QSet>

namespace vms_dgw_sim {
namespace {

// A small network that makes the gateway useful with no config at all: two cameras and a
// recorder with four cameras behind it, with a few AI abilities to show.
constexpr char defaultDevices[] = R"({"devices": [
  {"id": "cam-1", "name": "Entrance", "sn": "SIM-IPC-20230001", "ip": "192.168.1.64",
   "version": "V5.7.3 build 230512", "seriesName": "IPC-B2", "devCode": "B2-4MP", "devType": 1,
   "abilities": [{"id": 1, "package": "face_detect", "name": "Face detection", "version": 2,
                  "state": 1, "enabled": true}]},
  {"id": "cam-2", "name": "Lobby", "sn": "SIM-IPC-20230002", "ip": "192.168.1.65",
   "version": "V5.7.3 build 230512", "seriesName": "IPC-D4", "devCode": "D4-PTZ", "devType": 1,
   "abilities": [{"id": 3, "package": "people_count", "name": "People counting", "version": 1,
                  "state": 1, "enabled": true}]},
  {"id": "nvr-1", "name": "Recorder", "sn": "SIM-NVR-20230001", "ip": "192.168.1.100",
   "version": "V4.1.0 build 221130", "seriesName": "NVR-8", "devCode": "NVR-8CH", "devType": 2,
   "channels": [
     {"index": 1, "osd": "Car park", "ip": "192.168.1.201", "sn": "SIM-IPC-20220101"},
     {"index": 2, "osd": "Loading bay", "ip": "192.168.1.202", "sn": "SIM-IPC-20220102"},
     {"index": 3, "osd": "Stairs", "ip": "192.168.1.203", "sn": "SIM-IPC-20220103"},
     {"index": 4, "osd": "Back door", "ip": "192.168.1.204", "sn": "SIM-IPC-20220104",
      "online": false}]}
]})";

QList<Ability> readAbilities(JsonFields& owner)
{
    QList<Ability> abilities;
    QSet<qint32> ids;
    for (JsonFields& fields : owner.objects(QStringLiteral("abilities"))) {
        Ability ability;
        if (!fields.has(QStringLiteral("id")))
            fields.fail(QStringLiteral("id"), QStringLiteral("missing"));
        ability.id = fields.int32(QStringLiteral("id"));
        ability.package = fields.text(QStringLiteral("package"));
        ability.version = fields.int32(QStringLiteral("version"));
        ability.name = fields.text(QStringLiteral("name"));
        ability.state = fields.int32(QStringLiteral("state"));
        ability.enabled = fields.flag(QStringLiteral("enabled"));
        if (fields.ok() && ids.contains(ability.id))
            fields.fail(QStringLiteral("id"), QStringLiteral("%1 appears twice").arg(ability.id));
        ids.insert(ability.id);
        fields.finish();
        abilities.append(ability);
    }
    return abilities;
}

SimChannel readChannel(JsonFields& fields, quint32 defaultIndex, const SimDevice& device)
{
    SimChannel channel;
    channel.index = fields.uint32(QStringLiteral("index"), defaultIndex);
    channel.osd = fields.text(QStringLiteral("osd"),
                              QStringLiteral("%1 %2").arg(device.name).arg(channel.index));
    channel.devType = fields.uint32(QStringLiteral("devType"));
    channel.online = fields.flag(QStringLiteral("online"), true);
    channel.sn = fields.text(QStringLiteral("sn"));
    channel.ip = fields.text(QStringLiteral("ip"));
    channel.port = fields.uint32(QStringLiteral("port"));
    channel.user = fields.text(QStringLiteral("user"));
    channel.password = fields.text(QStringLiteral("password"));
    channel.protocol = fields.int32(QStringLiteral("protocol"));
    channel.loginMode = fields.int32(QStringLiteral("loginMode"));
    channel.abilities = readAbilities(fields);
    fields.finish();
    return channel;
}

SimDevice readDevice(JsonFields& fields)
{
    SimDevice device;
    device.id = fields.requiredText(QStringLiteral("id"));
    device.name = fields.text(QStringLiteral("name"), device.id);
    device.sn = fields.text(QStringLiteral("sn"));
    device.ip = fields.text(QStringLiteral("ip"));
    device.port = fields.uint32(QStringLiteral("port"), device.port);
    device.user = fields.text(QStringLiteral("user"), device.user);
    device.password = fields.text(QStringLiteral("password"));
    device.version = fields.text(QStringLiteral("version"));
    device.seriesName = fields.text(QStringLiteral("seriesName"));
    device.devCode = fields.text(QStringLiteral("devCode"));
    device.devType = fields.uint32(QStringLiteral("devType"));
    device.protocol = fields.int32(QStringLiteral("protocol"));
    device.activateStatus = fields.int32(QStringLiteral("activateStatus"), device.activateStatus);
    device.dhcpEnabled = fields.flag(QStringLiteral("dhcpEnabled"));
    device.httpPort = fields.int32(QStringLiteral("httpPort"), device.httpPort);
    device.rtspPort = fields.int32(QStringLiteral("rtspPort"), device.rtspPort);
    device.loginMode = fields.int32(QStringLiteral("loginMode"));
    device.online = fields.flag(QStringLiteral("online"), true);
    device.abilities = readAbilities(fields);

    if (fields.has(QStringLiteral("channels"))) {
        QSet<quint32> indexes;
        const QList<JsonFields> channels = fields.objects(QStringLiteral("channels"));
        for (JsonFields channelFields : channels) {
            const SimChannel channel =
                readChannel(channelFields, quint32(device.channels.size() + 1), device);
            if (channelFields.ok() && indexes.contains(channel.index)) {
                channelFields.fail(QStringLiteral("index"),
                                   QStringLiteral("%1 appears twice").arg(channel.index));
            }
            indexes.insert(channel.index);
            device.channels.append(channel);
        }
    } else {
        // A camera is its own single channel, with its own abilities.
        SimChannel channel;
        channel.osd = device.name;
        channel.abilities = device.abilities;
        device.channels.append(channel);
    }
    fields.finish();
    return device;
}

QList<SimDevice> readDevices(JsonFields& root)
{
    QList<SimDevice> devices;
    QSet<QString> ids;
    for (JsonFields& fields : root.objects(QStringLiteral("devices"))) {
        const SimDevice device = readDevice(fields);
        if (fields.ok() && ids.contains(device.id))
            fields.fail(QStringLiteral("id"),
                        QStringLiteral("\"%1\" appears twice").arg(device.id));
        ids.insert(device.id);
        devices.append(device);
    }
    return devices;
}

FaultConfig readFaults(JsonFields fields)
{
    FaultConfig faults;
    if (fields.has(QStringLiteral("refuseInit"))) {
        JsonFields refusal = fields.object(QStringLiteral("refuseInit"));
        const qint32 code = refusal.int32(QStringLiteral("code"));
        if (refusal.ok() && code == 0)
            refusal.fail(QStringLiteral("code"), QStringLiteral("must be a non-zero error code"));
        faults.refusals.append({vms_sdk::InitDgwReq, vms_sdk::InitDgwRes, code,
                                refusal.text(QStringLiteral("message"))});
        refusal.finish();
    }
    faults.answerDelayMs = int(fields.integer(QStringLiteral("answerDelayMs"), 0, 0, 600000));
    const QJsonArray ignored = fields.array(QStringLiteral("ignoreTypes"));
    for (const QJsonValue& type : ignored) {
        const double number = type.toDouble(-1);
        if (!type.isDouble() || number < 1 || number > 127 || int(number) != number) {
            fields.fail(QStringLiteral("ignoreTypes"),
                        QStringLiteral("expected message type numbers (1..127)"));
            break;
        }
        faults.ignoredTypes.insert(int(number));
    }
    faults.closeAfterMessages =
        int(fields.integer(QStringLiteral("closeAfterMessages"), 0, 0, 1000000000));
    faults.crashAfterMessages =
        int(fields.integer(QStringLiteral("crashAfterMessages"), 0, 0, 1000000000));
    fields.finish();
    return faults;
}

QList<ScheduledPush> readPushes(JsonFields& root)
{
    QList<ScheduledPush> pushes;
    const QJsonArray entries = root.array(QStringLiteral("pushes"));
    for (JsonFields& fields : root.objects(QStringLiteral("pushes"))) {
        ScheduledPush push;
        push.path = fields.path();
        push.entry = entries.at(pushes.size()).toObject();
        const QString type = fields.requiredText(QStringLiteral("type"));
        push.kind = findPushKind(type);
        if (fields.ok() && !push.kind) {
            fields.fail(QStringLiteral("type"),
                        QStringLiteral("unknown push \"%1\" (known: %2)")
                            .arg(type, pushKindNames().join(QStringLiteral(", "))));
        }
        push.afterMs = fields.integer(QStringLiteral("afterMs"), 0, 0, 86400000);
        push.everyMs = fields.integer(QStringLiteral("everyMs"), 0, 0, 86400000);
        push.count =
            int(fields.integer(QStringLiteral("count"), push.everyMs > 0 ? 0 : 1, 0, 1000000000));
        if (fields.ok() && push.everyMs == 0 && push.count != 1)
            fields.fail(QStringLiteral("count"), QStringLiteral("needs everyMs"));
        pushes.append(push);
    }
    return pushes;
}

} // namespace

bool parseConfig(const QByteArray& json, SimConfig* config, QString* error)
{
    error->clear();
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        *error = QStringLiteral("not valid JSON: %1 at offset %2")
                     .arg(parseError.errorString())
                     .arg(parseError.offset);
        return false;
    }
    if (!document.isObject()) {
        *error = QStringLiteral("not valid: the top level must be a JSON object");
        return false;
    }

    JsonFields root(document.object(), QString(), error);
    *config = SimConfig();
    if (root.has(QStringLiteral("devices")))
        config->devices = readDevices(root);
    else if (!parseConfig(QByteArray(defaultDevices), config, error))
        return false;

    const QString unknown = root.text(QStringLiteral("unknownDevices"), QStringLiteral("online"));
    if (unknown != QLatin1String("online") && unknown != QLatin1String("offline"))
        root.fail(QStringLiteral("unknownDevices"), QStringLiteral("expected online or offline"));
    config->unknownDevicesOnline = unknown == QLatin1String("online");
    config->idleExitMs = int(root.integer(QStringLiteral("idleExitMs"), 0, 0, 86400000));
    config->faults = readFaults(root.object(QStringLiteral("faults")));
    config->pushes = readPushes(root);
    if (!root.finish())
        return false;

    // Build every push once now, against the devices as they start, so that a push naming a
    // device that does not exist fails at start and not minutes later.
    const DeviceModel model(config->devices, config->unknownDevicesOnline);
    for (const ScheduledPush& push : std::as_const(config->pushes)) {
        if (buildPush(push, model, error).isNull())
            return false;
    }
    return true;
}

bool loadConfigFile(const QString& path, SimConfig* config, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("cannot read config file %1: %2").arg(path, file.errorString());
        return false;
    }
    if (!parseConfig(file.readAll(), config, error)) {
        *error = QStringLiteral("config file %1 is %2")
                     .arg(path, error->startsWith(QLatin1String("not valid"))
                                    ? *error
                                    : QStringLiteral("wrong: ") + *error);
        return false;
    }
    return true;
}

bool loadConfig(SimConfig* config, QString* error)
{
    const QString path = qEnvironmentVariable(ConfigVariable);
    if (path.isEmpty())
        return parseConfig(QByteArray("{}"), config, error);
    return loadConfigFile(path, config, error);
}

} // namespace vms_dgw_sim
