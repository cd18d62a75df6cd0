// SPDX-License-Identifier: Apache-2.0
#include "services/led/LedSchedule.h"

#include <gmock/gmock.h>

using namespace tamobox;
using namespace testing;
using namespace std::chrono_literals;

namespace {

using Moment = LedSchedule::Clock::time_point;

const Moment start{1h};

LedRequest request(int client, const std::string& id, LedColor color, int count)
{
    return {client, 100 + client, "app", id, color, count};
}

/** A schedule, and every change that it goes through. */
class LedScheduleTest : public Test
{
protected:
    /** Lets the time go to the next change, and says what is lit then; "-" where none comes. */
    std::string next()
    {
        const auto change = m_schedule.nextChange();
        if (!change)
            return "-";
        EXPECT_FALSE(m_schedule.advance(*change - 1ns));
        m_now = *change;
        EXPECT_TRUE(m_schedule.advance(m_now));
        return nameOf(m_schedule.state().lit);
    }

    std::vector<std::string> nextChanges(int count)
    {
        std::vector<std::string> changes;
        for (int i = 0; i < count; ++i)
            changes.push_back(next());
        return changes;
    }

    LedSchedule m_schedule{start};
    Moment m_now = start;
};

TEST_F(LedScheduleTest, FlashesAsOftenAsWasAskedFor)
{
    EXPECT_EQ(next(), "-");
    m_schedule.add(request(1, "1", LedColor::Red, 2));
    EXPECT_THAT(nextChanges(5), ElementsAre("red", "", "red", "", "-"));
    EXPECT_THAT(m_schedule.state().requests, IsEmpty());
    EXPECT_EQ(m_now, start + 4 * 250ms);
}

TEST_F(LedScheduleTest, FirstFlashWaitsForNothingButThePause)
{
    m_schedule.add(request(1, "1", LedColor::Red, 1));
    EXPECT_EQ(m_schedule.nextChange(), start + LedSchedule::pauseTime);
    EXPECT_TRUE(m_schedule.advance(start + 1h));
    EXPECT_EQ(m_schedule.nextChange(), start + 1h + LedSchedule::flashTime);
    EXPECT_FALSE(m_schedule.advance(start + 1h));
}

TEST_F(LedScheduleTest, CountGoesDownWhenAFlashBegins)
{
    m_schedule.add(request(1, "1", LedColor::Red, 2));
    next();
    EXPECT_EQ(m_schedule.state().requests.at(0).remaining, 1);
    nextChanges(2);
    EXPECT_EQ(m_schedule.state().requests.at(0).remaining, 0);
}

TEST_F(LedScheduleTest, UnlimitedRequestFlashesUntilItIsCancelled)
{
    m_schedule.add(request(1, "1", LedColor::White, -1));
    EXPECT_THAT(nextChanges(4), ElementsAre("white", "", "white", ""));
    EXPECT_EQ(m_schedule.state().requests.at(0).remaining, -1);
    m_schedule.cancel(1, "1");
    EXPECT_EQ(next(), "-");
}

TEST_F(LedScheduleTest, NewestIsShownAndTheOneBeforeGoesOnWithWhatRemains)
{
    m_schedule.add(request(1, "1", LedColor::Red, 3));
    EXPECT_EQ(next(), "red");
    m_schedule.add(request(2, "1", LedColor::Blue, 2));
    EXPECT_THAT(nextChanges(10),
                ElementsAre("", "blue", "", "blue", "", "red", "", "red", "", "-"));
}

TEST_F(LedScheduleTest, SameIdOfTheSameClientIsReplaced)
{
    m_schedule.add(request(1, "1", LedColor::Red, -1));
    m_schedule.add(request(1, "2", LedColor::Blue, 1));
    m_schedule.add(request(1, "1", LedColor::Green, 1));
    EXPECT_THAT(nextChanges(5), ElementsAre("green", "", "blue", "", "-"));
}

TEST_F(LedScheduleTest, FlashThatHasBegunIsShownWhole)
{
    m_schedule.add(request(1, "1", LedColor::Red, -1));
    next();
    m_schedule.cancel(1, "1");
    m_schedule.add(request(1, "1", LedColor::Green, 1));
    EXPECT_EQ(m_schedule.state().lit, LedColor::Red);
    EXPECT_EQ(m_schedule.nextChange(), m_now + LedSchedule::flashTime);
    EXPECT_THAT(nextChanges(4), ElementsAre("", "green", "", "-"));
}

TEST_F(LedScheduleTest, CancellingWhatIsNotThereChangesNothing)
{
    m_schedule.add(request(1, "1", LedColor::Red, 1));
    m_schedule.cancel(2, "1");
    m_schedule.cancel(1, "2");
    EXPECT_THAT(nextChanges(3), ElementsAre("red", "", "-"));
}

TEST_F(LedScheduleTest, ClientThatHasGoneIsForgotten)
{
    m_schedule.add(request(1, "1", LedColor::Red, -1));
    m_schedule.add(request(2, "1", LedColor::Blue, 1));
    m_schedule.add(request(1, "2", LedColor::Green, -1));
    m_schedule.forget(1);
    EXPECT_THAT(nextChanges(3), ElementsAre("blue", "", "-"));
}

TEST_F(LedScheduleTest, LateChangeKeepsItsDistanceToTheNext)
{
    m_schedule.add(request(1, "1", LedColor::Red, 2));
    EXPECT_TRUE(m_schedule.advance(start + 10s));
    EXPECT_TRUE(m_schedule.advance(start + 20s));
    EXPECT_FALSE(m_schedule.advance(start + 20s + 249ms));
    EXPECT_TRUE(m_schedule.advance(start + 20s + 250ms));
}

TEST_F(LedScheduleTest, GoesOnWithRequestsFromBefore)
{
    m_schedule.restore({request(3, "1", LedColor::Red, 0), request(2, "1", LedColor::Blue, 1),
                        request(1, "1", LedColor::Green, -1)});
    EXPECT_EQ(m_schedule.removeIf([](const LedRequest& kept) { return kept.client == 1; }), 1U);
    EXPECT_THAT(nextChanges(3), ElementsAre("blue", "", "-"));
}

TEST_F(LedScheduleTest, IsLitForTheRequestWhoseFlashHasBegun)
{
    m_schedule.add(request(1, "1", LedColor::Red, 2));
    ASSERT_NE(m_schedule.state().shown(), nullptr);
    EXPECT_EQ(m_schedule.state().shown()->color, LedColor::Red);
    next();
    m_schedule.add(request(2, "1", LedColor::Green, 1));
    EXPECT_EQ(m_schedule.state().shown()->color, LedColor::Red);
    EXPECT_FALSE(m_schedule.state().waits(m_schedule.state().requests.at(1)));
    EXPECT_TRUE(m_schedule.state().waits(m_schedule.state().requests.at(0)));
    m_schedule.forget(1);
    EXPECT_EQ(m_schedule.state().shown()->color, LedColor::Red);
    next();
    EXPECT_EQ(m_schedule.state().shown()->color, LedColor::Green);
    m_schedule.forget(2);
    EXPECT_EQ(m_schedule.state().shown(), nullptr);
}

} // namespace
