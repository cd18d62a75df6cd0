// SPDX-License-Identifier: Apache-2.0
#include "Turns.h"

#include "common/Failure.h"

#include <unistd.h>

#include <algorithm>

namespace tamobox {

namespace {

constexpr std::size_t mostWishes = 16; // of one application

NavigatorEvent angleEvent(EventCode code, int angle)
{
    NavigatorEvent event(code);
    event.angle = angle;
    return event;
}

} // namespace

// The process id makes the questions different from those that the service asked before it was
// started again.
Turns::Turns(EventLoop& loop, Surroundings surroundings)
    : m_surroundings(std::move(surroundings))
    , m_questions(std::to_string(getpid()) + '-')
    , m_display(loop,
                [this](const std::optional<std::string>& failure) {
                    if (!m_current)
                        return;
                    if (failure)
                        m_current->turn.displayFailed(*failure, Clock::now());
                    else
                        m_current->turn.displayTurned(Clock::now());
                    follow();
                })
    , m_timer(loop, [this] {
        if (!m_current)
            return;
        m_current->turn.timeOut(Clock::now());
        follow();
    })
{
}

void Turns::begin(const ControlRequest& request, const WindowGroup* application, int angle,
                  std::chrono::milliseconds limit)
{
    TurnPlan plan;
    plan.angle = angle;
    plan.limit = limit;
    if (application != nullptr)
        plan.application = application->rotationLocked ? TurnPlan::Application::Locked
                                                       : TurnPlan::Application::Asked;
    m_current.emplace(Current{Turn(plan, Clock::now()), angle, request, std::nullopt});
    if (application != nullptr) {
        m_current->process = application->process;
        m_current->group = application->group;
    }
    follow();
}

void Turns::wish(const WindowGroup& application, int angle, const std::string& id)
{
    const auto own = [&](const Wish& wish) { return wish.process == application.process; };
    if (static_cast<std::size_t>(std::count_if(m_wishes.begin(), m_wishes.end(), own)) >=
        mostWishes)
        throw Failure("it waits for " + std::to_string(mostWishes) + " turns already");
    m_wishes.push_back({application.process, angle, id});
    beginNextWish();
}

void Turns::beginNextWish()
{
    while (!m_current && !m_wishes.empty()) {
        const Wish wish = m_wishes.front();
        m_wishes.pop_front();
        WindowGroup* const application = m_surroundings.applications.find(wish.process);
        if (application != nullptr)
            grant(wish, *application);
    }
}

void Turns::grant(const Wish& wish, WindowGroup& application)
{
    if (m_surroundings.applications.foreground() != &application) {
        NavigatorEvent result = angleEvent(EventCode::OrientationResult, application.angle);
        result.id = wish.id;
        result.err = application.group + " is not in the foreground";
        tell(application, result);
        return;
    }
    TurnPlan plan;
    plan.angle = wish.angle;
    plan.application = TurnPlan::Application::Asked;
    plan.isOwnWish = true;
    plan.changesAngle = wish.angle != application.angle;
    m_current.emplace(Current{Turn(plan, Clock::now()), wish.angle, std::nullopt, wish.id,
                              application.process, application.group});
    follow();
}

void Turns::answerCheck(pid_t process, const std::string& id, bool accepted)
{
    if (!judge(QuestionLedger::Kind::Check, process, id))
        return;
    m_current->turn.answerCheck(accepted, Clock::now());
    follow();
}

void Turns::answerOrientation(pid_t process, const std::string& id)
{
    if (!judge(QuestionLedger::Kind::Orientation, process, id))
        return;
    m_current->turn.answerOrientation(Clock::now());
    follow();
}

bool Turns::judge(QuestionLedger::Kind kind, pid_t process, const std::string& id)
{
    const QuestionLedger::Verdict verdict = m_questions.answer(id, kind, process);
    if (verdict != QuestionLedger::Verdict::Answers)
        throw Failure("the answer " + quoted(id) + ' ' + textForVerdict(verdict));
    return m_current.has_value();
}

void Turns::endCutOffTurn(WindowGroup& application)
{
    const bool isUnderWay = m_current && m_current->process == application.process;
    if (!application.turningTo || isUnderWay)
        return;
    application.angle = *application.turningTo;
    application.turningTo.reset();
    m_surroundings.complaints.add("the turn of " + application.group +
                                  " was cut off, and has ended at " +
                                  std::to_string(application.angle));
    tell(application, angleEvent(EventCode::OrientationEnd, application.angle));
}

void Turns::applicationGone(pid_t process)
{
    if (!m_current || m_current->process != process)
        return;
    m_current->turn.applicationGone(Clock::now());
    follow();
}

// Does what the turn asks for until it has to wait.
void Turns::follow()
{
    while (m_current && m_current->followed != m_current->turn.stage()) {
        m_current->followed = m_current->turn.stage();
        m_questions.close(m_current->questionId);
        m_display.cancel();
        enterStage(*m_current->followed);
    }
    const auto deadline = m_current ? m_current->turn.deadline() : std::nullopt;
    if (deadline)
        m_timer.startAt(*deadline);
    else
        m_timer.stop();
}

void Turns::enterStage(Stage stage)
{
    switch (stage) {
    case Stage::Check:
        ask(QuestionLedger::Kind::Check, EventCode::OrientationCheck);
        break;
    case Stage::Display:
        m_display.turn(m_current->angle);
        break;
    case Stage::Orientation:
        setTurning(m_current->angle);
        ask(QuestionLedger::Kind::Orientation, EventCode::Orientation);
        break;
    case Stage::Finished:
        finish();
        break;
    }
}

// Published before the application is told, so that whoever takes over knows.
void Turns::setTurning(int angle)
{
    if (WindowGroup* const application = m_surroundings.applications.find(m_current->process))
        application->turningTo = angle;
    m_surroundings.publish();
}

void Turns::ask(QuestionLedger::Kind kind, EventCode code)
{
    m_current->questionId = m_questions.ask(kind, m_current->process);
    NavigatorEvent event = angleEvent(code, m_current->angle);
    event.id = m_current->questionId;
    const EventPost::Outcome outcome = m_surroundings.post.tell(m_current->process, event);
    const std::string trouble =
        m_current->group + " does not read its events; it was not told " + event.name();
    if (outcome.reached == 0 && outcome.unread == 0)
        m_current->turn.applicationGone(Clock::now());
    else if (outcome.reached == 0)
        m_current->turn.fail(trouble, Clock::now());
    else if (outcome.unread > 0)
        m_surroundings.complaints.add(trouble + " at each of its channels");
}

void Turns::finish()
{
    const Current ended = *m_current;
    WindowGroup* const application = m_surroundings.applications.find(ended.process);
    if (application != nullptr)
        tellEnd(ended, *application);
    m_surroundings.publish();
    m_current.reset();
    answerCommand(ended);
    m_surroundings.commands.tryAgain();
    beginNextWish();
}

void Turns::tellEnd(const Current& ended, WindowGroup& application)
{
    const TurnReport& report = ended.turn.report();
    application.turningTo.reset();
    if (report.done == "done")
        application.angle = ended.angle;
    const int angle = report.turned ? ended.angle : application.angle;
    // Whoever accepted expects to be turned, also where the display could not be.
    if (report.check == "accepted" || report.done != "not asked")
        tell(application, angleEvent(EventCode::OrientationEnd, angle));
    if (!ended.wishId)
        return;
    if (report.done == "none")
        m_surroundings.complaints.add(application.group + " wished to be turned to " +
                                      std::to_string(ended.angle) +
                                      " and did not say that it was done within 2000 ms");
    NavigatorEvent result = angleEvent(EventCode::OrientationResult, angle);
    result.id = *ended.wishId;
    if (!report.failure.empty())
        result.err = report.failure;
    tell(application, result);
}

void Turns::answerCommand(const Current& ended)
{
    if (!ended.request)
        return;
    const TurnReport& report = ended.turn.report();
    const std::optional<int> rotation =
        report.turned ? ended.angle : DisplayClient::publishedRotation();
    m_surroundings.commands.report(*ended.request, [&](MessageWriter& members) {
        members.add("angle", ended.angle).add("group", ended.group).add("check", report.check);
        if (report.checkTime)
            members.add("checkTime", report.checkTime->count());
        members.add("done", report.done);
        if (report.doneTime)
            members.add("doneTime", report.doneTime->count());
        members.add("turned", report.turned);
        if (rotation)
            members.add("rotation", *rotation);
    });
    if (report.failure.empty())
        m_surroundings.commands.accept(*ended.request);
    else
        m_surroundings.commands.refuse(
            *ended.request,
            (report.turned ? "the turn was not finished: " : "the display was not turned: ") +
                report.failure);
}

void Turns::tell(const WindowGroup& application, const NavigatorEvent& event)
{
    const EventPost::Outcome outcome = m_surroundings.post.tell(application.process, event);
    if (outcome.unread > 0)
        m_surroundings.complaints.add(application.group +
                                      " does not read its events; it was not told " + event.name());
}

} // namespace tamobox
