// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NETWORKPOST_H
#define TAMOBOX_NETWORKPOST_H

#include "NetworkEvent.h"

#include "common/Timer.h"
#include "services/Complaints.h"
#include "services/MailboxServer.h"

#include <sys/types.h>

#include <deque>
#include <functional>
#include <map>

namespace tamobox {

/**
 * Serves the mailbox `services/network/events`: tells each client every event, in order. What a
 * client's queue has no room for is kept here, and put there as the client reads. Where too much of
 * it has gathered, the events in the middle are left out, never the last.
 */
class NetworkPost
{
public:
    /**
     * @param complaints must outlive the object, as the loop must
     * @param present the event that tells a client which has come how things are
     * @param onDelivered called when isDelivered() may have become true
     */
    NetworkPost(EventLoop& loop, Complaints& complaints, std::function<NetworkEvent()> present,
                std::function<void()> onDelivered);

    /** Tells every client an event. Throws ObjectFailure where `/pps` has ended. */
    void tell(const NetworkEvent& event);

    /** Whether every event is at every client that reads. One that has taken nothing for two
     * seconds does not. */
    bool isDelivered() const;

private:
    using Clock = EventLoop::Clock;

    struct Recipient
    {
        pid_t process = 0;                // 0: outside the box
        std::deque<NetworkEvent> backlog; // in the order in which they are told
        Clock::time_point lastTaken = {}; // while there is a backlog
        bool isGivenUp = false;           // nobody waits for it
    };

    void come(MailboxServer::Client client, pid_t process);
    void tellOne(MailboxServer::Client client, Recipient& recipient, const NetworkEvent& event);
    bool deliver(MailboxServer::Client client, const NetworkEvent& event);
    void deliverBacklogs();
    void setTimer();

    Complaints& m_complaints;
    std::function<NetworkEvent()> m_present;
    std::function<void()> m_onDelivered;
    std::map<MailboxServer::Client, Recipient> m_recipients;
    std::chrono::milliseconds m_pause;
    Timer m_timer;
    MailboxServer m_server;
};

} // namespace tamobox

#endif
