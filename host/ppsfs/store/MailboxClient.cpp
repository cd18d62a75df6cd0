// SPDX-License-Identifier: Apache-2.0
#include "MailboxClient.h"

#include "Listener.h"
#include "Mailbox.h"
#include "MailboxServer.h"
#include "TextReader.h"

#include <cerrno>
#include <utility>

namespace ppsfs {

MailboxClient::MailboxClient(Mailbox& mailbox, Listener& listener, const Opener& opener, bool reads)
    : m_mailbox(mailbox)
    , m_listener(listener)
    , m_opener(opener)
    , m_reads(reads)
    , m_number(++mailbox.m_lastNumber)
{
    m_mailbox.m_clients.emplace(m_number, this);
    if (m_mailbox.server())
        m_mailbox.server()->clientCame(*this);
}

MailboxClient::~MailboxClient()
{
    m_mailbox.m_clients.erase(m_number);
    if (m_mailbox.server() && !m_mailbox.isClosed())
        m_mailbox.server()->clientWent(*this);
}

void MailboxClient::consume()
{
    m_answers.popFront();
    if (m_answers.isEmpty())
        m_undelivered = 0;
}

bool MailboxClient::hasRoom() const
{
    return !m_mailbox.server() || (m_unread.hasRoomFor(limits::TextSize) &&
                                   m_mailbox.server()->hasRoomFor(limits::TextSize));
}

int MailboxClient::write(std::string_view text, bool)
{
    MailboxServer* const server = m_mailbox.server();
    if (!server)
        return EPIPE;

    const std::string_view heading(m_mailbox.heading().data(), m_mailbox.heading().size() - 1);
    std::string request = m_mailbox.address(m_number) + '\n';
    const std::size_t addressSize = request.size();
    request.reserve(addressSize + text.size() + 1);
    pps::TextReader reader(text);
    pps::Line line;
    while (reader.next(line)) {
        if (line.kind == pps::LineKind::Object && line.text == heading)
            continue;
        if (line.kind != pps::LineKind::Attribute && line.kind != pps::LineKind::DeletedAttribute)
            return EINVAL;
        request += line.text;
        request += '\n';
    }
    if (reader.error() || request.size() == addressSize)
        return EINVAL;
    if (request.size() > limits::TextSize)
        return EFBIG;
    if (!m_unread.hasRoomFor(request.size()) || !server->hasRoomFor(request.size()))
        return EAGAIN;
    server->receive(*this, std::move(request));
    return 0;
}

bool MailboxClient::receive(std::string message)
{
    if (m_reads && !m_answers.push(std::move(message)))
        return false;
    m_undelivered = 0;
    return true;
}

void MailboxClient::takeBack()
{
    if (m_reads)
        m_answers.popBack();
}

void MailboxClient::serverLeft()
{
    const std::size_t lost = m_unread.messages();
    m_unread = QueueLedger();
    m_known = false;
    if (lost > 0 && m_reads) {
        // A report that nobody has read yet grows instead of being joined by another one, so that
        // servers that come and go cannot fill the queue.
        if (m_undelivered > 0)
            m_answers.popBack();
        m_undelivered += lost;
        m_answers.pushAlways(m_mailbox.heading() +
                             "undelivered:n:" + std::to_string(m_undelivered) + '\n');
    }
    m_listener.wake();
}

} // namespace ppsfs
