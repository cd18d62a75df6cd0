// SPDX-License-Identifier: Apache-2.0
#include "MailboxServer.h"

#include "Listener.h"
#include "Mailbox.h"
#include "MailboxClient.h"
#include "TextReader.h"

#include <cerrno>
#include <iterator>
#include <utility>
#include <vector>

namespace ppsfs {

struct MailboxServer::Answer
{
    std::uint64_t number;
    std::string text;
    MailboxClient* client = nullptr;
};

MailboxServer::MailboxServer(Mailbox& mailbox, Listener& listener)
    : m_mailbox(mailbox), m_listener(listener)
{
    m_mailbox.m_server = this;
    for (const auto& [number, client] : m_mailbox.clients())
        clientCame(*client);
}

MailboxServer::~MailboxServer()
{
    m_mailbox.m_server = nullptr;
    if (m_mailbox.isClosed())
        return;
    for (const auto& [number, client] : m_mailbox.clients())
        client->serverLeft();
}

void MailboxServer::consume()
{
    const Entry entry = std::move(m_inbox.front());
    m_inbox.pop_front();
    if (entry.news == News::Request)
        countAsRead(entry);
    if (entry.news != News::Arrival)
        return;
    m_arrivals.erase(entry.client);
    if (MailboxClient* const client = m_mailbox.client(entry.client))
        client->m_known = true;
}

int MailboxServer::write(std::string_view text, bool)
{
    std::vector<Answer> answers;
    pps::TextReader reader(text);
    pps::Line line;
    while (reader.next(line)) {
        if (line.kind == pps::LineKind::Object) {
            std::uint64_t number = 0;
            if (const int error = m_mailbox.parseAddress(line.text, number))
                return error;
            answers.push_back({number, m_mailbox.heading()});
            continue;
        }
        if (answers.empty() || line.kind == pps::LineKind::RemovedObject ||
            line.kind == pps::LineKind::ArrivedClient)
            return EINVAL;
        answers.back().text.append(line.text).append(1, '\n');
    }
    if (reader.error())
        return EINVAL;

    for (Answer& answer : answers) {
        answer.client = m_mailbox.client(answer.number);
        if (!answer.client)
            return ENOENT;
    }
    for (auto answer = answers.begin(); answer != answers.end(); ++answer) {
        if (answer->client->receive(std::move(answer->text)))
            continue;
        while (answer != answers.begin())
            (--answer)->client->takeBack();
        return EAGAIN;
    }
    for (const Answer& answer : answers)
        answer.client->m_listener.wake();
    return 0;
}

void MailboxServer::clientCame(MailboxClient& client)
{
    const Opener& opener = client.m_opener;
    tell(News::Arrival, client.m_number,
         '+' + m_mailbox.address(client.m_number) + "\npid:n:" + std::to_string(opener.process) +
             "\nuid:n:" + std::to_string(opener.user) + "\ngid:n:" + std::to_string(opener.group) +
             '\n');
    m_arrivals.emplace(client.m_number, std::prev(m_inbox.end()));
}

void MailboxServer::clientWent(MailboxClient& client)
{
    if (!client.m_known && client.m_unread.messages() == 0) {
        const auto arrival = m_arrivals.find(client.m_number);
        m_inbox.erase(arrival->second);
        m_arrivals.erase(arrival);
        return;
    }
    tell(News::Departure, client.m_number, '-' + m_mailbox.address(client.m_number) + '\n');
}

void MailboxServer::receive(MailboxClient& client, std::string request)
{
    client.m_unread.add(request.size());
    m_requests.add(request.size());
    tell(News::Request, client.m_number, std::move(request));
}

void MailboxServer::tell(News news, std::uint64_t client, std::string text)
{
    m_inbox.push_back({news, client, std::move(text)});
    m_listener.wake();
}

void MailboxServer::countAsRead(const Entry& request)
{
    const bool wasFull = !hasRoomFor(limits::TextSize);
    m_requests.remove(request.text.size());
    if (MailboxClient* const client = m_mailbox.client(request.client)) {
        const bool clientWasFull = !client->hasRoom();
        client->m_unread.remove(request.text.size());
        if (clientWasFull && client->hasRoom())
            client->m_listener.wake();
    }
    if (!wasFull || !hasRoomFor(limits::TextSize))
        return;
    for (const auto& [number, client] : m_mailbox.clients())
        client->m_listener.wake();
}

} // namespace ppsfs
