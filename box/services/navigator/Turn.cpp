// SPDX-License-Identifier: Apache-2.0
#include "Turn.h"

namespace tamobox {

using Application = TurnPlan::Application;

Turn::Turn(const TurnPlan& plan, Clock::time_point now) : m_plan(plan), m_entered(now)
{
    if (plan.isOwnWish || plan.application == Application::Nobody)
        enter(Stage::Display, now);
    else if (plan.application == Application::Asked)
        enter(Stage::Check, now);
    else
        m_report.check = "locked";
}

std::optional<Turn::Clock::time_point> Turn::deadline() const
{
    if (m_stage == Stage::Finished)
        return std::nullopt;
    return m_entered + (m_stage == Stage::Display ? m_plan.displayLimit : m_plan.limit);
}

void Turn::answerCheck(bool accepted, Clock::time_point now)
{
    if (m_stage != Stage::Check)
        return;
    finishCheck(accepted ? "accepted" : "refused", now);
    if (accepted)
        enter(Stage::Display, now);
}

void Turn::answerOrientation(Clock::time_point now)
{
    if (m_stage == Stage::Orientation)
        finishOrientation("done", now);
}

void Turn::displayTurned(Clock::time_point now)
{
    if (m_stage != Stage::Display)
        return;
    m_report.turned = true;
    const bool isTold = m_plan.application != Application::Nobody && m_plan.changesAngle;
    enter(isTold ? Stage::Orientation : Stage::Finished, now);
    if (m_applicationIsGone)
        applicationGone(now);
}

void Turn::displayFailed(const std::string& reason, Clock::time_point now)
{
    if (m_stage == Stage::Display)
        fail(reason, now);
}

void Turn::fail(const std::string& reason, Clock::time_point now)
{
    if (m_stage == Stage::Finished)
        return;
    m_report.failure = reason;
    enter(Stage::Finished, now);
}

void Turn::applicationGone(Clock::time_point now)
{
    if (m_stage == Stage::Check)
        finishCheck("gone", now);
    else if (m_stage == Stage::Orientation)
        finishOrientation("gone", now);
    m_applicationIsGone = true;
}

void Turn::timeOut(Clock::time_point now)
{
    const auto due = deadline();
    if (!due || now < *due)
        return;
    if (m_stage == Stage::Check)
        finishCheck("none", now);
    else if (m_stage == Stage::Orientation)
        finishOrientation("none", now);
    else
        displayFailed("the display service did not answer within " +
                          std::to_string(m_plan.displayLimit.count()) + " ms",
                      now);
}

void Turn::enter(Stage stage, Clock::time_point now)
{
    m_stage = stage;
    m_entered = now;
}

void Turn::finishCheck(const char* outcome, Clock::time_point now)
{
    m_report.check = outcome;
    m_report.checkTime = sinceEntered(now);
    enter(Stage::Finished, now);
}

void Turn::finishOrientation(const char* outcome, Clock::time_point now)
{
    m_report.done = outcome;
    m_report.doneTime = sinceEntered(now);
    enter(Stage::Finished, now);
}

} // namespace tamobox
