// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_MAILBOX_H
#define PPSFS_MAILBOX_H

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace ppsfs {

class MailboxClient;
class MailboxServer;

/** Where a mailbox's clients and its server find each other. It must outlive them. */
class Mailbox
{
public:
    /** @param heading the line `@name`, with its line feed */
    explicit Mailbox(std::string heading) : m_heading(std::move(heading)) {}
    Mailbox(const Mailbox&) = delete;
    Mailbox& operator=(const Mailbox&) = delete;

    /** The line `@name`, with its line feed. */
    const std::string& heading() const { return m_heading; }

    /** `@name.<client>`, without a line feed. */
    std::string address(std::uint64_t client) const;

    /**
     * Finds out whom a line `@name.<client>` addresses.
     *
     * @return 0 or EINVAL, where it is no such line
     */
    int parseAddress(std::string_view line, std::uint64_t& client) const;

    /** The server, or null. */
    MailboxServer* server() const { return m_server; }

    /** The clients by number, and so in the order in which they came. */
    const std::map<std::uint64_t, MailboxClient*>& clients() const { return m_clients; }

    /** The client of a number, or null where there is none. */
    MailboxClient* client(std::uint64_t number) const;

    /** The object is being removed: from now on nobody is told of anybody. */
    void close() { m_closed = true; }
    bool isClosed() const { return m_closed; }

private:
    friend class MailboxClient;
    friend class MailboxServer;

    const std::string m_heading;
    MailboxServer* m_server = nullptr;
    std::map<std::uint64_t, MailboxClient*> m_clients;
    std::uint64_t m_lastNumber = 0;
    bool m_closed = false;
};

} // namespace ppsfs

#endif
