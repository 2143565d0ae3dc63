// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_protocol/message_type.h"

#include <gtest/gtest.h>

using namespace vms_sdk;

TEST(MessageType, NumbersAndNamesOfTheCatalogue)
{
    struct Row
    {
        int number;
        const char* name;
    };
    // Spot checks across the range, including the numbers shared by two directions.
    const Row rows[] = {
        {1, "InitDgwReq"},
        {2, "InitDgwRes"},
        {3, "ClientHelloCmd"},
        {4, "DgwExitCmd"},
        {17, "GetDevChannelsInfoCmd"},
        {33, "DevNetSetRes"},
        {36, "SetSaasTokenCmd"},
        {37, "SaasLogoutCmd"},
        {42, "DevInfoPush"},
        {44, "DevTempUserCodePush"},
        {72, "DevConfigRes"},
        {100, "CommonReq"},
        {101, "CommonRes"},
        {102, "StreamData"},
        {110, "PlaybackSpeedSetReq"},
        {113, "FileTransferProgressPush"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(messageTypeName(row.number), QLatin1String(row.name)) << row.number;
}

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
