// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The JSON answer worker's entry: the input up to the first newline is the request id, the
// rest the answer document, as a gateway's CommonRes carries them.
#include "fuzz_support.h"

#include "vms_sdk/json_methods/common_res_worker.h"
#include "vms_sdk/request/message_hamal.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    vms_fuzz::application();
    // No delay before the next page: a paged answer asks for it within this input.
    static vms_sdk::CommonResWorker worker{vms_sdk::MessageHamal::instance()->requestMgr(), nullptr,
                                           0};
    const QByteArray input = vms_fuzz::bytes(data, size);
    const int newline = input.indexOf('\n');
    const QString requestId = QString::fromUtf8(newline < 0 ? QByteArray() : input.left(newline));
    worker.handleCommonRes(requestId, QString::fromUtf8(input.mid(newline + 1)));
    vms_fuzz::settle();
    return 0;
}
