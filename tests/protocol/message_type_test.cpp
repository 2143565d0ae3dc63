// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_protocol/message_type.h"

#include <gtest/gtest.h>

using namespace vms_sdk;

TEST(MessageType, EveryNumberFrom1To113ButTheReservedOnesHasAName)
{
    int named = 0;
    for (int number = -1; number <= 130; ++number) {
        const bool reserved = number == 34 || number == 35 || number == 43;
        const bool inRange = number >= 1 && number <= 113;
        EXPECT_EQ(!messageTypeName(number).isEmpty(), inRange && !reserved) << number;
        named += messageTypeName(number).isEmpty() ? 0 : 1;
    }
    EXPECT_EQ(named, 110);
}
