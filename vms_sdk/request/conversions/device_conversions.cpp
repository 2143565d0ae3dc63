// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/request/conversions/device_conversions.h"

namespace vms_sdk::conversion {
namespace {

template<class Message>
void fillDevices(const DevInfoList& devices, Message& message)
{
    mapToWire(devices, message.mutable_devs(), [](const DevInfo& d) { return toWire(d); });
}

template<class Message>
DevInfoList devicesOf(const Message& message)
{
    return mapFromWire(message.devs(), [](const vms_sdk_proto::DevInfo& d) { return fromWire(d); });
}

AiAbilityMap abilitiesOf(const google::protobuf::Map<qint32, vms_sdk_proto::AiAbilityInfo>& wire)
{
    AiAbilityMap abilities;
    for (const auto& [number, ability] : wire)
        abilities.insert(number, fromWire(ability));
    return abilities;
}

void fillAbilities(const AiAbilityMap& abilities,
                   google::protobuf::Map<qint32, vms_sdk_proto::AiAbilityInfo>* wire)
{
    wire->clear();
    for (auto it = abilities.cbegin(); it != abilities.cend(); ++it)
        (*wire)[it.key()] = toWire(it.value());
}

} // namespace

void fillWire(const InitDgwCondition& condition, vms_sdk_proto::InitDgwReq& request)
{
    request.set_ak(utf8(condition.ak));
    request.set_sk(utf8(condition.sk));
    request.set_ck(utf8(condition.ck));
    request.set_csk(utf8(condition.csk));
    request.set_attr_6(condition.serviceEnabled);
    request.set_url(utf8(condition.url));
    request.set_attr_8(condition.serviceType);
    request.set_saas_server(utf8(condition.saasServer));
    request.set_saas_cer(utf8(condition.saasCer));
}

void fillRecord(const vms_sdk_proto::InitDgwReq& request, InitDgwCondition& condition)
{
    condition.ak = text(request.ak());
    condition.sk = text(request.sk());
    condition.ck = text(request.ck());
    condition.csk = text(request.csk());
    condition.serviceEnabled = request.attr_6();
    condition.url = text(request.url());
    condition.serviceType = request.attr_8();
    condition.saasServer = text(request.saas_server());
    condition.saasCer = text(request.saas_cer());
}

vms_sdk_proto::DevInfo toWire(const DevInfo& device)
{
    vms_sdk_proto::DevInfo wire;
    wire.set_id(utf8(device.id));
    wire.set_name(utf8(device.name));
    wire.set_sn(utf8(device.sn));
    wire.set_attr_4(device.devType);
    wire.set_ip(utf8(device.ip));
    wire.set_attr_6(device.port);
    wire.set_user(utf8(device.user));
    wire.set_password(utf8(device.password));
    wire.set_version(utf8(device.version));
    wire.set_series_name(utf8(device.seriesName));
    wire.set_attr_11(device.protocol);
    wire.set_attr_12(device.status);
    wire.set_attr_13(device.channelCount);
    wire.set_attr_14(device.activateStatus);
    wire.set_attr_15(device.dhcpEnabled);
    wire.set_attr_16(device.httpPort);
    wire.set_attr_17(device.rtspPort);
    wire.set_attr_18(device.loginMode);
    return wire;
}

DevInfo fromWire(const vms_sdk_proto::DevInfo& device)
{
    return DevInfo{.id = text(device.id()),
                   .name = text(device.name()),
                   .sn = text(device.sn()),
                   .devType = device.attr_4(),
                   .ip = text(device.ip()),
                   .port = device.attr_6(),
                   .user = text(device.user()),
                   .password = text(device.password()),
                   .version = text(device.version()),
                   .seriesName = text(device.series_name()),
                   .protocol = device.attr_11(),
                   .status = device.attr_12(),
                   .channelCount = device.attr_13(),
                   .activateStatus = device.attr_14(),
                   .dhcpEnabled = device.attr_15(),
                   .httpPort = device.attr_16(),
                   .rtspPort = device.attr_17(),
                   .loginMode = device.attr_18()};
}

void fillWire(const DevInfoList& devices, vms_sdk_proto::SetManagedDevsCmd& command)
{
    fillDevices(devices, command);
}

DevInfoList fromWire(const vms_sdk_proto::SetManagedDevsCmd& command)
{
    return devicesOf(command);
}

void fillWire(const DevInfoList& devices, vms_sdk_proto::AddManagedDevsCmd& command)
{
    fillDevices(devices, command);
}

DevInfoList fromWire(const vms_sdk_proto::AddManagedDevsCmd& command)
{
    return devicesOf(command);
}

void fillWire(const DevInfoList& devices, vms_sdk_proto::EditManagedDevsCmd& command)
{
    fillDevices(devices, command);
}

DevInfoList fromWire(const vms_sdk_proto::EditManagedDevsCmd& command)
{
    return devicesOf(command);
}

void fillWire(const DevInfoList& devices, vms_sdk_proto::SearchedDevsPush& push)
{
    fillDevices(devices, push);
}

DevInfoList fromWire(const vms_sdk_proto::SearchedDevsPush& push)
{
    return devicesOf(push);
}

vms_sdk_proto::AiAbilityInfo toWire(const AiAbilityInfo& ability)
{
    vms_sdk_proto::AiAbilityInfo wire;
    wire.set_package(utf8(ability.package));
    wire.set_attr_2(ability.version);
    wire.set_name(utf8(ability.name));
    wire.set_attr_4(ability.status);
    wire.set_attr_5(ability.enabled);
    return wire;
}

AiAbilityInfo fromWire(const vms_sdk_proto::AiAbilityInfo& ability)
{
    return AiAbilityInfo{.package = text(ability.package()),
                         .version = ability.attr_2(),
                         .name = text(ability.name()),
                         .status = ability.attr_4(),
                         .enabled = ability.attr_5()};
}

vms_sdk_proto::DevInfoFromDgw toWire(const DevInfoFromDgw& device)
{
    vms_sdk_proto::DevInfoFromDgw wire;
    wire.set_id(utf8(device.id));
    wire.set_sn(utf8(device.sn));
    wire.set_ip(utf8(device.ip));
    wire.set_attr_4(device.devType);
    wire.set_attr_5(device.port);
    wire.set_attr_6(device.protocol);
    wire.set_version(utf8(device.version));
    wire.set_series_name(utf8(device.seriesName));
    wire.set_attr_9(device.channelCount);
    wire.set_attr_10(device.status);
    wire.set_dev_code(utf8(device.devCode));
    wire.set_attr_12(device.p2pStatus);
    fillAbilities(device.abilityDetails, wire.mutable_ability_details());
    return wire;
}

DevInfoFromDgw fromWire(const vms_sdk_proto::DevInfoFromDgw& device)
{
    return DevInfoFromDgw{.id = text(device.id()),
                          .sn = text(device.sn()),
                          .ip = text(device.ip()),
                          .devType = device.attr_4(),
                          .port = device.attr_5(),
                          .protocol = device.attr_6(),
                          .version = text(device.version()),
                          .seriesName = text(device.series_name()),
                          .channelCount = device.attr_9(),
                          .status = device.attr_10(),
                          .devCode = text(device.dev_code()),
                          .p2pStatus = device.attr_12(),
                          .abilityDetails = abilitiesOf(device.ability_details())};
}

vms_sdk_proto::DevChannInfo toWire(const DevChannelInfo& channel)
{
    vms_sdk_proto::DevChannInfo wire;
    *wire.mutable_channel_id() = toWire(channel.channelId);
    wire.set_osd(utf8(channel.osd));
    wire.set_attr_3(channel.devType);
    wire.set_attr_4(channel.status);
    wire.set_sn(utf8(channel.sn));
    wire.set_ip(utf8(channel.ip));
    wire.set_attr_7(channel.port);
    wire.set_user(utf8(channel.user));
    wire.set_password(utf8(channel.password));
    wire.set_attr_10(channel.protocol);
    wire.set_attr_11(channel.remoteChannelIndex);
    fillAbilities(channel.abilityDetails, wire.mutable_ability_details());
    return wire;
}

DevChannelInfo fromWire(const vms_sdk_proto::DevChannInfo& channel)
{
    return DevChannelInfo{.channelId = fromWire(channel.channel_id()),
                          .osd = text(channel.osd()),
                          .devType = channel.attr_3(),
                          .status = channel.attr_4(),
                          .sn = text(channel.sn()),
                          .ip = text(channel.ip()),
                          .port = channel.attr_7(),
                          .user = text(channel.user()),
                          .password = text(channel.password()),
                          .protocol = channel.attr_10(),
                          .remoteChannelIndex = channel.attr_11(),
                          .abilityDetails = abilitiesOf(channel.ability_details())};
}

void fillWire(const QString& devId, const DevChanInfoList& channels,
              vms_sdk_proto::DevChannelsInfoPush& push)
{
    push.set_dev_id(utf8(devId));
    mapToWire(channels, push.mutable_channels(), [](const DevChannelInfo& c) { return toWire(c); });
}

DevChanInfoList fromWire(const vms_sdk_proto::DevChannelsInfoPush& push)
{
    return mapFromWire(push.channels(),
                       [](const vms_sdk_proto::DevChannInfo& c) { return fromWire(c); });
}

vms_sdk_proto::DevTempUserCode toWire(const DevTempUserCode& code)
{
    vms_sdk_proto::DevTempUserCode wire;
    wire.set_sn(utf8(code.sn));
    wire.set_code(utf8(code.code));
    return wire;
}

DevTempUserCode fromWire(const vms_sdk_proto::DevTempUserCode& code)
{
    return DevTempUserCode{.sn = text(code.sn()), .code = text(code.code())};
}

void fillWire(const DevTempUserCodeList& codes, vms_sdk_proto::DevTempUserCodePush& push)
{
    mapToWire(codes, push.mutable_codes(), [](const DevTempUserCode& c) { return toWire(c); });
}

DevTempUserCodeList fromWire(const vms_sdk_proto::DevTempUserCodePush& push)
{
    return mapFromWire(push.codes(),
                       [](const vms_sdk_proto::DevTempUserCode& c) { return fromWire(c); });
}

void fillWire(const SearchDevsConfig& config, vms_sdk_proto::SetSearchDevsConfigCmd& command)
{
    command.set_attr_1(config.rangeEnabled);
    command.set_begin_ip(utf8(config.beginIp));
    command.set_end_ip(utf8(config.endIp));
    command.set_attr_4(config.port);
}

void fillRecord(const vms_sdk_proto::SetSearchDevsConfigCmd& command, SearchDevsConfig& config)
{
    config.rangeEnabled = command.attr_1();
    config.beginIp = text(command.begin_ip());
    config.endIp = text(command.end_ip());
    config.port = command.attr_4();
}

vms_sdk_proto::SecretInfo toWire(const SecretInfo& secret)
{
    vms_sdk_proto::SecretInfo wire;
    wire.set_question(utf8(secret.question));
    wire.set_answer(utf8(secret.answer));
    return wire;
}

SecretInfo fromWire(const vms_sdk_proto::SecretInfo& secret)
{
    return SecretInfo{.question = text(secret.question()), .answer = text(secret.answer())};
}

void fillWire(const ActivateCondition& condition, vms_sdk_proto::DevActivateCmd& command)
{
    fillTexts(condition.devsSn, command.mutable_devs_sn());
    command.set_account(utf8(condition.account));
    command.set_password(utf8(condition.password));
    mapToWire(condition.secrets, command.mutable_secrets(),
              [](const SecretInfo& s) { return toWire(s); });
    command.set_attr_5(condition.pwdLevel);
}

void fillRecord(const vms_sdk_proto::DevActivateCmd& command, ActivateCondition& condition)
{
    condition.devsSn = texts(command.devs_sn());
    condition.account = text(command.account());
    condition.password = text(command.password());
    condition.secrets = mapFromWire(command.secrets(),
                                    [](const vms_sdk_proto::SecretInfo& s) { return fromWire(s); });
    condition.pwdLevel = command.attr_5();
}

void fillWire(const GetDevSecretQuestionsCondition& condition,
              vms_sdk_proto::DevSecretQuestionsGetReq& request)
{
    request.set_dev_sn(utf8(condition.devSn));
    request.set_account(utf8(condition.account));
}

void fillRecord(const vms_sdk_proto::DevSecretQuestionsGetReq& request,
                GetDevSecretQuestionsCondition& condition)
{
    condition.devSn = text(request.dev_sn());
    condition.account = text(request.account());
}

void fillWire(const ResetDevPwdCondition& condition, vms_sdk_proto::DevPwdResetReq& request)
{
    request.set_dev_sn(utf8(condition.devSn));
    request.set_account(utf8(condition.account));
    request.set_password(utf8(condition.password));
    mapToWire(condition.secrets, request.mutable_secrets(),
              [](const SecretInfo& s) { return toWire(s); });
}

void fillRecord(const vms_sdk_proto::DevPwdResetReq& request, ResetDevPwdCondition& condition)
{
    condition.devSn = text(request.dev_sn());
    condition.account = text(request.account());
    condition.password = text(request.password());
    condition.secrets = mapFromWire(request.secrets(),
                                    [](const vms_sdk_proto::SecretInfo& s) { return fromWire(s); });
}

void fillWire(const ModifyDevAccountCondition& condition,
              vms_sdk_proto::ModifyDevAccountReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    request.set_dev_id(utf8(condition.devId));
    request.set_account(utf8(condition.account));
    request.set_old_password(utf8(condition.oldPassword));
    request.set_new_password(utf8(condition.newPassword));
    request.set_level(utf8(condition.level));
}

void fillRecord(const vms_sdk_proto::ModifyDevAccountReq& request,
                ModifyDevAccountCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.devId = text(request.dev_id());
    condition.account = text(request.account());
    condition.oldPassword = text(request.old_password());
    condition.newPassword = text(request.new_password());
    condition.level = text(request.level());
}

void fillWire(const ModifyDevNameCondition& condition, vms_sdk_proto::ModifyDevNameReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    request.set_dev_id(utf8(condition.devId));
    request.set_dev_name(utf8(condition.devName));
}

void fillRecord(const vms_sdk_proto::ModifyDevNameReq& request, ModifyDevNameCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.devId = text(request.dev_id());
    condition.devName = text(request.dev_name());
}

void fillWire(const SetOSDCondition& condition, vms_sdk_proto::SetOSDReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    *request.mutable_channel_id() = toWire(condition.channelId);
    request.set_osd(utf8(condition.osd));
}

void fillRecord(const vms_sdk_proto::SetOSDReq& request, SetOSDCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.channelId = fromWire(request.channel_id());
    condition.osd = text(request.osd());
}

} // namespace vms_sdk::conversion
