// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_MAILBOXCLIENT_H
#define PPSFS_MAILBOXCLIENT_H

#include "Endpoint.h"
#include "MessageQueue.h"
#include "Opener.h"
#include "QueueLedger.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace ppsfs {

class Listener;
class Mailbox;

/** A mailbox's client: its writes are requests to the server, its reads the server's answers. */
class MailboxClient final : public Endpoint
{
public:
    /** @param reads whether it can read; what is addressed to one that cannot is dropped */
    MailboxClient(Mailbox& mailbox, Listener& listener, const Opener& opener, bool reads);
    ~MailboxClient() override;
    MailboxClient(const MailboxClient&) = delete;
    MailboxClient& operator=(const MailboxClient&) = delete;

    bool hasMessage() const override { return !m_answers.isEmpty(); }
    std::string_view message() override { return m_answers.front(); }
    void consume() override;
    bool hasRoom() const override;
    int write(std::string_view text, bool replace) override;

private:
    friend class MailboxServer;

    /** Queues an answer without telling. False where there is no room for it. */
    bool receive(std::string message);
    /** Takes back the answer that was queued last. */
    void takeBack();
    /** The server has gone, and with it the requests that it had not read. */
    void serverLeft();

    Mailbox& m_mailbox;
    Listener& m_listener;
    const Opener m_opener;
    const bool m_reads;
    const std::uint64_t m_number;
    MessageQueue m_answers;
    std::size_t m_undelivered = 0; ///< what the report at the end of m_answers says; 0: none there

    bool m_known = false; ///< whether the server has read that this client is there
    QueueLedger m_unread; ///< this client's requests in the server's inbox
};

} // namespace ppsfs

#endif
