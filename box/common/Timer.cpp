// SPDX-License-Identifier: Apache-2.0
#include "Timer.h"

#include "Failure.h"

#include <sys/timerfd.h>

#include <algorithm>
#include <cstdint>

namespace tamobox {

namespace {

void setMoment(int timer, std::chrono::nanoseconds moment)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(moment);
    itimerspec setting = {};
    setting.it_value.tv_sec = seconds.count();
    setting.it_value.tv_nsec = (moment - seconds).count();
    if (timerfd_settime(timer, TFD_TIMER_ABSTIME, &setting, nullptr) == -1)
        throw systemFailure("cannot set a timer");
}

} // namespace

Timer::Timer(EventLoop& loop, EventLoop::Callback callback)
    : m_loop(loop), m_timer(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK))
{
    if (!m_timer)
        throw systemFailure("cannot create a timer");
    m_loop.watch(m_timer.get(), [fd = m_timer.get(), call = std::move(callback)] {
        std::uint64_t expirations = 0;
        if (read(fd, &expirations, sizeof expirations) == sizeof expirations)
            call();
    });
}

Timer::~Timer()
{
    m_loop.unwatch(m_timer.get());
}

void Timer::startAt(EventLoop::Clock::time_point moment)
{
    // A moment of 0 would stop the timer.
    setMoment(m_timer.get(), std::max(moment.time_since_epoch(), EventLoop::Clock::duration(1)));
}

void Timer::stop()
{
    setMoment(m_timer.get(), std::chrono::nanoseconds(0));
}

} // namespace tamobox
