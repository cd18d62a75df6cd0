// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_MAILBOXSERVER_H
#define PPSFS_MAILBOXSERVER_H

#include "Endpoint.h"
#include "QueueLedger.h"

#include <cstdint>
#include <list>
#include <string>
#include <unordered_map>

namespace ppsfs {

class Listener;
class Mailbox;
class MailboxClient;

/** A mailbox's server: reads requests and of clients' comings and goings, writes answers. */
class MailboxServer final : public Endpoint
{
public:
    /** The mailbox must have no server. */
    MailboxServer(Mailbox& mailbox, Listener& listener);
    ~MailboxServer() override;
    MailboxServer(const MailboxServer&) = delete;
    MailboxServer& operator=(const MailboxServer&) = delete;

    bool hasMessage() const override { return !m_inbox.empty(); }
    std::string_view message() override { return m_inbox.front().text; }
    void consume() override;
    int write(std::string_view text, bool replace) override;

private:
    friend class MailboxClient;

    enum class News { Arrival, Request, Departure };
    struct Entry
    {
        News news;
        std::uint64_t client; ///< which may have gone since
        std::string text;
    };
    struct Answer;

    void clientCame(MailboxClient& client);
    void clientWent(MailboxClient& client);
    bool hasRoomFor(std::size_t bytes) const { return m_requests.hasRoomFor(bytes); }
    void receive(MailboxClient& client, std::string request);
    void tell(News news, std::uint64_t client, std::string text);
    void countAsRead(const Entry& request);

    Mailbox& m_mailbox;
    Listener& m_listener;
    std::list<Entry> m_inbox;
    /// By client, the arrivals in the inbox.
    std::unordered_map<std::uint64_t, std::list<Entry>::iterator> m_arrivals;
    QueueLedger m_requests{limits::InboxMessages, limits::InboxBytes};
};

} // namespace ppsfs

#endif
