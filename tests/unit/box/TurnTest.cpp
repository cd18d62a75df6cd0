// SPDX-License-Identifier: Apache-2.0
#include "services/navigator/Turn.h"

#include <gtest/gtest.h>

using namespace tamobox;
using namespace std::chrono_literals;

namespace {

using Stage = Turn::Stage;
using Application = TurnPlan::Application;

/** A turn with the test's own clock. */
class TurnTest : public testing::Test
{
protected:
    static TurnPlan planFor(Application application)
    {
        TurnPlan plan;
        plan.angle = 90;
        plan.application = application;
        plan.limit = 100ms;
        plan.displayLimit = 300ms;
        return plan;
    }

    Turn turnOf(Application application) const { return {planFor(application), now}; }

    Turn::Clock::time_point now{1h};
};

TEST_F(TurnTest, ApplicationIsAskedThenTheDisplayTurnedThenTheApplicationTold)
{
    Turn turn = turnOf(Application::Asked);
    EXPECT_EQ(turn.stage(), Stage::Check);
    EXPECT_EQ(turn.deadline(), now + 100ms);
    now += 10ms;
    turn.answerCheck(true, now);
    EXPECT_EQ(turn.stage(), Stage::Display);
    EXPECT_EQ(turn.deadline(), now + 300ms);
    EXPECT_FALSE(turn.report().turned);
    now += 20ms;
    turn.displayTurned(now);
    EXPECT_EQ(turn.stage(), Stage::Orientation);
    EXPECT_EQ(turn.deadline(), now + 100ms);
    now += 30ms;
    turn.answerOrientation(now);
    EXPECT_EQ(turn.stage(), Stage::Finished);
    EXPECT_EQ(turn.deadline(), std::nullopt);
    EXPECT_EQ(turn.report().check, "accepted");
    EXPECT_EQ(turn.report().checkTime, 10ms);
    EXPECT_EQ(turn.report().done, "done");
    EXPECT_EQ(turn.report().doneTime, 30ms);
    EXPECT_TRUE(turn.report().turned);
    EXPECT_EQ(turn.report().failure, "");
}

TEST_F(TurnTest, RefusalEndsIt)
{
    Turn turn = turnOf(Application::Asked);
    turn.answerCheck(false, now);
    EXPECT_EQ(turn.stage(), Stage::Finished);
    EXPECT_EQ(turn.report().check, "refused");
    EXPECT_EQ(turn.report().done, "not asked");
    EXPECT_FALSE(turn.report().turned);
}

TEST_F(TurnTest, LimitOfEachAnswerIsItsOwn)
{
    Turn unanswered = turnOf(Application::Asked);
    unanswered.timeOut(now + 99ms);
    EXPECT_EQ(unanswered.stage(), Stage::Check);
    unanswered.timeOut(now + 100ms);
    EXPECT_EQ(unanswered.stage(), Stage::Finished);
    EXPECT_EQ(unanswered.report().check, "none");
    EXPECT_EQ(unanswered.report().checkTime, 100ms);

    Turn unfinished = turnOf(Application::Asked);
    unfinished.answerCheck(true, now + 90ms);
    unfinished.timeOut(now + 389ms);
    unfinished.displayTurned(now + 389ms);
    unfinished.timeOut(now + 488ms);
    EXPECT_EQ(unfinished.stage(), Stage::Orientation);
    unfinished.timeOut(now + 489ms);
    EXPECT_EQ(unfinished.stage(), Stage::Finished);
    EXPECT_EQ(unfinished.report().done, "none");
    EXPECT_TRUE(unfinished.report().turned);
}

TEST_F(TurnTest, NobodyIsAskedWhereNobodyIsThere)
{
    Turn turn = turnOf(Application::Nobody);
    EXPECT_EQ(turn.stage(), Stage::Display);
    turn.displayTurned(now);
    EXPECT_EQ(turn.stage(), Stage::Finished);
    EXPECT_EQ(turn.report().check, "not asked");
    EXPECT_EQ(turn.report().done, "not asked");
    EXPECT_EQ(turn.report().checkTime, std::nullopt);
    EXPECT_TRUE(turn.report().turned);
}

TEST_F(TurnTest, LockedApplicationKeepsTheDisplay)
{
    const Turn turn = turnOf(Application::Locked);
    EXPECT_EQ(turn.stage(), Stage::Finished);
    EXPECT_EQ(turn.report().check, "locked");
    EXPECT_FALSE(turn.report().turned);
}

TEST_F(TurnTest, OwnWishIsNotAskedFor)
{
    for (const bool changesAngle : {false, true}) {
        TurnPlan plan = planFor(Application::Asked);
        plan.isOwnWish = true;
        plan.changesAngle = changesAngle;
        Turn turn(plan, now);
        EXPECT_EQ(turn.stage(), Stage::Display);
        turn.displayTurned(now);
        EXPECT_EQ(turn.stage(), changesAngle ? Stage::Orientation : Stage::Finished);
        EXPECT_EQ(turn.report().check, "not asked");
    }
}

TEST_F(TurnTest, FailureOfTheDisplayEndsIt)
{
    Turn failed = turnOf(Application::Asked);
    failed.answerCheck(true, now);
    failed.displayFailed("because", now);
    EXPECT_EQ(failed.stage(), Stage::Finished);
    EXPECT_EQ(failed.report().failure, "because");
    EXPECT_FALSE(failed.report().turned);

    Turn silent = turnOf(Application::Nobody);
    silent.timeOut(now + 300ms);
    EXPECT_EQ(silent.stage(), Stage::Finished);
    EXPECT_EQ(silent.report().failure, "the display service did not answer within 300 ms");
}

TEST_F(TurnTest, ApplicationThatIsGoneIsNotWaitedFor)
{
    Turn asked = turnOf(Application::Asked);
    asked.applicationGone(now + 1ms);
    EXPECT_EQ(asked.stage(), Stage::Finished);
    EXPECT_EQ(asked.report().check, "gone");
    EXPECT_EQ(asked.report().checkTime, 1ms);
    EXPECT_FALSE(asked.report().turned);

    Turn told = turnOf(Application::Asked);
    told.answerCheck(true, now);
    told.displayTurned(now);
    told.applicationGone(now);
    EXPECT_EQ(told.stage(), Stage::Finished);
    EXPECT_EQ(told.report().done, "gone");
    EXPECT_TRUE(told.report().turned);
}

TEST_F(TurnTest, DisplayIsTurnedToItsEndWhereTheApplicationGoesMeanwhile)
{
    Turn turn = turnOf(Application::Asked);
    turn.answerCheck(true, now);
    turn.applicationGone(now);
    EXPECT_EQ(turn.stage(), Stage::Display);
    turn.displayTurned(now);
    EXPECT_EQ(turn.stage(), Stage::Finished);
    EXPECT_EQ(turn.report().check, "accepted");
    EXPECT_EQ(turn.report().done, "gone");
}

TEST_F(TurnTest, WhatComesOutOfTurnChangesNothing)
{
    Turn turn = turnOf(Application::Asked);
    turn.answerOrientation(now);
    turn.displayTurned(now);
    turn.displayFailed("no", now);
    EXPECT_EQ(turn.stage(), Stage::Check);
    turn.answerCheck(true, now);
    turn.answerCheck(false, now);
    EXPECT_EQ(turn.stage(), Stage::Display);
    turn.displayTurned(now);
    turn.answerOrientation(now);
    turn.fail("no", now);
    turn.applicationGone(now);
    turn.timeOut(now + 1h);
    EXPECT_EQ(turn.report().failure, "");
    EXPECT_EQ(turn.report().done, "done");
}

} // namespace
