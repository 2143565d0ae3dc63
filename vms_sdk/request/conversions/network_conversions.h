// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// Network settings, platforms and certificates.

#include <vms_sdk/network_records.h>

#include "vms_sdk/request/conversions/common_conversions.h"

namespace vms_sdk::conversion {

vms_sdk_proto::DevNetInfo toWire(const DevNetInfo& netInfo);
DevNetInfo fromWire(const vms_sdk_proto::DevNetInfo& netInfo);

// The condition's fields after devId go into the nested net_info, one to one.
void fillWire(const SetDevNetCondition& condition, vms_sdk_proto::DevNetSetReq& request);
void fillRecord(const vms_sdk_proto::DevNetSetReq& request, SetDevNetCondition& condition);

vms_sdk_proto::DevPlatformInfo toWire(const DevPlatformInfo& platform);
DevPlatformInfo fromWire(const vms_sdk_proto::DevPlatformInfo& platform);

void fillWire(const GetDevPlatformCondition& condition, vms_sdk_proto::DevPlatformGetReq& request);
void fillRecord(const vms_sdk_proto::DevPlatformGetReq& request,
                GetDevPlatformCondition& condition);

void fillWire(const SetDevPlatformCondition& condition, vms_sdk_proto::DevPlatformSetReq& request);
void fillRecord(const vms_sdk_proto::DevPlatformSetReq& request,
                SetDevPlatformCondition& condition);

vms_sdk_proto::DevPlatformInfo_kvr toWire(const DevPlatformInfo_kvr& platform);
DevPlatformInfo_kvr fromWire(const vms_sdk_proto::DevPlatformInfo_kvr& platform);

void fillWire(const SetDevPlatform_kvrCondition& condition,
              vms_sdk_proto::DevPlatform_kvrSetReq& request);
void fillRecord(const vms_sdk_proto::DevPlatform_kvrSetReq& request,
                SetDevPlatform_kvrCondition& condition);

void fillWire(const ImportDevCertCondition& condition, vms_sdk_proto::DevCertImportReq& request);
void fillRecord(const vms_sdk_proto::DevCertImportReq& request, ImportDevCertCondition& condition);

} // namespace vms_sdk::conversion
