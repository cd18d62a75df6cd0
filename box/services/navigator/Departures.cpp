// SPDX-License-Identifier: Apache-2.0
#include "Departures.h"

#include "services/Complaints.h"

#include "common/Failure.h"

#include <algorithm>

namespace tamobox {

namespace {

// The box may end with the process that is killed, so its client has to have read the reason
// before.
constexpr auto readingTime = std::chrono::milliseconds(500);

std::chrono::milliseconds since(EventLoop::Clock::time_point begin)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(EventLoop::Clock::now() - begin);
}

} // namespace

Departures::Departures(EventLoop& loop, ProcessWatch& processes, PendingCommands& commands)
    : m_processes(processes), m_commands(commands), m_timer(loop, [this] { tick(); })
{
}

void Departures::begin(const ControlRequest& request, const WindowGroup& application,
                       std::chrono::milliseconds grace)
{
    const auto now = Clock::now();
    m_departures.push_back({request, application.process, application.group, now});
    m_deadlines.begin(application.process, now + grace);
    setTimer();
}

void Departures::extend(pid_t process, std::chrono::milliseconds time)
{
    m_deadlines.extend(process, Clock::now() + time);
    setTimer();
}

void Departures::overdueWasRead(MailboxServer::Client client)
{
    for (Departure& departure : m_departures)
        if (departure.overdue && departure.request.client == client)
            departure.overdueWasRead = true;
    killWhereAllKnow();
}

void Departures::processEnded(pid_t process)
{
    m_deadlines.remove(process);
    m_killings.erase(process);
    std::list<Departure> ended;
    for (auto departure = m_departures.begin(); departure != m_departures.end();) {
        const auto next = std::next(departure);
        if (departure->process == process)
            ended.splice(ended.end(), m_departures, departure);
        departure = next;
    }
    for (const Departure& departure : ended) {
        if (!departure.overdue)
            report(departure, true);
        m_commands.accept(departure.request);
    }
    setTimer();
}

void Departures::clientLeft(MailboxServer::Client client)
{
    std::vector<pid_t> processes;
    m_departures.remove_if([&](const Departure& departure) {
        if (departure.request.client != client)
            return false;
        processes.push_back(departure.process);
        return true;
    });
    for (const pid_t process : processes)
        if (!isAwaited(process))
            m_deadlines.cancel(process);
    killWhereAllKnow();
    setTimer();
}

void Departures::tick()
{
    const auto now = Clock::now();
    for (const pid_t process : m_deadlines.takeDue(now))
        announce(process);
    std::vector<pid_t> due;
    for (const auto& [process, latest] : m_killings)
        if (latest <= now)
            due.push_back(process);
    for (const pid_t process : due)
        kill(process);
    setTimer();
}

void Departures::announce(pid_t process)
{
    bool isSaid = false;
    for (Departure& departure : m_departures) {
        if (departure.process != process)
            continue;
        if (!std::exchange(isSaid, true))
            Complaints::write(departure.group + " was asked to leave and did not within " +
                              std::to_string(since(departure.begin).count()) + " ms; it is killed");
        departure.overdue = true;
        report(departure, false);
    }
    m_killings[process] = Clock::now() + readingTime;
}

void Departures::killWhereAllKnow()
{
    std::vector<pid_t> known;
    for (const auto& killing : m_killings) {
        const pid_t process = killing.first;
        const bool isUnread = std::any_of(m_departures.begin(), m_departures.end(),
                                          [process](const Departure& departure) {
                                              return departure.process == process &&
                                                     departure.overdue && !departure.overdueWasRead;
                                          });
        if (!isUnread)
            known.push_back(process);
    }
    for (const pid_t process : known)
        kill(process);
}

void Departures::kill(pid_t process)
{
    m_killings.erase(process);
    const int error = m_processes.kill(process);
    if (error == 0)
        return;
    const std::string reason = "it did not leave, and it cannot be killed: " + errorText(error);
    m_departures.remove_if([&](const Departure& departure) {
        if (departure.process != process)
            return false;
        m_commands.refuse(departure.request, reason);
        return true;
    });
}

void Departures::report(const Departure& departure, bool left)
{
    m_commands.report(departure.request, [&](MessageWriter& members) {
        members.add("group", departure.group)
            .add("left", left)
            .add("milliseconds", static_cast<int>(since(departure.begin).count()));
    });
}

bool Departures::isAwaited(pid_t process) const
{
    return std::any_of(m_departures.begin(), m_departures.end(),
                       [&](const Departure& departure) { return departure.process == process; });
}

void Departures::setTimer()
{
    std::optional<Clock::time_point> next = m_deadlines.next();
    for (const auto& [process, latest] : m_killings)
        next = std::min(next.value_or(latest), latest);
    if (next)
        m_timer.startAt(*next);
    else
        m_timer.stop();
}

} // namespace tamobox
