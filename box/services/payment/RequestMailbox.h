// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_REQUESTMAILBOX_H
#define TAMOBOX_REQUESTMAILBOX_H

#include "Outboxes.h"

#include "services/ApplicationMailbox.h"

#include <functional>
#include <map>
#include <optional>
#include <string>

namespace tamobox {

/**
 * A mailbox whose requests are answered: `msg` (what is asked for), `id` (a text of the client's
 * choice, 1 to 64 bytes long) and `dat`. One that lacks the first two could not be answered, so it
 * is complained of.
 */
class RequestMailbox
{
public:
    struct Envelope
    {
        ApplicationClient client;
        std::string message;
        std::string id;
        std::optional<int> number; ///< of a request that is handed out again
    };

    /** Handles a request; the reader stands in its attributes, and `text` is the whole of it. A
     * Failure that it throws is complained of. */
    using Handler =
        std::function<void(const Envelope&, MessageReader& request, const std::string& text)>;
    using LeaveHandler = std::function<void(MailboxServer::Client)>;

    /** @param complaints must outlive the object, as the loop must */
    RequestMailbox(EventLoop& loop, const std::string& object, Complaints& complaints,
                   Handler onRequest, LeaveHandler onLeave);

    /** Handles at once what clients have asked, up to a flood's beginning; not to be called while a
     * request is handled. */
    void catchUp();

    /** Handles a text of a request that was handed out before, and got a number, as if it came now;
     * nothing where its client is not there any more. One that is malformed is complained of. */
    void handOutAgain(int number, const std::string& text);

    /**
     * Sends a client a message; `fill` adds its attributes.
     *
     * @return whether it is in the client's queue, or follows as soon as there is room; else it is
     * lost, which is complained of unless the client has gone
     * @throws Failure where there is no room in a message, and ObjectFailure
     */
    bool send(const ApplicationClient& client, const std::function<void(MessageWriter&)>& fill);

private:
    void handle(MailboxServer::Client client, MessageReader& request, const std::string& text,
                std::optional<int> number);

    std::string m_object;
    Complaints& m_complaints;
    Handler m_onRequest;
    std::map<MailboxServer::Client, ApplicationClient> m_clients;
    MailboxServer m_server;
    Outboxes m_outboxes;
};

} // namespace tamobox

#endif
