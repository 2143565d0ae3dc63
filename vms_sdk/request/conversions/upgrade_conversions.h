// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// Firmware upgrade and file transfer.

#include <vms_sdk/config_records.h>

#include "vms_sdk/request/conversions/common_conversions.h"

namespace vms_sdk::conversion {

// Checking for and starting an upgrade share the request message.
void fillWire(const DevUpgradeCondtition& condition, vms_sdk_proto::DevUpgradeReq& request);
void fillRecord(const vms_sdk_proto::DevUpgradeReq& request, DevUpgradeCondtition& condition);

// The answer's fields after its head; the head is responseOf / fillResponse.
void fillWire(const DevUpgradeInfo& info, vms_sdk_proto::DevUpgradeRes& answer);
DevUpgradeInfo fromWire(const vms_sdk_proto::DevUpgradeRes& answer);

void fillWire(const UploadFileCondition& condition, vms_sdk_proto::UploadFileReq& request);
void fillRecord(const vms_sdk_proto::UploadFileReq& request, UploadFileCondition& condition);

void fillWire(const DownloadFileCondition& condition, vms_sdk_proto::DownloadFileReq& request);
void fillRecord(const vms_sdk_proto::DownloadFileReq& request, DownloadFileCondition& condition);

vms_sdk_proto::FileTransferProgress toWire(const FileTransferProgress& progress);
FileTransferProgress fromWire(const vms_sdk_proto::FileTransferProgress& progress);

} // namespace vms_sdk::conversion
