// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include "outcome.h"

#include "vms_message.pb.h"

#include <QByteArray>
#include <QDate>
#include <QElapsedTimer>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

namespace vms_dgw_sim {

// One AI ability of a device or channel, keyed by its ability number in the wire maps.
struct Ability
{
    qint32 id = 0;
    QString package;
    qint32 version = 0;
    QString name;
    qint32 state = 0;
    bool enabled = false;
};

struct Preset
{
    quint32 number = 0;
    QString name;
};

struct PatrolStop
{
    quint32 preset = 0;
    quint32 stayTime = 0; // seconds
    quint32 speed = 0;
};

struct Patrol
{
    qint32 index = 0;
    QList<PatrolStop> stops;
    qint32 mode = 0;
    bool running = false;
};

// A person of a channel's face library.
struct Face
{
    qint32 index = 0; // given by the library, unique in it
    QString serialNum;
    QString name;
    QStringList organizations;
    qint32 gender = 0;
    qint32 age = 0;
    qint32 libraryId = 0;
    QString faceType;
    QString validTime;
    QString invalidTime;
    QByteArray picture;
};

// What the applications and settings of a channel keep for its JSON methods: what a set
// changes, a get returns.
struct ImageAdjust
{
    qint32 contrast = 50;
    qint32 brightness = 50;
    qint32 saturation = 50;
    qint32 sharpen = 50;
    bool mirror = false;
    bool flip = false;
    qint32 rotate = 0;
    qint32 style = 0;
};

struct FaceGroup
{
    qint32 id = 0;
    QString name;
    bool enabled = true;
};

// A person of the face application's library (not the gateway's own face library above).
struct LibraryFace
{
    qint32 index = 0;
    QString name;
    QString faceId;
    qint32 gender = 0;
    QString birthdate;
    QString startTime;
    QString endTime;
    QString classification;
    QString jpegUuid;
    QList<qint32> groupIds;
    // "success", "failed" or "pending": a new picture is modelled on the next read.
    QString modelingStatus = QStringLiteral("pending");
};

struct ParkingLock
{
    QString lockId;
    qint32 status = 0; // 0 down, 1 up
    QString regionName;
    QString parkingId;
};

struct TagPoint
{
    qint32 x = 0;
    qint32 y = 0;
    double pan = 0;
    double tilt = 0;
    double zoom = 0;
};

// An operation that advances each time its progress is asked for, until it is done.
struct Progress
{
    bool started = false;
    qint32 asked = 0;
};

struct ChannelApps
{
    ImageAdjust image;
    QList<FaceGroup> groups = {{1, QStringLiteral("Staff"), true},
                               {2, QStringLiteral("Visitors"), false}};
    QList<LibraryFace> library = {
        {1,
         QStringLiteral("Ann"),
         QStringLiteral("E-1001"),
         2,
         QStringLiteral("1990-04-12"),
         QStringLiteral("2024-01-01 00:00:00"),
         QStringLiteral("2034-01-01 00:00:00"),
         QStringLiteral("staff"),
         QStringLiteral("6d1f0c2e-0001"),
         {1},
         QStringLiteral("success")},
        {2,
         QStringLiteral("Bob"),
         QStringLiteral("V-2001"),
         1,
         QStringLiteral("1985-11-02"),
         QStringLiteral("2024-01-01 00:00:00"),
         QStringLiteral("2024-12-31 23:59:59"),
         QStringLiteral("visitor"),
         QStringLiteral("6d1f0c2e-0002"),
         {2},
         QStringLiteral("failed")},
    };
    qint32 nextFaceIndex = 3;
    QList<ParkingLock> locks = {
        {QStringLiteral("L-01"), 0, QStringLiteral("North"), QStringLiteral("P-101")},
        {QStringLiteral("L-02"), 1, QStringLiteral("North"), QStringLiteral("P-102")}};
    QList<TagPoint> tagPoints;
    Progress calibration;
    Progress import;
    Progress exportJob;
};

struct SimChannel
{
    quint32 index = 1;
    QString osd;
    quint32 devType = 0;
    bool online = true;
    // The camera behind a recorder's channel; empty for a camera's own channel.
    QString sn;
    QString ip;
    quint32 port = 0;
    QString user;
    QString password;
    qint32 protocol = 0;
    qint32 loginMode = 0;
    QList<Ability> abilities;
    QList<Preset> presets;
    QList<Patrol> patrols;
    QList<Face> faces;
    ChannelApps apps;
    // Who is using the channel's audio line: one talk or one speak session at a time.
    enum class Audio { Idle, Talk, Speak } audio = Audio::Idle;
};

struct SecretQuestion
{
    QString question;
    QString answer;
};

// The management platform a device registers with.
struct Platform
{
    bool enabled = false;
    QString address;
    qint32 port = 0;
    qint32 protocolType = 0;
};

// The second kind of platform: a server to go online with and one for the business traffic.
struct PlatformKvr
{
    bool enabled = false;
    bool onlineServerEnabled = false;
    QString onlineServer;
    bool businessServerEnabled = false;
    QString businessServer;
};

// A device that exists on the simulated network.
struct SimDevice
{
    QString id;
    QString name;
    QString sn;
    QString ip;
    quint32 port = 8000;
    QString user = QStringLiteral("admin");
    // Empty: any password logs in. Otherwise a managed device must bring exactly this one.
    QString password;
    QString version;
    QString seriesName;
    QString devCode;
    quint32 devType = 0;
    qint32 protocol = 0;
    qint32 activateStatus = 1;
    bool dhcpEnabled = false;
    qint32 httpPort = 80;
    qint32 rtspPort = 554;
    qint32 loginMode = 0;
    // An offline device is unplugged: it answers no search and never logs in.
    bool online = true;
    QList<SimChannel> channels;
    QList<Ability> abilities;

    QString subnetMask = QStringLiteral("255.255.255.0");
    QString gateway;
    QString dns;
    qint32 netMode = 0;
    qint32 netCardIndex = 0;
    Platform platform;
    PlatformKvr platformKvr;
    QList<SecretQuestion> secretQuestions;
    // The firmware the device's upgrade server offers; empty or the running one: none newer.
    QString upgradeVersion;
    // Length of the generated recording files and the spacing of generated face records.
    int recordingMinutes = 60;
    int faceRecordMinutes = 30;
    // The spacing of generated events, alarm, plate and temperature records.
    int eventMinutes = 15;
    // The first day with recordings; null: the device has recorded for ever.
    QDate recordingsSince;
    // Disks with their size; one 1 TB disk unless the config says otherwise.
    QList<qint32> diskSizesMB = {953869};

    // What happens to the device while the gateway runs; a factory reset leaves it alone.
    struct Runtime
    {
        qint64 rebootUntilMs = 0; // on the model's clock; 0: not rebooting
        qint64 upgradeStartMs = -1;
        int upgradeRun = 0; // counts the upgrades, so a late timer knows whether it is its own
        qint64 upgradeDurationMs = 0;
        QString upgradeTarget;
        bool upgradeFinished = false;
        qint64 clockOffsetMs = 0;  // the device's clock against the gateway's
        qint32 formattingDisk = 0; // the disk number being formatted; 0: none
        qint32 formatAsked = 0;    // how often its progress was asked for
        QList<qint32> formattedDisks;
    } runtime;
};

// The devices of the simulated network and the state this gateway keeps about them: which
// of them the application manages here and the search range it set. Every answer and push
// about a device is built here, so that what the application set is what it reads back.
//
// The application names a managed device by an id of its own choosing; the simulated device
// behind it is the one with the same id or, failing that, the same ip. A managed device with
// no simulated device behind it is answered from the record the application gave.
class DeviceModel
{
public:
    static constexpr qint32 StatusOnline = 0;
    static constexpr qint32 StatusOffline = 1;

    DeviceModel(QList<SimDevice> devices, bool unknownDevicesOnline);

    const QList<SimDevice>& devices() const { return m_devices; }
    const SimDevice* simulated(const QString& id) const;
    SimDevice* bySerial(const QString& sn);

    // Milliseconds since the gateway started: the clock of reboots and upgrades.
    qint64 now() const { return m_clock.elapsed(); }
    bool rebooting(const SimDevice& device) const;
    // Plugged in and not rebooting.
    bool up(const SimDevice& device) const;

    // The simulated device behind an id a request names: a managed id, or a simulated
    // device's own id when nothing is managed under it. Null when there is none.
    SimDevice* target(const QString& devId);
    // The same, for a request that needs the device to answer: fails when there is no such
    // device or when the gateway cannot reach it right now.
    Outcome reach(const QString& devId, SimDevice** device);
    Outcome reach(const vms_sdk_proto::ChannelId& id, SimDevice** device, SimChannel** channel);

    // Back to the config file's values; `keepNetwork` leaves the address settings as they are.
    void restoreFactory(SimDevice* device, bool keepNetwork);
    // The gateway changed a device's address or password itself, so it keeps logging in to it
    // with the new ones: the managed records behind the device follow.
    void addressChanged(const SimDevice& device, const QString& oldIp);
    void passwordChanged(const SimDevice& device);

    const QMap<QString, vms_sdk_proto::DevInfo>& managed() const { return m_managed; }
    void setManaged(const QList<vms_sdk_proto::DevInfo>& devices);
    void addManaged(const vms_sdk_proto::DevInfo& device);
    bool removeManaged(const QString& id);
    // Only a device that is managed here can be edited; returns false for any other.
    bool editManaged(const vms_sdk_proto::DevInfo& device);

    const SimDevice* backing(const vms_sdk_proto::DevInfo& managed) const;
    qint32 statusOf(const vms_sdk_proto::DevInfo& managed) const;

    void setSearchConfig(const vms_sdk_proto::SetSearchDevsConfigCmd& config);
    // What a search finds: the online devices, restricted to the configured ip range when
    // `ranged` (a broadcast reaches the whole segment and ignores the range).
    vms_sdk_proto::SearchedDevsPush search(bool ranged) const;

    vms_sdk_proto::DevInfo searchEntry(const SimDevice& device) const;
    // The information of a device named by its managed id or, when it is not managed here,
    // by its simulated id. False when the id names neither.
    bool devInfoFromDgw(const QString& devId, vms_sdk_proto::DevInfoFromDgw* info) const;
    // The channels of such a device; none for an id that names neither.
    vms_sdk_proto::DevChannelsInfoPush channelsInfo(const QString& devId) const;

private:
    bool inSearchRange(const QString& ip) const;

    QList<SimDevice> m_devices;
    const QList<SimDevice> m_factory;
    bool m_unknownDevicesOnline;
    QElapsedTimer m_clock;
    QMap<QString, vms_sdk_proto::DevInfo> m_managed;
    vms_sdk_proto::SetSearchDevsConfigCmd m_searchConfig;
};

} // namespace vms_dgw_sim
