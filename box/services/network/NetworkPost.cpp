// SPDX-License-Identifier: Apache-2.0
#include "NetworkPost.h"

#include <algorithm>

namespace tamobox {

namespace {

constexpr const char* mailbox = "services/network/events";
constexpr std::size_t longestBacklog = 131'072; // events
constexpr auto patience = std::chrono::seconds(2);

// Nobody says when a queue has room again, so it is tried, ever less often while it has none.
constexpr auto shortestPause = std::chrono::milliseconds(1);
constexpr auto longestPause = std::chrono::milliseconds(128);

} // namespace

NetworkPost::NetworkPost(EventLoop& loop, Complaints& complaints,
                         std::function<NetworkEvent()> present, std::function<void()> onDelivered)
    : m_complaints(complaints)
    , m_present(std::move(present))
    , m_onDelivered(std::move(onDelivered))
    , m_pause(shortestPause)
    , m_timer(loop, [this] { deliverBacklogs(); })
    , m_server(
          loop, mailbox,
          [this](MailboxServer::Client client, MessageReader&) {
              m_complaints.add("process " + std::to_string(m_recipients[client].process) +
                               " wrote to " + mailbox + ", which takes no requests");
          },
          [this](MailboxServer::Client client) {
              m_recipients.erase(client);
              m_onDelivered();
          },
          [this](MailboxServer::Client client, pid_t process) { come(client, process); })
{
}

void NetworkPost::come(MailboxServer::Client client, pid_t process)
{
    Recipient& recipient = m_recipients[client];
    recipient = Recipient();
    recipient.process = process;
    tellOne(client, recipient, m_present());
    setTimer();
}

void NetworkPost::tell(const NetworkEvent& event)
{
    for (auto& [client, recipient] : m_recipients)
        tellOne(client, recipient, event);
    setTimer();
}

bool NetworkPost::isDelivered() const
{
    return std::all_of(m_recipients.begin(), m_recipients.end(), [](const auto& entry) {
        return entry.second.backlog.empty() || entry.second.isGivenUp;
    });
}

void NetworkPost::tellOne(MailboxServer::Client client, Recipient& recipient,
                          const NetworkEvent& event)
{
    if (recipient.backlog.empty()) {
        if (deliver(client, event))
            return;
        recipient.lastTaken = Clock::now();
        recipient.isGivenUp = false;
    } else if (recipient.backlog.size() >= longestBacklog) {
        recipient.backlog.pop_back();
        m_complaints.add("process " + std::to_string(recipient.process) +
                         " does not read its events; one is left out");
    }
    recipient.backlog.push_back(event);
}

// False: the client's queue is full. One that has gone loses it.
bool NetworkPost::deliver(MailboxServer::Client client, const NetworkEvent& event)
{
    MessageWriter message;
    m_server.address(message, client);
    event.write(message);
    return m_server.send(message) != MailboxServer::Delivery::Full;
}

void NetworkPost::deliverBacklogs()
{
    const auto now = Clock::now();
    bool isAnyTaken = false;
    for (auto& [client, recipient] : m_recipients) {
        std::deque<NetworkEvent>& backlog = recipient.backlog;
        while (!backlog.empty() && deliver(client, backlog.front())) {
            backlog.pop_front();
            recipient.lastTaken = now;
            recipient.isGivenUp = false;
            isAnyTaken = true;
        }
        if (!backlog.empty() && !recipient.isGivenUp && now - recipient.lastTaken > patience) {
            recipient.isGivenUp = true;
            m_complaints.add("process " + std::to_string(recipient.process) +
                             " does not read its events; it is told when it does");
        }
    }
    m_pause = isAnyTaken ? shortestPause : std::min(2 * m_pause, longestPause);
    setTimer();
    m_onDelivered();
}

void NetworkPost::setTimer()
{
    const bool isAnyLeft =
        std::any_of(m_recipients.begin(), m_recipients.end(),
                    [](const auto& entry) { return !entry.second.backlog.empty(); });
    if (isAnyLeft)
        m_timer.startAt(Clock::now() + m_pause);
    else
        m_timer.stop();
}

} // namespace tamobox
