// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The simulator's config reader: any file either reads or is refused with a reason.
#include "fuzz_support.h"

#include "config.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    vms_fuzz::application();
    vms_dgw_sim::SimConfig config;
    QString error;
    if (!vms_dgw_sim::parseConfig(vms_fuzz::bytes(data, size), &config, &error) && error.isEmpty())
        std::abort();
    return 0;
}
