// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DEPARTURES_H
#define TAMOBOX_DEPARTURES_H

#include "ExitDeadlines.h"
#include "ProcessWatch.h"
#include "WindowGroup.h"
#include "services/PendingCommands.h"

#include "common/Timer.h"

#include <list>

namespace tamobox {

/** Waits for applications that were asked to leave, and kills those that stay too long. */
class Departures
{
public:
    /** All of them must outlive the object. */
    Departures(EventLoop& loop, ProcessWatch& processes, PendingCommands& commands);

    /** An application was asked to leave; the command is answered when its process has ended. */
    void begin(const ControlRequest& request, const WindowGroup& application,
               std::chrono::milliseconds grace);

    /** An application asks for more time from now on. */
    void extend(pid_t process, std::chrono::milliseconds time);

    /** A client has read that the application is overdue. */
    void overdueWasRead(MailboxServer::Client client);

    void processEnded(pid_t process);

    /** A client has gone: nobody is killed any longer on its behalf. */
    void clientLeft(MailboxServer::Client client);

private:
    using Clock = EventLoop::Clock;

    struct Departure
    {
        ControlRequest request;
        pid_t process;
        std::string group;
        Clock::time_point begin;
        bool overdue = false;
        bool overdueWasRead = false;
    };

    void tick();
    void announce(pid_t process);
    void killWhereAllKnow();
    void kill(pid_t process);
    void report(const Departure& departure, bool left);
    bool isAwaited(pid_t process) const;
    void setTimer();

    ProcessWatch& m_processes;
    PendingCommands& m_commands;
    ExitDeadlines m_deadlines;
    std::list<Departure> m_departures;
    std::map<pid_t, Clock::time_point> m_killings; // at the latest
    Timer m_timer;
};

} // namespace tamobox

#endif
