// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// Both entries of the alarm worker. The first byte picks the entry; the rest is a common
// alarm push, or a face detection push whose record is converted the way the dispatcher
// converts it before the worker sees it.
#include "fuzz_support.h"

#include "vms_sdk/json_methods/alarm_worker.h"
#include "vms_sdk/request/conversions/face_conversions.h"

#include "vms_message.pb.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    vms_fuzz::application();
    static vms_sdk::AlarmWorker worker{nullptr};
    const QByteArray payload = vms_fuzz::bytes(data + 1, size - 1);
    if (data[0] % 2 == 0) {
        worker.handleCommonAlarmPush(payload);
        return 0;
    }
    vms_sdk_proto::FaceDetectLiveInfo push;
    if (!push.ParseFromArray(payload.constData(), int(payload.size())))
        return 0;
    worker.handleFaceDetectAlarm({QString::fromStdString(push.channel_id().dev_id()),
                                  int(push.channel_id().channel_index())},
                                 vms_sdk::conversion::fromWire(push.record()));
    return 0;
}
