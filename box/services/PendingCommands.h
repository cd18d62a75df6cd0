// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PENDINGCOMMANDS_H
#define TAMOBOX_PENDINGCOMMANDS_H

#include "common/Timer.h"
#include "services/ControlMailbox.h"

#include <functional>
#include <list>
#include <optional>
#include <string>

namespace tamobox {

/**
 * The commands that are not answered yet. Some are held until they can be carried out: each is
 * tried, in the order in which they came, whenever something has changed. All of them are reported
 * once in a second, so that their clients know that they are not forgotten.
 */
class PendingCommands
{
public:
    /** What came of trying a held command. */
    struct Trial
    {
        enum class Result {
            CarriedOut, ///< it is answered now
            Begun,      ///< it is answered later, with accept() or refuse()
            Waits,      ///< not yet possible, because of `reason`
            Queues      ///< likewise, but its time does not run
        };
        Result result = Result::CarriedOut;
        std::string reason = {};
    };

    /** Carries out a held command where that is possible. A Failure that it throws is the answer.
     */
    using Attempt = std::function<Trial()>;

    /**
     * @param control must outlive the object
     * @param beforeAnswer called before a held command is answered
     */
    PendingCommands(EventLoop& loop, ControlMailbox& control, std::function<void()> beforeAnswer);

    /** Holds a command until it can be carried out, at first tried now, at most for `wait`. */
    void hold(const ControlRequest& request, std::chrono::milliseconds wait, Attempt attempt);

    /** Tries each held command again. */
    void tryAgain();

    /** Answers a command that was begun. One whose client has gone is none any longer. */
    void accept(const ControlRequest& request);
    void refuse(const ControlRequest& request, const std::string& text);
    void report(const ControlRequest& request, const std::function<void(MessageWriter&)>& fill);

    /** Forgets the commands of a client that has gone. */
    void clientLeft(MailboxServer::Client client);

private:
    using Clock = EventLoop::Clock;

    struct Command
    {
        ControlRequest request;
        std::chrono::milliseconds wait;
        Clock::time_point deadline;
        Attempt attempt; // empty once it has begun
        std::string reason = {};
        bool finished = false;
    };

    void tryOne(Command& command);
    void finish(Command& command, const std::optional<std::string>& failure);
    bool close(const ControlRequest& request);
    void tick();
    void setTimer();

    ControlMailbox& m_control;
    std::function<void()> m_beforeAnswer;
    std::list<Command> m_commands;
    bool m_isTrying = false;
    bool m_tryOnceMore = false;
    Clock::time_point m_nextSign;
    Timer m_timer;
};

} // namespace tamobox

#endif
