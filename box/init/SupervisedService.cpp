// SPDX-License-Identifier: Apache-2.0
#include "SupervisedService.h"

#include "common/Failure.h"
#include "common/Program.h"

#include <sys/wait.h>

namespace tamobox {

namespace {

// A service that ends more often than this is broken; starting it for ever would only burn the
// processor.
constexpr std::size_t mostEnds = 10;
constexpr auto endsPeriod = std::chrono::seconds(10);

} // namespace

SupervisedService::SupervisedService(EventLoop& loop, const std::string& program, NoteHandler note)
    : m_loop(loop), m_name(program), m_path(findOwnProgram(program)), m_note(std::move(note))
{
    start();
}

void SupervisedService::start()
{
    m_process = std::make_unique<HelperProcess>(m_loop, std::vector<std::string>{m_path},
                                                HelperProcess::Privilege::None,
                                                [this](const std::string& line) {
                                                    m_lastLine = line;
                                                    if (m_wasReady || isReady())
                                                        m_note(line);
                                                });
}

void SupervisedService::ended(int waitResult, bool ppsIsThere)
{
    m_process->setEnded();
    m_wasReady = m_wasReady || m_process->isReady();
    m_process.reset();
    // Before the first start has succeeded the box fails as a whole, and says why.
    if (!ppsIsThere || !m_wasReady)
        return;
    if (WIFEXITED(waitResult) && WEXITSTATUS(waitResult) == status::ppsGone)
        return;
    const std::string what = m_name + ' ' + textForWaitResult(waitResult);
    if (mayStartAgain()) {
        start();
        m_note(what + "; started again");
    } else {
        m_note(what + "; it ended " + std::to_string(m_ends.size()) +
               " times within 10 s and is not started again");
    }
}

void SupervisedService::readRest()
{
    if (m_process)
        m_process->setEnded();
}

bool SupervisedService::mayStartAgain()
{
    const auto now = EventLoop::Clock::now();
    m_ends.push_back(now);
    while (now - m_ends.front() > endsPeriod)
        m_ends.pop_front();
    return m_ends.size() <= mostEnds;
}

} // namespace tamobox
