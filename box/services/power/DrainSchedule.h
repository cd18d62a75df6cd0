// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DRAINSCHEDULE_H
#define TAMOBOX_DRAINSCHEDULE_H

#include <chrono>

namespace tamobox {

/**
 * When a draining battery has which level: one percent less at each step, the steps evenly spread
 * over the whole time. Step 0, at the beginning, is the first level; the last step, at the end, is
 * the last.
 */
class DrainSchedule
{
public:
    /**
     * @param from the first level, in percent
     * @param to the last level, in percent; below `from`
     * @param duration the whole time
     */
    DrainSchedule(int from, int to, std::chrono::milliseconds duration)
        : m_from(from), m_to(to), m_duration(duration)
    {
    }

    /** The number of the last step. */
    int lastStep() const { return m_from - m_to; }

    /** The level from a step on, in percent. */
    int level(int step) const { return m_from - step; }

    /** When a step is due, from the beginning on. */
    std::chrono::nanoseconds due(int step) const
    {
        return std::chrono::nanoseconds(m_duration) * step / lastStep();
    }

private:
    int m_from;
    int m_to;
    std::chrono::milliseconds m_duration;
};

} // namespace tamobox

#endif
