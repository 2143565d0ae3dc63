// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "config.h"

#include "json_fields.h"

#include "vms_protocol/message_type.h"

#include <QFile>
#include <QHostAddress>
#include <QJsonDocument>
#include <QPair>
#include <QSet>

#include <algorithm>

#include <type_traits>

namespace vms_dgw_sim {
namespace {

// Fails `key` when an earlier object of the same list had the same value there: ids, numbers
// and serial numbers each name one thing. Text is quoted so that blanks show.
template<typename T>
void rejectRepeat(JsonFields& fields, const QString& key, const T& value, QSet<T>* seen)
{
    if (fields.ok() && seen->contains(value)) {
        if constexpr (std::is_same_v<T, QString>)
            fields.fail(key, QStringLiteral("\"%1\" appears twice").arg(value));
        else
            fields.fail(key, QStringLiteral("%1 appears twice").arg(value));
    }
    seen->insert(value);
}

// A small network that makes the gateway useful with no config at all: two cameras and a
// recorder with four cameras behind it, with a few AI abilities, a face library, presets and
// a patrol to show, and a firmware upgrade on offer.
constexpr char defaultDevices[] = R"({"devices": [
  {"id": "cam-1", "name": "Entrance", "sn": "SIM-IPC-20230001", "ip": "192.168.1.64",
   "version": "V5.7.3 build 230512", "seriesName": "IPC-B2", "devCode": "B2-4MP", "devType": 1,
   "upgradeVersion": "V5.8.0 build 240110",
   "secretQuestions": [{"question": "Name of your first school?", "answer": "Hillside"}],
   "abilities": [{"id": 1, "package": "face_detect", "name": "Face detection", "version": 2,
                  "state": 1, "enabled": true}],
   "channels": [
     {"index": 1, "osd": "Entrance",
      "abilities": [{"id": 1, "package": "face_detect", "name": "Face detection", "version": 2,
                     "state": 1, "enabled": true}],
      "faces": [
        {"serialNum": "EMP-0001", "name": "Ada Moss", "gender": 2, "age": 34,
         "organizations": ["Head office", "Reception", "Receptionist"]},
        {"serialNum": "EMP-0002", "name": "Ben Ortiz", "gender": 1, "age": 41,
         "organizations": ["Head office", "Facilities", "Caretaker"]}]}]},
  {"id": "cam-2", "name": "Lobby", "sn": "SIM-IPC-20230002", "ip": "192.168.1.65",
   "version": "V5.7.3 build 230512", "seriesName": "IPC-D4", "devCode": "D4-PTZ", "devType": 1,
   "abilities": [{"id": 3, "package": "people_count", "name": "People counting", "version": 1,
                  "state": 1, "enabled": true}],
   "channels": [
     {"index": 1, "osd": "Lobby",
      "abilities": [{"id": 3, "package": "people_count", "name": "People counting",
                     "version": 1, "state": 1, "enabled": true}],
      "presets": [{"number": 1, "name": "Door"}, {"number": 2, "name": "Desk"},
                  {"number": 3, "name": "Lifts"}],
      "patrols": [{"index": 1, "stops": [{"preset": 1, "stayTime": 10},
                                         {"preset": 2, "stayTime": 10},
                                         {"preset": 3, "stayTime": 20}]}]}]},
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
        rejectRepeat(fields, QStringLiteral("id"), ability.id, &ids);
        fields.finish();
        abilities.append(ability);
    }
    return abilities;
}

QList<Preset> readPresets(JsonFields& channel)
{
    QList<Preset> presets;
    QSet<quint32> numbers;
    for (JsonFields& fields : channel.objects(QStringLiteral("presets"))) {
        Preset preset;
        preset.number = quint32(fields.integer(QStringLiteral("number"), 0, 1, 65535));
        if (!fields.has(QStringLiteral("number")))
            fields.fail(QStringLiteral("number"), QStringLiteral("missing"));
        preset.name =
            fields.text(QStringLiteral("name"), QStringLiteral("Preset %1").arg(preset.number));
        rejectRepeat(fields, QStringLiteral("number"), preset.number, &numbers);
        fields.finish();
        presets.append(preset);
    }
    return presets;
}

QList<Patrol> readPatrols(JsonFields& channel, const QList<Preset>& presets)
{
    QSet<quint32> known;
    for (const Preset& preset : presets)
        known.insert(preset.number);
    QList<Patrol> patrols;
    QSet<qint32> indexes;
    for (JsonFields& fields : channel.objects(QStringLiteral("patrols"))) {
        Patrol patrol;
        patrol.index = fields.int32(QStringLiteral("index"), qint32(patrols.size() + 1));
        patrol.mode = fields.int32(QStringLiteral("mode"));
        for (JsonFields& stopFields : fields.objects(QStringLiteral("stops"))) {
            PatrolStop stop;
            stop.preset = stopFields.uint32(QStringLiteral("preset"));
            stop.stayTime = stopFields.uint32(QStringLiteral("stayTime"), 5);
            stop.speed = stopFields.uint32(QStringLiteral("speed"), 5);
            if (stopFields.ok() && !known.contains(stop.preset))
                stopFields.fail(
                    QStringLiteral("preset"),
                    QStringLiteral("%1 is not a preset of the channel").arg(stop.preset));
            stopFields.finish();
            patrol.stops.append(stop);
        }
        rejectRepeat(fields, QStringLiteral("index"), patrol.index, &indexes);
        fields.finish();
        patrols.append(patrol);
    }
    return patrols;
}

QList<Face> readFaces(JsonFields& channel)
{
    QList<Face> faces;
    QSet<QString> serials;
    for (JsonFields& fields : channel.objects(QStringLiteral("faces"))) {
        Face face;
        face.index = qint32(faces.size() + 1);
        face.serialNum = fields.requiredText(QStringLiteral("serialNum"));
        face.name = fields.text(QStringLiteral("name"));
        face.organizations = fields.texts(QStringLiteral("organizations"));
        face.gender = fields.int32(QStringLiteral("gender"));
        face.age = fields.int32(QStringLiteral("age"));
        face.libraryId = fields.int32(QStringLiteral("libraryId"));
        face.faceType = fields.text(QStringLiteral("faceType"));
        face.validTime = fields.text(QStringLiteral("validTime"));
        face.invalidTime = fields.text(QStringLiteral("invalidTime"));
        face.picture = fields.base64(QStringLiteral("picture"));
        rejectRepeat(fields, QStringLiteral("serialNum"), face.serialNum, &serials);
        fields.finish();
        faces.append(face);
    }
    return faces;
}

// The router of a /24 network is at .1, which is where a device that was never told
// otherwise sends its traffic.
QString defaultGateway(const QString& ip)
{
    bool ok = false;
    const quint32 address = QHostAddress(ip).toIPv4Address(&ok);
    return ok ? QHostAddress((address & 0xFFFFFF00u) | 1u).toString() : QString();
}

void readNetwork(JsonFields& fields, SimDevice* device)
{
    device->subnetMask = fields.text(QStringLiteral("subnetMask"), device->subnetMask);
    device->gateway = fields.text(QStringLiteral("gateway"), defaultGateway(device->ip));
    device->dns = fields.text(QStringLiteral("dns"), device->gateway);
    device->netMode = fields.int32(QStringLiteral("netMode"));
    device->netCardIndex = fields.int32(QStringLiteral("netCardIndex"));

    JsonFields platform = fields.object(QStringLiteral("platform"));
    device->platform.enabled = platform.flag(QStringLiteral("enabled"));
    device->platform.address = platform.text(QStringLiteral("address"));
    device->platform.port = platform.int32(QStringLiteral("port"));
    device->platform.protocolType = platform.int32(QStringLiteral("protocolType"));
    platform.finish();

    JsonFields kvr = fields.object(QStringLiteral("platformKvr"));
    device->platformKvr.enabled = kvr.flag(QStringLiteral("enabled"));
    device->platformKvr.onlineServerEnabled = kvr.flag(QStringLiteral("onlineServerEnabled"));
    device->platformKvr.onlineServer = kvr.text(QStringLiteral("onlineServer"));
    device->platformKvr.businessServerEnabled = kvr.flag(QStringLiteral("businessServerEnabled"));
    device->platformKvr.businessServer = kvr.text(QStringLiteral("businessServer"));
    kvr.finish();
}

void readUpkeep(JsonFields& fields, SimDevice* device)
{
    for (JsonFields& secret : fields.objects(QStringLiteral("secretQuestions"))) {
        device->secretQuestions.append({secret.requiredText(QStringLiteral("question")),
                                        secret.text(QStringLiteral("answer"))});
        secret.finish();
    }
    device->upgradeVersion = fields.text(QStringLiteral("upgradeVersion"));
    device->recordingMinutes =
        int(fields.integer(QStringLiteral("recordingMinutes"), device->recordingMinutes, 1, 1440));
    device->faceRecordMinutes = int(
        fields.integer(QStringLiteral("faceRecordMinutes"), device->faceRecordMinutes, 1, 1440));
}

// What the device's JSON methods generate: records, recordings by day and disks.
void readMethodState(JsonFields& fields, SimDevice* device)
{
    device->eventMinutes =
        int(fields.integer(QStringLiteral("eventMinutes"), device->eventMinutes, 1, 1440));
    const QString since = fields.text(QStringLiteral("recordingsSince"));
    device->recordingsSince = QDate::fromString(since, QStringLiteral("yyyy-MM-dd"));
    if (!since.isEmpty() && !device->recordingsSince.isValid())
        fields.fail(QStringLiteral("recordingsSince"), QStringLiteral("expected yyyy-MM-dd"));
    if (fields.has(QStringLiteral("diskSizesMB"))) {
        device->diskSizesMB.clear();
        for (const QJsonValue& size : fields.array(QStringLiteral("diskSizesMB"))) {
            if (!size.isDouble() || size.toDouble() < 1 || size.toDouble() > 1e9) {
                fields.fail(QStringLiteral("diskSizesMB"),
                            QStringLiteral("expected sizes in MB (1..1000000000)"));
                break;
            }
            device->diskSizesMB.append(qint32(size.toDouble()));
        }
    }
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
    channel.presets = readPresets(fields);
    channel.patrols = readPatrols(fields, channel.presets);
    channel.faces = readFaces(fields);
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
    readNetwork(fields, &device);
    readUpkeep(fields, &device);
    readMethodState(fields, &device);

    if (fields.has(QStringLiteral("channels"))) {
        QSet<quint32> indexes;
        const QList<JsonFields> channels = fields.objects(QStringLiteral("channels"));
        for (JsonFields channelFields : channels) {
            const SimChannel channel =
                readChannel(channelFields, quint32(device.channels.size() + 1), device);
            rejectRepeat(channelFields, QStringLiteral("index"), channel.index, &indexes);
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
        rejectRepeat(fields, QStringLiteral("id"), device.id, &ids);
        devices.append(device);
    }
    return devices;
}

QSet<int> readTypes(JsonFields& fields, const QString& key)
{
    QSet<int> types;
    const QJsonArray numbers = fields.array(key);
    for (const QJsonValue& type : numbers) {
        const double number = type.toDouble(-1);
        if (!type.isDouble() || number < 1 || number > 127 || int(number) != number) {
            fields.fail(key, QStringLiteral("expected message type numbers (1..127)"));
            return {};
        }
        types.insert(int(number));
    }
    return types;
}

// The JSON methods answered with a broken document, by the name of the breakage.
QList<MethodFault> readMethodFaults(JsonFields& faults)
{
    using Kind = MethodFault::Kind;
    static const QList<QPair<QString, Kind>> kinds = {
        {QStringLiteral("notJson"), Kind::NotJson},
        {QStringLiteral("notObject"), Kind::NotObject},
        {QStringLiteral("unknownMethod"), Kind::UnknownMethod},
        {QStringLiteral("wrongCase"), Kind::WrongCase},
        {QStringLiteral("deviceError"), Kind::DeviceError},
        {QStringLiteral("transparentError"), Kind::TransparentError},
        {QStringLiteral("invalidUtf8"), Kind::InvalidUtf8},
    };
    QList<MethodFault> list;
    for (JsonFields& fields : faults.objects(QStringLiteral("methodAnswers"))) {
        MethodFault fault;
        fault.method = fields.text(QStringLiteral("method"));
        const QString answer = fields.requiredText(QStringLiteral("answer"));
        const auto kind = std::find_if(kinds.begin(), kinds.end(),
                                       [&](const auto& row) { return row.first == answer; });
        if (kind == kinds.end()) {
            QStringList names;
            for (const auto& row : kinds)
                names.append(row.first);
            fields.fail(QStringLiteral("answer"),
                        QStringLiteral("unknown answer \"%1\" (known: %2)")
                            .arg(answer, names.join(QStringLiteral(", "))));
        } else {
            fault.kind = kind->second;
        }
        fault.code = fields.int32(QStringLiteral("code"));
        fault.message = fields.text(QStringLiteral("message"));
        fields.finish();
        list.append(fault);
    }
    return list;
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
    faults.ignoredTypes = readTypes(fields, QStringLiteral("ignoreTypes"));
    faults.closeAfterMessages =
        int(fields.integer(QStringLiteral("closeAfterMessages"), 0, 0, 1000000000));
    faults.crashAfterMessages =
        int(fields.integer(QStringLiteral("crashAfterMessages"), 0, 0, 1000000000));
    faults.malformedTypes = readTypes(fields, QStringLiteral("malformedTypes"));
    for (const auto& [key, count] :
         {std::pair{"streamCloseAfterFrames", &faults.streamCloseAfterFrames},
          std::pair{"streamStallAfterFrames", &faults.streamStallAfterFrames},
          std::pair{"streamCutAfterFrames", &faults.streamCutAfterFrames}})
        *count = int(fields.integer(QLatin1String(key), 0, 0, 1000000000));
    faults.methodFaults = readMethodFaults(fields);
    fields.finish();
    return faults;
}

MediaConfig readMedia(JsonFields fields)
{
    MediaConfig media;
    media.frameRate = int(fields.integer(QStringLiteral("frameRate"), media.frameRate, 0, 10000));
    media.bitRate = fields.integer(QStringLiteral("bitRate"), media.bitRate, 8000, 100000000000);
    media.keyFrameIntervalMs = int(
        fields.integer(QStringLiteral("keyFrameIntervalMs"), media.keyFrameIntervalMs, 1, 3600000));
    media.frameBytes =
        int(fields.integer(QStringLiteral("frameBytes"), media.frameBytes, 0, 256 * 1024 * 1024));
    media.playbackMs =
        int(fields.integer(QStringLiteral("playbackMs"), media.playbackMs, 0, 86400000));
    media.progressMs =
        int(fields.integer(QStringLiteral("progressMs"), media.progressMs, 1, 86400000));
    const QString video = fields.text(QStringLiteral("video"), QStringLiteral("h264"));
    if (video == QLatin1String("synthetic"))
        media.video = MediaConfig::Video::Synthetic;
    else if (video != QLatin1String("h264"))
        fields.fail(QStringLiteral("video"),
                    QStringLiteral("unknown video \"%1\" (known: h264, synthetic)").arg(video));
    // Room for the camera's name and the time in the smallest picture; the largest is 4K.
    media.width = int(fields.integer(QStringLiteral("width"), media.width, 64, 3840));
    media.height = int(fields.integer(QStringLiteral("height"), media.height, 64, 2160));
    // The chroma planes of a 4:2:0 picture are half the size.
    if (media.width % 2 != 0)
        fields.fail(QStringLiteral("width"), QStringLiteral("must be even"));
    if (media.height % 2 != 0)
        fields.fail(QStringLiteral("height"), QStringLiteral("must be even"));
    fields.finish();
    return media;
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
        push.flood = fields.flag(QStringLiteral("flood"));
        if (push.flood && (push.everyMs > 0 || push.afterMs > 0))
            fields.fail(QStringLiteral("flood"), QStringLiteral("takes no afterMs or everyMs"));
        const bool repeats = push.everyMs > 0 || push.flood;
        push.count = int(fields.integer(QStringLiteral("count"), repeats ? 0 : 1, 0, 1000000000));
        if (fields.ok() && !repeats && push.count != 1)
            fields.fail(QStringLiteral("count"), QStringLiteral("needs everyMs"));
        fields.objects(QStringLiteral("variants")); // each must be an object
        for (const QJsonValue& variant : push.entry.value(QStringLiteral("variants")).toArray())
            push.variants.append(variant.toObject());
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
    config->messageLog = root.flag(QStringLiteral("messageLog"), true);
    config->rebootMs = int(root.integer(QStringLiteral("rebootMs"), config->rebootMs, 0, 3600000));
    config->upgradeMs =
        int(root.integer(QStringLiteral("upgradeMs"), config->upgradeMs, 0, 3600000));
    config->fileTransferMs =
        int(root.integer(QStringLiteral("fileTransferMs"), config->fileTransferMs, 0, 3600000));
    config->faults = readFaults(root.object(QStringLiteral("faults")));
    config->media = readMedia(root.object(QStringLiteral("streams")));
    config->pushes = readPushes(root);
    if (!root.finish())
        return false;

    // Build every push once now, against the devices as they start, so that a push naming a
    // device that does not exist fails at start and not minutes later.
    const DeviceModel model(config->devices, config->unknownDevicesOnline);
    for (const ScheduledPush& push : std::as_const(config->pushes)) {
        for (int firing = 0; firing < qMax(1, int(push.variants.size())); ++firing) {
            if (buildPush(push, model, error, firing).isNull())
                return false;
        }
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
