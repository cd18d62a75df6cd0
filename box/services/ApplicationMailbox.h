// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_APPLICATIONMAILBOX_H
#define TAMOBOX_APPLICATIONMAILBOX_H

#include "Complaints.h"
#include "MailboxServer.h"

#include <sys/types.h>

#include <functional>
#include <map>
#include <string>

namespace tamobox {

/** An application's descriptor on a service's mailbox. */
struct ApplicationClient
{
    MailboxServer::Client number = 0;
    pid_t process = 0;       ///< 0: outside the box
    std::string application; ///< the process's name; empty where it is unknown
};

/**
 * The mailbox through which applications ask a service. A request is `msg` (what is asked for) and
 * `dat` (an object: the rest); nothing says whether it was carried out. One that is malformed
 * changes nothing and is complained of. Messages to a client have the same two attributes.
 */
class ApplicationMailbox
{
public:
    /** Carries out a request; the reader stands in `dat`. A Failure that it throws is complained
     * of. */
    using Handler = std::function<void(const ApplicationClient&, MessageReader& dat)>;

    /** Called when a client has gone, after everything that it asked. */
    using LeaveHandler = std::function<void(MailboxServer::Client)>;

    /**
     * @param object its path below `/pps`
     * @param complaints must outlive the object, as the loop must
     * @param requests by what `msg` says
     */
    ApplicationMailbox(EventLoop& loop, const std::string& object, Complaints& complaints,
                       std::map<std::string, Handler> requests, LeaveHandler onLeave);

    /** Handles at once what clients have asked, up to a flood's beginning; not to be called while a
     * request is handled. */
    void catchUp();

    /** Whether a client of this number is there, and is the process's. */
    bool isThere(MailboxServer::Client client, pid_t process) const;

    /** Tells one client something; `fill` adds the members of `dat`. Throws ObjectFailure where
     * `/pps` has ended. */
    MailboxServer::Delivery tell(MailboxServer::Client client, const char* message,
                                 const std::function<void(MessageWriter&)>& fill);

private:
    void handle(MailboxServer::Client client, MessageReader& request);
    void carryOut(const ApplicationClient& client, MessageReader& request);

    std::string m_object;
    Complaints& m_complaints;
    std::map<std::string, Handler> m_requests;
    LeaveHandler m_onLeave;
    std::map<MailboxServer::Client, ApplicationClient> m_clients;
    MailboxServer m_server;
};

/** "process 7 (name)", for a sentence. */
std::string processText(pid_t process, const std::string& application);

} // namespace tamobox

#endif
