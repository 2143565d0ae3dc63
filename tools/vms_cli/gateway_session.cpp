// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "gateway_session.h"

#include "event_loop.h"
#include "value_text.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

namespace vms_cli {

namespace {

constexpr int ReadyGuardMs = 30000;
constexpr int LoginGuardMs = 10000;

QString firstExisting(const QStringList& candidates)
{
    for (const QString& path : candidates) {
        if (QFileInfo(path).isFile())
            return QFileInfo(path).absoluteFilePath();
    }
    return candidates.value(0);
}

} // namespace

QString GatewaySession::defaultGateway()
{
    // Installed beside vms_cli; in a build tree, where the build put it.
    return firstExisting({QCoreApplication::applicationDirPath() + QStringLiteral("/vms_dgw_sim"),
                          QStringLiteral(VMS_CLI_BUILD_SIM)});
}

QString GatewaySession::defaultDevices()
{
    return firstExisting({QCoreApplication::applicationDirPath() + QLatin1Char('/') +
                              QStringLiteral(VMS_CLI_INSTALLED_DEVICES),
                          QStringLiteral(VMS_CLI_SOURCE_DEVICES)});
}

bool GatewaySession::readDevices(const QString& path, QList<vms_sdk::DevInfo>* devices,
                                 QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("cannot read the device file %1").arg(path);
        return false;
    }
    QJsonParseError parse;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &parse);
    if (!document.isObject() || !document.object().value(QLatin1String("devices")).isArray()) {
        *error = QStringLiteral("%1 is not a device file: it needs {\"devices\": [...]}%2")
                     .arg(path, parse.error == QJsonParseError::NoError
                                    ? QString()
                                    : QStringLiteral(" (%1)").arg(parse.errorString()));
        return false;
    }
    for (const QJsonValue& entry : document.object().value(QLatin1String("devices")).toArray()) {
        const QJsonObject device = entry.toObject();
        if (device.value(QLatin1String("id")).toString().isEmpty()) {
            *error = QStringLiteral("%1: every device needs an \"id\"").arg(path);
            return false;
        }
        devices->append(vms_sdk::DevInfo{
            .id = device.value(QLatin1String("id")).toString(),
            .name = device.value(QLatin1String("name")).toString(),
            .sn = device.value(QLatin1String("sn")).toString(),
            .ip = device.value(QLatin1String("ip")).toString(),
            .port = unsigned(device.value(QLatin1String("port")).toInt(8000)),
            .user = device.value(QLatin1String("user")).toString(QStringLiteral("admin")),
            .password = device.value(QLatin1String("password")).toString(),
        });
    }
    return true;
}

bool GatewaySession::start(const Options& options, QTextStream& err)
{
    m_gateway = options.gateway.isEmpty() ? defaultGateway() : options.gateway;
    m_devicesPath = options.devices.isEmpty() ? defaultDevices() : options.devices;
    QString error;
    if (!readDevices(m_devicesPath, &m_devices, &error)) {
        err << error << Qt::endl;
        return false;
    }
    // The simulator reads its devices from the same file, unless told otherwise already.
    if (qEnvironmentVariableIsEmpty("VMS_DGW_SIM_CONFIG"))
        qputenv("VMS_DGW_SIM_CONFIG", QFileInfo(m_devicesPath).absoluteFilePath().toLocal8Bit());

    vms_sdk::init_vms_client_sdk();
    m_started = true;
    auto* signals_ = vms_sdk::ClientSignals::instance();
    bool abnormal = false;
    QObject context;
    QObject::connect(signals_, &vms_sdk::ClientSignals::signalDgwAbnormal, &context,
                     [&] { abnormal = true; });
    // Said whenever it happens, during a command or after it, the release included.
    QObject::connect(signals_, &vms_sdk::ClientSignals::signalDgwAbnormal, &m_watch,
                     [&err](vms_sdk::DgwAbnormal reason) {
                         err << "gateway abnormal: " << scalarText(QVariant::fromValue(reason))
                             << Qt::endl;
                     });
    QSet<QString> reported;
    QObject::connect(signals_, &vms_sdk::ClientSignals::signalDevStatusPush, &context,
                     [&](const QString& devId, vms_sdk::DevStatus status) {
                         reported.insert(devId);
                         m_online += status == vms_sdk::DevStatusOnline ? 1 : 0;
                     });

    vms_sdk::PendingRequest* ready = vms_sdk::send<&vms_sdk::prepare_start_dgw_req>(
        vms_sdk::InitDgwCondition{}, m_gateway, int(std::max<qsizetype>(m_devices.size(), 1)));
    bool isReady = false;
    QObject::connect(ready, &vms_sdk::PendingRequest::finished, &context,
                     [&](const vms_sdk::RequestOutcome& outcome) {
                         isReady = outcome.end == vms_sdk::RequestAnswered;
                     });
    runUntil([&] { return isReady || abnormal; }, ReadyGuardMs);
    if (!isReady) {
        err << "no gateway became ready: " << m_gateway << Qt::endl;
        return false;
    }
    vms_sdk::set_managed_devs_cmd(m_devices);
    if (!runUntil([&] { return reported.size() >= m_devices.size(); }, LoginGuardMs))
        err << "only " << reported.size() << " of " << m_devices.size()
            << " devices reported their status" << Qt::endl;
    return true;
}

void GatewaySession::stop()
{
    if (!m_started)
        return;
    m_started = false;
    vms_sdk::release_vms_client_sdk();
    // Let the exit command leave before the process does.
    runFor(100);
}

} // namespace vms_cli
