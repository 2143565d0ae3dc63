// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// A device's network settings, the platforms it registers with and its certificates.

#include "exchange.h"

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

#include <QHostAddress>

namespace vms_dgw_sim {
namespace {

using namespace vms_sdk;

void fillNet(const SimDevice& device, vms_sdk_proto::DevNetInfo* info)
{
    info->set_ip(utf8(device.ip));
    info->set_sub_net_mask(utf8(device.subnetMask));
    info->set_default_gateway(utf8(device.gateway));
    info->set_dns(utf8(device.dns));
    info->set_attr_5(device.dhcpEnabled);
    info->set_attr_6(device.netMode);
    info->set_attr_7(device.httpPort);
    info->set_attr_8(device.netCardIndex);
}

bool isIpv4(const QString& text)
{
    bool ok = false;
    QHostAddress(text).toIPv4Address(&ok);
    return ok;
}

void getNet(Session& session, const QByteArray& payload)
{
    Exchange<vms_sdk_proto::DevNetGetReq, vms_sdk_proto::DevNetGetRes> call;
    if (!call.readForDevice(session, DevNetGetReq, payload))
        return;
    if (call.outcome.ok())
        fillNet(*call.device, call.message.mutable_net_info());
    call.answer(session, DevNetGetRes,
                QStringLiteral("net configuration of %1").arg(text(call.request.dev_id())));
}

Outcome storeNet(DeviceModel& model, SimDevice* device, const vms_sdk_proto::DevNetInfo& info)
{
    const QString ip = text(info.ip());
    // A device on DHCP is often set with no address at all: it keeps the one it has.
    if (!ip.isEmpty() && !isIpv4(ip))
        return {InvalidArgument, QStringLiteral("\"%1\" is not an IPv4 address").arg(ip)};
    const QString mask = text(info.sub_net_mask());
    if (!mask.isEmpty() && !isIpv4(mask))
        return {InvalidArgument, QStringLiteral("\"%1\" is not a subnet mask").arg(mask)};
    const QString oldIp = device->ip;
    if (!ip.isEmpty())
        device->ip = ip;
    device->subnetMask = mask;
    device->gateway = text(info.default_gateway());
    device->dns = text(info.dns());
    device->dhcpEnabled = info.attr_5();
    device->netMode = info.attr_6();
    device->httpPort = info.attr_7();
    device->netCardIndex = info.attr_8();
    model.addressChanged(*device, oldIp);
    return {};
}

void setNet(Session& session, const QByteArray& payload)
{
    Exchange<vms_sdk_proto::DevNetSetReq, vms_sdk_proto::DevNetSetRes> call;
    if (!call.readForDevice(session, DevNetSetReq, payload))
        return;
    call.message.set_dev_id(call.request.dev_id());
    if (call.outcome.ok())
        call.outcome = storeNet(session.model(), call.device, call.request.net_info());
    if (call.outcome.ok())
        call.message.set_dev_ip(utf8(call.device->ip));
    call.answer(session, DevNetSetRes,
                QStringLiteral("set net configuration of %1").arg(text(call.request.dev_id())));
}

void getPlatform(Session& session, const QByteArray& payload)
{
    Exchange<vms_sdk_proto::DevPlatformGetReq, vms_sdk_proto::DevPlatformGetRes> call;
    if (!call.readForDevice(session, DevPlatformGetReq, payload))
        return;
    if (call.outcome.ok()) {
        const Platform& platform = call.device->platform;
        vms_sdk_proto::DevPlatformInfo* info = call.message.mutable_platform_info();
        info->set_attr_1(platform.enabled);
        info->set_platform_addr(utf8(platform.address));
        // Registered only when asked for: finding out costs a real device a round trip. A
        // simulated platform accepts every device that is told where it is.
        info->set_attr_3(call.request.attr_4() && platform.enabled && !platform.address.isEmpty());
        info->set_attr_4(platform.port);
        info->set_attr_5(platform.protocolType);
    }
    call.answer(session, DevPlatformGetRes,
                QStringLiteral("platform configuration of %1").arg(text(call.request.dev_id())));
}

void setPlatform(Session& session, const QByteArray& payload)
{
    Exchange<vms_sdk_proto::DevPlatformSetReq, vms_sdk_proto::Response> call;
    if (!call.readForDevice(session, DevPlatformSetReq, payload))
        return;
    if (call.outcome.ok()) {
        const vms_sdk_proto::DevPlatformInfo& info = call.request.platform_info();
        // attr_3 is the registration state, which the device reports and nobody sets.
        call.device->platform = {info.attr_1(), text(info.platform_addr()), info.attr_4(),
                                 info.attr_5()};
    }
    call.answer(
        session, DevPlatformSetRes,
        QStringLiteral("set platform configuration of %1").arg(text(call.request.dev_id())));
}

void getPlatformKvr(Session& session, const QByteArray& payload)
{
    Exchange<vms_sdk_proto::DeviceReq, vms_sdk_proto::DevPlatform_kvrGetRes> call;
    if (!call.readForDevice(session, DevPlatform_kvrGetReq, payload))
        return;
    if (call.outcome.ok()) {
        const PlatformKvr& platform = call.device->platformKvr;
        vms_sdk_proto::DevPlatformInfo_kvr* info = call.message.mutable_platform_info();
        info->set_attr_1(platform.enabled);
        info->set_attr_2(platform.onlineServerEnabled);
        info->set_online_server(utf8(platform.onlineServer));
        info->set_attr_4(platform.businessServerEnabled);
        info->set_bussiness_server(utf8(platform.businessServer));
    }
    call.answer(
        session, DevPlatform_kvrGetRes,
        QStringLiteral("platform_kvr configuration of %1").arg(text(call.request.dev_id())));
}

void setPlatformKvr(Session& session, const QByteArray& payload)
{
    Exchange<vms_sdk_proto::DevPlatform_kvrSetReq, vms_sdk_proto::Response> call;
    if (!call.readForDevice(session, DevPlatform_kvrSetReq, payload))
        return;
    if (call.outcome.ok()) {
        const vms_sdk_proto::DevPlatformInfo_kvr& info = call.request.platform_info();
        call.device->platformKvr = {info.attr_1(), info.attr_2(), text(info.online_server()),
                                    info.attr_4(), text(info.bussiness_server())};
    }
    call.answer(
        session, DevPlatform_kvrSetRes,
        QStringLiteral("set platform_kvr configuration of %1").arg(text(call.request.dev_id())));
}

void importCert(Session& session, const QByteArray& payload)
{
    Exchange<vms_sdk_proto::DevCertImportReq, vms_sdk_proto::Response> call;
    if (!call.readForDevice(session, DevCertImportReq, payload))
        return;
    if (call.outcome.ok() && call.request.cert_contents().empty())
        call.outcome = {InvalidArgument, QStringLiteral("no certificate to import")};
    call.answer(session, DevCertImportRes,
                QStringLiteral("import certificate (type %1) into %2")
                    .arg(call.request.attr_3())
                    .arg(text(call.request.dev_id())));
}

} // namespace

QList<HandlerRow> networkHandlers()
{
    return {
        {DevNetGetReq, getNet},
        {DevNetSetReq, setNet},
        {DevPlatformGetReq, getPlatform},
        {DevPlatformSetReq, setPlatform},
        {DevPlatform_kvrGetReq, getPlatformKvr},
        {DevPlatform_kvrSetReq, setPlatformKvr},
        {DevCertImportReq, importCert},
    };
}

} // namespace vms_dgw_sim
