// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_OUTBOXES_H
#define TAMOBOX_OUTBOXES_H

#include "common/Timer.h"
#include "services/MailboxServer.h"

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>

namespace tamobox {

/**
 * What a mailbox sends its clients: what finds a client's queue full waits here, in its order, and
 * follows when there is room. Nobody tells of room, so it is tried again and again, ever more
 * rarely where a client does not read.
 */
class Outboxes
{
public:
    using Client = MailboxServer::Client;
    using Delivery = MailboxServer::Delivery;
    using Clock = EventLoop::Clock;

    /** Sends a client a message; as MailboxServer::send(). */
    using Send = std::function<Delivery(const std::string& message)>;

    /** How much may wait for one client, and for all, in bytes. */
    static constexpr std::size_t mostOfAClient = std::size_t{16} << 20;
    static constexpr std::size_t mostOfAll = std::size_t{64} << 20;

    /** The first pause before what waits is tried again, and the longest. */
    static constexpr auto firstPause = std::chrono::milliseconds(10);
    static constexpr auto longestPause = std::chrono::seconds(1);

    /** @param loop must outlive the object */
    Outboxes(EventLoop& loop, Send send);

    /**
     * Sends a client a message, after those that wait for it.
     *
     * @return Sent: it is in the client's queue, or follows; Full: there is no room here either,
     * and it is lost
     */
    Delivery send(Client client, const std::string& message);

    /** Sends now what waits for a client, as much as its queue takes. */
    void tryNow(Client client);

    /** Forgets what waits for a client. */
    void clientLeft(Client client);

    /** Whether anything waits for anybody; the timer runs exactly then. */
    bool isWaiting() const { return !m_boxes.empty(); }

private:
    struct Box
    {
        std::deque<std::string> messages;
        std::size_t bytes = 0;
        std::chrono::milliseconds pause = firstPause;
        Clock::time_point next;
    };

    void tryDue();
    void setTimer();

    Send m_send;
    std::map<Client, Box> m_boxes; // none is empty
    std::set<std::pair<Clock::time_point, Client>> m_due;
    std::size_t m_bytes = 0;
    Timer m_timer;
};

} // namespace tamobox

#endif
