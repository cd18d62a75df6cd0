// SPDX-License-Identifier: Apache-2.0
#include "services/power/DrainSchedule.h"

#include <gtest/gtest.h>

using namespace tamobox;
using namespace std::chrono_literals;

namespace {

TEST(DrainScheduleTest, EachPercentIsAStepAndTheyAreEvenlySpread)
{
    const DrainSchedule schedule(80, 15, 65s);
    EXPECT_EQ(schedule.lastStep(), 65);
    for (int step = 0; step <= schedule.lastStep(); ++step) {
        EXPECT_EQ(schedule.level(step), 80 - step);
        EXPECT_EQ(schedule.due(step), std::chrono::seconds(step));
    }
}

TEST(DrainScheduleTest, BeginsAtOnceAndEndsWithTheTime)
{
    const DrainSchedule schedule(100, 0, 10s);
    EXPECT_EQ(schedule.due(0), 0s);
    EXPECT_EQ(schedule.level(0), 100);
    EXPECT_EQ(schedule.due(schedule.lastStep()), 10s);
    EXPECT_EQ(schedule.level(schedule.lastStep()), 0);
}

TEST(DrainScheduleTest, LastStepIsOnTimeWhereTheStepsDoNotDivideTheTime)
{
    const DrainSchedule schedule(7, 0, 1ms);
    EXPECT_EQ(schedule.due(schedule.lastStep()), 1ms);
    EXPECT_LT(schedule.due(3), schedule.due(4));
}

} // namespace
