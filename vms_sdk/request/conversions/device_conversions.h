// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// Gateway start-up, managed and searched devices, activation, accounts and device names.

#include <vms_sdk/config_records.h>
#include <vms_sdk/device_records.h>

#include "vms_sdk/request/conversions/common_conversions.h"

namespace vms_sdk::conversion {

// The request id of an initialisation is the gateway manager's own, so it is left alone.
void fillWire(const InitDgwCondition& condition, vms_sdk_proto::InitDgwReq& request);
void fillRecord(const vms_sdk_proto::InitDgwReq& request, InitDgwCondition& condition);

vms_sdk_proto::DevInfo toWire(const DevInfo& device);
DevInfo fromWire(const vms_sdk_proto::DevInfo& device);

// The four messages that carry nothing but a device list.
void fillWire(const DevInfoList& devices, vms_sdk_proto::SetManagedDevsCmd& command);
DevInfoList fromWire(const vms_sdk_proto::SetManagedDevsCmd& command);
void fillWire(const DevInfoList& devices, vms_sdk_proto::AddManagedDevsCmd& command);
DevInfoList fromWire(const vms_sdk_proto::AddManagedDevsCmd& command);
void fillWire(const DevInfoList& devices, vms_sdk_proto::EditManagedDevsCmd& command);
DevInfoList fromWire(const vms_sdk_proto::EditManagedDevsCmd& command);
void fillWire(const DevInfoList& devices, vms_sdk_proto::SearchedDevsPush& push);
DevInfoList fromWire(const vms_sdk_proto::SearchedDevsPush& push);

vms_sdk_proto::AiAbilityInfo toWire(const AiAbilityInfo& ability);
AiAbilityInfo fromWire(const vms_sdk_proto::AiAbilityInfo& ability);

vms_sdk_proto::DevInfoFromDgw toWire(const DevInfoFromDgw& device);
DevInfoFromDgw fromWire(const vms_sdk_proto::DevInfoFromDgw& device);

vms_sdk_proto::DevChannInfo toWire(const DevChannelInfo& channel);
DevChannelInfo fromWire(const vms_sdk_proto::DevChannInfo& channel);
void fillWire(const QString& devId, const DevChanInfoList& channels,
              vms_sdk_proto::DevChannelsInfoPush& push);
DevChanInfoList fromWire(const vms_sdk_proto::DevChannelsInfoPush& push);

vms_sdk_proto::DevTempUserCode toWire(const DevTempUserCode& code);
DevTempUserCode fromWire(const vms_sdk_proto::DevTempUserCode& code);
void fillWire(const DevTempUserCodeList& codes, vms_sdk_proto::DevTempUserCodePush& push);
DevTempUserCodeList fromWire(const vms_sdk_proto::DevTempUserCodePush& push);

void fillWire(const SearchDevsConfig& config, vms_sdk_proto::SetSearchDevsConfigCmd& command);
void fillRecord(const vms_sdk_proto::SetSearchDevsConfigCmd& command, SearchDevsConfig& config);

vms_sdk_proto::SecretInfo toWire(const SecretInfo& secret);
SecretInfo fromWire(const vms_sdk_proto::SecretInfo& secret);

void fillWire(const ActivateCondition& condition, vms_sdk_proto::DevActivateCmd& command);
void fillRecord(const vms_sdk_proto::DevActivateCmd& command, ActivateCondition& condition);

void fillWire(const GetDevSecretQuestionsCondition& condition,
              vms_sdk_proto::DevSecretQuestionsGetReq& request);
void fillRecord(const vms_sdk_proto::DevSecretQuestionsGetReq& request,
                GetDevSecretQuestionsCondition& condition);

void fillWire(const ResetDevPwdCondition& condition, vms_sdk_proto::DevPwdResetReq& request);
void fillRecord(const vms_sdk_proto::DevPwdResetReq& request, ResetDevPwdCondition& condition);

void fillWire(const ModifyDevAccountCondition& condition,
              vms_sdk_proto::ModifyDevAccountReq& request);
void fillRecord(const vms_sdk_proto::ModifyDevAccountReq& request,
                ModifyDevAccountCondition& condition);

void fillWire(const ModifyDevNameCondition& condition, vms_sdk_proto::ModifyDevNameReq& request);
void fillRecord(const vms_sdk_proto::ModifyDevNameReq& request, ModifyDevNameCondition& condition);

void fillWire(const SetOSDCondition& condition, vms_sdk_proto::SetOSDReq& request);
void fillRecord(const vms_sdk_proto::SetOSDReq& request, SetOSDCondition& condition);

} // namespace vms_sdk::conversion
