// SPDX-License-Identifier: Apache-2.0
#include "ExitDeadlines.h"

#include <algorithm>

namespace tamobox {

void ExitDeadlines::begin(pid_t process, Clock::time_point graceEnd)
{
    Times& times = m_processes[process];
    times.graceEnd = std::min(times.graceEnd.value_or(graceEnd), graceEnd);
}

void ExitDeadlines::extend(pid_t process, Clock::time_point end)
{
    Times& times = m_processes[process];
    times.extensionEnd = std::max(times.extensionEnd, end);
}

void ExitDeadlines::cancel(pid_t process)
{
    const auto found = m_processes.find(process);
    if (found != m_processes.end())
        found->second.graceEnd.reset();
}

std::optional<ExitDeadlines::Clock::time_point> ExitDeadlines::next() const
{
    std::optional<Clock::time_point> earliest;
    for (const auto& [process, times] : m_processes)
        if (const auto deadline = times.deadline())
            earliest = std::min(earliest.value_or(*deadline), *deadline);
    return earliest;
}

std::vector<pid_t> ExitDeadlines::takeDue(Clock::time_point now)
{
    std::vector<pid_t> due;
    for (auto& [process, times] : m_processes) {
        const auto deadline = times.deadline();
        if (!deadline || *deadline > now)
            continue;
        due.push_back(process);
        times.graceEnd.reset();
    }
    return due;
}

std::optional<ExitDeadlines::Clock::time_point> ExitDeadlines::Times::deadline() const
{
    if (!graceEnd)
        return std::nullopt;
    return std::max(*graceEnd, extensionEnd);
}

} // namespace tamobox
