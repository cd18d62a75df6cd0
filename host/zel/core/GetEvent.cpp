// SPDX-License-Identifier: Apache-2.0
#include "Diagnostics.h"
#include "ThreadState.h"
#include "common/Call.h"

#include <zel/zel.h>

#include <algorithm>
#include <chrono>
#include <climits>

using zel::Channel;
using zel::ThreadState;

namespace {

/** A waiting's end. */
class Deadline
{
public:
    explicit Deadline(int timeoutMs) : m_timeoutMs(timeoutMs)
    {
        if (timeoutMs > 0)
            m_end = Clock::now() + std::chrono::milliseconds(timeoutMs);
    }

    /** What is left, in whole milliseconds, rounded up; 0: it is over; -1: no limit. */
    int remainingMs() const
    {
        if (m_timeoutMs <= 0)
            return m_timeoutMs;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_end - Clock::now());
        return static_cast<int>(
            std::clamp<std::chrono::milliseconds::rep>(left.count(), 0, INT_MAX));
    }

private:
    using Clock = std::chrono::steady_clock;
    const int m_timeoutMs;
    Clock::time_point m_end{};
};

/** Hands out the event that is next in a channel; NULL where there is none. */
zel_event* takeFrom(ThreadState& thread, Channel& channel)
{
    zel::EventPointer event = channel.take();
    if (!event)
        return nullptr;
    zel::say(zel::Level::Event, "channel %d: event %d of domain %d", channel.id(), event->code(),
             event->domain());
    return thread.keepTaken(std::move(event), channel.id());
}

int getEvent(zel_event_t*& taken, int timeoutMs)
{
    const Deadline deadline(timeoutMs);
    std::size_t lastLooks = 0;
    ThreadState* thread = ThreadState::current();
    if (!thread)
        return EPERM;
    thread->releaseTaken();
    // Completions and handlers may have changed everything: each turn starts from the thread.
    for (;;) {
        thread = ThreadState::current();
        if (!thread)
            return EPERM;
        std::shared_ptr<Channel> channel;
        if (const int error = thread->activeChannel(channel))
            return error;
        if (channel->isLookDue() && channel->look())
            continue;
        taken = takeFrom(*thread, *channel);
        if (taken)
            return 0;
        const int remainingMs = deadline.remainingMs();
        // When the time is over, each descriptor that is ready has its turn once more, and no
        // oftener, so that one which is always ready does not hold this up.
        if (remainingMs == 0 && lastLooks++ > channel->watchedCount())
            return 0;
        if (!channel->wait(remainingMs) && remainingMs == 0)
            lastLooks = SIZE_MAX - 1; // nothing is ready: but what was pushed meanwhile is taken
    }
}

} // namespace

int zel_get_event(zel_event_t** event, int timeout_ms)
{
    return host::call([&] {
        if (!ThreadState::current())
            return EPERM;
        if (!event || timeout_ms < -1)
            return EINVAL;
        zel_event_t* taken = nullptr;
        const int error = getEvent(taken, timeout_ms);
        *event = taken;
        return error;
    });
}
