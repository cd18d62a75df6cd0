// SPDX-License-Identifier: Apache-2.0
#include "services/navigator/ExitDeadlines.h"

#include <gmock/gmock.h>

using namespace tamobox;
using namespace testing;
using namespace std::chrono_literals;

namespace {

const ExitDeadlines::Clock::time_point start{1h};

TEST(ExitDeadlinesTest, GraceEndsOnce)
{
    ExitDeadlines deadlines;
    EXPECT_EQ(deadlines.next(), std::nullopt);
    deadlines.begin(5, start + 3s);
    deadlines.begin(6, start + 2s);
    EXPECT_EQ(deadlines.next(), start + 2s);
    EXPECT_THAT(deadlines.takeDue(start + 1999ms), IsEmpty());
    EXPECT_THAT(deadlines.takeDue(start + 3s), ElementsAre(5, 6));
    EXPECT_THAT(deadlines.takeDue(start + 1h), IsEmpty());
    EXPECT_EQ(deadlines.next(), std::nullopt);
}

TEST(ExitDeadlinesTest, ShortestGraceCounts)
{
    ExitDeadlines deadlines;
    deadlines.begin(5, start + 1h);
    deadlines.begin(5, start + 1s);
    deadlines.begin(5, start + 2h);
    EXPECT_EQ(deadlines.next(), start + 1s);
}

TEST(ExitDeadlinesTest, ExtensionIsTheLeastThatItGets)
{
    ExitDeadlines deadlines;
    deadlines.begin(5, start + 3s);
    deadlines.extend(5, start + 2s);
    EXPECT_EQ(deadlines.next(), start + 3s);
    deadlines.extend(5, start + 10s);
    deadlines.extend(5, start + 5s);
    EXPECT_EQ(deadlines.next(), start + 10s);
    EXPECT_THAT(deadlines.takeDue(start + 9s), IsEmpty());
    EXPECT_THAT(deadlines.takeDue(start + 10s), ElementsAre(5));
}

TEST(ExitDeadlinesTest, ExtensionMayComeBeforeTheExit)
{
    ExitDeadlines deadlines;
    deadlines.extend(5, start + 10s);
    EXPECT_EQ(deadlines.next(), std::nullopt);
    EXPECT_THAT(deadlines.takeDue(start + 1h), IsEmpty());
    deadlines.begin(5, start + 1s);
    EXPECT_EQ(deadlines.next(), start + 10s);
}

TEST(ExitDeadlinesTest, CancelledOnesAndThoseThatLeftHaveNone)
{
    ExitDeadlines deadlines;
    deadlines.begin(5, start);
    deadlines.begin(6, start);
    deadlines.cancel(5);
    deadlines.remove(6);
    deadlines.cancel(7);
    EXPECT_THAT(deadlines.takeDue(start + 1h), IsEmpty());
}

} // namespace
