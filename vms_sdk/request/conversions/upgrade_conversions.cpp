// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/request/conversions/upgrade_conversions.h"

namespace vms_sdk::conversion {

void fillWire(const DevUpgradeCondtition& condition, vms_sdk_proto::DevUpgradeReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    request.set_dev_id(utf8(condition.devId));
    request.set_mode(utf8(condition.mode));
    request.set_url(utf8(condition.url));
    request.set_attr_5(condition.upgradeType);
    request.set_main_file(utf8(condition.mainFile));
    request.set_ver_file(utf8(condition.verFile));
}

void fillRecord(const vms_sdk_proto::DevUpgradeReq& request, DevUpgradeCondtition& condition)
{
    condition.requestId = text(request.request_id());
    condition.devId = text(request.dev_id());
    condition.mode = text(request.mode());
    condition.url = text(request.url());
    condition.upgradeType = request.attr_5();
    condition.mainFile = text(request.main_file());
    condition.verFile = text(request.ver_file());
}

void fillWire(const DevUpgradeInfo& info, vms_sdk_proto::DevUpgradeRes& answer)
{
    answer.set_attr_3(info.status);
    answer.set_new_version_name(utf8(info.newVersionName));
    answer.set_attr_5(info.hasNewVersion);
    answer.set_phase(utf8(info.phase));
    answer.set_attr_7(info.progress);
}

DevUpgradeInfo fromWire(const vms_sdk_proto::DevUpgradeRes& answer)
{
    return DevUpgradeInfo{.status = answer.attr_3(),
                          .newVersionName = text(answer.new_version_name()),
                          .hasNewVersion = answer.attr_5(),
                          .phase = text(answer.phase()),
                          .progress = answer.attr_7()};
}

void fillWire(const UploadFileCondition& condition, vms_sdk_proto::UploadFileReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    request.set_dev_id(utf8(condition.devId));
    request.set_file_name(utf8(condition.fileName));
    request.set_purpose(utf8(condition.purpose));
}

void fillRecord(const vms_sdk_proto::UploadFileReq& request, UploadFileCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.devId = text(request.dev_id());
    condition.fileName = text(request.file_name());
    condition.purpose = text(request.purpose());
}

void fillWire(const DownloadFileCondition& condition, vms_sdk_proto::DownloadFileReq& request)
{
    request.set_request_id(utf8(condition.requestId));
    request.set_dev_id(utf8(condition.devId));
    request.set_src_file_name(utf8(condition.srcFileName));
    request.set_des_file_name(utf8(condition.desFileName));
}

void fillRecord(const vms_sdk_proto::DownloadFileReq& request, DownloadFileCondition& condition)
{
    condition.requestId = text(request.request_id());
    condition.devId = text(request.dev_id());
    condition.srcFileName = text(request.src_file_name());
    condition.desFileName = text(request.des_file_name());
}

vms_sdk_proto::FileTransferProgress toWire(const FileTransferProgress& progress)
{
    vms_sdk_proto::FileTransferProgress wire;
    wire.set_request_id(utf8(progress.requestId));
    wire.set_attr_2(progress.progress);
    wire.set_attr_3(progress.status);
    return wire;
}

FileTransferProgress fromWire(const vms_sdk_proto::FileTransferProgress& progress)
{
    return FileTransferProgress{.requestId = text(progress.request_id()),
                                .progress = progress.attr_2(),
                                .status = progress.attr_3()};
}

} // namespace vms_sdk::conversion
