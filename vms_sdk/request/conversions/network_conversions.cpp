// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/request/conversions/network_conversions.h"

namespace vms_sdk::conversion {

vms_sdk_proto::DevNetInfo toWire(const DevNetInfo& netInfo)
{
    vms_sdk_proto::DevNetInfo wire;
    wire.set_ip(utf8(netInfo.ip));
    wire.set_sub_net_mask(utf8(netInfo.subNetMask));
    wire.set_default_gateway(utf8(netInfo.defaultGateway));
    wire.set_dns(utf8(netInfo.dns));
    wire.set_attr_5(netInfo.dhcpEnabled);
    wire.set_attr_6(netInfo.netMode);
    wire.set_attr_7(netInfo.httpPort);
    wire.set_attr_8(netInfo.netCardIndex);
    return wire;
}

DevNetInfo fromWire(const vms_sdk_proto::DevNetInfo& netInfo)
{
    return DevNetInfo{.ip = text(netInfo.ip()),
                      .subNetMask = text(netInfo.sub_net_mask()),
                      .defaultGateway = text(netInfo.default_gateway()),
                      .dns = text(netInfo.dns()),
                      .dhcpEnabled = netInfo.attr_5(),
                      .netMode = netInfo.attr_6(),
                      .httpPort = netInfo.attr_7(),
                      .netCardIndex = netInfo.attr_8()};
}

void fillWire(const SetDevNetCondition& condition, vms_sdk_proto::DevNetSetReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    request.set_dev_id(utf8(condition.devId));
    *request.mutable_net_info() = toWire(DevNetInfo{.ip = condition.ip,
                                                    .subNetMask = condition.subNetMask,
                                                    .defaultGateway = condition.defaultGateway,
                                                    .dns = condition.dns,
                                                    .dhcpEnabled = condition.dhcpEnabled,
                                                    .netMode = condition.netMode,
                                                    .httpPort = condition.httpPort,
                                                    .netCardIndex = condition.netCardIndex});
}

void fillRecord(const vms_sdk_proto::DevNetSetReq& request, SetDevNetCondition& condition)
{
    const DevNetInfo netInfo = fromWire(request.net_info());
    condition.requestId = text(request.request_id());
    condition.devId = text(request.dev_id());
    condition.ip = netInfo.ip;
    condition.subNetMask = netInfo.subNetMask;
    condition.defaultGateway = netInfo.defaultGateway;
    condition.dns = netInfo.dns;
    condition.dhcpEnabled = netInfo.dhcpEnabled;
    condition.netMode = netInfo.netMode;
    condition.httpPort = netInfo.httpPort;
    condition.netCardIndex = netInfo.netCardIndex;
}

vms_sdk_proto::DevPlatformInfo toWire(const DevPlatformInfo& platform)
{
    vms_sdk_proto::DevPlatformInfo wire;
    wire.set_attr_1(platform.enabled);
    wire.set_platform_addr(utf8(platform.platformAddr));
    wire.set_attr_3(platform.online);
    wire.set_attr_4(platform.port);
    wire.set_attr_5(platform.protocolType);
    return wire;
}

DevPlatformInfo fromWire(const vms_sdk_proto::DevPlatformInfo& platform)
{
    return DevPlatformInfo{.enabled = platform.attr_1(),
                           .platformAddr = text(platform.platform_addr()),
                           .online = platform.attr_3(),
                           .port = platform.attr_4(),
                           .protocolType = platform.attr_5()};
}

void fillWire(const GetDevPlatformCondition& condition, vms_sdk_proto::DevPlatformGetReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    request.set_dev_id(utf8(condition.devId));
    request.set_attr_3(condition.platformType);
    request.set_attr_4(condition.withStatus);
}

void fillRecord(const vms_sdk_proto::DevPlatformGetReq& request, GetDevPlatformCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.devId = text(request.dev_id());
    condition.platformType = request.attr_3();
    condition.withStatus = request.attr_4();
}

void fillWire(const SetDevPlatformCondition& condition, vms_sdk_proto::DevPlatformSetReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    request.set_dev_id(utf8(condition.devId));
    *request.mutable_platform_info() = toWire(condition.platformInfo);
}

void fillRecord(const vms_sdk_proto::DevPlatformSetReq& request, SetDevPlatformCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.devId = text(request.dev_id());
    condition.platformInfo = fromWire(request.platform_info());
}

vms_sdk_proto::DevPlatformInfo_kvr toWire(const DevPlatformInfo_kvr& platform)
{
    vms_sdk_proto::DevPlatformInfo_kvr wire;
    wire.set_attr_1(platform.enabled);
    wire.set_attr_2(platform.onlineServerEnabled);
    wire.set_online_server(utf8(platform.onlineServer));
    wire.set_attr_4(platform.bussinessServerEnabled);
    wire.set_bussiness_server(utf8(platform.bussinessServer));
    return wire;
}

DevPlatformInfo_kvr fromWire(const vms_sdk_proto::DevPlatformInfo_kvr& platform)
{
    return DevPlatformInfo_kvr{.enabled = platform.attr_1(),
                               .onlineServerEnabled = platform.attr_2(),
                               .onlineServer = text(platform.online_server()),
                               .bussinessServerEnabled = platform.attr_4(),
                               .bussinessServer = text(platform.bussiness_server())};
}

void fillWire(const SetDevPlatform_kvrCondition& condition,
              vms_sdk_proto::DevPlatform_kvrSetReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    request.set_dev_id(utf8(condition.devId));
    *request.mutable_platform_info() = toWire(condition.platformInfo);
}

void fillRecord(const vms_sdk_proto::DevPlatform_kvrSetReq& request,
                SetDevPlatform_kvrCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.devId = text(request.dev_id());
    condition.platformInfo = fromWire(request.platform_info());
}

void fillWire(const ImportDevCertCondition& condition, vms_sdk_proto::DevCertImportReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    request.set_dev_id(utf8(condition.devId));
    request.set_attr_3(condition.certType);
    request.set_ca(utf8(condition.ca));
    request.set_cert_contents(utf8(condition.certContents));
    request.set_key(utf8(condition.key));
    request.set_secret_key(utf8(condition.secretKey));
}

void fillRecord(const vms_sdk_proto::DevCertImportReq& request, ImportDevCertCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.devId = text(request.dev_id());
    condition.certType = request.attr_3();
    condition.ca = text(request.ca());
    condition.certContents = text(request.cert_contents());
    condition.key = text(request.key());
    condition.secretKey = text(request.secret_key());
}

} // namespace vms_sdk::conversion
