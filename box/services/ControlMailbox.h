// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_CONTROLMAILBOX_H
#define TAMOBOX_CONTROLMAILBOX_H

#include "MailboxServer.h"

#include <functional>
#include <map>
#include <string>

namespace tamobox {

/** Who asked, and under which id: what an answer needs. */
struct ControlRequest
{
    MailboxServer::Client client = 0;
    std::string id;
};

/**
 * The mailbox through which `tamo-box` commands reach a service. A request is `msg` (the command),
 * `id` (a text of the client's choice, at most 256 bytes long) and `dat` (an object: the
 * arguments). Its answer is `id` and `res`: `ok`, or `error` with a sentence in `text`. Before it
 * there may be any number of reports, each `id`, `msg` `progress` and `dat`.
 */
class ControlMailbox
{
public:
    enum class Outcome {
        Done,  ///< the command has taken effect and is answered now
        GoesOn ///< it is answered later, with accept() or refuse()
    };

    /**
     * Carries out one command. The reader stands in `dat`, or in a message without arguments. A
     * Failure that it throws is the answer.
     */
    using Command = std::function<Outcome(const ControlRequest&, MessageReader& arguments)>;

    /** @param commands by their names. For the others see MailboxServer. */
    ControlMailbox(EventLoop& loop, const std::string& object,
                   std::map<std::string, Command> commands, MailboxServer::LeaveHandler onLeave);

    /** Answers that a command has taken effect. */
    void accept(const ControlRequest& request);

    /** Answers that a command has failed, and why. */
    void refuse(const ControlRequest& request, const std::string& text);

    /** Reports how far a command is; `fill` adds the members of `dat`. */
    void report(const ControlRequest& request, const std::function<void(MessageWriter&)>& fill);

private:
    void handle(MailboxServer::Client client, MessageReader& request);
    Outcome carryOut(const ControlRequest& request, MessageReader& message);

    std::map<std::string, Command> m_commands;
    MailboxServer m_server;
};

} // namespace tamobox

#endif
