// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_EVENTPOST_H
#define TAMOBOX_EVENTPOST_H

#include "NavigatorEvent.h"
#include "services/Complaints.h"

#include "services/MailboxServer.h"

#include <functional>
#include <map>

namespace tamobox {

/** Serves the mailbox of events: tells processes their events, each of them at every client of its.
 */
class EventPost
{
public:
    using ProcessHandler = std::function<void(pid_t)>;

    /** At how many clients of a process an event was put. */
    struct Outcome
    {
        int reached = 0;
        int unread = 0; ///< clients that do not read what they are sent; it is lost for them
    };

    /**
     * @param onArrival called when a client of a process has come
     * @param onLeave called when the last client of a process has gone
     */
    EventPost(EventLoop& loop, Complaints& complaints, ProcessHandler onArrival,
              ProcessHandler onLeave);

    /** Whether a process has a client. */
    bool hasClient(pid_t process) const;

    /** Tells a process an event. Throws ObjectFailure where `/pps` has ended. */
    Outcome tell(pid_t process, const NavigatorEvent& event);

    /** Handles at once what clients have come and gone, up to a flood's beginning. */
    void catchUp();

private:
    void clientCame(MailboxServer::Client client, pid_t process);
    void clientLeft(MailboxServer::Client client);

    Complaints& m_complaints;
    ProcessHandler m_onArrival;
    ProcessHandler m_onLeave;
    std::map<MailboxServer::Client, pid_t> m_clients;
    MailboxServer m_server;
};

} // namespace tamobox

#endif
