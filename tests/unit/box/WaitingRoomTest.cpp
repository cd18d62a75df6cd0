// SPDX-License-Identifier: Apache-2.0
#include "services/payment/WaitingRoom.h"

#include <gtest/gtest.h>

using namespace tamobox;

namespace {

constexpr std::size_t most = WaitingRoom::ofAProcess;

TEST(WaitingRoomTest, OneProcessCannotTakeItAll)
{
    WaitingRoom room;
    room.take(1, most - 10);
    EXPECT_TRUE(room.isFor(1, 10));
    EXPECT_FALSE(room.isFor(1, 11));
    EXPECT_TRUE(room.isFor(2, most));
    EXPECT_FALSE(room.isFor(2, most + 1));
    room.take(2, most);
    EXPECT_TRUE(room.isFor(3, 10));
    EXPECT_FALSE(room.isFor(3, 11));
}

TEST(WaitingRoomTest, AHundredThousandOrdinaryRequestsOfAProcessFit)
{
    WaitingRoom room;
    EXPECT_TRUE(room.isFor(1, 100'000 * WaitingRoom::sizeOf(400)));
}

TEST(WaitingRoomTest, WhatIsGivenBackIsFree)
{
    WaitingRoom room;
    room.take(1, most);
    room.take(2, most);
    room.giveBack(2, 5);
    EXPECT_TRUE(room.isFor(3, 5));
    EXPECT_FALSE(room.isFor(1, 5));
    room.giveBack(1, most);
    EXPECT_TRUE(room.isFor(1, most));
}

} // namespace
