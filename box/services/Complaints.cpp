// SPDX-License-Identifier: Apache-2.0
#include "Complaints.h"

#include <cerrno>
#include <cstdio>

namespace tamobox {

namespace {

constexpr int linesInAPeriod = 8;
constexpr auto period = std::chrono::seconds(1);
constexpr std::size_t longestQuote = 80;

} // namespace

Complaints::Complaints(EventLoop& loop)
    : m_budget(linesInAPeriod, period), m_timer(loop, [this] { reckon(); })
{
}

void Complaints::add(const std::string& sentence)
{
    if (m_budget.admits(EventLoop::Clock::now()))
        write(sentence);
    else
        m_timer.startAt(*m_budget.reckoningTime());
}

void Complaints::reckon()
{
    write(std::to_string(m_budget.reckon(EventLoop::Clock::now())) +
          " more lines like that were left out");
}

// One write for each line, so that lines stay whole beside those of others.
void Complaints::write(const std::string& sentence)
{
    std::fputs((std::string(program_invocation_short_name) + ": " + sentence + '\n').c_str(),
               stderr);
}

std::string quoted(const std::string& text)
{
    std::string shown;
    for (const char c : text.substr(0, longestQuote))
        shown += c >= ' ' && c < '\x7f' ? c : '?';
    return '\'' + shown + (text.size() > longestQuote ? "..." : "") + '\'';
}

} // namespace tamobox
