// SPDX-License-Identifier: Apache-2.0
#include "EventPost.h"

#include <algorithm>

namespace tamobox {

namespace {

constexpr const char* mailbox = "services/navigator/events";
constexpr int floodBegins = 4096; // messages

} // namespace

EventPost::EventPost(EventLoop& loop, Complaints& complaints, ProcessHandler onArrival,
                     ProcessHandler onLeave)
    : m_complaints(complaints)
    , m_onArrival(std::move(onArrival))
    , m_onLeave(std::move(onLeave))
    , m_server(
          loop, mailbox,
          [this](MailboxServer::Client client, MessageReader&) {
              m_complaints.add("process " + std::to_string(m_clients[client]) + " wrote to " +
                               mailbox + ", which takes no requests");
          },
          [this](MailboxServer::Client client) { clientLeft(client); },
          [this](MailboxServer::Client client, pid_t process) { clientCame(client, process); })
{
}

bool EventPost::hasClient(pid_t process) const
{
    return std::any_of(m_clients.begin(), m_clients.end(),
                       [&](const auto& entry) { return entry.second == process; });
}

EventPost::Outcome EventPost::tell(pid_t process, const NavigatorEvent& event)
{
    Outcome outcome;
    for (const auto& [client, owner] : m_clients) {
        if (owner != process)
            continue;
        MessageWriter message;
        m_server.address(message, client);
        event.writeTo(message);
        const MailboxServer::Delivery delivery = m_server.send(message);
        outcome.reached += delivery == MailboxServer::Delivery::Sent ? 1 : 0;
        outcome.unread += delivery == MailboxServer::Delivery::Full ? 1 : 0;
    }
    return outcome;
}

void EventPost::catchUp()
{
    for (int i = 0; i < floodBegins && m_server.handOutNext(); ++i) {
    }
}

void EventPost::clientCame(MailboxServer::Client client, pid_t process)
{
    m_clients[client] = process;
    if (process == 0)
        m_complaints.add("somebody outside the box opened " + std::string(mailbox) +
                         ", and is told nothing; use 'tamo-box exec'");
    else
        m_onArrival(process);
}

void EventPost::clientLeft(MailboxServer::Client client)
{
    const pid_t process = m_clients[client];
    m_clients.erase(client);
    if (process != 0 && !hasClient(process))
        m_onLeave(process);
}

} // namespace tamobox
