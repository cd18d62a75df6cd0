// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_TIMER_H
#define TAMOBOX_TIMER_H

#include "Descriptor.h"
#include "EventLoop.h"

#include <chrono>

namespace tamobox {

/** Calls back from an event loop once, at a moment of a clock. Stopped by default. */
template<typename ClockType>
class BasicTimer
{
public:
    /** @param loop must outlive the timer */
    BasicTimer(EventLoop& loop, EventLoop::Callback callback);
    ~BasicTimer();
    BasicTimer(const BasicTimer&) = delete;
    BasicTimer& operator=(const BasicTimer&) = delete;

    /** Calls back at a moment, or at once where it has passed; replaces a moment set before. */
    void startAt(typename ClockType::time_point moment);

    /** Does not call back until it is started again. */
    void stop();

private:
    EventLoop& m_loop;
    Descriptor m_timer;
};

/** Of the monotonic clock. */
using Timer = BasicTimer<EventLoop::Clock>;

/** Of the wall clock: where that is set, the moment comes earlier or later with it. */
using WallTimer = BasicTimer<std::chrono::system_clock>;

} // namespace tamobox

#endif
