// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_MAILBOXSERVER_H
#define TAMOBOX_MAILBOXSERVER_H

#include "common/EventLoop.h"
#include "pps/MessageReader.h"
#include "pps/MessageWriter.h"
#include "pps/ObjectFile.h"

#include <sys/types.h>

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
     * Called when a client has come, before everything that it asks; those that are there when the
     * serving begins come, too.
     *
     * @param process that opened the mailbox; 0 where it is outside the box
     */
    using ArrivalHandler = std::function<void(Client, pid_t process)>;

    /** What became of a message to a client. */
    enum class Delivery {
        Sent,
        Gone, ///< the client is no longer there
        Full  ///< it does not read what it is sent; the message is lost
    };

    /**
     * Serves from now on; requests are handed out by the loop.
     *
     * @param object its path below `/pps`; the last part is its name
     * @param onArrival may be empty
     * @throws ObjectFailure
     */
    MailboxServer(EventLoop& loop, const std::string& object, RequestHandler onRequest,
                  LeaveHandler onLeave, ArrivalHandler onArrival = {});
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
    Delivery send(MessageWriter& answer) { return send(answer.text()); }

    /** The same of the text of an answer. */
    Delivery send(const std::string& answer);

    /**
     * Hands out at once what the loop would hand out next.
     *
     * @return false where there is nothing
     */
    bool handOutNext();

    /** The whole text of the message that is being handed out; reading it does not change it. */
    const std::string& currentMessage() const { return m_currentMessage; }

private:
    EventLoop& m_loop;
    std::string m_name;
    ObjectFile m_file;
    std::string m_currentMessage;
    RequestHandler m_onRequest;
    LeaveHandler m_onLeave;
    ArrivalHandler m_onArrival;
};

} // namespace tamobox

#endif
