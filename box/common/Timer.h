// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_TIMER_H
#define TAMOBOX_TIMER_H

#include "Descriptor.h"
#include "EventLoop.h"

namespace tamobox {

/** Calls back from an event loop once, at a moment of the monotonic clock. Stopped by default. */
class Timer
{
public:
    /** @param loop must outlive the timer */
    Timer(EventLoop& loop, EventLoop::Callback callback);
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    /** Calls back at a moment, or at once where it has passed; replaces a moment set before. */
    void startAt(EventLoop::Clock::time_point moment);

    /** Does not call back until it is started again. */
    void stop();

private:
    EventLoop& m_loop;
    Descriptor m_timer;
};

} // namespace tamobox

#endif
