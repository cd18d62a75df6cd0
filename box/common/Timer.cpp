// SPDX-License-Identifier: Apache-2.0
#include "Timer.h"

#include "Failure.h"

#include <sys/timerfd.h>

#include <algorithm>
#include <cstdint>
#include <type_traits>

namespace tamobox {

namespace {

template<typename ClockType>
constexpr int clockId =
    std::is_same_v<ClockType, std::chrono::system_clock> ? CLOCK_REALTIME : CLOCK_MONOTONIC;

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

template<typename ClockType>
BasicTimer<ClockType>::BasicTimer(EventLoop& loop, EventLoop::Callback callback)
    : m_loop(loop), m_timer(timerfd_create(clockId<ClockType>, TFD_CLOEXEC | TFD_NONBLOCK))
{
    if (!m_timer)
        throw systemFailure("cannot create a timer");
    m_loop.watch(m_timer.get(), [fd = m_timer.get(), call = std::move(callback)] {
        std::uint64_t expirations = 0;
        if (read(fd, &expirations, sizeof expirations) == sizeof expirations)
            call();
    });
}

template<typename ClockType>
BasicTimer<ClockType>::~BasicTimer()
{
    m_loop.unwatch(m_timer.get());
}

template<typename ClockType>
void BasicTimer<ClockType>::startAt(typename ClockType::time_point moment)
{
    // A moment of 0 would stop the timer.
    setMoment(m_timer.get(), std::max(moment.time_since_epoch(), typename ClockType::duration(1)));
}

template<typename ClockType>
void BasicTimer<ClockType>::stop()
{
    setMoment(m_timer.get(), std::chrono::nanoseconds(0));
}

template class BasicTimer<std::chrono::steady_clock>;
template class BasicTimer<std::chrono::system_clock>;

} // namespace tamobox
