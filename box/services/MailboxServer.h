// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_MAILBOXSERVER_H
#define TAMOBOX_MAILBOXSERVER_H

#include "common/EventLoop.h"
#include "pps/MessageReader.h"
#include "pps/MessageWriter.h"
#include "pps/ObjectFile.h"

#include <functional>
#include <string>

namespace tamobox {

/**
 * Serves one mailbox: takes the requests of its clients and answers each of them. Exceptions of the
 * handlers leave the event loop.
 */
class MailboxServer
{
public:
    /** The number of a client; it is never used again. */
    using Client = int;

    /** Called with a request; the reader stands in the request's attributes. */
    using RequestHandler = std::function<void(Client, MessageReader&)>;

    /** Called when a client has gone, after everything that it had asked. */
    using LeaveHandler = std::function<void(Client)>;

    /**
     * Serves from now on; requests are handed out by the loop.
     *
     * @param object its path below `/pps`; the last part is its name
     * @throws ObjectFailure
     */
    MailboxServer(EventLoop& loop, const std::string& object, RequestHandler onRequest,
                  LeaveHandler onLeave);
    ~MailboxServer();
    MailboxServer(const MailboxServer&) = delete;
    MailboxServer& operator=(const MailboxServer&) = delete;

    /** Begins an answer to a client: send() it when its attributes have been added. */
    void address(MessageWriter& answer, Client client) const;

    /**
     * Sends an answer. A client that has gone, or that does not read what it is sent, loses it.
     *
     * @throws ObjectFailure
     */
    void send(MessageWriter& answer);

private:
    void readRequests();

    EventLoop& m_loop;
    std::string m_name;
    ObjectFile m_file;
    RequestHandler m_onRequest;
    LeaveHandler m_onLeave;
};

} // namespace tamobox

#endif
