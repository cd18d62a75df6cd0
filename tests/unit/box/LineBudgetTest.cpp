// SPDX-License-Identifier: Apache-2.0
#include "services/LineBudget.h"

#include <gtest/gtest.h>

using namespace tamobox;
using namespace std::chrono_literals;

namespace {

const LineBudget::Clock::time_point start{1h};

TEST(LineBudgetTest, FloodIsCounted)
{
    LineBudget budget(2, 1s);
    EXPECT_TRUE(budget.admits(start));
    EXPECT_TRUE(budget.admits(start + 900ms));
    EXPECT_EQ(budget.reckoningTime(), std::nullopt);
    EXPECT_FALSE(budget.admits(start + 950ms));
    EXPECT_FALSE(budget.admits(start + 999ms));
    EXPECT_EQ(budget.reckoningTime(), start + 1s);
    // Those that come between the time and the reckoning count, too.
    EXPECT_FALSE(budget.admits(start + 1001ms));
    EXPECT_EQ(budget.reckon(start + 1002ms), 3);
    EXPECT_EQ(budget.reckoningTime(), std::nullopt);
}

TEST(LineBudgetTest, EachPeriodHasItsOwnLines)
{
    LineBudget budget(1, 1s);
    EXPECT_TRUE(budget.admits(start));
    EXPECT_TRUE(budget.admits(start + 1s));
    EXPECT_FALSE(budget.admits(start + 1500ms));
    EXPECT_EQ(budget.reckon(start + 2s), 1);
    EXPECT_TRUE(budget.admits(start + 2s));
    EXPECT_FALSE(budget.admits(start + 2999ms));
}

} // namespace
