// SPDX-License-Identifier: Apache-2.0
#include "PendingCommands.h"

#include "common/Failure.h"
#include "pps/ObjectFile.h"

#include <algorithm>

namespace tamobox {

namespace {

constexpr auto longestSilence = std::chrono::seconds(1);

} // namespace

PendingCommands::PendingCommands(EventLoop& loop, ControlMailbox& control,
                                 std::function<void()> beforeAnswer)
    : m_control(control), m_beforeAnswer(std::move(beforeAnswer)), m_timer(loop, [this] { tick(); })
{
}

void PendingCommands::hold(const ControlRequest& request, std::chrono::milliseconds wait,
                           Attempt attempt)
{
    const auto now = Clock::now();
    if (m_commands.empty())
        m_nextSign = now + longestSilence;
    m_commands.push_back({request, wait, now + wait, std::move(attempt)});
    tryAgain();
}

// Carrying one out may change what another waits for, so that this is called from within itself.
void PendingCommands::tryAgain()
{
    m_tryOnceMore = true;
    if (m_isTrying)
        return;
    m_isTrying = true;
    while (std::exchange(m_tryOnceMore, false)) {
        for (Command& command : m_commands)
            if (!command.finished && command.attempt)
                tryOne(command);
        m_commands.remove_if([](const Command& command) { return command.finished; });
    }
    m_isTrying = false;
    setTimer();
}

void PendingCommands::tryOne(Command& command)
{
    try {
        const Attempt attempt = command.attempt;
        const Trial trial = attempt();
        switch (trial.result) {
        case Trial::Result::CarriedOut:
            finish(command, std::nullopt);
            break;
        case Trial::Result::Begun:
            command.attempt = nullptr;
            break;
        case Trial::Result::Queues:
            command.deadline = Clock::now() + command.wait;
            break;
        case Trial::Result::Waits:
            command.reason = trial.reason;
            break;
        }
    } catch (const ObjectFailure&) {
        throw;
    } catch (const Failure& failure) {
        finish(command, failure.what());
    }
}

void PendingCommands::finish(Command& command, const std::optional<std::string>& failure)
{
    if (std::exchange(command.finished, true))
        return;
    m_beforeAnswer();
    if (failure)
        m_control.refuse(command.request, *failure);
    else
        m_control.accept(command.request);
}

void PendingCommands::accept(const ControlRequest& request)
{
    if (close(request))
        m_control.accept(request);
}

void PendingCommands::refuse(const ControlRequest& request, const std::string& text)
{
    if (close(request))
        m_control.refuse(request, text);
}

void PendingCommands::report(const ControlRequest& request,
                             const std::function<void(MessageWriter&)>& fill)
{
    m_control.report(request, fill);
}

void PendingCommands::clientLeft(MailboxServer::Client client)
{
    for (Command& command : m_commands)
        command.finished = command.finished || command.request.client == client;
    tryAgain();
}

bool PendingCommands::close(const ControlRequest& request)
{
    const auto found =
        std::find_if(m_commands.begin(), m_commands.end(), [&](const Command& known) {
            return !known.finished && known.request.client == request.client &&
                   known.request.id == request.id;
        });
    if (found == m_commands.end())
        return false;
    found->finished = true;
    tryAgain();
    return true;
}

void PendingCommands::tick()
{
    tryAgain(); // the time of one that queues has not run
    const auto now = Clock::now();
    for (Command& command : m_commands)
        if (command.attempt && command.deadline <= now)
            finish(command,
                   command.reason + " (waited " + std::to_string(command.wait.count()) + " ms)");
    m_commands.remove_if([](const Command& command) { return command.finished; });
    if (m_nextSign <= now) {
        for (const Command& command : m_commands)
            m_control.report(command.request, [](MessageWriter&) {});
        m_nextSign = now + longestSilence;
    }
    setTimer();
}

void PendingCommands::setTimer()
{
    if (m_commands.empty()) {
        m_timer.stop();
        return;
    }
    Clock::time_point next = m_nextSign;
    for (const Command& command : m_commands)
        if (command.attempt)
            next = std::min(next, command.deadline);
    m_timer.startAt(next);
}

} // namespace tamobox
