// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_LINEBUDGET_H
#define TAMOBOX_LINEBUDGET_H

#include <chrono>
#include <optional>

namespace tamobox {

/** Lets a few lines in each period through and counts the others. */
class LineBudget
{
public:
    using Clock = std::chrono::steady_clock;

    LineBudget(int linesInAPeriod, Clock::duration period)
        : m_linesInAPeriod(linesInAPeriod), m_period(period)
    {
    }

    /** Whether a line may be written now. */
    bool admits(Clock::time_point now)
    {
        if (now >= m_periodEnd && m_leftOut == 0) {
            m_periodEnd = now + m_period;
            m_written = 0;
        }
        if (m_written < m_linesInAPeriod) {
            ++m_written;
            return true;
        }
        ++m_leftOut;
        return false;
    }

    /** When it has to be said how many lines were left out; nothing where none was. */
    std::optional<Clock::time_point> reckoningTime() const
    {
        return m_leftOut == 0 ? std::nullopt : std::optional(m_periodEnd);
    }

    /** How many lines were left out since the last reckoning; begins a new period. */
    int reckon(Clock::time_point now)
    {
        m_periodEnd = now + m_period;
        m_written = 0;
        const int leftOut = m_leftOut;
        m_leftOut = 0;
        return leftOut;
    }

private:
    int m_linesInAPeriod;
    Clock::duration m_period;
    Clock::time_point m_periodEnd;
    int m_written = 0;
    int m_leftOut = 0;
};

} // namespace tamobox

#endif
