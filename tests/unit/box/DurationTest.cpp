// SPDX-License-Identifier: Apache-2.0
#include "common/Duration.h"

#include <gtest/gtest.h>

using namespace tamobox;
using namespace std::chrono_literals;

namespace {

TEST(DurationTest, NumbersWithAUnitAreRead)
{
    EXPECT_EQ(parseDuration("10s"), 10s);
    EXPECT_EQ(parseDuration("500ms"), 500ms);
    EXPECT_EQ(parseDuration("2m"), 2min);
    EXPECT_EQ(parseDuration("1h"), 1h);
    EXPECT_EQ(parseDuration("7d"), longestDuration);
    EXPECT_EQ(parseDuration("30d", 24h * 30), 24h * 30);
    EXPECT_EQ(parseDuration("1.5s"), 1500ms);
    EXPECT_EQ(parseDuration("0.001s"), 1ms);
    EXPECT_EQ(parseDuration("168h"), longestDuration);
}

TEST(DurationTest, AnythingElseIsRefused)
{
    for (const char* text : {"", "s", "10", "10 s", " 10s", "10s ", "10sec", "10S", "-1s", "+1s",
                             "1e3s", "0x1s", "nans", "infs", "1,5s", "10w"})
        EXPECT_EQ(parseDuration(text), std::nullopt) << text;
}

TEST(DurationTest, WhatIsTooShortOrTooLongIsRefused)
{
    for (const char* text : {"0s", "0.4ms", "168.001h", "8d", "99999999999999999999h"})
        EXPECT_EQ(parseDuration(text), std::nullopt) << text;
}

} // namespace
