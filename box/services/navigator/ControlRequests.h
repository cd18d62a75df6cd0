// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_CONTROLREQUESTS_H
#define TAMOBOX_CONTROLREQUESTS_H

#include "ApplicationTable.h"
#include "Departures.h"
#include "EventPost.h"
#include "Turns.h"
#include "services/Complaints.h"

#include "common/Timer.h"
#include "services/MailboxServer.h"

#include <map>
#include <string>
#include <vector>

namespace tamobox {

/** Serves the mailbox through which applications ask and answer the navigator. */
class ControlRequests
{
public:
    /** What it works with; all of it must outlive the object. */
    struct Surroundings
    {
        ApplicationTable& applications;
        EventPost& post;
        Turns& turns;
        Departures& departures;
        Complaints& complaints;
        std::function<void()> publish; ///< called when an application has changed
    };

    ControlRequests(EventLoop& loop, Surroundings surroundings);

    /** Handles at once what applications have asked, up to a flood's beginning; nothing while a
     * request is being handled. */
    void catchUp();

    /** Handles what a process asked for before it was an application. */
    void applicationCame(pid_t process);

    /** Forgets what a process asked for that has never become an application. */
    void processEnded(pid_t process);

private:
    /** A request that came before its application did: events are asked for in another thread. */
    struct EarlyRequest
    {
        pid_t process;
        std::string text;
        EventLoop::Clock::time_point deadline;
    };

    using Handler = void (ControlRequests::*)(pid_t, MessageReader&);

    static const std::map<std::string, Handler>& handlers();
    void handle(pid_t process, MessageReader& request);
    void complain(pid_t process, const std::string& reason);
    void keepForLater(pid_t process);
    void refuseOverdue();
    void carryOut(pid_t process, MessageReader& request);
    WindowGroup& applicationOf(pid_t process);

    void answerCheck(pid_t process, MessageReader& request);
    void answerOrientation(pid_t process, MessageReader& request);
    void setOrientation(pid_t process, MessageReader& request);
    void setWindowAngle(pid_t process, MessageReader& request);
    void lockRotation(pid_t process, MessageReader& request);
    void extendTimeout(pid_t process, MessageReader& request);
    void wantSwipeStart(pid_t process, MessageReader& request);
    void invoke(pid_t process, MessageReader& request);
    void openFile(pid_t process, MessageReader& request);
    void addUri(pid_t process, MessageReader& request);
    void setClosePrompt(pid_t process, MessageReader& request);
    void setBadge(pid_t process, MessageReader& request);
    void handOver(const std::string& url);

    Surroundings m_surroundings;
    std::map<MailboxServer::Client, pid_t> m_clients;
    std::vector<EarlyRequest> m_early; // in the order in which they came
    Timer m_overdue;
    bool m_isHandling = false;
    MailboxServer m_server;
};

} // namespace tamobox

#endif
