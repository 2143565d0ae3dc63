// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The dispatcher's incoming table: the first byte picks one of the message types it handles
// (itself when it is one, so that seeds read as wire types), the rest is that message's payload. A
// request "r" is outstanding for every input so that answers with that id travel the whole way to
// their signal instead of stopping as unasked.
#include "fuzz_support.h"

#include "vms_sdk/request/message_hamal.h"
#include "vms_sdk/request/request_mgr.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    vms_fuzz::application();
    static const QList<int> types = vms_sdk::MessageHamal::handledMessageTypes();
    auto* hamal = vms_sdk::MessageHamal::instance();
    vms_sdk::RequestMgr* registry = hamal->requestMgr();
    if (registry->kinds(QStringLiteral("r")).isEmpty())
        registry->addRequest(QStringLiteral("r"));
    const int type = types.contains(data[0]) ? data[0] : types[data[0] % types.size()];
    hamal->slotMessageComing(vms_sdk::MessageType(type), vms_fuzz::bytes(data + 1, size - 1));
    vms_fuzz::settle();
    return 0;
}
